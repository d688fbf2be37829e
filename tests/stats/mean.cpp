// Means: where each form rounds.
#include "stats/orders.h"

namespace {

using support::Wide;

constexpr auto mean32f = [](const Zel32f* x, Zel32f* mean, ZelSize len, int hint) {
    const TwoSums sums = sumsByHint(x, len, 1, hint);
    const float sum = static_cast<float>(sums.lane[0] + sums.lane[1]);
    *mean = static_cast<float>(static_cast<double>(sum) / static_cast<double>(len));
};
constexpr auto mean32fLong = [](const Zel32f* x, Zel32f* mean, ZelSize len, int hint) {
    const TwoSums sums = sumsByHint(x, len, 1, hint);
    *mean = static_cast<float>(sums.lane[0] + sums.lane[1]) / static_cast<float>(len);
};
constexpr auto mean32fc = [](const Zel32fc* x, Zel32fc* mean, ZelSize len, int hint) {
    const TwoSums sums = sumsByHint(&x->re, len, 2, hint);
    const double reciprocal = 1.0 / static_cast<double>(len);
    *mean = {static_cast<float>(sums.lane[0] * reciprocal), static_cast<float>(sums.lane[1] * reciprocal)};
};
constexpr auto mean32fcLong = [](const Zel32fc* x, Zel32fc* mean, ZelSize len, int hint) {
    const TwoSums sums = sumsByHint(&x->re, len, 2, hint);
    const float reciprocal = 1.0f / static_cast<float>(len);
    *mean = {static_cast<float>(sums.lane[0]) * reciprocal, static_cast<float>(sums.lane[1]) * reciprocal};
};
constexpr auto mean64f = [](const Zel64f* x, Zel64f* mean, ZelSize len) {
    const TwoSums sums = doubleSums(x, len, behind(0, 16) == 8);
    *mean = (sums.lane[0] + sums.lane[1]) / static_cast<double>(len);
};
constexpr auto mean64fc = [](const Zel64fc* x, Zel64fc* mean, ZelSize len) {
    const TwoSums sums = doubleSums(&x->re, 2 * len, false);
    const double reciprocal = 1.0 / static_cast<double>(len);
    *mean = {sums.lane[0] * reciprocal, sums.lane[1] * reciprocal};
};

/// 2^-scaleFactor: 0 from 1023 on, infinity from -1024 on.
double multiplier(int scaleFactor)
{
    return scaleFactor >= 1023 ? 0 : scaleFactor <= -1024 ? INFINITY : std::ldexp(1.0, -scaleFactor);
}

Zel16s converted(double value)
{
    return std::isnan(value) ? Zel16s{0} // 0 stays 0 under an infinite multiplier
                             : static_cast<Zel16s>(std::nearbyint(std::clamp(value, -32768.0, 32767.0)));
}

constexpr auto mean16s = [](const Zel16s* x, Zel16s* mean, ZelSize len, int scaleFactor) {
    double sum = 0;
    for (ZelSize i = 0; i < len; i++)
        sum += x[i];
    *mean = converted(sum / static_cast<double>(len) * multiplier(scaleFactor));
};
constexpr auto mean16sc = [](const Zel16sc* x, Zel16sc* mean, ZelSize len, int scaleFactor) {
    double re = 0;
    double im = 0;
    for (ZelSize i = 0; i < len; i++) {
        re += x[i].re;
        im += x[i].im;
    }
    const double scale = multiplier(scaleFactor);
    *mean = {converted(scale * re / static_cast<double>(len)),
             converted(scale * im / static_cast<double>(len))};
};

Wide dividedNear(Wide magnitude, Wide len)
{
    const Wide twice = 2 * (magnitude % len);
    const Wide quotient = magnitude / len;
    return quotient + (twice > len || (twice == len && quotient % 2 == 1));
}

constexpr auto mean32s = [](const Zel32s* x, Zel32s* mean, ZelSize len, int scaleFactor) {
    Wide sum = 0;
    for (ZelSize i = 0; i < len; i++)
        sum += x[i];
    const Wide magnitude = sum < 0 ? -sum : sum;
    const Wide sign = sum < 0 ? -1 : 1;
    const Wide q = dividedNear(magnitude, len);
    if (scaleFactor == 0) {
        *mean = static_cast<Zel32s>(sign * q);
    } else if (scaleFactor > 0) {
        const Wide unit = (q >> ((scaleFactor - 1) % 64)) % 2;
        *mean = static_cast<Zel32s>(sign * ((q + unit) >> (scaleFactor % 64)));
    } else if (scaleFactor >= -31) {
        const bool fits = sum == static_cast<Zel32s>(sum);
        const Wide value = fits ? dividedNear(magnitude << -scaleFactor, len) : q << -scaleFactor;
        *mean = support::saturated<Zel32s>(sign * value);
    } else {
        *mean = q == 0 ? 0 : sign > 0 ? INT32_MAX : INT32_MIN;
    }
};

} // namespace

