// zels-filter: filters a recording by a linear-phase filter, and draws what the filter did.
//
// The taps come from the FIR design of zels. The recording streams through its FIR filter a block at a time, each channel
// with a delay line of its own.
#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <getopt.h>
#include <optional>
#include <string>
#include <vector>

#include "support/filterPicture.h"
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
    R"(usage: zels-filter IN.wav OUT.wav --lowpass HZ | --highpass HZ | --bandpass LO HI
                   | --bandstop LO HI [--taps N] [--window NAME] [--plot OUT.png]

Filters a recording of 16-bit, 24-bit or float samples into one of the same format,
rate, channels and length. Nothing is delayed.

  --lowpass HZ      passes what is below HZ
  --highpass HZ     passes what is above HZ
  --bandpass LO HI  passes what is between LO and HI
  --bandstop LO HI  stops what is between LO and HI
  --taps N          the length of the filter, 5 to 65535: the more, the steeper (without:
                    1023); high-pass and band-stop want an odd number
  --window NAME     bartlett, blackman, hamming, hann or none (without: hamming)
  --plot OUT.png    also draws the response over the spectra before and after
  --help            prints this text

Exit status: 0 if all went well, 1 if not; then no file is left behind.
)";

/// A kind of filter: how it is called, and designed.
struct Kind {
    const char* option;
    const char* name;
    bool isBand;
    bool wantsOdd; ///< filters of even length do not pass the highest frequency
    ZelStatus (*design)(double low, double high, Zel64f* pTaps, int tapsLen, ZelWinType window,
                        Zel8u* pBuffer);
};
constexpr Kind kinds[]{
    {"lowpass", "low-pass", false, false,
     [](double low, double, Zel64f* pTaps, int n, ZelWinType window, Zel8u* pBuffer) {
         return zelsFIRGenLowpass_64f(low, pTaps, n, window, 1, pBuffer);
     }},
    {"highpass", "high-pass", false, true,
     [](double low, double, Zel64f* pTaps, int n, ZelWinType window, Zel8u* pBuffer) {
         return zelsFIRGenHighpass_64f(low, pTaps, n, window, 1, pBuffer);
     }},
    {"bandpass", "band-pass", true, false,
     [](double low, double high, Zel64f* pTaps, int n, ZelWinType window, Zel8u* pBuffer) {
         return zelsFIRGenBandpass_64f(low, high, pTaps, n, window, 1, pBuffer);
     }},
    {"bandstop", "band-stop", true, true,
     [](double low, double high, Zel64f* pTaps, int n, ZelWinType window, Zel8u* pBuffer) {
         return zelsFIRGenBandstop_64f(low, high, pTaps, n, window, 1, pBuffer);
     }},
};

struct Window {
    const char* name;
    ZelWinType type;
};
constexpr Window windows[]{{"bartlett", zelWinBartlett},
                           {"blackman", zelWinBlackmanOpt},
                           {"hamming", zelWinHamming},
                           {"hann", zelWinHann},
                           {"none", -1}};

struct Request {
    std::string inPath, outPath;
    std::optional<std::string> plotPath;
    const Kind* kind = nullptr;
    double low = 0, high = 0; ///< edges in hertz; without a band they are one
    int taps = 1023;
    Window window = windows[2];
};

double frequencyOf(const Kind& kind, const char* digits)
{
    const std::optional<double> value = number(digits);
    if (!value || *value <= 0)
        throw Failure(text("--%s %s: give frequencies above 0 in hertz", kind.option, digits));
    return *value;
}

