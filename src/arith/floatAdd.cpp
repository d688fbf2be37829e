// Sums of float vectors: Add and AddC.
#include "frame/entry.h"
#include "frame/map.h"
#include "zels.h"

namespace {

constexpr auto add = [](auto a, auto b) { return a + b; };

constexpr auto addConstant = [](auto val) { return [val](auto x) { return x + val; }; };

// A zero constant makes AddC a copy: -0 stays -0, where a sum would give +0. The 32f form takes the one
// 32-bit copy whose byte count does not wrap; the 64f form counts in bytes of a 32-bit integer and refuses
// what does not fit.
ZelStatus copyUnwrapped(const Zel32f* pSrc, Zel32f* pDst, int len)
{
    return zelsCopy_32s(reinterpret_cast<const Zel32s*>(pSrc), reinterpret_cast<Zel32s*>(pDst), len);
}

ZelStatus copyCountedInBytes(const Zel64f* pSrc, Zel64f* pDst, int len)
{
    const int bytes = static_cast<int>(8u * static_cast<unsigned>(len));
    return bytes < 1
               ? zelErrSize
               : zelsCopy_8u(reinterpret_cast<const Zel8u*>(pSrc), reinterpret_cast<Zel8u*>(pDst), bytes);
}

} // namespace

ZelStatus zelsAdd_32f(const Zel32f* pSrc1, const Zel32f* pSrc2, Zel32f* pDst, int len)
{
    return ownsRun<shapeAdd_32f>(add, pDst, len, pSrc1, pSrc2);
}

ZelStatus zelsAdd_32f_I(const Zel32f* pSrc, Zel32f* pSrcDst, int len)
{
    return ownsRun<shape_32f>(add, pSrcDst, len, pSrcDst, pSrc);
}

ZelStatus zelsAdd_32f_L(const Zel32f* pSrc1, const Zel32f* pSrc2, Zel32f* pDst, ZelSize len)
{
    return ownsChunked<zelsAdd_32f, Zel32f>(len, pSrc1, pSrc2, pDst);
}

ZelStatus zelsAdd_32f_I_L(const Zel32f* pSrc, Zel32f* pSrcDst, ZelSize len)
{
    return ownsChunked<zelsAdd_32f_I, Zel32f>(len, pSrc, pSrcDst);
}

ZelStatus zelsAdd_64f(const Zel64f* pSrc1, const Zel64f* pSrc2, Zel64f* pDst, int len)
{
    return ownsRun<shapeAdd_64f>(add, pDst, len, pSrc1, pSrc2);
}

ZelStatus zelsAdd_64f_I(const Zel64f* pSrc, Zel64f* pSrcDst, int len)
{
    return ownsRun<shape_64f>(add, pSrcDst, len, pSrcDst, pSrc);
}

ZelStatus zelsAdd_64f_L(const Zel64f* pSrc1, const Zel64f* pSrc2, Zel64f* pDst, ZelSize len)
{
    return ownsChunked<zelsAdd_64f, Zel64f>(len, pSrc1, pSrc2, pDst);
}

ZelStatus zelsAdd_64f_I_L(const Zel64f* pSrc, Zel64f* pSrcDst, ZelSize len)
{
    return ownsChunked<zelsAdd_64f_I, Zel64f>(len, pSrc, pSrcDst);
}

ZelStatus zelsAdd_32fc(const Zel32fc* pSrc1, const Zel32fc* pSrc2, Zel32fc* pDst, int len)
{
    return ownsDoubling<zelsAdd_32f>(len, pSrc1, pSrc2, pDst);
}

ZelStatus zelsAdd_32fc_I(const Zel32fc* pSrc, Zel32fc* pSrcDst, int len)
{
    return ownsDoubling<zelsAdd_32f_I>(len, pSrc, pSrcDst);
}

ZelStatus zelsAdd_32fc_L(const Zel32fc* pSrc1, const Zel32fc* pSrc2, Zel32fc* pDst, ZelSize len)
{
    return ownsChunked<zelsAdd_32fc, Zel32fc>(len, pSrc1, pSrc2, pDst);
}

ZelStatus zelsAdd_32fc_I_L(const Zel32fc* pSrc, Zel32fc* pSrcDst, ZelSize len)
{
    return ownsChunked<zelsAdd_32fc_I, Zel32fc>(len, pSrc, pSrcDst);
}

ZelStatus zelsAdd_64fc(const Zel64fc* pSrc1, const Zel64fc* pSrc2, Zel64fc* pDst, int len)
{
    return ownsDoubling<zelsAdd_64f>(len, pSrc1, pSrc2, pDst);
}

ZelStatus zelsAdd_64fc_I(const Zel64fc* pSrc, Zel64fc* pSrcDst, int len)
{
    return ownsDoubling<zelsAdd_64f_I>(len, pSrc, pSrcDst);
}

ZelStatus zelsAdd_64fc_L(const Zel64fc* pSrc1, const Zel64fc* pSrc2, Zel64fc* pDst, ZelSize len)
{
    return ownsChunked<zelsAdd_64fc, Zel64fc>(len, pSrc1, pSrc2, pDst);
}

