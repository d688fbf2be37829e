// Scaled quotients of 16-bit complex integers: b times the conjugate of a, over the sum of squares of a.
#pragma once

#include "arith/division.h"

/// Four divisors: the sums of squares, at most 2^31 (and then wrapped), and how to multiply by the conjugate.
class OwnsComplexDivisors {
  public:
    explicit OwnsComplexDivisors(OwnsVec<Zel16s> a)
        : forReal(ownsInt(a)),
          // (bi, br) times (ar, -ai) is bi*ar - br*ai. A part has no negative of its own where it is -32768;
          // its complement has, and is one less.
          forImaginary(_mm_xor_si128(swapped(ownsInt(a)), _mm_set1_epi32(0x0000FFFF))),
          squares(_mm_madd_epi16(forReal, forReal)), isZero(_mm_cmpeq_epi32(forReal, _mm_setzero_si128()))
    {
    }

    /// b times the conjugate, each part in 32 bits; where a is zero, b itself. The one real part that does not
    /// fit, 2^31, is taken for 2^31 - 1: over its sum of squares, 2^31, that gives the same result by every
    /// factor.
    struct Parts {
        __m128i re, im;
    };
    Parts numerators(OwnsVec<Zel16s> v) const
    {
        const __m128i b = ownsInt(v);
        const __m128i bRe = _mm_srai_epi32(_mm_slli_epi32(b, 16), 16);
        const __m128i bIm = _mm_srai_epi32(b, 16);
        const __m128i re = _mm_madd_epi16(b, forReal);
        const __m128i wrapped = _mm_cmpeq_epi32(re, _mm_set1_epi32(INT32_MIN));
        const __m128i im = _mm_add_epi32(_mm_madd_epi16(b, forImaginary), bRe);
        return {_mm_blendv_epi8(_mm_xor_si128(re, wrapped), bRe, isZero), _mm_blendv_epi8(im, bIm, isZero)};
    }
    OwnsVec<Zel64f> low() const { return magnitude(_mm_cvtepi32_pd(squares)); }
    OwnsVec<Zel64f> high() const { return magnitude(_mm_cvtepi32_pd(_mm_unpackhi_epi64(squares, squares))); }
    __m128i zeros() const { return isZero; }

  private:
    static __m128i swapped(__m128i x) { return _mm_or_si128(_mm_slli_epi32(x, 16), _mm_srli_epi32(x, 16)); }
    static OwnsVec<Zel64f> magnitude(__m128d x) { return _mm_andnot_pd(_mm_set1_pd(-0.0), x); }

    __m128i forReal, forImaginary, squares, isZero;
};

/// Real and imaginary parts of four results in 32-bit lanes, packed into elements.
inline OwnsVec<Zel16s> ownsPackedParts(__m128i re, __m128i im)
{
    return ownsAs<Zel16s>(_mm_shuffle_epi8(
        _mm_packs_epi32(re, im), _mm_setr_epi8(0, 1, 8, 9, 2, 3, 10, 11, 4, 5, 12, 13, 6, 7, 14, 15)));
}

// The operations on a divisor and four dividends: within the range of scale factors, above it, below it.

struct OwnsDivideComplex {
    static constexpr OwnsCode code = OwnsCode::compact;
    OwnsQuotients<Zel64f, OwnsToNearest> quotients;

    OwnsVec<Zel16s> operator()(const OwnsComplexDivisors& a, OwnsVec<Zel16s> b) const
    {
        const auto [re, im] = a.numerators(b);
        const auto part = [&](__m128i numerator) {
            const __m128i isZero = _mm_cmpeq_epi32(numerator, _mm_setzero_si128());
            return _mm_andnot_si128(isZero, quotients.of(a.low(), a.high(), numerator));
        };
        return ownsPackedParts(part(re), part(im));
    }
};

struct OwnsDivideComplexToZero {
    static constexpr OwnsCode code = OwnsCode::least;
    OwnsVec<Zel16s> operator()(const OwnsComplexDivisors& a, OwnsVec<Zel16s> b) const
    {
        return ownsSaturatedBySign(b & ownsAs<Zel16s>(a.zeros()));
    }
};

struct OwnsDivideComplexBySign {
    static constexpr OwnsCode code = OwnsCode::least;
    OwnsVec<Zel16s> operator()(const OwnsComplexDivisors& a, OwnsVec<Zel16s> b) const
    {
        const auto [re, im] = a.numerators(b);
        return ownsPackedParts(ownsInt(ownsSaturatedBySign(ownsAs<Zel32s>(re))),
                               ownsInt(ownsSaturatedBySign(ownsAs<Zel32s>(im))));
    }
};

/// Chooses the operation by the factor, and calls `body` with it.
template <class Body>
[[gnu::always_inline]] inline void ownsWithComplexQuotients(int scaleFactor, Body body)
{
    const OwnsNearestMode nearest;
    if (scaleFactor > rangeDiv_16.most)
        body(OwnsDivideComplexToZero{});
    else if (scaleFactor < rangeDiv_16.least)
        body(OwnsDivideComplexBySign{});
    else
        body(OwnsDivideComplex{{scaleFactor, INT16_MAX}});
}
