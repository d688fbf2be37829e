// Magnitudes of complex data.
#include "support/plain.h"
#include "support/volk.h"

#include <algorithm>
#include <cmath>
#include <smmintrin.h>

#if BENCH_HAS_VOLK
#include <volk/volk_32fc_magnitude_32f.h>
#endif

namespace {

BENCH_PLAIN void sseMagnitudes(const Zel32fc* s, Zel32f* d, int n)
{
    const auto four = [](const Zel32f* p) {
        const __m128 a = _mm_loadu_ps(p);
        const __m128 b = _mm_loadu_ps(p + 4);
        return _mm_sqrt_ps(_mm_hadd_ps(_mm_mul_ps(a, a), _mm_mul_ps(b, b)));
    };
    int i = 0;
    for (; i + 8 <= n; i += 8) {
        _mm_storeu_ps(d + i, four(&s[i].re));
        _mm_storeu_ps(d + i + 4, four(&s[i + 4].re));
    }
    for (; i < n; i++)
        d[i] = std::sqrt(s[i].re * s[i].re + s[i].im * s[i].im);
}

constexpr auto ofParts = [](auto re, auto im) { return std::sqrt(re * re + im * im); };
constexpr auto ofComplex = [](auto z) { return ofParts(z.re, z.im); };
constexpr auto hypotOfParts = [](double re, double im) { return std::hypot(re, im); };
constexpr auto hypotOf = [](Zel64fc z) { return std::hypot(z.re, z.im); };
constexpr auto of16 = [](Zel16sc z) {
    const auto re = static_cast<Zel32f>(z.re);
    const auto im = static_cast<Zel32f>(z.im);
    return ofParts(re, im);
};

/// The double-precision route to an integer magnitude.
template <class D, int scaleFactor>
constexpr auto fixedParts = [](auto re, auto im) {
    const double length = ofParts(static_cast<double>(re), static_cast<double>(im)) * std::exp2(-scaleFactor);
    return static_cast<D>(std::rint(std::min<double>(length, sizeof(D) == 2 ? 32767 : 2147483647)));
};
template <class D, int scaleFactor>
constexpr auto fixedMagnitude = [](auto z) { return fixedParts<D, scaleFactor>(z.re, z.im); };

template <int scaleFactor>
void split(const Zel16s* re, const Zel16s* im, Zel16s* d, int n)
{
    zelsMagnitude_16s_Sfs(re, im, d, n, scaleFactor);
}
template <class S, class D, ZelStatus function(const S*, D*, int, int), int scaleFactor>
void by(const S* s, D* d, int n)
{
    function(s, d, n, scaleFactor);
}

const bench::Family family("Magnitudes", [](bench::Run& run) {
    run.map("zelsMagnitude_32f", zelsMagnitude_32f,
            bench::loop(bench::plain<ofParts, Zel32f, Zel32f, Zel32f>));
    run.map("zelsMagnitude_32fc", zelsMagnitude_32fc, bench::loop(bench::plain<ofComplex, Zel32f, Zel32fc>),
            bench::peer("SSE loop", sseMagnitudes),
            BENCH_VOLK("VOLK SSE",
                       [](const Zel32fc* s, Zel32f* d, int n) {
                           bench::volkCall<volk_32fc_magnitude_32f_u_sse3>(d, s, static_cast<unsigned>(n));
                       }),
            BENCH_VOLK("VOLK (wider vectors)", [](const Zel32fc* s, Zel32f* d, int n) {
                bench::volkCall<volk_32fc_magnitude_32f>(d, s, static_cast<unsigned>(n));
            }));
    run.map("zelsMagnitude_64f", zelsMagnitude_64f,
            bench::loop(bench::plain<hypotOfParts, Zel64f, Zel64f, Zel64f>));
    run.map("zelsMagnitude_64fc", zelsMagnitude_64fc, bench::loop(bench::plain<hypotOf, Zel64f, Zel64fc>));
    run.map("zelsMagnitude_16sc32f", zelsMagnitude_16sc32f, bench::loop(bench::plain<of16, Zel32f, Zel16sc>));

    run.map("zelsMagnitude_16s_Sfs, factor 1", split<1>,
            bench::loop(bench::plain<fixedParts<Zel16s, 1>, Zel16s, Zel16s, Zel16s>));
    run.map("zelsMagnitude_16sc_Sfs, factor 0", by<Zel16sc, Zel16s, zelsMagnitude_16sc_Sfs, 0>,
            bench::loop(bench::plain<fixedMagnitude<Zel16s, 0>, Zel16s, Zel16sc>));
    run.map("zelsMagnitude_16sc_Sfs, factor 3", by<Zel16sc, Zel16s, zelsMagnitude_16sc_Sfs, 3>,
            bench::loop(bench::plain<fixedMagnitude<Zel16s, 3>, Zel16s, Zel16sc>));
    run.map("zelsMagnitude_32sc_Sfs, factor 1", by<Zel32sc, Zel32s, zelsMagnitude_32sc_Sfs, 1>,
            bench::loop(bench::plain<fixedMagnitude<Zel32s, 1>, Zel32s, Zel32sc>));
});

} // namespace
