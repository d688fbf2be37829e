// Exponentials of floats: Exp.
#include "frame/map.h"
#include "math/vecMath.h"
#include "zels.h"

namespace {

constexpr auto expOf = [](auto x) { return ownsExp(x); };

} // namespace

ZelStatus zelsExp_32f(const Zel32f* pSrc, Zel32f* pDst, int len)
{
    return ownsRun<shape_32f>(expOf, pDst, len, pSrc);
}

ZelStatus zelsExp_32f_I(Zel32f* pSrcDst, int len)
{
    return zelsExp_32f(pSrcDst, pSrcDst, len);
}

ZelStatus zelsExp_64f(const Zel64f* pSrc, Zel64f* pDst, int len)
{
    return ownsRun<shape_64f>(expOf, pDst, len, pSrc);
}

ZelStatus zelsExp_64f_I(Zel64f* pSrcDst, int len)
{
    return zelsExp_64f(pSrcDst, pSrcDst, len);
}
