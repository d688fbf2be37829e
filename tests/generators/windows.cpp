#include "support/test.h"

#include <vector>

namespace {

constexpr long double pi = 3.141592653589793238462643383279502884L;

// Window values by their definitions.

long double bartlett(long long n, long long len)
{
    return static_cast<long double>(2 * std::min(n, len - 1 - n)) / static_cast<long double>(len - 1);
}

/// 1 - cos(2 pi n / (len - 1)), without what a difference would lose at the ends.
long double oneLessCosine(long long n, long long len)
{
    const long double half = std::sin(pi * static_cast<long double>(n) / static_cast<long double>(len - 1));
    return 2 * half * half;
}
long double hann(long long n, long long len)
{
    return 0.5L * oneLessCosine(n, len);
}
long double hamming(long long n, long long len)
{
    return 0.54L - 0.46L + 0.46L * oneLessCosine(n, len);
}
long double blackman(long long n, long long len, long double alpha)
{
    const long double a = 2 * pi * static_cast<long double>(n) / static_cast<long double>(len - 1);
    return (alpha + 1) / 2 - 0.5L * std::cos(a) - alpha / 2 * std::cos(2 * a);
}
long double blackmanStd(long long n, long long len)
{
    return blackman(n, len, -0.16L);
}
long double blackmanOpt(long long n, long long len)
{
    const long double c = 0.5L / std::cos(pi / static_cast<long double>(len - 1));
    return blackman(n, len, -c * c);
}

long double bessel0(long double x)
{
    const long double small[]{0.9999999985L, 4.0000001935L, 3.9999959541L, 1.777809969L,
                              0.4443189384L, 0.0713758187L, 0.0075942968L, 0.0008267816L};
    const long double large[]{0.3989422809L,  0.0124667783L,  0.0017623668L,  0.00026L,      0.0022585672L,
                              -0.0128314822L, 0.0495811118L,  -0.1209940805L, 0.1895476618L, -0.1867783276L,
                              0.1113315511L,  -0.0366694767L, 0.0051246015L};
    const auto sum = [](const auto& c, long double t) {
        long double s = 0;
        for (std::size_t k = std::size(c); k-- > 0;)
            s = s * t + c[k];
        return s;
    };
    x = std::fabs(x);
    return x < 4 ? sum(small, x / 4 * (x / 4)) : std::exp(x) / std::sqrt(x) * sum(large, 4 / x);
}
long double kaiser(long long n, long long len, long double alpha)
{
    const long double m = static_cast<long double>(len - 1) / 2;
    const auto q = static_cast<long double>(n) * static_cast<long double>(len - 1 - n);
    return bessel0(alpha * std::sqrt(q)) / bessel0(alpha * m);
}

/// The error promised of a window value in units of 2^-53: for `relative` times the value, for `absolute` as such.
struct Promise {
    long double relative, absolute;
};

Within windowed(long double x, long double w, Promise promise, auto part)
{
    using P = decltype(part);
    const long double error = std::fabs(x) * 0x1p-53L * (promise.relative * std::fabs(w) + promise.absolute);
    if constexpr (std::is_same_v<P, Zel16s>)
        return {std::clamp(x * w, -32768.0L, 32767.0L), 0.5L + error};
    else
        return {x * w, error + std::fabs(x * w) * (sizeof(P) == 4 ? 0x1p-23L : 0x1p-53L) + 0x1p-1070L};
}

/// Sweeps the out-of-place functions against the definition, and the in-place ones against those, bit for bit.
template <class Definition, class... Out, class... In, class... Alpha>
void check(Definition definition, auto promise, int least, const Exports<Out...>& out,
           const Exports<In...>& in, Alpha... alpha)
{
    const SweepOptions options{.block = 12, .lengths = {257, 1000}, .fills = tameFills, .repeats = 1};
    const auto one = [&]<class T, class... A>(const char*, ZelStatus (*function)(const T*, T*, int, A...),
                                              ZelStatus (*inPlace)(T*, int, A...), std::size_t k) {
        const auto model = [&](const T* pSrc, Within* pDst, ZelSize len, auto... a) -> ZelStatus {
            constexpr int parts = Complex<T> ? 2 : 1;
            const auto* s = reinterpret_cast<const Part<T>*>(pSrc);
            for (ZelSize i = 0; i < parts * len; i++)
                pDst[i] =
                    len < least
                        ? Within{0, INFINITY}
                        : windowed(s[i], definition(std::min(i / parts, len - 1 - i / parts), len, a...),
                                   promise(len), Part<T>{});
            return len < least ? zelErrSize : zelStatusOk;
        };
        sweep(model, makeExports(nameOf(out.names, k), out.file, out.line, *function), options, alpha...);
        const auto same = [&](T* pSrcDst, ZelSize len, auto... a) {
            const std::vector<T> source(pSrcDst, pSrcDst + len);
            return function(source.data(), pSrcDst, static_cast<int>(len), a...);
        };
        sweep(same, makeExports(nameOf(in.names, k), in.file, in.line, *inPlace), options, alpha...);
    };
    [&]<std::size_t... k>(std::index_sequence<k...>)
    {
        (one("", std::get<k>(out.functions), std::get<k>(in.functions), k), ...);
    }
    (std::index_sequence_for<Out...>{});
    badArguments(out, pointersFirst, array(), array(), length(4), value(alpha)...);
    badArguments(in, pointersFirst, array(), length(4), value(alpha)...);
}

constexpr auto promiseCosine = [](ZelSize len) { return Promise{8 + static_cast<long double>(len) / 64, 0}; };
/// The polynomial in 1 - cos passes on up to (1 + 12 |alpha|) times its error.
constexpr Promise promiseOfBlackman(ZelSize len, long double alpha)
{
    return {0, (1 + 12 * (alpha < 0 ? -alpha : alpha)) * (8 + static_cast<long double>(len) / 64)};
}
constexpr auto promiseBlackman = [](ZelSize len) { return promiseOfBlackman(len, 0.25L); };

/// By alpha m.
constexpr Promise promiseKaiser(long double most)
{
    return {16 + 5 * most, 0};
}

} // namespace

