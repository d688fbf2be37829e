// Conversion to wider integers and to floats.
//
// What widens is exact. 32s to 32f, 64s to 64f and 64f to 32f round by the caller's mode, as the plain
// conversion instructions do.
#include "frame/map.h"
#include "frame/scale.h"
#include "zels.h"

namespace {

/// The upper half of a vector, in the lower.
template <class V>
V upper(V x)
{
    return reinterpret_cast<V>(_mm_unpackhi_epi64(ownsInt(x), ownsInt(x)));
}

struct Widen8s16s {
    OwnsVec<Zel16s> operator()(OwnsVec<Zel8s> x) const
    {
        return ownsAs<Zel16s>(_mm_cvtepi8_epi16(ownsInt(x)));
    }
    OwnsVecs<Zel16s, 2> pair(OwnsVec<Zel8s> x) const { return {{(*this)(x), (*this)(upper(x))}}; }
};
struct Widen16s32s {
    OwnsVec<Zel32s> operator()(OwnsVec<Zel16s> x) const
    {
        return ownsAs<Zel32s>(_mm_cvtepi16_epi32(ownsInt(x)));
    }
    OwnsVecs<Zel32s, 2> pair(OwnsVec<Zel16s> x) const { return {{(*this)(x), (*this)(upper(x))}}; }
};

// The low lanes of an integer vector as floats.
OwnsVec<Zel32f> floats(OwnsVec<Zel8s> x)
{
    return _mm_cvtepi32_ps(_mm_cvtepi8_epi32(ownsInt(x)));
}
OwnsVec<Zel32f> floats(OwnsVec<Zel8u> x)
{
    return _mm_cvtepi32_ps(_mm_cvtepu8_epi32(ownsInt(x)));
}
OwnsVec<Zel32f> floats(OwnsVec<Zel16s> x)
{
    return ownsWidened32f(x);
}
OwnsVec<Zel32f> floats(OwnsVec<Zel16u> x)
{
    return _mm_cvtepi32_ps(_mm_cvtepu16_epi32(ownsInt(x)));
}
OwnsVec<Zel32f> floats(OwnsVec<Zel32s> x)
{
    return _mm_cvtepi32_ps(ownsInt(x));
}
OwnsVec<Zel64f> doubles(OwnsVec<Zel16s> x)
{
    return _mm_cvtepi32_pd(_mm_cvtepi16_epi32(ownsInt(x)));
}
OwnsVec<Zel64f> doubles(OwnsVec<Zel32s> x)
{
    return _mm_cvtepi32_pd(ownsInt(x));
}
OwnsVec<Zel64f> doubles(OwnsVec<Zel64s> x)
{
    return OwnsVec<Zel64f>{static_cast<Zel64f>(x[0]), static_cast<Zel64f>(x[1])};
}
OwnsVec<Zel64f> doubles(OwnsVec<Zel32f> x)
{
    return _mm_cvtps_pd(x);
}

/// To single or double precision, then scaled.
template <class F, class Scale>
struct ToFloat {
    Scale scale;

    template <class V>
    OwnsVec<F> operator()(V x) const
    {
        if constexpr (std::is_same_v<F, Zel32f>)
            return scale(floats(x));
        else
            return scale(doubles(x));
    }
    template <class V>
    OwnsVecs<F, 2> pair(V x) const requires(2 * sizeof(x[0]) == sizeof(F))
    {
        return {{(*this)(x), (*this)(upper(x))}};
    }
};

constexpr auto unscaled = [](auto x) { return x; };
constexpr ToFloat<Zel32f, decltype(unscaled)> to32f{unscaled};
constexpr ToFloat<Zel64f, decltype(unscaled)> to64f{unscaled};

struct Narrow64f32f {
    OwnsVec<Zel32f> operator()(OwnsVecs<Zel64f, 2> x) const
    {
        return _mm_movelh_ps(_mm_cvtpd_ps(x.v[0]), _mm_cvtpd_ps(x.v[1]));
    }
};

template <OwnsShape shape, class F, class S>
[[gnu::always_inline]] inline ZelStatus runScaled(const S* pSrc, F* pDst, int len, int scaleFactor)
{
    if (const ZelStatus status = ownsCheck(len, pSrc, pDst); status != zelStatusOk)
        return status;
    ownsWithFloatScale<F>(scaleFactor, [=](auto scale) {
        ownsMap<shape>(ToFloat<F, decltype(scale)>{scale}, pDst, len, pSrc);
    });
    return zelStatusOk;
}

} // namespace

