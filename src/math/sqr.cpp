// Squares: Sqr. A scaled integer square is the scaled product of a vector with itself, with the limits of
// that product, which are those of the exact rule here too.
#include "frame/entry.h"
#include "frame/map.h"
#include "frame/parts.h"
#include "zels.h"

namespace {

constexpr auto square = [](auto x) { return x * x; };

/// The product of an element with itself; of two vectors from their parts taken apart, which takes fewer shuffles.
template <class C>
struct SquareComplex {
    OwnsVec<C> operator()(OwnsVec<C> x) const { return ownsComplexMul(x, x); }
    OwnsVecs<C, 2> pair(OwnsVecs<C, 2> x) const
    {
        const auto [re, im] = ownsDivided(x);
        const OwnsVec<C> product = re * im;
        const OwnsVec<C> squareRe = re * re - im * im;
        const OwnsVec<C> squareIm = product + product;
        return {{ownsZipLow(squareRe, squareIm), ownsZipHigh(squareRe, squareIm)}};
    }
};

} // namespace

ZelStatus zelsSqr_32f(const Zel32f* pSrc, Zel32f* pDst, int len)
{
    return ownsRun<shape_32f>(square, pDst, len, pSrc);
}

ZelStatus zelsSqr_32f_I(Zel32f* pSrcDst, int len)
{
    return zelsSqr_32f(pSrcDst, pSrcDst, len);
}

ZelStatus zelsSqr_32f_L(const Zel32f* pSrc, Zel32f* pDst, ZelSize len)
{
    return ownsChunked<zelsSqr_32f, Zel32f>(len, pSrc, pDst);
}

ZelStatus zelsSqr_32f_I_L(Zel32f* pSrcDst, ZelSize len)
{
    return ownsChunked<zelsSqr_32f_I, Zel32f>(len, pSrcDst);
}

ZelStatus zelsSqr_64f(const Zel64f* pSrc, Zel64f* pDst, int len)
{
    return ownsRun<shape_64f>(square, pDst, len, pSrc);
}

ZelStatus zelsSqr_64f_I(Zel64f* pSrcDst, int len)
{
    return zelsSqr_64f(pSrcDst, pSrcDst, len);
}

ZelStatus zelsSqr_64f_L(const Zel64f* pSrc, Zel64f* pDst, ZelSize len)
{
    return ownsChunked<zelsSqr_64f, Zel64f>(len, pSrc, pDst);
}

ZelStatus zelsSqr_64f_I_L(Zel64f* pSrcDst, ZelSize len)
{
    return ownsChunked<zelsSqr_64f_I, Zel64f>(len, pSrcDst);
}

ZelStatus zelsSqr_32fc(const Zel32fc* pSrc, Zel32fc* pDst, int len)
{
    return ownsRun<shape_32fc>(SquareComplex<Zel32fc>{}, pDst, len, pSrc);
}

ZelStatus zelsSqr_32fc_I(Zel32fc* pSrcDst, int len)
{
    return zelsSqr_32fc(pSrcDst, pSrcDst, len);
}

ZelStatus zelsSqr_32fc_L(const Zel32fc* pSrc, Zel32fc* pDst, ZelSize len)
{
    return ownsChunked<zelsSqr_32fc, Zel32fc>(len, pSrc, pDst);
}

ZelStatus zelsSqr_32fc_I_L(Zel32fc* pSrcDst, ZelSize len)
{
    return ownsChunked<zelsSqr_32fc_I, Zel32fc>(len, pSrcDst);
}

ZelStatus zelsSqr_64fc(const Zel64fc* pSrc, Zel64fc* pDst, int len)
{
    return ownsRun<shape_64fc>(SquareComplex<Zel64fc>{}, pDst, len, pSrc);
}

ZelStatus zelsSqr_64fc_I(Zel64fc* pSrcDst, int len)
{
    return zelsSqr_64fc(pSrcDst, pSrcDst, len);
}

ZelStatus zelsSqr_64fc_L(const Zel64fc* pSrc, Zel64fc* pDst, ZelSize len)
{
    return ownsChunked<zelsSqr_64fc, Zel64fc>(len, pSrc, pDst);
}

ZelStatus zelsSqr_64fc_I_L(Zel64fc* pSrcDst, ZelSize len)
{
    return ownsChunked<zelsSqr_64fc_I, Zel64fc>(len, pSrcDst);
}

ZelStatus zelsSqr_8u_Sfs(const Zel8u* pSrc, Zel8u* pDst, int len, int scaleFactor)
{
    return zelsMul_8u_Sfs(pSrc, pSrc, pDst, len, scaleFactor);
}

ZelStatus zelsSqr_8u_ISfs(Zel8u* pSrcDst, int len, int scaleFactor)
{
    return zelsMul_8u_ISfs(pSrcDst, pSrcDst, len, scaleFactor);
}

ZelStatus zelsSqr_16s_Sfs(const Zel16s* pSrc, Zel16s* pDst, int len, int scaleFactor)
{
    return zelsMul_16s_Sfs(pSrc, pSrc, pDst, len, scaleFactor);
}

ZelStatus zelsSqr_16s_ISfs(Zel16s* pSrcDst, int len, int scaleFactor)
{
    return zelsMul_16s_ISfs(pSrcDst, pSrcDst, len, scaleFactor);
}

ZelStatus zelsSqr_16u_Sfs(const Zel16u* pSrc, Zel16u* pDst, int len, int scaleFactor)
{
    return zelsMul_16u_Sfs(pSrc, pSrc, pDst, len, scaleFactor);
}

ZelStatus zelsSqr_16u_ISfs(Zel16u* pSrcDst, int len, int scaleFactor)
{
    return zelsMul_16u_ISfs(pSrcDst, pSrcDst, len, scaleFactor);
}

ZelStatus zelsSqr_16sc_Sfs(const Zel16sc* pSrc, Zel16sc* pDst, int len, int scaleFactor)
{
    return zelsMul_16sc_Sfs(pSrc, pSrc, pDst, len, scaleFactor);
}

ZelStatus zelsSqr_16sc_ISfs(Zel16sc* pSrcDst, int len, int scaleFactor)
{
    return zelsMul_16sc_ISfs(pSrcDst, pSrcDst, len, scaleFactor);
}
