// The engine of the largest orders: leaves of a length that the caches hold, then column transforms.
//
// The array is passed over a few times in all: once by the leaves, which take the reordering along when
// source and destination differ, once more by the reordering when they are one, and once by each level of
// columns.
#pragma once

#include "transforms/fft/columns.h"
#include "transforms/fft/engine.h"
#include "transforms/fft/tileReverse.h"

/// The passes of a leaf whose first pass is done.
template <class T, class Work>
inline void ownsFftLeaf(Work work, const OwnsFftPlan<T>& plan, int leaf)
{
    ownsFftMiddle(work, OwnsFftPasses::first(leaf), leaf, 1, plan.twiddles, leaf);
}

/// All leaves from a source that is not the destination, one line of leaves at a time: the first pass reads
/// whole lines of the source, and the rest of the passes find their leaves in the caches.
template <bool inverse, class T, class Source>
void ownsFftLeavesReordered(Source src, OwnsBlocks<T> work, const OwnsFftPlan<T>& plan, int order, int leaf)
{
    const ZelSize length = ZelSize{1} << order;
    const ZelSize leafGroups = (ZelSize{1} << leaf) / ownsLanes<T>;
    const ZelSize apart = length / (ownsFftLine<T> * ownsLanes<T>);
    const ZelSize steps = ZelSize{1} << (leaf - 3);
    const int setOrder = order - leaf - ownsFftLineOrder<T>;
    for (int set = 0; set < 1 << setOrder; set++) {
        const auto from = src.from(ZelSize{set} * ownsFftLine<T>);
        const auto to = work.from(ownsReversed(set, setOrder) * leafGroups);
        if (OwnsFftPasses::first(leaf) == 3)
            ownsFirstPass<3, inverse, true>(from, length / 8, plan.bitRev, steps, to, apart);
        else
            ownsFirstPass<2, inverse, true>(from, length / 8, plan.bitRev, steps, to, apart);
        for (int i = 0; i < ownsFftLine<T>; i++)
            ownsFftLeaf(to.from(i * apart), plan, leaf);
    }
}

/// `count` leaves in place, from values in bit-reversed order.
template <bool inverse, class T, class Source, class Work>
void ownsFftLeavesInOrder(Source src, Work work, const OwnsFftPlan<T>& plan, int leaf, ZelSize count)
{
    const ZelSize length = ZelSize{1} << leaf;
    for (ZelSize i = 0; i < count; i++) {
        const auto from = src.from(i * length);
        const auto to = work.from(i * length / ownsLanes<T>);
        if (OwnsFftPasses::first(leaf) == 3)
            ownsFirstPassInOrder<3, inverse, T>(from, to, length / 8);
        else
            ownsFirstPassInOrder<2, inverse, T>(from, to, length / 8);
        ownsFftLeaf(to, plan, leaf);
    }
}

/// The levels of columns over finished leaves. `leaves` finishes the leaves of `count` values in front of
/// them, so that the inner level finds them in the caches; it may have nothing to do.
template <class T, class Work, class Sink, class Leaves>
void ownsFftLevels(Work work, Sink sink, const OwnsFftPlan<T>& plan, int order, const OwnsFftShape& shape,
                   T* pTile, Leaves leaves)
{
    int done = shape.leaf;
    if (shape.levels == 1) {
        leaves(0, order);
    } else {
        done += shape.columns[0];
        for (ZelSize i = 0; i < ZelSize{1} << (order - done); i++) {
            const auto block = work.from((i << done) / ownsLanes<T>);
            leaves(i, done);
            ownsColumns(block, block, shape.leaf, shape.columns[0], shape.widthOrder[0],
                        plan.levelTwiddles[1], pTile);
        }
    }
    const int outer = shape.levels - 1;
    ownsColumns(work, sink, done, shape.columns[outer], shape.widthOrder[outer], plan.levelTwiddles[0],
                pTile);
}

/// A transform of interleaved values in the destination array.
template <bool inverse, bool scaled, class T>
void ownsFftCombine(const T* pSrc, T* pDst, const OwnsFftPlan<T>& plan, int order, Zel8u* pWork)
{
    // Tiles give up less of a long source's pages than lines do.
    constexpr int highestReordered = 22;
    const OwnsFftShape shape = ownsFftShape<T>(order);
    const OwnsBlocks<T> work{pDst};
    const OwnsPairSink<T, inverse, scaled> sink{pDst, plan.scale};
    T* pTile = reinterpret_cast<T*>(pWork);
    if (pSrc != pDst && order <= highestReordered) {
        ownsFftLeavesReordered<inverse>(OwnsPairSource<T>{pSrc}, work, plan, order, shape.leaf);
        ownsFftLevels(work, sink, plan, order, shape, pTile, [](ZelSize, int) {});
        return;
    }
    ownsTileReverse<2 * sizeof(T), OwnsFftTraits<T>::tileOrder>(
        reinterpret_cast<const Zel8u*>(pSrc), reinterpret_cast<Zel8u*>(pDst), order, plan.bitRev, pWork);
    ownsFftLevels(work, sink, plan, order, shape, pTile, [&](ZelSize i, int part) {
        ownsFftLeavesInOrder<inverse>(OwnsPairSource<T>{pDst + ((2 * i) << part)},
                                      work.from((i << part) / ownsLanes<T>), plan, shape.leaf,
                                      ZelSize{1} << (part - shape.leaf));
    });
}

/// A forward transform of real and imaginary parts in two arrays.
template <bool scaled, class T>
void ownsFftCombineSplit(OwnsSplitSource<T> src, OwnsSplitSink<T, scaled> sink, const OwnsFftPlan<T>& plan,
                         Zel8u* pWork)
{
    const OwnsFftShape shape = ownsFftShape<T>(plan.order);
    const OwnsSplitBlocks<T> work{sink.re, sink.im};
    const auto reverse = [&](const T* pSrc, T* pDst) {
        ownsTileReverse<sizeof(T), OwnsFftTraits<T>::tileOrder>(reinterpret_cast<const Zel8u*>(pSrc),
                                                                reinterpret_cast<Zel8u*>(pDst), plan.order,
                                                                plan.bitRev, pWork);
    };
    reverse(src.re, sink.re);
    reverse(src.im, sink.im);
    ownsFftLevels(work, sink, plan, plan.order, shape, reinterpret_cast<T*>(pWork), [&](ZelSize i, int part) {
        ownsFftLeavesInOrder<false>(OwnsSplitSource<T>{sink.re + (i << part), sink.im + (i << part)},
                                    work.from((i << part) / ownsLanes<T>), plan, shape.leaf,
                                    ZelSize{1} << (part - shape.leaf));
    });
}
