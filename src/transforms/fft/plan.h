// The plan of a power-of-two Fourier transform: its record, the orders at which its form changes, and the
// bytes of its parts.
//
// One record serves all forms. What follows it in the caller's memory, each part on a 64-byte boundary: the
// index table of the reordering, the twiddles, in a real plan the two recombination tables, and in a plan of
// the largest orders the tables of the column passes. ownsFftLayout tells the bytes of every part; the size
// queries add them up and Init places the parts by them.
#pragma once

#include "frame/carve.h"
#include "frame/vec.h"
#include "zels/transforms.h"

/// First word of a plan: which functions may run it.
enum OwnsFftTag : Zel32s {
    ownsTagFft_C_32fc = 5,
    ownsTagFft_C_32f = 6,
    ownsTagFft_R_32f = 7,
    ownsTagFft_C_64fc = 8,
    ownsTagFft_C_64f = 9,
    ownsTagFft_R_64f = 10
};

template <class T>
struct OwnsFftPlan {
    Zel32s tag;
    Zel32s order;
    Zel32s scaleFwd; ///< nonzero: the forward result is multiplied by `scale`
    Zel32s scaleInv; ///< nonzero: the inverse result is multiplied by `scale`
    T scale;
    Zel32s hint;
    Zel32s workBytes; ///< bytes of work buffer that a run needs
    Zel32s reserved0;
    const Zel32s* bitRev;
    const T* twiddles;
    const void* reserved1[2];
    const T* recombFwd;
    const T* recombInv;
    const void* reserved2[3];
    const T* levelTwiddles[3];
};

struct ZelsFftPlan_C_32fc : OwnsFftPlan<Zel32f> {};
struct ZelsFftPlan_C_32f : OwnsFftPlan<Zel32f> {};
struct ZelsFftPlan_R_32f : OwnsFftPlan<Zel32f> {};
struct ZelsFftPlan_C_64fc : OwnsFftPlan<Zel64f> {};
struct ZelsFftPlan_C_64f : OwnsFftPlan<Zel64f> {};
struct ZelsFftPlan_R_64f : OwnsFftPlan<Zel64f> {};

/// Up to this order a complex transform is one straight-line kernel without tables.
inline constexpr int ownsFftStraight = 5;

/// The stored sine tables serve up to this order; plans above it need memory for one of their own.
inline constexpr int ownsFftStoredSines = 10;

/// The orders at which plans change their form, and what else differs between the precisions.
template <class T>
struct OwnsFftTraits;

template <>
struct OwnsFftTraits<Zel32f> {
    static constexpr int highest = 28;      ///< of complex plans; real plans reach one more
    static constexpr int straightReal = 4;  ///< up to here a real transform is one straight-line kernel
    static constexpr int decomposed = 18;   ///< from here the transform runs by leaves and columns
    static constexpr int realTwoLevel = 21; ///< from here the recombination tables are products of two levels
    static constexpr int tileOrder = 6;     ///< the tiled reversal moves squares of 2^6 by 2^6 values
    static constexpr int fineOrder = 10;    ///< 2^10 pairs in the fine recombination table

    struct Budget {
        int columns; ///< order of the column transforms that a level's bytes are counted for
        int tile;    ///< order of the tile that they run in
    };
    static constexpr Budget budget(int order) { return order < 20 ? Budget{4, 10} : Budget{8, 14}; }
};

template <>
struct OwnsFftTraits<Zel64f> {
    static constexpr int highest = 27;
    static constexpr int straightReal = 5;
    static constexpr int decomposed = 17;
    static constexpr int realTwoLevel = 19;
    static constexpr int tileOrder = 5;
    static constexpr int fineOrder = 9;

    using Budget = OwnsFftTraits<Zel32f>::Budget;
    static constexpr Budget budget(int order) { return order < 19 ? Budget{6, 10} : Budget{8, 13}; }
};

/// How the transforms of the largest orders are taken apart: leaves of 2^leaf values, then the column
/// transforms of one or two levels, the inner level first.
struct OwnsFftShape {
    int leaf;
    int levels;
    int columns[2];    ///< order of the column transforms of a level
    int widthOrder[2]; ///< 2^widthOrder columns in a tile
};

/// How a transform of the largest orders is taken apart.
template <class T>
constexpr OwnsFftShape ownsFftShape(int order)
{
    constexpr bool single = sizeof(T) == 4;
    // The work buffer holds a tile of this order.
    const int tile = single ? 14 : order == 17 ? 11 : order == 18 ? 12 : 13;
    const auto width = [=](int columns) { return tile - columns < 5 ? tile - columns : 5; };
    OwnsFftShape shape{};
    const int twoLevels = single ? 26 : 25;
    if (order < twoLevels) {
        const int columns = order < (single ? 18 : 19) ? 8 : order < 22 ? 9 : 10;
        shape = {order - columns, 1, {columns, 0}, {width(columns), 0}};
    } else {
        const int leaf = order == 27 && !single ? 11 : order == 25 ? 11 : 12;
        const int inner = (order - leaf + 1) / 2;
        const int outer = order - leaf - inner;
        shape = {leaf, 2, {inner, outer}, {width(inner), width(outer)}};
    }
    return shape;
}

