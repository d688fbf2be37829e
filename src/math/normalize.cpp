// Linear normalisation of a vector: Normalize.
#include "frame/bulk.h"
#include "frame/map.h"
#include "frame/scale.h"
#include "zels.h"

#include <bit>
#include <cfloat>

namespace {

/// Single precision refuses divisors below the normal numbers, double precision 0 alone, on purpose: a
/// reciprocal there may be infinite.
inline bool isNoDivisor(Zel32f vDiv)
{
    return __builtin_fabsf(vDiv) < FLT_MIN;
}
inline bool isNoDivisor(Zel64f vDiv)
{
    return vDiv == 0;
}

template <OwnsShape shape, class T>
[[gnu::always_inline]] inline ZelStatus normalize(const T* pSrc, T* pDst, int len, T vSub, OwnsPart<T> vDiv)
{
    if (const ZelStatus status = ownsCheck(len, pSrc, pDst); status != zelStatusOk)
        return status;
    if (isNoDivisor(vDiv))
        return zelErrDivByZero;
    const OwnsVec<T> sub = ownsSplat(vSub);
    const OwnsPart<T> reciprocal = 1 / vDiv;
    ownsMap<shape>([=](OwnsVec<T> x) { return (x - sub) * reciprocal; }, pDst, len, pSrc);
    return zelStatusOk;
}

/// 2^(-scaleFactor), kept within the normal numbers. Beyond 2^96 each difference but 0 saturates whatever the
/// divisor, below 2^-96 all vanish.
inline Zel32f powerOfTwo(int scaleFactor)
{
    const int exponent = scaleFactor < -96 ? 96 : scaleFactor > 96 ? -96 : -scaleFactor;
    return std::bit_cast<Zel32f>((127 + exponent) << 23);
}

/// For 16s and 16sc, whose constant repeats over the lanes.
template <OwnsShape shape, class T>
[[gnu::always_inline]] inline ZelStatus normalizeScaled(const T* pSrc, T* pDst, int len, T vSub, int vDiv,
                                                        int scaleFactor)
{
    if (const ZelStatus status = ownsCheck(len, pSrc, pDst); status != zelStatusOk)
        return status;
    if (vDiv == 0)
        return zelErrDivByZero;
    const Zel32f factor = 1.0f / static_cast<Zel32f>(vDiv) * powerOfTwo(scaleFactor);
    // No difference of two elements reaches one half then.
    if (__builtin_fabsf(factor) < 0x1p-17f)
        return ownsZero(pDst, len);
    const __m128i sub = ownsInt(ownsSplat(vSub));
    const OwnsVec<Zel32s> subLow = ownsAs<Zel32s>(_mm_cvtepi16_epi32(sub));
    const auto normalized = [=](__m128i x) {
        const OwnsVec<Zel32s> difference = ownsAs<Zel32s>(_mm_cvtepi16_epi32(x)) - subLow;
        const OwnsVec<Zel32f> scaled = OwnsVec<Zel32f>(_mm_cvtepi32_ps(ownsInt(difference))) * factor;
        return _mm_cvttps_epi32(ownsRoundedNear(ownsBounded(scaled, 32767.0f)));
    };
    ownsMap<shape>(
        [=](OwnsVec<Zel16s> x) {
            return ownsAs<Zel16s>(
                _mm_packs_epi32(normalized(ownsInt(x)), normalized(_mm_srli_si128(ownsInt(x), 8))));
        },
        pDst, len, pSrc);
    return zelStatusOk;
}

} // namespace

ZelStatus zelsNormalize_32f(const Zel32f* pSrc, Zel32f* pDst, int len, Zel32f vSub, Zel32f vDiv)
{
    return normalize<shape_32f>(pSrc, pDst, len, vSub, vDiv);
}

ZelStatus zelsNormalize_32f_I(Zel32f* pSrcDst, int len, Zel32f vSub, Zel32f vDiv)
{
    return zelsNormalize_32f(pSrcDst, pSrcDst, len, vSub, vDiv);
}

ZelStatus zelsNormalize_64f(const Zel64f* pSrc, Zel64f* pDst, int len, Zel64f vSub, Zel64f vDiv)
{
    return normalize<shape_64f>(pSrc, pDst, len, vSub, vDiv);
}

ZelStatus zelsNormalize_64f_I(Zel64f* pSrcDst, int len, Zel64f vSub, Zel64f vDiv)
{
    return zelsNormalize_64f(pSrcDst, pSrcDst, len, vSub, vDiv);
}

ZelStatus zelsNormalize_32fc(const Zel32fc* pSrc, Zel32fc* pDst, int len, Zel32fc vSub, Zel32f vDiv)
{
    return normalize<shape_32fc>(pSrc, pDst, len, vSub, vDiv);
}

ZelStatus zelsNormalize_32fc_I(Zel32fc* pSrcDst, int len, Zel32fc vSub, Zel32f vDiv)
{
    return zelsNormalize_32fc(pSrcDst, pSrcDst, len, vSub, vDiv);
}

ZelStatus zelsNormalize_64fc(const Zel64fc* pSrc, Zel64fc* pDst, int len, Zel64fc vSub, Zel64f vDiv)
{
    return normalize<shape_64fc>(pSrc, pDst, len, vSub, vDiv);
}

ZelStatus zelsNormalize_64fc_I(Zel64fc* pSrcDst, int len, Zel64fc vSub, Zel64f vDiv)
{
    return zelsNormalize_64fc(pSrcDst, pSrcDst, len, vSub, vDiv);
}

ZelStatus zelsNormalize_16s_Sfs(const Zel16s* pSrc, Zel16s* pDst, int len, Zel16s vSub, int vDiv,
                                int scaleFactor)
{
    return normalizeScaled<shape_16s>(pSrc, pDst, len, vSub, vDiv, scaleFactor);
}

ZelStatus zelsNormalize_16s_ISfs(Zel16s* pSrcDst, int len, Zel16s vSub, int vDiv, int scaleFactor)
{
    return zelsNormalize_16s_Sfs(pSrcDst, pSrcDst, len, vSub, vDiv, scaleFactor);
}

ZelStatus zelsNormalize_16sc_Sfs(const Zel16sc* pSrc, Zel16sc* pDst, int len, Zel16sc vSub, int vDiv,
                                 int scaleFactor)
{
    return normalizeScaled<shape_16sc>(pSrc, pDst, len, vSub, vDiv, scaleFactor);
}

ZelStatus zelsNormalize_16sc_ISfs(Zel16sc* pSrcDst, int len, Zel16sc vSub, int vDiv, int scaleFactor)
{
    return zelsNormalize_16sc_Sfs(pSrcDst, pSrcDst, len, vSub, vDiv, scaleFactor);
}
