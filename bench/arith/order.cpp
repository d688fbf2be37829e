// Element, byte and bit order, beside plain loops, loops written by hand, and VOLK.
#include "support/plain.h"
#include "support/volk.h"

#include <algorithm>
#include <cstring>
#include <tmmintrin.h>
#if BENCH_HAS_VOLK
#include <volk/volk_16u_byteswap.h>
#include <volk/volk_32u_byteswap.h>
#endif

namespace {

template <class T>
BENCH_PLAIN void plainFlip(const T* s, T* d, int n)
{
    for (int i = 0; i < n; i++)
        d[i] = s[n - 1 - i];
}
template <class T>
BENCH_PLAIN void plainFlipInPlace(T* d, int n)
{
    std::reverse(d, d + n);
}

template <class T>
T swapped(T x)
{
    if constexpr (sizeof x == 2)
        return __builtin_bswap16(x);
    else if constexpr (sizeof x == 4)
        return __builtin_bswap32(x);
    else
        return __builtin_bswap64(x);
}
constexpr auto swap = [](auto x) { return swapped(x); };

struct Packed24 {
    Zel8u bytes[3];
};
BENCH_PLAIN void plainSwap24(const Packed24* s, Packed24* d, int n)
{
    for (int i = 0; i < n; i++)
        d[i] = {s[i].bytes[2], s[i].bytes[1], s[i].bytes[0]};
}

// By hand.

__m128i load(const void* p)
{
    return _mm_loadu_si128(static_cast<const __m128i*>(p));
}
void store(void* p, __m128i v)
{
    _mm_storeu_si128(static_cast<__m128i*>(p), v);
}

/// Four vectors a round, end for end.
template <class T>
BENCH_PLAIN void sseFlip(const T* s, T* d, int n)
{
    constexpr int size = sizeof(T), lanes = 16 / size;
    alignas(16) Zel8u order[16];
    for (int k = 0; k < 16; k++)
        order[k] = static_cast<Zel8u>(16 - size - k / size * size + k % size);
    const __m128i turned = load(order);
    int i = 0;
    for (; i + 4 * lanes <= n; i += 4 * lanes)
        for (int k = 0; k < 4 * lanes; k += lanes)
            store(d + i + k, _mm_shuffle_epi8(load(s + n - i - k - lanes), turned));
    for (; i < n; i++)
        d[i] = s[n - 1 - i];
}

BENCH_PLAIN void sseSwap_32u(const Zel32u* s, Zel32u* d, int n)
{
    const __m128i order = _mm_setr_epi8(3, 2, 1, 0, 7, 6, 5, 4, 11, 10, 9, 8, 15, 14, 13, 12);
    int i = 0;
    for (; i + 16 <= n; i += 16)
        for (int k = 0; k < 16; k += 4)
            store(d + i + k, _mm_shuffle_epi8(load(s + i + k), order));
    for (; i < n; i++)
        d[i] = swapped(s[i]);
}

/// Five elements a vector; the last byte is written over by the next vector.
BENCH_PLAIN void sseSwap24(const Packed24* s, Packed24* d, int n)
{
    const __m128i order = _mm_setr_epi8(2, 1, 0, 5, 4, 3, 8, 7, 6, 11, 10, 9, 14, 13, 12, 15);
    int i = 0;
    for (; i + 6 <= n; i += 5)
        store(d + i, _mm_shuffle_epi8(load(s + i), order));
    for (; i < n; i++)
        d[i] = {s[i].bytes[2], s[i].bytes[1], s[i].bytes[0]};
}

/// Words of 64 bits, each from two of the source. Whole bytes of the destination; `from` is 1 to 7.
template <bool lowFirst>
BENCH_PLAIN void wordCopyBits(const Zel8u* s, int from, Zel8u* d, int bits)
{
    const auto word = [](const Zel8u* p) {
        std::uint64_t w;
        std::memcpy(&w, p, 8);
        return lowFirst ? w : __builtin_bswap64(w);
    };
    int i = 0;
    for (; i + 8 <= bits / 8; i += 8) {
        const std::uint64_t next = s[i + 8];
        std::uint64_t w =
            lowFirst ? word(s + i) >> from | next << (64 - from) : word(s + i) << from | next >> (8 - from);
        if (!lowFirst)
            w = __builtin_bswap64(w);
        std::memcpy(d + i, &w, 8);
    }
    for (; i < bits / 8; i++)
        d[i] = static_cast<Zel8u>(lowFirst ? s[i] >> from | s[i + 1] << (8 - from)
                                           : s[i] << from | s[i + 1] >> (8 - from));
}

template <class T, auto zels, auto zelsInPlace>
void flips(bench::Run& run, const char* name)
{
    run.map(name, zels, bench::loop(plainFlip<T>), bench::peer("SSE loop", sseFlip<T>));
    run.mapInPlace(std::string(name) + "_I", zelsInPlace, bench::loop(plainFlipInPlace<T>));
}

const bench::Family family("Element, byte and bit order", [](bench::Run& run) {
    flips<Zel8u, zelsFlip_8u, zelsFlip_8u_I>(run, "zelsFlip_8u");
    flips<Zel16u, zelsFlip_16u, zelsFlip_16u_I>(run, "zelsFlip_16u");
    flips<Zel32f, zelsFlip_32f, zelsFlip_32f_I>(run, "zelsFlip_32f");
    flips<Zel64f, zelsFlip_64f, zelsFlip_64f_I>(run, "zelsFlip_64f");
    flips<Zel32fc, zelsFlip_32fc, zelsFlip_32fc_I>(run, "zelsFlip_32fc");
    flips<Zel64fc, zelsFlip_64fc, zelsFlip_64fc_I>(run, "zelsFlip_64fc");
    run.map("zelsSwapBytes_16u", zelsSwapBytes_16u, bench::loop(bench::plain<swap, Zel16u, Zel16u>));
    run.map("zelsSwapBytes_32u", zelsSwapBytes_32u, bench::loop(bench::plain<swap, Zel32u, Zel32u>),
            bench::peer("SSE loop", sseSwap_32u));
    run.map("zelsSwapBytes_64u", zelsSwapBytes_64u, bench::loop(bench::plain<swap, Zel64u, Zel64u>));
    run.mapInPlace("zelsSwapBytes_32u_I", zelsSwapBytes_32u_I,
                   bench::loop(bench::plainInPlace<swap, Zel32u>));
#if BENCH_HAS_VOLK
    for (const ZelSize n : run.lengths()) {
        bench::Array<Zel64u> array(n);
        Zel64u* const words = array.get();
        const int len = static_cast<int>(n);
        const auto count = static_cast<unsigned>(n);
        run.row(
            "zelsSwapBytes_16u_I", n, {.bytes = 4},
            [=] { zelsSwapBytes_16u_I(reinterpret_cast<Zel16u*>(words), len); }, bench::peer("VOLK SSE", [=] {
                volk_16u_byteswap_u_sse2(reinterpret_cast<Zel16u*>(words), count);
            }));
        run.row(
            "zelsSwapBytes_32u_I, VOLK", n, {.bytes = 8},
            [=] { zelsSwapBytes_32u_I(reinterpret_cast<Zel32u*>(words), len); }, bench::peer("VOLK SSE", [=] {
                volk_32u_byteswap_u_sse2(reinterpret_cast<Zel32u*>(words), count);
            }));
    }
#endif
    for (const ZelSize n : run.lengths()) {
        const int len = static_cast<int>(n);
        bench::Array<Zel8u> sourceArray(3 * n + 1), destinationArray(3 * n + 1);
        Zel8u* const src = sourceArray.get();
        Zel8u* const dst = destinationArray.get();
        const auto* const elements = reinterpret_cast<const Packed24*>(src);
        run.row(
            "zelsSwapBytes_24u", n, {.bytes = 6}, [=] { zelsSwapBytes_24u(src, dst, len); },
            bench::loop([=] { plainSwap24(elements, reinterpret_cast<Packed24*>(dst), len); }),
            bench::peer("SSE loop", [=] { sseSwap24(elements, reinterpret_cast<Packed24*>(dst), len); }));
        run.row(
            "zelsSwapBytes_24u_I", n, {.bytes = 6}, [=] { zelsSwapBytes_24u_I(dst, len); }, bench::loop([=] {
                plainSwap24(reinterpret_cast<const Packed24*>(dst), reinterpret_cast<Packed24*>(dst), len);
            }));
        // So many bytes of bits.
        run.row(
            "zelsCopyLE_1u, bytes of bits", n, {.bytes = 2}, [=] { zelsCopyLE_1u(src, 3, dst, 8, 8 * len); },
            bench::peer("64-bit loop", [=] { wordCopyBits<true>(src, 3, dst + 1, 8 * len); }));
        run.row(
            "zelsCopyBE_1u, bytes of bits", n, {.bytes = 2}, [=] { zelsCopyBE_1u(src, 3, dst, 8, 8 * len); },
            bench::peer("64-bit loop", [=] { wordCopyBits<false>(src, 3, dst + 1, 8 * len); }));
    }
});

} // namespace
