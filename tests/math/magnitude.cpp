// Magnitudes of complex data.
#include "math/accuracy.h"
#include "math/fixedTools.h"

namespace {

/// The root of a sum of squares that is rounded as it goes; NaN where it overflows.
constexpr auto magnitude32 = [](Zel32f re, Zel32f im) {
    const Zel32f s = re * re + im * im;
    return std::isinf(s) ? static_cast<long double>(NAN) : std::sqrt(static_cast<long double>(s));
};
constexpr auto magnitude64 = [](Zel64f re, Zel64f im) {
    // The exponent range of a long double leaves the squares room.
    return std::hypot(static_cast<long double>(re), static_cast<long double>(im));
};
constexpr auto magnitude16 = [](Zel16s re, Zel16s im) {
    return std::sqrt(static_cast<long double>(static_cast<Zel32f>(Zel64s{re} * re + Zel64s{im} * im)));
};
constexpr auto fixedMagnitude = [](Zel16s re, Zel16s im, int scaleFactor) {
    return scaleFactor > 15 ? Zel16s{0} : scaledRoot<Zel16s>(Wide{re} * re + Wide{im} * im, scaleFactor);
};
/// The steps as they are promised, the last one in the caller's rounding mode.
constexpr auto fixedMagnitude32 = [](Zel32sc z, int scaleFactor) {
    if (scaleFactor > 32)
        return Zel32s{0};
    if (scaleFactor < -30)
        return z.re != 0 || z.im != 0 ? INT32_MAX : Zel32s{0};
    const Zel64f re = z.re;
    const Zel64f im = z.im;
    const Zel64f length = std::sqrt(re * re + im * im);
    return static_cast<Zel32s>(std::nearbyint(std::min(std::ldexp(length, -scaleFactor), 2147483647.0)));
};

constexpr ErrorBound bound32 = boundOf("Magnitude", Zel32f{});
constexpr ErrorBound bound64 = boundOf("Magnitude", Zel64f{});

} // namespace

TEST(Magnitude, estimatedInSinglePrecision)
{
    const SweepOptions options{.ulps = bound32.directed, .modes = Modes::roundingAndFlush};
    sweep(magnitude32, EXPORTS(zelsMagnitude_32f, zelsMagnitude_32f_L), options);
    sweep(ofComplex<magnitude32>, EXPORTS(zelsMagnitude_32fc, zelsMagnitude_32fc_L), options);
    sweep(magnitude16, EXPORTS(zelsMagnitude_16s32f), options);
    sweep(ofComplex<magnitude16>, EXPORTS(zelsMagnitude_16sc32f), options);
}

TEST(Magnitude, edgesOfTheEstimate)
{
    // In every lane, beside ordinary neighbours: sums below the normal numbers have their true root, those
    // that overflow none, and an element's result depends neither on its place nor on the length.
    for (int at = 0; at < 19; at++) {
        std::vector<Zel32fc> z(19, {3, 4});
        const auto found = [&](Zel32fc value) {
            z[static_cast<std::size_t>(at)] = value;
            std::vector<Zel32f> result(19);
            EXPECT_EQ(zelsMagnitude_32fc(z.data(), result.data(), 19), zelStatusOk);
            Zel32f alone = 0;
            zelsMagnitude_32fc(&value, &alone, 1);
            const Zel32f here = result[static_cast<std::size_t>(at)];
            EXPECT_TRUE(samePart(Kind::f32, &here, &alone)) << at;
            EXPECT_NEAR(result[static_cast<std::size_t>((at + 1) % 19)], 5, 3e-6);
            return here;
        };
        EXPECT_TRUE(std::isnan(found({1e20f, 1e20f})));
        EXPECT_TRUE(std::isnan(found({INFINITY, 1})));
        EXPECT_TRUE(std::isnan(found({NAN, 1})));
        EXPECT_EQ(found({0, -0.0f}), 0);
        for (const Zel32f tiny : {1e-20f, 3e-23f, 1e-19f})
            EXPECT_EQ(found({tiny, 0}), std::sqrt(tiny * tiny));
        EXPECT_NEAR(found({1.2345678f, 0}), 1.2345678f, 6e-7);
    }
}

