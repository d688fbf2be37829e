// The forms of the Fourier transform under one roof, and a reference in 80 bits.
#pragma once

#include "support/test.h"

#include <complex>
#include <vector>

using Exact = std::complex<long double>;

/// The unscaled transform of `x`, by the radix-2 recursion in long double. sign -1 is forward.
inline std::vector<Exact> exactTransform(std::vector<Exact> x, int sign)
{
    const std::size_t length = x.size();
    std::vector<Exact> circle(length), y(length);
    for (std::size_t k = 0; k < length; k++) {
        const long double angle = 2 * M_PIl * static_cast<long double>(k) / static_cast<long double>(length);
        circle[k] = {cosl(angle), static_cast<long double>(sign) * sinl(angle)};
    }
    // Stockham's form: transforms of `done` values, `length / done` of them, in turn.
    for (std::size_t done = 1; done < length; done *= 2, x.swap(y)) {
        const std::size_t apart = length / (2 * done);
        for (std::size_t k = 0; k < done; k++) {
            const Exact w = circle[k * apart];
            for (std::size_t j = 0; j < apart; j++) {
                const Exact a = x[k * 2 * apart + j];
                const Exact b = x[k * 2 * apart + apart + j];
                const Exact c(w.real() * b.real() - w.imag() * b.imag(),
                              w.real() * b.imag() + w.imag() * b.real());
                y[k * apart + j] = a + c;
                y[(k + done) * apart + j] = a - c;
            }
        }
    }
    return x;
}

template <class T>
std::vector<std::complex<T>> randomSignal(std::size_t length, const char* what)
{
    Random random(what);
    std::vector<std::complex<T>> x(length);
    fill(random, reinterpret_cast<T*>(x.data()), 2 * length, Fill::ordinary,
         {.low = -1, .high = 1, .only = true});
    return x;
}

template <class T>
std::vector<Exact> widened(const std::vector<std::complex<T>>& x)
{
    return {x.begin(), x.end()};
}

/// What a flag multiplies a direction by.
inline long double scaleOf(int flag, bool inverse, std::size_t length)
{
    const auto n = static_cast<long double>(length);
    return flag == zelFftScaleSqrt                               ? 1 / sqrtl(n)
           : flag == (inverse ? zelFftScaleInv : zelFftScaleFwd) ? 1 / n
                                                                 : 1;
}

/// The error of a result in units of half an epsilon of T: in the mean square, and the greatest one, both of the
/// mean magnitude.
struct Errors {
    long double mean, greatest;
};
template <class T>
Errors errorsOf(const std::vector<std::complex<T>>& result, const std::vector<Exact>& exact,
                long double scale)
{
    long double error = 0, power = 0, greatest = 0;
    for (std::size_t k = 0; k < exact.size(); k++) {
        const long double d = std::norm(Exact(result[k]) - exact[k] * scale);
        error += d;
        power += std::norm(exact[k] * scale);
        greatest = std::max(greatest, d);
    }
    const long double unit = std::numeric_limits<T>::epsilon() / 2;
    return {sqrtl(error / power) / unit,
            sqrtl(greatest * static_cast<long double>(exact.size()) / power) / unit};
}

/// The bounds of errors, in the same units. A rounding is off by 0.425 units in the mean square of random values. A level
/// of radix 2 rounds each value once in the sum, and half of them three times more: in the products, their sum and
/// the twiddle. That makes 2.5 roundings a level, which add in the square: 0.67 sqrt(order). Four levels more are for
/// the scale, which is rounded itself, and for the recombination of real transforms. Of N errors of normal
/// distribution one is greater than mean * sqrt(2 (ln N + 7)) with a chance of exp(-7). That is for real values.
/// Complex errors spread over two parts, which would spare the 2; but they differ from bin to bin, since a bin meets
/// the same twiddles each time: in the mean square by a factor up to 2 (measured at order 14).
inline Errors boundsOf(int order)
{
    const long double mean = 0.67L * sqrtl(static_cast<long double>(order + 4));
    return {mean, mean * sqrtl(2 * (static_cast<long double>(order) * M_LN2l + 7))};
}

#define EXPECT_ACCURATE(errors, order)                                                                       \
    EXPECT_LE((errors).mean, boundsOf(order).mean);                                                          \
    EXPECT_LE((errors).greatest, boundsOf(order).greatest)

inline const std::vector<int> allFlags = {zelFftScaleFwd, zelFftScaleInv, zelFftScaleSqrt, zelFftScaleNone};

/// A form: its element, its plan and its functions.
#define FFT_FORM(NAME, T_, SPLIT, SIZE, INIT)                                                                \
    struct NAME {                                                                                            \
        using T = T_;                                                                                        \
        using Plan = std::remove_pointer_t<                                                                  \
            std::remove_pointer_t<decltype([]<class P>(ZelStatus (*)(P**, int, int, int, Zel8u*, Zel8u*)) {  \
                return (P**)nullptr;                                                                         \
            }(INIT))>>;                                                                                      \
        static constexpr bool split = SPLIT;                                                                 \
        static constexpr auto size = SIZE;                                                                   \
        static constexpr auto init = INIT;                                                                   \
    }
