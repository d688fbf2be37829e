// Norms: floats within the error of their sums, 16-bit data exactly, scaling without rounding.
#include "support/test.h"

namespace {

using support::Wide;

/// The kinds of norm: each takes magnitudes one after the other.
struct Inf {
    static long double with(long double norm, long double magnitude) { return std::max(norm, magnitude); }
    static long double last(long double norm) { return norm; }
};
struct L1 {
    static long double with(long double norm, long double magnitude) { return norm + magnitude; }
    static long double last(long double norm) { return norm; }
};
struct L2 {
    static long double with(long double norm, long double magnitude) { return norm + magnitude * magnitude; }
    static long double last(long double norm) { return std::sqrt(norm); }
};

template <class T>
long double magnitude(T x)
{
    if constexpr (support::Complex<T>)
        return std::hypot(static_cast<long double>(x.re), static_cast<long double>(x.im));
    else
        return std::fabs(static_cast<long double>(x));
}

/// All terms are positive, so that the error of a sum is half a unit for each addition in a row: a quarter of a block of
/// 16,384 elements, or of what there is.
template <class Norm, class R>
Within within(long double sum, ZelSize len)
{
    const long double norm = Norm::last(sum);
    const long double ulps =
        std::is_same_v<Norm, Inf> ? 1 : 2 + static_cast<long double>(std::min<ZelSize>(len, 16384)) / 8;
    const long double underflow = std::sqrt(std::numeric_limits<R>::min()); // of squares
    return {norm, norm * ulps * std::numeric_limits<R>::epsilon() + underflow};
}

template <class Norm, class R>
constexpr auto norm = [](const auto* x, Within* result, ZelSize len) {
    long double sum = 0;
    for (ZelSize i = 0; i < len; i++)
        sum = Norm::with(sum, magnitude(x[i]));
    *result = within<Norm, R>(sum, len);
};
/// The difference is formed in the element type.
template <class Norm, class R>
constexpr auto normDiff = [](const auto* x, const auto* y, Within* result, ZelSize len) {
    using T = std::remove_const_t<std::remove_reference_t<decltype(*x)>>;
    long double sum = 0;
    for (ZelSize i = 0; i < len; i++)
        sum = Norm::with(sum, magnitude(static_cast<T>(x[i] - y[i])));
    *result = within<Norm, R>(sum, len);
};

const SweepOptions floats{
    .around = {16384}, .fills = support::tameFills, .values = {.low = -1e4, .high = 1e4, .only = true}};

// 16-bit data.

enum Kind { inf, l1, squares };

template <Kind kind>
Wide with(Wide norm, Wide x)
{
    const Wide m = x < 0 ? -x : x;
    return kind == inf ? std::max(norm, m) : kind == l1 ? norm + m : norm + m * m;
}

template <Kind kind>
Wide exact(const Zel16s* x, ZelSize len)
{
    Wide norm = 0;
    for (ZelSize i = 0; i < len; i++)
        norm = with<kind>(norm, x[i]);
    return norm;
}
template <Kind kind>
Wide exactDiff(const Zel16s* x, const Zel16s* y, ZelSize len)
{
    Wide norm = 0;
    for (ZelSize i = 0; i < len; i++)
        norm = with<kind>(norm, x[i] - y[i]);
    return norm;
}

/// Shifted without rounding, limited; factor 0 keeps the low bits.
template <class R>
R shifted(Wide norm, int scaleFactor)
{
    const Wide most = std::numeric_limits<R>::max();
    if (scaleFactor == 0)
        return static_cast<R>(norm);
    const Wide value = scaleFactor > 0 ? norm >> std::min(scaleFactor, 100)
                                       : norm << std::min(-std::max(scaleFactor, -63), 63);
    return static_cast<R>(std::min(value, most));
}

Zel32s scaledRoot(Wide sum, int scaleFactor)
{
    const double root = std::sqrt(static_cast<double>(static_cast<Zel64s>(sum)));
    const auto magnitude = static_cast<Zel64u>(std::llabs(static_cast<long long>(scaleFactor)));
    const Zel64s power = magnitude % 32 == 31 ? Zel64s{INT32_MIN} : Zel64s{1} << magnitude % 32;
    const double value =
        scaleFactor < 1 ? root * static_cast<double>(power) : root / static_cast<double>(power);
    return static_cast<Zel32s>(std::nearbyint(std::clamp(value, -2147483648.0, 2147483647.0)));
}

template <Kind kind>
constexpr auto shiftedNorm = [](const Zel16s* x, auto* result, ZelSize len, int scaleFactor) {
    *result = shifted<std::remove_reference_t<decltype(*result)>>(exact<kind>(x, len), scaleFactor);
};
template <Kind kind>
constexpr auto shiftedNormDiff = [](const Zel16s* x, const Zel16s* y, auto* result, ZelSize len,
                                    int scaleFactor) {
    *result = shifted<std::remove_reference_t<decltype(*result)>>(exactDiff<kind>(x, y, len), scaleFactor);
};
constexpr auto root = [](const Zel16s* x, Zel32s* result, ZelSize len, int scaleFactor) {
    *result = scaledRoot(exact<squares>(x, len), scaleFactor);
};
constexpr auto rootDiff = [](const Zel16s* x, const Zel16s* y, Zel32s* result, ZelSize len, int scaleFactor) {
    *result = scaledRoot(exactDiff<squares>(x, y, len), scaleFactor);
};
template <Kind kind>
constexpr auto asFloat = [](const Zel16s* x, Zel32f* result, ZelSize len) {
    const auto norm = static_cast<Zel64s>(exact<kind>(x, len));
    *result =
        kind == squares ? static_cast<float>(std::sqrt(static_cast<double>(norm))) : static_cast<float>(norm);
};
template <Kind kind>
constexpr auto asFloatDiff = [](const Zel16s* x, const Zel16s* y, Zel32f* result, ZelSize len) {
    const auto norm = static_cast<Zel64s>(exactDiff<kind>(x, y, len));
    *result =
        kind == squares ? static_cast<float>(std::sqrt(static_cast<double>(norm))) : static_cast<float>(norm);
};

} // namespace

