// The size of the processor's largest cache, as far as CPUID leaf 2 tells it.
//
// Reading CPUID stands apart from the functions that interpret it, so that these can be tried on processors
// that are not at hand.
#pragma once

#include "zels/types.h"

#include <cstdint>

/// No cache size is known; larger than any count of bytes.
inline constexpr Zel64u ownsNoCacheSize = UINT64_MAX;

/// The size in bytes of the largest cache that leaf 2 (registers eax, ebx, ecx, edx) describes, or
/// ownsNoCacheSize.
Zel64u ownsDescribedCacheSize(const std::uint32_t (&leaf2)[4]);

/// Whether the vendor string (registers ebx, edx, ecx of leaf 0) is that of the processors whose leaf 2 is
/// meant.
bool ownsDescribesCaches(const std::uint32_t (&vendor)[3]);

/// The size for this processor. CPUID takes hundreds of cycles, and many microseconds under a hypervisor that
/// traps it: ask only for operations that are long anyway.
Zel64u zelsCacheProbe();
