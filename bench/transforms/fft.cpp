// The Fourier transforms beside FFTW: its build of 128-bit vectors, from the build tree, and Debian's of wider ones.
#include "support/array.h"
#include "support/bench.h"
#include "zels.h"

#if BENCH_HAS_FFTW && BENCH_HAS_FFTWF
#include <fftw3.h>
#endif

#include <cmath>
#include <cstdio>
#include <dlfcn.h>

namespace {

constexpr int lowest = 3;
constexpr int highest = 22;

// A plan and its buffers.
template <class Plan>
class Planned {
  public:
    template <class Size, class Init>
    Planned(int order, Size size, Init init) : sizes(order, size), memory(sizes.plan), work(sizes.work + 64)
    {
        bench::Array<Zel8u> initMemory(sizes.init + 64);
        init(&plan, order, zelFftScaleNone, zelHintNone, memory.get(), initMemory.get());
    }
    Plan* plan = nullptr;
    Zel8u* buffer() { return work; }

  private:
    struct Sizes {
        int plan = 0, init = 0, work = 0;
        template <class Size>
        Sizes(int order, Size size)
        {
            size(order, zelFftScaleNone, zelHintNone, &plan, &init, &work);
        }
    } sizes;
    bench::Array<Zel8u> memory, work;
};

#if BENCH_HAS_FFTW && BENCH_HAS_FFTWF

// The functions of FFTW in one precision, from whichever build.
template <class Plan, class Complex, class T>
struct Fftw {
    Plan (*complex)(int, Complex*, Complex*, int, unsigned) = nullptr;
    Plan (*real)(int, T*, Complex*, unsigned) = nullptr;
    void (*execute)(Plan) = nullptr;
    void (*destroy)(Plan) = nullptr;

