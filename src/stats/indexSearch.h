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
    constexpr ZelSize lanes = ownsLanes<T>;
    const OwnsVec<T> wanted = ownsSplat(value);
    const auto equal = [&](ZelSize at) { return Same::template of<T>(View::of(ownsLoad(p + at)), wanted); };
    const auto place = [](Zel64u mask) { return std::countr_zero(mask) / static_cast<int>(sizeof(T)); };
    const auto maskOf = [](__m128i lanesEqual) { return static_cast<Zel64u>(_mm_movemask_epi8(lanesEqual)); };
    ZelSize i = from;
    for (; i + 4 * lanes <= to; i += 4 * lanes) {
        const __m128i a = equal(i);
        const __m128i b = equal(i + lanes);
        const __m128i c = equal(i + 2 * lanes);
        const __m128i d = equal(i + 3 * lanes);
        if (maskOf(_mm_or_si128(_mm_or_si128(a, b), _mm_or_si128(c, d))) != 0)
            return i + place(maskOf(a) | maskOf(b) << 16 | maskOf(c) << 32 | maskOf(d) << 48);
    }
    for (; i + lanes <= to; i += lanes)
        if (const Zel64u mask = maskOf(equal(i)); mask != 0)
            return i + place(mask);
    if (i < to) {
        const int rest = static_cast<int>(to - i);
        const auto last = Same::template of<T>(View::of(ownsLoadPart(p + i, rest)), wanted);
        const Zel64u there = (Zel64u{1} << rest * static_cast<int>(sizeof(T))) - 1;
        if (const Zel64u mask = maskOf(last) & there; mask != 0)
            return i + place(mask);
    }
    return none;
}

/// Where the fold of some elements first stands. Where the caller has subnormal numbers count as zeros it may be a zero
/// for one of these, which only a comparison of values finds.
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

/// The folds of a block in parts of 512 bytes, so that only one part need be searched. Parts are independent of each
/// other and of everything before: the processor works on several at once.
template <class Order, class View, class T>
class OwnsParts {
    using V = OwnsVec<T>;
    static constexpr ZelSize lanes = ownsLanes<T>;
    static constexpr ZelSize length = 32 * lanes;

  public:
    OwnsParts(const T* source, ZelSize first, ZelSize end) : p(source), from(first), to(end) {}

    /// The best of the block.
    T fold(Order& order)
    {
        const auto load = [this](ZelSize i) { return View::of(ownsLoad(p + i)); };
        V all = order.start(load(from));
        ZelSize i = from;
        for (int n = 0; i < to; n++) {
            const ZelSize end = i + length < to ? i + length : to;
            V a = order.start(load(i));
            V b = a;
            V c = a;
            V d = a;
            for (; i + 4 * lanes <= end; i += 4 * lanes) {
                const V x = load(i);
                const V y = load(i + lanes);
                const V z = load(i + 2 * lanes);
                const V w = load(i + 3 * lanes);
                order.see(x, y);
                order.see(z, w);
                a = order.fold(a, x);
                b = order.fold(b, y);
                c = order.fold(c, z);
                d = order.fold(d, w);
            }
            for (; i < end; i += lanes) {
                const V x = load(i);
                order.see(x, x);
                a = order.fold(a, x);
            }
            folds[n] = order.fold(order.fold(a, b), order.fold(c, d));
            all = order.fold(all, folds[n]);
        }
        return ownsLaneFold<T>(OwnsBest<Order, V>(all)).best;
    }

    /// Where a value that the fold gave first stands. It is no NaN, and a zero only among magnitudes: there a number that
    /// the caller has count as zero may stand before the zero.
    ZelSize find(T value) const
    {
        const V wanted = ownsSplat(value);
        ZelSize start = from;
        for (int n = 0; start + length < to; n++, start += length)
            if (_mm_movemask_epi8(OwnsSameValue::of<T>(folds[n], wanted)) != 0)
                break;
        const ZelSize end = start + length < to ? start + length : to;
        return ownsIndexOf<OwnsSameValue, View>(p, start, end, value, start);
    }

  private:
    const T* p;
    ZelSize from;
    ZelSize to;
    V folds[OwnsSearch<T>::block / length];
};

// Orders of folds within a block.

/// Of integers: any.
template <class Better>
struct OwnsAnyOrder : Better {
    static auto start(auto first) { return first; }
    static void see(auto, auto) {}
};

