// Quotients of float vectors, by vectors and by constants. The first vector is the divisor.
#include "support/test.h"

namespace {

template <class T>
WithStatus<T> withWarning(T value, bool zero)
{
    return {value, zero ? zelWarnDivByZero : zelStatusOk};
}

constexpr auto quotient = [](auto a, auto b) { return withWarning(b / a, a == 0); };

/// In wider arithmetic, for results that err. A zero divisor still gives what the element type gives.
constexpr auto wideQuotient = [](Zel32f a, Zel32f b) {
    return withWarning(static_cast<long double>(b) / static_cast<long double>(a), a == 0);
};

constexpr auto complexQuotient = []<class C>(C a, C b) {
    const auto sum = a.re * a.re + a.im * a.im;
    if (a.re == 0 && a.im == 0)
        return withWarning(C{b.re / sum, b.im / sum}, true);
    return withWarning(C{(b.re * a.re + b.im * a.im) / sum, (b.im * a.re - b.re * a.im) / sum}, false);
};

/// Divisors over many magnitudes with a zero here and there; dividends ordinary.
void divisorsAndDividends(Random& random, int pointer, void* pData, std::size_t count)
{
    auto* const p = static_cast<Zel32f*>(pData);
    for (std::size_t i = 0; i < count; i++) {
        const auto x =
            static_cast<Zel32f>(std::scalbn(random.uniform(1, 2), static_cast<int>(random.below(40)) - 20));
        p[i] = random.below(2) == 0 ? x : -x;
        if (random.below(pointer == 0 ? 16 : 8) == 0)
            p[i] = 0;
    }
}

/// The reciprocal, then the product with its short cuts.
constexpr auto byReciprocal = [](auto x, auto val) {
    const auto r = 1 / val;
    return r == 1 ? x : r == 0 ? 0 : x * r;
};

constexpr auto byComplexReciprocal = []<class C>(C x, C val) {
    const auto r = 1 / (val.re * val.re + val.im * val.im);
    return complexProduct(x, C{val.re * r, -val.im * r});
};

} // namespace

TEST(DivisionFloat, estimatesInVectors)
{
    // Each of three steps may err by a rounding that counts as much as one unit, twice that where it is directed.
    SweepOptions options{.ulps = 3, .generate = divisorsAndDividends};
    sweep(wideQuotient, EXPORTS(zelsDiv_32f, zelsDiv_32f_L), options);
    options.ulps = 6;
    options.modes = Modes::rounding;
    sweep(wideQuotient, EXPORTS(zelsDiv_32f, zelsDiv_32f_L), options);
    // In place the dividends are fills.
    sweep(
        wideQuotient, EXPORTS(zelsDiv_32f_I, zelsDiv_32f_I_L),
        {.ulps = 3, .values = {.low = -1000, .high = 1000, .only = true}, .generate = divisorsAndDividends});
    sweep([](Zel32f x, Zel32f val) { return wideQuotient(x, val); },
          EXPORTS(zelsDivCRev_32f, zelsDivCRev_32f_L), options, 1.7f);
    sweep([](Zel32f x, Zel32f val) { return wideQuotient(x, val); }, EXPORTS(zelsDivCRev_32f), options, 0.0f);
    sweep([](Zel32f x, Zel32f val) { return wideQuotient(x, val); },
          EXPORTS(zelsDivCRev_32f_I, zelsDivCRev_32f_I_L),
          {.ulps = 3, .fills = fillBit(Fill::small) | fillBit(Fill::ties) | fillBit(Fill::equal)}, -5.0f);
}

TEST(DivisionFloat, dividesShortVectorsTruly)
{
    const SweepOptions options{
        .block = 0, .lengths = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10}, .modes = Modes::roundingAndFlush};
    sweep(quotient, EXPORTS(zelsDiv_32f, zelsDiv_32f_I), options);
    sweep([](Zel32f x, Zel32f val) { return quotient(x, val); }, EXPORTS(zelsDivCRev_32f, zelsDivCRev_32f_I),
          options, 2.5f);
}

TEST(DivisionFloat, leavesTheEstimateForFourWithAZero)
{
    alignas(16) Zel32f a[16], b[16], q[16];
    for (int i = 0; i < 16; i++) {
        a[i] = 3.0f + static_cast<Zel32f>(i);
        b[i] = -1.0f / static_cast<Zel32f>(i + 1);
    }
    Zel32f estimates[16];
    ASSERT_EQ(zelsDiv_32f(a, b, estimates, 16), zelStatusOk);
    a[6] = 0;
    a[12] = 0;
    b[12] = 0;
    b[2] = NAN;
    ASSERT_EQ(zelsDiv_32f(a, b, q, 16), zelWarnDivByZero);
    for (const int i : {0, 1, 3, 8, 9, 10, 11})
        EXPECT_EQ(q[i], estimates[i]) << i;
    for (const int i : {4, 5, 7, 13, 14, 15})
        EXPECT_EQ(q[i], b[i] / a[i]) << i;
    EXPECT_EQ(q[6], -INFINITY);
    EXPECT_TRUE(std::isnan(q[12]));
}

