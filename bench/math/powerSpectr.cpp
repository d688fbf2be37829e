// Powers of complex data.
#include "support/plain.h"
#include "support/volk.h"

#include <algorithm>
#include <cmath>

#if BENCH_HAS_VOLK
#include <volk/volk_32fc_magnitude_squared_32f.h>
#endif

namespace {

constexpr auto ofParts = [](auto re, auto im) { return re * re + im * im; };
constexpr auto power = [](auto z) { return ofParts(z.re, z.im); };

/// The double-precision route to an integer power.
constexpr auto fixedPower = [](Zel16sc z) {
    const double exact = ofParts(static_cast<double>(z.re), static_cast<double>(z.im)) * 0x1p-16;
    return static_cast<Zel16s>(std::rint(std::min(exact, 32767.0)));
};

const bench::Family family("Powers", [](bench::Run& run) {
    run.map("zelsPowerSpectr_32f", zelsPowerSpectr_32f,
            bench::loop(bench::plain<ofParts, Zel32f, Zel32f, Zel32f>));
    run.map("zelsPowerSpectr_64f", zelsPowerSpectr_64f,
            bench::loop(bench::plain<ofParts, Zel64f, Zel64f, Zel64f>));
    run.map("zelsPowerSpectr_32fc", zelsPowerSpectr_32fc, bench::loop(bench::plain<power, Zel32f, Zel32fc>),
            BENCH_VOLK("VOLK SSE",
                       [](const Zel32fc* s, Zel32f* d, int n) {
                           bench::volkCall<volk_32fc_magnitude_squared_32f_u_sse3>(d, s,
                                                                                   static_cast<unsigned>(n));
                       }),
            BENCH_VOLK("VOLK (wider vectors)", [](const Zel32fc* s, Zel32f* d, int n) {
                bench::volkCall<volk_32fc_magnitude_squared_32f>(d, s, static_cast<unsigned>(n));
            }));
    run.map("zelsPowerSpectr_64fc", zelsPowerSpectr_64fc, bench::loop(bench::plain<power, Zel64f, Zel64fc>));
    run.map(
        "zelsPowerSpectr_16sc_Sfs, factor 16",
        [](const Zel16sc* s, Zel16s* d, int n) { zelsPowerSpectr_16sc_Sfs(s, d, n, 16); },
        bench::loop(bench::plain<fixedPower, Zel16s, Zel16sc>));
});

} // namespace
