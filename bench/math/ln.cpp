// Natural logarithms.
#include "math/elementary.h"

#include <algorithm>

namespace {

constexpr auto logarithm = [](auto x) { return std::log(x); };

/// The route over double precision to an integer logarithm.
template <class T, int scaleFactor>
constexpr auto fixedLn = [](T x) {
    constexpr double most = sizeof(T) == 2 ? 32767 : 2147483647;
    return static_cast<T>(
        std::min(std::rint(std::log(static_cast<double>(x)) * std::exp2(-scaleFactor)), most));
};

template <class T, ZelStatus function(const T*, T*, int, int), int scaleFactor>
void by(const T* s, T* d, int n)
{
    function(s, d, n, scaleFactor);
}

const bench::Family family("Natural logarithms", [](bench::Run& run) {
    bench::onRange<Zel32f, Zel32f>(
        run, "zelsLn_32f", 1e-3, 100, zelsLn_32f, bench::loop(bench::plain<logarithm, Zel32f, Zel32f>),
        BENCH_MVEC(bench::peer("glibc vector", bench::byVectors<_ZGVbN4v_logf, Zel32f, Zel32f>)),
        BENCH_SLEEF(bench::peer("SLEEF u10", bench::byVectors<Sleef_logf4_u10sse4, Zel32f, Zel32f>)));
    bench::onRange<Zel64f, Zel64f>(
        run, "zelsLn_64f", 1e-3, 100, zelsLn_64f, bench::loop(bench::plain<logarithm, Zel64f, Zel64f>),
        BENCH_MVEC(bench::peer("glibc vector", bench::byVectors<_ZGVbN2v_log, Zel64f, Zel64f>)),
        BENCH_SLEEF(bench::peer("SLEEF u10", bench::byVectors<Sleef_logd2_u10sse4, Zel64f, Zel64f>)));

    bench::onRange<Zel16s, Zel16s>(run, "zelsLn_16s_Sfs, factor 0", 1, 32767, by<Zel16s, zelsLn_16s_Sfs, 0>,
                                   bench::loop(bench::plain<fixedLn<Zel16s, 0>, Zel16s, Zel16s>));
    bench::onRange<Zel16s, Zel16s>(run, "zelsLn_16s_Sfs, factor -10", 1, 32767,
                                   by<Zel16s, zelsLn_16s_Sfs, -10>,
                                   bench::loop(bench::plain<fixedLn<Zel16s, -10>, Zel16s, Zel16s>));
    bench::onRange<Zel32s, Zel32s>(run, "zelsLn_32s_Sfs, factor 0", 1, 2147483647,
                                   by<Zel32s, zelsLn_32s_Sfs, 0>,
                                   bench::loop(bench::plain<fixedLn<Zel32s, 0>, Zel32s, Zel32s>));
    bench::onRange<Zel32s, Zel32s>(run, "zelsLn_32s_Sfs, factor -20", 1, 2147483647,
                                   by<Zel32s, zelsLn_32s_Sfs, -20>,
                                   bench::loop(bench::plain<fixedLn<Zel32s, -20>, Zel32s, Zel32s>));
});

} // namespace
