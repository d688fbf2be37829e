// The order of the largest magnitude.
#include "support/test.h"

#include <cfenv>

namespace {

/// 1 + the position of the highest set bit.
int orderOf(Zel64u magnitude)
{
    int order = 0;
    for (; magnitude != 0; magnitude /= 2)
        order++;
    return order;
}

constexpr auto integerOrder = [](const auto* x, int* order, ZelSize len) {
    *order = 0;
    for (ZelSize i = 0; i < len; i++)
        *order = std::max(*order, orderOf(static_cast<Zel64u>(std::llabs(static_cast<long long>(x[i])))));
};

constexpr auto floatOrder = []<class T>(const T* x, int* order, ZelSize len) {
    constexpr int subnormal = sizeof(T) == 4 ? -126 : -1022;
    T largest = 0;
    ZelStatus status = zelStatusOk;
    for (ZelSize i = 0; i < len; i++) {
        if (std::isfinite(x[i]))
            largest = std::max(largest, std::fabs(x[i]));
        else
            status = zelWarnNaNSource;
    }
    *order = 0;
    if (largest != 0)
        std::frexp(largest, order);
    if (std::fpclassify(largest) == FP_SUBNORMAL)
        *order = subnormal;
    return status;
};

} // namespace

TEST(MaxOrder, countsBits)
{
    sweep(integerOrder, EXPORTS(zelsMaxOrder_16s, zelsMaxOrder_32s), {.repeats = 6});
    sweep(floatOrder, EXPORTS(zelsMaxOrder_32f, zelsMaxOrder_64f), {.repeats = 12});
    // Where the largest magnitude is small, one vector after the other.
    for (const double high : {0.0, 0.75, 1.0, 7.0, 8.0}) {
        const SweepOptions small{.values = {.low = -high, .high = high, .only = true}};
        sweep(integerOrder, EXPORTS(zelsMaxOrder_16s, zelsMaxOrder_32s), small);
        sweep(floatOrder, EXPORTS(zelsMaxOrder_32f, zelsMaxOrder_64f), small);
    }
}

TEST(MaxOrder, seesTheLowWordsOfSmallDoubles)
{
    for (const double x : {0.0, -0.0, 5e-324, -5e-324, 0x1p-1043, -0x1p-1023, 0x1p-1022}) {
        const double pair[]{-0.0, x};
        int order = 77;
        ASSERT_EQ(zelsMaxOrder_64f(pair, 2, &order), zelStatusOk);
        EXPECT_EQ(order, x == 0 ? 0 : std::fabs(x) < 0x1p-1022 ? -1022 : -1021) << x;
    }
}

TEST(MaxOrder, leavesTheFlagsOfTheCaller)
{
    const float x[]{1, NAN, INFINITY, 2};
    const double y[]{NAN, INFINITY, -NAN};
    int order{};
    std::feclearexcept(FE_ALL_EXCEPT);
    ASSERT_EQ(zelsMaxOrder_32f(x, 4, &order), zelWarnNaNSource);
    EXPECT_EQ(order, 2);
    ASSERT_EQ(zelsMaxOrder_64f(y, 3, &order), zelWarnNaNSource);
    EXPECT_EQ(order, 0);
    EXPECT_EQ(std::fetestexcept(FE_ALL_EXCEPT), 0);
}

TEST(MaxOrder, refusesBadArguments)
{
    badArguments(EXPORTS(zelsMaxOrder_16s, zelsMaxOrder_32s, zelsMaxOrder_32f, zelsMaxOrder_64f),
                 lengthFirst);
}
