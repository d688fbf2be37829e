// VOLK as a peer: its SSE kernels straight from its headers, each compiled as a function of its own, without
// the price of choosing one by name; and its dispatcher, which takes the widest vectors of the machine.
//
//   run.map("zelsAdd_32f", zelsAdd_32f,
//       BENCH_VOLK("VOLK SSE", [](auto* a, auto* b, auto* d, int n) {
//           bench::kernel<volk_32f_x2_add_32f_u_sse>(d, a, b, static_cast<unsigned>(n));
//       }));
//
// Include the header of the kernel (<volk/volk_32f_x2_add_32f.h>) behind this one, inside #if BENCH_HAS_VOLK.
#pragma once

#include "support/bench.h"

#if BENCH_HAS_VOLK

#define LV_HAVE_GENERIC
#define LV_HAVE_SSE
#define LV_HAVE_SSE2
#define LV_HAVE_SSE3
#define LV_HAVE_SSSE3
#define LV_HAVE_SSE4_1
#define LV_HAVE_SSE4_2
#include <volk/volk.h>

#define BENCH_VOLK(...) bench::peer(__VA_ARGS__)

#else
#define BENCH_VOLK(...)                                                                                      \
    bench::NoPeer {}
#endif

namespace bench {

template <auto function, class... A>
BENCH_PLAIN void kernel(A... arguments)
{
    function(arguments...);
}

} // namespace bench
