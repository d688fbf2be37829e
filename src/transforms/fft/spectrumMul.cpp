// Products of packed spectra of real signals.
#include "frame/map.h"
#include "zels/transforms.h"

namespace {

constexpr auto mul = [](auto a, auto b) { return ownsComplexMul(a, b); };

// conj(a) * b: the destination is the first operand, and it is the one that is conjugated.
constexpr auto mulConj = [](auto a, auto b) {
    using Part = std::remove_reference_t<decltype(a[0])>;
    OwnsVec<Part> sign{};
    for (int k = 1; k < ownsLanes<Part>; k += 2)
        sign[k] = static_cast<Part>(-0.0);
    return ownsComplexMul(b, ownsAs<Part>(ownsInt(a) ^ ownsInt(sign)));
};

template <class T>
struct Complex;
template <>
struct Complex<Zel32f> {
    using Type = Zel32fc;
    static constexpr OwnsShape shape = shape_32fc;
};
template <>
struct Complex<Zel64f> {
    using Type = Zel64fc;
    static constexpr OwnsShape shape = shape_64fc;
};

enum Layout { pack, perm };

// The real bins multiply as real numbers, the others as complex ones. `pA` may be the destination.
template <Layout layout, auto op, class T>
ZelStatus product(const T* pA, const T* pB, T* pDst, int len)
{
    if (const ZelStatus status = ownsCheck(len, pA, pB, pDst); status != zelStatusOk)
        return status;
    using E = typename Complex<T>::Type;
    const bool even = len % 2 == 0;
    ownsPut(pDst, ownsGet(pA) * ownsGet(pB));
    if (even) {
        const ZelSize top = layout == pack ? len - 1 : 1;
        ownsPut(pDst + top, ownsGet(pA + top) * ownsGet(pB + top));
    }
    const ZelSize first = layout == perm && even ? 2 : 1;
    const auto bins = [first](auto* p) { return reinterpret_cast<const E*>(p + first); };
    ownsMap<Complex<T>::shape>(op, reinterpret_cast<E*>(pDst + first), (len - 1) / 2, bins(pA), bins(pB));
    return zelStatusOk;
}

} // namespace

ZelStatus zelsMulPack_32f(const Zel32f* pSrc1, const Zel32f* pSrc2, Zel32f* pDst, int len)
{
    return product<pack, mul>(pSrc1, pSrc2, pDst, len);
}

ZelStatus zelsMulPack_32f_I(const Zel32f* pSrc, Zel32f* pSrcDst, int len)
{
    return product<pack, mul>(static_cast<const Zel32f*>(pSrcDst), pSrc, pSrcDst, len);
}

ZelStatus zelsMulPack_64f(const Zel64f* pSrc1, const Zel64f* pSrc2, Zel64f* pDst, int len)
{
    return product<pack, mul>(pSrc1, pSrc2, pDst, len);
}

ZelStatus zelsMulPack_64f_I(const Zel64f* pSrc, Zel64f* pSrcDst, int len)
{
    return product<pack, mul>(static_cast<const Zel64f*>(pSrcDst), pSrc, pSrcDst, len);
}

ZelStatus zelsMulPerm_32f(const Zel32f* pSrc1, const Zel32f* pSrc2, Zel32f* pDst, int len)
{
    return product<perm, mul>(pSrc1, pSrc2, pDst, len);
}

ZelStatus zelsMulPerm_32f_I(const Zel32f* pSrc, Zel32f* pSrcDst, int len)
{
    return product<perm, mul>(static_cast<const Zel32f*>(pSrcDst), pSrc, pSrcDst, len);
}

ZelStatus zelsMulPerm_64f(const Zel64f* pSrc1, const Zel64f* pSrc2, Zel64f* pDst, int len)
{
    return product<perm, mul>(pSrc1, pSrc2, pDst, len);
}

ZelStatus zelsMulPerm_64f_I(const Zel64f* pSrc, Zel64f* pSrcDst, int len)
{
    return product<perm, mul>(static_cast<const Zel64f*>(pSrcDst), pSrc, pSrcDst, len);
}

ZelStatus zelsMulPackConj_32f_I(const Zel32f* pSrc, Zel32f* pSrcDst, int len)
{
    return product<pack, mulConj>(static_cast<const Zel32f*>(pSrcDst), pSrc, pSrcDst, len);
}

ZelStatus zelsMulPackConj_64f_I(const Zel64f* pSrc, Zel64f* pSrcDst, int len)
{
    return product<pack, mulConj>(static_cast<const Zel64f*>(pSrcDst), pSrc, pSrcDst, len);
}
