// Cube roots.
#include "math/elementary.h"

#include <algorithm>

namespace {

constexpr auto cubeRoot = [](auto x) { return std::cbrt(x); };

/// The route over double precision to an integer root.
constexpr auto fixedCubeRoot = [](Zel32s x) {
    return static_cast<Zel16s>(std::rint(std::cbrt(static_cast<double>(x)) * 16));
};

void byMinus4(const Zel32s* s, Zel16s* d, int n)
{
    zelsCubrt_32s16s_Sfs(s, d, n, -4);
}

const bench::Family family("Cube roots", [](bench::Run& run) {
    bench::onRange<Zel32f, Zel32f>(
        run, "zelsCubrt_32f", -100, 100, zelsCubrt_32f, bench::loop(bench::plain<cubeRoot, Zel32f, Zel32f>),
        BENCH_MVEC(bench::peer("glibc vector", bench::byVectors<_ZGVbN4v_cbrtf, Zel32f, Zel32f>)),
        BENCH_SLEEF(bench::peer("SLEEF u10", bench::byVectors<Sleef_cbrtf4_u10sse4, Zel32f, Zel32f>)));
    bench::onRange<Zel32s, Zel16s>(run, "zelsCubrt_32s16s_Sfs, factor -4", -2147483648.0, 2147483647,
                                   byMinus4, bench::loop(bench::plain<fixedCubeRoot, Zel16s, Zel32s>));
});

} // namespace
