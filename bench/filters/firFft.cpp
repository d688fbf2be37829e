// The FFT engine beside the direct one on the same work, and beside overlap-save on FFTW with its best block length.
#include "filters/fir.h"

#if BENCH_HAS_FFTW && BENCH_HAS_FFTWF
#include "filters/overlapSave.h"
#endif

#include <cstdio>

namespace {

using bench::Filter;

constexpr ZelSize length = 65536;

#if BENCH_HAS_FFTW && BENCH_HAS_FFTWF
auto fftw(const char* name, const bench::Fftw<Zel32f>& build, const Zel32f* taps, int n, const Zel32f* src)
{
    static bench::Array<Zel32f> dst(length);
    const auto filter = bench::FftwFilter::best(build, taps, n, src, dst, static_cast<int>(length));
    std::printf("  %s: blocks of %s\n", name, filter->blocks().c_str());
    return bench::peer(name, [=] { filter->run(src, dst, static_cast<int>(length)); });
}
#endif

template <class Data, class Taps, class Sizes, class Init, class Run>
void rows(bench::Run& run, const std::string& name, Sizes sizes, Init init, Run filterRun)
{
    for (const int n : {64, 128, 512, 4096}) {
        const std::string row = name + ", " + std::to_string(n) + " taps";
        if (!run.wants(row))
            continue;
        const Filter<Data, Taps> filter(n, zelAlgFFT, sizes, init), direct(n, zelAlgDirect, sizes, init);
        bench::Array<Data> x(length + n), y(length), z(length);
        const Data* const src = x.get() + n;
        const auto work = filter.call(filterRun, src, y.get(), length);
        const auto other = bench::peer("zels direct", direct.call(filterRun, src, z.get(), length));
#if BENCH_HAS_FFTW && BENCH_HAS_FFTWF
        if constexpr (std::is_same_v<Data, Zel32f>) {
            const auto& narrow = bench::Fftw<Zel32f>::narrow();
            const auto wide = fftw("FFTW (wider vectors)", bench::Fftw<Zel32f>::wide(), filter.taps, n, src);
            if (narrow.forward)
                run.row(row, length, {}, work, other, fftw("FFTW SSE2", narrow, filter.taps, n, src), wide);
            else
                run.row(row, length, {}, work, other, wide);
            continue;
        }
#endif
        run.row(row, length, {}, work, other);
    }
}

const bench::Family family("Single-rate FIR, FFT", [](bench::Run& run) {
    const auto sizesOf = [](ZelDataType type) {
        return [type](int n, int* spec, int* buffer) { zelsFIRSRGetSize(n, type, spec, buffer); };
    };
    rows<Zel32f, Zel32f>(run, "zelsFIRSR_32f by FFT", sizesOf(zelDt32f), zelsFIRSRInit_32f, zelsFIRSR_32f);
    rows<Zel64f, Zel64f>(run, "zelsFIRSR_64f by FFT", sizesOf(zelDt64f), zelsFIRSRInit_64f, zelsFIRSR_64f);
    rows<Zel32fc, Zel32fc>(run, "zelsFIRSR_32fc by FFT", sizesOf(zelDt32fc), zelsFIRSRInit_32fc,
                           zelsFIRSR_32fc);
    rows<Zel64fc, Zel64fc>(run, "zelsFIRSR_64fc by FFT", sizesOf(zelDt64fc), zelsFIRSRInit_64fc,
                           zelsFIRSR_64fc);
    rows<Zel32fc, Zel32f>(run, "zelsFIRSR32f_32fc by FFT", zelsFIRSRGetSize32f_32fc, zelsFIRSRInit32f_32fc,
                          zelsFIRSR32f_32fc);
});

} // namespace
