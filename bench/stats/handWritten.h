// Reductions as one writes them by hand with 128-bit instructions: four accumulators, unaligned loads, single steps at the
// end.
#pragma once

#include "support/bench.h"

#include <cmath>
#include <smmintrin.h>

namespace bench {

/// Folds groups of `n` elements into four accumulators: add(accumulator, index).
template <int n, class Accumulator, class Add>
[[gnu::always_inline]] inline int fourWays(Accumulator (&a)[4], int len, Add add)
{
    int i = 0;
    for (; i + 4 * n <= len; i += 4 * n) {
        add(a[0], i);
        add(a[1], i + n);
        add(a[2], i + 2 * n);
        add(a[3], i + 3 * n);
    }
    return i;
}

[[gnu::always_inline]] inline float joined(const __m128 (&a)[4])
{
    const __m128 v = _mm_add_ps(_mm_add_ps(a[0], a[1]), _mm_add_ps(a[2], a[3]));
    const __m128 w = _mm_add_ps(v, _mm_movehl_ps(v, v));
    return _mm_cvtss_f32(_mm_add_ss(w, _mm_shuffle_ps(w, w, 1)));
}
[[gnu::always_inline]] inline double joined(const __m128d (&a)[4])
{
    const __m128d v = _mm_add_pd(_mm_add_pd(a[0], a[1]), _mm_add_pd(a[2], a[3]));
    return _mm_cvtsd_f64(_mm_add_sd(v, _mm_unpackhi_pd(v, v)));
}

[[gnu::always_inline]] inline __m128d widePair(const float* p)
{
    return _mm_cvtps_pd(_mm_castpd_ps(_mm_load_sd(reinterpret_cast<const double*>(p))));
}

BENCH_PLAIN inline void handSum_32f(const float* p, int len, float* sum)
{
    __m128 a[4] = {};
    int i = fourWays<4>(a, len, [=](__m128& r, int at) { r = _mm_add_ps(r, _mm_loadu_ps(p + at)); });
    float s = joined(a);
    for (; i < len; i++)
        s += p[i];
    *sum = s;
}

BENCH_PLAIN inline void handSum_32f64f(const float* p, int len, float* sum)
{
    __m128d a[4] = {};
    int i = fourWays<2>(a, len, [=](__m128d& r, int at) { r = _mm_add_pd(r, widePair(p + at)); });
    double s = joined(a);
    for (; i < len; i++)
        s += static_cast<double>(p[i]);
    *sum = static_cast<float>(s);
}

BENCH_PLAIN inline void handSum_64f(const double* p, int len, double* sum)
{
    __m128d a[4] = {};
    int i = fourWays<2>(a, len, [=](__m128d& r, int at) { r = _mm_add_pd(r, _mm_loadu_pd(p + at)); });
    double s = joined(a);
    for (; i < len; i++)
        s += p[i];
    *sum = s;
}

BENCH_PLAIN inline void handMeanStdDev_32f(const float* p, int len, float* mean, float* dev)
{
    __m128d sums[2] = {};
    __m128d squares[2] = {};
    int i = 0;
    for (; i + 4 <= len; i += 4)
        for (int k = 0; k < 2; k++) {
            const __m128d x = widePair(p + i + 2 * k);
            sums[k] = _mm_add_pd(sums[k], x);
            squares[k] = _mm_add_pd(squares[k], _mm_mul_pd(x, x));
        }
    double s = joined({sums[0], sums[1], _mm_setzero_pd(), _mm_setzero_pd()});
    double q = joined({squares[0], squares[1], _mm_setzero_pd(), _mm_setzero_pd()});
    for (; i < len; i++) {
        s += static_cast<double>(p[i]);
        q += static_cast<double>(p[i]) * static_cast<double>(p[i]);
    }
    const double n = len;
    *mean = static_cast<float>(s / n);
    *dev = static_cast<float>(std::sqrt((n * q - s * s) / (n * (n - 1))));
}

BENCH_PLAIN inline void handDot_32f(const float* p, const float* q, int len, float* dot)
{
    __m128 a[4] = {};
    int i = fourWays<4>(a, len, [=](__m128& r, int at) {
        r = _mm_add_ps(r, _mm_mul_ps(_mm_loadu_ps(p + at), _mm_loadu_ps(q + at)));
    });
    float s = joined(a);
    for (; i < len; i++)
        s += p[i] * q[i];
    *dot = s;
}

/// The bound of six running sums: a sixth of the length in additions, each of which waits for the one before.
BENCH_PLAIN inline void additionsInARow(int additions, float* sum)
{
    __m128 s = _mm_set1_ps(*sum);
    for (int i = 0; i < additions; i++) {
        s = _mm_add_ps(s, s);
        asm volatile("" : "+x"(s)); // an addition a turn
    }
    *sum = _mm_cvtss_f32(s);
}

BENCH_PLAIN inline void handDot_64f(const double* p, const double* q, int len, double* dot)
{
    __m128d a[4] = {};
    int i = fourWays<2>(a, len, [=](__m128d& r, int at) {
        r = _mm_add_pd(r, _mm_mul_pd(_mm_loadu_pd(p + at), _mm_loadu_pd(q + at)));
    });
    double s = joined(a);
    for (; i < len; i++)
        s += p[i] * q[i];
    *dot = s;
}

BENCH_PLAIN inline void handNorm_L2_32f(const float* p, int len, float* norm)
{
    __m128 a[4] = {};
    int i = fourWays<4>(a, len, [=](__m128& r, int at) {
        const __m128 x = _mm_loadu_ps(p + at);
        r = _mm_add_ps(r, _mm_mul_ps(x, x));
    });
    float s = joined(a);
    for (; i < len; i++)
        s += p[i] * p[i];
    *norm = std::sqrt(s);
}

BENCH_PLAIN inline void handMax_32f(const float* p, int len, float* max)
{
    __m128 a[4];
    a[0] = a[1] = a[2] = a[3] = _mm_set1_ps(p[0]);
    int i = fourWays<4>(a, len, [=](__m128& r, int at) { r = _mm_max_ps(r, _mm_loadu_ps(p + at)); });
    const __m128 v = _mm_max_ps(_mm_max_ps(a[0], a[1]), _mm_max_ps(a[2], a[3]));
    const __m128 w = _mm_max_ps(v, _mm_movehl_ps(v, v));
    float m = _mm_cvtss_f32(_mm_max_ss(w, _mm_shuffle_ps(w, w, 1)));
    for (; i < len; i++)
        m = m > p[i] ? m : p[i];
    *max = m;
}

/// Loads every vector and does next to nothing with it: the read speed of the machine.
BENCH_PLAIN inline void readAll(const void* p, ZelSize bytes, int* any)
{
    const auto* v = static_cast<const __m128i*>(p);
    __m128i a[4] = {};
    for (ZelSize i = 0; i + 4 <= bytes / 16; i += 4)
        for (int k = 0; k < 4; k++)
            a[k] = _mm_or_si128(a[k], _mm_loadu_si128(v + i + k));
    *any = _mm_movemask_epi8(_mm_or_si128(_mm_or_si128(a[0], a[1]), _mm_or_si128(a[2], a[3])));
}

} // namespace bench
