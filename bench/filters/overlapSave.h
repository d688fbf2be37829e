// Overlap-save written on FFTW, as the peer of the FFT engine.
#pragma once

#include "support/array.h"
#include "support/fftw.h"

#include <algorithm>
#include <chrono>
#include <cstring>
#include <memory>
#include <pmmintrin.h>
#include <string>

namespace bench {

/// A filter of n taps by blocks of one length.
class FftwFilter {
  public:
    FftwFilter(const Fftw<Zel32f>& theBuild, const Zel32f* taps, int n, int theLength)
        : build(theBuild), length(theLength), h(n - 1), block(length), bins(length / 2 + 1),
          spectrum(length / 2 + 1)
    {
        auto* const pBins = reinterpret_cast<fftwf_complex*>(bins.get());
        there = build.forward(length, block, pBins, FFTW_MEASURE);
        back = build.inverse(length, pBins, block, FFTW_MEASURE);
        std::fill_n(block.get(), length, 0.0f);
        for (int k = 0; k < n; k++)
            block.get()[k] = taps[k] / static_cast<float>(length);
        build.execute(there);
        std::copy_n(bins.get(), length / 2 + 1, spectrum.get());
    }
    FftwFilter(const FftwFilter&) = delete;
    FftwFilter& operator=(const FftwFilter&) = delete;
    ~FftwFilter()
    {
        build.destroy(there);
        build.destroy(back);
    }

    /// x has its history in front.
    void run(const Zel32f* x, Zel32f* y, int count) const
    {
        const int gain = length - h;
        for (int done = 0; done < count; done += gain) {
            const int now = std::min(gain, count - done);
            const auto bytes = static_cast<std::size_t>(h + now) * sizeof(float);
            std::memcpy(block.get(), x + done - h, bytes);
            if (now < gain)
                std::fill_n(block.get() + h + now, gain - now, 0.0f);
            build.execute(there);
            int k = 0;
            for (; k + 2 <= length / 2; k += 2) {
                auto* const p = reinterpret_cast<float*>(bins.get() + k);
                const __m128 a = _mm_load_ps(p);
                const __m128 b = _mm_load_ps(reinterpret_cast<const float*>(spectrum.get() + k));
                const __m128 swapped = _mm_shuffle_ps(a, a, 0xB1);
                _mm_store_ps(p, _mm_addsub_ps(_mm_mul_ps(a, _mm_moveldup_ps(b)),
                                              _mm_mul_ps(swapped, _mm_movehdup_ps(b))));
            }
            bins.get()[k] = {bins.get()[k].re * spectrum.get()[k].re, 0};
            build.execute(back);
            std::memcpy(y + done, block.get() + h, static_cast<std::size_t>(now) * sizeof(float));
        }
    }

    /// The one whose blocks take the least time on so many samples.
    static std::shared_ptr<FftwFilter> best(const Fftw<Zel32f>& build, const Zel32f* taps, int n,
                                            const Zel32f* x, Zel32f* y, int count)
    {
        std::shared_ptr<FftwFilter> chosen;
        double least = 0;
        for (int length = 32; length <= 65536; length *= 2) {
            if (length < 2 * n)
                continue;
            auto filter = std::make_shared<FftwFilter>(build, taps, n, length);
            double quickest = 1e9;
            for (int round = 0; round < 20; round++) {
                const auto start = std::chrono::steady_clock::now();
                filter->run(x, y, count);
                const std::chrono::duration<double> took = std::chrono::steady_clock::now() - start;
                quickest = std::min(quickest, took.count());
            }
            if (!chosen || quickest < least) {
                chosen = filter;
                least = quickest;
            }
        }
        return chosen;
    }
    std::string blocks() const { return std::to_string(length); }

  private:
    Fftw<Zel32f> build;
    int length, h;
    Array<Zel32f> block;
    Array<Zel32fc> bins, spectrum;
    fftwf_plan there = nullptr, back = nullptr;
};

} // namespace bench
