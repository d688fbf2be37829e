// The forms of an entry that lead to another entry, on entries that only write down how they were called.
#include "frame/entry.h"

#include "support/test.h"

namespace {

struct Call {
    ZelSize source, destination; ///< distance from the start, in bytes
    int len;
    bool operator==(const Call&) const = default;
};
std::vector<Call> calls;
std::vector<ZelStatus> statuses;

// Addresses that are never followed.
template <class T>
T* addressAt(ZelSize bytes)
{
    return reinterpret_cast<T*>((ZelSize{1} << 45) + bytes);
}
ZelSize distance(const void* p)
{
    return static_cast<ZelSize>(reinterpret_cast<std::uintptr_t>(p)) - (ZelSize{1} << 45);
}

template <class S, class D>
ZelStatus shortForm(const S* pSrc, Zel32f val, D* pDst, int len)
{
    EXPECT_EQ(val, 2.5f);
    calls.push_back({distance(pSrc), distance(pDst), len});
    return calls.size() <= statuses.size() ? statuses[calls.size() - 1] : ZelStatus{zelStatusOk};
}

template <class S, class D, class Named>
ZelStatus longForm(ZelSize len, std::vector<ZelStatus> results = {})
{
    calls.clear();
    statuses = std::move(results);
    return ownsChunked<shortForm<S, D>, Named>(len, addressAt<const S>(0), 2.5f, addressAt<D>(0));
}

ZelStatus realForm(const Zel32f* pSrc, Zel32f* pDst, int len)
{
    calls.push_back({distance(pSrc), distance(pDst), len});
    return zelWarnDivByZero;
}

} // namespace

TEST(Entry, cutsLongVectorsAtTheMostBytesOf31Bits)
{
    constexpr ZelSize chunk4 = 536870911;
    constexpr ZelSize chunk8 = 268435455;
    constexpr ZelSize chunk16 = 134217727;
    EXPECT_EQ((longForm<Zel32f, Zel32f, Zel32f>(chunk4)), zelStatusOk);
    EXPECT_EQ(calls, (std::vector<Call>{{0, 0, chunk4}}));
    EXPECT_EQ((longForm<Zel32f, Zel32f, Zel32f>(2 * chunk4 + 1)), zelStatusOk);
    EXPECT_EQ(calls, (std::vector<Call>{
                         {0, 0, chunk4}, {4 * chunk4, 4 * chunk4, chunk4}, {8 * chunk4, 8 * chunk4, 1}}));
    // Every pointer advances by its own elements; the chunk is that of the type in the function's name.
    EXPECT_EQ((longForm<Zel32fc, Zel32f, Zel32fc>(chunk8 + 2)), zelStatusOk);
    EXPECT_EQ(calls, (std::vector<Call>{{0, 0, chunk8}, {8 * chunk8, 4 * chunk8, 2}}));
    EXPECT_EQ((longForm<Zel64fc, Zel64fc, Zel64fc>(2 * chunk16)), zelStatusOk);
    EXPECT_EQ(calls, (std::vector<Call>{{0, 0, chunk16}, {16 * chunk16, 16 * chunk16, chunk16}}));
}

TEST(Entry, endsLongVectorsAtAnErrorAndTellsTheLastStatus)
{
    constexpr ZelSize three = 3 * longChunk<Zel64f>;
    EXPECT_EQ((longForm<Zel64f, Zel64f, Zel64f>(three, {zelWarnDivByZero, zelWarnDivByZero})), zelStatusOk);
    EXPECT_EQ(calls.size(), 3U);
    EXPECT_EQ((longForm<Zel64f, Zel64f, Zel64f>(three, {zelStatusOk, zelWarnLnZero, zelWarnLnNegative})),
              zelWarnLnNegative);
    EXPECT_EQ((longForm<Zel64f, Zel64f, Zel64f>(three, {zelStatusOk, zelErrRange, zelStatusOk})),
              zelErrRange);
    EXPECT_EQ(calls.size(), 2U);
    for (const ZelSize len : {ZelSize{0}, ZelSize{-1}, INT64_MIN, -(ZelSize{1} << 32) + 1}) {
        EXPECT_EQ((longForm<Zel64f, Zel64f, Zel64f>(len)), zelErrSize);
        EXPECT_EQ(calls.size(), 0U);
    }
}

TEST(Entry, doublesComplexLengths)
{
    const auto doubled = [](int len) {
        calls.clear();
        return ownsDoubling<realForm>(len, addressAt<const Zel32fc>(16), addressAt<Zel32fc>(80));
    };
    EXPECT_EQ(doubled(0), zelErrSize);
    EXPECT_EQ(doubled(INT32_MIN), zelErrSize);
    EXPECT_TRUE(calls.empty());
    EXPECT_EQ(doubled(5), zelWarnDivByZero);
    EXPECT_EQ(doubled((1 << 30) - 1), zelWarnDivByZero);
    EXPECT_EQ(calls, (std::vector<Call>{{16, 80, INT32_MAX - 1}}));
    // Beyond, the real form meets a length below 1.
    EXPECT_EQ(doubled(1 << 30), zelWarnDivByZero);
    EXPECT_EQ(calls, (std::vector<Call>{{16, 80, INT32_MIN}}));
}
