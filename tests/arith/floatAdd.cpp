// Add and AddC of floats.
#include "support/test.h"

namespace {

constexpr auto sum = [](auto a, auto b) { return a + b; };

// A zero constant of either sign, as the caller's mode sees it, leaves an element as it is: -0, and NaNs too.
constexpr auto sumOrCopy = [](auto x, auto val) { return val == 0 ? x : x + val; };

// Converted first: -1 + 1 is -0 when the caller rounds down.
constexpr auto sumOf16s = [](Zel16s a, Zel16s b) { return static_cast<float>(a) + static_cast<float>(b); };

} // namespace

TEST(FloatAdd, addsElements)
{
    constexpr Modes modes = Modes::roundingAndFlush;
    sweep(sum, EXPORTS(zelsAdd_32f), {.around = {87383}, .modes = modes});
    sweep(sum, EXPORTS(zelsAdd_64f), {.around = {43691}, .modes = modes});
    sweep(sum,
          EXPORTS(zelsAdd_32f_L, zelsAdd_64f_L, zelsAdd_32fc, zelsAdd_32fc_L, zelsAdd_64fc, zelsAdd_64fc_L,
                  zelsAdd_32f_I, zelsAdd_32f_I_L, zelsAdd_64f_I, zelsAdd_64f_I_L, zelsAdd_32fc_I,
                  zelsAdd_32fc_I_L, zelsAdd_64fc_I, zelsAdd_64fc_I_L),
          {.modes = modes});
    sweep(sumOf16s, EXPORTS(zelsAdd_16s32f), {.around = {262151}, .modes = Modes::rounding});
}

TEST(FloatAdd, addsConstants)
{
    constexpr Modes modes = Modes::roundingAndFlush;
    for (const float val : {2.5f, 0.0f, -0.0f, 1e-45f, -INFINITY, NAN}) {
        const SweepOptions options{.payload = val == 0, .modes = modes, .repeats = 1};
        sweep(sumOrCopy, EXPORTS(zelsAddC_32f, zelsAddC_32f_I, zelsAddC_32f_L, zelsAddC_32f_I_L), options,
              val);
        sweep(sumOrCopy, EXPORTS(zelsAddC_64f, zelsAddC_64f_I, zelsAddC_64f_L, zelsAddC_64f_I_L), options,
              val == 1e-45f ? 0x1p-1074 : val);
    }
    // A complex constant that is zero, in a part or in both, is added all the same.
    for (const Zel64fc val : {Zel64fc{-2.5, 1e30}, Zel64fc{0, 1}, Zel64fc{0, 0}, Zel64fc{-0.0, -0.0}}) {
        const Zel32fc single{static_cast<float>(val.re), static_cast<float>(val.im)};
        const SweepOptions options{.modes = modes, .repeats = 1};
        sweep(sum, EXPORTS(zelsAddC_32fc, zelsAddC_32fc_I, zelsAddC_32fc_L, zelsAddC_32fc_I_L), options,
              single);
        sweep(sum, EXPORTS(zelsAddC_64fc_I, zelsAddC_64fc_L, zelsAddC_64fc_I_L), options, val);
        sweep(sum, EXPORTS(zelsAddC_64fc), {.around = {2 * 16384}, .modes = modes, .repeats = 1}, val);
    }
}

TEST(FloatAdd, refusesBadArguments)
{
    badArguments(EXPORTS(zelsAdd_32f, zelsAdd_32f_I, zelsAdd_64f, zelsAdd_64f_I, zelsAdd_16s32f, zelsAddC_32f,
                         zelsAddC_32f_I, zelsAddC_64f, zelsAddC_64f_I, zelsAddC_32fc, zelsAddC_32fc_I,
                         zelsAddC_64fc, zelsAddC_64fc_I),
                 pointersFirst);
    badArguments(EXPORTS(zelsAdd_32fc, zelsAdd_32fc_I, zelsAdd_64fc, zelsAdd_64fc_I, zelsAdd_32f_L,
                         zelsAdd_32f_I_L, zelsAdd_64f_L, zelsAdd_64f_I_L, zelsAdd_32fc_L, zelsAdd_32fc_I_L,
                         zelsAdd_64fc_L, zelsAdd_64fc_I_L, zelsAddC_32f_L, zelsAddC_32f_I_L, zelsAddC_64f_L,
                         zelsAddC_64f_I_L, zelsAddC_32fc_L, zelsAddC_32fc_I_L, zelsAddC_64fc_L,
                         zelsAddC_64fc_I_L),
                 lengthFirst);
}

TEST(FloatAdd, refusesLengthsWhoseDoubleOrBytesOverflow)
{
    // Nothing may be touched, so that any address will do.
    float real{};
    double real64{};
    Zel32fc complex{};
    Zel64fc complex64{};
    for (const int len : {1 << 30, INT32_MAX}) {
        EXPECT_EQ(zelsAdd_32fc(&complex, &complex, &complex, len), zelErrSize);
        EXPECT_EQ(zelsAdd_32fc_I(&complex, &complex, len), zelErrSize);
        EXPECT_EQ(zelsAdd_64fc(&complex64, &complex64, &complex64, len), zelErrSize);
        EXPECT_EQ(zelsAdd_64fc_I(&complex64, &complex64, len), zelErrSize);
        EXPECT_EQ(zelsAdd_32fc(nullptr, &complex, &complex, len), zelErrNullPtr);
    }
    // By a zero constant the 64f form copies, and counts the bytes in 32 bits; in place there is nothing to do.
    for (const int len : {1 << 28, 3 << 27, 1 << 29, 7 << 28}) {
        EXPECT_EQ(zelsAddC_64f(&real64, 0, &real64, len), zelErrSize) << len;
        EXPECT_EQ(zelsAddC_64f_I(-0.0, &real64, len), zelStatusOk) << len;
        EXPECT_EQ(zelsAddC_32f_I(0, &real, len), zelStatusOk) << len;
    }
}
