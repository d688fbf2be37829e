// Elementary functions beside loops over the vector functions of glibc and SLEEF, on data of the usual range.
#pragma once

#include "support/plain.h"

#include <cmath>
#include <smmintrin.h>

#if BENCH_HAS_SLEEF
#include <sleef.h>
#define BENCH_SLEEF(...) __VA_ARGS__
#else
#define BENCH_SLEEF(...) bench::NoPeer()
#endif

// The vector mathematics of glibc comes with its headers; clang and older versions lack the declarations.
#if BENCH_HAS_MVEC
extern "C" {
__m128 _ZGVbN4v_expf(__m128);
__m128 _ZGVbN4v_logf(__m128);
__m128 _ZGVbN4v_cbrtf(__m128);
__m128d _ZGVbN2v_exp(__m128d);
__m128d _ZGVbN2v_log(__m128d);
__m128 _ZGVbN4v_atanf(__m128);
__m128 _ZGVbN4vv_atan2f(__m128, __m128);
__m128d _ZGVbN2v_atan(__m128d);
__m128d _ZGVbN2vv_atan2(__m128d, __m128d);
// The argument, then where the sines go and where the cosines: an address for each lane.
void _ZGVbN4vvv_sincosf(__m128, __m128i, __m128i, __m128i, __m128i);
void _ZGVbN2vvv_sincos(__m128d, __m128i, __m128i);
}
#define BENCH_MVEC(...) __VA_ARGS__
#else
#define BENCH_MVEC(...) bench::NoPeer()
#endif

namespace bench {

/// d[i] = function(s[i]...) by whole vectors; the last one overlaps the one before where it must.
template <auto function, class D, class... S>
BENCH_PLAIN void byVectors(const S*... s, D* d, int n)
{
    const auto at = [&](int i) {
        if constexpr (sizeof(D) == 4)
            _mm_storeu_ps(d + i, function(_mm_loadu_ps(s + i)...));
        else
            _mm_storeu_pd(d + i, function(_mm_loadu_pd(s + i)...));
    };
    constexpr int lanes = 16 / sizeof(D);
    int i = 0;
    for (; i + lanes <= n; i += lanes)
        at(i);
    if (i < n)
        at(n - lanes);
}

/// Rows on arguments drawn evenly from `low` to `high`; integers the same way.
template <class S, class D, class Zels, class... Peers>
void onRange(Run& run, const char* name, double low, double high, Zels zels, Peers... peers)
{
    for (const ZelSize n : run.lengths()) {
        const Array<S> source(n);
        const Array<D> destination(n);
        const Array<Zel32s> random(n);
        const int len = static_cast<int>(n);
        for (int i = 0; i < len; i++)
            source[i] = static_cast<S>(low + (high - low) * (random[i] / 4294967296.0 + 0.5));
        const S* const s = source;
        D* const d = destination;
        const auto bound = [=](auto rival) {
            if constexpr (requires { rival.call; })
                return peer(rival.name, [=] { rival.call(s, d, len); });
            else
                return rival;
        };
        run.row(
            name, n, {.bytes = sizeof(S) + sizeof(D)}, [=] { zels(s, d, len); }, bound(peers)...);
    }
}

} // namespace bench
