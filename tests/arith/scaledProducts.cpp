// Scaled products of integers, and their sums with an accumulator.
#include "arith/scaledTools.h"

namespace {

struct ScaledProduct {
    template <class A, class B>
    auto operator()(A a, B b, int scaleFactor) const
    {
        if constexpr (Complex<A>)
            return A{scaled<Part<A>>(Wide{a.re} * b.re - Wide{a.im} * b.im, scaleFactor),
                     scaled<Part<A>>(Wide{a.im} * b.re + Wide{a.re} * b.im, scaleFactor)};
        else
            return scaled<B>(Wide{a} * b, scaleFactor);
    }
};
constexpr ScaledProduct product;

constexpr auto product16s32s = [](Zel16s a, Zel16s b, int scaleFactor) {
    return scaled<Zel32s>(Wide{a} * b, scaleFactor);
};

/// The accumulator stands inside the scaling.
constexpr auto addedProduct = [](auto a, auto b, auto sum, int scaleFactor) {
    return scaled<decltype(sum)>(Wide{sum} + Wide{a} * b, scaleFactor);
};

/// Products of 32-bit elements vanish from 63 on, though the largest sum would round to 1 there.
constexpr auto addedProduct32s = [](Zel32s a, Zel32s b, Zel32s sum, int scaleFactor) {
    return scaleFactor >= 63 ? 0 : addedProduct(a, b, sum, scaleFactor);
};

const auto products =
    EXPORTS(zelsMul_8u_Sfs, zelsMul_16s_Sfs, zelsMul_16u_Sfs, zelsMul_16sc_Sfs, zelsMul_32s_Sfs,
            zelsMul_32sc_Sfs, zelsMul_8u_ISfs, zelsMul_16s_ISfs, zelsMul_16u_ISfs, zelsMul_16sc_ISfs,
            zelsMul_32s_ISfs, zelsMul_32sc_ISfs, zelsMul_16u16s_Sfs);
const auto byConstant =
    EXPORTS(zelsMulC_8u_Sfs, zelsMulC_16s_Sfs, zelsMulC_16u_Sfs, zelsMulC_32s_Sfs, zelsMulC_8u_ISfs,
            zelsMulC_16s_ISfs, zelsMulC_16u_ISfs, zelsMulC_32s_ISfs, zelsMulC_32s_Sfs_L, zelsMulC_32s_ISfs_L);
const auto byConstant16sc = EXPORTS(zelsMulC_16sc_Sfs, zelsMulC_16sc_ISfs);
const auto byConstant32sc = EXPORTS(zelsMulC_32sc_Sfs, zelsMulC_32sc_ISfs);

} // namespace

TEST(ScaledProducts, allPairsOf8Bits)
{
    allPairs("zelsMul_8u_Sfs", zelsMul_8u_Sfs, product, -9, 18);
    allPairs("zelsMulC_8u_Sfs", eachConstant(zelsMulC_8u_Sfs), product, -9, 18);
}

TEST(ScaledProducts, all16BitInputs)
{
    allInputs<Zel16s>("zelsMulC_16s_Sfs", zelsMulC_16s_Sfs, product, -18, 32,
                      {-32768, -32767, -3, 0, 1, 2, 4096, 23170, 32767});
    allInputs<Zel16u>("zelsMulC_16u_Sfs", zelsMulC_16u_Sfs, product, -18, 34, {0, 1, 3, 256, 46341, 65535});
}

TEST(ScaledProducts, everyFactor)
{
    sweepFactors<Zel16s, Zel16s>(product, EXPORTS(zelsMul_16s_Sfs), -18, 32);
    sweepFactors<Zel16u, Zel16u>(product, EXPORTS(zelsMul_16u_Sfs), -19, 34);
    sweepFactors<Zel16u, Zel16s>(product, EXPORTS(zelsMul_16u16s_Sfs), -17, 33);
    sweepFactors<Zel16s, Zel16s>(product16s32s, EXPORTS(zelsMul_16s32s_Sfs), -33, 32);
    sweepFactors<Zel32s, Zel32s>(product, EXPORTS(zelsMul_32s_Sfs), -34, 64);
    sweepFactors<Zel16sc, Zel16sc>(product, EXPORTS(zelsMul_16sc_Sfs), -18, 33);
    sweepFactors<Zel32sc, Zel32sc>(product, EXPORTS(zelsMul_32sc_Sfs), -34, 65);
    for (const Zel32s val : {INT32_MIN, -65536, -1, 0, 1, 65536, INT32_MAX})
        sweepFactors<Zel32s>(product, EXPORTS(zelsMulC_32s_Sfs, zelsMulC_32s_Sfs_L), -34, 64, val);
    constexpr Zel16s least16 = -32768;
    for (const Zel16sc val : {Zel16sc{0, 0}, Zel16sc{1, 0}, Zel16sc{least16, least16},
                              Zel16sc{32767, least16}, Zel16sc{-181, 12345}})
        sweepFactors<Zel16sc>(product, EXPORTS(zelsMulC_16sc_Sfs), -18, 33, val);
    for (const Zel32sc val : {Zel32sc{0, 0}, Zel32sc{1, 0}, Zel32sc{INT32_MIN, INT32_MIN},
                              Zel32sc{INT32_MAX, INT32_MIN}, Zel32sc{-46341, 123456789}})
        sweepFactors<Zel32sc>(product, EXPORTS(zelsMulC_32sc_Sfs), -34, 65, val);
    sweepFactors<Zel16s, Zel16s>(addedProduct, EXPORTS(zelsAddProduct_16s_Sfs), -17, 33);
    sweepFactors<Zel16s, Zel16s>(addedProduct, EXPORTS(zelsAddProduct_16s32s_Sfs), -33, 34);
    sweepFactors<Zel32s, Zel32s>(addedProduct32s, EXPORTS(zelsAddProduct_32s_Sfs), -33, 64);
}

