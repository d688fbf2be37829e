// Sums of float vectors: Add and AddC.
#include "support/bench.h"
#include "support/volk.h"

#if BENCH_HAS_VOLK
#include <volk/volk_32f_s32f_add_32f.h>
#include <volk/volk_32f_x2_add_32f.h>
#include <volk/volk_64f_x2_add_64f.h>
#endif

namespace {

template <class T>
BENCH_PLAIN void plainAdd(const T* a, const T* b, T* d, int n)
{
    for (int i = 0; i < n; i++)
        d[i] = a[i] + b[i];
}

template <class T>
BENCH_PLAIN void plainAddI(const T* a, T* d, int n)
{
    for (int i = 0; i < n; i++)
        d[i] += a[i];
}

const bench::Family family("Sums of float vectors", [](bench::Run& run) {
    run.map("zelsAdd_32f", zelsAdd_32f, bench::loop(plainAdd<Zel32f>),
            BENCH_VOLK("VOLK SSE",
                       [](auto* a, auto* b, auto* d, int n) {
                           bench::kernel<volk_32f_x2_add_32f_u_sse>(d, a, b, static_cast<unsigned>(n));
                       }),
            BENCH_VOLK("VOLK (wider vectors)", [](auto* a, auto* b, auto* d, int n) {
                volk_32f_x2_add_32f(d, a, b, static_cast<unsigned>(n));
            }));
    run.mapInPlace("zelsAdd_32f_I", zelsAdd_32f_I, bench::loop(plainAddI<Zel32f>));
});

} // namespace
