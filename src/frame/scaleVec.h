// The scale-factor rule on vectors: the steps that the kernels of a path are made of (scaleFactor.h has the
// rule and the paths).
//
// Rounding. A shift to nearest with ties to even is a shift to nearest with ties upward of a value that was
// made one less wherever it is an even tie, that is, wherever its low bits from bit `shift` on down are
// 0 1 0...0. One mask and one comparison find these, and the subtraction cannot borrow from the bits above.
#pragma once

#include "frame/vec.h"

/// A shift count for the instructions that take one for all lanes.
inline __m128i ownsCount(int count)
{
    return _mm_cvtsi32_si128(count);
}

/// All ones where a lane is negative.
inline __m128i ownsNegative(OwnsVec<Zel32s> x)
{
    return _mm_cmpgt_epi32(_mm_setzero_si128(), ownsInt(x));
}

// Exact values in 32-bit lanes.

/// x / 2^shift, rounded; 2 <= shift <= 31, any x.
inline OwnsVec<Zel32s> ownsRoundedRight(OwnsVec<Zel32s> x, int shift)
{
    const __m128i below = _mm_set1_epi32(static_cast<int>((2u << shift) - 1));
    const __m128i evenTie =
        _mm_cmpeq_epi32(_mm_and_si128(ownsInt(x), below), _mm_set1_epi32(1 << (shift - 1)));
    const __m128i twice = _mm_sra_epi32(_mm_add_epi32(ownsInt(x), evenTie), ownsCount(shift - 1));
    return ownsAs<Zel32s>(_mm_srai_epi32(_mm_sub_epi32(twice, _mm_set1_epi32(-1)), 1));
}
inline OwnsVec<Zel32u> ownsRoundedRight(OwnsVec<Zel32u> x, int shift)
{
    const __m128i below = _mm_set1_epi32(static_cast<int>((2u << shift) - 1));
    const __m128i evenTie =
        _mm_cmpeq_epi32(_mm_and_si128(ownsInt(x), below), _mm_set1_epi32(1 << (shift - 1)));
    const __m128i twice = _mm_srl_epi32(_mm_add_epi32(ownsInt(x), evenTie), ownsCount(shift - 1));
    return ownsAs<Zel32u>(_mm_srli_epi32(_mm_sub_epi32(twice, _mm_set1_epi32(-1)), 1));
}

/// The same where x + 2^(shift - 1) is known to fit 32 bits; 1 <= shift <= 30.
inline OwnsVec<Zel32s> ownsRoundedRightSmall(OwnsVec<Zel32s> x, int shift)
{
    const __m128i below = _mm_set1_epi32(static_cast<int>((2u << shift) - 1));
    const __m128i half = _mm_set1_epi32(1 << (shift - 1));
    const __m128i evenTie = _mm_cmpeq_epi32(_mm_and_si128(ownsInt(x), below), half);
    return ownsAs<Zel32s>(
        _mm_sra_epi32(_mm_add_epi32(_mm_add_epi32(ownsInt(x), evenTie), half), ownsCount(shift)));
}

/// x / 2, rounded.
inline OwnsVec<Zel32s> ownsHalvedEven(OwnsVec<Zel32s> x)
{
    const OwnsVec<Zel32s> floor = x >> 1;
    return floor + (x & floor & 1);
}

inline OwnsVec<Zel32u> ownsHalvedEven(OwnsVec<Zel32u> x)
{
    const OwnsVec<Zel32u> floor = x >> 1;
    return floor + (x & floor & 1);
}

// Exact values of one bit more than a lane holds: twice `floor` plus the lowest bit of `lost`. The sum or
// difference of two elements is such a value.

/// Half of the value, rounded. Only the difference of the ends of a signed range comes out beyond the range,
/// by one, and saturates.
inline OwnsVec<Zel8u> ownsHalvedEven(OwnsVec<Zel8u> floor, OwnsVec<Zel8u> lost)
{
    return floor + (floor & lost & 1);
}
inline OwnsVec<Zel16u> ownsHalvedEven(OwnsVec<Zel16u> floor, OwnsVec<Zel16u> lost)
{
    return floor + (floor & lost & 1);
}
inline OwnsVec<Zel16s> ownsHalvedEven(OwnsVec<Zel16s> floor, OwnsVec<Zel16s> lost)
{
    return ownsAs<Zel16s>(_mm_adds_epi16(ownsInt(floor), ownsInt(floor & lost & 1)));
}
inline OwnsVec<Zel32s> ownsHalvedEven(OwnsVec<Zel32s> floor, OwnsVec<Zel32s> lost)
{
    const OwnsVec<Zel32s> rounded = floor + (floor & lost & 1);
    return rounded + (floor > rounded);
}

