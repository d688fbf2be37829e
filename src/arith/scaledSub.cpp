// Scaled differences of integers: Sub, SubC and SubCRev. The first vector is the subtrahend.
#include "arith/scaledSums.h"
#include "zels.h"

namespace {

/// SubCRev has no short cut but this one: an unsigned element taken from 0 gives 0 on every path.
template <OwnsScaleLimits limits, OwnsShape shape, class Op, class T>
[[gnu::always_inline]] inline ZelStatus runSubCRev(int scaleFactor, T* pDst, int len, const T* pSrc, T val)
{
    if (const ZelStatus status = ownsCheck(len, pSrc, pDst); status != zelStatusOk)
        return status;
    if constexpr (std::is_same_v<T, Zel8u>) {
        if (val == 0) {
            ownsZero(pDst, len);
            return zelStatusOk;
        }
    }
    return ownsMapScaled<limits, shape, OwnsReversed<Op>>(scaleFactor, pDst, len, pSrc, val);
}

} // namespace

ZelStatus zelsSub_16s(const Zel16s* pSrc1, const Zel16s* pSrc2, Zel16s* pDst, int len)
{
    return zelsSub_16s_Sfs(pSrc1, pSrc2, pDst, len, 0);
}

ZelStatus zelsSub_16s_I(const Zel16s* pSrc, Zel16s* pSrcDst, int len)
{
    return zelsSub_16s_ISfs(pSrc, pSrcDst, len, 0);
}

ZelStatus zelsSubC_16s_I(Zel16s val, Zel16s* pSrcDst, int len)
{
    return zelsSubC_16s_ISfs(val, pSrcDst, len, 0);
}

ZelStatus zelsSub_8u_Sfs(const Zel8u* pSrc1, const Zel8u* pSrc2, Zel8u* pDst, int len, int scaleFactor)
{
    return ownsRunScaled<limitsSub_8u, shape_8u, OwnsDifference<Zel8u>>(scaleFactor, pDst, len, pSrc2, pSrc1);
}

ZelStatus zelsSub_8u_ISfs(const Zel8u* pSrc, Zel8u* pSrcDst, int len, int scaleFactor)
{
    return ownsRunScaled<limitsSub_8u, shape_8u, OwnsDifference<Zel8u>>(scaleFactor, pSrcDst, len, pSrcDst,
                                                                        pSrc);
}

ZelStatus zelsSub_16s_Sfs(const Zel16s* pSrc1, const Zel16s* pSrc2, Zel16s* pDst, int len, int scaleFactor)
{
    return ownsRunScaled<limitsSub_16s, shape_16s, OwnsDifference16s>(scaleFactor, pDst, len, pSrc2, pSrc1);
}

ZelStatus zelsSub_16s_ISfs(const Zel16s* pSrc, Zel16s* pSrcDst, int len, int scaleFactor)
{
    return ownsRunScaled<limitsSub_16s, shape_16s, OwnsDifference16s>(scaleFactor, pSrcDst, len, pSrcDst,
                                                                      pSrc);
}

ZelStatus zelsSub_16u_Sfs(const Zel16u* pSrc1, const Zel16u* pSrc2, Zel16u* pDst, int len, int scaleFactor)
{
    return ownsRunScaled<limitsSub_16u, shape_16s, OwnsDifference<Zel16u>>(scaleFactor, pDst, len, pSrc2,
                                                                           pSrc1);
}

ZelStatus zelsSub_16u_ISfs(const Zel16u* pSrc, Zel16u* pSrcDst, int len, int scaleFactor)
{
    return ownsRunScaled<limitsSub_16u, shape_16s, OwnsDifference<Zel16u>>(scaleFactor, pSrcDst, len, pSrcDst,
                                                                           pSrc);
}

ZelStatus zelsSub_32s_Sfs(const Zel32s* pSrc1, const Zel32s* pSrc2, Zel32s* pDst, int len, int scaleFactor)
{
    return ownsRunScaled<limitsSub_32s, shape_32s, OwnsDifference32s>(scaleFactor, pDst, len, pSrc2, pSrc1);
}

