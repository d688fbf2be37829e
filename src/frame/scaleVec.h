// The scale-factor rule on vectors of exact 32- and 64-bit values: the steps that the kernels of a path are
// made of. See scaleFactor.h for the rule.
//
// Rounding. A shift to nearest with ties to even is a shift to nearest with ties upward of a value that was
// made one less wherever it is an even tie, that is, wherever its low bits from the shift on down are
// 0 1 0...0. One shift and one comparison find these; the subtraction cannot borrow from the bits above.
#pragma once

#include "frame/vec.h"

/// A shift count for the instructions that take one for all lanes.
inline __m128i ownsCount(int count)
{
    return _mm_cvtsi32_si128(count);
}

/// x / 2^shift to nearest, ties to even; 2 <= shift <= 31, any x.
inline OwnsVec<Zel32s> ownsRoundedRight(OwnsVec<Zel32s> x, int shift)
{
    const __m128i evenTie =
        _mm_cmpeq_epi32(_mm_sll_epi32(ownsInt(x), ownsCount(31 - shift)), _mm_set1_epi32(1 << 30));
    const __m128i twice = _mm_sra_epi32(_mm_add_epi32(ownsInt(x), evenTie), ownsCount(shift - 1));
    return ownsAs<Zel32s>(_mm_srai_epi32(_mm_sub_epi32(twice, _mm_set1_epi32(-1)), 1));
}
inline OwnsVec<Zel32u> ownsRoundedRight(OwnsVec<Zel32u> x, int shift)
{
    const __m128i evenTie =
        _mm_cmpeq_epi32(_mm_sll_epi32(ownsInt(x), ownsCount(31 - shift)), _mm_set1_epi32(1 << 30));
    const __m128i twice = _mm_srl_epi32(_mm_add_epi32(ownsInt(x), evenTie), ownsCount(shift - 1));
    return ownsAs<Zel32u>(_mm_srli_epi32(_mm_sub_epi32(twice, _mm_set1_epi32(-1)), 1));
}

/// The same where x + 2^(shift - 1) is known to fit 32 bits; 1 <= shift <= 31.
inline OwnsVec<Zel32s> ownsRoundedRightSmall(OwnsVec<Zel32s> x, int shift)
{
    const __m128i evenTie =
        _mm_cmpeq_epi32(_mm_sll_epi32(ownsInt(x), ownsCount(31 - shift)), _mm_set1_epi32(1 << 30));
    const __m128i raised =
        _mm_add_epi32(_mm_add_epi32(ownsInt(x), evenTie), _mm_set1_epi32(1 << (shift - 1)));
    return ownsAs<Zel32s>(_mm_sra_epi32(raised, ownsCount(shift)));
}

/// x / 2 to nearest, ties to even.
inline OwnsVec<Zel32s> ownsHalvedEven(OwnsVec<Zel32s> x)
{
    const OwnsVec<Zel32s> floor = x >> 1;
    return floor + (x & floor & 1);
}
inline OwnsVec<Zel32u> ownsHalvedEven(OwnsVec<Zel32u> x)
{
    const OwnsVec<Zel32u> floor = x >> 1;
    return floor + (x & floor & 1u);
}

/// `exact` where it is right; where it is not, the end of the range that the sign of `sign` names.
inline OwnsVec<Zel32s> ownsOrSaturated(OwnsVec<Zel32s> exact, OwnsVec<Zel32s> isRight, OwnsVec<Zel32s> sign)
{
    const __m128i limit = _mm_xor_si128(_mm_srai_epi32(ownsInt(sign), 31), _mm_set1_epi32(INT32_MAX));
    return ownsAs<Zel32s>(_mm_blendv_epi8(limit, ownsInt(exact), ownsInt(isRight)));
}

/// x * 2^shift, saturated; 0 <= shift <= 31.
inline OwnsVec<Zel32s> ownsShiftedLeft(OwnsVec<Zel32s> x, int shift)
{
    const __m128i shifted = _mm_sll_epi32(ownsInt(x), ownsCount(shift));
    const __m128i back = _mm_sra_epi32(shifted, ownsCount(shift));
    return ownsOrSaturated(ownsAs<Zel32s>(shifted), ownsAs<Zel32s>(_mm_cmpeq_epi32(back, ownsInt(x))), x);
}

/// 0 where x is 0, else the end of the range that its sign names.
inline OwnsVec<Zel32s> ownsSaturatedBySign(OwnsVec<Zel32s> x)
{
    const OwnsVec<Zel32s> zero{};
    return ownsOrSaturated(x, x == zero, x);
}
