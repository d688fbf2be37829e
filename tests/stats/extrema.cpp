// Extreme values: the lanes of the float folds replayed with their NaNs and zeros, integers by definition.
#include "stats/orders.h"

namespace {

struct Largest {
    static bool better(auto x, auto best) { return x > best; }
    static auto fold(auto best, auto x) { return best > x ? best : x; }
};
struct Smallest {
    static bool better(auto x, auto best) { return x < best; }
    static auto fold(auto best, auto x) { return best < x ? best : x; }
};

struct Plain {
    static auto of(auto x) { return x; }
};
struct Magnitude {
    template <class T>
    static T of(T x)
    {
        if constexpr (std::is_floating_point_v<T>)
            return std::fabs(x);
        else
            return support::saturated<T>(x < 0 ? -support::Wide{x} : x);
    }
};

/// Single steps to a 16-byte boundary, rounds of `vectors` of 16 bytes, their lanes, single steps.
template <class Better, class View, int vectors, bool aligned, class T>
T folded(const T* x, ZelSize len)
{
    constexpr int lanes = 16 / sizeof(T);
    T best = View::of(x[0]);
    ZelSize i = 0;
    for (const ZelSize before = aligned ? elementsBefore16(0, sizeof(T)) : 0; i < len && i < before; i++)
        best = Better::fold(best, View::of(x[i]));
    if (len - i >= lanes) {
        T lane[vectors * lanes];
        std::fill(std::begin(lane), std::end(lane), best);
        for (; len - i >= vectors * lanes; i += vectors * lanes)
            for (int k = 0; k < vectors * lanes; k++)
                lane[k] = Better::fold(lane[k], View::of(x[i + k]));
        const auto halve = [&](int from) {
            for (int n = from / 2; n >= 1; n /= 2) {
                for (int k = 0; k < n; k++)
                    lane[k] = Better::fold(lane[k], lane[k + n]);
                if (n == lanes)
                    break;
            }
        };
        halve(vectors * lanes);
        for (; len - i >= lanes; i += lanes)
            for (int k = 0; k < lanes; k++)
                lane[k] = Better::fold(lane[k], View::of(x[i + k]));
        halve(lanes);
        best = lane[0];
    }
    for (; i < len; i++)
        best = Better::fold(best, View::of(x[i]));
    return best;
}

template <class Better, class View>
constexpr auto extreme =
    [](const auto* x, auto* best, ZelSize len) { *best = folded<Better, View, 4, true>(x, len); };

template <class T>
void rangeOf(const T* x, T* min, T* max, ZelSize len)
{
    constexpr int vectors = std::is_same_v<T, Zel32f> ? 2 : 4; // eight elements a round
    *min = folded<Smallest, Plain, vectors, false>(x, len);
    *max = folded<Largest, Plain, vectors, false>(x, len);
}

constexpr auto range = [](const auto* x, auto* min, auto* max, ZelSize len) { rangeOf(x, min, max, len); };

constexpr auto indexedRange = [](const auto* x, auto* min, auto* minIndex, auto* max, auto* maxIndex,
                                 ZelSize len) {
    rangeOf(x, min, max, len);
    const auto find = [&](auto value) {
        const auto* const at = std::find(x, x + len, value);
        return at == x + len ? 0 : static_cast<std::remove_reference_t<decltype(*minIndex)>>(at - x);
    };
    *minIndex = find(*min);
    *maxIndex = find(*max);
};

/// Elements that compare strictly better, from one index to another.
template <class Better, class View, class T, class Index>
void scan(const T* x, ZelSize from, ZelSize to, T* best, Index* index)
{
    for (ZelSize i = from; i < to; i++)
        if (Better::better(View::of(x[i]), *best)) {
            *best = View::of(x[i]);
            *index = static_cast<Index>(i);
        }
}

/// Blocks of 8 KiB whose fold comes out strictly better are searched for its bits.
template <class Better>
constexpr auto indexedFloat = []<class T, class Index>(const T* x, T* best, Index* index, ZelSize len) {
    constexpr int lanes = 16 / sizeof(T);
    constexpr ZelSize block = 8192 / sizeof(T);
    const bool scanned = sizeof(T) == 4 ? len <= 33 : len < 32 || behind(0, 8) != 0;
    *best = x[0];
    *index = 0;
    const ZelSize before = scanned ? len : elementsBefore16(0, sizeof(T));
    scan<Better, Plain>(x, 0, before, best, index);
    const ZelSize whole = before + (len - before) / 8 * 8;
    for (ZelSize from = before; from < whole; from += block) {
        const ZelSize to = std::min(from + block, whole);
        T lane[8];
        std::copy(x + from, x + from + 8, lane);
        for (ZelSize i = from + 8; i < to; i++)
            lane[(i - from) % 8] = Better::fold(lane[(i - from) % 8], x[i]);
        for (int k = lanes; k < 8; k++)
            lane[k % lanes] = Better::fold(lane[k % lanes], lane[k]);
        for (int n = lanes / 2; n >= 1; n /= 2)
            for (int k = 0; k < n; k++)
                lane[k] = Better::fold(lane[k], lane[k + n]);
        if (!Better::better(lane[0], *best))
            continue;
        *best = lane[0];
        *index = static_cast<Index>(from);
        while (std::memcmp(&x[*index], best, sizeof *best) != 0)
            ++*index;
    }
    scan<Better, Plain>(x, whole, len, best, index);
};

/// The definition: the first of the best, from element 0 on.
template <class Better, class View>
constexpr auto indexed = [](const auto* x, auto* best, int* index, ZelSize len) {
    *best = View::of(x[0]);
    *index = 0;
    scan<Better, View>(x, 1, len, best, index);
};

/// Magnitudes of floats, from the worst one at index -1; NaNs are never better.
template <class Better>
constexpr auto indexedMagnitude = []<class T>(const T* x, T* best, auto* index, ZelSize len) {
    *best = std::is_same_v<Better, Largest> ? T{0} : std::numeric_limits<T>::infinity();
    *index = -1;
    scan<Better, Magnitude>(x, 0, len, best, index);
};

const SweepOptions folds{.repeats = 12};
const SweepOptions searches{.around = {33, 2048, 4096}, .repeats = 8};

} // namespace