TEST(Windows, bartlett)
{
    check(
        bartlett,
        [](ZelSize) {
            return Promise{3, 0};
        },
        3,
        EXPORTS(zelsWinBartlett_16s, zelsWinBartlett_16sc, zelsWinBartlett_32f, zelsWinBartlett_32fc,
                zelsWinBartlett_64f, zelsWinBartlett_64fc),
        EXPORTS(zelsWinBartlett_16s_I, zelsWinBartlett_16sc_I, zelsWinBartlett_32f_I, zelsWinBartlett_32fc_I,
                zelsWinBartlett_64f_I, zelsWinBartlett_64fc_I));
}

TEST(Windows, hann)
{
    check(hann, promiseCosine, 3,
          EXPORTS(zelsWinHann_16s, zelsWinHann_16sc, zelsWinHann_32f, zelsWinHann_32fc, zelsWinHann_64f,
                  zelsWinHann_64fc),
          EXPORTS(zelsWinHann_16s_I, zelsWinHann_16sc_I, zelsWinHann_32f_I, zelsWinHann_32fc_I,
                  zelsWinHann_64f_I, zelsWinHann_64fc_I));
}

TEST(Windows, hamming)
{
    check(hamming, promiseCosine, 3,
          EXPORTS(zelsWinHamming_16s, zelsWinHamming_16sc, zelsWinHamming_32f, zelsWinHamming_32fc,
                  zelsWinHamming_64f, zelsWinHamming_64fc),
          EXPORTS(zelsWinHamming_16s_I, zelsWinHamming_16sc_I, zelsWinHamming_32f_I, zelsWinHamming_32fc_I,
                  zelsWinHamming_64f_I, zelsWinHamming_64fc_I));
}

