// Thresholds beside hand-written SSE loops and the compiler's loops.
#include "support/plain.h"

#include <cmath>
#include <smmintrin.h>

namespace {

/// A hand-written loop of whole vectors with two a round, then single elements.
template <auto vector, auto single, class T>
BENCH_PLAIN void sse(const T* s, T* d, int n)
{
    constexpr int lanes = 16 / static_cast<int>(sizeof(T));
    const auto at = [&](int i) {
        _mm_storeu_si128(reinterpret_cast<__m128i*>(d + i),
                         vector(_mm_loadu_si128(reinterpret_cast<const __m128i*>(s + i))));
    };
    int i = 0;
    for (; i + 2 * lanes <= n; i += 2 * lanes) {
        at(i);
        at(i + lanes);
    }
    for (; i < n; i++)
        d[i] = single(s[i]);
}

/// The compiler's loop of the same on single elements.
template <auto single, class T>
BENCH_PLAIN void plainLoop(const T* s, T* d, int n)
{
    for (int i = 0; i < n; i++)
        d[i] = single(s[i]);
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

// Levels for elements of magnitude 0.5 to 1, and of any 16 and 32 bits.
constexpr Zel32f level = 0.25f, magnitude = 0.75f;
constexpr Zel16s level16 = 1000;
constexpr Zel32s level32 = 1 << 29;

constexpr auto lower = [](auto x) { return x > level ? x : level; };
constexpr auto lower64 = [](Zel64f x) { return x > level ? x : Zel64f{level}; };
constexpr auto lower16 = [](Zel16s x) { return x > level16 ? x : level16; };
constexpr auto lower32 = [](Zel32s x) { return x > level32 ? x : level32; };
constexpr auto value = [](Zel32f x) { return level <= x ? x : 0.5f; };
constexpr auto value16 = [](Zel16s x) { return level16 <= x ? x : Zel16s{5}; };
constexpr auto both = [](Zel32f x) { return x < -magnitude ? 2.0f : x > magnitude ? 3.0f : x; };
constexpr auto absolute = [](Zel32f x) {
    const Zel32f m = std::fabs(x);
    return std::copysign(m > magnitude ? m : magnitude, x);
};
constexpr auto absolute16 = [](Zel16s x) {
    const int m = x < 0 ? -x : x;
    const int limited = m > level16 ? m : level16;
    return static_cast<Zel16s>(x < 0 ? -limited : limited);
};
constexpr auto upperAbsolute32 = [](Zel32s x) { return x < -level32 ? -level32 : x > level32 ? level32 : x; };
constexpr auto absoluteValue = [](Zel32f x) { return std::fabs(x) < magnitude ? 0.0f : x; };
constexpr auto absoluteValue16 = [](Zel16s x) { return (x < 0 ? -x : x) < level16 ? Zel16s{0} : x; };
constexpr auto inverse = [](Zel32f x) {
    const Zel32f m = std::fabs(x);
    return 1 / std::copysign(m > magnitude ? m : magnitude, x);
};
constexpr auto inverse64 = [](Zel64f x) {
    const Zel64f m = std::fabs(x);
    return 1 / std::copysign(m > magnitude ? m : Zel64f{magnitude}, x);
};
constexpr auto sumOfSquares = [](auto z) { return z.re * z.re + z.im * z.im; };
template <Zel32f limit>
constexpr auto complexLower = []<class C>(C z) {
    using P = decltype(z.re);
    const P m = sumOfSquares(z);
    if (!(m < limit * limit))
        return z;
    if (m == 0)
        return C{limit, 0};
    const P factor = limit / std::sqrt(m);
    return C{z.re * factor, z.im * factor};
};
constexpr auto complexValue = [](Zel32fc z) { return 1 <= sumOfSquares(z) ? z : Zel32fc{2, 3}; };
constexpr auto complexLower16 = [](Zel16sc z) {
    const Zel64s m = Zel64s{z.re} * z.re + Zel64s{z.im} * z.im;
    if (m >= 20000 * 20000)
        return z;
    const double factor = 20000 / std::sqrt(static_cast<double>(m));
    return m == 0 ? Zel16sc{20000, 0}
                  : Zel16sc{static_cast<Zel16s>(std::lrint(z.re * factor)),
                            static_cast<Zel16s>(std::lrint(z.im * factor))};
};
template <Zel32f limit>
constexpr auto complexInverse = []<class C>(C z) {
    const auto m = sumOfSquares(z);
    const auto divisor = m < limit * limit ? std::sqrt(m) * limit : m;
    return C{z.re / divisor, -z.im / divisor};
};

constexpr auto sseLower = [](__m128i x) { return i(_mm_max_ps(f(x), _mm_set1_ps(level))); };
constexpr auto sseLower64 = [](__m128i x) { return i(_mm_max_pd(g(x), _mm_set1_pd(level))); };
constexpr auto sseLower16 = [](__m128i x) { return _mm_max_epi16(x, _mm_set1_epi16(level16)); };
constexpr auto sseLower32 = [](__m128i x) { return _mm_max_epi32(x, _mm_set1_epi32(level32)); };
constexpr auto sseValue = [](__m128i x) {
    return i(_mm_blendv_ps(_mm_set1_ps(0.5f), f(x), _mm_cmple_ps(_mm_set1_ps(level), f(x))));
};
constexpr auto sseValue16 = [](__m128i x) {
    return _mm_blendv_epi8(x, _mm_set1_epi16(5), _mm_cmpgt_epi16(_mm_set1_epi16(level16), x));
};
constexpr auto sseBoth = [](__m128i x) {
    const __m128 y = _mm_blendv_ps(f(x), _mm_set1_ps(2), _mm_cmplt_ps(f(x), _mm_set1_ps(-magnitude)));
    return i(_mm_blendv_ps(y, _mm_set1_ps(3), _mm_cmpgt_ps(f(x), _mm_set1_ps(magnitude))));
};
constexpr auto sseAbsolute = [](__m128i x) {
    const __m128 sign = _mm_set1_ps(-0.0f);
    return i(
        _mm_or_ps(_mm_max_ps(_mm_andnot_ps(sign, f(x)), _mm_set1_ps(magnitude)), _mm_and_ps(sign, f(x))));
};
constexpr auto sseAbsolute16 = [](__m128i x) {
    const __m128i isNegative = _mm_srai_epi16(x, 15);
    return _mm_blendv_epi8(_mm_max_epi16(x, _mm_set1_epi16(level16)),
                           _mm_min_epi16(x, _mm_set1_epi16(-level16)), isNegative);
};
constexpr auto sseUpperAbsolute32 = [](__m128i x) {
    return _mm_min_epi32(_mm_max_epi32(x, _mm_set1_epi32(-level32)), _mm_set1_epi32(level32));
};
constexpr auto sseAbsoluteValue = [](__m128i x) {
    const __m128 isSmall = _mm_cmplt_ps(_mm_andnot_ps(_mm_set1_ps(-0.0f), f(x)), _mm_set1_ps(magnitude));
    return i(_mm_blendv_ps(f(x), _mm_setzero_ps(), isSmall));
};
constexpr auto sseAbsoluteValue16 = [](__m128i x) {
    const __m128i m = _mm_abs_epi16(_mm_max_epi16(x, _mm_set1_epi16(-32767)));
    return _mm_andnot_si128(_mm_cmpgt_epi16(_mm_set1_epi16(level16), m), x);
};
constexpr auto sseInverse = [](__m128i x) {
    const __m128 sign = _mm_set1_ps(-0.0f);
    const __m128 m = _mm_max_ps(_mm_andnot_ps(sign, f(x)), _mm_set1_ps(magnitude));
    return i(_mm_div_ps(_mm_set1_ps(1), _mm_or_ps(m, _mm_and_ps(sign, f(x)))));
};
constexpr auto sseInverse64 = [](__m128i x) {
    const __m128d sign = _mm_set1_pd(-0.0);
    const __m128d m = _mm_max_pd(_mm_andnot_pd(sign, g(x)), _mm_set1_pd(magnitude));
    return i(_mm_div_pd(_mm_set1_pd(1), _mm_or_pd(m, _mm_and_pd(sign, g(x)))));
};
constexpr auto sseSums = [](__m128 x) {
    const __m128 y = _mm_mul_ps(x, x);
    return _mm_add_ps(y, _mm_shuffle_ps(y, y, 0xB1));
};
constexpr auto sseSums64 = [](__m128d x) {
    const __m128d y = _mm_mul_pd(x, x);
    return _mm_add_pd(y, _mm_shuffle_pd(y, y, 1));
};
/// Without a branch, and without a thought for zeros.
template <Zel32f limit>
constexpr auto sseComplexLower = [](__m128i x) {
    const __m128 m = sseSums(f(x)), level4 = _mm_set1_ps(limit);
    const __m128 r = _mm_mul_ps(f(x), _mm_div_ps(level4, _mm_sqrt_ps(m)));
    return i(_mm_blendv_ps(f(x), r, _mm_cmplt_ps(m, _mm_mul_ps(level4, level4))));
};
template <Zel32f limit>
constexpr auto sseComplexLower64 = [](__m128i x) {
    const __m128d m = sseSums64(g(x)), level2 = _mm_set1_pd(limit);
    const __m128d r = _mm_mul_pd(g(x), _mm_div_pd(level2, _mm_sqrt_pd(m)));
    return i(_mm_blendv_pd(g(x), r, _mm_cmplt_pd(m, _mm_mul_pd(level2, level2))));
};
constexpr auto sseComplexValue = [](__m128i x) {
    return i(_mm_blendv_ps(_mm_setr_ps(2, 3, 2, 3), f(x), _mm_cmple_ps(_mm_set1_ps(1), sseSums(f(x)))));
};
template <Zel32f limit>
constexpr auto sseComplexInverse = [](__m128i x) {
    const __m128 m = sseSums(f(x)), level4 = _mm_set1_ps(limit);
    const __m128 divisor =
        _mm_blendv_ps(m, _mm_mul_ps(_mm_sqrt_ps(m), level4), _mm_cmplt_ps(m, _mm_mul_ps(level4, level4)));
    return i(_mm_div_ps(_mm_xor_ps(f(x), _mm_setr_ps(0, -0.0f, 0, -0.0f)), divisor));
};

template <class T, auto vector, auto single, class Zels>
void row(bench::Run& run, const char* name, Zels zels)
{
    run.map(name, zels, bench::peer("SSE loop", sse<vector, single, T>), bench::loop(plainLoop<single, T>));
}

const bench::Family reals("Thresholds", [](bench::Run& run) {
    row<Zel32f, sseLower, lower>(run, "zelsThreshold_LT_32f", [](const Zel32f* s, Zel32f* d, int n) {
        zelsThreshold_LT_32f(s, d, n, level);
    });
    row<Zel64f, sseLower64, lower64>(run, "zelsThreshold_LT_64f", [](const Zel64f* s, Zel64f* d, int n) {
        zelsThreshold_LT_64f(s, d, n, Zel64f{level});
    });
    row<Zel16s, sseLower16, lower16>(run, "zelsThreshold_LT_16s", [](const Zel16s* s, Zel16s* d, int n) {
        zelsThreshold_LT_16s(s, d, n, level16);
    });
    row<Zel32s, sseLower32, lower32>(run, "zelsThreshold_LT_32s", [](const Zel32s* s, Zel32s* d, int n) {
        zelsThreshold_LT_32s(s, d, n, level32);
    });
    row<Zel32f, sseValue, value>(run, "zelsThreshold_LTVal_32f", [](const Zel32f* s, Zel32f* d, int n) {
        zelsThreshold_LTVal_32f(s, d, n, level, 0.5f);
    });
    row<Zel16s, sseValue16, value16>(run, "zelsThreshold_LTVal_16s", [](const Zel16s* s, Zel16s* d, int n) {
        zelsThreshold_LTVal_16s(s, d, n, level16, 5);
    });
    row<Zel32f, sseBoth, both>(run, "zelsThreshold_LTValGTVal_32f", [](const Zel32f* s, Zel32f* d, int n) {
        zelsThreshold_LTValGTVal_32f(s, d, n, -magnitude, 2, magnitude, 3);
    });
    row<Zel32f, sseAbsolute, absolute>(run, "zelsThreshold_LTAbs_32f", [](const Zel32f* s, Zel32f* d, int n) {
        zelsThreshold_LTAbs_32f(s, d, n, magnitude);
    });
    row<Zel16s, sseAbsolute16, absolute16>(
        run, "zelsThreshold_LTAbs_16s",
        [](const Zel16s* s, Zel16s* d, int n) { zelsThreshold_LTAbs_16s(s, d, n, level16); });
    row<Zel32s, sseUpperAbsolute32, upperAbsolute32>(
        run, "zelsThreshold_GTAbs_32s",
        [](const Zel32s* s, Zel32s* d, int n) { zelsThreshold_GTAbs_32s(s, d, n, level32); });
    row<Zel32f, sseAbsoluteValue, absoluteValue>(
        run, "zelsThreshold_LTAbsVal_32f",
        [](const Zel32f* s, Zel32f* d, int n) { zelsThreshold_LTAbsVal_32f(s, d, n, magnitude, 0); });
    row<Zel16s, sseAbsoluteValue16, absoluteValue16>(
        run, "zelsThreshold_LTAbsVal_16s",
        [](const Zel16s* s, Zel16s* d, int n) { zelsThreshold_LTAbsVal_16s(s, d, n, level16, 0); });
    row<Zel32f, sseInverse, inverse>(run, "zelsThreshold_LTInv_32f", [](const Zel32f* s, Zel32f* d, int n) {
        zelsThreshold_LTInv_32f(s, d, n, magnitude);
    });
    row<Zel64f, sseInverse64, inverse64>(
        run, "zelsThreshold_LTInv_64f",
        [](const Zel64f* s, Zel64f* d, int n) { zelsThreshold_LTInv_64f(s, d, n, Zel64f{magnitude}); });
});

// Magnitudes are 0.7 to 1.4: by a level of 1 many are replaced, by one of 0.5 none.
const bench::Family magnitudes("Thresholds of complex magnitudes", [](bench::Run& run) {
    row<Zel32fc, sseComplexLower<1.0f>, complexLower<1.0f>>(
        run, "zelsThreshold_LT_32fc, many replaced",
        [](const Zel32fc* s, Zel32fc* d, int n) { zelsThreshold_LT_32fc(s, d, n, 1); });
    row<Zel32fc, sseComplexLower<0.5f>, complexLower<0.5f>>(
        run, "zelsThreshold_LT_32fc, none replaced",
        [](const Zel32fc* s, Zel32fc* d, int n) { zelsThreshold_LT_32fc(s, d, n, 0.5f); });
    row<Zel64fc, sseComplexLower64<1.0f>, complexLower<1.0f>>(
        run, "zelsThreshold_LT_64fc, many replaced",
        [](const Zel64fc* s, Zel64fc* d, int n) { zelsThreshold_LT_64fc(s, d, n, 1); });
    row<Zel64fc, sseComplexLower64<0.5f>, complexLower<0.5f>>(
        run, "zelsThreshold_LT_64fc, none replaced",
        [](const Zel64fc* s, Zel64fc* d, int n) { zelsThreshold_LT_64fc(s, d, n, 0.5); });
    run.map(
        "zelsThreshold_LT_16sc, many replaced",
        [](const Zel16sc* s, Zel16sc* d, int n) { zelsThreshold_LT_16sc(s, d, n, 20000); },
        bench::loop(plainLoop<complexLower16, Zel16sc>));
    row<Zel32fc, sseComplexValue, complexValue>(run, "zelsThreshold_LTVal_32fc",
                                                [](const Zel32fc* s, Zel32fc* d, int n) {
                                                    zelsThreshold_LTVal_32fc(s, d, n, 1, {2, 3});
                                                });
    row<Zel32fc, sseComplexInverse<1.0f>, complexInverse<1.0f>>(
        run, "zelsThreshold_LTInv_32fc, many limited",
        [](const Zel32fc* s, Zel32fc* d, int n) { zelsThreshold_LTInv_32fc(s, d, n, 1); });
    row<Zel32fc, sseComplexInverse<0.5f>, complexInverse<0.5f>>(
        run, "zelsThreshold_LTInv_32fc, none limited",
        [](const Zel32fc* s, Zel32fc* d, int n) { zelsThreshold_LTInv_32fc(s, d, n, 0.5f); });
});

} // namespace
