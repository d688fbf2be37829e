// Products added to the destination: AddProduct and AddProductC. Product and sum are each rounded.
#include "frame/map.h"
#include "zels.h"

namespace {

constexpr auto addProduct = [](auto sum, auto a, auto b) { return sum + a * b; };

constexpr auto addComplexProduct = [](auto sum, auto a, auto b) { return sum + ownsComplexMul(a, b); };

constexpr auto addProductWith = [](auto val) { return [val](auto sum, auto a) { return sum + a * val; }; };

constexpr auto addComplexProductWith = [](auto val) {
    return [val](auto sum, auto a) { return sum + ownsComplexMul(a, val); };
};

} // namespace

ZelStatus zelsAddProduct_32f(const Zel32f* pSrc1, const Zel32f* pSrc2, Zel32f* pSrcDst, int len)
{
    return ownsRun<shape_32f>(addProduct, pSrcDst, len, pSrcDst, pSrc1, pSrc2);
}

ZelStatus zelsAddProduct_64f(const Zel64f* pSrc1, const Zel64f* pSrc2, Zel64f* pSrcDst, int len)
{
    return ownsRun<shape_64f>(addProduct, pSrcDst, len, pSrcDst, pSrc1, pSrc2);
}

ZelStatus zelsAddProduct_32fc(const Zel32fc* pSrc1, const Zel32fc* pSrc2, Zel32fc* pSrcDst, int len)
{
    return ownsRun<shape_32fc>(addComplexProduct, pSrcDst, len, pSrcDst, pSrc1, pSrc2);
}

ZelStatus zelsAddProduct_64fc(const Zel64fc* pSrc1, const Zel64fc* pSrc2, Zel64fc* pSrcDst, int len)
{
    return ownsRun<shape_64fc>(addComplexProduct, pSrcDst, len, pSrcDst, pSrc1, pSrc2);
}

ZelStatus zelsAddProductC_32f(const Zel32f* pSrc, Zel32f val, Zel32f* pSrcDst, int len)
{
    return ownsRun<shape_32f>(addProductWith(val), pSrcDst, len, pSrcDst, pSrc);
}

ZelStatus zelsAddProductC_64f(const Zel64f* pSrc, Zel64f val, Zel64f* pSrcDst, int len)
{
    return ownsRun<shape_64f>(addProductWith(val), pSrcDst, len, pSrcDst, pSrc);
}

ZelStatus zelsAddProductC_32fc(const Zel32fc* pSrc, Zel32fc val, Zel32fc* pSrcDst, int len)
{
    return ownsRun<shape_32fc>(addComplexProductWith(ownsSplat(val)), pSrcDst, len, pSrcDst, pSrc);
}

ZelStatus zelsAddProductC_64fc(const Zel64fc* pSrc, Zel64fc val, Zel64fc* pSrcDst, int len)
{
    return ownsRun<shape_64fc>(addComplexProductWith(ownsSplat(val)), pSrcDst, len, pSrcDst, pSrc);
}
