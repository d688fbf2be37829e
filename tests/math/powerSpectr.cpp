// Powers of complex data.
#include "math/fixedTools.h"

namespace {

constexpr auto power = []<class T>(T re, T im) { return static_cast<T>(re * re + im * im); };
constexpr auto power16 = [](Zel16s re, Zel16s im) {
    return static_cast<Zel32f>(Zel64s{re} * re + Zel64s{im} * im);
};
constexpr auto fixedPower = [](Zel16s re, Zel16s im, int scaleFactor) {
    return scaled<Zel16s>(Wide{re} * re + Wide{im} * im, scaleFactor);
};
} // namespace

TEST(PowerSpectr, ofFloats)
{
    const SweepOptions options{.modes = Modes::roundingAndFlush};
    sweep(power,
          EXPORTS(zelsPowerSpectr_32f, zelsPowerSpectr_32f_L, zelsPowerSpectr_64f, zelsPowerSpectr_64f_L),
          options);
    sweep(ofComplex<power>,
          EXPORTS(zelsPowerSpectr_32fc, zelsPowerSpectr_32fc_L, zelsPowerSpectr_64fc, zelsPowerSpectr_64fc_L),
          options);
    sweep(power16, EXPORTS(zelsPowerSpectr_16s32f), options);
    sweep(ofComplex<power16>, EXPORTS(zelsPowerSpectr_16sc32f), options);
}

TEST(PowerSpectr, largestPowerDoesNotWrap)
{
    const Zel16sc z[]{{-32768, -32768}, {0, 1}};
    Zel32f found[2];
    ASSERT_EQ(zelsPowerSpectr_16sc32f(z, found, 2), zelStatusOk);
    EXPECT_EQ(found[0], 0x1p31f);
    EXPECT_EQ(found[1], 1);
}

TEST(PowerSpectr, all16BitPartsByEveryFactor)
{
    const auto all = everyValue<Zel16s>();
    for (const Zel16s other : std::initializer_list<Zel16s>{-32768, 0, 1, 181, 23170, 32767}) {
        const std::vector<Zel16s> others(all.size(), other);
        checkFactors<Zel16s>(fixedPower, EXPORTS(zelsPowerSpectr_16s_Sfs), factors(-17, 33), all, others);
    }
    std::vector<Zel16sc> pairs;
    for (const Zel16s re : tellingParts())
        for (const Zel16s im : tellingParts())
            pairs.push_back({re, im});
    checkFactors<Zel16s>(ofComplex<fixedPower>, EXPORTS(zelsPowerSpectr_16sc_Sfs), factors(-17, 33), pairs);
}

TEST(PowerSpectr, everyLengthAndAlignment)
{
    for (const int s : {0, 1, 16, 32, -2, -15}) {
        sweep(fixedPower, EXPORTS(zelsPowerSpectr_16s_Sfs), {.lengths = {257}, .repeats = 1}, s);
        sweep(ofComplex<fixedPower>, EXPORTS(zelsPowerSpectr_16sc_Sfs), {.lengths = {257}, .repeats = 1}, s);
    }
}

TEST(PowerSpectrLong, worksInChunks)
{
    sweepLong(power, EXPORTS(zelsPowerSpectr_32f_L), longChunk<Zel32f> + 1234, {longChunk<Zel32f>});
    sweepLong(ofComplex<power>, EXPORTS(zelsPowerSpectr_64fc_L), longChunk<Zel64fc> + 1234,
              {longChunk<Zel64fc>});
}

TEST(PowerSpectr, refusesBadArguments)
{
    badArguments(EXPORTS(zelsPowerSpectr_32f, zelsPowerSpectr_64f, zelsPowerSpectr_32fc, zelsPowerSpectr_64fc,
                         zelsPowerSpectr_16s32f, zelsPowerSpectr_16sc32f, zelsPowerSpectr_16s_Sfs,
                         zelsPowerSpectr_16sc_Sfs),
                 pointersFirst);
    badArguments(
        EXPORTS(zelsPowerSpectr_32f_L, zelsPowerSpectr_64f_L, zelsPowerSpectr_32fc_L, zelsPowerSpectr_64fc_L),
        lengthFirst);
}
