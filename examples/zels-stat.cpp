// zels-stat: measures 16-bit recordings and draws their level over time.
//
// Recordings are read in blocks. zels measures a block; the results of the blocks are combined here.
#include <algorithm>
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
#include "zels.h"

using namespace support;

namespace {

constexpr const char* help =
    R"(usage: zels-stat [--plot OUT.png] IN.wav ...

Prints for each 16-bit recording, channel by channel: the mean and the standard
deviation of the samples (in steps of 16 bits), the peak and its place, the level
(root mean square; 0 dBFS is a constant at full scale), and the zero crossings
(changes of sign; a zero counts as positive).

  --plot OUT.png    also draws the level over time
  --help            prints this text

Exit status: 0 if all went well, 1 if not; the recordings that can be read are
reported all the same.
)";

/// The statistics of one channel.
struct Channel {
    long long count = 0;
    double mean = 0;
    double squares = 0; ///< sum of squared distances from the mean
    double energy = 0;  ///< sum of squares
    double crossings = 0;
    float peak = 0;
    long long peakAt = 0;
    float last = 0;

    double deviation() const { return count > 1 ? std::sqrt(squares / static_cast<double>(count - 1)) : 0; }
    double rms() const { return count > 0 ? std::sqrt(energy / static_cast<double>(count)) : 0; }

    /// Takes in the `len` samples that follow `samples[0]`, which is room for the last one of the block
    /// before.
    void add(Zel32f* samples, int len);
};

void Channel::add(Zel32f* samples, int len)
{
    const Zel32f* block = samples + 1;
    Zel32f blockMean = block[0], blockDeviation = 0, norm = 0, blockPeak = 0, blockCrossings = 0;
    int at = 0;
    if (len > 1)
        ok(zelsMeanStdDev_32f(block, len, &blockMean, &blockDeviation));
    ok(zelsNorm_L2_32f(block, len, &norm));
    ok(zelsMaxAbsIndx_32f(block, len, &blockPeak, &at));
    // The pair across the border counts too: the block before lends its last sample.
    samples[0] = last;
    ok(zelsZeroCrossing_32f(count > 0 ? samples : block, static_cast<Zel32u>(count > 0 ? len + 1 : len),
                            &blockCrossings, 1));

    const double before = static_cast<double>(count), here = len, all = before + here;
    const double distance = double{blockMean} - mean;
    mean += distance * here / all;
    squares +=
        double{blockDeviation} * blockDeviation * (here - 1) + distance * distance * before * here / all;
    energy += double{norm} * norm;
    crossings += blockCrossings;
    if (blockPeak > peak) {
        peak = blockPeak;
        peakAt = count + at;
    }
    count += len;
    last = block[len - 1];
}

/// What is known of one recording.
struct Statistics {
    std::string path;
    double seconds;
    int rate;
    std::vector<Channel> channels;
    Envelope envelope;
};

constexpr int plotWidth = 1440;

Statistics measure(const std::string& path)
{
    Recording recording(path);
    const int channels = recording.channels(), block = blockFrames(channels);
    const Samples<Zel16s> file = samples16s(block * channels);
    const Samples<Zel32f> all = samples32f(block * channels), one = samples32f(block + 1);
    // A column of the picture takes ten milliseconds or more: less is no level, but the wave itself.
    const int columns =
        static_cast<int>(std::clamp(std::ceil(recording.seconds() * 100), 1.0, double{plotWidth}));
    Statistics result{path, recording.seconds(), recording.rate(),
                      std::vector<Channel>(static_cast<size_t>(channels)),
                      Envelope(recording.frames(), channels, columns)};
    Progress progress(recording.frames() * channels);

    for (long long start = 0; start < recording.frames(); start += block) {
        const int length = static_cast<int>(std::min<long long>(block, recording.frames() - start));
        recording.read(file.get(), length);
        ok(zelsConvert_16s32f(file.get(), all.get(), length * channels));
        result.envelope.add(all.get(), length);
        for (int c = 0; c < channels; c++) {
            for (int i = 0; i < length; i++)
                one[static_cast<size_t>(i) + 1] = all[static_cast<size_t>(i * channels + c)];
            result.channels[static_cast<size_t>(c)].add(one.get(), length);
        }
        progress.advance(length * channels);
    }
    return result;
}

