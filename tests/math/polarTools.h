// What the tests of polar geometry share: error bounds as they are documented, models, arguments.
#pragma once

#include "math/fixedTools.h"

/// In units of the last place, rounding to nearest.
inline constexpr double ulpsPolar = 1;

/// A sweep to nearest with all kinds of data, and one in every rounding mode, where each rounding may be off by a
/// whole unit, with ordinary data.
template <class Model, class... F>
void sweepFloats(const Model& model, const Exports<F...>& exports, double ulps = ulpsPolar)
{
    sweep(model, exports, {.ulps = ulps});
    sweep(model, exports,
          {.lengths = {1000}, .ulps = 2 * ulps, .modes = Modes::rounding, .fills = tameFills});
}

constexpr auto angleOf = [](auto re, auto im) {
    return std::atan2(static_cast<long double>(im), static_cast<long double>(re));
};

/// To nearest and saturated.
inline Zel16s roundedTo16(long double x)
{
    return static_cast<Zel16s>(toNearest(std::clamp(x, -32768.0L, 32767.0L)));
}

constexpr auto fixedPhase = [](Zel16s re, Zel16s im, int scaleFactor) {
    return scaleFactor > 1 ? Zel16s{0} : roundedTo16(scaledExactly(angleOf(re, im), scaleFactor));
};
