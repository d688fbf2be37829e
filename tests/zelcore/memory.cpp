// Aligned allocation.
#include "zelcore.h"

#include "support/test.h"

#include <climits>

TEST(ZelcoreMemory, comesAligned)
{
    std::vector<std::pair<unsigned char*, std::size_t>> blocks;
    for (std::size_t bytes = 1; bytes < 3000; bytes += bytes / 7 + 1) {
        auto* const p = static_cast<unsigned char*>(
            bytes % 2 == 0 ? zelMalloc(static_cast<int>(bytes)) : zelMalloc_L(static_cast<ZelSize>(bytes)));
        ASSERT_NE(p, nullptr);
        EXPECT_EQ(reinterpret_cast<std::uintptr_t>(p) % zelcoreAlignment, 0U);
        std::memset(p, static_cast<int>(bytes % 251), bytes);
        blocks.push_back({p, bytes});
    }
    for (const auto& [p, bytes] : blocks) {
        for (std::size_t i = 0; i < bytes; i++)
            ASSERT_EQ(p[i], bytes % 251);
        zelFree(p);
    }
}

TEST(ZelcoreMemory, refusesWhatCannotBe)
{
    for (const int bytes : {0, -1, INT_MIN}) {
        EXPECT_EQ(zelMalloc(bytes), nullptr);
        EXPECT_EQ(zelMalloc_L(bytes), nullptr);
    }
    for (const ZelSize bytes :
         {INT64_MIN, INT64_MAX, INT64_MAX - 62, INT64_MAX - 63, INT64_MAX - 64, INT64_MAX / 2})
        EXPECT_EQ(zelMalloc_L(bytes), nullptr) << bytes;
    zelFree(nullptr);
}
