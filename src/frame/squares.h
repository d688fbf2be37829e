// Sums of squares of parts, exact for 16 bits: magnitudes, their comparisons and powers are made of them.
#pragma once

#include "frame/vec.h"

/// re^2 + im^2 of eight elements, those of the first four before the others. (-32768, -32768) gives 2^31, which
/// as a signed number is -2^31; all others fit.
struct OwnsSquares16 {
    OwnsVec<Zel32s> first, second;
};

/// Of pairs of parts.
inline OwnsVec<Zel32s> ownsSquaresOf(__m128i pairs)
{
    return ownsAs<Zel32s>(_mm_madd_epi16(pairs, pairs));
}

inline OwnsSquares16 ownsSquares(OwnsVec<Zel16s> re, OwnsVec<Zel16s> im)
{
    return {ownsSquaresOf(_mm_unpacklo_epi16(ownsInt(re), ownsInt(im))),
            ownsSquaresOf(_mm_unpackhi_epi16(ownsInt(re), ownsInt(im)))};
}
inline OwnsSquares16 ownsSquares(OwnsVecs<Zel16sc, 2> x)
{
    return {ownsSquaresOf(ownsInt(x.v[0])), ownsSquaresOf(ownsInt(x.v[1]))};
}

/// Of four elements, as they come for a destination of 32-bit elements.
inline OwnsVec<Zel32s> ownsSquares4(OwnsVec<Zel16s> re, OwnsVec<Zel16s> im)
{
    return ownsSquaresOf(_mm_unpacklo_epi16(ownsInt(re), ownsInt(im)));
}
inline OwnsVec<Zel32s> ownsSquares4(OwnsVec<Zel16s> x)
{
    return ownsSquaresOf(ownsInt(x));
}

/// 0 where the sum is 0, else 32767.
inline OwnsVec<Zel16s> ownsSaturatedUnlessZero(OwnsSquares16 n)
{
    const __m128i zero = _mm_setzero_si128();
    const __m128i isZero =
        _mm_packs_epi32(_mm_cmpeq_epi32(ownsInt(n.first), zero), _mm_cmpeq_epi32(ownsInt(n.second), zero));
    return ownsAs<Zel16s>(_mm_andnot_si128(isZero, _mm_set1_epi16(INT16_MAX)));
}

// Float parts: each product and the sum rounded.

template <class V>
inline V ownsSumOfSquares(V re, V im)
{
    return re * re + im * im;
}
inline OwnsVec<Zel32f> ownsSumOfSquares(OwnsVecs<Zel32fc, 2> x)
{
    const OwnsVec<Zel32f> low = x.v[0] * x.v[0];
    const OwnsVec<Zel32f> high = x.v[1] * x.v[1];
    return OwnsVec<Zel32f>(_mm_shuffle_ps(low, high, 0x88)) +
           OwnsVec<Zel32f>(_mm_shuffle_ps(low, high, 0xDD));
}
inline OwnsVec<Zel64f> ownsSumOfSquares(OwnsVecs<Zel64fc, 2> x)
{
    const OwnsVec<Zel64f> low = x.v[0] * x.v[0];
    const OwnsVec<Zel64f> high = x.v[1] * x.v[1];
    return OwnsVec<Zel64f>(_mm_unpacklo_pd(low, high)) + OwnsVec<Zel64f>(_mm_unpackhi_pd(low, high));
}
