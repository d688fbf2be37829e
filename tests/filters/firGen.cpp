#include "support/test.h"

#include <complex>
#include <vector>

namespace {

constexpr long double pi = 3.141592653589793238462643383279502884L;
using Taps = std::vector<Zel64f>;

/// A filter between two edges; -1 for an edge that its kind does not have.
struct FilterKind {
    const char* name;
    ZelStatus (*design)(double low, double high, Zel64f* pTaps, int tapsLen, ZelWinType winType, int doNormal,
                        Zel8u* pBuffer);
    bool passesLow, passesHigh, isBand;
};
const FilterKind kinds[]{
    {"low-pass",
     [](double, double high, Zel64f* p, int n, ZelWinType w, int normal, Zel8u* b) {
         return zelsFIRGenLowpass_64f(high, p, n, w, normal, b);
     },
     true, false, false},
    {"high-pass",
     [](double, double high, Zel64f* p, int n, ZelWinType w, int normal, Zel8u* b) {
         return zelsFIRGenHighpass_64f(high, p, n, w, normal, b);
     },
     false, true, false},
    {"band-pass", zelsFIRGenBandpass_64f, false, false, true},
    {"band-stop", zelsFIRGenBandstop_64f, true, true, true},
};

/// A design in a buffer of exactly the size asked for, at any address.
Taps designed(const FilterKind& kind, double low, double high, int n, ZelWinType window, int normal)
{
    int size = 0;
    EXPECT_EQ(zelsFIRGenGetBufferSize(n, &size), zelStatusOk);
    const int half = n >> 1;
    EXPECT_EQ(size, ((16 * half + 46) & ~31) | 16);
    Guarded<Zel8u> buffer(static_cast<std::size_t>(size));
    Guarded<Zel64f> taps(static_cast<std::size_t>(n), {Placement::atEnd, n % 2 ? 3 : -1});
    EXPECT_EQ(kind.design(low, high, taps.data(), n, window, normal, buffer.data()), zelStatusOk);
    EXPECT_TRUE(buffer.intact() && taps.intact());
    Taps result;
    for (std::size_t i = 0; i < taps.size(); i++)
        result.push_back(taps[i]);
    return result;
}

/// The integral of the wanted response over the frequencies that pass, at the distance t from the middle.
long double ideal(const FilterKind& kind, long double low, long double high, long double t, bool odd)
{
    const auto upTo = [&](long double f) { return t == 0 ? 2 * f : std::sin(2 * pi * f * t) / (pi * t); };
    if (!kind.isBand && kind.passesHigh && !odd)
        return std::cos(2 * pi * high * t) / (pi * t); // antisymmetric: of the sine
    const long double all = kind.passesHigh ? odd ? t == 0 : upTo(0.5L) : 0;
    if (!kind.isBand)
        return kind.passesHigh ? all - upTo(high) : upTo(high);
    return kind.passesHigh ? all - (upTo(high) - upTo(low)) : upTo(high) - upTo(low);
}

long double windowValue(ZelWinType window, int i, int n)
{
    const long double x = static_cast<long double>(i) / static_cast<long double>(n - 1);
    const long double c = std::cos(2 * pi * x);
    switch (window) {
    case zelWinBartlett:
        return 1 - std::fabs(2 * x - 1);
    case zelWinBlackmanOpt: {
        const long double a = -std::pow(0.5L / std::cos(pi / static_cast<long double>(n - 1)), 2.0L);
        return (a + 1) / 2 - c / 2 - a / 2 * (2 * c * c - 1);
    }
    case zelWinHamming:
        return 0.54L - 0.46L * c;
    case zelWinHann:
        return 0.5L - 0.5L * c;
    default:
        return 1;
    }
}

std::complex<double> gain(const Taps& taps, double f)
{
    std::complex<double> sum = 0;
    for (std::size_t i = 0; i < taps.size(); i++)
        sum += taps[i] * std::polar(1.0, -2 * static_cast<double>(pi) * f * static_cast<double>(i));
    return sum;
}

} // namespace

TEST(FirGen, tapsAreTheWindowedIdealResponse)
{
    for (const FilterKind& kind : kinds)
        for (const int n : {5, 6, 7, 8, 31, 32, 63, 64, 1001, 4096})
            for (const ZelWinType window :
                 {-1, int{zelWinBartlett}, int{zelWinBlackmanOpt}, int{zelWinHamming}, int{zelWinHann}, 4})
                for (const auto& [low, high] :
                     {std::pair{0.1, 0.2}, {0.003, 0.25}, {1e-5, 0.4999}, {0.2, 0.2500001}}) {
                    const Taps taps = designed(kind, low, high, n, window, 0);
                    const double middle = (n - 1) / 2.0;
                    const bool antisymmetric = n % 2 == 0 && !kind.isBand && kind.passesHigh;
                    for (int i = 0; i < n; i++) {
                        const double t = i - middle;
                        const long double value = windowValue(window, i, n) *
                                                  ideal(kind, low, high, std::fabs(t), n % 2) *
                                                  (antisymmetric && t < 0 ? -1 : 1);
                        ASSERT_NEAR(taps[static_cast<std::size_t>(i)], static_cast<double>(value),
                                    1e-15 + 0x1p-51 * (8 + n / 64) * std::fabs(static_cast<double>(value)))
                            << kind.name << ", tap " << i << " of " << n << ", window " << window;
                        ASSERT_EQ(taps[static_cast<std::size_t>(i)],
                                  (antisymmetric ? -1 : 1) * taps[static_cast<std::size_t>(n - 1 - i)]);
                    }
                }
}

