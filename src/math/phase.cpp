// Phase of complex data: Phase.
#include "frame/bulk.h"
#include "frame/roundingMode.h"
#include "frame/scale.h"
#include "math/polar.h"
#include "math/vecMath.h"
#include "zels.h"

#include <algorithm>
#include <numbers>

namespace {

constexpr OwnsOnParts phase{[](auto re, auto im) { return ownsAtan2(im, re); }};

struct PhaseOf16 {
    static constexpr OwnsCode code = OwnsCode::compact;

    OwnsVec<Zel32f> operator()(OwnsVec<Zel16s> re, OwnsVec<Zel16s> im) const
    {
        return ownsAtan2(ownsWidened32f(im), ownsWidened32f(re));
    }
    OwnsVec<Zel32f> operator()(OwnsVec<Zel16s> x) const
    {
        const OwnsVec<Zel32s> parts = ownsAs<Zel32s>(x);
        return ownsAtan2(_mm_cvtepi32_ps(ownsInt(parts >> 16)), _mm_cvtepi32_ps(ownsInt(parts << 16 >> 16)));
    }
};
constexpr PhaseOf16 phaseOf16;

/// The angle of 16-bit parts times a power of two, rounded to nearest and saturated. But for 0 an angle of
/// integers is never a tie, since it is transcendental; so near a tie single precision gives way to double,
/// which is right unless a tie is nearer than 2^-37. To be run in the rounding mode to nearest.
class ScaledPhase {
    using V = OwnsVec<Zel32f>;

  public:
    static constexpr OwnsCode code = OwnsCode::compact;

    explicit ScaledPhase(int scaleFactor)
        // From 2^29 on all angles but the smallest saturate, from 2^31 on all but 0.
        : factor64(ownsScaled(1, std::max(scaleFactor, -40))),
          factor(ownsSplat(static_cast<Zel32f>(factor64))),
          // Single precision is off by less than 1.5 * 2^-23 of the largest result.
          sure(ownsSplat(
              static_cast<Zel32f>(0.5 - 0x1.8p-23 * std::min(std::numbers::pi * factor64, 32768.0))))
    {
    }

    OwnsVec<Zel16s> operator()(OwnsVec<Zel16s> re, OwnsVec<Zel16s> im) const
    {
        const auto high = [](OwnsVec<Zel16s> x) { return _mm_srli_si128(ownsInt(x), 8); };
        return ownsAs<Zel16s>(
            _mm_packs_epi32(four(_mm_cvtepi16_epi32(ownsInt(re)), _mm_cvtepi16_epi32(ownsInt(im))),
                            four(_mm_cvtepi16_epi32(high(re)), _mm_cvtepi16_epi32(high(im)))));
    }
    OwnsVec<Zel16s> operator()(OwnsVecs<Zel16sc, 2> x) const
    {
        const auto half = [this](OwnsVec<Zel16s> v) {
            const OwnsVec<Zel32s> parts = ownsAs<Zel32s>(v);
            return four(ownsInt(parts << 16 >> 16), ownsInt(parts >> 16));
        };
        return ownsAs<Zel16s>(_mm_packs_epi32(half(x.v[0]), half(x.v[1])));
    }

  private:
    static V where(__m128 condition, V x) { return _mm_and_ps(condition, x); }
    static V flip(V x, V sign) { return _mm_xor_ps(x, sign); }

    __m128i four(__m128i re, __m128i im) const
    {
        const V x = _mm_cvtepi32_ps(re);
        const V y = _mm_cvtepi32_ps(im);
        const V sign = _mm_set1_ps(-0.0f);
        const V absX = _mm_andnot_ps(sign, x);
        const V absY = _mm_andnot_ps(sign, y);
        const V a = _mm_min_ps(absX, absY);
        const V b = _mm_max_ps(absX, absY);

        // Within pi/8 of the nearest axis or diagonal: by the quotient of integers, which are exact.
        const __m128 isDiagonal = _mm_cmpgt_ps(a, b * 0.41421356f);
        const V numerator = a - where(isDiagonal, b);
        const V denominator = b + where(isDiagonal, a);
        const V t = numerator / V(_mm_max_ps(denominator, _mm_set1_ps(1)));
        const V z = t * t;
        // (atan(t) - t) / t^3 in t^2, off by 2^-25.5 of the angle.
        const V tail = -0x1.555454p-2f + z * (0x1.9924bcp-3f + z * (-0x1.1c3702p-3f + z * 0x1.49e166p-4f));
        const V beside = t + t * (z * tail);

        // The axis or diagonal of the angle, and the way from there.
        const __m128 isSteep = _mm_cmpgt_ps(absY, absX);
        const V isLeft = _mm_castsi128_ps(_mm_srai_epi32(re, 31));
        const V backSteep = where(isSteep, sign);
        const V backLeft = where(isLeft, sign);
        constexpr auto pi = std::numbers::pi_v<Zel32f>;
        const V diagonal = flip(where(isDiagonal, ownsSplat(pi / 4)), backSteep);
        const V upper = flip(where(isSteep, ownsSplat(pi / 2)) + diagonal, backLeft);
        const V angle = (where(isLeft, ownsSplat(pi)) + upper) + flip(flip(beside, backSteep), backLeft);

        const V scaled = flip(ownsBounded(angle * factor, 32768), where(y, sign));
        const __m128i nearest = _mm_cvtps_epi32(scaled);
        const V rest = _mm_andnot_ps(sign, scaled - V(_mm_cvtepi32_ps(nearest)));
        const int unsure = _mm_movemask_ps(_mm_cmpgt_ps(rest, sure));
        if (unsure != 0) [[unlikely]]
            return nearTie(re, im, nearest, unsure, factor64);
        return nearest;
    }

