// The passes: sweeps of butterflies over an array.
#pragma once

#include "transforms/fft/access.h"
#include "transforms/fft/butterfly.h"

/// Values of one 64-byte line: the first pass takes whole lines of the source.
template <class T>
inline constexpr int ownsFftLine = 64 / (2 * static_cast<int>(sizeof(T)));
template <class T>
inline constexpr int ownsFftLineOrder = sizeof(T) == 4 ? 3 : 2;

/// Twiddles of a pass from its table: for each group the vectors of index 1, 2, ... radix - 1, real parts and
/// imaginary parts. Input d of a butterfly comes from a transform whose results lie in bit-reversed order, so
/// it takes the twiddle of its reversed index; input 0 takes none.
template <class T, int radixOrder>
struct OwnsTableTwiddles {
    static constexpr int row = 2 * ownsLanes<T>;
    static constexpr int perGroup = ((1 << radixOrder) - 1) * row;
    const T* p;

    template <int d>
    [[gnu::always_inline]] OwnsSplit<T> turn(OwnsSplit<T> x, ZelSize group) const
    {
        if constexpr (d == 0) {
            return x;
        } else {
            const T* w = p + group * perGroup + (ownsReversed(d, radixOrder) - 1) * row;
            return x * OwnsSplit<T>{ownsLoadAligned(w), ownsLoadAligned(w + ownsLanes<T>)};
        }
    }
};

/// `groups` groups of butterflies. Input d stands d * inStride groups after input 0, output k k * outStride
/// groups after output 0. Strides and counts may be constants of the compiler.
template <int radixOrder, class In, class Out, class Twiddles, class InStride, class OutStride, class Groups>
[[gnu::always_inline]] inline void ownsPass(In in, InStride inStride, Out out, OutStride outStride,
                                            Twiddles twiddles, Groups groups)
{
    constexpr int radix = 1 << radixOrder;
    for (ZelSize g = 0; g < groups; g++) {
        const auto take = [&](auto d)
                              OWNS_INLINE { return twiddles.template turn<d>(in.load(g + d * inStride), g); };
        if constexpr (radix == 16) {
            // More than the registers hold: by fours, so that what leaves them does so once.
            decltype(in.load(0)) x[4][4];
            ownsEach<4>([&](auto a) OWNS_INLINE {
                ownsEach<4>([&](auto d)
                                OWNS_INLINE { x[a][d] = take(std::integral_constant<int, 4 * a + d>{}); });
                ownsButterfly(x[a]);
            });
            ownsEach<4>([&](auto k) OWNS_INLINE {
                ownsButterflyAcross<k>(x);
                ownsEach<4>([&](auto a) OWNS_INLINE { out.store(g + (4 * a + k) * outStride, x[a][k]); });
            });
        } else {
            decltype(in.load(0)) x[radix];
            ownsEach<radix>([&](auto d) OWNS_INLINE { x[d] = take(d); });
            ownsButterfly(x);
            ownsEach<radix>([&](auto k) OWNS_INLINE { out.store(g + k * outStride, x[k]); });
        }
    }
}

/// A pass in place over `blocks` blocks, each made of 2^radixOrder transforms of `quarter` groups.
template <int radixOrder, class T, class Work, class Quarter>
[[gnu::always_inline]] inline void ownsPassOverBlocks(Work work, Quarter quarter, ZelSize blocks,
                                                      OwnsTableTwiddles<T, radixOrder> twiddles)
{
    for (ZelSize b = 0; b < blocks; b++, work = work.from(quarter << radixOrder))
        ownsPass<radixOrder>(work, quarter, work, quarter, twiddles, quarter);
}

/// The groups that the first pass finishes, as a constant: in the pass behind it addresses and counts are known.
template <class T>
using OwnsFirstQuarter = std::integral_constant<ZelSize, 4 / ownsLanes<T>>;

template <int radixOrder, class T, class Work>
inline void ownsMiddlePass(Work work, ZelSize quarter, ZelSize blocks, const T* pTwiddles)
{
    const OwnsTableTwiddles<T, radixOrder> twiddles{pTwiddles};
    if (quarter == OwnsFirstQuarter<T>())
        ownsPassOverBlocks(work, OwnsFirstQuarter<T>(), blocks, twiddles);
    else
        ownsPassOverBlocks(work, quarter, blocks, twiddles);
}

