// Maxima and minima with their indices.
#include "stats/indexSearch.h"
#include "zels.h"

#include <limits>

namespace {

// How a form searches a vector.

template <class Better>
struct Elements {
    using Order = Better;
    template <class T>
    static OwnsFound<T> in(const T* p, ZelSize len)
    {
        return ownsFound<Better, OwnsPlain>(p, len);
    }
};

template <class Better>
struct Magnitudes {
    using Order = Better;
    template <class T>
    static OwnsFound<T> in(const T* p, ZelSize len)
    {
        if constexpr (!std::is_floating_point_v<T>)
            return ownsFound<Better, OwnsMagnitude>(p, len);
        else if constexpr (std::is_same_v<Better, OwnsLargest>)
            return ownsFoundMagnitude<Better, T>(p, len, 0);
        else
            return ownsFoundMagnitude<Better, T>(p, len, std::numeric_limits<T>::infinity());
    }
};

/// The entry. Without a place for the index the call is that of the form without one.
template <class Search, auto withoutIndex, class T>
ZelStatus indexed(const T* pSrc, int len, T* pResult, int* pIndx)
{
    if (!pIndx)
        return withoutIndex(pSrc, len, pResult);
    if (const ZelStatus status = ownsCheck(len, pSrc, pResult); status != zelStatusOk)
        return status;
    const OwnsFound<T> found = Search::in(pSrc, len);
    ownsPut(pResult, found.value);
    ownsPut(pIndx, static_cast<int>(found.index));
    return zelStatusOk;
}

template <class Search, auto withoutIndex, class T>
ZelStatus longIndexed(const T* pSrc, ZelSize len, T* pResult, ZelSize* pIndx)
{
    if (!pIndx)
        return withoutIndex(pSrc, len, pResult);
    if (const ZelStatus status = ownsCheck(len, pSrc, pResult); status != zelStatusOk)
        return status;
    OwnsFound<T> best;
    ownsChunks<ownsChunk<T>>(
        pSrc, len, [&](const T* p, ZelSize n) { best = Search::in(p, n); },
        [&](const T* p, ZelSize n, ZelSize start) {
            const OwnsFound<T> found = Search::in(p, n);
            if (Search::Order::better(found.value, best.value))
                best = {found.value, start + found.index};
        });
    ownsPut(pResult, best.value);
    ownsPut(pIndx, best.index);
    return zelStatusOk;
}

} // namespace

ZelStatus zelsMaxIndx_16s(const Zel16s* pSrc, int len, Zel16s* pMax, int* pIndx)
{
    return indexed<Elements<OwnsLargest>, zelsMax_16s>(pSrc, len, pMax, pIndx);
}

ZelStatus zelsMaxIndx_32s(const Zel32s* pSrc, int len, Zel32s* pMax, int* pIndx)
{
    return indexed<Elements<OwnsLargest>, zelsMax_32s>(pSrc, len, pMax, pIndx);
}

ZelStatus zelsMaxIndx_32f(const Zel32f* pSrc, int len, Zel32f* pMax, int* pIndx)
{
    return indexed<Elements<OwnsLargest>, zelsMax_32f>(pSrc, len, pMax, pIndx);
}

ZelStatus zelsMaxIndx_32f_L(const Zel32f* pSrc, ZelSize len, Zel32f* pMax, ZelSize* pIndx)
{
    return longIndexed<Elements<OwnsLargest>, zelsMax_32f_L>(pSrc, len, pMax, pIndx);
}

ZelStatus zelsMaxIndx_64f(const Zel64f* pSrc, int len, Zel64f* pMax, int* pIndx)
{
    return indexed<Elements<OwnsLargest>, zelsMax_64f>(pSrc, len, pMax, pIndx);
}

ZelStatus zelsMaxIndx_64f_L(const Zel64f* pSrc, ZelSize len, Zel64f* pMax, ZelSize* pIndx)
{
    return longIndexed<Elements<OwnsLargest>, zelsMax_64f_L>(pSrc, len, pMax, pIndx);
}

ZelStatus zelsMinIndx_16s(const Zel16s* pSrc, int len, Zel16s* pMin, int* pIndx)
{
    return indexed<Elements<OwnsSmallest>, zelsMin_16s>(pSrc, len, pMin, pIndx);
}

ZelStatus zelsMinIndx_32s(const Zel32s* pSrc, int len, Zel32s* pMin, int* pIndx)
{
    return indexed<Elements<OwnsSmallest>, zelsMin_32s>(pSrc, len, pMin, pIndx);
}

ZelStatus zelsMinIndx_32f(const Zel32f* pSrc, int len, Zel32f* pMin, int* pIndx)
{
    return indexed<Elements<OwnsSmallest>, zelsMin_32f>(pSrc, len, pMin, pIndx);
}

