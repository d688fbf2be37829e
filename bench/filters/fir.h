// Single-rate filters ready to run, and plain loops of the same work.
#pragma once

#include "support/plain.h"
#include "zels.h"

#include <string>
#include <type_traits>

namespace bench {

/// A filter with taps, record, work buffer and delay line.
template <class Data, class Taps = Data>
class Filter {
  public:
    template <class Sizes, class Init>
    Filter(int n, ZelAlgType engine, Sizes sizes, Init init) : taps(n), delay(n), count(n)
    {
        int specSize = 0, bufSize = 0;
        sizes(n, &specSize, &bufSize);
        spec = new Array<Zel8u>(specSize);
        buffer = new Array<Zel8u>(bufSize);
        init(taps.get(), n, engine, record());
    }
    Filter(const Filter&) = delete;
    Filter& operator=(const Filter&) = delete;
    ~Filter()
    {
        delete spec;
        delete buffer;
    }
    ZelsFirSrState* record() const { return reinterpret_cast<ZelsFirSrState*>(spec->get()); }

    template <class Run, class S>
    auto call(Run run, const S* pSrc, S* pDst, ZelSize length) const
    {
        auto* const pDelay = reinterpret_cast<S*>(delay.get());
        return [=, pSpec = record(), pBuf = buffer->get()] {
            run(pSrc, pDst, static_cast<int>(length), pSpec, pDelay, pDelay, pBuf);
        };
    }

    Array<Taps> taps;
    Array<Data> delay;
    int count;

  private:
    Array<Zel8u>*spec = nullptr, *buffer = nullptr;
};

/// y[i] = sum over k of t[k] * x[i - k], the taps outside: what the compiler vectorises. x has its history in front.
template <class T, class D>
BENCH_PLAIN void firTapsOutside(const D* x, D* y, int length, const T* t, int n)
{
    if constexpr (Complex<T>) {
        for (int i = 0; i < length; i++)
            y[i] = {t[0].re * x[i].re - t[0].im * x[i].im, t[0].re * x[i].im + t[0].im * x[i].re};
        for (int k = 1; k < n; k++)
            for (int i = 0; i < length; i++) {
                y[i].re += t[k].re * x[i - k].re - t[k].im * x[i - k].im;
                y[i].im += t[k].re * x[i - k].im + t[k].im * x[i - k].re;
            }
    } else if constexpr (Complex<D>) {
        for (int i = 0; i < length; i++)
            y[i] = {t[0] * x[i].re, t[0] * x[i].im};
        for (int k = 1; k < n; k++)
            for (int i = 0; i < length; i++) {
                y[i].re += t[k] * x[i - k].re;
                y[i].im += t[k] * x[i - k].im;
            }
    } else {
        for (int i = 0; i < length; i++)
            y[i] = t[0] * x[i];
        for (int k = 1; k < n; k++)
            for (int i = 0; i < length; i++)
                y[i] += t[k] * x[i - k];
    }
}

/// The same, an output at a time.
template <class T>
BENCH_PLAIN void firInnerProduct(const T* x, T* y, int length, const T* t, int n)
{
    for (int i = 0; i < length; i++) {
        T total = 0;
        for (int k = 0; k < n; k++)
            total += t[k] * x[i - k];
        y[i] = total;
    }
}

/// So many multiplications and additions of 128-bit vectors as fast as the processor can do them, on registers alone. A
/// filter has an addition less for each output, and so can come out a little above.
template <class T>
BENCH_PLAIN void multiplyAdds(ZelSize pairs)
{
#define BENCH_PAIR(MUL, ADD, a, b) MUL " %%xmm7, %%xmm" #a "\n\t" ADD " %%xmm7, %%xmm" #b "\n\t"
#define BENCH_SEVEN(MUL, ADD)                                                                                \
    BENCH_PAIR(MUL, ADD, 0, 8)                                                                               \
    BENCH_PAIR(MUL, ADD, 1, 9)                                                                               \
    BENCH_PAIR(MUL, ADD, 2, 10)                                                                              \
    BENCH_PAIR(MUL, ADD, 3, 11)                                                                              \
    BENCH_PAIR(MUL, ADD, 4, 12) BENCH_PAIR(MUL, ADD, 5, 13) BENCH_PAIR(MUL, ADD, 6, 14)
    asm volatile("" ::
                     : "xmm0", "xmm1", "xmm2", "xmm3", "xmm4", "xmm5", "xmm6", "xmm7", "xmm8", "xmm9",
                       "xmm10", "xmm11", "xmm12", "xmm13", "xmm14");
    asm volatile("xorps %%xmm0, %%xmm0; xorps %%xmm1, %%xmm1; xorps %%xmm2, %%xmm2; xorps %%xmm3, %%xmm3;"
                 "xorps %%xmm4, %%xmm4; xorps %%xmm5, %%xmm5; xorps %%xmm6, %%xmm6; xorps %%xmm7, %%xmm7;"
                 "xorps %%xmm8, %%xmm8; xorps %%xmm9, %%xmm9; xorps %%xmm10, %%xmm10; xorps %%xmm11, %%xmm11;"
                 "xorps %%xmm12, %%xmm12; xorps %%xmm13, %%xmm13; xorps %%xmm14, %%xmm14" ::
                     : "xmm0", "xmm1", "xmm2", "xmm3", "xmm4", "xmm5", "xmm6", "xmm7", "xmm8", "xmm9",
                       "xmm10", "xmm11", "xmm12", "xmm13", "xmm14");
    for (; pairs > 0; pairs -= 14) {
        if constexpr (sizeof(T) == 4)
            asm volatile(BENCH_SEVEN("mulps", "addps") BENCH_SEVEN("mulps", "addps")::
                             : "xmm0", "xmm1", "xmm2", "xmm3", "xmm4", "xmm5", "xmm6", "xmm8", "xmm9",
                               "xmm10", "xmm11", "xmm12", "xmm13", "xmm14");
        else
            asm volatile(BENCH_SEVEN("mulpd", "addpd") BENCH_SEVEN("mulpd", "addpd")::
                             : "xmm0", "xmm1", "xmm2", "xmm3", "xmm4", "xmm5", "xmm6", "xmm8", "xmm9",
                               "xmm10", "xmm11", "xmm12", "xmm13", "xmm14");
    }
#undef BENCH_PAIR
#undef BENCH_SEVEN
}

} // namespace bench
