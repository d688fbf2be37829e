// Means of float vectors. The forms divide at different precisions, as they always have.
#include "stats/floatTotals.h"
#include "zels.h"

namespace {

/// A complex total times the reciprocal of the length.
template <class T>
T timesReciprocal(OwnsF64x2 total, ZelSize len)
{
    return ownsRounded<T>(total * (1.0 / static_cast<Zel64f>(len)));
}

} // namespace

// The sum is rounded to single precision before the division, and the quotient again.
ZelStatus zelsMean_32f(const Zel32f* pSrc, int len, Zel32f* pMean, ZelHintAlgorithm hint)
{
    const auto mean = [=] {
        const Zel64f sum = ownsRounded<Zel32f>(ownsTotal(pSrc, len, hint));
        return static_cast<Zel32f>(sum / len);
    };
    return ownsReduce(pMean, mean, len, pSrc);
}

ZelStatus zelsMean_32f_L(const Zel32f* pSrc, ZelSize len, Zel32f* pMean, ZelHintAlgorithm hint)
{
    const auto mean = [=] {
        return ownsRounded<Zel32f>(ownsTotal(pSrc, len, hint)) / static_cast<Zel32f>(len);
    };
    return ownsReduce(pMean, mean, len, pSrc);
}

ZelStatus zelsMean_32fc(const Zel32fc* pSrc, int len, Zel32fc* pMean, ZelHintAlgorithm hint)
{
    return ownsReduce(
        pMean, [=] { return timesReciprocal<Zel32fc>(ownsTotal(pSrc, len, hint), len); }, len, pSrc);
}

ZelStatus zelsMean_32fc_L(const Zel32fc* pSrc, ZelSize len, Zel32fc* pMean, ZelHintAlgorithm hint)
{
    const auto mean = [=] {
        const auto sum = ownsRounded<Zel32fc>(ownsTotal(pSrc, len, hint));
        const Zel32f reciprocal = 1.0f / static_cast<Zel32f>(len);
        return Zel32fc{sum.re * reciprocal, sum.im * reciprocal};
    };
    return ownsReduce(pMean, mean, len, pSrc);
}

ZelStatus zelsMean_64f(const Zel64f* pSrc, int len, Zel64f* pMean)
{
    return zelsMean_64f_L(pSrc, len, pMean);
}

ZelStatus zelsMean_64f_L(const Zel64f* pSrc, ZelSize len, Zel64f* pMean)
{
    const auto mean = [=] { return ownsRounded<Zel64f>(ownsTotal(pSrc, len)) / static_cast<Zel64f>(len); };
    return ownsReduce(pMean, mean, len, pSrc);
}

ZelStatus zelsMean_64fc(const Zel64fc* pSrc, int len, Zel64fc* pMean)
{
    return zelsMean_64fc_L(pSrc, len, pMean);
}

ZelStatus zelsMean_64fc_L(const Zel64fc* pSrc, ZelSize len, Zel64fc* pMean)
{
    return ownsReduce(
        pMean, [=] { return timesReciprocal<Zel64fc>(ownsTotal(pSrc, len), len); }, len, pSrc);
}
