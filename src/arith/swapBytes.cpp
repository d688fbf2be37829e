// Bytes of each element in reverse order: SwapBytes.
#include "frame/entry.h"
#include "frame/map.h"
#include "zels.h"

namespace {

/// Where the bytes of a vector come from whose elements of `size` bytes are reversed.
template <int size>
constexpr OwnsVec<Zel8u> swapped = []<int... k>(std::integer_sequence<int, k...>)
{
    return OwnsVec<Zel8u>{static_cast<Zel8u>(k / size * size + size - 1 - k % size)...};
}
(std::make_integer_sequence<int, ownsVecBytes>{});

template <class T>
ZelStatus swapBytes(const T* pSrc, T* pDst, int len)
{
    constexpr OwnsLight swap{
        [](auto x) { return ownsAs<T>(_mm_shuffle_epi8(ownsInt(x), ownsInt(swapped<sizeof(T)>))); }};
    return ownsRun<shapeBits>(swap, pDst, len, pSrc);
}

// Three bytes an element: sixteen elements are three vectors, and two of them lie across the borders.

constexpr int bytes24 = 3;
constexpr int round24 = 3 * ownsVecBytes;

/// The bytes that a vector of a round keeps for itself; what it gets from its neighbours is left 0. `at` is the byte of the round
/// that it begins with, and `from` that of the source.
template <int at, int from = at>
constexpr OwnsVec<Zel8u> swapped24 = []<int... k>(std::integer_sequence<int, k...>)
{
    constexpr auto source = [](int byte) {
        return byte / bytes24 * bytes24 + bytes24 - 1 - byte % bytes24 - from;
    };
    return OwnsVec<Zel8u>{
        static_cast<Zel8u>(source(at + k) >= 0 && source(at + k) < ownsVecBytes ? source(at + k) : 0x80)...};
}
(std::make_integer_sequence<int, ownsVecBytes>{});

template <int at, int from = at>
__m128i picked(OwnsVec<Zel8u> x)
{
    return _mm_shuffle_epi8(ownsInt(x), ownsInt(swapped24<at, from>));
}

/// Everything is read before anything is written.
template <class Store>
[[gnu::always_inline]] inline void swapRound24(const Zel8u* pSrc, Zel8u* pDst, Store store)
{
    constexpr ZelSize vec = ownsVecBytes;
    const OwnsVec<Zel8u> a = ownsLoad(pSrc);
    const OwnsVec<Zel8u> b = ownsLoad(pSrc + vec);
    const OwnsVec<Zel8u> c = ownsLoad(pSrc + 2 * vec);
    store(pDst, ownsAs<Zel8u>(_mm_or_si128(picked<0>(a), picked<0, vec>(b))));
    store(pDst + vec, ownsAs<Zel8u>(_mm_or_si128(_mm_or_si128(picked<vec>(b), picked<vec, 0>(a)),
                                                 picked<vec, 2 * vec>(c))));
    store(pDst + 2 * vec, ownsAs<Zel8u>(_mm_or_si128(picked<2 * vec>(c), picked<2 * vec, vec>(b))));
}

/// `bytes` bytes, whole elements, fewer than a round; up to five elements at a time.
void swapFew24(const Zel8u* pSrc, Zel8u* pDst, int bytes)
{
    for (constexpr int most = 5 * bytes24; bytes > 0; bytes -= most, pSrc += most, pDst += most) {
        const int n = bytes < most ? bytes : most;
        ownsStorePart(pDst, ownsAs<Zel8u>(picked<0>(ownsLoadPart(pSrc, n))), n);
    }
}

template <bool streams>
[[gnu::always_inline]] inline ZelStatus swapBytes24(const Zel8u* pSrc, Zel8u* pDst, int len)
{
    if (const ZelStatus status = ownsCheck(len, pSrc, pDst); status != zelStatusOk)
        return status;
    const ZelSize bytes = ZelSize{bytes24} * len;
    ZelSize i = 0;
    if (bytes >= ownsPeelFrom) [[unlikely]] {
        // Three bytes at a time lead from any address to a boundary, after at most 15 elements.
        const auto ahead = static_cast<int>(-reinterpret_cast<std::uintptr_t>(pDst) % ownsVecBytes);
        const int peel = ahead * 11 % ownsVecBytes * bytes24; // 11 * 3 is 1 modulo 16
        swapFew24(pSrc, pDst, peel);
        i = peel;
        if (streams && bytes - i > bytes24 * shapeSwapBytes_24u.streamAbove)
            for (; i <= bytes - round24; i += round24)
                swapRound24(pSrc + i, pDst + i, [](Zel8u* p, auto v) { ownsStream(p, v); });
    }
    for (; i <= bytes - round24; i += round24)
        swapRound24(pSrc + i, pDst + i, [](Zel8u* p, auto v) { ownsStore(p, v); });
    swapFew24(pSrc + i, pDst + i, static_cast<int>(bytes - i));
    return zelStatusOk;
}

} // namespace

ZelStatus zelsSwapBytes_16u(const Zel16u* pSrc, Zel16u* pDst, int len)
{
    return swapBytes(pSrc, pDst, len);
}

ZelStatus zelsSwapBytes_16u_I(Zel16u* pSrcDst, int len)
{
    return swapBytes<Zel16u>(pSrcDst, pSrcDst, len);
}

ZelStatus zelsSwapBytes_24u(const Zel8u* pSrc, Zel8u* pDst, int len)
{
    return swapBytes24<true>(pSrc, pDst, len);
}

ZelStatus zelsSwapBytes_24u_I(Zel8u* pSrcDst, int len)
{
    return swapBytes24<false>(pSrcDst, pSrcDst, len);
}

ZelStatus zelsSwapBytes_32u(const Zel32u* pSrc, Zel32u* pDst, int len)
{
    return swapBytes(pSrc, pDst, len);
}

ZelStatus zelsSwapBytes_32u_I(Zel32u* pSrcDst, int len)
{
    return swapBytes<Zel32u>(pSrcDst, pSrcDst, len);
}

ZelStatus zelsSwapBytes_64u(const Zel64u* pSrc, Zel64u* pDst, int len)
{
    return swapBytes(pSrc, pDst, len);
}

ZelStatus zelsSwapBytes_64u_I(Zel64u* pSrcDst, int len)
{
    return swapBytes<Zel64u>(pSrcDst, pSrcDst, len);
}