ZelStatus zelsAdd_64fc_I_L(const Zel64fc* pSrc, Zel64fc* pSrcDst, ZelSize len)
{
    return ownsChunked<zelsAdd_64fc_I, Zel64fc>(len, pSrc, pSrcDst);
}

ZelStatus zelsAddC_32f(const Zel32f* pSrc, Zel32f val, Zel32f* pDst, int len)
{
    if (const ZelStatus status = ownsCheck(len, pSrc, pDst); status != zelStatusOk)
        return status;
    if (val == 0) [[unlikely]]
        return copyUnwrapped(pSrc, pDst, len);
    ownsMap<shape_32f>(addConstant(val), pDst, len, pSrc);
    return zelStatusOk;
}

ZelStatus zelsAddC_32f_I(Zel32f val, Zel32f* pSrcDst, int len)
{
    if (const ZelStatus status = ownsCheck(len, pSrcDst); status != zelStatusOk)
        return status;
    if (val == 0) [[unlikely]]
        return zelStatusOk;
    ownsMap<shape_32f>(addConstant(val), pSrcDst, len, pSrcDst);
    return zelStatusOk;
}

ZelStatus zelsAddC_32f_L(const Zel32f* pSrc, Zel32f val, Zel32f* pDst, ZelSize len)
{
    return ownsChunked<zelsAddC_32f, Zel32f>(len, pSrc, val, pDst);
}

ZelStatus zelsAddC_32f_I_L(Zel32f val, Zel32f* pSrcDst, ZelSize len)
{
    return ownsChunked<zelsAddC_32f_I, Zel32f>(len, val, pSrcDst);
}

ZelStatus zelsAddC_64f(const Zel64f* pSrc, Zel64f val, Zel64f* pDst, int len)
{
    if (const ZelStatus status = ownsCheck(len, pSrc, pDst); status != zelStatusOk)
        return status;
    if (val == 0) [[unlikely]]
        return copyCountedInBytes(pSrc, pDst, len);
    ownsMap<shape_64f>(addConstant(val), pDst, len, pSrc);
    return zelStatusOk;
}

ZelStatus zelsAddC_64f_I(Zel64f val, Zel64f* pSrcDst, int len)
{
    if (const ZelStatus status = ownsCheck(len, pSrcDst); status != zelStatusOk)
        return status;
    if (val == 0) [[unlikely]]
        return zelStatusOk;
    ownsMap<shape_64f>(addConstant(val), pSrcDst, len, pSrcDst);
    return zelStatusOk;
}

ZelStatus zelsAddC_64f_L(const Zel64f* pSrc, Zel64f val, Zel64f* pDst, ZelSize len)
{
    return ownsChunked<zelsAddC_64f, Zel64f>(len, pSrc, val, pDst);
}

ZelStatus zelsAddC_64f_I_L(Zel64f val, Zel64f* pSrcDst, ZelSize len)
{
    return ownsChunked<zelsAddC_64f_I, Zel64f>(len, val, pSrcDst);
}

ZelStatus zelsAddC_32fc(const Zel32fc* pSrc, Zel32fc val, Zel32fc* pDst, int len)
{
    return ownsRun<shape_32fc>(addConstant(ownsSplat(val)), pDst, len, pSrc);
}

ZelStatus zelsAddC_32fc_I(Zel32fc val, Zel32fc* pSrcDst, int len)
{
    return ownsRun<shape_32fc>(addConstant(ownsSplat(val)), pSrcDst, len, pSrcDst);
}

ZelStatus zelsAddC_32fc_L(const Zel32fc* pSrc, Zel32fc val, Zel32fc* pDst, ZelSize len)
{
    return ownsChunked<zelsAddC_32fc, Zel32fc>(len, pSrc, val, pDst);
}

ZelStatus zelsAddC_32fc_I_L(Zel32fc val, Zel32fc* pSrcDst, ZelSize len)
{
    return ownsChunked<zelsAddC_32fc_I, Zel32fc>(len, val, pSrcDst);
}

ZelStatus zelsAddC_64fc(const Zel64fc* pSrc, Zel64fc val, Zel64fc* pDst, int len)
{
    return ownsRun<shapeAddC_64fc>(addConstant(ownsSplat(val)), pDst, len, pSrc);
}

ZelStatus zelsAddC_64fc_I(Zel64fc val, Zel64fc* pSrcDst, int len)
{
    return ownsRun<shape_64fc>(addConstant(ownsSplat(val)), pSrcDst, len, pSrcDst);
}

ZelStatus zelsAddC_64fc_L(const Zel64fc* pSrc, Zel64fc val, Zel64fc* pDst, ZelSize len)
{
    return ownsChunked<zelsAddC_64fc, Zel64fc>(len, pSrc, val, pDst);
}

ZelStatus zelsAddC_64fc_I_L(Zel64fc val, Zel64fc* pSrcDst, ZelSize len)
{
    return ownsChunked<zelsAddC_64fc_I, Zel64fc>(len, val, pSrcDst);
}
