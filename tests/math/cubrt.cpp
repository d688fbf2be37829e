// Cube roots.
#include "math/accuracy.h"
#include "math/fixedTools.h"

TEST(Cubrt, badArguments)
{
    badArguments(EXPORTS(zelsCubrt_32f, zelsCubrt_32s16s_Sfs), pointersFirst);
}

TEST(Cubrt, rootsOfFloats)
{
    constexpr auto exact = [](Zel32f x) { return std::cbrt(static_cast<long double>(x)); };
    sweep(exact, EXPORTS(zelsCubrt_32f), {.ulps = boundOf("cubrt", 0.0f).nearest});
}

TEST(Cubrt, ofCubesExact)
{
    std::vector<Zel32f> cubes, roots(511);
    for (int n = -255; n <= 255; n++)
        cubes.push_back(static_cast<Zel32f>(n * n * n));
    for (const unsigned mode : roundingModes) {
        const FloatMode callers(mode);
        zelsCubrt_32f(cubes.data(), roots.data(), 511);
        for (int n = -255; n <= 255; n++)
            EXPECT_EQ(roots[static_cast<std::size_t>(n + 255)], n) << modeName(mode);
    }
}

TEST(Cubrt, ofIntegers)
{
    // The element as a float in the caller's mode, its root in single precision, scaled and rounded to nearest.
    constexpr auto model = [](Zel32s x, int scaleFactor) {
        const auto rounded = static_cast<Zel32f>(x);
        const long double value = scaledExactly(std::cbrt(static_cast<long double>(rounded)), scaleFactor);
        const long double most = value < 0 ? 32768 : 32767;
        const long double bounded = std::clamp(value, -32768.0L, 32767.0L);
        return Within{bounded, std::fabs(value) < most ? 0.5L + std::fabs(value) * 1.5e-7L : 0};
    };
    for (const int factor : {0, 1, 5, 40, -1, -4, -5, -16, -300, INT32_MAX, INT32_MIN})
        sweep(model, EXPORTS(zelsCubrt_32s16s_Sfs), {.modes = Modes::rounding}, factor);
    // Ties go to the even neighbour: half of 1, 3, 5.
    const Zel32s cubes[]{1, 27, 125, -27, -125, 0};
    Zel16s roots[6];
    ASSERT_EQ(zelsCubrt_32s16s_Sfs(cubes, roots, 6, 1), zelStatusOk);
    const Zel16s expected[]{0, 2, 2, -2, -2, 0};
    EXPECT_EQ(std::memcmp(roots, expected, sizeof roots), 0);
}
