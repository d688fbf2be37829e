// Phases of complex data, and the way to polar form that they are most of.
#include "math/elementary.h"

#include <algorithm>

namespace {

constexpr auto ofParts = [](auto re, auto im) { return std::atan2(im, re); };
constexpr auto ofComplex = [](auto z) { return std::atan2(z.im, z.re); };

/// A vector function of (im, re) on (re, im).
template <auto function>
constexpr auto swapped = [](auto re, auto im) { return function(im, re); };

template <auto function>
BENCH_PLAIN void complexByVectors(const Zel32fc* s, Zel32f* d, int n)
{
    const auto at = [&](int i) {
        const __m128 a = _mm_loadu_ps(&s[i].re);
        const __m128 b = _mm_loadu_ps(&s[i + 2].re);
        _mm_storeu_ps(d + i, function(_mm_shuffle_ps(a, b, 0xDD), _mm_shuffle_ps(a, b, 0x88)));
    };
    int i = 0;
    for (; i + 4 <= n; i += 4)
        at(i);
    if (i < n)
        at(n - 4);
}

/// The double-precision route to an integer angle.
template <int scaleFactor>
constexpr auto fixedPhase = [](Zel16sc z) {
    const double angle =
        std::atan2(static_cast<double>(z.im), static_cast<double>(z.re)) * std::exp2(-scaleFactor);
    return static_cast<Zel16s>(std::rint(std::clamp(angle, -32768.0, 32767.0)));
};

template <int scaleFactor>
void by(const Zel16sc* s, Zel16s* d, int n)
{
    zelsPhase_16sc_Sfs(s, d, n, scaleFactor);
}

template <class T, class C>
BENCH_PLAIN void plainPolar(const C* s, T* magn, T* phase, int n)
{
    for (int i = 0; i < n; i++) {
        const auto re = s[i].re;
        const auto im = s[i].im;
        magn[i] = std::sqrt(re * re + im * im);
        phase[i] = std::atan2(im, re);
    }
}
BENCH_PLAIN void plainFixedPolar(const Zel16sc* s, Zel16s* magn, Zel16s* phase, int n)
{
    for (int i = 0; i < n; i++) {
        const double re = s[i].re;
        const double im = s[i].im;
        magn[i] = static_cast<Zel16s>(std::rint(std::min(std::sqrt(re * re + im * im), 32767.0)));
        phase[i] = static_cast<Zel16s>(std::rint(std::atan2(im, re) * 4096));
    }
}
void fixedPolar(const Zel16sc* s, Zel16s* magn, Zel16s* phase, int n)
{
    zelsCartToPolar_16sc_Sfs(s, magn, phase, n, 0, -12);
}

const bench::Family family("Phases", [](bench::Run& run) {
    run.map("zelsPhase_32f", zelsPhase_32f, bench::loop(bench::plain<ofParts, Zel32f, Zel32f, Zel32f>),
            BENCH_MVEC(bench::peer("glibc vector",
                                   bench::byVectors<swapped<_ZGVbN4vv_atan2f>, Zel32f, Zel32f, Zel32f>)),
            BENCH_SLEEF(bench::peer(
                "SLEEF u10", bench::byVectors<swapped<Sleef_atan2f4_u10sse4>, Zel32f, Zel32f, Zel32f>)));
    run.map("zelsPhase_32fc", zelsPhase_32fc, bench::loop(bench::plain<ofComplex, Zel32f, Zel32fc>),
            BENCH_MVEC(bench::peer("glibc vector", complexByVectors<_ZGVbN4vv_atan2f>)),
            BENCH_SLEEF(bench::peer("SLEEF u10", complexByVectors<Sleef_atan2f4_u10sse4>)));
    run.map("zelsPhase_64f", zelsPhase_64f, bench::loop(bench::plain<ofParts, Zel64f, Zel64f, Zel64f>),
            BENCH_MVEC(bench::peer("glibc vector",
                                   bench::byVectors<swapped<_ZGVbN2vv_atan2>, Zel64f, Zel64f, Zel64f>)),
            BENCH_SLEEF(bench::peer(
                "SLEEF u10", bench::byVectors<swapped<Sleef_atan2d2_u10sse4>, Zel64f, Zel64f, Zel64f>)));
    run.map("zelsPhase_64fc", zelsPhase_64fc, bench::loop(bench::plain<ofComplex, Zel64f, Zel64fc>));
    run.map("zelsPhase_16sc_Sfs, factor 0", by<0>, bench::loop(bench::plain<fixedPhase<0>, Zel16s, Zel16sc>));
    run.map("zelsPhase_16sc_Sfs, factor -13", by<-13>,
            bench::loop(bench::plain<fixedPhase<-13>, Zel16s, Zel16sc>));

    run.map("zelsCartToPolar_32fc", zelsCartToPolar_32fc, bench::loop(plainPolar<Zel32f, Zel32fc>));
    run.map("zelsCartToPolar_64fc", zelsCartToPolar_64fc, bench::loop(plainPolar<Zel64f, Zel64fc>));
    run.map("zelsCartToPolar_16sc_Sfs, factors 0 and -12", fixedPolar, bench::loop(plainFixedPolar));
});

} // namespace
