#include "filterPicture.h"

#include <algorithm>
#include <cmath>
#include <functional>

#include "program.h"

namespace support {

namespace {

constexpr int order = 12;
constexpr int plotWidth = 1320, plotHeight = 520;
constexpr double highest = 10, lowest = -130; // decibels

/// Frequencies on a logarithmic axis from 20 Hz (or a hundredth of the highest one) to half the sampling rate.
class Axis {
  public:
    Axis(Box box, int rate) : box_(box), high_(rate / 2.0), low_(std::min(20.0, high_ / 100)) {}

    double frequency(double x) const { return low_ * std::pow(high_ / low_, (x - box_.x) / box_.width); }
    double x(double frequency) const
    {
        return box_.x + box_.width * std::log(frequency / low_) / std::log(high_ / low_);
    }
    double y(double level) const
    {
        return box_.y + box_.height * (highest - std::clamp(level, lowest, highest)) / (highest - lowest);
    }
    std::vector<Tick> ticks() const
    {
        std::vector<Tick> ticks;
        for (double decade = 1e-3; decade < high_; decade *= 10)
            for (const double f : {decade, 2 * decade, 5 * decade})
                if (f > low_ * 0.999 && f < high_)
                    ticks.push_back({(x(f) - box_.x) / box_.width,
                                     f < 1000 ? text("%g Hz", f) : text("%g kHz", f / 1000)});
        return ticks;
    }

  private:
    Box box_;
    double high_, low_;
};

double decibels(double power)
{
    return 10 * std::log10(std::max(power, 1e-30));
}

/// The magnitude of the response: the dot product of the taps and a tone.
double gainAt(const std::vector<Zel64f>& taps, double rFreq, std::vector<Zel64fc>& tone)
{
    const int n = static_cast<int>(taps.size());
    tone.resize(taps.size());
    Zel64f phase = 0;
    Zel64fc sum;
    ok(zelsTone_64fc(tone.data(), n, 1, rFreq, &phase, zelHintFast));
    ok(zelsDotProd_64f64fc(taps.data(), tone.data(), n, &sum));
    return std::hypot(sum.re, sum.im);
}

/// A line through the levels at the columns of the plot; where `filled`, with the area below it.
void drawCurve(Picture& picture, const Axis& axis, Box box, const std::vector<double>& levels, Colour colour,
               double thickness, bool filled)
{
    cairo_t* const pen = picture.pen();
    const auto path = [&] {
        cairo_new_path(pen);
        for (size_t i = 0; i < levels.size(); i++)
            cairo_line_to(pen, box.x + static_cast<double>(i) + 0.5, axis.y(levels[i]));
    };
    cairo_save(pen);
    cairo_rectangle(pen, box.x, box.y, box.width, box.height);
    cairo_clip(pen);
    if (filled) {
        path();
        cairo_line_to(pen, box.right(), box.bottom());
        cairo_line_to(pen, box.x, box.bottom());
        picture.use(colour.faded(0.18));
        cairo_fill(pen);
    }
    path();
    picture.use(colour);
    cairo_set_line_width(pen, thickness);
    cairo_set_line_join(pen, CAIRO_LINE_JOIN_ROUND);
    cairo_stroke(pen);
    cairo_restore(pen);
}

/// A spectrum on the columns: the strongest bin of a column, or a blend of two where bins are wider.
std::vector<double> levelsOf(const MeanSpectrum& spectrum, const Axis& axis, Box box, int rate)
{
    const auto binAt = [&](double x) { return axis.frequency(x) / rate * 2 * (spectrum.bins() - 1); };
    std::vector<double> levels;
    for (int i = 0; i < plotWidth; i++) {
        const double low = binAt(box.x + i),
                     high = std::min<double>(binAt(box.x + i + 1), spectrum.bins() - 1);
        double power = 0;
        if (high - low >= 1) {
            for (int bin = static_cast<int>(std::ceil(low)); bin <= high; bin++)
                power = std::max(power, spectrum.power(bin));
        } else {
            const double middle = (low + high) / 2;
            const int below = std::min(static_cast<int>(middle), spectrum.bins() - 2);
            power = std::lerp(spectrum.power(below), spectrum.power(below + 1), middle - below);
        }
        levels.push_back(decibels(power));
    }
    return levels;
}

void drawLegend(Picture& picture, double right, double y,
                const std::vector<std::pair<std::string, Colour>>& rows)
{
    double x = right;
    for (auto row = rows.rbegin(); row != rows.rend(); ++row) {
        x -= 9.0 * static_cast<double>(row->first.size()) + 30;
        picture.line(x, y - 4, x + 20, y - 4, row->second, 3);
        picture.write(x + 26, y, row->first, 13, colours::ink);
    }
}

} // namespace

MeanSpectrum::MeanSpectrum()
    : spectrum_(order, fullScale), last_(samples32f(spectrum_.size())),
      sum_(static_cast<size_t>(spectrum_.bins()))
{
}

void MeanSpectrum::add(const Zel32f* samples, int len)
{
    const int size = spectrum_.size();
    for (int at = 0; at < len; at += size) {
        const int count = std::min(size, len - at);
        const Zel32f* piece = samples + at;
        if (count < size) {
            ok(zelsZero_32f(last_.get(), size));
            ok(zelsCopy_32f(piece, last_.get(), count));
            piece = last_.get();
        }
        spectrum_.add(piece, sum_.data());
        spectra_ += static_cast<double>(count) / size;
    }
}

double MeanSpectrum::power(int bin) const
{
    return spectra_ > 0 ? sum_[static_cast<size_t>(bin)] / spectra_ : 0;
}

Picture drawFilter(const FilterFacts& facts)
{
    const Box box{90, 84, plotWidth, plotHeight};
    Picture picture(1440, 660);
    const Axis axis(box, facts.rate);
    picture.fill(box, colours::lane);
    const std::vector<Tick> frequencies = axis.ticks();
    drawGrid(picture, box, frequencies);
    std::vector<Tick> levels;
    for (double level = lowest + 10; level <= highest; level += 20)
        levels.push_back({(level - lowest) / (highest - lowest),
                          (level < 0 ? "\u2212" : "") + text("%.0f dB", std::fabs(level))});
    drawValueAxis(picture, box, levels);

    const Colour before = colours::grey, after = colours::series(0), response = colours::series(1);
    drawCurve(picture, axis, box, levelsOf(facts.before, axis, box, facts.rate), before, 1, true);
    drawCurve(picture, axis, box, levelsOf(facts.after, axis, box, facts.rate), after, 1.2, true);
    std::vector<double> gains;
    std::vector<Zel64fc> tone;
    for (int i = 0; i < plotWidth; i++) {
        const double gain = gainAt(facts.taps, axis.frequency(box.x + i + 0.5) / facts.rate, tone);
        gains.push_back(decibels(gain * gain));
    }
    drawCurve(picture, axis, box, gains, response, 2.2, false);
    for (const double edge : facts.edges)
        picture.line(axis.x(edge), box.y, axis.x(edge), box.bottom(), response.faded(0.5));

    drawTimeLabels(picture, box, frequencies);
    picture.write(box.x, 34, facts.title, 21, colours::ink, Align::left, true, box.width * 0.55);
    picture.write(box.right(), 34, facts.details, 14, colours::grey, Align::right);
    drawLegend(picture, box.right(), 66,
               {{"spectrum before", before}, {"spectrum after", after}, {"response", response}});
    picture.write(box.right(), picture.height() - 12.0, "spectra: 0 dB is a full-scale sine", 12,
                  colours::grey, Align::right);
    return picture;
}

} // namespace support
