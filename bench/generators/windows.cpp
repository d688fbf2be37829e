// Window functions.
#include "support/bench.h"
#include "zels.h"

#include <cmath>
#include <type_traits>

namespace {

constexpr double pi = 3.141592653589793;
constexpr double beta = 8; // of the Kaiser window, at the middle

// A value of each window by its definition: F is the type that the caller of such a loop would compute in.

constexpr auto bartlett = []<class F>(F n, F last) { return 1 - std::fabs(2 * n / last - 1); };
constexpr auto hann = []<class F>(F n, F last) { return F(0.5) - F(0.5) * std::cos(F(2 * pi) * n / last); };
constexpr auto hamming = []<class F>(F n, F last) {
    return F(0.54) - F(0.46) * std::cos(F(2 * pi) * n / last);
};
constexpr auto blackman = []<class F>(F n, F last) {
    return F(0.42) - F(0.5) * std::cos(F(2 * pi) * n / last) + F(0.08) * std::cos(F(4 * pi) * n / last);
};

template <class F>
F bessel0(F x)
{
    if (x < 4) {
        const F t = x / 4 * (x / 4);
        return F(0.9999999985) +
               t * (F(4.0000001935) +
                    t * (F(3.9999959541) +
                         t * (F(1.777809969) +
                              t * (F(0.4443189384) +
                                   t * (F(0.0713758187) + t * (F(0.0075942968) + t * F(0.0008267816)))))));
    }
    constexpr double c[]{0.3989422809,  0.0124667783,  0.0017623668,  0.00026,      0.0022585672,
                         -0.0128314822, 0.0495811118,  -0.1209940805, 0.1895476618, -0.1867783276,
                         0.1113315511,  -0.0366694767, 0.0051246015};
    const F t = 4 / x;
    F sum = 0;
    for (int k = 12; k >= 0; k--)
        sum = sum * t + F(c[k]);
    return std::exp(x) / std::sqrt(x) * sum;
}
constexpr auto kaiser = []<class F>(F n, F last) {
    static const F whole = bessel0(F(beta));
    const F m = last / 2;
    return bessel0(F(beta) / m * std::sqrt(m * m - (n - m) * (n - m))) / whole;
};

template <auto window, class T>
BENCH_PLAIN void definition(const T* s, T* d, int n)
{
    using P = typename bench::PartOf<T>::Type;
    using F = std::conditional_t<std::is_same_v<P, Zel64f>, double, float>;
    const F last = static_cast<F>(n - 1);
    const auto product = [](P x, F w) {
        if constexpr (std::is_integral_v<P>)
            return static_cast<P>(std::lrint(static_cast<F>(x) * w));
        else
            return x * w;
    };
    for (int i = 0; i < n; i++) {
        const F w = window(static_cast<F>(i), last);
        if constexpr (std::is_same_v<P, T>)
            d[i] = product(s[i], w);
        else
            d[i] = {product(s[i].re, w), product(s[i].im, w)};
    }
}

const bench::Family family("Window functions", [](bench::Run& run) {
    run.lengths({16, 64, 256, 1024, 16384});
    const auto rows = [&]<class T>(const char* name, auto zels, auto peer) {
        for (const ZelSize n : run.lengths()) {
            const bench::Array<T> source(n), destination(n);
            const T* const s = source;
            T* const d = destination;
            const int len = static_cast<int>(n);
            run.row(
                name, n, {.bytes = 2 * sizeof(T)}, [=] { zels(s, d, len); },
                bench::peer("definition with libm", [=] { peer(s, d, len); }));
        }
    };
    rows.operator()<Zel64f>("zelsWinBartlett_64f", zelsWinBartlett_64f, definition<bartlett, Zel64f>);
    rows.operator()<Zel16s>("zelsWinHann_16s", zelsWinHann_16s, definition<hann, Zel16s>);
    rows.operator()<Zel16sc>("zelsWinHann_16sc", zelsWinHann_16sc, definition<hann, Zel16sc>);
    rows.operator()<Zel32f>("zelsWinHann_32f", zelsWinHann_32f, definition<hann, Zel32f>);
    rows.operator()<Zel32fc>("zelsWinHann_32fc", zelsWinHann_32fc, definition<hann, Zel32fc>);
    rows.operator()<Zel64f>("zelsWinHann_64f", zelsWinHann_64f, definition<hann, Zel64f>);
    rows.operator()<Zel64fc>("zelsWinHann_64fc", zelsWinHann_64fc, definition<hann, Zel64fc>);
    rows.operator()<Zel32f>("zelsWinHamming_32f", zelsWinHamming_32f, definition<hamming, Zel32f>);
    rows.operator()<Zel32f>("zelsWinBlackmanStd_32f", zelsWinBlackmanStd_32f, definition<blackman, Zel32f>);
    rows.operator()<Zel64f>("zelsWinBlackmanStd_64f", zelsWinBlackmanStd_64f, definition<blackman, Zel64f>);
    rows.operator()<Zel32f>(
        "zelsWinKaiser_32f",
        [](const Zel32f* s, Zel32f* d, int n) {
            return zelsWinKaiser_32f(s, d, n, static_cast<float>(2 * beta / (n - 1)));
        },
        definition<kaiser, Zel32f>);
    rows.operator()<Zel64f>(
        "zelsWinKaiser_64f",
        [](const Zel64f* s, Zel64f* d, int n) { return zelsWinKaiser_64f(s, d, n, 2 * beta / (n - 1)); },
        definition<kaiser, Zel64f>);
});

} // namespace
