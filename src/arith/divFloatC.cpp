// Quotients of float vectors by a constant: DivC.
//
// A product with the reciprocal, on purpose: it is rounded to the element type once, and the vector is handled
// as MulC handles it, short cuts for 1 and 0 included. The result may differ from the quotient in the last bit.
#include "frame/entry.h"
#include "zels.h"

namespace {

/// Behind pointers and length the constant is tested, before the data are read.
template <auto product, class T>
[[gnu::always_inline]] inline ZelStatus divide(const T* pSrc, T val, T* pDst, int len)
{
    if (const ZelStatus status = ownsCheck(len, pSrc, pDst); status != zelStatusOk)
        return status;
    if (val == 0)
        return zelErrDivByZero;
    return product(pSrc, 1 / val, pDst, len);
}

template <auto product, class C>
[[gnu::always_inline]] inline ZelStatus divideComplex(const C* pSrc, C val, C* pDst, int len)
{
    if (const ZelStatus status = ownsCheck(len, pSrc, pDst); status != zelStatusOk)
        return status;
    const auto sum = val.re * val.re + val.im * val.im;
    if (sum == 0)
        return zelErrDivByZero;
    const auto reciprocal = 1 / sum;
    return product(pSrc, C{val.re * reciprocal, -val.im * reciprocal}, pDst, len);
}

/// The product in place, in the shape of the one out of place.
template <auto inPlace>
constexpr auto placed =
    [](const auto*, auto val, auto* pSrcDst, int len) { return inPlace(val, pSrcDst, len); };

} // namespace

ZelStatus zelsDivC_32f(const Zel32f* pSrc, Zel32f val, Zel32f* pDst, int len)
{
    return divide<zelsMulC_32f>(pSrc, val, pDst, len);
}

ZelStatus zelsDivC_32f_I(Zel32f val, Zel32f* pSrcDst, int len)
{
    return divide<placed<zelsMulC_32f_I>>(pSrcDst, val, pSrcDst, len);
}

ZelStatus zelsDivC_32f_L(const Zel32f* pSrc, Zel32f val, Zel32f* pDst, ZelSize len)
{
    return ownsChunked<zelsDivC_32f, Zel32f>(len, pSrc, val, pDst);
}

ZelStatus zelsDivC_32f_I_L(Zel32f val, Zel32f* pSrcDst, ZelSize len)
{
    return ownsChunked<zelsDivC_32f_I, Zel32f>(len, val, pSrcDst);
}

ZelStatus zelsDivC_64f(const Zel64f* pSrc, Zel64f val, Zel64f* pDst, int len)
{
    return divide<zelsMulC_64f>(pSrc, val, pDst, len);
}

ZelStatus zelsDivC_64f_I(Zel64f val, Zel64f* pSrcDst, int len)
{
    return divide<placed<zelsMulC_64f_I>>(pSrcDst, val, pSrcDst, len);
}

ZelStatus zelsDivC_64f_L(const Zel64f* pSrc, Zel64f val, Zel64f* pDst, ZelSize len)
{
    return ownsChunked<zelsDivC_64f, Zel64f>(len, pSrc, val, pDst);
}

ZelStatus zelsDivC_64f_I_L(Zel64f val, Zel64f* pSrcDst, ZelSize len)
{
    return ownsChunked<zelsDivC_64f_I, Zel64f>(len, val, pSrcDst);
}

ZelStatus zelsDivC_32fc(const Zel32fc* pSrc, Zel32fc val, Zel32fc* pDst, int len)
{
    return divideComplex<zelsMulC_32fc>(pSrc, val, pDst, len);
}

ZelStatus zelsDivC_32fc_I(Zel32fc val, Zel32fc* pSrcDst, int len)
{
    return divideComplex<placed<zelsMulC_32fc_I>>(pSrcDst, val, pSrcDst, len);
}

ZelStatus zelsDivC_32fc_L(const Zel32fc* pSrc, Zel32fc val, Zel32fc* pDst, ZelSize len)
{
    return ownsChunked<zelsDivC_32fc, Zel32fc>(len, pSrc, val, pDst);
}

ZelStatus zelsDivC_32fc_I_L(Zel32fc val, Zel32fc* pSrcDst, ZelSize len)
{
    return ownsChunked<zelsDivC_32fc_I, Zel32fc>(len, val, pSrcDst);
}

ZelStatus zelsDivC_64fc(const Zel64fc* pSrc, Zel64fc val, Zel64fc* pDst, int len)
{
    return divideComplex<zelsMulC_64fc>(pSrc, val, pDst, len);
}

ZelStatus zelsDivC_64fc_I(Zel64fc val, Zel64fc* pSrcDst, int len)
{
    return divideComplex<placed<zelsMulC_64fc_I>>(pSrcDst, val, pSrcDst, len);
}

ZelStatus zelsDivC_64fc_L(const Zel64fc* pSrc, Zel64fc val, Zel64fc* pDst, ZelSize len)
{
    return ownsChunked<zelsDivC_64fc, Zel64fc>(len, pSrc, val, pDst);
}

ZelStatus zelsDivC_64fc_I_L(Zel64fc val, Zel64fc* pSrcDst, ZelSize len)
{
    return ownsChunked<zelsDivC_64fc_I, Zel64fc>(len, val, pSrcDst);
}
