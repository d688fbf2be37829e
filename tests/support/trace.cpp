#include "support/trace.h"

#include <csignal>
#include <cstddef>
#include <sys/mman.h>
#include <ucontext.h>

namespace support {

namespace {

constexpr long long trapFlag = 0x100;

Trace current;
long long stepsWanted;
void* firstPage;
bool endsAtStreaming;
constexpr std::size_t pageBytes = 4096;

/// Counts the instruction that is about to be executed.
void look(const unsigned char* code)
{
    bool repeated = false;
    while (*code == 0x66 || *code == 0xF2 || *code == 0xF3 || (*code & 0xF0) == 0x40)
        repeated |= *code++ == 0xF3;
    if (*code++ != 0x0F)
        return;
    switch (*code) {
    case 0xE7: // movntdq, movntq
    case 0x2B: // movntps, movntpd
    case 0xC3: // movnti
        current.streamingStores++;
        break;
    case 0xA2:
        current.cpuids++;
        break;
    case 0xAE:
        current.fences += !repeated && (code[1] == 0xF0 || code[1] == 0xF8); // mfence, sfence
        break;
    default:
        break;
    }
}

void onStep(int, siginfo_t*, void* context)
{
    auto& registers = static_cast<ucontext_t*>(context)->uc_mcontext.gregs;
    look(reinterpret_cast<const unsigned char*>(registers[REG_RIP]));
    if (++current.steps >= stepsWanted || (endsAtStreaming && current.streamingStores > 0))
        registers[REG_EFL] &= ~trapFlag;
}

struct sigaction formerFault;

void onFirstAccess(int, siginfo_t* info, void* context)
{
    // Once is enough: a fault anywhere else, or another one there, takes its former course.
    sigaction(SIGSEGV, &formerFault, nullptr);
    const auto* const address = static_cast<const std::byte*>(info->si_addr);
    if (address < firstPage || address >= static_cast<std::byte*>(firstPage) + pageBytes)
        return;
    mprotect(firstPage, pageBytes, PROT_READ | PROT_WRITE);
    static_cast<ucontext_t*>(context)->uc_mcontext.gregs[REG_EFL] |= trapFlag;
}

void setTrapFlag(bool on)
{
    // Past the red zone, where the caller may keep data.
    if (on)
        asm volatile(
            "lea -128(%%rsp), %%rsp\n pushfq\n orq $0x100, (%%rsp)\n popfq\n lea 128(%%rsp), %%rsp" ::
                : "memory", "cc");
    else
        asm volatile(
            "lea -128(%%rsp), %%rsp\n pushfq\n andq $~0x100, (%%rsp)\n popfq\n lea 128(%%rsp), %%rsp" ::
                : "memory", "cc");
}

} // namespace

namespace detail {

Trace traceCall(void (*call)(void*), void* argument, long long steps, void* fromPage, bool onlyToStreaming)
{
    struct sigaction action = {};
    struct sigaction formerTrap = {};
    action.sa_flags = SA_SIGINFO;
    action.sa_sigaction = onStep;
    sigaction(SIGTRAP, &action, &formerTrap);
    current = {};
    stepsWanted = steps;
    firstPage = fromPage;
    endsAtStreaming = onlyToStreaming;
    if (fromPage) {
        action.sa_sigaction = onFirstAccess;
        sigaction(SIGSEGV, &action, &formerFault);
        mprotect(fromPage, pageBytes, PROT_NONE);
    } else {
        setTrapFlag(true);
    }
    call(argument);
    setTrapFlag(false);
    sigaction(SIGTRAP, &formerTrap, nullptr);
    if (fromPage) {
        sigaction(SIGSEGV, &formerFault, nullptr);
        mprotect(fromPage, pageBytes, PROT_READ | PROT_WRITE);
    }
    return current;
}

} // namespace detail

bool canTrace()
{
    return trace([] { asm volatile("nop\n nop\n nop"); }, 2).steps == 2;
}

} // namespace support
