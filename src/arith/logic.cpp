// Bitwise logic: And, Or, Xor of two vectors and with a constant, Not.
#include "frame/bulk.h"
#include "frame/entry.h"
#include "frame/map.h"
#include "zels.h"

namespace {

constexpr auto bitAnd = [](auto a, auto b) { return a & b; };
constexpr auto bitOr = [](auto a, auto b) { return a | b; };
constexpr auto bitXor = [](auto a, auto b) { return a ^ b; };

// One copy of a kernel serves both forms: in place, the destination is a source.

template <auto op, class T>
ZelStatus vectors(const T* pSrc1, const T* pSrc2, T* pDst, int len)
{
    return ownsRun<shapeBits>(OwnsLight{op}, pDst, len, pSrc1, pSrc2);
}

template <auto op, class T>
ZelStatus constant(const T* pSrc, T val, T* pDst, int len)
{
    if (const ZelStatus status = ownsCheck(len, pSrc, pDst); status != zelStatusOk)
        return status;
    if (val == 0) [[unlikely]] {
        if constexpr (op(1, 0) == 0)
            return ownsZero(pDst, len);
        else
            return ownsCopyUnlessSame(pSrc, pDst, len);
    }
    ownsMap<shapeBits>(OwnsLight{[mask = ownsSplat(val)](auto x) { return op(x, mask); }}, pDst, len, pSrc);
    return zelStatusOk;
}

template <class T>
constexpr T allOnes = static_cast<T>(~T{0});

} // namespace

ZelStatus zelsAnd_8u(const Zel8u* pSrc1, const Zel8u* pSrc2, Zel8u* pDst, int len)
{
    return vectors<bitAnd>(pSrc1, pSrc2, pDst, len);
}

ZelStatus zelsAnd_8u_I(const Zel8u* pSrc, Zel8u* pSrcDst, int len)
{
    return vectors<bitAnd, Zel8u>(pSrcDst, pSrc, pSrcDst, len);
}

ZelStatus zelsAnd_16u(const Zel16u* pSrc1, const Zel16u* pSrc2, Zel16u* pDst, int len)
{
    return vectors<bitAnd>(pSrc1, pSrc2, pDst, len);
}

ZelStatus zelsAnd_16u_I(const Zel16u* pSrc, Zel16u* pSrcDst, int len)
{
    return vectors<bitAnd, Zel16u>(pSrcDst, pSrc, pSrcDst, len);
}

ZelStatus zelsAnd_32u(const Zel32u* pSrc1, const Zel32u* pSrc2, Zel32u* pDst, int len)
{
    return vectors<bitAnd>(pSrc1, pSrc2, pDst, len);
}

ZelStatus zelsAnd_32u_I(const Zel32u* pSrc, Zel32u* pSrcDst, int len)
{
    return vectors<bitAnd, Zel32u>(pSrcDst, pSrc, pSrcDst, len);
}

ZelStatus zelsOr_8u(const Zel8u* pSrc1, const Zel8u* pSrc2, Zel8u* pDst, int len)
{
    return vectors<bitOr>(pSrc1, pSrc2, pDst, len);
}

ZelStatus zelsOr_8u_I(const Zel8u* pSrc, Zel8u* pSrcDst, int len)
{
    return vectors<bitOr, Zel8u>(pSrcDst, pSrc, pSrcDst, len);
}

ZelStatus zelsOr_16u(const Zel16u* pSrc1, const Zel16u* pSrc2, Zel16u* pDst, int len)
{
    return vectors<bitOr>(pSrc1, pSrc2, pDst, len);
}

ZelStatus zelsOr_16u_I(const Zel16u* pSrc, Zel16u* pSrcDst, int len)
{
    return vectors<bitOr, Zel16u>(pSrcDst, pSrc, pSrcDst, len);
}

ZelStatus zelsOr_32u(const Zel32u* pSrc1, const Zel32u* pSrc2, Zel32u* pDst, int len)
{
    return vectors<bitOr>(pSrc1, pSrc2, pDst, len);
}

ZelStatus zelsOr_32u_I(const Zel32u* pSrc, Zel32u* pSrcDst, int len)
{
    return vectors<bitOr, Zel32u>(pSrcDst, pSrc, pSrcDst, len);
}

ZelStatus zelsXor_8u(const Zel8u* pSrc1, const Zel8u* pSrc2, Zel8u* pDst, int len)
{
    return vectors<bitXor>(pSrc1, pSrc2, pDst, len);
}

ZelStatus zelsXor_8u_I(const Zel8u* pSrc, Zel8u* pSrcDst, int len)
{
    return vectors<bitXor, Zel8u>(pSrcDst, pSrc, pSrcDst, len);
}

ZelStatus zelsXor_16u(const Zel16u* pSrc1, const Zel16u* pSrc2, Zel16u* pDst, int len)
{
    return vectors<bitXor>(pSrc1, pSrc2, pDst, len);
}

ZelStatus zelsXor_16u_I(const Zel16u* pSrc, Zel16u* pSrcDst, int len)
{
    return vectors<bitXor, Zel16u>(pSrcDst, pSrc, pSrcDst, len);
}

