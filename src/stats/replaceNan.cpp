// Replacement of NaNs, by their bit patterns: above that of infinity when the sign is off.
#include "frame/map.h"
#include "zels.h"

#include <bit>

namespace {

struct Replace32f {
    OwnsVec<Zel32f> value;

    OwnsVec<Zel32f> operator()(OwnsVec<Zel32f> x) const
    {
        const __m128i magnitude = _mm_and_si128(ownsInt(x), _mm_set1_epi32(INT32_MAX));
        const __m128i nan = _mm_cmpgt_epi32(magnitude, _mm_set1_epi32(0x7F800000));
        return _mm_blendv_ps(x, value, ownsFloat(nan));
    }
    Zel32f operator()(Zel32f x) const
    {
        return (std::bit_cast<Zel32u>(x) & INT32_MAX) > 0x7F800000 ? value[0] : x;
    }
};

struct Replace64f {
    OwnsVec<Zel64f> value;

    OwnsVec<Zel64f> operator()(OwnsVec<Zel64f> x) const
    {
        const __m128i magnitude = _mm_and_si128(ownsInt(x), _mm_set1_epi64x(INT64_MAX));
        const __m128i nan = _mm_cmpgt_epi64(magnitude, _mm_set1_epi64x(0x7FF0000000000000));
        return _mm_blendv_pd(x, value, ownsDouble(nan));
    }
    Zel64f operator()(Zel64f x) const
    {
        return (std::bit_cast<Zel64u>(x) & INT64_MAX) > 0x7FF0000000000000 ? value[0] : x;
    }
};

} // namespace

ZelStatus zelsReplaceNAN_32f_I(Zel32f* pSrcDst, int len, Zel32f value)
{
    return ownsRun<shape_32f>(Replace32f{ownsSplat(value)}, pSrcDst, len, pSrcDst);
}

ZelStatus zelsReplaceNAN_64f_I(Zel64f* pSrcDst, int len, Zel64f value)
{
    return ownsRun<shape_64f>(Replace64f{ownsSplat(value)}, pSrcDst, len, pSrcDst);
}
