// Cartesian to polar form, which is defined by magnitude and phase.
#include "math/polarTools.h"

TEST(CartToPolar, isMagnitudeAndPhase)
{
    const auto split = [](auto magnitude, auto phase) {
        return [=](const auto* re, const auto* im, auto* m, auto* p, ZelSize n) {
            magnitude(re, im, m, static_cast<int>(n));
            phase(re, im, p, static_cast<int>(n));
        };
    };
    const auto complex = [](auto magnitude, auto phase) {
        return [=](const auto* z, auto* m, auto* p, ZelSize n) {
            magnitude(z, m, static_cast<int>(n));
            phase(z, p, static_cast<int>(n));
        };
    };
    const SweepOptions options{.modes = Modes::roundingAndFlush};
    sweep(split(zelsMagnitude_32f, zelsPhase_32f), EXPORTS(zelsCartToPolar_32f), options);
    sweep(split(zelsMagnitude_64f, zelsPhase_64f), EXPORTS(zelsCartToPolar_64f), options);
    sweep(complex(zelsMagnitude_32fc, zelsPhase_32fc), EXPORTS(zelsCartToPolar_32fc), options);
    sweep(complex(zelsMagnitude_64fc, zelsPhase_64fc), EXPORTS(zelsCartToPolar_64fc), options);
}

TEST(CartToPolar, scalesBothByTheirOwnFactor)
{
    const auto model = [](Zel16sc z, int magnScaleFactor, int phaseScaleFactor) {
        const Wide power = Wide{z.re} * z.re + Wide{z.im} * z.im;
        return std::pair(scaledRoot<Zel16s>(power, magnScaleFactor),
                         fixedPhase(z.re, z.im, phaseScaleFactor));
    };
    sweep(model, EXPORTS(zelsCartToPolar_16sc_Sfs), {.lengths = {2048, 2049, 5000}, .repeats = 1}, 2, -12);
    sweep(model, EXPORTS(zelsCartToPolar_16sc_Sfs), {.lengths = {257}, .repeats = 1}, -3, 2);
}

TEST(CartToPolar, refusesBadArguments)
{
    badArguments(EXPORTS(zelsCartToPolar_32f, zelsCartToPolar_64f, zelsCartToPolar_32fc, zelsCartToPolar_64fc,
                         zelsCartToPolar_16sc_Sfs),
                 pointersFirst);
}
