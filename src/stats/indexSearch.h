// The position of an extreme value, found in two stages: blocks are folded without indices, and only a block that
// holds a new best is read again. On random data the best changes a number of times that grows as the logarithm of
// the number of blocks.
#pragma once

#include "stats/extrema.h"

#include <bit>

/// An extreme value and where it stands.
template <class T>
struct OwnsFound {
    T value;
    ZelSize index;
};

/// What sets the two-stage search of one element type apart.
template <class T>
struct OwnsSearch {
    static constexpr ZelSize cut = 32;                                        ///< shorter vectors are scanned
    static constexpr ZelSize round = ownsLanes<T> * (sizeof(T) == 8 ? 4 : 2); ///< blocks hold whole rounds
    static constexpr ZelSize block = 8192 / sizeof(T);

    static bool scans(const T*, ZelSize len) { return len < cut; }
};
template <>
inline bool OwnsSearch<Zel32f>::scans(const Zel32f*, ZelSize len)
{
    return len <= 33;
}
template <>
inline bool OwnsSearch<Zel64f>::scans(const Zel64f* p, ZelSize len)
{
    return len < cut || reinterpret_cast<std::uintptr_t>(p) % sizeof(Zel64f) != 0;
}

// Equality of elements, by their bits or by their values.

/// By bits: lanes of all ones where equal.
struct OwnsSameBits {
    template <class T>
    static auto of(OwnsVec<T> a, OwnsVec<T> b)
    {
        if constexpr (sizeof(T) == 1)
            return _mm_cmpeq_epi8(ownsInt(a), ownsInt(b));
        else if constexpr (sizeof(T) == 2)
            return _mm_cmpeq_epi16(ownsInt(a), ownsInt(b));
        else if constexpr (sizeof(T) == 4)
            return _mm_cmpeq_epi32(ownsInt(a), ownsInt(b));
        else
            return _mm_cmpeq_epi64(ownsInt(a), ownsInt(b));
    }
};

/// By values: zeros of either sign are equal, a NaN equals nothing.
struct OwnsSameValue {
    template <class T>
    static auto of(OwnsVec<T> a, OwnsVec<T> b)
    {
        if constexpr (std::is_same_v<T, Zel32f>)
            return ownsInt(OwnsVec<Zel32f>(_mm_cmpeq_ps(a, b)));
        else if constexpr (std::is_same_v<T, Zel64f>)
            return ownsInt(OwnsVec<Zel64f>(_mm_cmpeq_pd(a, b)));
        else
            return OwnsSameBits::of<T>(a, b);
    }
};

/// The first of the elements from `from` to `to` whose view equals `value`, or `none`.
template <class Same, class View, class T>
inline ZelSize ownsIndexOf(const T* p, ZelSize from, ZelSize to, T value, ZelSize none)
{
    constexpr int lanes = ownsLanes<T>;
    const OwnsVec<T> wanted = ownsSplat(value);
    const auto equal = [&](ZelSize at) { return Same::template of<T>(View::of(ownsLoad(p + at)), wanted); };
    ZelSize i = from;
    for (; i + 4 * lanes <= to; i += 4 * lanes) {
        const __m128i low = _mm_or_si128(equal(i), equal(i + lanes));
        const __m128i high = _mm_or_si128(equal(i + 2 * lanes), equal(i + 3 * lanes));
        if (_mm_movemask_epi8(_mm_or_si128(low, high)) != 0)
            break;
    }
    const auto placeIn = [](int mask) {
        return std::countr_zero(static_cast<unsigned>(mask)) / static_cast<int>(sizeof(T));
    };
    for (; i + lanes <= to; i += lanes)
        if (const int mask = _mm_movemask_epi8(equal(i)); mask != 0)
            return i + placeIn(mask);
    if (i < to) {
        const int rest = static_cast<int>(to - i);
        const auto last = Same::template of<T>(View::of(ownsLoadPart(p + i, rest)), wanted);
        const int mask = _mm_movemask_epi8(last) & ((1 << rest * static_cast<int>(sizeof(T))) - 1);
        if (mask != 0)
            return i + placeIn(mask);
    }
    return none;
}