TEST(DivisionFloat, dividesTruly)
{
    const SweepOptions options{.modes = Modes::roundingAndFlush, .repeats = 1};
    sweep(quotient, EXPORTS(zelsDiv_64f, zelsDiv_64f_I, zelsDiv_64f_L, zelsDiv_64f_I_L), options);
    sweep(complexQuotient, EXPORTS(zelsDiv_32fc, zelsDiv_32fc_I, zelsDiv_32fc_L, zelsDiv_32fc_I_L), options);
    sweep(complexQuotient, EXPORTS(zelsDiv_64fc, zelsDiv_64fc_I, zelsDiv_64fc_L, zelsDiv_64fc_I_L), options);
}

TEST(DivisionFloat, constantsAreProductsWithReciprocals)
{
    const SweepOptions options{.block = 16, .modes = Modes::rounding, .repeats = 1};
    for (const double val : {3.0, 1.0, -7.5, static_cast<double>(INFINITY), 1e-42, static_cast<double>(NAN)})
        sweep(byReciprocal,
              EXPORTS(zelsDivC_32f, zelsDivC_32f_I, zelsDivC_32f_L, zelsDivC_32f_I_L, zelsDivC_64f,
                      zelsDivC_64f_I, zelsDivC_64f_L, zelsDivC_64f_I_L),
              options, val);
    sweep(byComplexReciprocal, EXPORTS(zelsDivC_32fc, zelsDivC_32fc_I, zelsDivC_32fc_L, zelsDivC_32fc_I_L),
          options, Zel32fc{3, -0.7f});
    sweep(byComplexReciprocal, EXPORTS(zelsDivC_64fc, zelsDivC_64fc_I, zelsDivC_64fc_L, zelsDivC_64fc_I_L),
          options, Zel64fc{3, -0.7});
}

TEST(DivisionFloatLong, warningOfAnEarlierChunkIsLost)
{
    // Long arrays hold zeros but for their windows: the first chunk divides by zero, the last one does not.
    constexpr ZelSize len = longChunk<Zel64f> + 8;
    LongArray<Zel64f> divisors(len);
    LongArray<Zel64f> values(len);
    const auto last = divisors.window(len - 8, 8);
    std::fill(last.begin(), last.end(), 2.0);
    EXPECT_EQ(zelsDiv_64f_I_L(divisors.data(), values.data(), len), zelStatusOk);
    EXPECT_EQ(zelsDiv_64f_I(divisors.data(), values.data(), 8), zelWarnDivByZero);
}

TEST(DivisionFloat, refusesBadArguments)
{
    badArguments(EXPORTS(zelsDiv_32f, zelsDiv_32f_I, zelsDiv_64f, zelsDiv_64f_I, zelsDiv_32fc, zelsDiv_32fc_I,
                         zelsDiv_64fc, zelsDiv_64fc_I, zelsDivCRev_32f, zelsDivCRev_32f_I),
                 pointersFirst);
    badArguments(EXPORTS(zelsDiv_32f_L, zelsDiv_32f_I_L, zelsDiv_64f_L, zelsDiv_64f_I_L, zelsDiv_32fc_L,
                         zelsDiv_32fc_I_L, zelsDiv_64fc_L, zelsDiv_64fc_I_L, zelsDivCRev_32f_L,
                         zelsDivCRev_32f_I_L),
                 lengthFirst);
    const auto zeros = selector(3, {0}, zelErrDivByZero);
    badArguments(EXPORTS(zelsDivC_32f, zelsDivC_64f), pointersFirst, array(64), zeros, array(64), length(4));
    badArguments(EXPORTS(zelsDivC_32f_I, zelsDivC_64f_I), pointersFirst, zeros, array(64), length(4));
    // The length, then the pointers and the constant in the calls of the chunks.
    badArguments(EXPORTS(zelsDivC_32f_L, zelsDivC_64f_L), lengthFirst, array(64), zeros, array(64),
                 length(4));
    badArguments(EXPORTS(zelsDivC_32f_I_L, zelsDivC_64f_I_L), lengthFirst, zeros, array(64), length(4));
}

TEST(DivisionFloat, refusesComplexConstantsWithoutMagnitude)
{
    // A magnitude too small to be squared counts as none.
    for (const Zel32fc val : {Zel32fc{0, 0}, Zel32fc{-0.0f, 1e-30f}}) {
        Zel32fc x{1, 2};
        EXPECT_EQ(zelsDivC_32fc_I(val, &x, 1), zelErrDivByZero);
        EXPECT_EQ(zelsDivC_32fc_I_L(val, &x, 1), zelErrDivByZero);
        EXPECT_EQ(zelsDivC_32fc_I(val, &x, 0), zelErrSize);
        EXPECT_EQ(zelsDivC_32fc(&x, val, nullptr, 0), zelErrNullPtr);
        EXPECT_EQ(zelsDivC_32fc_L(nullptr, val, &x, 0), zelErrSize);
        EXPECT_EQ(x.re, 1);
        EXPECT_EQ(x.im, 2);
    }
    Zel64fc y{1, 2};
    EXPECT_EQ(zelsDivC_64fc_I({0, 0}, &y, 1), zelErrDivByZero);
    EXPECT_EQ(zelsDivC_64fc_L(&y, {0, 0}, &y, 1), zelErrDivByZero);
    EXPECT_EQ(y.re, 1);
}
