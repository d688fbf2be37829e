// Sine and cosine: their constants, and arguments of any size.
#include "math/vecMathSinCos.h"
#include "math/vecMathConst.h"

namespace owns_detail {

constexpr SinCosConstants32f sinCosConstants32f = {
    .perHalfPi = ownsAll(0x1.45f306dc9c883p-1),
    // pi/2 in two parts, the first of 31 bits: its product with n < 2^21 is exact, and so is the difference.
    .halfPi = ownsAll(0x1.921fb544p0),
    .halfPiLow = ownsAll(0x1.0b4611a626331p-34),
    .rounder = ownsAll(ownsRounder64f),
    .one = ownsAll(1.0),
    // (sin(r)/r - 1) / z in z = r^2, off by 2^-27.9 of the result, and (cos(r) - 1) / z, off by 2^-33.8.
    .s0 = ownsAll(-0x1.55554522f9a7ep-3),
    .s1 = ownsAll(0x1.11073995adcc9p-7),
    .s2 = ownsAll(-0x1.99436832a5ffbp-13),
    .c0 = ownsAll(-0x1.ffffffcb781b4p-2),
    .c1 = ownsAll(0x1.55553c7539e7ap-5),
    .c2 = ownsAll(-0x1.6c07f0102b635p-10),
    .c3 = ownsAll(0x1.99164b738cd6ap-16),
    .near = ownsAll(0x1.45f306p-1f),
    // pi/2 in parts of 13, 13 and 24 bits.
    .p0 = ownsAll(0x1.922p0f),
    .p1 = ownsAll(-0x1.2afp-18f),
    .p2 = ownsAll(0x1.0b4612p-34f),
    .half = ownsAll(0.5f),
    .unit = ownsAll(1.0f),
    // (sin(r)/r - 1) / z, by which sines are off by 2^-29, and (cos(r) - 1 + z/2) / z^2, cosines by 2^-33.
    .n0 = ownsAll(-0x1.55554p-3f),
    .n1 = ownsAll(0x1.1105b4p-7f),
    .n2 = ownsAll(-0x1.98da68p-13f),
    .m0 = ownsAll(0x1.55554ap-5f),
    .m1 = ownsAll(-0x1.6c0c8cp-10f),
    .m2 = ownsAll(0x1.9a025ap-16f),
};

constexpr SinCosConstants64f sinCosConstants64f = {
    .perHalfPi = ownsAll(0x1.45f306dc9c883p-1),
    // pi/2 in three parts, the first two of 35 and 38 bits: their products with n < 2^15 are exact.
    .halfPi = ownsAll(0x1.921fb5444p0),
    .halfPiMiddle = ownsAll(0x1.68c234c4cp-39),
    .halfPiLow = ownsAll(0x1.98a2e03707345p-77),
    .rounder = ownsAll(ownsRounder64f),
    .one = ownsAll(1.0),
    .half = ownsAll(0.5),
    // (sin(r)/r - 1) / z in z = r^2, off by 2^-57.8 of the result, and (cos(r) - 1 + z/2) / z^2, off by 2^-63.9.
    .s0 = ownsAll(-0x1.5555555555548p-3),
    .s1 = ownsAll(0x1.111111110f730p-7),
    .s2 = ownsAll(-0x1.a01a019be9273p-13),
    .s3 = ownsAll(0x1.71de35552f884p-19),
    .s4 = ownsAll(-0x1.ae5e4b977e27ep-26),
    .s5 = ownsAll(0x1.5d8b6691a507cp-33),
    .c0 = ownsAll(0x1.555555555554bp-5),
    .c1 = ownsAll(-0x1.6c16c16c15014p-10),
    .c2 = ownsAll(0x1.a01a019c8ef81p-16),
    .c3 = ownsAll(-0x1.27e4f7f164223p-22),
    .c4 = ownsAll(0x1.1ee9dba8cd5dep-29),
    .c5 = ownsAll(-0x1.8fa66d49db40ap-37),
};

namespace {

/// The bits of 2/pi behind the point, after 64 that are 0.
constexpr std::array<Zel64u, 20> bitsOfTwoPerPi{
    0,
    0xa2f9836e4e441529u,
    0xfc2757d1f534ddc0u,
    0xdb6295993c439041u,
    0xfe5163abdebbc561u,
    0xb7246e3a424dd2e0u,
    0x06492eea09d1921cu,
    0xfe1deb1cb129a73eu,
    0xe88235f52ebb4484u,
    0xe99c7026b45f7e41u,
    0x3991d639835339f4u,
    0x9c845f8bbdf9283bu,
    0x1ff897ffde05980fu,
    0xef2f118b5a0a6d1fu,
    0x6d367ecf27cb09b7u,
    0x4f463f669e5fea2du,
    0x7527bac7ebe5f17bu,
    0x3d0739f78a5292eau,
    0x6bfb5fb11f8d5d08u,
    0x56033046fc7b6babu,
};

struct Reduced {
    Zel64f high, low;
    Zel64u n;
};

/// The finite magnitude of the bits `m`, at least 2^15, less a multiple of pi/2, by the method of M. H. Payne and
/// R. N. Hanek, "Radian reduction for trigonometric functions" (1983): of the product of the mantissa and 2/pi
/// only the bits are computed that stand around the point.
Reduced reducedFar(Zel64u m)
{
    const int exponent = static_cast<int>(m >> 52) - 1023 - 52;
    const U128 mantissa = (m & 0xfffffffffffffu) | 0x10000000000000u;
    // The bits of 2/pi before the window make multiples of 4 right angles. With 192 bits, of which the two upper
    // ones are whole right angles, the product is short by less than 2^-136, and the fraction here by 2^-125; no
    // double lies within 2^-62 of a right angle's multiple.
    const unsigned start = static_cast<unsigned>(exponent + 62);
    const auto window = [&](unsigned i) {
        const Zel64u* word = &bitsOfTwoPerPi[start / 64 + i];
        return static_cast<Zel64u>(((U128{word[0]} << 64 | word[1]) << (start % 64)) >> 64);
    };
    const U128 product =
        ((mantissa * window(0)) << 64) + mantissa * window(1) + ((mantissa * window(2)) >> 64);
    const U128 n = (product + (U128{1} << 125)) >> 126;
    U128 rest = product - (n << 126);
    const bool negative = rest >> 127 != 0;
    rest = negative ? -rest : rest;
    const int zeros = 128 - widthOf(rest);
    const Fraction angle = mulHigh(rest << zeros, quarterPi);
    const int unit = -125 - zeros;
    const Zel64f high = asDouble(angle, unit);
    const U128 held = inUnits(high, unit);
    const Zel64f low = held > angle ? -asDouble(held - angle, unit) : asDouble(angle - held, unit);
    return {negative ? -high : high, negative ? -low : low, static_cast<Zel64u>(n)};
}

/// The same for every finite magnitude.
SinCosReduced reducedAny(OwnsF2 m)
{
    constexpr Zel64u far = (1023ull + 15) << 52;
    SinCosReduced result = sinCosReduced(ownsFromBits(ownsBits(m) & (ownsBits(m) < far)));
    for (int lane = 0; lane < 2; lane++) {
        const Zel64u bits = ownsBits(m)[lane];
        if (bits >= far) {
            const Reduced reduced = reducedFar(bits);
            result.high[lane] = reduced.high;
            result.low[lane] = reduced.low;
            result.n[lane] = reduced.n;
        }
    }
    return result;
}

/// Sines and cosines of far magnitudes to the accuracy of single precision; n is returned.
OwnsU4 sinCosFar(OwnsF4 m, OwnsF4& sin, OwnsF4& cos)
{
    const OwnsF2 m01 = _mm_cvtps_pd(m);
    const OwnsF2 m23 = _mm_cvtps_pd(_mm_movehl_ps(m, m));
    OwnsF2 s01, c01, s23, c23;
    OwnsU2 n01, n23;
    if (!ownsAny(ownsAtLeast(ownsBits(m), (127u + 21) << 23))) {
        n01 = sinCosTwo32f(m01, s01, c01);
        n23 = sinCosTwo32f(m23, s23, c23);
    } else {
        const SinCosReduced first = reducedAny(m01);
        const SinCosReduced second = reducedAny(m23);
        sinCosPoly32f(first.high, s01, c01);
        sinCosPoly32f(second.high, s23, c23);
        n01 = first.n;
        n23 = second.n;
    }
    sin = ownsNarrowed(s01, s23);
    cos = ownsNarrowed(c01, c23);
    return ownsLowHalves(n01, n23);
}

// Lanes without a finite argument are computed as 0 and made NaN in the end, since they shall cost little.

} // namespace

void sinCosRare(OwnsF4 x, OwnsF4& sin, OwnsF4& cos)
{
    const OwnsU4 bits = ownsMagnitudeBits(x);
    const auto unbounded = ownsAs<Zel32u>(_mm_cmpgt_epi32(ownsInt(bits), _mm_set1_epi32(0x7f7fffff)));
    const OwnsU4 m = bits & ~unbounded;
    // Lanes that are not rare have the results that they have among their like.
    const auto isFar = ownsAs<Zel32u>(_mm_cmpgt_epi32(ownsInt(m), _mm_set1_epi32(sinCosNear32f - 1)));
    OwnsF4 s, c;
    OwnsU4 n = sinCosNear(ownsFromBits(m & ~isFar), s, c);
    if (ownsAny(isFar)) {
        OwnsF4 sFar, cFar;
        const OwnsU4 nFar = sinCosFar(ownsFromBits(m), sFar, cFar);
        s = ownsSelect(isFar, sFar, s);
        c = ownsSelect(isFar, cFar, c);
        n = (nFar & isFar) | (n & ~isFar);
    }
    sinCosTurned(s, c, n, ownsFromBits(m), x, sin, cos);
    const OwnsF4 none = x * OwnsF4{};
    sin = ownsSelect(unbounded, none, sin);
    cos = ownsSelect(unbounded, none, cos);
}

void sinCosRare(OwnsF2 x, OwnsF2& sin, OwnsF2& cos)
{
    const OwnsF2 unbounded = _mm_cmpnlt_pd(ownsFromBits(ownsMagnitudeBits(x)), _mm_set1_pd(__builtin_inf()));
    const OwnsF2 m = ownsFromBits(ownsMagnitudeBits(x) & ~ownsBits(unbounded));
    const SinCosReduced reduced = reducedAny(m);
    OwnsF2 s, c;
    sinCosPoly64f(reduced.high, reduced.low, s, c);
    sinCosTurned(s, c, reduced.n, m, x, sin, cos);
    const OwnsF2 none = x * OwnsF2{};
    sin = ownsSelect(unbounded, none, sin);
    cos = ownsSelect(unbounded, none, cos);
}

} // namespace owns_detail
