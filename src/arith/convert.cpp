// Conversion between element types.
#include "frame/map.h"
#include "frame/roundingMode.h"
#include "frame/scale.h"
#include "zels.h"

namespace {

struct Widen16s32f {
    Zel32f operator()(Zel16s x) const { return static_cast<Zel32f>(x); }
    OwnsVec<Zel32f> operator()(OwnsVec<Zel16s> x) const { return ownsWidened32f(x); }
};

/// One half with the sign of x added, the "financial" step before truncation.
OwnsVec<Zel32f> withHalf(OwnsVec<Zel32f> x)
{
    return x + _mm_or_ps(_mm_and_ps(x, _mm_set1_ps(-0.0f)), _mm_set1_ps(0.5f));
}

} // namespace

ZelStatus zelsConvert_16s32f(const Zel16s* pSrc, Zel32f* pDst, int len)
{
    return ownsRun<shape_32f>(Widen16s32f{}, pDst, len, pSrc);
}

ZelStatus zelsConvert_32f16s_Sfs(const Zel32f* pSrc, Zel16s* pDst, int len, ZelRoundMode rnd, int scaleFactor)
{
    if (const ZelStatus status = ownsCheck(len, pSrc, pDst); status != zelStatusOk)
        return status;
    const auto run = [&](auto round) {
        ownsWithFloatScale(scaleFactor, [&](auto scale) {
            const auto narrow = [=](OwnsVecs<Zel32f, 2> x) {
                return ownsNarrowed16s(round(ownsClamped16s(scale(x.v[0]))),
                                       round(ownsClamped16s(scale(x.v[1]))));
            };
            ownsMap<shape_16s>(narrow, pDst, len, pSrc);
        });
    };
    if (rnd == zelRndZero) {
        run([](auto x) { return x; });
    } else if (rnd == zelRndNear) {
        run([](auto x) { return ownsRoundedNear(x); });
    } else {
        // A value just below one half does cross: the sum is rounded to nearest before it is truncated.
        const OwnsNearestMode nearest;
        run([](auto x) { return withHalf(x); });
    }
    return zelStatusOk;
}
