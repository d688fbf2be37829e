// Limits: Threshold, LT and GT. What lies beyond the level comes to it.
#include "arith/threshold.h"
#include "frame/roundingMode.h"
#include "zels.h"

namespace {

/// Complex floats. In single precision the factor to the level's magnitude is made of the processor's estimate y of
/// 1 / sqrt(m), by one Newton step: y (3 - m y y) level / 2.
template <OwnsSide side, class C>
struct LimitMagnitude {
    using P = OwnsPart<C>;
    using V = OwnsVec<C>;
    using Estimates = void;
    P level;
    P square = level * level;

    C operator()(C x) const
    {
        if constexpr (sizeof(P) == sizeof(Zel32f)) {
            return ownsIsBeyond<side, P>(x, level) ? ownsAtMagnitude(x, level) : x;
        } else {
            ownsStore(&x, (*this)(ownsLoad(&x))); // as in vectors, which estimate nothing
            return x;
        }
    }
    V operator()(V x) const { return pair({{x, x}}).v[0]; }
    OwnsVecs<C, 2> pair(OwnsVecs<C, 2> x) const
    {
        const V m = ownsSumOfSquares(x);
        const auto isBeyond = side == OwnsSide::below ? m < square : m > square;
        if (!ownsAnyLane(isBeyond)) [[likely]]
            return x;
        const OwnsVecs<C, 2> factors = ownsSpread(factor(m));
        OwnsVecs<C, 2> r{{x.v[0] * factors.v[0], x.v[1] * factors.v[1]}};
        if (ownsAnyLane(isBeyond & ~ownsIsUsual(m))) [[unlikely]] {
            const auto exactly = [this](C element) { return ownsAtMagnitude(element, level); };
            r = {{ownsMended(exactly, x.v[0], r.v[0]), ownsMended(exactly, x.v[1], r.v[1])}};
        }
        const OwnsVecs<C, 2> masks = ownsSpread(reinterpret_cast<V>(isBeyond));
        return {{ownsChosen(masks.v[0], r.v[0], x.v[0]), ownsChosen(masks.v[1], r.v[1], x.v[1])}};
    }

  private:
    OwnsVec<Zel32f> factor(OwnsVec<Zel32f> m) const
    {
        const OwnsVec<Zel32f> y = _mm_rsqrt_ps(m);
        return y * (3.0f - m * y * y) * (level * 0.5f);
    }
    OwnsVec<Zel64f> factor(OwnsVec<Zel64f> m) const { return level / OwnsVec<Zel64f>(_mm_sqrt_pd(m)); }
};

/// Complex integers, rounded to nearest from double precision.
template <OwnsSide side>
struct LimitMagnitude<side, Zel16sc> {
    using V = OwnsVec<Zel16s>;
    Zel16s level;

    V operator()(V x) const
    {
        const OwnsVec<Zel32s> m = ownsSquares4(x);
        const auto isBeyond = OwnsBeyond16<side>{level}(m);
        return ownsAnyLane(isBeyond) ? ownsChosen(isBeyond, limit(x, m), x) : x;
    }