TEST(Extrema, foldsValues)
{
    sweep(extreme<Largest, Plain>,
          EXPORTS(zelsMax_16s, zelsMax_32s, zelsMax_32f, zelsMax_32f_L, zelsMax_64f, zelsMax_64f_L), folds);
    sweep(extreme<Smallest, Plain>,
          EXPORTS(zelsMin_16s, zelsMin_32s, zelsMin_32f, zelsMin_32f_L, zelsMin_64f, zelsMin_64f_L), folds);
    sweep(range,
          EXPORTS(zelsMinMax_8u, zelsMinMax_16u, zelsMinMax_16s, zelsMinMax_32u, zelsMinMax_32s,
                  zelsMinMax_32f, zelsMinMax_32f_L, zelsMinMax_64f, zelsMinMax_64f_L),
          folds);
}

TEST(Extrema, foldsMagnitudes)
{
    sweep(extreme<Largest, Magnitude>,
          EXPORTS(zelsMaxAbs_16s, zelsMaxAbs_32s, zelsMaxAbs_32f, zelsMaxAbs_32f_L, zelsMaxAbs_64f,
                  zelsMaxAbs_64f_L),
          folds);
    sweep(extreme<Smallest, Magnitude>,
          EXPORTS(zelsMinAbs_16s, zelsMinAbs_32s, zelsMinAbs_32f, zelsMinAbs_32f_L, zelsMinAbs_64f,
                  zelsMinAbs_64f_L),
          folds);
}

TEST(Extrema, findsIndices)
{
    sweep(indexed<Largest, Plain>, EXPORTS(zelsMaxIndx_16s, zelsMaxIndx_32s), searches);
    sweep(indexed<Smallest, Plain>, EXPORTS(zelsMinIndx_16s, zelsMinIndx_32s), searches);
    sweep(indexed<Largest, Magnitude>, EXPORTS(zelsMaxAbsIndx_16s, zelsMaxAbsIndx_32s), searches);
    sweep(indexed<Smallest, Magnitude>, EXPORTS(zelsMinAbsIndx_16s, zelsMinAbsIndx_32s), searches);
    sweep(indexedFloat<Largest>,
          EXPORTS(zelsMaxIndx_32f, zelsMaxIndx_32f_L, zelsMaxIndx_64f, zelsMaxIndx_64f_L), searches);
    sweep(indexedFloat<Smallest>,
          EXPORTS(zelsMinIndx_32f, zelsMinIndx_32f_L, zelsMinIndx_64f, zelsMinIndx_64f_L), searches);
    sweep(indexedMagnitude<Largest>,
          EXPORTS(zelsMaxAbsIndx_32f, zelsMaxAbsIndx_32f_L, zelsMaxAbsIndx_64f, zelsMaxAbsIndx_64f_L),
          searches);
    sweep(indexedMagnitude<Smallest>,
          EXPORTS(zelsMinAbsIndx_32f, zelsMinAbsIndx_32f_L, zelsMinAbsIndx_64f, zelsMinAbsIndx_64f_L),
          searches);
    sweep(indexedRange,
          EXPORTS(zelsMinMaxIndx_8u, zelsMinMaxIndx_16u, zelsMinMaxIndx_16s, zelsMinMaxIndx_32u,
                  zelsMinMaxIndx_32s, zelsMinMaxIndx_32f, zelsMinMaxIndx_32f_L, zelsMinMaxIndx_64f,
                  zelsMinMaxIndx_64f_L),
          searches);
}