ZelStatus zelsSub_32s_ISfs(const Zel32s* pSrc, Zel32s* pSrcDst, int len, int scaleFactor)
{
    return ownsRunScaled<limitsSub_32s, shape_32s, OwnsDifference32s>(scaleFactor, pSrcDst, len, pSrcDst,
                                                                      pSrc);
}

ZelStatus zelsSub_16sc_Sfs(const Zel16sc* pSrc1, const Zel16sc* pSrc2, Zel16sc* pDst, int len,
                           int scaleFactor)
{
    return ownsDoublingScaled<zelsSub_16s_Sfs>(len, scaleFactor, pSrc1, pSrc2, pDst);
}

ZelStatus zelsSub_16sc_ISfs(const Zel16sc* pSrc, Zel16sc* pSrcDst, int len, int scaleFactor)
{
    return ownsDoublingScaled<zelsSub_16s_ISfs>(len, scaleFactor, pSrc, pSrcDst);
}

ZelStatus zelsSub_32sc_Sfs(const Zel32sc* pSrc1, const Zel32sc* pSrc2, Zel32sc* pDst, int len,
                           int scaleFactor)
{
    return ownsDoublingScaled<zelsSub_32s_Sfs>(len, scaleFactor, pSrc1, pSrc2, pDst);
}

ZelStatus zelsSub_32sc_ISfs(const Zel32sc* pSrc, Zel32sc* pSrcDst, int len, int scaleFactor)
{
    return ownsDoublingScaled<zelsSub_32s_ISfs>(len, scaleFactor, pSrc, pSrcDst);
}

ZelStatus zelsSubC_8u_Sfs(const Zel8u* pSrc, Zel8u val, Zel8u* pDst, int len, int scaleFactor)
{
    return ownsRunSumC<limitsSub_8u, shape_8u, OwnsDifference<Zel8u>>(scaleFactor, pDst, len, pSrc, val);
}

ZelStatus zelsSubC_8u_ISfs(Zel8u val, Zel8u* pSrcDst, int len, int scaleFactor)
{
    return zelsSubC_8u_Sfs(pSrcDst, val, pSrcDst, len, scaleFactor);
}

ZelStatus zelsSubC_16s_Sfs(const Zel16s* pSrc, Zel16s val, Zel16s* pDst, int len, int scaleFactor)
{
    return ownsRunSumC<limitsSub_16s, shape_16s, OwnsDifference16s>(scaleFactor, pDst, len, pSrc, val);
}

ZelStatus zelsSubC_16s_ISfs(Zel16s val, Zel16s* pSrcDst, int len, int scaleFactor)
{
    return zelsSubC_16s_Sfs(pSrcDst, val, pSrcDst, len, scaleFactor);
}

ZelStatus zelsSubC_16u_Sfs(const Zel16u* pSrc, Zel16u val, Zel16u* pDst, int len, int scaleFactor)
{
    return ownsRunSumC<limitsSub_16u, shape_16s, OwnsDifference<Zel16u>>(scaleFactor, pDst, len, pSrc, val);
}

ZelStatus zelsSubC_16u_ISfs(Zel16u val, Zel16u* pSrcDst, int len, int scaleFactor)
{
    return zelsSubC_16u_Sfs(pSrcDst, val, pSrcDst, len, scaleFactor);
}

ZelStatus zelsSubC_16sc_Sfs(const Zel16sc* pSrc, Zel16sc val, Zel16sc* pDst, int len, int scaleFactor)
{
    return ownsRunSumC<limitsSub_16s, shape_16sc, OwnsDifference16s>(scaleFactor, pDst, len, pSrc, val);
}

ZelStatus zelsSubC_16sc_ISfs(Zel16sc val, Zel16sc* pSrcDst, int len, int scaleFactor)
{
    return zelsSubC_16sc_Sfs(pSrcDst, val, pSrcDst, len, scaleFactor);
}

ZelStatus zelsSubC_32s_Sfs(const Zel32s* pSrc, Zel32s val, Zel32s* pDst, int len, int scaleFactor)
{
    return ownsRunSumC<limitsSub_32s, shape_32s, OwnsDifference32s>(scaleFactor, pDst, len, pSrc, val);
}

ZelStatus zelsSubC_32s_ISfs(Zel32s val, Zel32s* pSrcDst, int len, int scaleFactor)
{
    return zelsSubC_32s_Sfs(pSrcDst, val, pSrcDst, len, scaleFactor);
}

