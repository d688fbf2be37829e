// Vectors end for end: Flip.
#include "arith/flip.h"
#include "frame/entry.h"
#include "zels.h"

namespace {

/// One kernel for all types of a size.
template <int size>
struct WordOf;
template <>
struct WordOf<1> {
    using Type = Zel8u;
};
template <>
struct WordOf<2> {
    using Type = Zel16u;
};
template <>
struct WordOf<4> {
    using Type = Zel32u;
};
template <>
struct WordOf<8> {
    using Type = Zel64u;
};
template <>
struct WordOf<16> {
    using Type = Zel64fc;
};

template <class Word>
[[gnu::noinline]] ZelStatus flipWords(const Word* pSrc, Word* pDst, ZelSize len)
{
    if (const ZelStatus status = ownsCheck(len, pSrc, pDst); status != zelStatusOk)
        return status;
    ownsFlip([](auto x) { return x; }, pSrc, pDst, len);
    return zelStatusOk;
}

template <class T>
ZelStatus flip(const T* pSrc, T* pDst, ZelSize len)
{
    using Word = typename WordOf<sizeof(T)>::Type;
    return flipWords(reinterpret_cast<const Word*>(pSrc), reinterpret_cast<Word*>(pDst), len);
}

} // namespace

ZelStatus zelsFlip_8u(const Zel8u* pSrc, Zel8u* pDst, int len)
{
    return flip(pSrc, pDst, len);
}

ZelStatus zelsFlip_8u_I(Zel8u* pSrcDst, int len)
{
    return flip<Zel8u>(pSrcDst, pSrcDst, len);
}

ZelStatus zelsFlip_16u(const Zel16u* pSrc, Zel16u* pDst, int len)
{
    return flip(pSrc, pDst, len);
}

ZelStatus zelsFlip_16u_I(Zel16u* pSrcDst, int len)
{
    return flip<Zel16u>(pSrcDst, pSrcDst, len);
}

ZelStatus zelsFlip_32f(const Zel32f* pSrc, Zel32f* pDst, int len)
{
    return flip(pSrc, pDst, len);
}

ZelStatus zelsFlip_32f_I(Zel32f* pSrcDst, int len)
{
    return flip<Zel32f>(pSrcDst, pSrcDst, len);
}

ZelStatus zelsFlip_32f_L(const Zel32f* pSrc, Zel32f* pDst, ZelSize len)
{
    return flip(pSrc, pDst, len);
}

ZelStatus zelsFlip_32f_I_L(Zel32f* pSrcDst, ZelSize len)
{
    return flip<Zel32f>(pSrcDst, pSrcDst, len);
}

ZelStatus zelsFlip_64f(const Zel64f* pSrc, Zel64f* pDst, int len)
{
    return flip(pSrc, pDst, len);
}

ZelStatus zelsFlip_64f_I(Zel64f* pSrcDst, int len)
{
    return flip<Zel64f>(pSrcDst, pSrcDst, len);
}

ZelStatus zelsFlip_64f_L(const Zel64f* pSrc, Zel64f* pDst, ZelSize len)
{
    return flip(pSrc, pDst, len);
}

ZelStatus zelsFlip_64f_I_L(Zel64f* pSrcDst, ZelSize len)
{
    return flip<Zel64f>(pSrcDst, pSrcDst, len);
}

ZelStatus zelsFlip_32fc(const Zel32fc* pSrc, Zel32fc* pDst, int len)
{
    return flip(pSrc, pDst, len);
}

ZelStatus zelsFlip_32fc_I(Zel32fc* pSrcDst, int len)
{
    return flip<Zel32fc>(pSrcDst, pSrcDst, len);
}

ZelStatus zelsFlip_32fc_L(const Zel32fc* pSrc, Zel32fc* pDst, ZelSize len)
{
    return flip(pSrc, pDst, len);
}

ZelStatus zelsFlip_32fc_I_L(Zel32fc* pSrcDst, ZelSize len)
{
    return flip<Zel32fc>(pSrcDst, pSrcDst, len);
}

ZelStatus zelsFlip_64fc(const Zel64fc* pSrc, Zel64fc* pDst, int len)
{
    return flip(pSrc, pDst, len);
}

ZelStatus zelsFlip_64fc_I(Zel64fc* pSrcDst, int len)
{
    return flip<Zel64fc>(pSrcDst, pSrcDst, len);
}

ZelStatus zelsFlip_64fc_L(const Zel64fc* pSrc, Zel64fc* pDst, ZelSize len)
{
    return flip(pSrc, pDst, len);
}

ZelStatus zelsFlip_64fc_I_L(Zel64fc* pSrcDst, ZelSize len)
{
    return flip<Zel64fc>(pSrcDst, pSrcDst, len);
}
