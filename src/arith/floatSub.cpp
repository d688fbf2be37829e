// Differences of float vectors: Sub, SubC and SubCRev. The first vector is the subtrahend.
#include "frame/entry.h"
#include "frame/map.h"
#include "zels.h"

namespace {

constexpr auto subFrom = [](auto a, auto b) { return b - a; };

constexpr auto subConstant = [](auto val) { return [val](auto x) { return x - val; }; };

constexpr auto subFromConstant = [](auto val) { return [val](auto x) { return val - x; }; };

} // namespace

ZelStatus zelsSub_32f(const Zel32f* pSrc1, const Zel32f* pSrc2, Zel32f* pDst, int len)
{
    return ownsRun<shape_32f>(subFrom, pDst, len, pSrc1, pSrc2);
}

ZelStatus zelsSub_32f_I(const Zel32f* pSrc, Zel32f* pSrcDst, int len)
{
    return ownsRun<shape_32f>(subFrom, pSrcDst, len, pSrc, pSrcDst);
}

ZelStatus zelsSub_32f_L(const Zel32f* pSrc1, const Zel32f* pSrc2, Zel32f* pDst, ZelSize len)
{
    return ownsChunked<zelsSub_32f, Zel32f>(len, pSrc1, pSrc2, pDst);
}

ZelStatus zelsSub_32f_I_L(const Zel32f* pSrc, Zel32f* pSrcDst, ZelSize len)
{
    return ownsChunked<zelsSub_32f_I, Zel32f>(len, pSrc, pSrcDst);
}

ZelStatus zelsSub_64f(const Zel64f* pSrc1, const Zel64f* pSrc2, Zel64f* pDst, int len)
{
    return ownsRun<shape_64f>(subFrom, pDst, len, pSrc1, pSrc2);
}

ZelStatus zelsSub_64f_I(const Zel64f* pSrc, Zel64f* pSrcDst, int len)
{
    return ownsRun<shape_64f>(subFrom, pSrcDst, len, pSrc, pSrcDst);
}

ZelStatus zelsSub_64f_L(const Zel64f* pSrc1, const Zel64f* pSrc2, Zel64f* pDst, ZelSize len)
{
    return ownsChunked<zelsSub_64f, Zel64f>(len, pSrc1, pSrc2, pDst);
}

ZelStatus zelsSub_64f_I_L(const Zel64f* pSrc, Zel64f* pSrcDst, ZelSize len)
{
    return ownsChunked<zelsSub_64f_I, Zel64f>(len, pSrc, pSrcDst);
}

ZelStatus zelsSub_32fc(const Zel32fc* pSrc1, const Zel32fc* pSrc2, Zel32fc* pDst, int len)
{
    return ownsDoubling<zelsSub_32f>(len, pSrc1, pSrc2, pDst);
}

ZelStatus zelsSub_32fc_I(const Zel32fc* pSrc, Zel32fc* pSrcDst, int len)
{
    return ownsDoubling<zelsSub_32f_I>(len, pSrc, pSrcDst);
}

ZelStatus zelsSub_32fc_L(const Zel32fc* pSrc1, const Zel32fc* pSrc2, Zel32fc* pDst, ZelSize len)
{
    return ownsChunked<zelsSub_32fc, Zel32fc>(len, pSrc1, pSrc2, pDst);
}

ZelStatus zelsSub_32fc_I_L(const Zel32fc* pSrc, Zel32fc* pSrcDst, ZelSize len)
{
    return ownsChunked<zelsSub_32fc_I, Zel32fc>(len, pSrc, pSrcDst);
}

ZelStatus zelsSub_64fc(const Zel64fc* pSrc1, const Zel64fc* pSrc2, Zel64fc* pDst, int len)
{
    return ownsDoubling<zelsSub_64f>(len, pSrc1, pSrc2, pDst);
}

ZelStatus zelsSub_64fc_I(const Zel64fc* pSrc, Zel64fc* pSrcDst, int len)
{
    return ownsDoubling<zelsSub_64f_I>(len, pSrc, pSrcDst);
}

ZelStatus zelsSub_64fc_L(const Zel64fc* pSrc1, const Zel64fc* pSrc2, Zel64fc* pDst, ZelSize len)
{
    return ownsChunked<zelsSub_64fc, Zel64fc>(len, pSrc1, pSrc2, pDst);
}

