// The triangular window.
#include "generators/window.h"
#include "zels.h"

namespace {

struct Triangle {
    OwnsFour n{OwnsF2{0, 1}, OwnsF2{2, 3}};
    OwnsF2 step;

    explicit Triangle(int len) : step(ownsSplat(2.0 / (len - 1))) {}

    [[gnu::always_inline]] OwnsFour next()
    {
        const OwnsFour w{n.low * step, n.high * step};
        n = {n.low + 4.0, n.high + 4.0};
        return w;
    }
    static Zel64f middle() { return 1; }
};

template <class T>
[[gnu::always_inline]] inline ZelStatus runBartlett(const T* pSrc, T* pDst, int len)
{
    if (const ZelStatus status = ownsWindowCheck(pSrc, pDst, len, 3); status != zelStatusOk)
        return status;
    if (len == 3)
        ownsWindowThree(pSrc, pDst);
    else
        ownsApplyWindow(Triangle(len), pSrc, pDst, len);
    return zelStatusOk;
}

} // namespace

ZelStatus zelsWinBartlett_16s(const Zel16s* pSrc, Zel16s* pDst, int len)
{
    return runBartlett(pSrc, pDst, len);
}

ZelStatus zelsWinBartlett_16s_I(Zel16s* pSrcDst, int len)
{
    return zelsWinBartlett_16s(pSrcDst, pSrcDst, len);
}

ZelStatus zelsWinBartlett_16sc(const Zel16sc* pSrc, Zel16sc* pDst, int len)
{
    return runBartlett(pSrc, pDst, len);
}

ZelStatus zelsWinBartlett_16sc_I(Zel16sc* pSrcDst, int len)
{
    return zelsWinBartlett_16sc(pSrcDst, pSrcDst, len);
}

ZelStatus zelsWinBartlett_32f(const Zel32f* pSrc, Zel32f* pDst, int len)
{
    return runBartlett(pSrc, pDst, len);
}

ZelStatus zelsWinBartlett_32f_I(Zel32f* pSrcDst, int len)
{
    return zelsWinBartlett_32f(pSrcDst, pSrcDst, len);
}

ZelStatus zelsWinBartlett_32fc(const Zel32fc* pSrc, Zel32fc* pDst, int len)
{
    return runBartlett(pSrc, pDst, len);
}

ZelStatus zelsWinBartlett_32fc_I(Zel32fc* pSrcDst, int len)
{
    return zelsWinBartlett_32fc(pSrcDst, pSrcDst, len);
}

ZelStatus zelsWinBartlett_64f(const Zel64f* pSrc, Zel64f* pDst, int len)
{
    return runBartlett(pSrc, pDst, len);
}

ZelStatus zelsWinBartlett_64f_I(Zel64f* pSrcDst, int len)
{
    return zelsWinBartlett_64f(pSrcDst, pSrcDst, len);
}

ZelStatus zelsWinBartlett_64fc(const Zel64fc* pSrc, Zel64fc* pDst, int len)
{
    return runBartlett(pSrc, pDst, len);
}

ZelStatus zelsWinBartlett_64fc_I(Zel64fc* pSrcDst, int len)
{
    return zelsWinBartlett_64fc(pSrcDst, pSrcDst, len);
}
