// What the divisions of vectors share: the watch for zero divisors, and integer quotients by floats.
#pragma once

#include "arith/convertFloat.h"
#include "frame/scaleVec.h"
#include "frame/scaledMap.h"

/// Notes whether any divisor was zero.
class OwnsZeroWatch {
  public:
    void note(__m128i isZero) { seen = _mm_or_si128(seen, isZero); }
    ZelStatus status() const { return _mm_movemask_epi8(seen) != 0 ? zelWarnDivByZero : zelStatusOk; }

  private:
    __m128i seen = _mm_setzero_si128();
};

/// The divisors of a partly filled vector, with what is no zero in the lanes that hold none.
template <class T>
inline OwnsVec<T> ownsPaddedDivisor(OwnsVec<T> x, int n)
{
    static constexpr Zel8u filler[2 * ownsVecBytes]{0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0,
                                                    1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1, 1};
    const ZelSize bytes = n * static_cast<ZelSize>(sizeof(T));
    const __m128i rest = ownsInt(ownsLoad(filler + ownsVecBytes - bytes));
    return ownsAs<T>(_mm_or_si128(ownsInt(x), rest));
}

// Integer quotients by division of floats.
//
// Let N / D be the quotient, the scaling put into N or D. One that is a whole number or a tie is a float, and
// the division gives it exactly. Any other is 1 / (2 N) of itself away from these at least, which is more than
// the division errs by under every rounding mode of the caller: rounding what it gives rounds the quotient. A
// quotient that does not saturate has N below the result's range times the divisor's: 2^17 for 8 bits and for
// 16 bits that are not multiplied, where single precision serves with its error of 2^-23; 2^33 for all 16-bit
// results; 2^50 for 32 bits multiplied by 2^18 at most; there double precision errs by 2^-52.
//
// A nonzero dividend over zero gives an infinity, which saturates by its sign. Zero over zero gives a NaN, and
// that, like all that is too low, the most negative integer.

/// Quotients b * 2^(-scaleFactor) / a, rounded by Round, not above `limit`.
template <class F, class Round>
class OwnsQuotients {
  public:
    OwnsQuotients(int scaleFactor, Zel32s mostOfResult)
        : power(static_cast<F>(ownsScaled(1.0, scaleFactor))), limit(static_cast<F>(mostOfResult))
    {
    }

    /// Of four 32-bit lanes.
    __m128i operator()(__m128i a, __m128i b) const
    {
        if constexpr (std::is_same_v<F, Zel32f>)
            return Round::integers(quotient(_mm_cvtepi32_ps(a), _mm_cvtepi32_ps(b)));
        else
            return of(_mm_cvtepi32_pd(a), _mm_cvtepi32_pd(upper(a)), b);
    }
    /// Of four 32-bit dividends and their divisors in double precision.
    __m128i of(OwnsVec<Zel64f> aLow, OwnsVec<Zel64f> aHigh, __m128i b) const
    {
        return ownsIntegers<Round>(quotient(aLow, _mm_cvtepi32_pd(b)),
                                   quotient(aHigh, _mm_cvtepi32_pd(upper(b))));
    }

  private:
    OwnsVec<F> quotient(OwnsVec<F> a, OwnsVec<F> b) const { return ownsBounded(b / a * power, limit); }
    static __m128i upper(__m128i x) { return _mm_unpackhi_epi64(x, x); }

    F power;
    F limit;
};

// The k-th four elements of a vector in 32-bit lanes.
template <int k>
inline OwnsVec<Zel32s> ownsWide32(OwnsVec<Zel8u> v)
{
    return ownsAs<Zel32s>(_mm_cvtepu8_epi32(_mm_srli_si128(ownsInt(v), 4 * k)));
}
template <int k>
inline OwnsVec<Zel32s> ownsWide32(OwnsVec<Zel16u> v)
{
    return ownsAs<Zel32s>(_mm_cvtepu16_epi32(_mm_srli_si128(ownsInt(v), 8 * k)));
}
template <int k>
inline OwnsVec<Zel32s> ownsWide32(OwnsVec<Zel16s> v)
{
    return ownsAs<Zel32s>(_mm_cvtepi16_epi32(_mm_srli_si128(ownsInt(v), 8 * k)));
}
template <int k>
inline OwnsVec<Zel32s> ownsWide32(OwnsVec<Zel32s> v)
{
    return v;
}
template <int k>
inline OwnsVec<Zel32s> ownsWide32(OwnsVecs<Zel32s, 2> v)
{
    return v.v[k];
}

/// A vector of D of results(a, b), made lane by lane in 32 bits of divisors and dividends.
template <class D, class A, class B, class Results>
inline OwnsVec<D> ownsInLanes32(A divisors, B dividends, Results results)
{
    __m128i r[4 / sizeof(D)];
    ownsEach<4 / sizeof(D)>(
        [&](auto k) { r[k] = results(ownsWide32<k>(divisors), ownsWide32<k>(dividends)); });
    return ownsPacked<D>(r);
}

