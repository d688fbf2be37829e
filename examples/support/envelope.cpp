#include "envelope.h"

#include <algorithm>
#include <cmath>

#include "program.h"

namespace support {

double Column::rms() const
{
    return samples > 0 ? std::sqrt(energy / static_cast<double>(samples)) : 0;
}

Envelope::Envelope(long long frames, int channels, int maxColumns, Clipping clipping)
    : frames_(frames), channels_(channels), clipping_(clipping),
      columns_(static_cast<size_t>(std::min<long long>(frames, maxColumns)))
{
}

void Envelope::add(const Zel32f* samples, int frames)
{
    const long long count = static_cast<long long>(columns_.size());
    while (frames > 0) {
        const long long index = done_ * count / frames_;
        const long long columnEnd = ((index + 1) * frames_ + count - 1) / count;
        const int piece = static_cast<int>(std::min<long long>(frames, columnEnd - done_));
        const Column part = measured(samples, piece);
        Column& column = columns_[static_cast<size_t>(index)];
        column.low = column.samples == 0 ? part.low : std::min(column.low, part.low);
        column.high = column.samples == 0 ? part.high : std::max(column.high, part.high);
        column.energy += part.energy;
        column.samples += part.samples;
        column.clipped += part.clipped;
        clipped_ += part.clipped;
        done_ += piece;
        samples += static_cast<long long>(piece) * channels_;
        frames -= piece;
    }
}

Column Envelope::measured(const Zel32f* samples, int frames)
{
    const int count = frames * channels_;
    Zel32f low = 0, high = 0, norm = 0, peak = 0;
    int at = 0;
    ok(zelsMinMax_32f(samples, count, &low, &high));
    ok(zelsNorm_L2_32f(samples, count, &norm));
    if (std::max(high, -low) > peak_) {
        ok(zelsMaxAbsIndx_32f(samples, count, &peak, &at));
        peak_ = peak;
        peakFrame_ = done_ + at / channels_;
    }
    const bool fits = high < clipping_.high && low >= clipping_.low;
    const auto clipped = fits ? 0 : std::count_if(samples, samples + count, [this](double x) {
        return x >= clipping_.high || x < clipping_.low;
    });
    const double energy = double{norm} * norm / (double{fullScale} * fullScale);
    return {low / fullScale, high / fullScale, energy, count, clipped};
}

} // namespace support
