// Minimum and maximum together, with and without their indices.
#include "stats/indexSearch.h"
#include "zels.h"

namespace {

template <ZelSize chunk = INT32_MAX, class T>
ZelStatus minMax(const T* pSrc, ZelSize len, T* pMin, T* pMax)
{
    if (const ZelStatus status = ownsCheck(len, pSrc, pMin, pMax); status != zelStatusOk)
        return status;
    OwnsRange<T> range(0);
    ownsChunks<chunk>(
        pSrc, len, [&](const T* p, ZelSize n) { range = ownsRangeOf(p, n); },
        [&](const T* p, ZelSize n, ZelSize) { range.take(ownsRangeOf(p, n)); });
    ownsPut(pMin, range.min);
    ownsPut(pMax, range.max);
    return zelStatusOk;
}

template <class T>
struct FoundRange {
    OwnsFound<T> min;
    OwnsFound<T> max;
};

/// Both values, and then the first elements that equal them; a NaN equals none and keeps index 0.
template <class T>
FoundRange<T> foundRange(const T* p, ZelSize len)
{
    const OwnsRange<T> range = ownsRangeOf(p, len);
    const auto find = [&](T value) {
        return OwnsFound<T>{value, ownsIndexOf<OwnsSameValue, OwnsPlain>(p, 0, len, value, 0)};
    };
    return {find(range.min), find(range.max)};
}

template <ZelSize chunk = INT32_MAX, class T, class Index>
ZelStatus minMaxIndx(const T* pSrc, ZelSize len, T* pMin, Index* pMinIndx, T* pMax, Index* pMaxIndx)
{
    if (const ZelStatus status = ownsCheck(len, pSrc, pMin, pMinIndx, pMax, pMaxIndx); status != zelStatusOk)
        return status;
    FoundRange<T> best;
    ownsChunks<chunk>(
        pSrc, len, [&](const T* p, ZelSize n) { best = foundRange(p, n); },
        [&](const T* p, ZelSize n, ZelSize start) {
            const FoundRange<T> found = foundRange(p, n);
            if (OwnsSmallest::better(found.min.value, best.min.value))
                best.min = {found.min.value, start + found.min.index};
            if (OwnsLargest::better(found.max.value, best.max.value))
                best.max = {found.max.value, start + found.max.index};
        });
    ownsPut(pMin, best.min.value);
    ownsPut(pMinIndx, static_cast<Index>(best.min.index));
    ownsPut(pMax, best.max.value);
    ownsPut(pMaxIndx, static_cast<Index>(best.max.index));
    return zelStatusOk;
}

} // namespace

ZelStatus zelsMinMax_8u(const Zel8u* pSrc, int len, Zel8u* pMin, Zel8u* pMax)
{
    return minMax(pSrc, len, pMin, pMax);
}

ZelStatus zelsMinMax_16u(const Zel16u* pSrc, int len, Zel16u* pMin, Zel16u* pMax)
{
    return minMax(pSrc, len, pMin, pMax);
}

ZelStatus zelsMinMax_16s(const Zel16s* pSrc, int len, Zel16s* pMin, Zel16s* pMax)
{
    return minMax(pSrc, len, pMin, pMax);
}

ZelStatus zelsMinMax_32u(const Zel32u* pSrc, int len, Zel32u* pMin, Zel32u* pMax)
{
    return minMax(pSrc, len, pMin, pMax);
}

ZelStatus zelsMinMax_32s(const Zel32s* pSrc, int len, Zel32s* pMin, Zel32s* pMax)
{
    return minMax(pSrc, len, pMin, pMax);
}

ZelStatus zelsMinMax_32f(const Zel32f* pSrc, int len, Zel32f* pMin, Zel32f* pMax)
{
    return minMax(pSrc, len, pMin, pMax);
}

ZelStatus zelsMinMax_32f_L(const Zel32f* pSrc, ZelSize len, Zel32f* pMin, Zel32f* pMax)
{
    return minMax<ownsChunk<Zel32f>>(pSrc, len, pMin, pMax);
}

ZelStatus zelsMinMax_64f(const Zel64f* pSrc, int len, Zel64f* pMin, Zel64f* pMax)
{
    return minMax(pSrc, len, pMin, pMax);
}

ZelStatus zelsMinMax_64f_L(const Zel64f* pSrc, ZelSize len, Zel64f* pMin, Zel64f* pMax)
{
    return minMax<ownsChunk<Zel64f>>(pSrc, len, pMin, pMax);
}

ZelStatus zelsMinMaxIndx_8u(const Zel8u* pSrc, int len, Zel8u* pMin, int* pMinIndx, Zel8u* pMax,
                            int* pMaxIndx)
{
    return minMaxIndx(pSrc, len, pMin, pMinIndx, pMax, pMaxIndx);
}

ZelStatus zelsMinMaxIndx_16u(const Zel16u* pSrc, int len, Zel16u* pMin, int* pMinIndx, Zel16u* pMax,
                             int* pMaxIndx)
{
    return minMaxIndx(pSrc, len, pMin, pMinIndx, pMax, pMaxIndx);
}

ZelStatus zelsMinMaxIndx_16s(const Zel16s* pSrc, int len, Zel16s* pMin, int* pMinIndx, Zel16s* pMax,
                             int* pMaxIndx)
{
    return minMaxIndx(pSrc, len, pMin, pMinIndx, pMax, pMaxIndx);
}

ZelStatus zelsMinMaxIndx_32u(const Zel32u* pSrc, int len, Zel32u* pMin, int* pMinIndx, Zel32u* pMax,
                             int* pMaxIndx)
{
    return minMaxIndx(pSrc, len, pMin, pMinIndx, pMax, pMaxIndx);
}

ZelStatus zelsMinMaxIndx_32s(const Zel32s* pSrc, int len, Zel32s* pMin, int* pMinIndx, Zel32s* pMax,
                             int* pMaxIndx)
{
    return minMaxIndx(pSrc, len, pMin, pMinIndx, pMax, pMaxIndx);
}

ZelStatus zelsMinMaxIndx_32f(const Zel32f* pSrc, int len, Zel32f* pMin, int* pMinIndx, Zel32f* pMax,
                             int* pMaxIndx)
{
    return minMaxIndx(pSrc, len, pMin, pMinIndx, pMax, pMaxIndx);
}

ZelStatus zelsMinMaxIndx_32f_L(const Zel32f* pSrc, ZelSize len, Zel32f* pMin, ZelSize* pMinIndx, Zel32f* pMax,
                               ZelSize* pMaxIndx)
{
    return minMaxIndx<ownsChunk<Zel32f>>(pSrc, len, pMin, pMinIndx, pMax, pMaxIndx);
}

ZelStatus zelsMinMaxIndx_64f(const Zel64f* pSrc, int len, Zel64f* pMin, int* pMinIndx, Zel64f* pMax,
                             int* pMaxIndx)
{
    return minMaxIndx(pSrc, len, pMin, pMinIndx, pMax, pMaxIndx);
}

ZelStatus zelsMinMaxIndx_64f_L(const Zel64f* pSrc, ZelSize len, Zel64f* pMin, ZelSize* pMinIndx, Zel64f* pMax,
                               ZelSize* pMaxIndx)
{
    return minMaxIndx<ownsChunk<Zel64f>>(pSrc, len, pMin, pMinIndx, pMax, pMaxIndx);
}