  private:
    /// A zero divides by 1 instead, and gets the level as its real part.
    V limit(V x, OwnsVec<Zel32s> m) const
    {
        const auto isZero = m == 0;
        const __m128i divisors = ownsInt(m - isZero);
        const __m128i x0 = _mm_cvtepi16_epi32(ownsInt(x));
        const __m128i x1 = _mm_cvtepi16_epi32(_mm_srli_si128(ownsInt(x), 8));
        const __m128i low = two(x0, _mm_cvtepi32_pd(divisors));
        const __m128i high = two(x1, _mm_cvtepi32_pd(_mm_srli_si128(divisors, 8)));
        const __m128i levels = _mm_and_si128(ownsInt(isZero), _mm_set1_epi32(level));
        return ownsAs<Zel16s>(_mm_or_si128(_mm_packs_epi32(low, high), levels));
    }
    /// Two elements in lanes of 32 bits. Of sums of squares only 2^31 has wrapped, and only its sign.
    __m128i two(__m128i parts, OwnsVec<Zel64f> m) const
    {
        const OwnsVec<Zel64f> factor = level / OwnsVec<Zel64f>(_mm_sqrt_pd(OwnsMagnitude::of(m)));
        const __m128d first = _mm_mul_pd(_mm_cvtepi32_pd(parts), _mm_unpacklo_pd(factor, factor));
        const __m128d second =
            _mm_mul_pd(_mm_cvtepi32_pd(_mm_srli_si128(parts, 8)), _mm_unpackhi_pd(factor, factor));
        return _mm_unpacklo_epi64(_mm_cvtpd_epi32(first), _mm_cvtpd_epi32(second));
    }
};

template <OwnsSide side, class C>
[[gnu::noinline]] ZelStatus limitMagnitudes(const C* pSrc, C* pDst, int len, OwnsPart<C> level)
{
    if (level < 0)
        return zelErrThreshNegLevel;
    if (level == 0) {
        if (side == OwnsSide::above)
            return ownsZero(pDst, len);
        return ownsCopyUnlessSame(pSrc, pDst, len);
    }
    if constexpr (std::is_integral_v<OwnsPart<C>>) {
        const OwnsNearestMode nearest;
        ownsMap<ownsShapeOf<C>>(LimitMagnitude<side, C>{level}, pDst, len, pSrc);
    } else if (ownsIsOrdinaryLevel(level)) [[likely]] {
        ownsMap<ownsShapeOf<C>>(LimitMagnitude<side, C>{level}, pDst, len, pSrc);
    } else {
        ownsOneByOne(pSrc, pDst, len, [=](C x) {
            using Wide = typename OwnsMagnitudes<OwnsPart<C>>::Wide;
            return ownsIsBeyond<side, Wide>(x, level) ? ownsAtMagnitude(x, level) : x;
        });
    }
    return zelStatusOk;
}

/// The entry of all forms. The level is the second operand of the maximum or minimum, so a NaN comes out as the level.
template <class T>
[[gnu::always_inline]] inline ZelStatus limit(const T* pSrc, T* pDst, int len, OwnsPart<T> level,
                                              ZelCmpOp relOp)
{
    if (const ZelStatus status = ownsCheck(len, pSrc, pDst); status != zelStatusOk)
        return status;
    if ((relOp & ~zelCmpGreater) != 0)
        return zelErrBadArg;
    if constexpr (ownsIsComplex<T>) {
        return relOp == zelCmpLess ? limitMagnitudes<OwnsSide::below>(pSrc, pDst, len, level)
                                   : limitMagnitudes<OwnsSide::above>(pSrc, pDst, len, level);
    } else {
        const OwnsVec<T> bound = ownsSplat(level);
        if (relOp == zelCmpLess)
            ownsMap<ownsShapeOf<T>>([=](auto x) { return OwnsLargest::fold(x, bound); }, pDst, len, pSrc);
        else
            ownsMap<ownsShapeOf<T>>([=](auto x) { return OwnsSmallest::fold(x, bound); }, pDst, len, pSrc);
        return zelStatusOk;
    }
}

} // namespace

ZelStatus zelsThreshold_16s(const Zel16s* pSrc, Zel16s* pDst, int len, Zel16s level, ZelCmpOp relOp)
{
    return limit(pSrc, pDst, len, level, relOp);
}

ZelStatus zelsThreshold_16s_I(Zel16s* pSrcDst, int len, Zel16s level, ZelCmpOp relOp)
{
    return zelsThreshold_16s(pSrcDst, pSrcDst, len, level, relOp);
}

ZelStatus zelsThreshold_16sc(const Zel16sc* pSrc, Zel16sc* pDst, int len, Zel16s level, ZelCmpOp relOp)
{
    return limit(pSrc, pDst, len, level, relOp);
}

ZelStatus zelsThreshold_16sc_I(Zel16sc* pSrcDst, int len, Zel16s level, ZelCmpOp relOp)
{
    return zelsThreshold_16sc(pSrcDst, pSrcDst, len, level, relOp);
}

