// Hann and Hamming windows.
#include "generators/windowCosine.h"
#include "zels.h"

namespace {

template <class T, class Polynomial>
[[gnu::always_inline]] inline ZelStatus runCosine(const T* pSrc, T* pDst, int len, Polynomial polynomial)
{
    if (const ZelStatus status = ownsWindowCheck(pSrc, pDst, len, 3); status != zelStatusOk)
        return status;
    Zel64f sin, cos;
    ownsWindowHalfStep(len, sin, cos);
    ownsApplyWindow(OwnsCosineWindow<Polynomial>{{sin, cos}, polynomial}, pSrc, pDst, len);
    return zelStatusOk;
}

template <class T>
[[gnu::always_inline]] inline ZelStatus runHann(const T* pSrc, T* pDst, int len)
{
    return runCosine(pSrc, pDst, len, [](auto v) { return v * 0.5; });
}

template <class T>
[[gnu::always_inline]] inline ZelStatus runHamming(const T* pSrc, T* pDst, int len)
{
    return runCosine(pSrc, pDst, len, [](auto v) { return 0.08 + v * 0.46; });
}

} // namespace

ZelStatus zelsWinHann_16s(const Zel16s* pSrc, Zel16s* pDst, int len)
{
    return runHann(pSrc, pDst, len);
}

ZelStatus zelsWinHann_16s_I(Zel16s* pSrcDst, int len)
{
    return zelsWinHann_16s(pSrcDst, pSrcDst, len);
}

ZelStatus zelsWinHann_16sc(const Zel16sc* pSrc, Zel16sc* pDst, int len)
{
    return runHann(pSrc, pDst, len);
}

ZelStatus zelsWinHann_16sc_I(Zel16sc* pSrcDst, int len)
{
    return zelsWinHann_16sc(pSrcDst, pSrcDst, len);
}

ZelStatus zelsWinHann_32f(const Zel32f* pSrc, Zel32f* pDst, int len)
{
    return runHann(pSrc, pDst, len);
}

ZelStatus zelsWinHann_32f_I(Zel32f* pSrcDst, int len)
{
    return zelsWinHann_32f(pSrcDst, pSrcDst, len);
}

ZelStatus zelsWinHann_32fc(const Zel32fc* pSrc, Zel32fc* pDst, int len)
{
    return runHann(pSrc, pDst, len);
}

ZelStatus zelsWinHann_32fc_I(Zel32fc* pSrcDst, int len)
{
    return zelsWinHann_32fc(pSrcDst, pSrcDst, len);
}

ZelStatus zelsWinHann_64f(const Zel64f* pSrc, Zel64f* pDst, int len)
{
    return runHann(pSrc, pDst, len);
}

ZelStatus zelsWinHann_64f_I(Zel64f* pSrcDst, int len)
{
    return zelsWinHann_64f(pSrcDst, pSrcDst, len);
}

ZelStatus zelsWinHann_64fc(const Zel64fc* pSrc, Zel64fc* pDst, int len)
{
    return runHann(pSrc, pDst, len);
}

ZelStatus zelsWinHann_64fc_I(Zel64fc* pSrcDst, int len)
{
    return zelsWinHann_64fc(pSrcDst, pSrcDst, len);
}

ZelStatus zelsWinHamming_16s(const Zel16s* pSrc, Zel16s* pDst, int len)
{
    return runHamming(pSrc, pDst, len);
}

ZelStatus zelsWinHamming_16s_I(Zel16s* pSrcDst, int len)
{
    return zelsWinHamming_16s(pSrcDst, pSrcDst, len);
}

ZelStatus zelsWinHamming_16sc(const Zel16sc* pSrc, Zel16sc* pDst, int len)
{
    return runHamming(pSrc, pDst, len);
}

ZelStatus zelsWinHamming_16sc_I(Zel16sc* pSrcDst, int len)
{
    return zelsWinHamming_16sc(pSrcDst, pSrcDst, len);
}

ZelStatus zelsWinHamming_32f(const Zel32f* pSrc, Zel32f* pDst, int len)
{
    return runHamming(pSrc, pDst, len);
}

ZelStatus zelsWinHamming_32f_I(Zel32f* pSrcDst, int len)
{
    return zelsWinHamming_32f(pSrcDst, pSrcDst, len);
}

ZelStatus zelsWinHamming_32fc(const Zel32fc* pSrc, Zel32fc* pDst, int len)
{
    return runHamming(pSrc, pDst, len);
}

ZelStatus zelsWinHamming_32fc_I(Zel32fc* pSrcDst, int len)
{
    return zelsWinHamming_32fc(pSrcDst, pSrcDst, len);
}

ZelStatus zelsWinHamming_64f(const Zel64f* pSrc, Zel64f* pDst, int len)
{
    return runHamming(pSrc, pDst, len);
}

ZelStatus zelsWinHamming_64f_I(Zel64f* pSrcDst, int len)
{
    return zelsWinHamming_64f(pSrcDst, pSrcDst, len);
}

ZelStatus zelsWinHamming_64fc(const Zel64fc* pSrc, Zel64fc* pDst, int len)
{
    return runHamming(pSrc, pDst, len);
}

ZelStatus zelsWinHamming_64fc_I(Zel64fc* pSrcDst, int len)
{
    return zelsWinHamming_64fc(pSrcDst, pSrcDst, len);
}
