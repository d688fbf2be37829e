// Square roots.
#include "support/plain.h"
#include "support/volk.h"

#include <algorithm>
#include <cmath>
#include <complex>
#include <smmintrin.h>

#if BENCH_HAS_VOLK
#include <volk/volk_32f_sqrt_32f.h>
#endif

namespace {

BENCH_PLAIN void sseRoots(const Zel32f* s, Zel32f* d, int n)
{
    int i = 0;
    for (; i + 8 <= n; i += 8) {
        _mm_storeu_ps(d + i, _mm_sqrt_ps(_mm_loadu_ps(s + i)));
        _mm_storeu_ps(d + i + 4, _mm_sqrt_ps(_mm_loadu_ps(s + i + 4)));
    }
    for (; i < n; i++)
        d[i] = std::sqrt(s[i]);
}

BENCH_PLAIN void sseRoots64(const Zel64f* s, Zel64f* d, int n)
{
    int i = 0;
    for (; i + 2 <= n; i += 2)
        _mm_storeu_pd(d + i, _mm_sqrt_pd(_mm_loadu_pd(s + i)));
    for (; i < n; i++)
        d[i] = std::sqrt(s[i]);
}

constexpr auto root = [](auto x) { return std::sqrt(x); };

constexpr auto complexRoot = []<class T>(T x) {
    const auto z = std::sqrt(std::complex(x.re, x.im));
    return T{z.real(), z.imag()};
};

/// The double-precision route to an integer root.
template <class D, int scaleFactor>
constexpr auto fixedRoot = [](auto x) {
    constexpr double most = sizeof(D) == 1 ? 255 : D(-1) < 0 ? 32767 : 65535;
    const double value = x <= 0 ? 0 : std::sqrt(static_cast<double>(x));
    return static_cast<D>(std::rint(std::min(value * std::exp2(-scaleFactor), most)));
};

constexpr auto fixedComplexRoot = [](Zel16sc x) {
    const auto z = std::sqrt(std::complex<double>(x.re, x.im));
    return Zel16sc{static_cast<Zel16s>(std::rint(z.real())), static_cast<Zel16s>(std::rint(z.imag()))};
};

/// The function with its scale factor.
template <class S, class D, ZelStatus function(const S*, D*, int, int), int scaleFactor>
void by(const S* s, D* d, int n)
{
    function(s, d, n, scaleFactor);
}

/// Rows on positive numbers.
template <class T, class D = T, class Zels, class... Peers>
void positive(bench::Run& run, const char* name, Zels zels, Peers... peers)
{
    for (const ZelSize n : run.lengths()) {
        const bench::Array<T> source(n);
        const bench::Array<D> destination(n);
        const int len = static_cast<int>(n);
        for (int i = 0; i < len; i++)
            source[i] = static_cast<T>(std::abs(source[i] / 2));
        const T* const s = source;
        D* const d = destination;
        const auto bound = [=](auto rival) {
            if constexpr (requires { rival.call; })
                return bench::peer(rival.name, [=] { rival.call(s, d, len); });
            else
                return rival;
        };
        run.row(
            name, n, {.bytes = sizeof(T) + sizeof(D)}, [=] { zels(s, d, len); }, bound(peers)...);
    }
}

const bench::Family family("Square roots", [](bench::Run& run) {
    positive<Zel32f>(run, "zelsSqrt_32f", zelsSqrt_32f, bench::loop(bench::plain<root, Zel32f, Zel32f>),
                     bench::peer("SSE loop", sseRoots),
                     BENCH_VOLK("VOLK SSE",
                                [](const Zel32f* s, Zel32f* d, int n) {
                                    bench::volkCall<volk_32f_sqrt_32f_a_sse>(d, s, static_cast<unsigned>(n));
                                }),
                     BENCH_VOLK("VOLK (wider vectors)", [](const Zel32f* s, Zel32f* d, int n) {
                         bench::volkCall<volk_32f_sqrt_32f>(d, s, static_cast<unsigned>(n));
                     }));
    positive<Zel64f>(run, "zelsSqrt_64f", zelsSqrt_64f, bench::loop(bench::plain<root, Zel64f, Zel64f>),
                     bench::peer("SSE loop", sseRoots64));
    run.map("zelsSqrt_32fc", zelsSqrt_32fc, bench::loop(bench::plain<complexRoot, Zel32fc, Zel32fc>));
    run.map("zelsSqrt_64fc", zelsSqrt_64fc, bench::loop(bench::plain<complexRoot, Zel64fc, Zel64fc>));

    run.map("zelsSqrt_8u_Sfs, factor 0", by<Zel8u, Zel8u, zelsSqrt_8u_Sfs, 0>,
            bench::loop(bench::plain<fixedRoot<Zel8u, 0>, Zel8u, Zel8u>));
    run.map("zelsSqrt_16u_Sfs, factor 0", by<Zel16u, Zel16u, zelsSqrt_16u_Sfs, 0>,
            bench::loop(bench::plain<fixedRoot<Zel16u, 0>, Zel16u, Zel16u>));
    run.map("zelsSqrt_16u_Sfs, factor -6", by<Zel16u, Zel16u, zelsSqrt_16u_Sfs, -6>,
            bench::loop(bench::plain<fixedRoot<Zel16u, -6>, Zel16u, Zel16u>));
    positive<Zel16s>(run, "zelsSqrt_16s_Sfs, factor 0", by<Zel16s, Zel16s, zelsSqrt_16s_Sfs, 0>,
                     bench::loop(bench::plain<fixedRoot<Zel16s, 0>, Zel16s, Zel16s>));
    positive<Zel16s>(run, "zelsSqrt_16s_Sfs, factor 2", by<Zel16s, Zel16s, zelsSqrt_16s_Sfs, 2>,
                     bench::loop(bench::plain<fixedRoot<Zel16s, 2>, Zel16s, Zel16s>));
    positive<Zel16s>(run, "zelsSqrt_16s_Sfs, factor -6", by<Zel16s, Zel16s, zelsSqrt_16s_Sfs, -6>,
                     bench::loop(bench::plain<fixedRoot<Zel16s, -6>, Zel16s, Zel16s>));
    positive<Zel32s, Zel16s>(run, "zelsSqrt_32s16s_Sfs, factor 1", by<Zel32s, Zel16s, zelsSqrt_32s16s_Sfs, 1>,
                             bench::loop(bench::plain<fixedRoot<Zel16s, 1>, Zel16s, Zel32s>));
    positive<Zel32s, Zel16s>(run, "zelsSqrt_32s16s_Sfs, factor 0", by<Zel32s, Zel16s, zelsSqrt_32s16s_Sfs, 0>,
                             bench::loop(bench::plain<fixedRoot<Zel16s, 0>, Zel16s, Zel32s>));
    positive<Zel32s, Zel16s>(run, "zelsSqrt_32s16s_Sfs, factor 4", by<Zel32s, Zel16s, zelsSqrt_32s16s_Sfs, 4>,
                             bench::loop(bench::plain<fixedRoot<Zel16s, 4>, Zel16s, Zel32s>));
    run.map("zelsSqrt_16sc_Sfs, factor 0", by<Zel16sc, Zel16sc, zelsSqrt_16sc_Sfs, 0>,
            bench::loop(bench::plain<fixedComplexRoot, Zel16sc, Zel16sc>));
});

} // namespace
