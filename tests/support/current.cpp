#include "support/current.h"

#include "support/modes.h"

#include <csignal>
#include <cstring>
#include <string>
#include <unistd.h>

/// For builds under the address sanitizer: tests ask for more memory than there is, and want null then.
extern "C" const char* __asan_default_options();
extern "C" const char* __asan_default_options()
{
    return "allocator_may_return_null=1";
}

namespace support {

namespace {

CurrentScope::Describe currentDescribe = nullptr;
const void* currentSubject = nullptr;
struct sigaction formerSegv;
struct sigaction formerBus;

void onCrash(int signal, siginfo_t*, void*)
{
    if (currentDescribe) {
        static char text[1024] = "crashed: ";
        const std::size_t used = std::strlen(text);
        currentDescribe(currentSubject, text + used, sizeof text - used - 2);
        std::strcat(text, "\n");
        const auto written = write(STDERR_FILENO, text, std::strlen(text));
        static_cast<void>(written);
    }
    // Back in the function, the access faults again and takes its former course.
    sigaction(signal, signal == SIGSEGV ? &formerSegv : &formerBus, nullptr);
}

} // namespace

CurrentScope::CurrentScope(Describe describe, const void* subject)
{
    currentDescribe = describe;
    currentSubject = subject;
}

CurrentScope::~CurrentScope()
{
    currentDescribe = nullptr;
}

void installCrashReport()
{
    struct sigaction action = {};
    action.sa_sigaction = onCrash;
    action.sa_flags = SA_SIGINFO;
    sigaction(SIGSEGV, &action, &formerSegv);
    sigaction(SIGBUS, &action, &formerBus);
}

const char* modeName(unsigned mode)
{
    static const char* const names[]{"nearest",       "down",       "up",       "toward zero",
                                     "nearest+flush", "down+flush", "up+flush", "toward zero+flush"};
    return names[((mode & _MM_ROUND_MASK) >> 13) + ((mode & flushMode) != 0 ? 4 : 0)];
}

} // namespace support
