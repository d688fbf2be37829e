// Sums, differences and products of mixed element types.
#include "frame/map.h"
#include "frame/roundingMode.h"
#include "frame/scale.h"
#include "zels.h"

#include <cfloat>

namespace {

/// An operation on two 16s vectors in single precision; both conversions are exact.
template <auto op>
struct OnWidened16s {
    OwnsVec<Zel32f> operator()(OwnsVec<Zel16s> a, OwnsVec<Zel16s> b) const
    {
        return op(ownsWidened32f(a), ownsWidened32f(b));
    }
};
constexpr OnWidened16s<[](auto a, auto b) { return a + b; }> addWidened;
constexpr OnWidened16s<[](auto a, auto b) { return b - a; }> subWidenedFrom;
constexpr OnWidened16s<[](auto a, auto b) { return a * b; }> mulWidened;

/// Both parts of a complex element times a real one.
constexpr auto mulParts = [](OwnsVec<Zel32f> factor, OwnsVec<Zel32f> x) {
    return OwnsVec<Zel32f>{factor[0], factor[0], factor[1], factor[1]} * x;
};

/// A constant times 2 to the power -scaleFactor. Beyond the range of a float it stays at the edge: it becomes
/// neither infinite, so that an element of 0 gives 0, nor 0, so that an infinite one still saturates.
Zel32f scaledConstant(Zel32f val, int scaleFactor)
{
    if (val == 0 || !__builtin_isfinite(val))
        return val;
    Zel64f size = __builtin_fabs(ownsScaled(val, scaleFactor));
    size = size > FLT_MAX ? FLT_MAX : size < FLT_TRUE_MIN ? FLT_TRUE_MIN : size;
    return __builtin_copysignf(static_cast<Zel32f>(size), val);
}

} // namespace

ZelStatus zelsAdd_16s32f(const Zel16s* pSrc1, const Zel16s* pSrc2, Zel32f* pDst, int len)
{
    return ownsRun<shapeAdd_16s32f>(addWidened, pDst, len, pSrc1, pSrc2);
}

ZelStatus zelsSub_16s32f(const Zel16s* pSrc1, const Zel16s* pSrc2, Zel32f* pDst, int len)
{
    return ownsRun<shape_32f>(subWidenedFrom, pDst, len, pSrc1, pSrc2);
}

ZelStatus zelsMul_16s32f(const Zel16s* pSrc1, const Zel16s* pSrc2, Zel32f* pDst, int len)
{
    return ownsRun<shape_32f>(mulWidened, pDst, len, pSrc1, pSrc2);
}

ZelStatus zelsMul_32f32fc(const Zel32f* pSrc1, const Zel32fc* pSrc2, Zel32fc* pDst, int len)
{
    return ownsRun<shape_32fc>(mulParts, pDst, len, pSrc1, pSrc2);
}

ZelStatus zelsMul_32f32fc_I(const Zel32f* pSrc, Zel32fc* pSrcDst, int len)
{
    return ownsRun<shape_32fc>(mulParts, pSrcDst, len, pSrc, pSrcDst);
}

// The low variant has no clamp: cvtps2dq gives the most negative integer for whatever it cannot hold, and
// packing makes that -32768, even of a positive product.
ZelStatus zelsMulC_Low_32f16s(const Zel32f* pSrc, Zel32f val, Zel16s* pDst, int len)
{
    const auto narrow = [val](OwnsVecs<Zel32f, 2> x) {
        return ownsAs<Zel16s>(_mm_packs_epi32(_mm_cvtps_epi32(x.v[0] * val), _mm_cvtps_epi32(x.v[1] * val)));
    };
    return ownsRun<shape_16s>(narrow, pDst, len, pSrc);
}

// Product and conversion round to nearest whatever the caller's mode. Packing saturates downwards by itself.
ZelStatus zelsMulC_32f16s_Sfs(const Zel32f* pSrc, Zel32f val, Zel16s* pDst, int len, int scaleFactor)
{
    const OwnsNearestMode nearest;
    const Zel32f factor = scaledConstant(val, scaleFactor);
    const auto narrow = [factor](OwnsVecs<Zel32f, 2> x) {
        return ownsAs<Zel16s>(_mm_packs_epi32(_mm_cvtps_epi32(ownsBounded(x.v[0] * factor, 32767.0f)),
                                              _mm_cvtps_epi32(ownsBounded(x.v[1] * factor, 32767.0f))));
    };
    return ownsRun<shape_16s>(narrow, pDst, len, pSrc);
}

// The constant takes the scaling, which is exact unless it leaves the range of a double, and then the product
// is as surely 0 or saturated. An element of 0 gives 0 whatever the constant.
ZelStatus zelsMulC_64f64s_ISfs(Zel64f val, Zel64s* pSrcDst, int len, int scaleFactor)
{
    if (const ZelStatus status = ownsCheck(len, pSrcDst); status != zelStatusOk)
        return status;
    const Zel64f factor = ownsScaled(val, scaleFactor);
    for (int i = 0; i < len; i++) {
        const Zel64s x = ownsGet(pSrcDst + i);
        ownsPut(pSrcDst + i, x == 0 ? 0 : ownsSaturated64s(static_cast<Zel64f>(x) * factor));
    }
    return zelStatusOk;
}