/// Half of the value over 2^shift, rounded; 1 <= shift <= the bits of a lane less one, and up to all of them
/// for unsigned lanes.
///
/// What is not an even tie, and so shall not lose one before it is rounded with ties upward, has a lost bit
/// or an odd quotient. Where the subtraction saturates at the lower end nothing rounds differently. The parity
/// of the quotient comes from a product, since a shift by a count in a register takes two steps on many
/// processors. Unsigned lanes round by an average, which has room for the carry, signed 16-bit lanes by a
/// rounding product.
inline __m128i ownsQuotient16(__m128i x, int shift)
{
    return _mm_mulhi_epu16(x, _mm_set1_epi16(static_cast<short>(1 << (16 - shift))));
}
inline OwnsVec<Zel8u> ownsRoundedAverage(__m128i lessened, int shift)
{
    const __m128i bias = _mm_set1_epi8(static_cast<char>((1 << (shift - 1)) - 1));
    const __m128i raised = _mm_srl_epi16(_mm_avg_epu8(lessened, bias), ownsCount(shift - 1));
    return ownsAs<Zel8u>(_mm_and_si128(raised, _mm_set1_epi8(static_cast<char>(0xff >> (shift - 1)))));
}
inline OwnsVec<Zel8u> ownsRoundedRight(OwnsVec<Zel8u> floor, OwnsVec<Zel8u> lost, int shift)
{
    // From shift 8 on bit 0 of a lane would come from its neighbour; the quotient is 0 there.
    const __m128i quotient = ownsQuotient16(ownsInt(floor), shift < 8 ? shift : 0);
    const __m128i less = _mm_andnot_si128(_mm_or_si128(quotient, ownsInt(lost)), _mm_set1_epi8(1));
    return ownsRoundedAverage(_mm_subs_epu8(ownsInt(floor), less), shift);
}
inline OwnsVec<Zel16u> ownsRoundedAverage16(__m128i lessened, int shift)
{
    const __m128i bias = _mm_set1_epi16(static_cast<short>((1 << (shift - 1)) - 1));
    return ownsAs<Zel16u>(_mm_srl_epi16(_mm_avg_epu16(lessened, bias), ownsCount(shift - 1)));
}
inline __m128i ownsEvenTiesLessened(OwnsVec<Zel16u> floor, OwnsVec<Zel16u> lost, int shift)
{
    const __m128i quotient = ownsQuotient16(ownsInt(floor), shift);
    const __m128i less = _mm_andnot_si128(_mm_or_si128(quotient, ownsInt(lost)), _mm_set1_epi16(1));
    return _mm_subs_epu16(ownsInt(floor), less);
}
inline OwnsVec<Zel16u> ownsRoundedRight(OwnsVec<Zel16u> floor, OwnsVec<Zel16u> lost, int shift)
{
    return ownsRoundedAverage16(ownsEvenTiesLessened(floor, lost, shift), shift);
}
/// x / 2^shift, rounded; 2 <= shift <= 16, so that a product serves for what is left to shift, too.
inline OwnsVec<Zel16u> ownsRoundedRight(OwnsVec<Zel16u> x, int shift)
{
    const __m128i bias = _mm_set1_epi16(static_cast<short>((1 << (shift - 1)) - 1));
    const __m128i average = _mm_avg_epu16(ownsEvenTiesLessened(x, OwnsVec<Zel16u>{}, shift), bias);
    return ownsAs<Zel16u>(ownsQuotient16(average, shift - 1));
}
inline OwnsVec<Zel16s> ownsRoundedRight(OwnsVec<Zel16s> floor, OwnsVec<Zel16s> lost, int shift)
{
    const __m128i quotient = ownsQuotient16(ownsInt(floor), shift);
    const __m128i less = _mm_andnot_si128(_mm_or_si128(quotient, ownsInt(lost)), _mm_set1_epi16(1));
    const __m128i factor = _mm_set1_epi16(static_cast<short>(1 << (15 - shift)));
    return ownsAs<Zel16s>(_mm_mulhrs_epi16(_mm_subs_epi16(ownsInt(floor), less), factor));
}
inline OwnsVec<Zel32s> ownsRoundedRight(OwnsVec<Zel32s> floor, OwnsVec<Zel32s> lost, int shift)
{
    const OwnsVec<Zel32s> quotient = ownsAs<Zel32s>(_mm_sra_epi32(ownsInt(floor), ownsCount(shift)));
    const OwnsVec<Zel32s> rest = ownsAs<Zel32s>(_mm_sll_epi32(ownsInt(floor), ownsCount(32 - shift)));
    const OwnsVec<Zel32s> overHalf = rest ^ INT32_MIN;
    return quotient - (overHalf + ((quotient | lost) & 1) > 0);
}

// Saturation.

/// `exact` where `isRight` is all ones; elsewhere the end of the range that the sign of `sign` names.
inline OwnsVec<Zel32s> ownsOrSaturated(OwnsVec<Zel32s> exact, __m128i isRight, OwnsVec<Zel32s> sign)
{
    const __m128i limit = _mm_xor_si128(ownsNegative(sign), _mm_set1_epi32(INT32_MAX));
    return ownsAs<Zel32s>(_mm_blendv_epi8(limit, ownsInt(exact), isRight));
}

