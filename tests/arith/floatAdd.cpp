// Add and AddC of floats.
#include "support/test.h"

namespace {

constexpr auto sum = [](auto a, auto b) { return a + b; };

/// A zero constant, of either sign, leaves every element as it is: -0 and signalling NaNs too.
constexpr auto sumWithShortCut = [](auto x, auto val) { return val == 0 ? x : x + val; };

} // namespace

TEST(FloatAdd, addsElements)
{
    const SweepOptions options{.modes = Modes::roundingAndFlush};
    sweep(sum, EXPORTS(zelsAdd_32f), {.around = {87383}, .modes = Modes::roundingAndFlush});
    sweep(sum, EXPORTS(zelsAdd_64f), {.around = {43691}, .modes = Modes::roundingAndFlush});
    sweep(sum,
          EXPORTS(zelsAdd_32f_L, zelsAdd_64f_L, zelsAdd_32fc, zelsAdd_32fc_L, zelsAdd_64fc, zelsAdd_64fc_L,
                  zelsAdd_32f_I, zelsAdd_32f_I_L, zelsAdd_64f_I, zelsAdd_64f_I_L, zelsAdd_32fc_I,
                  zelsAdd_32fc_I_L, zelsAdd_64fc_I, zelsAdd_64fc_I_L),
          options);
}

TEST(FloatAdd, addsConstants)
{
    for (const float val : {2.5f, 0.0f, -0.0f, 1e-45f, -INFINITY, NAN})
        sweep(sumWithShortCut,
              EXPORTS(zelsAddC_32f, zelsAddC_32f_I, zelsAddC_32f_L, zelsAddC_32f_I_L, zelsAddC_64f,
                      zelsAddC_64f_I, zelsAddC_64f_L, zelsAddC_64f_I_L),
              {.payload = val == 0, .modes = Modes::roundingAndFlush, .repeats = 1}, val);
    sweep(sum, EXPORTS(zelsAddC_32fc, zelsAddC_32fc_I, zelsAddC_32fc_L, zelsAddC_32fc_I_L), Zel32fc{0, 2.5f});
    sweep(sum, EXPORTS(zelsAddC_64fc, zelsAddC_64fc_I, zelsAddC_64fc_L, zelsAddC_64fc_I_L),
          {.around = {2 * 16384}}, Zel64fc{0, 2.5});
}

TEST(FloatAdd, refusesBadArguments)
{
    badArguments(EXPORTS(zelsAdd_32f, zelsAdd_32f_I, zelsAdd_64f, zelsAdd_64f_I, zelsAddC_32f, zelsAddC_32f_I,
                         zelsAddC_64f, zelsAddC_64f_I, zelsAddC_32fc, zelsAddC_32fc_I, zelsAddC_64fc,
                         zelsAddC_64fc_I, zelsAdd_16s32f),
                 pointersFirst);
    badArguments(EXPORTS(zelsAdd_32fc, zelsAdd_32fc_I, zelsAdd_64fc, zelsAdd_64fc_I, zelsAdd_32f_L,
                         zelsAdd_32f_I_L, zelsAdd_64f_L, zelsAdd_64f_I_L, zelsAdd_32fc_L, zelsAdd_32fc_I_L,
                         zelsAdd_64fc_L, zelsAdd_64fc_I_L, zelsAddC_32f_L, zelsAddC_32f_I_L, zelsAddC_64f_L,
                         zelsAddC_64f_I_L, zelsAddC_32fc_L, zelsAddC_32fc_I_L, zelsAddC_64fc_L,
                         zelsAddC_64fc_I_L),
                 lengthFirst);
}