/// Of floats: any, as long as there is no NaN, and no zero that is the best and so may hide one of the other sign.
template <class Better, class T>
struct OwnsFloatOrder : Better {
    OwnsVec<T> nan{};

    static auto start(auto first) { return first; }
    void see(OwnsVec<T> x, OwnsVec<T> y)
    {
        if constexpr (std::is_same_v<T, Zel32f>)
            nan = _mm_or_ps(nan, _mm_cmpunord_ps(x, y));
        else
            nan = _mm_or_pd(nan, _mm_cmpunord_pd(x, y));
    }
    bool matters(T value) const { return value == 0 || _mm_movemask_epi8(ownsInt(nan)) != 0; }
};

/// Of float magnitudes: any. NaNs are passed over, since the fold with its operands exchanged keeps the best for them, and
/// the worst value is what all lanes start from.
template <class Better, class T>
struct OwnsWithoutNans : Better {
    T worst;

    explicit OwnsWithoutNans(T value) : worst(value) {}
    template <class V>
    static V fold(V best, V x)
    {
        return Better::fold(x, best);
    }
    auto start(auto) const { return ownsSplat(worst); }
    static void see(auto, auto) {}
};

/// A block of whole rounds in the order that is promised: two running vectors (four of doubles) start as its first
/// elements, and the first element of the bits that their fold has is the one.
template <class Better, class View, class T>
[[gnu::noinline]] void ownsOrderedBlock(OwnsFound<T>& best, const T* p, ZelSize from, ZelSize to)
{
    using Lanes = OwnsBest<Better, OwnsVec<T>>;
    constexpr int lanes = ownsLanes<T>;
    constexpr ZelSize round = OwnsSearch<T>::round;
    const auto load = [p](ZelSize i) { return View::of(ownsLoad(p + i)); };
    const T value = [&]<std::size_t... j>(std::index_sequence<j...>)
    {
        Lanes r[] = {Lanes(load(from + lanes * static_cast<ZelSize>(j)))...};
        ownsRounds<lanes>(r, from + round, to, [&](Lanes& running, ZelSize at) { running.take(load(at)); });
        (..., (j > 0 ? r[0].take(r[j]) : void()));
        return ownsLaneFold<T>(r[0]).best;
    }
    (std::make_index_sequence<round / lanes>{});
    if (Better::better(value, best.value))
        best = {value, ownsFoldAt<View>(p, from, to, value)};
}

/// The search from element 0 on: single steps to the first 16-byte boundary, blocks of whole rounds, single steps.
template <class Better, class View, class T>
inline OwnsFound<T> ownsFound(const T* p, ZelSize len)
{
    using Search = OwnsSearch<T>;
    constexpr bool isFloat = std::is_floating_point_v<T>;
    OwnsFound<T> best{View::of(ownsGet(p)), 0};
    ZelSize i = Search::scans(p, len) ? len : ownsBefore(16, p, len);
    ownsScan<Better, View>(best, p, 0, i);
    const ZelSize whole = i + (len - i) / Search::round * Search::round;
    ownsBlocks(Search::block, i, whole, [&](ZelSize from, ZelSize to) {
        std::conditional_t<isFloat, OwnsFloatOrder<Better, T>, OwnsAnyOrder<Better>> order;
        OwnsParts<decltype(order), View, T> parts(p, from, to);
        const T value = parts.fold(order);
        if constexpr (isFloat) {
            if (order.matters(value)) {
                ownsOrderedBlock<Better, View>(best, p, from, to);
                return;
            }
        }
        if (Better::better(value, best.value))
            best = {value, parts.find(value)};
    });
    ownsScan<Better, View>(best, p, whole, len);
    return best;
}

/// The search of float magnitudes: it starts from the worst value at index -1.
template <class Better, class T>
inline OwnsFound<T> ownsFoundMagnitude(const T* p, ZelSize len, T worst)
{
    OwnsFound<T> best{worst, -1};
    const ZelSize whole = len / ownsLanes<T> * ownsLanes<T>;
    ownsBlocks(OwnsSearch<T>::block, 0, whole, [&](ZelSize from, ZelSize to) {
        OwnsWithoutNans<Better, T> order(worst);
        OwnsParts<decltype(order), OwnsMagnitude, T> parts(p, from, to);
        if (const T value = parts.fold(order); Better::better(value, best.value))
            best = {value, parts.find(value)};
    });
    ownsScan<Better, OwnsMagnitude>(best, p, whole, len);
    return best;
}
