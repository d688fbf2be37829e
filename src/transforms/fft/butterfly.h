// Butterflies: Fourier transforms of 2, 4, 8 and 16 values, which the passes are made of.
//
// They take their inputs in bit-reversed order and leave the outputs in natural order, in place, for the
// forward direction. The inverse is the same with output k where the forward has r - k; see ownsOutput. An
// element may be OwnsPairs or OwnsSplit: each lane is a transform of its own.
#pragma once

#include "transforms/fft/complexVec.h"
#include "transforms/fft/sine.h"

inline constexpr long double ownsSqrtHalf = 0.707106781186547524400844362104849039L;

template <class X>
[[gnu::always_inline]] inline void ownsButterfly(X (&x)[2])
{
    const X sum = x[0] + x[1];
    x[1] = x[0] - x[1];
    x[0] = sum;
}

template <class X>
[[gnu::always_inline]] inline void ownsButterfly(X (&x)[4])
{
    const X evenSum = x[0] + x[1];
    const X evenDiff = x[0] - x[1];
    const X oddSum = x[2] + x[3];
    const X oddDiff = x[2] - x[3];
    x[0] = evenSum + oddSum;
    x[1] = ownsMinusI(evenDiff, oddDiff);
    x[2] = evenSum - oddSum;
    x[3] = ownsPlusI(evenDiff, oddDiff);
}

/// Two transforms of four, then the sums across: 52 additions and 4 products of real vectors (OwnsSplit).
/// The odd outputs turn by an eighth of a circle, (1 - i) / sqrt(2), which is one sum of a value and itself
/// turned by a quarter, and a product.
template <class T, template <class> class X>
[[gnu::always_inline]] inline void ownsButterfly(X<T> (&x)[8])
{
    X<T> even[4] = {x[0], x[1], x[2], x[3]};
    X<T> odd[4] = {x[4], x[5], x[6], x[7]};
    ownsButterfly(odd);
    constexpr auto factor = static_cast<T>(ownsSqrtHalf);
    odd[1] = ownsMinusI(odd[1], odd[1]) * factor;
    odd[3] = ownsPlusI(odd[3], odd[3]) * factor;
    ownsButterfly(even);
    x[0] = even[0] + odd[0];
    x[4] = even[0] - odd[0];
    x[1] = even[1] + odd[1];
    x[5] = even[1] - odd[1];
    x[2] = ownsMinusI(even[2], odd[2]);
    x[6] = ownsPlusI(even[2], odd[2]);
    x[3] = even[3] - odd[3];
    x[7] = even[3] + odd[3];
}

/// A constant of the circle: exp(-2 pi i k / 2^order).
template <class T, int k, int order>
inline OwnsSplit<T> ownsCircle()
{
    constexpr auto re = static_cast<T>(ownsExactCosine(k, order));
    constexpr auto im = static_cast<T>(-ownsExactSine(k, order));
    return {ownsSplat(re), ownsSplat(im)};
}

/// x turned by that constant.
template <int k, int order, class T>
inline OwnsSplit<T> ownsTurnedBy(OwnsSplit<T> x)
{
    return x * ownsCircle<T, k, order>();
}
template <int k, int order, class T>
inline OwnsPairs<T> ownsTurnedBy(OwnsPairs<T> x)
{
    constexpr auto re = static_cast<T>(ownsExactCosine(k, order));
    constexpr auto im = static_cast<T>(-ownsExactSine(k, order));
    return ownsTimes(x, ownsSplat(re), ownsSplat(im));
}

/// The second half of a transform of 16: four of 4 across, with their constant twiddles. x[a] is a finished
/// transform of 4, of those in bit-reversed order; x[a][k] becomes output 4 a + k of the whole.
template <int k, class T, template <class> class X>
[[gnu::always_inline]] inline void ownsButterflyAcross(X<T> (&x)[4][4])
{
    constexpr auto factor = static_cast<T>(ownsSqrtHalf);
    const X<T> a = x[0][k];
    X<T> b = x[1][k];
    X<T> c = x[2][k];
    X<T> d = x[3][k];
    // Twiddles of index 2 k, k and 3 k. Turns by quarters and signs are left to the sums behind them.
    if constexpr (k == 1) {
        b = ownsMinusI(b, b) * factor;
        c = ownsTurnedBy<1, 4>(c);
        d = ownsTurnedBy<3, 4>(d);
    } else if constexpr (k == 2) {
        c = ownsMinusI(c, c) * factor;
        d = ownsPlusI(d, d) * factor;
    } else if constexpr (k == 3) {
        b = ownsPlusI(b, b) * factor;
        c = ownsTurnedBy<3, 4>(c);
        d = ownsTurnedBy<1, 4>(d);
    }
    const X<T> evenSum = k == 2 ? ownsMinusI(a, b) : k == 3 ? a - b : a + b;
    const X<T> evenDiff = k == 2 ? ownsPlusI(a, b) : k == 3 ? a + b : a - b;
    const X<T> oddSum = k < 2 ? c + d : c - d;
    const X<T> oddDiff = k < 2 ? c - d : c + d;
    x[0][k] = evenSum + oddSum;
    x[1][k] = ownsMinusI(evenDiff, oddDiff);
    x[2][k] = evenSum - oddSum;
    x[3][k] = ownsPlusI(evenDiff, oddDiff);
}

/// Where a forward butterfly of `radix` leaves output k of the given direction.
template <bool inverse>
constexpr int ownsOutput(int k, int radix)
{
    return inverse ? (radix - k) % radix : k;
}
