// Linear normalisation.
#include "support/plain.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr auto normalized = [](auto x) { return (x - decltype(x)(0.25)) * decltype(x)(1 / 0.7); };

constexpr auto fixedNormalized = [](Zel16s x) {
    return static_cast<Zel16s>(std::rint(std::clamp((x - 100) / 7.0, -32768.0, 32767.0)));
};

const bench::Family family("Normalisation", [](bench::Run& run) {
    run.map(
        "zelsNormalize_32f",
        [](const Zel32f* s, Zel32f* d, int n) { zelsNormalize_32f(s, d, n, 0.25f, 0.7f); },
        bench::loop(bench::plain<normalized, Zel32f, Zel32f>));
    run.map(
        "zelsNormalize_64f", [](const Zel64f* s, Zel64f* d, int n) { zelsNormalize_64f(s, d, n, 0.25, 0.7); },
        bench::loop(bench::plain<normalized, Zel64f, Zel64f>));
    run.map(
        "zelsNormalize_16s_Sfs, factor 0",
        [](const Zel16s* s, Zel16s* d, int n) { zelsNormalize_16s_Sfs(s, d, n, 100, 7, 0); },
        bench::loop(bench::plain<fixedNormalized, Zel16s, Zel16s>));
});

} // namespace
