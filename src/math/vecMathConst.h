// Arithmetic for tables that are made while compiling: numbers of 128 bits, so that every table entry is correct
// to the last bit of the type that it ends in, whatever the compiler's own floating point does.
#pragma once

#include "zels/types.h"

#include <bit>

namespace owns_detail {

using U128 = unsigned __int128;

/// The high half of a product.
constexpr U128 mulHigh(U128 a, U128 b)
{
    const U128 mask = ~Zel64u{0};
    const U128 al = a & mask, ah = a >> 64, bl = b & mask, bh = b >> 64;
    const U128 middle = ((al * bl) >> 64) + ((al * bh) & mask) + ((ah * bl) & mask);
    return ah * bh + ((al * bh) >> 64) + ((ah * bl) >> 64) + (middle >> 64);
}

/// A fraction in [0, 1) in units of 2^-128.
using Fraction = U128;
inline constexpr Fraction quarterPi = U128{0xC90FDAA22168C234u} << 64 | 0xC4C6628B80DC1CD1u;
inline constexpr Fraction lnTwo = U128{0xB17217F7D1CF79ABu} << 64 | 0xC9E3B39803F2F6AFu;

/// numerator / denominator below 1, both below 2^63.
constexpr Fraction fraction(Zel64u numerator, Zel64u denominator)
{
    const U128 first = (U128{numerator} << 64) / denominator;
    const U128 rest = (U128{numerator} << 64) % denominator;
    return first << 64 | (rest << 64) / denominator;
}

constexpr int widthOf(U128 m)
{
    const auto high = static_cast<Zel64u>(m >> 64);
    return high != 0 ? 128 - std::countl_zero(high) : 64 - std::countl_zero(static_cast<Zel64u>(m));
}

/// A positive number: mantissa * 2^exponent, the mantissa with its top bit set. Products are low by less than a
/// unit.
struct Wide {
    U128 mantissa;
    int exponent;
};
constexpr Wide operator*(Wide a, Wide b)
{
    const U128 product = mulHigh(a.mantissa, b.mantissa);
    const int shift = product >> 127 != 0 ? 0 : 1;
    return {product << shift, a.exponent + b.exponent + 128 - shift};
}

inline constexpr Wide wideE{U128{0xADF85458A2BB4A9Au} << 64 | 0xAFDC5620273D3CF2u, -126};
inline constexpr Wide wideRootOfE{U128{0xD3094C70F034DE4Bu} << 64 | 0x96FF7D5B6F99FCD9u, -127};
inline constexpr Wide widePerE{U128{0xBC5AB1B16779BE35u} << 64 | 0x75BD8F0520A9F21Cu, -129};

/// x, not 0, without its fraction, and whether the fraction is one half or more; x must be below 2^64.
struct WholeAndHalf {
    Zel64u whole;
    bool half;
};
constexpr WholeAndHalf wholeOf(Wide x)
{
    const int shift = -x.exponent;
    if (shift > 128)
        return {0, false};
    return {shift == 128 ? 0 : static_cast<Zel64u>(x.mantissa >> shift),
            (x.mantissa >> (shift - 1) & 1) != 0};
}

/// m * 2^exponent as a double, rounded to nearest with `bits` of mantissa, at most 53; the result must be normal
/// or 0.
constexpr Zel64f rounded(U128 m, int exponent, int bits)
{
    if (m == 0)
        return 0;
    const int excess = widthOf(m) - bits;
    Zel64u mantissa = 0;
    if (excess > 0)
        mantissa = static_cast<Zel64u>((m >> excess) + ((m >> (excess - 1)) & 1)) << (53 - bits);
    else
        mantissa = static_cast<Zel64u>(m) << (53 - bits - excess);
    // A mantissa that was rounded up to 2^53 carries into the exponent, as it should.
    const auto biased = static_cast<Zel64u>(Zel64s{exponent} + excess + bits - 1 + 1023);
    return std::bit_cast<Zel64f>((biased << 52) + (mantissa - (Zel64u{1} << 52)));
}
constexpr Zel64f asDouble(U128 m, int exponent)
{
    return rounded(m, exponent, 53);
}

/// The positive number `value`, which must be a whole multiple of 2^exponent, in units of that.
constexpr U128 inUnits(Zel64f value, int exponent)
{
    if (value == 0)
        return 0;
    const Zel64u bits = std::bit_cast<Zel64u>(value);
    const U128 mantissa = (bits & 0xfffffffffffffu) | 0x10000000000000u;
    const int shift = static_cast<int>(bits >> 52) - 1023 - 52 - exponent;
    return shift >= 0 ? mantissa << shift : mantissa >> -shift;
}

/// exp(x) - 1 for x below 1 with a result below 1.
constexpr Fraction expm1Fraction(Fraction x)
{
    Fraction sum = x;
    Fraction term = x;
    for (unsigned n = 2; term != 0; n++) {
        term = mulHigh(term, x) / n;
        sum += term;
    }
    return sum;
}

/// atanh(s), s below 0.9.
constexpr Fraction atanhFraction(Fraction s)
{
    const Fraction square = mulHigh(s, s);
    Fraction sum = 0;
    Fraction power = s;
    for (unsigned n = 1; power != 0; n += 2) {
        sum += power / n;
        power = mulHigh(power, square);
    }
    return sum;
}

/// atan(y / x) for whole y <= x below 2^31, by Euler's series in c^2 / (1 + c^2), c = y / x.
constexpr Fraction atanFraction(Zel64u y, Zel64u x)
{
    const Zel64u square = x * x + y * y;
    if (x == y)
        return quarterPi;
    const Fraction ratio = fraction(y * y, square);
    Fraction term = fraction(x * y, square);
    Fraction sum = 0;
    for (unsigned n = 0; term != 0; n++) {
        sum += term;
        // Twice the term may reach 1: the division comes first.
        term = mulHigh(term / (2 * n + 3) * (2 * n + 2), ratio);
    }
    return sum;
}

} // namespace owns_detail
