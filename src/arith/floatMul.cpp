// Products of float vectors: Mul and MulC.
//
// MulC of a real vector by 1 is a copy and by 0 a zero-fill, on purpose: an infinity or NaN times 0 becomes
// 0, and the sign of a zero product is lost.
#include "frame/bulk.h"
#include "frame/entry.h"
#include "frame/map.h"
#include "zels.h"

namespace {

constexpr auto mul = [](auto a, auto b) { return a * b; };

constexpr auto mulComplex = [](auto a, auto b) { return ownsComplexMul(a, b); };

constexpr auto mulConstant = [](auto val) { return [val](auto x) { return x * val; }; };

constexpr auto mulComplexConstant = [](auto val) { return [val](auto x) { return ownsComplexMul(x, val); }; };

} // namespace

ZelStatus zelsMul_32f(const Zel32f* pSrc1, const Zel32f* pSrc2, Zel32f* pDst, int len)
{
    return ownsRun<shape_32f>(mul, pDst, len, pSrc1, pSrc2);
}

ZelStatus zelsMul_32f_I(const Zel32f* pSrc, Zel32f* pSrcDst, int len)
{
    return ownsRun<shape_32f>(mul, pSrcDst, len, pSrcDst, pSrc);
}

ZelStatus zelsMul_32f_L(const Zel32f* pSrc1, const Zel32f* pSrc2, Zel32f* pDst, ZelSize len)
{
    return ownsChunked<zelsMul_32f, Zel32f>(len, pSrc1, pSrc2, pDst);
}

ZelStatus zelsMul_32f_I_L(const Zel32f* pSrc, Zel32f* pSrcDst, ZelSize len)
{
    return ownsChunked<zelsMul_32f_I, Zel32f>(len, pSrc, pSrcDst);
}

ZelStatus zelsMul_64f(const Zel64f* pSrc1, const Zel64f* pSrc2, Zel64f* pDst, int len)
{
    return ownsRun<shapeMul_64f>(mul, pDst, len, pSrc1, pSrc2);
}

ZelStatus zelsMul_64f_I(const Zel64f* pSrc, Zel64f* pSrcDst, int len)
{
    return ownsRun<shape_64f>(mul, pSrcDst, len, pSrcDst, pSrc);
}

ZelStatus zelsMul_64f_L(const Zel64f* pSrc1, const Zel64f* pSrc2, Zel64f* pDst, ZelSize len)
{
    return ownsChunked<zelsMul_64f, Zel64f>(len, pSrc1, pSrc2, pDst);
}

ZelStatus zelsMul_64f_I_L(const Zel64f* pSrc, Zel64f* pSrcDst, ZelSize len)
{
    return ownsChunked<zelsMul_64f_I, Zel64f>(len, pSrc, pSrcDst);
}

ZelStatus zelsMul_32fc(const Zel32fc* pSrc1, const Zel32fc* pSrc2, Zel32fc* pDst, int len)
{
    return ownsRun<shape_32fc>(mulComplex, pDst, len, pSrc1, pSrc2);
}

ZelStatus zelsMul_32fc_I(const Zel32fc* pSrc, Zel32fc* pSrcDst, int len)
{
    return ownsRun<shape_32fc>(mulComplex, pSrcDst, len, pSrcDst, pSrc);
}

ZelStatus zelsMul_32fc_L(const Zel32fc* pSrc1, const Zel32fc* pSrc2, Zel32fc* pDst, ZelSize len)
{
    return ownsChunked<zelsMul_32fc, Zel32fc>(len, pSrc1, pSrc2, pDst);
}

ZelStatus zelsMul_32fc_I_L(const Zel32fc* pSrc, Zel32fc* pSrcDst, ZelSize len)
{
    return ownsChunked<zelsMul_32fc_I, Zel32fc>(len, pSrc, pSrcDst);
}

ZelStatus zelsMul_64fc(const Zel64fc* pSrc1, const Zel64fc* pSrc2, Zel64fc* pDst, int len)
{
    return ownsRun<shapeMul_64fc>(mulComplex, pDst, len, pSrc1, pSrc2);
}

ZelStatus zelsMul_64fc_I(const Zel64fc* pSrc, Zel64fc* pSrcDst, int len)
{
    return ownsRun<shapeMul_64fc_I>(mulComplex, pSrcDst, len, pSrcDst, pSrc);
}

ZelStatus zelsMul_64fc_L(const Zel64fc* pSrc1, const Zel64fc* pSrc2, Zel64fc* pDst, ZelSize len)
{
    return ownsChunked<zelsMul_64fc, Zel64fc>(len, pSrc1, pSrc2, pDst);
}

ZelStatus zelsMul_64fc_I_L(const Zel64fc* pSrc, Zel64fc* pSrcDst, ZelSize len)
{
    return ownsChunked<zelsMul_64fc_I, Zel64fc>(len, pSrc, pSrcDst);
}

ZelStatus zelsMulC_32f(const Zel32f* pSrc, Zel32f val, Zel32f* pDst, int len)
{
    if (const ZelStatus status = ownsCheck(len, pSrc, pDst); status != zelStatusOk)
        return status;
    if (val == 1) [[unlikely]]
        return zelsCopy_32f(pSrc, pDst, len);
    if (val == 0) [[unlikely]]
        return zelsZero_32f(pDst, len);
    ownsMap<shapeMulC_32f>(mulConstant(val), pDst, len, pSrc);
    return zelStatusOk;
}