void report(const Statistics& file)
{
    std::printf("%s: %s, %d Hz, %s\n", file.path.c_str(), durationText(file.seconds).c_str(), file.rate,
                channelText(static_cast<int>(file.channels.size())).c_str());
    const auto row = [&](const char* title, auto value) {
        std::printf("  %-16s", title);
        for (const Channel& channel : file.channels)
            std::printf(" %14s", channel.count > 0 ? value(channel).c_str() : "-");
        std::printf("\n");
    };
    if (file.channels.size() > 1) {
        std::printf("  %-16s", "channel");
        for (size_t c = 1; c <= file.channels.size(); c++)
            std::printf(" %14zu", c);
        std::printf("\n");
    }
    row("mean", [](const Channel& c) { return text("%.3f", c.mean); });
    row("deviation", [](const Channel& c) { return text("%.3f", c.deviation()); });
    row("peak", [](const Channel& c) { return text("%.0f", double{c.peak}); });
    row("peak level", [](const Channel& c) { return decibelText(double{c.peak} / fullScale) + " dBFS"; });
    row("peak at", [&](const Channel& c) {
        return c.peak > 0 ? durationText(static_cast<double>(c.peakAt) / file.rate) : "-";
    });
    row("peak at frame", [](const Channel& c) { return c.peak > 0 ? text("%lld", c.peakAt) : "-"; });
    row("level", [](const Channel& c) { return decibelText(c.rms() / fullScale) + " dBFS"; });
    row("zero crossings", [](const Channel& c) { return text("%.0f", c.crossings); });
}

constexpr double floorLevel = -80; ///< in dBFS, the bottom of the lanes

double levelOf(double ratio)
{
    return ratio > 0 ? std::max(20 * std::log10(ratio), floorLevel) : floorLevel;
}

void drawLevels(Picture& picture, Box box, const Envelope& envelope, Colour colour)
{
    const std::vector<Column>& columns = envelope.columns();
    cairo_t* pen = picture.pen();
    const double step = box.width / static_cast<double>(std::max<size_t>(columns.size(), 1));
    const auto height = [&](double level) { return box.y + box.height * level / floorLevel; };
    const auto trace = [&](auto value) {
        cairo_new_path(pen);
        for (size_t k = 0; k < columns.size(); k++) {
            const double y = height(levelOf(value(columns[k])));
            // The first and the last column reach to the ends of the lane.
            if (k == 0)
                cairo_line_to(pen, box.x, y);
            cairo_line_to(pen, box.x + step * (static_cast<double>(k) + 0.5), y);
            if (k + 1 == columns.size())
                cairo_line_to(pen, box.right(), y);
        }
    };
    const auto close = [&] {
        cairo_line_to(pen, box.right(), box.bottom());
        cairo_line_to(pen, box.x, box.bottom());
        cairo_close_path(pen);
    };
    if (columns.empty())
        return;
    cairo_set_line_join(pen, CAIRO_LINE_JOIN_ROUND);
    trace([](const Column& c) { return std::max(c.high, -c.low); });
    close();
    picture.use(colour.faded(0.22));
    cairo_fill(pen);
    trace([](const Column& c) { return c.rms(); });
    picture.use(colour);
    cairo_set_line_width(pen, 1.5);
    cairo_stroke_preserve(pen);
    close();
    picture.use(colour.faded(0.75));
    cairo_fill(pen);
}

/// The level of all channels together, and the highest of their peaks, in units of a 16-bit sample.
struct Summary {
    double level = 0;
    double peak = 0;
    double peakSeconds = 0;
};

