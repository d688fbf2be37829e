// Square roots by the reciprocal estimate, and of integers to the last bit.
#pragma once

#include "frame/scale.h"
#include "frame/scaleFactor.h"
#include "frame/scaleVec.h"

/// One Newton step from y, an estimate of 1 / sqrt(s), to sqrt(s). The estimate of the processor is good to
/// 1.5 * 2^-12, and so the root to 2.1e-7 and a few roundings.
inline OwnsVec<Zel32f> ownsRootStep(OwnsVec<Zel32f> s, OwnsVec<Zel32f> y)
{
    const OwnsVec<Zel32f> t = s * y;
    return (t * y - 3.0f) * (t * -0.5f);
}

/// The float of each integer from 0 to 2^31. The last one wraps to -2^31, and only its sign is wrong then.
inline OwnsVec<Zel32f> ownsUnsigned32f(OwnsVec<Zel32s> n)
{
    return _mm_andnot_ps(_mm_set1_ps(-0.0f), _mm_cvtepi32_ps(ownsInt(n)));
}

/// sqrt(n) * 2^(-scaleFactor) for exact integers from 0 to 2^31, rounded to nearest with ties to even, whatever
/// the caller's rounding mode. Results below `limit` are exact, those at or above it come out as at least
/// limit - 1, for the packing to saturate. A float root of so large an integer is off by less than 1/64.
template <int limit>
struct OwnsIntegerRoot {
    using V = OwnsVec<Zel32s>;

    static OwnsVec<Zel32f> approximate(V n) { return _mm_sqrt_ps(ownsUnsigned32f(n)); }

    /// Squares that one instruction makes of 16-bit numbers; it takes 32768 for -32768, which does no harm.
    static V square(V r)
    {
        return ownsAs<Zel32s>(limit <= 32768 ? _mm_madd_epi16(ownsInt(r), ownsInt(r))
                                             : _mm_mullo_epi32(ownsInt(r), ownsInt(r)));
    }

    /// The nearest r has (r - 1/2)^2 < m < (r + 1/2)^2 for m = n * 4^shift, which no m ties; in integers
    /// -r < m - r^2 <= r. The converted root is the right one or a neighbour of it. Differences this small
    /// survive the wrapping of both terms; where the result saturates m may have lost any bits, and the
    /// correction by one does no harm.
    static V left(V n, int shift)
    {
        const OwnsVec<Zel32f> scaled = approximate(n) * static_cast<Zel32f>(1 << shift);
        const V r = ownsAs<Zel32s>(_mm_cvtps_epi32(_mm_min_ps(scaled, _mm_set1_ps(limit))));
        const V rest = ownsAs<Zel32s>(_mm_sll_epi32(ownsInt(n), ownsCount(2 * shift))) - square(r);
        const V nearest = r + (rest <= -r) - (rest > r);
        return ownsAs<Zel32s>(_mm_max_epi32(ownsInt(nearest), _mm_setzero_si128())); // 0 was corrected to -1
    }

    /// With half a unit of the result added, the floor of the root is as good as the root itself; only a root
    /// that is an integer can tie.
    static V right(V n, int shift)
    {
        const V r = ownsAs<Zel32s>(_mm_cvttps_epi32(approximate(n) + 0.5f));
        const V rest = n - ownsAs<Zel32s>(_mm_mullo_epi32(ownsInt(r), ownsInt(r)));
        const int half = 1 << (shift - 1);
        const V evenTie = (rest | ((r & (4 * half - 1)) ^ half)) == 0;
        const V sum = (r + half) + ((rest >> 31) + evenTie);
        return ownsAs<Zel32s>(_mm_sra_epi32(ownsInt(sum), ownsCount(shift)));
    }

    static V apply(OwnsUnscaled, V n) { return left(n, 0); }
    static V apply(OwnsHalved, V n) { return right(n, 1); }
    static V apply(OwnsShiftedRight path, V n) { return right(n, path.shift); }
    static V apply(OwnsShiftedLeft path, V n) { return left(n, path.shift); }
};

/// The same for integers below 2^16. A result R lies at least 1 / (8 R) away from any tie that it does not hit,
/// and the float root is off by less than that up to 1024; roots that tie are exact. Larger results take the
/// way above.
template <int limit>
struct OwnsSmallIntegerRoot {
    using V = OwnsVec<Zel32s>;

    static V plain(V n, Zel32f factor)
    {
        const OwnsVec<Zel32f> root = _mm_sqrt_ps(_mm_cvtepi32_ps(ownsInt(n)));
        return ownsAs<Zel32s>(_mm_cvttps_epi32(ownsRoundedNear(root * factor)));
    }
    static V apply(OwnsUnscaled, V n) { return plain(n, 1); }
    static V apply(OwnsHalved, V n) { return plain(n, 0.5f); }
    static V apply(OwnsShiftedRight path, V n)
    {
        return plain(n, 1.0f / static_cast<Zel32f>(1 << path.shift));
    }
    static V apply(OwnsShiftedLeft path, V n)
    {
        if (path.shift > 2)
            return OwnsIntegerRoot<limit>::left(n, path.shift);
        return plain(n, static_cast<Zel32f>(1 << path.shift));
    }
};
