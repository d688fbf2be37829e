// Power of complex data: PowerSpectr.
#include "frame/entry.h"
#include "frame/scaledMap.h"
#include "frame/squares.h"
#include "math/root.h"
#include "zels.h"

namespace {

constexpr auto power = [](auto... x) { return ownsSumOfSquares(x...); };

constexpr auto powerOf16 = [](auto... x) { return ownsUnsigned32f(ownsSquares4(x...)); };

/// From 32 on even the largest power, 2^31, rounds to 0.
constexpr OwnsScaleLimits limitsPower_16s{32, -15};

/// The exact sums as what they are, unsigned.
struct Power16s {
    using V = OwnsVec<Zel16s>;

    template <class Narrow, class... S>
    static V narrowed(Narrow narrow, S... s)
    {
        const OwnsSquares16 n = ownsSquares(s...);
        return ownsAs<Zel16s>(_mm_packs_epi32(ownsInt(narrow(ownsAs<Zel32u>(n.first))),
                                              ownsInt(narrow(ownsAs<Zel32u>(n.second)))));
    }
    template <class... S>
    static V apply(OwnsUnscaled, S... s)
    {
        return narrowed([](auto n) { return _mm_min_epu32(ownsInt(n), _mm_set1_epi32(INT32_MAX)); }, s...);
    }
    template <class... S>
    static V apply(OwnsHalved, S... s)
    {
        return narrowed([](auto n) { return ownsHalvedEven(n); }, s...);
    }
    template <class... S>
    static V apply(OwnsShiftedRight path, S... s)
    {
        return narrowed([=](auto n) { return ownsRoundedRight(n, path.shift); }, s...);
    }
    template <class... S>
    static V apply(OwnsShiftedLeft path, S... s)
    {
        return ownsShiftedLeft(apply(OwnsUnscaled{}, s...), path.shift);
    }
    template <class... S>
    static V apply(OwnsBySign, S... s)
    {
        return ownsSaturatedUnlessZero(ownsSquares(s...));
    }
};

} // namespace

ZelStatus zelsPowerSpectr_32f(const Zel32f* pSrcRe, const Zel32f* pSrcIm, Zel32f* pDst, int len)
{
    return ownsRun<shape_32f>(power, pDst, len, pSrcRe, pSrcIm);
}

ZelStatus zelsPowerSpectr_32f_L(const Zel32f* pSrcRe, const Zel32f* pSrcIm, Zel32f* pDst, ZelSize len)
{
    return ownsChunked<zelsPowerSpectr_32f, Zel32f>(len, pSrcRe, pSrcIm, pDst);
}

ZelStatus zelsPowerSpectr_64f(const Zel64f* pSrcRe, const Zel64f* pSrcIm, Zel64f* pDst, int len)
{
    return ownsRun<shape_64f>(power, pDst, len, pSrcRe, pSrcIm);
}

ZelStatus zelsPowerSpectr_64f_L(const Zel64f* pSrcRe, const Zel64f* pSrcIm, Zel64f* pDst, ZelSize len)
{
    return ownsChunked<zelsPowerSpectr_64f, Zel64f>(len, pSrcRe, pSrcIm, pDst);
}

ZelStatus zelsPowerSpectr_32fc(const Zel32fc* pSrc, Zel32f* pDst, int len)
{
    return ownsRun<shape_32f>(power, pDst, len, pSrc);
}

ZelStatus zelsPowerSpectr_32fc_L(const Zel32fc* pSrc, Zel32f* pDst, ZelSize len)
{
    return ownsChunked<zelsPowerSpectr_32fc, Zel32fc>(len, pSrc, pDst);
}

ZelStatus zelsPowerSpectr_64fc(const Zel64fc* pSrc, Zel64f* pDst, int len)
{
    return ownsRun<shape_64f>(power, pDst, len, pSrc);
}

ZelStatus zelsPowerSpectr_64fc_L(const Zel64fc* pSrc, Zel64f* pDst, ZelSize len)
{
    return ownsChunked<zelsPowerSpectr_64fc, Zel64fc>(len, pSrc, pDst);
}

ZelStatus zelsPowerSpectr_16s32f(const Zel16s* pSrcRe, const Zel16s* pSrcIm, Zel32f* pDst, int len)
{
    return ownsRun<shape_32f>(powerOf16, pDst, len, pSrcRe, pSrcIm);
}

ZelStatus zelsPowerSpectr_16sc32f(const Zel16sc* pSrc, Zel32f* pDst, int len)
{
    return ownsRun<shape_32f>(powerOf16, pDst, len, pSrc);
}

ZelStatus zelsPowerSpectr_16s_Sfs(const Zel16s* pSrcRe, const Zel16s* pSrcIm, Zel16s* pDst, int len,
                                  int scaleFactor)
{
    return ownsRunScaled<limitsPower_16s, shape_16s, Power16s>(scaleFactor, pDst, len, pSrcRe, pSrcIm);
}

ZelStatus zelsPowerSpectr_16sc_Sfs(const Zel16sc* pSrc, Zel16s* pDst, int len, int scaleFactor)
{
    return ownsRunScaled<limitsPower_16s, shape_16s, Power16s>(scaleFactor, pDst, len, pSrc);
}
