// What the tests of polar geometry share: error bounds as they are documented, models, arguments.
#pragma once

#include "math/accuracy.h"
#include "math/fixedTools.h"

/// A sweep to nearest with all kinds of data, and one in every rounding mode with ordinary data.
template <class Model, class... F>
void sweepFloats(const Model& model, const Exports<F...>& exports, ErrorBound bound)
{
    sweep(model, exports, {.ulps = bound.nearest});
    sweep(model, exports,
          {.lengths = {1000}, .ulps = bound.directed, .modes = Modes::rounding, .fills = tameFills});
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
