#include "progress.h"

#include <cstdio>
#include <string>
#include <unistd.h>

#include "program.h"

namespace support {

namespace {

// About a minute and a half of stereo at 48 kHz: less is done before anybody could read the first figure.
constexpr long long longWork = 1LL << 23;

} // namespace

Progress::Progress(long long total)
    : total_(total), visible_(total >= longWork), terminal_(::isatty(STDERR_FILENO) != 0)
{
}

Progress::~Progress()
{
    if (visible_ && terminal_ && shown_ >= 0)
        std::fputs("\r\033[K", stderr);
}

void Progress::advance(long long samples)
{
    stopIfAsked();
    done_ += samples;
    if (!visible_)
        return;
    const int percent = static_cast<int>(100.0 * static_cast<double>(done_) / static_cast<double>(total_));
    const int step = terminal_ ? percent : percent / 10 * 10;
    if (step != shown_) {
        shown_ = step;
        draw(step);
    }
}

void Progress::draw(int percent)
{
    if (!terminal_) {
        if (percent > 0)
            std::fprintf(stderr, "%s: %d %%\n", programName(), percent);
        return;
    }
    constexpr size_t width = 40;
    const size_t full = width * static_cast<size_t>(percent) / 100;
    std::fprintf(stderr, "\r%s: [%s%s] %3d %%", programName(), std::string(full, '=').c_str(),
                 std::string(width - full, ' ').c_str(), percent);
    std::fflush(stderr);
}

} // namespace support
