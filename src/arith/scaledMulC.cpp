// Scaled products of an integer vector and a constant: MulC.
//
// A constant of 0 clears the destination whatever the factor; that is tested first. A constant of 1 without a
// scale factor makes a copy, and in place nothing at all.
#include "arith/scaledProducts.h"
#include "zels.h"

namespace {

template <class T>
bool isOne(T val)
{
    if constexpr (ownsIsComplex<T>)
        return val.re == 1 && val.im == 0;
    else
        return val == 1;
}

/// The constant as a fraction of 15 bits that holds the division by 2^scaleFactor, or 0 where that does not fit.
/// With it no product saturates.
Zel16s asFraction(Zel16s val, int scaleFactor)
{
    if (scaleFactor < 1 || scaleFactor > 15)
        return 0;
    const int fraction = val * (1 << (15 - scaleFactor));
    return fraction >= -INT16_MAX && fraction <= INT16_MAX ? static_cast<Zel16s>(fraction) : Zel16s{0};
}

void mulFraction(const Zel16s* pSrc, Zel16s val, Zel16s* pDst, int len, int scaleFactor, Zel16s fraction)
{
    const auto product = [=](OwnsVec<Zel16s> x) {
        const __m128i rounded = _mm_mulhrs_epi16(ownsInt(x), _mm_set1_epi16(fraction));
        return ownsWithoutEvenTies(rounded, ownsInt(x * val), scaleFactor);
    };
    ownsMap<shape_16s>(product, pDst, len, pSrc);
}

template <OwnsScaleLimits limits, OwnsShape shape, class Op, class T>
[[gnu::always_inline]] inline ZelStatus runMulC(int scaleFactor, T* pDst, ZelSize len, const T* pSrc, T val)
{
    if (const ZelStatus status = ownsCheck(len, pSrc, pDst); status != zelStatusOk)
        return status;
    if (ownsIsZero(val)) {
        ownsZero(pDst, len);
        return zelStatusOk;
    }
    if (scaleFactor == 0 && isOne(val)) {
        if (pSrc != pDst)
            ownsCopy(pSrc, pDst, len);
        return zelStatusOk;
    }
    return ownsMapScaled<limits, shape, Op>(scaleFactor, pDst, len, pSrc, val);
}

// Products of 64 bits have no lanes to stand in: they are formed in pairs of registers, one at a time. At
// most 2^126, they have room to be rounded in, and vanish from factor 127 on.
constexpr OwnsScaleLimits limitsMulC_64s{127, -63};

struct Product64s {
    __int128 val;

    Zel64s operator()(OwnsUnscaled, Zel64s x) const { return ownsSaturated<Zel64s>(x * val); }
    Zel64s operator()(OwnsHalved, Zel64s x) const { return (*this)(OwnsShiftedRight{1}, x); }
    Zel64s operator()(OwnsShiftedRight path, Zel64s x) const
    {
        const __int128 unit = __int128{1} << path.shift;
        const __int128 half = unit >> 1;
        const __int128 product = x * val;
        const bool evenTie = (product & (unit + (unit - 1))) == half;
        return ownsSaturated<Zel64s>((product + half - evenTie) >> path.shift);
    }
    Zel64s operator()(OwnsShiftedLeft path, Zel64s x) const
    {
        return ownsScaledInteger<Zel64s>(x * val, -path.shift);
    }
    Zel64s operator()(OwnsBySign, Zel64s x) const
    {
        return x == 0 ? 0 : (x < 0) != (val < 0) ? INT64_MIN : INT64_MAX;
    }
};

} // namespace

ZelStatus zelsMulC_16s_I(Zel16s val, Zel16s* pSrcDst, int len)
{
    return zelsMulC_16s_ISfs(val, pSrcDst, len, 0);
}

ZelStatus zelsMulC_8u_Sfs(const Zel8u* pSrc, Zel8u val, Zel8u* pDst, int len, int scaleFactor)
{
    return runMulC<limitsMul_8u, shape_8u, OwnsProduct8u>(scaleFactor, pDst, len, pSrc, val);
}

ZelStatus zelsMulC_8u_ISfs(Zel8u val, Zel8u* pSrcDst, int len, int scaleFactor)
{
    return zelsMulC_8u_Sfs(pSrcDst, val, pSrcDst, len, scaleFactor);
}

