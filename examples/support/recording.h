// Recordings, read and written in blocks.
#pragma once

#include <memory>
#include <string>

#include <sndfile.h>

#include "outputFile.h"
#include "program.h"
#include "samples.h"
#include "zels.h"

namespace support {

struct CloseSound {
    void operator()(SNDFILE* file) const { sf_close(file); }
};
using SoundFile = std::unique_ptr<SNDFILE, CloseSound>;

/// What the samples of a recording are, the coarsest first. Integers of 32 bits and double precision come under
/// `floating`: single precision holds what matters of them.
enum class SampleFormat { bits16, bits24, floating };

/// A recording opened for reading. A frame is one sample of each channel.
class Recording {
  public:
    /// Opens a recording; throws a Failure naming the file where it is missing or holds samples that are finer
    /// than `finest`, or coarser than 16 bits.
    explicit Recording(const std::string& path, SampleFormat finest = SampleFormat::bits16);

    const std::string& path() const { return path_; }
    long long frames() const { return info_.frames; }
    int rate() const { return info_.samplerate; }
    int channels() const { return info_.channels; }
    double seconds() const { return static_cast<double>(frames()) / rate(); }
    SampleFormat format() const;

    /// Reads the next `frames` frames, channels interleaved, which must be there. Of 16-bit recordings alone.
    void read(Zel16s* samples, int frames);
    /// The same of any recording, in units of a 16-bit sample; at most blockFrames() at a time.
    void read(Zel32f* samples, int frames);

  private:
    [[noreturn]] void damaged() const;
    bool isPacked24() const;

    std::string path_;
    SF_INFO info_{};
    SoundFile file_;
    Samples<Zel8u> block_; ///< samples as the file has them
};

/// A wave file under construction; it appears under its name in commit().
class WaveWriter {
  public:
    WaveWriter(const std::string& path, SampleFormat format, int rate, int channels, long long frames);

    const std::string& path() const { return output_.path(); }
    /// Takes samples in units of a 16-bit sample, at most blockFrames() at a time. Integers are rounded to nearest
    /// and saturate. Uses up `samples`.
    void write(Zel32f* samples, int frames);
    /// Completes the data, still under the temporary name.
    void finish();
    void commit() { output_.commit(); }

  private:
    Failure trouble() const;

    OutputFile output_;
    SampleFormat format_;
    int channels_;
    SoundFile file_;
    Samples<Zel8u> block_; ///< samples as the file has them
};

/// How many frames make a block: the arrays of a block stay within the second-level cache.
int blockFrames(int channels);

/// "16-bit", "24-bit", "float".
const char* formatName(SampleFormat format);

/// "mono", "stereo", "6 channels".
std::string channelText(int channels);

} // namespace support
