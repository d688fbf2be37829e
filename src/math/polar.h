// Complex vectors as their parts, and the driver of operations that give two parts for each element.
#pragma once

#include "frame/map.h"

/// Two vectors of parts: real and imaginary, or magnitude and phase.
template <class V>
struct OwnsParts2 {
    V first, second;
};

inline OwnsParts2<OwnsVec<Zel32f>> ownsDivided(OwnsVecs<Zel32fc, 2> x)
{
    return {_mm_shuffle_ps(x.v[0], x.v[1], 0x88), _mm_shuffle_ps(x.v[0], x.v[1], 0xDD)};
}
inline OwnsParts2<OwnsVec<Zel64f>> ownsDivided(OwnsVecs<Zel64fc, 2> x)
{
    return {_mm_unpacklo_pd(x.v[0], x.v[1]), _mm_unpackhi_pd(x.v[0], x.v[1])};
}

/// The first `n` lanes, and 1 in the others.
inline OwnsVec<Zel32f> ownsFilledUp(OwnsVec<Zel32f> x, int n)
{
    const __m128i isBehind = _mm_cmpgt_epi32(_mm_set_epi32(4, 3, 2, 1), _mm_set1_epi32(n));
    return _mm_blendv_ps(x, _mm_set1_ps(1), _mm_castsi128_ps(isBehind));
}
inline OwnsVec<Zel64f> ownsFilledUp(OwnsVec<Zel64f> x, int)
{
    return OwnsVec<Zel64f>{x[0], 1};
}

/// Calls `op` with the real and the imaginary parts of a source of either kind. In partly filled vectors the real
/// parts are filled up: for angles and lengths 0 is a rare argument, which takes time.
template <class Op>
struct OwnsOnParts {
    static constexpr OwnsCode code = OwnsCode::compact;
    Op op;

    template <class V>
    auto part(int n, V re, V im) const
    {
        return op(ownsFilledUp(re, n), im);
    }
    template <class C>
    auto part(int n, OwnsVecs<C, 2> x) const
    {
        const auto parts = ownsDivided(x);
        return op(ownsFilledUp(parts.first, n), parts.second);
    }

    template <class V>
    auto operator()(V re, V im) const
    {
        return op(re, im);
    }
    template <class C>
    auto operator()(OwnsVecs<C, 2> x) const
    {
        const auto parts = ownsDivided(x);
        return op(parts.first, parts.second);
    }
};
template <class Op>
OwnsOnParts(Op) -> OwnsOnParts<Op>;

/// Two arrays to write to.
template <class T>
struct OwnsTwoArrays {
    T* first;
    T* second;

    const T* start() const { return first; }
    void put(ZelSize i, OwnsParts2<OwnsVec<T>> x) const
    {
        ownsStore(first + i, x.first);
        ownsStore(second + i, x.second);
    }
    void putPart(ZelSize i, OwnsParts2<OwnsVec<T>> x, int n) const
    {
        ownsStorePart(first + i, x.first, n);
        ownsStorePart(second + i, x.second, n);
    }
};

/// An array of complex elements to write to.
template <class C>
struct OwnsComplexArray {
    using V = OwnsVec<C>;
    C* p;

    const C* start() const { return p; }
    static V low(OwnsVec<Zel32f> re, OwnsVec<Zel32f> im) { return _mm_unpacklo_ps(re, im); }
    static V high(OwnsVec<Zel32f> re, OwnsVec<Zel32f> im) { return _mm_unpackhi_ps(re, im); }
    static V low(OwnsVec<Zel64f> re, OwnsVec<Zel64f> im) { return _mm_unpacklo_pd(re, im); }
    static V high(OwnsVec<Zel64f> re, OwnsVec<Zel64f> im) { return _mm_unpackhi_pd(re, im); }

    void put(ZelSize i, OwnsParts2<V> x) const
    {
        ownsStore(p + i, low(x.first, x.second));
        ownsStore(p + i + ownsLanes<C>, high(x.first, x.second));
    }
    void putPart(ZelSize i, OwnsParts2<V> x, int n) const
    {
        V rest = low(x.first, x.second);
        if (n >= ownsLanes<C>) {
            ownsStore(p + i, rest);
            rest = high(x.first, x.second);
            i += ownsLanes<C>;
            n -= ownsLanes<C>;
        }
        if (n > 0)
            ownsStorePart(p + i, rest, n);
    }
};

namespace owns_detail {

/// The first `n` elements of a vector; one copy of it, for all places that need a part.
template <class T, class Op, class Destination, class... S>
[[gnu::noinline]] void somePart(const Op& op, Destination dst, ZelSize i, int n, const S*... pSrc)
{
    if constexpr (requires { op.part(n, ownsTakePart<T>(pSrc, n)...); })
        dst.putPart(i, op.part(n, ownsTakePart<T>(pSrc + i, n)...), n);
    else
        dst.putPart(i, op(ownsTakePart<T>(pSrc + i, n)...), n);
}

} // namespace owns_detail

/// Runs `op`, which gives OwnsParts2 of parts of type T, over `len` elements, by the pattern of
/// zelsKernelConventions.h but for its cut. The destinations may be the sources.
template <class T, class Op, class Destination, class... S>
[[gnu::always_inline]] inline void ownsMapParts(const Op& op, Destination dst, ZelSize len, const S*... pSrc)
{
    constexpr int lanes = ownsLanes<T>;
    ZelSize i = 0;
    if (len >= ownsPeelFrom / static_cast<ZelSize>(sizeof(T))) [[unlikely]]
        if (const int peel = owns_detail::peelCount(dst.start()); peel > 0) {
            owns_detail::somePart<T>(op, dst, 0, peel, pSrc...);
            i = peel;
        }
    for (; i <= len - lanes; i += lanes)
        dst.put(i, op(ownsTake<T>(pSrc + i)...));
    if (i < len)
        owns_detail::somePart<T>(op, dst, i, static_cast<int>(len - i), pSrc...);
}
