// Sums and differences of integers on every path of the scale factor.
//
// The exact value has one bit more than a lane. It is held as the floor of its half and the bit that was
// lost, so that no lane has to be widened: the floor comes from the identities a + b = 2 (a & b) + (a ^ b) and
// a - b = (a ^ b) - 2 (b & ~a), the lost bit is that of a ^ b. Unsigned sums have an instruction for the average,
// which is the ceiling. Unsigned differences fit a lane, since a negative one gives 0 on every path. Where the
// value is multiplied or saturated, the saturated one serves: it is beyond the range only where the result is.
#pragma once

#include "frame/scaleVec.h"
#include "frame/scaledMap.h"

namespace owns_detail {

inline OwnsVec<Zel32s> saturated32s(OwnsVec<Zel32s> wrapped, OwnsVec<Zel32s> overflowed, OwnsVec<Zel32s> sign)
{
    const OwnsVec<Zel32s> limit = (sign >> 31) ^ INT32_MAX;
    return ownsAs<Zel32s>(_mm_blendv_ps(ownsFloat(wrapped), ownsFloat(limit), ownsFloat(overflowed)));
}

} // namespace owns_detail

/// a + b, saturated; and the floor of its half, or the ceiling.
inline OwnsVec<Zel8u> ownsSumSaturated(OwnsVec<Zel8u> a, OwnsVec<Zel8u> b)
{
    return ownsAs<Zel8u>(_mm_adds_epu8(ownsInt(a), ownsInt(b)));
}
inline OwnsVec<Zel16u> ownsSumSaturated(OwnsVec<Zel16u> a, OwnsVec<Zel16u> b)
{
    return ownsAs<Zel16u>(_mm_adds_epu16(ownsInt(a), ownsInt(b)));
}
inline OwnsVec<Zel16s> ownsSumSaturated(OwnsVec<Zel16s> a, OwnsVec<Zel16s> b)
{
    return ownsAs<Zel16s>(_mm_adds_epi16(ownsInt(a), ownsInt(b)));
}
inline OwnsVec<Zel32s> ownsSumSaturated(OwnsVec<Zel32s> a, OwnsVec<Zel32s> b)
{
    const OwnsVec<Zel32s> sum = a + b;
    return owns_detail::saturated32s(sum, (sum ^ a) & (sum ^ b), a);
}

inline OwnsVec<Zel8u> ownsSumCeiling(OwnsVec<Zel8u> a, OwnsVec<Zel8u> b)
{
    return ownsAs<Zel8u>(_mm_avg_epu8(ownsInt(a), ownsInt(b)));
}
inline OwnsVec<Zel16u> ownsSumCeiling(OwnsVec<Zel16u> a, OwnsVec<Zel16u> b)
{
    return ownsAs<Zel16u>(_mm_avg_epu16(ownsInt(a), ownsInt(b)));
}
inline OwnsVec<Zel16s> ownsSumHalf(OwnsVec<Zel16s> a, OwnsVec<Zel16s> b)
{
    return (a & b) + ((a ^ b) >> 1);
}
inline OwnsVec<Zel32s> ownsSumHalf(OwnsVec<Zel32s> a, OwnsVec<Zel32s> b)
{
    return (a & b) + ((a ^ b) >> 1);
}

/// a - b, saturated; and the floor of its half.
inline OwnsVec<Zel8u> ownsDifferenceSaturated(OwnsVec<Zel8u> a, OwnsVec<Zel8u> b)
{
    return ownsAs<Zel8u>(_mm_subs_epu8(ownsInt(a), ownsInt(b)));
}
inline OwnsVec<Zel16u> ownsDifferenceSaturated(OwnsVec<Zel16u> a, OwnsVec<Zel16u> b)
{
    return ownsAs<Zel16u>(_mm_subs_epu16(ownsInt(a), ownsInt(b)));
}
inline OwnsVec<Zel16s> ownsDifferenceSaturated(OwnsVec<Zel16s> a, OwnsVec<Zel16s> b)
{
    return ownsAs<Zel16s>(_mm_subs_epi16(ownsInt(a), ownsInt(b)));
}
inline OwnsVec<Zel32s> ownsDifferenceSaturated(OwnsVec<Zel32s> a, OwnsVec<Zel32s> b)
{
    const OwnsVec<Zel32s> difference = a - b;
    return owns_detail::saturated32s(difference, (difference ^ a) & (a ^ b), a);
}

