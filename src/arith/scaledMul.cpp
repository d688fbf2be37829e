// Scaled products of integer vectors: Mul and AddProduct.
#include "arith/scaledProducts.h"
#include "arith/scaledSums.h"
#include "zels.h"

namespace {

/// Widened exactly; the product fits.
constexpr auto mulWidened8u = [](OwnsVec<Zel8u> a, OwnsVec<Zel8u> b) {
    return ownsAs<Zel16u>(_mm_mullo_epi16(_mm_cvtepu8_epi16(ownsInt(a)), _mm_cvtepu8_epi16(ownsInt(b))));
};

/// The low four of eight 16-bit elements multiplied, in 32-bit lanes.
OwnsVec<Zel32s> mulWidened16s(OwnsVec<Zel16s> a, OwnsVec<Zel16s> b)
{
    return ownsAs<Zel32s>(ownsHalvesOf(a, b).first());
}

/// a * b of 16s elements with a 32s result; at most 2^30, so that it has room to be rounded in.
struct Product16s32s {
    using A = OwnsVec<Zel16s>;
    using V = OwnsVec<Zel32s>;
    static constexpr int word = 16;

    static V scaled(OwnsUnscaled, V x) { return x; }
    static V scaled(OwnsHalved, V x) { return ownsRoundedRightSmall(x, 1); }
    static V scaled(OwnsShiftedRight path, V x) { return ownsRoundedRightSmall(x, path.shift); }
    static V scaled(OwnsShiftedWord, V x) { return ownsRoundedRightSmall(x, word); }
    static V scaled(OwnsShiftedFar path, V x) { return ownsRoundedRightSmall(x, word + path.shift); }
    static V scaled(OwnsShiftedLeft path, V x) { return ownsShiftedLeft(x, path.shift); }

    template <class Path>
    static V apply(Path path, A a, A b)
    {
        return scaled(path, mulWidened16s(a, b));
    }
    static V apply(OwnsBySign, A a, A b)
    {
        return ownsSaturatedBySign(ownsAs<Zel32s>(_mm_cvtepi16_epi32(ownsInt(ownsSignOfProduct(a, b)))));
    }

    template <class Path>
    static OwnsVecs<Zel32s, 2> pair(Path path, A a, A b) requires requires(V x)
    {
        scaled(path, x);
    }
    {
        const OwnsHalves16<Zel16s> x = ownsHalvesOf(a, b);
        return {{scaled(path, ownsAs<Zel32s>(x.first())), scaled(path, ownsAs<Zel32s>(x.second()))}};
    }
    static OwnsVecs<Zel32s, 2> pair(OwnsHalved, A a, A b) { return pair(OwnsShiftedRight{1}, a, b); }
    static OwnsVecs<Zel32s, 2> pair(OwnsShiftedRight path, A a, A b)
    {
        const OwnsHalves16<Zel16s> x = ownsReadyToRound16(ownsHalvesOf(a, b), path.shift);
        const OwnsVec<Zel32s> half = ownsSplat(1 << (path.shift - 1));
        const __m128i count = ownsCount(path.shift);
        const auto rounded = [&](__m128i v) {
            return ownsAs<Zel32s>(_mm_sra_epi32(ownsInt(ownsAs<Zel32s>(v) + half), count));
        };
        return {{rounded(x.first()), rounded(x.second())}};
    }
};

/// sum + a * b of 16s elements: each pair of the sum and 1 beside one of the factors.
struct AddProduct16s {
    using V = OwnsVec<Zel16s>;
    template <class Narrow>
    static V inLanes32(V sum, V a, V b, Narrow narrow)
    {
        const __m128i one = _mm_set1_epi16(1);
        const __m128i first =
            _mm_madd_epi16(_mm_unpacklo_epi16(ownsInt(sum), ownsInt(a)), _mm_unpacklo_epi16(one, ownsInt(b)));
        const __m128i second =
            _mm_madd_epi16(_mm_unpackhi_epi16(ownsInt(sum), ownsInt(a)), _mm_unpackhi_epi16(one, ownsInt(b)));
        return ownsAs<Zel16s>(
            _mm_packs_epi32(ownsInt(narrow(ownsAs<Zel32s>(first))), ownsInt(narrow(ownsAs<Zel32s>(second)))));
    }
    static V apply(OwnsUnscaled, V sum, V a, V b)
    {
        return inLanes32(sum, a, b, [](auto x) { return x; });
    }
    static V apply(OwnsHalved, V sum, V a, V b)
    {
        return inLanes32(sum, a, b, [](auto x) { return ownsHalvedEven(x); });
    }
    static V apply(OwnsShiftedRight path, V sum, V a, V b)
    {
        return inLanes32(sum, a, b, [=](auto x) { return ownsRoundedRight(x, path.shift); });
    }
    static V apply(OwnsShiftedLeft path, V sum, V a, V b)
    {
        return ownsShiftedLeft(apply(OwnsUnscaled{}, sum, a, b), path.shift);
    }
    static V apply(OwnsBySign, V sum, V a, V b)
    {
        return ownsSaturatedBySign(apply(OwnsUnscaled{}, sum, a, b));
    }
};

/// sum + a * b of a 32s accumulator and 16s factors.
struct AddProduct16s32s {
    template <class Path>
    static OwnsVec<Zel32s> apply(Path path, OwnsVec<Zel32s> sum, OwnsVec<Zel16s> a, OwnsVec<Zel16s> b)
    {
        return OwnsSum32s::apply(path, sum, mulWidened16s(a, b));
    }
};

} // namespace

