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

/// |x|. The mask may stay in its register, which that of _mm_andnot_ps may not.
inline OwnsVec<Zel32f> ownsMagnitude32f(OwnsVec<Zel32f> x)
{
    return _mm_and_ps(x, _mm_castsi128_ps(_mm_set1_epi32(INT32_MAX)));
}

/// The float of each integer from 0 to 2^31. The last one wraps to -2^31, and only its sign is wrong then.
inline OwnsVec<Zel32f> ownsUnsigned32f(OwnsVec<Zel32s> n)
{
    return ownsMagnitude32f(_mm_cvtepi32_ps(ownsInt(n)));
}

/// sqrt(n) * 2^(-scaleFactor) for exact integers from 0 to 2^31, eight at a time, rounded to nearest with ties to
/// even and saturated to `limit`, the largest of a 16-bit type. With `isSigned` n is below 2^31.
///
/// A float root is off by less than 1/64, and so its integer part j has j - 1/64 < root < j + 1 + 1/64. The result
/// is j, or j + 1 from j + 1/2 on, where the square is j^2 + j + 1/4. Squares above `limit` do not fit, but whatever
/// the comparison says, j and j + 1 are large enough to saturate.
template <int limit, bool isSigned = false>
class OwnsIntegerRoot {
    using V = OwnsVec<Zel32s>;
    using F = OwnsVec<Zel32f>;

  public:
    static __m128i apply(OwnsUnscaled, V n0, V n1) { return pack(left(n0, 0), left(n1, 0)); }
    static __m128i apply(OwnsShiftedLeft path, V n0, V n1)
    {
        return pack(left(n0, path.shift), left(n1, path.shift));
    }
    // These two are to be run in the rounding mode to nearest.
    static __m128i apply(OwnsHalved, V n0, V n1) { return right(n0, n1, 1); }
    static __m128i apply(OwnsShiftedRight path, V n0, V n1) { return right(n0, n1, path.shift); }

  private:
    static F approximate(V n)
    {
        return _mm_sqrt_ps(isSigned ? F(_mm_cvtepi32_ps(ownsInt(n))) : ownsUnsigned32f(n));
    }
    static __m128i pack(V n0, V n1)
    {
        return limit == 32767 ? _mm_packs_epi32(ownsInt(n0), ownsInt(n1))
                              : _mm_packus_epi32(ownsInt(n0), ownsInt(n1));
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
        const F root = approximate(n) * static_cast<Zel32f>(1 << shift);
        const V j = ownsAs<Zel32s>(_mm_cvttps_epi32(root));
        const V exact = shift == 0 ? n : ownsAs<Zel32s>(_mm_sll_epi32(ownsInt(n), ownsCount(2 * shift)));
        return j - (ownsAs<Zel32s>(_mm_sub_epi32(ownsInt(exact), ownsInt(square(j)))) > j);
    }

    /// Floats settle all but some: where the float root is above a tie, n is above the tie's square, and below
    /// likewise. For the conversion and the root keep the order, and from the square of a tie they come out at the
    /// tie itself: it has 16 bits, and rounding its square takes the root off by less than half a unit. Only a float
    /// root that is a tie does not tell.
    static __m128i right(V n0, V n1, int shift)
    {
        // Whose last bit is 2^shift: sums end in the result.
        const F raiser = ownsSplat(static_cast<Zel32f>(3LL << (22 + shift)));
        const F root0 = approximate(n0);
        const F root1 = approximate(n1);
        const F raised0 = root0 + raiser;
        const F raised1 = root1 + raiser;
        const F rest0 = ownsMagnitude32f(root0 - (raised0 - raiser));
        const F rest1 = ownsMagnitude32f(root1 - (raised1 - raiser));
        const F half = ownsSplat(static_cast<Zel32f>(1 << (shift - 1)));
        if (_mm_movemask_ps(_mm_cmpeq_ps(_mm_max_ps(rest0, rest1), half)) != 0) [[unlikely]]
            return atTie(n0, n1, shift);
        return pack(ownsAs<Zel32s>(raised0) - ownsAs<Zel32s>(raiser),
                    ownsAs<Zel32s>(raised1) - ownsAs<Zel32s>(raiser));
    }
    [[gnu::noinline]] static __m128i atTie(V n0, V n1, int shift)
    {
        return pack(exactRight(n0, shift), exactRight(n1, shift));
    }