/// Bytes of the parts of a plan, all multiples of 64.
struct OwnsFftLayout {
    ZelSize bitRev = 0;
    ZelSize twiddles = 0;
    ZelSize recomb = 0;  ///< of each of the two recombination tables
    ZelSize levels[3]{}; ///< of the column tables, from the whole transform down
    ZelSize work = 0;    ///< what the record says; a run's buffer has 64 bytes more for rounding up
    ZelSize init = 0;    ///< bytes of the sine table that is needed while the plan is built

    constexpr bool tables() const { return twiddles + recomb != 0; }

    constexpr ZelSize planSize() const
    {
        // Rounding up and the record take at most 208 bytes; a record with tables ends on a 64-byte boundary.
        return tables() ? bitRev + twiddles + 2 * recomb + levels[0] + levels[1] + levels[2] + 256 : 208;
    }
    constexpr ZelSize initSize() const { return init != 0 ? init + 64 : 0; }
    constexpr ZelSize workSize() const { return work != 0 ? work + 64 : 0; }
};

/// Bytes of a sine table: a quarter wave of 2^order/4 + 1 values.
template <class T>
constexpr ZelSize ownsFftSineBytes(int order)
{
    return ownsRounded64(((ZelSize{1} << order) / 4 + 1) * static_cast<ZelSize>(sizeof(T)));
}

namespace owns_detail {

/// The parts that serve a complex transform of this order.
template <class T>
constexpr void layOutComplex(OwnsFftLayout& layout, int order)
{
    using Traits = OwnsFftTraits<T>;
    constexpr ZelSize bytes = 2 * sizeof(T);
    const auto indexTable = [](int n) { return ownsFftSineBytes<Zel32f>(n); };
    // The pad behind the twiddles is part of the size: 8 bytes in both precisions, on top of rounding up.
    const auto twiddleTable = [](int n) { return ownsRounded64((bytes << n) + (sizeof(T) == 8 ? 16 : 8)); };

    if (order <= ownsFftStraight)
        return;
    if (order < Traits::decomposed) {
        layout.bitRev = indexTable(order);
        layout.twiddles = twiddleTable(order);
        layout.work = bytes << order;
        return;
    }
    int level = 0;
    int leaf = order;
    ZelSize tile = 0;
    while (leaf >= Traits::decomposed) {
        const auto budget = Traits::budget(leaf);
        const ZelSize tileBytes = bytes << budget.tile;
        tile = tile < tileBytes ? tileBytes : tile;
        layout.levels[level++] = bytes << (leaf - 1);
        leaf -= budget.columns;
    }
    layout.twiddles = twiddleTable(leaf);
    layout.work = bytes << leaf;
    layout.work = layout.work < tile ? tile : layout.work;
    if (order == Traits::decomposed) {
        layout.bitRev = indexTable(order);
    } else {
        // Two tiles of the reversal, its table of tiles, and the list of exchanges within one.
        constexpr ZelSize values = ZelSize{1} << (2 * Traits::tileOrder);
        const ZelSize tiles = 2 * values * bytes;
        layout.work = layout.work < tiles ? tiles : layout.work;
        layout.bitRev = (ZelSize{4} << (order - 2 * Traits::tileOrder)) + values + 64;
    }
}

} // namespace owns_detail

template <class T>
constexpr OwnsFftLayout ownsFftLayoutComplex(int order)
{
    OwnsFftLayout layout;
    owns_detail::layOutComplex<T>(layout, order);
    if (order > ownsFftStoredSines)
        layout.init = ownsFftSineBytes<T>(order);
    return layout;
}

template <class T>
constexpr OwnsFftLayout ownsFftLayoutReal(int order)
{
    using Traits = OwnsFftTraits<T>;
    constexpr ZelSize pair = 2 * sizeof(T);
    OwnsFftLayout layout;
    if (order <= Traits::straightReal)
        return layout;
    owns_detail::layOutComplex<T>(layout, order - 1);
    // Whole tables hold N/4 pairs. In two levels: the fine pairs, one coarse pair for each block of them, and
    // padding.
    layout.recomb = order < Traits::realTwoLevel ? pair << (order - 2)
                                                 : (((pair << (order - 2 - Traits::fineOrder)) + 8255) & -64);
    if (order > ownsFftStoredSines)
        layout.init = ownsFftSineBytes<T>(order);
    return layout;
}

/// Where the tables of a plan begin.
template <class T>
inline Zel8u* ownsFftTables(OwnsFftPlan<T>* pPlan)
{
    return reinterpret_cast<Zel8u*>(pPlan) + ownsRounded64(sizeof(OwnsFftPlan<T>));
}
