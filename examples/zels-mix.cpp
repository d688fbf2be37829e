// zels-mix: mixes recordings into one and draws what it did.
//
// All arithmetic on samples is done by zels, a block at a time:
//   samples of 16 or 24 bits or floats -> float -> times the gain -> times the fades -> added to the mix -> samples.
#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <filesystem>
#include <getopt.h>
#include <list>
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
    R"(usage: zels-mix [-o OUT.wav] [--plot OUT.png] [--fade SECONDS] [--format FORMAT]
                IN.wav[:GAIN] ...

Mixes recordings of one rate and one number of channels into one that is as long as
the longest of them. Their samples are integers of 16, 24 or 32 bits or floats.

  IN.wav[:GAIN]     a recording, and its gain in decibels, such as voice.wav:-6 (without: 0);
                    a name that ends in a colon and a number is taken as a name if there is
                    such a file
  -o OUT.wav        where the mix goes (without: mix.wav)
  --plot OUT.png    also draws the waveforms of the recordings and of the mix
  --fade SECONDS    how long each recording fades in at its start and out at its end
                    (without: 0.01; 0 leaves the samples as they are)
  --format FORMAT   the samples of the mix: 16 bits, 24 bits or float (without: those of
                    the finest recording)
  --help            prints this text

Exit status: 0 if all went well, 1 if not; then no file is left behind.
)";

struct Request {
    std::string mixPath = "mix.wav";
    std::optional<std::string> plotPath;
    double fadeSeconds = 0.01;
    std::optional<SampleFormat> format;
    std::vector<std::string> sources;
};

/// One recording on its way into the mix.
struct Source {
    Recording recording;
    double gain; ///< in decibels
    Envelope envelope;
};

/// What the command line asks for; nothing if it asked for help alone.
std::optional<Request> readCommandLine(int argc, char** argv)
{
    static const option options[] = {
        {"output", required_argument, nullptr, 'o'}, {"plot", required_argument, nullptr, 'p'},
        {"fade", required_argument, nullptr, 'f'},   {"format", required_argument, nullptr, 'F'},
        {"help", no_argument, nullptr, 'h'},         {}};
    Request request;
    for (int c; (c = getopt_long(argc, argv, "o:h", options, nullptr)) != -1;) {
        if (c == 'o') {
            request.mixPath = optarg;
        } else if (c == 'p') {
            request.plotPath = optarg;
        } else if (c == 'f') {
            const std::optional<double> seconds = number(optarg);
            if (!seconds || *seconds < 0 || *seconds > 60)
                throw Failure(text("--fade %s: give a number of seconds from 0 to 60", optarg));
            request.fadeSeconds = *seconds;
        } else if (c == 'F') {
            const std::string_view name = optarg;
            if (name != "16" && name != "24" && name != "float")
                throw Failure(text("--format %s: give 16, 24 or float", optarg));
            request.format = name == "16"   ? SampleFormat::bits16
                             : name == "24" ? SampleFormat::bits24
                                            : SampleFormat::floating;
        } else if (c == 'h') {
            std::fputs(help, stdout);
            return std::nullopt;
        } else {
            throw Failure("try zels-mix --help");
        }
    }
    request.sources.assign(argv + optind, argv + argc);
    if (request.sources.empty())
        throw Failure("no recordings given; try zels-mix --help");
    return request;
}

/// Takes "name:gain" apart. A file that bears the whole name comes first.
std::pair<std::string, double> nameAndGain(const std::string& word)
{
    const size_t colon = word.rfind(':');
    std::error_code error;
    if (colon == std::string::npos || std::filesystem::exists(word, error))
        return {word, 0};
    const std::string name = word.substr(0, colon), digits = word.substr(colon + 1);
    if (const std::optional<double> gain = number(digits)) {
        if (std::fabs(*gain) > 120)
            throw Failure(
                text("%s: the gain of %s dB lies outside -120 to 120", name.c_str(), digits.c_str()));
        return {name, *gain};
    }
    if (std::filesystem::exists(name, error))
        throw Failure(text("%s: the gain \"%s\" is not a number of decibels such as -6 or 3.5", name.c_str(),
                           digits.c_str()));
    return {word, 0};
}

