#include "recording.h"

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <sys/stat.h>
#include <unistd.h>

namespace support {

namespace {

// What to call the sample format of a file that is not 16-bit.
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

Recording::Recording(const std::string& path) : path_(path)
{
    struct stat status {};
    if (::stat(path.c_str(), &status) != 0 || ::access(path.c_str(), R_OK) != 0)
        throw Failure(text("%s: cannot read: %s", path.c_str(), std::strerror(errno)));
    if (!S_ISREG(status.st_mode))
        throw Failure(text("%s: cannot read: not a regular file", path.c_str()));
    file_.reset(sf_open(path.c_str(), SFM_READ, &info_));
    if (!file_)
        throw Failure(text("%s: not a sound file that can be read: %s", path.c_str(), sf_strerror(nullptr)));
    if ((info_.format & SF_FORMAT_SUBMASK) != SF_FORMAT_PCM_16)
        throw Failure(text("%s: the samples are %s; only 16-bit recordings are read", path.c_str(),
                           formatText(info_.format).c_str()));
    if (info_.frames < 0 || info_.samplerate < 1 || info_.channels < 1)
        throw Failure(text("%s: the file's header makes no sense", path.c_str()));
    refuseCutOff(path);
}

void Recording::read(Zel16s* samples, int frames)
{
    if (sf_readf_short(file_.get(), samples, frames) != frames)
        throw Failure(
            text("%s: the file is damaged: %s", path_.c_str(),
                 sf_error(file_.get()) != 0 ? sf_strerror(file_.get()) : "it ends before its time"));
}

WaveWriter::WaveWriter(const std::string& path, int rate, int channels, long long frames) : output_(path)
{
    SF_INFO info{};
    info.samplerate = rate;
    info.channels = channels;
    // The plain format counts its bytes in 32 bits.
    const bool large = frames > (0xffffffffLL - 4096) / 2 / channels;
    info.format = (large ? SF_FORMAT_RF64 : SF_FORMAT_WAV) | SF_FORMAT_PCM_16;
    file_.reset(sf_open(output_.temporaryPath().c_str(), SFM_WRITE, &info));
    if (!file_)
        throw Failure(text("%s: cannot write: %s", path.c_str(), sf_strerror(nullptr)));
}

Failure WaveWriter::trouble() const
{
    return Failure(
        text("%s: cannot write: %s", path().c_str(), errno != 0 ? std::strerror(errno) : "no reason known"));
}

void WaveWriter::write(const Zel16s* samples, int frames)
{
    errno = 0;
    if (sf_writef_short(file_.get(), samples, frames) != frames)
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

std::string channelText(int channels)
{
    return channels == 1 ? "mono" : channels == 2 ? "stereo" : text("%d channels", channels);
}

} // namespace support