ZelStatus zelsConvert_8s16s(const Zel8s* pSrc, Zel16s* pDst, int len)
{
    return ownsRun<shape_16s>(Widen8s16s{}, pDst, len, pSrc);
}

ZelStatus zelsConvert_16s32s(const Zel16s* pSrc, Zel32s* pDst, int len)
{
    return ownsRun<shapeConvert_16s32s>(Widen16s32s{}, pDst, len, pSrc);
}

ZelStatus zelsConvert_8s32f(const Zel8s* pSrc, Zel32f* pDst, int len)
{
    return ownsRun<shape_32f>(to32f, pDst, len, pSrc);
}

ZelStatus zelsConvert_8u32f(const Zel8u* pSrc, Zel32f* pDst, int len)
{
    return ownsRun<shape_32f>(to32f, pDst, len, pSrc);
}

ZelStatus zelsConvert_16s32f(const Zel16s* pSrc, Zel32f* pDst, int len)
{
    return ownsRun<shape_32f>(to32f, pDst, len, pSrc);
}

ZelStatus zelsConvert_16u32f(const Zel16u* pSrc, Zel32f* pDst, int len)
{
    return ownsRun<shape_32f>(to32f, pDst, len, pSrc);
}

ZelStatus zelsConvert_32s32f(const Zel32s* pSrc, Zel32f* pDst, int len)
{
    return ownsRun<shape_32f>(to32f, pDst, len, pSrc);
}

ZelStatus zelsConvert_32s64f(const Zel32s* pSrc, Zel64f* pDst, int len)
{
    return ownsRun<shape_64f>(to64f, pDst, len, pSrc);
}

ZelStatus zelsConvert_64s64f(const Zel64s* pSrc, Zel64f* pDst, int len)
{
    return ownsRun<shape_64f>(to64f, pDst, len, pSrc);
}

ZelStatus zelsConvert_32f64f(const Zel32f* pSrc, Zel64f* pDst, int len)
{
    return ownsRun<shapeConvert_32f64f>(to64f, pDst, len, pSrc);
}

ZelStatus zelsConvert_64f32f(const Zel64f* pSrc, Zel32f* pDst, int len)
{
    return ownsRun<shape_32f>(Narrow64f32f{}, pDst, len, pSrc);
}

ZelStatus zelsConvert_16s32f_Sfs(const Zel16s* pSrc, Zel32f* pDst, int len, int scaleFactor)
{
    return runScaled<shape_32f>(pSrc, pDst, len, scaleFactor);
}

ZelStatus zelsConvert_16s64f_Sfs(const Zel16s* pSrc, Zel64f* pDst, int len, int scaleFactor)
{
    return runScaled<shapeConvert_16s64f>(pSrc, pDst, len, scaleFactor);
}

ZelStatus zelsConvert_32s32f_Sfs(const Zel32s* pSrc, Zel32f* pDst, int len, int scaleFactor)
{
    return runScaled<shape_32f>(pSrc, pDst, len, scaleFactor);
}

ZelStatus zelsConvert_32s64f_Sfs(const Zel32s* pSrc, Zel64f* pDst, int len, int scaleFactor)
{
    return runScaled<shape_64f>(pSrc, pDst, len, scaleFactor);
}