FFT_FORM(C32fc, Zel32f, false, zelsFFTGetSize_C_32fc, zelsFFTInit_C_32fc);
FFT_FORM(C64fc, Zel64f, false, zelsFFTGetSize_C_64fc, zelsFFTInit_C_64fc);
FFT_FORM(C32f, Zel32f, true, zelsFFTGetSize_C_32f, zelsFFTInit_C_32f);
FFT_FORM(C64f, Zel64f, true, zelsFFTGetSize_C_64f, zelsFFTInit_C_64f);
FFT_FORM(R32f, Zel32f, false, zelsFFTGetSize_R_32f, zelsFFTInit_R_32f);
FFT_FORM(R64f, Zel64f, false, zelsFFTGetSize_R_64f, zelsFFTInit_R_64f);

/// A plan in buffers of exactly the sizes that were asked for, between guard pages, the init memory given back. Where a
/// size is 0 the buffer is null.
template <class Form>
class Planned {
  public:
    explicit Planned(int order, int flag = zelFftScaleNone, Placement placement = {})
    {
        int planSize = -1, initSize = -1, workSize = -1;
        EXPECT_EQ(Form::size(order, flag, zelHintNone, &planSize, &initSize, &workSize), zelStatusOk);
        memory.emplace(static_cast<std::size_t>(planSize), placement);
        work.emplace(static_cast<std::size_t>(workSize), placement);
        Guarded<Zel8u> init(static_cast<std::size_t>(initSize), placement);
        EXPECT_EQ(Form::init(&plan, order, flag, zelHintNone, memory->data(),
                             initSize != 0 ? init.data() : nullptr),
                  zelStatusOk);
        EXPECT_TRUE(memory->intact() && init.intact());
    }
    ~Planned() { EXPECT_TRUE(memory->intact() && work->intact()); }
    Zel8u* buffer() { return work->size() != 0 ? work->data() : nullptr; }

    typename Form::Plan* plan = nullptr;

  private:
    std::optional<Guarded<Zel8u>> memory, work;
};

/// One complex transform through a form's functions. `offset` misplaces the arrays by that many bytes.
template <class Form>
std::vector<std::complex<typename Form::T>> run(Planned<Form>& planned, bool inverse, bool inPlace,
                                                const std::vector<std::complex<typename Form::T>>& x,
                                                Placement placement = {})
{
    using T = typename Form::T;
    const std::size_t length = x.size();
    std::vector<std::complex<T>> y(length);
    if constexpr (Form::split) {
        Guarded<T> re(length, placement), im(length, placement), toRe(length, placement),
            toIm(length, placement);
        for (std::size_t k = 0; k < length; k++) {
            re.set(k, x[k].real());
            im.set(k, x[k].imag());
        }
        T *pRe = inPlace ? re.data() : toRe.data(), *pIm = inPlace ? im.data() : toIm.data();
        const auto call = [&](auto forward, auto backward) {
            return (inverse ? backward : forward)(re.data(), im.data(), pRe, pIm, planned.plan,
                                                  planned.buffer());
        };
        if constexpr (sizeof(T) == 4) {
            EXPECT_EQ(call(zelsFFTFwd_CToC_32f, zelsFFTInv_CToC_32f), zelStatusOk);
        } else {
            EXPECT_EQ(call(zelsFFTFwd_CToC_64f, zelsFFTInv_CToC_64f), zelStatusOk);
        }
        EXPECT_TRUE(re.intact() && im.intact() && toRe.intact() && toIm.intact());
        for (std::size_t k = 0; k < length; k++)
            y[k] = inPlace ? std::complex<T>(re[k], im[k]) : std::complex<T>(toRe[k], toIm[k]);
    } else {
        Guarded<std::complex<T>> from(length, placement), to(length, placement);
        std::memcpy(static_cast<void*>(from.data()), x.data(), length * sizeof x[0]);
        const auto call = [&]<class E>(ZelStatus (*forward)(const E*, E*, const typename Form::Plan*, Zel8u*),
                                       decltype(forward) backward) {
            auto* p = reinterpret_cast<E*>(from.data());
            return (inverse ? backward : forward)(p, inPlace ? p : reinterpret_cast<E*>(to.data()),
                                                  planned.plan, planned.buffer());
        };
        if constexpr (sizeof(T) == 4) {
            EXPECT_EQ(call(zelsFFTFwd_CToC_32fc, zelsFFTInv_CToC_32fc), zelStatusOk);
        } else {
            EXPECT_EQ(call(zelsFFTFwd_CToC_64fc, zelsFFTInv_CToC_64fc), zelStatusOk);
        }
        EXPECT_TRUE(from.intact() && to.intact());
        std::memcpy(static_cast<void*>(y.data()), (inPlace ? from : to).data(), length * sizeof y[0]);
        if (!inPlace) {
            EXPECT_EQ(std::memcmp(from.data(), x.data(), length * sizeof x[0]), 0)
                << "the source was written";
        }
    }
    return y;
}
