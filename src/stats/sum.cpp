// Sums of float vectors.
#include "stats/floatTotals.h"
#include "zels.h"

ZelStatus zelsSum_32f(const Zel32f* pSrc, int len, Zel32f* pSum, ZelHintAlgorithm hint)
{
    return zelsSum_32f_L(pSrc, len, pSum, hint);
}

ZelStatus zelsSum_32f_L(const Zel32f* pSrc, ZelSize len, Zel32f* pSum, ZelHintAlgorithm hint)
{
    return ownsReduce(
        pSum, [=] { return ownsRounded<Zel32f>(ownsTotal(pSrc, len, hint)); }, len, pSrc);
}

ZelStatus zelsSum_32fc(const Zel32fc* pSrc, int len, Zel32fc* pSum, ZelHintAlgorithm hint)
{
    return zelsSum_32fc_L(pSrc, len, pSum, hint);
}

ZelStatus zelsSum_32fc_L(const Zel32fc* pSrc, ZelSize len, Zel32fc* pSum, ZelHintAlgorithm hint)
{
    return ownsReduce(
        pSum, [=] { return ownsRounded<Zel32fc>(ownsTotal(pSrc, len, hint)); }, len, pSrc);
}

ZelStatus zelsSum_64f(const Zel64f* pSrc, int len, Zel64f* pSum)
{
    return zelsSum_64f_L(pSrc, len, pSum);
}

ZelStatus zelsSum_64f_L(const Zel64f* pSrc, ZelSize len, Zel64f* pSum)
{
    return ownsReduce(
        pSum, [=] { return ownsRounded<Zel64f>(ownsTotal(pSrc, len)); }, len, pSrc);
}

ZelStatus zelsSum_64fc(const Zel64fc* pSrc, int len, Zel64fc* pSum)
{
    return zelsSum_64fc_L(pSrc, len, pSum);
}

ZelStatus zelsSum_64fc_L(const Zel64fc* pSrc, ZelSize len, Zel64fc* pSum)
{
    return ownsReduce(
        pSum, [=] { return ownsRounded<Zel64fc>(ownsTotal(pSrc, len)); }, len, pSrc);
}
