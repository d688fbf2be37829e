// The driver of vectors turned end for end: Flip and ConjFlip.
#pragma once

#include "frame/map.h"

/// Where the bytes of a vector turned end for end come from, by the size of its elements.
template <int size>
inline constexpr OwnsVec<Zel8u> ownsFlippedOrder = []<int... k>(std::integer_sequence<int, k...>)
{
    return OwnsVec<Zel8u>{static_cast<Zel8u>(ownsVecBytes - size - k / size * size + k % size)...};
}
(std::make_integer_sequence<int, ownsVecBytes>{});

/// The elements of a vector in reverse order.
template <class T>
inline OwnsVec<T> ownsFlipped(OwnsVec<T> x)
{
    if constexpr (ownsLanes<T> == 1)
        return x;
    else
        return ownsAs<T>(_mm_shuffle_epi8(ownsInt(x), ownsInt(ownsFlippedOrder<sizeof(T)>)));
}

/// The first `n` of them.
template <class T>
inline OwnsVec<T> ownsFlippedPart(OwnsVec<T> x, int n)
{
    const auto missing = static_cast<Zel8s>((ownsLanes<T> - n) * static_cast<int>(sizeof(T)));
    const __m128i order = _mm_sub_epi8(ownsInt(ownsFlippedOrder<sizeof(T)>), _mm_set1_epi8(missing));
    return ownsAs<T>(_mm_shuffle_epi8(ownsInt(x), order));
}

/// `pDst[n] = op(pSrc[len - 1 - n])` for vectors of elements. Source and destination may be the same array.
template <class T, class Op>
[[gnu::always_inline]] inline void ownsFlip(Op op, const T* pSrc, T* pDst, ZelSize len)
{
    constexpr ZelSize lanes = ownsLanes<T>;
    const auto end = [&](ZelSize i)
                         OWNS_INLINE { return op(ownsFlipped<T>(ownsLoad(pSrc + len - i - lanes))); };
    const auto part = [&](ZelSize i, int n) {
        ownsStorePart(pDst + i, op(ownsFlippedPart<T>(ownsLoadPart(pSrc + i, n), n)), n);
    };
    if (pSrc == pDst) {
        // Both ends are read before either is written, so that at last they may overlap.
        const auto exchange = [&](ZelSize i) OWNS_INLINE {
            const OwnsVec<T> high = end(i);
            const OwnsVec<T> low = op(ownsFlipped<T>(ownsLoad(pSrc + i)));
            ownsStore(pDst + i, high);
            ownsStore(pDst + len - i - lanes, low);
        };
        ZelSize i = 0;
        for (; len - 2 * i >= 4 * lanes; i += 2 * lanes) {
            exchange(i);
            exchange(i + lanes);
        }
        for (; len - 2 * i >= lanes; i += lanes)
            exchange(i);
        if (const ZelSize middle = len - 2 * i; middle > 0)
            part(i, static_cast<int>(middle));
        return;
    }
    if (len < lanes)
        return part(0, static_cast<int>(len));
    // The first and the last vector overlap the body, and hold what it writes.
    ZelSize i = 0;
    if (len >= ownsPeelFrom / static_cast<ZelSize>(sizeof(T))) [[unlikely]]
        if (const int peel = owns_detail::peelCount(pDst); peel > 0) {
            ownsStore(pDst, end(0));
            i = peel;
        }
    for (; i <= len - 4 * lanes; i += 4 * lanes)
        ownsEach<4>([&](int k) OWNS_INLINE { ownsStore(pDst + i + k * lanes, end(i + k * lanes)); });
    for (; i <= len - lanes; i += lanes)
        ownsStore(pDst + i, end(i));
    if (i < len)
        ownsStore(pDst + len - lanes, end(len - lanes));
}
