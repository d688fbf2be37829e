// Linear normalisation.
#include "math/fixedTools.h"

#include <cfloat>

namespace {

/// A product with the reciprocal, each step rounded.
constexpr auto normalized = []<class T>(T x, T vSub, auto vDiv) {
    const auto reciprocal = 1 / vDiv;
    if constexpr (Complex<T>)
        return T{(x.re - vSub.re) * reciprocal, (x.im - vSub.im) * reciprocal};
    else
        return (x - vSub) * reciprocal;
};

/// In single precision; the power of two is exact in a double.
constexpr auto scaledPart = [](Zel16s x, Zel16s vSub, int vDiv, int scaleFactor) {
    const Zel32f reciprocal = 1.0f / static_cast<Zel32f>(vDiv);
    const double factor = std::ldexp(static_cast<double>(reciprocal), -std::clamp(scaleFactor, -300, 300));
    const double difference = x - vSub;
    if (difference == 0 || std::fabs(factor) < 0x1p-17)
        return Zel16s{0};
    const double product = std::fabs(factor) < 0x1p40
                               ? static_cast<Zel32f>(difference) * static_cast<Zel32f>(factor)
                               : difference * factor;
    return static_cast<Zel16s>(toNearest(std::clamp<long double>(product, -32768, 32767)));
};
constexpr auto normalizedScaled = []<class T>(T x, T vSub, int vDiv, int scaleFactor) {
    if constexpr (Complex<T>)
        return T{scaledPart(x.re, vSub.re, vDiv, scaleFactor), scaledPart(x.im, vSub.im, vDiv, scaleFactor)};
    else
        return scaledPart(x, vSub, vDiv, scaleFactor);
};

} // namespace

TEST(Normalize, floats)
{
    const SweepOptions options{.around = {120}, .modes = Modes::roundingAndFlush};
    sweep(normalized, EXPORTS(zelsNormalize_32f, zelsNormalize_32f_I), options, 1.25f, -3.0f);
    sweep(normalized, EXPORTS(zelsNormalize_64f, zelsNormalize_64f_I), options, 1.25, -3.0);
    sweep(normalized, EXPORTS(zelsNormalize_32fc, zelsNormalize_32fc_I), options, Zel32fc{1.5f, -0.1f}, 0.7f);
    sweep(normalized, EXPORTS(zelsNormalize_64fc, zelsNormalize_64fc_I), options, Zel64fc{1.5, -0.1}, 0.7);
    // The reciprocal may be infinite in double precision.
    sweep(normalized, EXPORTS(zelsNormalize_64f), 2.0, 1e-310);
    sweep(normalized, EXPORTS(zelsNormalize_32f), NAN, static_cast<Zel32f>(NAN));
}

TEST(Normalize, refusesDivisors)
{
    const auto status = [](auto function, auto x, auto vDiv) {
        auto result = x;
        return function(&x, &result, 1, x, vDiv);
    };
    for (const Zel32f vDiv : {0.0f, -0.0f, 1e-39f, -1e-39f}) {
        EXPECT_EQ(status(zelsNormalize_32f, 1.0f, vDiv), zelErrDivByZero);
        EXPECT_EQ(status(zelsNormalize_32fc, Zel32fc{1, 1}, vDiv), zelErrDivByZero);
    }
    for (const Zel32f vDiv : {FLT_MIN, -FLT_MIN, INFINITY, NAN})
        EXPECT_EQ(status(zelsNormalize_32f, 1.0f, vDiv), zelStatusOk);
    EXPECT_EQ(status(zelsNormalize_64f, 1.0, -0.0), zelErrDivByZero);
    EXPECT_EQ(status(zelsNormalize_64fc, Zel64fc{1, 1}, 0.0), zelErrDivByZero);
    EXPECT_EQ(status(zelsNormalize_64f, 1.0, 1e-39), zelStatusOk);
    Zel16s x = 7;
    Zel16sc z{7, 7};
    EXPECT_EQ(zelsNormalize_16s_ISfs(&x, 1, 0, 0, 99), zelErrDivByZero);
    EXPECT_EQ(zelsNormalize_16sc_ISfs(&z, 1, {0, 0}, 0, 99), zelErrDivByZero);
    EXPECT_EQ(x, 7);
    // Pointers and length come first.
    EXPECT_EQ(zelsNormalize_32f_I(nullptr, 1, 0, 0), zelErrNullPtr);
    Zel32f f = 1;
    EXPECT_EQ(zelsNormalize_32f_I(&f, 0, 0, 0), zelErrSize);
}

TEST(Normalize, all16BitInputsByEveryFactor)
{
    const auto all = everyValue<Zel16s>();
    std::vector<Zel16s> result(all.size());
    for (const int vDiv : {1, -1, 3, -7, 100, 32768, -65536, 65537, INT32_MAX, INT32_MIN})
        for (const Zel16s vSub : std::initializer_list<Zel16s>{-32768, 0, 5, 32767})
            for (const int s : factors(vDiv > 70000 ? -50 : -18, 18)) {
                ASSERT_EQ(zelsNormalize_16s_Sfs(all.data(), result.data(), 65536, vSub, vDiv, s),
                          zelStatusOk);
                for (std::size_t i = 0; i < all.size(); i++)
                    ASSERT_EQ(result[i], scaledPart(all[i], vSub, vDiv, s))
                        << all[i] << " less " << vSub << " over " << vDiv << " by " << s;
            }
}

TEST(Normalize, everyLengthAndAlignment)
{
    for (const int s : {0, 2, -1, -20, -1000, 40}) {
        const SweepOptions options{.lengths = {257}, .modes = Modes::rounding, .repeats = 1};
        sweep(normalizedScaled, EXPORTS(zelsNormalize_16s_Sfs, zelsNormalize_16s_ISfs), options, -300, 77, s);
        sweep(normalizedScaled, EXPORTS(zelsNormalize_16sc_Sfs, zelsNormalize_16sc_ISfs), options,
              Zel16sc{1000, -32768}, -3, s);
    }
}

TEST(Normalize, refusesBadArguments)
{
    badArguments(EXPORTS(zelsNormalize_32f, zelsNormalize_32f_I, zelsNormalize_64f, zelsNormalize_64f_I,
                         zelsNormalize_32fc, zelsNormalize_32fc_I, zelsNormalize_64fc, zelsNormalize_64fc_I,
                         zelsNormalize_16s_Sfs, zelsNormalize_16s_ISfs, zelsNormalize_16sc_Sfs,
                         zelsNormalize_16sc_ISfs),
                 pointersFirst);
}
