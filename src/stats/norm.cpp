// Norms of one vector.
#include "stats/norm.h"
#include "zels.h"

ZelStatus zelsNorm_Inf_16s32f(const Zel16s* pSrc, int len, Zel32f* pNorm)
{
    return ownsReduce(
        pNorm, [=] { return static_cast<Zel32f>(ownsExactInf(len, pSrc)); }, len, pSrc);
}

ZelStatus zelsNorm_Inf_16s32s_Sfs(const Zel16s* pSrc, int len, Zel32s* pNorm, int scaleFactor)
{
    return ownsReduce(
        pNorm, [=] { return ownsShifted<Zel32s>(ownsExactInf(len, pSrc), scaleFactor); }, len, pSrc);
}

ZelStatus zelsNorm_Inf_32f(const Zel32f* pSrc, int len, Zel32f* pNorm)
{
    return ownsReduce(
        pNorm, [=] { return ownsNormInf<Zel32f>(len, pSrc); }, len, pSrc);
}

ZelStatus zelsNorm_Inf_32fc32f(const Zel32fc* pSrc, int len, Zel32f* pNorm)
{
    return ownsReduce(
        pNorm, [=] { return ownsNormInf<Zel32f>(len, pSrc); }, len, pSrc);
}

ZelStatus zelsNorm_Inf_64f(const Zel64f* pSrc, int len, Zel64f* pNorm)
{
    return ownsReduce(
        pNorm, [=] { return ownsNormInf<Zel64f>(len, pSrc); }, len, pSrc);
}

ZelStatus zelsNorm_Inf_64fc64f(const Zel64fc* pSrc, int len, Zel64f* pNorm)
{
    return ownsReduce(
        pNorm, [=] { return ownsNormInf<Zel64f>(len, pSrc); }, len, pSrc);
}

ZelStatus zelsNorm_L1_16s32f(const Zel16s* pSrc, int len, Zel32f* pNorm)
{
    return ownsReduce(
        pNorm, [=] { return static_cast<Zel32f>(static_cast<Zel64s>(ownsExactL1(len, pSrc))); }, len, pSrc);
}

ZelStatus zelsNorm_L1_16s32s_Sfs(const Zel16s* pSrc, int len, Zel32s* pNorm, int scaleFactor)
{
    return ownsReduce(
        pNorm, [=] { return ownsShifted<Zel32s>(ownsExactL1(len, pSrc), scaleFactor); }, len, pSrc);
}

ZelStatus zelsNorm_L1_16s64s_Sfs(const Zel16s* pSrc, int len, Zel64s* pNorm, int scaleFactor)
{
    return ownsReduce(
        pNorm, [=] { return ownsShifted<Zel64s>(ownsExactL1(len, pSrc), scaleFactor); }, len, pSrc);
}

ZelStatus zelsNorm_L1_32f(const Zel32f* pSrc, int len, Zel32f* pNorm)
{
    return ownsReduce(
        pNorm, [=] { return ownsNormL1(len, pSrc); }, len, pSrc);
}

ZelStatus zelsNorm_L1_32fc64f(const Zel32fc* pSrc, int len, Zel64f* pNorm)
{
    return ownsReduce(
        pNorm, [=] { return ownsNormL1(len, pSrc); }, len, pSrc);
}

ZelStatus zelsNorm_L1_64f(const Zel64f* pSrc, int len, Zel64f* pNorm)
{
    return ownsReduce(
        pNorm, [=] { return ownsNormL1(len, pSrc); }, len, pSrc);
}

ZelStatus zelsNorm_L1_64fc64f(const Zel64fc* pSrc, int len, Zel64f* pNorm)
{
    return ownsReduce(
        pNorm, [=] { return ownsNormL1(len, pSrc); }, len, pSrc);
}

ZelStatus zelsNorm_L2_16s32f(const Zel16s* pSrc, int len, Zel32f* pNorm)
{
    return ownsReduce(
        pNorm, [=] { return static_cast<Zel32f>(ownsRoot(ownsExactL2Sqr(len, pSrc))); }, len, pSrc);
}

ZelStatus zelsNorm_L2_16s32s_Sfs(const Zel16s* pSrc, int len, Zel32s* pNorm, int scaleFactor)
{
    return ownsReduce(
        pNorm, [=] { return ownsScaledRoot(ownsExactL2Sqr(len, pSrc), scaleFactor); }, len, pSrc);
}

ZelStatus zelsNorm_L2Sqr_16s64s_Sfs(const Zel16s* pSrc, int len, Zel64s* pNorm, int scaleFactor)
{
    return ownsReduce(
        pNorm, [=] { return ownsShifted<Zel64s>(ownsExactL2Sqr(len, pSrc), scaleFactor); }, len, pSrc);
}

ZelStatus zelsNorm_L2_32f(const Zel32f* pSrc, int len, Zel32f* pNorm)
{
    return zelsNorm_L2_32f_L(pSrc, len, pNorm);
}

ZelStatus zelsNorm_L2_32f_L(const Zel32f* pSrc, ZelSize len, Zel32f* pNorm)
{
    return ownsReduce(
        pNorm, [=] { return ownsNormL2(len, pSrc); }, len, pSrc);
}

ZelStatus zelsNorm_L2_32fc64f(const Zel32fc* pSrc, int len, Zel64f* pNorm)
{
    return zelsNorm_L2_32fc64f_L(pSrc, len, pNorm);
}

ZelStatus zelsNorm_L2_32fc64f_L(const Zel32fc* pSrc, ZelSize len, Zel64f* pNorm)
{
    return ownsReduce(
        pNorm, [=] { return ownsNormL2(len, pSrc); }, len, pSrc);
}

ZelStatus zelsNorm_L2_64f(const Zel64f* pSrc, int len, Zel64f* pNorm)
{
    return zelsNorm_L2_64f_L(pSrc, len, pNorm);
}

ZelStatus zelsNorm_L2_64f_L(const Zel64f* pSrc, ZelSize len, Zel64f* pNorm)
{
    return ownsReduce(
        pNorm, [=] { return ownsNormL2(len, pSrc); }, len, pSrc);
}

ZelStatus zelsNorm_L2_64fc64f(const Zel64fc* pSrc, int len, Zel64f* pNorm)
{
    return zelsNorm_L2_64fc64f_L(pSrc, len, pNorm);
}

ZelStatus zelsNorm_L2_64fc64f_L(const Zel64fc* pSrc, ZelSize len, Zel64f* pNorm)
{
    return ownsReduce(
        pNorm, [=] { return ownsNormL2(len, pSrc); }, len, pSrc);
}