ZelStatus zelsSub_64fc_I_L(const Zel64fc* pSrc, Zel64fc* pSrcDst, ZelSize len)
{
    return ownsChunked<zelsSub_64fc_I, Zel64fc>(len, pSrc, pSrcDst);
}

ZelStatus zelsSubC_32f(const Zel32f* pSrc, Zel32f val, Zel32f* pDst, int len)
{
    if (const ZelStatus status = ownsCheck(len, pSrc, pDst); status != zelStatusOk)
        return status;
    if (val == 0) [[unlikely]]
        return zelsCopy_32f(pSrc, pDst, len);
    ownsMap<shape_32f>(subConstant(val), pDst, len, pSrc);
    return zelStatusOk;
}

ZelStatus zelsSubC_32f_I(Zel32f val, Zel32f* pSrcDst, int len)
{
    if (const ZelStatus status = ownsCheck(len, pSrcDst); status != zelStatusOk)
        return status;
    if (val == 0) [[unlikely]]
        return zelStatusOk;
    ownsMap<shape_32f>(subConstant(val), pSrcDst, len, pSrcDst);
    return zelStatusOk;
}

ZelStatus zelsSubC_32f_L(const Zel32f* pSrc, Zel32f val, Zel32f* pDst, ZelSize len)
{
    return ownsChunked<zelsSubC_32f, Zel32f>(len, pSrc, val, pDst);
}

ZelStatus zelsSubC_32f_I_L(Zel32f val, Zel32f* pSrcDst, ZelSize len)
{
    return ownsChunked<zelsSubC_32f_I, Zel32f>(len, val, pSrcDst);
}

ZelStatus zelsSubC_64f(const Zel64f* pSrc, Zel64f val, Zel64f* pDst, int len)
{
    if (const ZelStatus status = ownsCheck(len, pSrc, pDst); status != zelStatusOk)
        return status;
    if (val == 0) [[unlikely]]
        return zelsCopy_64f(pSrc, pDst, len);
    ownsMap<shape_64f>(subConstant(val), pDst, len, pSrc);
    return zelStatusOk;
}

ZelStatus zelsSubC_64f_I(Zel64f val, Zel64f* pSrcDst, int len)
{
    if (const ZelStatus status = ownsCheck(len, pSrcDst); status != zelStatusOk)
        return status;
    if (val == 0) [[unlikely]]
        return zelStatusOk;
    ownsMap<shape_64f>(subConstant(val), pSrcDst, len, pSrcDst);
    return zelStatusOk;
}

ZelStatus zelsSubC_64f_L(const Zel64f* pSrc, Zel64f val, Zel64f* pDst, ZelSize len)
{
    return ownsChunked<zelsSubC_64f, Zel64f>(len, pSrc, val, pDst);
}

ZelStatus zelsSubC_64f_I_L(Zel64f val, Zel64f* pSrcDst, ZelSize len)
{
    return ownsChunked<zelsSubC_64f_I, Zel64f>(len, val, pSrcDst);
}

ZelStatus zelsSubC_32fc(const Zel32fc* pSrc, Zel32fc val, Zel32fc* pDst, int len)
{
    return ownsRun<shape_32fc>(subConstant(ownsSplat(val)), pDst, len, pSrc);
}

ZelStatus zelsSubC_32fc_I(Zel32fc val, Zel32fc* pSrcDst, int len)
{
    return ownsRun<shape_32fc>(subConstant(ownsSplat(val)), pSrcDst, len, pSrcDst);
}

ZelStatus zelsSubC_32fc_L(const Zel32fc* pSrc, Zel32fc val, Zel32fc* pDst, ZelSize len)
{
    return ownsChunked<zelsSubC_32fc, Zel32fc>(len, pSrc, val, pDst);
}

ZelStatus zelsSubC_32fc_I_L(Zel32fc val, Zel32fc* pSrcDst, ZelSize len)
{
    return ownsChunked<zelsSubC_32fc_I, Zel32fc>(len, val, pSrcDst);
}

ZelStatus zelsSubC_64fc(const Zel64fc* pSrc, Zel64fc val, Zel64fc* pDst, int len)
{
    return ownsRun<shape_64fc>(subConstant(ownsSplat(val)), pDst, len, pSrc);
}

ZelStatus zelsSubC_64fc_I(Zel64fc val, Zel64fc* pSrcDst, int len)
{
    return ownsRun<shape_64fc>(subConstant(ownsSplat(val)), pSrcDst, len, pSrcDst);
}

