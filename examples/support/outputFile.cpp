#include "outputFile.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <unistd.h>

#include "program.h"

namespace fs = std::filesystem;

namespace support {

OutputFile::OutputFile(const std::string& path) : path_(path)
{
    const auto refuse = [&](const char* reason) -> Failure {
        return Failure(text("%s: cannot write: %s", path.c_str(), reason));
    };
    if (path.empty())
        throw refuse("the name is empty");
    std::error_code error;
    const fs::file_status existing = fs::status(path, error);
    if (fs::is_directory(existing))
        throw refuse("it is a directory");
    if (fs::exists(existing) && ::access(path.c_str(), W_OK) != 0)
        throw refuse(std::strerror(errno));
    if (fs::exists(existing) && !fs::is_regular_file(existing)) {
        temporary_ = target_ = path;
        return;
    }
    // A symbolic link keeps its place, and what it points to is replaced.
    const fs::path target = fs::exists(existing) ? fs::canonical(path, error) : fs::path(path);
    target_ = target.string();
    static int number = 0;
    temporary_ =
        (target.parent_path() / text(".zels-%ld-%d.part", static_cast<long>(::getpid()), number++)).string();
    const int file = ::open(temporary_.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
    if (file < 0)
        throw refuse(std::strerror(errno));
    ::close(file);
    pending_ = true;
}

OutputFile::~OutputFile()
{
    if (pending_)
        ::unlink(temporary_.c_str());
}

void OutputFile::commit()
{
    if (pending_ && std::rename(temporary_.c_str(), target_.c_str()) != 0)
        throw Failure(text("%s: cannot write: %s", path_.c_str(), std::strerror(errno)));
    pending_ = false;
}

bool sameFile(const std::string& a, const std::string& b)
{
    std::error_code error;
    if (fs::equivalent(a, b, error))
        return true;
    const auto place = [&](const std::string& path) {
        return fs::weakly_canonical(fs::absolute(path, error), error);
    };
    return place(a) == place(b);
}

std::string baseName(const std::string& path)
{
    const std::string name = fs::path(path).filename().string();
    return name.empty() ? path : name;
}

} // namespace support
