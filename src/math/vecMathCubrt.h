// The cube root of a vector. See vecMath.h for the terms on which it may be called.
#pragma once

#include "math/vecMathTypes.h"

namespace owns_detail OWNS_INTERNAL {

// Magnitudes that are very large or very small; infinities and NaN.
[[gnu::cold, gnu::noinline]] OwnsF4 cubrtRare(OwnsF4 x);

struct CubrtConstants {
    OwnsF4 third, start, p0, p1, p2, q0, q1, q2;
    OwnsU4 one, round, leadingBits;
};
extern const CubrtConstants cubrtConstants;

/// The cube root of 2^-100 <= m < 2^127.
[[gnu::always_inline]] inline OwnsF4 cubrtCore(OwnsF4 m)
{
    const auto& k = cubrtConstants;
    // A third of the bits is close to a third of the logarithm: r = m^(-1/3) but for 3.5 per cent. With
    // c = m r^3 the root is m r^2 c^(-2/3), good to 2^-12 by a parabola.
    const OwnsF4 bits = _mm_cvtepi32_ps(ownsInt(m));
    const OwnsF4 r = ownsAs<Zel32f>(_mm_cvtps_epi32(k.start - bits * k.third));
    const OwnsF4 mrr = m * (r * r);
    const OwnsF4 c = mrr * r;
    const OwnsF4 estimate = mrr * (k.p0 + c * (k.p1 + c * k.p2));
    // Rounded to 8 bits: the cube is exact, and so is its difference from m. What is missing is less than 1/250
    // of the result, so that its own rounding does not show.
    const OwnsF4 y = ownsFromBits((ownsBits(estimate) + k.round) & k.leadingBits);
    const OwnsF4 cube = y * y * y;
    const OwnsF4 t = (m - cube) / cube;
    return y + (y * t) * (k.q0 + t * (k.q1 + t * k.q2));
}

} // namespace OWNS_INTERNAL

/// The cube root of x, for every x.
[[gnu::always_inline]] inline OwnsF4 ownsCubrt(OwnsF4 x)
{
    using namespace owns_detail;
    const OwnsU4 bits = ownsMagnitudeBits(x);
    const auto zero = ownsAs<Zel32u>(bits == 0);
    const OwnsU4 m = bits | (zero & cubrtConstants.one);
    if (ownsAny(ownsAtLeast(m, (127u + 127) << 23) | ownsBelow(m, (127u - 100) << 23))) [[unlikely]]
        return cubrtRare(x);
    return ownsFromBits((ownsBits(cubrtCore(ownsFromBits(m))) & ~zero) | ownsSignOf(x));
}

/// The cube root of integers, each first rounded to a float.
[[gnu::always_inline]] inline OwnsF4 ownsCubrtOfIntegers(OwnsVec<Zel32s> n)
{
    using namespace owns_detail;
    const OwnsF4 x = _mm_cvtepi32_ps(ownsInt(n));
    const auto zero = ownsAs<Zel32u>(n == 0);
    const OwnsU4 m = ownsMagnitudeBits(x) | (zero & cubrtConstants.one);
    return ownsFromBits((ownsBits(cubrtCore(ownsFromBits(m))) & ~zero) | ownsSignOf(x));
}