TEST(Windows, blackmanWithAParameter)
{
    // The second one overdraws: 16-bit products saturate.
    for (const float alpha : {-0.25f, 5.5f})
        check(
            blackman, [&](ZelSize len) { return promiseOfBlackman(len, alpha); }, 3,
            EXPORTS(zelsWinBlackman_16s, zelsWinBlackman_16sc, zelsWinBlackman_32f, zelsWinBlackman_32fc,
                    zelsWinBlackman_64f, zelsWinBlackman_64fc),
            EXPORTS(zelsWinBlackman_16s_I, zelsWinBlackman_16sc_I, zelsWinBlackman_32f_I,
                    zelsWinBlackman_32fc_I, zelsWinBlackman_64f_I, zelsWinBlackman_64fc_I),
            alpha);
}

TEST(Windows, blackmanWithoutOne)
{
    check(blackmanStd, promiseBlackman, 3,
          EXPORTS(zelsWinBlackmanStd_16s, zelsWinBlackmanStd_16sc, zelsWinBlackmanStd_32f,
                  zelsWinBlackmanStd_32fc, zelsWinBlackmanStd_64f, zelsWinBlackmanStd_64fc),
          EXPORTS(zelsWinBlackmanStd_16s_I, zelsWinBlackmanStd_16sc_I, zelsWinBlackmanStd_32f_I,
                  zelsWinBlackmanStd_32fc_I, zelsWinBlackmanStd_64f_I, zelsWinBlackmanStd_64fc_I));
    check(blackmanOpt, promiseBlackman, 4,
          EXPORTS(zelsWinBlackmanOpt_16s, zelsWinBlackmanOpt_16sc, zelsWinBlackmanOpt_32f,
                  zelsWinBlackmanOpt_32fc, zelsWinBlackmanOpt_64f, zelsWinBlackmanOpt_64fc),
          EXPORTS(zelsWinBlackmanOpt_16s_I, zelsWinBlackmanOpt_16sc_I, zelsWinBlackmanOpt_32f_I,
                  zelsWinBlackmanOpt_32fc_I, zelsWinBlackmanOpt_64f_I, zelsWinBlackmanOpt_64fc_I));
}

TEST(Windows, kaiser)
{
    // Alpha times half the length from below 4, where the polynomials meet, to nearly the limit of the type.
    for (const float alpha : {0.0f, 0.013f, -0.07f})
        check(
            kaiser,
            [&](ZelSize len) {
                return Promise{
                    20 + 2 * static_cast<long double>(std::fabs(alpha)) * static_cast<long double>(len), 0};
            },
            1,
            EXPORTS(zelsWinKaiser_16s, zelsWinKaiser_16sc, zelsWinKaiser_32f, zelsWinKaiser_32fc,
                    zelsWinKaiser_64f, zelsWinKaiser_64fc),
            EXPORTS(zelsWinKaiser_16s_I, zelsWinKaiser_16sc_I, zelsWinKaiser_32f_I, zelsWinKaiser_32fc_I,
                    zelsWinKaiser_64f_I, zelsWinKaiser_64fc_I),
            alpha);
}

TEST(Windows, refuseAKaiserParameterBeyondTheTypesExponents)
{
    std::vector<Zel32f> x(77, 1), y = x;
    std::vector<Zel64f> z(78, 1);
    std::vector<Zel16s> s(78, 9);
    EXPECT_EQ(zelsWinKaiser_32f_I(x.data(), 78, 1), zelErrKaiserAlpha);
    EXPECT_EQ(zelsWinKaiser_32f_I(x.data(), 78, -1), zelErrKaiserAlpha);
    EXPECT_EQ(x, y);
    EXPECT_EQ(zelsWinKaiser_32f_I(x.data(), 77, 1), zelStatusOk); // the limit itself
    EXPECT_EQ(zelsWinKaiser_64f_I(z.data(), 78, 1), zelStatusOk);
    EXPECT_EQ(zelsWinKaiser_16s_I(s.data(), 78, 8), zelStatusOk);
    for (const double alpha : {8.0001, -8.0001, 1e300, static_cast<double>(INFINITY)})
        EXPECT_EQ(zelsWinKaiser_64f_I(z.data(), 78, alpha), zelErrKaiserAlpha);
    EXPECT_EQ(zelsWinKaiser_16s_I(s.data(), 78, 8.0001f), zelErrKaiserAlpha);
    // One element is copied whatever the parameter.
    z[0] = 7;
    EXPECT_EQ(zelsWinKaiser_64f_I(z.data(), 1, 1e300), zelStatusOk);
    EXPECT_EQ(z[0], 7);
}