/// Opens all recordings and makes sure that they fit each other.
std::list<Source> openSources(const std::vector<std::string>& words)
{
    std::list<Source> sources;
    for (const std::string& word : words) {
        const auto [name, gain] = nameAndGain(word);
        sources.push_back({Recording(name, SampleFormat::floating), gain, Envelope(0, 1, 0)});
        const Recording& first = sources.front().recording;
        const Recording& last = sources.back().recording;
        if (last.rate() != first.rate())
            throw Failure(text("%s: its rate is %d Hz, but that of %s is %d Hz", name.c_str(), last.rate(),
                               first.path().c_str(), first.rate()));
        if (last.channels() != first.channels())
            throw Failure(text("%s: it is %s, but %s is %s", name.c_str(),
                               channelText(last.channels()).c_str(), first.path().c_str(),
                               channelText(first.channels()).c_str()));
    }
    return sources;
}

/// Fades of one length for recordings of any length.
class Fader {
  public:
    Fader(long long fadeFrames, int channels)
        : fadeFrames_(fadeFrames), channels_(channels),
          position_(samples32f(blockFrames(channels) * channels)),
          ramp_(samples32f(blockFrames(channels) * channels))
    {
        // Half a frame in makes the fade out the mirror image of the fade in.
        for (int i = 0; i < blockFrames(channels) * channels; i++)
            position_[static_cast<size_t>(i)] = static_cast<float>(i / channels) + 0.5f;
    }

    /// Fades the frames from `start` on of a recording of `length` frames.
    void apply(Zel32f* samples, long long start, int frames, long long length)
    {
        const long long fade = std::min(fadeFrames_, length / 2);
        if (fade == 0)
            return;
        if (const long long in = std::min<long long>(frames, fade - start); in > 0) {
            ok(zelsAddC_32f(position_.get(), static_cast<float>(start), ramp_.get(), count(in)));
            multiply(samples, fade, count(in));
        }
        const long long from = std::max(start, length - fade);
        if (const long long out = start + frames - from; out > 0) {
            ok(zelsSubCRev_32f(position_.get(), static_cast<float>(length - from), ramp_.get(), count(out)));
            multiply(samples + (from - start) * channels_, fade, count(out));
        }
    }

  private:
    int count(long long frames) const { return static_cast<int>(frames) * channels_; }

    void multiply(Zel32f* samples, long long fade, int count)
    {
        ok(zelsMulC_32f_I(1 / static_cast<float>(fade), ramp_.get(), count));
        ok(zelsMul_32f_I(ramp_.get(), samples, count));
    }

    long long fadeFrames_;
    int channels_;
    Samples<Zel32f> position_, ramp_;
};

/// What does not fit the samples of the mix, once it is rounded; floats hold everything.
Clipping clippingOf(SampleFormat format)
{
    constexpr double half24 = 0.5 / 256;
    return format == SampleFormat::bits16   ? Clipping{}
           : format == SampleFormat::bits24 ? Clipping{-32768 - half24, 32768 - half24}
                                            : Clipping{-HUGE_VAL, HUGE_VAL};
}

/// Mixes all sources into `writer`, and fills the outlines of the mix and, where wanted, of the sources.
void mix(std::list<Source>& sources, double fadeSeconds, WaveWriter& writer, Envelope& outline,
         long long frames, bool outlineSources)
{
    const int channels = sources.front().recording.channels();
    const int block = blockFrames(channels);
    const Samples<Zel32f> part = samples32f(block * channels), sum = samples32f(block * channels);
    Fader fader(std::llround(fadeSeconds * sources.front().recording.rate()), channels);
    long long work = 0;
    for (const Source& source : sources)
        work += source.recording.frames() * channels;
    Progress progress(work);

    for (long long start = 0; start < frames; start += block) {
        const int length = static_cast<int>(std::min<long long>(block, frames - start));
        ok(zelsZero_32f(sum.get(), length * channels));
        for (Source& source : sources) {
            const long long left = source.recording.frames() - start;
            if (left <= 0)
                continue;
            const int here = static_cast<int>(std::min<long long>(length, left));
            const int count = here * channels;
            source.recording.read(part.get(), here);
            ok(zelsMulC_32f_I(static_cast<float>(std::pow(10, source.gain / 20)), part.get(), count));
            fader.apply(part.get(), start, here, source.recording.frames());
            ok(zelsAdd_32f_I(part.get(), sum.get(), count));
            if (outlineSources)
                source.envelope.add(part.get(), here);
            progress.advance(count);
        }
        outline.add(sum.get(), length);
        writer.write(sum.get(), length);
    }
    writer.finish();
}

