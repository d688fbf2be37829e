// zels-spectrogram: draws which frequencies sound when in a 16-bit recording.
//
// Windowed stretches of the recording go through the real fast Fourier transform of zels; the power of each is drawn as
// a column of the picture.
#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <getopt.h>
#include <optional>
#include <string>
#include <vector>

#include "support/envelope.h"
#include "support/outputFile.h"
#include "support/picture.h"
#include "support/program.h"
#include "support/progress.h"
#include "support/recording.h"
#include "support/samples.h"
#include "support/spectrum.h"
#include "zels.h"

using namespace support;

namespace {

constexpr const char* help =
    R"(usage: zels-spectrogram [-o OUT.png] [--size N] [--top HZ] [--range DB] IN.wav

Draws the spectrogram of a 16-bit recording: time to the right, frequency upwards,
power as colour, in decibels below that of a full-scale sine.

  -o OUT.png        where the picture goes (without: spectrogram.png)
  --size N          samples in a spectrum, a power of two from 64 to 65536 (without:
                    about 40 milliseconds)
  --top HZ          the highest frequency drawn (without: half the sampling rate)
  --range DB        the decibels that the colours span (without: 90)
  --help            prints this text

Exit status: 0 if all went well, 1 if not; then no file is left behind.
)";

constexpr int plotWidth = 1320, plotHeight = 600;

struct Request {
    std::string path;
    std::string picturePath = "spectrogram.png";
    int order = 0; ///< 0: chosen by the sampling rate
    double top = 0;
    double range = 90;
};

/// What the command line asks for; nothing if it asked for help alone.
std::optional<Request> readCommandLine(int argc, char** argv)
{
    static const option options[] = {
        {"output", required_argument, nullptr, 'o'}, {"size", required_argument, nullptr, 's'},
        {"top", required_argument, nullptr, 't'},    {"range", required_argument, nullptr, 'r'},
        {"help", no_argument, nullptr, 'h'},         {}};
    Request request;
    for (int c; (c = getopt_long(argc, argv, "o:h", options, nullptr)) != -1;) {
        if (c == 'o') {
            request.picturePath = optarg;
        } else if (c == 's') {
            const double size = number(optarg).value_or(0);
            while (request.order < 17 && size != std::exp2(request.order))
                request.order++;
            if (request.order < 6 || request.order > 16)
                throw Failure(text("--size %s: give a power of two from 64 to 65536", optarg));
        } else if (c == 't') {
            request.top = number(optarg).value_or(0);
            if (request.top < 1)
                throw Failure(text("--top %s: give a frequency of 1 Hz or more", optarg));
        } else if (c == 'r') {
            request.range = number(optarg).value_or(0);
            if (request.range < 10 || request.range > 200)
                throw Failure(text("--range %s: give from 10 to 200 decibels", optarg));
        } else if (c == 'h') {
            std::fputs(help, stdout);
            return std::nullopt;
        } else {
            throw Failure("try zels-spectrogram --help");
        }
    }
    if (optind + 1 != argc)
        throw Failure("give one recording; try zels-spectrogram --help");
    request.path = argv[optind];
    return request;
}

/// The powers on the pixels of the picture, column by column from the left, each from the lowest frequency up.
struct Spectrogram {
    size_t columns; ///< fewer than the picture has if the recording is very short
    std::vector<float> power;
    double top; ///< the highest frequency

    float peak = 0; ///< the power of the strongest bin, its frequency, and the middle of its column in time
    double peakFrequency = 0;
    double peakSeconds = 0;
};

/// Brings the bins of a spectrum onto the rows of the picture: the strongest bin on a row, or a blend of two bins
/// where they are wider than the rows.
void toRows(const std::vector<float>& bins, double binsPerRow, float* rows)
{
    for (int row = 0; row < plotHeight; row++) {
        const double low = binsPerRow * row, high = low + binsPerRow;
        const auto first = static_cast<size_t>(std::ceil(low)), end = static_cast<size_t>(std::ceil(high));
        if (end > first + 1) {
            rows[row] = *std::max_element(&bins[first], &bins[end - 1] + 1);
        } else {
            const double middle = (low + high) / 2;
            const size_t below = std::min(static_cast<size_t>(middle), bins.size() - 2);
            const float part = static_cast<float>(middle - static_cast<double>(below));
            rows[row] = bins[below] * (1 - part) + bins[below + 1] * part;
        }
    }
}

/// The stretch of a recording that lies under the window, channel by channel.
class Stretch {
  public:
    /// Begins with silence, ahead of the first sample.
    Stretch(Recording& recording, int size, int longestStep);

    /// Slides on by `step` frames of the recording, or of silence past its end.
    void slide(int step);
    const std::vector<Samples<Zel32f>>& channels() const { return channels_; }