    /// In units of 4^-shift the comparand is no integer, so n less (j^2 + j) * 4^shift is compared with
    /// 4^shift / 4. Equality is a tie, which an odd j decides by one more. The difference is below
    /// (j + 1.1) * 4^shift, which fits.
    static V exactRight(V n, int shift)
    {
        const V j =
            ownsAs<Zel32s>(_mm_cvttps_epi32(approximate(n) * (1.0f / static_cast<Zel32f>(1 << shift))));
        const V lower = ownsAs<Zel32s>(_mm_sll_epi32(ownsInt(smallSquare(j) + j), ownsCount(2 * shift)));
        const int quarter = 1 << (2 * shift - 2);
        const V beyond = ownsAs<Zel32s>(_mm_sub_epi32(ownsInt(n), ownsInt(lower)));
        return j - (beyond + (j & 1) > quarter);
    }
};

/// The same for eight integers below 2^16, of 16 bits each, in every rounding mode.
///
/// A result R lies at least 1 / (8 R) away from any tie that it does not hit, and the float root is off by less than
/// that up to 1024; roots that tie are exact. Larger results come by their integer part j.
template <int limit>
class OwnsSmallIntegerRoot {
    using F = OwnsVec<Zel32f>;

  public:
    static __m128i apply(OwnsUnscaled, __m128i n) { return nearest(n, 1); }
    static __m128i apply(OwnsHalved, __m128i n) { return nearest(n, 0.5f); }
    static __m128i apply(OwnsShiftedRight path, __m128i n)
    {
        return nearest(n, 1.0f / static_cast<Zel32f>(1 << path.shift));
    }
    static __m128i apply(OwnsShiftedLeft path, __m128i n)
    {
        const auto factor = static_cast<Zel32f>(1 << path.shift);
        if (path.shift <= 2)
            return nearest(n, factor);
        if constexpr (limit > 32767) {
            const auto wide = [](__m128i half) { return ownsAs<Zel32s>(half); };
            return OwnsIntegerRoot<limit, true>::apply(path, wide(_mm_unpacklo_epi16(n, _mm_setzero_si128())),
                                                       wide(_mm_unpackhi_epi16(n, _mm_setzero_si128())));
        }
        // n * 4^shift, no tie, against j^2 + j, both even. The difference of their halves is at most j / 2 and a
        // hundred, so 16 bits of it are enough. All that is beyond `limit` saturates.
        const __m128i j = roots(n, [=](F root) { return _mm_cvttps_epi32(root * factor); });
        const __m128i half =
            _mm_mullo_epi16(n, _mm_set1_epi16(static_cast<Zel16s>(1u << (2 * path.shift - 1))));
        const __m128i below =
            _mm_mullo_epi16(_mm_avg_epu16(j, _mm_setzero_si128()), _mm_or_si128(j, _mm_set1_epi16(1)));
        return _mm_subs_epi16(j, _mm_cmpgt_epi16(_mm_sub_epi16(half, below), _mm_setzero_si128()));
    }

  private:
    template <class Rounding>
    static __m128i roots(__m128i n, Rounding rounding)
    {
        const auto four = [=](__m128i x) { return rounding(F(_mm_sqrt_ps(_mm_cvtepi32_ps(x)))); };
        const __m128i low = four(_mm_unpacklo_epi16(n, _mm_setzero_si128()));
        const __m128i high = four(_mm_unpackhi_epi16(n, _mm_setzero_si128()));
        return limit == 32767 ? _mm_packs_epi32(low, high) : _mm_packus_epi32(low, high);
    }
    static __m128i nearest(__m128i n, Zel32f factor)
    {
        return roots(n, [=](F root) { return _mm_cvttps_epi32(ownsRoundedNear(root * factor)); });
    }
};
