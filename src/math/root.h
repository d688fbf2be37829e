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
/// the caller's rounding mode. Results below `limit` are exact, larger ones come out as at least that, for the
/// packing to saturate: their squares do not fit, but whatever the comparison says, j and j + 1 are large enough.
///
/// With `isSigned` n is below 2^31. A float root is off by less than 1/64, and so its integer part j has j - 1/64 < root < j + 1 + 1/64. The
/// result is j, or j + 1 from j + 1/2 on, where the square is j^2 + j + 1/4.
template <int limit, bool isSigned = false>
struct OwnsIntegerRoot {
    using V = OwnsVec<Zel32s>;

    static OwnsVec<Zel32f> approximate(V n)
    {
        return _mm_sqrt_ps(isSigned ? OwnsVec<Zel32f>(_mm_cvtepi32_ps(ownsInt(n))) : ownsUnsigned32f(n));
    }

    /// Of numbers of 15 bits in one instruction.
    static V smallSquare(V j) { return ownsAs<Zel32s>(_mm_madd_epi16(ownsInt(j), ownsInt(j))); }
    static V square(V j)
    {
        return limit <= 32767 ? smallSquare(j) : ownsAs<Zel32s>(_mm_mullo_epi32(ownsInt(j), ownsInt(j)));
    }

    /// The integer n * 4^shift never ties. It may wrap as its comparand does, since their difference is small,
    /// except where the result saturates, and there a step up is no harm.
    static V left(V n, int shift)
    {
        const OwnsVec<Zel32f> root = approximate(n) * static_cast<Zel32f>(1 << shift);
        const V j = ownsAs<Zel32s>(_mm_cvttps_epi32(root));
        const V exact = shift == 0 ? n : ownsAs<Zel32s>(_mm_sll_epi32(ownsInt(n), ownsCount(2 * shift)));
        return j - (exact - square(j) > j);
    }

    /// In units of 4^-shift the comparand is no integer, so n less (j^2 + j) * 4^shift is compared with
    /// 4^shift / 4. Equality is a tie, which an odd j decides by one more. The difference is below
    /// (j + 1.1) * 4^shift, which fits.
    static V right(V n, int shift)
    {
        const V j =
            ownsAs<Zel32s>(_mm_cvttps_epi32(approximate(n) * (1.0f / static_cast<Zel32f>(1 << shift))));
        const V lower = ownsAs<Zel32s>(_mm_sll_epi32(ownsInt(smallSquare(j) + j), ownsCount(2 * shift)));
        const int quarter = 1 << (2 * shift - 2);
        return j - (n - lower + (j & 1) > quarter);
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