/// The overshoot of the windows at one edge, and the width in bins that an edge takes on either side of its middle, as in A.
/// V. Oppenheim and R. W. Schafer 1989. Two edges add up, and the gain that is made 1 overshoots itself.
TEST(FirGen, responsesKeepToTheirMasks)
{
    struct Mask {
        ZelWinType window;
        double overshoot, width;
    };
    const Mask masks[]{{-1, 0.0895, 1},
                       {zelWinBartlett, 0.05, 4},
                       {zelWinHann, 0.0063, 2},
                       {zelWinHamming, 0.0022, 2},
                       {zelWinBlackmanOpt, 0.001, 3.2}};
    const double low = 0.13, high = 0.31;
    for (const FilterKind& kind : kinds)
        for (const int n : {63, 64, 255, 256})
            for (const Mask& mask : masks) {
                const Taps taps = designed(kind, low, high, n, mask.window, 1);
                const double edge = mask.width / n;
                double floor = 0, ripple = 0;
                // Symmetric taps of even number vanish at half the rate, antisymmetric ones at 0.
                const double from = n % 2 == 0 && kind.passesHigh && !kind.isBand ? edge : 0;
                const double to = n % 2 == 0 && (kind.isBand || !kind.passesHigh) ? 0.5 - edge : 0.5;
                for (double f = from; f <= to; f += 0.1 / n) {
                    if (std::fabs(f - high) < edge || (kind.isBand && std::fabs(f - low) < edge))
                        continue;
                    const bool passes = f > high                 ? kind.passesHigh
                                        : kind.isBand && f > low ? !kind.passesLow
                                                                 : kind.passesLow;
                    const double level = std::abs(gain(taps, f));
                    if (passes)
                        ripple = std::max(ripple, std::fabs(level - 1));
                    else
                        floor = std::max(floor, level);
                }
                const double overshoot = mask.overshoot * (kind.isBand ? 2 : 1);
                EXPECT_LE(floor, 1.2 * overshoot)
                    << kind.name << ", " << n << " taps, window " << mask.window;
                EXPECT_LE(ripple, 2 * overshoot) << kind.name << ", " << n << " taps, window " << mask.window;
                // The gain that was asked to be 1, and the delay of half the length.
                const double unit = !kind.isBand && kind.passesHigh ? 0.5
                                    : kind.passesLow                ? 0
                                                                    : (low + high) / 2;
                EXPECT_NEAR(std::abs(gain(taps, unit)), 1, 1e-13) << kind.name << ", " << n;
                const auto turned =
                    gain(taps, unit) * std::polar(1.0, 2 * static_cast<double>(pi) * unit * (n - 1) / 2);
                EXPECT_NEAR(n % 2 == 0 && kind.passesHigh && !kind.isBand ? std::fabs(turned.imag())
                                                                          : turned.real(),
                            1, 1e-12);
            }
}

TEST(FirGen, refusals)
{
    int size = -7;
    EXPECT_EQ(zelsFIRGenGetBufferSize(4, nullptr), zelErrNullPtr);
    for (const int n : {4, 0, -5})
        EXPECT_EQ(zelsFIRGenGetBufferSize(n, &size), zelErrSize);
    EXPECT_EQ(size, -7);
    EXPECT_EQ(zelsFIRGenGetBufferSize(5, &size), zelStatusOk);
    EXPECT_EQ(size, 80);

    Taps taps(9, 3.0);
    std::vector<Zel8u> buffer(512);
    const Taps before = taps;
    for (const FilterKind& kind : kinds) {
        taps = before;
        const auto status = [&](double low, double high, int n) {
            return kind.design(low, high, taps.data(), n, 2, 1, buffer.data());
        };
        EXPECT_EQ(kind.design(0.1, 0.7, nullptr, 4, 2, 1, buffer.data()), zelErrNullPtr);
        EXPECT_EQ(kind.design(0.1, 0.7, taps.data(), 4, 2, 1, nullptr), zelErrNullPtr);
        EXPECT_EQ(status(0.1, 0.2, 4), zelErrSize);
        for (const double high : {0.5, 0.0, -0.1, 1.2, static_cast<double>(NAN)})
            EXPECT_EQ(status(0.1, high, 9), zelErrSize) << kind.name;
        for (const double low : {0.0, -0.1, 0.2, 0.3, static_cast<double>(NAN)})
            EXPECT_EQ(status(low, 0.2, 9), kind.isBand ? zelErrSize : zelStatusOk) << kind.name;
        if (kind.isBand) {
            EXPECT_EQ(taps, before);
        }
    }
}
