// Arctangents of a vector, of one and of two arguments. See vecMath.h for the terms on which they may be called.
#pragma once

#include "math/vecMathTypes.h"

#include <array>

namespace owns_detail OWNS_INTERNAL {

// Larger parts that are very large, very small or 0; infinities and NaN.
[[gnu::cold, gnu::noinline]] OwnsF4 atan2Rare(OwnsF4 y, OwnsF4 x);
[[gnu::cold, gnu::noinline]] OwnsF2 atan2Rare(OwnsF2 y, OwnsF2 x);

struct AtanConstants32f {
    OwnsF4 one, minusOne, direct, steep, quarterPi, quarterPiLow, halfPi, halfPiLow, n0, n1, d0, d1;
    OwnsF4 half, third;
    OwnsU4 leadingBits, gridHalf, gridBits, perSteep, perBehind;
};
extern const AtanConstants32f atanConstants32f;

// Arctangents of two arguments: a quotient of the smaller part by the larger, t = a / b, is first estimated and
// rounded to c, a number of five bits. Then
//     atan(a / b) = atan(c) + atan((a - c b) / (b + c a)),
// where a - c b is exact and the second angle at most c / 32: what rounding does to it does not count. A table
// has atan(c) for every c of five bits down to where the arctangent no longer differs from its argument; smaller
// quotients take c = 0.

inline constexpr int atanGridShift32 = 23 - 4;
inline constexpr Zel32u atanGridStart32 = (127u - 12) << 23; // 2^-12
inline constexpr unsigned atanGridSize32 = 12 * 16 + 1;      // up to 1

/// An angle in two parts.
template <class T>
struct alignas(2 * sizeof(T)) AtanEntry {
    T high;
    T low;
};
/// For each way in which x and y may lie, in the order of 2 * (x < 0) + (|y| > |x|): the angle for c = 0, then
/// those for the grid.
extern const std::array<AtanEntry<Zel32f>, std::size_t{4} * (1 + atanGridSize32)> atanTable32f;

/// The angle of (x, y) from b = max(|x|, |y|), normal and neither very large nor very small, and
/// a = min(|x|, |y|); `steep` where |y| > |x|. Of x and y the signs count alone.
[[gnu::always_inline]] inline OwnsF4 atan2Core(OwnsF4 a, OwnsF4 b, OwnsF4 steep, OwnsF4 y, OwnsF4 x)
{
    const auto& k = atanConstants32f;
    const OwnsU4 rounded = (ownsBits(a * OwnsF4{_mm_rcp_ps(b)}) + k.gridHalf) & k.gridBits;
    const OwnsU4 step = rounded >> atanGridShift32;
    const __m128i isOnGrid = _mm_cmpgt_epi32(ownsInt(rounded), _mm_set1_epi32(atanGridStart32 - 1));
    const OwnsF4 c = ownsAs<Zel32f>(_mm_and_si128(isOnGrid, ownsInt(rounded)));
    // Steps have less than 16 bits, and those below the grid saturate to 0.
    const auto onGrid = ownsAs<Zel32u>(
        _mm_subs_epu16(ownsInt(step), _mm_set1_epi32((atanGridStart32 >> atanGridShift32) - 1)));
    const auto behind = ownsAs<Zel32u>(_mm_srai_epi32(ownsInt(x), 31));
    const OwnsQuad32 at =
        ownsThroughMemory(onGrid + ((ownsBits(steep) & k.perSteep) + (behind & k.perBehind)));
    const auto pair = [](Zel32u first, Zel32u second) {
        const __m128d e = _mm_load_sd(reinterpret_cast<const double*>(&atanTable32f[first]));
        return OwnsF4{_mm_castpd_ps(_mm_loadh_pd(e, reinterpret_cast<const double*>(&atanTable32f[second])))};
    };
    const OwnsF4 e01 = pair(at.first, at.second);
    const OwnsF4 e23 = pair(at.third, at.fourth);
    const OwnsF4 high = _mm_shuffle_ps(e01, e23, _MM_SHUFFLE(2, 0, 2, 0));
    const OwnsF4 low = _mm_shuffle_ps(e01, e23, _MM_SHUFFLE(3, 1, 3, 1));

    const OwnsF4 bHigh = ownsFromBits(ownsBits(b) & k.leadingBits);
    const OwnsF4 numerator = (a - c * bHigh) - c * (b - bHigh);
    const OwnsU4 back = (ownsBits(steep) ^ ownsBits(x)) & ownsSign32;
    const OwnsF4 t = ownsFromBits(ownsBits(numerator) ^ back) / (b + c * a);
    // |t| <= c / 31 where there is a c: one coefficient is enough. Below 2^-12 it changes nothing.
    const OwnsF4 angle = high + (low + (t + t * (t * t * k.third)));
    return ownsWithSign(angle, y);
}

struct AtanConstants64f {
    OwnsF2 one, minusOne, a0, a1, a2, a3, b0, b1, b2, halfPi, halfPiLow, pi, piLow, least, most;
    OwnsU2 leadingBits, gridHalf, gridBits, gridStart;
};
extern const AtanConstants64f atanConstants64f;

inline constexpr int atanGridShift64 = 52 - 4;
inline constexpr Zel64u atanGridStart64 = (1023ull - 27) << 52; // 2^-27
inline constexpr unsigned atanGridSize64 = 27 * 16 + 1;

/// atan(c) - c: 0 for c = 0, then the grid.
extern const std::array<Zel64f, 1 + atanGridSize64> atanTable64f;

// Of one argument: atan(m) = atan(c) + atan((m - c) / (1 + m c)), c the argument rounded to five bits, from 2^-6 to
// 2^6; below that c = 0, and above atan(m) = pi/2 + atan(-1 / m). The second angle is below 1/63 everywhere.

inline constexpr Zel64u atanSlopeLeast64 = ((1023ull - 6) << 52) - (Zel64u{1} << atanGridShift64);
inline constexpr Zel64u atanSlopeMost64 = ((1023ull + 6) << 52) + (Zel64u{1} << atanGridShift64);
inline constexpr unsigned atanSlopeSize64 = 1 + ((atanSlopeMost64 - atanSlopeLeast64) >> atanGridShift64);

/// The angles of c = 0, of the grid, and pi/2.
extern const std::array<AtanEntry<Zel64f>, atanSlopeSize64> atanSlopeTable64f;

[[gnu::always_inline]] inline OwnsF2 atan2Core(OwnsF2 a, OwnsF2 b, OwnsF2 steep, OwnsF2 y, OwnsF2 x)
{
    const auto& k = atanConstants64f;
    const OwnsU2 rounded = (ownsBits(a / b) + k.gridHalf) & k.gridBits;
    const OwnsU2 above = rounded - k.gridStart;
    const __m128i none = _mm_srai_epi32(_mm_shuffle_epi32(ownsInt(above), _MM_SHUFFLE(3, 3, 1, 1)), 31);
    const OwnsF2 c = ownsAs<Zel64f>(_mm_andnot_si128(none, ownsInt(rounded)));
    const OwnsPair64 at = ownsThroughMemory(
        ownsAs<Zel64u>(_mm_andnot_si128(none, ownsInt(above + (Zel64u{1} << atanGridShift64)))));
    const OwnsF2 excess = {atanTable64f[at.first >> atanGridShift64],
                           atanTable64f[at.second >> atanGridShift64]};

    const OwnsF2 bHigh = ownsFromBits(ownsBits(b) & k.leadingBits);
    const OwnsF2 numerator = (a - c * bHigh) - c * (b - bHigh);
    const OwnsF2 t = numerator / (b + c * a);
    const OwnsF2 z = t * t;
    const OwnsF2 tail = t * (z * (k.a0 + z * (k.a1 + z * (k.a2 + z * k.a3))));
    const OwnsF2 small = excess + (t + tail);

    // 0, pi/2 or pi, and from there forward or back.
    const OwnsF2 zero = {};
    const OwnsF2 base = ownsSelect(steep, k.halfPi, ownsSelect(x, k.pi, zero));
    const OwnsF2 baseLow = ownsSelect(steep, k.halfPiLow, ownsSelect(x, k.piLow, zero));
    const OwnsU2 back = (ownsBits(steep) ^ ownsBits(x)) & ownsSign64;
    const OwnsF2 cBack = ownsFromBits(ownsBits(c) ^ back);
    const OwnsF2 sum = base + cBack;
    const OwnsF2 left = (base - sum) + cBack;
    const OwnsF2 angle = sum + (left + (baseLow + ownsFromBits(ownsBits(small) ^ back)));
    return ownsWithSign(angle, y);
}

} // namespace OWNS_INTERNAL