inline OwnsVec<Zel16s> ownsDifferenceHalf(OwnsVec<Zel16s> a, OwnsVec<Zel16s> b)
{
    return ((a ^ b) >> 1) - (b & ~a);
}
inline OwnsVec<Zel32s> ownsDifferenceHalf(OwnsVec<Zel32s> a, OwnsVec<Zel32s> b)
{
    return ((a ^ b) >> 1) - (b & ~a);
}

/// Half of a sum, rounded: the ceiling, or the even number below it.
template <class T>
inline OwnsVec<T> ownsSumHalved(OwnsVec<T> a, OwnsVec<T> b)
{
    if constexpr (std::is_unsigned_v<T>)
        return ownsSumCeiling(a, b) & ~((a ^ b) & 1);
    else
        return ownsHalvedEven(ownsSumHalf(a, b), a ^ b);
}

/// Half of a sum over 2^shift, rounded; see ownsRoundedRight. The ceiling is one more than the floor where a bit
/// was lost, so that it loses one there, or where it is an even tie.
template <class T>
inline OwnsVec<T> ownsSumRounded(OwnsVec<T> a, OwnsVec<T> b, int shift)
{
    if constexpr (std::is_unsigned_v<T>) {
        const __m128i ceiling = ownsInt(ownsSumCeiling(a, b));
        const __m128i one = ownsInt(ownsSplat<T>(1));
        const __m128i quotient = ownsQuotient16(ceiling, sizeof(T) == 1 && shift >= 8 ? 0 : shift);
        const __m128i less = _mm_andnot_si128(_mm_andnot_si128(ownsInt(a ^ b), quotient), one);
        if constexpr (sizeof(T) == 1)
            return ownsRoundedAverage(_mm_subs_epu8(ceiling, less), shift);
        else
            return ownsRoundedAverage16(_mm_subs_epu16(ceiling, less), shift);
    } else {
        return ownsRoundedRight(ownsSumHalf(a, b), a ^ b, shift);
    }
}

/// a + b on vectors of T.
template <class T>
struct OwnsSum {
    using V = OwnsVec<T>;
    static V apply(OwnsUnscaled, V a, V b) { return ownsSumSaturated(a, b); }
    static V apply(OwnsHalved, V a, V b) { return ownsSumHalved<T>(a, b); }
    static V apply(OwnsShiftedRight path, V a, V b) { return ownsSumRounded<T>(a, b, path.shift - 1); }
    static V apply(OwnsShiftedLeft path, V a, V b)
    {
        return ownsShiftedLeft(ownsSumSaturated(a, b), path.shift);
    }
    static V apply(OwnsBySign, V a, V b) { return ownsSaturatedBySign(ownsSumSaturated(a, b)); }
};

/// a - b on vectors of T.
template <class T>
struct OwnsDifference {
    using V = OwnsVec<T>;
    static V apply(OwnsUnscaled, V a, V b) { return ownsDifferenceSaturated(a, b); }
    static V apply(OwnsHalved, V a, V b)
    {
        if constexpr (std::is_unsigned_v<T>)
            return ownsSumHalved<T>(ownsDifferenceSaturated(a, b), V{});
        else
            return ownsHalvedEven(ownsDifferenceHalf(a, b), a ^ b);
    }
    static V apply(OwnsShiftedRight path, V a, V b)
    {
        if constexpr (std::is_same_v<T, Zel16u>)
            return ownsRoundedRight(ownsDifferenceSaturated(a, b), path.shift);
        else if constexpr (std::is_unsigned_v<T>)
            return ownsRoundedRight(ownsDifferenceSaturated(a, b), V{}, path.shift);
        else
            return ownsRoundedRight(ownsDifferenceHalf(a, b), a ^ b, path.shift - 1);
    }
    static V apply(OwnsShiftedLeft path, V a, V b)
    {
        return ownsShiftedLeft(ownsDifferenceSaturated(a, b), path.shift);
    }
    static V apply(OwnsBySign, V a, V b) { return ownsSaturatedBySign(ownsDifferenceSaturated(a, b)); }
};

