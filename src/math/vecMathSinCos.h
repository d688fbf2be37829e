// Sine and cosine of a vector, together. See vecMath.h for the terms on which they may be called.
#pragma once

#include "math/vecMathTypes.h"

#include <array>

namespace owns_detail OWNS_INTERNAL {

// Arguments of large magnitude, infinities and NaN.
[[gnu::cold, gnu::noinline]] void sinCosRare(OwnsF4 x, OwnsF4& sin, OwnsF4& cos);
[[gnu::cold, gnu::noinline]] void sinCosRare(OwnsF2 x, OwnsF2& sin, OwnsF2& cos);

// Both types turn the magnitude m back by n right angles, n = round(m / (pi/2)), to |r| <= pi/4; n then tells
// which of the two is the sine of the argument, and the signs. Rounding is by an instruction, since the range of
// r must not hang on the caller's mode.

struct SinCosConstants32f {
    OwnsF2 perHalfPi, halfPi, halfPiLow, rounder, one, s0, s1, s2, c0, c1, c2, c3;
    OwnsF4 near, p0, p1, p2, half, unit, n0, n1, n2, m0, m1, m2;
};
extern const SinCosConstants32f sinCosConstants32f;

/// Where single precision alone is enough: magnitudes below 2^9.
inline constexpr Zel32u sinCosNear32f = (127u + 9) << 23;

/// For such magnitudes; n is returned. The products of n < 2^9 with the first two parts of pi/2 are exact, and so
/// are the differences behind them, the second in two parts. The third product is off by less than 2^-49, against
/// distances of the floats from multiples of pi/2 down to 2^-28: what that does was tried for every float.
[[gnu::always_inline]] inline OwnsU4 sinCosNear(OwnsF4 m, OwnsF4& sin, OwnsF4& cos)
{
    const auto& k = sinCosConstants32f;
    const OwnsF4 n = _mm_round_ps(m * k.near, _MM_FROUND_TO_NEAREST_INT | _MM_FROUND_NO_EXC);
    const OwnsF4 first = m - n * k.p0;
    const OwnsF4 second = n * k.p1;
    const OwnsF4 r = first - second;
    const OwnsF4 low = ((first - r) - second) - n * k.p2;
    const OwnsF4 z = r * r;
    sin = r + ((r * z) * (k.n0 + z * (k.n1 + z * k.n2)) + low);
    // What 1 - z/2 loses in rounding is put back.
    const OwnsF4 half = z * k.half;
    const OwnsF4 most = k.unit - half;
    const OwnsF4 tail = (z * z) * (k.m0 + z * (k.m1 + z * k.m2)) - r * low;
    cos = most + (((k.unit - most) - half) + tail);
    return ownsAs<Zel32u>(_mm_cvttps_epi32(n));
}

/// Sine and cosine of |r| <= pi/4 to the accuracy of single precision.
[[gnu::always_inline]] inline void sinCosPoly32f(OwnsF2 r, OwnsF2& sin, OwnsF2& cos)
{
    const auto& k = sinCosConstants32f;
    const OwnsF2 z = r * r;
    sin = r * (k.one + z * (k.s0 + z * (k.s1 + z * k.s2)));
    cos = k.one + z * (k.c0 + z * (k.c1 + z * (k.c2 + z * k.c3)));
}

/// Two magnitudes below 2^21 in double precision, which then needs no care with what rounding leaves; n is
/// returned.
[[gnu::always_inline]] inline OwnsU2 sinCosTwo32f(OwnsF2 m, OwnsF2& sin, OwnsF2& cos)
{
    const auto& k = sinCosConstants32f;
    const OwnsF2 n = _mm_round_pd(m * k.perHalfPi, _MM_FROUND_TO_NEAREST_INT | _MM_FROUND_NO_EXC);
    sinCosPoly32f((m - n * k.halfPi) - n * k.halfPiLow, sin, cos);
    return ownsBits(n + k.rounder);
}

/// Gives each lane the sine or cosine that its n asks for, and the signs. Lanes of `m`, the magnitude of x, that
/// are 0 have the sine 0 of the right sign in every rounding mode.
template <class F, class U>
[[gnu::always_inline]] inline void sinCosTurned(F s, F c, U n, F m, F x, F& sin, F& cos)
{
    constexpr int top = 8 * sizeof(x[0]) - 1;
    const U odd = n << top;
    const U back = n << (top - 1);
    const U zero = ownsAs<ownsUnsignedOf<F>>(m == F{});
    sin = ownsFromBits((ownsBits(ownsSelect(odd, c, s)) & ~zero) ^ ((back ^ ownsBits(x)) & ownsSignBit<F>));
    cos = ownsFromBits(ownsBits(ownsSelect(odd, s, c)) ^ ((back ^ odd) & ownsSignBit<F>));
}

struct SinCosConstants64f {
    OwnsF2 perHalfPi, halfPi, halfPiMiddle, halfPiLow, rounder, one, half;
    OwnsF2 s0, s1, s2, s3, s4, s5, c0, c1, c2, c3, c4, c5;
};
extern const SinCosConstants64f sinCosConstants64f;

/// An argument less n right angles, in two parts.
struct SinCosReduced {
    OwnsF2 high, low;
    OwnsU2 n;
};

/// For magnitudes below 2^15: n times either of the upper parts of pi/2 is exact, and so are the differences
/// behind them, the last one in two parts. What is dropped is below 2^-115; no double of that range lies within
/// 2^-58 of a multiple of pi/2.
[[gnu::always_inline]] inline SinCosReduced sinCosReduced(OwnsF2 m)
{
    const auto& k = sinCosConstants64f;
    const OwnsF2 n = _mm_round_pd(m * k.perHalfPi, _MM_FROUND_TO_NEAREST_INT | _MM_FROUND_NO_EXC);
    const OwnsF2 upper = m - n * k.halfPi;
    const OwnsF2 middle = n * k.halfPiMiddle;
    const OwnsF2 high = upper - middle;
    return {high, ((upper - high) - middle) - n * k.halfPiLow, ownsBits(n + k.rounder)};
}

[[gnu::always_inline]] inline void sinCosPoly64f(OwnsF2 r, OwnsF2 low, OwnsF2& sin, OwnsF2& cos)
{
    const auto& k = sinCosConstants64f;
    const OwnsF2 z = r * r;
    const OwnsF2 zz = z * z;
    const OwnsF2 half = z * k.half;
    const OwnsF2 s = (k.s0 + z * k.s1) + zz * ((k.s2 + z * k.s3) + zz * (k.s4 + z * k.s5));
    const OwnsF2 c = (k.c0 + z * k.c1) + zz * ((k.c2 + z * k.c3) + zz * (k.c4 + z * k.c5));
    sin = r + ((r * z) * s + (low - low * half));
    // What 1 - z/2 loses in rounding is put back.
    const OwnsF2 most = k.one - half;
    cos = most + (((k.one - most) - half) + (zz * c - r * low));
}

} // namespace OWNS_INTERNAL

