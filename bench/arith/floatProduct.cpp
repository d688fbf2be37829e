// Products added to the destination: AddProduct and AddProductC.
#include "support/plain.h"

namespace {

template <class T>
constexpr auto addProduct = bench::plainInPlace<bench::sumWithProduct, T, T, T>;
template <class T>
constexpr auto addProductC = bench::plainOnto<bench::sumWithProduct, T, T, T>;

const bench::Family family("Float sums of products", [](bench::Run& run) {
    run.mapInPlace("zelsAddProduct_32f", zelsAddProduct_32f, bench::loop(addProduct<Zel32f>));
    run.mapInPlace("zelsAddProduct_64f", zelsAddProduct_64f, bench::loop(addProduct<Zel64f>));
    run.mapInPlace("zelsAddProduct_32fc", zelsAddProduct_32fc, bench::loop(addProduct<Zel32fc>));
    run.mapInPlace("zelsAddProduct_64fc", zelsAddProduct_64fc, bench::loop(addProduct<Zel64fc>));

    run.mapInPlace("zelsAddProductC_32f", zelsAddProductC_32f, bench::loop(addProductC<Zel32f>));
    run.mapInPlace("zelsAddProductC_64f", zelsAddProductC_64f, bench::loop(addProductC<Zel64f>));
    run.mapInPlace("zelsAddProductC_32fc", zelsAddProductC_32fc, bench::loop(addProductC<Zel32fc>));
    run.mapInPlace("zelsAddProductC_64fc", zelsAddProductC_64fc, bench::loop(addProductC<Zel64fc>));
});

} // namespace
