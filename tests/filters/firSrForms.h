// The forms of the single-rate FIR filter under one roof, and a reference in 80 bits.
#pragma once

#include "support/test.h"

#include <complex>
#include <vector>

using Exact = std::complex<long double>;

template <class T>
Exact exactly(T x)
{
    if constexpr (Complex<T>)
        return {static_cast<long double>(x.re), static_cast<long double>(x.im)};
    else
        return x;
}

/// A form: samples, taps, the samples that its record is made for, and its functions.
#define FIR_FORM(NAME, DATA, TAPS, RECORD, INIT, RUN, ...)                                                   \
    struct NAME {                                                                                            \
        using Data = DATA;                                                                                   \
        using Taps = TAPS;                                                                                   \
        using Record = RECORD;                                                                               \
        static constexpr const char* name = #RUN;                                                            \
        static constexpr auto init = INIT;                                                                   \
        static constexpr auto run = RUN;                                                                     \
        static ZelStatus sizes(int n, int* pSpec, int* pBuf) { return __VA_ARGS__; }                         \
    }
FIR_FORM(F32f, Zel32f, Zel32f, Zel32f, zelsFIRSRInit_32f, zelsFIRSR_32f,
         zelsFIRSRGetSize(n, zelDt32f, pSpec, pBuf));
FIR_FORM(F64f, Zel64f, Zel64f, Zel64f, zelsFIRSRInit_64f, zelsFIRSR_64f,
         zelsFIRSRGetSize(n, zelDt64f, pSpec, pBuf));
FIR_FORM(F32fc, Zel32fc, Zel32fc, Zel32fc, zelsFIRSRInit_32fc, zelsFIRSR_32fc,
         zelsFIRSRGetSize(n, zelDt32fc, pSpec, pBuf));
FIR_FORM(F64fc, Zel64fc, Zel64fc, Zel64fc, zelsFIRSRInit_64fc, zelsFIRSR_64fc,
         zelsFIRSRGetSize(n, zelDt64fc, pSpec, pBuf));
FIR_FORM(Mixed, Zel32fc, Zel32f, Zel32fc, zelsFIRSRInit32f_32fc, zelsFIRSR32f_32fc,
         zelsFIRSRGetSize32f_32fc(n, pSpec, pBuf));
FIR_FORM(F16s, Zel16s, Zel32f, Zel32f, zelsFIRSRInit_32f, zelsFIRSR_16s,
         zelsFIRSRGetSize(n, zelDt32f, pSpec, pBuf));
FIR_FORM(F16sc, Zel16sc, Zel32fc, Zel32fc, zelsFIRSRInit_32fc, zelsFIRSR_16sc,
         zelsFIRSRGetSize(n, zelDt32fc, pSpec, pBuf));

/// Where a form changes from the direct to the FFT engine, by taps and by samples.
template <class Form>
struct Thresholds {
    static constexpr int taps = std::is_same_v<Form, F32f> || std::is_same_v<Form, Mixed> ? 64
                                : std::is_same_v<Form, F64f>                              ? 38
                                                                                          : 18;
    static constexpr int samples = Complex<typename Form::Data> ? 256 : 128;
};

template <class T>
std::vector<T> randomSamples(std::size_t count, const char* what)
{
    Random random(what);
    std::vector<T> x(count);
    if constexpr (std::is_floating_point_v<Part<T>>)
        fill(random, x.data(), count, Fill::ordinary, {.low = -1, .high = 1, .only = true});
    else
        fill(random, x.data(), count);
    return x;
}

/// A record in memory of exactly the size asked for, between guard pages, made from taps that are gone afterwards.
template <class Form>
class Filter {
  public:
    using Data = typename Form::Data;
    using Taps = typename Form::Taps;

