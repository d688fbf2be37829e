// Mul, MulC, AddProduct and AddProductC of floats.
#include "support/test.h"

namespace {

constexpr auto times = [](auto a, auto b) { return elementProduct(a, b); };

// By 1 a copy, which keeps NaNs to the bit; by 0 zeros, whatever the element and its sign.
template <class T>
T timesOrCopy(T x, T val)
{
    return val == 1 ? x : val == 0 ? T{0} : x * val;
}
constexpr auto timesConstant = [](auto x, auto val) { return timesOrCopy(x, val); };

constexpr auto plusProduct = [](auto a, auto b, auto old) { return old + elementProduct(a, b); };
constexpr auto plusProductC = [](auto a, auto old, auto val) { return old + elementProduct(a, val); };

constexpr auto productOf16s = [](Zel16s a, Zel16s b) {
    return static_cast<float>(a) * static_cast<float>(b);
};
constexpr auto realTimesComplex = [](float a, Zel32fc b) { return Zel32fc{a * b.re, a * b.im}; };

constexpr Modes modes = Modes::roundingAndFlush;

} // namespace

TEST(FloatMul, multipliesElements)
{
    sweep(times,
          EXPORTS(zelsMul_32f, zelsMul_32f_I, zelsMul_32f_L, zelsMul_32f_I_L, zelsMul_64f_I, zelsMul_64f_L,
                  zelsMul_64f_I_L, zelsMul_32fc, zelsMul_32fc_I, zelsMul_32fc_L, zelsMul_32fc_I_L,
                  zelsMul_64fc_L, zelsMul_64fc_I_L),
          {.modes = modes});
    sweep(times, EXPORTS(zelsMul_64f), {.around = {43687}, .modes = modes});
    sweep(times, EXPORTS(zelsMul_64fc), {.around = {2 * 10922}, .modes = modes});
    sweep(times, EXPORTS(zelsMul_64fc_I), {.around = {2 * 16384}, .modes = modes});
    sweep(productOf16s, EXPORTS(zelsMul_16s32f), {.modes = modes});
    sweep(realTimesComplex, EXPORTS(zelsMul_32f32fc, zelsMul_32f32fc_I), {.modes = modes});
}

TEST(FloatMul, multipliesByConstants)
{
    for (const float val : {-2.5f, 1.0f, 0.0f, -0.0f, -1.0f, 1e-45f, INFINITY, NAN}) {
        const SweepOptions options{.payload = val == 0 || val == 1, .modes = modes, .repeats = 1};
        sweep(timesConstant, EXPORTS(zelsMulC_32f, zelsMulC_32f_L, zelsMulC_32f_I, zelsMulC_32f_I_L), options,
              val);
        sweep(timesConstant, EXPORTS(zelsMulC_64f, zelsMulC_64f_I, zelsMulC_64f_L, zelsMulC_64f_I_L), options,
              val == 1e-45f ? 0x1p-1074 : val);
    }
    // Complex constants have no short cut: infinity times (1, 0) has a NaN in it.
    for (const Zel64fc val : {Zel64fc{-2.5, 1e30}, Zel64fc{1, 0}, Zel64fc{0, 0}, Zel64fc{-0.0, 1}}) {
        const Zel32fc single{static_cast<float>(val.re), static_cast<float>(val.im)};
        const SweepOptions options{.modes = modes, .repeats = 1};
        sweep(times, EXPORTS(zelsMulC_32fc, zelsMulC_32fc_L, zelsMulC_32fc_I, zelsMulC_32fc_I_L), options,
              single);
        sweep(times, EXPORTS(zelsMulC_64fc, zelsMulC_64fc_I, zelsMulC_64fc_L, zelsMulC_64fc_I_L), options,
              val);
    }
    sweep(timesConstant, EXPORTS(zelsMulC_32f, zelsMulC_32f_L), {.around = {131079}, .repeats = 1}, 2.5f);
    sweep(times, EXPORTS(zelsMulC_32fc, zelsMulC_32fc_L), {.around = {65539}, .repeats = 1}, Zel32fc{2, 3});
    sweep(times, EXPORTS(zelsMulC_32fc_I, zelsMulC_32fc_I_L), {.around = {131073}, .repeats = 1},
          Zel32fc{2, 3});
}

TEST(FloatMul, roundsEachStepOfComplexProducts)
{
    // (1+e)(1+e) - 1 is 2e after the product is rounded, and 2e + e^2 if it is not.
    const float e = 0x1p-23f;
    const Zel32fc a{1 + e, 1};
    const Zel32fc b{1 + e, 1};
    Zel32fc result{};
    ASSERT_EQ(zelsMul_32fc(&a, &b, &result, 1), zelStatusOk);
    EXPECT_EQ(result.re, 2 * e);
    EXPECT_EQ(result.im, 2 + 2 * e);
}

TEST(FloatMul, addsProducts)
{
    sweep(plusProduct,
          EXPORTS(zelsAddProduct_32f, zelsAddProduct_64f, zelsAddProduct_32fc, zelsAddProduct_64fc),
          {.modes = modes});
    // Constants have no short cut here: -0 + x * 0 may be +0, and NaN * 0 is NaN.
    for (const float val : {-2.5f, 1.0f, 0.0f}) {
        const SweepOptions options{.modes = modes, .repeats = 1};
        sweep(plusProductC, EXPORTS(zelsAddProductC_32f, zelsAddProductC_64f), options, val);
        sweep(plusProductC, EXPORTS(zelsAddProductC_32fc), options, Zel32fc{val, 1.5f});
        sweep(plusProductC, EXPORTS(zelsAddProductC_64fc), options, Zel64fc{val, 0});
    }
}

TEST(FloatMul, refusesBadArguments)
{
    // The long forms in one piece test pointers first, those in chunks the length.
    badArguments(EXPORTS(zelsMul_32f, zelsMul_32f_I, zelsMul_64f, zelsMul_64f_I, zelsMul_32fc, zelsMul_32fc_I,
                         zelsMul_64fc, zelsMul_64fc_I, zelsMul_16s32f, zelsMul_32f32fc, zelsMul_32f32fc_I,
                         zelsMulC_32f, zelsMulC_32f_I, zelsMulC_64f, zelsMulC_64f_I, zelsMulC_32fc,
                         zelsMulC_32fc_I, zelsMulC_64fc, zelsMulC_64fc_I, zelsMulC_32f_L, zelsMulC_32fc_L,
                         zelsMulC_32fc_I_L, zelsMulC_64fc_L, zelsMulC_64fc_I_L, zelsAddProduct_32f,
                         zelsAddProduct_64f, zelsAddProduct_32fc, zelsAddProduct_64fc, zelsAddProductC_32f,
                         zelsAddProductC_64f, zelsAddProductC_32fc, zelsAddProductC_64fc),
                 pointersFirst);
    badArguments(EXPORTS(zelsMul_32f_L, zelsMul_32f_I_L, zelsMul_64f_L, zelsMul_64f_I_L, zelsMul_32fc_L,
                         zelsMul_32fc_I_L, zelsMul_64fc_L, zelsMul_64fc_I_L, zelsMulC_32f_I_L, zelsMulC_64f_L,
                         zelsMulC_64f_I_L),
                 lengthFirst);
}