TEST(Windows, writeTheShortestOnes)
{
    const float source[]{NAN, 7, -5};
    float result[3];
    for (const auto function : {zelsWinBartlett_32f, zelsWinBlackmanStd_32f}) {
        EXPECT_EQ(function(source, result, 3), zelStatusOk);
        EXPECT_EQ(std::vector<float>(result, result + 3), (std::vector<float>{0, 7, 0}));
        EXPECT_FALSE(std::signbit(result[2]));
    }
    double hammed[]{1, 1, 1};
    EXPECT_EQ(zelsWinHamming_64f_I(hammed, 3), zelStatusOk);
    EXPECT_EQ(std::vector<double>(hammed, hammed + 3), (std::vector<double>{0.08, 1, 0.08}));
    float five[]{1, 1, 1, 1, 1};
    EXPECT_EQ(zelsWinHann_32f_I(five, 5), zelStatusOk);
    EXPECT_EQ(std::vector<float>(five, five + 5), (std::vector<float>{0, 0.5f, 1, 0.5f, 0}));
}

TEST(Windows, areSymmetricAndKeepTheirPromiseWhenLong)
{
    using Window = ZelStatus (*)(const Zel64f*, Zel64f*, int);
    struct Row {
        Window window;
        long double (*definition)(long long, long long);
        Promise (*promise)(ZelSize len);
    };
    const Row rows[]{
        {zelsWinBartlett_64f, bartlett,
         [](ZelSize) {
             return Promise{2, 0};
         }},
        {zelsWinHann_64f, hann, promiseCosine},
        {zelsWinHamming_64f, hamming, promiseCosine},
        {zelsWinBlackmanStd_64f, blackmanStd, promiseBlackman},
        {zelsWinBlackmanOpt_64f, blackmanOpt, promiseBlackman},
        {[](const Zel64f* s, Zel64f* d, int n) { return zelsWinKaiser_64f(s, d, n, 40.0 / n); },
         [](long long n, long long len) { return kaiser(n, len, 40.0 / static_cast<double>(len)); },
         [](ZelSize) { return promiseKaiser(20); }},
    };
    for (const int len : {4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 16, 17, 31, 100, 65536, 1000001})
        for (const Row& row : rows) {
            std::vector<Zel64f> ones(static_cast<std::size_t>(len), 1), w = ones;
            EXPECT_EQ(row.window(ones.data(), w.data(), len), zelStatusOk);
            const std::vector<Zel64f> mirrored(w.rbegin(), w.rend());
            EXPECT_EQ(std::memcmp(w.data(), mirrored.data(), w.size() * sizeof w[0]), 0);
            const Promise promise = row.promise(len);
            long double worst = 0;
            for (int n = 0; n < (len + 1) / 2; n += n < 1000 || n > len / 2 - 50 ? 1 : 449) {
                const long double exact = row.definition(n, len);
                const long double bound = 0x1p-53L * (promise.relative * std::fabs(exact) + promise.absolute);
                const long double error = std::fabs(w[static_cast<std::size_t>(n)] - exact);
                worst = std::max(worst, error == 0 ? 0 : error / bound);
            }
            EXPECT_LE(worst, 1) << "row " << &row - rows << ", length " << len;
        }
}
