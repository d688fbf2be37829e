// Scaled quotients of integer vectors: Div and Div_Round. The first vector is the divisor.
#include "arith/division.h"
#include "arith/divisionComplex.h"
#include "zels.h"

namespace {

template <OwnsQuotientRange range, class D, class S1, class S2>
[[gnu::always_inline]] inline ZelStatus divide(const S1* pSrc1, const S2* pSrc2, D* pDst, int len,
                                               int scaleFactor)
{
    const ZelStatus status = ownsCheck(len, pSrc1, pSrc2, pDst);
    return status != zelStatusOk
               ? status
               : ownsDivideVectors<range, OwnsToNearest>(pSrc1, pSrc2, pDst, len, scaleFactor);
}

template <class T>
[[gnu::always_inline]] inline ZelStatus divideRound(const T* pSrc1, const T* pSrc2, T* pDst, int len,
                                                    ZelRoundMode rnd, int scaleFactor)
{
    if (const ZelStatus status = ownsCheck(len, pSrc1, pSrc2, pDst); status != zelStatusOk)
        return status;
    constexpr auto range = rangeDivRound;
    switch (rnd) {
    case zelRndZero:
        return ownsDivideVectors<range, OwnsTowardZero>(pSrc1, pSrc2, pDst, len, scaleFactor);
    case zelRndNear:
        return ownsDivideVectors<range, OwnsToNearest>(pSrc1, pSrc2, pDst, len, scaleFactor);
    case zelRndFinancial:
        return ownsDivideVectors<range, OwnsFinancial>(pSrc1, pSrc2, pDst, len, scaleFactor);
    default:
        return zelErrRoundMode;
    }
}

/// b * 2^shift / a, where the shift leaves a double no room: the division of 64-bit integers, which holds every
/// dividend whose quotient does not saturate, and its remainder.
Zel32s dividedFar(Zel32s a, Zel32s b, int shift)
{
    const Zel64u divisor = static_cast<Zel64u>(a < 0 ? -Zel64s{a} : a);
    const Zel64u magnitude = static_cast<Zel64u>(b < 0 ? -Zel64s{b} : b);
    const bool negative = b != 0 && (b < 0) != (a < 0);
    const Zel32s limit = negative ? INT32_MIN : INT32_MAX;
    if (magnitude == 0)
        return 0;
    if (divisor == 0 || magnitude > ((divisor << 32) - 1) >> shift)
        return limit;
    const Zel64u dividend = magnitude << shift;
    const Zel64u floor = dividend / divisor;
    const Zel64u twice = 2 * (dividend - floor * divisor);
    const auto quotient = static_cast<Zel64s>(floor + (twice + (floor & 1) > divisor));
    return negative               ? -quotient < INT32_MIN ? limit : static_cast<Zel32s>(-quotient)
                         : quotient > INT32_MAX ? limit
                                  : static_cast<Zel32s>(quotient);
}

/// Four quotients by doubles, which err by 2^-22 at most: where one is as close to a tie as 2^-20 all four are
/// divided as integers.
struct DivideFar {
    static constexpr OwnsCode code = OwnsCode::least;
    Zel64f power;
    int shift;

