// Arctangents: their tables and rare arguments.
#include "math/vecMathAtan.h"
#include "math/vecMathConst.h"

#include <limits>

namespace owns_detail {

namespace {

/// atan(c) for c <= 1 of the grid of four fractional bits, `step` the bits of c without the rest of the mantissa.
constexpr Fraction atanOfStep(unsigned step, int bias)
{
    return atanFraction(16 + step % 16, Zel64u{16} << (bias - static_cast<int>(step / 16)));
}

/// A quarter of an angle, as two numbers of so many bits that make the angle.
template <class T>
constexpr AtanEntry<T> inTwoParts(Fraction quarter)
{
    constexpr int bits = std::numeric_limits<T>::digits;
    const Zel64f high = rounded(quarter, -126, bits);
    const Fraction exact = inUnits(high, -126);
    const Zel64f low =
        exact > quarter ? -rounded(exact - quarter, -126, bits) : rounded(quarter - exact, -126, bits);
    return {static_cast<T>(high), static_cast<T>(low)};
}

constexpr auto makeAtanTable32f()
{
    constexpr std::size_t size = 1 + atanGridSize32;
    std::array<AtanEntry<Zel32f>, 4 * size> table{};
    for (unsigned i = 0; i < size; i++) {
        const unsigned first = (atanGridStart32 >> atanGridShift32) - 1;
        const Fraction angle = i == 0 ? 0 : atanOfStep(first + i, 127) / 4;
        constexpr Fraction half = quarterPi / 2;
        table[i] = inTwoParts<Zel32f>(angle);
        table[size + i] = inTwoParts<Zel32f>(half - angle);
        table[2 * size + i] = inTwoParts<Zel32f>(2 * half - angle);
        table[3 * size + i] = inTwoParts<Zel32f>(half + angle);
    }
    return table;
}

constexpr auto makeAtanTable64f()
{
    std::array<Zel64f, 1 + atanGridSize64> table{};
    for (unsigned i = 1; i < table.size(); i++) {
        constexpr auto first = static_cast<unsigned>(atanGridStart64 >> atanGridShift64) - 1;
        const unsigned step = first + i;
        const Fraction angle = atanOfStep(step, 1023);
        // c itself in the same units; 1 wraps to 0, and the difference comes out all the same.
        const int shift = 124 + static_cast<int>(step / 16) - 1023;
        const Fraction c = Fraction{16 + step % 16} << shift;
        table[i] = -rounded(c - angle, -128, 53);
    }
    return table;
}

constexpr auto makeSlopeTable64f()
{
    std::array<AtanEntry<Zel64f>, atanSlopeSize64> table{};
    for (unsigned i = 1; i + 1 < table.size(); i++) {
        const Zel64u m = 16 + (i - 1) % 16;
        const unsigned octave = (i - 1) / 16; // c = m * 2^(octave - 10)
        table[i] = inTwoParts<Zel64f>(octave < 6 ? atanFraction(m, Zel64u{1} << (10 - octave)) / 4
                                                 : quarterPi / 2 - atanFraction(16, m << (octave - 6)) / 4);
    }
    table.back() = inTwoParts<Zel64f>(quarterPi / 2);
    return table;
}

} // namespace

constexpr AtanConstants32f atanConstants32f = {
    .one = ownsAll(1.0f),
    .minusOne = ownsAll(-1.0f),
    // Where the three ways of one argument meet: found by trying all numbers around, for the least error.
    .direct = ownsAll(0.6f),
    .steep = ownsAll(1.72f),
    .quarterPi = ownsAll(0x1.921fb6p-1f),
    .quarterPiLow = ownsAll(-0x1.777a5cp-26f),
    .halfPi = ownsAll(0x1.921fb6p0f),
    .halfPiLow = ownsAll(-0x1.777a5cp-25f),
    // (atan(t)/t - 1) / t^2 in t^2 as a quotient for |t| < 0.6, off by 2^-26.7 of the result.
    .n0 = ownsAll(-0x1.9632c8p0f),
    .n1 = ownsAll(-0x1.7831f6p-1f),
    .d0 = ownsAll(0x1.30a64ep2f),
    .d1 = ownsAll(0x1.43d63cp2f),
    .half = ownsAll(0.5f),
    .third = ownsAll(-0x1.554c98p-2f),
    .leadingBits = ownsAllOf(0xfffff000u),
    .gridHalf = ownsAllOf(1u << (atanGridShift32 - 1)),
    .gridBits = ownsAllOf(~0u << atanGridShift32),
    .perSteep = ownsAllOf(1u + atanGridSize32),
    .perBehind = ownsAllOf(2 * (1u + atanGridSize32)),
};

constexpr AtanConstants64f atanConstants64f = {
    .one = ownsAll(1.0),
    .minusOne = ownsAll(-1.0),
    // (atan(t)/t - 1) / t^2 in t^2 for |t| < 0.0328, off by 2^-67 of a result of 1.
    .a0 = ownsAll(-0x1.5555555555469p-2),
    .a1 = ownsAll(0x1.999999963296bp-3),
    .a2 = ownsAll(-0x1.249227e46a6a6p-3),
    .a3 = ownsAll(0x1.c61351d69d31cp-4),
    // The same for |t| < 1/63, off by 2^-57.7 of the result.
    .b0 = ownsAll(-0x1.5555555553e6fp-2),
    .b1 = ownsAll(0x1.9999988c1dea4p-3),
    .b2 = ownsAll(-0x1.24761d4c96603p-3),
    .halfPi = ownsAll(0x1.921fb54442d18p0),
    .halfPiLow = ownsAll(0x1.1a62633145c07p-54),
    .pi = ownsAll(0x1.921fb54442d18p1),
    .piLow = ownsAll(0x1.1a62633145c07p-53),
    .least = ownsAll(std::bit_cast<Zel64f>(atanSlopeLeast64)),
    .most = ownsAll(std::bit_cast<Zel64f>(atanSlopeMost64)),
    .leadingBits = ownsAllOf(~Zel64u{0x7ffffff}),
    .gridHalf = ownsAllOf(Zel64u{1} << (atanGridShift64 - 1)),
    .gridBits = ownsAllOf(~Zel64u{0} << atanGridShift64),
    .gridStart = ownsAllOf(atanGridStart64),
};

constexpr std::array<AtanEntry<Zel32f>, std::size_t{4} * (1 + atanGridSize32)> atanTable32f =
    makeAtanTable32f();
constexpr std::array<Zel64f, 1 + atanGridSize64> atanTable64f = makeAtanTable64f();
constexpr std::array<AtanEntry<Zel64f>, atanSlopeSize64> atanSlopeTable64f = makeSlopeTable64f();

// Both parts are brought into the middle of the range: what becomes 0 there is too small to matter. An infinite
// part against a finite one makes a quotient of 0, against another one of 1, and 0 against 0 makes 0. A NaN would
// lead past the end of a table, and is put in afterwards.

OwnsF4 atan2Rare(OwnsF4 y, OwnsF4 x)
{
    const OwnsF4 ax = ownsFromBits(ownsMagnitudeBits(x));
    const OwnsF4 ay = ownsFromBits(ownsMagnitudeBits(y));
    const OwnsF4 steep = _mm_cmpgt_ps(ay, ax);
    const OwnsF4 one = ownsSplat(1.0f);
    const OwnsF4 unordered = _mm_cmpunord_ps(x, y);
    OwnsF4 a = _mm_andnot_ps(unordered, _mm_min_ps(ay, ax));
    OwnsF4 b = ownsSelect(unordered, one, OwnsF4{_mm_max_ps(ay, ax)});
    const OwnsF4 large = _mm_cmpge_ps(b, _mm_set1_ps(0x1p100f));
    const OwnsF4 small = _mm_cmplt_ps(b, _mm_set1_ps(0x1p-100f));
    const OwnsF4 scale = ownsSelect(large, ownsSplat(0x1p-64f), ownsSelect(small, ownsSplat(0x1p64f), one));
    a = a * scale;
    b = b * scale;
    const OwnsF4 infinite = _mm_cmpeq_ps(b, _mm_set1_ps(__builtin_inff()));
    const OwnsF4 both = _mm_cmpeq_ps(a, b);
    a = ownsSelect(infinite, OwnsF4{_mm_and_ps(both, one)}, a);
    b = ownsSelect(ownsAs<Zel32f>(_mm_or_ps(infinite, _mm_cmpeq_ps(b, _mm_setzero_ps()))), one, b);
    return ownsSelect(unordered, x + y, atan2Core(a, b, steep, y, x));
}

OwnsF2 atan2Rare(OwnsF2 y, OwnsF2 x)
{
    const OwnsF2 ax = ownsFromBits(ownsMagnitudeBits(x));
    const OwnsF2 ay = ownsFromBits(ownsMagnitudeBits(y));
    const OwnsF2 steep = _mm_cmpgt_pd(ay, ax);
    const OwnsF2 one = ownsSplat(1.0);
    const OwnsF2 unordered = _mm_cmpunord_pd(x, y);
    OwnsF2 a = _mm_andnot_pd(unordered, _mm_min_pd(ay, ax));
    OwnsF2 b = ownsSelect(unordered, one, OwnsF2{_mm_max_pd(ay, ax)});
    const OwnsF2 large = _mm_cmpge_pd(b, _mm_set1_pd(0x1p900));
    const OwnsF2 small = _mm_cmplt_pd(b, _mm_set1_pd(0x1p-900));
    const OwnsF2 scale = ownsSelect(large, ownsSplat(0x1p-512), ownsSelect(small, ownsSplat(0x1p512), one));
    a = a * scale;
    b = b * scale;
    const OwnsF2 infinite = _mm_cmpeq_pd(b, _mm_set1_pd(__builtin_inf()));
    const OwnsF2 both = _mm_cmpeq_pd(a, b);
    a = ownsSelect(infinite, OwnsF2{_mm_and_pd(both, one)}, a);
    b = ownsSelect(ownsAs<Zel64f>(_mm_or_pd(infinite, _mm_cmpeq_pd(b, _mm_setzero_pd()))), one, b);
    return ownsSelect(unordered, x + y, atan2Core(a, b, steep, y, x));
}

} // namespace owns_detail