/// Where the fold of a block first stands. Where the caller has subnormal numbers count as zeros a fold may give a zero
/// for one, which only a comparison of values finds.
template <class View, class T>
inline ZelSize ownsFoldAt(const T* p, ZelSize from, ZelSize to, T value)
{
    const ZelSize at = ownsIndexOf<OwnsSameBits, View>(p, from, to, value, to);
    return at < to ? at : ownsIndexOf<OwnsSameValue, View>(p, from, to, value, from);
}

/// Takes single elements that compare strictly better.
template <class Better, class View, class T>
inline void ownsScan(OwnsFound<T>& best, const T* p, ZelSize from, ZelSize to)
{
    for (ZelSize i = from; i < to; i++)
        if (const T x = View::of(ownsGet(p + i)); Better::better(x, best.value))
            best = {x, i};
}

/// The search from element 0 on: single steps to the first 16-byte boundary, blocks of whole rounds, single steps. A
/// block is folded in two running vectors that start as its first elements.
template <class Better, class View, class T>
inline OwnsFound<T> ownsFound(const T* p, ZelSize len)
{
    using Search = OwnsSearch<T>;
    using Lanes = OwnsBest<Better, OwnsVec<T>>;
    constexpr int lanes = ownsLanes<T>;
    constexpr int vectors = Search::round / lanes;
    const auto load = [p](ZelSize i) { return View::of(ownsLoad(p + i)); };

    OwnsFound<T> best{View::of(ownsGet(p)), 0};
    ZelSize i = Search::scans(p, len) ? len : ownsBefore(16, p, len);
    ownsScan<Better, View>(best, p, 0, i);
    const ZelSize whole = i + (len - i) / Search::round * Search::round;
    ownsBlocks(Search::block, i, whole, [&](ZelSize from, ZelSize to) {
        [&]<std::size_t... j>(std::index_sequence<j...>)
        {
            Lanes r[vectors] = {Lanes(load(from + lanes * static_cast<ZelSize>(j)))...};
            ownsRounds<lanes>(r, from + Search::round, to,
                              [&](Lanes& running, ZelSize at) { running.take(load(at)); });
            (..., (j > 0 ? r[0].take(r[j]) : void()));
            const T value = ownsLaneFold<T>(r[0]).best;
            if (Better::better(value, best.value))
                best = {value, ownsFoldAt<View>(p, from, to, value)};
        }
        (std::make_index_sequence<vectors>{});
    });
    ownsScan<Better, View>(best, p, whole, len);
    return best;
}

/// The search of float magnitudes: it starts from the worst value at index -1, and passes over NaNs, since the fold
/// with its operands exchanged keeps the best for them.
template <class Better, class T>
inline OwnsFound<T> ownsFoundMagnitude(const T* p, ZelSize len, T worst)
{
    constexpr int lanes = ownsLanes<T>;
    OwnsFound<T> best{worst, -1};
    const ZelSize whole = len / lanes * lanes;
    ownsBlocks(OwnsSearch<T>::block, 0, whole, [&](ZelSize from, ZelSize to) {
        using V = OwnsVec<T>;
        const auto take = [p](V& r, ZelSize i) { r = Better::fold(OwnsMagnitude::of(ownsLoad(p + i)), r); };
        const V start = ownsSplat(best.value);
        V r[4] = {start, start, start, start};
        const ZelSize i = ownsRounds<lanes>(r, from, to, take);
        ownsRounds<lanes>(r[0], i, to, take);
        const V all = Better::fold(Better::fold(r[0], r[1]), Better::fold(r[2], r[3]));
        const T value = ownsLaneFold<T>(OwnsBest<Better, V>(all)).best;
        if (Better::better(value, best.value))
            best = {value, ownsFoldAt<OwnsMagnitude>(p, from, to, value)};
    });
    ownsScan<Better, OwnsMagnitude>(best, p, whole, len);
    return best;
}
