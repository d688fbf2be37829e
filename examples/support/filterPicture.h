// The picture of a filter: its response over the spectra of what went in and what came out.
#pragma once

#include <string>
#include <vector>

#include "picture.h"
#include "samples.h"
#include "spectrum.h"

namespace support {

/// The mean power spectrum of a stream, gathered block by block in memory that does not grow.
class MeanSpectrum {
  public:
    MeanSpectrum();

    /// The next samples of any channel, in units of a 16-bit sample.
    void add(const Zel32f* samples, int len);
    int bins() const { return spectrum_.bins(); }
    /// The mean power of a bin, that of a full-scale sine being 1.
    double power(int bin) const;

  private:
    Spectrum spectrum_;
    Samples<Zel32f> last_;
    std::vector<float> sum_;
    double spectra_ = 0;
};

/// What the picture tells.
struct FilterFacts {
    std::string title, details;
    int rate;
    std::vector<double> edges; ///< in hertz
    const std::vector<Zel64f>& taps;
    const MeanSpectrum& before;
    const MeanSpectrum& after;
};

Picture drawFilter(const FilterFacts& facts);

} // namespace support
