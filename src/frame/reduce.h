// The drivers of reductions: vectors folded into a few running values.
//
// A reduction reads as its order. Each stage takes the elements that the one before has left: the elements
// before a boundary, rounds over several running values, a fold, rounds over fewer, single elements.
// Floating-point sums promise that order to the bit, so it stands in the family's code, one line a stage:
//
//     ZelSize i = ownsRounds<2>(a, 0, len, add); // pairs: eight elements a round where a has four values
//     OwnsF64x2 b[2] = {a[0] + a[2], a[1] + a[3]};
//     i = ownsRounds<2>(b, i, len, add);         // four elements a round
//
// `add(running, i)` takes into one running value the group of elements that begins at i. A running value is
// whatever the reduction keeps: a vector, or a record of vectors (a sum and a sum of squares, a minimum and a
// maximum).
#pragma once

#include "frame/entry.h"
#include "frame/vec.h"

#include <cstddef>
#include <utility>

/// The entry of a reduction: pointers, length, and what `reduce()` gives goes to `*pResult`.
template <class R, class Reduce, class... S>
[[gnu::always_inline]] inline ZelStatus ownsReduce(R* pResult, Reduce reduce, ZelSize len, const S*... pSrc)
{
    if (const ZelStatus status = ownsCheck(len, pSrc..., pResult); status != zelStatusOk)
        return status;
    ownsPut(pResult, reduce());
    return zelStatusOk;
}

// Lanes that are part of a result, whatever the width of this variant's vectors.
typedef Zel32f OwnsF32x4 __attribute__((vector_size(16)));
typedef Zel64f OwnsF64x2 __attribute__((vector_size(16)));

/// Whole rounds from element `i` on: a round is k groups of n elements, and group j goes into running value
/// j. Gives the first element that no round took.
template <int n, class Running, std::size_t k, class Add>
[[gnu::always_inline]] inline ZelSize ownsRounds(Running (&running)[k], ZelSize i, ZelSize len, Add add)
{
    constexpr ZelSize round = n * static_cast<ZelSize>(k);
    for (; i + round <= len; i += round)
        [&]<std::size_t... j>(std::index_sequence<j...>)
        {
            (add(running[j], i + n * static_cast<ZelSize>(j)), ...);
        }
    (std::make_index_sequence<k>{});
    return i;
}

/// The same with one running value: groups of n elements in index order.
template <int n, class Running, class Add>
[[gnu::always_inline]] inline ZelSize ownsRounds(Running& running, ZelSize i, ZelSize len, Add add)
{
    for (; i + n <= len; i += n)
        add(running, i);
    return i;
}

/// Elements i up to len in blocks of n and a last shorter one: `body(from, to)`.
template <class Body>
[[gnu::always_inline]] inline void ownsBlocks(ZelSize n, ZelSize i, ZelSize len, Body body)
{
    while (i < len) {
        const ZelSize to = len - i < n ? len : i + n;
        body(i, to);
        i = to;
    }
}

/// All elements from `from` to `to` where order is free: `add(running, x...)` takes a vector of each source,
/// in turn into k running values. The last vectors are filled up with zeros, which `add` must take without
/// harm. Lanes are counted by the first source; narrower ones arrive in the low lanes of theirs.
template <class Running, std::size_t k, class Add, class T, class... S>
[[gnu::always_inline]] inline void ownsVectors(Running (&running)[k], ZelSize from, ZelSize to, Add add,
                                               const T* p0, const S*... p)
{
    constexpr int lanes = ownsLanes<T>;
    const auto addAt = [&](Running& r, ZelSize i) { add(r, ownsLoad(p0 + i), ownsTake<T>(p + i)...); };
    ZelSize i = ownsRounds<lanes>(running, from, to, addAt);
    i = ownsRounds<lanes>(running[0], i, to, addAt);
    if (i < to) {
        const int rest = static_cast<int>(to - i);
        add(running[0], ownsLoadPart(p0 + i, rest), ownsTakePart<T>(p + i, rest)...);
    }
}

/// How many elements stand before the first that lies on a multiple of `bytes`, but no more than `len`. 0
/// where no element ever lies on one, because the array is not aligned to its elements: such data is read as
/// it stands.
template <class T>
inline ZelSize ownsBefore(int bytes, const T* p, ZelSize len)
{
    const std::uintptr_t behind =
        (std::uintptr_t{0} - reinterpret_cast<std::uintptr_t>(p)) % static_cast<std::uintptr_t>(bytes);
    if (behind % sizeof(T) != 0)
        return 0;
    const auto count = static_cast<ZelSize>(behind / sizeof(T));
    return count < len ? count : len;
}

// Elements as doubles, exactly.

/// Two floats. The conversion reads its memory itself: of a register it would cost a shuffle besides, and compilers load
/// first.
inline OwnsF64x2 ownsWidePair(const Zel32f* p)
{
    struct [[gnu::packed, gnu::may_alias]] Pair
    {
        Zel32f v[2];
    };
    OwnsF64x2 wide;
    asm("cvtps2pd %1, %0" : "=x"(wide) : "m"(*reinterpret_cast<const Pair*>(p)));
    return wide;
}
/// One float in the low lane. The zero in the high lane may be added to any running sum without a trace: one
/// that starts at +0 becomes -0 only where the rounding mode keeps it there.
inline OwnsF64x2 ownsWideOne(const Zel32f* p)
{
    return OwnsF64x2{ownsGet(p), 0.0};
}

// Real arrays as rows of parts: so one body serves real and complex data.
inline const Zel32f* ownsParts(const Zel32f* p)
{
    return p;
}
inline const Zel64f* ownsParts(const Zel64f* p)
{
    return p;
}

/// The upper two lanes folded onto the lower two, widened.
inline OwnsF64x2 ownsWideFold(OwnsF32x4 v)
{
    return _mm_cvtps_pd(v + OwnsF32x4(_mm_movehl_ps(v, v)));
}

/// Low lane plus high lane.
inline Zel64f ownsLaneSum(OwnsF64x2 v)
{
    return v[0] + v[1];
}