TEST(Norm, ofFloats)
{
    sweep(norm<Inf, float>, EXPORTS(zelsNorm_Inf_32f, zelsNorm_Inf_32fc32f), floats);
    sweep(norm<Inf, double>, EXPORTS(zelsNorm_Inf_64f, zelsNorm_Inf_64fc64f), floats);
    sweep(norm<L1, float>, EXPORTS(zelsNorm_L1_32f), floats);
    sweep(norm<L1, double>, EXPORTS(zelsNorm_L1_32fc64f, zelsNorm_L1_64f, zelsNorm_L1_64fc64f), floats);
    sweep(norm<L2, float>, EXPORTS(zelsNorm_L2_32f, zelsNorm_L2_32f_L), floats);
    sweep(norm<L2, double>,
          EXPORTS(zelsNorm_L2_32fc64f, zelsNorm_L2_32fc64f_L, zelsNorm_L2_64f, zelsNorm_L2_64f_L,
                  zelsNorm_L2_64fc64f, zelsNorm_L2_64fc64f_L),
          floats);
}

TEST(Norm, ofFloatDifferences)
{
    sweep(normDiff<Inf, float>, EXPORTS(zelsNormDiff_Inf_32f, zelsNormDiff_Inf_32fc32f), floats);
    sweep(normDiff<Inf, double>, EXPORTS(zelsNormDiff_Inf_64f, zelsNormDiff_Inf_64fc64f), floats);
    sweep(normDiff<L1, float>, EXPORTS(zelsNormDiff_L1_32f), floats);
    sweep(normDiff<L1, double>,
          EXPORTS(zelsNormDiff_L1_32fc64f, zelsNormDiff_L1_64f, zelsNormDiff_L1_64fc64f), floats);
    sweep(normDiff<L2, float>, EXPORTS(zelsNormDiff_L2_32f), floats);
    sweep(normDiff<L2, double>,
          EXPORTS(zelsNormDiff_L2_32fc64f, zelsNormDiff_L2_64f, zelsNormDiff_L2_64fc64f), floats);
}

TEST(Norm, keepsNaNsApart)
{
    const float x[]{1, NAN, -3, 2, NAN};
    float value{};
    ASSERT_EQ(zelsNorm_Inf_32f(x, 5, &value), zelStatusOk);
    EXPECT_EQ(value, 3);
    ASSERT_EQ(zelsNorm_L1_32f(x, 5, &value), zelStatusOk);
    EXPECT_TRUE(std::isnan(value));
    ASSERT_EQ(zelsNorm_L2_32f(x, 5, &value), zelStatusOk);
    EXPECT_TRUE(std::isnan(value));
}

TEST(Norm, of16BitData)
{
    const auto scaled = [](const SweepOptions& options, int factor) {
        constexpr auto first = LengthIs::first;
        sweep<first>(shiftedNorm<inf>, EXPORTS(zelsNorm_Inf_16s32s_Sfs), options, factor);
        sweep<first>(shiftedNorm<l1>, EXPORTS(zelsNorm_L1_16s32s_Sfs, zelsNorm_L1_16s64s_Sfs), options,
                     factor);
        sweep<first>(shiftedNorm<squares>, EXPORTS(zelsNorm_L2Sqr_16s64s_Sfs), options, factor);
        sweep<first>(root, EXPORTS(zelsNorm_L2_16s32s_Sfs), options, factor);
        sweep<first>(shiftedNormDiff<inf>, EXPORTS(zelsNormDiff_Inf_16s32s_Sfs), options, factor);
        sweep<first>(shiftedNormDiff<l1>, EXPORTS(zelsNormDiff_L1_16s32s_Sfs, zelsNormDiff_L1_16s64s_Sfs),
                     options, factor);
        sweep<first>(shiftedNormDiff<squares>, EXPORTS(zelsNormDiff_L2Sqr_16s64s_Sfs), options, factor);
        sweep<first>(rootDiff, EXPORTS(zelsNormDiff_L2_16s32s_Sfs), options, factor);
    };
    for (const int factor :
         {0,  1,  2,  7,   15,  16,  17,  30,  31,  32,  33,  47,  62,  63,        64,       65,
          -1, -2, -7, -15, -16, -17, -30, -31, -32, -33, -62, -63, -64, INT32_MAX, INT32_MIN})
        scaled({.lengths = {1000}, .modes = Modes::rounding, .repeats = 1}, factor);
    for (const int factor : {0, 3, -5}) // above 65,536 elements the sums are put together from blocks
        scaled({.around = {65536}, .repeats = 1}, factor);
    sweep(asFloat<inf>, EXPORTS(zelsNorm_Inf_16s32f));
    sweep(asFloat<l1>, EXPORTS(zelsNorm_L1_16s32f));
    sweep(asFloat<squares>, EXPORTS(zelsNorm_L2_16s32f));
    sweep(asFloatDiff<inf>, EXPORTS(zelsNormDiff_Inf_16s32f));
    sweep(asFloatDiff<l1>, EXPORTS(zelsNormDiff_L1_16s32f));
    sweep(asFloatDiff<squares>, EXPORTS(zelsNormDiff_L2_16s32f));
}

