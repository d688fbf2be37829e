// Copy, Move, Set and Zero.
#include "support/test.h"

#include <climits>

namespace {

constexpr auto same = [](auto x) { return x; };
constexpr auto constant = [](auto val) { return val; };

template <class T>
constexpr auto nothing = []() { return T{}; };

/// Thresholds of half a mebibyte and one, where the cache size begins to count, and a length that does not fit the cache
/// of an early processor, which reports it.
template <class T>
SweepOptions bulk(int repeats = 2)
{
    constexpr auto size = static_cast<ZelSize>(sizeof(T));
    return {.block = std::max(8, 64 / static_cast<int>(size)),
            .around = {(1 << 19) / size, (1 << 20) / size},
            .lengths = {1000, 4099, (1 << 21) / size + 17},
            .payload = true,
            .modes = Modes::roundingAndFlush,
            .repeats = repeats};
}

/// All distances around a length: the arrays overlap, touch, or lie apart.
void moveOverlapping(int len, int distance, int offset, Random& random)
{
    const int size = len + std::abs(distance);
    Guarded<Zel8u> memory(static_cast<std::size_t>(size),
                          {random.bits() & 1 ? Placement::atStart : Placement::atEnd, offset});
    std::vector<Zel8u> expected(static_cast<std::size_t>(size));
    fill(random, expected.data(), expected.size(), Fill::anyBits);
    std::memcpy(memory.data(), expected.data(), expected.size());
    const int from = distance < 0 ? -distance : 0;
    const int to = distance < 0 ? 0 : distance;
    const std::vector<Zel8u> moved(expected.begin() + from, expected.begin() + from + len);
    std::copy(moved.begin(), moved.end(), expected.begin() + to);
    ASSERT_EQ(zelsMove_8u(memory.data() + from, memory.data() + to, len), zelStatusOk);
    ASSERT_TRUE(memory.intact() && std::memcmp(memory.data(), expected.data(), expected.size()) == 0)
        << len << " bytes by " << distance << ", offset " << offset;
}

} // namespace

TEST(Bulk, copies)
{
    sweep(same, EXPORTS(zelsCopy_8u), bulk<Zel8u>());
    sweep(same, EXPORTS(zelsCopy_16s), bulk<Zel16s>());
    sweep(same, EXPORTS(zelsCopy_16sc, zelsCopy_32f, zelsCopy_32s, zelsCopy_32f_L), bulk<Zel32f>(1));
    sweep(same,
          EXPORTS(zelsCopy_32fc, zelsCopy_32sc, zelsCopy_64f, zelsCopy_64s, zelsCopy_32fc_L, zelsCopy_64f_L),
          bulk<Zel64f>(1));
    sweep(same, EXPORTS(zelsCopy_64fc, zelsCopy_64sc, zelsCopy_64fc_L), bulk<Zel64fc>(1));
}

TEST(Bulk, moves)
{
    sweep(same, EXPORTS(zelsMove_8u), bulk<Zel8u>());
    sweep(same, EXPORTS(zelsMove_16s), bulk<Zel16s>());
    sweep(same, EXPORTS(zelsMove_16sc, zelsMove_32f, zelsMove_32s), bulk<Zel32f>(1));
    sweep(same, EXPORTS(zelsMove_32fc, zelsMove_32sc, zelsMove_64f, zelsMove_64s), bulk<Zel64f>(1));
    sweep(same, EXPORTS(zelsMove_64fc, zelsMove_64sc), bulk<Zel64fc>(1));
}

TEST(Bulk, movesOverlappingArrays)
{
    Random random("overlap");
    for (int len = 1; len <= 200 && !HasFailure(); len++)
        for (int distance = -140; distance <= 140; distance++)
            moveOverlapping(len, distance, static_cast<int>(random.below(16)), random);
    for (const int len : {500, 4096, 70001, 1 << 20})
        for (const int distance : {1, 2, 3, 4, 7, 8, 15, 16, 17, 31, 33, 63, 64, 65, 100, 128, 4096, len - 1})
            for (const int sign : {1, -1})
                moveOverlapping(len, sign * distance, static_cast<int>(random.below(16)), random);

    float values[]{1, 2, 3, 4, 5};
    ASSERT_EQ(zelsMove_32f(values, values + 1, 4), zelStatusOk);
    const float up[]{1, 1, 2, 3, 4};
    EXPECT_EQ(std::memcmp(values, up, sizeof up), 0);
}

