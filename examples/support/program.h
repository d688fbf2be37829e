// What every example program is made of: failures with a message, status checks, text.
#pragma once

#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>

#include "zels.h"

namespace support {

/// Something that the user has to know of and that ends the work: the message names the file.
class Failure : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

/// Text made as by printf.
[[gnu::format(printf, 1, 2)]] std::string text(const char* format, ...);

/// Passes success and warnings of a zels function, throws a Failure on an error.
/// The caller's place is filled in by the compiler.
void ok(ZelStatus status, const char* file = __builtin_FILE(), int line = __builtin_LINE());

/// Runs a program: what `body` returns is the exit status; a Failure is printed behind the program's name,
/// and the exit status is 1.
int runProgram(const char* name, int argc, char** argv, int (*body)(int argc, char** argv));

/// The name given to runProgram().
const char* programName();

/// Prints a message on the error stream behind the program's name.
void complain(const std::string& message);

/// Throws a Failure if the user has asked to stop (Ctrl-C), so that half-written files are removed on the way
/// out.
void stopIfAsked();

/// The finite number that the whole text stands for, such as -6 or +3.5.
std::optional<double> number(std::string_view digits);

/// "1.432 s", "2:03.4" or "1:02:03".
std::string durationText(double seconds);

/// The ratio in decibels, "-3.2" or "-inf".
std::string decibelText(double ratio);

/// "1 sample", "2 samples".
std::string countText(long long count, const char* singular);

} // namespace support
