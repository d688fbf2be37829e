// Pieces that models are made of: the definitions, in wider arithmetic.
#pragma once

#include "support/element.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <vector>

namespace support {

using Wide = __int128;

/// Into the range of an integer type.
template <class T>
constexpr T saturated(Wide x)
{
    using Limits = std::numeric_limits<T>;
    return static_cast<T>(std::clamp<Wide>(x, Limits::min(), Limits::max()));
}

/// floor(x / 2^shift) plus 1 where the rest is above one half, or is one half and the floor odd; shift up to
/// 126.
constexpr Wide shiftedToEven(Wide x, int shift)
{
    if (shift <= 0)
        return x;
    const Wide whole = x >> shift;
    const Wide rest = x - (whole << shift);
    const Wide half = Wide{1} << (shift - 1);
    return whole + (rest > half || (rest == half && (whole & 1) != 0));
}

/// x times 2^-scaleFactor, to nearest, ties to even, saturated: the rule of the scaled forms. |x| below
/// 2^126.
template <class T>
constexpr T scaled(Wide x, int scaleFactor)
{
    if (scaleFactor >= 0)
        return scaleFactor > 126 ? T{0} : saturated<T>(shiftedToEven(x, scaleFactor));
    if (x == 0)
        return 0;
    for (int i = 0; i > scaleFactor; i--) {
        x *= 2;
        if (x > std::numeric_limits<T>::max() || x < std::numeric_limits<T>::min())
            break;
    }
    return saturated<T>(x);
}

/// To the nearest whole number, ties to even, whatever the caller's mode; |x| below 2^63.
inline long double toNearest(long double x)
{
    const long double below = std::floor(x);
    const long double rest = x - below;
    return below + (rest > 0.5L || (rest == 0.5L && std::floor(below / 2) * 2 != below) ? 1 : 0);
}

/// x times 2^-scaleFactor for any factor. In a long double it is exact, or far beyond what can matter.
inline long double scaledExactly(long double x, int scaleFactor)
{
    return std::ldexp(x, -std::clamp(scaleFactor, -10000, 10000));
}

/// The definition of complex multiplication, each step rounded.
template <Complex C>
constexpr C complexProduct(C a, C b)
{
    using P = Part<C>;
    const P p1 = a.re * b.re;
    const P p2 = a.im * b.re;
    const P p3 = a.im * b.im;
    const P p4 = a.re * b.im;
    return {p1 - p3, p2 + p4};
}

/// The product of two elements, real or complex.
template <class T>
constexpr T elementProduct(T a, T b)
{
    if constexpr (Complex<T>)
        return complexProduct(a, b);
    else
        return a * b;
}

/// The factors from below the saturation limit to above the zero limit, and the ends of int.
inline std::vector<int> factors(int lowest, int highest)
{
    std::vector<int> list{std::numeric_limits<int>::min(), std::numeric_limits<int>::max()};
    for (int s = lowest; s <= highest; s++)
        list.push_back(s);
    return list;
}

/// All values of a type of at most 16 bits.
template <class T>
std::vector<T> everyValue()
{
    std::vector<T> all(std::size_t{1} << (8 * sizeof(T)));
    for (std::size_t i = 0; i < all.size(); i++)
        all[i] = static_cast<T>(i);
    return all;
}

} // namespace support

// Models are generic over real and complex elements.
template <support::Complex C>
constexpr C operator+(C a, C b)
{
    return {static_cast<support::Part<C>>(a.re + b.re), static_cast<support::Part<C>>(a.im + b.im)};
}
template <support::Complex C>
constexpr C operator-(C a, C b)
{
    return {static_cast<support::Part<C>>(a.re - b.re), static_cast<support::Part<C>>(a.im - b.im)};
}
