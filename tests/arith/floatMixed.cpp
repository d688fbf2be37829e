// Products of floats and constants that end in integers.
#include "support/test.h"

#include <climits>

namespace {

/// The product rounded to single precision by the caller's mode, then to an integer by the same mode. What 32 bits
/// cannot hold becomes the most negative integer and so -32768, positive or not.
Zel16s lowProduct(float x, float val)
{
    const float product = x * val;
    if (!(product > -2147483904.0f && product < 2147483648.0f))
        return -32768;
    return saturated<Zel16s>(static_cast<Wide>(std::nearbyintf(product)));
}

/// The constant scaled, but kept within the finite floats and away from 0; the product rounded to single precision by
/// the caller's mode; clamped; rounded to nearest.
Zel16s scaledProduct(float x, float val, int scaleFactor)
{
    using Limits = std::numeric_limits<float>;
    float factor = val;
    if (std::isfinite(val) && val != 0) {
        const long double size = std::fabs(scaledExactly(val, scaleFactor));
        factor = std::copysign(static_cast<float>(static_cast<double>(
                                   std::clamp<long double>(size, Limits::denorm_min(), Limits::max()))),
                               val);
    }
    const float product = x * factor;
    return std::isnan(product) ? Zel16s{-32768}
                               : static_cast<Zel16s>(toNearest(std::clamp(product, -32768.0f, 32767.0f)));
}

/// In double precision, by the caller's mode; then to nearest. 0 stays 0 by any constant, other NaN products give 0.
Zel64s scaledProduct64(Zel64s x, double val, int scaleFactor)
{
    const double product = static_cast<double>(x) * std::ldexp(val, -std::clamp(scaleFactor, -5000, 5000));
    if (x == 0 || std::isnan(product))
        return 0;
    return std::fabs(product) >= 0x1p63 ? (product < 0 ? INT64_MIN : INT64_MAX)
                                        : static_cast<Zel64s>(toNearest(product));
}

constexpr Modes modes = Modes::rounding;

} // namespace

TEST(FloatMixed, multipliesWithoutClamp)
{
    for (const float val : {1.0f, 0.5f, -3.7f, 1e5f, 65536.0f, INFINITY})
        sweep(lowProduct, EXPORTS(zelsMulC_Low_32f16s), {.modes = modes, .repeats = 1}, val);

    const float values[]{40000, -40000, 2147483520.0f, 2147483648.0f, 3e9f, -3e9f, 0.5f, 1.5f};
    const Zel16s expected[]{32767, -32768, 32767, -32768, -32768, -32768, 0, 2};
    for (int i = 0; i < 8; i++) {
        Zel16s result = 0;
        ASSERT_EQ(zelsMulC_Low_32f16s(values + i, 1, &result, 1), zelStatusOk);
        EXPECT_EQ(result, expected[i]) << values[i];
    }
}

TEST(FloatMixed, multipliesAndScalesTo16s)
{
    for (const float val : {1.0f, -0.75f, 0x1.8p100f})
        for (const int scaleFactor :
             {0, 1, -1, 5, -15, 16, 100, -100, 120, 160, -200, 300, -300, INT_MAX, INT_MIN})
            sweep(scaledProduct, EXPORTS(zelsMulC_32f16s_Sfs),
                  {.lengths = {}, .modes = modes, .modelToNearest = true, .repeats = 1}, val, scaleFactor);
    sweep(scaledProduct, EXPORTS(zelsMulC_32f16s_Sfs),
          {.modes = modes, .modelToNearest = true, .fills = fillBit(Fill::ties)}, 0.5f, 1);
    sweep(scaledProduct, EXPORTS(zelsMulC_32f16s_Sfs), {.modes = modes, .modelToNearest = true}, INFINITY, 1);

    // By a constant that leaves the range of a float upwards all but 0 saturates, downwards infinities alone.
    const float values[]{0, -0.0f, 1, -1e-20f, INFINITY};
    const Zel16s up[]{0, 0, 32767, -32768, 32767};
    const Zel16s down[]{0, 0, 0, 0, 32767};
    for (const int scaleFactor : {-200, INT_MIN, 200, INT_MAX}) {
        Zel16s results[5];
        ASSERT_EQ(zelsMulC_32f16s_Sfs(values, 3, results, 5, scaleFactor), zelStatusOk);
        for (int i = 0; i < 5; i++)
            EXPECT_EQ(results[i], (scaleFactor < 0 ? up : down)[i]) << values[i];
    }
}

TEST(FloatMixed, multipliesAndScales64s)
{
    for (const double val : {1.0, -0.3, 0x1p-1074, 0x1.8p1000, 0.0, double{INFINITY}, double{NAN}})
        for (const int scaleFactor : {0, 1, -1, 62, 64, -64, 1000, -1074, -1100, 2200, INT_MAX, INT_MIN})
            sweep(scaledProduct64, EXPORTS(zelsMulC_64f64s_ISfs),
                  {.lengths = {}, .modes = modes, .repeats = 1}, val, scaleFactor);
}

TEST(FloatMixed, roundsToNearestInEachCallersMode)
{
    const float values[]{0.5f, 1.5f, 2.5f, -0.5f, -1.5f, 0.75f, -0.25f, 32766.5f, 32767.5f, -32768.5f};
    const Zel16s expected[]{0, 2, 2, 0, -2, 1, 0, 32766, 32767, -32768};
    for (const unsigned mode : roundingModes) {
        const FloatMode callers(mode);
        Zel16s results[10];
        ASSERT_EQ(zelsMulC_32f16s_Sfs(values, 4, results, 10, 2), zelStatusOk);
        for (int i = 0; i < 10; i++)
            EXPECT_EQ(results[i], expected[i]) << values[i] << ", mode " << modeName(mode);
        EXPECT_EQ(currentMode(), mode);
    }
}

TEST(FloatMixed, refusesBadArguments)
{
    badArguments(EXPORTS(zelsMulC_Low_32f16s, zelsMulC_32f16s_Sfs, zelsMulC_64f64s_ISfs), pointersFirst);
}
