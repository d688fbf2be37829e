// Arctangent: Arctan.
#include "frame/map.h"
#include "math/vecMath.h"
#include "zels.h"

namespace {

struct Arctan {
    static constexpr OwnsCode code = OwnsCode::compact;

    template <class V>
    V operator()(V x) const
    {
        return ownsAtan(x);
    }
};
constexpr Arctan arctan;

} // namespace

ZelStatus zelsArctan_32f(const Zel32f* pSrc, Zel32f* pDst, int len)
{
    return ownsRun<shape_32f>(arctan, pDst, len, pSrc);
}

ZelStatus zelsArctan_32f_I(Zel32f* pSrcDst, int len)
{
    return zelsArctan_32f(pSrcDst, pSrcDst, len);
}

ZelStatus zelsArctan_64f(const Zel64f* pSrc, Zel64f* pDst, int len)
{
    return ownsRun<shape_64f>(arctan, pDst, len, pSrc);
}

ZelStatus zelsArctan_64f_I(Zel64f* pSrcDst, int len)
{
    return zelsArctan_64f(pSrcDst, pSrcDst, len);
}
