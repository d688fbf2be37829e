// Conversion between element types.
#include "support/test.h"

namespace {

/// The definition: scaled in single precision (exact but for values too small to count), clamped, rounded by the
/// selector. The half that the financial rule adds is added in single precision, to nearest.
Zel16s narrowed(float x, ZelRoundMode rnd, int scaleFactor)
{
    if (std::isnan(x))
        return -32768;
    const long double clamped = std::clamp(scaledExactly(x, scaleFactor), -32768.0L, 32767.0L);
    if (rnd == zelRndZero)
        return static_cast<Zel16s>(std::trunc(clamped));
    if (rnd == zelRndNear)
        return static_cast<Zel16s>(toNearest(clamped));
    const long double raised = clamped + (std::signbit(x) ? -0.5L : 0.5L);
    // Single precision has 24 bits: the spacing at the sum.
    int exponent = 0;
    std::frexp(raised, &exponent);
    const long double ulp = std::ldexp(1.0L, exponent - 24);
    return static_cast<Zel16s>(std::trunc(toNearest(raised / ulp) * ulp));
}

/// Halves, quarters and whole numbers over the range of Zel16s, their neighbours, and the limits.
void edgesOf16s(Random& random, int, void* pDst, std::size_t count)
{
    auto* const p = static_cast<float*>(pDst);
    for (std::size_t i = 0; i < count; i++) {
        float x = static_cast<float>(random.below(4 * 32770)) / 4;
        if (random.below(3) == 0)
            x = static_cast<float>(random.below(9)) / 4;
        else if (random.below(3) == 0)
            x = 32766 + static_cast<float>(random.below(12)) / 4;
        const auto side = random.below(3);
        x = side == 0 ? x : std::nextafter(x, side == 1 ? INFINITY : 0.0f);
        p[i] = random.below(2) == 0 ? x : -x;
    }
}

} // namespace

TEST(Convert, widens16s)
{
    sweep([](Zel16s x) { return static_cast<float>(x); }, EXPORTS(zelsConvert_16s32f),
          {.modes = Modes::rounding});
}

TEST(Convert, narrowsTo16s)
{
    for (const ZelRoundMode rnd : {-1, 0, 1, 2, 3}) {
        sweep(narrowed, EXPORTS(zelsConvert_32f16s_Sfs),
              {.modes = Modes::rounding, .modelToNearest = true, .generate = edgesOf16s, .repeats = 1}, rnd,
              0);
        for (const int scaleFactor : {0,    1,   -1,   7,   -15, 31,   -126, 126,  -127,      127,
                                      -128, 140, -149, 149, 253, -253, 300,  -300, INT32_MAX, INT32_MIN})
            sweep(narrowed, EXPORTS(zelsConvert_32f16s_Sfs),
                  {.lengths = {}, .modes = Modes::rounding, .modelToNearest = true, .repeats = 1}, rnd,
                  scaleFactor);
    }
}

TEST(Convert, crossesJustBelowOneHalfByTheFinancialRule)
{
    const float values[]{0.49999997f, -0.49999997f, 2.5f,   -2.5f,     0.5f,
                         32766.5f,    40000,        -40000, -32768.5f, NAN};
    const Zel16s financial[]{1, -1, 3, -3, 1, 32767, 32767, -32768, -32768, -32768};
    const Zel16s nearest[]{0, 0, 2, -2, 0, 32766, 32767, -32768, -32768, -32768};
    const Zel16s truncated[]{0, 0, 2, -2, 0, 32766, 32767, -32768, -32768, -32768};
    Zel16s results[10];
    const auto expect = [&](ZelRoundMode rnd, const Zel16s* expected) {
        ASSERT_EQ(zelsConvert_32f16s_Sfs(values, results, 10, rnd, 0), zelStatusOk);
        for (int i = 0; i < 10; i++)
            EXPECT_EQ(results[i], expected[i]) << values[i] << " by mode " << rnd;
    };
    for (const unsigned mode : roundingModes) {
        const FloatMode callers(mode);
        expect(zelRndZero, truncated);
        expect(zelRndNear, nearest);
        expect(zelRndFinancial, financial);
        expect(-1, financial);
        expect(3, financial);
    }
}

TEST(Convert, refusesBadArguments)
{
    // No rounding mode and no scale factor is refused.
    badArguments(EXPORTS(zelsConvert_16s32f, zelsConvert_32f16s_Sfs), pointersFirst);
    badArguments(EXPORTS(zelsConvert_32f16s_Sfs), pointersFirst, array(), array(), length(5), value(-77),
                 value(1 << 30));
}

/// Every float between 2^-30 and 2^20 by every rule, in vectors and in the tail, and a sixteenth of all others.
TEST(Convert, ExhaustiveNarrowing)
{
    constexpr std::size_t block = 1 << 16;
    std::vector<float> source(block + 1);
    std::vector<Zel16s> result(block + 1);
    for (std::uint32_t high = 0; high < 1 << 16; high++) {
        const int exponent = static_cast<int>(high >> 7 & 0xFF) - 127;
        if ((exponent < -30 || exponent > 20) && high % 16 != 5)
            continue;
        for (std::uint32_t low = 0; low <= block; low++)
            source[low] = fromBits<float>(high << 16 | (low % block));
        for (const ZelRoundMode rnd : {0, 1, 2}) {
            const int scaleFactor = static_cast<int>(high % 5) - 2;
            ASSERT_EQ(zelsConvert_32f16s_Sfs(source.data(), result.data(), block + 1, rnd, scaleFactor),
                      zelStatusOk);
            for (std::size_t i = 0; i <= block; i++)
                if (result[i] != narrowed(source[i], rnd, scaleFactor))
                    FAIL() << source[i] << " by mode " << rnd << ", factor " << scaleFactor << ": "
                           << result[i];
        }
    }
}
