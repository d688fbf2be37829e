// Lengths that 32 bits cannot hold: the long forms that work in one piece.
#include "support/test.h"

TEST(StatsLong, reducesInOnePiece)
{
    constexpr ZelSize len = (ZelSize{1} << 31) + 1234;
    support::LongArray<Zel32f> x(len);
    const auto first = x.window(10, 2);
    const auto last = x.window(len - 20, 20);
    first[0] = 3; // zeros everywhere else
    last[19] = 4;
    for (const int hint : {0, 1}) {
        float sum{};
        ASSERT_EQ(zelsSum_32f_L(x.data(), len, &sum, hint), zelStatusOk);
        EXPECT_EQ(sum, 7);
    }
    float mean{};
    ASSERT_EQ(zelsMean_32f_L(x.data(), len, &mean, 0), zelStatusOk);
    EXPECT_EQ(mean, 7 / static_cast<float>(len));
    double dot{};
    ASSERT_EQ(zelsDotProd_32f64f_L(x.data(), x.data(), len, &dot), zelStatusOk);
    EXPECT_EQ(dot, 25);
    float norm{};
    ASSERT_EQ(zelsNorm_L2_32f_L(x.data(), len, &norm), zelStatusOk);
    EXPECT_EQ(norm, 5);
}
