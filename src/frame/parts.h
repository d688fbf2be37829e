// Complex elements and their parts: from one form to the other in vectors, conjugates, and the driver of operations
// that give two parts for each element.
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
inline OwnsParts2<OwnsVec<Zel16s>> ownsDivided(OwnsVecs<Zel16sc, 2> x)
{
    const __m128i apart = _mm_setr_epi8(0, 1, 4, 5, 8, 9, 12, 13, 2, 3, 6, 7, 10, 11, 14, 15);
    const __m128i a = _mm_shuffle_epi8(ownsInt(x.v[0]), apart);
    const __m128i b = _mm_shuffle_epi8(ownsInt(x.v[1]), apart);
    return {ownsAs<Zel16s>(_mm_unpacklo_epi64(a, b)), ownsAs<Zel16s>(_mm_unpackhi_epi64(a, b))};
}

/// One of the parts alone. Those of 16 bits are packed as unsigned numbers, with one shuffle in place of three.
template <class C>
inline auto ownsRealParts(OwnsVecs<C, 2> x)
{
    return ownsDivided(x).first;
}
template <class C>
inline auto ownsImagParts(OwnsVecs<C, 2> x)
{
    return ownsDivided(x).second;
}
inline OwnsVec<Zel16s> ownsRealParts(OwnsVecs<Zel16sc, 2> x)
{
    const __m128i low = _mm_set1_epi32(0xFFFF);
    return ownsAs<Zel16s>(
        _mm_packus_epi32(_mm_and_si128(ownsInt(x.v[0]), low), _mm_and_si128(ownsInt(x.v[1]), low)));
}
inline OwnsVec<Zel16s> ownsImagParts(OwnsVecs<Zel16sc, 2> x)
{
    return ownsAs<Zel16s>(
        _mm_packus_epi32(_mm_srli_epi32(ownsInt(x.v[0]), 16), _mm_srli_epi32(ownsInt(x.v[1]), 16)));
}

/// The low and the high half of two vectors, element by element in turn.
inline OwnsVec<Zel32f> ownsZipLow(OwnsVec<Zel32f> a, OwnsVec<Zel32f> b)
{
    return _mm_unpacklo_ps(a, b);
}
inline OwnsVec<Zel64f> ownsZipLow(OwnsVec<Zel64f> a, OwnsVec<Zel64f> b)
{
    return _mm_unpacklo_pd(a, b);
}
inline OwnsVec<Zel16s> ownsZipLow(OwnsVec<Zel16s> a, OwnsVec<Zel16s> b)
{
    return ownsAs<Zel16s>(_mm_unpacklo_epi16(ownsInt(a), ownsInt(b)));
}
inline OwnsVec<Zel32f> ownsZipHigh(OwnsVec<Zel32f> a, OwnsVec<Zel32f> b)
{
    return _mm_unpackhi_ps(a, b);
}
inline OwnsVec<Zel64f> ownsZipHigh(OwnsVec<Zel64f> a, OwnsVec<Zel64f> b)
{
    return _mm_unpackhi_pd(a, b);
}
inline OwnsVec<Zel16s> ownsZipHigh(OwnsVec<Zel16s> a, OwnsVec<Zel16s> b)
{
    return ownsAs<Zel16s>(_mm_unpackhi_epi16(ownsInt(a), ownsInt(b)));
}

/// Complex conjugates. Floats change the sign bit, of a NaN too; the most negative integer becomes the largest.
inline OwnsVec<Zel32f> ownsConjugate(OwnsVec<Zel32f> x)
{
    return _mm_xor_ps(x, _mm_setr_ps(0.0f, -0.0f, 0.0f, -0.0f));
}
inline OwnsVec<Zel64f> ownsConjugate(OwnsVec<Zel64f> x)
{
    return _mm_xor_pd(x, _mm_setr_pd(0.0, -0.0));
}
inline OwnsVec<Zel16s> ownsConjugate(OwnsVec<Zel16s> x)
{
    const __m128i negated = _mm_subs_epi16(_mm_setzero_si128(), ownsInt(x));
    return ownsAs<Zel16s>(_mm_blend_epi16(ownsInt(x), negated, 0xAA));
}

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

    void put(ZelSize i, OwnsParts2<V> x) const
    {
        ownsStore(p + i, ownsZipLow(x.first, x.second));
        ownsStore(p + i + ownsLanes<C>, ownsZipHigh(x.first, x.second));
    }
    void putPart(ZelSize i, OwnsParts2<V> x, int n) const
    {
        V rest = ownsZipLow(x.first, x.second);
        if (n >= ownsLanes<C>) {
            ownsStore(p + i, rest);
            rest = ownsZipHigh(x.first, x.second);
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
    constexpr ZelSize lanes = ownsLanes<T>;
    ZelSize i = 0;
    if (len >= ownsPeelFrom / static_cast<ZelSize>(sizeof(T))) [[unlikely]]
        if (const int peel = owns_detail::peelCount(dst.start()); peel > 0) {
            owns_detail::somePart<T>(op, dst, 0, peel, pSrc...);
            i = peel;
        }
    if constexpr (ownsCodeOf<Op> == OwnsCode::light)
        for (; i <= len - 2 * lanes; i += 2 * lanes) {
            dst.put(i, op(ownsTake<T>(pSrc + i)...));
            dst.put(i + lanes, op(ownsTake<T>(pSrc + i + lanes)...));
        }
    for (; i <= len - lanes; i += lanes)
        dst.put(i, op(ownsTake<T>(pSrc + i)...));
    if (i < len)
        owns_detail::somePart<T>(op, dst, i, static_cast<int>(len - i), pSrc...);
}
