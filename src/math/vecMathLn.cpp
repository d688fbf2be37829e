// The natural logarithm: its table and its rare arguments.
#include "math/vecMathLn.h"
#include "math/vecMathConst.h"

namespace owns_detail {

namespace {

constexpr auto makeLnTable()
{
    std::array<LnEntry, lnTable.size()> table{};
    for (Zel64u i = 0; i < table.size(); i++) {
        // The middle of the interval in units of 2^-53, then its inverse, of 10 bits, in units of 2^-10.
        constexpr Zel64u step = Zel64u{1} << (52 - lnIntervalBits);
        const Zel64u bits = lnTableStart + i * step + step / 2;
        const Zel64u middle = ((bits & 0xfffffffffffffu) | 0x10000000000000u)
                              << (bits >> 52 == 0x3ff ? 1 : 0);
        const Zel64u coarse = (Zel64u{1} << 63) / (middle >> 10);
        const Zel64u inverse =
            coarse >= 1u << 20 ? (coarse + (1u << 10)) >> 11 << 1 : (coarse + (1u << 9)) >> 10;
        constexpr Zel64u one = Zel64u{1} << 10;
        // The inverse of that, and by how much their product is more than 1, in units of 2^-128.
        const Zel64f center = asDouble((U128{1} << 127) / inverse, -117);
        const U128 product = inUnits(center, -54) * inverse;
        const bool less = product < U128{1} << 64;
        const Fraction excess = (less ? (U128{1} << 64) - product : product - (U128{1} << 64)) << 64;
        // -ln(inverse) by 2 atanh((1 - inverse) / (1 + inverse)), and its first part.
        const bool negative = inverse > one;
        const Fraction ln =
            2 * atanhFraction(fraction(negative ? inverse - one : one - inverse, inverse + one));
        const Fraction first = (ln + (U128{1} << 85)) >> 86 << 86;
        const U128 left = negative ? first - ln : ln - first;
        const U128 rest = less ? left - excess : left + excess;
        const Zel64f whole = asDouble(first, -128);
        table[i] = {.inverse = asDouble(inverse, -10),
                    .high = negative ? -whole : whole,
                    .low = rest >> 127 != 0 ? -asDouble(-rest, -128) : asDouble(rest, -128),
                    .center = center};
    }
    return table;
}

} // namespace

constexpr LnConstants32f lnConstants32f = {
    .one = ownsAll(1.0f),
    .two = ownsAll(2.0f),
    // 2 (atanh(s)/s - 1) / s^2 in s^2 for |s| < 0.1716, off by 2^-30.2 of the result.
    .r0 = ownsAll(0x1.55557ap-1f),
    .r1 = ownsAll(0x1.995ed4p-2f),
    .r2 = ownsAll(0x1.31e0eep-2f),
    // ln(2) / 2^23 in two parts, the first of 16 bits: its product with k, of 8 bits, is exact.
    .ln2High = ownsAll(0x1.62e4p-24f),
    .ln2Low = ownsAll(0x1.7f7d1cp-43f),
};

constexpr LnConstants64f lnConstants64f = {
    // (-ln(1 - r) - r) / r^2 for |r| < 0.0028, off by 2^-67.4 of 1.
    .a0 = ownsAll(0x1p-1),
    .a1 = ownsAll(0x1.55555555416b2p-2),
    .a2 = ownsAll(0x1.fffffffff1bd5p-3),
    .a3 = ownsAll(0x1.999a7996095c0p-3),
    .a4 = ownsAll(0x1.5555dedca3775p-3),
    // ln(2) / 2^20 in two parts; the first is a multiple of 2^-62, so that k times it and an entry's first part
    // make an exact sum.
    .ln2High = ownsAll(0x1.62e42fefa38p-21),
    .ln2Low = ownsAll(0x1.ef35793c7673p-65),
};

constexpr std::array<LnEntry, 1 << lnIntervalBits> lnTable = makeLnTable();

// Subnormal arguments are raised into the normal range; where the caller counts them as 0 they are 0 afterwards,
// and before.

OwnsF4 lnRare(OwnsF4 x, OwnsLnSeen* seen)
{
    const OwnsF4 small = _mm_cmplt_ps(ownsFromBits(ownsMagnitudeBits(x)), _mm_set1_ps(0x1p-126f));
    const OwnsF4 raised = ownsSelect(small, x * 0x1p23f, x);
    OwnsF4 result = lnCore(ownsBits(raised), ownsBits(small) & 23u << 23);
    const OwnsF4 zero = _mm_cmpeq_ps(x, _mm_setzero_ps());
    const OwnsF4 negative = _mm_cmplt_ps(x, _mm_setzero_ps());
    const OwnsF4 unbounded = ownsFromBits(ownsAtLeast(ownsMagnitudeBits(x), 0x7f800000u));
    // Infinity and NaN come out as they are, a signalling NaN quiet.
    result = ownsSelect(unbounded, x + x, result);
    result = ownsSelect(negative, ownsSplat(__builtin_nanf("")), result);
    result = ownsSelect(zero, ownsSplat(-__builtin_inff()), result);
    if (seen) {
        seen->zero |= ownsAny(ownsBits(zero));
        seen->negative |= ownsAny(ownsBits(negative));
    }
    return result;
}

OwnsF2 lnRare(OwnsF2 x, OwnsLnSeen* seen)
{
    const OwnsF2 small = _mm_cmplt_pd(ownsFromBits(ownsMagnitudeBits(x)), _mm_set1_pd(0x1p-1022));
    const OwnsF2 raised = ownsSelect(small, x * 0x1p52, x);
    OwnsF2 result = lnCore(ownsBits(raised), ownsBits(small) & Zel64u{52} << 52);
    const OwnsF2 zero = _mm_cmpeq_pd(x, _mm_setzero_pd());
    const OwnsF2 negative = _mm_cmplt_pd(x, _mm_setzero_pd());
    const OwnsF2 unbounded = ownsFromBits(ownsAtLeast(ownsMagnitudeBits(x), 0x7ff0000000000000u));
    result = ownsSelect(unbounded, x + x, result);
    result = ownsSelect(negative, ownsSplat(__builtin_nan("")), result);
    result = ownsSelect(zero, ownsSplat(-__builtin_inf()), result);
    if (seen) {
        seen->zero |= ownsAny(ownsBits(zero));
        seen->negative |= ownsAny(ownsBits(negative));
    }
    return result;
}

} // namespace owns_detail
