// Butterflies: Fourier transforms of 2, 4 and 8 values, which the passes are made of.
//
// They take their inputs in bit-reversed order and leave the outputs in natural order, in place, for the
// forward direction. The inverse is the same with output k where the forward has r - k; see ownsOutput. An
// element may be OwnsPairs or OwnsSplit: each lane is a transform of its own.
#pragma once

#include "transforms/fft/complexVec.h"

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

/// Where a forward butterfly of `radix` leaves output k of the given direction.
template <bool inverse>
constexpr int ownsOutput(int k, int radix)
{
    return inverse ? (radix - k) % radix : k;
}