/// What the command line asks for; nothing if it asked for help alone.
std::optional<Request> readCommandLine(int argc, char** argv)
{
    static const option options[] = {{"lowpass", required_argument, nullptr, 0},
                                     {"highpass", required_argument, nullptr, 1},
                                     {"bandpass", required_argument, nullptr, 2},
                                     {"bandstop", required_argument, nullptr, 3},
                                     {"taps", required_argument, nullptr, 't'},
                                     {"window", required_argument, nullptr, 'w'},
                                     {"plot", required_argument, nullptr, 'p'},
                                     {"help", no_argument, nullptr, 'h'},
                                     {}};
    Request request;
    for (int c; (c = getopt_long(argc, argv, "h", options, nullptr)) != -1;) {
        if (c >= 0 && c < 4) {
            if (request.kind)
                throw Failure("one filter at a time; try zels-filter --help");
            request.kind = &kinds[c];
            request.low = request.high = frequencyOf(*request.kind, optarg);
            if (request.kind->isBand) {
                if (optind >= argc)
                    throw Failure(text("--%s: give two frequencies", request.kind->option));
                request.high = frequencyOf(*request.kind, argv[optind++]);
                if (request.low >= request.high)
                    throw Failure(text("--%s %g %g: the first frequency must be below the second",
                                       request.kind->option, request.low, request.high));
            }
        } else if (c == 't') {
            const double taps = number(optarg).value_or(0);
            if (taps < 5 || taps > 65535 || taps != std::floor(taps))
                throw Failure(text("--taps %s: give a whole number from 5 to 65535", optarg));
            request.taps = static_cast<int>(taps);
        } else if (c == 'w') {
            const auto* const found =
                std::find_if(std::begin(windows), std::end(windows),
                             [](const Window& w) { return std::string(w.name) == optarg; });
            if (found == std::end(windows))
                throw Failure(text("--window %s: give bartlett, blackman, hamming, hann or none", optarg));
            request.window = *found;
        } else if (c == 'p') {
            request.plotPath = optarg;
        } else if (c == 'h') {
            std::fputs(help, stdout);
            return std::nullopt;
        } else {
            throw Failure("try zels-filter --help");
        }
    }
    if (!request.kind || argc - optind != 2)
        throw Failure("give two recordings and a filter; try zels-filter --help");
    if (request.kind->wantsOdd && request.taps % 2 == 0)
        throw Failure(
            text("--taps %d: a %s filter wants an odd number of taps", request.taps, request.kind->name));
    request.inPath = argv[optind];
    request.outPath = argv[optind + 1];
    return request;
}

std::vector<Zel64f> designTaps(const Request& request, int rate)
{
    if (request.high >= rate / 2.0)
        throw Failure(text("%s: its frequencies end at %g Hz; %g Hz is out of their reach",
                           request.inPath.c_str(), rate / 2.0, request.high));
    int size = 0;
    ok(zelsFIRGenGetBufferSize(request.taps, &size));
    const Samples<Zel8u> buffer = samples8u(size);
    std::vector<Zel64f> taps(static_cast<size_t>(request.taps));
    ok(request.kind->design(request.low / rate, request.high / rate, taps.data(), request.taps,
                            request.window.type, buffer.get()));
    return taps;
}

/// The filter for all channels: one record, and a delay line for each.
class Filter {
  public:
    Filter(const std::vector<Zel64f>& taps, int channels);

    /// Filters a block of a channel.
    void run(int channel, const Zel32f* samples, Zel32f* filtered, int len)
    {
        Zel32f* const delayLine = delayLines_[static_cast<size_t>(channel)].get();
        ok(zelsFIRSR_32f(samples, filtered, len, record(), delayLine, delayLine, work_.get()));
    }

  private:
    ZelsFirSrState* record() const { return reinterpret_cast<ZelsFirSrState*>(memory_.get()); }

    Samples<Zel8u> memory_, work_;
    std::vector<Samples<Zel32f>> delayLines_;
};

Filter::Filter(const std::vector<Zel64f>& taps, int channels)
{
    const int n = static_cast<int>(taps.size());
    int recordSize = 0, workSize = 0;
    ok(zelsFIRSRGetSize(n, zelDt32f, &recordSize, &workSize));
    memory_ = samples8u(recordSize);
    work_ = samples8u(workSize);
    const Samples<Zel32f> single = samples32f(n);
    ok(zelsConvert_64f32f(taps.data(), single.get(), n));
    ok(zelsFIRSRInit_32f(single.get(), n, zelAlgAuto, record()));
    for (int c = 0; c < channels; c++) {
        delayLines_.push_back(samples32f(n));
        ok(zelsZero_32f(delayLines_.back().get(), n));
    }
}

struct Result {
    MeanSpectrum before, after;
    float peak = 0; ///< in units of a 16-bit sample, as all samples here
    long long clipped = 0;
};

