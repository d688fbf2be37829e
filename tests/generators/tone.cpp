#include "support/test.h"

#include <vector>

namespace {

using Quad = __float128;

/// cos and sin of w n + p. The angle is formed and reduced in 113 bits, since n reaches millions.
struct Point {
    long double cos, sin;
};
Point pointOf(double w, long long n, double p)
{
    const Quad circle = static_cast<Quad>(6.283185307179586476925286766559L) - 1.00331152253366640e-19L;
    Quad angle = static_cast<Quad>(w) * n + p;
    angle -= circle * static_cast<long long>(angle / circle);
    const auto reduced = static_cast<long double>(angle);
    return {std::cos(reduced), std::sin(reduced)};
}

/// What is promised of a sample of magnitude 1: the recurrence loses so much in n samples in its own precision.
constexpr long double promised(long long n)
{
    return 0x1p-53L * (8 + static_cast<long double>(n));
}

/// The value and the error allowed on the part of a sample.
template <class P>
Within partOf(long double magn, long double unit, long long n)
{
    const long double recurrence = magn * promised(n);
    if constexpr (std::is_same_v<P, Zel16s>) // within one half: to nearest
        return {magn * unit, 0.5L + recurrence};
    else
        return {magn * unit, recurrence + std::fabs(magn * unit) * (sizeof(P) == 4 ? 0x1p-23L : 0x1p-52L)};
}

/// A tone with the phase by value, which a sweep can call; what it leaves in the variable is looked at elsewhere.
template <auto tone>
struct AtPhase;
template <class T, class M, class F,
          ZelStatus (*tone)(T* pDst, int len, M magn, F rFreq, F* pPhase, ZelHintAlgorithm hint)>
struct AtPhase<tone> {
    static ZelStatus call(T* pDst, int len, M magn, F rFreq, F phase, ZelHintAlgorithm hint)
    {
        return tone(pDst, len, magn, rFreq, &phase, hint);
    }
    static constexpr auto model = [](Within* pDst, ZelSize len, M magn, F rFreq, F phase, ZelHintAlgorithm) {
        for (int n = 0; n < len; n++) {
            const Point point = pointOf(6.283185307179586 * rFreq, n, phase);
            if constexpr (Complex<T>) {
                pDst[2 * n] = partOf<Part<T>>(magn, point.cos, n);
                pDst[2 * n + 1] = partOf<Part<T>>(magn, point.sin, n);
            } else {
                pDst[n] = partOf<T>(magn, point.cos, n);
            }
        }
    };
    static void sweeps(const char* name)
    {
        for (const F rFreq : {F(0), F(3e-7), F(0.1234567), F(0.125), F(0.3111), F(0.4999999),
                              F(Complex<T> ? 0.5 : 0.25), F(Complex<T> ? 0.9999999 : 0.0625)})
            sweep(model, makeExports(name, __FILE__, __LINE__, call),
                  {.block = 8, .lengths = {1000, 1027, 2051}}, M(30000), rFreq, F(rFreq * 6),
                  rFreq == F(0.25) ? zelHintFast : zelHintNone);
        sweep(model, makeExports(name, __FILE__, __LINE__, call),
              {.block = 8, .around = {1024}, .modes = Modes::rounding}, M(3), F(0.2345), F(6.28),
              zelHintFast);
    }
};

template <class T>
std::vector<T> toneOf(ZelStatus (*tone)(T*, int, Zel64f, Zel64f, Zel64f*, ZelHintAlgorithm), int len,
                      double rFreq, double phase, ZelHintAlgorithm hint)
{
    std::vector<T> samples(static_cast<std::size_t>(len));
    EXPECT_EQ(tone(samples.data(), len, 1, rFreq, &phase, hint), zelStatusOk);
    return samples;
}

} // namespace

TEST(Tone, isASampledWave)
{
    AtPhase<zelsTone_16s>::sweeps("zelsTone_16s");
    AtPhase<zelsTone_16sc>::sweeps("zelsTone_16sc");
    AtPhase<zelsTone_32f>::sweeps("zelsTone_32f");
    AtPhase<zelsTone_32fc>::sweeps("zelsTone_32fc");
    AtPhase<zelsTone_64f>::sweeps("zelsTone_64f");
    AtPhase<zelsTone_64fc>::sweeps("zelsTone_64fc");
}

TEST(Tone, theRecurrenceLosesNoMoreThanIsPromised)
{
    constexpr int len = 2000000;
    Random random("tone");
    std::vector<double> frequencies{1e-9, 1e-6, 1e-3, 1.0 / 16 + 1e-9, 0.125 - 1e-9, 0.25, 0.4999999};
    for (int i = 0; i < 5; i++)
        frequencies.push_back(random.uniform(0, 0.5));
    for (const double rFreq : frequencies)
        for (const ZelHintAlgorithm hint : {zelHintFast, zelHintAccurate}) {
            const double phase = random.uniform(0, 6.28);
            const double w = 6.283185307179586 * rFreq;
            const auto real = toneOf(zelsTone_64f, len, rFreq, phase, hint);
            const auto complex = toneOf(zelsTone_64fc, len, rFreq + 0.5, phase, hint);
            long double worst = 0;
            for (int n = 0; n < len; n += n < 3000 ? 1 : 997) {
                const long double bound = promised(hint == zelHintFast ? n % 1024 : n);
                const auto at = static_cast<std::size_t>(n);
                const Point p = pointOf(w, n, phase);
                const Point q = pointOf(6.283185307179586 * (rFreq + 0.5), n, phase);
                for (const long double error :
                     {real[at] - p.cos, complex[at].re - q.cos, complex[at].im - q.sin})
                    worst = std::max(worst, std::fabs(error) / bound);
            }
            EXPECT_LE(worst, 1) << rFreq << ", hint " << hint;
            RecordProperty("part of the bound", std::to_string(static_cast<double>(worst)));
        }
}