    /// From a library of the build tree; all null where it is missing. Its symbols stay its own.
    static Fftw from(const char* path, const char* prefix)
    {
        Fftw functions;
        void* const library = dlopen(path, RTLD_NOW | RTLD_LOCAL | RTLD_DEEPBIND);
        if (!library) {
            std::fprintf(stderr, "%s is missing: its column is left out\n", path);
            return functions;
        }
        const auto find = [&](auto& function, const char* name) {
            function = reinterpret_cast<std::remove_reference_t<decltype(function)>>(
                dlsym(library, (std::string(prefix) + name).c_str()));
        };
        find(functions.complex, "plan_dft_1d");
        find(functions.real, "plan_dft_r2c_1d");
        find(functions.execute, "execute");
        find(functions.destroy, "destroy_plan");
        return functions;
    }
};
using Fftw32 = Fftw<fftwf_plan, fftwf_complex, float>;
using Fftw64 = Fftw<fftw_plan, fftw_complex, double>;

template <class T>
struct Builds;
template <>
struct Builds<Zel32f> {
    using Complex = fftwf_complex;
    Fftw32 narrow = Fftw32::from(BENCH_FFTW_SSE2 "libfftw3f.so", "fftwf_");
    Fftw32 wide = {fftwf_plan_dft_1d, fftwf_plan_dft_r2c_1d, fftwf_execute, fftwf_destroy_plan};
};
template <>
struct Builds<Zel64f> {
    using Complex = fftw_complex;
    Fftw64 narrow = Fftw64::from(BENCH_FFTW_SSE2 "libfftw3.so", "fftw_");
    Fftw64 wide = {fftw_plan_dft_1d, fftw_plan_dft_r2c_1d, fftw_execute, fftw_destroy_plan};
};

#endif

// A row: `call` on arrays of our own, FFTW in both builds on arrays of theirs.
template <class T, class Call>
void row(bench::Run& run, const char* name, int order, bool real, bool inPlace, Call call)
{
    const ZelSize length = ZelSize{1} << order;
    const bench::Work work{.bytes = 0, .flops = (real ? 2.5 : 5.0) * order};
#if BENCH_HAS_FFTW && BENCH_HAS_FFTWF
    static const Builds<T> builds;
    using Complex = typename Builds<T>::Complex;
    bench::Array<T> src(2 * length + 4), dst(2 * length + 4);
    auto* const in = src.get();
    auto* const out = reinterpret_cast<Complex*>(inPlace ? src.get() : dst.get());
    const auto planned = [&](const auto& build) {
        return real ? build.real(static_cast<int>(length), in, out, FFTW_MEASURE)
                    : build.complex(static_cast<int>(length), reinterpret_cast<Complex*>(in), out,
                                    FFTW_FORWARD, FFTW_MEASURE);
    };
    const auto wide = planned(builds.wide);
    const auto widePeer = bench::peer("FFTW (wider vectors)", [=] { builds.wide.execute(wide); });
    if (builds.narrow.complex) {
        const auto narrow = planned(builds.narrow);
        run.row(name, length, work, call, bench::peer("FFTW SSE2", [=] { builds.narrow.execute(narrow); }),
                widePeer);
        builds.narrow.destroy(narrow);
    } else {
        run.row(name, length, work, call, widePeer);
    }
    builds.wide.destroy(wide);
#else
    static_cast<void>(inPlace);
    run.row(name, length, work, call);
#endif
}

template <class T, class E, class Plan, class Size, class Init>
void rows(bench::Run& run, const char* name, bool real, bool inPlace, Size size, Init init,
          ZelStatus (*transform)(const E*, E*, const Plan*, Zel8u*))
{
    if (!run.wants(name))
        return;
    for (int order = lowest; order <= highest; order++) {
        Planned<Plan> planned(order, size, init);
        bench::Array<E> src(ZelSize{1} << order), dst(ZelSize{1} << order);
        E* const to = inPlace ? src.get() : dst.get();
        row<T>(run, name, order, real, inPlace,
               [=, from = src.get(), plan = planned.plan, buffer = planned.buffer()] {
                   transform(from, to, plan, buffer);
               });
    }
}

const bench::Family family("Fourier transforms", [](bench::Run& run) {
    for (const bool inPlace : {false, true}) {
        const auto named = [inPlace](const char* outOfPlace, const char* other) {
            return inPlace ? other : outOfPlace;
        };
        rows<Zel32f>(run, named("zelsFFTFwd_CToC_32fc", "zelsFFTFwd_CToC_32fc_I"), false, inPlace,
                     zelsFFTGetSize_C_32fc, zelsFFTInit_C_32fc, zelsFFTFwd_CToC_32fc);
        rows<Zel64f>(run, named("zelsFFTFwd_CToC_64fc", "zelsFFTFwd_CToC_64fc_I"), false, inPlace,
                     zelsFFTGetSize_C_64fc, zelsFFTInit_C_64fc, zelsFFTFwd_CToC_64fc);
        rows<Zel32f>(run, named("zelsFFTFwd_RToPerm_32f", "zelsFFTFwd_RToPerm_32f_I"), true, inPlace,
                     zelsFFTGetSize_R_32f, zelsFFTInit_R_32f, zelsFFTFwd_RToPerm_32f);
    }
});

// What a plan costs, in a call of Init; FFTW's planning by estimate does the same work for its user.
const bench::Family planning("Fourier transform plans", [](bench::Run& run) {
    for (int order = 6; order <= 20; order++) {
        const ZelSize length = ZelSize{1} << order;
        int planSize = 0, initSize = 0, workSize = 0;
        zelsFFTGetSize_C_32fc(order, zelFftScaleNone, zelHintNone, &planSize, &initSize, &workSize);
        bench::Array<Zel8u> plan(planSize), init(initSize + 64), work(workSize + 64);
        bench::Array<Zel32fc> src(length), dst(length);
        const auto initialise = [=, memory = plan.get(), other = init.get()] {
            ZelsFftPlan_C_32fc* made = nullptr;
            zelsFFTInit_C_32fc(&made, order, zelFftScaleNone, zelHintNone, memory, other);
            return made;
        };
        ZelsFftPlan_C_32fc* const made = initialise();
        const auto transform =
            bench::peer("one transform", [=, from = src.get(), to = dst.get(), buffer = work.get()] {
                zelsFFTFwd_CToC_32fc(from, to, made, buffer);
            });
#if BENCH_HAS_FFTW && BENCH_HAS_FFTWF
        const auto estimate = bench::peer("FFTW estimate", [=, from = src.get(), to = dst.get()] {
            fftwf_forget_wisdom();
            fftwf_cleanup();
            fftwf_destroy_plan(
                fftwf_plan_dft_1d(static_cast<int>(length), reinterpret_cast<fftwf_complex*>(from),
                                  reinterpret_cast<fftwf_complex*>(to), FFTW_FORWARD, FFTW_ESTIMATE));
        });
        run.row(
            "zelsFFTInit_C_32fc", length, {}, [=] { initialise(); }, transform, estimate);
#else
        run.row("zelsFFTInit_C_32fc", length, {}, [=] { initialise(); }, transform);
#endif
    }
});

} // namespace
