// Typed allocation.
#include "support/test.h"

#include <climits>

namespace {

template <class T>
bool usable(T* p, std::size_t count)
{
    if (!p || reinterpret_cast<std::uintptr_t>(p) % 64 != 0)
        return false;
    std::memset(p, 0x5A, count * sizeof(T));
    zelsFree(p);
    return true;
}

/// The plain form takes lengths whose bytes fit a positive 32-bit integer; what it takes, it may still not get.
template <class T>
void expectForms(T* (*plain)(int), T* (*wide)(ZelSize))
{
    constexpr int most = INT_MAX / static_cast<int>(sizeof(T));
    for (const int len : {1, 2, 63, 1000, 100001}) {
        EXPECT_TRUE(usable(plain(len), static_cast<std::size_t>(len)));
        EXPECT_TRUE(usable(wide(len), static_cast<std::size_t>(len)));
    }
    for (const int len : {0, -1, INT_MIN}) {
        EXPECT_EQ(plain(len), nullptr);
        EXPECT_EQ(wide(len), nullptr);
    }
    EXPECT_EQ(wide(INT64_MIN), nullptr);
    // Not written to: pages that nobody touches cost nothing.
    T* const p = plain(most);
    EXPECT_NE(p, nullptr);
    zelsFree(p);
    if (most < INT_MAX) {
        EXPECT_EQ(plain(most + 1), nullptr);
        EXPECT_EQ(plain(INT_MAX), nullptr);
        T* const more = wide(ZelSize{most} + 1);
        EXPECT_NE(more, nullptr);
        zelsFree(more);
    }
    // Too much for any machine, and too much for 64 bits; the bytes of two-byte elements wrap, to less than one.
    for (const ZelSize len : {INT64_MAX / 16, INT64_MAX / 16 + 1, INT64_MAX / 8, INT64_MAX / 8 + 1,
                              INT64_MAX / 4, INT64_MAX / 4 + 1, INT64_MAX / 2, INT64_MAX / 2 + 1, INT64_MAX})
        EXPECT_EQ(wide(len), nullptr) << len;
    // The bytes of this length are 2^64 and one element.
    if (sizeof(T) > 2) {
        EXPECT_EQ(wide(static_cast<ZelSize>((Wide{1} << 64) / static_cast<int>(sizeof(T))) + 1), nullptr);
    }
}

} // namespace

TEST(Memory, comesAlignedAndRefusesLengths)
{
    expectForms(zelsMalloc_8u, zelsMalloc_8u_L);
    expectForms(zelsMalloc_8s, zelsMalloc_8s_L);
    expectForms(zelsMalloc_16u, zelsMalloc_16u_L);
    expectForms(zelsMalloc_16s, zelsMalloc_16s_L);
    expectForms(zelsMalloc_8sc, zelsMalloc_8sc_L);
    expectForms(zelsMalloc_32f, zelsMalloc_32f_L);
    expectForms(zelsMalloc_32s, zelsMalloc_32s_L);
    expectForms(zelsMalloc_32u, zelsMalloc_32u_L);
    expectForms(zelsMalloc_16sc, zelsMalloc_16sc_L);
    expectForms(zelsMalloc_64f, zelsMalloc_64f_L);
    expectForms(zelsMalloc_64s, zelsMalloc_64s_L);
    expectForms(zelsMalloc_32fc, zelsMalloc_32fc_L);
    expectForms(zelsMalloc_32sc, zelsMalloc_32sc_L);
    expectForms(zelsMalloc_64fc, zelsMalloc_64fc_L);
    expectForms(zelsMalloc_64sc, zelsMalloc_64sc_L);
}

TEST(Memory, takesBackNull)
{
    zelsFree(nullptr);
}
