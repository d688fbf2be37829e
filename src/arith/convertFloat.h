// From floats to 32-bit integers under a rounding selector: the steps that all conversions from float share.
#pragma once

#include "frame/map.h"
#include "frame/roundingMode.h"
#include "frame/scale.h"

/// One half with the sign of x added, the "financial" step before truncation.
inline OwnsVec<Zel32f> ownsWithHalf(OwnsVec<Zel32f> x)
{
    return x + _mm_or_ps(_mm_and_ps(x, _mm_set1_ps(-0.0f)), _mm_set1_ps(0.5f));
}
inline OwnsVec<Zel64f> ownsWithHalf(OwnsVec<Zel64f> x)
{
    return x + _mm_or_pd(_mm_and_pd(x, _mm_set1_pd(-0.0)), _mm_set1_pd(0.5));
}

// From floats to integers by a selector. What cannot be held becomes the most negative integer.

/// Toward zero.
struct OwnsTowardZero {
    static __m128i integers(OwnsVec<Zel32f> x) { return _mm_cvttps_epi32(x); }
    static __m128i integers(OwnsVec<Zel64f> x) { return _mm_cvttpd_epi32(x); }
    static Zel64s integer(OwnsVec<Zel64f> x) { return _mm_cvttsd_si64(x); }
};

/// To nearest, ties to even: by the processor's mode, which must be that.
struct OwnsToNearest {
    static __m128i integers(OwnsVec<Zel32f> x) { return _mm_cvtps_epi32(x); }
    static __m128i integers(OwnsVec<Zel64f> x) { return _mm_cvtpd_epi32(x); }
    static Zel64s integer(OwnsVec<Zel64f> x) { return _mm_cvtsd_si64(x); }
};

/// One half with the sign of the value added, then toward zero. The sum is rounded to nearest itself, so that a
/// value just below one half does cross.
struct OwnsFinancial {
    static __m128i integers(OwnsVec<Zel32f> x) { return _mm_cvttps_epi32(ownsWithHalf(x)); }
    static __m128i integers(OwnsVec<Zel64f> x) { return _mm_cvttpd_epi32(ownsWithHalf(x)); }
    static Zel64s integer(OwnsVec<Zel64f> x) { return _mm_cvttsd_si64(ownsWithHalf(x)); }
};

/// Calls `body` with the rounding of a selector, in the processor's mode that it needs.
template <class Body>
[[gnu::always_inline]] inline void ownsWithRounding(ZelRoundMode rnd, Body body)
{
    if (rnd == zelRndZero)
        return body(OwnsTowardZero{});
    const OwnsNearestMode nearest;
    if (rnd == zelRndNear)
        body(OwnsToNearest{});
    else
        body(OwnsFinancial{});
}

/// Four integers from doubles.
template <class Round>
inline __m128i ownsIntegers(OwnsVec<Zel64f> low, OwnsVec<Zel64f> high)
{
    return _mm_unpacklo_epi64(Round::integers(low), Round::integers(high));
}

/// Packs 32-bit integers by saturation: as many vectors as one of D takes.
template <class D>
inline OwnsVec<D> ownsPacked(const __m128i (&x)[4 / sizeof(D)])
{
    if constexpr (sizeof(D) == 4) {
        return ownsAs<D>(x[0]);
    } else if constexpr (sizeof(D) == 2) {
        return ownsAs<D>(std::is_signed_v<D> ? _mm_packs_epi32(x[0], x[1]) : _mm_packus_epi32(x[0], x[1]));
    } else {
        const __m128i low = _mm_packs_epi32(x[0], x[1]);
        const __m128i high = _mm_packs_epi32(x[2], x[3]);
        return ownsAs<D>(std::is_signed_v<D> ? _mm_packs_epi16(low, high) : _mm_packus_epi16(low, high));
    }
}