ZelStatus zelsSubC_32sc_Sfs(const Zel32sc* pSrc, Zel32sc val, Zel32sc* pDst, int len, int scaleFactor)
{
    return ownsRunSumC<limitsSub_32s, shape_32sc, OwnsDifference32s>(scaleFactor, pDst, len, pSrc, val);
}

ZelStatus zelsSubC_32sc_ISfs(Zel32sc val, Zel32sc* pSrcDst, int len, int scaleFactor)
{
    return zelsSubC_32sc_Sfs(pSrcDst, val, pSrcDst, len, scaleFactor);
}

ZelStatus zelsSubCRev_8u_Sfs(const Zel8u* pSrc, Zel8u val, Zel8u* pDst, int len, int scaleFactor)
{
    return runSubCRev<limitsSub_8u, shape_8u, OwnsDifference<Zel8u>>(scaleFactor, pDst, len, pSrc, val);
}

ZelStatus zelsSubCRev_8u_ISfs(Zel8u val, Zel8u* pSrcDst, int len, int scaleFactor)
{
    return zelsSubCRev_8u_Sfs(pSrcDst, val, pSrcDst, len, scaleFactor);
}

ZelStatus zelsSubCRev_16s_Sfs(const Zel16s* pSrc, Zel16s val, Zel16s* pDst, int len, int scaleFactor)
{
    return runSubCRev<limitsSub_16s, shape_16s, OwnsDifference16s>(scaleFactor, pDst, len, pSrc, val);
}

ZelStatus zelsSubCRev_16s_ISfs(Zel16s val, Zel16s* pSrcDst, int len, int scaleFactor)
{
    return zelsSubCRev_16s_Sfs(pSrcDst, val, pSrcDst, len, scaleFactor);
}

ZelStatus zelsSubCRev_16u_Sfs(const Zel16u* pSrc, Zel16u val, Zel16u* pDst, int len, int scaleFactor)
{
    return runSubCRev<limitsSub_16u, shape_16s, OwnsDifference<Zel16u>>(scaleFactor, pDst, len, pSrc, val);
}

ZelStatus zelsSubCRev_16u_ISfs(Zel16u val, Zel16u* pSrcDst, int len, int scaleFactor)
{
    return zelsSubCRev_16u_Sfs(pSrcDst, val, pSrcDst, len, scaleFactor);
}

ZelStatus zelsSubCRev_16sc_Sfs(const Zel16sc* pSrc, Zel16sc val, Zel16sc* pDst, int len, int scaleFactor)
{
    return runSubCRev<limitsSub_16s, shape_16sc, OwnsDifference16s>(scaleFactor, pDst, len, pSrc, val);
}

ZelStatus zelsSubCRev_16sc_ISfs(Zel16sc val, Zel16sc* pSrcDst, int len, int scaleFactor)
{
    return zelsSubCRev_16sc_Sfs(pSrcDst, val, pSrcDst, len, scaleFactor);
}

ZelStatus zelsSubCRev_32s_Sfs(const Zel32s* pSrc, Zel32s val, Zel32s* pDst, int len, int scaleFactor)
{
    return runSubCRev<limitsSub_32s, shape_32s, OwnsDifference32s>(scaleFactor, pDst, len, pSrc, val);
}

ZelStatus zelsSubCRev_32s_ISfs(Zel32s val, Zel32s* pSrcDst, int len, int scaleFactor)
{
    return zelsSubCRev_32s_Sfs(pSrcDst, val, pSrcDst, len, scaleFactor);
}

ZelStatus zelsSubCRev_32sc_Sfs(const Zel32sc* pSrc, Zel32sc val, Zel32sc* pDst, int len, int scaleFactor)
{
    return runSubCRev<limitsSub_32s, shape_32sc, OwnsDifference32s>(scaleFactor, pDst, len, pSrc, val);
}

ZelStatus zelsSubCRev_32sc_ISfs(Zel32sc val, Zel32sc* pSrcDst, int len, int scaleFactor)
{
    return zelsSubCRev_32sc_Sfs(pSrcDst, val, pSrcDst, len, scaleFactor);
}
