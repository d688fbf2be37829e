// Standard deviations: the running sums replayed, the 16-bit sums exactly.
#include "stats/orders.h"

namespace {

using support::Wide;

struct Moments {
    double sum = 0;
    double squares = 0;
};

/// Lanes of sums and of squares, in the type that they are kept in.
template <class T, int lanes>
struct Lanes {
    T sum[lanes] = {};
    T squares[lanes] = {};
    void take(int lane, T x)
    {
        sum[lane] += x;
        squares[lane] += x * x;
    }
    /// Lane k and lane k + n become one.
    void fold(int n)
    {
        for (int k = 0; k < n; k++) {
            sum[k] += sum[k + n];
            squares[k] += squares[k + n];
        }
    }
};

Moments accurate(const float* x, ZelSize n)
{
    Lanes<double, 4> a;
    ZelSize i = 0;
    if (behind(0, 8) == 4)
        a.take(0, static_cast<double>(x[i++]));
    for (; n - i >= 4; i += 4)
        for (int k = 0; k < 4; k++)
            a.take(k, static_cast<double>(x[i + k]));
    for (; n - i >= 2; i += 2)
        for (int k = 0; k < 2; k++)
            a.take(k, static_cast<double>(x[i + k]));
    if (i < n)
        a.take(0, static_cast<double>(x[i]));
    a.fold(2);
    a.fold(1);
    return {a.sum[0], a.squares[0]};
}

Moments fast(const float* x, ZelSize n)
{
    Lanes<double, 2> total;
    const ZelSize before = behind(0, 4) != 0 ? n : std::min(n, elementsBefore16(0, 4));
    for (ZelSize i = 0; i < before; i++)
        total.take(0, static_cast<double>(x[i]));
    for (ZelSize from = before; from < n; from += 1024) {
        Lanes<float, 8> b;
        const ZelSize count = std::min<ZelSize>(1024, n - from);
        for (ZelSize i = 0; i < count / 8 * 8; i++)
            b.take(static_cast<int>(i % 8), x[from + i]);
        b.fold(4);
        b.fold(2);
        for (int k = 0; k < 2; k++) {
            total.sum[k] += static_cast<double>(b.sum[k]);
            total.squares[k] += static_cast<double>(b.squares[k]);
        }
        for (ZelSize i = count / 8 * 8; i < count; i++)
            total.take(0, static_cast<double>(x[from + i]));
    }
    total.fold(1);
    return {total.sum[0], total.squares[0]};
}

Moments doubles(const double* x, ZelSize n)
{
    Lanes<double, 8> a;
    ZelSize i = 0;
    for (; n - i >= 8; i += 8)
        for (int k = 0; k < 8; k++)
            a.take(k, x[i + k]);
    for (int k = 0; k < 2; k++) {
        a.sum[k] = (a.sum[k] + a.sum[2 + k]) + (a.sum[4 + k] + a.sum[6 + k]);
        a.squares[k] = (a.squares[k] + a.squares[2 + k]) + (a.squares[4 + k] + a.squares[6 + k]);
    }
    for (; n - i >= 2; i += 2)
        for (int k = 0; k < 2; k++)
            a.take(k, x[i + k]);
    if (i < n)
        a.take(0, x[i]);
    a.fold(1);
    return {a.sum[0], a.squares[0]};
}

Moments exact(const Zel16s* x, ZelSize n)
{
    Zel64s sum = 0;
    Zel64s squares = 0;
    for (ZelSize i = 0; i < n; i++) {
        sum += x[i];
        squares += Zel64s{x[i]} * x[i];
    }
    return {static_cast<double>(sum), static_cast<double>(squares)};
}

double deviation(const Moments& m, ZelSize len)
{
    const double n = static_cast<double>(len);
    const double numerator = n * m.squares - m.sum * m.sum;
    // A NaN numerator counts as 0.
    return std::sqrt((numerator > 0 ? numerator : 0) / (n * (n - 1)));
}

/// Lengths of 1 are refused.
#define ZELS_REFUSE_SHORT(len)                                                                               \
    if (len < 2)                                                                                             \
        return ZelStatus{zelErrSize};

constexpr auto stdDev32f = [](const Zel32f* x, Zel32f* dev, ZelSize len, int hint) {
    ZELS_REFUSE_SHORT(len)
    *dev = static_cast<float>(deviation(hint == 1 ? fast(x, len) : accurate(x, len), len));
    return ZelStatus{zelStatusOk};
};
constexpr auto both32f = [](const Zel32f* x, Zel32f* mean, Zel32f* dev, ZelSize len) {
    ZELS_REFUSE_SHORT(len)
    const Moments m = accurate(x, len);
    *mean = static_cast<float>(m.sum / static_cast<double>(len));
    *dev = static_cast<float>(deviation(m, len));
    return ZelStatus{zelStatusOk};
};
constexpr auto stdDev64f = [](const Zel64f* x, Zel64f* dev, ZelSize len) {
    ZELS_REFUSE_SHORT(len)
    *dev = deviation(doubles(x, len), len);
    return ZelStatus{zelStatusOk};
};
constexpr auto both64f = [](const Zel64f* x, Zel64f* mean, Zel64f* dev, ZelSize len) {
    ZELS_REFUSE_SHORT(len)
    const Moments m = doubles(x, len);
    *mean = m.sum / static_cast<double>(len);
    *dev = deviation(m, len);
    return ZelStatus{zelStatusOk};
};

/// Scaled, to 32 bits in the caller's rounding mode, then to T.
template <class T>
T scaledTo(double value, int scaleFactor)
{
    const double scale = scaleFactor >= 1023    ? 0
                         : scaleFactor <= -1024 ? static_cast<double>(INFINITY)
                                                : std::ldexp(1.0, -scaleFactor);
    const double wide = value == 0 ? 0 : value * scale;
    return support::saturated<T>(
        static_cast<Wide>(std::nearbyint(std::clamp(wide, -2147483648.0, 2147483647.0))));
}

constexpr auto stdDev16s = [](const Zel16s* x, auto* dev, ZelSize len, int scaleFactor) {
    ZELS_REFUSE_SHORT(len)
    *dev = scaledTo<std::remove_reference_t<decltype(*dev)>>(deviation(exact(x, len), len), scaleFactor);
    return ZelStatus{zelStatusOk};
};
constexpr auto both16s = [](const Zel16s* x, auto* mean, auto* dev, ZelSize len, int scaleFactor) {
    ZELS_REFUSE_SHORT(len)
    using R = std::remove_reference_t<decltype(*dev)>;
    const Moments m = exact(x, len);
    *mean = scaledTo<R>(m.sum / static_cast<double>(len), scaleFactor);
    *dev = scaledTo<R>(deviation(m, len), scaleFactor);
    return ZelStatus{zelStatusOk};
};

} // namespace