ZelStatus zelsMinIndx_32f_L(const Zel32f* pSrc, ZelSize len, Zel32f* pMin, ZelSize* pIndx)
{
    return longIndexed<Elements<OwnsSmallest>, zelsMin_32f_L>(pSrc, len, pMin, pIndx);
}

ZelStatus zelsMinIndx_64f(const Zel64f* pSrc, int len, Zel64f* pMin, int* pIndx)
{
    return indexed<Elements<OwnsSmallest>, zelsMin_64f>(pSrc, len, pMin, pIndx);
}

ZelStatus zelsMinIndx_64f_L(const Zel64f* pSrc, ZelSize len, Zel64f* pMin, ZelSize* pIndx)
{
    return longIndexed<Elements<OwnsSmallest>, zelsMin_64f_L>(pSrc, len, pMin, pIndx);
}

ZelStatus zelsMaxAbsIndx_16s(const Zel16s* pSrc, int len, Zel16s* pMaxAbs, int* pIndx)
{
    return indexed<Magnitudes<OwnsLargest>, zelsMaxAbs_16s>(pSrc, len, pMaxAbs, pIndx);
}

ZelStatus zelsMaxAbsIndx_32s(const Zel32s* pSrc, int len, Zel32s* pMaxAbs, int* pIndx)
{
    return indexed<Magnitudes<OwnsLargest>, zelsMaxAbs_32s>(pSrc, len, pMaxAbs, pIndx);
}

ZelStatus zelsMaxAbsIndx_32f(const Zel32f* pSrc, int len, Zel32f* pMaxAbs, int* pIndx)
{
    return indexed<Magnitudes<OwnsLargest>, zelsMaxAbs_32f>(pSrc, len, pMaxAbs, pIndx);
}

ZelStatus zelsMaxAbsIndx_32f_L(const Zel32f* pSrc, ZelSize len, Zel32f* pMaxAbs, ZelSize* pIndx)
{
    return longIndexed<Magnitudes<OwnsLargest>, zelsMaxAbs_32f_L>(pSrc, len, pMaxAbs, pIndx);
}

ZelStatus zelsMaxAbsIndx_64f(const Zel64f* pSrc, int len, Zel64f* pMaxAbs, int* pIndx)
{
    return indexed<Magnitudes<OwnsLargest>, zelsMaxAbs_64f>(pSrc, len, pMaxAbs, pIndx);
}

ZelStatus zelsMaxAbsIndx_64f_L(const Zel64f* pSrc, ZelSize len, Zel64f* pMaxAbs, ZelSize* pIndx)
{
    return longIndexed<Magnitudes<OwnsLargest>, zelsMaxAbs_64f_L>(pSrc, len, pMaxAbs, pIndx);
}

ZelStatus zelsMinAbsIndx_16s(const Zel16s* pSrc, int len, Zel16s* pMinAbs, int* pIndx)
{
    return indexed<Magnitudes<OwnsSmallest>, zelsMinAbs_16s>(pSrc, len, pMinAbs, pIndx);
}

ZelStatus zelsMinAbsIndx_32s(const Zel32s* pSrc, int len, Zel32s* pMinAbs, int* pIndx)
{
    return indexed<Magnitudes<OwnsSmallest>, zelsMinAbs_32s>(pSrc, len, pMinAbs, pIndx);
}

ZelStatus zelsMinAbsIndx_32f(const Zel32f* pSrc, int len, Zel32f* pMinAbs, int* pIndx)
{
    return indexed<Magnitudes<OwnsSmallest>, zelsMinAbs_32f>(pSrc, len, pMinAbs, pIndx);
}

ZelStatus zelsMinAbsIndx_32f_L(const Zel32f* pSrc, ZelSize len, Zel32f* pMinAbs, ZelSize* pIndx)
{
    return longIndexed<Magnitudes<OwnsSmallest>, zelsMinAbs_32f_L>(pSrc, len, pMinAbs, pIndx);
}

ZelStatus zelsMinAbsIndx_64f(const Zel64f* pSrc, int len, Zel64f* pMinAbs, int* pIndx)
{
    return indexed<Magnitudes<OwnsSmallest>, zelsMinAbs_64f>(pSrc, len, pMinAbs, pIndx);
}

ZelStatus zelsMinAbsIndx_64f_L(const Zel64f* pSrc, ZelSize len, Zel64f* pMinAbs, ZelSize* pIndx)
{
    return longIndexed<Magnitudes<OwnsSmallest>, zelsMinAbs_64f_L>(pSrc, len, pMinAbs, pIndx);
}
