// Arctangents.
#include "math/polarTools.h"

namespace {

constexpr auto arctan = [](auto x) { return std::atan(static_cast<long double>(x)); };

/// The largest error over the bit patterns from 0 on in steps, and over their negatives.
void walk(std::uint32_t step)
{
    constexpr std::uint32_t end = 0x7f800001;
    constexpr int block = 4096;
    std::vector<Zel32f> x(2 * block), angle(x.size());
    long double worst = 0;
    for (std::uint32_t bits = 0; bits < end;) {
        std::size_t n = 0;
        for (; n < x.size() && bits < end; bits += step) {
            x[n] = fromBits<Zel32f>(bits);
            x[n + 1] = -x[n];
            n += 2;
        }
        ASSERT_EQ(zelsArctan_32f(x.data(), angle.data(), static_cast<int>(n)), zelStatusOk);
        // Double precision is enough beside errors of a whole unit.
        for (std::size_t i = 0; i < n; i++)
            worst = std::max(worst, ulpError(angle[i], static_cast<long double>(std::atan(Zel64f{x[i]}))));
    }
    EXPECT_LE(worst, ulpsPolar);
}

} // namespace

TEST(Arctan, everyLengthAlignmentAndMode)
{
    sweepFloats(arctan, EXPORTS(zelsArctan_32f, zelsArctan_32f_I));
    sweepFloats(arctan, EXPORTS(zelsArctan_64f, zelsArctan_64f_I));
}

TEST(Arctan, aWalkOverTheFloats)
{
    walk(4099);
}

TEST(Arctan, ExhaustiveOverTheFloats)
{
    walk(1);
}

TEST(Arctan, ofDoublesAroundOne)
{
    Random random("arctan");
    std::vector<Zel64f> x(200000), angle(x.size());
    for (Zel64f& value : x)
        value = std::exp2(random.uniform(-12, 12));
    ASSERT_EQ(zelsArctan_64f(x.data(), angle.data(), static_cast<int>(x.size())), zelStatusOk);
    for (std::size_t i = 0; i < x.size(); i++)
        ASSERT_LE(ulpError(angle[i], arctan(x[i])), ulpsPolar) << x[i];
}

TEST(Arctan, refusesBadArguments)
{
    badArguments(EXPORTS(zelsArctan_32f, zelsArctan_32f_I, zelsArctan_64f, zelsArctan_64f_I), pointersFirst);
}
