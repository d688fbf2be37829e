// Maxima and minima, of elements and of magnitudes.
#include "stats/extrema.h"
#include "zels.h"

namespace {

template <class Better, class View = OwnsPlain, class T>
ZelStatus extreme(const T* pSrc, ZelSize len, T* pResult)
{
    return ownsReduce(
        pResult, [=] { return ownsExtreme<Better, View>(pSrc, len); }, len, pSrc);
}

template <class Better, class View = OwnsPlain, class T>
ZelStatus longExtreme(const T* pSrc, ZelSize len, T* pResult)
{
    const auto reduce = [=] {
        T best;
        ownsChunks<ownsChunk<T>>(
            pSrc, len, [&](const T* p, ZelSize n) { best = ownsExtreme<Better, View>(p, n); },
            [&](const T* p, ZelSize n, ZelSize) {
                best = Better::fold(best, ownsExtreme<Better, View>(p, n));
            });
        return best;
    };
    return ownsReduce(pResult, reduce, len, pSrc);
}

} // namespace

ZelStatus zelsMax_16s(const Zel16s* pSrc, int len, Zel16s* pMax)
{
    return extreme<OwnsLargest>(pSrc, len, pMax);
}

ZelStatus zelsMax_32s(const Zel32s* pSrc, int len, Zel32s* pMax)
{
    return extreme<OwnsLargest>(pSrc, len, pMax);
}

ZelStatus zelsMax_32f(const Zel32f* pSrc, int len, Zel32f* pMax)
{
    return extreme<OwnsLargest>(pSrc, len, pMax);
}

ZelStatus zelsMax_32f_L(const Zel32f* pSrc, ZelSize len, Zel32f* pMax)
{
    return longExtreme<OwnsLargest>(pSrc, len, pMax);
}

ZelStatus zelsMax_64f(const Zel64f* pSrc, int len, Zel64f* pMax)
{
    return extreme<OwnsLargest>(pSrc, len, pMax);
}

ZelStatus zelsMax_64f_L(const Zel64f* pSrc, ZelSize len, Zel64f* pMax)
{
    return longExtreme<OwnsLargest>(pSrc, len, pMax);
}

ZelStatus zelsMin_16s(const Zel16s* pSrc, int len, Zel16s* pMin)
{
    return extreme<OwnsSmallest>(pSrc, len, pMin);
}

ZelStatus zelsMin_32s(const Zel32s* pSrc, int len, Zel32s* pMin)
{
    return extreme<OwnsSmallest>(pSrc, len, pMin);
}

ZelStatus zelsMin_32f(const Zel32f* pSrc, int len, Zel32f* pMin)
{
    return extreme<OwnsSmallest>(pSrc, len, pMin);
}

ZelStatus zelsMin_32f_L(const Zel32f* pSrc, ZelSize len, Zel32f* pMin)
{
    return longExtreme<OwnsSmallest>(pSrc, len, pMin);
}

ZelStatus zelsMin_64f(const Zel64f* pSrc, int len, Zel64f* pMin)
{
    return extreme<OwnsSmallest>(pSrc, len, pMin);
}

ZelStatus zelsMin_64f_L(const Zel64f* pSrc, ZelSize len, Zel64f* pMin)
{
    return longExtreme<OwnsSmallest>(pSrc, len, pMin);
}

ZelStatus zelsMaxAbs_16s(const Zel16s* pSrc, int len, Zel16s* pMaxAbs)
{
    return extreme<OwnsLargest, OwnsMagnitude>(pSrc, len, pMaxAbs);
}

ZelStatus zelsMaxAbs_32s(const Zel32s* pSrc, int len, Zel32s* pMaxAbs)
{
    return extreme<OwnsLargest, OwnsMagnitude>(pSrc, len, pMaxAbs);
}

ZelStatus zelsMaxAbs_32f(const Zel32f* pSrc, int len, Zel32f* pMaxAbs)
{
    return extreme<OwnsLargest, OwnsMagnitude>(pSrc, len, pMaxAbs);
}

ZelStatus zelsMaxAbs_32f_L(const Zel32f* pSrc, ZelSize len, Zel32f* pMaxAbs)
{
    return longExtreme<OwnsLargest, OwnsMagnitude>(pSrc, len, pMaxAbs);
}

ZelStatus zelsMaxAbs_64f(const Zel64f* pSrc, int len, Zel64f* pMaxAbs)
{
    return extreme<OwnsLargest, OwnsMagnitude>(pSrc, len, pMaxAbs);
}

ZelStatus zelsMaxAbs_64f_L(const Zel64f* pSrc, ZelSize len, Zel64f* pMaxAbs)
{
    return longExtreme<OwnsLargest, OwnsMagnitude>(pSrc, len, pMaxAbs);
}

ZelStatus zelsMinAbs_16s(const Zel16s* pSrc, int len, Zel16s* pMinAbs)
{
    return extreme<OwnsSmallest, OwnsMagnitude>(pSrc, len, pMinAbs);
}

ZelStatus zelsMinAbs_32s(const Zel32s* pSrc, int len, Zel32s* pMinAbs)
{
    return extreme<OwnsSmallest, OwnsMagnitude>(pSrc, len, pMinAbs);
}

ZelStatus zelsMinAbs_32f(const Zel32f* pSrc, int len, Zel32f* pMinAbs)
{
    return extreme<OwnsSmallest, OwnsMagnitude>(pSrc, len, pMinAbs);
}

ZelStatus zelsMinAbs_32f_L(const Zel32f* pSrc, ZelSize len, Zel32f* pMinAbs)
{
    return longExtreme<OwnsSmallest, OwnsMagnitude>(pSrc, len, pMinAbs);
}

ZelStatus zelsMinAbs_64f(const Zel64f* pSrc, int len, Zel64f* pMinAbs)
{
    return extreme<OwnsSmallest, OwnsMagnitude>(pSrc, len, pMinAbs);
}

ZelStatus zelsMinAbs_64f_L(const Zel64f* pSrc, ZelSize len, Zel64f* pMinAbs)
{
    return longExtreme<OwnsSmallest, OwnsMagnitude>(pSrc, len, pMinAbs);
}
