// Exponentials.
#include "math/accuracy.h"
#include "math/fixedTools.h"

namespace {

/// floor(exp(x) * 2^-s + 1/2), saturated, the scale factor taken modulo 128 towards 0.
constexpr auto fixedExp = []<class T>(T x, int scaleFactor) {
    const long double value = scaledExactly(std::exp(static_cast<long double>(x)), scaleFactor % 128);
    constexpr long double most = std::numeric_limits<T>::max();
    return static_cast<T>(std::min(std::floor(value + 0.5L), most));
};

/// All arguments that make a difference with any factor, and the limits.
template <class T>
std::vector<T> tellingArguments()
{
    using Limits = std::numeric_limits<T>;
    std::vector<T> list{Limits::min(), Limits::max(), 1000, -1000};
    for (int x = -130; x <= 130; x++)
        list.push_back(static_cast<T>(x));
    return list;
}

} // namespace

TEST(Exp, badArguments)
{
    badArguments(EXPORTS(zelsExp_32f, zelsExp_64f, zelsExp_32f_I, zelsExp_64f_I, zelsExp_16s_Sfs,
                         zelsExp_32s_Sfs, zelsExp_16s_ISfs, zelsExp_32s_ISfs),
                 pointersFirst);
}

TEST(Exp, exponentialsOfFloats)
{
    constexpr auto exact = [](auto x) { return std::exp(static_cast<long double>(x)); };
    sweep(exact, EXPORTS(zelsExp_32f, zelsExp_32f_I), {.ulps = boundOf("exp", 0.0f).nearest});
    sweep(exact, EXPORTS(zelsExp_64f, zelsExp_64f_I), {.ulps = boundOf("exp", 0.0).nearest});
}

TEST(Exp, endsWhereTheTypeEnds)
{
    const Zel32f x[]{88.72283f, 88.72284f, -103.97207f, -103.97208f, -103.97209f, -87.3366f, 0, NAN};
    Zel32f y[8];
    ASSERT_EQ(zelsExp_32f(x, y, 8), zelStatusOk);
    EXPECT_TRUE(std::isfinite(y[0]));
    EXPECT_EQ(y[1], INFINITY);
    EXPECT_EQ(y[2], 0x1p-149f);
    EXPECT_EQ(y[4], 0);
    EXPECT_TRUE(y[5] > 0 && y[5] < 0x1p-126f);
    EXPECT_EQ(y[6], 1);
    EXPECT_TRUE(std::isnan(y[7]));
}

TEST(Exp, ofIntegersByEachFactor)
{
    checkFactors<Zel16s>(fixedExp, EXPORTS(zelsExp_16s_Sfs), factors(-131, 131), tellingArguments<Zel16s>());
    checkFactors<Zel32s>(fixedExp, EXPORTS(zelsExp_32s_Sfs), factors(-131, 131), tellingArguments<Zel32s>());
    checkFactors<Zel16s>(fixedExp, EXPORTS(zelsExp_16s_Sfs), {0, -5, 33}, everyValue<Zel16s>());
    for (const int factor : {0, 17, -8, -31}) {
        const SweepOptions options{.values = {.low = -30, .high = 30}};
        sweep(fixedExp, EXPORTS(zelsExp_16s_Sfs, zelsExp_16s_ISfs), options, factor);
        sweep(fixedExp, EXPORTS(zelsExp_32s_Sfs, zelsExp_32s_ISfs), options, factor);
    }
}

TEST(Exp, knownIntegers)
{
    const Zel16s x[]{-1, 0, 10, 11, 24, 25};
    Zel16s y[6];
    ASSERT_EQ(zelsExp_16s_Sfs(x, y, 6, 0), zelStatusOk);
    const Zel16s expected[]{0, 1, 22026, 32767, 32767, 32767};
    EXPECT_EQ(std::memcmp(y, expected, sizeof y), 0);
    zelsExp_16s_Sfs(x + 1, y, 1, 129);
    EXPECT_EQ(y[0], 1); // one half goes up
    const Zel32s wide[]{22, 0, -22};
    Zel32s z[3];
    zelsExp_32s_Sfs(wide, z, 1, -1);
    zelsExp_32s_Sfs(wide + 1, z + 1, 1, -16);
    zelsExp_32s_Sfs(wide + 2, z + 2, 1, -31);
    EXPECT_TRUE(z[0] == 2147483647 && z[1] == 65536 && z[2] == 1);
}

/// As if element by element, wherever the destination begins.
TEST(Exp, ofOverlappingArrays)
{
    constexpr int len = 100;
    for (int offset = -9; offset <= 9; offset++) {
        std::vector<Zel32s> array(len + 18), expected;
        for (std::size_t i = 0; i < array.size(); i++)
            array[i] = static_cast<Zel32s>(i * 7 % 23) - 4;
        expected = array;
        for (int i = 0; i < len; i++)
            expected[static_cast<std::size_t>(9 + offset + i)] =
                fixedExp(expected[static_cast<std::size_t>(9 + i)], 2);
        ASSERT_EQ(zelsExp_32s_Sfs(array.data() + 9, array.data() + 9 + offset, len, 2), zelStatusOk);
        EXPECT_EQ(array, expected) << "by " << offset;
    }
}
