// VOLK as a peer: its SSE kernels straight from its headers, each compiled as a function of its own, without
// the price of choosing one by name; and its dispatcher, which takes the widest vectors of the machine.
//
//   run.map("zelsAdd_32f", zelsAdd_32f, BENCH_VOLK("VOLK SSE", bench::volk2<volk_32f_x2_add_32f_u_sse>),
//           BENCH_VOLK("VOLK (wider vectors)", bench::volk2<volk_32f_x2_add_32f>));
//
// Include the header of the kernel (<volk/volk_32f_x2_add_32f.h>) behind this one, inside #if BENCH_HAS_VOLK.
// Where VOLK is not installed, BENCH_VOLK(...) is no peer.
#pragma once

#include "support/bench.h"

#include <bit>

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

namespace bench {

template <class... P, class... A>
[[gnu::always_inline]] inline void volkCast(void (*function)(P...), A... arguments)
{
    function(std::bit_cast<P>(arguments)...); // its complex types are others than ours
}

/// A VOLK function with its own order of arguments. The name of a kernel gives a function of its own; the
/// name of a dispatcher is a pointer that VOLK sets at its first call.
template <auto& function, class... A>
requires std::is_pointer_v<std::remove_reference_t<decltype(function)>>
void volkCall(A... arguments)
{
    volkCast(function, arguments...);
}
template <auto& function, class... A>
BENCH_PLAIN void volkCall(A... arguments)
{
    volkCast(function, arguments...);
}

/// (a, b, d, n) to a VOLK function of two sources; the first two exchanged; one source; one source and a
/// constant.
template <auto& function>
constexpr auto volk2 =
    [](auto* a, auto* b, auto* d, int n) { volkCall<function>(d, a, b, static_cast<unsigned>(n)); };
template <auto& function>
constexpr auto volk2Swapped =
    [](auto* a, auto* b, auto* d, int n) { volkCall<function>(d, b, a, static_cast<unsigned>(n)); };
template <auto& function>
constexpr auto volkWith =
    [](auto* s, auto val, auto* d, int n) { volkCall<function>(d, s, val, static_cast<unsigned>(n)); };

} // namespace bench

#else
#define BENCH_VOLK(...)                                                                                      \
    bench::NoPeer {}
#endif
