// Sums of float vectors: Add and AddC.
#include "support/plain.h"
#include "support/volk.h"

#if BENCH_HAS_VOLK
#include <volk/volk_32f_s32f_add_32f.h>
#include <volk/volk_32f_x2_add_32f.h>
#include <volk/volk_32fc_x2_add_32fc.h>
#include <volk/volk_64f_x2_add_64f.h>
#endif

namespace {

template <class T>
constexpr auto add = bench::plain<bench::sum, T, T, T>;
template <class T>
constexpr auto addI = bench::plainInPlace<bench::sum, T, T>;
template <class T>
constexpr auto addC = bench::plainWith<bench::sum, T, T, T>;
template <class T>
constexpr auto addCI = bench::plainWithInPlace<bench::sum, T, T>;

const bench::Family family("Float sums", [](bench::Run& run) {
    run.map("zelsAdd_32f", zelsAdd_32f, bench::loop(add<Zel32f>),
            BENCH_VOLK("VOLK SSE", bench::volk2<volk_32f_x2_add_32f_u_sse>),
            BENCH_VOLK("VOLK (wider vectors)", bench::volk2<volk_32f_x2_add_32f>));
    run.map("zelsAdd_64f", zelsAdd_64f, bench::loop(add<Zel64f>),
            BENCH_VOLK("VOLK SSE", bench::volk2<volk_64f_x2_add_64f_u_sse2>),
            BENCH_VOLK("VOLK (wider vectors)", bench::volk2<volk_64f_x2_add_64f>));
    run.map("zelsAdd_32fc", zelsAdd_32fc, bench::loop(add<Zel32fc>),
            BENCH_VOLK("VOLK SSE", bench::volk2<volk_32fc_x2_add_32fc_u_sse>),
            BENCH_VOLK("VOLK (wider vectors)", bench::volk2<volk_32fc_x2_add_32fc>));
    run.map("zelsAdd_64fc", zelsAdd_64fc, bench::loop(add<Zel64fc>));

    run.mapInPlace("zelsAdd_32f_I", zelsAdd_32f_I, bench::loop(addI<Zel32f>));
    run.mapInPlace("zelsAdd_64f_I", zelsAdd_64f_I, bench::loop(addI<Zel64f>));
    run.mapInPlace("zelsAdd_32fc_I", zelsAdd_32fc_I, bench::loop(addI<Zel32fc>));
    run.mapInPlace("zelsAdd_64fc_I", zelsAdd_64fc_I, bench::loop(addI<Zel64fc>));

    run.map("zelsAddC_32f", zelsAddC_32f, bench::loop(addC<Zel32f>),
            BENCH_VOLK("VOLK SSE", bench::volkWith<volk_32f_s32f_add_32f_u_sse>),
            BENCH_VOLK("VOLK (wider vectors)", bench::volkWith<volk_32f_s32f_add_32f>));
    run.map("zelsAddC_64f", zelsAddC_64f, bench::loop(addC<Zel64f>));
    run.map("zelsAddC_32fc", zelsAddC_32fc, bench::loop(addC<Zel32fc>));
    run.map("zelsAddC_64fc", zelsAddC_64fc, bench::loop(addC<Zel64fc>));

    run.mapInPlace("zelsAddC_32f_I", zelsAddC_32f_I, bench::loop(addCI<Zel32f>));
    run.mapInPlace("zelsAddC_64f_I", zelsAddC_64f_I, bench::loop(addCI<Zel64f>));
    run.mapInPlace("zelsAddC_32fc_I", zelsAddC_32fc_I, bench::loop(addCI<Zel32fc>));
    run.mapInPlace("zelsAddC_64fc_I", zelsAddC_64fc_I, bench::loop(addCI<Zel64fc>));
});

} // namespace
