// Complex vectors and their parts: Real, Imag, CplxToReal, RealToCplx.
#include "frame/entry.h"
#include "frame/parts.h"
#include "zels.h"

namespace {

constexpr OwnsLight reals{[](auto x) { return ownsRealParts(x); }};
constexpr OwnsLight imags{[](auto x) { return ownsImagParts(x); }};
constexpr OwnsLight both{[](auto x) { return ownsDivided(x); }};

/// One pass writes both arrays in sequence, as two would, and reads the source once.
template <class C>
[[gnu::always_inline]] inline ZelStatus cplxToReal(const C* pSrc, OwnsPart<C>* pDstRe, OwnsPart<C>* pDstIm,
                                                   int len)
{
    if (const ZelStatus status = ownsCheck(len, pSrc, pDstRe, pDstIm); status != zelStatusOk)
        return status;
    ownsMapParts<OwnsPart<C>>(both, OwnsTwoArrays<OwnsPart<C>>{pDstRe, pDstIm}, len, pSrc);
    return zelStatusOk;
}

/// Elements of C from vectors of their parts, which `zip` puts together.
template <class C, class Zip>
struct Joined {
    static constexpr OwnsCode code = OwnsCode::light;
    Zip zip;

    template <class... V>
    OwnsVec<C> operator()(V... parts) const
    {
        return zip(parts...).v[0];
    }
    template <class... V>
    OwnsVecs<C, 2> pair(V... parts) const
    {
        return zip(parts...);
    }
};

template <class C, class Zip, class... S>
[[gnu::always_inline]] inline ZelStatus join(Zip zip, C* pDst, int len, const S*... pSrc)
{
    ownsMap<shapeBits>(Joined<C, Zip>{zip}, pDst, len, pSrc...);
    return zelStatusOk;
}

/// Either source may be null, for parts of 0. Whether both are is asked last.
template <class C>
[[gnu::always_inline]] inline ZelStatus realToCplx(const OwnsPart<C>* pSrcRe, const OwnsPart<C>* pSrcIm,
                                                   C* pDst, int len)
{
    using V = OwnsVec<C>;
    constexpr auto zip = [](V re, V im) { return OwnsVecs<C, 2>{{ownsZipLow(re, im), ownsZipHigh(re, im)}}; };
    if (const ZelStatus status = ownsCheck(len, pDst); status != zelStatusOk)
        return status;
    if (pSrcRe && pSrcIm) [[likely]]
        return join(zip, pDst, len, pSrcRe, pSrcIm);
    if (pSrcRe)
        return join([=](V re) { return zip(re, V{}); }, pDst, len, pSrcRe);
    if (pSrcIm)
        return join([=](V im) { return zip(V{}, im); }, pDst, len, pSrcIm);
    return zelErrNullPtr;
}

} // namespace

ZelStatus zelsReal_16sc(const Zel16sc* pSrc, Zel16s* pDstRe, int len)
{
    return ownsRun<shapeBits>(reals, pDstRe, len, pSrc);
}

ZelStatus zelsReal_32fc(const Zel32fc* pSrc, Zel32f* pDstRe, int len)
{
    return ownsRun<shapeBits>(reals, pDstRe, len, pSrc);
}

ZelStatus zelsReal_64fc(const Zel64fc* pSrc, Zel64f* pDstRe, int len)
{
    return ownsRun<shapeBits>(reals, pDstRe, len, pSrc);
}

ZelStatus zelsImag_16sc(const Zel16sc* pSrc, Zel16s* pDstIm, int len)
{
    return ownsRun<shapeBits>(imags, pDstIm, len, pSrc);
}

ZelStatus zelsImag_32fc(const Zel32fc* pSrc, Zel32f* pDstIm, int len)
{
    return ownsRun<shapeBits>(imags, pDstIm, len, pSrc);
}

ZelStatus zelsImag_64fc(const Zel64fc* pSrc, Zel64f* pDstIm, int len)
{
    return ownsRun<shapeBits>(imags, pDstIm, len, pSrc);
}

ZelStatus zelsCplxToReal_16sc(const Zel16sc* pSrc, Zel16s* pDstRe, Zel16s* pDstIm, int len)
{
    return cplxToReal(pSrc, pDstRe, pDstIm, len);
}

ZelStatus zelsCplxToReal_32fc(const Zel32fc* pSrc, Zel32f* pDstRe, Zel32f* pDstIm, int len)
{
    return cplxToReal(pSrc, pDstRe, pDstIm, len);
}

ZelStatus zelsCplxToReal_32fc_L(const Zel32fc* pSrc, Zel32f* pDstRe, Zel32f* pDstIm, ZelSize len)
{
    return ownsChunked<zelsCplxToReal_32fc, Zel32fc>(len, pSrc, pDstRe, pDstIm);
}

ZelStatus zelsCplxToReal_64fc(const Zel64fc* pSrc, Zel64f* pDstRe, Zel64f* pDstIm, int len)
{
    return cplxToReal(pSrc, pDstRe, pDstIm, len);
}

ZelStatus zelsCplxToReal_64fc_L(const Zel64fc* pSrc, Zel64f* pDstRe, Zel64f* pDstIm, ZelSize len)
{
    return ownsChunked<zelsCplxToReal_64fc, Zel64fc>(len, pSrc, pDstRe, pDstIm);
}

ZelStatus zelsRealToCplx_16s(const Zel16s* pSrcRe, const Zel16s* pSrcIm, Zel16sc* pDst, int len)
{
    return realToCplx(pSrcRe, pSrcIm, pDst, len);
}

ZelStatus zelsRealToCplx_32f(const Zel32f* pSrcRe, const Zel32f* pSrcIm, Zel32fc* pDst, int len)
{
    return realToCplx(pSrcRe, pSrcIm, pDst, len);
}

ZelStatus zelsRealToCplx_32f_L(const Zel32f* pSrcRe, const Zel32f* pSrcIm, Zel32fc* pDst, ZelSize len)
{
    return ownsChunked<zelsRealToCplx_32f, Zel32f>(len, pSrcRe, pSrcIm, pDst);
}

ZelStatus zelsRealToCplx_64f(const Zel64f* pSrcRe, const Zel64f* pSrcIm, Zel64fc* pDst, int len)
{
    return realToCplx(pSrcRe, pSrcIm, pDst, len);
}

ZelStatus zelsRealToCplx_64f_L(const Zel64f* pSrcRe, const Zel64f* pSrcIm, Zel64fc* pDst, ZelSize len)
{
    return ownsChunked<zelsRealToCplx_64f, Zel64f>(len, pSrcRe, pSrcIm, pDst);
}
