// The natural logarithm: its table and its rare arguments.
#include "math/vecMathLn.h"
#include "math/vecMathConst.h"

namespace owns_detail {

namespace {

/// -ln(n / 2^26) for n close to 2^26, in units of 2^-128, by 2 atanh((n - 1) / (n + 1)); and its sign.
struct SignedFraction {
    Fraction magnitude;
    bool negative;
};
constexpr SignedFraction minusLn(Zel64u n)
{
    constexpr Zel64u one = Zel64u{1} << 26;
    const bool negative = n > one;
    return {2 * atanhFraction(fraction(negative ? n - one : one - n, n + one)), negative};
}

constexpr auto makeLnTable()
{
    std::array<LnEntry, lnTable.size()> table{};
    for (Zel64u i = 0; i < table.size(); i++) {
        // The interval as the bits of a double, and the mantissas at its ends in units of 2^-53.
        constexpr Zel64u step = Zel64u{1} << (52 - lnIntervalBits);
        const auto mantissa = [](Zel64u bits) {
            const Zel64u m = (bits & 0xfffffffffffffu) | 0x10000000000000u;
            return bits >> 52 >= 0x3ff ? 2 * m : m;
        };
        const Zel64u start = lnTableStart + i * step;
        const Zel64u low = mantissa(start);
        const Zel64u high = mantissa(start + step - 1);
        constexpr Zel64u one = Zel64u{1} << 53;
        Zel64u n = Zel64u{1} << 26;
        table[i].exactBits = ~Zel64u{0};
        if (low > one || high < one) {
            n = static_cast<Zel64u>((U128{1} << 79) / ((low + high) / 2));
            table[i].exactBits <<= 27;
        }
        table[i].inverse = asDouble(n, -26);
        const SignedFraction ln = minusLn(n);
        const Fraction first = (ln.magnitude + (U128{1} << 85)) >> 86 << 86;
        const bool below = ln.magnitude < first;
        const Zel64f rest = asDouble(below ? first - ln.magnitude : ln.magnitude - first, -128);
        const Zel64f whole = asDouble(first, -128);
        table[i].high = ln.negative ? -whole : whole;
        table[i].low = below != ln.negative ? -rest : rest;
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
    .one = ownsAll(1.0),
    // (ln(1 + r) - r) / r^2 for |r| < 0.004, off by 2^-61.9 of the result.
    .a0 = ownsAll(-0x1p-1),
    .a1 = ownsAll(0x1.5555555555558p-2),
    .a2 = ownsAll(-0x1.ffffffff17084p-3),
    .a3 = ownsAll(0x1.999999983310cp-3),
    .a4 = ownsAll(-0x1.55571e411bd85p-3),
    .a5 = ownsAll(0x1.2494479abeb98p-3),
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
