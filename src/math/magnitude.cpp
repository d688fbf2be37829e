// Magnitude of complex data: Magnitude.
#include "math/magnitude.h"
#include "frame/entry.h"
#include "frame/roundingMode.h"
#include "frame/scaledMap.h"
#include "math/polar.h"
#include "zels.h"

namespace {

constexpr auto magnitude32 = [](auto... x) { return ownsMagnitudeOf(ownsSumOfSquares(x...)); };

constexpr OwnsOnParts magnitude64{[](auto re, auto im) { return ownsMagnitude(re, im); }};

/// Sums of integers are 0 or at least 1, and for 0 any finite estimate gives 0.
constexpr auto magnitudeOf16 = [](auto... x) {
    const OwnsVec<Zel32f> s = ownsUnsigned32f(ownsSquares4(x...));
    return ownsRootStep(s, _mm_rsqrt_ps(_mm_max_ps(s, _mm_set1_ps(1))));
};

/// At 16 the largest magnitudes would still round to 1, at 33 to 0: the table holds.
constexpr OwnsScaleLimits limitsMagnitude_16s{16, -15};
constexpr OwnsScaleLimits limitsMagnitude_32sc{33, -31};

struct Magnitude16s {
    using V = OwnsVec<Zel16s>;

    template <class Path, class... S>
    static V apply(Path path, S... s)
    {
        const OwnsSquares16 n = ownsSquares(s...);
        return ownsAs<Zel16s>(OwnsIntegerRoot<32767>::apply(path, n.first, n.second));
    }
    template <class... S>
    static V apply(OwnsBySign, S... s)
    {
        return ownsSaturatedUnlessZero(ownsSquares(s...));
    }
};

/// In doubles, rounded as the caller's mode has it, on purpose.
struct Magnitude32sc {
    using S = OwnsVecs<Zel32sc, 2>;
    using V = OwnsVec<Zel32s>;

    template <class Scale>
    static V scaled(S x, Scale scale)
    {
        const auto two = [=](OwnsVec<Zel32s> v) {
            const OwnsF2 re = _mm_cvtepi32_pd(_mm_shuffle_epi32(ownsInt(v), 0x88));
            const OwnsF2 im = _mm_cvtepi32_pd(_mm_shuffle_epi32(ownsInt(v), 0xDD));
            const OwnsF2 length = scale(OwnsF2(_mm_sqrt_pd(ownsSumOfSquares(re, im))));
            return _mm_cvtpd_epi32(_mm_min_pd(length, _mm_set1_pd(2147483647.0)));
        };
        return ownsAs<Zel32s>(_mm_unpacklo_epi64(two(x.v[0]), two(x.v[1])));
    }
    static V times(S x, Zel64f factor)
    {
        return scaled(x, [=](OwnsF2 length) { return length * factor; });
    }
    static V apply(OwnsUnscaled, S x)
    {
        return scaled(x, [](OwnsF2 length) { return length; });
    }
    static V apply(OwnsHalved, S x) { return times(x, 0.5); }
    static V apply(OwnsShiftedRight path, S x)
    {
        return times(x, 1.0 / static_cast<Zel64f>(1LL << path.shift));
    }
    static V apply(OwnsShiftedLeft path, S x) { return times(x, static_cast<Zel64f>(1LL << path.shift)); }
    static V apply(OwnsBySign, S x) { return times(x, 0x1p31); }
};

} // namespace

ZelStatus zelsMagnitude_32f(const Zel32f* pSrcRe, const Zel32f* pSrcIm, Zel32f* pDst, int len)
{
    return ownsRun<shape_32f>(magnitude32, pDst, len, pSrcRe, pSrcIm);
}

ZelStatus zelsMagnitude_32f_L(const Zel32f* pSrcRe, const Zel32f* pSrcIm, Zel32f* pDst, ZelSize len)
{
    return ownsChunked<zelsMagnitude_32f, Zel32f>(len, pSrcRe, pSrcIm, pDst);
}

ZelStatus zelsMagnitude_64f(const Zel64f* pSrcRe, const Zel64f* pSrcIm, Zel64f* pDst, int len)
{
    return ownsRun<shape_64f>(magnitude64, pDst, len, pSrcRe, pSrcIm);
}

ZelStatus zelsMagnitude_64f_L(const Zel64f* pSrcRe, const Zel64f* pSrcIm, Zel64f* pDst, ZelSize len)
{
    return ownsChunked<zelsMagnitude_64f, Zel64f>(len, pSrcRe, pSrcIm, pDst);
}

ZelStatus zelsMagnitude_32fc(const Zel32fc* pSrc, Zel32f* pDst, int len)
{
    return ownsRun<shape_32f>(magnitude32, pDst, len, pSrc);
}

ZelStatus zelsMagnitude_32fc_L(const Zel32fc* pSrc, Zel32f* pDst, ZelSize len)
{
    return ownsChunked<zelsMagnitude_32fc, Zel32fc>(len, pSrc, pDst);
}

ZelStatus zelsMagnitude_64fc(const Zel64fc* pSrc, Zel64f* pDst, int len)
{
    return ownsRun<shape_64f>(magnitude64, pDst, len, pSrc);
}

ZelStatus zelsMagnitude_64fc_L(const Zel64fc* pSrc, Zel64f* pDst, ZelSize len)
{
    return ownsChunked<zelsMagnitude_64fc, Zel64fc>(len, pSrc, pDst);
}

ZelStatus zelsMagnitude_16s32f(const Zel16s* pSrcRe, const Zel16s* pSrcIm, Zel32f* pDst, int len)
{
    return ownsRun<shape_32f>(magnitudeOf16, pDst, len, pSrcRe, pSrcIm);
}

ZelStatus zelsMagnitude_16sc32f(const Zel16sc* pSrc, Zel32f* pDst, int len)
{
    return ownsRun<shape_32f>(magnitudeOf16, pDst, len, pSrc);
}

ZelStatus zelsMagnitude_16s_Sfs(const Zel16s* pSrcRe, const Zel16s* pSrcIm, Zel16s* pDst, int len,
                                int scaleFactor)
{
    const OwnsNearestMode mode(scaleFactor > 0);
    return ownsRunScaled<limitsMagnitude_16s, shape_16s, Magnitude16s>(scaleFactor, pDst, len, pSrcRe,
                                                                       pSrcIm);
}

ZelStatus zelsMagnitude_16sc_Sfs(const Zel16sc* pSrc, Zel16s* pDst, int len, int scaleFactor)
{
    const OwnsNearestMode mode(scaleFactor > 0);
    return ownsRunScaled<limitsMagnitude_16s, shape_16s, Magnitude16s>(scaleFactor, pDst, len, pSrc);
}

ZelStatus zelsMagnitude_32sc_Sfs(const Zel32sc* pSrc, Zel32s* pDst, int len, int scaleFactor)
{
    return ownsRunScaled<limitsMagnitude_32sc, shape_32s, Magnitude32sc>(scaleFactor, pDst, len, pSrc);
}
