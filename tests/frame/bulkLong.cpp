// Bulk memory and the copies of neutral constants on lengths whose byte count leaves 32 bits: the plain entries count
// in 32 bits and wrap, on purpose; the long ones do not.
#include "support/test.h"

#include <initializer_list>

namespace {

constexpr auto same = [](auto x) { return x; };
constexpr auto zero = [](auto old) { return decltype(old){}; };

/// Two arrays of `bytes` bytes, with their own memory in some places.
class LongBytes {
  public:
    LongBytes(ZelSize bytes, std::initializer_list<ZelSize> places) : source(bytes), destination(bytes)
    {
        for (const ZelSize place : places) {
            from.push_back(source.window(place - 2000, 4000));
            to.push_back(destination.window(place - 2000, 4000));
        }
        reset();
    }
    void reset()
    {
        Random random("bytes");
        for (std::size_t k = 0; k < from.size(); k++)
            for (std::size_t i = 0; i < from[k].size(); i++) {
                from[k][i] = static_cast<std::byte>(random.bits() | 1);
                to[k][i] = std::byte{0};
            }
    }
    template <class T>
    const T* src() const
    {
        return reinterpret_cast<const T*>(source.begin());
    }
    template <class T>
    T* dst() const
    {
        return reinterpret_cast<T*>(destination.begin());
    }
    /// Whether the windows of the destination hold the first `bytes` bytes of the source and no more.
    testing::AssertionResult holdsCopyOf(ZelSize bytes) const
    {
        return holds(bytes, [&](std::size_t k, std::size_t i) { return from[k][i]; });
    }
    /// The same for zeros in what had been copied.
    testing::AssertionResult holdsZeros(ZelSize bytes)
    {
        return holds(bytes, [](std::size_t, std::size_t) { return std::byte{0}; });
    }
    void fillDestination()
    {
        for (const auto& window : to)
            std::fill(window.begin(), window.end(), std::byte{7});
        untouched = std::byte{7};
    }

  private:
    template <class Wanted>
    testing::AssertionResult holds(ZelSize bytes, Wanted wanted) const
    {
        for (std::size_t k = 0; k < to.size(); k++)
            for (std::size_t i = 0; i < to[k].size(); i++) {
                const ZelSize at = &to[k][i] - destination.begin();
                if (to[k][i] != (at < bytes ? wanted(k, i) : untouched))
                    return testing::AssertionFailure() << "wrong at byte " << at;
            }
        return testing::AssertionSuccess();
    }

    LongMemory source, destination;
    std::vector<std::span<std::byte>> from, to;
    std::byte untouched{0};
};

constexpr ZelSize gibibyte = ZelSize{1} << 30;

/// The length of elements of T whose bytes are 2^32 and three elements more.
template <class T>
constexpr int wrapped = static_cast<int>(4 * gibibyte / static_cast<ZelSize>(sizeof(T)) + 3);
/// The length of elements whose bytes are 2^31.
template <class T>
constexpr int halfway = static_cast<int>(2 * gibibyte / static_cast<ZelSize>(sizeof(T)));

} // namespace

