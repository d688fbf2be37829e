#include "frame/cacheProbe.h"

#include <cpuid.h>

namespace {

// The vendor string of the processors whose leaf 2 lists cache descriptors, as CPUID returns it.
constexpr std::uint32_t describingVendor[3]{0x756E6547, 0x49656E69, 0x6C65746E};

/// A descriptor byte of leaf 2 and its cache size: the high nibble of the code is a multiplier, the low
/// nibble a power of two over 256 KiB.
struct ZelCacheDescriptor {
    Zel8u descriptor;
    Zel8u sizeCode;
};

// Largest sizes first, so that the first row that a processor reports names its largest cache.
constexpr ZelCacheDescriptor ZelCacheDescriptorTable[]{
    {0xEC, 0x35},                                                                       // 24576 KiB
    {0xEB, 0x93},                                                                       // 18432 KiB
    {0x4D, 0x16},                                                                       // 16384 KiB
    {0xEA, 0x34}, {0x4C, 0x34},                                                         // 12288 KiB
    {0xE4, 0x15}, {0xDE, 0x15}, {0x4B, 0x15}, {0x47, 0x15},                             // 8192 KiB
    {0x4E, 0x33}, {0x4A, 0x33},                                                         // 6144 KiB
    {0xE3, 0x14}, {0xDD, 0x14}, {0xD8, 0x14}, {0x49, 0x14}, {0x29, 0x14}, {0x46, 0x14}, // 4096 KiB
    {0x48, 0x32},                                                                       // 3072 KiB
    {0xE2, 0x13}, {0xDC, 0x13}, {0xD7, 0x13}, {0xD2, 0x13}, {0x25, 0x13}, {0x7D, 0x13},
    {0x85, 0x13}, {0x45, 0x13}, // 2048 KiB
    {0xD6, 0x12}, {0xD1, 0x12}, {0x23, 0x12}, {0x87, 0x12}, {0x7C, 0x12}, {0x78, 0x12},
    {0x84, 0x12}, {0x44, 0x12}, // 1024 KiB
    {0xD0, 0x11}, {0x22, 0x11}, {0x7B, 0x11}, {0x80, 0x11}, {0x86, 0x11}, {0x3E, 0x11},
    {0x7F, 0x11}, {0x83, 0x11}, {0x43, 0x11}, // 512 KiB
    {0x00, 0x00},
};

} // namespace

Zel64u ownsDescribedCacheSize(const std::uint32_t (&leaf2)[4])
{
    // The lowest byte counts how often the leaf must be asked; every processor that fills it says 1.
    if ((leaf2[0] & 0xFF) != 1)
        return ownsNoCacheSize;
    Zel8u bytes[sizeof leaf2];
    int count = 0;
    for (const std::uint32_t reg : leaf2)
        if ((reg >> 31) == 0) // bit 31 set: the register holds nothing
            for (int k = 0; k < 4; k++)
                bytes[count++] = static_cast<Zel8u>(reg >> (8 * k));
    for (const ZelCacheDescriptor* row = ZelCacheDescriptorTable; row->descriptor != 0; row++)
        for (int i = count - 1; i >= 1; i--) // the first byte is the count above
            if (bytes[i] == row->descriptor)
                return static_cast<Zel64u>(row->sizeCode >> 4) << ((row->sizeCode & 15) + 18);
    return ownsNoCacheSize;
}

bool ownsDescribesCaches(const std::uint32_t (&vendor)[3])
{
    return vendor[0] == describingVendor[0] && vendor[1] == describingVendor[1] &&
           vendor[2] == describingVendor[2];
}

Zel64u zelsCacheProbe()
{
    // The vendor decides, but it is asked last: where leaf 2 names no size anyway, one slow CPUID is enough.
    std::uint32_t leaf2[4];
    __cpuid(2, leaf2[0], leaf2[1], leaf2[2], leaf2[3]);
    const Zel64u size = ownsDescribedCacheSize(leaf2);
    if (size == ownsNoCacheSize)
        return ownsNoCacheSize;
    std::uint32_t highestLeaf;
    std::uint32_t vendor[3];
    __cpuid(0, highestLeaf, vendor[0], vendor[2], vendor[1]);
    return ownsDescribesCaches(vendor) ? size : ownsNoCacheSize;
}
