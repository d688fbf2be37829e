// Sub, SubC and SubCRev of floats.
#include "support/test.h"

namespace {

// The first source is the subtrahend; in place, the destination is what it is taken from.
constexpr auto difference = [](auto subtrahend, auto minuend) { return minuend - subtrahend; };

constexpr auto differenceOrCopy = [](auto x, auto val) { return val == 0 ? x : x - val; };

constexpr auto differenceOfParts = [](auto x, auto val) { return x - val; };

constexpr auto reverse = [](auto x, auto val) { return val - x; };

constexpr auto differenceOf16s = [](Zel16s subtrahend, Zel16s minuend) {
    return static_cast<float>(minuend) - static_cast<float>(subtrahend);
};

constexpr Modes modes = Modes::roundingAndFlush;

} // namespace

TEST(FloatSub, subtractsTheFirstSource)
{
    const float one = 1;
    const float three = 3;
    float result = 0;
    ASSERT_EQ(zelsSub_32f(&one, &three, &result, 1), zelStatusOk);
    EXPECT_EQ(result, 2);

    sweep(difference,
          EXPORTS(zelsSub_32f, zelsSub_32f_I, zelsSub_32f_L, zelsSub_32f_I_L, zelsSub_64f, zelsSub_64f_I,
                  zelsSub_64f_L, zelsSub_64f_I_L, zelsSub_32fc, zelsSub_32fc_I, zelsSub_32fc_L,
                  zelsSub_32fc_I_L, zelsSub_64fc, zelsSub_64fc_I, zelsSub_64fc_L, zelsSub_64fc_I_L),
          {.modes = modes});
    sweep(differenceOf16s, EXPORTS(zelsSub_16s32f), {.modes = Modes::rounding});
}

TEST(FloatSub, subtractsConstantsAndFromConstants)
{
    for (const float val : {2.5f, 0.0f, -0.0f, 1e-45f, INFINITY, NAN}) {
        const SweepOptions copying{.payload = val == 0, .modes = modes, .repeats = 1};
        const SweepOptions options{.modes = modes, .repeats = 1};
        const double val64 = val == 1e-45f ? 0x1p-1074 : val;
        sweep(differenceOrCopy, EXPORTS(zelsSubC_32f, zelsSubC_32f_I, zelsSubC_32f_L, zelsSubC_32f_I_L),
              copying, val);
        sweep(differenceOrCopy, EXPORTS(zelsSubC_64f, zelsSubC_64f_I, zelsSubC_64f_L, zelsSubC_64f_I_L),
              copying, val64);
        sweep(reverse, EXPORTS(zelsSubCRev_32f, zelsSubCRev_32f_I, zelsSubCRev_32f_L, zelsSubCRev_32f_I_L),
              options, val);
        sweep(reverse, EXPORTS(zelsSubCRev_64f, zelsSubCRev_64f_I, zelsSubCRev_64f_L, zelsSubCRev_64f_I_L),
              options, val64);
    }
    for (const Zel64fc val : {Zel64fc{-2.5, 1e30}, Zel64fc{0, 0}, Zel64fc{-0.0, 1}}) {
        const Zel32fc single{static_cast<float>(val.re), static_cast<float>(val.im)};
        const SweepOptions options{.modes = modes, .repeats = 1};
        sweep(differenceOfParts, EXPORTS(zelsSubC_32fc, zelsSubC_32fc_I, zelsSubC_32fc_L, zelsSubC_32fc_I_L),
              options, single);
        sweep(differenceOfParts, EXPORTS(zelsSubC_64fc, zelsSubC_64fc_I, zelsSubC_64fc_L, zelsSubC_64fc_I_L),
              options, val);
        sweep(reverse,
              EXPORTS(zelsSubCRev_32fc, zelsSubCRev_32fc_I, zelsSubCRev_32fc_L, zelsSubCRev_32fc_I_L),
              options, single);
        sweep(reverse,
              EXPORTS(zelsSubCRev_64fc, zelsSubCRev_64fc_I, zelsSubCRev_64fc_L, zelsSubCRev_64fc_I_L),
              options, val);
    }
}

TEST(FloatSub, refusesBadArguments)
{
    badArguments(EXPORTS(zelsSub_32f, zelsSub_32f_I, zelsSub_64f, zelsSub_64f_I, zelsSub_16s32f, zelsSubC_32f,
                         zelsSubC_32f_I, zelsSubC_64f, zelsSubC_64f_I, zelsSubC_32fc, zelsSubC_32fc_I,
                         zelsSubC_64fc, zelsSubC_64fc_I, zelsSubCRev_32f, zelsSubCRev_32f_I, zelsSubCRev_64f,
                         zelsSubCRev_64f_I, zelsSubCRev_32fc, zelsSubCRev_32fc_I, zelsSubCRev_64fc,
                         zelsSubCRev_64fc_I),
                 pointersFirst);
    badArguments(EXPORTS(zelsSub_32fc, zelsSub_32fc_I, zelsSub_64fc, zelsSub_64fc_I, zelsSub_32f_L,
                         zelsSub_32f_I_L, zelsSub_64f_L, zelsSub_64f_I_L, zelsSub_32fc_L, zelsSub_32fc_I_L,
                         zelsSub_64fc_L, zelsSub_64fc_I_L, zelsSubC_32f_L, zelsSubC_32f_I_L, zelsSubC_64f_L,
                         zelsSubC_64f_I_L, zelsSubC_32fc_L, zelsSubC_32fc_I_L, zelsSubC_64fc_L,
                         zelsSubC_64fc_I_L, zelsSubCRev_32f_L, zelsSubCRev_32f_I_L, zelsSubCRev_64f_L,
                         zelsSubCRev_64f_I_L, zelsSubCRev_32fc_L, zelsSubCRev_32fc_I_L, zelsSubCRev_64fc_L,
                         zelsSubCRev_64fc_I_L),
                 lengthFirst);
}

TEST(FloatSub, refusesLengthsWhoseDoubleOverflows)
{
    Zel32fc complex{};
    Zel64fc complex64{};
    for (const int len : {1 << 30, INT32_MAX}) {
        EXPECT_EQ(zelsSub_32fc(&complex, &complex, &complex, len), zelErrSize);
        EXPECT_EQ(zelsSub_32fc_I(&complex, &complex, len), zelErrSize);
        EXPECT_EQ(zelsSub_64fc(&complex64, &complex64, &complex64, len), zelErrSize);
        EXPECT_EQ(zelsSub_64fc_I(&complex64, &complex64, len), zelErrSize);
    }
}
