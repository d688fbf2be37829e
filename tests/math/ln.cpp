// Natural logarithms.
#include "math/accuracy.h"
#include "math/fixedTools.h"

namespace {

constexpr ZelStatus warningOf(auto x)
{
    return x == 0 ? zelWarnLnZero : x < 0 ? zelWarnLnNegative : zelStatusOk;
}
constexpr auto exact = [](auto x) { return WithStatus{std::log(static_cast<long double>(x)), warningOf(x)}; };

/// Whether an integer logarithm is right: to the nearest where steps and tables give it, within what single precision
/// may turn it otherwise.
template <class T>
bool isRight(T x, T result, int scaleFactor)
{
    using Limits = std::numeric_limits<T>;
    if (x < 1)
        return result == Limits::min();
    const long double ln = std::log(static_cast<long double>(x));
    if (sizeof(T) == 4 && scaleFactor >= 0)
        return result == static_cast<T>(std::rint(ln)) >> (scaleFactor & 31);
    const long double value = scaledExactly(ln, scaleFactor);
    const bool precise = sizeof(T) == 2 && (scaleFactor >= 0 || scaleFactor < -13);
    const long double slack = precise ? 0 : value * 2e-7L;
    constexpr long double most = Limits::max();
    return std::fabs(static_cast<long double>(result) - std::min(value, most)) <=
           (value < most ? 0.5L : 0) + slack;
}

template <class T, class F>
void checkAll(F function, const std::vector<T>& x, int lowest, int highest)
{
    std::vector<T> result(x.size());
    for (const unsigned mode : roundingModes)
        for (const int s : factors(lowest, highest)) {
            {
                const FloatMode callers(mode);
                function(x.data(), result.data(), static_cast<int>(x.size()), s);
            }
            for (std::size_t i = 0; i < x.size(); i++)
                ASSERT_TRUE(isRight(x[i], result[i], s))
                    << x[i] << " by " << s << " gives " << result[i] << ", " << modeName(mode);
        }
}

/// The integers around each step of the logarithm, around the powers of two, and others.
std::vector<Zel32s> tellingIntegers()
{
    std::vector<Zel32s> list{INT32_MIN, -1, 0};
    const auto around = [&](long double middle) {
        for (int i = -2; i <= 2; i++)
            if (middle + i >= 1 && middle + i <= INT32_MAX)
                list.push_back(static_cast<Zel32s>(middle + i));
    };
    for (int n = 0; n <= 21; n++)
        around(std::exp(n + 0.5L));
    for (int bit = 0; bit <= 31; bit++)
        around(std::ldexp(1.0L, bit));
    Random random("tellingIntegers");
    for (int i = 0; i < 500; i++)
        list.push_back(static_cast<Zel32s>(random.bits() & 0x7fffffff) >> random.below(30));
    return list;
}

template <class T>
ZelStatus statusOf(ZelStatus (*function)(const T*, T*, int, int), std::vector<T> x)
{
    std::vector<T> y(x.size());
    return function(x.data(), y.data(), static_cast<int>(x.size()), 0);
}

} // namespace

TEST(Ln, badArguments)
{
    badArguments(EXPORTS(zelsLn_32f, zelsLn_64f, zelsLn_32f_I, zelsLn_64f_I, zelsLn_16s_Sfs, zelsLn_32s_Sfs,
                         zelsLn_16s_ISfs, zelsLn_32s_ISfs),
                 pointersFirst);
}

TEST(Ln, logarithmsOfFloats)
{
    for (const Values values : {Values{}, Values{.low = 0.9, .high = 1.1, .only = true}}) {
        // A zero outranks a negative element, whichever is first.
        sweep(exact, EXPORTS(zelsLn_32f, zelsLn_32f_I),
              {.ulps = boundOf("ln", 0.0f).nearest, .lowestStatus = true, .values = values});
        sweep(exact, EXPORTS(zelsLn_64f, zelsLn_64f_I),
              {.ulps = boundOf("ln", 0.0).nearest, .lowestStatus = true, .values = values});
    }
}

TEST(Ln, warnsByRankInFloatsAndByPlaceInIntegers)
{
    const auto ofFloats = [](std::vector<Zel32f> x) {
        std::vector<Zel32f> y(x.size());
        return zelsLn_32f(x.data(), y.data(), static_cast<int>(x.size()));
    };
    EXPECT_EQ(ofFloats({-5, 0}), zelWarnLnZero);
    EXPECT_EQ(ofFloats({NAN, -NAN, INFINITY}), zelStatusOk);
    EXPECT_EQ(ofFloats({-0.0f}), zelWarnLnZero);
    EXPECT_EQ(ofFloats({1e-40f}), zelStatusOk);
    {
        const FloatMode flush(flushMode);
        EXPECT_EQ(ofFloats({1e-40f}), zelWarnLnZero);
    }
    for (std::size_t at = 0; at < 37; at++)
        for (std::size_t second = at + 1; second < 37; second += 5)
            for (const int factor : {0, 1, 9, -3, -14, -40}) {
                const auto check = [&](auto function, auto type) {
                    using T = decltype(type);
                    std::vector<T> x(37, 7), y(37);
                    x[at] = 0;
                    x[second] = -5;
                    EXPECT_EQ(function(x.data(), y.data(), 37, factor), zelWarnLnZero) << at;
                    std::swap(x[at], x[second]);
                    EXPECT_EQ(function(x.data(), y.data(), 37, factor), zelWarnLnNegative) << at;
                };
                check(zelsLn_16s_Sfs, Zel16s{});
                check(zelsLn_32s_Sfs, Zel32s{});
            }
    EXPECT_EQ(statusOf<Zel16s>(zelsLn_16s_Sfs, {1, 0, -5}), zelWarnLnZero);
    EXPECT_EQ(statusOf<Zel16s>(zelsLn_16s_Sfs, {-5, 0}), zelWarnLnNegative);
}

TEST(Ln, ofIntegersByEachFactor)
{
    checkAll<Zel32s>(zelsLn_32s_Sfs, tellingIntegers(), -140, 70);
    std::vector<Zel16s> some;
    for (const Zel32s x : tellingIntegers())
        some.push_back(static_cast<Zel16s>(std::clamp(x, -32768, 32767)));
    checkAll<Zel16s>(zelsLn_16s_Sfs, some, -40, 20);
    const Zel32s hundred[]{100, 600};
    Zel32s result[2];
    zelsLn_32s_Sfs(hundred, result, 2, 1);
    EXPECT_TRUE(result[0] == 2 && result[1] == 3); // 5 and 6, shifted
}

TEST(Ln, ExhaustiveIntegersOf16Bits)
{
    checkAll<Zel16s>(zelsLn_16s_Sfs, everyValue<Zel16s>(), -17, 6);
}

/// Lengths, places and in place: whatever the way, each result is that of the element alone.
TEST(Ln, ofIntegersInSweeps)
{
    const auto model = []<class T>(T x, int scaleFactor) {
        T result;
        if constexpr (sizeof(T) == 2)
            zelsLn_16s_Sfs(&x, &result, 1, scaleFactor);
        else
            zelsLn_32s_Sfs(&x, &result, 1, scaleFactor);
        return WithStatus<T>{result, warningOf(x)};
    };
    for (const int factor : {0, 2, 7, -9, -14}) {
        sweep(model, EXPORTS(zelsLn_16s_Sfs, zelsLn_16s_ISfs), factor);
        sweep(model, EXPORTS(zelsLn_32s_Sfs, zelsLn_32s_ISfs), factor);
    }
}
