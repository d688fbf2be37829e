// Natural logarithms of floats: Ln.
#include "frame/map.h"
#include "math/vecMath.h"
#include "zels.h"

namespace {

struct Ln {
    OwnsLnSeen& seen;

    auto operator()(auto x) const { return ownsLn(x, &seen); }
    auto part(int n, auto x) const { return ownsLn(ownsFilled(x, n, 1), &seen); }
};

/// All elements are done in any case; a zero outranks a negative element wherever they stand.
template <OwnsShape shape, class T>
[[gnu::always_inline]] inline ZelStatus run(const T* pSrc, T* pDst, int len)
{
    if (const ZelStatus status = ownsCheck(len, pSrc, pDst); status != zelStatusOk)
        return status;
    OwnsLnSeen seen;
    ownsMap<shape>(Ln{seen}, pDst, len, pSrc);
    return seen.zero ? zelWarnLnZero : seen.negative ? zelWarnLnNegative : zelStatusOk;
}

} // namespace

ZelStatus zelsLn_32f(const Zel32f* pSrc, Zel32f* pDst, int len)
{
    return run<shape_32f>(pSrc, pDst, len);
}

ZelStatus zelsLn_32f_I(Zel32f* pSrcDst, int len)
{
    return zelsLn_32f(pSrcDst, pSrcDst, len);
}

ZelStatus zelsLn_64f(const Zel64f* pSrc, Zel64f* pDst, int len)
{
    return run<shape_64f>(pSrc, pDst, len);
}

ZelStatus zelsLn_64f_I(Zel64f* pSrcDst, int len)
{
    return zelsLn_64f(pSrcDst, pSrcDst, len);
}
