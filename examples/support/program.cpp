#include "program.h"

#include <charconv>
#include <cmath>
#include <csignal>
#include <cstdarg>
#include <cstdio>
#include <cstring>
#include <exception>

namespace support {

namespace {

const char* nameOfProgram = "";
volatile std::sig_atomic_t askedToStop = 0;

} // namespace

std::string text(const char* format, ...)
{
    va_list arguments, again;
    va_start(arguments, format);
    va_copy(again, arguments);
    std::string result(static_cast<size_t>(std::vsnprintf(nullptr, 0, format, arguments)), '\0');
    std::vsnprintf(result.data(), result.size() + 1, format, again);
    va_end(again);
    va_end(arguments);
    return result;
}

void ok(ZelStatus status, const char* file, int line)
{
    if (status < 0) {
        const char* slash = std::strrchr(file, '/');
        throw Failure(text("a library function called at %s:%d reports status %d",
                           slash != nullptr ? slash + 1 : file, line, status));
    }
}

int runProgram(const char* name, int argc, char** argv, int (*body)(int argc, char** argv))
{
    nameOfProgram = name;
    argv[0] = const_cast<char*>(name); // getopt begins its messages with it
    for (const int signal : {SIGINT, SIGTERM, SIGHUP})
        std::signal(signal, [](int) { askedToStop = 1; });
    int status = 1;
    try {
        status = body(argc, argv);
    } catch (const std::bad_alloc&) {
        complain("out of memory");
    } catch (const std::exception& failure) {
        complain(failure.what());
    }
    if (std::fflush(stdout) != 0 || std::ferror(stdout) != 0) {
        complain("cannot write to the standard output");
        status = 1;
    }
    return status;
}

const char* programName()
{
    return nameOfProgram;
}

void complain(const std::string& message)
{
    std::fflush(stdout);
    std::fprintf(stderr, "%s: %s\n", nameOfProgram, message.c_str());
}

void stopIfAsked()
{
    if (askedToStop != 0)
        throw Failure("interrupted");
}

std::optional<double> number(std::string_view digits)
{
    if (digits.starts_with('+') && !digits.starts_with("+-"))
        digits.remove_prefix(1);
    double value = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), value);
    if (error != std::errc{} || end != digits.data() + digits.size() || !std::isfinite(value))
        return std::nullopt;
    return value;
}

std::string durationText(double seconds)
{
    if (seconds < 59.9995)
        return text("%.3f s", seconds);
    const double rounded = seconds < 3599.95 ? std::round(seconds * 10) / 10 : std::round(seconds);
    const long long minutes = static_cast<long long>(rounded / 60);
    const double rest = rounded - 60.0 * static_cast<double>(minutes);
    if (minutes < 60)
        return text("%lld:%04.1f", minutes, rest);
    return text("%lld:%02lld:%02.0f", minutes / 60, minutes % 60, rest);
}

std::string decibelText(double ratio)
{
    return ratio > 0 ? text("%.1f", 20 * std::log10(ratio)) : "-inf";
}

std::string countText(long long count, const char* singular)
{
    return text("%lld %s%s", count, singular, count == 1 ? "" : "s");
}

} // namespace support