TEST(Norm, keepsLargestSumsExact)
{
    constexpr int n = 5 * 65536 + 3;
    const std::vector<Zel16s> low(n, -32768);
    const std::vector<Zel16s> high(n, 32767);
    Zel32s small{};
    Zel64s large{};
    ASSERT_EQ(zelsNorm_L1_16s32s_Sfs(low.data(), 65537, &small, 0), zelStatusOk);
    EXPECT_EQ(static_cast<Zel32u>(small), 2147516416u); // the low bits as they stand
    ASSERT_EQ(zelsNorm_L1_16s32s_Sfs(low.data(), 65537, &small, 1), zelStatusOk);
    EXPECT_EQ(small, 1073758208);
    ASSERT_EQ(zelsNormDiff_L1_16s64s_Sfs(low.data(), high.data(), n, &large, 0), zelStatusOk);
    EXPECT_EQ(large, Zel64s{65535} * n);
    ASSERT_EQ(zelsNorm_L2Sqr_16s64s_Sfs(low.data(), n, &large, 0), zelStatusOk);
    EXPECT_EQ(large, Zel64s{n} << 30);
    ASSERT_EQ(zelsNormDiff_L2Sqr_16s64s_Sfs(low.data(), high.data(), n, &large, 0), zelStatusOk);
    EXPECT_EQ(large, Zel64s{65535} * 65535 * n);
    ASSERT_EQ(zelsNorm_L2Sqr_16s64s_Sfs(low.data(), 1, &large, -63), zelStatusOk);
    EXPECT_EQ(large, INT64_MAX);
}

TEST(Norm, refusesBadArguments)
{
    badArguments<LengthIs::first>(
        EXPORTS(zelsNorm_Inf_16s32f, zelsNorm_Inf_16s32s_Sfs, zelsNorm_Inf_32f, zelsNorm_Inf_32fc32f,
                zelsNorm_Inf_64f, zelsNorm_Inf_64fc64f, zelsNorm_L1_16s32f, zelsNorm_L1_16s32s_Sfs,
                zelsNorm_L1_16s64s_Sfs, zelsNorm_L1_32f, zelsNorm_L1_32fc64f, zelsNorm_L1_64f,
                zelsNorm_L1_64fc64f, zelsNorm_L2_16s32f, zelsNorm_L2_16s32s_Sfs, zelsNorm_L2Sqr_16s64s_Sfs,
                zelsNorm_L2_32f, zelsNorm_L2_32f_L, zelsNorm_L2_32fc64f, zelsNorm_L2_32fc64f_L,
                zelsNorm_L2_64f, zelsNorm_L2_64f_L, zelsNorm_L2_64fc64f, zelsNorm_L2_64fc64f_L),
        pointersFirst);
    badArguments<LengthIs::first>(
        EXPORTS(zelsNormDiff_Inf_16s32f, zelsNormDiff_Inf_16s32s_Sfs, zelsNormDiff_Inf_32f,
                zelsNormDiff_Inf_32fc32f, zelsNormDiff_Inf_64f, zelsNormDiff_Inf_64fc64f,
                zelsNormDiff_L1_16s32f, zelsNormDiff_L1_16s32s_Sfs, zelsNormDiff_L1_16s64s_Sfs,
                zelsNormDiff_L1_32f, zelsNormDiff_L1_32fc64f, zelsNormDiff_L1_64f, zelsNormDiff_L1_64fc64f,
                zelsNormDiff_L2_16s32f, zelsNormDiff_L2_16s32s_Sfs, zelsNormDiff_L2Sqr_16s64s_Sfs,
                zelsNormDiff_L2_32f, zelsNormDiff_L2_32fc64f, zelsNormDiff_L2_64f, zelsNormDiff_L2_64fc64f),
        pointersFirst);
}
