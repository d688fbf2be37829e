// Squares.
#include "support/plain.h"

#include <algorithm>

namespace {

constexpr auto square = [](auto x) { return bench::product(x, x); };

constexpr auto fixedSquare = [](Zel16s x) {
    return static_cast<Zel16s>(std::min((x * x + ((x * x >> 15) & 1) + 16383) >> 15, 32767));
};

const bench::Family family("Squares", [](bench::Run& run) {
    run.map("zelsSqr_32f", zelsSqr_32f, bench::loop(bench::plain<square, Zel32f, Zel32f>));
    run.map("zelsSqr_64f", zelsSqr_64f, bench::loop(bench::plain<square, Zel64f, Zel64f>));
    run.map("zelsSqr_32fc", zelsSqr_32fc, bench::loop(bench::plain<square, Zel32fc, Zel32fc>));
    run.map("zelsSqr_64fc", zelsSqr_64fc, bench::loop(bench::plain<square, Zel64fc, Zel64fc>));
    run.map(
        "zelsSqr_16s_Sfs, factor 15", [](const Zel16s* s, Zel16s* d, int n) { zelsSqr_16s_Sfs(s, d, n, 15); },
        bench::loop(bench::plain<fixedSquare, Zel16s, Zel16s>));
});

} // namespace
