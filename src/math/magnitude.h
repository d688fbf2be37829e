// Magnitudes of float parts.
//
// Single precision takes one Newton step from the processor's estimate, on partly filled vectors too, so that
// an element's result depends neither on its place nor on the length.
#pragma once

#include "frame/squares.h"
#include "math/hypot.h"
#include "math/root.h"

#include <bit>
#include <cfloat>

/// From the sum of squares. One that overflowed gives NaN, infinity times the estimate 0, and that is promised.
/// Below the normal numbers there is no estimate.
inline OwnsVec<Zel32f> ownsMagnitudeOf(OwnsVec<Zel32f> sumOfSquares)
{
    const OwnsVec<Zel32f> s = sumOfSquares;
    OwnsVec<Zel32f> root = ownsRootStep(s, _mm_rsqrt_ps(s));
    // As integers the bits of small sums are those below FLT_MIN; that of a negative NaN does no harm here.
    const OwnsVec<Zel32s> fromNormal = ownsAs<Zel32s>(s) - std::bit_cast<Zel32s>(FLT_MIN);
    if (_mm_movemask_ps(ownsFloat(fromNormal)) != 0) [[unlikely]]
        root = _mm_blendv_ps(root, _mm_sqrt_ps(s), ownsFloat(fromNormal));
    return root;
}

inline OwnsVec<Zel32f> ownsMagnitude(OwnsVec<Zel32f> re, OwnsVec<Zel32f> im)
{
    return ownsMagnitudeOf(ownsSumOfSquares(re, im));
}
inline OwnsVec<Zel64f> ownsMagnitude(OwnsVec<Zel64f> re, OwnsVec<Zel64f> im)
{
    return ownsHypot(re, im);
}