TEST(Tone, goesOnWithoutASeam)
{
    for (const ZelHintAlgorithm hint : {zelHintNone, zelHintFast}) {
        double phase = 1, whole = 1;
        std::vector<double> cut(5000), one(5000);
        for (int at = 0, piece = 1; at < 5000; at += piece, piece = std::min(3 * piece, 5000 - at)) {
            const double q = piece * (6.283185307179586 * 0.1237) + phase;
            const double next = q - std::trunc(q * 0.15915494309189535) * 6.283185307179586;
            EXPECT_EQ(zelsTone_64f(&cut[static_cast<std::size_t>(at)], piece, 2, 0.1237, &phase, hint), 0);
            EXPECT_EQ(phase, next);
        }
        EXPECT_EQ(zelsTone_64f(one.data(), 5000, 2, 0.1237, &whole, hint), 0);
        for (std::size_t n = 0; n < 5000; n++)
            ASSERT_NEAR(cut[n], one[n], 4e-12) << n;
    }
    // A phase that its type rounds up to 2 pi is that of a new circle.
    float phase = 6.283185f, sample;
    EXPECT_EQ(zelsTone_32f(&sample, 1, 1, 4e-8f, &phase, zelHintNone), 0);
    EXPECT_EQ(phase, 0);
}

TEST(Tone, standsStillAtFrequencyZero)
{
    for (const double phase : {0.0, 1.0, 4.0}) {
        const auto real = toneOf(zelsTone_64f, 5000, 0, phase, zelHintNone);
        const auto complex = toneOf(zelsTone_64fc, 5000, 0, phase, zelHintNone);
        for (std::size_t n = 0; n < 5000; n++) {
            ASSERT_EQ(real[n], real[0]);
            ASSERT_TRUE(complex[n].re == real[0] && complex[n].im == complex[0].im);
        }
        EXPECT_NEAR(complex[0].im, std::sin(phase), 2e-16);
    }
}

TEST(Tone, roundsSixteenBitsAwayFromZero)
{
    for (const auto& [rFreq, expected] : {std::pair{0.0f, std::array{32767, 32767}}, {0.25f, {32767, 0}}}) {
        Zel16s real[2];
        float phase = 0;
        EXPECT_EQ(zelsTone_16s(real, 2, 32767, rFreq, &phase, zelHintNone), 0);
        EXPECT_EQ((std::array<int, 2>{real[0], real[1]}), expected);
    }
    Zel16sc turned[2];
    float phase = 0;
    EXPECT_EQ(zelsTone_16sc(turned, 2, 32767, 0.5f, &phase, zelHintNone), 0);
    EXPECT_EQ(turned[1].re, -32767);
    // 1, 1/2 and their negatives: cos(pi/3) in a float's angle lies above one half, its negative below.
    Zel16s half[4];
    phase = 0;
    EXPECT_EQ(zelsTone_16s(half, 4, 1, 0.1666666f, &phase, zelHintNone), 0);
    EXPECT_EQ((std::array<int, 4>{half[0], half[1], half[2], half[3]}), (std::array<int, 4>{1, 1, 0, -1}));
}

/// The order of the checks is one of its own.
template <class T, class M, class F>
void refusals(ZelStatus (*tone)(T*, int, M, F, F*, ZelHintAlgorithm))
{
    const F limit = Complex<T> ? F(1) : F(0.5);
    const F below = std::nextafter(limit, F(0)), pastCircle = F(6.283185307179587), nan = F(NAN);
    T samples[2]{}, untouched[2]{};
    const auto status = [&](bool phaseGiven, M magn, F rFreq, F start, T* pDst, int len) {
        F phase = start;
        const ZelStatus s = tone(pDst, len, magn, rFreq, phaseGiven ? &phase : nullptr, zelHintNone);
        EXPECT_TRUE(s == 0 || !std::memcmp(&phase, &start, sizeof phase));
        EXPECT_TRUE(s == 0 || !std::memcmp(samples, untouched, sizeof samples));
        return s;
    };
    EXPECT_EQ(status(false, 0, limit, -1, nullptr, 0), zelErrNullPtr);
    for (const M magn : {M(0), M(-1)})
        EXPECT_EQ(status(true, magn, limit, -1, nullptr, 0), zelErrToneMagnitude);
    for (const F rFreq : {limit, F(-1e-9), nan})
        EXPECT_EQ(status(true, 1, rFreq, -1, nullptr, 0), zelErrToneFreq);
    for (const F phase : {pastCircle, F(-1e-9), nan})
        EXPECT_EQ(status(true, 1, 0, phase, nullptr, 0), zelErrTonePhase);
    EXPECT_EQ(status(true, 1, 0, 0, nullptr, 0), zelErrNullPtr);
    EXPECT_EQ(status(true, 1, 0, 0, samples, 0), zelErrSize);
    EXPECT_EQ(status(true, 1, 0, 0, samples, -1), zelErrSize);
    EXPECT_EQ(status(true, 1, below, std::nextafter(F(6.2831850), F(0)), samples, 2), zelStatusOk);
}

TEST(Tone, refusesInAnOrderOfItsOwn)
{
    refusals(zelsTone_16s);
    refusals(zelsTone_16sc);
    refusals(zelsTone_32f);
    refusals(zelsTone_32fc);
    refusals(zelsTone_64f);
    refusals(zelsTone_64fc);
    double phase = 0, sample;
    EXPECT_EQ(zelsTone_64f(&sample, 1, NAN, 0.1, &phase, zelHintNone), zelErrToneMagnitude);
}
