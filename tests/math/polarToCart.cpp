// Polar to Cartesian form.
#include "math/polarTools.h"

namespace {

struct Exact {
    long double re, im;
};
constexpr auto cartesian = [](auto magn, auto phase) {
    const auto m = static_cast<long double>(magn);
    const auto p = static_cast<long double>(phase);
    return Exact{m * std::cos(p), m * std::sin(p)};
};
constexpr auto inTwo = [](auto magn, auto phase) {
    const auto [re, im] = cartesian(magn, phase);
    return std::pair(re, im);
};
constexpr auto fixedCartesian = [](Zel16s magn, Zel16s phase, int magnScaleFactor, int phaseScaleFactor) {
    const auto [re, im] =
        cartesian(scaledExactly(magn, magnScaleFactor), scaledExactly(phase, phaseScaleFactor));
    return Zel16sc{roundedTo16(re), roundedTo16(im)};
};

constexpr ErrorBound bound32 = boundOf("PolarToCart", Zel32f{});
constexpr ErrorBound bound64 = boundOf("PolarToCart", Zel64f{});

/// Every phase, and magnitudes that vary.
void checkPhases(const std::vector<Zel16s>& magnitudes, int magnScaleFactor, int phaseScaleFactor)
{
    const auto phases = everyValue<Zel16s>();
    std::vector<Zel16sc> result(phases.size());
    zelsPolarToCart_16sc_Sfs(magnitudes.data(), phases.data(), result.data(), static_cast<int>(phases.size()),
                             magnScaleFactor, phaseScaleFactor);
    for (std::size_t i = 0; i < phases.size(); i++) {
        const Zel16sc expected = fixedCartesian(magnitudes[i], phases[i], magnScaleFactor, phaseScaleFactor);
        ASSERT_TRUE(result[i].re == expected.re && result[i].im == expected.im)
            << magnitudes[i] << " at " << phases[i] << " by " << magnScaleFactor << " and "
            << phaseScaleFactor;
    }
}

} // namespace

TEST(PolarToCart, everyLengthAlignmentAndMode)
{
    sweepFloats(inTwo, EXPORTS(zelsPolarToCart_32f), bound32);
    sweepFloats(inTwo, EXPORTS(zelsPolarToCart_64f), bound64);
    sweepFloats(cartesian, EXPORTS(zelsPolarToCart_32fc), bound32);
    sweepFloats(cartesian, EXPORTS(zelsPolarToCart_64fc), bound64);
    const SweepOptions options{
        .lengths = {257}, .modes = Modes::rounding, .modelToNearest = true, .repeats = 1};
    sweep(fixedCartesian, EXPORTS(zelsPolarToCart_16sc_Sfs), options, 0, 12);
    sweep(fixedCartesian, EXPORTS(zelsPolarToCart_16sc_Sfs), options, -1, 0);
}

TEST(PolarToCart, phasesOfAnySize)
{
    const Values values{.low = -1e30, .high = 1e30};
    sweep(inTwo, EXPORTS(zelsPolarToCart_32f),
          {.ulps = bound32.nearest, .fills = fillBit(Fill::ordinary), .values = values});
    sweep(inTwo, EXPORTS(zelsPolarToCart_64f),
          {.ulps = bound64.nearest, .fills = fillBit(Fill::ordinary), .values = values});
}

TEST(PolarToCart, phasesOfEachRangeBesideOthers)
{
    const Zel32f phases[]{1.25f, 2047.9f, 2048, 3e6f, 1e30f, INFINITY, NAN, -0.0f};
    for (const Zel32f phase : phases)
        for (const Zel32f other : phases)
            for (std::size_t at = 0; at < 4; at++) {
                const Zel32f magn[]{1, 1, 1, 1};
                Zel32f mixed[]{other, other, other, other};
                mixed[at] = phase;
                Zel32fc found[4], alone;
                zelsPolarToCart_32fc(magn, mixed, found, 4);
                zelsPolarToCart_32fc(magn, &phase, &alone, 1);
                EXPECT_LT(firstDifference(Kind::f32, &found[at], &alone, 2), 0)
                    << phase << " beside " << other;
            }
}

TEST(PolarToCart, roundsTheExactParts)
{
    Random random("magnitudes");
    std::vector<Zel16s> magnitudes(65536, 32767);
    for (const int magnScaleFactor : {0, 1, 14, 15, 16, 40, -1, -14, -15, -2000, 2000})
        checkPhases(magnitudes, magnScaleFactor, 13);
    for (const int phaseScaleFactor : {0, 1, 12, 15, 30, 200, -1, -3, -15, -60, 2000}) {
        for (Zel16s& magnitude : magnitudes)
            magnitude = static_cast<Zel16s>(random.bits());
        checkPhases(magnitudes, 0, phaseScaleFactor);
    }
}

TEST(PolarToCart, ExhaustiveOverAllPairs)
{
    // Sines and cosines are taken once for each phase. Near a tie their products in double precision do not do. The
    // factors: both ways of computing, and phases of less than a turn, of many, and beyond the bits of a double.
    const auto phases = everyValue<Zel16s>();
    const std::size_t count = phases.size();
    std::vector<Exact> units(count);
    std::vector<Zel64f> cosines(count), sines(count);
    std::vector<Zel16sc> result(count);
    const auto isRight = [](Zel16s found, Zel64f near, long double exact) {
        return std::fabs(std::clamp(near, -32768.0, 32767.0) - found) <= 0.4999999 ||
               found == roundedTo16(exact);
    };
    for (const auto& [magnScaleFactor, phaseScaleFactor] : std::initializer_list<std::pair<int, int>>{
             {0, 13}, {0, 14}, {0, 5}, {0, 0}, {0, -64}, {1, 13}, {15, 12}, {-1, 13}}) {
        for (std::size_t i = 0; i < count; i++) {
            units[i] = cartesian(1, scaledExactly(phases[i], phaseScaleFactor));
            cosines[i] = static_cast<Zel64f>(units[i].re);
            sines[i] = static_cast<Zel64f>(units[i].im);
        }
        for (int magnitude = -32768; magnitude <= 32767; magnitude++) {
            const std::vector<Zel16s> magnitudes(count, static_cast<Zel16s>(magnitude));
            zelsPolarToCart_16sc_Sfs(magnitudes.data(), phases.data(), result.data(), static_cast<int>(count),
                                     magnScaleFactor, phaseScaleFactor);
            const long double m = scaledExactly(magnitude, magnScaleFactor);
            const auto near = static_cast<Zel64f>(m);
            for (std::size_t i = 0; i < count; i++)
                if (!isRight(result[i].re, near * cosines[i], m * units[i].re) ||
                    !isRight(result[i].im, near * sines[i], m * units[i].im))
                    FAIL() << magnitude << " at " << phases[i] << " by " << magnScaleFactor << " and "
                           << phaseScaleFactor;
        }
    }
}

TEST(PolarToCart, refusesBadArguments)
{
    badArguments(EXPORTS(zelsPolarToCart_32f, zelsPolarToCart_64f, zelsPolarToCart_32fc, zelsPolarToCart_64fc,
                         zelsPolarToCart_16sc_Sfs),
                 pointersFirst);
}
