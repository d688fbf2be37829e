// Stepping through a call finds what it should.
#include "support/trace.h"

#include "support/test.h"

#include <emmintrin.h>

TEST(Trace, countsInstructions)
{
    if (!canTrace())
        GTEST_SKIP() << "no single steps on this machine";
    alignas(16) double memory[2];
    const Trace seen = trace([&] {
        _mm_stream_pd(memory, _mm_setzero_pd());
        _mm_stream_si128(reinterpret_cast<__m128i*>(memory), _mm_setzero_si128());
        _mm_stream_si64(reinterpret_cast<long long*>(memory), 1);
        _mm_sfence();
        unsigned leaf = 0;
        asm volatile("cpuid" : "+a"(leaf) : : "rbx", "rcx", "rdx");
    });
    EXPECT_EQ(seen.streamingStores, 3);
    EXPECT_EQ(seen.fences, 1);
    EXPECT_EQ(seen.cpuids, 1);
    const Trace none = trace([&] { _mm_store_pd(memory, _mm_setzero_pd()); });
    EXPECT_EQ(none.streamingStores + none.fences + none.cpuids, 0);
}

TEST(Trace, endsAfterTheStepsAskedFor)
{
    if (!canTrace())
        GTEST_SKIP() << "no single steps on this machine";
    volatile int sum = 0;
    const auto loop = [&] {
        for (int i = 0; i < 100000; i++)
            sum = sum + 1;
    };
    EXPECT_EQ(trace(loop, 1234).steps, 1234);
    EXPECT_EQ(sum, 100000);
}
