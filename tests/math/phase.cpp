// Phases of complex data.
#include "math/polarTools.h"

namespace {

constexpr ErrorBound bound32 = boundOf("Phase", Zel32f{});
constexpr ErrorBound bound64 = boundOf("Phase", Zel64f{});

/// Every pair of special values, in every lane beside ordinary ones: as the standard function has them, the signs
/// of zeros included.
template <class C, class T>
void specials(ZelStatus (*function)(const C*, T*, int))
{
    constexpr T infinity = std::numeric_limits<T>::infinity();
    constexpr T least = std::numeric_limits<T>::denorm_min();
    constexpr T most = std::numeric_limits<T>::max();
    const T values[]{
        0, 1, least, std::numeric_limits<T>::min(), most, infinity, std::numeric_limits<T>::quiet_NaN()};
    for (std::size_t at = 0; at < 4; at++)
        for (const T re : values)
            for (const T im : values)
                for (const T reSign : {T{1}, T{-1}})
                    for (const T imSign : {T{1}, T{-1}}) {
                        C z[]{{3, 4}, {3, 4}, {3, 4}, {3, 4}};
                        z[at] = {std::copysign(re, reSign), std::copysign(im, imSign)};
                        T angle[4];
                        ASSERT_EQ(function(z, angle, 4), zelStatusOk);
                        const T expected = std::atan2(z[at].im, z[at].re);
                        EXPECT_LE(ulpError(angle[at], static_cast<long double>(expected)), 1)
                            << re << ", " << im;
                        EXPECT_TRUE(std::isnan(expected) || std::signbit(angle[at]) == std::signbit(expected))
                            << re << ", " << im;
                        EXPECT_NEAR(angle[(at + 1) % 4], 0.92729521800161224, 1e-7);
                    }
}

} // namespace

TEST(Phase, everyLengthAlignmentAndMode)
{
    sweepFloats(angleOf, EXPORTS(zelsPhase_32f, zelsPhase_16s32f), bound32);
    sweepFloats(ofComplex<angleOf>, EXPORTS(zelsPhase_32fc, zelsPhase_16sc32f), bound32);
    sweepFloats(angleOf, EXPORTS(zelsPhase_64f), bound64);
    sweepFloats(ofComplex<angleOf>, EXPORTS(zelsPhase_64fc), bound64);
    for (const int s : {1, 0, -10, -13, -20}) {
        sweep(fixedPhase, EXPORTS(zelsPhase_16s_Sfs), {.lengths = {257}, .repeats = 1}, s);
        sweep(ofComplex<fixedPhase>, EXPORTS(zelsPhase_16sc_Sfs), {.lengths = {257}, .repeats = 1}, s);
    }
}

TEST(Phase, ofSpecialValues)
{
    specials(zelsPhase_32fc);
    specials(zelsPhase_64fc);
}

TEST(Phase, roundsTheExactAngle)
{
    const auto all = everyValue<Zel16s>();
    for (const Zel16s re : std::initializer_list<Zel16s>{-32768, 0, -1, 3, 32767}) {
        const std::vector<Zel16s> same(all.size(), re);
        checkFactors<Zel16s>(fixedPhase, EXPORTS(zelsPhase_16s_Sfs), {2, 1, 0, -13, -14, -15, -29}, same,
                             all);
    }
    std::vector<Zel16sc> pairs;
    for (const Zel16s re : tellingParts())
        for (const Zel16s im : tellingParts())
            pairs.push_back({re, im});
    checkFactors<Zel16s>(ofComplex<fixedPhase>, EXPORTS(zelsPhase_16sc_Sfs), factors(-32, 3), pairs);
}

TEST(Phase, ExhaustiveOverAllPairs)
{
    // A model in double precision is enough unless a tie is near.
    const auto all = everyValue<Zel16s>();
    std::vector<Zel16s> same(all.size()), result(all.size());
    std::vector<Zel64f> angles(all.size());
    for (const Zel16s re : all) {
        same.assign(all.size(), re);
        for (std::size_t i = 0; i < all.size(); i++)
            angles[i] = std::atan2(static_cast<Zel64f>(all[i]), static_cast<Zel64f>(re));
        for (const int s : {1, 0, -7, -12, -13, -14, -17, -23, -29}) {
            zelsPhase_16s_Sfs(same.data(), all.data(), result.data(), static_cast<int>(all.size()), s);
            const Zel64f factor = std::exp2(-s);
            for (std::size_t i = 0; i < all.size(); i++) {
                const Zel64f exact = std::clamp(angles[i] * factor, -32768.0, 32767.0);
                if (std::abs(exact - result[i]) <= 0.4999999)
                    continue;
                ASSERT_EQ(result[i], fixedPhase(re, all[i], s)) << re << ", " << all[i] << " by " << s;
            }
        }
    }
}

TEST(Phase, refusesBadArguments)
{
    badArguments(EXPORTS(zelsPhase_32f, zelsPhase_64f, zelsPhase_32fc, zelsPhase_64fc, zelsPhase_16s32f,
                         zelsPhase_16sc32f, zelsPhase_16s_Sfs, zelsPhase_16sc_Sfs),
                 pointersFirst);
}
