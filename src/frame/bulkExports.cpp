// The exported bulk operations. Types of one element size are one function under several names.
#include "frame/bulk.h"
#include "frame/entry.h"
#include "zels.h"

namespace {

// The byte counts of these entries are formed in 32 bits, and wrap there on purpose: vectors of 2^31 bytes
// and more have the long forms. Copy takes the count as unsigned, Move and Zero as signed, so that theirs may
// come out negative, and then nothing is done.
template <class T>
Zel32u byteCount(int len)
{
    return static_cast<Zel32u>(len) * static_cast<Zel32u>(sizeof(T));
}

template <class T>
ZelStatus copy(const T* pSrc, T* pDst, int len)
{
    if (const ZelStatus status = ownsCheck(len, pSrc, pDst); status != zelStatusOk)
        return status;
    return ownsCopyBytes(pSrc, pDst, byteCount<T>(len));
}

template <class T>
ZelStatus move(const T* pSrc, T* pDst, int len)
{
    if (const ZelStatus status = ownsCheck(len, pSrc, pDst); status != zelStatusOk)
        return status;
    return ownsMoveBytes(pSrc, pDst, static_cast<Zel32s>(byteCount<T>(len)));
}

template <class T>
ZelStatus set(T val, T* pDst, int len)
{
    if (const ZelStatus status = ownsCheck(len, pDst); status != zelStatusOk)
        return status;
    return ownsSet(val, pDst, len);
}

template <class T>
ZelStatus zero(T* pDst, int len)
{
    if (const ZelStatus status = ownsCheck(len, pDst); status != zelStatusOk)
        return status;
    return ownsZeroBytes(pDst, static_cast<Zel32s>(byteCount<T>(len)));
}

} // namespace

ZelStatus zelsCopy_8u(const Zel8u* pSrc, Zel8u* pDst, int len)
{
    return copy(pSrc, pDst, len);
}
ZelStatus zelsCopy_16s(const Zel16s* pSrc, Zel16s* pDst, int len)
{
    return copy(pSrc, pDst, len);
}
ZelStatus zelsCopy_16sc(const Zel16sc* pSrc, Zel16sc* pDst, int len)
{
    return copy(pSrc, pDst, len);
}
ZelStatus zelsCopy_32f(const Zel32f* pSrc, Zel32f* pDst, int len)
{
    return copy(pSrc, pDst, len);
}
ZelStatus zelsCopy_32fc(const Zel32fc* pSrc, Zel32fc* pDst, int len)
{
    return copy(pSrc, pDst, len);
}
// The one copy whose byte count does not wrap.
ZelStatus zelsCopy_32s(const Zel32s* pSrc, Zel32s* pDst, int len)
{
    if (const ZelStatus status = ownsCheck(len, pSrc, pDst); status != zelStatusOk)
        return status;
    return ownsCopy(pSrc, pDst, len);
}
ZelStatus zelsCopy_32sc(const Zel32sc* pSrc, Zel32sc* pDst, int len)
{
    return copy(pSrc, pDst, len);
}
ZelStatus zelsCopy_64f(const Zel64f* pSrc, Zel64f* pDst, int len)
{
    return copy(pSrc, pDst, len);
}
ZelStatus zelsCopy_64fc(const Zel64fc* pSrc, Zel64fc* pDst, int len)
{
    return copy(pSrc, pDst, len);
}
ZelStatus zelsCopy_64s(const Zel64s* pSrc, Zel64s* pDst, int len)
{
    return copy(pSrc, pDst, len);
}
ZelStatus zelsCopy_64sc(const Zel64sc* pSrc, Zel64sc* pDst, int len)
{
    return copy(pSrc, pDst, len);
}

ZelStatus zelsCopy_32f_L(const Zel32f* pSrc, Zel32f* pDst, ZelSize len)
{
    return ownsChunked<zelsCopy_32f, Zel32f>(len, pSrc, pDst);
}

ZelStatus zelsCopy_32fc_L(const Zel32fc* pSrc, Zel32fc* pDst, ZelSize len)
{
    return ownsChunked<zelsCopy_32fc, Zel32fc>(len, pSrc, pDst);
}

ZelStatus zelsCopy_64f_L(const Zel64f* pSrc, Zel64f* pDst, ZelSize len)
{
    return ownsChunked<zelsCopy_64f, Zel64f>(len, pSrc, pDst);
}

ZelStatus zelsCopy_64fc_L(const Zel64fc* pSrc, Zel64fc* pDst, ZelSize len)
{
    return ownsChunked<zelsCopy_64fc, Zel64fc>(len, pSrc, pDst);
}

