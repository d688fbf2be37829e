// Files that appear whole or not at all.
#pragma once

#include <string>

namespace support {

/// A file under construction. It is written under a temporary name beside its place, and takes its own name
/// in commit(); without that, nothing is left behind.
class OutputFile {
  public:
    /// Creates the temporary file; throws a Failure where nothing can be written. A device such as /dev/null
    /// is written to directly.
    explicit OutputFile(const std::string& path);
    OutputFile(const OutputFile&) = delete;
    OutputFile& operator=(const OutputFile&) = delete;
    ~OutputFile();

    /// The name as the user gave it, for messages.
    const std::string& path() const { return path_; }
    /// The name to write to.
    const std::string& temporaryPath() const { return temporary_; }
    /// Gives the finished file its name, replacing what bore it before.
    void commit();

  private:
    std::string path_;
    std::string target_;
    std::string temporary_;
    bool pending_ = false;
};

/// Whether two names lead to one file, existing or to be written.
bool sameFile(const std::string& a, const std::string& b);

/// The last part of a path.
std::string baseName(const std::string& path);

} // namespace support