  private:
    Recording& recording_;
    int size_;
    long long left_;
    Samples<Zel16s> file_;
    Samples<Zel32f> fresh_;
    std::vector<Samples<Zel32f>> channels_;
};

Stretch::Stretch(Recording& recording, int size, int longestStep)
    : recording_(recording), size_(size), left_(recording.frames()),
      file_(samples16s(longestStep * recording.channels())),
      fresh_(samples32f(longestStep * recording.channels()))
{
    for (int c = 0; c < recording.channels(); c++) {
        channels_.push_back(samples32f(size));
        ok(zelsZero_32f(channels_.back().get(), size));
    }
}

void Stretch::slide(int step)
{
    const int count = recording_.channels(), there = static_cast<int>(std::min<long long>(step, left_));
    ok(zelsZero_32f(fresh_.get(), step * count));
    if (there > 0) {
        recording_.read(file_.get(), there);
        ok(zelsConvert_16s32f(file_.get(), fresh_.get(), there * count));
    }
    left_ -= there;
    for (int c = 0; c < count; c++) {
        Zel32f* samples = channels_[static_cast<size_t>(c)].get();
        ok(zelsMove_32f(samples + step, samples, size_ - step));
        for (int i = 0; i < step; i++)
            samples[size_ - step + i] = fresh_[static_cast<size_t>(i * count + c)];
    }
}

Spectrogram analyse(Recording& recording, Spectrum& spectrum, double top)
{
    const int channels = recording.channels(), size = spectrum.size();
    const long long frames = recording.frames();
    // Spectra are taken often enough to fill the columns, and so often that each sample counts in two at least.
    const int hop = static_cast<int>(std::clamp<long long>(frames / plotWidth, 1, size / 2));
    const long long count = (frames + hop - 1) / hop;
    const long long columns = std::min<long long>(count, plotWidth);
    Spectrogram result{static_cast<size_t>(columns), {}, top};
    result.power.resize(result.columns * plotHeight);
    const double binsPerRow = top / (recording.rate() / 2.0) * (spectrum.bins() - 1) / plotHeight;
    Progress progress(frames * channels);

    // The first spectrum is centred on the first sample.
    Stretch stretch(recording, size, size / 2);
    stretch.slide(size / 2);
    long long index = 0;
    std::vector<float> power(static_cast<size_t>(spectrum.bins()));
    for (long long column = 0; column < columns; column++) {
        std::fill(power.begin(), power.end(), 0.0f);
        const long long begin = index, end = (column + 1) * count / columns;
        for (; index < end; index++) {
            for (const Samples<Zel32f>& samples : stretch.channels())
                spectrum.add(samples.get(), power.data());
            stretch.slide(hop);
            progress.advance(std::min<long long>(hop, frames - index * hop) * channels);
        }
        // The mean over the spectra of the column and the channels.
        ok(zelsMulC_32f_I(1 / static_cast<float>((end - begin) * channels), power.data(), spectrum.bins()));
        if (const auto strongest = std::max_element(power.begin(), power.end()); *strongest > result.peak) {
            result.peak = *strongest;
            result.peakFrequency =
                static_cast<double>(strongest - power.begin()) * recording.rate() / spectrum.size();
            result.peakSeconds = static_cast<double>((begin + end - 1) * hop) / 2 / recording.rate();
        }
        toRows(power, binsPerRow, &result.power[static_cast<size_t>(column) * plotHeight]);
    }
    return result;
}

/// The colours of power: from 0 (nearly black) over violet, red and orange to 1 (nearly white), ever lighter.
Colour heat(double value)
{
    static constexpr std::array<Colour, 9> scale{{{0.00, 0.00, 0.02},
                                                  {0.09, 0.06, 0.25},
                                                  {0.27, 0.06, 0.43},
                                                  {0.47, 0.11, 0.43},
                                                  {0.67, 0.18, 0.37},
                                                  {0.85, 0.30, 0.24},
                                                  {0.96, 0.49, 0.11},
                                                  {0.98, 0.75, 0.17},
                                                  {0.99, 1.00, 0.75}}};
    const double place = std::clamp(value, 0.0, 1.0) * (scale.size() - 1);
    const size_t below = std::min(static_cast<size_t>(place), scale.size() - 2);
    const double part = place - static_cast<double>(below);
    const auto blend = [part](double a, double b) { return a + (b - a) * part; };
    return {blend(scale[below].red, scale[below + 1].red), blend(scale[below].green, scale[below + 1].green),
            blend(scale[below].blue, scale[below + 1].blue)};
}

/// Frequencies from 0 to `top` in round steps.
std::vector<Tick> frequencyTicks(double top)
{
    double step = 1;
    for (int k = 0; top / step > 12; k++)
        step *= k % 3 == 1 ? 2.5 : 2;
    std::vector<Tick> ticks;
    for (int k = 0; k * step <= top; k++)
        ticks.push_back(
            {k * step / top, top >= 2000 ? text("%g kHz", k * step / 1000) : text("%g Hz", k * step)});
    return ticks;
}