// The operations on divisors a and dividends b, of integers with a result of type D.

/// Within the range of scale factors.
template <class D, class F, class Round>
struct OwnsDivide {
    static constexpr OwnsCode code = OwnsCode::compact;
    OwnsQuotients<F, Round> quotients;

    template <class A, class B>
    OwnsVec<D> operator()(A a, B b) const
    {
        return ownsInLanes32<D>(a, b, [&](OwnsVec<Zel32s> x, OwnsVec<Zel32s> y) {
            const __m128i q = quotients(ownsInt(x), ownsInt(y));
            // For unsigned types the packing makes 0 of zero over zero.
            return std::is_signed_v<D> ? _mm_andnot_si128(ownsInt(y == 0), q) : q;
        });
    }
};

/// Above it: 0, but over zero the end of the range.
template <class D>
struct OwnsDivideToZero {
    static constexpr OwnsCode code = OwnsCode::least;
    template <class A, class B>
    OwnsVec<D> operator()(A a, B b) const
    {
        return ownsInLanes32<D>(a, b, [](OwnsVec<Zel32s> x, OwnsVec<Zel32s> y) {
            return ownsInt(ownsSaturatedBySign(y & (x == 0)));
        });
    }
};

/// Below it: the end of the range by the sign of the quotient, where a divisor of zero counts as positive.
template <class D>
struct OwnsDivideBySign {
    static constexpr OwnsCode code = OwnsCode::least;
    template <class A, class B>
    OwnsVec<D> operator()(A a, B b) const
    {
        return ownsInLanes32<D>(a, b, [](OwnsVec<Zel32s> x, OwnsVec<Zel32s> y) {
            const __m128i sign = _mm_sign_epi32(_mm_set1_epi32(1), ownsInt(y));
            const __m128i overZero = _mm_and_si128(sign, ownsInt(x == 0));
            return ownsInt(ownsSaturatedBySign(
                ownsAs<Zel32s>(_mm_or_si128(_mm_sign_epi32(sign, ownsInt(x)), overZero))));
        });
    }
};

/// The range of scale factors of one form. The tables hold even where a quotient above or below would not yet
/// be 0 or saturate.
struct OwnsQuotientRange {
    int least, most;
};
inline constexpr OwnsQuotientRange rangeDiv_8u{-15, 8};
inline constexpr OwnsQuotientRange rangeDiv_16{-30, 15};
inline constexpr OwnsQuotientRange rangeDivRound{-30, 16};
inline constexpr OwnsQuotientRange rangeDiv_32s16s{-29, 31};
inline constexpr OwnsQuotientRange rangeDiv_32s{-62, 31};

/// Whether single precision serves: quotients of 8 bits, and of 16 bits that are not multiplied.
template <class D, class S2>
constexpr bool ownsSinglePrecisionServes(int scaleFactor)
{
    return sizeof(D) == 1 || (sizeof(S2) == 2 && scaleFactor >= 0);
}

/// Chooses the operation by the factor, and calls `body` with it in the mode of rounding to nearest.
template <OwnsQuotientRange range, class Round, class D, class S2, class Body>
[[gnu::always_inline]] inline void ownsWithQuotients(int scaleFactor, Body body)
{
    const OwnsNearestMode nearest;
    constexpr Zel32s most = std::numeric_limits<D>::max();
    if (scaleFactor > range.most)
        body(OwnsDivideToZero<D>{});
    else if (scaleFactor < range.least)
        body(OwnsDivideBySign<D>{});
    else if (ownsSinglePrecisionServes<D, S2>(scaleFactor))
        body(OwnsDivide<D, Zel32f, Round>{{scaleFactor, most}});
    else
        body(OwnsDivide<D, Zel64f, Round>{{scaleFactor, most}});
}

/// An operation that watches its divisors.
template <class Op>
struct OwnsWatching {
    static constexpr OwnsCode code = ownsCodeOf<Op>;
    Op op;
    OwnsZeroWatch& zeros;

    template <class A, class B>
    auto operator()(A a, B b) const
    {
        zeros.note(ownsInt(a == 0));
        return op(a, b);
    }
    template <class A, class B>
    auto part(int n, A a, B b) const
    {
        return (*this)(ownsPaddedDivisor<std::remove_cvref_t<decltype(a[0])>>(a, n), b);
    }
};

/// The quotients of two vectors, behind the checks.
template <OwnsQuotientRange range, class Round, class D, class S1, class S2>
[[gnu::noinline]] ZelStatus ownsDivideVectors(const S1* pSrc1, const S2* pSrc2, D* pDst, int len,
                                              int scaleFactor)
{
    OwnsZeroWatch zeros;
    ownsWithQuotients<range, Round, D, S2>(scaleFactor, [&]<class Op>(Op op) {
        ownsMap<ownsShapeOf<D>>(OwnsWatching<Op>{op, zeros}, pDst, len, pSrc1, pSrc2);
    });
    return zeros.status();
}