/// atan(x), for every x.
[[gnu::always_inline]] inline OwnsF4 ownsAtan(OwnsF4 x)
{
    const auto& k = owns_detail::atanConstants32f;
    // Small arguments as they are, large ones inverted, and those around 1 turned back by pi/4. A NaN is none of
    // the first two, and stays.
    const OwnsF4 m = ownsFromBits(ownsMagnitudeBits(x));
    const OwnsF4 direct = _mm_cmplt_ps(m, k.direct);
    const OwnsF4 steep = _mm_cmpgt_ps(m, k.steep);
    const OwnsF4 numerator = ownsSelect(steep, k.minusOne, ownsSelect(direct, m, m - k.one));
    const OwnsF4 denominator = ownsSelect(steep, m, ownsSelect(direct, k.one, m + k.one));
    const OwnsF4 base = ownsSelect(steep, k.halfPi, OwnsF4{_mm_andnot_ps(direct, k.quarterPi)});
    const OwnsF4 baseLow = ownsSelect(steep, k.halfPiLow, OwnsF4{_mm_andnot_ps(direct, k.quarterPiLow)});
    const OwnsF4 t = numerator / denominator;
    const OwnsF4 z = t * t;
    const OwnsF4 tail = (k.n1 * z + k.n0) / ((z + k.d1) * z + k.d0);
    const OwnsF4 angle = base + (t + (baseLow + t * (z * tail)));
    return ownsWithSign(angle, x);
}