ZelStatus zelsMulC_32f_I(Zel32f val, Zel32f* pSrcDst, int len)
{
    if (const ZelStatus status = ownsCheck(len, pSrcDst); status != zelStatusOk)
        return status;
    if (val == 1) [[unlikely]]
        return zelStatusOk;
    if (val == 0) [[unlikely]]
        return zelsZero_32f(pSrcDst, len);
    ownsMap<shape_32f>(mulConstant(val), pSrcDst, len, pSrcDst);
    return zelStatusOk;
}

ZelStatus zelsMulC_32f_L(const Zel32f* pSrc, Zel32f val, Zel32f* pDst, ZelSize len)
{
    if (const ZelStatus status = ownsCheck(len, pSrc, pDst); status != zelStatusOk)
        return status;
    if (val == 1) [[unlikely]]
        return ownsCopy(pSrc, pDst, len);
    if (val == 0) [[unlikely]]
        return ownsZero(pDst, len);
    ownsMap<shapeMulC_32f>(mulConstant(val), pDst, len, pSrc);
    return zelStatusOk;
}

ZelStatus zelsMulC_32f_I_L(Zel32f val, Zel32f* pSrcDst, ZelSize len)
{
    return ownsChunked<zelsMulC_32f_I, Zel32f>(len, val, pSrcDst);
}

ZelStatus zelsMulC_64f(const Zel64f* pSrc, Zel64f val, Zel64f* pDst, int len)
{
    if (const ZelStatus status = ownsCheck(len, pSrc, pDst); status != zelStatusOk)
        return status;
    if (val == 1) [[unlikely]]
        return zelsCopy_64f(pSrc, pDst, len);
    if (val == 0) [[unlikely]]
        return zelsZero_64f(pDst, len);
    ownsMap<shape_64f>(mulConstant(val), pDst, len, pSrc);
    return zelStatusOk;
}

ZelStatus zelsMulC_64f_I(Zel64f val, Zel64f* pSrcDst, int len)
{
    if (const ZelStatus status = ownsCheck(len, pSrcDst); status != zelStatusOk)
        return status;
    if (val == 1) [[unlikely]]
        return zelStatusOk;
    if (val == 0) [[unlikely]]
        return zelsZero_64f(pSrcDst, len);
    ownsMap<shape_64f>(mulConstant(val), pSrcDst, len, pSrcDst);
    return zelStatusOk;
}

ZelStatus zelsMulC_64f_L(const Zel64f* pSrc, Zel64f val, Zel64f* pDst, ZelSize len)
{
    return ownsChunked<zelsMulC_64f, Zel64f>(len, pSrc, val, pDst);
}

ZelStatus zelsMulC_64f_I_L(Zel64f val, Zel64f* pSrcDst, ZelSize len)
{
    return ownsChunked<zelsMulC_64f_I, Zel64f>(len, val, pSrcDst);
}

ZelStatus zelsMulC_32fc(const Zel32fc* pSrc, Zel32fc val, Zel32fc* pDst, int len)
{
    return ownsRun<shapeMulC_32fc>(mulComplexConstant(ownsSplat(val)), pDst, len, pSrc);
}

ZelStatus zelsMulC_32fc_I(Zel32fc val, Zel32fc* pSrcDst, int len)
{
    return ownsRun<shapeMulC_32fc_I>(mulComplexConstant(ownsSplat(val)), pSrcDst, len, pSrcDst);
}

ZelStatus zelsMulC_32fc_L(const Zel32fc* pSrc, Zel32fc val, Zel32fc* pDst, ZelSize len)
{
    return ownsRun<shapeMulC_32fc>(mulComplexConstant(ownsSplat(val)), pDst, len, pSrc);
}

ZelStatus zelsMulC_32fc_I_L(Zel32fc val, Zel32fc* pSrcDst, ZelSize len)
{
    return ownsRun<shapeMulC_32fc_I>(mulComplexConstant(ownsSplat(val)), pSrcDst, len, pSrcDst);
}

ZelStatus zelsMulC_64fc(const Zel64fc* pSrc, Zel64fc val, Zel64fc* pDst, int len)
{
    return ownsRun<shape_64fc>(mulComplexConstant(ownsSplat(val)), pDst, len, pSrc);
}

ZelStatus zelsMulC_64fc_I(Zel64fc val, Zel64fc* pSrcDst, int len)
{
    return ownsRun<shape_64fc>(mulComplexConstant(ownsSplat(val)), pSrcDst, len, pSrcDst);
}

ZelStatus zelsMulC_64fc_L(const Zel64fc* pSrc, Zel64fc val, Zel64fc* pDst, ZelSize len)
{
    return ownsRun<shape_64fc>(mulComplexConstant(ownsSplat(val)), pDst, len, pSrc);
}

ZelStatus zelsMulC_64fc_I_L(Zel64fc val, Zel64fc* pSrcDst, ZelSize len)
{
    return ownsRun<shape_64fc>(mulComplexConstant(ownsSplat(val)), pSrcDst, len, pSrcDst);
}