    [[gnu::noinline]] static __m128i nearTie(__m128i re, __m128i im, __m128i nearest, int unsure,
                                             Zel64f factor64)
    {
        const auto two = [=](__m128i x, __m128i y) {
            const OwnsVec<Zel64f> angle = ownsAtan2(_mm_cvtepi32_pd(y), _mm_cvtepi32_pd(x));
            return _mm_cvttpd_epi32(ownsRoundedNear(ownsBounded(angle * factor64, 32767)));
        };
        if ((unsure & 3) != 0)
            nearest = _mm_blend_epi16(two(re, im), nearest, 0xF0);
        if ((unsure & 12) != 0)
            nearest = _mm_unpacklo_epi64(nearest, two(_mm_srli_si128(re, 8), _mm_srli_si128(im, 8)));
        return nearest;
    }

    // Repeated over the lanes here, and not for each vector of elements anew.
    Zel64f factor64;
    V factor, sure;
};

/// From 2 on the results are 0, although the largest angles would still round to 1 there: that is promised.
template <class... S>
[[gnu::always_inline]] inline ZelStatus scaledPhase(Zel16s* pDst, int len, int scaleFactor, const S*... pSrc)
{
    if (const ZelStatus status = ownsCheck(len, pSrc..., pDst); status != zelStatusOk)
        return status;
    if (scaleFactor >= 2)
        return ownsZero(pDst, len);
    const OwnsNearestMode mode;
    ownsMap<shape_16s>(ScaledPhase(scaleFactor), pDst, len, pSrc...);
    return zelStatusOk;
}

} // namespace

ZelStatus zelsPhase_32f(const Zel32f* pSrcRe, const Zel32f* pSrcIm, Zel32f* pDst, int len)
{
    return ownsRun<shape_32f>(phase, pDst, len, pSrcRe, pSrcIm);
}

ZelStatus zelsPhase_64f(const Zel64f* pSrcRe, const Zel64f* pSrcIm, Zel64f* pDst, int len)
{
    return ownsRun<shape_64f>(phase, pDst, len, pSrcRe, pSrcIm);
}

ZelStatus zelsPhase_32fc(const Zel32fc* pSrc, Zel32f* pDst, int len)
{
    return ownsRun<shape_32f>(phase, pDst, len, pSrc);
}

ZelStatus zelsPhase_64fc(const Zel64fc* pSrc, Zel64f* pDst, int len)
{
    return ownsRun<shape_64f>(phase, pDst, len, pSrc);
}

ZelStatus zelsPhase_16s32f(const Zel16s* pSrcRe, const Zel16s* pSrcIm, Zel32f* pDst, int len)
{
    return ownsRun<shape_32f>(phaseOf16, pDst, len, pSrcRe, pSrcIm);
}

ZelStatus zelsPhase_16sc32f(const Zel16sc* pSrc, Zel32f* pDst, int len)
{
    return ownsRun<shape_32f>(phaseOf16, pDst, len, pSrc);
}

ZelStatus zelsPhase_16s_Sfs(const Zel16s* pSrcRe, const Zel16s* pSrcIm, Zel16s* pDst, int len,
                            int scaleFactor)
{
    return scaledPhase(pDst, len, scaleFactor, pSrcRe, pSrcIm);
}

ZelStatus zelsPhase_16sc_Sfs(const Zel16sc* pSrc, Zel16s* pDst, int len, int scaleFactor)
{
    return scaledPhase(pDst, len, scaleFactor, pSrc);
}