    explicit Filter(const std::vector<Taps>& taps, ZelAlgType engine = zelAlgAuto, Placement placement = {})
        : n(static_cast<int>(taps.size())), place(placement)
    {
        int specSize = -1;
        EXPECT_EQ(Form::sizes(n, &specSize, &bufSize), zelStatusOk);
        memory.emplace(static_cast<std::size_t>(specSize), placement);
        Guarded<Taps> given(taps.size(), placement);
        std::memcpy(static_cast<void*>(given.data()), taps.data(), taps.size() * sizeof(Taps));
        EXPECT_EQ(Form::init(given.data(), n, engine, record()), zelStatusOk);
        EXPECT_TRUE(memory->intact());
        made.assign(memory->data(), memory->data() + specSize);
    }
    ~Filter()
    {
        EXPECT_TRUE(memory->intact());
        EXPECT_EQ(std::memcmp(memory->data(), made.data(), made.size()), 0) << "a run wrote to the record";
    }
    ZelsFirSrState* record() { return reinterpret_cast<ZelsFirSrState*>(memory->data()); }
    std::size_t history() const { return static_cast<std::size_t>(n - 1); }

    /// A call on guarded copies of samples and history. `history` is replaced by the one delivered.
    std::vector<Data> run(const std::vector<Data>& x, std::vector<Data>& history)
    {
        const auto guarded = [&](const std::vector<Data>& v) {
            auto array = std::make_unique<Guarded<Data>>(v.size(), place);
            if (!v.empty())
                std::memcpy(static_cast<void*>(array->data()), v.data(), v.size() * sizeof(Data));
            return array;
        };
        const auto src = guarded(x), dst = guarded(x), before = guarded(history), after = guarded(history);
        Guarded<Zel8u> buffer(static_cast<std::size_t>(bufSize), place);
        std::memset(buffer.data(), 0xFF, buffer.size()); // not numbers, as floats
        EXPECT_EQ(Form::run(src->data(), dst->data(), static_cast<int>(x.size()), record(), before->data(),
                            after->data(), buffer.data()),
                  zelStatusOk);
        EXPECT_TRUE(src->intact() && dst->intact() && before->intact() && after->intact() && buffer.intact());
        EXPECT_EQ(std::memcmp(src->data(), x.data(), x.size() * sizeof(Data)), 0);
        std::vector<Data> y(x.size());
        std::memcpy(static_cast<void*>(y.data()), dst->data(), y.size() * sizeof(Data));
        if (!history.empty()) {
            EXPECT_EQ(std::memcmp(before->data(), history.data(), history.size() * sizeof(Data)), 0);
            std::memcpy(static_cast<void*>(history.data()), after->data(), history.size() * sizeof(Data));
        }
        return y;
    }

    int n;
    int bufSize = -1;

  private:
    Placement place;
    std::optional<Guarded<Zel8u>> memory;
    std::vector<Zel8u> made;
};

/// The filter's definition, and the sum of the magnitudes of an output's terms.
struct Output {
    Exact value;
    long double magnitudes;
};
template <class Data, class Taps>
std::vector<Output> exactOutputs(const std::vector<Data>& history, const std::vector<Data>& x,
                                 const std::vector<Taps>& taps)
{
    struct Term {
        Exact value;
        long double magnitude;
    };
    std::vector<Term> all, t;
    const auto add = [](std::vector<Term>& terms, const auto& values) {
        for (const auto& value : values)
            terms.push_back({exactly(value), std::abs(exactly(value))});
    };
    add(all, history);
    add(all, x);
    add(t, taps);
    std::vector<Output> y(x.size());
    for (std::size_t m = 0; m < x.size(); m++) {
        long double re = 0, im = 0;
        for (std::size_t k = 0; k < t.size(); k++) {
            const Term &a = t[k], &b = all[m + history.size() - k];
            re += a.value.real() * b.value.real() - a.value.imag() * b.value.imag();
            im += a.value.real() * b.value.imag() + a.value.imag() * b.value.real();
            y[m].magnitudes += a.magnitude * b.magnitude;
        }
        y[m].value = {re, im};
    }
    return y;
}

/// What a history is after some samples.
template <class Data>
std::vector<Data> nextHistory(std::vector<Data> history, const std::vector<Data>& x)
{
    const std::size_t h = history.size();
    history.insert(history.end(), x.begin(), x.end());
    return {history.end() - static_cast<std::ptrdiff_t>(h), history.end()};
}

template <class T>
bool sameBits(const std::vector<T>& a, const std::vector<T>& b)
{
    return a.size() == b.size() && (a.empty() || std::memcmp(a.data(), b.data(), a.size() * sizeof(T)) == 0);
}
