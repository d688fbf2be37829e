// Quotients: floats by estimates, integers rounded once.
#include "support/plain.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <smmintrin.h>

namespace {

/// The quotient of integers by its definition: N / D to nearest, ties to even, zero divisors apart.
template <class W, class T>
T rounded(W n, W d)
{
    using Limits = std::numeric_limits<T>;
    if (d == 0)
        return n == 0 ? T{0} : n > 0 ? Limits::max() : Limits::min();
    W q = n / d;
    const W twice = 2 * std::abs(n % d);
    const W divisor = std::abs(d);
    if (twice > divisor || (twice == divisor && (q & 1) != 0))
        q += (n < 0) == (d < 0) ? 1 : -1;
    return static_cast<T>(std::clamp<W>(q, Limits::min(), Limits::max()));
}
template <class W, class T>
BENCH_PLAIN void plain(const T* a, const T* b, T* d, int n, int s)
{
    for (int i = 0; i < n; i++)
        d[i] = s >= 0 ? rounded<W, T>(b[i], static_cast<W>(a[i]) << s)
                      : rounded<W, T>(static_cast<W>(b[i]) << -s, a[i]);
}
template <class W, class T>
BENCH_PLAIN void plainC(const T* x, T val, T* d, int n, int s)
{
    for (int i = 0; i < n; i++)
        d[i] = s >= 0 ? rounded<W, T>(x[i], static_cast<W>(val) << s)
                      : rounded<W, T>(static_cast<W>(x[i]) << -s, val);
}

BENCH_PLAIN void sseDivide(const Zel32f* a, const Zel32f* b, Zel32f* d, int n)
{
    int i = 0;
    for (; i + 4 <= n; i += 4)
        _mm_storeu_ps(d + i, _mm_div_ps(_mm_loadu_ps(b + i), _mm_loadu_ps(a + i)));
    for (; i < n; i++)
        d[i] = b[i] / a[i];
}

constexpr auto quotient = [](auto a, auto b) { return b / a; };
constexpr auto quotientC = [](auto x, auto val) { return x / val; };
constexpr auto quotientRev = [](auto x, auto val) { return val / x; };

BENCH_PLAIN void plainComplex(const Zel32fc* a, const Zel32fc* b, Zel32fc* d, int n)
{
    for (int i = 0; i < n; i++) {
        const Zel32fc x = a[i], y = b[i];
        const Zel32f sum = x.re * x.re + x.im * x.im;
        d[i] = {(y.re * x.re + y.im * x.im) / sum, (y.im * x.re - y.re * x.im) / sum};
    }
}

const bench::Family floats("Quotients of floats", [](bench::Run& run) {
    run.map("zelsDiv_32f", zelsDiv_32f, bench::peer("loop of divps", sseDivide),
            bench::loop(bench::plain<quotient, Zel32f, Zel32f, Zel32f>));
    run.map("zelsDivCRev_32f", zelsDivCRev_32f,
            bench::loop(bench::plainWith<quotientRev, Zel32f, Zel32f, Zel32f>));
    run.map("zelsDivC_32f", zelsDivC_32f, bench::loop(bench::plainWith<quotientC, Zel32f, Zel32f, Zel32f>));
    run.map("zelsDiv_64f", zelsDiv_64f, bench::loop(bench::plain<quotient, Zel64f, Zel64f, Zel64f>));
    run.map("zelsDiv_32fc", zelsDiv_32fc, bench::loop(plainComplex));
});

const bench::Family integers("Quotients of integers", [](bench::Run& run) {
    const auto row = [&]<auto zels, class W, class T>(const char* name, int s)
    {
        run.map(
            name, [=](const T* a, const T* b, T* d, int n) { zels(a, b, d, n, s); },
            bench::loop([=](const T* a, const T* b, T* d, int n) { plain<W, T>(a, b, d, n, s); }));
    };
    row.operator()<zelsDiv_8u_Sfs, int, Zel8u>("zelsDiv_8u_Sfs", 0);
    row.operator()<zelsDiv_16s_Sfs, int, Zel16s>("zelsDiv_16s_Sfs", 0);
    row.operator()<zelsDiv_16s_Sfs, int, Zel16s>("zelsDiv_16s_Sfs, factor -15", -15);
    row.operator()<zelsDiv_16u_Sfs, int, Zel16u>("zelsDiv_16u_Sfs", 0);
    row.operator()<zelsDiv_32s_Sfs, Zel64s, Zel32s>("zelsDiv_32s_Sfs", 0);
    row.operator()<zelsDiv_32s_Sfs, Zel64s, Zel32s>("zelsDiv_32s_Sfs, factor -16", -16);
    row.operator()<zelsDiv_32s_Sfs, Zel64s, Zel32s>("zelsDiv_32s_Sfs, factor -31", -31);
    const auto rowC = [&]<auto zels, class W, class T>(const char* name, int s)
    {
        run.map(
            name, [=](const T* x, T val, T* d, int n) { zels(x, val, d, n, s); },
            bench::loop([=](const T* x, T val, T* d, int n) { plainC<W, T>(x, val, d, n, s); }));
    };
    rowC.operator()<zelsDivC_8u_Sfs, int, Zel8u>("zelsDivC_8u_Sfs", 0);
    rowC.operator()<zelsDivC_16s_Sfs, int, Zel16s>("zelsDivC_16s_Sfs", 0);
});

} // namespace