/// sin(x) and cos(x), for every x.
[[gnu::always_inline]] inline void ownsSinCos(OwnsF4 x, OwnsF4& sin, OwnsF4& cos)
{
    using namespace owns_detail;
    const OwnsF4 m = ownsFromBits(ownsMagnitudeBits(x));
    if (ownsAny(ownsAtLeast(ownsBits(m), sinCosNear32f))) [[unlikely]]
        return sinCosRare(x, sin, cos);
    OwnsF4 s, c;
    const OwnsU4 n = sinCosNear(m, s, c);
    sinCosTurned(s, c, n, m, x, sin, cos);
}

[[gnu::always_inline]] inline void ownsSinCos(OwnsF2 x, OwnsF2& sin, OwnsF2& cos)
{
    using namespace owns_detail;
    const OwnsF2 m = ownsFromBits(ownsMagnitudeBits(x));
    if (ownsAny(ownsAtLeast(ownsBits(m), (1023ull + 15) << 52))) [[unlikely]]
        return sinCosRare(x, sin, cos);
    const SinCosReduced reduced = sinCosReduced(m);
    OwnsF2 s, c;
    sinCosPoly64f(reduced.high, reduced.low, s, c);
    sinCosTurned(s, c, reduced.n, m, x, sin, cos);
}