/// x * 2^shift, saturated; 1 <= shift < the bits of a lane, in 16u lanes also 0.
///
/// Signed lanes are bounded to what fits, and one more at the upper end: that becomes the least value, and one
/// less then the largest.
inline OwnsVec<Zel8u> ownsShiftedLeft(OwnsVec<Zel8u> x, int shift)
{
    const __m128i most = _mm_set1_epi8(static_cast<char>(0xff >> shift));
    const __m128i bounded = _mm_min_epu8(ownsInt(x), most);
    const __m128i fits = _mm_cmpeq_epi8(bounded, ownsInt(x));
    return ownsAs<Zel8u>(_mm_or_si128(_mm_sll_epi16(bounded, ownsCount(shift)), ~fits));
}
inline OwnsVec<Zel16u> ownsShiftedLeft(OwnsVec<Zel16u> x, int shift)
{
    const __m128i factor = _mm_set1_epi16(static_cast<short>(1 << shift));
    const __m128i beyond = _mm_cmpgt_epi16(_mm_mulhi_epu16(ownsInt(x), factor), _mm_setzero_si128());
    return ownsAs<Zel16u>(_mm_or_si128(_mm_mullo_epi16(ownsInt(x), factor), beyond));
}
inline OwnsVec<Zel16s> ownsShiftedLeft(OwnsVec<Zel16s> x, int shift)
{
    const __m128i end = _mm_set1_epi16(static_cast<short>(1 << (15 - shift)));
    const __m128i least = _mm_set1_epi16(static_cast<short>(-(1 << (15 - shift))));
    const __m128i beyond =
        _mm_cmpgt_epi16(ownsInt(x), _mm_set1_epi16(static_cast<short>((1 << (15 - shift)) - 1)));
    const __m128i bounded = _mm_max_epi16(_mm_min_epi16(ownsInt(x), end), least);
    const __m128i shifted = _mm_mullo_epi16(bounded, _mm_set1_epi16(static_cast<short>(1 << shift)));
    return ownsAs<Zel16s>(_mm_add_epi16(shifted, beyond));
}
inline OwnsVec<Zel32s> ownsShiftedLeft(OwnsVec<Zel32s> x, int shift)
{
    const __m128i end = _mm_set1_epi32(1 << (31 - shift));
    const __m128i least = _mm_set1_epi32(-(1 << (31 - shift)));
    const __m128i beyond = _mm_cmpgt_epi32(ownsInt(x), _mm_set1_epi32((1 << (31 - shift)) - 1));
    const __m128i bounded = _mm_max_epi32(_mm_min_epi32(ownsInt(x), end), least);
    return ownsAs<Zel32s>(_mm_add_epi32(_mm_sll_epi32(bounded, ownsCount(shift)), beyond));
}
inline OwnsVec<Zel32u> ownsShiftedLeft(OwnsVec<Zel32u> x, int shift)
{
    const __m128i beyond = _mm_srl_epi32(ownsInt(x), ownsCount(32 - shift));
    const __m128i fits = _mm_cmpeq_epi32(beyond, _mm_setzero_si128());
    return ownsAs<Zel32u>(_mm_or_si128(_mm_sll_epi32(ownsInt(x), ownsCount(shift)), ~fits));
}

/// 0 where x is 0, else the end of the range that its sign names.
inline OwnsVec<Zel8u> ownsSaturatedBySign(OwnsVec<Zel8u> x)
{
    return ownsAs<Zel8u>(~_mm_cmpeq_epi8(ownsInt(x), _mm_setzero_si128()));
}
inline OwnsVec<Zel16u> ownsSaturatedBySign(OwnsVec<Zel16u> x)
{
    return ownsAs<Zel16u>(~_mm_cmpeq_epi16(ownsInt(x), _mm_setzero_si128()));
}
inline OwnsVec<Zel16s> ownsSaturatedBySign(OwnsVec<Zel16s> x)
{
    const __m128i positive = _mm_cmpgt_epi16(ownsInt(x), _mm_setzero_si128());
    return ownsAs<Zel16s>(_mm_srli_epi16(positive, 1)) | (x & INT16_MIN);
}
inline OwnsVec<Zel32s> ownsSaturatedBySign(OwnsVec<Zel32s> x)
{
    const __m128i positive = _mm_cmpgt_epi32(ownsInt(x), _mm_setzero_si128());
    return ownsAs<Zel32s>(_mm_srli_epi32(positive, 1)) | (x & INT32_MIN);
}
inline OwnsVec<Zel32u> ownsSaturatedBySign(OwnsVec<Zel32u> x)
{
    return ownsAs<Zel32u>(~_mm_cmpeq_epi32(ownsInt(x), _mm_setzero_si128()));
}
