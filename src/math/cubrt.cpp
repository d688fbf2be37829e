// Cube roots: Cubrt.
#include "frame/map.h"
#include "frame/scale.h"
#include "math/vecMath.h"
#include "zels.h"

namespace {

constexpr auto cubrtOf = [](auto x) { return ownsCubrt(x); };

/// A root of at most 1290 times the scale, to the nearest integer.
template <class Scale>
struct FixedCubrt {
    Scale scale;

    OwnsVec<Zel16s> operator()(OwnsVecs<Zel32s, 2> n) const
    {
        const auto rooted = [this](OwnsVec<Zel32s> v) {
            return _mm_cvttps_epi32(ownsRoundedNear(ownsBounded(scale(ownsCubrtOfIntegers(v)), 32767.0f)));
        };
        return ownsAs<Zel16s>(_mm_packs_epi32(rooted(n.v[0]), rooted(n.v[1])));
    }
};

} // namespace

ZelStatus zelsCubrt_32f(const Zel32f* pSrc, Zel32f* pDst, int len)
{
    return ownsRun<shape_32f>(cubrtOf, pDst, len, pSrc);
}

ZelStatus zelsCubrt_32s16s_Sfs(const Zel32s* pSrc, Zel16s* pDst, int len, int scaleFactor)
{
    if (const ZelStatus status = ownsCheck(len, pSrc, pDst); status != zelStatusOk)
        return status;
    ownsWithFloatScale(scaleFactor, [=](auto scale) {
        ownsMap<shape_16s>(FixedCubrt<decltype(scale)>{scale}, pDst, len, pSrc);
    });
    return zelStatusOk;
}
