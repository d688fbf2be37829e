// Shifts by a constant.
#include "frame/bulk.h"
#include "frame/entry.h"
#include "frame/map.h"
#include "zels.h"

#include <limits>

namespace {

template <class T>
constexpr int width = 8 * static_cast<int>(sizeof(T));

/// Bytes are shifted in pairs, and the bits that crossed from one to the other are masked out.
template <class T>
struct ShiftLeft {
    __m128i count;
    OwnsVec<T> ownBits;

    explicit ShiftLeft(int val)
        : count(_mm_cvtsi32_si128(val)), ownBits(ownsSplat(static_cast<T>(~Zel32u{0} << val)))
    {
    }
    OwnsVec<T> operator()(OwnsVec<T> x) const
    {
        if constexpr (width<T> == 32)
            return ownsAs<T>(_mm_sll_epi32(ownsInt(x), count));
        const auto shifted = ownsAs<T>(_mm_sll_epi16(ownsInt(x), count));
        return width<T> == 8 ? shifted & ownBits : shifted;
    }
};

template <class T>
struct ShiftRight {
    __m128i count;
    OwnsVec<T> ownBits;

    explicit ShiftRight(int val)
        : count(_mm_cvtsi32_si128(val)),
          ownBits(ownsSplat(static_cast<T>(std::numeric_limits<T>::max() >> val)))
    {
    }
    OwnsVec<T> operator()(OwnsVec<T> x) const
    {
        if constexpr (std::is_signed_v<T>)
            return ownsAs<T>(width<T> == 32 ? _mm_sra_epi32(ownsInt(x), count)
                                            : _mm_sra_epi16(ownsInt(x), count));
        const auto shifted = ownsAs<T>(_mm_srl_epi16(ownsInt(x), count));
        return width<T> == 8 ? shifted & ownBits : shifted;
    }
};

/// One copy serves both forms.
template <template <class> class Shift, class T>
ZelStatus shifted(const T* pSrc, int val, T* pDst, int len)
{
    if (const ZelStatus status = ownsCheck(len, pSrc, pDst); status != zelStatusOk)
        return status;
    if (val < 0)
        return zelErrShift;
    if (val == 0) [[unlikely]]
        return ownsCopyUnlessSame(pSrc, pDst, len);
    if (val >= width<T>) [[unlikely]]
        return ownsZero(pDst, len);
    ownsMap<shapeBits>(OwnsLight{Shift<T>(val)}, pDst, len, pSrc);
    return zelStatusOk;
}

/// An arithmetic shift by the width or more leaves the sign, as one by the width less 1 does.
template <class T>
ZelStatus shiftedArithmetically(const T* pSrc, int val, T* pDst, int len)
{
    return shifted<ShiftRight>(pSrc, val < width<T> ? val : width<T> - 1, pDst, len);
}

} // namespace

ZelStatus zelsLShiftC_8u(const Zel8u* pSrc, int val, Zel8u* pDst, int len)
{
    return shifted<ShiftLeft>(pSrc, val, pDst, len);
}

ZelStatus zelsLShiftC_8u_I(int val, Zel8u* pSrcDst, int len)
{
    return shifted<ShiftLeft, Zel8u>(pSrcDst, val, pSrcDst, len);
}

ZelStatus zelsLShiftC_16u(const Zel16u* pSrc, int val, Zel16u* pDst, int len)
{
    return shifted<ShiftLeft>(pSrc, val, pDst, len);
}

ZelStatus zelsLShiftC_16u_I(int val, Zel16u* pSrcDst, int len)
{
    return shifted<ShiftLeft, Zel16u>(pSrcDst, val, pSrcDst, len);
}

// A left shift does not care for the sign.
ZelStatus zelsLShiftC_16s(const Zel16s* pSrc, int val, Zel16s* pDst, int len)
{
    return zelsLShiftC_16u(reinterpret_cast<const Zel16u*>(pSrc), val, reinterpret_cast<Zel16u*>(pDst), len);
}

ZelStatus zelsLShiftC_16s_I(int val, Zel16s* pSrcDst, int len)
{
    return zelsLShiftC_16u_I(val, reinterpret_cast<Zel16u*>(pSrcDst), len);
}

ZelStatus zelsLShiftC_32s(const Zel32s* pSrc, int val, Zel32s* pDst, int len)
{
    return shifted<ShiftLeft>(pSrc, val, pDst, len);
}

ZelStatus zelsLShiftC_32s_I(int val, Zel32s* pSrcDst, int len)
{
    return shifted<ShiftLeft, Zel32s>(pSrcDst, val, pSrcDst, len);
}

ZelStatus zelsRShiftC_8u(const Zel8u* pSrc, int val, Zel8u* pDst, int len)
{
    return shifted<ShiftRight>(pSrc, val, pDst, len);
}

ZelStatus zelsRShiftC_8u_I(int val, Zel8u* pSrcDst, int len)
{
    return shifted<ShiftRight, Zel8u>(pSrcDst, val, pSrcDst, len);
}

ZelStatus zelsRShiftC_16u(const Zel16u* pSrc, int val, Zel16u* pDst, int len)
{
    return shifted<ShiftRight>(pSrc, val, pDst, len);
}

ZelStatus zelsRShiftC_16u_I(int val, Zel16u* pSrcDst, int len)
{
    return shifted<ShiftRight, Zel16u>(pSrcDst, val, pSrcDst, len);
}

ZelStatus zelsRShiftC_16s(const Zel16s* pSrc, int val, Zel16s* pDst, int len)
{
    return shiftedArithmetically(pSrc, val, pDst, len);
}

ZelStatus zelsRShiftC_16s_I(int val, Zel16s* pSrcDst, int len)
{
    return shiftedArithmetically<Zel16s>(pSrcDst, val, pSrcDst, len);
}

ZelStatus zelsRShiftC_32s(const Zel32s* pSrc, int val, Zel32s* pDst, int len)
{
    return shiftedArithmetically(pSrc, val, pDst, len);
}

ZelStatus zelsRShiftC_32s_I(int val, Zel32s* pSrcDst, int len)
{
    return shiftedArithmetically<Zel32s>(pSrcDst, val, pSrcDst, len);
}
