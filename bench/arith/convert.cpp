// Conversion between element types.
#include "support/plain.h"
#include "support/volk.h"

#include <algorithm>
#include <cmath>
#include <smmintrin.h>

#if BENCH_HAS_VOLK
#include <volk/volk_16i_s32f_convert_32f.h>
#include <volk/volk_32f_s32f_convert_16i.h>
#endif

namespace {

constexpr auto toFloat = [](Zel16s x) { return static_cast<Zel32f>(x); };

constexpr auto near16s = [](Zel32f x, Zel32f scale) {
    return static_cast<Zel16s>(std::rint(std::clamp(x * scale, -32768.0f, 32767.0f)));
};
constexpr auto zero16s = [](Zel32f x, Zel32f scale) {
    return static_cast<Zel16s>(std::clamp(x * scale, -32768.0f, 32767.0f));
};
constexpr auto financial16s = [](Zel32f x, Zel32f scale) {
    const Zel32f clamped = std::clamp(x * scale, -32768.0f, 32767.0f);
    return static_cast<Zel16s>(clamped + std::copysign(0.5f, clamped));
};

BENCH_PLAIN void sseToFloat(const Zel16s* s, Zel32f* d, int n)
{
    int i = 0;
    for (; i + 8 <= n; i += 8) {
        const __m128i x = _mm_loadu_si128(reinterpret_cast<const __m128i*>(s + i));
        _mm_storeu_ps(d + i, _mm_cvtepi32_ps(_mm_cvtepi16_epi32(x)));
        _mm_storeu_ps(d + i + 4, _mm_cvtepi32_ps(_mm_cvtepi16_epi32(_mm_srli_si128(x, 8))));
    }
    for (; i < n; i++)
        d[i] = static_cast<Zel32f>(s[i]);
}

/// Scale, clamp, convert to nearest, pack.
template <bool scaled>
BENCH_PLAIN void sseTo16s(const Zel32f* s, Zel32f scale, Zel16s* d, int n)
{
    const auto whole = [&](const Zel32f* p) {
        __m128 x = _mm_loadu_ps(p);
        if constexpr (scaled)
            x = _mm_mul_ps(x, _mm_set1_ps(scale));
        return _mm_cvtps_epi32(_mm_min_ps(_mm_max_ps(x, _mm_set1_ps(-32768)), _mm_set1_ps(32767)));
    };
    int i = 0;
    for (; i + 8 <= n; i += 8)
        _mm_storeu_si128(reinterpret_cast<__m128i*>(d + i), _mm_packs_epi32(whole(s + i), whole(s + i + 4)));
    for (; i < n; i++)
        d[i] = near16s(s[i], scale);
}

constexpr Zel32f two14 = 16384;

template <int rounding, int scaleFactor>
void convert(const Zel32f* s, Zel16s* d, int n)
{
    zelsConvert_32f16s_Sfs(s, d, n, rounding, scaleFactor);
}
template <auto op>
void plainTo16s(const Zel32f* s, Zel16s* d, int n)
{
    bench::plainWith<op, Zel16s, Zel32f, Zel32f>(s, two14, d, n);
}

const bench::Family family("Conversion", [](bench::Run& run) {
    run.map("zelsConvert_16s32f", zelsConvert_16s32f, bench::loop(bench::plain<toFloat, Zel32f, Zel16s>),
            bench::peer("SSE loop", sseToFloat),
            BENCH_VOLK("VOLK SSE",
                       [](const Zel16s* s, Zel32f* d, int n) {
                           bench::volkCall<volk_16i_s32f_convert_32f_u_sse4_1>(d, s, 1.0f,
                                                                               static_cast<unsigned>(n));
                       }),
            BENCH_VOLK("VOLK (wider vectors)", [](const Zel16s* s, Zel32f* d, int n) {
                bench::volkCall<volk_16i_s32f_convert_32f>(d, s, 1.0f, static_cast<unsigned>(n));
            }));
    run.map("zelsConvert_32f16s_Sfs, nearest, factor 0", convert<zelRndNear, 0>,
            bench::loop([](const Zel32f* s, Zel16s* d, int n) {
                bench::plainWith<near16s, Zel16s, Zel32f, Zel32f>(s, 1, d, n);
            }),
            bench::peer("SSE loop", [](const Zel32f* s, Zel16s* d, int n) { sseTo16s<false>(s, 1, d, n); }));
    run.map(
        "zelsConvert_32f16s_Sfs, nearest, factor -14", convert<zelRndNear, -14>,
        bench::loop(plainTo16s<near16s>),
        bench::peer("SSE loop", [](const Zel32f* s, Zel16s* d, int n) { sseTo16s<true>(s, two14, d, n); }),
        BENCH_VOLK("VOLK SSE",
                   [](const Zel32f* s, Zel16s* d, int n) {
                       bench::volkCall<volk_32f_s32f_convert_16i_u_sse2>(d, s, two14,
                                                                         static_cast<unsigned>(n));
                   }),
        BENCH_VOLK("VOLK (wider vectors)", [](const Zel32f* s, Zel16s* d, int n) {
            bench::volkCall<volk_32f_s32f_convert_16i>(d, s, two14, static_cast<unsigned>(n));
        }));
    run.map("zelsConvert_32f16s_Sfs, to zero, factor -14", convert<zelRndZero, -14>,
            bench::loop(plainTo16s<zero16s>));
    run.map("zelsConvert_32f16s_Sfs, financial, factor -14", convert<zelRndFinancial, -14>,
            bench::loop(plainTo16s<financial16s>));
});

} // namespace
