// Polar to Cartesian form: PolarToCart.
#include "frame/entry.h"
#include "frame/scale.h"
#include "math/polar.h"
#include "math/vecMath.h"
#include "zels.h"

#include <algorithm>

namespace {

constexpr auto cartesian = []<class V>(V magn, V phase) -> OwnsParts2<V> {
    V sin, cos;
    ownsSinCos(phase, sin, cos);
    return {magn * cos, magn * sin};
};

template <class T>
[[gnu::always_inline]] inline ZelStatus toTwo(const T* pSrcMagn, const T* pSrcPhase, T* pDstRe, T* pDstIm,
                                              int len)
{
    if (const ZelStatus status = ownsCheck(len, pSrcMagn, pSrcPhase, pDstRe, pDstIm); status != zelStatusOk)
        return status;
    ownsMapParts<T>(cartesian, OwnsTwoArrays<T>{pDstRe, pDstIm}, len, pSrcMagn, pSrcPhase);
    return zelStatusOk;
}

template <class C>
[[gnu::always_inline]] inline ZelStatus toComplex(const OwnsPart<C>* pSrcMagn, const OwnsPart<C>* pSrcPhase,
                                                  C* pDst, int len)
{
    if (const ZelStatus status = ownsCheck(len, pSrcMagn, pSrcPhase, pDst); status != zelStatusOk)
        return status;
    ownsMapParts<OwnsPart<C>>(cartesian, OwnsComplexArray<C>{pDst}, len, pSrcMagn, pSrcPhase);
    return zelStatusOk;
}

/// In double precision, so that what is rounded is the exact value but for about 2^-36.
struct FixedCartesian {
    Zel64f magnFactor, phaseFactor;

    OwnsVec<Zel16s> operator()(OwnsVec<Zel16s> magn, OwnsVec<Zel16s> phase) const
    {
        const __m128i m = _mm_cvtepi16_epi32(ownsInt(magn));
        const __m128i p = _mm_cvtepi16_epi32(ownsInt(phase));
        return ownsAs<Zel16s>(_mm_packs_epi32(two(m, p), two(_mm_srli_si128(m, 8), _mm_srli_si128(p, 8))));
    }

  private:
    __m128i two(__m128i magn, __m128i phase) const
    {
        const auto nearest = [](OwnsVec<Zel64f> x) {
            return _mm_cvttpd_epi32(ownsRoundedNear(ownsBounded(x, 32767)));
        };
        const auto parts = cartesian(OwnsVec<Zel64f>(_mm_cvtepi32_pd(magn)) * magnFactor,
                                     OwnsVec<Zel64f>(_mm_cvtepi32_pd(phase)) * phaseFactor);
        return _mm_unpacklo_epi32(nearest(parts.first), nearest(parts.second));
    }
};

/// 2^-scaleFactor, and finite.
Zel64f powerOfTwo(int scaleFactor)
{
    return ownsScaled(1, std::clamp(scaleFactor, -1000, 1000));
}

} // namespace

ZelStatus zelsPolarToCart_32f(const Zel32f* pSrcMagn, const Zel32f* pSrcPhase, Zel32f* pDstRe, Zel32f* pDstIm,
                              int len)
{
    return toTwo(pSrcMagn, pSrcPhase, pDstRe, pDstIm, len);
}

ZelStatus zelsPolarToCart_64f(const Zel64f* pSrcMagn, const Zel64f* pSrcPhase, Zel64f* pDstRe, Zel64f* pDstIm,
                              int len)
{
    return toTwo(pSrcMagn, pSrcPhase, pDstRe, pDstIm, len);
}

ZelStatus zelsPolarToCart_32fc(const Zel32f* pSrcMagn, const Zel32f* pSrcPhase, Zel32fc* pDst, int len)
{
    return toComplex(pSrcMagn, pSrcPhase, pDst, len);
}

ZelStatus zelsPolarToCart_64fc(const Zel64f* pSrcMagn, const Zel64f* pSrcPhase, Zel64fc* pDst, int len)
{
    return toComplex(pSrcMagn, pSrcPhase, pDst, len);
}

ZelStatus zelsPolarToCart_16sc_Sfs(const Zel16s* pSrcMagn, const Zel16s* pSrcPhase, Zel16sc* pDst, int len,
                                   int magnScaleFactor, int phaseScaleFactor)
{
    return ownsRun<shape_16sc>(FixedCartesian{powerOfTwo(magnScaleFactor), powerOfTwo(phaseScaleFactor)},
                               pDst, len, pSrcMagn, pSrcPhase);
}
