// Square roots.
#include "math/accuracy.h"
#include "math/fixedTools.h"

namespace {

template <class T>
WithStatus<T> root(T x)
{
    return {std::sqrt(x), x < 0 ? zelWarnSqrtNegative : zelStatusOk};
}
constexpr auto rootOf = [](auto x) { return root(x); };

struct WideComplex {
    long double re, im;
};
constexpr auto principalRoot = [](auto z) {
    const std::complex<long double> root = std::sqrt(std::complex<long double>(z.re, z.im));
    return WideComplex{root.real(), root.imag()};
};

constexpr auto fixedRoot = []<class T>(T x, int scaleFactor) { return scaledRoot<T>(x, scaleFactor); };
constexpr auto fixedRoot16 = [](Zel32s x, int scaleFactor) { return scaledRoot<Zel16s>(x, scaleFactor); };

/// As fixedRoot, with the status; a factor that makes all results 0 reads nothing.
template <int clearsFrom>
struct SignedRoot {
    template <class S>
    WithStatus<Zel16s> operator()(S x, int scaleFactor) const
    {
        return {scaledRoot<Zel16s>(x, scaleFactor),
                x < 0 && scaleFactor < clearsFrom ? zelWarnSqrtNegative : zelStatusOk};
    }
};

/// The larger part from the sum, the smaller one by the product of both, so that nothing cancels.
constexpr auto fixedComplexRoot = [](Zel16sc z, int scaleFactor) {
    const long double x = z.re;
    const long double y = z.im;
    const long double t = std::sqrt((std::fabs(x) + std::sqrt(x * x + y * y)) / 2);
    const long double other = t == 0 ? 0 : std::fabs(y) / (2 * t);
    const auto part = [&](long double value) {
        return static_cast<Zel16s>(
            toNearest(std::clamp(scaledExactly(value, scaleFactor), -32768.0L, 32767.0L)));
    };
    return Zel16sc{part(x < 0 ? other : t), part(std::copysign(x < 0 ? t : other, y))};
};

/// The integers around each square and between squares, and some that single precision cannot tell from a square.
std::vector<Zel32s> aroundSquares()
{
    std::vector<Zel32s> list{0, INT32_MAX, INT32_MAX - 1, INT32_MIN, -1};
    Random random("aroundSquares");
    for (Zel64s r = 1; r <= 46341; r++)
        for (const Zel64s n : {r * r - 1, r * r, r * r + 1, r * r + r, r * r + r + 1,
                               r * r + static_cast<Zel64s>(random.below(801)) - 400})
            if (n <= INT32_MAX)
                list.push_back(static_cast<Zel32s>(n));
    return list;
}

/// Squares of Gaussian integers, whose roots tie where they are halved, and arguments of all kinds.
std::vector<Zel16sc> complexArguments()
{
    std::vector<Zel16sc> list;
    for (int a = 0; a <= 181; a++)
        for (int b = -180; b <= 180; b++) {
            const int re = a * a - b * b;
            const int im = 2 * a * b;
            if (im >= -32768 && im <= 32767)
                list.push_back({static_cast<Zel16s>(re), static_cast<Zel16s>(im)});
        }
    for (const Zel16s re : tellingParts())
        for (const Zel16s im : tellingParts())
            list.push_back({re, im});
    Random random("complexArguments");
    for (int i = 0; i < 50000; i++)
        list.push_back({static_cast<Zel16s>(random.bits()), static_cast<Zel16s>(random.bits())});
    return list;
}

} // namespace

TEST(Sqrt, rootsOfFloats)
{
    sweep(rootOf, EXPORTS(zelsSqrt_32f, zelsSqrt_32f_I, zelsSqrt_64f, zelsSqrt_64f_I),
          {.modes = Modes::roundingAndFlush});
}

TEST(Sqrt, warnsOfANegativeElementWhereverItStands)
{
    const Zel32f values[]{4, -1};
    Zel32f roots[2];
    EXPECT_EQ(zelsSqrt_32f(values, roots, 2), zelWarnSqrtNegative);
    EXPECT_EQ(roots[0], 2);
    EXPECT_TRUE(std::isnan(roots[1]));
    for (int at = 0; at < 37; at++) {
        std::vector<Zel32f> x(37, 9), result(37);
        std::vector<Zel16s> fixed(37, 9), fixedResult(37);
        for (const Zel32f harmless : {-0.0f, NAN, -NAN}) {
            x[static_cast<std::size_t>(at)] = harmless;
            EXPECT_EQ(zelsSqrt_32f(x.data(), result.data(), 37), zelStatusOk);
        }
        x[static_cast<std::size_t>(at)] = -INFINITY;
        fixed[static_cast<std::size_t>(at)] = -1;
        EXPECT_EQ(zelsSqrt_32f(x.data(), result.data(), 37), zelWarnSqrtNegative);
        EXPECT_EQ(zelsSqrt_16s_Sfs(fixed.data(), fixedResult.data(), 37, 0), zelWarnSqrtNegative);
        for (int i = 0; i < 37; i++) {
            EXPECT_TRUE(i == at || result[static_cast<std::size_t>(i)] == 3);
            EXPECT_EQ(fixedResult[static_cast<std::size_t>(i)], i == at ? 0 : 3);
        }
    }
}

TEST(Sqrt, principalRootsOfComplexFloats)
{
    constexpr ErrorBound bound32 = boundOf("Sqrt", Zel32f{});
    constexpr ErrorBound bound64 = boundOf("Sqrt", Zel64f{});
    sweep(principalRoot, EXPORTS(zelsSqrt_32fc_I, zelsSqrt_32fc), {.ulps = bound32.nearest});
    sweep(principalRoot, EXPORTS(zelsSqrt_64fc_I, zelsSqrt_64fc), {.ulps = bound64.nearest});
    sweep(principalRoot, EXPORTS(zelsSqrt_32fc), {.ulps = bound32.directed, .modes = Modes::rounding});
    sweep(principalRoot, EXPORTS(zelsSqrt_64fc), {.ulps = bound64.directed, .modes = Modes::rounding});
}

