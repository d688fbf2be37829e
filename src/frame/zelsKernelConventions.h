// The pattern that every element-wise kernel follows, and the numbers that it follows it by.
//
// A kernel receives pointers that are not null and a length of at least 1, and goes through five stages:
//
//   cut     Below a minimum length an operation that estimates in vectors runs on single elements, which it
//           computes truly. For exact operations the cut shows in no result: they go straight to the body.
//   peel    From 512 bytes on (estimates: from the cut on), elements until the destination stands on a 16-byte
//           boundary. A destination that is not even aligned to its own element never gets there; it skips
//           the peel and keeps unaligned stores.
//   body    Rounds of 32 bytes of destination. Sources are read unaligned: on aligned data that costs nothing.
//   stream  Some kernels write the body with non-temporal stores once the arrays of the call no longer fit
//           about one mebibyte. Such stores need an aligned destination, so this is decided after the peel.
//           There is no fence behind them: only the bulk operations (bulk.h) promise one.
//   tail    What is left: one vector and a part of one, or for estimates single elements.
#pragma once

#include "zels/types.h"

/// What sets one kernel of the pattern apart from another.
struct OwnsShape {
    int cut;                         ///< lengths below this are done by single elements
    ZelSize streamAbove = INT64_MAX; ///< elements left after the peel above which the body streams
};

/// Bytes of destination from which on the peel pays: below, a few stores that straddle cache lines cost less.
inline constexpr ZelSize ownsPeelFrom = 512;

/// A limit given in rounds of two elements: more than `rounds` whole rounds must be left.
constexpr ZelSize ownsRounds64fc(ZelSize rounds)
{
    return 2 * rounds + 1;
}

// The table of thresholds. A kernel that is not here streams at no length and has the cut of its element
// type: 11 for 32f, 5 for 64f and 32fc, 2 for 64fc, which is where a peel and one round begin to pay.
inline constexpr OwnsShape shape_32f{11};
inline constexpr OwnsShape shape_64f{5};
inline constexpr OwnsShape shape_32fc{5};
inline constexpr OwnsShape shape_64fc{2};
inline constexpr OwnsShape shape_8u{32};
inline constexpr OwnsShape shape_16s{16};
inline constexpr OwnsShape shape_16sc{8};
inline constexpr OwnsShape shape_32s{8};
inline constexpr OwnsShape shape_32sc{4};

/// The cut of an element type.
template <class T>
inline constexpr OwnsShape ownsShapeOf = shape_32s;
template <>
inline constexpr OwnsShape ownsShapeOf<Zel8u> = shape_8u;
template <>
inline constexpr OwnsShape ownsShapeOf<Zel8s> = shape_8u;
template <>
inline constexpr OwnsShape ownsShapeOf<Zel16u> = shape_16s;
template <>
inline constexpr OwnsShape ownsShapeOf<Zel16s> = shape_16s;
template <>
inline constexpr OwnsShape ownsShapeOf<Zel16sc> = shape_16sc;
template <>
inline constexpr OwnsShape ownsShapeOf<Zel32f> = shape_32f;
template <>
inline constexpr OwnsShape ownsShapeOf<Zel32fc> = shape_32fc;
template <>
inline constexpr OwnsShape ownsShapeOf<Zel64f> = shape_64f;
template <>
inline constexpr OwnsShape ownsShapeOf<Zel64fc> = shape_64fc;

// Operations on bits and moves of elements, of any type: exact, so that no cut shows, and with ordinary stores.
inline constexpr OwnsShape shapeBits{1};

inline constexpr OwnsShape shapeAdd_32f{11, 87383};
inline constexpr OwnsShape shapeAdd_64f{5, 43691};
inline constexpr OwnsShape shapeMul_64f{5, 43687};
inline constexpr OwnsShape shapeMul_64fc{2, ownsRounds64fc(10922)};
inline constexpr OwnsShape shapeMul_64fc_I{2, ownsRounds64fc(16384)};
inline constexpr OwnsShape shapeAddC_64fc{2, ownsRounds64fc(16384)};
inline constexpr OwnsShape shapeMulC_32f{11, 131079};
inline constexpr OwnsShape shapeMulC_32fc{5, 65539};
inline constexpr OwnsShape shapeMulC_32fc_I{5, 131073};
inline constexpr OwnsShape shapeAdd_16s32f{1, 262151};
inline constexpr OwnsShape shapeMul_16s32s{1, 262151};
inline constexpr OwnsShape shapeSwapBytes_24u{1, 524288};

// Conversions stream later, from four mebibytes on.
inline constexpr OwnsShape shapeConvert_16s32s{8, 699050};
inline constexpr OwnsShape shapeConvert_32s16s{16, 699050};
inline constexpr OwnsShape shapeConvert_16s64f{5, 419430};
inline constexpr OwnsShape shapeConvert_32f64f{5, 349525};

/// When a fill bypasses the caches: above a count of bytes the size of the largest cache is asked for, and
/// the count must be above that too, or reach it.
struct OwnsFillRule {
    ZelSize probeAbove;
    bool fromCacheSize;
};
inline constexpr OwnsFillRule ownsFillRule8{524288, true};       // zero bytes, and single bytes of any value
inline constexpr OwnsFillRule ownsFillRuleWider{1048576, false}; // elements of two bytes and more

// A copy asks from a mebibyte on, streams from half the cache on, and does so in blocks.
inline constexpr ZelSize ownsCopyProbeFrom = 1048576;
inline constexpr ZelSize ownsCopyBlock = 262144;
inline constexpr ZelSize ownsCacheLine = 64;
inline constexpr ZelSize ownsFillAhead = 1024;
