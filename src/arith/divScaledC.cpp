// Scaled quotients of an integer vector by a constant: DivC; and of a constant by a vector: DivCRev.
#include "arith/division.h"
#include "arith/divisionComplex.h"
#include "zels.h"

#include <climits>

namespace {

template <class Op, class Divisor>
struct OverConstant {
    static constexpr OwnsCode code = ownsCodeOf<Op>;
    Op op;
    Divisor divisor;

    template <class V>
    auto operator()(V x) const
    {
        return op(divisor, x);
    }
};
template <class Op, class Divisor>
OverConstant(Op, Divisor) -> OverConstant<Op, Divisor>;

/// Behind pointers and length the constant is tested, before the data are read.
template <OwnsQuotientRange range, class T>
[[gnu::always_inline]] inline ZelStatus divide(const T* pSrc, T val, T* pDst, int len, int scaleFactor)
{
    if (const ZelStatus status = ownsCheck(len, pSrc, pDst); status != zelStatusOk)
        return status;
    if (val == 0)
        return zelErrDivByZero;
    ownsWithQuotients<range, OwnsToNearest, T, T>(scaleFactor, [=](auto op) {
        ownsMap<ownsShapeOf<T>>(OverConstant{op, ownsSplat(val)}, pDst, len, pSrc);
    });
    return zelStatusOk;
}

ZelStatus divide16sc(const Zel16sc* pSrc, Zel16sc val, Zel16sc* pDst, int len, int scaleFactor)
{
    if (const ZelStatus status = ownsCheck(len, pSrc, pDst); status != zelStatusOk)
        return status;
    if (ownsIsZero(val))
        return zelErrDivByZero;
    ownsWithComplexQuotients(scaleFactor, [=](auto op) {
        ownsMap<shape_16sc>(OverConstant{op, OwnsComplexDivisors(ownsSplat(val))}, pDst, len, pSrc);
    });
    return zelStatusOk;
}

/// A constant over a vector.
struct DivideConstant16u {
    static constexpr OwnsCode code = OwnsCode::compact;
    OwnsWatching<OwnsDivide<Zel16u, Zel32f, OwnsToNearest>> divide;
    OwnsVec<Zel16u> val;

    OwnsVec<Zel16u> operator()(OwnsVec<Zel16u> x) const { return divide(x, val); }
    OwnsVec<Zel16u> part(int n, OwnsVec<Zel16u> x) const { return divide.part(n, x, val); }
};

/// The fixed-point reciprocal of a divisor of 64 bits: 2^(k + 63) / d, rounded, where 2^(k + 1) is the smallest
/// power of two from 2 on that is at least d.
struct Reciprocal64 {
    Zel64s value;
    int shift; ///< k + 63
};

/// Binary long division, 64 steps that each bring down a bit. d is from 2 to 2^63, so that the first remainder,
/// 2^k, is below it, and twice a remainder fits.
Reciprocal64 reciprocal(Zel64u d)
{
    const int k = d > 2 ? 63 - __builtin_clzll(d - 1) : 0;
    Zel64u remainder = Zel64u{1} << k;
    Zel64u q = 0;
    for (int step = 0; step < 64; step++) {
        remainder *= 2;
        const bool bit = remainder >= d;
        remainder -= bit ? d : 0;
        q = 2 * q + bit;
    }
    return {static_cast<Zel64s>((q + (q & 1)) >> 1), k + 63};
}

} // namespace

ZelStatus zelsDivC_8u_Sfs(const Zel8u* pSrc, Zel8u val, Zel8u* pDst, int len, int scaleFactor)
{
    return divide<rangeDiv_8u>(pSrc, val, pDst, len, scaleFactor);
}

ZelStatus zelsDivC_8u_ISfs(Zel8u val, Zel8u* pSrcDst, int len, int scaleFactor)
{
    return zelsDivC_8u_Sfs(pSrcDst, val, pSrcDst, len, scaleFactor);
}

ZelStatus zelsDivC_16s_Sfs(const Zel16s* pSrc, Zel16s val, Zel16s* pDst, int len, int scaleFactor)
{
    return divide<rangeDiv_16>(pSrc, val, pDst, len, scaleFactor);
}

ZelStatus zelsDivC_16s_ISfs(Zel16s val, Zel16s* pSrcDst, int len, int scaleFactor)
{
    return zelsDivC_16s_Sfs(pSrcDst, val, pSrcDst, len, scaleFactor);
}

ZelStatus zelsDivC_16u_Sfs(const Zel16u* pSrc, Zel16u val, Zel16u* pDst, int len, int scaleFactor)
{
    return divide<rangeDiv_16>(pSrc, val, pDst, len, scaleFactor);
}

ZelStatus zelsDivC_16u_ISfs(Zel16u val, Zel16u* pSrcDst, int len, int scaleFactor)
{
    return zelsDivC_16u_Sfs(pSrcDst, val, pSrcDst, len, scaleFactor);
}

ZelStatus zelsDivC_16sc_Sfs(const Zel16sc* pSrc, Zel16sc val, Zel16sc* pDst, int len, int scaleFactor)
{
    return divide16sc(pSrc, val, pDst, len, scaleFactor);
}

ZelStatus zelsDivC_16sc_ISfs(Zel16sc val, Zel16sc* pSrcDst, int len, int scaleFactor)
{
    return zelsDivC_16sc_Sfs(pSrcDst, val, pSrcDst, len, scaleFactor);
}

ZelStatus zelsDivCRev_16u(const Zel16u* pSrc, Zel16u val, Zel16u* pDst, int len)
{
    if (const ZelStatus status = ownsCheck(len, pSrc, pDst); status != zelStatusOk)
        return status;
    const OwnsNearestMode nearest;
    OwnsZeroWatch zeros;
    ownsMap<shape_16s>(DivideConstant16u{{{{0, UINT16_MAX}}, zeros}, ownsSplat(val)}, pDst, len, pSrc);
    return zeros.status();
}

ZelStatus zelsDivCRev_16u_I(Zel16u val, Zel16u* pSrcDst, int len)
{
    return zelsDivCRev_16u(pSrcDst, val, pSrcDst, len);
}

// There is no division: the product with a reciprocal, which is only as exact as that is. A divisor of 0 is no
// error here, and the length is tested for 0 alone: a negative one does no work.
ZelStatus zelsDivC_64s_ISfs(Zel64s val, Zel64s* pSrcDst, int len, int scaleFactor)
{
    if (!pSrcDst)
        return zelErrNullPtr;
    if (len == 0)
        return zelErrSize;
    if (len < 0)
        return zelStatusOk;
    if (val == 0) {
        for (int i = 0; i < len; i++) {
            const Zel64s x = ownsGet(pSrcDst + i);
            ownsPut(pSrcDst + i, x > 0 ? INT64_MAX : x < 0 ? INT64_MIN : 0);
        }
        return zelWarnDivByZero;
    }
    if (val == 1 || val == -1)
        return zelsMulC_64s_ISfs(val, pSrcDst, len, scaleFactor);
    const Reciprocal64 r = reciprocal(val < 0 ? -static_cast<Zel64u>(val) : static_cast<Zel64u>(val));
    const int shift = scaleFactor > INT_MAX - r.shift ? INT_MAX : scaleFactor + r.shift;
    return zelsMulC_64s_ISfs(val < 0 ? -r.value : r.value, pSrcDst, len, shift);
}
