// Scaled sums of integers: Add and AddC.
#include "arith/scaledSums.h"
#include "zels.h"

namespace {

/// Widened exactly; the sum fits.
constexpr auto addWidened8u = [](OwnsVec<Zel8u> a, OwnsVec<Zel8u> b) {
    return ownsAs<Zel16u>(_mm_add_epi16(_mm_cvtepu8_epi16(ownsInt(a)), _mm_cvtepu8_epi16(ownsInt(b))));
};

constexpr auto addWidened16s = [](OwnsVec<Zel16s> a, OwnsVec<Zel32s> b) {
    return ownsSumSaturated(ownsAs<Zel32s>(_mm_cvtepi16_epi32(ownsInt(a))), b);
};

/// a is lowered to what b leaves of the range.
constexpr auto addSaturated32u = [](OwnsVec<Zel32u> a, OwnsVec<Zel32u> b) {
    return ownsAs<Zel32u>(_mm_min_epu32(ownsInt(a), ownsInt(~b))) + b;
};

} // namespace

ZelStatus zelsAdd_8u16u(const Zel8u* pSrc1, const Zel8u* pSrc2, Zel16u* pDst, int len)
{
    return ownsRun<shape_16s>(addWidened8u, pDst, len, pSrc1, pSrc2);
}

ZelStatus zelsAdd_32u(const Zel32u* pSrc1, const Zel32u* pSrc2, Zel32u* pDst, int len)
{
    return ownsRun<shape_32s>(addSaturated32u, pDst, len, pSrc1, pSrc2);
}

ZelStatus zelsAdd_32u_I(const Zel32u* pSrc, Zel32u* pSrcDst, int len)
{
    return ownsRun<shape_32s>(addSaturated32u, pSrcDst, len, pSrc, pSrcDst);
}

ZelStatus zelsAdd_16s32s_I(const Zel16s* pSrc, Zel32s* pSrcDst, int len)
{
    return ownsRun<shape_32s>(addWidened16s, pSrcDst, len, pSrc, pSrcDst);
}

ZelStatus zelsAdd_16s(const Zel16s* pSrc1, const Zel16s* pSrc2, Zel16s* pDst, int len)
{
    return zelsAdd_16s_Sfs(pSrc1, pSrc2, pDst, len, 0);
}

ZelStatus zelsAdd_16s_I(const Zel16s* pSrc, Zel16s* pSrcDst, int len)
{
    return zelsAdd_16s_ISfs(pSrc, pSrcDst, len, 0);
}

ZelStatus zelsAdd_16u(const Zel16u* pSrc1, const Zel16u* pSrc2, Zel16u* pDst, int len)
{
    return zelsAdd_16u_Sfs(pSrc1, pSrc2, pDst, len, 0);
}

ZelStatus zelsAddC_16s_I(Zel16s val, Zel16s* pSrcDst, int len)
{
    return zelsAddC_16s_ISfs(val, pSrcDst, len, 0);
}

ZelStatus zelsAdd_8u_Sfs(const Zel8u* pSrc1, const Zel8u* pSrc2, Zel8u* pDst, int len, int scaleFactor)
{
    return ownsRunScaled<limitsAdd_8u, shape_8u, OwnsSum<Zel8u>>(scaleFactor, pDst, len, pSrc1, pSrc2);
}

ZelStatus zelsAdd_8u_ISfs(const Zel8u* pSrc, Zel8u* pSrcDst, int len, int scaleFactor)
{
    return ownsRunScaled<limitsAdd_8u, shape_8u, OwnsSum<Zel8u>>(scaleFactor, pSrcDst, len, pSrcDst, pSrc);
}

ZelStatus zelsAdd_16s_Sfs(const Zel16s* pSrc1, const Zel16s* pSrc2, Zel16s* pDst, int len, int scaleFactor)
{
    return ownsRunScaled<limitsAdd_16s, shape_16s, OwnsSum16s>(scaleFactor, pDst, len, pSrc1, pSrc2);
}

ZelStatus zelsAdd_16s_ISfs(const Zel16s* pSrc, Zel16s* pSrcDst, int len, int scaleFactor)
{
    return ownsRunScaled<limitsAdd_16s, shape_16s, OwnsSum16s>(scaleFactor, pSrcDst, len, pSrcDst, pSrc);
}

ZelStatus zelsAdd_16u_Sfs(const Zel16u* pSrc1, const Zel16u* pSrc2, Zel16u* pDst, int len, int scaleFactor)
{
    return ownsRunScaled<limitsAdd_16u, shape_16s, OwnsSum<Zel16u>>(scaleFactor, pDst, len, pSrc1, pSrc2);
}

ZelStatus zelsAdd_16u_ISfs(const Zel16u* pSrc, Zel16u* pSrcDst, int len, int scaleFactor)
{
    return ownsRunScaled<limitsAdd_16u, shape_16s, OwnsSum<Zel16u>>(scaleFactor, pSrcDst, len, pSrcDst, pSrc);
}

ZelStatus zelsAdd_32s_Sfs(const Zel32s* pSrc1, const Zel32s* pSrc2, Zel32s* pDst, int len, int scaleFactor)
{
    return ownsRunScaled<limitsAdd_32s, shape_32s, OwnsSum32s>(scaleFactor, pDst, len, pSrc1, pSrc2);
}

