// Bit and byte order: Flip, SwapBytes, CopyBE, CopyLE.
#include "support/test.h"
#include "support/trace.h"

#include <algorithm>
#include <cstring>

namespace {

constexpr auto flipped = [](const auto* pSrc, auto* pDst, ZelSize len) {
    for (ZelSize i = 0; i < len; i++)
        pDst[i] = pSrc[len - 1 - i];
};
constexpr auto flippedInPlace = [](auto* pSrcDst, ZelSize len) { std::reverse(pSrcDst, pSrcDst + len); };

constexpr auto swapped = []<class T>(T x) {
    T result = 0;
    for (std::size_t k = 0; k < sizeof x; k++)
        result = static_cast<T>(result | (x >> 8 * k & 0xFF) << 8 * (sizeof x - 1 - k));
    return result;
};
constexpr auto swapped24 = [](const Zel8u* pSrc, Zel8u* pDst, ZelSize len) {
    for (ZelSize i = 0; i < 3 * len; i++)
        pDst[i] = pSrc[i / 3 * 3 + 2 - i % 3];
};
constexpr auto swapped24InPlace = [](Zel8u* pSrcDst, ZelSize len) {
    for (ZelSize i = 0; i < len; i++)
        std::swap(pSrcDst[3 * i], pSrcDst[3 * i + 2]);
};

/// NaNs are data here, signalling ones too.
const SweepOptions bits{.payload = true};

bool lowFirst(const Zel8u* p, ZelSize bit)
{
    return p[bit / 8] >> bit % 8 & 1;
}
bool highFirst(const Zel8u* p, ZelSize bit)
{
    return p[bit / 8] >> (7 - bit % 8) & 1;
}

struct BitOrder {
    const char* name;
    decltype(zelsCopyLE_1u)* copy;
    bool (*bit)(const Zel8u*, ZelSize);
    int (*value)(int bit); ///< in its byte
};
constexpr BitOrder bitOrders[]{
    {"zelsCopyLE_1u", zelsCopyLE_1u, lowFirst, [](int bit) { return 1 << bit; }},
    {"zelsCopyBE_1u", zelsCopyBE_1u, highFirst, [](int bit) { return 128 >> bit; }}};

/// Calls on bytes against the pages' ends or starts, compared with a walk over single bits.
class BitCopies {
  public:
    BitCopies() : source(size), destination(size), before(size), expected(size)
    {
        Random random("bits");
        fill(random, begin(source), size, Fill::anyBits);
        fill(random, before.data(), size, Fill::anyBits);
    }

    void compare(const BitOrder& order, int from, int to, int len, bool atEnd)
    {
        Zel8u* const pSrc = begin(source) + (atEnd ? size - (from + len + 7) / 8 : 0);
        const int at = atEnd ? size - (to + len + 7) / 8 : 0;
        expected = before;
        for (int i = 0; i < len; i++)
            if (order.bit(pSrc, from + i) != order.bit(expected.data() + at, to + i))
                expected[static_cast<std::size_t>(at + (to + i) / 8)] ^=
                    static_cast<Zel8u>(order.value((to + i) % 8));
        std::memcpy(begin(destination), before.data(), size);
        ASSERT_EQ(order.copy(pSrc, from, begin(destination) + at, to, len), zelStatusOk);
        ASSERT_EQ(std::memcmp(begin(destination), expected.data(), size), 0)
            << order.name << " from " << from << " to " << to << ", " << len << " bits, atEnd " << atEnd;
    }

  private:
    static constexpr int size = 4096;
    static Zel8u* begin(const GuardedPages& pages) { return reinterpret_cast<Zel8u*>(pages.end()) - size; }

    GuardedPages source, destination;
    std::vector<Zel8u> before, expected;
};

} // namespace

TEST(Order, flips)
{
    sweep(flipped,
          EXPORTS(zelsFlip_8u, zelsFlip_16u, zelsFlip_32f, zelsFlip_32f_L, zelsFlip_64f, zelsFlip_64f_L,
                  zelsFlip_32fc, zelsFlip_32fc_L, zelsFlip_64fc, zelsFlip_64fc_L),
          bits);
    sweep(flippedInPlace,
          EXPORTS(zelsFlip_8u_I, zelsFlip_16u_I, zelsFlip_32f_I, zelsFlip_32f_I_L, zelsFlip_64f_I,
                  zelsFlip_64f_I_L, zelsFlip_32fc_I, zelsFlip_32fc_I_L, zelsFlip_64fc_I, zelsFlip_64fc_I_L),
          bits);
}

TEST(Order, swapsBytes)
{
    sweep(swapped, EXPORTS(zelsSwapBytes_16u, zelsSwapBytes_16u_I, zelsSwapBytes_32u, zelsSwapBytes_32u_I,
                           zelsSwapBytes_64u, zelsSwapBytes_64u_I));
    sweep(swapped24, EXPORTS(zelsSwapBytes_24u), {.units = {3, 3}});
    sweep(swapped24InPlace, EXPORTS(zelsSwapBytes_24u_I), {.units = {3}});
}