TEST(Sqrt, specialComplexValues)
{
    const double values[]{0.0, -0.0, 1, -1, 5e-324, 1e308, -1.7e308, INFINITY, -INFINITY, NAN};
    for (const double re : values)
        for (const double im : values) {
            const Zel64fc z{re, im};
            const Zel64fc both[]{{3, 4}, z};
            Zel64fc found[2];
            for (const unsigned mode : roundingModes) {
                const FloatMode callers(mode);
                ASSERT_EQ(zelsSqrt_64fc(both, found, 2), zelStatusOk);
                EXPECT_TRUE(!std::signbit(found[1].re) || std::isnan(found[1].re)) << re << ", " << im;
            }
            const std::complex<double> expected = std::sqrt(std::complex<double>(re, im));
            const auto same = [](double a, double b) {
                return std::isnan(b) ? std::isnan(a)
                                     : std::signbit(a) == std::signbit(b) &&
                                           (a == b || std::fabs(a - b) <= 4 * DBL_EPSILON * std::fabs(b));
            };
            // The standard leaves open the sign of an infinity beside a NaN.
            const bool open = std::isinf(expected.imag()) && std::isnan(im);
            EXPECT_TRUE(same(found[1].re, expected.real()) &&
                        (open ? std::isinf(found[1].im) : same(found[1].im, expected.imag())))
                << re << ", " << im << " gives " << found[1].re << ", " << found[1].im;
            EXPECT_TRUE(found[0].re == 2 && found[0].im == 1);
            const Zel32fc narrow{static_cast<float>(re), static_cast<float>(im)};
            if ((std::isfinite(re) && std::isfinite(im)) || std::isfinite(narrow.re) != std::isfinite(re) ||
                std::isfinite(narrow.im) != std::isfinite(im))
                continue;
            Zel32fc narrowFound;
            ASSERT_EQ(zelsSqrt_32fc(&narrow, &narrowFound, 1), zelStatusOk);
            EXPECT_TRUE(same(narrowFound.re, expected.real()) || std::isfinite(expected.real()));
            EXPECT_EQ(std::isnan(narrowFound.im), std::isnan(found[1].im));
        }
}

TEST(Sqrt, all16BitInputsByEveryFactor)
{
    checkFactors<Zel8u>(fixedRoot, EXPORTS(zelsSqrt_8u_Sfs), factors(-9, 6), everyValue<Zel8u>());
    checkFactors<Zel16u>(fixedRoot, EXPORTS(zelsSqrt_16u_Sfs), factors(-17, 10), everyValue<Zel16u>());
    checkFactors<Zel16s>(fixedRoot, EXPORTS(zelsSqrt_16s_Sfs), factors(-16, 10), everyValue<Zel16s>());
    checkFactors<Zel16s>(fixedRoot16, EXPORTS(zelsSqrt_32s16s_Sfs), factors(-16, 18), aroundSquares());
    checkFactors<Zel16sc>(fixedComplexRoot, EXPORTS(zelsSqrt_16sc_Sfs), factors(-25, 10), complexArguments());
}

TEST(Sqrt, everyLengthAndAlignment)
{
    for (const int s : {0, 1, 4, 8, 9, 17, -5, -40}) {
        const SweepOptions options{.lengths = {257}, .repeats = 1};
        sweep(fixedRoot, EXPORTS(zelsSqrt_8u_Sfs, zelsSqrt_8u_ISfs, zelsSqrt_16u_Sfs, zelsSqrt_16u_ISfs),
              options, s);
        sweep(SignedRoot<9>{}, EXPORTS(zelsSqrt_16s_Sfs, zelsSqrt_16s_ISfs), options, s);
        sweep(SignedRoot<17>{}, EXPORTS(zelsSqrt_32s16s_Sfs), options, s);
        sweep(fixedComplexRoot, EXPORTS(zelsSqrt_16sc_Sfs, zelsSqrt_16sc_ISfs), options, s);
    }
}

/// A minute: one real part in 61 with every imaginary one, where ties are and where the results are largest.
TEST(Sqrt, ExhaustiveComplexArgumentsOf16Bits)
{
    std::vector<Zel16sc> row(65536);
    for (int re = -32768; re <= 32767; re += 61) {
        for (int im = -32768; im <= 32767; im++)
            row[static_cast<std::size_t>(im + 32768)] = {static_cast<Zel16s>(re), static_cast<Zel16s>(im)};
        checkFactors<Zel16sc>(fixedComplexRoot, EXPORTS(zelsSqrt_16sc_Sfs), {2, 1, 0, -4, -7}, row);
        if (HasFatalFailure())
            return;
    }
}

TEST(Sqrt, refusesBadArguments)
{
    badArguments(EXPORTS(zelsSqrt_32f, zelsSqrt_32f_I, zelsSqrt_64f, zelsSqrt_64f_I, zelsSqrt_32fc,
                         zelsSqrt_32fc_I, zelsSqrt_64fc, zelsSqrt_64fc_I, zelsSqrt_8u_Sfs, zelsSqrt_8u_ISfs,
                         zelsSqrt_16u_Sfs, zelsSqrt_16u_ISfs, zelsSqrt_16s_Sfs, zelsSqrt_16s_ISfs,
                         zelsSqrt_16sc_Sfs, zelsSqrt_16sc_ISfs, zelsSqrt_32s16s_Sfs),
                 pointersFirst);
}
