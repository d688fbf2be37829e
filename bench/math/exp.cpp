// Exponentials.
#include "math/elementary.h"

#include <algorithm>

namespace {

constexpr auto exponential = [](auto x) { return std::exp(x); };

/// The route over double precision to an integer exponential.
template <class T, int scaleFactor>
constexpr auto fixedExp = [](T x) {
    constexpr double most = sizeof(T) == 2 ? 32767 : 2147483647;
    return static_cast<T>(std::min(std::exp(static_cast<double>(x)) * std::exp2(-scaleFactor) + 0.5, most));
};

template <class T, ZelStatus function(const T*, T*, int, int), int scaleFactor>
void by(const T* s, T* d, int n)
{
    function(s, d, n, scaleFactor);
}

const bench::Family family("Exponentials", [](bench::Run& run) {
    bench::onRange<Zel32f, Zel32f>(
        run, "zelsExp_32f", -10, 10, zelsExp_32f, bench::loop(bench::plain<exponential, Zel32f, Zel32f>),
        BENCH_MVEC(bench::peer("glibc vector", bench::byVectors<_ZGVbN4v_expf, Zel32f, Zel32f>)),
        BENCH_SLEEF(bench::peer("SLEEF u10", bench::byVectors<Sleef_expf4_u10sse4, Zel32f, Zel32f>)));
    bench::onRange<Zel64f, Zel64f>(
        run, "zelsExp_64f", -10, 10, zelsExp_64f, bench::loop(bench::plain<exponential, Zel64f, Zel64f>),
        BENCH_MVEC(bench::peer("glibc vector", bench::byVectors<_ZGVbN2v_exp, Zel64f, Zel64f>)),
        BENCH_SLEEF(bench::peer("SLEEF u10", bench::byVectors<Sleef_expd2_u10sse4, Zel64f, Zel64f>)));

    bench::onRange<Zel16s, Zel16s>(run, "zelsExp_16s_Sfs, factor 0", -4, 12, by<Zel16s, zelsExp_16s_Sfs, 0>,
                                   bench::loop(bench::plain<fixedExp<Zel16s, 0>, Zel16s, Zel16s>));
    bench::onRange<Zel16s, Zel16s>(run, "zelsExp_16s_Sfs, factor 20", 10, 26, by<Zel16s, zelsExp_16s_Sfs, 20>,
                                   bench::loop(bench::plain<fixedExp<Zel16s, 20>, Zel16s, Zel16s>));
    bench::onRange<Zel32s, Zel32s>(run, "zelsExp_32s_Sfs, factor -8", -8, 18, by<Zel32s, zelsExp_32s_Sfs, -8>,
                                   bench::loop(bench::plain<fixedExp<Zel32s, -8>, Zel32s, Zel32s>));
});

} // namespace