[[gnu::always_inline]] inline OwnsF2 ownsAtan(OwnsF2 x)
{
    using namespace owns_detail;
    const auto& k = atanConstants64f;
    const OwnsF2 m = ownsFromBits(ownsMagnitudeBits(x));
    // A NaN takes the last entry, and stays.
    const OwnsF2 bounded = _mm_max_pd(_mm_min_pd(m, k.most), k.least);
    const OwnsU2 rounded = (ownsBits(bounded) + k.gridHalf) & k.gridBits;
    const OwnsPair64 at = ownsThroughMemory(rounded);
    const auto entry = [](Zel64u step) {
        return _mm_load_pd(&atanSlopeTable64f[(step - atanSlopeLeast64) >> atanGridShift64].high);
    };
    const OwnsF2 e0 = entry(at.first);
    const OwnsF2 e1 = entry(at.second);
    const OwnsF2 high = _mm_unpacklo_pd(e0, e1);
    const OwnsF2 low = _mm_unpackhi_pd(e0, e1);

    const OwnsU2 isLeast = ownsAs<Zel64u>(_mm_cmpeq_epi64(ownsInt(rounded), ownsInt(ownsBits(k.least))));
    const OwnsU2 isMost = ownsAs<Zel64u>(_mm_cmpeq_epi64(ownsInt(rounded), ownsInt(ownsBits(k.most))));
    const OwnsF2 c = ownsFromBits(rounded & ~isLeast);
    const OwnsF2 numerator = ownsSelect(isMost, k.minusOne, m - c);
    const OwnsF2 denominator = ownsSelect(isMost, m, k.one + m * c);
    const OwnsF2 t = numerator / denominator;
    const OwnsF2 z = t * t;
    const OwnsF2 angle = high + (low + (t + (t * z) * (k.b0 + z * (k.b1 + z * k.b2))));
    return ownsWithSign(angle, x);
}

/// The angle of (x, y) in [-pi, pi], for every pair; the standard's atan2.
[[gnu::always_inline]] inline OwnsF4 ownsAtan2(OwnsF4 y, OwnsF4 x)
{
    // Magnitudes are compared by their bits, which takes a quarter of the time; a NaN is above all others.
    const __m128i ax = ownsInt(ownsMagnitudeBits(x));
    const __m128i ay = ownsInt(ownsMagnitudeBits(y));
    const auto b = ownsAs<Zel32u>(_mm_max_epi32(ay, ax));
    // A larger part outside 2^-100 .. 2^100, or a NaN: by signed numbers, of which the lower limit is the least.
    constexpr Zel32u low = (127u - 100) << 23;
    constexpr Zel32u high = (127u + 100) << 23;
    const __m128i isRare = _mm_cmpgt_epi32(ownsInt(b + (ownsSign32 - low)),
                                           _mm_set1_epi32(static_cast<int>(ownsSign32 + (high - low) - 1)));
    if (ownsAny(ownsAs<Zel32u>(isRare))) [[unlikely]]
        return owns_detail::atan2Rare(y, x);
    return owns_detail::atan2Core(ownsAs<Zel32f>(_mm_min_epi32(ay, ax)), ownsFromBits(b),
                                  ownsAs<Zel32f>(_mm_cmpgt_epi32(ay, ax)), y, x);
}

[[gnu::always_inline]] inline OwnsF2 ownsAtan2(OwnsF2 y, OwnsF2 x)
{
    const OwnsF2 ax = ownsFromBits(ownsMagnitudeBits(x));
    const OwnsF2 ay = ownsFromBits(ownsMagnitudeBits(y));
    const OwnsF2 b = _mm_max_pd(ay, ax);
    // A larger part outside 2^-900 .. 2^900, or a NaN.
    constexpr Zel64u low = (1023ull - 900) << 52;
    constexpr Zel64u high = (1023ull + 900) << 52;
    if (ownsAny(ownsAtLeast(ownsBits(ax), high) | ownsAtLeast(ownsBits(ay), high) |
                ownsBelow(ownsBits(b), low))) [[unlikely]]
        return owns_detail::atan2Rare(y, x);
    return owns_detail::atan2Core(_mm_min_pd(ay, ax), b, _mm_cmpgt_pd(ay, ax), y, x);
}
