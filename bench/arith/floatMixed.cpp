// Sums, differences and products of mixed element types.
#include "support/plain.h"
#include "support/volk.h"

#include <algorithm>
#include <cmath>

#if BENCH_HAS_VOLK
#include <volk/volk_32fc_32f_multiply_32fc.h>
#endif

namespace {

template <auto op>
constexpr auto inFloat =
    [](Zel16s a, Zel16s b) { return op(static_cast<Zel32f>(a), static_cast<Zel32f>(b)); };

constexpr auto mulParts = [](Zel32f factor, Zel32fc x) { return Zel32fc{factor * x.re, factor * x.im}; };
constexpr auto mulPartsI = [](Zel32fc x, Zel32f factor) { return Zel32fc{factor * x.re, factor * x.im}; };

constexpr auto mulTo16s = [](Zel32f x, Zel32f val) {
    return static_cast<Zel16s>(std::rint(std::clamp(x * val, -32768.0f, 32767.0f)));
};

const bench::Family family("Float arithmetic, mixed types", [](bench::Run& run) {
    run.map("zelsAdd_16s32f", zelsAdd_16s32f,
            bench::loop(bench::plain<inFloat<bench::sum>, Zel32f, Zel16s, Zel16s>));
    run.map("zelsSub_16s32f", zelsSub_16s32f,
            bench::loop(bench::plain<inFloat<bench::differenceFrom>, Zel32f, Zel16s, Zel16s>));
    run.map("zelsMul_16s32f", zelsMul_16s32f,
            bench::loop(bench::plain<inFloat<bench::product>, Zel32f, Zel16s, Zel16s>));
    run.map("zelsMul_32f32fc", zelsMul_32f32fc, bench::loop(bench::plain<mulParts, Zel32fc, Zel32f, Zel32fc>),
            BENCH_VOLK("VOLK SSE", bench::volk2Swapped<volk_32fc_32f_multiply_32fc_a_sse>),
            BENCH_VOLK("VOLK (wider vectors)", bench::volk2Swapped<volk_32fc_32f_multiply_32fc>));
    run.mapInPlace("zelsMul_32f32fc_I", zelsMul_32f32fc_I,
                   bench::loop(bench::plainInPlace<mulPartsI, Zel32fc, Zel32f>));
    run.map("zelsMulC_Low_32f16s", zelsMulC_Low_32f16s,
            bench::loop(bench::plainWith<mulTo16s, Zel16s, Zel32f, Zel32f>));
    run.map(
        "zelsMulC_32f16s_Sfs",
        [](const Zel32f* s, Zel32f val, Zel16s* d, int n) { zelsMulC_32f16s_Sfs(s, val, d, n, -14); },
        bench::loop([](const Zel32f* s, Zel32f val, Zel16s* d, int n) {
            bench::plainWith<mulTo16s, Zel16s, Zel32f, Zel32f>(s, 16384 * val, d, n);
        }));
});

} // namespace
