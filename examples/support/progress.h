// Progress of long work, on the error stream.
#pragma once

namespace support {

/// Tells how far long work has come: a bar that is redrawn on a terminal, a line every ten per cent elsewhere
/// (so that a log stays short). Work below the threshold of "long" shows nothing.
class Progress {
  public:
    /// `total` counts the samples to come.
    explicit Progress(long long total);
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;
    ~Progress();

    /// Counts `samples` as done; throws a Failure if the user has asked to stop.
    void advance(long long samples);

  private:
    void draw(int percent);

    long long total_;
    long long done_ = 0;
    int shown_ = -1;
    bool visible_;
    bool terminal_;
};

} // namespace support
