// Column passes: they bring R = 2^k transforms of C values each, which lie one after the other in
// bit-reversed order, to one of R C values.
//
// Row i of the R by C matrix is multiplied by W^(rev(i) c), W = exp(-2 pi i / (R C)), c the column; then
// every column is transformed. This runs in tiles of `width` columns: gathered row by row into the work
// buffer by the first pass, finished there, and put back by the last. Inside a tile the twiddles no longer
// depend on the column.
//
// The twiddles of the first pass would take as much memory as the data. They are products of two: one that
// depends on the row and the place in the tile, and one that depends on the row and the tile.
#pragma once

#include "transforms/fft/pass.h"
#include "transforms/fft/sine.h"

/// One value in all lanes, from a table that holds it as 8 bytes.
inline OwnsVec<Zel32f> ownsSpread(const Zel32f* p)
{
    return _mm_castpd_ps(_mm_loaddup_pd(reinterpret_cast<const Zel64f*>(p)));
}
inline OwnsVec<Zel64f> ownsSpread(const Zel64f* p)
{
    return _mm_loaddup_pd(p);
}

/// Elements of T in 8 bytes, and in a complex constant of two such.
template <class T>
inline constexpr int ownsSpreadStep = 8 / static_cast<int>(sizeof(T));
template <class T>
inline constexpr int ownsConstantStep = 2 * ownsSpreadStep<T>;

template <class T>
inline OwnsSplit<T> ownsConstant(const T* p)
{
    return {ownsSpread(p), ownsSpread(p + ownsSpreadStep<T>)};
}

/// Where the parts of a column table begin.
template <class T>
struct OwnsColumnTable {
    const T* fine;      ///< [row][column of a tile] in groups
    const T* constants; ///< of the passes after the first, one after the other
    const T* coarse;    ///< [tile][row], constants

    OwnsColumnTable(const T* p, int columns, int widthOrder)
        : fine(p), constants(fine + (ZelSize{2} << (columns + widthOrder))),
          coarse(constants + (static_cast<ZelSize>(ownsConstantStep<T>) << columns))
    {
    }
};

/// Twiddles of the first pass of a tile.
template <class T>
struct OwnsTileTwiddles {
    const T* fine;   ///< of the first row
    const T* coarse; ///< of the first row
    ZelSize groups;  ///< in a row

    template <int d>
    [[gnu::always_inline]] OwnsSplit<T> turn(OwnsSplit<T> x, ZelSize group) const
    {
        const T* f = fine + 2 * ownsLanes<T> * (d * groups + group);
        const OwnsSplit<T> w{ownsLoadAligned(f), ownsLoadAligned(f + ownsLanes<T>)};
        return x * (w * ownsConstant(coarse + d * ownsConstantStep<T>));
    }
};

/// Twiddles that all columns share. The table holds those of index 1, 2, ... radix - 1.
template <class T, int radixOrder>
struct OwnsConstantTwiddles {
    const T* p;

    template <int d>
    [[gnu::always_inline]] OwnsSplit<T> turn(OwnsSplit<T> x, ZelSize) const
    {
        if constexpr (d == 0)
            return x;
        else
            return x * ownsConstant(p + (ownsReversed(d, radixOrder) - 1) * ownsConstantStep<T>);
    }
};

/// The passes of a column transform of order k: radix 4 until what remains is divisible by 3, then radix 8.
constexpr int ownsColumnRadix(int columns, int done)
{
    return (columns - done) % 3 == 0 ? 3 : 2;
}

/// The passes of one tile after the first: over rows of `groups` groups in `tile`, the last one to `out`,
/// whose rows are outStride groups apart.
template <class T, class Out>
inline void ownsTilePasses(OwnsBlocks<T> tile, ZelSize groups, int columns, const T* constants, Out out,
                           ZelSize outStride)
{
    int done = ownsColumnRadix(columns, 0);
    while (done < columns) {
        const int radixOrder = ownsColumnRadix(columns, done);
        const ZelSize rows = ZelSize{1} << done;
        const bool last = done + radixOrder == columns;
        const auto pass = [&]<int order>(std::integral_constant<int, order>) {
            constexpr int perRow = ((1 << order) - 1) * ownsConstantStep<T>;
            const ZelSize blocks = ZelSize{1} << (columns - done - order);
            for (ZelSize b = 0; b < blocks; b++) {
                const auto block = tile.from((b << (done + order)) * groups);
                for (ZelSize j = 0; j < rows; j++) {
                    const OwnsConstantTwiddles<T, order> twiddles{constants + j * perRow};
                    const auto in = block.from(j * groups);
                    if (last)
                        ownsPass<order>(in, rows * groups, out.from(j * outStride), rows * outStride,
                                        twiddles, groups);
                    else
                        ownsPass<order>(in, rows * groups, in, rows * groups, twiddles, groups);
                }
            }
            constants += rows * perRow;
        };
        if (radixOrder == 3)
            pass(std::integral_constant<int, 3>{});
        else
            pass(std::integral_constant<int, 2>{});
        done += radixOrder;
    }
}

/// All column transforms of 2^columns rows of 2^leaf values, from `work` to `out`, which may be the same
/// memory.
template <class T, class Work, class Out>
void ownsColumns(Work work, Out out, int leaf, int columns, int widthOrder, const T* pTable, T* pTile)
{
    constexpr int lanes = ownsLanes<T>;
    const OwnsColumnTable<T> table(pTable, columns, widthOrder);
    const ZelSize rowGroups = (ZelSize{1} << leaf) / lanes;
    const ZelSize groups = (ZelSize{1} << widthOrder) / lanes;
    const ZelSize rows = ZelSize{1} << columns;
    const ZelSize tiles = ZelSize{1} << (leaf - widthOrder);
    const OwnsBlocks<T> tile{pTile};
    const T* coarse = table.coarse;
    for (ZelSize t = 0; t < tiles; t++, coarse += rows * ownsConstantStep<T>) {
        const auto from = work.from(t * groups);
        const auto first = [&]<int order>(std::integral_constant<int, order>) {
            for (ZelSize i = 0; i < rows; i += 1 << order) {
                // The rows of the next butterflies lie pages apart: ask for them in time. A line is two groups.
                for (ZelSize r = i + (1 << order); r < rows && r < i + (2 << order); r++)
                    for (ZelSize g = 0; g < groups; g += 2)
                        from.prefetch(r * rowGroups + g);
                const OwnsTileTwiddles<T> twiddles{table.fine + i * groups * 2 * lanes,
                                                   coarse + i * ownsConstantStep<T>, groups};
                ownsPass<order>(from.from(i * rowGroups), rowGroups, tile.from(i * groups), groups, twiddles,
                                groups);
            }
        };
        if (ownsColumnRadix(columns, 0) == 3)
            first(std::integral_constant<int, 3>{});
        else
            first(std::integral_constant<int, 2>{});
        ownsTilePasses(tile, groups, columns, table.constants, out.from(t * groups), rowGroups);
    }
}
