// Floating-point modes and processor features.
#include "zelcore.h"

#include <cpuid.h>
#include <pmmintrin.h>
#include <xmmintrin.h>

namespace {

constexpr unsigned flushToZero = _MM_FLUSH_ZERO_MASK;
constexpr unsigned denormalsAreZero = _MM_DENORMALS_ZERO_MASK;

void switchMode(unsigned mode, bool on)
{
    _mm_setcsr(on ? _mm_getcsr() | mode : _mm_getcsr() & ~mode);
}

// The state that the operating system saves, from XCR0: without it a register may not be used.
unsigned savedState()
{
    unsigned low = 0;
    unsigned high = 0;
    // Volatile: the compiler may otherwise run it ahead of the test that the processor has it.
    asm volatile("xgetbv" : "=a"(low), "=d"(high) : "c"(0));
    return low;
}

uint64_t features()
{
    unsigned a = 0;
    unsigned b = 0;
    unsigned c = 0;
    unsigned d = 0;
    if (!__get_cpuid(1, &a, &b, &c, &d))
        return 0;
    uint64_t found = 0;
    const auto add = [&found](int bit, bool there) { found |= static_cast<uint64_t>(there) << bit; };
    add(zelFeatureBitSSE2, d & bit_SSE2);
    add(zelFeatureBitSSE3, c & bit_SSE3);
    add(zelFeatureBitSSSE3, c & bit_SSSE3);
    add(zelFeatureBitMOVBE, c & bit_MOVBE);
    add(zelFeatureBitSSE41, c & bit_SSE4_1);
    add(zelFeatureBitSSE42, c & bit_SSE4_2);
    constexpr unsigned stateAvx = 0x6;
    constexpr unsigned stateAvx512 = 0xE6;
    const unsigned saved = c & bit_OSXSAVE ? savedState() : 0;
    if ((c & bit_AVX) && (saved & stateAvx) == stateAvx) {
        add(zelFeatureBitAVX, true);
        add(zelFeatureBitF16C, c & bit_F16C);
        add(zelFeatureBitFMA, c & bit_FMA);
        if (__get_cpuid_count(7, 0, &a, &b, &c, &d)) {
            add(zelFeatureBitAVX2, b & bit_AVX2);
            add(zelFeatureBitAVX512F, (b & bit_AVX512F) && (saved & stateAvx512) == stateAvx512);
        }
    }
    return found;
}

} // namespace

int32_t zelSetFlushToZero(int value, unsigned int* pUnderflowMask)
{
    if (pUnderflowMask)
        *pUnderflowMask = (_mm_getcsr() & _MM_MASK_UNDERFLOW) != 0;
    switchMode(flushToZero, value != 0);
    return 0;
}

int32_t zelSetDenormAreZeros(int value)
{
    switchMode(denormalsAreZero, value != 0);
    return 0;
}

int ownGetFeature(uint64_t mask)
{
    return (features() & mask) == mask;
}
