// Products of float vectors: Mul and MulC.
#include "support/plain.h"
#include "support/volk.h"

#if BENCH_HAS_VOLK
#include <volk/volk_32f_s32f_multiply_32f.h>
#include <volk/volk_32f_x2_multiply_32f.h>
#include <volk/volk_32fc_s32fc_multiply_32fc.h>
#include <volk/volk_32fc_x2_multiply_32fc.h>
#include <volk/volk_64f_x2_multiply_64f.h>
#endif

namespace {

template <class T>
constexpr auto mul = bench::plain<bench::product, T, T, T>;
template <class T>
constexpr auto mulI = bench::plainInPlace<bench::product, T, T>;
template <class T>
constexpr auto mulC = bench::plainWith<bench::product, T, T, T>;
template <class T>
constexpr auto mulCI = bench::plainWithInPlace<bench::product, T, T>;

const bench::Family family("Float products", [](bench::Run& run) {
    run.map("zelsMul_32f", zelsMul_32f, bench::loop(mul<Zel32f>),
            BENCH_VOLK("VOLK SSE", bench::volk2<volk_32f_x2_multiply_32f_u_sse>),
            BENCH_VOLK("VOLK (wider vectors)", bench::volk2<volk_32f_x2_multiply_32f>));
    run.map("zelsMul_64f", zelsMul_64f, bench::loop(mul<Zel64f>),
            BENCH_VOLK("VOLK SSE", bench::volk2<volk_64f_x2_multiply_64f_u_sse2>),
            BENCH_VOLK("VOLK (wider vectors)", bench::volk2<volk_64f_x2_multiply_64f>));
    run.map("zelsMul_32fc", zelsMul_32fc, bench::loop(mul<Zel32fc>),
            BENCH_VOLK("VOLK SSE", bench::volk2<volk_32fc_x2_multiply_32fc_u_sse3>),
            BENCH_VOLK("VOLK (wider vectors)", bench::volk2<volk_32fc_x2_multiply_32fc>));
    run.map("zelsMul_64fc", zelsMul_64fc, bench::loop(mul<Zel64fc>));

    run.mapInPlace("zelsMul_32f_I", zelsMul_32f_I, bench::loop(mulI<Zel32f>));
    run.mapInPlace("zelsMul_64f_I", zelsMul_64f_I, bench::loop(mulI<Zel64f>));
    run.mapInPlace("zelsMul_32fc_I", zelsMul_32fc_I, bench::loop(mulI<Zel32fc>));
    run.mapInPlace("zelsMul_64fc_I", zelsMul_64fc_I, bench::loop(mulI<Zel64fc>));

    run.map("zelsMulC_32f", zelsMulC_32f, bench::loop(mulC<Zel32f>),
            BENCH_VOLK("VOLK SSE", bench::volkWith<volk_32f_s32f_multiply_32f_u_sse>),
            BENCH_VOLK("VOLK (wider vectors)", bench::volkWith<volk_32f_s32f_multiply_32f>));
    run.map("zelsMulC_64f", zelsMulC_64f, bench::loop(mulC<Zel64f>));
    run.map("zelsMulC_32fc", zelsMulC_32fc, bench::loop(mulC<Zel32fc>),
            BENCH_VOLK("VOLK SSE", bench::volkWith<volk_32fc_s32fc_multiply_32fc_u_sse3>),
            BENCH_VOLK("VOLK (wider vectors)", bench::volkWith<volk_32fc_s32fc_multiply_32fc>));
    run.map("zelsMulC_64fc", zelsMulC_64fc, bench::loop(mulC<Zel64fc>));

    run.mapInPlace("zelsMulC_32f_I", zelsMulC_32f_I, bench::loop(mulCI<Zel32f>));
    run.mapInPlace("zelsMulC_64f_I", zelsMulC_64f_I, bench::loop(mulCI<Zel64f>));
    run.mapInPlace("zelsMulC_32fc_I", zelsMulC_32fc_I, bench::loop(mulCI<Zel32fc>));
    run.mapInPlace("zelsMulC_64fc_I", zelsMulC_64fc_I, bench::loop(mulCI<Zel64fc>));
});

} // namespace