namespace {

/// Every form with an index, on a vector of zeros with `peak` at some places: the first of these, at any distance.
template <class T, class F>
void expectFirst(F maxIndx, T peak)
{
    for (const int first : {0, 1, 3, 31, 33, 2047, 2048, 4095})
        for (const int second : {first, first + 1, first + 2, first + 5, 4000, 8191, 9000}) {
            std::vector<T> x(9001, T{0});
            x[static_cast<std::size_t>(first)] = peak;
            x[static_cast<std::size_t>(std::max(first, second))] = peak;
            T value{};
            int index = -7;
            ASSERT_EQ(maxIndx(x.data(), 9001, &value, &index), zelStatusOk);
            EXPECT_EQ(index, first) << "again at " << second;
        }
}

template <class T, class F, class G>
void expectSameWithoutIndex(F withIndex, G withoutIndex)
{
    support::Random random("without index");
    for (const int len : {1, 2, 40, 3000}) {
        std::vector<T> x(static_cast<std::size_t>(len));
        fill(random, x.data(), x.size(), support::Fill::mixed);
        T a{};
        T b{};
        EXPECT_EQ(withIndex(x.data(), len, &a, nullptr), zelStatusOk);
        EXPECT_EQ(withoutIndex(x.data(), len, &b), zelStatusOk);
        EXPECT_EQ(std::memcmp(&a, &b, sizeof a), 0) << "length " << len;
    }
}

} // namespace

TEST(Extrema, leavesTiesToTheFirst)
{
    expectFirst<Zel16s>(zelsMaxIndx_16s, 5);
    expectFirst<Zel32s>(zelsMaxIndx_32s, 5);
    expectFirst<Zel32f>(zelsMaxIndx_32f, 5);
    expectFirst<Zel64f>(zelsMaxIndx_64f, 5);
    expectFirst<Zel16s>(zelsMinIndx_16s, -5);
    expectFirst<Zel32s>(zelsMinIndx_32s, -5);
    expectFirst<Zel32f>(zelsMinIndx_32f, -5);
    expectFirst<Zel64f>(zelsMinIndx_64f, -5);
    expectFirst<Zel16s>(zelsMaxAbsIndx_16s, -32768);
    expectFirst<Zel32s>(zelsMaxAbsIndx_32s, INT32_MIN);
    expectFirst<Zel32f>(zelsMaxAbsIndx_32f, -5);
    expectFirst<Zel64f>(zelsMaxAbsIndx_64f, -5);
    const Zel16s limits[]{32767, -32768};
    Zel16s value{};
    int index{};
    ASSERT_EQ(zelsMaxAbsIndx_16s(limits, 2, &value, &index), zelStatusOk);
    EXPECT_EQ(value, 32767);
    EXPECT_EQ(index, 0);
    ASSERT_EQ(zelsMaxAbsIndx_16s(limits + 1, 1, &value, &index), zelStatusOk);
    EXPECT_EQ(value, 32767);
}

TEST(Extrema, passesOverBlocksOfNaN)
{
    std::vector<float> x(6000, NAN);
    x[0] = -1;
    x[5999] = -2; // behind the last whole round
    x[1] = -0.5f; // before the first boundary, or within the first block, whose fold is NaN
    float value{};
    int index = -7;
    ASSERT_EQ(zelsMaxIndx_32f(x.data(), 6000, &value, &index), zelStatusOk);
    EXPECT_TRUE((value == -1 && index == 0) || (value == -0.5f && index == 1));
    x[0] = NAN;
    ASSERT_EQ(zelsMaxIndx_32f(x.data(), 6000, &value, &index), zelStatusOk);
    EXPECT_TRUE(std::isnan(value));
    EXPECT_EQ(index, 0);
    ASSERT_EQ(zelsMaxAbsIndx_32f(x.data(), 6000, &value, &index), zelStatusOk);
    EXPECT_EQ(value, 2);
    EXPECT_EQ(index, 5999);
}

