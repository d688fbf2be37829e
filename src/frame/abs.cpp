// Absolute values.
#include "frame/entry.h"
#include "frame/map.h"
#include "zels.h"

namespace {

// The most negative integer has no counterpart and becomes the largest: clamped before (16 bits), or mended
// after (32 bits, where its absolute value comes out as itself and the sign mask added to it wraps to the
// maximum).
constexpr auto absSaturated16 = [](auto x) {
    return ownsAs<Zel16s>(_mm_abs_epi16(_mm_max_epi16(ownsInt(x), _mm_set1_epi16(-32767))));
};

constexpr auto absSaturated32 = [](auto x) {
    const __m128i magnitude = _mm_abs_epi32(ownsInt(x));
    return ownsAs<Zel32s>(_mm_add_epi32(magnitude, _mm_srai_epi32(magnitude, 31)));
};

/// The sign bit cleared: a NaN keeps its payload, -0 becomes +0.
struct AbsFloat {
    OwnsVec<Zel32f> operator()(OwnsVec<Zel32f> x) const { return _mm_andnot_ps(_mm_set1_ps(-0.0f), x); }
    OwnsVec<Zel64f> operator()(OwnsVec<Zel64f> x) const { return _mm_andnot_pd(_mm_set1_pd(-0.0), x); }
};

} // namespace

ZelStatus zelsAbs_16s(const Zel16s* pSrc, Zel16s* pDst, int len)
{
    return ownsRun<shape_16s>(absSaturated16, pDst, len, pSrc);
}

ZelStatus zelsAbs_16s_I(Zel16s* pSrcDst, int len)
{
    return ownsRun<shape_16s>(absSaturated16, pSrcDst, len, pSrcDst);
}

ZelStatus zelsAbs_32s(const Zel32s* pSrc, Zel32s* pDst, int len)
{
    return ownsRun<shape_32s>(absSaturated32, pDst, len, pSrc);
}

ZelStatus zelsAbs_32s_I(Zel32s* pSrcDst, int len)
{
    return ownsRun<shape_32s>(absSaturated32, pSrcDst, len, pSrcDst);
}

ZelStatus zelsAbs_32f(const Zel32f* pSrc, Zel32f* pDst, int len)
{
    return ownsRun<shape_32f>(AbsFloat{}, pDst, len, pSrc);
}

ZelStatus zelsAbs_32f_I(Zel32f* pSrcDst, int len)
{
    return ownsRun<shape_32f>(AbsFloat{}, pSrcDst, len, pSrcDst);
}

ZelStatus zelsAbs_32f_L(const Zel32f* pSrc, Zel32f* pDst, ZelSize len)
{
    return ownsChunked<zelsAbs_32f, Zel32f>(len, pSrc, pDst);
}

ZelStatus zelsAbs_32f_I_L(Zel32f* pSrcDst, ZelSize len)
{
    return ownsChunked<zelsAbs_32f_I, Zel32f>(len, pSrcDst);
}

ZelStatus zelsAbs_64f(const Zel64f* pSrc, Zel64f* pDst, int len)
{
    return ownsRun<shape_64f>(AbsFloat{}, pDst, len, pSrc);
}

ZelStatus zelsAbs_64f_I(Zel64f* pSrcDst, int len)
{
    return ownsRun<shape_64f>(AbsFloat{}, pSrcDst, len, pSrcDst);
}

ZelStatus zelsAbs_64f_L(const Zel64f* pSrc, Zel64f* pDst, ZelSize len)
{
    return ownsChunked<zelsAbs_64f, Zel64f>(len, pSrc, pDst);
}

ZelStatus zelsAbs_64f_I_L(Zel64f* pSrcDst, ZelSize len)
{
    return ownsChunked<zelsAbs_64f_I, Zel64f>(len, pSrcDst);
}