ZelStatus zelsThreshold_32f(const Zel32f* pSrc, Zel32f* pDst, int len, Zel32f level, ZelCmpOp relOp)
{
    return limit(pSrc, pDst, len, level, relOp);
}

ZelStatus zelsThreshold_32f_I(Zel32f* pSrcDst, int len, Zel32f level, ZelCmpOp relOp)
{
    return zelsThreshold_32f(pSrcDst, pSrcDst, len, level, relOp);
}

ZelStatus zelsThreshold_32fc(const Zel32fc* pSrc, Zel32fc* pDst, int len, Zel32f level, ZelCmpOp relOp)
{
    return limit(pSrc, pDst, len, level, relOp);
}

ZelStatus zelsThreshold_32fc_I(Zel32fc* pSrcDst, int len, Zel32f level, ZelCmpOp relOp)
{
    return zelsThreshold_32fc(pSrcDst, pSrcDst, len, level, relOp);
}

ZelStatus zelsThreshold_64f(const Zel64f* pSrc, Zel64f* pDst, int len, Zel64f level, ZelCmpOp relOp)
{
    return limit(pSrc, pDst, len, level, relOp);
}

ZelStatus zelsThreshold_64f_I(Zel64f* pSrcDst, int len, Zel64f level, ZelCmpOp relOp)
{
    return zelsThreshold_64f(pSrcDst, pSrcDst, len, level, relOp);
}

ZelStatus zelsThreshold_64fc(const Zel64fc* pSrc, Zel64fc* pDst, int len, Zel64f level, ZelCmpOp relOp)
{
    return limit(pSrc, pDst, len, level, relOp);
}

ZelStatus zelsThreshold_64fc_I(Zel64fc* pSrcDst, int len, Zel64f level, ZelCmpOp relOp)
{
    return zelsThreshold_64fc(pSrcDst, pSrcDst, len, level, relOp);
}

ZelStatus zelsThreshold_LT_16s(const Zel16s* pSrc, Zel16s* pDst, int len, Zel16s level)
{
    return limit(pSrc, pDst, len, level, zelCmpLess);
}

ZelStatus zelsThreshold_LT_16s_I(Zel16s* pSrcDst, int len, Zel16s level)
{
    return zelsThreshold_LT_16s(pSrcDst, pSrcDst, len, level);
}

ZelStatus zelsThreshold_LT_16sc(const Zel16sc* pSrc, Zel16sc* pDst, int len, Zel16s level)
{
    return limit(pSrc, pDst, len, level, zelCmpLess);
}

ZelStatus zelsThreshold_LT_16sc_I(Zel16sc* pSrcDst, int len, Zel16s level)
{
    return zelsThreshold_LT_16sc(pSrcDst, pSrcDst, len, level);
}

ZelStatus zelsThreshold_LT_32f(const Zel32f* pSrc, Zel32f* pDst, int len, Zel32f level)
{
    return limit(pSrc, pDst, len, level, zelCmpLess);
}

ZelStatus zelsThreshold_LT_32f_I(Zel32f* pSrcDst, int len, Zel32f level)
{
    return zelsThreshold_LT_32f(pSrcDst, pSrcDst, len, level);
}

ZelStatus zelsThreshold_LT_32fc(const Zel32fc* pSrc, Zel32fc* pDst, int len, Zel32f level)
{
    return limit(pSrc, pDst, len, level, zelCmpLess);
}

ZelStatus zelsThreshold_LT_32fc_I(Zel32fc* pSrcDst, int len, Zel32f level)
{
    return zelsThreshold_LT_32fc(pSrcDst, pSrcDst, len, level);
}

ZelStatus zelsThreshold_LT_32s(const Zel32s* pSrc, Zel32s* pDst, int len, Zel32s level)
{
    return limit(pSrc, pDst, len, level, zelCmpLess);
}

ZelStatus zelsThreshold_LT_32s_I(Zel32s* pSrcDst, int len, Zel32s level)
{
    return zelsThreshold_LT_32s(pSrcDst, pSrcDst, len, level);
}