ZelStatus zelsMulC_16s_Sfs(const Zel16s* pSrc, Zel16s val, Zel16s* pDst, int len, int scaleFactor)
{
    const ZelStatus status = ownsCheck(len, pSrc, pDst);
    if (const Zel16s fraction = asFraction(val, scaleFactor); fraction != 0 && status == zelStatusOk) {
        mulFraction(pSrc, val, pDst, len, scaleFactor, fraction);
        return zelStatusOk;
    }
    return runMulC<limitsMul_16s, shape_16s, OwnsProduct16s>(scaleFactor, pDst, len, pSrc, val);
}

ZelStatus zelsMulC_16s_ISfs(Zel16s val, Zel16s* pSrcDst, int len, int scaleFactor)
{
    return zelsMulC_16s_Sfs(pSrcDst, val, pSrcDst, len, scaleFactor);
}

ZelStatus zelsMulC_16u_Sfs(const Zel16u* pSrc, Zel16u val, Zel16u* pDst, int len, int scaleFactor)
{
    return runMulC<limitsMul_16u, shape_16s, OwnsProduct16<Zel16u>>(scaleFactor, pDst, len, pSrc, val);
}

ZelStatus zelsMulC_16u_ISfs(Zel16u val, Zel16u* pSrcDst, int len, int scaleFactor)
{
    return zelsMulC_16u_Sfs(pSrcDst, val, pSrcDst, len, scaleFactor);
}

ZelStatus zelsMulC_16sc_Sfs(const Zel16sc* pSrc, Zel16sc val, Zel16sc* pDst, int len, int scaleFactor)
{
    return runMulC<limitsMul_16sc, shape_16sc, OwnsProduct16sc>(scaleFactor, pDst, len, pSrc, val);
}

ZelStatus zelsMulC_16sc_ISfs(Zel16sc val, Zel16sc* pSrcDst, int len, int scaleFactor)
{
    return zelsMulC_16sc_Sfs(pSrcDst, val, pSrcDst, len, scaleFactor);
}

ZelStatus zelsMulC_32s_Sfs(const Zel32s* pSrc, Zel32s val, Zel32s* pDst, int len, int scaleFactor)
{
    return runMulC<limitsMul_32s, shape_32s, OwnsInLanes64<OwnsProduct32s>>(scaleFactor, pDst, len, pSrc,
                                                                            val);
}

ZelStatus zelsMulC_32s_ISfs(Zel32s val, Zel32s* pSrcDst, int len, int scaleFactor)
{
    return zelsMulC_32s_Sfs(pSrcDst, val, pSrcDst, len, scaleFactor);
}

ZelStatus zelsMulC_32s_Sfs_L(const Zel32s* pSrc, Zel32s val, Zel32s* pDst, ZelSize len, int scaleFactor)
{
    return runMulC<limitsMul_32s, shape_32s, OwnsInLanes64<OwnsProduct32s>>(scaleFactor, pDst, len, pSrc,
                                                                            val);
}

ZelStatus zelsMulC_32s_ISfs_L(Zel32s val, Zel32s* pSrcDst, ZelSize len, int scaleFactor)
{
    return zelsMulC_32s_Sfs_L(pSrcDst, val, pSrcDst, len, scaleFactor);
}

ZelStatus zelsMulC_32sc_Sfs(const Zel32sc* pSrc, Zel32sc val, Zel32sc* pDst, int len, int scaleFactor)
{
    return runMulC<limitsMulC_32sc, shape_32sc, OwnsInLanes64<OwnsProduct32sc>>(scaleFactor, pDst, len, pSrc,
                                                                                val);
}

ZelStatus zelsMulC_32sc_ISfs(Zel32sc val, Zel32sc* pSrcDst, int len, int scaleFactor)
{
    return zelsMulC_32sc_Sfs(pSrcDst, val, pSrcDst, len, scaleFactor);
}

ZelStatus zelsMulC_64s_ISfs(Zel64s val, Zel64s* pSrcDst, int len, int scaleFactor)
{
    if (const ZelStatus status = ownsCheck(len, pSrcDst); status != zelStatusOk)
        return status;
    const auto clear = [=] { ownsZero(pSrcDst, len); };
    if (val == 0)
        clear();
    else if (val != 1 || scaleFactor != 0)
        ownsWithScaleFactor<limitsMulC_64s>(scaleFactor, clear, [=](auto path) {
            const Product64s product{val};
            for (int i = 0; i < len; i++)
                ownsPut(pSrcDst + i, product(path, ownsGet(pSrcDst + i)));
        });
    return zelStatusOk;
}
