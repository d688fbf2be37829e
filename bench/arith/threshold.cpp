// Thresholds beside hand-written SSE loops and the compiler's loops.
#include "support/plain.h"

#include <bit>
#include <cmath>
#include <smmintrin.h>

namespace {

template <class T>
__m128i splat(T x)
{
    if constexpr (sizeof(T) == 2)
        return _mm_set1_epi16(x);
    else if constexpr (sizeof(T) == 4)
        return _mm_set1_epi32(std::bit_cast<int>(x));
    else
        return _mm_set1_epi64x(std::bit_cast<long long>(x));
}

/// A hand-written loop of two whole vectors a round, then single elements. The constants are a level and a value.
template <auto vector, auto single, class T, class P>
BENCH_PLAIN void sse(const T* s, T* d, int n, P level, P value)
{
    constexpr int lanes = 16 / static_cast<int>(sizeof(T));
    const __m128i l = splat(level), v = splat(value);
    const auto at = [&](int i) {
        _mm_storeu_si128(reinterpret_cast<__m128i*>(d + i),
                         vector(_mm_loadu_si128(reinterpret_cast<const __m128i*>(s + i)), l, v));
    };
    int i = 0;
    for (; i + 2 * lanes <= n; i += 2 * lanes) {
        at(i);
        at(i + lanes);
    }
    for (; i < n; i++)
        d[i] = single(s[i], level, value);
}

/// The compiler's loop of the same on single elements.
template <auto single, class T, class P>
BENCH_PLAIN void plainLoop(const T* s, T* d, int n, P level, P value)
{
    for (int i = 0; i < n; i++)
        d[i] = single(s[i], level, value);
}

__m128 f(__m128i x)
{
    return _mm_castsi128_ps(x);
}
__m128i i(__m128 x)
{
    return _mm_castps_si128(x);
}
__m128d g(__m128i x)
{
    return _mm_castsi128_pd(x);
}
__m128i i(__m128d x)
{
    return _mm_castpd_si128(x);
}

constexpr auto lower = []<class T>(T x, T l, T) { return x > l ? x : l; };
constexpr auto value = []<class T>(T x, T l, T v) { return l <= x ? x : v; };
constexpr auto both = []<class T>(T x, T l, T v) { return x < -l ? -v : x > l ? v : x; };
constexpr auto absolute = [](Zel32f x, Zel32f l, Zel32f) {
    const Zel32f m = std::fabs(x);
    return std::copysign(m > l ? m : l, x);
};
constexpr auto absolute16 = [](Zel16s x, Zel16s l, Zel16s) {
    const int m = x < 0 ? -x : x;
    const int limited = m > l ? m : l;
    return static_cast<Zel16s>(x < 0 ? -limited : limited);
};
constexpr auto upperAbsolute = [](Zel32s x, Zel32s l, Zel32s) { return x < -l ? -l : x > l ? l : x; };
constexpr auto absoluteValue = []<class T>(T x, T l, T v) { return (x < 0 ? -x : x) < l ? v : x; };
constexpr auto inverse = []<class T>(T x, T l, T) {
    const T m = std::fabs(x);
    return 1 / std::copysign(m > l ? m : l, x);
};
constexpr auto sumOfSquares = [](auto z) { return z.re * z.re + z.im * z.im; };
constexpr auto complexLower = []<class C, class P>(C z, P l, P) {
    const P m = sumOfSquares(z);
    if (!(m < l * l))
        return z;
    if (m == 0)
        return C{l, 0};
    const P factor = l / std::sqrt(m);
    return C{z.re * factor, z.im * factor};
};
constexpr auto complexLower16 = [](Zel16sc z, Zel16s l, Zel16s) {
    const Zel64s m = Zel64s{z.re} * z.re + Zel64s{z.im} * z.im;
    if (m >= l * l)
        return z;
    const double factor = l / std::sqrt(static_cast<double>(m));
    return m == 0 ? Zel16sc{l, 0}
                  : Zel16sc{static_cast<Zel16s>(std::lrint(z.re * factor)),
                            static_cast<Zel16s>(std::lrint(z.im * factor))};
};
constexpr auto complexValue = [](Zel32fc z, Zel32f l, Zel32f v) {
    return l * l <= sumOfSquares(z) ? z : Zel32fc{v, v};
};
constexpr auto complexInverse = []<class C, class P>(C z, P l, P) {
    const P m = sumOfSquares(z);
    const P divisor = m < l * l ? std::sqrt(m) * l : m;
    return C{z.re / divisor, -z.im / divisor};
};

using M = __m128i;
constexpr auto sseLower = [](M x, M l, M) { return i(_mm_max_ps(f(x), f(l))); };
constexpr auto sseLower64 = [](M x, M l, M) { return i(_mm_max_pd(g(x), g(l))); };
constexpr auto sseLower16 = [](M x, M l, M) { return _mm_max_epi16(x, l); };
constexpr auto sseLower32 = [](M x, M l, M) { return _mm_max_epi32(x, l); };
constexpr auto sseValue = [](M x, M l, M v) {
    return i(_mm_blendv_ps(f(v), f(x), _mm_cmple_ps(f(l), f(x))));
};
constexpr auto sseValue16 = [](M x, M l, M v) { return _mm_blendv_epi8(x, v, _mm_cmpgt_epi16(l, x)); };
constexpr auto sseBoth = [](M x, M l, M v) {
    const __m128 sign = _mm_set1_ps(-0.0f);
    const __m128 y = _mm_blendv_ps(f(x), _mm_xor_ps(f(v), sign), _mm_cmplt_ps(f(x), _mm_xor_ps(f(l), sign)));
    return i(_mm_blendv_ps(y, f(v), _mm_cmpgt_ps(f(x), f(l))));
};
constexpr auto sseAbsolute = [](M x, M l, M) {
    const __m128 sign = _mm_set1_ps(-0.0f);
    return i(_mm_or_ps(_mm_max_ps(_mm_andnot_ps(sign, f(x)), f(l)), _mm_and_ps(sign, f(x))));
};
constexpr auto sseAbsolute16 = [](M x, M l, M) {
    const M lowered = _mm_min_epi16(x, _mm_sub_epi16(_mm_setzero_si128(), l));
    return _mm_blendv_epi8(_mm_max_epi16(x, l), lowered, _mm_srai_epi16(x, 15));
};
constexpr auto sseUpperAbsolute = [](M x, M l, M) {
    return _mm_min_epi32(_mm_max_epi32(x, _mm_sub_epi32(_mm_setzero_si128(), l)), l);
};
constexpr auto sseAbsoluteValue = [](M x, M l, M v) {
    return i(_mm_blendv_ps(f(x), f(v), _mm_cmplt_ps(_mm_andnot_ps(_mm_set1_ps(-0.0f), f(x)), f(l))));
};
constexpr auto sseAbsoluteValue16 = [](M x, M l, M v) {
    const M m = _mm_abs_epi16(_mm_max_epi16(x, _mm_set1_epi16(-32767)));
    return _mm_blendv_epi8(x, v, _mm_cmpgt_epi16(l, m));
};
constexpr auto sseInverse = [](M x, M l, M) {
    const __m128 sign = _mm_set1_ps(-0.0f);
    const __m128 m = _mm_max_ps(_mm_andnot_ps(sign, f(x)), f(l));
    return i(_mm_div_ps(_mm_set1_ps(1), _mm_or_ps(m, _mm_and_ps(sign, f(x)))));
};
constexpr auto sseInverse64 = [](M x, M l, M) {
    const __m128d sign = _mm_set1_pd(-0.0);
    const __m128d m = _mm_max_pd(_mm_andnot_pd(sign, g(x)), g(l));
    return i(_mm_div_pd(_mm_set1_pd(1), _mm_or_pd(m, _mm_and_pd(sign, g(x)))));
};
constexpr auto sseSums = [](M x) {
    const __m128 y = _mm_mul_ps(f(x), f(x));
    return _mm_add_ps(y, _mm_shuffle_ps(y, y, 0xB1));
};
constexpr auto sseSums64 = [](M x) {
    const __m128d y = _mm_mul_pd(g(x), g(x));
    return _mm_add_pd(y, _mm_shuffle_pd(y, y, 1));
};
// Without a branch, and without a thought for zeros.
constexpr auto sseComplexLower = [](M x, M l, M) {
    const __m128 m = sseSums(x);
    const __m128 r = _mm_mul_ps(f(x), _mm_div_ps(f(l), _mm_sqrt_ps(m)));
    return i(_mm_blendv_ps(f(x), r, _mm_cmplt_ps(m, _mm_mul_ps(f(l), f(l)))));
};
constexpr auto sseComplexLower64 = [](M x, M l, M) {
    const __m128d m = sseSums64(x);
    const __m128d r = _mm_mul_pd(g(x), _mm_div_pd(g(l), _mm_sqrt_pd(m)));
    return i(_mm_blendv_pd(g(x), r, _mm_cmplt_pd(m, _mm_mul_pd(g(l), g(l)))));
};
constexpr auto sseComplexValue = [](M x, M l, M v) {
    return i(_mm_blendv_ps(f(v), f(x), _mm_cmple_ps(_mm_mul_ps(f(l), f(l)), sseSums(x))));
};
constexpr auto sseComplexInverse = [](M x, M l, M) {
    const __m128 m = sseSums(x);
    const __m128 divisor =
        _mm_blendv_ps(m, _mm_mul_ps(_mm_sqrt_ps(m), f(l)), _mm_cmplt_ps(m, _mm_mul_ps(f(l), f(l))));
    return i(_mm_div_ps(_mm_xor_ps(f(x), _mm_setr_ps(0, -0.0f, 0, -0.0f)), divisor));
};

/// A peer with its constants.
template <class T, class P>
auto with(P l, P v, void (*loop)(const T*, T*, int, P, P))
{
    return [=](const T* s, T* d, int n) { loop(s, d, n, l, v); };
}

template <auto vector, auto single, class T, class P>
void row(bench::Run& run, const char* name, P l, P v, ZelStatus (*zels)(const T*, T*, int, P))
{
    run.map(
        name, [=](const T* s, T* d, int n) { zels(s, d, n, l); },
        bench::peer("SSE loop", with<T>(l, v, sse<vector, single, T, P>)),
        bench::loop(with<T>(l, v, plainLoop<single, T, P>)));
}
template <auto vector, auto single, class T, class P>
void row(bench::Run& run, const char* name, P l, P v, ZelStatus (*zels)(const T*, T*, int, P, T))
{
    run.map(
        name,
        [=](const T* s, T* d, int n) {
            if constexpr (bench::Complex<T>)
                zels(s, d, n, l, {v, v});
            else
                zels(s, d, n, l, v);
        },
        bench::peer("SSE loop", with<T>(l, v, sse<vector, single, T, P>)),
        bench::loop(with<T>(l, v, plainLoop<single, T, P>)));
}
template <auto vector, auto single, class T, class P>
void row(bench::Run& run, const char* name, P l, P v, ZelStatus (*zels)(const T*, T*, int, P, P, P, P))
{
    run.map(
        name, [=](const T* s, T* d, int n) { zels(s, d, n, -l, -v, l, v); },
        bench::peer("SSE loop", with<T>(l, v, sse<vector, single, T, P>)),
        bench::loop(with<T>(l, v, plainLoop<single, T, P>)));
}

constexpr Zel16s level16 = 1000, value16 = 5;
constexpr Zel32s level32 = 1 << 29;

// Floats are of magnitude 0.5 to 1 and either sign.
const bench::Family reals("Thresholds", [](bench::Run& run) {
    row<sseLower, lower>(run, "zelsThreshold_LT_32f", 0.25f, 0.5f, zelsThreshold_LT_32f);
    row<sseLower64, lower>(run, "zelsThreshold_LT_64f", 0.25, 0.5, zelsThreshold_LT_64f);
    row<sseLower16, lower>(run, "zelsThreshold_LT_16s", level16, value16, zelsThreshold_LT_16s);
    row<sseLower32, lower>(run, "zelsThreshold_LT_32s", level32, 5, zelsThreshold_LT_32s);
    row<sseValue, value>(run, "zelsThreshold_LTVal_32f", 0.25f, 0.5f, zelsThreshold_LTVal_32f);
    row<sseValue16, value>(run, "zelsThreshold_LTVal_16s", level16, value16, zelsThreshold_LTVal_16s);
    row<sseBoth, both>(run, "zelsThreshold_LTValGTVal_32f", 0.75f, 2.0f, zelsThreshold_LTValGTVal_32f);
    row<sseAbsolute, absolute>(run, "zelsThreshold_LTAbs_32f", 0.75f, 0.5f, zelsThreshold_LTAbs_32f);
    row<sseAbsolute16, absolute16>(run, "zelsThreshold_LTAbs_16s", level16, value16, zelsThreshold_LTAbs_16s);
    row<sseUpperAbsolute, upperAbsolute>(run, "zelsThreshold_GTAbs_32s", level32, 5, zelsThreshold_GTAbs_32s);
    row<sseAbsoluteValue, absoluteValue>(run, "zelsThreshold_LTAbsVal_32f", 0.75f, 0.5f,
                                         zelsThreshold_LTAbsVal_32f);
    row<sseAbsoluteValue16, absoluteValue>(run, "zelsThreshold_LTAbsVal_16s", level16, value16,
                                           zelsThreshold_LTAbsVal_16s);
    row<sseInverse, inverse>(run, "zelsThreshold_LTInv_32f", 0.75f, 0.5f, zelsThreshold_LTInv_32f);
    row<sseInverse64, inverse>(run, "zelsThreshold_LTInv_64f", 0.75, 0.5, zelsThreshold_LTInv_64f);
});

// Magnitudes are 0.7 to 1.4: by a level of 1 many are replaced, by one of 0.5 none.
const bench::Family magnitudes("Thresholds of complex magnitudes", [](bench::Run& run) {
    row<sseComplexLower, complexLower>(run, "zelsThreshold_LT_32fc, many replaced", 1.0f, 2.0f,
                                       zelsThreshold_LT_32fc);
    row<sseComplexLower, complexLower>(run, "zelsThreshold_LT_32fc, none replaced", 0.5f, 2.0f,
                                       zelsThreshold_LT_32fc);
    row<sseComplexLower64, complexLower>(run, "zelsThreshold_LT_64fc, many replaced", 1.0, 2.0,
                                         zelsThreshold_LT_64fc);
    row<sseComplexLower64, complexLower>(run, "zelsThreshold_LT_64fc, none replaced", 0.5, 2.0,
                                         zelsThreshold_LT_64fc);
    run.map(
        "zelsThreshold_LT_16sc, many replaced",
        [](const Zel16sc* s, Zel16sc* d, int n) { zelsThreshold_LT_16sc(s, d, n, 20000); },
        bench::loop(with<Zel16sc>(Zel16s{20000}, Zel16s{0}, plainLoop<complexLower16, Zel16sc, Zel16s>)));
    row<sseComplexValue, complexValue>(run, "zelsThreshold_LTVal_32fc", 1.0f, 2.0f, zelsThreshold_LTVal_32fc);
    row<sseComplexInverse, complexInverse>(run, "zelsThreshold_LTInv_32fc, many limited", 1.0f, 2.0f,
                                           zelsThreshold_LTInv_32fc);
    row<sseComplexInverse, complexInverse>(run, "zelsThreshold_LTInv_32fc, none limited", 0.5f, 2.0f,
                                           zelsThreshold_LTInv_32fc);
});

} // namespace