constexpr int plotWidth = 1440;

/// How far the lanes reach, in units of full scale: far enough for the loudest, up to four times full scale.
double laneRange(const std::list<Source>& sources, const Envelope& outline)
{
    double peak = outline.peak();
    for (const Source& source : sources)
        peak = std::max(peak, source.envelope.peak());
    if (peak > 1)
        return std::min(peak * 1.03, 4.0);
    for (const double range : {0.01, 0.02, 0.05, 0.1, 0.2, 0.3, 0.4, 0.5, 0.6, 0.8})
        if (peak <= range)
            return range;
    return 1;
}

std::vector<Tick> valueTicks(double range, double laneHeight)
{
    std::vector<Tick> ticks;
    const double top = std::min(range, 1.0);
    for (const double part : {-1.0, -0.5, 0.0, 0.5, 1.0}) {
        const double value = part * top;
        const bool half = std::fabs(part) == 0.5;
        if (!half || laneHeight / range * top > 80)
            ticks.push_back(
                {0.5 + value / range / 2, (value < 0 ? "\u2212" : "") + text("%g", std::fabs(value))});
    }
    return ticks;
}

Picture draw(const std::list<Source>& sources, const Envelope& outline, long long frames)
{
    const Recording& first = sources.front().recording;
    // Pictures of very many recordings stay within what cairo can hold.
    const double count = static_cast<double>(sources.size());
    const double laneHeight = std::clamp(12000 / count - 30, 1.0, 104.0), mixHeight = 168, gap = 34,
                 head = 76;
    const double pitch = std::min(laneHeight + gap, 30000 / count);
    Picture picture(80 + plotWidth + 30, static_cast<int>(head + pitch * count + gap + mixHeight + 24));
    const double seconds = static_cast<double>(frames) / first.rate();
    const std::vector<Tick> times = timeTicks(seconds, 14);
    const double range = laneRange(sources, outline);

    const auto lane = [&](Box box, const std::string& name, const std::string& facts,
                          const Envelope& envelope, Colour colour, bool isMix) {
        picture.fill(box, colours::lane);
        drawGrid(picture, box, times);
        drawValueAxis(picture, box, valueTicks(range, box.height));
        drawWaveform(picture, box, envelope, range, colour, isMix);
        picture.write(box.x, box.y - 10, name, 15, colour, Align::left, true, box.width * 0.6);
        picture.write(box.right(), box.y - 10, facts, 13, colours::grey, Align::right);
    };

    picture.write(80, 32,
                  text("Mix of %s", countText(static_cast<long long>(sources.size()), "recording").c_str()),
                  21, colours::ink, Align::left, true);
    picture.write(picture.width() - 30, 32,
                  text("%s, %d Hz, %s", durationText(seconds).c_str(), first.rate(),
                       channelText(first.channels()).c_str()),
                  15, colours::grey, Align::right);
    Box box{80, head, plotWidth, std::min(laneHeight, pitch)};
    size_t index = 0;
    for (const Source& source : sources) {
        lane(box, baseName(source.recording.path()),
             text("%s   gain %+.1f dB   peak %s dBFS", durationText(source.recording.seconds()).c_str(),
                  source.gain, decibelText(source.envelope.peak()).c_str()),
             source.envelope, colours::series(index++), false);
        box.y += pitch;
    }
    box.y = head + pitch * count + gap - 30;
    box.height = mixHeight;
    lane(box, "mix",
         text("%s clipped   peak %s dBFS", countText(outline.clipped(), "sample").c_str(),
              decibelText(outline.peak()).c_str()),
         outline, colours::ink, true);
    drawTimeLabels(picture, box, times);
    picture.write(
        box.right(), picture.height() - 10.0,
        "amplitudes in units of full scale   \u00b7   deep shade: root mean square   \u00b7   red: clipped",
        12, colours::grey, Align::right);
    if (frames == 0)
        picture.write(box.x + box.width / 2, box.y + box.height / 2 - 12, "no samples", 15, colours::grey,
                      Align::centre);
    return picture;
}

