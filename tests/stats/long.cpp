// Long forms: in one piece on lengths that 32 bits cannot hold, and across chunks.
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

TEST(StatsLong, carriesIndicesAcrossChunks)
{
    constexpr ZelSize chunk = support::longChunk<Zel32f>;
    support::LongArray<Zel32f> x(2 * chunk + 1000);
    const auto boundary = x.window(chunk - 10, 20);
    const auto last = x.window(2 * chunk + 500, 8);
    float value{};
    ZelSize index{};
    // Zeros everywhere else; the first of equal peaks lies in the second chunk.
    boundary[12] = 3;
    last[0] = 3;
    ASSERT_EQ(zelsMaxIndx_32f_L(x.data(), 2 * chunk + 1000, &value, &index), zelStatusOk);
    EXPECT_EQ(value, 3);
    EXPECT_EQ(index, chunk + 2);
    last[1] = -4;
    last[2] = -4;
    float min{};
    ZelSize minIndex{};
    ASSERT_EQ(zelsMinMaxIndx_32f_L(x.data(), 2 * chunk + 1000, &min, &minIndex, &value, &index), zelStatusOk);
    EXPECT_EQ(min, -4);
    EXPECT_EQ(minIndex, 2 * chunk + 501);
    EXPECT_EQ(index, chunk + 2);
    ASSERT_EQ(zelsMaxAbsIndx_32f_L(x.data(), 2 * chunk + 1000, &value, &index), zelStatusOk);
    EXPECT_EQ(value, 4);
    EXPECT_EQ(index, 2 * chunk + 501);
    ASSERT_EQ(zelsMin_32f_L(x.data(), 2 * chunk + 1000, &value), zelStatusOk);
    EXPECT_EQ(value, -4);
}