TEST(StdDev, addsFloatsInOrder)
{
    const SweepOptions options{.around = {1024, 2048}, .modes = Modes::roundingAndFlush, .repeats = 6};
    for (const int hint : {0, 1})
        sweep<LengthIs::first>(stdDev32f, EXPORTS(zelsStdDev_32f), options, hint);
    sweep(both32f, EXPORTS(zelsMeanStdDev_32f), options);
    sweep(stdDev64f, EXPORTS(zelsStdDev_64f), options);
    sweep(both64f, EXPORTS(zelsMeanStdDev_64f), options);
}

TEST(StdDev, addsIntegersExactly)
{
    for (const int factor :
         {0, 1, 3, 15, 16, 40, 1022, 1023, INT32_MAX, -1, -8, -16, -31, -40, -1024, INT32_MIN}) {
        const SweepOptions options{.around = {65536}, .modes = Modes::rounding, .repeats = 1};
        sweep<LengthIs::first>(stdDev16s, EXPORTS(zelsStdDev_16s_Sfs, zelsStdDev_16s32s_Sfs), options,
                               factor);
        sweep<LengthIs::first>(both16s, EXPORTS(zelsMeanStdDev_16s_Sfs, zelsMeanStdDev_16s32s_Sfs), options,
                               factor);
    }
    // Every square lane at its limit.
    std::vector<Zel16s> x(3 * 65536 + 5, -32768);
    Zel32s mean{};
    Zel32s dev{};
    ASSERT_EQ(zelsMeanStdDev_16s32s_Sfs(x.data(), static_cast<int>(x.size()), &mean, &dev, 0), zelStatusOk);
    EXPECT_EQ(mean, -32768);
    EXPECT_EQ(dev, 0);
}

TEST(StdDev, isZeroBesideANanMean)
{
    const float x[]{1, NAN, 3};
    const double y[]{1, NAN, 3};
    float mean{};
    float dev = -1;
    double mean64{};
    double dev64 = -1;
    ASSERT_EQ(zelsMeanStdDev_32f(x, 3, &mean, &dev), zelStatusOk);
    ASSERT_EQ(zelsMeanStdDev_64f(y, 3, &mean64, &dev64), zelStatusOk);
    EXPECT_TRUE(std::isnan(mean) && std::isnan(mean64));
    EXPECT_TRUE(dev == 0 && dev64 == 0);
}

TEST(StdDev, refusesBadArguments)
{
    badArguments<LengthIs::first>(EXPORTS(zelsStdDev_32f, zelsStdDev_64f, zelsStdDev_16s_Sfs,
                                          zelsStdDev_16s32s_Sfs, zelsMeanStdDev_32f, zelsMeanStdDev_64f,
                                          zelsMeanStdDev_16s_Sfs, zelsMeanStdDev_16s32s_Sfs),
                                  pointersFirst);
}
