// Blackman windows: with a free parameter, the usual one, and the one whose side lobes fall fastest.
#include "generators/windowCosine.h"
#include "zels.h"

namespace {

/// (alpha + 1)/2 - C/2 - (alpha/2) cos(2 n a), with C = 1 - V and cos(2 n a) = 2 C^2 - 1.
struct Blackman {
    Zel64f alpha;

    template <class X>
    X operator()(X v) const
    {
        return v * ((0.5 + 2 * alpha) - v * alpha);
    }
};

/// The middle is 1 for every parameter.
struct Window : OwnsCosineWindow<Blackman> {
    static Zel64f middle() { return 1; }
};

template <class T>
[[gnu::noinline]] void applyBlackman(const T* pSrc, T* pDst, int len, Zel64f sin, Zel64f cos, Zel64f alpha)
{
    ownsApplyWindow(Window{{{sin, cos}, {alpha}}}, pSrc, pDst, len);
}

template <class T>
inline ZelStatus runBlackman(const T* pSrc, T* pDst, int len, Zel64f alpha)
{
    if (const ZelStatus status = ownsWindowCheck(pSrc, pDst, len, 3); status != zelStatusOk)
        return status;
    Zel64f sin, cos;
    ownsWindowHalfStep(len, sin, cos);
    applyBlackman(pSrc, pDst, len, sin, cos, alpha);
    return zelStatusOk;
}

template <class T>
inline ZelStatus runBlackmanStd(const T* pSrc, T* pDst, int len)
{
    if (pSrc && pDst && len == 3) {
        ownsWindowThree(pSrc, pDst);
        return zelStatusOk;
    }
    return runBlackman(pSrc, pDst, len, -0.16);
}

template <class T>
inline ZelStatus runBlackmanOpt(const T* pSrc, T* pDst, int len)
{
    if (const ZelStatus status = ownsWindowCheck(pSrc, pDst, len, 4); status != zelStatusOk)
        return status;
    Zel64f sin, cos;
    ownsWindowHalfStep(len, sin, cos);
    applyBlackman(pSrc, pDst, len, sin, cos, -0.25 / (cos * cos));
    return zelStatusOk;
}

} // namespace

ZelStatus zelsWinBlackman_16s(const Zel16s* pSrc, Zel16s* pDst, int len, Zel32f alpha)
{
    return runBlackman(pSrc, pDst, len, alpha);
}

ZelStatus zelsWinBlackman_16s_I(Zel16s* pSrcDst, int len, Zel32f alpha)
{
    return zelsWinBlackman_16s(pSrcDst, pSrcDst, len, alpha);
}

ZelStatus zelsWinBlackman_16sc(const Zel16sc* pSrc, Zel16sc* pDst, int len, Zel32f alpha)
{
    return runBlackman(pSrc, pDst, len, alpha);
}

ZelStatus zelsWinBlackman_16sc_I(Zel16sc* pSrcDst, int len, Zel32f alpha)
{
    return zelsWinBlackman_16sc(pSrcDst, pSrcDst, len, alpha);
}

ZelStatus zelsWinBlackman_32f(const Zel32f* pSrc, Zel32f* pDst, int len, Zel32f alpha)
{
    return runBlackman(pSrc, pDst, len, alpha);
}

ZelStatus zelsWinBlackman_32f_I(Zel32f* pSrcDst, int len, Zel32f alpha)
{
    return zelsWinBlackman_32f(pSrcDst, pSrcDst, len, alpha);
}

ZelStatus zelsWinBlackman_32fc(const Zel32fc* pSrc, Zel32fc* pDst, int len, Zel32f alpha)
{
    return runBlackman(pSrc, pDst, len, alpha);
}

ZelStatus zelsWinBlackman_32fc_I(Zel32fc* pSrcDst, int len, Zel32f alpha)
{
    return zelsWinBlackman_32fc(pSrcDst, pSrcDst, len, alpha);
}

ZelStatus zelsWinBlackman_64f(const Zel64f* pSrc, Zel64f* pDst, int len, Zel64f alpha)
{
    return runBlackman(pSrc, pDst, len, alpha);
}

ZelStatus zelsWinBlackman_64f_I(Zel64f* pSrcDst, int len, Zel64f alpha)
{
    return zelsWinBlackman_64f(pSrcDst, pSrcDst, len, alpha);
}

ZelStatus zelsWinBlackman_64fc(const Zel64fc* pSrc, Zel64fc* pDst, int len, Zel64f alpha)
{
    return runBlackman(pSrc, pDst, len, alpha);
}

ZelStatus zelsWinBlackman_64fc_I(Zel64fc* pSrcDst, int len, Zel64f alpha)
{
    return zelsWinBlackman_64fc(pSrcDst, pSrcDst, len, alpha);
}

