// The natural logarithm of a vector. See vecMath.h for the terms on which it may be called.
#pragma once

#include "math/vecMathTypes.h"

#include <array>

/// What a logarithm has met.
struct OwnsLnSeen {
    bool zero = false;
    bool negative = false;
};

namespace owns_detail OWNS_INTERNAL {

// Arguments that are not positive normal numbers.
[[gnu::cold, gnu::noinline]] OwnsF4 lnRare(OwnsF4 x, OwnsLnSeen* seen);
[[gnu::cold, gnu::noinline]] OwnsF2 lnRare(OwnsF2 x, OwnsLnSeen* seen);

struct LnConstants32f {
    OwnsF4 one, two, r0, r1, r2, ln2High, ln2Low;
};
extern const LnConstants32f lnConstants32f;

/// ln(x / 2^n) for x of the bits `bits`, positive and normal; `raised` is n in the place of an exponent.
[[gnu::always_inline]] inline OwnsF4 lnCore(OwnsU4 bits, OwnsU4 raised)
{
    const auto& c = lnConstants32f;
    // x = 2^k (1 + f), 0.7071 <= 1 + f < 1.4142; k stays scaled by 2^23 where it stands in the bits, and so do
    // the constants that it meets.
    const OwnsU4 fromRoot = bits - 0x3f3504f3u;
    const OwnsU4 k23 = fromRoot & 0xff800000u;
    const OwnsF4 k = _mm_cvtepi32_ps(ownsInt(k23 - raised));
    // With g = 1 - m, m = 1 + f, instead of f = m - 1, ln(1) is 0 and not -0 in the rounding mode downward too.
    const OwnsF4 g = c.one - ownsFromBits(bits - k23);
    // ln(1 + f) = f - s (f - R(s^2)), s = f / (2 + f): f, which is exact, is added last but one. Here with -f and -s.
    const OwnsF4 s = g / (c.two - g);
    const OwnsF4 z = s * s;
    const OwnsF4 r = z * (c.r0 + z * (c.r1 + z * c.r2));
    return k * c.ln2High - (g + (s * (g + r) - k * c.ln2Low));
}

struct LnConstants64f {
    OwnsF2 a0, a1, a2, a3, a4, ln2High, ln2Low;
};
extern const LnConstants64f lnConstants64f;

/// An interval of the mantissa: `inverse`, of 10 bits, is close to the inverse of its middle, and `center` the
/// double closest to 1 / inverse. `high`, a multiple of 2^-42, and `low` are -ln(inverse) and what inverse * center
/// is more than 1.
struct alignas(32) LnEntry {
    Zel64f inverse;
    Zel64f high;
    Zel64f low;
    Zel64f center;
};
inline constexpr int lnIntervalBits = 8;
extern const std::array<LnEntry, 1 << lnIntervalBits> lnTable;

/// The least mantissa of the table, about 0.7061: half an interval off the grid, so that 1 is the middle of an
/// interval, where inverse and center are 1.
inline constexpr Zel64u lnTableStart = 0x3fe6980000000000u;

[[gnu::always_inline]] inline OwnsF2 lnCore(OwnsU2 bits, OwnsU2 raised)
{
    const auto& c = lnConstants64f;
    // x = 2^k m; the high words alone hold k, scaled by 2^20, and the interval.
    const OwnsU2 fromStart = bits - lnTableStart;
    const OwnsU2 k52 = fromStart & 0xfff0000000000000u;
    const OwnsF2 k = _mm_cvtepi32_pd(_mm_shuffle_epi32(ownsInt(k52 - raised), _MM_SHUFFLE(3, 3, 3, 1)));
    const OwnsF2 m = ownsFromBits(bits - k52);

    const OwnsPair64 at = ownsThroughMemory(fromStart);
    constexpr int shift = 52 - lnIntervalBits;
    constexpr unsigned last = (1u << lnIntervalBits) - 1;
    const LnEntry& entry0 = lnTable[at.first >> shift & last];
    const LnEntry& entry1 = lnTable[at.second >> shift & last];
    const OwnsF2 e0 = ownsLoad(&entry0.inverse);
    const OwnsF2 e1 = ownsLoad(&entry1.inverse);
    const OwnsF2 inverse = _mm_shuffle_pd(e0, e1, 0);
    const OwnsF2 high = _mm_shuffle_pd(e0, e1, 3);
    const OwnsF2 f0 = ownsLoad(&entry0.low);
    const OwnsF2 f1 = ownsLoad(&entry1.low);
    const OwnsF2 low = _mm_shuffle_pd(f0, f1, 0);

    const OwnsF2 center = _mm_shuffle_pd(f0, f1, 3);

    // m * inverse = 1 - r but for what is in `low`. The difference is exact, and so is the product as long as it is
    // below 2^-9, in the intervals around 1: further away what it is off by does not show. The signs are such that
    // ln(1) is 0 and not -0 in the rounding mode downward too.
    const OwnsF2 r = (center - m) * inverse;
    const OwnsF2 r2 = r * r;
    const OwnsF2 tail = (c.a0 + r * c.a1) + r2 * ((c.a2 + r * c.a3) + r2 * c.a4);
    // k ln(2) - ln(inverse) is exact in its first part, and either 0 or more than r, so that `left` is all that the
    // difference leaves.
    const OwnsF2 base = k * c.ln2High + high;
    const OwnsF2 difference = base - r;
    const OwnsF2 left = (difference - base) + r;
    return difference - (left + (r2 * tail - (k * c.ln2Low + low)));
}

} // namespace OWNS_INTERNAL

/// ln(x): minus infinity for 0, NaN for what is negative. Where `seen` is given, either is noted there.
[[gnu::always_inline]] inline OwnsF4 ownsLn(OwnsF4 x, OwnsLnSeen* seen = nullptr)
{
    // Below the smallest normal number, or from infinity on; what has a sign is one or the other.
    const OwnsU4 bits = ownsBits(x);
    if (ownsAny(ownsBelow(bits, 0x00800000u) | ownsAtLeast(bits, 0x7f800000u))) [[unlikely]]
        return owns_detail::lnRare(x, seen);
    return owns_detail::lnCore(bits, OwnsU4{});
}

[[gnu::always_inline]] inline OwnsF2 ownsLn(OwnsF2 x, OwnsLnSeen* seen = nullptr)
{
    const OwnsU2 bits = ownsBits(x);
    if (ownsAny(ownsBelow(bits, 0x0010000000000000u) | ownsAtLeast(bits, 0x7ff0000000000000u))) [[unlikely]]
        return owns_detail::lnRare(x, seen);
    return owns_detail::lnCore(bits, OwnsU2{});
}