TEST(Extrema, findsSubnormalsThatCountAsZeros)
{
    std::vector<float> x(4096, -1);
    x[3000] = 1e-40f;
    float value{};
    int index{};
    const support::FloatMode flush(support::flushMode);
    ASSERT_EQ(zelsMaxIndx_32f(x.data(), 4096, &value, &index), zelStatusOk);
    EXPECT_EQ(index, 3000);
    x[3007] = 0; // ties with the subnormal number
    ASSERT_EQ(zelsMinAbsIndx_32f(x.data(), 4096, &value, &index), zelStatusOk);
    EXPECT_EQ(index, 3000);
}

TEST(Extrema, canDoWithoutAnIndex)
{
    expectSameWithoutIndex<Zel16s>(zelsMaxIndx_16s, zelsMax_16s);
    expectSameWithoutIndex<Zel32s>(zelsMinIndx_32s, zelsMin_32s);
    expectSameWithoutIndex<Zel32f>(zelsMaxIndx_32f, zelsMax_32f);
    expectSameWithoutIndex<Zel32f>(zelsMinIndx_32f_L, zelsMin_32f_L);
    expectSameWithoutIndex<Zel64f>(zelsMinIndx_64f, zelsMin_64f);
    expectSameWithoutIndex<Zel32f>(zelsMaxAbsIndx_32f, zelsMaxAbs_32f);
    expectSameWithoutIndex<Zel64f>(zelsMinAbsIndx_64f, zelsMinAbs_64f);
    expectSameWithoutIndex<Zel16s>(zelsMinAbsIndx_16s, zelsMinAbs_16s);
}

TEST(Extrema, refusesBadArguments)
{
    badArguments(EXPORTS(zelsMax_16s, zelsMax_32s, zelsMax_32f, zelsMax_32f_L, zelsMax_64f, zelsMax_64f_L,
                         zelsMin_16s, zelsMin_32s, zelsMin_32f, zelsMin_32f_L, zelsMin_64f, zelsMin_64f_L,
                         zelsMaxAbs_16s, zelsMaxAbs_32s, zelsMaxAbs_32f, zelsMaxAbs_32f_L, zelsMaxAbs_64f,
                         zelsMaxAbs_64f_L, zelsMinAbs_16s, zelsMinAbs_32s, zelsMinAbs_32f, zelsMinAbs_32f_L,
                         zelsMinAbs_64f, zelsMinAbs_64f_L, zelsMinMax_8u, zelsMinMax_16u, zelsMinMax_16s,
                         zelsMinMax_32u, zelsMinMax_32s, zelsMinMax_32f, zelsMinMax_32f_L, zelsMinMax_64f,
                         zelsMinMax_64f_L, zelsMinMaxIndx_8u, zelsMinMaxIndx_16u, zelsMinMaxIndx_16s,
                         zelsMinMaxIndx_32u, zelsMinMaxIndx_32s, zelsMinMaxIndx_32f, zelsMinMaxIndx_32f_L,
                         zelsMinMaxIndx_64f, zelsMinMaxIndx_64f_L),
                 pointersFirst);
    badArguments(EXPORTS(zelsMaxIndx_16s, zelsMaxIndx_32s, zelsMaxIndx_32f, zelsMaxIndx_32f_L,
                         zelsMaxIndx_64f, zelsMaxIndx_64f_L, zelsMinIndx_16s, zelsMinIndx_32s,
                         zelsMinIndx_32f, zelsMinIndx_32f_L, zelsMinIndx_64f, zelsMinIndx_64f_L,
                         zelsMaxAbsIndx_16s, zelsMaxAbsIndx_32s, zelsMaxAbsIndx_32f, zelsMaxAbsIndx_32f_L,
                         zelsMaxAbsIndx_64f, zelsMaxAbsIndx_64f_L, zelsMinAbsIndx_16s, zelsMinAbsIndx_32s,
                         zelsMinAbsIndx_32f, zelsMinAbsIndx_32f_L, zelsMinAbsIndx_64f, zelsMinAbsIndx_64f_L),
                 pointersFirst, array(), length(8), array(), optionalArray());
}
