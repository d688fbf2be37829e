// Conjugates of complex vectors, as they stand and end for end: Conj, ConjFlip.
#include "arith/flip.h"
#include "frame/entry.h"
#include "frame/parts.h"
#include "zels.h"

namespace {

constexpr OwnsLight conjugate{[](auto x) { return ownsConjugate(x); }};

template <class C>
ZelStatus conj(const C* pSrc, C* pDst, int len)
{
    return ownsRun<shapeBits>(conjugate, pDst, len, pSrc);
}

template <class C>
[[gnu::always_inline]] inline ZelStatus conjFlip(const C* pSrc, C* pDst, int len)
{
    if (const ZelStatus status = ownsCheck(len, pSrc, pDst); status != zelStatusOk)
        return status;
    ownsFlip(conjugate, pSrc, pDst, len);
    return zelStatusOk;
}

} // namespace

ZelStatus zelsConj_16sc(const Zel16sc* pSrc, Zel16sc* pDst, int len)
{
    return conj(pSrc, pDst, len);
}

ZelStatus zelsConj_16sc_I(Zel16sc* pSrcDst, int len)
{
    return conj<Zel16sc>(pSrcDst, pSrcDst, len);
}

ZelStatus zelsConj_32fc(const Zel32fc* pSrc, Zel32fc* pDst, int len)
{
    return conj(pSrc, pDst, len);
}

ZelStatus zelsConj_32fc_I(Zel32fc* pSrcDst, int len)
{
    return conj<Zel32fc>(pSrcDst, pSrcDst, len);
}

ZelStatus zelsConj_32fc_L(const Zel32fc* pSrc, Zel32fc* pDst, ZelSize len)
{
    return ownsChunked<zelsConj_32fc, Zel32fc>(len, pSrc, pDst);
}

ZelStatus zelsConj_32fc_I_L(Zel32fc* pSrcDst, ZelSize len)
{
    return ownsChunked<zelsConj_32fc_I, Zel32fc>(len, pSrcDst);
}

ZelStatus zelsConj_64fc(const Zel64fc* pSrc, Zel64fc* pDst, int len)
{
    return conj(pSrc, pDst, len);
}

ZelStatus zelsConj_64fc_I(Zel64fc* pSrcDst, int len)
{
    return conj<Zel64fc>(pSrcDst, pSrcDst, len);
}

ZelStatus zelsConj_64fc_L(const Zel64fc* pSrc, Zel64fc* pDst, ZelSize len)
{
    return ownsChunked<zelsConj_64fc, Zel64fc>(len, pSrc, pDst);
}

ZelStatus zelsConj_64fc_I_L(Zel64fc* pSrcDst, ZelSize len)
{
    return ownsChunked<zelsConj_64fc_I, Zel64fc>(len, pSrcDst);
}

ZelStatus zelsConjFlip_16sc(const Zel16sc* pSrc, Zel16sc* pDst, int len)
{
    return conjFlip(pSrc, pDst, len);
}

ZelStatus zelsConjFlip_32fc(const Zel32fc* pSrc, Zel32fc* pDst, int len)
{
    return conjFlip(pSrc, pDst, len);
}

ZelStatus zelsConjFlip_64fc(const Zel64fc* pSrc, Zel64fc* pDst, int len)
{
    return conjFlip(pSrc, pDst, len);
}
