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
    if (order > ownsFftResident && order - 3 > done) {
        const ZelSize part = (ZelSize{1} << (order - 3)) / lanes;
        for (ZelSize i = 0; i < 8 * count; i++)
            ownsFftMiddle(work.from(i * part), done, order - 3, 1, pTwiddles, whole);
        done = order - 3;
    }
    while (done < order) {
        const T* table = pTwiddles + OwnsFftPasses::offset(whole, done);
        const ZelSize quarter = (ZelSize{1} << done) / lanes;
        const int radixOrder = OwnsFftPasses::radixOrder(whole, done);
        const ZelSize blocks = count << (order - done - radixOrder);
        if (radixOrder == 2)
            ownsMiddlePass<2>(work, quarter, blocks, table);
        else
            ownsMiddlePass<3>(work, quarter, blocks, table);
        done += radixOrder;
    }
}

/// The last pass, of the eight parts that the whole array is by then.
template <class T, class Sink>
void ownsLastPass(OwnsBlocks<T> work, Sink sink, ZelSize eighth, const T* pTwiddles)
{
    ownsPass<3>(work, eighth, sink, eighth, OwnsTableTwiddles<T, 3>{pTwiddles}, eighth);
}

/// A transform of order 6 and more from `src` to `sink` by way of the working array, which may be the memory
/// of the sink.
template <bool inverse, class T, class Source, class Sink>
void ownsFftRun(Source src, Sink sink, OwnsBlocks<T> work, const OwnsFftPlan<T>& plan, int order)
{
    constexpr int lanes = ownsLanes<T>;
    const ZelSize length = ZelSize{1} << order;
    const ZelSize steps = length / (8 * ownsFftLine<T>);
    const ZelSize leaf = length / (ownsFftLine<T> * lanes);
    const int first = OwnsFftPasses::first(order);
    if (first == 3)
        ownsFirstPass<3, inverse>(src, length / 8, plan.bitRev, steps, work, leaf);
    else
        ownsFirstPass<2, inverse>(src, length / 8, plan.bitRev, steps, work, leaf);
    ownsFftMiddle(work, first, order - 3, 8, plan.twiddles, order);
    ownsLastPass(work, sink, length / (8 * lanes), plan.twiddles + OwnsFftPasses::offset(order, order - 3));
}