ZelStatus zelsWinBlackmanStd_16s(const Zel16s* pSrc, Zel16s* pDst, int len)
{
    return runBlackmanStd(pSrc, pDst, len);
}

ZelStatus zelsWinBlackmanStd_16s_I(Zel16s* pSrcDst, int len)
{
    return zelsWinBlackmanStd_16s(pSrcDst, pSrcDst, len);
}

ZelStatus zelsWinBlackmanStd_16sc(const Zel16sc* pSrc, Zel16sc* pDst, int len)
{
    return runBlackmanStd(pSrc, pDst, len);
}

ZelStatus zelsWinBlackmanStd_16sc_I(Zel16sc* pSrcDst, int len)
{
    return zelsWinBlackmanStd_16sc(pSrcDst, pSrcDst, len);
}

ZelStatus zelsWinBlackmanStd_32f(const Zel32f* pSrc, Zel32f* pDst, int len)
{
    return runBlackmanStd(pSrc, pDst, len);
}

ZelStatus zelsWinBlackmanStd_32f_I(Zel32f* pSrcDst, int len)
{
    return zelsWinBlackmanStd_32f(pSrcDst, pSrcDst, len);
}

ZelStatus zelsWinBlackmanStd_32fc(const Zel32fc* pSrc, Zel32fc* pDst, int len)
{
    return runBlackmanStd(pSrc, pDst, len);
}

ZelStatus zelsWinBlackmanStd_32fc_I(Zel32fc* pSrcDst, int len)
{
    return zelsWinBlackmanStd_32fc(pSrcDst, pSrcDst, len);
}

ZelStatus zelsWinBlackmanStd_64f(const Zel64f* pSrc, Zel64f* pDst, int len)
{
    return runBlackmanStd(pSrc, pDst, len);
}

ZelStatus zelsWinBlackmanStd_64f_I(Zel64f* pSrcDst, int len)
{
    return zelsWinBlackmanStd_64f(pSrcDst, pSrcDst, len);
}

ZelStatus zelsWinBlackmanStd_64fc(const Zel64fc* pSrc, Zel64fc* pDst, int len)
{
    return runBlackmanStd(pSrc, pDst, len);
}

ZelStatus zelsWinBlackmanStd_64fc_I(Zel64fc* pSrcDst, int len)
{
    return zelsWinBlackmanStd_64fc(pSrcDst, pSrcDst, len);
}

ZelStatus zelsWinBlackmanOpt_16s(const Zel16s* pSrc, Zel16s* pDst, int len)
{
    return runBlackmanOpt(pSrc, pDst, len);
}

ZelStatus zelsWinBlackmanOpt_16s_I(Zel16s* pSrcDst, int len)
{
    return zelsWinBlackmanOpt_16s(pSrcDst, pSrcDst, len);
}

ZelStatus zelsWinBlackmanOpt_16sc(const Zel16sc* pSrc, Zel16sc* pDst, int len)
{
    return runBlackmanOpt(pSrc, pDst, len);
}

ZelStatus zelsWinBlackmanOpt_16sc_I(Zel16sc* pSrcDst, int len)
{
    return zelsWinBlackmanOpt_16sc(pSrcDst, pSrcDst, len);
}

ZelStatus zelsWinBlackmanOpt_32f(const Zel32f* pSrc, Zel32f* pDst, int len)
{
    return runBlackmanOpt(pSrc, pDst, len);
}

ZelStatus zelsWinBlackmanOpt_32f_I(Zel32f* pSrcDst, int len)
{
    return zelsWinBlackmanOpt_32f(pSrcDst, pSrcDst, len);
}

ZelStatus zelsWinBlackmanOpt_32fc(const Zel32fc* pSrc, Zel32fc* pDst, int len)
{
    return runBlackmanOpt(pSrc, pDst, len);
}

ZelStatus zelsWinBlackmanOpt_32fc_I(Zel32fc* pSrcDst, int len)
{
    return zelsWinBlackmanOpt_32fc(pSrcDst, pSrcDst, len);
}

ZelStatus zelsWinBlackmanOpt_64f(const Zel64f* pSrc, Zel64f* pDst, int len)
{
    return runBlackmanOpt(pSrc, pDst, len);
}

ZelStatus zelsWinBlackmanOpt_64f_I(Zel64f* pSrcDst, int len)
{
    return zelsWinBlackmanOpt_64f(pSrcDst, pSrcDst, len);
}

ZelStatus zelsWinBlackmanOpt_64fc(const Zel64fc* pSrc, Zel64fc* pDst, int len)
{
    return runBlackmanOpt(pSrc, pDst, len);
}

ZelStatus zelsWinBlackmanOpt_64fc_I(Zel64fc* pSrcDst, int len)
{
    return zelsWinBlackmanOpt_64fc(pSrcDst, pSrcDst, len);
}
