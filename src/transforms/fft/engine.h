// The engine of the middle orders: iterative, decimation in time, radix 4 and 8.
#pragma once

#include "transforms/fft/pass.h"
#include "transforms/fft/tables.h"

/// Arrays of this order stay in the first-level cache together with their twiddles.
inline constexpr int ownsFftResident = 10;

/// Brings the blocks of 2^done values in an array of `count` times 2^order to `count` blocks, in place.
/// `pTwiddles` and `whole` are the tables and the order of the whole transform. Parts that fit the
/// first-level cache are finished one after the other.
template <class T, class Work>
void ownsFftMiddle(Work work, int done, int order, ZelSize count, const T* pTwiddles, int whole)
{
    constexpr int lanes = ownsLanes<T>;
    const int parts = OwnsFftPasses::radixOrderBefore(whole, order);
    if (order > ownsFftResident && order - parts > done) {
        const ZelSize part = (ZelSize{1} << (order - parts)) / lanes;
        for (ZelSize i = 0; i < count << parts; i++)
            ownsFftMiddle(work.from(i * part), done, order - parts, 1, pTwiddles, whole);
        done = order - parts;
    }
    while (done < order) {
        const T* table = pTwiddles + OwnsFftPasses::offset(whole, done);
        const ZelSize quarter = (ZelSize{1} << done) / lanes;
        const int radixOrder = OwnsFftPasses::radixOrder(whole, done);
        const ZelSize blocks = count << (order - done - radixOrder);
        if (radixOrder == 4)
            ownsMiddlePass<4>(work, quarter, blocks, table);
        else
            ownsMiddlePass<3>(work, quarter, blocks, table);
        done += radixOrder;
    }
}

/// The last pass, of the 2^radixOrder parts that the whole array is by then.
template <int radixOrder, class T, class Sink>
[[gnu::always_inline]] inline void ownsLastPass(OwnsBlocks<T> work, Sink sink, ZelSize length,
                                                const T* pTwiddles)
{
    const OwnsTableTwiddles<T, radixOrder> twiddles{pTwiddles};
    const ZelSize part = (length >> radixOrder) / ownsLanes<T>;
    if (radixOrder == 4 && part == OwnsFirstQuarter<T>())
        ownsPass<radixOrder>(work, OwnsFirstQuarter<T>(), sink, OwnsFirstQuarter<T>(), twiddles,
                             OwnsFirstQuarter<T>());
    else
        ownsPass<radixOrder>(work, part, sink, part, twiddles, part);
}

/// The last pass to two long arrays. Eight rows of work and sixteen of the destination begin on the same lines of the
/// first-level cache, more than it has ways: so a stretch of all rows is finished aside and then copied row by row.
template <int radixOrder, class T, class Sink>
[[gnu::always_inline]] inline void ownsLastPassAside(OwnsBlocks<T> work, Sink sink, ZelSize length,
                                                     const T* pTwiddles)
{
    using Stretch = std::integral_constant<ZelSize, 16>; // groups
    alignas(64) T stretch[OwnsBlocks<T>::step * Stretch() << radixOrder];
    const OwnsBlocks<T> aside{stretch};
    const ZelSize part = (length >> radixOrder) / ownsLanes<T>;
    for (ZelSize first = 0; first < part; first += Stretch()) {
        const OwnsTableTwiddles<T, radixOrder> twiddles{pTwiddles +
                                                        first * OwnsTableTwiddles<T, radixOrder>::perGroup};
        ownsPass<radixOrder>(work.from(first), part, aside, Stretch(), twiddles, Stretch());
        for (ZelSize row = 0; row < 1 << radixOrder; row++)
            for (ZelSize g = 0; g < Stretch(); g++)
                sink.store(row * part + first + g, aside.load(row * Stretch() + g));
    }
}

/// A transform of order 6 and more from `src` to `sink` by way of the working array, which may be the memory of
/// the sink.
template <bool inverse, class T, class Source, class Sink>
[[gnu::always_inline]] inline void ownsFftRun(Source src, Sink sink, OwnsBlocks<T> work,
                                              const OwnsFftPlan<T>& plan, int order)
{
    const ZelSize length = ZelSize{1} << order;
    const ZelSize steps = length / (ZelSize{8} * ownsFftLine<T>);
    const ZelSize leaf = length / (ownsFftLine<T> * ownsLanes<T>);
    const int first = OwnsFftPasses::first(order);
    if (first == 3)
        ownsFirstPass<3, inverse>(src, length / 8, plan.bitRev, steps, work, leaf);
    else
        ownsFirstPass<2, inverse>(src, length / 8, plan.bitRev, steps, work, leaf);
    const int last = OwnsFftPasses::radixOrderBefore(order, order);
    ownsFftMiddle(work, first, order - last, ZelSize{1} << last, plan.twiddles, order);
    const T* pTwiddles = plan.twiddles + OwnsFftPasses::offset(order, order - last);
    // Orders that long end with radix 8.
    if (Sink::split && length * static_cast<ZelSize>(sizeof(T)) >= ZelSize{8} * 4096)
        return ownsLastPassAside<3>(work, sink, length, pTwiddles);
    if (last == 4)
        ownsLastPass<4>(work, sink, length, pTwiddles);
    else
        ownsLastPass<3>(work, sink, length, pTwiddles);
}
