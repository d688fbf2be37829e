#include "recording.h"

#include <algorithm>
#include <cerrno>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <sys/stat.h>
#include <unistd.h>

namespace support {

namespace {

/// Bytes of a sample in a block: as many as any format has.
constexpr int widestSample = 8;

/// No sample of a recording in floats is louder, in units of full scale: 120 dB.
constexpr float loudest = 1e6f;

/// From units of full scale to those of a 16-bit sample, and from those to 24 bits.
constexpr float fullScale = 32768;
constexpr int log2Of24In16 = 8;

// What to call the sample format of a file that is not read.
std::string formatText(int format)
{
    SF_FORMAT_INFO info{};
    info.format = format & SF_FORMAT_SUBMASK;
    sf_command(nullptr, SFC_GET_FORMAT_INFO, &info, sizeof info);
    return info.name != nullptr ? info.name : "another format";
}

// libsndfile reads a wave file that was cut off as if it were whole, and only its header tells. Sizes near
// the limits come from programs that wrote to a pipe and never knew the length; they mean "to the end".
void refuseCutOff(const std::string& path)
{
    std::ifstream file(path, std::ios::binary);
    const auto size = static_cast<std::uint64_t>(std::filesystem::file_size(path));
    char header[12];
    if (!file.read(header, 12) || std::memcmp(header, "RIFF", 4) != 0 ||
        std::memcmp(header + 8, "WAVE", 4) != 0)
        return;
    for (std::uint64_t place = 12; file.seekg(static_cast<std::streamoff>(place)) && file.read(header, 8);) {
        std::uint32_t bytes;
        std::memcpy(&bytes, header + 4, 4);
        place += 8;
        if (std::memcmp(header, "data", 4) == 0) {
            if (bytes < 0x7ff00000 && place + bytes > size)
                throw Failure(
                    text("%s: the file is damaged: %u bytes of samples are promised, %llu are there",
                         path.c_str(), bytes, static_cast<unsigned long long>(size - place)));
            return;
        }
        place += bytes + bytes % 2;
    }
}

} // namespace

Recording::Recording(const std::string& path, SampleFormat finest) : path_(path)
{
    struct stat status {};
    if (::stat(path.c_str(), &status) != 0 || ::access(path.c_str(), R_OK) != 0)
        throw Failure(text("%s: cannot read: %s", path.c_str(), std::strerror(errno)));
    if (!S_ISREG(status.st_mode))
        throw Failure(text("%s: cannot read: not a regular file", path.c_str()));
    file_.reset(sf_open(path.c_str(), SFM_READ, &info_));
    if (!file_)
        throw Failure(text("%s: not a sound file that can be read: %s", path.c_str(), sf_strerror(nullptr)));
    const int coding = info_.format & SF_FORMAT_SUBMASK;
    if (coding != SF_FORMAT_PCM_16 && finest == SampleFormat::bits16)
        throw Failure(text("%s: the samples are %s; only 16-bit recordings are read", path.c_str(),
                           formatText(info_.format).c_str()));
    if (coding != SF_FORMAT_PCM_16 && coding != SF_FORMAT_PCM_24 && coding != SF_FORMAT_PCM_32 &&
        coding != SF_FORMAT_FLOAT && coding != SF_FORMAT_DOUBLE)
        throw Failure(text("%s: the samples are %s; recordings of 16 bits and more are read", path.c_str(),
                           formatText(info_.format).c_str()));
    if (info_.frames < 0 || info_.samplerate < 1 || info_.channels < 1)
        throw Failure(text("%s: the file's header makes no sense", path.c_str()));
    refuseCutOff(path);
    if (coding != SF_FORMAT_FLOAT && finest != SampleFormat::bits16)
        block_ = samples8u(blockFrames(channels()) * channels() * widestSample);
}

SampleFormat Recording::format() const
{
    switch (info_.format & SF_FORMAT_SUBMASK) {
    case SF_FORMAT_PCM_16:
        return SampleFormat::bits16;
    case SF_FORMAT_PCM_24:
        return SampleFormat::bits24;
    default:
        return SampleFormat::floating;
    }
}

// Whether the file holds 24-bit samples as the library packs them, low byte first.
bool Recording::isPacked24() const
{
    const int type = info_.format & SF_FORMAT_TYPEMASK;
    return format() == SampleFormat::bits24 &&
           (type == SF_FORMAT_WAV || type == SF_FORMAT_WAVEX || type == SF_FORMAT_RF64) &&
           sf_command(file_.get(), SFC_RAW_DATA_NEEDS_ENDSWAP, nullptr, 0) == SF_FALSE;
}

void Recording::damaged() const
{
    throw Failure(text("%s: the file is damaged: %s", path_.c_str(),
                       sf_error(file_.get()) != 0 ? sf_strerror(file_.get()) : "it ends before its time"));
}

void Recording::read(Zel16s* samples, int frames)
{
    if (sf_readf_short(file_.get(), samples, frames) != frames)
        damaged();
}

void Recording::read(Zel32f* samples, int frames)
{
    const int count = frames * channels();
    const int coding = info_.format & SF_FORMAT_SUBMASK;
    if (coding == SF_FORMAT_PCM_16) {
        auto* const shorts = reinterpret_cast<Zel16s*>(block_.get());
        read(shorts, frames);
        ok(zelsConvert_16s32f(shorts, samples, count));
    } else if (isPacked24()) {
        const sf_count_t bytes = sf_count_t{3} * count;
        if (sf_read_raw(file_.get(), block_.get(), bytes) != bytes)
            damaged();
        ok(zelsConvert_24s32f(block_.get(), samples, count));
        ok(zelsMulC_32f_I(1.0f / (1 << log2Of24In16), samples, count));
    } else if (coding == SF_FORMAT_PCM_24 || coding == SF_FORMAT_PCM_32) {
        auto* const integers = reinterpret_cast<Zel32s*>(block_.get());
        if (sf_readf_int(file_.get(), integers, frames) != frames)
            damaged();
        ok(zelsConvert_32s32f_Sfs(integers, samples, count, 16));
    } else {
        if (coding == SF_FORMAT_FLOAT) {
            if (sf_readf_float(file_.get(), samples, frames) != frames)
                damaged();
        } else {
            auto* const doubles = reinterpret_cast<Zel64f*>(block_.get());
            if (sf_readf_double(file_.get(), doubles, frames) != frames)
                damaged();
            ok(zelsConvert_64f32f(doubles, samples, count));
        }
        if (!std::all_of(samples, samples + count, [](float x) { return std::fabs(x) <= loudest; }))
            throw Failure(
                text("%s: some samples are no numbers, or beyond 120 dB above full scale", path_.c_str()));
        ok(zelsMulC_32f_I(fullScale, samples, count));
    }
}

WaveWriter::WaveWriter(const std::string& path, SampleFormat format, int rate, int channels, long long frames)
    : output_(path), format_(format), channels_(channels)
{
    struct Coding {
        int bytes, code;
    };
    const auto [bytes, code] = format == SampleFormat::bits16   ? Coding{2, SF_FORMAT_PCM_16}
                               : format == SampleFormat::bits24 ? Coding{3, SF_FORMAT_PCM_24}
                                                                : Coding{4, SF_FORMAT_FLOAT};
    SF_INFO info{};
    info.samplerate = rate;
    info.channels = channels;
    // The plain format counts its bytes in 32 bits.
    const bool large = frames > (0xffffffffLL - 4096) / bytes / channels;
    info.format = (large ? SF_FORMAT_RF64 : SF_FORMAT_WAV) | code;
    file_.reset(sf_open(output_.temporaryPath().c_str(), SFM_WRITE, &info));
    if (!file_)
        throw Failure(text("%s: cannot write: %s", path.c_str(), sf_strerror(nullptr)));
    // Of the same recordings the same mix: that chunk tells the time of day.
    sf_command(file_.get(), SFC_SET_ADD_PEAK_CHUNK, nullptr, SF_FALSE);
    block_ = samples8u(blockFrames(channels) * channels * bytes);
}

Failure WaveWriter::trouble() const
{
    return Failure(
        text("%s: cannot write: %s", path().c_str(), errno != 0 ? std::strerror(errno) : "no reason known"));
}

void WaveWriter::write(Zel32f* samples, int frames)
{
    const int count = frames * channels_;
    bool written = false;
    errno = 0;
    if (format_ == SampleFormat::bits16) {
        auto* const shorts = reinterpret_cast<Zel16s*>(block_.get());
        ok(zelsConvert_32f16s_Sfs(samples, shorts, count, zelRndNear, 0));
        written = sf_writef_short(file_.get(), shorts, frames) == frames;
    } else if (format_ == SampleFormat::bits24) {
        const sf_count_t bytes = sf_count_t{3} * count;
        ok(zelsConvert_32f24s_Sfs(samples, block_.get(), count, -log2Of24In16));
        written = sf_write_raw(file_.get(), block_.get(), bytes) == bytes;
    } else {
        ok(zelsMulC_32f_I(1 / fullScale, samples, count));
        written = sf_writef_float(file_.get(), samples, frames) == frames;
    }
    if (!written)
        throw trouble();
}

void WaveWriter::finish()
{
    errno = 0;
    if (sf_close(file_.release()) != 0)
        throw trouble();
}

int blockFrames(int channels)
{
    return std::max(1, 16384 / channels);
}

const char* formatName(SampleFormat format)
{
    return format == SampleFormat::bits16 ? "16-bit" : format == SampleFormat::bits24 ? "24-bit" : "float";
}

std::string channelText(int channels)
{
    return channels == 1 ? "mono" : channels == 2 ? "stereo" : text("%d channels", channels);
}

} // namespace support
