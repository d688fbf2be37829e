// Conjugates, and complex vectors from and to their parts, beside plain loops, loops written by hand, and VOLK.
#include "support/plain.h"
#include "support/volk.h"

#include <limits>
#include <smmintrin.h>
#if BENCH_HAS_VOLK
#include <volk/volk_32f_x2_interleave_32fc.h>
#include <volk/volk_32fc_conjugate_32fc.h>
#include <volk/volk_32fc_deinterleave_real_32f.h>
#endif

namespace {

template <class P>
P negated(P x)
{
    if constexpr (std::is_integral_v<P>)
        return static_cast<P>(x == std::numeric_limits<P>::min() ? std::numeric_limits<P>::max() : -x);
    else
        return -x;
}
constexpr auto conjugate = []<class C>(C z) { return C{z.re, negated(z.im)}; };
constexpr auto real = [](auto z) { return z.re; };
constexpr auto imag = [](auto z) { return z.im; };

template <class C>
BENCH_PLAIN void plainConjFlip(const C* s, C* d, int n)
{
    for (int i = 0; i < n; i++)
        d[i] = conjugate(s[n - 1 - i]);
}
template <class C, class P>
BENCH_PLAIN void plainToReal(const C* s, P* re, P* im, int n)
{
    for (int i = 0; i < n; i++) {
        re[i] = s[i].re;
        im[i] = s[i].im;
    }
}
template <class C, class P>
BENCH_PLAIN void plainToCplx(const P* re, const P* im, C* d, int n)
{
    for (int i = 0; i < n; i++)
        d[i] = {re[i], im[i]};
}

#if BENCH_HAS_VOLK
template <auto& function>
constexpr auto volkOne =
    [](auto* s, auto* d, int n) { bench::volkCall<function>(d, s, static_cast<unsigned>(n)); };
#endif

// By hand.

const float* parts(const Zel32fc* p)
{
    return &p->re;
}
float* parts(Zel32fc* p)
{
    return &p->re;
}
__m128i load(const void* p)
{
    return _mm_loadu_si128(static_cast<const __m128i*>(p));
}
void store(void* p, __m128i v)
{
    _mm_storeu_si128(static_cast<__m128i*>(p), v);
}

BENCH_PLAIN void sseConj_16sc(const Zel16sc* s, Zel16sc* d, int n)
{
    int i = 0;
    for (; i + 8 <= n; i += 8)
        for (int k = 0; k < 8; k += 4) {
            const __m128i x = load(s + i + k);
            store(d + i + k, _mm_blend_epi16(x, _mm_subs_epi16(_mm_setzero_si128(), x), 0xAA));
        }
    for (; i < n; i++)
        d[i] = conjugate(s[i]);
}
BENCH_PLAIN void sseConj_32fc(const Zel32fc* s, Zel32fc* d, int n)
{
    const __m128 sign = _mm_setr_ps(0, -0.0f, 0, -0.0f);
    int i = 0;
    for (; i + 4 <= n; i += 4)
        for (int k = 0; k < 4; k += 2)
            _mm_storeu_ps(parts(d + i + k), _mm_xor_ps(_mm_loadu_ps(parts(s + i + k)), sign));
    for (; i < n; i++)
        d[i] = conjugate(s[i]);
}
BENCH_PLAIN void sseConjFlip_32fc(const Zel32fc* s, Zel32fc* d, int n)
{
    const __m128 sign = _mm_setr_ps(0, -0.0f, 0, -0.0f);
    int i = 0;
    for (; i + 4 <= n; i += 4)
        for (int k = 0; k < 4; k += 2) {
            const __m128 x = _mm_loadu_ps(parts(s + n - i - k - 2));
            _mm_storeu_ps(parts(d + i + k), _mm_xor_ps(_mm_shuffle_ps(x, x, 0x4E), sign));
        }
    for (; i < n; i++)
        d[i] = conjugate(s[n - 1 - i]);
}
BENCH_PLAIN void sseReal_32fc(const Zel32fc* s, Zel32f* d, int n)
{
    int i = 0;
    for (; i + 8 <= n; i += 8)
        for (int k = 0; k < 8; k += 4)
            _mm_storeu_ps(d + i + k, _mm_shuffle_ps(_mm_loadu_ps(parts(s + i + k)),
                                                    _mm_loadu_ps(parts(s + i + k + 2)), 0x88));
    for (; i < n; i++)
        d[i] = s[i].re;
}
BENCH_PLAIN void sseImag_16sc(const Zel16sc* s, Zel16s* d, int n)
{
    int i = 0;
    for (; i + 8 <= n; i += 8)
        store(d + i, _mm_packs_epi32(_mm_srai_epi32(load(s + i), 16), _mm_srai_epi32(load(s + i + 4), 16)));
    for (; i < n; i++)
        d[i] = s[i].im;
}
BENCH_PLAIN void sseToReal_32fc(const Zel32fc* s, Zel32f* re, Zel32f* im, int n)
{
    int i = 0;
    for (; i + 8 <= n; i += 8)
        for (int k = 0; k < 8; k += 4) {
            const __m128 a = _mm_loadu_ps(parts(s + i + k)), b = _mm_loadu_ps(parts(s + i + k + 2));
            _mm_storeu_ps(re + i + k, _mm_shuffle_ps(a, b, 0x88));
            _mm_storeu_ps(im + i + k, _mm_shuffle_ps(a, b, 0xDD));
        }
    for (; i < n; i++) {
        re[i] = s[i].re;
        im[i] = s[i].im;
    }
}
BENCH_PLAIN void sseToReal_16sc(const Zel16sc* s, Zel16s* re, Zel16s* im, int n)
{
    const __m128i apart = _mm_setr_epi8(0, 1, 4, 5, 8, 9, 12, 13, 2, 3, 6, 7, 10, 11, 14, 15);
    int i = 0;
    for (; i + 8 <= n; i += 8) {
        const __m128i a = _mm_shuffle_epi8(load(s + i), apart), b = _mm_shuffle_epi8(load(s + i + 4), apart);
        store(re + i, _mm_unpacklo_epi64(a, b));
        store(im + i, _mm_unpackhi_epi64(a, b));
    }
    for (; i < n; i++) {
        re[i] = s[i].re;
        im[i] = s[i].im;
    }
}
BENCH_PLAIN void sseToCplx_32f(const Zel32f* re, const Zel32f* im, Zel32fc* d, int n)
{
    int i = 0;
    for (; i + 8 <= n; i += 8)
        for (int k = 0; k < 8; k += 4) {
            const __m128 a = _mm_loadu_ps(re + i + k), b = _mm_loadu_ps(im + i + k);
            _mm_storeu_ps(parts(d + i + k), _mm_unpacklo_ps(a, b));
            _mm_storeu_ps(parts(d + i + k + 2), _mm_unpackhi_ps(a, b));
        }
    for (; i < n; i++)
        d[i] = {re[i], im[i]};
}
BENCH_PLAIN void sseToCplx_16s(const Zel16s* re, const Zel16s* im, Zel16sc* d, int n)
{
    int i = 0;
    for (; i + 8 <= n; i += 8) {
        const __m128i a = load(re + i), b = load(im + i);
        store(d + i, _mm_unpacklo_epi16(a, b));
        store(d + i + 4, _mm_unpackhi_epi16(a, b));
    }
    for (; i < n; i++)
        d[i] = {re[i], im[i]};
}

const bench::Family family("Complex data", [](bench::Run& run) {
    run.map("zelsConj_16sc", zelsConj_16sc, bench::loop(bench::plain<conjugate, Zel16sc, Zel16sc>),
            bench::peer("SSE loop", sseConj_16sc));
    run.map("zelsConj_32fc", zelsConj_32fc, bench::loop(bench::plain<conjugate, Zel32fc, Zel32fc>),
            bench::peer("SSE loop", sseConj_32fc),
            BENCH_VOLK("VOLK SSE", volkOne<volk_32fc_conjugate_32fc_u_sse3>));
    run.map("zelsConj_64fc", zelsConj_64fc, bench::loop(bench::plain<conjugate, Zel64fc, Zel64fc>));
    run.mapInPlace("zelsConj_32fc_I", zelsConj_32fc_I, bench::loop(bench::plainInPlace<conjugate, Zel32fc>));
    run.map("zelsConjFlip_16sc", zelsConjFlip_16sc, bench::loop(plainConjFlip<Zel16sc>));
    run.map("zelsConjFlip_32fc", zelsConjFlip_32fc, bench::loop(plainConjFlip<Zel32fc>),
            bench::peer("SSE loop", sseConjFlip_32fc));
    run.map("zelsConjFlip_64fc", zelsConjFlip_64fc, bench::loop(plainConjFlip<Zel64fc>));
    run.map("zelsReal_16sc", zelsReal_16sc, bench::loop(bench::plain<real, Zel16s, Zel16sc>));
    run.map("zelsReal_32fc", zelsReal_32fc, bench::loop(bench::plain<real, Zel32f, Zel32fc>),
            bench::peer("SSE loop", sseReal_32fc),
            BENCH_VOLK("VOLK SSE (aligned)", volkOne<volk_32fc_deinterleave_real_32f_a_sse>));
    run.map("zelsReal_64fc", zelsReal_64fc, bench::loop(bench::plain<real, Zel64f, Zel64fc>));
    run.map("zelsImag_16sc", zelsImag_16sc, bench::loop(bench::plain<imag, Zel16s, Zel16sc>),
            bench::peer("SSE loop", sseImag_16sc));
    run.map("zelsImag_32fc", zelsImag_32fc, bench::loop(bench::plain<imag, Zel32f, Zel32fc>));
    run.map("zelsCplxToReal_16sc", zelsCplxToReal_16sc, bench::loop(plainToReal<Zel16sc, Zel16s>),
            bench::peer("SSE loop", sseToReal_16sc));
    run.map("zelsCplxToReal_32fc", zelsCplxToReal_32fc, bench::loop(plainToReal<Zel32fc, Zel32f>),
            bench::peer("SSE loop", sseToReal_32fc));
    run.map("zelsCplxToReal_64fc", zelsCplxToReal_64fc, bench::loop(plainToReal<Zel64fc, Zel64f>));
    run.map("zelsRealToCplx_16s", zelsRealToCplx_16s, bench::loop(plainToCplx<Zel16sc, Zel16s>),
            bench::peer("SSE loop", sseToCplx_16s));
    run.map("zelsRealToCplx_32f", zelsRealToCplx_32f, bench::loop(plainToCplx<Zel32fc, Zel32f>),
            bench::peer("SSE loop", sseToCplx_32f),
            BENCH_VOLK("VOLK SSE (aligned)", bench::volk2<volk_32f_x2_interleave_32fc_a_sse>));
    run.map("zelsRealToCplx_64f", zelsRealToCplx_64f, bench::loop(plainToCplx<Zel64fc, Zel64f>));
    run.map(
        "zelsRealToCplx_32f, real parts alone",
        [](const Zel32f* re, Zel32fc* d, int n) { zelsRealToCplx_32f(re, nullptr, d, n); },
        bench::loop(bench::plain<[](Zel32f re) {
            return Zel32fc{re, 0};
        },
                                 Zel32fc, Zel32f>));
});

} // namespace
