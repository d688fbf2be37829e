// What the extrema are made of: the fold of a vector by what counts as better and how an element is looked at.
#pragma once

#include "frame/extremes.h"
#include "frame/reduce.h"

/// Elements (or vectors of them) folded one after the other.
template <class Better, class V>
struct OwnsBest {
    V best;

    explicit OwnsBest(V x) : best(x) {}
    void take(V x) { best = Better::fold(best, x); }
    void take(const OwnsBest& other) { take(other.best); }

    template <class Change>
    auto changed(Change change) const
    {
        return OwnsBest<Better, decltype(change(best))>(change(best));
    }
};

/// Both extremes.
template <class V>
struct OwnsRange {
    V min;
    V max;

    explicit OwnsRange(V x) : min(x), max(x) {}
    OwnsRange(V low, V high) : min(low), max(high) {}
    void take(V x)
    {
        min = OwnsSmallest::fold(min, x);
        max = OwnsLargest::fold(max, x);
    }
    void take(const OwnsRange& other)
    {
        min = OwnsSmallest::fold(min, other.min);
        max = OwnsLargest::fold(max, other.max);
    }

    template <class Change>
    auto changed(Change change) const
    {
        return OwnsRange<decltype(change(min))>(change(min), change(max));
    }
};

/// Lanes folded by halves: (l0, l2) and (l1, l3), then these two.
template <class T, class Lanes>
[[gnu::always_inline]] inline auto ownsLaneFold(Lanes lanes)
{
    const auto fold = [&]<int bytes>() {
        if constexpr (bytes >= static_cast<int>(sizeof(T)))
            lanes.take(lanes.changed([](auto v) { return ownsAs<T>(_mm_srli_si128(ownsInt(v), bytes)); }));
    };
    fold.template operator()<8>();
    fold.template operator()<4>();
    fold.template operator()<2>();
    fold.template operator()<1>();
    return lanes.changed([](auto v) { return static_cast<T>(v[0]); });
}

/// The fold of a vector into `k` running values. Its order shows where there are NaNs or zeros of both signs: single
/// steps from element 0 to the first 16-byte boundary (`aligned`); rounds of k vectors, every lane starting from
/// what the steps gave; the running values by halves; vectors into the first; its lanes by halves; single steps.
template <class View, int k, bool aligned, class Single, class T>
[[gnu::always_inline]] inline Single ownsFolded(Single single, const T* p, ZelSize len)
{
    constexpr ZelSize lanes = ownsLanes<T>;
    const auto take = [p](auto& r, ZelSize i) { r.take(View::of(ownsLoad(p + i))); };
    const auto takeOne = [p](Single& r, ZelSize i) { r.take(View::of(ownsGet(p + i))); };

    ZelSize i = aligned ? ownsRounds<1>(single, 0, ownsBefore(16, p, len), takeOne) : 0;
    if (i + lanes <= len) {
        const auto start = single.changed([](T x) { return ownsSplat(x); });
        using Lanes = std::remove_const_t<decltype(start)>;
        Lanes first = start;
        if (i + k * lanes <= len) {
            [&]<std::size_t... j>(std::index_sequence<j...>)
            {
                Lanes r[k] = {(static_cast<void>(j), start)...};
                i = ownsRounds<lanes>(r, i, len, take);
                if constexpr (k == 4) {
                    r[0].take(r[2]);
                    r[1].take(r[3]);
                }
                r[0].take(r[1]);
                first = r[0];
            }
            (std::make_index_sequence<k>{});
        }
        i = ownsRounds<lanes>(first, i, len, take);
        if (!std::is_floating_point_v<T> && i < len) {
            take(first, len - lanes); // integers may be taken twice
            i = len;
        }
        single = ownsLaneFold<T>(first);
    }
    ownsRounds<1>(single, i, len, takeOne);
    return single;
}

/// The extreme value of a vector: rounds of four vectors, floats from a boundary on.
template <class Better, class View, class T>
inline T ownsExtreme(const T* p, ZelSize len)
{
    constexpr bool aligned = std::is_floating_point_v<T>;
    return ownsFolded<View, 4, aligned>(OwnsBest<Better, T>(View::of(ownsGet(p))), p, len).best;
}

/// Both extreme values: rounds of eight elements for floats, from element 0 on.
template <class T>
inline OwnsRange<T> ownsRangeOf(const T* p, ZelSize len)
{
    constexpr int vectors = std::is_same_v<T, Zel32f> ? 2 : 4;
    return ownsFolded<OwnsPlain, vectors, false>(OwnsRange<T>(ownsGet(p)), p, len);
}

/// Calls `first` with the first chunk of a vector and `next` with each of the others, and where they begin. A 32-bit
/// length is one chunk.
template <ZelSize chunk, class T, class First, class Next>
[[gnu::always_inline]] inline void ownsChunks(const T* p, ZelSize len, First first, Next next)
{
    first(p, len < chunk ? len : chunk);
    for (ZelSize done = chunk; done < len; done += chunk)
        next(p + done, len - done < chunk ? len - done : chunk, done);
}