ZelStatus zelsSubC_64fc_L(const Zel64fc* pSrc, Zel64fc val, Zel64fc* pDst, ZelSize len)
{
    return ownsChunked<zelsSubC_64fc, Zel64fc>(len, pSrc, val, pDst);
}

ZelStatus zelsSubC_64fc_I_L(Zel64fc val, Zel64fc* pSrcDst, ZelSize len)
{
    return ownsChunked<zelsSubC_64fc_I, Zel64fc>(len, val, pSrcDst);
}

ZelStatus zelsSubCRev_32f(const Zel32f* pSrc, Zel32f val, Zel32f* pDst, int len)
{
    return ownsRun<shape_32f>(subFromConstant(val), pDst, len, pSrc);
}

ZelStatus zelsSubCRev_32f_I(Zel32f val, Zel32f* pSrcDst, int len)
{
    return ownsRun<shape_32f>(subFromConstant(val), pSrcDst, len, pSrcDst);
}

ZelStatus zelsSubCRev_32f_L(const Zel32f* pSrc, Zel32f val, Zel32f* pDst, ZelSize len)
{
    return ownsChunked<zelsSubCRev_32f, Zel32f>(len, pSrc, val, pDst);
}

ZelStatus zelsSubCRev_32f_I_L(Zel32f val, Zel32f* pSrcDst, ZelSize len)
{
    return ownsChunked<zelsSubCRev_32f_I, Zel32f>(len, val, pSrcDst);
}

ZelStatus zelsSubCRev_64f(const Zel64f* pSrc, Zel64f val, Zel64f* pDst, int len)
{
    return ownsRun<shape_64f>(subFromConstant(val), pDst, len, pSrc);
}

ZelStatus zelsSubCRev_64f_I(Zel64f val, Zel64f* pSrcDst, int len)
{
    return ownsRun<shape_64f>(subFromConstant(val), pSrcDst, len, pSrcDst);
}

ZelStatus zelsSubCRev_64f_L(const Zel64f* pSrc, Zel64f val, Zel64f* pDst, ZelSize len)
{
    return ownsChunked<zelsSubCRev_64f, Zel64f>(len, pSrc, val, pDst);
}

ZelStatus zelsSubCRev_64f_I_L(Zel64f val, Zel64f* pSrcDst, ZelSize len)
{
    return ownsChunked<zelsSubCRev_64f_I, Zel64f>(len, val, pSrcDst);
}

ZelStatus zelsSubCRev_32fc(const Zel32fc* pSrc, Zel32fc val, Zel32fc* pDst, int len)
{
    return ownsRun<shape_32fc>(subFromConstant(ownsSplat(val)), pDst, len, pSrc);
}

ZelStatus zelsSubCRev_32fc_I(Zel32fc val, Zel32fc* pSrcDst, int len)
{
    return ownsRun<shape_32fc>(subFromConstant(ownsSplat(val)), pSrcDst, len, pSrcDst);
}

ZelStatus zelsSubCRev_32fc_L(const Zel32fc* pSrc, Zel32fc val, Zel32fc* pDst, ZelSize len)
{
    return ownsChunked<zelsSubCRev_32fc, Zel32fc>(len, pSrc, val, pDst);
}

ZelStatus zelsSubCRev_32fc_I_L(Zel32fc val, Zel32fc* pSrcDst, ZelSize len)
{
    return ownsChunked<zelsSubCRev_32fc_I, Zel32fc>(len, val, pSrcDst);
}

ZelStatus zelsSubCRev_64fc(const Zel64fc* pSrc, Zel64fc val, Zel64fc* pDst, int len)
{
    return ownsRun<shape_64fc>(subFromConstant(ownsSplat(val)), pDst, len, pSrc);
}

ZelStatus zelsSubCRev_64fc_I(Zel64fc val, Zel64fc* pSrcDst, int len)
{
    return ownsRun<shape_64fc>(subFromConstant(ownsSplat(val)), pSrcDst, len, pSrcDst);
}

ZelStatus zelsSubCRev_64fc_L(const Zel64fc* pSrc, Zel64fc val, Zel64fc* pDst, ZelSize len)
{
    return ownsChunked<zelsSubCRev_64fc, Zel64fc>(len, pSrc, val, pDst);
}

ZelStatus zelsSubCRev_64fc_I_L(Zel64fc val, Zel64fc* pSrcDst, ZelSize len)
{
    return ownsChunked<zelsSubCRev_64fc_I, Zel64fc>(len, val, pSrcDst);
}
