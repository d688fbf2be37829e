// Absolute values.
#include "support/test.h"

namespace {

constexpr auto magnitude = []<class T>(T x) {
    if constexpr (std::is_integral_v<T>)
        return saturated<T>(x < 0 ? -Wide{x} : Wide{x});
    else
        return std::copysign(x, T{1}); // a NaN, too, loses nothing but its sign
};

} // namespace

TEST(Abs, takesMagnitudes)
{
    sweep(magnitude,
          EXPORTS(zelsAbs_16s, zelsAbs_16s_I, zelsAbs_32s, zelsAbs_32s_I, zelsAbs_32f, zelsAbs_32f_I,
                  zelsAbs_32f_L, zelsAbs_32f_I_L, zelsAbs_64f, zelsAbs_64f_I, zelsAbs_64f_L, zelsAbs_64f_I_L),
          {.payload = true, .modes = Modes::roundingAndFlush});
}

TEST(Abs, refusesBadArguments)
{
    badArguments(EXPORTS(zelsAbs_16s, zelsAbs_16s_I, zelsAbs_32s, zelsAbs_32s_I, zelsAbs_32f, zelsAbs_32f_I,
                         zelsAbs_64f, zelsAbs_64f_I),
                 pointersFirst);
    badArguments(EXPORTS(zelsAbs_32f_L, zelsAbs_32f_I_L, zelsAbs_64f_L, zelsAbs_64f_I_L), lengthFirst);
}