ZelStatus zelsThreshold_LT_64f(const Zel64f* pSrc, Zel64f* pDst, int len, Zel64f level)
{
    return limit(pSrc, pDst, len, level, zelCmpLess);
}

ZelStatus zelsThreshold_LT_64f_I(Zel64f* pSrcDst, int len, Zel64f level)
{
    return zelsThreshold_LT_64f(pSrcDst, pSrcDst, len, level);
}

ZelStatus zelsThreshold_LT_64fc(const Zel64fc* pSrc, Zel64fc* pDst, int len, Zel64f level)
{
    return limit(pSrc, pDst, len, level, zelCmpLess);
}

ZelStatus zelsThreshold_LT_64fc_I(Zel64fc* pSrcDst, int len, Zel64f level)
{
    return zelsThreshold_LT_64fc(pSrcDst, pSrcDst, len, level);
}

ZelStatus zelsThreshold_GT_16s(const Zel16s* pSrc, Zel16s* pDst, int len, Zel16s level)
{
    return limit(pSrc, pDst, len, level, zelCmpGreater);
}

ZelStatus zelsThreshold_GT_16s_I(Zel16s* pSrcDst, int len, Zel16s level)
{
    return zelsThreshold_GT_16s(pSrcDst, pSrcDst, len, level);
}

ZelStatus zelsThreshold_GT_16sc(const Zel16sc* pSrc, Zel16sc* pDst, int len, Zel16s level)
{
    return limit(pSrc, pDst, len, level, zelCmpGreater);
}

ZelStatus zelsThreshold_GT_16sc_I(Zel16sc* pSrcDst, int len, Zel16s level)
{
    return zelsThreshold_GT_16sc(pSrcDst, pSrcDst, len, level);
}

ZelStatus zelsThreshold_GT_32f(const Zel32f* pSrc, Zel32f* pDst, int len, Zel32f level)
{
    return limit(pSrc, pDst, len, level, zelCmpGreater);
}

ZelStatus zelsThreshold_GT_32f_I(Zel32f* pSrcDst, int len, Zel32f level)
{
    return zelsThreshold_GT_32f(pSrcDst, pSrcDst, len, level);
}

ZelStatus zelsThreshold_GT_32fc(const Zel32fc* pSrc, Zel32fc* pDst, int len, Zel32f level)
{
    return limit(pSrc, pDst, len, level, zelCmpGreater);
}

ZelStatus zelsThreshold_GT_32fc_I(Zel32fc* pSrcDst, int len, Zel32f level)
{
    return zelsThreshold_GT_32fc(pSrcDst, pSrcDst, len, level);
}

ZelStatus zelsThreshold_GT_32s(const Zel32s* pSrc, Zel32s* pDst, int len, Zel32s level)
{
    return limit(pSrc, pDst, len, level, zelCmpGreater);
}

ZelStatus zelsThreshold_GT_32s_I(Zel32s* pSrcDst, int len, Zel32s level)
{
    return zelsThreshold_GT_32s(pSrcDst, pSrcDst, len, level);
}

ZelStatus zelsThreshold_GT_64f(const Zel64f* pSrc, Zel64f* pDst, int len, Zel64f level)
{
    return limit(pSrc, pDst, len, level, zelCmpGreater);
}

ZelStatus zelsThreshold_GT_64f_I(Zel64f* pSrcDst, int len, Zel64f level)
{
    return zelsThreshold_GT_64f(pSrcDst, pSrcDst, len, level);
}

ZelStatus zelsThreshold_GT_64fc(const Zel64fc* pSrc, Zel64fc* pDst, int len, Zel64f level)
{
    return limit(pSrc, pDst, len, level, zelCmpGreater);
}

ZelStatus zelsThreshold_GT_64fc_I(Zel64fc* pSrcDst, int len, Zel64f level)
{
    return zelsThreshold_GT_64fc(pSrcDst, pSrcDst, len, level);
}
