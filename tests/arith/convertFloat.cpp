// Conversion from floats to integers, packed 24-bit integers among them.
#include "support/test.h"

namespace {

/// The value in the model's range: a factor that a long double cannot follow makes 0 or infinity of all floats.
long double timesPower(long double x, int scaleFactor)
{
    return std::scalbn(x, -std::clamp(scaleFactor, -5000, 5000));
}

/// The definition. The half that the financial rule adds is added in the source's float type, to nearest.
template <class F>
long double rounded(F x, ZelRoundMode rnd, int scaleFactor, long double least, long double most)
{
    if (std::isnan(x))
        return least;
    const long double value = std::clamp(timesPower(x, scaleFactor), least, most);
    if (rnd == zelRndZero)
        return std::trunc(value);
    if (rnd == zelRndNear)
        return std::nearbyint(value);
    // A value beyond the float type's integers is one of them, and stays.
    const F sum = static_cast<F>(value) + std::copysign(F{0.5}, static_cast<F>(value));
    return std::clamp<long double>(std::trunc(sum), least, most);
}

template <class D>
struct Narrowed {
    template <class F>
    D operator()(F x, ZelRoundMode rnd, int scaleFactor) const
    {
        using Limits = std::numeric_limits<D>;
        return static_cast<D>(rounded(x, rnd, scaleFactor, Limits::min(), Limits::max()));
    }
};

/// Whole numbers, halves and their neighbours about 0, about both limits and anywhere between, multiplied so that
/// the scale factor brings them back; infinities, NaNs, subnormals.
template <class F>
auto aroundHalves(double most, int scaleFactor)
{
    return [=](Random& random, int, void* pData, std::size_t count) {
        auto* const p = static_cast<F*>(pData);
        for (std::size_t i = 0; i < count; i++) {
            const F base = static_cast<F>(random.below(3) == 0   ? 0
                                          : random.below(2) == 0 ? most + static_cast<double>(random.below(2))
                                                                 : random.uniform(0, most));
            F x = static_cast<F>(std::floor(base)) + static_cast<F>(random.below(13) - 6) / 4;
            for (auto steps = random.below(3); steps > 0; steps--)
                x = std::nextafter(x, random.below(2) == 0 ? F{0} : std::numeric_limits<F>::infinity());
            x = std::scalbn(x, std::clamp(scaleFactor, -5000, 5000));
            if (random.below(32) == 0)
                x = random.below(3) == 0   ? std::numeric_limits<F>::infinity()
                    : random.below(2) == 0 ? std::numeric_limits<F>::quiet_NaN()
                                           : std::numeric_limits<F>::denorm_min();
            p[i] = random.below(2) == 0 ? x : -x;
        }
    };
}

/// Every selector and some factors, on values about the halves; then every length and alignment.
template <class D, class F, class Functions>
void narrows(const Functions& functions)
{
    const Narrowed<D> model;
    const auto most = static_cast<double>(std::numeric_limits<D>::max());
    for (const ZelRoundMode rnd : {-1, 3})
        sweep(model, functions,
              {.block = 0, .lengths = {3000}, .generate = aroundHalves<F>(most, 0), .repeats = 1}, rnd, 0);
    for (const ZelRoundMode rnd : {0, 1, 2}) {
        for (const int s : {0, 1, -1, 7, -31, 31, 120, -120})
            sweep(model, functions,
                  {.block = 0,
                   .lengths = {3000},
                   .modes = Modes::rounding,
                   .modelToNearest = true,
                   .generate = aroundHalves<F>(most, s),
                   .repeats = 1},
                  rnd, s);
        for (const int s : {126, 127, 128, -126, -127, 200, -200, 300, -300, 1022, 1023, -1030, 2200, -2200,
                            INT32_MAX, INT32_MIN})
            sweep(model, functions, {.block = 2, .lengths = {300}, .modelToNearest = true, .repeats = 1}, rnd,
                  s);
        sweep(model, functions, {.lengths = {257}, .repeats = 1}, rnd, 0);
        sweep(model, functions, {.lengths = {257}, .repeats = 1}, rnd, -2);
    }
}

} // namespace

TEST(ConvertFloat, narrows32f)
{
    narrows<Zel8s, Zel32f>(EXPORTS(zelsConvert_32f8s_Sfs));
    narrows<Zel8u, Zel32f>(EXPORTS(zelsConvert_32f8u_Sfs));
    narrows<Zel16s, Zel32f>(EXPORTS(zelsConvert_32f16s_Sfs));
    narrows<Zel16u, Zel32f>(EXPORTS(zelsConvert_32f16u_Sfs));
    narrows<Zel32s, Zel32f>(EXPORTS(zelsConvert_32f32s_Sfs));
}

