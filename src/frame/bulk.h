// Bulk memory: copy, move, fill and clear of bytes, with 64-bit counts.
//
// The exported Copy, Move, Set and Zero stand on these, and so does every other family that copies or clears
// a whole vector. Counts of 0 and below do nothing. All return zelStatusOk, so that an entry can end in them.
#pragma once

#include "frame/vec.h"

/// Copies `bytes` bytes between arrays that do not overlap.
ZelStatus ownsCopyBytes(const void* pSource, void* pDestination, ZelSize bytes);

/// Copies `bytes` bytes between arrays that may overlap.
ZelStatus ownsMoveBytes(const void* pSource, void* pDestination, ZelSize bytes);

/// Clears `bytes` bytes.
ZelStatus ownsZeroBytes(void* pDestination, ZelSize bytes);

/// Fills `len` elements of `width` bytes (1, 2, 4, 8 or 16) with the repeated value that `value` holds.
ZelStatus ownsSetBytes(OwnsVec<Zel8u> value, int width, void* pDestination, ZelSize len);

/// Fills `len` elements with the bit pattern of `val`.
template <class T>
inline ZelStatus ownsSet(T val, T* pDst, ZelSize len)
{
    return ownsSetBytes(ownsAs<Zel8u>(ownsSplat(val)), static_cast<int>(sizeof(T)), pDst, len);
}

/// Copies `len` elements; the long and the internal forms count in 64 bits and never wrap.
template <class T>
inline ZelStatus ownsCopy(const T* pSrc, T* pDst, ZelSize len)
{
    return ownsCopyBytes(pSrc, pDst, len * static_cast<ZelSize>(sizeof(T)));
}

/// What is left of an operation whose constant changes nothing: a copy, or in place nothing at all.
template <class T>
inline ZelStatus ownsCopyUnlessSame(const T* pSrc, T* pDst, ZelSize len)
{
    return pSrc == pDst ? zelStatusOk : ownsCopy(pSrc, pDst, len);
}

/// Clears `len` elements.
template <class T>
inline ZelStatus ownsZero(T* pDst, ZelSize len)
{
    return ownsZeroBytes(pDst, len * static_cast<ZelSize>(sizeof(T)));
}
