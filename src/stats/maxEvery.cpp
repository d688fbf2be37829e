// Pairwise maxima and minima.
#include "frame/extremes.h"
#include "frame/map.h"
#include "zels.h"

namespace {

constexpr auto larger = [](auto a, auto b) { return OwnsLargest::fold(a, b); };
constexpr auto smaller = [](auto a, auto b) { return OwnsSmallest::fold(a, b); };

constexpr OwnsShape shapeEvery_64f{11};

/// Arrays that share memory without being the same are taken one element at a time in rising order.
template <class Op>
ZelStatus everyInPlace(Op op, const Zel64f* pSrc, Zel64f* pSrcDst, Zel32u len)
{
    if (const ZelStatus status = ownsCheck(len, pSrc, pSrcDst); status != zelStatusOk)
        return status;
    const auto from = reinterpret_cast<std::uintptr_t>(pSrc);
    const auto to = reinterpret_cast<std::uintptr_t>(pSrcDst);
    const std::uintptr_t distance = from < to ? to - from : from - to;
    if (distance != 0 && distance < sizeof(Zel64f) * len) {
        for (ZelSize i = 0; i < len; i++)
            ownsPut(pSrcDst + i, op(ownsGet(pSrc + i), ownsGet(pSrcDst + i)));
    } else {
        ownsMap<shapeEvery_64f>(op, pSrcDst, len, pSrc, pSrcDst);
    }
    return zelStatusOk;
}

} // namespace

ZelStatus zelsMaxEvery_8u(const Zel8u* pSrc1, const Zel8u* pSrc2, Zel8u* pDst, Zel32u len)
{
    return ownsRun<shape_8u>(larger, pDst, len, pSrc1, pSrc2);
}

ZelStatus zelsMaxEvery_16u(const Zel16u* pSrc1, const Zel16u* pSrc2, Zel16u* pDst, Zel32u len)
{
    return ownsRun<shape_16s>(larger, pDst, len, pSrc1, pSrc2);
}

ZelStatus zelsMaxEvery_32f(const Zel32f* pSrc1, const Zel32f* pSrc2, Zel32f* pDst, Zel32u len)
{
    return ownsRun<shape_32f>(larger, pDst, len, pSrc1, pSrc2);
}

ZelStatus zelsMaxEvery_64f(const Zel64f* pSrc1, const Zel64f* pSrc2, Zel64f* pDst, Zel32u len)
{
    return ownsRun<shapeEvery_64f>(larger, pDst, len, pSrc1, pSrc2);
}

ZelStatus zelsMaxEvery_8u_I(const Zel8u* pSrc, Zel8u* pSrcDst, int len)
{
    return ownsRun<shape_8u>(larger, pSrcDst, len, pSrc, pSrcDst);
}

ZelStatus zelsMaxEvery_16s_I(const Zel16s* pSrc, Zel16s* pSrcDst, int len)
{
    return ownsRun<shape_16s>(larger, pSrcDst, len, pSrc, pSrcDst);
}

ZelStatus zelsMaxEvery_16u_I(const Zel16u* pSrc, Zel16u* pSrcDst, int len)
{
    return ownsRun<shape_16s>(larger, pSrcDst, len, pSrc, pSrcDst);
}

ZelStatus zelsMaxEvery_32s_I(const Zel32s* pSrc, Zel32s* pSrcDst, int len)
{
    return ownsRun<shape_32s>(larger, pSrcDst, len, pSrc, pSrcDst);
}

ZelStatus zelsMaxEvery_32f_I(const Zel32f* pSrc, Zel32f* pSrcDst, int len)
{
    return ownsRun<shape_32f>(larger, pSrcDst, len, pSrc, pSrcDst);
}

ZelStatus zelsMaxEvery_64f_I(const Zel64f* pSrc, Zel64f* pSrcDst, Zel32u len)
{
    return everyInPlace(larger, pSrc, pSrcDst, len);
}

ZelStatus zelsMinEvery_8u(const Zel8u* pSrc1, const Zel8u* pSrc2, Zel8u* pDst, Zel32u len)
{
    return ownsRun<shape_8u>(smaller, pDst, len, pSrc1, pSrc2);
}

ZelStatus zelsMinEvery_16u(const Zel16u* pSrc1, const Zel16u* pSrc2, Zel16u* pDst, Zel32u len)
{
    return ownsRun<shape_16s>(smaller, pDst, len, pSrc1, pSrc2);
}

ZelStatus zelsMinEvery_32f(const Zel32f* pSrc1, const Zel32f* pSrc2, Zel32f* pDst, Zel32u len)
{
    return ownsRun<shape_32f>(smaller, pDst, len, pSrc1, pSrc2);
}

ZelStatus zelsMinEvery_64f(const Zel64f* pSrc1, const Zel64f* pSrc2, Zel64f* pDst, Zel32u len)
{
    return ownsRun<shapeEvery_64f>(smaller, pDst, len, pSrc1, pSrc2);
}

ZelStatus zelsMinEvery_8u_I(const Zel8u* pSrc, Zel8u* pSrcDst, int len)
{
    return ownsRun<shape_8u>(smaller, pSrcDst, len, pSrc, pSrcDst);
}

ZelStatus zelsMinEvery_16s_I(const Zel16s* pSrc, Zel16s* pSrcDst, int len)
{
    return ownsRun<shape_16s>(smaller, pSrcDst, len, pSrc, pSrcDst);
}

ZelStatus zelsMinEvery_16u_I(const Zel16u* pSrc, Zel16u* pSrcDst, int len)
{
    return ownsRun<shape_16s>(smaller, pSrcDst, len, pSrc, pSrcDst);
}

ZelStatus zelsMinEvery_32s_I(const Zel32s* pSrc, Zel32s* pSrcDst, int len)
{
    return ownsRun<shape_32s>(smaller, pSrcDst, len, pSrc, pSrcDst);
}

ZelStatus zelsMinEvery_32f_I(const Zel32f* pSrc, Zel32f* pSrcDst, int len)
{
    return ownsRun<shape_32f>(smaller, pSrcDst, len, pSrc, pSrcDst);
}

ZelStatus zelsMinEvery_64f_I(const Zel64f* pSrc, Zel64f* pSrcDst, Zel32u len)
{
    return everyInPlace(smaller, pSrc, pSrcDst, len);
}