Picture draw(const Recording& recording, const Spectrogram& spectrogram, int size, double range)
{
    const Box box{100, 76, plotWidth, plotHeight}, scale{box.right() + 30, box.y, 22, plotHeight};
    Picture picture(1530, 740);
    // The colours end at the next ten decibels above the strongest bin.
    const double ceiling = spectrogram.peak > 0 ? std::ceil(std::log10(spectrogram.peak)) * 10 : 0;
    picture.fill(box, heat(0));
    if (spectrogram.columns > 0)
        picture.paint(100, 76, plotWidth, plotHeight, [&](int x, int y) {
            const size_t column = static_cast<size_t>(x) * spectrogram.columns / plotWidth;
            const float power =
                spectrogram.power[column * plotHeight + static_cast<size_t>(plotHeight - 1 - y)];
            return heat((10 * std::log10(std::max(power, 1e-30f)) - ceiling + range) / range);
        });
    picture.paint(static_cast<int>(scale.x), 76, 22, plotHeight,
                  [](int, int y) { return heat(1 - (y + 0.5) / plotHeight); });

    for (const Tick& tick : frequencyTicks(spectrogram.top)) {
        const double y = std::floor(box.bottom() - tick.place * box.height) + 0.5;
        picture.line(box.x - 6, y, box.x, y, colours::grey);
        picture.write(box.x - 10, y + 4, tick.label, 13, colours::grey, Align::right);
    }
    drawTimeLabels(picture, box, timeTicks(recording.seconds(), 14));
    for (double level = 0; level <= range; level += range > 60 ? 10 : 5) {
        const double y = std::floor(scale.y + scale.height * level / range) + 0.5;
        picture.line(scale.right(), y, scale.right() + 5, y, colours::grey);
        const double value = ceiling - level;
        picture.write(scale.right() + 9, y + 4,
                      value == 0 ? "0" : (value < 0 ? "\u2212" : "+") + text("%.0f", std::fabs(value)), 12,
                      colours::grey);
    }
    picture.write(scale.right() + 9, scale.y - 14, "dB", 12, colours::grey);
    picture.write(box.x, 36, baseName(recording.path()), 21, colours::ink, Align::left, true,
                  box.width * 0.6);
    picture.write(
        box.right(), 36,
        text("%s, %d Hz, %s   \u00b7   %d samples a spectrum, %.1f Hz a bin   \u00b7   0 dB: full-scale sine",
             durationText(recording.seconds()).c_str(), recording.rate(),
             channelText(recording.channels()).c_str(), size, static_cast<double>(recording.rate()) / size),
        13, colours::grey, Align::right);
    if (spectrogram.columns == 0)
        picture.write(box.x + box.width / 2, box.y + box.height / 2, "no samples", 15, colours::white,
                      Align::centre);
    return picture;
}

int run(int argc, char** argv)
{
    const std::optional<Request> wanted = readCommandLine(argc, argv);
    if (!wanted)
        return 0;
    const Request& request = *wanted;
    Recording recording(request.path);
    if (sameFile(request.picturePath, request.path))
        throw Failure(text("%s: it is the recording, and would be overwritten", request.picturePath.c_str()));
    const double half = recording.rate() / 2.0;
    if (request.top > half)
        throw Failure(text("%s: its frequencies end at %.0f Hz, below --top %.0f", request.path.c_str(), half,
                           request.top));
    OutputFile output(request.picturePath);
    const int order =
        request.order > 0
            ? request.order
            : std::clamp(static_cast<int>(std::lround(std::log2(recording.rate() * 0.04))), 6, 16);
    Spectrum spectrum(order, fullScale);
    const Spectrogram spectrogram = analyse(recording, spectrum, request.top > 0 ? request.top : half);
    Picture picture = draw(recording, spectrogram, spectrum.size(), request.range);
    picture.save(output);
    output.commit();
    std::printf("spectrogram  %s of %s\n", durationText(recording.seconds()).c_str(), request.path.c_str());
    if (spectrogram.peak > 0)
        std::printf("strongest    %s dB at %.0f Hz and %s\n",
                    decibelText(std::sqrt(double{spectrogram.peak})).c_str(), spectrogram.peakFrequency,
                    durationText(spectrogram.peakSeconds).c_str());
    else
        std::printf("strongest    silence\n");
    std::printf("picture      %s, %d x %d\n", output.path().c_str(), picture.width(), picture.height());
    return 0;
}

} // namespace

int main(int argc, char** argv)
{
    return runProgram("zels-spectrogram", argc, argv, run);
}
