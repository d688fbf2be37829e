// Conversion from integers, to wider and narrower ones and to floats.
#include "arith/scaledTools.h"

namespace {

template <class D>
constexpr auto converted = [](auto x) { return static_cast<D>(x); };

template <class D>
constexpr auto saturatedTo = [](auto x) { return saturated<D>(Wide{x}); };

/// x times 2^-scaleFactor, rounded once by a selector, saturated.
template <class D>
D roundedBy(Wide x, ZelRoundMode rnd, int scaleFactor)
{
    if (scaleFactor <= 0 || rnd == zelRndNear)
        return scaled<D>(x, scaleFactor);
    if (scaleFactor > 100)
        return 0;
    const Wide magnitude = x < 0 ? -x : x;
    const Wide quotient = (magnitude + (rnd == zelRndZero ? 0 : Wide{1} << (scaleFactor - 1))) >> scaleFactor;
    return saturated<D>(x < 0 ? -quotient : quotient);
}

template <class D>
constexpr auto narrowed =
    [](auto x, ZelRoundMode rnd, int scaleFactor) { return roundedBy<D>(x, rnd, scaleFactor); };

/// Converted, then multiplied: each step by the caller's rounding mode.
template <class F>
constexpr auto scaledFloat = [](auto x, int scaleFactor) {
    return std::scalbn(static_cast<F>(x), -std::clamp(scaleFactor, -5000, 5000));
};

/// Packed 24-bit elements; the model of one element takes and gives a Wide.
template <class Element>
auto packing(Element element)
{
    return [=](const auto* pSrc, Zel8u* pDst, ZelSize len, int scaleFactor) {
        for (ZelSize i = 0; i < len; i++) {
            const auto value = static_cast<Zel32u>(element(Wide{pSrc[i]}, scaleFactor));
            std::memcpy(pDst + 3 * i, &value, 3);
        }
    };
}

Zel32u unsigned24(const Zel8u* p)
{
    return static_cast<Zel32u>(p[0] | p[1] << 8 | p[2] << 16);
}
Zel32s signed24(const Zel8u* p)
{
    return static_cast<Zel32s>(unsigned24(p) << 8) >> 8;
}

template <auto element>
constexpr auto unpacking = [](const Zel8u* pSrc, auto* pDst, ZelSize len) {
    for (ZelSize i = 0; i < len; i++)
        pDst[i] = static_cast<std::remove_reference_t<decltype(*pDst)>>(element(pSrc + 3 * i));
};

} // namespace

TEST(ConvertInteger, widens)
{
    const SweepOptions options{.modes = Modes::rounding, .repeats = 1};
    sweep(converted<Zel16s>, EXPORTS(zelsConvert_8s16s), options);
    sweep(converted<Zel32s>, EXPORTS(zelsConvert_16s32s));
    sweep(converted<Zel32f>,
          EXPORTS(zelsConvert_8s32f, zelsConvert_8u32f, zelsConvert_16s32f, zelsConvert_16u32f,
                  zelsConvert_32s32f, zelsConvert_64f32f),
          options);
    sweep(converted<Zel64f>, EXPORTS(zelsConvert_32s64f, zelsConvert_64s64f), options);
    sweep(converted<Zel64f>, EXPORTS(zelsConvert_32f64f));
    sweep(converted<Zel32f>, EXPORTS(zelsConvert_32s32f, zelsConvert_64f32f),
          {.block = 4, .modes = Modes::roundingAndFlush});
}

TEST(ConvertInteger, scalesFloats)
{
    for (const int s :
         {0,    1,    -1,   15,   31,   126,  127,  140,  149,  164,   165,   300,       -96,      -97,
          -112, -113, -127, -200, -300, 1022, 1060, 1074, 1080, -1000, -1100, INT32_MAX, INT32_MIN}) {
        const SweepOptions options{
            .block = s == 0 || s == 1 ? 32 : 4, .modes = Modes::rounding, .repeats = 1};
        sweep(scaledFloat<Zel32f>, EXPORTS(zelsConvert_16s32f_Sfs, zelsConvert_32s32f_Sfs), options, s);
        sweep(scaledFloat<Zel64f>, EXPORTS(zelsConvert_16s64f_Sfs, zelsConvert_32s64f_Sfs), options, s);
    }
}

TEST(ConvertInteger, narrowsBySaturation)
{
    sweep(saturatedTo<Zel8u>, EXPORTS(zelsConvert_8s8u));
    sweep(saturatedTo<Zel16s>, EXPORTS(zelsConvert_32s16s));
}

TEST(ConvertIntegerLong, stream)
{
    const auto above = [](ZelSize threshold) {
        return SweepOptions{.block = 0, .around = {threshold}, .lengths = {}, .repeats = 1};
    };
    sweep(converted<Zel32s>, EXPORTS(zelsConvert_16s32s), above(699050));
    sweep(converted<Zel64f>, EXPORTS(zelsConvert_32f64f), above(349525));
    sweep(scaledFloat<Zel64f>, EXPORTS(zelsConvert_16s64f_Sfs), above(419430), 7);
    sweep(saturatedTo<Zel16s>, EXPORTS(zelsConvert_32s16s), above(699050));
}

