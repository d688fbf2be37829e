// Differences of float vectors: Sub, SubC and SubCRev.
#include "support/plain.h"
#include "support/volk.h"

#if BENCH_HAS_VOLK
#include <volk/volk_32f_x2_subtract_32f.h>
#endif

namespace {

// The first source is the subtrahend.
template <class T>
constexpr auto sub = bench::plain<bench::differenceFrom, T, T, T>;
template <class T>
constexpr auto subI = bench::plainInPlace<bench::difference, T, T>;
template <class T>
constexpr auto subC = bench::plainWith<bench::difference, T, T, T>;
template <class T>
constexpr auto subCI = bench::plainWithInPlace<bench::difference, T, T>;
template <class T>
constexpr auto subCRev = bench::plainWith<bench::differenceFrom, T, T, T>;
template <class T>
constexpr auto subCRevI = bench::plainWithInPlace<bench::differenceFrom, T, T>;

const bench::Family family("Float differences", [](bench::Run& run) {
    run.map("zelsSub_32f", zelsSub_32f, bench::loop(sub<Zel32f>),
            BENCH_VOLK("VOLK SSE", bench::volk2Swapped<volk_32f_x2_subtract_32f_a_sse>),
            BENCH_VOLK("VOLK (wider vectors)", bench::volk2Swapped<volk_32f_x2_subtract_32f>));
    run.map("zelsSub_64f", zelsSub_64f, bench::loop(sub<Zel64f>));
    run.map("zelsSub_32fc", zelsSub_32fc, bench::loop(sub<Zel32fc>));
    run.map("zelsSub_64fc", zelsSub_64fc, bench::loop(sub<Zel64fc>));

    run.mapInPlace("zelsSub_32f_I", zelsSub_32f_I, bench::loop(subI<Zel32f>));
    run.mapInPlace("zelsSub_64f_I", zelsSub_64f_I, bench::loop(subI<Zel64f>));
    run.mapInPlace("zelsSub_32fc_I", zelsSub_32fc_I, bench::loop(subI<Zel32fc>));
    run.mapInPlace("zelsSub_64fc_I", zelsSub_64fc_I, bench::loop(subI<Zel64fc>));

    run.map("zelsSubC_32f", zelsSubC_32f, bench::loop(subC<Zel32f>));
    run.map("zelsSubC_64f", zelsSubC_64f, bench::loop(subC<Zel64f>));
    run.map("zelsSubC_32fc", zelsSubC_32fc, bench::loop(subC<Zel32fc>));
    run.map("zelsSubC_64fc", zelsSubC_64fc, bench::loop(subC<Zel64fc>));

    run.mapInPlace("zelsSubC_32f_I", zelsSubC_32f_I, bench::loop(subCI<Zel32f>));
    run.mapInPlace("zelsSubC_64f_I", zelsSubC_64f_I, bench::loop(subCI<Zel64f>));
    run.mapInPlace("zelsSubC_32fc_I", zelsSubC_32fc_I, bench::loop(subCI<Zel32fc>));
    run.mapInPlace("zelsSubC_64fc_I", zelsSubC_64fc_I, bench::loop(subCI<Zel64fc>));

    run.map("zelsSubCRev_32f", zelsSubCRev_32f, bench::loop(subCRev<Zel32f>));
    run.map("zelsSubCRev_64f", zelsSubCRev_64f, bench::loop(subCRev<Zel64f>));
    run.map("zelsSubCRev_32fc", zelsSubCRev_32fc, bench::loop(subCRev<Zel32fc>));
    run.map("zelsSubCRev_64fc", zelsSubCRev_64fc, bench::loop(subCRev<Zel64fc>));

    run.mapInPlace("zelsSubCRev_32f_I", zelsSubCRev_32f_I, bench::loop(subCRevI<Zel32f>));
    run.mapInPlace("zelsSubCRev_64f_I", zelsSubCRev_64f_I, bench::loop(subCRevI<Zel64f>));
    run.mapInPlace("zelsSubCRev_32fc_I", zelsSubCRev_32fc_I, bench::loop(subCRevI<Zel32fc>));
    run.mapInPlace("zelsSubCRev_64fc_I", zelsSubCRev_64fc_I, bench::loop(subCRevI<Zel64fc>));
});

} // namespace
