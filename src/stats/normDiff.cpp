// Norms of the difference of two vectors.
#include "stats/norm.h"
#include "zels.h"

ZelStatus zelsNormDiff_Inf_16s32f(const Zel16s* pSrc1, const Zel16s* pSrc2, int len, Zel32f* pNorm)
{
    return ownsReduce(
        pNorm, [=] { return static_cast<Zel32f>(ownsExactInf(len, pSrc1, pSrc2)); }, len, pSrc1, pSrc2);
}

ZelStatus zelsNormDiff_Inf_16s32s_Sfs(const Zel16s* pSrc1, const Zel16s* pSrc2, int len, Zel32s* pNorm,
                                      int scaleFactor)
{
    return ownsReduce(
        pNorm, [=] { return ownsShifted<Zel32s>(ownsExactInf(len, pSrc1, pSrc2), scaleFactor); }, len, pSrc1,
        pSrc2);
}

ZelStatus zelsNormDiff_Inf_32f(const Zel32f* pSrc1, const Zel32f* pSrc2, int len, Zel32f* pNorm)
{
    return ownsReduce(
        pNorm, [=] { return ownsNormInf<Zel32f>(len, pSrc1, pSrc2); }, len, pSrc1, pSrc2);
}

ZelStatus zelsNormDiff_Inf_32fc32f(const Zel32fc* pSrc1, const Zel32fc* pSrc2, int len, Zel32f* pNorm)
{
    return ownsReduce(
        pNorm, [=] { return ownsNormInf<Zel32f>(len, pSrc1, pSrc2); }, len, pSrc1, pSrc2);
}

ZelStatus zelsNormDiff_Inf_64f(const Zel64f* pSrc1, const Zel64f* pSrc2, int len, Zel64f* pNorm)
{
    return ownsReduce(
        pNorm, [=] { return ownsNormInf<Zel64f>(len, pSrc1, pSrc2); }, len, pSrc1, pSrc2);
}

ZelStatus zelsNormDiff_Inf_64fc64f(const Zel64fc* pSrc1, const Zel64fc* pSrc2, int len, Zel64f* pNorm)
{
    return ownsReduce(
        pNorm, [=] { return ownsNormInf<Zel64f>(len, pSrc1, pSrc2); }, len, pSrc1, pSrc2);
}

ZelStatus zelsNormDiff_L1_16s32f(const Zel16s* pSrc1, const Zel16s* pSrc2, int len, Zel32f* pNorm)
{
    return ownsReduce(
        pNorm, [=] { return static_cast<Zel32f>(static_cast<Zel64s>(ownsExactL1(len, pSrc1, pSrc2))); }, len,
        pSrc1, pSrc2);
}

ZelStatus zelsNormDiff_L1_16s32s_Sfs(const Zel16s* pSrc1, const Zel16s* pSrc2, int len, Zel32s* pNorm,
                                     int scaleFactor)
{
    return ownsReduce(
        pNorm, [=] { return ownsShifted<Zel32s>(ownsExactL1(len, pSrc1, pSrc2), scaleFactor); }, len, pSrc1,
        pSrc2);
}

ZelStatus zelsNormDiff_L1_16s64s_Sfs(const Zel16s* pSrc1, const Zel16s* pSrc2, int len, Zel64s* pNorm,
                                     int scaleFactor)
{
    return ownsReduce(
        pNorm, [=] { return ownsShifted<Zel64s>(ownsExactL1(len, pSrc1, pSrc2), scaleFactor); }, len, pSrc1,
        pSrc2);
}

ZelStatus zelsNormDiff_L1_32f(const Zel32f* pSrc1, const Zel32f* pSrc2, int len, Zel32f* pNorm)
{
    return ownsReduce(
        pNorm, [=] { return ownsNormL1(len, pSrc1, pSrc2); }, len, pSrc1, pSrc2);
}

ZelStatus zelsNormDiff_L1_32fc64f(const Zel32fc* pSrc1, const Zel32fc* pSrc2, int len, Zel64f* pNorm)
{
    return ownsReduce(
        pNorm, [=] { return ownsNormL1(len, pSrc1, pSrc2); }, len, pSrc1, pSrc2);
}

ZelStatus zelsNormDiff_L1_64f(const Zel64f* pSrc1, const Zel64f* pSrc2, int len, Zel64f* pNorm)
{
    return ownsReduce(
        pNorm, [=] { return ownsNormL1(len, pSrc1, pSrc2); }, len, pSrc1, pSrc2);
}

ZelStatus zelsNormDiff_L1_64fc64f(const Zel64fc* pSrc1, const Zel64fc* pSrc2, int len, Zel64f* pNorm)
{
    return ownsReduce(
        pNorm, [=] { return ownsNormL1(len, pSrc1, pSrc2); }, len, pSrc1, pSrc2);
}

ZelStatus zelsNormDiff_L2_16s32f(const Zel16s* pSrc1, const Zel16s* pSrc2, int len, Zel32f* pNorm)
{
    return ownsReduce(
        pNorm, [=] { return static_cast<Zel32f>(ownsRoot(ownsExactL2Sqr(len, pSrc1, pSrc2))); }, len, pSrc1,
        pSrc2);
}

ZelStatus zelsNormDiff_L2_16s32s_Sfs(const Zel16s* pSrc1, const Zel16s* pSrc2, int len, Zel32s* pNorm,
                                     int scaleFactor)
{
    return ownsReduce(
        pNorm, [=] { return ownsScaledRoot(ownsExactL2Sqr(len, pSrc1, pSrc2), scaleFactor); }, len, pSrc1,
        pSrc2);
}

ZelStatus zelsNormDiff_L2Sqr_16s64s_Sfs(const Zel16s* pSrc1, const Zel16s* pSrc2, int len, Zel64s* pNorm,
                                        int scaleFactor)
{
    return ownsReduce(
        pNorm, [=] { return ownsShifted<Zel64s>(ownsExactL2Sqr(len, pSrc1, pSrc2), scaleFactor); }, len,
        pSrc1, pSrc2);
}

ZelStatus zelsNormDiff_L2_32f(const Zel32f* pSrc1, const Zel32f* pSrc2, int len, Zel32f* pNorm)
{
    return ownsReduce(
        pNorm, [=] { return ownsNormL2(len, pSrc1, pSrc2); }, len, pSrc1, pSrc2);
}

ZelStatus zelsNormDiff_L2_32fc64f(const Zel32fc* pSrc1, const Zel32fc* pSrc2, int len, Zel64f* pNorm)
{
    return ownsReduce(
        pNorm, [=] { return ownsNormL2(len, pSrc1, pSrc2); }, len, pSrc1, pSrc2);
}

ZelStatus zelsNormDiff_L2_64f(const Zel64f* pSrc1, const Zel64f* pSrc2, int len, Zel64f* pNorm)
{
    return ownsReduce(
        pNorm, [=] { return ownsNormL2(len, pSrc1, pSrc2); }, len, pSrc1, pSrc2);
}

ZelStatus zelsNormDiff_L2_64fc64f(const Zel64fc* pSrc1, const Zel64fc* pSrc2, int len, Zel64f* pNorm)
{
    return ownsReduce(
        pNorm, [=] { return ownsNormL2(len, pSrc1, pSrc2); }, len, pSrc1, pSrc2);
}
