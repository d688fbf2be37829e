// The exponential of a vector. See vecMath.h for the terms on which it may be called.
#pragma once

#include "math/vecMathTypes.h"

#include <array>

namespace owns_detail OWNS_INTERNAL {

// Results that are not normal numbers, and everything that is not a number.
[[gnu::cold, gnu::noinline]] OwnsF4 expRare(OwnsF4 x);
[[gnu::cold, gnu::noinline]] OwnsF2 expRare(OwnsF2 x);

struct ExpConstants32f {
    OwnsF4 perLn2, ln2High, ln2Low, s0, s1, one, two;
};
extern const ExpConstants32f expConstants32f;

/// exp(x) as `p` times 2 to the power k, for |x| of at most 104 and 0.7 < p < 1.42; k is returned. It is rounded
/// by an instruction, since the range of what remains must not hang on the caller's mode.
[[gnu::always_inline]] inline OwnsVec<Zel32s> expParts(OwnsF4 x, OwnsF4& p)
{
    const auto& c = expConstants32f;
    const OwnsF4 k = _mm_round_ps(x * c.perLn2, _MM_FROUND_TO_NEAREST_INT | _MM_FROUND_NO_EXC);
    const OwnsF4 r = (x - k * c.ln2High) - k * c.ln2Low;
    // exp(r) = 1 + 2r / (R - r) with R = r coth(r/2) = 2 + r^2 S(r^2), written so that r is added last but one:
    // 1 + (r + r d / (2 - d)), d = r - r^2 S. A division is cheaper here than three more coefficients.
    const OwnsF4 t = r * r;
    const OwnsF4 d = r - t * (c.s0 + t * c.s1);
    p = c.one + (r + r * (d / (c.two - d)));
    return ownsAs<Zel32s>(_mm_cvtps_epi32(k));
}

/// 2^(i/256) for i below 256: the bits of its double with i / 256 of an exponent step taken off, so that adding
/// k times that step for any k = i mod 256 makes 2^(k/256); and what the double lacks, relative to it.
struct Exp2Entry {
    Zel64f missing;
    Zel64u bits;
};
extern const std::array<Exp2Entry, 256> exp2Table;
inline constexpr int exp2Shift = 52 - 8;

struct ExpConstants64f {
    OwnsF2 perLn2, rounder, ln2High, ln2Low, c2, c3, c4;
};
extern const ExpConstants64f expConstants64f;

/// exp(x) = scale + scale * q with scale = 2^(k/256), k = round(256 x / ln 2); for |x| below 2^13.
/// Returns `rounder + k` and gives q, |q| < 0.0014.
[[gnu::always_inline]] inline OwnsU2 expParts(OwnsF2 x, OwnsF2& scale, OwnsF2& q)
{
    const auto& c = expConstants64f;
    const OwnsF2 k = _mm_round_pd(x * c.perLn2, _MM_FROUND_TO_NEAREST_INT | _MM_FROUND_NO_EXC);
    const OwnsF2 r = (x - k * c.ln2High) - k * c.ln2Low;
    const OwnsU2 bits = ownsBits(k + c.rounder);
    const OwnsPair64 at = ownsThroughMemory(bits);
    const OwnsF2 e0 = ownsLoad(&exp2Table[at.first & 255].missing);
    const OwnsF2 e1 = ownsLoad(&exp2Table[at.second & 255].missing);
    const OwnsF2 missing = _mm_shuffle_pd(e0, e1, 0);
    scale = ownsFromBits(ownsBits(_mm_shuffle_pd(e0, e1, 3)) + (bits << exp2Shift));
    q = (missing + r) + r * r * (c.c2 + r * (c.c3 + r * c.c4));
    return bits;
}

} // namespace OWNS_INTERNAL

/// exp(x), for every x.
[[gnu::always_inline]] inline OwnsF4 ownsExp(OwnsF4 x)
{
    // |x| of 87.3365 or more, where results cease to be normal; infinities and NaN.
    if (ownsAny(ownsAtLeast(ownsMagnitudeBits(x), 0x42aeac50u))) [[unlikely]]
        return owns_detail::expRare(x);
    OwnsF4 p;
    const auto k = owns_detail::expParts(x, p);
    return ownsFromBits(ownsBits(p) + ownsAs<Zel32u>(k << 23));
}

[[gnu::always_inline]] inline OwnsF2 ownsExp(OwnsF2 x)
{
    // |x| of 664 or more: the product of scale and q may cease to be normal long before the result does.
    if (ownsAny(ownsAtLeast(ownsMagnitudeBits(x), 0x4084c00000000000u))) [[unlikely]]
        return owns_detail::expRare(x);
    OwnsF2 scale;
    OwnsF2 q;
    owns_detail::expParts(x, scale, q);
    return scale + scale * q;
}
