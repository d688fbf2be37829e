// Half precision: all 65,536 values there and back, every tie between neighbours, in every mode of the caller.
#include "arith/scaledTools.h"

namespace {

constexpr Zel16f infinity16 = 0x7C00;
constexpr Zel16f sign16 = 0x8000;

bool isNaN16(Zel16f h)
{
    return (h & 0x7FFF) > infinity16;
}

/// The definition: sign, exponent, mantissa.
long double valueOf(Zel16f h)
{
    const int exponent = h >> 10 & 31;
    const int mantissa = h & 1023;
    const long double magnitude = isNaN16(h)       ? std::nanl("")
                                  : exponent == 31 ? static_cast<long double>(INFINITY)
                                  : exponent == 0  ? std::scalbn(static_cast<long double>(mantissa), -24)
                                                   : std::scalbn(1024.0L + mantissa, exponent - 25);
    return h & sign16 ? -magnitude : magnitude;
}

enum class Rounding { zero, even, away };

/// The nearest half by a rule: a whole count of the spacing at the value. A NaN gives a NaN.
Zel16f halfOf(long double x, Rounding rounding)
{
    const Zel16f sign = std::signbit(x) ? sign16 : 0;
    const long double magnitude = std::fabs(x);
    if (std::isnan(x))
        return 0x7E00;
    if (std::isinf(x))
        return sign | infinity16;
    int exponent = 0;
    std::frexp(magnitude, &exponent);
    exponent = magnitude == 0 ? -13 : std::max(exponent, -13);
    const long double units = std::scalbn(magnitude, 11 - exponent);
    const long double whole = std::floor(units);
    const long double rest = units - whole;
    const bool odd = std::fmod(whole, 2) != 0;
    const bool up = rounding == Rounding::even   ? rest > 0.5L || (rest == 0.5L && odd)
                    : rounding == Rounding::away ? rest >= 0.5L
                                                 : false;
    const long double bits = whole + up + 1024.0L * (exponent + 13);
    const Zel16f most = rounding == Rounding::zero ? infinity16 - 1 : infinity16;
    return static_cast<Zel16f>(sign | (bits >= most ? most : static_cast<Zel16f>(bits)));
}

Rounding roundingOf(ZelRoundMode rnd)
{
    return rnd == zelRndZero ? Rounding::zero : rnd == zelRndNear ? Rounding::even : Rounding::away;
}

/// A NaN of a half may be any; compared as one.
Zel16f plain(Zel16f h)
{
    return isNaN16(h) ? 0x7E00 : h;
}

/// Halves, the points half-way between neighbours, and what is next to them; floats anywhere.
std::vector<Zel32f> trouble()
{
    std::vector<Zel32f> list{65519.996f, 65520.0f, 65535.0f,        65536.0f, 1e30f, INFINITY,
                             NAN,        0x1p-25f, 0x1.000002p-25f, 0x1p-26f, 1e-40f};
    for (Zel16f h = 0; h < infinity16; h++) {
        const auto low = static_cast<Zel32f>(valueOf(h));
        const auto middle = h == infinity16 - 1
                                ? 65520.0f
                                : static_cast<Zel32f>((valueOf(h) + valueOf(static_cast<Zel16f>(h + 1))) / 2);
        for (const Zel32f x : {low, middle})
            for (const Zel32f y : {x, std::nextafter(x, 0.0f), std::nextafter(x, INFINITY)})
                list.push_back(y);
    }
    for (std::uint64_t bits = 0; bits < (std::uint64_t{1} << 31); bits += 40507)
        list.push_back(fromBits<Zel32f>(static_cast<std::uint32_t>(bits)));
    const std::size_t positive = list.size();
    for (std::size_t i = 0; i < positive; i++)
        list.push_back(-list[i]);
    return list;
}

std::vector<unsigned> allModes()
{
    std::vector<unsigned> modes;
    for (const unsigned mode : roundingModes)
        modes.insert(modes.end(), {mode, mode | flushMode});
    return modes;
}

} // namespace

TEST(ConvertHalf, allValuesThereAndBack)
{
    const std::vector<Zel16f> all = everyValue<Zel16f>();
    std::vector<Zel32f> wide(all.size());
    std::vector<Zel16f> back(all.size());
    for (const unsigned mode : allModes()) {
        const FloatMode callers(mode);
        ASSERT_EQ(zelsConvert_16f32f(all.data(), wide.data(), 65536), zelStatusOk);
        for (const ZelRoundMode rnd : {0, 1, 3}) {
            ASSERT_EQ(zelsConvert_32f16f(wide.data(), back.data(), 65536, rnd), zelStatusOk);
            for (std::size_t i = 0; i < all.size(); i++)
                ASSERT_EQ(back[i], all[i]) << "mode " << modeName(mode);
        }
    }
    for (std::size_t i = 0; i < all.size(); i++) {
        const auto value = static_cast<Zel32f>(valueOf(all[i]));
        ASSERT_TRUE(std::isnan(value) ? std::isnan(wide[i]) : wide[i] == value) << all[i];
        ASSERT_EQ(std::signbit(wide[i]), all[i] >= sign16);
    }
}

