// The driver of window functions: each value of the window goes to both ends of the data.
//
// A window gives its values from the low end on, four at a time, by next(); its value in the middle, which belongs to one
// element only, by middle().
#pragma once

#include "frame/entry.h"
#include "frame/scale.h"
#include "math/vecMath.h"

/// Four values, or four parts of elements.
struct OwnsFour {
    OwnsF2 low, high;

    OwnsFour operator*(OwnsFour b) const { return {low * b.low, high * b.high}; }
};

namespace owns_detail {

// Floats are multiplied by values that are rounded to floats, which serve both ends: widening the data would cost several
// times what the window does. 16-bit data is multiplied in double precision.

inline OwnsFour fourParts(const Zel64f* p)
{
    return {ownsLoad(p), ownsLoad(p + 2)};
}
inline OwnsF4 fourParts(const Zel32f* p)
{
    return ownsLoad(p);
}
inline OwnsFour fourParts(const Zel16s* p)
{
    const __m128i x = _mm_cvtepi16_epi32(ownsInt(ownsTake<Zel32s>(p)));
    return {_mm_cvtepi32_pd(x), _mm_cvtepi32_pd(_mm_srli_si128(x, 8))};
}

inline void putFour(Zel64f* p, OwnsFour x)
{
    ownsStore(p, x.low);
    ownsStore(p + 2, x.high);
}
inline void putFour(Zel32f* p, OwnsF4 x)
{
    ownsStore(p, x);
}
inline void putFour(Zel16s* p, OwnsFour x)
{
    const auto rounded = [](OwnsF2 v) { return _mm_cvttpd_epi32(ownsRoundedNear(ownsBounded(v, 32767))); };
    const __m128i both = _mm_unpacklo_epi64(rounded(x.low), rounded(x.high));
    ownsStorePart(p, ownsAs<Zel16s>(_mm_packs_epi32(both, both)), 4);
}

/// The values that parts of type P are multiplied by.
template <class P>
inline auto weightsOf(OwnsFour w)
{
    if constexpr (std::is_same_v<P, Zel32f>)
        return ownsNarrowed(w.low, w.high);
    else
        return w;
}

/// In reverse.
inline OwnsFour mirrored(OwnsFour w)
{
    return {ownsSwapped(w.high), ownsSwapped(w.low)};
}
inline OwnsF4 mirrored(OwnsF4 w)
{
    return _mm_shuffle_ps(w, w, _MM_SHUFFLE(0, 1, 2, 3));
}

/// The first and the last two, each twice.
inline OwnsFour firstTwice(OwnsFour w)
{
    return {ownsReals(w.low), ownsImags(w.low)};
}
inline OwnsFour lastTwice(OwnsFour w)
{
    return {ownsReals(w.high), ownsImags(w.high)};
}
inline OwnsF4 firstTwice(OwnsF4 w)
{
    return _mm_unpacklo_ps(w, w);
}
inline OwnsF4 lastTwice(OwnsF4 w)
{
    return _mm_unpackhi_ps(w, w);
}

/// Four elements by four values.
template <class T, class Weights>
[[gnu::always_inline]] inline void windowFour(const T* pSrc, T* pDst, Weights w)
{
    if constexpr (ownsIsComplex<T>) {
        const auto* s = ownsParts(pSrc);
        auto* d = ownsParts(pDst);
        const Weights first = fourParts(s) * firstTwice(w);
        const Weights second = fourParts(s + 4) * lastTwice(w);
        putFour(d, first);
        putFour(d + 4, second);
    } else {
        putFour(pDst, fourParts(pSrc) * w);
    }
}

} // namespace owns_detail

/// Runs a window over `len` elements; pSrc may be pDst.
template <class Window, class T>
[[gnu::always_inline]] inline void ownsApplyWindow(Window window, const T* pSrc, T* pDst, int len)
{
    using namespace owns_detail;
    using Part = OwnsPart<T>;
    int n = 0;
    for (; n <= len / 2 - 4; n += 4) {
        const auto w = weightsOf<Part>(window.next());
        const int end = len - 4 - n;
        windowFour(pSrc + n, pDst + n, w);
        windowFour(pSrc + end, pDst + end, mirrored(w));
    }
    // Up to seven in the middle.
    const int rest = len - 2 * n;
    if (rest == 0)
        return;
    const OwnsFour w = window.next();
    const Zel64f edge[4]{w.low[0], w.low[1], w.high[0], w.high[1]};
    Zel64f values[8]{};
    for (int k = 0; k < rest / 2; k++)
        values[k] = values[rest - 1 - k] = edge[k];
    if (rest % 2 != 0)
        values[rest / 2] = window.middle();
    T data[8]{};
    __builtin_memcpy(data, pSrc + n, static_cast<std::size_t>(rest) * sizeof(T));
    windowFour(data, data, weightsOf<Part>(fourParts(values)));
    if (rest > 4)
        windowFour(data + 4, data + 4, weightsOf<Part>(fourParts(values + 4)));
    __builtin_memcpy(pDst + n, data, static_cast<std::size_t>(rest) * sizeof(T));
}

/// Three elements, where a window's ends are 0 and its middle 1: they are written, not multiplied.
template <class T>
inline void ownsWindowThree(const T* pSrc, T* pDst)
{
    const T middle = ownsGet(pSrc + 1);
    ownsPut(pDst, T{});
    ownsPut(pDst + 1, middle);
    ownsPut(pDst + 2, T{});
}

/// Pointers, then the length, which must be `least` or more.
template <class T>
inline ZelStatus ownsWindowCheck(const T* pSrc, const T* pDst, int len, int least)
{
    const ZelStatus status = ownsCheck(len, pSrc, pDst);
    return status == zelStatusOk && len < least ? ZelStatus{zelErrSize} : status;
}