    OwnsVec<Zel32s> operator()(OwnsVec<Zel32s> a, OwnsVec<Zel32s> b) const
    {
        int nearTie = 0;
        const auto two = [&](__m128i x, __m128i y) {
            const OwnsVec<Zel64f> divisors = _mm_cvtepi32_pd(x);
            const OwnsVec<Zel64f> dividends = _mm_cvtepi32_pd(y);
            const OwnsVec<Zel64f> bounded = ownsBounded(dividends / divisors * power, INT32_MAX);
            const OwnsVec<Zel64f> q = _mm_max_pd(bounded, _mm_set1_pd(INT32_MIN));
            const __m128i rounded = OwnsToNearest::integers(q);
            const OwnsVec<Zel64f> rest = q - _mm_cvtepi32_pd(rounded);
            const __m128d distance = _mm_andnot_pd(_mm_set1_pd(-0.0), rest);
            nearTie |= _mm_movemask_pd(_mm_cmpgt_pd(distance, _mm_set1_pd(0.5 - 0x1p-20)));
            return rounded;
        };
        const auto upper = [](OwnsVec<Zel32s> x) { return _mm_unpackhi_epi64(ownsInt(x), ownsInt(x)); };
        const __m128i low = two(ownsInt(a), ownsInt(b));
        const __m128i high = two(upper(a), upper(b));
        OwnsVec<Zel32s> q = ownsAs<Zel32s>(_mm_unpacklo_epi64(low, high)) & (b != 0);
        if (nearTie != 0) [[unlikely]]
            for (int k = 0; k < 4; k++)
                q[k] = dividedFar(a[k], b[k], shift);
        return q;
    }
};

ZelStatus divide32s(const Zel32s* pSrc1, const Zel32s* pSrc2, Zel32s* pDst, int len, int scaleFactor)
{
    constexpr int leastForDoubles = -18;
    if (const ZelStatus status = ownsCheck(len, pSrc1, pSrc2, pDst); status != zelStatusOk)
        return status;
    if (scaleFactor < rangeDiv_32s.least || scaleFactor >= leastForDoubles)
        return ownsDivideVectors<rangeDiv_32s, OwnsToNearest>(pSrc1, pSrc2, pDst, len, scaleFactor);
    const OwnsNearestMode nearest;
    OwnsZeroWatch zeros;
    ownsMap<shape_32s>(OwnsWatching<DivideFar>{{ownsScaled(1.0, scaleFactor), -scaleFactor}, zeros}, pDst,
                       len, pSrc1, pSrc2);
    return zeros.status();
}

template <class Op>
struct WatchingComplex {
    static constexpr OwnsCode code = ownsCodeOf<Op>;
    Op op;
    OwnsZeroWatch& zeros;

    OwnsVec<Zel16s> operator()(OwnsVec<Zel16s> a, OwnsVec<Zel16s> b) const
    {
        const OwnsComplexDivisors divisors(a);
        zeros.note(divisors.zeros());
        return op(divisors, b);
    }
    OwnsVec<Zel16s> part(int n, OwnsVec<Zel16s> a, OwnsVec<Zel16s> b) const
    {
        return (*this)(ownsPaddedDivisor<Zel16sc>(a, n), b);
    }
};

ZelStatus divide16sc(const Zel16sc* pSrc1, const Zel16sc* pSrc2, Zel16sc* pDst, int len, int scaleFactor)
{
    if (const ZelStatus status = ownsCheck(len, pSrc1, pSrc2, pDst); status != zelStatusOk)
        return status;
    OwnsZeroWatch zeros;
    ownsWithComplexQuotients(scaleFactor, [&]<class Op>(Op op) {
        ownsMap<shape_16sc>(WatchingComplex<Op>{op, zeros}, pDst, len, pSrc1, pSrc2);
    });
    return zeros.status();
}

} // namespace

ZelStatus zelsDiv_8u_Sfs(const Zel8u* pSrc1, const Zel8u* pSrc2, Zel8u* pDst, int len, int scaleFactor)
{
    return divide<rangeDiv_8u>(pSrc1, pSrc2, pDst, len, scaleFactor);
}

ZelStatus zelsDiv_8u_ISfs(const Zel8u* pSrc, Zel8u* pSrcDst, int len, int scaleFactor)
{
    return divide<rangeDiv_8u>(pSrc, pSrcDst, pSrcDst, len, scaleFactor);
}

ZelStatus zelsDiv_16s_Sfs(const Zel16s* pSrc1, const Zel16s* pSrc2, Zel16s* pDst, int len, int scaleFactor)
{
    return divide<rangeDiv_16>(pSrc1, pSrc2, pDst, len, scaleFactor);
}

