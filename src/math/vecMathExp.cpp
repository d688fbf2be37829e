// The exponential: its table and its rare results.
#include "math/vecMathExp.h"
#include "math/vecMathConst.h"

namespace owns_detail {

namespace {

constexpr std::array<Exp2Entry, 256> makeExp2Table()
{
    std::array<Exp2Entry, 256> table{};
    for (unsigned i = 0; i < 256; i++) {
        // 2^(i/256) in units of 2^-127, what 53 bits hold of it, and what they leave over.
        const U128 exact = (U128{1} << 127) + (expm1Fraction(mulHigh(lnTwo, U128{i} << 120)) >> 1);
        const Zel64f value = asDouble(exact, -127);
        const U128 held = inUnits(value, -127);
        const bool below = exact < held;
        const U128 left = ((below ? held - exact : exact - held) << 50) / (held >> 75);
        const Zel64f missing = asDouble(left, -127 - 50 + 52);
        table[i].missing = below ? -missing : missing;
        table[i].bits = std::bit_cast<Zel64u>(value) - (Zel64u{i} << exp2Shift);
    }
    return table;
}

} // namespace

constexpr ExpConstants32f expConstants32f = {
    .perLn2 = ownsAll(0x1.715476p0f),
    // ln(2) in two parts, the first of 16 bits: its product with |k| < 256 is exact, and so is the difference.
    .ln2High = ownsAll(0x1.62e4p-1f),
    .ln2Low = ownsAll(0x1.7f7d1cp-20f),
    // (r coth(r/2) - 2) / r^2 for |r| < 0.3469, off by 2^-30.8 of the result.
    .s0 = ownsAll(0x1.555516p-3f),
    .s1 = ownsAll(-0x1.6a8bcep-9f),
    .one = ownsAll(1.0f),
    .two = ownsAll(2.0f),
};

constexpr ExpConstants64f expConstants64f = {
    .perLn2 = ownsAll(0x1.71547652b82fep+8),
    .rounder = ownsAll(ownsRounder64f),
    // ln(2) / 256 in two parts, the first of 32 bits: its product with |k| < 2^20 is exact, and so is the
    // difference.
    .ln2High = ownsAll(0x1.62e42ffp-9),
    .ln2Low = ownsAll(-0x1.718432a1b0e26p-43),
    // (exp(r) - 1 - r) / r^2 on |r| < 0.00136, off by 2^-57.5 of the result.
    .c2 = ownsAll(0x1.fffffffffffd4p-2),
    .c3 = ownsAll(0x1.5555571de074bp-3),
    .c4 = ownsAll(0x1.5555576aae48cp-5),
};

constexpr std::array<Exp2Entry, 256> exp2Table = makeExp2Table();

// Infinite, subnormal and zero results come out of a scale in two halves, of which only the second can round.
// The order of the operands lets a NaN pass max and min.

OwnsF4 expRare(OwnsF4 x)
{
    const OwnsF4 within = _mm_min_ps(_mm_set1_ps(89.0f), _mm_max_ps(_mm_set1_ps(-104.0f), x));
    OwnsF4 p;
    const OwnsVec<Zel32s> k = expParts(within, p);
    const auto half = k >> 1;
    const auto power = [](auto e) { return ownsAs<Zel32f>((e + 127) << 23); };
    // ln of half the smallest number: cleared before it is scaled, as an underflow costs as much as many vectors.
    p = _mm_andnot_ps(_mm_cmplt_ps(x, _mm_set1_ps(-103.97208f)), p);
    const OwnsF4 result = p * power(half) * power(k - half);
    const OwnsF4 above = _mm_cmpgt_ps(x, _mm_set1_ps(88.72283f));
    return ownsSelect(above, ownsSplat(__builtin_inff()), result);
}

OwnsF2 expRare(OwnsF2 x)
{
    const OwnsF2 within = _mm_min_pd(_mm_set1_pd(710.0), _mm_max_pd(_mm_set1_pd(-746.0), x));
    OwnsF2 scale;
    OwnsF2 q;
    const OwnsU2 bits = expParts(within, scale, q);
    // The scale without the whole part e of its exponent, which then comes on in two halves.
    const auto e = ownsAs<Zel64s>(bits - ownsBits(ownsSplat(ownsRounder64f))) >> 8;
    const OwnsF2 mantissa = ownsFromBits(ownsBits(scale) - ownsAs<Zel64u>(e << 52));
    const auto half = e >> 1;
    const auto power = [](auto exponent) { return ownsAs<Zel64f>((exponent + 1023) << 52); };
    // A NaN is in q; its scale is any number.
    const OwnsF2 p = mantissa + mantissa * q;
    const OwnsF2 some = _mm_andnot_pd(_mm_cmplt_pd(x, _mm_set1_pd(-745.1332191019412)), p);
    const OwnsF2 result = some * power(half) * power(e - half);
    const OwnsF2 above = _mm_cmpgt_pd(x, _mm_set1_pd(709.782712893384));
    return ownsSelect(above, ownsSplat(__builtin_inf()), result);
}

} // namespace owns_detail