TEST(ConvertFloat, narrows64f)
{
    narrows<Zel8s, Zel64f>(EXPORTS(zelsConvert_64f8s_Sfs));
    narrows<Zel8u, Zel64f>(EXPORTS(zelsConvert_64f8u_Sfs));
    narrows<Zel16s, Zel64f>(EXPORTS(zelsConvert_64f16s_Sfs));
    narrows<Zel16u, Zel64f>(EXPORTS(zelsConvert_64f16u_Sfs));
    narrows<Zel32s, Zel64f>(EXPORTS(zelsConvert_64f32s_Sfs));
    narrows<Zel64s, Zel64f>(EXPORTS(zelsConvert_64f64s_Sfs));
}

TEST(ConvertFloat, crossesJustBelowOneHalfByTheFinancialRule)
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

TEST(ConvertFloat, limitsThatNoFloatHolds)
{
    const Zel32f x[]{0x1p31f, 0x1.fffffep30f, -0x1p31f, -0x1.000002p31f, INFINITY};
    Zel32s y[5];
    for (const ZelRoundMode rnd : {0, 1, 2}) {
        ASSERT_EQ(zelsConvert_32f32s_Sfs(x, y, 5, rnd, 0), zelStatusOk);
        EXPECT_EQ(y[0], INT32_MAX);
        EXPECT_EQ(y[1], 2147483520);
        EXPECT_EQ(y[2], INT32_MIN);
        EXPECT_EQ(y[3], INT32_MIN);
        EXPECT_EQ(y[4], INT32_MAX);
    }
    const Zel64f wide[]{0x1p63, 0x1.fffffffffffffp62, -0x1p64};
    Zel64s z[3];
    ASSERT_EQ(zelsConvert_64f64s_Sfs(wide, z, 3, 2, 0), zelStatusOk);
    EXPECT_EQ(z[0], INT64_MAX);
    EXPECT_EQ(z[1], 0x7FFFFFFFFFFFFC00);
    EXPECT_EQ(z[2], INT64_MIN);
}

TEST(ConvertFloat, packs24Bits)
{
    const auto packed = [](long double least, long double most) {
        return [=](const Zel32f* pSrc, Zel8u* pDst, ZelSize len, int scaleFactor) {
            for (ZelSize i = 0; i < len; i++) {
                const auto value =
                    static_cast<Zel32s>(rounded(pSrc[i], zelRndNear, scaleFactor, least, most));
                std::memcpy(pDst + 3 * i, &value, 3);
            }
        };
    };
    const auto narrows24 = [&](double least, double most, const auto& functions) {
        for (const int s : {0, 1, -1, 20, -24, 100})
            sweep(packed(least, most), functions,
                  {.block = 0,
                   .lengths = {3001},
                   .modes = Modes::rounding,
                   .modelToNearest = true,
                   .generate = aroundHalves<Zel32f>(most, s),
                   .units = {1, 3}},
                  s);
        for (const int s : {0, 5, -200, 200, INT32_MAX, INT32_MIN})
            sweep(packed(least, most), functions, {.lengths = {257}, .units = {1, 3}, .repeats = 1}, s);
    };
    narrows24(-8388608, 8388607, EXPORTS(zelsConvert_32f24s_Sfs));
    narrows24(0, 16777215, EXPORTS(zelsConvert_32f24u_Sfs));
}

TEST(ConvertFloat, refusesBadArguments)
{
    badArguments(EXPORTS(zelsConvert_32f8s_Sfs, zelsConvert_32f8u_Sfs, zelsConvert_32f16s_Sfs,
                         zelsConvert_32f16u_Sfs, zelsConvert_32f32s_Sfs, zelsConvert_64f8s_Sfs,
                         zelsConvert_64f8u_Sfs, zelsConvert_64f16s_Sfs, zelsConvert_64f16u_Sfs,
                         zelsConvert_64f32s_Sfs, zelsConvert_64f64s_Sfs),
                 pointersFirst);
    badArguments(EXPORTS(zelsConvert_32f24s_Sfs, zelsConvert_32f24u_Sfs), pointersFirst);
    // No rounding mode and no scale factor is refused.
    badArguments(EXPORTS(zelsConvert_32f16s_Sfs), pointersFirst, array(), array(), length(5), value(-77),
                 value(1 << 30));
}

/// Every float between 2^-30 and 2^20 by every rule, in vectors and in the tail, and a sixteenth of all others.
TEST(ConvertFloat, ExhaustiveNarrowing)
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
                if (result[i] != Narrowed<Zel16s>{}(source[i], rnd, scaleFactor))
                    FAIL() << source[i] << " by mode " << rnd << ", factor " << scaleFactor << ": "
                           << result[i];
        }
    }
}