void filter(Recording& recording, const std::vector<Zel64f>& taps, WaveWriter& writer, bool spectra,
            Result& result)
{
    const int channels = recording.channels(), block = blockFrames(channels),
              delay = static_cast<int>(taps.size() - 1) / 2;
    const long long frames = recording.frames();
    Filter filter(taps, channels);
    const Samples<Zel32f> file = samples32f(block * channels), samples = samples32f(block),
                          filtered = samples32f(block);
    const auto count = static_cast<size_t>(channels);
    Progress progress(frames * channels);

    // Silence behind the recording brings out what the filter still holds; what it gives before the delay is not wanted.
    const long long end = frames > 0 ? frames + delay : 0;
    for (long long start = 0; start < end; start += block) {
        const int len = static_cast<int>(std::min<long long>(block, end - start));
        const int there = static_cast<int>(std::clamp<long long>(frames - start, 0, len));
        const int early = static_cast<int>(std::clamp<long long>(delay - start, 0, len));
        ok(zelsZero_32f(file.get(), len * channels));
        if (there > 0)
            recording.read(file.get(), there);
        for (size_t c = 0; c < count; c++) {
            for (size_t i = 0; i < static_cast<size_t>(len); i++)
                samples[i] = file[i * count + c];
            filter.run(static_cast<int>(c), samples.get(), filtered.get(), len);
            if (spectra) {
                result.before.add(samples.get(), there);
                result.after.add(filtered.get() + early, len - early);
            }
            for (size_t i = 0; i < static_cast<size_t>(len); i++)
                file[i * count + c] = filtered[i];
        }
        if (len > early) {
            Zel32f* const wanted = file.get() + early * channels;
            float peak = 0;
            ok(zelsMaxAbs_32f(wanted, (len - early) * channels, &peak));
            result.peak = std::max(result.peak, peak);
            if (peak > fullScale)
                result.clipped += std::count_if(wanted, file.get() + len * channels,
                                                [](float x) { return std::fabs(x) > fullScale; });
            writer.write(wanted, len - early);
        }
        progress.advance(there * channels);
    }
    writer.finish();
}

std::string edgesText(const Request& request)
{
    return request.kind->isBand ? text("%g to %g Hz", request.low, request.high) : text("%g Hz", request.low);
}

Picture draw(const Request& request, const Recording& recording, const std::vector<Zel64f>& taps,
             const Result& result)
{
    const std::string filter =
        text("%s %s, %d taps, %s window", request.kind->name, edgesText(request).c_str(), request.taps,
             request.window.type < 0 ? "no" : request.window.name);
    std::vector<double> edges{request.low};
    if (request.kind->isBand)
        edges.push_back(request.high);
    return drawFilter(
        {baseName(recording.path()),
         text("%s   \u00b7   %s, %d Hz, %s, %s", filter.c_str(), durationText(recording.seconds()).c_str(),
              recording.rate(), channelText(recording.channels()).c_str(), formatName(recording.format())),
         recording.rate(), edges, taps, result.before, result.after});
}

int run(int argc, char** argv)
{
    const std::optional<Request> wanted = readCommandLine(argc, argv);
    if (!wanted)
        return 0;
    const Request& request = *wanted;
    Recording recording(request.inPath, SampleFormat::floating);
    const std::vector<Zel64f> taps = designTaps(request, recording.rate());
    if (request.plotPath && sameFile(*request.plotPath, request.outPath))
        throw Failure(
            text("%s: the filtered recording and the picture cannot be one file", request.outPath.c_str()));
    for (const std::string& path : {request.outPath, request.plotPath.value_or(request.outPath)})
        if (sameFile(path, request.inPath))
            throw Failure(
                text("%s: it is the recording to be filtered, and would be overwritten", path.c_str()));

    WaveWriter writer(request.outPath, recording.format(), recording.rate(), recording.channels(),
                      recording.frames());
    std::optional<OutputFile> plot;
    if (request.plotPath)
        plot.emplace(*request.plotPath);
    Result result;
    const auto begin = std::chrono::steady_clock::now();
    filter(recording, taps, writer, plot.has_value(), result);
    const std::chrono::duration<double> elapsed = std::chrono::steady_clock::now() - begin;
    std::optional<Picture> picture;
    if (plot) {
        picture.emplace(draw(request, recording, taps, result));
        picture->save(*plot);
    }
    writer.commit();
    if (plot)
        plot->commit();

    std::printf("filter     %s %s, %d taps\n", request.kind->name, edgesText(request).c_str(), request.taps);
    std::printf("length     %s, %s\n", durationText(recording.seconds()).c_str(),
                countText(recording.frames(), "frame").c_str());
    std::printf("peak       %s\n", result.peak > 0
                                       ? (decibelText(double{result.peak / fullScale}) + " dBFS").c_str()
                                       : "silence");
    if (recording.format() != SampleFormat::floating)
        std::printf("clipped    %s\n", countText(result.clipped, "sample").c_str());
    if (recording.frames() > 0)
        std::printf("speed      %s of work, %.0f times faster than real time\n",
                    durationText(elapsed.count()).c_str(), recording.seconds() / elapsed.count());
    std::printf("filtered   %s\n", request.outPath.c_str());
    if (plot)
        std::printf("picture    %s, %d x %d\n", plot->path().c_str(), picture->width(), picture->height());
    return 0;
}

} // namespace

int main(int argc, char** argv)
{
    return runProgram("zels-filter", argc, argv, run);
}
