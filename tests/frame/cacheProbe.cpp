// The cache size that a processor reports by CPUID leaf 2, on processors made up.
#include "frame/cacheProbe.h"

#include "support/test.h"

#include <map>

namespace {

constexpr std::uint32_t nothing = 0x80000000;

/// The size by the four registers of leaf 2; the lowest byte of the first is the count of rounds.
Zel64u described(std::uint32_t eax, std::uint32_t ebx = nothing, std::uint32_t ecx = nothing,
                 std::uint32_t edx = nothing)
{
    return ownsDescribedCacheSize({eax, ebx, ecx, edx});
}

/// Descriptors by the size in KiB that they stand for.
const std::map<Zel64u, std::vector<std::uint32_t>> descriptors{
    {24576, {0xEC}},
    {18432, {0xEB}},
    {16384, {0x4D}},
    {12288, {0xEA, 0x4C}},
    {8192, {0xE4, 0xDE, 0x4B, 0x47}},
    {6144, {0x4E, 0x4A}},
    {4096, {0xE3, 0xDD, 0xD8, 0x49, 0x29, 0x46}},
    {3072, {0x48}},
    {2048, {0xE2, 0xDC, 0xD7, 0xD2, 0x25, 0x7D, 0x85, 0x45}},
    {1024, {0xD6, 0xD1, 0x23, 0x87, 0x7C, 0x78, 0x84, 0x44}},
    {512, {0xD0, 0x22, 0x7B, 0x80, 0x86, 0x3E, 0x7F, 0x83, 0x43}},
};

} // namespace

TEST(CacheProbe, knowsEveryDescriptorInEveryPlace)
{
    std::map<std::uint32_t, Zel64u> sizes;
    for (const auto& [kib, bytes] : descriptors)
        for (const std::uint32_t descriptor : bytes)
            sizes[descriptor] = kib * 1024;
    EXPECT_EQ(sizes.size(), 43U);
    for (std::uint32_t descriptor = 0; descriptor < 256; descriptor++) {
        const auto known = sizes.find(descriptor);
        for (int place = 1; place < 16; place++) {
            std::uint32_t leaf2[4]{1, 0, 0, 0};
            leaf2[place / 4] |= descriptor << (8 * (place % 4));
            // In the highest byte, a descriptor with its own top bit set says that the register holds nothing.
            const bool hidden = place % 4 == 3 && descriptor >= 0x80;
            EXPECT_EQ(ownsDescribedCacheSize(leaf2),
                      hidden || known == sizes.end() ? ownsNoCacheSize : known->second)
                << "descriptor " << descriptor << " at " << place;
        }
    }
}

TEST(CacheProbe, takesTheLargest)
{
    // Each size beside every smaller one, in both orders.
    for (const auto& [large, first] : descriptors)
        for (const auto& [small, second] : descriptors)
            if (small < large)
                for (const std::uint32_t a : first)
                    for (const std::uint32_t b : second) {
                        EXPECT_EQ(described(1 | a << 8, b), large * 1024);
                        EXPECT_EQ(described(1 | b << 16, nothing, a << 8), large * 1024);
                    }
}

TEST(CacheProbe, leavesOutRegistersThatHoldNothing)
{
    EXPECT_EQ(described(1, nothing | 0xEC, 0x43, 0), 512U * 1024);
    EXPECT_EQ(described(1, nothing | 0xEC, nothing | 0xEB, nothing | 0x4D), ownsNoCacheSize);
    // The first byte kept is left out as the count that it is taken for, even where the first register is dropped.
    EXPECT_EQ(described(nothing | 1, 0xEC), ownsNoCacheSize);
    EXPECT_EQ(described(nothing | 1, 0xEC43), 24576U * 1024);
    EXPECT_EQ(described(nothing | 1, nothing, nothing, nothing), ownsNoCacheSize);
}

TEST(CacheProbe, takesNoOtherVendorOrCount)
{
    std::uint32_t vendor[3]{0x756E6547, 0x49656E69, 0x6C65746E};
    EXPECT_TRUE(ownsDescribesCaches(vendor));
    for (std::uint32_t& reg : vendor)
        for (int bit = 0; bit < 32; bit++) {
            reg ^= 1U << bit;
            EXPECT_FALSE(ownsDescribesCaches(vendor));
            reg ^= 1U << bit;
        }
    for (std::uint32_t rounds = 0; rounds < 256; rounds++)
        EXPECT_EQ(described(rounds | 0xEC << 8), rounds == 1 ? 24576U * 1024 : ownsNoCacheSize);
}

TEST(CacheProbe, agreesWithItselfOnThisProcessor)
{
    const Zel64u size = zelsCacheProbe();
    EXPECT_EQ(zelsCacheProbe(), size);
    EXPECT_TRUE(size == ownsNoCacheSize || descriptors.contains(size / 1024)) << size;
}