/// The left shift of 16-bit sums: pairs of elements times 2^shift, and that or its negative.
inline OwnsVec<Zel16s> ownsPairsShiftedLeft(OwnsVec<Zel16s> a, OwnsVec<Zel16s> b, int factorOfA,
                                            int factorOfB)
{
    const __m128i factors = _mm_set1_epi32((factorOfA & 0xFFFF) | factorOfB * 65536);
    return ownsAs<Zel16s>(
        _mm_packs_epi32(_mm_madd_epi16(_mm_unpacklo_epi16(ownsInt(a), ownsInt(b)), factors),
                        _mm_madd_epi16(_mm_unpackhi_epi16(ownsInt(a), ownsInt(b)), factors)));
}

/// The 16-bit signed forms. Left shifts by 15 saturate all but 0, as by sign.
struct OwnsSum16s : OwnsSum<Zel16s> {
    using OwnsSum<Zel16s>::apply;
    static constexpr int mostLeft = 14;
    static V apply(OwnsShiftedLeft path, V a, V b)
    {
        return ownsPairsShiftedLeft(a, b, 1 << path.shift, 1 << path.shift);
    }
};
struct OwnsDifference16s : OwnsDifference<Zel16s> {
    using OwnsDifference<Zel16s>::apply;
    static constexpr int mostLeft = 14;
    static V apply(OwnsShiftedLeft path, V a, V b)
    {
        return ownsPairsShiftedLeft(a, b, 1 << path.shift, -(1 << path.shift));
    }
};

// The left shift of 32-bit sums. A sum that fits after the shift is from -2^(31 - shift) on and below the
// opposite of that. From b follow the bounds of an a with such a sum, and one more at the upper end: that comes
// out as the least value, and one less then as the largest. A bound that no a can be beyond is the end of the
// range.

/// c * 2^shift, saturated, where c is no more than `end` in magnitude, 2^(31 - shift).
inline OwnsVec<Zel32s> ownsBoundedShiftedLeft(OwnsVec<Zel32s> c, int end, int shift)
{
    return ownsAs<Zel32s>(_mm_sll_epi32(ownsInt(c), ownsCount(shift))) + (c == end);
}
inline OwnsVec<Zel32s> ownsMin(OwnsVec<Zel32s> a, OwnsVec<Zel32s> b)
{
    return ownsAs<Zel32s>(_mm_min_epi32(ownsInt(a), ownsInt(b)));
}
inline OwnsVec<Zel32s> ownsMax(OwnsVec<Zel32s> a, OwnsVec<Zel32s> b)
{
    return ownsAs<Zel32s>(_mm_max_epi32(ownsInt(a), ownsInt(b)));
}

struct OwnsSum32s : OwnsSum<Zel32s> {
    using OwnsSum<Zel32s>::apply;
    static V apply(OwnsShiftedLeft path, V a, V b)
    {
        const int end = 1 << (31 - path.shift);
        const V least = -end - ownsMin(b, ownsSplat(INT32_MAX - end + 1));
        const V most = end - ownsMax(b, ownsSplat(end - INT32_MAX));
        return ownsBoundedShiftedLeft(ownsMax(ownsMin(a, most), least) + b, end, path.shift);
    }
};
struct OwnsDifference32s : OwnsDifference<Zel32s> {
    using OwnsDifference<Zel32s>::apply;
    static V apply(OwnsShiftedLeft path, V a, V b)
    {
        const int end = 1 << (31 - path.shift);
        const V least = ownsMax(b, ownsSplat(INT32_MIN + end)) - end;
        const V most = ownsMin(b, ownsSplat(INT32_MAX - end)) + end;
        return ownsBoundedShiftedLeft(ownsMax(ownsMin(a, most), least) - b, end, path.shift);
    }
};

/// The entry of a sum or difference with a constant. Without a scale factor a constant of 0 makes it a copy,
/// and in place nothing at all.
template <OwnsScaleLimits limits, OwnsShape shape, class Op, class T>
[[gnu::always_inline]] inline ZelStatus ownsRunSumC(int scaleFactor, T* pDst, int len, const T* pSrc, T val)
{
    if (const ZelStatus status = ownsCheck(len, pSrc, pDst); status != zelStatusOk)
        return status;
    if (scaleFactor == 0 && ownsIsZero(val)) {
        if (pSrc != pDst)
            ownsCopy(pSrc, pDst, len);
        return zelStatusOk;
    }
    return ownsMapScaled<limits, shape, Op>(scaleFactor, pDst, len, pSrc, val);
}
