// The bulk kernels on processors made up, whose cache the arrays of these tests do not fit.
#include "frame/bulk.h"
#include "frame/cacheProbe.h"
#include "frame/zelsKernelConventions.h"
#include "support/test.h"
#include "support/trace.h"

namespace madeUp {

Zel64u cacheSize;
int probes;

Zel64u zelsCacheProbe()
{
    probes++;
    return cacheSize;
}

// The kernels once more, with the probe above.
#include "frame/bulk.cpp"

} // namespace madeUp

namespace {

using madeUp::cacheSize;
using madeUp::probes;

constexpr int half = 1 << 19;
constexpr int whole = 1 << 20;

/// Source and destination near guard pages, at addresses of the given rests by 16.
class Arrays {
  public:
    Arrays(int bytes, int sourceOffset, int destinationOffset)
        : source(static_cast<std::size_t>(bytes), {Placement::atEnd, sourceOffset}),
          destination(static_cast<std::size_t>(bytes), {Placement::atEnd, destinationOffset})
    {
        Random random("bulk");
        fill(random, source.data(), source.size(), Fill::anyBits);
    }
    testing::AssertionResult copied() const
    {
        if (std::memcmp(source.data(), destination.data(), source.size()) != 0)
            return testing::AssertionFailure() << "wrong bytes";
        return destination.intact() ? testing::AssertionSuccess()
                                    : testing::AssertionFailure() << "wrote outside";
    }
    template <class T>
    testing::AssertionResult filledWith(T val) const
    {
        for (std::size_t i = 0; i < destination.size(); i++)
            if (destination[i] != reinterpret_cast<const Zel8u*>(&val)[i % sizeof val])
                return testing::AssertionFailure() << "wrong at byte " << i;
        return destination.intact() ? testing::AssertionSuccess()
                                    : testing::AssertionFailure() << "wrote outside";
    }

    Guarded<Zel8u> source, destination;
};

/// A copy by the made-up processor: how often it asked for the cache.
int probesOfCopy(Arrays& arrays)
{
    probes = 0;
    madeUp::ownsCopyBytes(arrays.source.data(), arrays.destination.data(),
                          static_cast<ZelSize>(arrays.source.size()));
    EXPECT_TRUE(arrays.copied());
    return probes;
}

template <class T>
int probesOfSet(Arrays& arrays, T val)
{
    probes = 0;
    madeUp::ownsSetBytes(ownsAs<Zel8u>(ownsSplat(val)), sizeof val, arrays.destination.data(),
                         static_cast<ZelSize>(arrays.destination.size() / sizeof val));
    EXPECT_TRUE(arrays.filledWith(val));
    return probes;
}

template <class T>
void expectSetLimit(T val, int limit)
{
    constexpr int width = sizeof(T);
    Arrays at(limit * width, 0, 0);
    EXPECT_EQ(probesOfSet(at, val), 0);
    Arrays above((limit + 1) * width, 0, 0);
    EXPECT_EQ(probesOfSet(above, val), 1);
    if (!canTrace())
        return;
    // Single bytes stream from the cache size on, wider elements above it.
    const auto streams = [&](Zel64u size) {
        cacheSize = size;
        return trace([&] { probesOfSet(above, val); }, 1000, untilStreaming).streamingStores > 0;
    };
    const Zel64u bytes = static_cast<Zel64u>((limit + 1) * width);
    EXPECT_EQ(streams(bytes - 1), true) << width;
    EXPECT_EQ(streams(bytes), width == 1) << width;
    EXPECT_EQ(streams(bytes + 1), false) << width;
    EXPECT_EQ(streams(ownsNoCacheSize), false) << width;
}

} // namespace

TEST(BulkStreaming, copiesAtEveryAlignment)
{
    cacheSize = 0;
    for (int from = 0; from < 16; from++)
        for (int to = 0; to < 16; to++) {
            Arrays arrays(whole + 16 + 37 * from + to, from, to);
            // What becomes aligned together with a misaligned destination never streams.
            EXPECT_EQ(probesOfCopy(arrays), from == to && to != 0 ? 0 : 1);
        }
}

