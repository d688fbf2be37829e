// Inverses with a limit: LTInv. What lies below the level in magnitude is inverted at the level.
//
// At level 0 there is no limit, so a NaN stays one, and zero elements are watched for.
#include "arith/threshold.h"
#include "zels.h"

namespace {

/// Truly divided in single precision, too: an estimate and a Newton step, with a look at what has no normal reciprocal,
/// take longer than the division.
template <class T, bool isLimited>
struct InvertReal {
    using V = OwnsVec<T>;
    V level;
    bool& zero;

    V operator()(V x) const
    {
        zero |= !isLimited && ownsAnyLane(x == 0);
        const V magnitude = OwnsMagnitude::of(x);
        return 1 / ownsWithSigns(isLimited ? OwnsLargest::fold(magnitude, level) : magnitude, x);
    }
    /// Ones behind the last element.
    V part(int n, V x) const
    {
        if constexpr (isLimited)
            return (*this)(x);
        else if constexpr (sizeof(T) == sizeof(Zel64f))
            return (*this)(_mm_shuffle_pd(x, _mm_set1_pd(1), 0));
        else
            return (*this)(n == 1 ? V(_mm_move_ss(_mm_set1_ps(1), x)) : V(_mm_movelh_ps(x, _mm_set1_ps(1))));
    }
};

/// Complex elements: the conjugate over the sum of squares m, or below the level over sqrt(m) level.
template <class C>
struct InvertComplex {
    using P = OwnsPart<C>;
    using V = OwnsVec<C>;
    P level;
    bool& zero;
    P square = level * level;
    P least = square > OwnsMagnitudes<P>::leastSquare ? square : OwnsMagnitudes<P>::leastSquare;

    V operator()(V x) const { return pair({{x, x}}).v[0]; }
    V part(int, V x) const { return (*this)(_mm_movelh_ps(x, _mm_set1_ps(1))); }
    OwnsVecs<C, 2> pair(OwnsVecs<C, 2> x) const
    {
        const V m = ownsSumOfSquares(x);
        if (ownsAllLanes((m >= least) & (m <= OwnsMagnitudes<P>::mostSquare))) [[likely]]
            return over(m, x);
        const OwnsVecs<C, 2> r = over(ownsChosen(m < square, root(m) * level, m), x);
        if (ownsAllLanes(ownsIsUsual(m))) [[likely]]
            return r;
        return {{ownsMended(*this, x.v[0], r.v[0]), ownsMended(*this, x.v[1], r.v[1])}};
    }

    /// Of an element out of the ordinary, or at such a level.
    C operator()(C x) const
    {
        using W = typename OwnsMagnitudes<P>::Wide;
        const OwnsWideComplex<W> wide(x);
        if (wide.squares == 0) {
            zero |= level == 0;
            return {1 / level, 0};
        }
        if (wide.isInfinite)
            return {std::copysign(P{0}, x.re), -std::copysign(P{0}, x.im)};
        const W limit = level;
        const W divisor = wide.squares < limit * limit ? std::sqrt(wide.squares) * limit : wide.squares;
        return {static_cast<P>(wide.re / divisor), static_cast<P>(-wide.im / divisor)};
    }

  private:
    static OwnsVecs<C, 2> over(V divisors, OwnsVecs<C, 2> x)
    {
        const OwnsVecs<C, 2> spread = ownsSpread(divisors);
        return {{ownsConjugate(x.v[0]) / spread.v[0], ownsConjugate(x.v[1]) / spread.v[1]}};
    }
    static OwnsVec<Zel32f> root(OwnsVec<Zel32f> m) { return _mm_sqrt_ps(m); }
    static OwnsVec<Zel64f> root(OwnsVec<Zel64f> m) { return _mm_sqrt_pd(m); }
};

template <class T>
ZelStatus invert(const T* pSrc, T* pDst, int len, OwnsPart<T> level)
{
    if (const ZelStatus status = ownsCheck(len, pSrc, pDst); status != zelStatusOk)
        return status;
    if (level < 0)
        return zelErrThreshNegLevel;
    bool zero = false;
    if constexpr (ownsIsComplex<T>) {
        const InvertComplex<T> op{level, zero};
        if (level == 0 || ownsIsOrdinaryLevel(level)) [[likely]]
            ownsMap<ownsShapeOf<T>>(op, pDst, len, pSrc);
        else
            ownsOneByOne(pSrc, pDst, len, [=](T x) { return op(x); });
    } else {
        if (level == 0)
            ownsMap<ownsShapeOf<T>>(InvertReal<T, false>{ownsSplat(level), zero}, pDst, len, pSrc);
        else
            ownsMap<ownsShapeOf<T>>(InvertReal<T, true>{ownsSplat(level), zero}, pDst, len, pSrc);
    }
    return zero ? zelWarnInvZero : zelStatusOk;
}

} // namespace

ZelStatus zelsThreshold_LTInv_32f(const Zel32f* pSrc, Zel32f* pDst, int len, Zel32f level)
{
    return invert(pSrc, pDst, len, level);
}

ZelStatus zelsThreshold_LTInv_32f_I(Zel32f* pSrcDst, int len, Zel32f level)
{
    return zelsThreshold_LTInv_32f(pSrcDst, pSrcDst, len, level);
}

ZelStatus zelsThreshold_LTInv_32fc(const Zel32fc* pSrc, Zel32fc* pDst, int len, Zel32f level)
{
    return invert(pSrc, pDst, len, level);
}

ZelStatus zelsThreshold_LTInv_32fc_I(Zel32fc* pSrcDst, int len, Zel32f level)
{
    return zelsThreshold_LTInv_32fc(pSrcDst, pSrcDst, len, level);
}

ZelStatus zelsThreshold_LTInv_64f(const Zel64f* pSrc, Zel64f* pDst, int len, Zel64f level)
{
    return invert(pSrc, pDst, len, level);
}

ZelStatus zelsThreshold_LTInv_64f_I(Zel64f* pSrcDst, int len, Zel64f level)
{
    return zelsThreshold_LTInv_64f(pSrcDst, pSrcDst, len, level);
}

ZelStatus zelsThreshold_LTInv_64fc(const Zel64fc* pSrc, Zel64fc* pDst, int len, Zel64f level)
{
    return invert(pSrc, pDst, len, level);
}

ZelStatus zelsThreshold_LTInv_64fc_I(Zel64fc* pSrcDst, int len, Zel64f level)
{
    return zelsThreshold_LTInv_64fc(pSrcDst, pSrcDst, len, level);
}
