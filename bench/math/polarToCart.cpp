// Polar to Cartesian form.
#include "math/elementary.h"

#include <algorithm>

namespace {

template <class T>
BENCH_PLAIN void plainSplit(const T* magn, const T* phase, T* re, T* im, int n)
{
    for (int i = 0; i < n; i++) {
        const T m = magn[i];
        const T p = phase[i];
        re[i] = m * std::cos(p);
        im[i] = m * std::sin(p);
    }
}
template <class C, class T>
BENCH_PLAIN void plainComplex(const T* magn, const T* phase, C* d, int n)
{
    for (int i = 0; i < n; i++)
        d[i] = {magn[i] * std::cos(phase[i]), magn[i] * std::sin(phase[i])};
}
BENCH_PLAIN void plainFixed(const Zel16s* magn, const Zel16s* phase, Zel16sc* d, int n)
{
    const auto fixed = [](double x) {
        return static_cast<Zel16s>(std::rint(std::clamp(x, -32768.0, 32767.0)));
    };
    for (int i = 0; i < n; i++) {
        const double angle = phase[i] * 0x1p-13;
        d[i] = {fixed(magn[i] * std::cos(angle)), fixed(magn[i] * std::sin(angle))};
    }
}
void fixed(const Zel16s* magn, const Zel16s* phase, Zel16sc* d, int n)
{
    zelsPolarToCart_16sc_Sfs(magn, phase, d, n, 0, 13);
}

template <auto sinCos>
BENCH_PLAIN void byVectors32(const Zel32f* magn, const Zel32f* phase, Zel32f* re, Zel32f* im, int n)
{
    const auto at = [&](int i) {
        __m128 sin, cos;
        sinCos(_mm_loadu_ps(phase + i), sin, cos);
        const __m128 m = _mm_loadu_ps(magn + i);
        _mm_storeu_ps(re + i, m * cos);
        _mm_storeu_ps(im + i, m * sin);
    };
    int i = 0;
    for (; i + 4 <= n; i += 4)
        at(i);
    if (i < n)
        at(n - 4);
}
template <auto sinCos>
BENCH_PLAIN void byVectors64(const Zel64f* magn, const Zel64f* phase, Zel64f* re, Zel64f* im, int n)
{
    const auto at = [&](int i) {
        __m128d sin, cos;
        sinCos(_mm_loadu_pd(phase + i), sin, cos);
        const __m128d m = _mm_loadu_pd(magn + i);
        _mm_storeu_pd(re + i, m * cos);
        _mm_storeu_pd(im + i, m * sin);
    };
    int i = 0;
    for (; i + 2 <= n; i += 2)
        at(i);
    if (i < n)
        at(n - 2);
}

#if BENCH_HAS_MVEC
constexpr auto glibc32 = [](__m128 x, __m128& sin, __m128& cos) {
    alignas(16) float s[4], c[4];
    const auto pair = [](float* p) {
        return _mm_set_epi64x(reinterpret_cast<Zel64s>(p + 1), reinterpret_cast<Zel64s>(p));
    };
    _ZGVbN4vvv_sincosf(x, pair(s), pair(s + 2), pair(c), pair(c + 2));
    sin = _mm_load_ps(s);
    cos = _mm_load_ps(c);
};
constexpr auto glibc64 = [](__m128d x, __m128d& sin, __m128d& cos) {
    alignas(16) double s[2], c[2];
    const auto pair = [](double* p) {
        return _mm_set_epi64x(reinterpret_cast<Zel64s>(p + 1), reinterpret_cast<Zel64s>(p));
    };
    _ZGVbN2vvv_sincos(x, pair(s), pair(c));
    sin = _mm_load_pd(s);
    cos = _mm_load_pd(c);
};
#endif
#if BENCH_HAS_SLEEF
template <auto function>
constexpr auto sleef = [](auto x, auto& sin, auto& cos) {
    const auto both = function(x);
    sin = both.x;
    cos = both.y;
};
#endif

/// Rows on phases of a few turns.
template <class T, class Zels, class... Peers>
void onTurns(bench::Run& run, const char* name, Zels zels, Peers... peers)
{
    for (const ZelSize n : run.lengths()) {
        const bench::Array<T> magn(n), phase(n), re(n), im(n);
        const bench::Array<Zel32s> random(n);
        const int len = static_cast<int>(n);
        for (int i = 0; i < len; i++)
            phase[i] = static_cast<T>(random[i] * 0x1p-28);
        const T* const m = magn;
        const T* const p = phase;
        T* const a = re;
        T* const b = im;
        const auto bound = [=](auto rival) {
            if constexpr (requires { rival.call; })
                return bench::peer(rival.name, [=] { rival.call(m, p, a, b, len); });
            else
                return rival;
        };
        run.row(
            name, n, {.bytes = 4 * sizeof(T)}, [=] { zels(m, p, a, b, len); }, bound(peers)...);
    }
}

const bench::Family family("Polar to Cartesian form", [](bench::Run& run) {
    onTurns<Zel32f>(run, "zelsPolarToCart_32f", zelsPolarToCart_32f, bench::loop(plainSplit<Zel32f>),
                    BENCH_MVEC(bench::peer("glibc vector", byVectors32<glibc32>)),
                    BENCH_SLEEF(bench::peer("SLEEF u10", byVectors32<sleef<Sleef_sincosf4_u10sse4>>)));
    onTurns<Zel64f>(run, "zelsPolarToCart_64f", zelsPolarToCart_64f, bench::loop(plainSplit<Zel64f>),
                    BENCH_MVEC(bench::peer("glibc vector", byVectors64<glibc64>)),
                    BENCH_SLEEF(bench::peer("SLEEF u10", byVectors64<sleef<Sleef_sincosd2_u10sse4>>)));
    run.map("zelsPolarToCart_32fc", zelsPolarToCart_32fc, bench::loop(plainComplex<Zel32fc, Zel32f>));
    run.map("zelsPolarToCart_64fc", zelsPolarToCart_64fc, bench::loop(plainComplex<Zel64fc, Zel64f>));
    run.map("zelsPolarToCart_16sc_Sfs, factors 0 and 13", fixed, bench::loop(plainFixed));
});

} // namespace