ZelStatus zelsMul_8u16u(const Zel8u* pSrc1, const Zel8u* pSrc2, Zel16u* pDst, int len)
{
    return ownsRun<shape_16s>(mulWidened8u, pDst, len, pSrc1, pSrc2);
}

ZelStatus zelsMul_16s(const Zel16s* pSrc1, const Zel16s* pSrc2, Zel16s* pDst, int len)
{
    return zelsMul_16s_Sfs(pSrc1, pSrc2, pDst, len, 0);
}

ZelStatus zelsMul_16s_I(const Zel16s* pSrc, Zel16s* pSrcDst, int len)
{
    return zelsMul_16s_ISfs(pSrc, pSrcDst, len, 0);
}

ZelStatus zelsMul_8u_Sfs(const Zel8u* pSrc1, const Zel8u* pSrc2, Zel8u* pDst, int len, int scaleFactor)
{
    return ownsRunScaled<limitsMul_8u, shape_8u, OwnsProduct8u>(scaleFactor, pDst, len, pSrc1, pSrc2);
}

ZelStatus zelsMul_8u_ISfs(const Zel8u* pSrc, Zel8u* pSrcDst, int len, int scaleFactor)
{
    return ownsRunScaled<limitsMul_8u, shape_8u, OwnsProduct8u>(scaleFactor, pSrcDst, len, pSrcDst, pSrc);
}

ZelStatus zelsMul_16s_Sfs(const Zel16s* pSrc1, const Zel16s* pSrc2, Zel16s* pDst, int len, int scaleFactor)
{
    return ownsRunScaled<limitsMul_16s, shape_16s, OwnsProduct16s>(scaleFactor, pDst, len, pSrc1, pSrc2);
}

ZelStatus zelsMul_16s_ISfs(const Zel16s* pSrc, Zel16s* pSrcDst, int len, int scaleFactor)
{
    return ownsRunScaled<limitsMul_16s, shape_16s, OwnsProduct16s>(scaleFactor, pSrcDst, len, pSrcDst, pSrc);
}

ZelStatus zelsMul_16u_Sfs(const Zel16u* pSrc1, const Zel16u* pSrc2, Zel16u* pDst, int len, int scaleFactor)
{
    return ownsRunScaled<limitsMul_16u, shape_16s, OwnsProduct16<Zel16u>>(scaleFactor, pDst, len, pSrc1,
                                                                          pSrc2);
}

ZelStatus zelsMul_16u_ISfs(const Zel16u* pSrc, Zel16u* pSrcDst, int len, int scaleFactor)
{
    return ownsRunScaled<limitsMul_16u, shape_16s, OwnsProduct16<Zel16u>>(scaleFactor, pSrcDst, len, pSrcDst,
                                                                          pSrc);
}

