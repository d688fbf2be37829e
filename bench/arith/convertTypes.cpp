// Conversion between element types other than 16s and 32f: integers, doubles, packed 24 bits, half precision.
#include "support/plain.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <limits>
#include <smmintrin.h>

namespace {

template <class D>
constexpr auto converted = [](auto x) { return static_cast<D>(x); };

template <class D>
constexpr auto saturated = [](auto x) {
    using Limits = std::numeric_limits<D>;
    return static_cast<D>(std::clamp<decltype(x)>(x, Limits::min(), Limits::max()));
};
template <class D>
constexpr auto rounded = [](auto x) {
    using Limits = std::numeric_limits<D>;
    using F = decltype(x);
    return static_cast<D>(
        std::rint(std::clamp(x, static_cast<F>(Limits::min()), static_cast<F>(Limits::max()))));
};

/// Clamp, convert to nearest, pack: as one would write it by hand.
template <class D>
BENCH_PLAIN void sseNarrow(const Zel32f* s, D* d, int n)
{
    const auto integers = [](const Zel32f* p) {
        const __m128 least = _mm_set1_ps(static_cast<float>(std::numeric_limits<D>::min()));
        const __m128 most = _mm_set1_ps(static_cast<float>(std::numeric_limits<D>::max()));
        return _mm_cvtps_epi32(_mm_min_ps(_mm_max_ps(_mm_loadu_ps(p), least), most));
    };
    int i = 0;
    for (; i + 16 <= n; i += 16) {
        const __m128i a = integers(s + i), b = integers(s + i + 4), c = integers(s + i + 8),
                      e = integers(s + i + 12);
        if constexpr (sizeof(D) == 1) {
            const __m128i low = _mm_packs_epi32(a, b), high = _mm_packs_epi32(c, e);
            _mm_storeu_si128(reinterpret_cast<__m128i*>(d + i),
                             std::is_signed_v<D> ? _mm_packs_epi16(low, high) : _mm_packus_epi16(low, high));
        } else {
            const auto pack = [](__m128i x, __m128i y) {
                return std::is_signed_v<D> ? _mm_packs_epi32(x, y) : _mm_packus_epi32(x, y);
            };
            _mm_storeu_si128(reinterpret_cast<__m128i*>(d + i), pack(a, b));
            _mm_storeu_si128(reinterpret_cast<__m128i*>(d + i + 8), pack(c, e));
        }
    }
    for (; i < n; i++)
        d[i] = rounded<D>(s[i]);
}
BENCH_PLAIN void ssePack(const Zel32s* s, Zel16s* d, int n)
{
    int i = 0;
    for (; i + 8 <= n; i += 8)
        _mm_storeu_si128(reinterpret_cast<__m128i*>(d + i),
                         _mm_packs_epi32(_mm_loadu_si128(reinterpret_cast<const __m128i*>(s + i)),
                                         _mm_loadu_si128(reinterpret_cast<const __m128i*>(s + i + 4))));
    for (; i < n; i++)
        d[i] = saturated<Zel16s>(s[i]);
}

/// A software conversion by cases.
Zel32f floatOf(Zel16f h)
{
    const std::uint32_t sign = static_cast<std::uint32_t>(h & 0x8000) << 16;
    const std::uint32_t exponent = h >> 10 & 31;
    std::uint32_t mantissa = h & 1023;
    if (exponent == 31)
        return std::bit_cast<float>(sign | 0x7F800000 | mantissa << 13);
    if (exponent != 0)
        return std::bit_cast<float>(sign | (exponent + 112) << 23 | mantissa << 13);
    if (mantissa == 0)
        return std::bit_cast<float>(sign);
    std::uint32_t e = 113;
    while (!(mantissa & 1024)) {
        mantissa <<= 1;
        e--;
    }
    return std::bit_cast<float>(sign | e << 23 | (mantissa & 1023) << 13);
}
Zel16f halfOf(Zel32f x)
{
    const auto bits = std::bit_cast<std::uint32_t>(x);
    const auto sign = static_cast<std::uint32_t>(bits >> 16 & 0x8000);
    const std::uint32_t magnitude = bits & 0x7FFFFFFF;
    if (magnitude > 0x7F800000)
        return static_cast<Zel16f>(sign | 0x7E00);
    if (magnitude >= 0x47800000)
        return static_cast<Zel16f>(sign | 0x7C00);
    if (magnitude >= 0x38800000) {
        const std::uint32_t h = magnitude - 0x38000000;
        return static_cast<Zel16f>(sign | ((h + 0xFFF + (h >> 13 & 1)) >> 13));
    }
    const auto exponent = magnitude >> 23;
    if (exponent < 102)
        return static_cast<Zel16f>(sign);
    const std::uint32_t mantissa = (magnitude & 0x7FFFFF) | 0x800000;
    const std::uint32_t shift = 126 - exponent;
    const std::uint32_t q = mantissa >> shift;
    const std::uint32_t rest = mantissa & ((1u << shift) - 1);
    const std::uint32_t half = 1u << (shift - 1);
    return static_cast<Zel16f>(sign | (q + (rest > half || (rest == half && (q & 1)))));
}

BENCH_PLAIN void plainFloats(const Zel16f* s, Zel32f* d, int n)
{
    for (int i = 0; i < n; i++)
        d[i] = floatOf(s[i]);
}
BENCH_PLAIN void plainHalves(const Zel32f* s, Zel16f* d, int n)
{
    for (int i = 0; i < n; i++)
        d[i] = halfOf(s[i]);
}

BENCH_PLAIN void plainUnpack24(const Zel8u* s, Zel32f* d, int n)
{
    for (int i = 0; i < n; i++)
        d[i] =
            static_cast<Zel32f>(static_cast<Zel32s>(static_cast<Zel32u>(s[3 * i] << 8 | s[3 * i + 1] << 16) |
                                                    static_cast<Zel32u>(s[3 * i + 2]) << 24) >>
                                8);
}
BENCH_PLAIN void plainPack24(const Zel32f* s, Zel8u* d, int n)
{
    for (int i = 0; i < n; i++) {
        const auto x = static_cast<Zel32s>(std::rint(std::clamp(s[i], -8388608.0f, 8388607.0f)));
        d[3 * i] = static_cast<Zel8u>(x);
        d[3 * i + 1] = static_cast<Zel8u>(x >> 8);
        d[3 * i + 2] = static_cast<Zel8u>(x >> 16);
    }
}

template <auto zels, class S, class D>
auto nearest(const S* s, D* d, int n)
{
    zels(s, d, n, zelRndNear, 0);
}

const bench::Family family("Conversion of other types", [](bench::Run& run) {
    run.map("zelsConvert_32f8u_Sfs", nearest<zelsConvert_32f8u_Sfs, Zel32f, Zel8u>,
            bench::peer("SSE loop", sseNarrow<Zel8u>),
            bench::loop(bench::plain<rounded<Zel8u>, Zel8u, Zel32f>));
    run.map("zelsConvert_32f8s_Sfs", nearest<zelsConvert_32f8s_Sfs, Zel32f, Zel8s>,
            bench::peer("SSE loop", sseNarrow<Zel8s>));
    run.map("zelsConvert_32f16u_Sfs", nearest<zelsConvert_32f16u_Sfs, Zel32f, Zel16u>,
            bench::peer("SSE loop", sseNarrow<Zel16u>));
    run.map("zelsConvert_32f32s_Sfs", nearest<zelsConvert_32f32s_Sfs, Zel32f, Zel32s>,
            bench::loop(bench::plain<rounded<Zel32s>, Zel32s, Zel32f>));
    run.map("zelsConvert_64f16s_Sfs", nearest<zelsConvert_64f16s_Sfs, Zel64f, Zel16s>,
            bench::loop(bench::plain<rounded<Zel16s>, Zel16s, Zel64f>));
    run.map("zelsConvert_64f32s_Sfs", nearest<zelsConvert_64f32s_Sfs, Zel64f, Zel32s>,
            bench::loop(bench::plain<rounded<Zel32s>, Zel32s, Zel64f>));
    run.map("zelsConvert_32s16s", zelsConvert_32s16s, bench::peer("SSE loop", ssePack),
            bench::loop(bench::plain<saturated<Zel16s>, Zel16s, Zel32s>));
    run.map("zelsConvert_16s32s", zelsConvert_16s32s,
            bench::loop(bench::plain<converted<Zel32s>, Zel32s, Zel16s>));
    run.map("zelsConvert_8u32f", zelsConvert_8u32f,
            bench::loop(bench::plain<converted<Zel32f>, Zel32f, Zel8u>));
    run.map("zelsConvert_16u32f", zelsConvert_16u32f,
            bench::loop(bench::plain<converted<Zel32f>, Zel32f, Zel16u>));
    run.map("zelsConvert_32s32f", zelsConvert_32s32f,
            bench::loop(bench::plain<converted<Zel32f>, Zel32f, Zel32s>));
    run.map("zelsConvert_32s64f", zelsConvert_32s64f,
            bench::loop(bench::plain<converted<Zel64f>, Zel64f, Zel32s>));
    run.map("zelsConvert_32f64f", zelsConvert_32f64f,
            bench::loop(bench::plain<converted<Zel64f>, Zel64f, Zel32f>));
    run.map("zelsConvert_64f32f", zelsConvert_64f32f,
            bench::loop(bench::plain<converted<Zel32f>, Zel32f, Zel64f>));
    run.map("zelsConvert_64s64f", zelsConvert_64s64f,
            bench::loop(bench::plain<converted<Zel64f>, Zel64f, Zel64s>));
    run.map(
        "zelsConvert_32f16f",
        [](const Zel32f* s, Zel16f* d, int n) { zelsConvert_32f16f(s, d, n, zelRndNear); },
        bench::peer("software, scalar", plainHalves));
    for (const ZelSize n : run.lengths()) {
        bench::Array<Zel8u> packed(3 * n);
        bench::Array<Zel32f> floats(n);
        bench::Array<Zel16f> halves(n);
        const int len = static_cast<int>(n);
        zelsConvert_32f16f(floats, halves, len, zelRndNear);
        run.row(
            "zelsConvert_16f32f", n, {.bytes = 6}, [&, len] { zelsConvert_16f32f(halves, floats, len); },
            bench::peer("software, scalar", [&, len] { plainFloats(halves, floats, len); }));
        run.row(
            "zelsConvert_24s32f", n, {.bytes = 7}, [&, len] { zelsConvert_24s32f(packed, floats, len); },
            bench::loop([&, len] { plainUnpack24(packed, floats, len); }));
        run.row(
            "zelsConvert_32f24s_Sfs", n, {.bytes = 7},
            [&, len] { zelsConvert_32f24s_Sfs(floats, packed, len, 0); },
            bench::loop([&, len] { plainPack24(floats, packed, len); }));
    }
});

const bench::Family streams("Conversion of long vectors", [](bench::Run& run) {
    // Beyond the thresholds the destination is written past the caches; the plain loop writes through them.
    run.lengths({1 << 20, 1 << 24});
    run.map("zelsConvert_16s32s", zelsConvert_16s32s,
            bench::loop(bench::plain<converted<Zel32s>, Zel32s, Zel16s>));
    run.map("zelsConvert_32s16s", zelsConvert_32s16s, bench::peer("SSE loop", ssePack));
    run.map("zelsConvert_32f64f", zelsConvert_32f64f,
            bench::loop(bench::plain<converted<Zel64f>, Zel64f, Zel32f>));
    run.map(
        "zelsConvert_16s64f_Sfs",
        [](const Zel16s* s, Zel64f* d, int n) { zelsConvert_16s64f_Sfs(s, d, n, 0); },
        bench::loop(bench::plain<converted<Zel64f>, Zel64f, Zel16s>));
});

} // namespace
