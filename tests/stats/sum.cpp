// Sums: the orders of float additions bit for bit, integers against exact sums.
#include "stats/orders.h"

namespace {

using support::Wide;

constexpr auto sum32f = [](const Zel32f* x, Zel32f* sum, ZelSize len, int hint) {
    const TwoSums sums = sumsByHint(x, len, 1, hint);
    *sum = static_cast<float>(sums.lane[0] + sums.lane[1]);
};
constexpr auto sum32fc = [](const Zel32fc* x, Zel32fc* sum, ZelSize len, int hint) {
    const TwoSums sums = sumsByHint(&x->re, len, 2, hint);
    *sum = {static_cast<float>(sums.lane[0]), static_cast<float>(sums.lane[1])};
};
constexpr auto sum64f = [](const Zel64f* x, Zel64f* sum, ZelSize len) {
    const TwoSums sums = doubleSums(x, len, behind(0, 16) == 8);
    *sum = sums.lane[0] + sums.lane[1];
};
constexpr auto sum64fc = [](const Zel64fc* x, Zel64fc* sum, ZelSize len) {
    const TwoSums sums = doubleSums(&x->re, 2 * len, false);
    *sum = {sums.lane[0], sums.lane[1]};
};

/// 2^-scaleFactor as far as the exponent field reaches, in the caller's rounding mode. No sum here is so large that
/// a long double would round it.
Zel32s scaledInMode(Wide total, int scaleFactor)
{
    if (total == 0 || scaleFactor >= 1023)
        return 0;
    const long double value =
        std::ldexp(static_cast<long double>(total), -std::clamp(scaleFactor, -2000, 2000));
    return static_cast<Zel32s>(
        std::nearbyint(static_cast<double>(std::clamp<long double>(value, INT32_MIN, INT32_MAX))));
}

template <class T>
Wide total(const T* x, ZelSize len, int step = 1)
{
    Wide sum = 0;
    for (ZelSize i = 0; i < len; i++)
        sum += x[i * step];
    return sum;
}

constexpr auto sum16s = [](const Zel16s* x, Zel16s* sum, ZelSize len, int scaleFactor) {
    *sum = support::saturated<Zel16s>(scaledInMode(total(x, len), scaleFactor));
};
constexpr auto sum16s32s = [](const Zel16s* x, Zel32s* sum, ZelSize len, int scaleFactor) {
    *sum = scaledInMode(total(x, len), scaleFactor);
};
constexpr auto sum16sc = [](const Zel16sc* x, auto* sum, ZelSize len, int scaleFactor) {
    using Part = std::remove_reference_t<decltype(sum->re)>;
    *sum = {support::saturated<Part>(scaledInMode(total(&x->re, len, 2), scaleFactor)),
            support::saturated<Part>(scaledInMode(total(&x->im, len, 2), scaleFactor))};
};
constexpr auto sum32s = [](const Zel32s* x, Zel32s* sum, ZelSize len, int scaleFactor) {
    // A factor above 63 counts as 63; the sum has 62 bits.
    *sum = support::scaled<Zel32s>(total(x, len), std::min(scaleFactor, 63));
};

constexpr int manyFactors[]{0,   1,    2,    7,    15,    16,    20,    31,    32,        62,       63,
                            64,  1022, 1023, 2000, 65536, -1,    -3,    -15,   -16,       -17,      -31,
                            -32, -33,  -63,  -64,  -1023, -1024, -1025, -2000, INT32_MAX, INT32_MIN};

} // namespace

TEST(Sum, addsFloatsInOrder)
{
    constexpr Modes modes = Modes::roundingAndFlush;
    for (const int hint : {0, 1, 2, -1}) {
        const bool fast = hint == zelHintFast;
        const SweepOptions options{.around =
                                       fast ? std::vector<ZelSize>{32768, 65536} : std::vector<ZelSize>{},
                                   .modes = modes,
                                   .repeats = hint < 0 ? 1 : 8};
        sweep<LengthIs::first>(sum32f, EXPORTS(zelsSum_32f, zelsSum_32f_L), options, hint);
        const SweepOptions complex{.around = fast ? std::vector<ZelSize>{16384} : std::vector<ZelSize>{},
                                   .modes = modes,
                                   .repeats = options.repeats};
        sweep<LengthIs::first>(sum32fc, EXPORTS(zelsSum_32fc, zelsSum_32fc_L), complex, hint);
    }
    sweep(sum64f, EXPORTS(zelsSum_64f, zelsSum_64f_L), {.modes = modes, .repeats = 8});
    sweep(sum64fc, EXPORTS(zelsSum_64fc, zelsSum_64fc_L), {.modes = modes, .repeats = 8});
}

