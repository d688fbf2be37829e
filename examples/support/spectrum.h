// Power spectra.
#pragma once

#include "samples.h"
#include "zels.h"

namespace support {

/// The power spectrum of a windowed stretch of samples.
class Spectrum {
  public:
    /// Of 2^order samples; `unit` is the value of a full-scale sample.
    Spectrum(int order, float unit);

    int size() const { return size_; }
    int bins() const { return size_ / 2 + 1; }
    /// Adds the power of `samples` to `power`, one value a bin, a full-scale sine being 1.
    void add(const Zel32f* samples, float* power);

  private:
    int size_;
    Samples<Zel32f> window_, work_, spectrum_;
    Samples<Zel8u> planMemory_, buffer_;
    ZelsFftPlan_R_32f* plan_ = nullptr;
};

} // namespace support