ZelStatus zelsMove_8u(const Zel8u* pSrc, Zel8u* pDst, int len)
{
    return move(pSrc, pDst, len);
}
ZelStatus zelsMove_16s(const Zel16s* pSrc, Zel16s* pDst, int len)
{
    return move(pSrc, pDst, len);
}
ZelStatus zelsMove_16sc(const Zel16sc* pSrc, Zel16sc* pDst, int len)
{
    return move(pSrc, pDst, len);
}
ZelStatus zelsMove_32f(const Zel32f* pSrc, Zel32f* pDst, int len)
{
    return move(pSrc, pDst, len);
}
ZelStatus zelsMove_32fc(const Zel32fc* pSrc, Zel32fc* pDst, int len)
{
    return move(pSrc, pDst, len);
}
ZelStatus zelsMove_32s(const Zel32s* pSrc, Zel32s* pDst, int len)
{
    return move(pSrc, pDst, len);
}
ZelStatus zelsMove_32sc(const Zel32sc* pSrc, Zel32sc* pDst, int len)
{
    return move(pSrc, pDst, len);
}
ZelStatus zelsMove_64f(const Zel64f* pSrc, Zel64f* pDst, int len)
{
    return move(pSrc, pDst, len);
}
ZelStatus zelsMove_64fc(const Zel64fc* pSrc, Zel64fc* pDst, int len)
{
    return move(pSrc, pDst, len);
}
ZelStatus zelsMove_64s(const Zel64s* pSrc, Zel64s* pDst, int len)
{
    return move(pSrc, pDst, len);
}
ZelStatus zelsMove_64sc(const Zel64sc* pSrc, Zel64sc* pDst, int len)
{
    return move(pSrc, pDst, len);
}

ZelStatus zelsSet_8u(Zel8u val, Zel8u* pDst, int len)
{
    return set(val, pDst, len);
}
ZelStatus zelsSet_16s(Zel16s val, Zel16s* pDst, int len)
{
    return set(val, pDst, len);
}
ZelStatus zelsSet_16sc(Zel16sc val, Zel16sc* pDst, int len)
{
    return set(val, pDst, len);
}
ZelStatus zelsSet_32f(Zel32f val, Zel32f* pDst, int len)
{
    return set(val, pDst, len);
}
ZelStatus zelsSet_32fc(Zel32fc val, Zel32fc* pDst, int len)
{
    return set(val, pDst, len);
}
ZelStatus zelsSet_32s(Zel32s val, Zel32s* pDst, int len)
{
    return set(val, pDst, len);
}
ZelStatus zelsSet_32sc(Zel32sc val, Zel32sc* pDst, int len)
{
    return set(val, pDst, len);
}
ZelStatus zelsSet_64f(Zel64f val, Zel64f* pDst, int len)
{
    return set(val, pDst, len);
}
ZelStatus zelsSet_64fc(Zel64fc val, Zel64fc* pDst, int len)
{
    return set(val, pDst, len);
}
ZelStatus zelsSet_64s(Zel64s val, Zel64s* pDst, int len)
{
    return set(val, pDst, len);
}
ZelStatus zelsSet_64sc(Zel64sc val, Zel64sc* pDst, int len)
{
    return set(val, pDst, len);
}

ZelStatus zelsZero_8u(Zel8u* pDst, int len)
{
    return zero(pDst, len);
}
ZelStatus zelsZero_16s(Zel16s* pDst, int len)
{
    return zero(pDst, len);
}
ZelStatus zelsZero_16sc(Zel16sc* pDst, int len)
{
    return zero(pDst, len);
}
ZelStatus zelsZero_32f(Zel32f* pDst, int len)
{
    return zero(pDst, len);
}
ZelStatus zelsZero_32fc(Zel32fc* pDst, int len)
{
    return zero(pDst, len);
}
ZelStatus zelsZero_32s(Zel32s* pDst, int len)
{
    return zero(pDst, len);
}
ZelStatus zelsZero_32sc(Zel32sc* pDst, int len)
{
    return zero(pDst, len);
}
ZelStatus zelsZero_64f(Zel64f* pDst, int len)
{
    return zero(pDst, len);
}
ZelStatus zelsZero_64fc(Zel64fc* pDst, int len)
{
    return zero(pDst, len);
}
ZelStatus zelsZero_64s(Zel64s* pDst, int len)
{
    return zero(pDst, len);
}
ZelStatus zelsZero_64sc(Zel64sc* pDst, int len)
{
    return zero(pDst, len);
}

ZelStatus zelsZero_32f_L(Zel32f* pDst, ZelSize len)
{
    return ownsChunked<zelsZero_32f, Zel32f>(len, pDst);
}

ZelStatus zelsZero_32fc_L(Zel32fc* pDst, ZelSize len)
{
    return ownsChunked<zelsZero_32fc, Zel32fc>(len, pDst);
}

ZelStatus zelsZero_64f_L(Zel64f* pDst, ZelSize len)
{
    return ownsChunked<zelsZero_64f, Zel64f>(len, pDst);
}

ZelStatus zelsZero_64fc_L(Zel64fc* pDst, ZelSize len)
{
    return ownsChunked<zelsZero_64fc, Zel64fc>(len, pDst);
}