TEST(Magnitude, ofDoublesAsHypot)
{
    const auto split = EXPORTS(zelsMagnitude_64f, zelsMagnitude_64f_L);
    const auto complex = EXPORTS(zelsMagnitude_64fc, zelsMagnitude_64fc_L);
    sweep(magnitude64, split, {.ulps = bound64.nearest});
    sweep(ofComplex<magnitude64>, complex, {.ulps = bound64.nearest});
    // In directed modes each of the roundings may be off by a whole unit.
    sweep(magnitude64, split, {.ulps = bound64.directed, .modes = Modes::rounding, .fills = tameFills});
    const Zel64f specials[]{0.0, -0.0, 5e-324, 1e-310, 1, 1e300, -1.7e308, INFINITY, -INFINITY, NAN};
    for (const unsigned mode : roundingModes)
        for (const Zel64f a : specials)
            for (const Zel64f b : specials) {
                const Zel64fc both[]{{3, 4}, {a, b}};
                Zel64f found[2];
                {
                    const FloatMode callers(mode);
                    ASSERT_EQ(zelsMagnitude_64fc(both, found, 2), zelStatusOk);
                }
                EXPECT_EQ(found[0], 5);
                // What overflows need not be infinite in the other modes.
                if (mode == nearestMode) {
                    EXPECT_LE(ulpError(found[1], magnitude64(a, b)), bound64.nearest) << a << ", " << b;
                }
                EXPECT_TRUE(!std::signbit(found[1]) || std::isnan(found[1]))
                    << a << ", " << b << ", " << modeName(mode);
            }
}

TEST(Magnitude, all16BitPartsByEveryFactor)
{
    const auto all = everyValue<Zel16s>();
    for (const Zel16s other : std::initializer_list<Zel16s>{-32768, 0, 1, 3, 23170, 32767}) {
        const std::vector<Zel16s> others(all.size(), other);
        checkFactors<Zel16s>(fixedMagnitude, EXPORTS(zelsMagnitude_16s_Sfs), factors(-16, 17), all, others);
    }
    std::vector<Zel16sc> pairs;
    for (const Zel16s re : tellingParts())
        for (const Zel16s im : tellingParts())
            pairs.push_back({re, im});
    // Among so many sums of squares are some that single precision cannot tell from the square of a tie.
    Random random("magnitudes");
    for (int i = 0; i < 50000; i++)
        pairs.push_back({static_cast<Zel16s>(random.bits()), static_cast<Zel16s>(random.bits())});
    checkFactors<Zel16s>(ofComplex<fixedMagnitude>, EXPORTS(zelsMagnitude_16sc_Sfs), factors(-16, 17), pairs);
}

TEST(Magnitude, everyFactorOf32sc)
{
    for (const int s : factors(-32, 34))
        sweep(fixedMagnitude32, EXPORTS(zelsMagnitude_32sc_Sfs),
              {.block = 4, .lengths = {100}, .modes = Modes::rounding, .repeats = 1}, s);
}

TEST(Magnitude, everyLengthAndAlignment)
{
    for (const int s : {0, 1, 3, -2, -15, 16}) {
        sweep(fixedMagnitude, EXPORTS(zelsMagnitude_16s_Sfs), {.lengths = {257}, .repeats = 1}, s);
        sweep(ofComplex<fixedMagnitude>, EXPORTS(zelsMagnitude_16sc_Sfs), {.lengths = {257}, .repeats = 1},
              s);
        sweep(fixedMagnitude32, EXPORTS(zelsMagnitude_32sc_Sfs), {.lengths = {257}, .repeats = 1}, s);
    }
}

TEST(MagnitudeLong, worksInChunks)
{
    // The chunks alone are in question here.
    const auto alone = [](Zel64fc z) {
        Zel64f magnitude = 0;
        zelsMagnitude_64fc(&z, &magnitude, 1);
        return magnitude;
    };
    sweepLong(alone, EXPORTS(zelsMagnitude_64fc_L), longChunk<Zel64fc> + 1234, {longChunk<Zel64fc>});
}

TEST(Magnitude, refusesBadArguments)
{
    badArguments(EXPORTS(zelsMagnitude_32f, zelsMagnitude_64f, zelsMagnitude_32fc, zelsMagnitude_64fc,
                         zelsMagnitude_16s32f, zelsMagnitude_16sc32f, zelsMagnitude_16s_Sfs,
                         zelsMagnitude_16sc_Sfs, zelsMagnitude_32sc_Sfs),
                 pointersFirst);
    badArguments(
        EXPORTS(zelsMagnitude_32f_L, zelsMagnitude_64f_L, zelsMagnitude_32fc_L, zelsMagnitude_64fc_L),
        lengthFirst);
}