ZelStatus zelsDiv_16s_ISfs(const Zel16s* pSrc, Zel16s* pSrcDst, int len, int scaleFactor)
{
    return divide<rangeDiv_16>(pSrc, pSrcDst, pSrcDst, len, scaleFactor);
}

ZelStatus zelsDiv_16u_Sfs(const Zel16u* pSrc1, const Zel16u* pSrc2, Zel16u* pDst, int len, int scaleFactor)
{
    return divide<rangeDiv_16>(pSrc1, pSrc2, pDst, len, scaleFactor);
}

ZelStatus zelsDiv_16u_ISfs(const Zel16u* pSrc, Zel16u* pSrcDst, int len, int scaleFactor)
{
    return divide<rangeDiv_16>(pSrc, pSrcDst, pSrcDst, len, scaleFactor);
}

ZelStatus zelsDiv_16sc_Sfs(const Zel16sc* pSrc1, const Zel16sc* pSrc2, Zel16sc* pDst, int len,
                           int scaleFactor)
{
    return divide16sc(pSrc1, pSrc2, pDst, len, scaleFactor);
}

ZelStatus zelsDiv_16sc_ISfs(const Zel16sc* pSrc, Zel16sc* pSrcDst, int len, int scaleFactor)
{
    return divide16sc(pSrc, pSrcDst, pSrcDst, len, scaleFactor);
}

ZelStatus zelsDiv_32s_Sfs(const Zel32s* pSrc1, const Zel32s* pSrc2, Zel32s* pDst, int len, int scaleFactor)
{
    return divide32s(pSrc1, pSrc2, pDst, len, scaleFactor);
}

ZelStatus zelsDiv_32s_ISfs(const Zel32s* pSrc, Zel32s* pSrcDst, int len, int scaleFactor)
{
    return divide32s(pSrc, pSrcDst, pSrcDst, len, scaleFactor);
}

ZelStatus zelsDiv_32s16s_Sfs(const Zel16s* pSrc1, const Zel32s* pSrc2, Zel16s* pDst, int len, int scaleFactor)
{
    return divide<rangeDiv_32s16s>(pSrc1, pSrc2, pDst, len, scaleFactor);
}

ZelStatus zelsDiv_Round_8u_Sfs(const Zel8u* pSrc1, const Zel8u* pSrc2, Zel8u* pDst, int len,
                               ZelRoundMode rndMode, int scaleFactor)
{
    return divideRound(pSrc1, pSrc2, pDst, len, rndMode, scaleFactor);
}

ZelStatus zelsDiv_Round_8u_ISfs(const Zel8u* pSrc, Zel8u* pSrcDst, int len, ZelRoundMode rndMode,
                                int scaleFactor)
{
    return divideRound(pSrc, pSrcDst, pSrcDst, len, rndMode, scaleFactor);
}

ZelStatus zelsDiv_Round_16s_Sfs(const Zel16s* pSrc1, const Zel16s* pSrc2, Zel16s* pDst, int len,
                                ZelRoundMode rndMode, int scaleFactor)
{
    return divideRound(pSrc1, pSrc2, pDst, len, rndMode, scaleFactor);
}

ZelStatus zelsDiv_Round_16s_ISfs(const Zel16s* pSrc, Zel16s* pSrcDst, int len, ZelRoundMode rndMode,
                                 int scaleFactor)
{
    return divideRound(pSrc, pSrcDst, pSrcDst, len, rndMode, scaleFactor);
}

ZelStatus zelsDiv_Round_16u_Sfs(const Zel16u* pSrc1, const Zel16u* pSrc2, Zel16u* pDst, int len,
                                ZelRoundMode rndMode, int scaleFactor)
{
    return divideRound(pSrc1, pSrc2, pDst, len, rndMode, scaleFactor);
}

ZelStatus zelsDiv_Round_16u_ISfs(const Zel16u* pSrc, Zel16u* pSrcDst, int len, ZelRoundMode rndMode,
                                 int scaleFactor)
{
    return divideRound(pSrc, pSrcDst, pSrcDst, len, rndMode, scaleFactor);
}
