// 16-bit recordings, read and written in blocks.
#pragma once

#include <memory>
#include <string>

#include <sndfile.h>

#include "outputFile.h"
#include "program.h"
#include "zels.h"

namespace support {

struct CloseSound {
    void operator()(SNDFILE* file) const { sf_close(file); }
};
using SoundFile = std::unique_ptr<SNDFILE, CloseSound>;

/// A recording opened for reading. A frame is one sample of each channel.
class Recording {
  public:
    /// Opens a recording; throws a Failure naming the file where it is missing or holds anything but 16-bit
    /// samples.
    explicit Recording(const std::string& path);

    const std::string& path() const { return path_; }
    long long frames() const { return info_.frames; }
    int rate() const { return info_.samplerate; }
    int channels() const { return info_.channels; }
    double seconds() const { return static_cast<double>(frames()) / rate(); }

    /// Reads the next `frames` frames, channels interleaved, which must be there.
    void read(Zel16s* samples, int frames);

  private:
    std::string path_;
    SF_INFO info_{};
    SoundFile file_;
};

/// A 16-bit wave file under construction; it appears under its name in commit().
class WaveWriter {
  public:
    WaveWriter(const std::string& path, int rate, int channels, long long frames);

    const std::string& path() const { return output_.path(); }
    void write(const Zel16s* samples, int frames);
    /// Completes the data, still under the temporary name.
    void finish();
    void commit() { output_.commit(); }

  private:
    Failure trouble() const;

    OutputFile output_;
    SoundFile file_;
};

/// How many frames make a block: the arrays of a block stay within the second-level cache.
int blockFrames(int channels);

/// "mono", "stereo", "6 channels".
std::string channelText(int channels);

} // namespace support
