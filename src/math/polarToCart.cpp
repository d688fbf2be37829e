// Polar to Cartesian form: PolarToCart.
#include "frame/entry.h"
#include "frame/roundingMode.h"
#include "frame/scale.h"
#include "math/polar.h"
#include "math/vecMath.h"
#include "zels.h"

#include <algorithm>

namespace {

struct Cartesian {
    template <class V>
    [[gnu::always_inline]] OwnsParts2<V> operator()(V magn, V phase) const
    {
        V sin, cos;
        ownsSinCos(phase, sin, cos);
        return {magn * cos, magn * sin};
    }
};
constexpr Cartesian cartesian;

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

// Fixed point. Double precision rounds the exact value unless that is within 2^-36 of a tie, for all scale factors.
// Where angles fit a table of bits and magnitudes are not scaled up, single precision settles nearly all of it.

class DoubleCartesian {
  public:
    static constexpr OwnsCode code = OwnsCode::least;

    DoubleCartesian(int magnScaleFactor, int phaseScaleFactor)
        : magnFactor(powerOfTwo(magnScaleFactor)), phaseFactor(powerOfTwo(phaseScaleFactor))
    {
    }

    OwnsVec<Zel16s> operator()(OwnsVec<Zel16s> magn, OwnsVec<Zel16s> phase) const
    {
        const __m128i m = _mm_cvtepi16_epi32(ownsInt(magn));
        const __m128i p = _mm_cvtepi16_epi32(ownsInt(phase));
        return ownsAs<Zel16s>(_mm_packs_epi32(two(m, p), two(_mm_srli_si128(m, 8), _mm_srli_si128(p, 8))));
    }

    /// Two elements of integers, as integers.
    __m128i two(__m128i magn, __m128i phase) const
    {
        const auto nearest = [](OwnsVec<Zel64f> x) {
            return _mm_cvttpd_epi32(ownsRoundedNear(ownsBounded(x, 32767)));
        };
        const auto parts = cartesian(OwnsVec<Zel64f>(_mm_cvtepi32_pd(magn)) * magnFactor,
                                     OwnsVec<Zel64f>(_mm_cvtepi32_pd(phase)) * phaseFactor);
        return _mm_unpacklo_epi32(nearest(parts.first), nearest(parts.second));
    }

  private:
    /// And finite.
    static Zel64f powerOfTwo(int scaleFactor) { return ownsScaled(1, std::clamp(scaleFactor, -1000, 1000)); }

    Zel64f magnFactor, phaseFactor;
};

/// To be run in the rounding mode to nearest.
class SingleCartesian {
  public:
    static constexpr OwnsCode code = OwnsCode::compact;

    static bool serves(int magnScaleFactor, int phaseScaleFactor)
    {
        return magnScaleFactor >= 0 && phaseScaleFactor >= -64;
    }

    SingleCartesian(int magnScaleFactor, int phaseScaleFactor)
        : exact(magnScaleFactor, phaseScaleFactor),
          magnFactor(ownsSplat(static_cast<Zel32f>(ownsScaled(1, std::min(magnScaleFactor, 100))))),
          sure((0.5f - 0x1p-24f) - 0x1.01p-10f * magnFactor)
    {
        // 2^-phaseScaleFactor / (2 pi) in units of 2^-48 turns, without whole turns: the bits of 1 / (2 pi).
        constexpr auto turns =
            static_cast<unsigned __int128>(0x28BE60DB9391054Au) << 64 | 0x7F09D5F47D4D3770u;
        const auto shifted =
            phaseScaleFactor <= 0 ? turns << -phaseScaleFactor : turns >> std::min(phaseScaleFactor, 100);
        const auto factor = static_cast<Zel64u>((shifted >> 79) + 1) >> 1;
        const auto low = static_cast<Zel16s>(factor);
        turnsLow = ownsSplat(low);
        turnsHigh = ownsSplat(static_cast<Zel32s>((factor - static_cast<Zel64u>(Zel64s{low})) >> 16));
    }

