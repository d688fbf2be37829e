// Long arrays are what they should be, and the sweep over them catches planted faults.
#include "support/test.h"

namespace {

constexpr ZelSize chunk = longChunk<Zel64f>;
constexpr auto negative = [](double x) { return -x; };

enum Fault { none, leavesOutOne, leavesOutRest, wrongStatus };

template <Fault fault>
ZelStatus negate(double* pSrcDst, ZelSize len)
{
    for (ZelSize i = 0; i < len; i++) {
        if (i == chunk && fault == leavesOutRest)
            break;
        if (i == chunk && fault == leavesOutOne)
            continue;
        pSrcDst[i] = -pSrcDst[i];
    }
    return fault == wrongStatus ? zelWarnDivByZero : zelStatusOk;
}

} // namespace

TEST(LongMemory, repeatsAPieceButForWindows)
{
    LongArray<Zel32u> array(ZelSize{1} << 30);
    const std::span<Zel32u> low = array.window(1000000, 10);
    const std::span<Zel32u> high = array.window((ZelSize{1} << 30) - 10, 100);
    ASSERT_EQ(low.size(), 10U);
    ASSERT_EQ(high.size(), 10U);
    array.data()[0] = 7;
    low[3] = 1;
    high[9] = 2;
    constexpr ZelSize repeat = (1 << 21) / 4;
    EXPECT_EQ(array.data()[5 * repeat], 7U);
    EXPECT_EQ(array.data()[1000003], 1U);
    EXPECT_EQ(array.data()[1000003 + repeat], 0U);
    EXPECT_EQ(array.data()[(ZelSize{1} << 30) - 1], 2U);
    EXPECT_DEATH(array.data()[ZelSize{1} << 30] = 1, "");
}

TEST(LongMemory, sweepCatchesWrongChunks)
{
    const auto failure = [](auto& function) {
        return trySweepLong(negative, function, chunk + 5000, {chunk});
    };
    EXPECT_EQ(failure(negate<none>), "");
    EXPECT_NE(failure(negate<leavesOutOne>), "");
    EXPECT_NE(failure(negate<leavesOutRest>), "");
    EXPECT_NE(failure(negate<wrongStatus>), "");
}