void report(const std::list<Source>& sources, const Envelope& outline, long long frames, double elapsed)
{
    const Recording& first = sources.front().recording;
    const double seconds = static_cast<double>(frames) / first.rate();
    std::printf("mixed      %s, %d Hz, %s\n",
                countText(static_cast<long long>(sources.size()), "recording").c_str(), first.rate(),
                channelText(first.channels()).c_str());
    std::printf("length     %s, %s\n", durationText(seconds).c_str(), countText(frames, "frame").c_str());
    if (outline.peak() > 0)
        std::printf("peak       %s dBFS at %s\n", decibelText(outline.peak()).c_str(),
                    durationText(static_cast<double>(outline.peakFrame()) / first.rate()).c_str());
    else
        std::printf("peak       silence\n");
    std::printf("clipped    %s\n", countText(outline.clipped(), "sample").c_str());
    if (frames > 0)
        std::printf("speed      %s of work, %.0f times faster than real time\n",
                    durationText(elapsed).c_str(), seconds / elapsed);
}

int run(int argc, char** argv)
{
    const std::optional<Request> wanted = readCommandLine(argc, argv);
    if (!wanted)
        return 0;
    const Request& request = *wanted;
    std::list<Source> sources = openSources(request.sources);
    if (request.plotPath && sameFile(*request.plotPath, request.mixPath))
        throw Failure(text("%s: the mix and the picture cannot be one file", request.mixPath.c_str()));
    for (const Source& source : sources)
        for (const std::string& path : {request.mixPath, request.plotPath.value_or(request.mixPath)})
            if (sameFile(path, source.recording.path()))
                throw Failure(
                    text("%s: it is a recording to be mixed, and would be overwritten", path.c_str()));

    const Recording& first = sources.front().recording;
    long long frames = 0;
    for (const Source& source : sources)
        frames = std::max(frames, source.recording.frames());
    SampleFormat format = request.format.value_or(SampleFormat::bits16);
    if (!request.format)
        for (const Source& source : sources)
            format = std::max(format, source.recording.format());
    Envelope outline(frames, first.channels(), plotWidth, clippingOf(format));
    for (Source& source : sources)
        source.envelope = outline;

    WaveWriter writer(request.mixPath, format, first.rate(), first.channels(), frames);
    std::optional<OutputFile> plot;
    if (request.plotPath)
        plot.emplace(*request.plotPath);
    const auto begin = std::chrono::steady_clock::now();
    mix(sources, request.fadeSeconds, writer, outline, frames, plot.has_value());
    const std::chrono::duration<double> elapsed = std::chrono::steady_clock::now() - begin;
    if (plot) {
        Picture picture = draw(sources, outline, frames);
        picture.save(*plot);
        writer.commit();
        plot->commit();
        report(sources, outline, frames, elapsed.count());
        std::printf("mix        %s, %s\n", request.mixPath.c_str(), formatName(format));
        std::printf("picture    %s, %d x %d\n", plot->path().c_str(), picture.width(), picture.height());
    } else {
        writer.commit();
        report(sources, outline, frames, elapsed.count());
        std::printf("mix        %s, %s\n", request.mixPath.c_str(), formatName(format));
    }
    return 0;
}

} // namespace

int main(int argc, char** argv)
{
    return runProgram("zels-mix", argc, argv, run);
}
