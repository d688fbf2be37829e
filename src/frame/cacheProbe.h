// The size of the processor's largest cache, as far as CPUID leaf 2 tells it.
#pragma once

#include "zels/types.h"

#include <cstdint>

/// What the processor answers to CPUID leaves 0 and 2.
struct OwnsCacheReport {
    std::uint32_t vendor[3]; ///< registers ebx, edx, ecx of leaf 0: twelve characters
    std::uint32_t leaf2[4];  ///< registers eax, ebx, ecx, edx of leaf 2
};

/// No cache size is known; larger than any count of bytes.
inline constexpr Zel64u ownsNoCacheSize = UINT64_MAX;

/// The size in bytes that a report stands for, or ownsNoCacheSize. A pure function, so that it can be tried
/// on processors that are not at hand.
Zel64u ownsReportedCacheSize(const OwnsCacheReport& report);

/// The size for this processor. CPUID takes hundreds of cycles: ask only for operations that are long anyway.
Zel64u zelsCacheProbe();