/// The butterflies of a first pass over 8 rows: one of 8 or two of 4, without twiddles. Each value of a vector
/// belongs to a column of its own; store(v, b, x) receives group b of the 8 results of column v. The inverse
/// transform goes on with real and imaginary parts exchanged, which makes it a forward one.
template <int radixOrder, bool inverse, class T, template <class> class X, class Store>
[[gnu::always_inline]] inline void ownsFirstButterflies(X<T> (&x)[8 >> radixOrder][1 << radixOrder],
                                                        Store store)
{
    constexpr int radix = 1 << radixOrder;
    constexpr int values = X<T>::values;
    X<T> y[8];
    ownsEach<8 / radix>([&](auto b) OWNS_INLINE {
        ownsButterfly(x[b]);
        ownsEach<radix>([&](auto k) OWNS_INLINE { y[b * radix + k] = x[b][ownsOutput<inverse>(k, radix)]; });
    });
    ownsEach<8 / ownsLanes<T>>([&](auto b) OWNS_INLINE {
        OwnsSplit<T> block[values];
        ownsTurned(y + b * ownsLanes<T>, block);
        ownsEach<values>([&](auto v)
                             OWNS_INLINE { store(v, b, inverse ? ownsExchanged(block[v]) : block[v]); });
    });
}

/// The first pass with the reordering. The source is a matrix of 8 rows; pIndex lists the columns at which
/// the steps begin. A step takes one line of columns from each row, so that every line of the source is used
/// up while it is at hand, and leaves for each column eight consecutive values; those of different columns
/// lie leafGroups groups apart, in bit-reversed order of the columns. Where the source is long, `ahead` asks for
/// the lines of a later step: no two of them share a page, so that no processor sees them coming.
template <int radixOrder, bool inverse, bool ahead = false, class T, class Source>
inline void ownsFirstPass(Source src, ZelSize rowStride, const Zel32s* pIndex, ZelSize steps,
                          OwnsBlocks<T> work, ZelSize leafGroups)
{
    constexpr int radix = 1 << radixOrder;
    using Values = typename Source::Values;
    constexpr int values = Values::values;
    for (ZelSize n = 0; n < steps; n++) {
        // The step that takes the other half of the same lines is half of all steps away.
        const ZelSize i = Source::halfLines ? n % 2 * (steps / 2) + n / 2 : n;
        const auto to = work.from(i * (8 / ownsLanes<T>));
        if constexpr (ahead) {
            const ZelSize at = pIndex[i + 3 < steps ? i + 3 : i];
            ownsEach<8>([&](auto d) OWNS_INLINE { src.prefetch(at + d * rowStride); });
        }
        ownsEach<ownsFftLine<T> / values>([&](auto pair) OWNS_INLINE {
            const ZelSize at = pIndex[i] + pair * values;
            Values x[8 / radix][radix];
            ownsEach<8>([&](auto d) OWNS_INLINE {
                src.load(at + ownsReversed(d, 3) * rowStride, x[d / radix][d % radix]);
            });
            ownsFirstButterflies<radixOrder, inverse, T>(
                x, [&](auto v, auto b, OwnsSplit<T> group) OWNS_INLINE {
                    constexpr int leaf = ownsReversed(pair * values + v, ownsFftLineOrder<T>);
                    to.store(leaf * leafGroups + b, group);
                });
        });
    }
}

/// The first pass over values that lie in bit-reversed order already: `blocks` blocks of eight.
template <int radixOrder, bool inverse, class T, class Source, class Work>
inline void ownsFirstPassInOrder(Source src, Work work, ZelSize blocks)
{
    constexpr int radix = 1 << radixOrder;
    constexpr int values = OwnsPairs<T>::values;
    for (ZelSize i = 0; i < blocks; i += values) {
        OwnsPairs<T> x[8 / radix][radix];
        if constexpr (values == 1) {
            ownsEach<8>([&](auto d) OWNS_INLINE { src.load(8 * i + d, x[d / radix][d % radix]); });
        } else {
            ownsEach<4>([&](auto k) OWNS_INLINE {
                constexpr int d = 2 * k;
                OwnsPairs<T> a;
                OwnsPairs<T> b;
                src.load(8 * i + d, a);
                src.load(8 * (i + 1) + d, b);
                x[d / radix][d % radix].v = _mm_movelh_ps(a.v, b.v);
                x[d / radix][d % radix + 1].v = _mm_movehl_ps(b.v, a.v);
            });
        }
        ownsFirstButterflies<radixOrder, inverse, T>(x, [&](auto v, auto b, OwnsSplit<T> group) OWNS_INLINE {
            work.store((i + v) * (8 / ownsLanes<T>)+b, group);
        });
    }
}
