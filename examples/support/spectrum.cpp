#include "spectrum.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "program.h"

namespace support {

Spectrum::Spectrum(int order, float unit)
    : size_(1 << order), window_(samples32f(size_)), work_(samples32f(size_)), spectrum_(samples32f(size_))
{
    // Three buffers: the plan, which is kept; scratch for making it; scratch for each transform.
    int planSize = 0, initSize = 0, bufferSize = 0;
    ok(zelsFFTGetSize_R_32f(order, zelFftScaleNone, zelHintNone, &planSize, &initSize, &bufferSize));
    planMemory_ = samples8u(planSize);
    buffer_ = samples8u(std::max(bufferSize, 1));
    const Samples<Zel8u> scratch = samples8u(std::max(initSize, 1));
    ok(zelsFFTInit_R_32f(&plan_, order, zelFftScaleNone, zelHintNone, planMemory_.get(), scratch.get()));

    // The Hann window, scaled so that a full-scale sine in the middle of a bin gives the power 1.
    for (int i = 0; i < size_; i++)
        window_[static_cast<size_t>(i)] =
            static_cast<float>((1 - std::cos(2 * std::numbers::pi * i / size_)) * 2 / size_ / unit);
}

void Spectrum::add(const Zel32f* samples, float* power)
{
    ok(zelsMul_32f(samples, window_.get(), work_.get(), size_));
    ok(zelsFFTFwd_RToPerm_32f(work_.get(), spectrum_.get(), plan_, buffer_.get()));
    // Perm: the lowest and the highest bin, purely real, share the place of the first complex number; they hold the
    // whole of their frequency, the others half of it.
    const float lowest = spectrum_[0] / 2, highest = spectrum_[1] / 2;
    ok(zelsPowerSpectr_32fc(reinterpret_cast<const Zel32fc*>(spectrum_.get()), work_.get(), size_ / 2));
    ok(zelsAdd_32f_I(work_.get() + 1, power + 1, size_ / 2 - 1));
    power[0] += lowest * lowest;
    power[size_ / 2] += highest * highest;
}

} // namespace support