TEST(BulkStreaming, asksForTheCacheFromTheRightLengthOn)
{
    cacheSize = ownsNoCacheSize;
    const auto copyProbes = [](int bytes, int from, int to) {
        Arrays arrays(bytes, from, to);
        return probesOfCopy(arrays);
    };
    EXPECT_EQ(copyProbes(whole - 1, 0, 0), 0);
    EXPECT_EQ(copyProbes(whole, 0, 0), 1);
    EXPECT_EQ(copyProbes(whole, 3, 0), 1);
    // What is copied up to the boundary does not count.
    EXPECT_EQ(copyProbes(whole + 14, 0, 1), 0);
    EXPECT_EQ(copyProbes(whole + 15, 0, 1), 1);

    const auto zeroProbes = [](int bytes, int to) {
        Arrays arrays(bytes, 0, to);
        probes = 0;
        madeUp::ownsZeroBytes(arrays.destination.data(), bytes);
        EXPECT_TRUE(arrays.filledWith(Zel8u{0}));
        return probes;
    };
    EXPECT_EQ(zeroProbes(half, 0), 0);
    EXPECT_EQ(zeroProbes(half + 1, 0), 1);
    EXPECT_EQ(zeroProbes(half + 15, 1), 0);
    EXPECT_EQ(zeroProbes(half + 16, 1), 1);

    expectSetLimit(Zel8u{0xA5}, half);
    expectSetLimit(Zel16s{-12345}, half);
    expectSetLimit(0x12345678, half / 2);
    expectSetLimit(Zel64s{0x123456789ABCDEF0}, half / 4);
    expectSetLimit(Zel64sc{0x123456789ABCDEF0, -2}, half / 8);
}

TEST(BulkStreaming, setsAndClearsAtEveryAlignment)
{
    cacheSize = 0;
    for (int to = 0; to < 16; to++) {
        Arrays arrays(whole + 16 * (to + 1), 0, to);
        EXPECT_EQ(probesOfSet(arrays, Zel8u{0xA5}), 1);
        EXPECT_EQ(probesOfSet(arrays, Zel16s{-12345}), 1);
        EXPECT_EQ(probesOfSet(arrays, 0x12345678), 1);
        EXPECT_EQ(probesOfSet(arrays, Zel64s{0x123456789ABCDEF0}), 1);
        EXPECT_EQ(probesOfSet(arrays, Zel64sc{0x123456789ABCDEF0, -2}), 1);
        madeUp::ownsZeroBytes(arrays.destination.data(), static_cast<ZelSize>(arrays.destination.size()));
        EXPECT_TRUE(arrays.filledWith(Zel8u{0}));
    }
}

TEST(BulkStreaming, fencesWhatItStreams)
{
    if (!canTrace())
        GTEST_SKIP() << "no single steps on this machine";
    Arrays arrays(whole + 100, 5, 0);
    const auto bytes = static_cast<ZelSize>(arrays.source.size());
    Zel8u* const pDst = arrays.destination.data();
    // From the last page but one on: the fills write the last vector first.
    const auto ofEnd = [&](auto call) {
        Zel8u* const last = pDst + bytes;
        return traceFrom(last - reinterpret_cast<std::uintptr_t>(last) % 4096 - 8192, call, 60000);
    };
    const auto copy = [&] { madeUp::ownsCopyBytes(arrays.source.data(), pDst, bytes); };
    const auto clear = [&] { madeUp::ownsZeroBytes(pDst, bytes); };

    cacheSize = static_cast<Zel64u>(2 * bytes + 1);
    const Trace copied = ofEnd(copy);
    EXPECT_GE(copied.streamingStores, 512);
    EXPECT_EQ(copied.fences, 1);
    EXPECT_TRUE(arrays.copied());
    cacheSize = static_cast<Zel64u>(2 * bytes + 2);
    EXPECT_EQ(ofEnd(copy).streamingStores, 0);

    cacheSize = static_cast<Zel64u>(bytes);
    const Trace cleared = ofEnd(clear);
    EXPECT_GE(cleared.streamingStores, 512);
    EXPECT_EQ(cleared.fences, 1);
    EXPECT_TRUE(arrays.filledWith(Zel8u{0}));
    cacheSize = static_cast<Zel64u>(bytes + 1);
    EXPECT_EQ(ofEnd(clear).streamingStores, 0);
}
