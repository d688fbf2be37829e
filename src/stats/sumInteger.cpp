// Sums of integer vectors, exact before they are scaled.
#include "stats/exactSum.h"
#include "stats/scaled.h"
#include "zels.h"

namespace {

// A total of 16-bit elements has at most 47 bits: its conversion is exact.
Zel32s scaled(Zel64s total, int scaleFactor)
{
    return ownsConverted<Zel32s>(ownsTimesMultiplier(static_cast<Zel64f>(total), scaleFactor));
}

} // namespace

ZelStatus zelsSum_16s_Sfs(const Zel16s* pSrc, int len, Zel16s* pSum, int scaleFactor)
{
    const auto sum = [=] { return ownsSaturated<Zel16s>(scaled(ownsExactTotal(pSrc, len), scaleFactor)); };
    return ownsReduce(pSum, sum, len, pSrc);
}

ZelStatus zelsSum_16s32s_Sfs(const Zel16s* pSrc, int len, Zel32s* pSum, int scaleFactor)
{
    return ownsReduce(
        pSum, [=] { return scaled(ownsExactTotal(pSrc, len), scaleFactor); }, len, pSrc);
}

ZelStatus zelsSum_16sc_Sfs(const Zel16sc* pSrc, int len, Zel16sc* pSum, int scaleFactor)
{
    const auto sum = [=] {
        const auto [re, im] = ownsExactTotal(pSrc, len);
        return Zel16sc{ownsSaturated<Zel16s>(scaled(re, scaleFactor)),
                       ownsSaturated<Zel16s>(scaled(im, scaleFactor))};
    };
    return ownsReduce(pSum, sum, len, pSrc);
}

ZelStatus zelsSum_16sc32sc_Sfs(const Zel16sc* pSrc, int len, Zel32sc* pSum, int scaleFactor)
{
    const auto sum = [=] {
        const auto [re, im] = ownsExactTotal(pSrc, len);
        return Zel32sc{scaled(re, scaleFactor), scaled(im, scaleFactor)};
    };
    return ownsReduce(pSum, sum, len, pSrc);
}

ZelStatus zelsSum_32s_Sfs(const Zel32s* pSrc, int len, Zel32s* pSum, int scaleFactor)
{
    const auto sum = [=] { return ownsScaledInteger<Zel32s>(ownsExactTotal(pSrc, len), scaleFactor); };
    return ownsReduce(pSum, sum, len, pSrc);
}
