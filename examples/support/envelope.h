// The outline of a recording, gathered block by block in memory that does not grow with its length.
#pragma once

#include <vector>

#include "zels.h"

namespace support {

/// The value of a full-scale sample after conversion from 16 bits.
constexpr float fullScale = 32768;

/// What falls on one column of a picture, all channels together, in units of full scale.
struct Column {
    float low = 0;
    float high = 0;
    double energy = 0; ///< sum of squares
    long long samples = 0;
    long long clipped = 0;

    double rms() const;
};

/// What is clipped, in units of a 16-bit sample: samples below `low`, and from `high` on. Rounding to nearest, ties
/// to even, takes 32767.5 out of the range of 16 bits, and -32768.5 into it.
struct Clipping {
    double low = -32768.5;
    double high = 32767.5;
};

class Envelope {
  public:
    /// `frames` is the length that the columns span, of which add() may fill a part only.
    Envelope(long long frames, int channels, int maxColumns, Clipping clipping = {});

    /// Takes in the next block, in units of a 16-bit sample.
    void add(const Zel32f* samples, int frames);

    const std::vector<Column>& columns() const { return columns_; }
    /// The greatest magnitude, in units of full scale.
    double peak() const { return peak_ / fullScale; }
    long long peakFrame() const { return peakFrame_; }
    /// How many samples are clipped.
    long long clipped() const { return clipped_; }

  private:
    Column measured(const Zel32f* samples, int frames);

    long long frames_;
    int channels_;
    Clipping clipping_;
    long long done_ = 0;
    std::vector<Column> columns_;
    float peak_ = 0;
    long long peakFrame_ = 0;
    long long clipped_ = 0;
};

} // namespace support
