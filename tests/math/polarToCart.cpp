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

/// Sine and cosine within 1 unit, of which a product may make 2, and one more rounding.
constexpr double ulps = 2.5;

/// Every phase, and magnitudes that vary.
void checkPhases(const std::vector<Zel16s>& magnitudes, int magnScaleFactor, int phaseScaleFactor)
{
    const auto phases = allValues<Zel16s>();
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
    sweepFloats(inTwo, EXPORTS(zelsPolarToCart_32f, zelsPolarToCart_64f), ulps);
    sweepFloats(cartesian, EXPORTS(zelsPolarToCart_32fc, zelsPolarToCart_64fc), ulps);
    const SweepOptions options{
        .lengths = {257}, .modes = Modes::rounding, .modelToNearest = true, .repeats = 1};
    sweep(fixedCartesian, EXPORTS(zelsPolarToCart_16sc_Sfs), options, 0, 12);
    sweep(fixedCartesian, EXPORTS(zelsPolarToCart_16sc_Sfs), options, -1, 0);
}

TEST(PolarToCart, phasesOfAnySize)
{
    sweep(inTwo, EXPORTS(zelsPolarToCart_32f, zelsPolarToCart_64f),
          {.ulps = ulps, .fills = fillBit(Fill::ordinary), .values = {.low = -1e30, .high = 1e30}});
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
    for (int magnitude = -32768; magnitude <= 32767; magnitude++)
        checkPhases(std::vector<Zel16s>(65536, static_cast<Zel16s>(magnitude)), 0, 13);
}

TEST(PolarToCart, refusesBadArguments)
{
    badArguments(EXPORTS(zelsPolarToCart_32f, zelsPolarToCart_64f, zelsPolarToCart_32fc, zelsPolarToCart_64fc,
                         zelsPolarToCart_16sc_Sfs),
                 pointersFirst);
}
