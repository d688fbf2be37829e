// Searching and counting.
#include "support/test.h"

#include <bit>

namespace {

/// The definition: the nearest entry, the lower of two; the last of equal entries, but the first of all for the least.
int nearestIndex(Zel16u value, const std::vector<Zel16u>& table)
{
    if (value <= table.front())
        return 0;
    const auto above = std::upper_bound(table.begin(), table.end(), value);
    if (above == table.end())
        return static_cast<int>(table.size()) - 1;
    const int low = static_cast<int>(above - table.begin()) - 1;
    return value - table[static_cast<std::size_t>(low)] > *above - value ? low + 1 : low;
}

constexpr auto count = [](const Zel32s* x, int* counts, ZelSize len, Zel32s lower, Zel32s upper) {
    *counts = 0;
    for (ZelSize i = 0; i < len; i++)
        *counts += lower < x[i] && x[i] < upper;
};

constexpr auto crossings = [](const auto* x, Zel32f* measure, ZelSize len, Zel32u kind) {
    const auto sign = [](auto v) { return (v > 0) - (v < 0); };
    double sum = 0;
    for (ZelSize i = 0; i + 1 < len; i++) {
        if (kind == 0)
            sum += sign(x[i]) * sign(x[i + 1]) < 0;
        else if (kind == 1)
            sum += std::signbit(static_cast<double>(x[i])) != std::signbit(static_cast<double>(x[i + 1]));
        else
            sum += 0.5 * std::abs(sign(x[i]) - sign(x[i + 1]));
    }
    *measure = static_cast<float>(sum);
};

constexpr auto replaced = [](auto x, auto value) { return std::isnan(x) ? value : x; };

} // namespace

TEST(Search, findsNearestEntries)
{
    support::Random random("tables");
    for (const int size : {1, 2, 3, 4, 5, 7, 8, 9, 100, 1000, 70000})
        for (const int range : {3, 200, 65536}) {
            std::vector<Zel16u> table(static_cast<std::size_t>(size));
            for (auto& entry : table)
                entry = static_cast<Zel16u>(random.below(range));
            std::sort(table.begin(), table.end());
            std::vector<Zel16u> values{0, 65535, table.front(), table.back()};
            for (int i = 0; i < 300; i++)
                values.push_back(static_cast<Zel16u>(random.below(range + range / 8)));
            const int len = static_cast<int>(values.size());
            std::vector<Zel16u> nearest(values.size());
            std::vector<int> indices(values.size());
            ASSERT_EQ(
                zelsFindNearest_16u(values.data(), nearest.data(), indices.data(), len, table.data(), size),
                zelStatusOk);
            for (std::size_t i = 0; i < values.size(); i++) {
                const int index = nearestIndex(values[i], table);
                ASSERT_EQ(indices[i], index) << values[i] << " in " << size << " entries below " << range;
                ASSERT_EQ(nearest[i], table[static_cast<std::size_t>(index)]);
                Zel16u one{};
                int oneIndex{};
                ASSERT_EQ(zelsFindNearestOne_16u(values[i], &one, &oneIndex, table.data(), size),
                          zelStatusOk);
                ASSERT_EQ(oneIndex, index);
                ASSERT_EQ(one, nearest[i]);
            }
        }
}

TEST(Search, countsBetweenTheBounds)
{
    const SweepOptions options{.repeats = 2};
    const SweepOptions small{.values = {.low = -6, .high = 6, .only = true}, .repeats = 2};
    for (const auto& [lower, upper] :
         {std::pair(-3, 4), std::pair(-1, 1), std::pair(0, 1), std::pair(2, -2), std::pair(5, 5),
          std::pair(INT32_MIN, INT32_MAX), std::pair(INT32_MIN, 0), std::pair(-1, INT32_MAX)}) {
        sweep<LengthIs::first>(count, EXPORTS(zelsCountInRange_32s), options, lower, upper);
        sweep<LengthIs::first>(count, EXPORTS(zelsCountInRange_32s), small, lower, upper);
    }
}

TEST(Search, measuresCrossings)
{
    for (const Zel32u kind : {0u, 1u, 2u}) {
        const SweepOptions options{.repeats = 4};
        const SweepOptions small{.values = {.low = -2, .high = 2, .only = true}, .repeats = 4};
        sweep<LengthIs::first>(crossings, EXPORTS(zelsZeroCrossing_16s32f, zelsZeroCrossing_32f), options,
                               kind);
        sweep<LengthIs::first>(crossings, EXPORTS(zelsZeroCrossing_16s32f, zelsZeroCrossing_32f), small,
                               kind);
    }
    // A passage through a zero; zeros of both signs; factors whose product would vanish.
    const auto measure = [](std::vector<float> x, Zel32u kind) {
        float value{};
        EXPECT_EQ(zelsZeroCrossing_32f(x.data(), static_cast<Zel32u>(x.size()), &value, kind), zelStatusOk);
        return value;
    };
    EXPECT_EQ(measure({1, 0, -1}, 0), 0);
    EXPECT_EQ(measure({1, 0, -1}, 1), 1);
    EXPECT_EQ(measure({1, 0, -1}, 2), 1);
    EXPECT_EQ(measure({1, 0, 1}, 2), 1);
    EXPECT_EQ(measure({0.0f, -0.0f}, 1), 1);
    EXPECT_EQ(measure({1e-40f, -1e-40f}, 0), 1);
    EXPECT_EQ(measure({-5}, 2), 0);
}

