// Sliding window sums: the first window in its order, and the running update.
#include "support/test.h"

namespace {

float firstWindow(const Zel8u* x, ZelSize n)
{
    float lane[12] = {};
    ZelSize i = 0;
    for (; n - i >= 12; i += 12)
        for (int k = 0; k < 12; k++)
            lane[k] += x[i + k];
    for (int k = 0; k < 4; k++)
        lane[k] = (lane[k] + lane[8 + k]) + lane[4 + k];
    float sum = (lane[0] + lane[2]) + (lane[1] + lane[3]);
    for (; i < n; i++)
        sum += x[i];
    return sum;
}

float firstWindow(const Zel16s* x, ZelSize n)
{
    float sum = 0;
    ZelSize i = 0;
    for (; n - i >= 8; i += 8) {
        int round = 0;
        for (int k = 0; k < 8; k++)
            round += x[i + k];
        sum += static_cast<float>(round);
    }
    for (ZelSize k = n; k-- > i;)
        sum += x[k];
    return sum;
}

template <class T>
void check(ZelStatus (*sumWindow)(const T*, Zel32f*, int, int), unsigned mode)
{
    support::Random random("window sums");
    // Up to sums that single precision rounds: 70,000 of 255 pass 2^24, as do 2,000 of 32,767.
    for (const int mask : {1, 2, 7, 8, 9, 11, 12, 13, 24, 25, 100, 2001, 70003}) {
        for (const int len : {1, 2, 3, 4, 5, 17, 1000}) {
            support::Guarded<T> src(static_cast<std::size_t>(len + mask));
            support::Guarded<float> dst(static_cast<std::size_t>(len));
            fill(random, src.data(), static_cast<std::size_t>(len + mask));
            const support::FloatMode scope(mode);
            float sum = firstWindow(src.data(), mask);
            ASSERT_EQ(sumWindow(src.data(), dst.data(), len, mask), zelStatusOk);
            for (int i = 0; i < len; i++) {
                ASSERT_EQ(dst.data()[i], sum) << "element " << i << " of " << len << ", mask " << mask;
                sum += static_cast<float>(src.data()[i + mask] - src.data()[i]);
            }
            EXPECT_TRUE(dst.intact());
        }
    }
}

} // namespace

TEST(SumWindow, slides)
{
    for (const unsigned mode : support::roundingModes) {
        check(zelsSumWindow_8u32f, mode);
        check(zelsSumWindow_16s32f, mode);
    }
}

TEST(SumWindow, refusesBadArguments)
{
    badArguments(EXPORTS(zelsSumWindow_8u32f, zelsSumWindow_16s32f), pointersFirst, array(), array(),
                 length(8), selector(3, {0, -1, INT32_MIN}, zelErrMaskSize));
}