ZelStatus zelsMul_16sc_Sfs(const Zel16sc* pSrc1, const Zel16sc* pSrc2, Zel16sc* pDst, int len,
                           int scaleFactor)
{
    return ownsRunScaled<limitsMul_16sc, shape_16sc, OwnsProduct16sc>(scaleFactor, pDst, len, pSrc1, pSrc2);
}

ZelStatus zelsMul_16sc_ISfs(const Zel16sc* pSrc, Zel16sc* pSrcDst, int len, int scaleFactor)
{
    return ownsRunScaled<limitsMul_16sc, shape_16sc, OwnsProduct16sc>(scaleFactor, pSrcDst, len, pSrcDst,
                                                                      pSrc);
}

ZelStatus zelsMul_32s_Sfs(const Zel32s* pSrc1, const Zel32s* pSrc2, Zel32s* pDst, int len, int scaleFactor)
{
    return ownsRunScaled<limitsMul_32s, shape_32s, OwnsInLanes64<OwnsProduct32s>>(scaleFactor, pDst, len,
                                                                                  pSrc1, pSrc2);
}

ZelStatus zelsMul_32s_ISfs(const Zel32s* pSrc, Zel32s* pSrcDst, int len, int scaleFactor)
{
    return ownsRunScaled<limitsMul_32s, shape_32s, OwnsInLanes64<OwnsProduct32s>>(scaleFactor, pSrcDst, len,
                                                                                  pSrcDst, pSrc);
}

ZelStatus zelsMul_32sc_Sfs(const Zel32sc* pSrc1, const Zel32sc* pSrc2, Zel32sc* pDst, int len,
                           int scaleFactor)
{
    return ownsRunScaled<limitsMul_32sc, shape_32sc, OwnsInLanes64<OwnsProduct32sc>>(scaleFactor, pDst, len,
                                                                                     pSrc1, pSrc2);
}

ZelStatus zelsMul_32sc_ISfs(const Zel32sc* pSrc, Zel32sc* pSrcDst, int len, int scaleFactor)
{
    return ownsRunScaled<limitsMul_32sc, shape_32sc, OwnsInLanes64<OwnsProduct32sc>>(scaleFactor, pSrcDst,
                                                                                     len, pSrcDst, pSrc);
}

ZelStatus zelsMul_16u16s_Sfs(const Zel16u* pSrc1, const Zel16s* pSrc2, Zel16s* pDst, int len, int scaleFactor)
{
    return ownsRunScaled<limitsMul_16u16s, shape_16s, OwnsProduct16<Zel16s>>(scaleFactor, pDst, len, pSrc1,
                                                                             pSrc2);
}

ZelStatus zelsMul_16s32s_Sfs(const Zel16s* pSrc1, const Zel16s* pSrc2, Zel32s* pDst, int len, int scaleFactor)
{
    return ownsRunScaled<limitsMul_16s32s, shapeMul_16s32s, Product16s32s>(scaleFactor, pDst, len, pSrc1,
                                                                           pSrc2);
}

// The accumulator stands inside the scaling: it is divided with the product, and cleared at the zero limit.

ZelStatus zelsAddProduct_16s_Sfs(const Zel16s* pSrc1, const Zel16s* pSrc2, Zel16s* pSrcDst, int len,
                                 int scaleFactor)
{
    return ownsRunScaled<limitsAddProduct_16s, shape_16s, AddProduct16s>(scaleFactor, pSrcDst, len, pSrcDst,
                                                                         pSrc1, pSrc2);
}

ZelStatus zelsAddProduct_16s32s_Sfs(const Zel16s* pSrc1, const Zel16s* pSrc2, Zel32s* pSrcDst, int len,
                                    int scaleFactor)
{
    return ownsRunScaled<limitsAddProduct_16s32s, shape_32s, AddProduct16s32s>(scaleFactor, pSrcDst, len,
                                                                               pSrcDst, pSrc1, pSrc2);
}

ZelStatus zelsAddProduct_32s_Sfs(const Zel32s* pSrc1, const Zel32s* pSrc2, Zel32s* pSrcDst, int len,
                                 int scaleFactor)
{
    return ownsRunScaled<limitsAddProduct_32s, shape_32s, OwnsInLanes64<OwnsAddProduct32s>>(
        scaleFactor, pSrcDst, len, pSrcDst, pSrc1, pSrc2);
}
