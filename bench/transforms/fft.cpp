// The Fourier transforms beside FFTW: its build of 128-bit vectors, from the build tree, and Debian's of wider ones.
// Plans are made beforehand. FFTW plans by MEASURE, which is let go where that takes minutes.
#include "support/array.h"
#include "support/bench.h"
#include "support/fftw.h"
#include "zels.h"

#include <cstring>

namespace {

constexpr int highestMeasured = 22;

// The forms: an element, a plan, its size query and its Init.
template <class E_, class Plan_, auto size_, auto init_>
struct Form {
    using E = E_;
    using T = typename bench::PartOf<E>::Type;
    using Plan = Plan_;
    static constexpr bool real = std::is_same_v<E, T>;
    static constexpr auto size = size_;
    static constexpr auto init = init_;
};
using C32fc = Form<Zel32fc, ZelsFftPlan_C_32fc, zelsFFTGetSize_C_32fc, zelsFFTInit_C_32fc>;
using C64fc = Form<Zel64fc, ZelsFftPlan_C_64fc, zelsFFTGetSize_C_64fc, zelsFFTInit_C_64fc>;
using C32f = Form<Zel32f, ZelsFftPlan_C_32f, zelsFFTGetSize_C_32f, zelsFFTInit_C_32f>;
using C64f = Form<Zel64f, ZelsFftPlan_C_64f, zelsFFTGetSize_C_64f, zelsFFTInit_C_64f>;
using R32f = Form<Zel32f, ZelsFftPlan_R_32f, zelsFFTGetSize_R_32f, zelsFFTInit_R_32f>;
using R64f = Form<Zel64f, ZelsFftPlan_R_64f, zelsFFTGetSize_R_64f, zelsFFTInit_R_64f>;

// A plan and its buffers.
template <class F>
class Planned {
  public:
    explicit Planned(int order) : sizes(order), memory(sizes.plan), init(sizes.init + 1), work(sizes.work + 1)
    {
        make(order);
    }
    void make(int order) { F::init(&plan, order, zelFftScaleNone, zelHintNone, memory.get(), init.get()); }

    typename F::Plan* plan = nullptr;
    Zel8u* buffer() const { return work; }

