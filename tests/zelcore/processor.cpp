// Floating-point modes and processor features.
#include "zelcore.h"

#include "support/test.h"

#include <cstdlib>
#include <thread>

namespace {

/// Half the smallest normal number, computed at run time: 0 if results are flushed.
float halfOfLeast()
{
    volatile float least = std::numeric_limits<float>::min();
    return least / 2;
}

/// A subnormal number times a large one: 0 if operands are.
float subnormalTimesLarge()
{
    volatile float subnormal = 1e-40f;
    return subnormal * 1e20f;
}

/// Whether a program on this machine may use the feature, as the compiler's own library sees it.
bool supported(int bit)
{
    __builtin_cpu_init();
    switch (bit) {
    case zelFeatureBitSSE2:
        return __builtin_cpu_supports("sse2");
    case zelFeatureBitSSE3:
        return __builtin_cpu_supports("sse3");
    case zelFeatureBitSSSE3:
        return __builtin_cpu_supports("ssse3");
    case zelFeatureBitSSE41:
        return __builtin_cpu_supports("sse4.1");
    case zelFeatureBitSSE42:
        return __builtin_cpu_supports("sse4.2");
    case zelFeatureBitAVX:
        return __builtin_cpu_supports("avx");
    case zelFeatureBitFMA:
        return __builtin_cpu_supports("fma");
    case zelFeatureBitAVX2:
        return __builtin_cpu_supports("avx2");
    case zelFeatureBitAVX512F:
        return __builtin_cpu_supports("avx512f");
    default:
        return ownGetFeature(std::uint64_t{1} << bit); // no name for it there
    }
}

} // namespace

TEST(ZelcoreModes, flushResults)
{
    const FloatMode restored(nearestMode);
    EXPECT_GT(halfOfLeast(), 0);
    for (const int on : {1, -5}) {
        EXPECT_EQ(zelSetFlushToZero(on, nullptr), 0);
        EXPECT_EQ(halfOfLeast(), 0);
        EXPECT_GT(subnormalTimesLarge(), 0);
        EXPECT_EQ(zelSetFlushToZero(0, nullptr), 0);
        EXPECT_GT(halfOfLeast(), 0);
    }
}

TEST(ZelcoreModes, flushOperands)
{
    const FloatMode restored(nearestMode);
    EXPECT_GT(subnormalTimesLarge(), 0);
    EXPECT_EQ(zelSetDenormAreZeros(7), 0);
    EXPECT_EQ(subnormalTimesLarge(), 0);
    EXPECT_EQ(zelSetDenormAreZeros(0), 0);
    EXPECT_GT(subnormalTimesLarge(), 0);
}

TEST(ZelcoreModes, touchNothingElse)
{
    const FloatMode restored(upMode);
    const unsigned before = _mm_getcsr();
    zelSetFlushToZero(1, nullptr);
    EXPECT_EQ(_mm_getcsr(), before | _MM_FLUSH_ZERO_ON);
    zelSetDenormAreZeros(1);
    EXPECT_EQ(_mm_getcsr(), before | flushMode);
    zelSetFlushToZero(0, nullptr);
    zelSetDenormAreZeros(0);
    EXPECT_EQ(_mm_getcsr(), before);
    std::thread([] {
        zelSetFlushToZero(1, nullptr);
        zelSetDenormAreZeros(1);
    }).join();
    EXPECT_EQ(_mm_getcsr(), before) << "the modes of another thread";
}

TEST(ZelcoreModes, tellWhetherUnderflowIsMasked)
{
    const unsigned before = _mm_getcsr();
    unsigned masked = 7;
    zelSetFlushToZero(0, &masked);
    EXPECT_EQ(masked, 1U);
    _mm_setcsr(before & ~static_cast<unsigned>(_MM_MASK_UNDERFLOW));
    zelSetFlushToZero(0, &masked);
    _mm_setcsr(before);
    EXPECT_EQ(masked, 0U);
}

TEST(ZelcoreFeatures, areTheProcessorsOwn)
{
    std::uint64_t all = 0;
    for (int bit = 0; bit < 64; bit++) {
        const std::uint64_t mask = std::uint64_t{1} << bit;
        const bool named = bit >= zelFeatureBitSSE2 && bit <= zelFeatureBitAVX512F;
        EXPECT_EQ(ownGetFeature(mask), named && supported(bit)) << bit;
        if (ownGetFeature(mask))
            all |= mask;
    }
    // Of several features, all must be there.
    EXPECT_EQ(ownGetFeature(all), 1);
    EXPECT_EQ(ownGetFeature(0), 1);
    EXPECT_EQ(ownGetFeature(all | std::uint64_t{1} << 36), 0);
    EXPECT_EQ(ownGetFeature(std::uint64_t{1} << zelFeatureBitSSE42), 1) << "the library's own variant";
}