Summary summary(const Statistics& file)
{
    Summary result;
    double energy = 0, samples = 0;
    for (const Channel& channel : file.channels) {
        energy += channel.energy;
        samples += static_cast<double>(channel.count);
        if (channel.peak > result.peak) {
            result.peak = channel.peak;
            result.peakSeconds = static_cast<double>(channel.peakAt) / file.rate;
        }
    }
    result.level = samples > 0 ? std::sqrt(energy / samples) : 0;
    return result;
}

Picture draw(const std::vector<Statistics>& files)
{
    // Pictures of very many recordings stay within what cairo can hold.
    const double count = static_cast<double>(files.size()), head = 76, gap = 66;
    const double pitch = std::min(150 + gap, 32000 / count), laneHeight = std::max(pitch - gap, pitch / 2);
    Picture picture(80 + plotWidth + 30, static_cast<int>(head + pitch * count));
    std::vector<Tick> levels;
    for (double level = floorLevel; level <= 0; level += laneHeight > 100 ? 20 : 40)
        levels.push_back({1 - level / floorLevel, level < 0 ? text("\u2212%.0f", -level) : "0 dB"});

    picture.write(80, 32, "Level over time", 21, colours::ink, Align::left, true);
    picture.write(picture.width() - 30, 32,
                  "dB below full scale   \u00b7   deep shade: root mean square   \u00b7   light shade: peak",
                  13, colours::grey, Align::right);
    Box box{80, head, plotWidth, laneHeight};
    size_t index = 0;
    for (const Statistics& file : files) {
        const Colour colour = colours::series(index++);
        const Summary facts = summary(file);
        const std::vector<Tick> times = timeTicks(file.seconds, 14);
        picture.fill(box, colours::lane);
        drawGrid(picture, box, times);
        drawValueAxis(picture, box, levels);
        drawTimeLabels(picture, box, times);
        drawLevels(picture, box, file.envelope, colour);
        picture.write(box.x, box.y - 9, baseName(file.path), 15, colour, Align::left, true, box.width * 0.6);
        picture.write(box.right(), box.y - 9,
                      text("%s   level %s dBFS   peak %s dBFS", durationText(file.seconds).c_str(),
                           decibelText(facts.level / fullScale).c_str(),
                           decibelText(facts.peak / fullScale).c_str()),
                      13, colours::grey, Align::right);
        if (facts.peak > 0) {
            picture.dot(box.x + box.width * facts.peakSeconds / file.seconds,
                        box.y + box.height * levelOf(facts.peak / fullScale) / floorLevel, 3.5, colours::ink);
        }
        box.y += pitch;
    }
    return picture;
}

int run(int argc, char** argv)
{
    static const option options[] = {
        {"plot", required_argument, nullptr, 'p'}, {"help", no_argument, nullptr, 'h'}, {}};
    std::optional<std::string> plotPath;
    for (int c; (c = getopt_long(argc, argv, "h", options, nullptr)) != -1;) {
        if (c == 'p') {
            plotPath = optarg;
        } else if (c == 'h') {
            std::fputs(help, stdout);
            return 0;
        } else {
            throw Failure("try zels-stat --help");
        }
    }
    const std::vector<std::string> paths(argv + optind, argv + argc);
    if (paths.empty())
        throw Failure("no recordings given; try zels-stat --help");
    std::optional<OutputFile> plot;
    if (plotPath) {
        for (const std::string& path : paths)
            if (sameFile(*plotPath, path))
                throw Failure(
                    text("%s: it is a recording to be measured, and would be overwritten", path.c_str()));
        plot.emplace(*plotPath);
    }

    std::vector<Statistics> files;
    int status = 0;
    for (const std::string& path : paths) {
        try {
            files.push_back(measure(path));
            report(files.back());
        } catch (const Failure& failure) {
            complain(failure.what());
            status = 1;
            stopIfAsked();
        }
    }
    if (plot && !files.empty()) {
        Picture picture = draw(files);
        picture.save(*plot);
        plot->commit();
        std::printf("picture: %s, %d x %d\n", plot->path().c_str(), picture.width(), picture.height());
    }
    return status;
}

} // namespace

int main(int argc, char** argv)
{
    return runProgram("zels-stat", argc, argv, run);
}
