// What is being tried at the moment, told when the program dies by an access to a guard page.
#pragma once

#include <cstddef>

namespace support {

/// While it lives, a crash prints what `describe` writes.
class CurrentScope {
  public:
    using Describe = void (*)(const void* subject, char* text, std::size_t size);
    CurrentScope(Describe describe, const void* subject);
    ~CurrentScope();
    CurrentScope(const CurrentScope&) = delete;
    CurrentScope& operator=(const CurrentScope&) = delete;
};

/// Makes a crash tell what was being tried, before it takes its course.
void installCrashReport();

} // namespace support