TEST(Search, replacesNaNs)
{
    const SweepOptions options{.payload = true, .repeats = 4};
    sweep(replaced, EXPORTS(zelsReplaceNAN_32f_I), options, -2.5f);
    sweep(replaced, EXPORTS(zelsReplaceNAN_64f_I), options, -2.5);
    // The smallest and largest patterns of either sign, which no arithmetic has touched.
    for (const Zel32u bits : {0x7F800001u, 0xFF800001u, 0x7FFFFFFFu, 0xFFFFFFFFu, 0x7F800000u, 0xFF800000u}) {
        float x[3];
        std::memcpy(&x[0], &bits, 4);
        x[1] = x[2] = x[0];
        ASSERT_EQ(zelsReplaceNAN_32f_I(x, 3, 7), zelStatusOk);
        for (const float each : x)
            EXPECT_EQ(std::bit_cast<Zel32u>(each),
                      bits << 1 == 0xFF000000u ? bits : std::bit_cast<Zel32u>(7.0f));
    }
}

TEST(Search, measuresHammingDistances)
{
    support::Random random("patterns");
    for (const int size : {1, 2, 7, 8, 9, 15, 16, 31, 32, 33, 63, 64, 100, 8191, 9000}) {
        const int srcLen = 5;
        const int patternLen = 3;
        for (const int step : {size, size + 3, size / 2 + 1}) {
            // Rows end at the end of the memory.
            const auto bytes = [&](int rows) { return static_cast<std::size_t>((rows - 1) * step + size); };
            support::Guarded<Zel8u> src(bytes(srcLen));
            support::Guarded<Zel8u> pattern(bytes(patternLen));
            support::Guarded<Zel16u> dst(srcLen * patternLen);
            fill(random, src.data(), bytes(srcLen));
            fill(random, pattern.data(), bytes(patternLen));
            if (size == 9000) { // all bits differ: more than 65535 of them
                std::fill_n(src.data(), bytes(srcLen), Zel8u{0});
                std::fill_n(pattern.data(), bytes(patternLen), Zel8u{255});
            }
            Zel8u buffer[4];
            ASSERT_EQ(zelsPatternMatch_8u16u(src.data(), step, srcLen, pattern.data(), step, patternLen, size,
                                             dst.data(), size % 3, buffer),
                      zelStatusOk);
            EXPECT_TRUE(dst.intact());
            for (int p = 0; p < patternLen; p++)
                for (int s = 0; s < srcLen; s++) {
                    int distance = 0;
                    for (int i = 0; i < size; i++)
                        distance += std::popcount(
                            static_cast<Zel8u>(src.data()[s * step + i] ^ pattern.data()[p * step + i]));
                    ASSERT_EQ(dst.data()[p * srcLen + s], static_cast<Zel16u>(distance))
                        << size << ", step " << step;
                }
        }
    }
    int bufferSize{};
    ASSERT_EQ(zelsPatternMatchGetBufferSize(1, 1, 65535, zelHintAccurate, &bufferSize), zelStatusOk);
    EXPECT_EQ(bufferSize, 4);
}

TEST(Search, refusesBadArguments)
{
    badArguments<LengthIs::first>(EXPORTS(zelsCountInRange_32s), pointersFirst);
    badArguments(EXPORTS(zelsReplaceNAN_32f_I, zelsReplaceNAN_64f_I), pointersFirst);
    badArguments(EXPORTS(zelsFindNearestOne_16u), pointersFirst, value(Zel16u{5}), array(), array(), array(),
                 length(9));
    badArguments(EXPORTS(zelsFindNearest_16u), pointersFirst, array(), array(), array(), length(8), array(),
                 ranked(2, length(9)));
    badArguments(EXPORTS(zelsZeroCrossing_32f, zelsZeroCrossing_16s32f), pointersFirst, array(), length(8),
                 array(), selector(2, {3, -1, INT32_MIN}, zelErrRange));
    const std::vector<ZelSize> below{0, -1, INT32_MIN};
    badArguments(EXPORTS(zelsPatternMatch_8u16u), pointersFirst, array(),
                 ranked(1, selector(8, below, zelErrStep)), ranked(2, length(4)), array(),
                 ranked(1, selector(8, below, zelErrStep)), ranked(2, length(3)),
                 ranked(2, selector(8, {0, -1, 65536, INT32_MAX}, zelErrSize)), array(),
                 ranked(3, selector(0, {3, -1}, zelErrBadArg)), array());
    badArguments(EXPORTS(zelsPatternMatchGetBufferSize), pointersFirst, length(4), length(3),
                 ranked(1, selector(8, {0, -1, 65536, INT32_MAX}, zelErrSize)),
                 selector(0, {3, -1}, zelErrBadArg), array());
}