TEST(ConvertInteger, narrowsByTheScaleFactorRule)
{
    // The factor itself is clamped: 100 acts as 31, which leaves -1 of the most negative value.
    const auto narrowed32s16s = [](Zel32s x, int s) { return scaled<Zel16s>(x, std::min(s, 31)); };
    sweepFactors<Zel32s>(narrowed32s16s, EXPORTS(zelsConvert_32s16s_Sfs), -18, 34);
    sweepPaths(narrowed32s16s, EXPORTS(zelsConvert_32s16s_Sfs), {0, 1, 5, 100, -3, -50});
    const Zel32s least = INT32_MIN;
    Zel16s result = 0;
    ASSERT_EQ(zelsConvert_32s16s_Sfs(&least, &result, 1, 100), zelStatusOk);
    EXPECT_EQ(result, -1);
}

TEST(ConvertInteger, narrowsByARoundingMode)
{
    const std::vector<Zel16s> all = everyValue<Zel16s>();
    for (const ZelRoundMode rnd : {-1, 3})
        sweep(narrowed<Zel8s>, EXPORTS(zelsConvert_8u8s_Sfs, zelsConvert_16s8s_Sfs), {.repeats = 1}, rnd, 1);
    for (const ZelRoundMode rnd : {0, 1, 2}) {
        sweepFactors<Zel8u>(narrowed<Zel8s>, EXPORTS(zelsConvert_8u8s_Sfs), -10, 11, rnd);
        sweepFactors<Zel64s>(narrowed<Zel32s>, EXPORTS(zelsConvert_64s32s_Sfs), -34, 67, rnd);
        std::vector<Zel8s> result(all.size());
        for (const int s : factors(-10, 19)) {
            ASSERT_EQ(zelsConvert_16s8s_Sfs(all.data(), result.data(), 65536, rnd, s), zelStatusOk);
            for (std::size_t i = 0; i < all.size(); i++)
                ASSERT_EQ(result[i], roundedBy<Zel8s>(all[i], rnd, s))
                    << all[i] << " by " << s << ", " << rnd;
        }
        for (const int s : {0, 1, 5, 40, -2, -70}) {
            sweep(narrowed<Zel8s>, EXPORTS(zelsConvert_8u8s_Sfs, zelsConvert_16s8s_Sfs), {.repeats = 1}, rnd,
                  s);
            sweep(narrowed<Zel32s>, EXPORTS(zelsConvert_64s32s_Sfs), {.repeats = 1}, rnd, s);
        }
    }
}

TEST(ConvertInteger, unpacks24Bits)
{
    const SweepOptions options{.units = {3, 1}};
    sweep(unpacking<signed24>, EXPORTS(zelsConvert_24s32s, zelsConvert_24s32f), options);
    sweep(unpacking<unsigned24>, EXPORTS(zelsConvert_24u32u, zelsConvert_24u32f), options);
}

TEST(ConvertInteger, packs24Bits)
{
    const auto toSigned = packing([](Wide x, int scaleFactor) {
        return std::clamp<Wide>(scaled<Zel64s>(x, std::min(scaleFactor, 31)), -8388608, 8388607);
    });
    const auto toUnsigned = packing([](Wide x, int scaleFactor) {
        return std::min<Wide>(scaled<Zel64s>(x, std::min(scaleFactor, 31)), 16777215);
    });
    for (const int s : factors(-33, 34)) {
        const SweepOptions options{
            .block = 0, .lengths = {500}, .generate = edgySources<Zel32s>(), .units = {1, 3}};
        sweep(toSigned, EXPORTS(zelsConvert_32s24s_Sfs), options, s);
        sweep(toUnsigned, EXPORTS(zelsConvert_32u24u_Sfs), options, s);
    }
    for (const int s : {0, 1, 7, 100, -3, -50}) {
        sweep(toSigned, EXPORTS(zelsConvert_32s24s_Sfs), {.units = {1, 3}, .repeats = 1}, s);
        sweep(toUnsigned, EXPORTS(zelsConvert_32u24u_Sfs), {.units = {1, 3}, .repeats = 1}, s);
    }
}

TEST(ConvertInteger, refusesBadArguments)
{
    badArguments(EXPORTS(zelsConvert_8s16s, zelsConvert_8s32f, zelsConvert_8s8u, zelsConvert_8u32f,
                         zelsConvert_16s32f, zelsConvert_16s32s, zelsConvert_16u32f, zelsConvert_24s32f,
                         zelsConvert_24s32s, zelsConvert_24u32f, zelsConvert_24u32u, zelsConvert_32f64f,
                         zelsConvert_32s16s, zelsConvert_32s32f, zelsConvert_32s64f, zelsConvert_64f32f,
                         zelsConvert_64s64f, zelsConvert_16s32f_Sfs, zelsConvert_16s64f_Sfs,
                         zelsConvert_32s16s_Sfs, zelsConvert_32s24s_Sfs, zelsConvert_32s32f_Sfs,
                         zelsConvert_32s64f_Sfs, zelsConvert_32u24u_Sfs, zelsConvert_8u8s_Sfs,
                         zelsConvert_16s8s_Sfs, zelsConvert_64s32s_Sfs),
                 pointersFirst);
}
