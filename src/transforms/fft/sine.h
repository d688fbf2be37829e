// Sines for the tables of a plan.
#pragma once

#include "transforms/fft/plan.h"

inline constexpr long double ownsPi = 3.141592653589793238462643383279502884L;

/// Taylor's series in 80 bits. Angles reach pi/4 only, where its terms fall so fast that thirteen leave less
/// than one part in 2^63.
constexpr long double ownsSeries(long double first, long double angle, int power)
{
    long double term = first;
    long double sum = 0;
    for (int k = 0; k < 13; k++, power += 2) {
        sum += term;
        term = -term * angle * angle / static_cast<long double>((power + 1) * (power + 2));
    }
    return sum;
}

constexpr long double ownsExactSine(int k, int order);

/// cos(2 pi k / 2^order), for constants: the angle is folded into the first eighth of the circle.
constexpr long double ownsExactCosine(int k, int order)
{
    const int circle = 1 << order;
    k = (k < 0 ? -k : k) % circle;
    if (2 * k > circle)
        k = circle - k;
    if (4 * k > circle)
        return -ownsExactCosine(circle / 2 - k, order);
    if (8 * k > circle)
        return ownsExactSine(circle / 4 - k, order);
    return ownsSeries(1, 2 * ownsPi * static_cast<long double>(k) / static_cast<long double>(circle), 0);
}

/// sin(2 pi k / 2^order), order 2 and more.
constexpr long double ownsExactSine(int k, int order)
{
    const int circle = 1 << order;
    if (k < 0 || 8 * k > circle)
        return ownsExactCosine(k - circle / 4, order);
    const long double angle = 2 * ownsPi * static_cast<long double>(k) / static_cast<long double>(circle);
    return ownsSeries(angle, angle, 1);
}

/// A quarter wave: S[k] = sin(2 pi k / 2^order) for k = 0 to 2^order / 4.
template <class T>
struct OwnsSines {
    const T* s;
    int order;

    T sine(int k) const { return s[k]; }
    T cosine(int k) const { return s[(1 << order) / 4 - k]; }
};

/// The sines that a plan of this order draws on: the stored table up to order 10, else one that is made in
/// `pInitMem`.
template <class T>
OwnsSines<T> ownsFftSineTable(int order, Zel8u* pInitMem);
