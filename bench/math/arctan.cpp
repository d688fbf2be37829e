// Arctangents.
#include "math/elementary.h"

namespace {

constexpr auto arctan = [](auto x) { return std::atan(x); };

const bench::Family family("Arctangents", [](bench::Run& run) {
    bench::onRange<Zel32f, Zel32f>(
        run, "zelsArctan_32f", -4, 4, zelsArctan_32f, bench::loop(bench::plain<arctan, Zel32f, Zel32f>),
        BENCH_MVEC(bench::peer("glibc vector", bench::byVectors<_ZGVbN4v_atanf, Zel32f, Zel32f>)),
        BENCH_SLEEF(bench::peer("SLEEF u10", bench::byVectors<Sleef_atanf4_u10sse4, Zel32f, Zel32f>)));
    bench::onRange<Zel64f, Zel64f>(
        run, "zelsArctan_64f", -4, 4, zelsArctan_64f, bench::loop(bench::plain<arctan, Zel64f, Zel64f>),
        BENCH_MVEC(bench::peer("glibc vector", bench::byVectors<_ZGVbN2v_atan, Zel64f, Zel64f>)),
        BENCH_SLEEF(bench::peer("SLEEF u10", bench::byVectors<Sleef_atand2_u10sse4, Zel64f, Zel64f>)));
});

} // namespace