TEST(Sum, tellsTheFastPathFromTheAccurateOne)
{
    std::vector<float> x(100000, 0.1f);
    float sums[3];
    for (const int hint : {zelHintNone, zelHintFast, zelHintAccurate})
        ASSERT_EQ(zelsSum_32f(x.data(), 100000, &sums[hint], hint), zelStatusOk);
    EXPECT_EQ(sums[zelHintNone], static_cast<float>(100000 * static_cast<double>(0.1f)));
    EXPECT_EQ(sums[zelHintNone], sums[zelHintAccurate]);
    EXPECT_NE(sums[zelHintNone], sums[zelHintFast]);
    EXPECT_NEAR(sums[zelHintFast], 10000, 10000 * 2060 * 0x1p-24);
}

TEST(Sum, addsIntegersExactly)
{
    for (const int factor : manyFactors) {
        const SweepOptions options{.lengths = {1000, 4099}, .modes = Modes::rounding, .repeats = 1};
        sweep<LengthIs::first>(sum16s, EXPORTS(zelsSum_16s_Sfs), options, factor);
        sweep<LengthIs::first>(sum16s32s, EXPORTS(zelsSum_16s32s_Sfs), options, factor);
        sweep<LengthIs::first>(sum16sc, EXPORTS(zelsSum_16sc_Sfs, zelsSum_16sc32sc_Sfs), options, factor);
        sweep<LengthIs::first>(sum32s, EXPORTS(zelsSum_32s_Sfs), options, factor);
    }
    for (const int factor : {0, 4, 16}) {
        const SweepOptions blocks{.around = {65536, 131072}, .repeats = 1};
        sweep<LengthIs::first>(sum16s32s, EXPORTS(zelsSum_16s32s_Sfs), blocks, factor);
        sweep<LengthIs::first>(sum16sc, EXPORTS(zelsSum_16sc32sc_Sfs), blocks, factor);
        sweep<LengthIs::first>(sum32s, EXPORTS(zelsSum_32s_Sfs), blocks, factor);
    }
}

TEST(Sum, keepsLargestSumsExact)
{
    // Every lane at its limit, past several blocks.
    constexpr int n = 5 * 65536 + 7;
    const std::vector<Zel16s> low16(2 * n, -32768);
    const std::vector<Zel32s> low32(n, INT32_MIN);
    Zel32s sum{};
    ASSERT_EQ(zelsSum_16s32s_Sfs(low16.data(), 32768, &sum, 0), zelStatusOk);
    EXPECT_EQ(sum, -1073741824);
    ASSERT_EQ(zelsSum_16s32s_Sfs(low16.data(), n, &sum, 15), zelStatusOk);
    EXPECT_EQ(sum, -n);
    Zel32sc sums{};
    ASSERT_EQ(zelsSum_16sc32sc_Sfs(reinterpret_cast<const Zel16sc*>(low16.data()), n, &sums, 15),
              zelStatusOk);
    EXPECT_EQ(sums.re, -n);
    EXPECT_EQ(sums.im, -n);
    ASSERT_EQ(zelsSum_32s_Sfs(low32.data(), n, &sum, 31), zelStatusOk);
    EXPECT_EQ(sum, -n);
    const std::vector<Zel32s> high32(n, INT32_MAX);
    ASSERT_EQ(zelsSum_32s_Sfs(high32.data(), n, &sum, 19), zelStatusOk);
    EXPECT_EQ(sum, support::scaled<Zel32s>(Wide{INT32_MAX} * n, 19));
}

TEST(Sum, refusesBadArguments)
{
    badArguments<LengthIs::first>(EXPORTS(zelsSum_32f, zelsSum_32f_L, zelsSum_32fc, zelsSum_32fc_L,
                                          zelsSum_64f, zelsSum_64f_L, zelsSum_64fc, zelsSum_64fc_L,
                                          zelsSum_16s_Sfs, zelsSum_16s32s_Sfs, zelsSum_16sc_Sfs,
                                          zelsSum_16sc32sc_Sfs, zelsSum_32s_Sfs),
                                  pointersFirst);
}