TEST(ScaledProducts, fullComplexProductsOverflowTheWideType)
{
    // (-2^31, -2^31) squared has 2^63 in the place of i, and in 16 bits 2^31.
    for (const int s : factors(-34, 65)) {
        const Zel32sc a{INT32_MIN, INT32_MIN};
        Zel32sc result;
        ASSERT_EQ(zelsMul_32sc_Sfs(&a, &a, &result, 1, s), zelStatusOk);
        EXPECT_EQ(result.im, product(a, a, s).im) << s;
        const Zel16sc b{-32768, -32768};
        Zel16sc narrow;
        ASSERT_EQ(zelsMulC_16sc_Sfs(&b, b, &narrow, 1, s), zelStatusOk);
        EXPECT_EQ(narrow.im, product(b, b, s).im) << s;
    }
}

TEST(ScaledProducts, accumulatorIsClearedAtTheZeroLimit)
{
    // At 63 the largest accumulated product is just above one half.
    const Zel32s a = INT32_MIN;
    Zel32s sum = INT32_MAX;
    ASSERT_EQ(zelsAddProduct_32s_Sfs(&a, &a, &sum, 1, 63), zelStatusOk);
    EXPECT_EQ(sum, 0);
}

TEST(ScaledProducts, products64s)
{
    Random random("products64s");
    std::vector<Zel64s> a(200), result(200);
    for (const int s : factors(-65, 129))
        for (int repeat = 0; repeat < 8; repeat++) {
            const Zel64s val = repeat == 0 ? 0 : repeat == 1 ? 1 : edgy<Zel64s>(random);
            for (Zel64s& x : a)
                x = edgy<Zel64s>(random);
            result = a;
            ASSERT_EQ(zelsMulC_64s_ISfs(val, result.data(), 200, s), zelStatusOk);
            for (std::size_t i = 0; i < a.size(); i++) {
                // Saturated first where it only grows: 2^126 has no room.
                const Wide exact = Wide{a[i]} * val;
                ASSERT_EQ(result[i], scaled<Zel64s>(s > 0 ? exact : saturated<Zel64s>(exact), s))
                    << a[i] << " * " << val << " by " << s;
            }
        }
    sweepPaths(product, EXPORTS(zelsMulC_64s_ISfs), {0, 3}, Zel64s{-12345});
}

TEST(ScaledProducts, everyLengthAndAlignment)
{
    const auto paths = {0, 1, 3, 16, 20, 32, 40, 70, -2, -40};
    sweepPaths(product, products, paths);
    sweepPaths(product16s32s, EXPORTS(zelsMul_16s32s_Sfs), paths);
    sweepPaths(product, byConstant, paths, 77);
    sweepPaths(product, byConstant16sc, paths, Zel16sc{1000, -7});
    sweepPaths(product, byConstant32sc, paths, Zel32sc{-70000, 5});
    sweepPaths(addedProduct, EXPORTS(zelsAddProduct_16s_Sfs, zelsAddProduct_16s32s_Sfs), paths);
    sweepPaths(addedProduct32s, EXPORTS(zelsAddProduct_32s_Sfs), paths);
}

TEST(ScaledProductsLong, stream)
{
    sweep(product16s32s, EXPORTS(zelsMul_16s32s_Sfs),
          {.block = 0, .around = {262151}, .lengths = {}, .inPlace = false, .repeats = 1}, 4);
}

TEST(ScaledProducts, neutralConstants)
{
    for (const int val : {0, 1})
        sweepPaths(product, EXPORTS(zelsMulC_8u_Sfs, zelsMulC_8u_ISfs, zelsMulC_16s_ISfs, zelsMulC_32s_Sfs),
                   {0, 1, -60}, val);
    for (const Zel16sc val : {Zel16sc{1, 0}, Zel16sc{0, 1}})
        sweepPaths(product, byConstant16sc, {0, 1}, val);
}

TEST(ScaledProducts, withoutScaleFactor)
{
    const auto saturate = [](Zel16s a, Zel16s b) { return product(a, b, 0); };
    sweep(saturate, EXPORTS(zelsMul_16s, zelsMul_16s_I));
    for (const Zel16s val : std::initializer_list<Zel16s>{0, 1, -32768})
        sweep(saturate, EXPORTS(zelsMulC_16s_I), val);
    sweep([](Zel8u a, Zel8u b) { return a * b; }, EXPORTS(zelsMul_8u16u));
}

TEST(ScaledProducts, refusesBadArguments)
{
    badArgumentsOf(pointersFirst, products, byConstant, byConstant16sc, byConstant32sc,
                   EXPORTS(zelsMul_16s32s_Sfs, zelsMul_16s, zelsMul_16s_I, zelsMul_8u16u, zelsMulC_64s_ISfs,
                           zelsMulC_16s_I, zelsAddProduct_16s_Sfs, zelsAddProduct_16s32s_Sfs,
                           zelsAddProduct_32s_Sfs));
}
