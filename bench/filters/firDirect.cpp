// The direct engine beside plain loops, liquid-dsp, and what the processor can multiply and add at most.
#include "filters/fir.h"

#if BENCH_HAS_LIQUID
#include <complex>
#include <liquid/liquid.h>
#endif

namespace {

using bench::Filter;

constexpr int manyTaps[] = {8, 32, 63};

auto sizesOf(ZelDataType type)
{
    return [type](int n, int* spec, int* buffer) { zelsFIRSRGetSize(n, type, spec, buffer); };
}

// Rows of one form, every tap count on every length. `pairs` is the vector multiplications of one tap and one sample,
// `more` makes further peers.
template <class Data, class Taps, class Sizes, class Init, class Run, class... More>
void rows(bench::Run& run, const std::string& name, double pairs, Sizes sizes, Init init, Run filterRun,
          More... more)
{
    for (const int n : manyTaps)
        for (const ZelSize length : {256, 4096, 65536}) {
            const std::string row = name + ", " + std::to_string(n) + " taps";
            if (!run.wants(row))
                continue;
            const Filter<Data, Taps> filter(n, zelAlgDirect, sizes, init);
            bench::Array<Data> x(length + n), y(length), z(length);
            const Data* const src = x.get() + n;
            const Taps* const taps = filter.taps.get();
            using Part = typename bench::PartOf<Data>::Type;
            const auto bound = static_cast<ZelSize>(pairs * static_cast<double>(length) * n);
            run.row(row, length, {.flops = pairs * n * 2 * (16 / sizeof(Part))},
                    filter.call(filterRun, src, y.get(), length), bench::loop([=, d = z.get()] {
                        bench::firTapsOutside(src, d, static_cast<int>(length), taps, n);
                    }),
                    bench::peer("multiply-add bound", [=] { bench::multiplyAdds<Part>(bound); }),
                    more(src, z.get(), length, taps, n)...);
        }
}

const auto innerProduct = [](const auto* src, auto* dst, ZelSize length, const auto* taps, int n) {
    return bench::peer("-O3 inner product",
                       [=] { bench::firInnerProduct(src, dst, static_cast<int>(length), taps, n); });
};

#if BENCH_HAS_LIQUID
const auto liquid = [](const Zel32f* src, Zel32f* dst, ZelSize length, const Zel32f* taps, int n) {
    // One filter a row lives until the program ends.
    const firfilt_rrrf filter = firfilt_rrrf_create(const_cast<float*>(taps), static_cast<unsigned>(n));
    return bench::peer("liquid-dsp (wider vectors)", [=] {
        firfilt_rrrf_execute_block(filter, const_cast<float*>(src), static_cast<unsigned>(length), dst);
    });
};
#else
const auto liquid = [](auto...) { return bench::NoPeer{}; };
#endif

// 16-bit samples beside floats: what the conversions cost.
template <class S, class Data, class Init, class Run, class FloatRun>
void rows16(bench::Run& run, const std::string& name, ZelDataType type, Init init, Run filterRun,
            FloatRun floatRun)
{
    for (const int n : manyTaps)
        for (const ZelSize length : {256, 4096, 65536}) {
            const std::string row = name + ", " + std::to_string(n) + " taps";
            if (!run.wants(row))
                continue;
            const Filter<Data> filter(n, zelAlgDirect, sizesOf(type), init);
            bench::Array<S> x(length), y(length);
            bench::Array<Data> u(length), v(length);
            run.row(row, length, {}, filter.call(filterRun, x.get(), y.get(), length),
                    bench::peer("zels floats", filter.call(floatRun, u.get(), v.get(), length)));
        }
}

const bench::Family family("Single-rate FIR, direct", [](bench::Run& run) {
    rows<Zel32f, Zel32f>(run, "zelsFIRSR_32f", 1 / 4.0, sizesOf(zelDt32f), zelsFIRSRInit_32f, zelsFIRSR_32f,
                         innerProduct, liquid);
    rows<Zel64f, Zel64f>(run, "zelsFIRSR_64f", 1 / 2.0, sizesOf(zelDt64f), zelsFIRSRInit_64f, zelsFIRSR_64f);
    rows<Zel32fc, Zel32fc>(run, "zelsFIRSR_32fc", 1.0, sizesOf(zelDt32fc), zelsFIRSRInit_32fc,
                           zelsFIRSR_32fc);
    rows<Zel64fc, Zel64fc>(run, "zelsFIRSR_64fc", 2.0, sizesOf(zelDt64fc), zelsFIRSRInit_64fc,
                           zelsFIRSR_64fc);
    rows<Zel32fc, Zel32f>(run, "zelsFIRSR32f_32fc", 1 / 2.0, zelsFIRSRGetSize32f_32fc, zelsFIRSRInit32f_32fc,
                          zelsFIRSR32f_32fc);
    rows16<Zel16s, Zel32f>(run, "zelsFIRSR_16s", zelDt32f, zelsFIRSRInit_32f, zelsFIRSR_16s, zelsFIRSR_32f);
    rows16<Zel16sc, Zel32fc>(run, "zelsFIRSR_16sc", zelDt32fc, zelsFIRSRInit_32fc, zelsFIRSR_16sc,
                             zelsFIRSR_32fc);
});

} // namespace