TEST(ConvertHalf, roundsFloats)
{
    const std::vector<Zel32f> list = trouble();
    const int len = static_cast<int>(list.size());
    std::vector<Zel16f> expected(list.size()), result(list.size());
    for (const ZelRoundMode rnd : {0, 1, 3}) {
        for (std::size_t i = 0; i < list.size(); i++)
            expected[i] = halfOf(list[i], roundingOf(rnd));
        for (const unsigned mode : allModes()) {
            const FloatMode callers(mode);
            ASSERT_EQ(zelsConvert_32f16f(list.data(), result.data(), len, rnd), zelStatusOk);
            for (std::size_t i = 0; i < list.size(); i++)
                ASSERT_EQ(plain(result[i]), expected[i])
                    << list[i] << " by " << rnd << ", mode " << modeName(mode);
        }
    }
}

TEST(ConvertHalf, keepsNaNsNaNs)
{
    std::vector<Zel32f> list;
    for (const std::uint32_t bits : {0x7F800001u, 0x7F801FFFu, 0x7FC00000u, 0xFFFFFFFFu, 0xFF800001u})
        list.push_back(fromBits<Zel32f>(bits));
    std::vector<Zel16f> result(list.size());
    for (const ZelRoundMode rnd : {0, 1, 3}) {
        ASSERT_EQ(zelsConvert_32f16f(list.data(), result.data(), static_cast<int>(list.size()), rnd),
                  zelStatusOk);
        for (std::size_t i = 0; i < list.size(); i++) {
            EXPECT_TRUE(isNaN16(result[i])) << i;
            EXPECT_EQ(result[i] >= sign16, i >= 3);
        }
    }
}

TEST(ConvertHalf, integersAndHalves)
{
    for (const ZelRoundMode rnd : {-5, 0, 1}) {
        sweep([](Zel16s x,
                 ZelRoundMode r) { return halfOf(x, r == zelRndNear ? Rounding::even : Rounding::zero); },
              EXPORTS(zelsConvert_16s16f), {.lengths = {65536}, .modes = Modes::rounding, .repeats = 1}, rnd);
        const auto narrowed = [](Zel16f h, ZelRoundMode r, int scaleFactor) {
            if (isNaN16(h))
                return Zel16s{-32768};
            const long double x =
                std::clamp(std::scalbn(valueOf(h), -std::clamp(scaleFactor, -500, 500)), -32768.0L, 32767.0L);
            // Halves have few bits: no sum with one half is inexact but where it is far below one.
            const long double y = r == zelRndZero ? std::trunc(x)
                                  : r == zelRndNear
                                      ? std::nearbyint(x)
                                      : std::trunc(static_cast<float>(x + std::copysign(0.5L, x)));
            return static_cast<Zel16s>(std::clamp(y, -32768.0L, 32767.0L));
        };
        const std::vector<Zel16f> all = everyValue<Zel16f>();
        std::vector<Zel16s> result(all.size());
        for (const int s : {0, 1, -1, 4, -10, -14, -40, 40, 150, -150, INT32_MAX, INT32_MIN}) {
            ASSERT_EQ(zelsConvert_16f16s_Sfs(all.data(), result.data(), 65536, rnd, s), zelStatusOk);
            for (std::size_t i = 0; i < all.size(); i++)
                ASSERT_EQ(result[i], narrowed(all[i], rnd, s))
                    << valueOf(all[i]) << " by " << rnd << ", " << s;
        }
        sweep(narrowed, EXPORTS(zelsConvert_16f16s_Sfs),
              {.modes = Modes::rounding, .modelToNearest = true, .repeats = 1}, rnd, -3);
    }
}

TEST(ConvertHalf, everyLengthAndAlignment)
{
    sweep([](Zel16f h) { return static_cast<Zel32f>(valueOf(h)); }, EXPORTS(zelsConvert_16f32f));
    sweep([](Zel32f x, ZelRoundMode) { return halfOf(x, Rounding::even); }, EXPORTS(zelsConvert_32f16f),
          {.values = {.low = -60000, .high = 60000, .only = true}}, zelRndNear);
}

TEST(ConvertHalf, refusesBadArguments)
{
    badArguments(EXPORTS(zelsConvert_16f32f), pointersFirst);
    badArguments(EXPORTS(zelsConvert_32f16f, zelsConvert_16s16f), pointersFirst, array(64), array(64),
                 length(8), selector(1, {2}, zelErrRoundMode));
    badArguments(EXPORTS(zelsConvert_16f16s_Sfs), pointersFirst, array(64), array(64), length(8),
                 selector(1, {2}, zelErrRoundMode), value(0));
}