    OwnsVec<Zel16s> operator()(OwnsVec<Zel16s> magn, OwnsVec<Zel16s> phase) const
    {
        using V = OwnsVec<Zel32f>;
        // In units of 2^-32 turns, off by one of them; then less the nearest of the quarters, whose number is in
        // the upper two bits.
        const __m128i low = _mm_cvtepi16_epi32(_mm_mulhi_epi16(ownsInt(phase), ownsInt(turnsLow)));
        const __m128i high = _mm_mullo_epi32(_mm_cvtepi16_epi32(ownsInt(phase)), ownsInt(turnsHigh));
        const __m128i eighth = _mm_set1_epi32(1 << 29);
        const __m128i quarters = _mm_add_epi32(_mm_add_epi32(high, low), eighth);
        const __m128i beyond = _mm_sub_epi32(_mm_and_si128(quarters, _mm_set1_epi32((1 << 30) - 1)), eighth);
        const V r = V(_mm_cvtepi32_ps(beyond)) * 0x1.921fb6p-30f;
        const V z = r * r;
        // Off by 2^-29 and 2^-33; what rounding adds makes less than 2.05 * 2^-24. The product is off by that of the
        // magnitude, and half a unit of its own.
        const V sinR = r + r * (z * (-0x1.55554p-3f + z * (0x1.1105b4p-7f + z * -0x1.98da68p-13f)));
        const V cosR = 1 + z * (-0.5f + z * (0x1.55554ap-5f + z * (-0x1.6c0c8cp-10f + z * 0x1.9a025ap-16f)));

        const V isOdd = _mm_castsi128_ps(_mm_slli_epi32(quarters, 1));
        const V sign = ownsSplat(-0.0f);
        const V sinSign = _mm_and_ps(sign, _mm_castsi128_ps(quarters));
        const V cosSign =
            _mm_and_ps(sign, _mm_castsi128_ps(_mm_add_epi32(quarters, _mm_set1_epi32(1 << 30))));
        const V sin = _mm_xor_ps(_mm_blendv_ps(sinR, cosR, isOdd), sinSign);
        const V cos = _mm_xor_ps(_mm_blendv_ps(cosR, sinR, isOdd), cosSign);

        const V m = ownsWidened32f(magn) * magnFactor;
        const V re = m * cos;
        const V im = m * sin;
        const __m128i nearestRe = _mm_cvtps_epi32(re);
        const __m128i nearestIm = _mm_cvtps_epi32(im);
        const V restRe = magnitude(re - V(_mm_cvtepi32_ps(nearestRe)));
        const V restIm = magnitude(im - V(_mm_cvtepi32_ps(nearestIm)));
        const __m128i first = _mm_unpacklo_epi32(nearestRe, nearestIm);
        const __m128i second = _mm_unpackhi_epi32(nearestRe, nearestIm);
        const V limit = sure - magnitude(m) * 0x1.08p-23f;
        const int unsure = _mm_movemask_ps(_mm_cmpgt_ps(_mm_max_ps(restRe, restIm), limit));
        if (unsure != 0) [[unlikely]]
            return nearTie(exact, magn, phase, first, second, unsure);
        return ownsAs<Zel16s>(_mm_packs_epi32(first, second));
    }

  private:
    static OwnsVec<Zel32f> magnitude(OwnsVec<Zel32f> x)
    {
        return _mm_and_ps(x, _mm_castsi128_ps(_mm_set1_epi32(INT32_MAX)));
    }

    [[gnu::noinline]] static OwnsVec<Zel16s> nearTie(const DoubleCartesian& exact, OwnsVec<Zel16s> magn,
                                                     OwnsVec<Zel16s> phase, __m128i first, __m128i second,
                                                     int unsure)
    {
        const __m128i m = _mm_cvtepi16_epi32(ownsInt(magn));
        const __m128i p = _mm_cvtepi16_epi32(ownsInt(phase));
        if ((unsure & 3) != 0)
            first = exact.two(m, p);
        if ((unsure & 12) != 0)
            second = exact.two(_mm_srli_si128(m, 8), _mm_srli_si128(p, 8));
        return ownsAs<Zel16s>(_mm_packs_epi32(first, second));
    }

    // Repeated over the lanes here, and not for each vector of elements anew.
    DoubleCartesian exact;
    OwnsVec<Zel32f> magnFactor;
    OwnsVec<Zel32f>
        sure; ///< how far from an integer a part may be, but for what its sine or cosine is off by
    OwnsVec<Zel32s> turnsHigh;
    OwnsVec<Zel16s> turnsLow;
};

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
    if (const ZelStatus status = ownsCheck(len, pSrcMagn, pSrcPhase, pDst); status != zelStatusOk)
        return status;
    const OwnsNearestMode mode;
    if (SingleCartesian::serves(magnScaleFactor, phaseScaleFactor))
        ownsMap<shape_16sc>(SingleCartesian(magnScaleFactor, phaseScaleFactor), pDst, len, pSrcMagn,
                            pSrcPhase);
    else
        ownsMap<shape_16sc>(DoubleCartesian(magnScaleFactor, phaseScaleFactor), pDst, len, pSrcMagn,
                            pSrcPhase);
    return zelStatusOk;
}