TEST(BulkLong, countsBytesIn32Bits)
{
    LongBytes bytes(4 * gibibyte + 3 * 16, {0, 2 * gibibyte, 4 * gibibyte});
    const auto copiesThree = [&](auto copy) {
        bytes.reset();
        const auto call = [&]<class T>(ZelStatus (*function)(const T*, T*, int)) {
            ASSERT_EQ(function(bytes.src<T>(), bytes.dst<T>(), wrapped<T>), zelStatusOk);
            EXPECT_TRUE(bytes.holdsCopyOf(3 * sizeof(T)));
            bytes.reset();
            ASSERT_EQ(function(bytes.src<T>(), bytes.dst<T>(), wrapped<T> - 3), zelStatusOk);
            EXPECT_TRUE(bytes.holdsCopyOf(0));
        };
        call(copy);
    };
    copiesThree(zelsCopy_16sc);
    copiesThree(zelsCopy_32f);
    copiesThree(zelsCopy_32fc);
    copiesThree(zelsCopy_32sc);
    copiesThree(zelsCopy_64f);
    copiesThree(zelsCopy_64s);
    copiesThree(zelsCopy_64fc);
    copiesThree(zelsCopy_64sc);
    copiesThree(zelsMove_16sc);
    copiesThree(zelsMove_32f);
    copiesThree(zelsMove_32fc);
    copiesThree(zelsMove_32s);
    copiesThree(zelsMove_32sc);
    copiesThree(zelsMove_64f);
    copiesThree(zelsMove_64s);
    copiesThree(zelsMove_64fc);
    copiesThree(zelsMove_64sc);
    // The constants that make a copy or zeros go through these.
    copiesThree(+[](const float* s, float* d, int n) { return zelsSubC_32f(s, 0, d, n); });
    copiesThree(+[](const double* s, double* d, int n) { return zelsSubC_64f(s, -0.0, d, n); });
    copiesThree(+[](const float* s, float* d, int n) { return zelsMulC_32f(s, 1, d, n); });
    copiesThree(+[](const double* s, double* d, int n) { return zelsMulC_64f(s, 1, d, n); });

    bytes.fillDestination();
    const auto clearsThree = [&]<class T>(ZelStatus (*function)(T*, int)) {
        bytes.fillDestination();
        ASSERT_EQ(function(bytes.dst<T>(), wrapped<T>), zelStatusOk);
        EXPECT_TRUE(bytes.holdsZeros(3 * sizeof(T)));
    };
    // As a signed number, 2^31 bytes are below 0, and nothing is done.
    const auto clearsNothing = [&]<class T>(ZelStatus (*function)(T*, int)) {
        bytes.fillDestination();
        ASSERT_EQ(function(bytes.dst<T>(), halfway<T>), zelStatusOk);
        EXPECT_TRUE(bytes.holdsZeros(0));
    };
    const auto clears = [&](auto function) {
        clearsThree(function);
        clearsNothing(function);
    };
    clears(zelsZero_16sc);
    clears(zelsZero_32f);
    clears(zelsZero_32s);
    clears(zelsZero_32fc);
    clears(zelsZero_32sc);
    clears(zelsZero_64f);
    clears(zelsZero_64s);
    clears(zelsZero_64fc);
    clears(zelsZero_64sc);
    clearsNothing(zelsZero_16s);
    clears(+[](float* d, int n) { return zelsMulC_32f_I(0, d, n); });
    clears(+[](double* d, int n) { return zelsMulC_64f_I(0, d, n); });
    clears(+[](float* d, int n) { return zelsMulC_32f(d, 0, d, n); });
    clears(+[](double* d, int n) { return zelsMulC_64f(d, -0.0, d, n); });

    const auto movesNothing = [&]<class T>(ZelStatus (*function)(const T*, T*, int)) {
        bytes.fillDestination();
        ASSERT_EQ(function(bytes.src<T>(), bytes.dst<T>(), halfway<T>), zelStatusOk);
        EXPECT_TRUE(bytes.holdsCopyOf(0));
    };
    movesNothing(zelsMove_16s);
    movesNothing(zelsMove_32f);
    movesNothing(zelsMove_64f);
    movesNothing(zelsMove_64fc);
}

TEST(BulkLong, copiesAllBytesThatCountUnsigned)
{
    LongBytes bytes(2 * gibibyte + 16, {0, gibibyte, 2 * gibibyte});
    ASSERT_EQ(zelsCopy_32f(bytes.src<float>(), bytes.dst<float>(), halfway<float> + 2), zelStatusOk);
    EXPECT_TRUE(bytes.holdsCopyOf(2 * gibibyte + 8));
}

TEST(BulkLong, copiesOverTheGuardedPath)
{
    LongBytes bytes(4 * gibibyte + 12, {0, 2147483616, 2 * gibibyte, 4 * gibibyte});
    ASSERT_EQ(zelsCopy_32s(bytes.src<Zel32s>(), bytes.dst<Zel32s>(), wrapped<Zel32s>), zelStatusOk);
    EXPECT_TRUE(bytes.holdsCopyOf(4 * gibibyte + 12));
    bytes.reset();
    ASSERT_EQ(zelsAddC_32f(bytes.src<float>(), 0, bytes.dst<float>(), wrapped<float>), zelStatusOk);
    EXPECT_TRUE(bytes.holdsCopyOf(4 * gibibyte + 12));
}

TEST(BulkLong, setsAllElements)
{
    constexpr auto value = [](Zel64s val) { return val; };
    LongArray<Zel64s> array(gibibyte / 4 + 1000);
    const auto last = array.window(gibibyte / 4, 1000);
    ASSERT_EQ(zelsSet_64s(0x123456789, array.data(), gibibyte / 4 + 999), zelStatusOk);
    for (std::size_t i = 0; i < 999; i++)
        ASSERT_EQ(last[i], value(0x123456789));
    EXPECT_EQ(last[999], 0);
}

TEST(BulkLong, worksInChunks)
{
    sweepLong(same, EXPORTS(zelsCopy_64f_L), longChunk<double> + 1234, {longChunk<double>});
    sweepLong(zero, EXPORTS(zelsZero_32f_L), 2 * longChunk<float> + 1234,
              {longChunk<float>, 2 * longChunk<float>});
}