  private:
    struct Sizes {
        int plan = 0, init = 0, work = 0;
        explicit Sizes(int order) { F::size(order, zelFftScaleNone, zelHintNone, &plan, &init, &work); }
    } sizes;
    bench::Array<Zel8u> memory, init, work;
};

// Zeros: work in place would go to infinity on anything else.
template <class T>
struct Zeros : bench::Array<T> {
    explicit Zeros(ZelSize length) : bench::Array<T>(length)
    {
        std::memset(static_cast<void*>(this->get()), 0, static_cast<std::size_t>(length) * sizeof(T));
    }
};

#if BENCH_HAS_FFTW && BENCH_HAS_FFTWF

template <class F>
auto planned(const bench::Fftw<typename F::T>& fftw, int order, typename F::T* in, typename F::T* out,
             unsigned flags)
{
    using Complex = typename bench::Fftw<typename F::T>::Complex;
    auto* const spectrum = reinterpret_cast<Complex*>(out);
    if constexpr (F::real)
        return fftw.forward(1 << order, in, spectrum, flags);
    else
        return fftw.complex(1 << order, reinterpret_cast<Complex*>(in), spectrum, FFTW_FORWARD, flags);
}

#endif

// A row: `call` on arrays of its own, FFTW in both builds on arrays of theirs.
template <class F, class Call>
void beside(bench::Run& run, const char* name, int order, bool inPlace, Call call)
{
    const ZelSize length = ZelSize{1} << order;
    const bench::Work work{.flops = (F::real ? 2.5 : 5.0) * order};
#if BENCH_HAS_FFTW && BENCH_HAS_FFTWF
    using T = typename F::T;
    const ZelSize parts = F::real ? length + 2 : 2 * length;
    const Zeros<T> in(parts), other(inPlace ? 1 : parts);
    T* const out = inPlace ? in.get() : other.get();
    const unsigned flags = order > highestMeasured ? FFTW_ESTIMATE : FFTW_MEASURE;
    const auto& narrow = bench::Fftw<T>::narrow();
    const auto& wide = bench::Fftw<T>::wide();
    const auto plan = planned<F>(wide, order, in, out, flags);
    const auto widePeer = bench::peer("FFTW (wider vectors)", [=, &wide] { wide.execute(plan); });
    if (narrow.complex) {
        const auto narrowPlan = planned<F>(narrow, order, in, out, flags);
        run.row(name, length, work, call,
                bench::peer("FFTW SSE2", [=, &narrow] { narrow.execute(narrowPlan); }), widePeer);
        narrow.destroy(narrowPlan);
    } else {
        run.row(name, length, work, call, widePeer);
    }
    wide.destroy(plan);
#else
    static_cast<void>(inPlace);
    run.row(name, length, work, call);
#endif
}

template <class F, class Function>
void rows(bench::Run& run, const char* name, Function function, int from = 3, int to = highestMeasured)
{
    using E = typename F::E;
    constexpr bool inPlace = std::is_invocable_v<Function, E*, typename F::Plan*, Zel8u*>;
    for (int order = from; order <= to; order++) {
        const ZelSize length = ZelSize{1} << order;
        if (!run.measures(name, length)) {
            run.row(name, length, {}, [] {});
            continue;
        }
        Planned<F> own(order);
        const Zeros<E> src(length), dst(inPlace ? 1 : length);
        beside<F>(run, name, order, inPlace,
                  [=, src = src.get(), dst = dst.get(), plan = own.plan, buffer = own.buffer()] {
                      if constexpr (inPlace)
                          function(src, plan, buffer);
                      else
                          function(src, dst, plan, buffer);
                  });
    }
}

const bench::Family family("Fourier transforms", [](bench::Run& run) {
    rows<C32fc>(run, "zelsFFTFwd_CToC_32fc", zelsFFTFwd_CToC_32fc);
    rows<C32fc>(run, "zelsFFTFwd_CToC_32fc_I", zelsFFTFwd_CToC_32fc_I);
    rows<C64fc>(run, "zelsFFTFwd_CToC_64fc", zelsFFTFwd_CToC_64fc);
    rows<C64fc>(run, "zelsFFTFwd_CToC_64fc_I", zelsFFTFwd_CToC_64fc_I);
    rows<R32f>(run, "zelsFFTFwd_RToPerm_32f", zelsFFTFwd_RToPerm_32f);
    rows<R32f>(run, "zelsFFTFwd_RToPerm_32f_I", zelsFFTFwd_RToPerm_32f_I);
    rows<R64f>(run, "zelsFFTFwd_RToPerm_64f", zelsFFTFwd_RToPerm_64f);
});

// Beyond what MEASURE plans in reasonable time.
const bench::Family largest("Fourier transforms, largest", [](bench::Run& run) {
    rows<C32fc>(run, "zelsFFTFwd_CToC_32fc", zelsFFTFwd_CToC_32fc, 23, 26);
    rows<C32fc>(run, "zelsFFTFwd_CToC_32fc_I", zelsFFTFwd_CToC_32fc_I, 23, 26);
    rows<C64fc>(run, "zelsFFTFwd_CToC_64fc", zelsFFTFwd_CToC_64fc, 23, 25);
    rows<R32f>(run, "zelsFFTFwd_RToPerm_32f", zelsFFTFwd_RToPerm_32f, 23, 26);
});

// Two arrays beside interleaved pairs.
template <class Split, class Interleaved, class Function, class Peer>
void splitRows(bench::Run& run, const char* name, Function function, Peer interleaved)
{
    using T = typename Split::T;
    for (int order = 3; order <= highestMeasured; order++) {
        const ZelSize length = ZelSize{1} << order;
        Planned<Split> own(order);
        Planned<Interleaved> other(order);
        const Zeros<T> re(length), im(length), toRe(length), toIm(length);
        const Zeros<typename Interleaved::E> src(length), dst(length);
        run.row(
            name, length, {.flops = 5.0 * order},
            [=, re = re.get(), im = im.get(), toRe = toRe.get(), toIm = toIm.get(), plan = own.plan,
             buffer = own.buffer()] { function(re, im, toRe, toIm, plan, buffer); },
            bench::peer("zels interleaved",
                        [=, src = src.get(), dst = dst.get(), plan = other.plan, buffer = other.buffer()] {
                            interleaved(src, dst, plan, buffer);
                        }));
    }
}

const bench::Family split("Fourier transforms of two arrays", [](bench::Run& run) {
    splitRows<C32f, C32fc>(run, "zelsFFTFwd_CToC_32f", zelsFFTFwd_CToC_32f, zelsFFTFwd_CToC_32fc);
    splitRows<C64f, C64fc>(run, "zelsFFTFwd_CToC_64f", zelsFFTFwd_CToC_64f, zelsFFTFwd_CToC_64fc);
});

// What a plan costs: a call of Init beside one transform, and beside planning by ESTIMATE, which does the same for a user
// of FFTW. What that has learnt is forgotten each time, as by a user who plans an order once.
template <class F, class Function>
void planRows(bench::Run& run, const char* name, Function function)
{
    using E = typename F::E;
    for (int order = 6; order <= 20; order++) {
        const ZelSize length = ZelSize{1} << order;
        Planned<F> own(order);
        const Zeros<E> src(length + 2), dst(length + 2);
        const auto transform =
            bench::peer("one transform", [=, src = src.get(), dst = dst.get(), plan = own.plan,
                                          buffer = own.buffer()] { function(src, dst, plan, buffer); });
        const auto make = [&own, order] { own.make(order); };
#if BENCH_HAS_FFTW && BENCH_HAS_FFTWF
        using T = typename F::T;
        const auto& fftw = bench::Fftw<T>::wide();
        auto* const in = reinterpret_cast<T*>(src.get());
        auto* const out = reinterpret_cast<T*>(dst.get());
        run.row(name, length, {}, make, transform, bench::peer("FFTW, ESTIMATE", [=, &fftw] {
                    fftw.forget();
                    fftw.destroy(planned<F>(fftw, order, in, out, FFTW_ESTIMATE));
                }));
#else
        run.row(name, length, {}, make, transform);
#endif
    }
}

const bench::Family planning("Fourier transforms, plans", [](bench::Run& run) {
    planRows<C32fc>(run, "zelsFFTInit_C_32fc", zelsFFTFwd_CToC_32fc);
    planRows<C64fc>(run, "zelsFFTInit_C_64fc", zelsFFTFwd_CToC_64fc);
    planRows<R32f>(run, "zelsFFTInit_R_32f", zelsFFTFwd_RToPerm_32f);
});

} // namespace