ZelStatus zelsAdd_32s_ISfs(const Zel32s* pSrc, Zel32s* pSrcDst, int len, int scaleFactor)
{
    return ownsRunScaled<limitsAdd_32s, shape_32s, OwnsSum32s>(scaleFactor, pSrcDst, len, pSrcDst, pSrc);
}

ZelStatus zelsAdd_16sc_Sfs(const Zel16sc* pSrc1, const Zel16sc* pSrc2, Zel16sc* pDst, int len,
                           int scaleFactor)
{
    return ownsDoublingScaled<zelsAdd_16s_Sfs>(len, scaleFactor, pSrc1, pSrc2, pDst);
}

ZelStatus zelsAdd_16sc_ISfs(const Zel16sc* pSrc, Zel16sc* pSrcDst, int len, int scaleFactor)
{
    return ownsDoublingScaled<zelsAdd_16s_ISfs>(len, scaleFactor, pSrc, pSrcDst);
}

ZelStatus zelsAdd_32sc_Sfs(const Zel32sc* pSrc1, const Zel32sc* pSrc2, Zel32sc* pDst, int len,
                           int scaleFactor)
{
    return ownsDoublingScaled<zelsAdd_32s_Sfs>(len, scaleFactor, pSrc1, pSrc2, pDst);
}

ZelStatus zelsAdd_32sc_ISfs(const Zel32sc* pSrc, Zel32sc* pSrcDst, int len, int scaleFactor)
{
    return ownsDoublingScaled<zelsAdd_32s_ISfs>(len, scaleFactor, pSrc, pSrcDst);
}

ZelStatus zelsAddC_8u_Sfs(const Zel8u* pSrc, Zel8u val, Zel8u* pDst, int len, int scaleFactor)
{
    return ownsRunSumC<limitsAdd_8u, shape_8u, OwnsSum<Zel8u>>(scaleFactor, pDst, len, pSrc, val);
}

ZelStatus zelsAddC_8u_ISfs(Zel8u val, Zel8u* pSrcDst, int len, int scaleFactor)
{
    return zelsAddC_8u_Sfs(pSrcDst, val, pSrcDst, len, scaleFactor);
}

ZelStatus zelsAddC_16s_Sfs(const Zel16s* pSrc, Zel16s val, Zel16s* pDst, int len, int scaleFactor)
{
    return ownsRunSumC<limitsAdd_16s, shape_16s, OwnsSum16s>(scaleFactor, pDst, len, pSrc, val);
}

ZelStatus zelsAddC_16s_ISfs(Zel16s val, Zel16s* pSrcDst, int len, int scaleFactor)
{
    return zelsAddC_16s_Sfs(pSrcDst, val, pSrcDst, len, scaleFactor);
}

ZelStatus zelsAddC_16u_Sfs(const Zel16u* pSrc, Zel16u val, Zel16u* pDst, int len, int scaleFactor)
{
    return ownsRunSumC<limitsAdd_16u, shape_16s, OwnsSum<Zel16u>>(scaleFactor, pDst, len, pSrc, val);
}

ZelStatus zelsAddC_16u_ISfs(Zel16u val, Zel16u* pSrcDst, int len, int scaleFactor)
{
    return zelsAddC_16u_Sfs(pSrcDst, val, pSrcDst, len, scaleFactor);
}

ZelStatus zelsAddC_16sc_Sfs(const Zel16sc* pSrc, Zel16sc val, Zel16sc* pDst, int len, int scaleFactor)
{
    return ownsRunSumC<limitsAdd_16s, shape_16sc, OwnsSum16s>(scaleFactor, pDst, len, pSrc, val);
}

ZelStatus zelsAddC_16sc_ISfs(Zel16sc val, Zel16sc* pSrcDst, int len, int scaleFactor)
{
    return zelsAddC_16sc_Sfs(pSrcDst, val, pSrcDst, len, scaleFactor);
}

ZelStatus zelsAddC_32s_Sfs(const Zel32s* pSrc, Zel32s val, Zel32s* pDst, int len, int scaleFactor)
{
    return ownsRunSumC<limitsAdd_32s, shape_32s, OwnsSum32s>(scaleFactor, pDst, len, pSrc, val);
}

ZelStatus zelsAddC_32s_ISfs(Zel32s val, Zel32s* pSrcDst, int len, int scaleFactor)
{
    return zelsAddC_32s_Sfs(pSrcDst, val, pSrcDst, len, scaleFactor);
}

ZelStatus zelsAddC_32sc_Sfs(const Zel32sc* pSrc, Zel32sc val, Zel32sc* pDst, int len, int scaleFactor)
{
    return ownsRunSumC<limitsAdd_32s, shape_32sc, OwnsSum32s>(scaleFactor, pDst, len, pSrc, val);
}

ZelStatus zelsAddC_32sc_ISfs(Zel32sc val, Zel32sc* pSrcDst, int len, int scaleFactor)
{
    return zelsAddC_32sc_Sfs(pSrcDst, val, pSrcDst, len, scaleFactor);
}