ZelStatus zelsXor_32u(const Zel32u* pSrc1, const Zel32u* pSrc2, Zel32u* pDst, int len)
{
    return vectors<bitXor>(pSrc1, pSrc2, pDst, len);
}

ZelStatus zelsXor_32u_I(const Zel32u* pSrc, Zel32u* pSrcDst, int len)
{
    return vectors<bitXor, Zel32u>(pSrcDst, pSrc, pSrcDst, len);
}

ZelStatus zelsAndC_8u(const Zel8u* pSrc, Zel8u val, Zel8u* pDst, int len)
{
    return constant<bitAnd>(pSrc, val, pDst, len);
}

ZelStatus zelsAndC_8u_I(Zel8u val, Zel8u* pSrcDst, int len)
{
    return constant<bitAnd, Zel8u>(pSrcDst, val, pSrcDst, len);
}

ZelStatus zelsAndC_16u(const Zel16u* pSrc, Zel16u val, Zel16u* pDst, int len)
{
    return constant<bitAnd>(pSrc, val, pDst, len);
}

ZelStatus zelsAndC_16u_I(Zel16u val, Zel16u* pSrcDst, int len)
{
    return constant<bitAnd, Zel16u>(pSrcDst, val, pSrcDst, len);
}

ZelStatus zelsAndC_32u(const Zel32u* pSrc, Zel32u val, Zel32u* pDst, int len)
{
    return constant<bitAnd>(pSrc, val, pDst, len);
}

ZelStatus zelsAndC_32u_I(Zel32u val, Zel32u* pSrcDst, int len)
{
    return constant<bitAnd, Zel32u>(pSrcDst, val, pSrcDst, len);
}

ZelStatus zelsOrC_8u(const Zel8u* pSrc, Zel8u val, Zel8u* pDst, int len)
{
    return constant<bitOr>(pSrc, val, pDst, len);
}

ZelStatus zelsOrC_8u_I(Zel8u val, Zel8u* pSrcDst, int len)
{
    return constant<bitOr, Zel8u>(pSrcDst, val, pSrcDst, len);
}

ZelStatus zelsOrC_16u(const Zel16u* pSrc, Zel16u val, Zel16u* pDst, int len)
{
    return constant<bitOr>(pSrc, val, pDst, len);
}

ZelStatus zelsOrC_16u_I(Zel16u val, Zel16u* pSrcDst, int len)
{
    return constant<bitOr, Zel16u>(pSrcDst, val, pSrcDst, len);
}

ZelStatus zelsOrC_32u(const Zel32u* pSrc, Zel32u val, Zel32u* pDst, int len)
{
    return constant<bitOr>(pSrc, val, pDst, len);
}

ZelStatus zelsOrC_32u_I(Zel32u val, Zel32u* pSrcDst, int len)
{
    return constant<bitOr, Zel32u>(pSrcDst, val, pSrcDst, len);
}

ZelStatus zelsXorC_8u(const Zel8u* pSrc, Zel8u val, Zel8u* pDst, int len)
{
    return constant<bitXor>(pSrc, val, pDst, len);
}

ZelStatus zelsXorC_8u_I(Zel8u val, Zel8u* pSrcDst, int len)
{
    return constant<bitXor, Zel8u>(pSrcDst, val, pSrcDst, len);
}

ZelStatus zelsXorC_16u(const Zel16u* pSrc, Zel16u val, Zel16u* pDst, int len)
{
    return constant<bitXor>(pSrc, val, pDst, len);
}

ZelStatus zelsXorC_16u_I(Zel16u val, Zel16u* pSrcDst, int len)
{
    return constant<bitXor, Zel16u>(pSrcDst, val, pSrcDst, len);
}

ZelStatus zelsXorC_32u(const Zel32u* pSrc, Zel32u val, Zel32u* pDst, int len)
{
    return constant<bitXor>(pSrc, val, pDst, len);
}

ZelStatus zelsXorC_32u_I(Zel32u val, Zel32u* pSrcDst, int len)
{
    return constant<bitXor, Zel32u>(pSrcDst, val, pSrcDst, len);
}

ZelStatus zelsNot_8u(const Zel8u* pSrc, Zel8u* pDst, int len)
{
    return constant<bitXor>(pSrc, allOnes<Zel8u>, pDst, len);
}

ZelStatus zelsNot_8u_I(Zel8u* pSrcDst, int len)
{
    return constant<bitXor, Zel8u>(pSrcDst, allOnes<Zel8u>, pSrcDst, len);
}

ZelStatus zelsNot_16u(const Zel16u* pSrc, Zel16u* pDst, int len)
{
    return constant<bitXor>(pSrc, allOnes<Zel16u>, pDst, len);
}

ZelStatus zelsNot_16u_I(Zel16u* pSrcDst, int len)
{
    return constant<bitXor, Zel16u>(pSrcDst, allOnes<Zel16u>, pSrcDst, len);
}

ZelStatus zelsNot_32u(const Zel32u* pSrc, Zel32u* pDst, int len)
{
    return constant<bitXor>(pSrc, allOnes<Zel32u>, pDst, len);
}

ZelStatus zelsNot_32u_I(Zel32u* pSrcDst, int len)
{
    return constant<bitXor, Zel32u>(pSrcDst, allOnes<Zel32u>, pSrcDst, len);
}