TEST(OrderLong, swapsBytesPastTheCaches)
{
    sweep(swapped24, EXPORTS(zelsSwapBytes_24u),
          {.block = 0, .around = {524288}, .lengths = {}, .units = {3, 3}});
    if (!canTrace())
        GTEST_SKIP() << "no single steps on this machine";
    GuardedPages source(2 << 20), destination(2 << 20);
    const auto streams = [&](auto function, int offset, int len) {
        auto* const pDst = reinterpret_cast<Zel8u*>(destination.begin()) + offset;
        return trace([&] { function(pDst, len); }, 1000, untilStreaming).streamingStores > 0;
    };
    const auto plain = [&](Zel8u* pDst, int len) {
        zelsSwapBytes_24u(reinterpret_cast<const Zel8u*>(source.begin()), pDst, len);
    };
    // 3 elements lead from byte 7 to a boundary, 15 from byte 3.
    for (const auto& [offset, peel] : {std::pair{0, 0}, {7, 3}, {3, 15}}) {
        EXPECT_FALSE(streams(plain, offset, 524288 + peel)) << offset;
        EXPECT_TRUE(streams(plain, offset, 524288 + peel + 1)) << offset;
    }
    EXPECT_FALSE(streams([](Zel8u* p, int len) { zelsSwapBytes_24u_I(p, len); }, 0, 600000));
}

TEST(Order, copiesBits)
{
    BitCopies copies;
    for (const BitOrder& order : bitOrders)
        for (int from = 0; from < 10; from++)
            for (int to = 0; to < 10; to++) {
                for (int len = 1; len <= 300 && !HasFatalFailure(); len += len < 40 ? 1 : 7)
                    copies.compare(order, from + (len % 5 == 0 ? 88 : 0), to + (len % 3 == 0 ? 72 : 0), len,
                                   len % 2 == 0);
                for (const int len : {1024, 4090, 4103, 4500, 9001})
                    if (!HasFatalFailure())
                        copies.compare(order, from, to, len, len % 2 == 0);
            }
}

TEST(Order, copiesBitsFromTheLargestOffset)
{
    const Zel8u byte = 0xA5;
    Zel8u result[2]{};
    // Bit 7 of a byte that lies 2^28 - 1 bytes behind the pointer.
    const auto* const pSrc =
        reinterpret_cast<const Zel8u*>(reinterpret_cast<std::uintptr_t>(&byte) - INT32_MAX / 8);
    EXPECT_EQ(zelsCopyLE_1u(pSrc, INT32_MAX, result, 9, 1), zelStatusOk);
    EXPECT_EQ(result[0], 0);
    EXPECT_EQ(result[1], 2);
}

TEST(Order, refusesBadArguments)
{
    badArguments(EXPORTS(zelsFlip_8u, zelsFlip_8u_I, zelsFlip_16u, zelsFlip_16u_I, zelsFlip_32f,
                         zelsFlip_32f_I, zelsFlip_32f_L, zelsFlip_32f_I_L, zelsFlip_64f, zelsFlip_64f_I,
                         zelsFlip_64f_L, zelsFlip_64f_I_L, zelsFlip_32fc, zelsFlip_32fc_I, zelsFlip_32fc_L,
                         zelsFlip_32fc_I_L, zelsFlip_64fc, zelsFlip_64fc_I, zelsFlip_64fc_L,
                         zelsFlip_64fc_I_L, zelsSwapBytes_16u, zelsSwapBytes_16u_I, zelsSwapBytes_24u,
                         zelsSwapBytes_24u_I, zelsSwapBytes_32u, zelsSwapBytes_32u_I, zelsSwapBytes_64u,
                         zelsSwapBytes_64u_I),
                 pointersFirst);
    const selector offset(3, {-1, INT32_MIN}, zelErrSize);
    badArguments(EXPORTS(zelsCopyBE_1u, zelsCopyLE_1u), pointersFirst, array(), offset, array(), offset,
                 length(40));
}

TEST(OrderLong, flipsInOnePiece)
{
    // More bytes than 32 bits count: the model of one element cannot know its counterpart, so both ends are set by hand.
    constexpr ZelSize len = (ZelSize{1} << 31) + 1234;
    LongArray<Zel32f> source(len), destination(len);
    Zel32f* const first = source.window(0, 64).data();
    Zel32f* const last = source.window(len - 64, 64).data();
    const Zel32f* const start = destination.window(0, 64).data();
    const Zel32f* const end = destination.window(len - 64, 64).data();
    for (int i = 0; i < 64; i++) {
        first[i] = static_cast<float>(i);
        last[i] = static_cast<float>(1000 + i);
    }
    ASSERT_EQ(zelsFlip_32f_L(source.data(), destination.data(), len), zelStatusOk);
    for (int i = 0; i < 64; i++) {
        EXPECT_EQ(start[i], static_cast<float>(1063 - i));
        EXPECT_EQ(end[i], static_cast<float>(63 - i));
    }
    ASSERT_EQ(zelsFlip_32f_I_L(source.data(), len), zelStatusOk);
    for (int i = 0; i < 64; i++) {
        EXPECT_EQ(first[i], static_cast<float>(1063 - i));
        EXPECT_EQ(last[i], static_cast<float>(63 - i));
    }
}