TEST(Mean, roundsFloatsWhereEachFormDoes)
{
    constexpr Modes modes = Modes::rounding;
    for (const int hint : {0, 1}) {
        const SweepOptions options{.around = {32768}, .modes = modes, .repeats = 6};
        sweep<LengthIs::first>(mean32f, EXPORTS(zelsMean_32f), options, hint);
        sweep<LengthIs::first>(mean32fLong, EXPORTS(zelsMean_32f_L), options, hint);
        sweep<LengthIs::first>(mean32fc, EXPORTS(zelsMean_32fc), options, hint);
        sweep<LengthIs::first>(mean32fcLong, EXPORTS(zelsMean_32fc_L), options, hint);
    }
    sweep(mean64f, EXPORTS(zelsMean_64f, zelsMean_64f_L), {.modes = modes});
    sweep(mean64fc, EXPORTS(zelsMean_64fc, zelsMean_64fc_L), {.modes = modes});
}

TEST(Mean, averagesIntegers)
{
    for (const int factor : {0,   1,   2,   5,   15,   16,   20,   31,        32,    40,    63,       64,
                             65,  66,  127, 128, 1022, 1023, 5000, INT32_MAX, -1,    -2,    -5,       -15,
                             -16, -17, -30, -31, -32,  -33,  -64,  -1023,     -1024, -5000, INT32_MIN}) {
        const SweepOptions options{.modes = Modes::rounding, .repeats = 1};
        sweep<LengthIs::first>(mean16s, EXPORTS(zelsMean_16s_Sfs), options, factor);
        sweep<LengthIs::first>(mean16sc, EXPORTS(zelsMean_16sc_Sfs), options, factor);
        sweep<LengthIs::first>(mean32s, EXPORTS(zelsMean_32s_Sfs), options, factor);
        // Small means, ties among them.
        const SweepOptions small{.values = {.low = -40, .high = 40, .only = true}, .repeats = 1};
        sweep<LengthIs::first>(mean16s, EXPORTS(zelsMean_16s_Sfs), small, factor);
        sweep<LengthIs::first>(mean32s, EXPORTS(zelsMean_32s_Sfs), small, factor);
    }
}

TEST(Mean, scalesMeansOf32BitsByTheUnitBelow)
{
    const auto mean = [](Zel32s x, int scaleFactor) {
        Zel32s result{};
        EXPECT_EQ(zelsMean_32s_Sfs(&x, 1, &result, scaleFactor), zelStatusOk);
        return result;
    };
    EXPECT_EQ(mean(6, 2), 1);
    EXPECT_EQ(mean(7, 2), 2);
    EXPECT_EQ(mean(-7, 2), -2);
    EXPECT_EQ(mean(1234567, 64), 1234567);
    EXPECT_EQ(mean(1, -32), INT32_MAX);
    EXPECT_EQ(mean(-1, -32), INT32_MIN);
    EXPECT_EQ(mean(0, -32), 0);
    // The fraction of a mean survives a factor below 0: 1/3 * 2^31.
    const Zel32s third[]{1, 0, 0};
    Zel32s result{};
    ASSERT_EQ(zelsMean_32s_Sfs(third, 3, &result, -31), zelStatusOk);
    EXPECT_EQ(result, 715827883);
}

TEST(Mean, refusesBadArguments)
{
    badArguments<LengthIs::first>(EXPORTS(zelsMean_32f, zelsMean_32f_L, zelsMean_32fc, zelsMean_32fc_L,
                                          zelsMean_64f, zelsMean_64f_L, zelsMean_64fc, zelsMean_64fc_L,
                                          zelsMean_16s_Sfs, zelsMean_16sc_Sfs, zelsMean_32s_Sfs),
                                  pointersFirst);
}