TEST(Bulk, sets)
{
    const auto each = [](auto val, auto functions) {
        sweep(constant, functions, bulk<decltype(val)>(1), val);
    };
    each(Zel8u{0xA5}, EXPORTS(zelsSet_8u));
    each(Zel16s{-12345}, EXPORTS(zelsSet_16s));
    each(Zel16sc{1, -2}, EXPORTS(zelsSet_16sc));
    each(Zel32s{0x12345678}, EXPORTS(zelsSet_32s));
    each(Zel32sc{0x12345678, -2}, EXPORTS(zelsSet_32sc));
    each(Zel64s{0x123456789ABCDEF0}, EXPORTS(zelsSet_64s));
    each(Zel64sc{0x123456789ABCDEF0, -2}, EXPORTS(zelsSet_64sc));
    each(1.5f, EXPORTS(zelsSet_32f));
    each(0x1.23456789ABCDEp-1022, EXPORTS(zelsSet_64f));
    // Values that arithmetic would change: signalling NaNs, subnormal numbers under flushing.
    each(fromBits<float>(0x7F812345), EXPORTS(zelsSet_32f));
    each(fromBits<double>(0xFFF123456789ABCD), EXPORTS(zelsSet_64f));
    each(Zel32fc{fromBits<float>(0x7F812345), 1e-45f}, EXPORTS(zelsSet_32fc));
    each(Zel64fc{fromBits<double>(0x7FF123456789ABCD), -0.0}, EXPORTS(zelsSet_64fc));
}

TEST(Bulk, clears)
{
    sweep(nothing<Zel8u>, EXPORTS(zelsZero_8u), bulk<Zel8u>());
    sweep(nothing<Zel16s>, EXPORTS(zelsZero_16s), bulk<Zel16s>());
    sweep(nothing<Zel16sc>, EXPORTS(zelsZero_16sc), bulk<Zel16sc>());
    sweep(nothing<Zel32s>, EXPORTS(zelsZero_32s, zelsZero_32f, zelsZero_32f_L), bulk<Zel32s>());
    sweep(nothing<Zel64s>, EXPORTS(zelsZero_64s, zelsZero_64f, zelsZero_64f_L), bulk<Zel64s>());
    sweep(nothing<Zel32sc>, EXPORTS(zelsZero_32sc), bulk<Zel32sc>());
    sweep(nothing<Zel32fc>, EXPORTS(zelsZero_32fc, zelsZero_32fc_L), bulk<Zel32fc>());
    sweep(nothing<Zel64sc>, EXPORTS(zelsZero_64sc), bulk<Zel64sc>());
    sweep(nothing<Zel64fc>, EXPORTS(zelsZero_64fc, zelsZero_64fc_L), bulk<Zel64fc>());
}

TEST(Bulk, refusesBadArguments)
{
    badArguments(EXPORTS(zelsCopy_8u, zelsCopy_16s, zelsCopy_16sc, zelsCopy_32f, zelsCopy_32fc, zelsCopy_32s,
                         zelsCopy_32sc, zelsCopy_64f, zelsCopy_64fc, zelsCopy_64s, zelsCopy_64sc, zelsMove_8u,
                         zelsMove_16s, zelsMove_16sc, zelsMove_32f, zelsMove_32fc, zelsMove_32s,
                         zelsMove_32sc, zelsMove_64f, zelsMove_64fc, zelsMove_64s, zelsMove_64sc, zelsSet_8u,
                         zelsSet_16s, zelsSet_16sc, zelsSet_32f, zelsSet_32fc, zelsSet_32s, zelsSet_32sc,
                         zelsSet_64f, zelsSet_64fc, zelsSet_64s, zelsSet_64sc, zelsZero_8u, zelsZero_16s,
                         zelsZero_16sc, zelsZero_32f, zelsZero_32fc, zelsZero_32s, zelsZero_32sc,
                         zelsZero_64f, zelsZero_64fc, zelsZero_64s, zelsZero_64sc),
                 pointersFirst);
    badArguments(EXPORTS(zelsCopy_32f_L, zelsCopy_32fc_L, zelsCopy_64f_L, zelsCopy_64fc_L, zelsZero_32f_L,
                         zelsZero_32fc_L, zelsZero_64f_L, zelsZero_64fc_L),
                 lengthFirst);
}
