// Sums of logarithms: accuracy, and what zeros, negative elements and NaNs do wherever they stand.
#include "support/test.h"

#include <bit>
#include <cstring>

namespace {

/// What a form is made of.
template <class T>
struct Form;
template <>
struct Form<Zel32f> {
    using Bits = Zel32u;
    static constexpr int fraction = 23, bias = 126, unit = 16;
};
template <>
struct Form<Zel64f> {
    using Bits = Zel64u;
    static constexpr int fraction = 52, bias = 1023, unit = 4;
};

template <class T>
using Bits = typename Form<T>::Bits;

template <class T>
constexpr Bits<T> infinity = (~Bits<T>{0} >> 1) >> Form<T>::fraction << Form<T>::fraction;

enum Flag { none, zero, negative, nan };

template <class T>
Flag tailFlag(T x)
{
    const auto bits = std::bit_cast<Bits<T>>(x);
    const Bits<T> quiet = infinity<T> | infinity<T> >> 1;
    if (std::signbit(x))
        return negative;
    return bits == 0 ? zero : (bits & infinity<T>) == infinity<T> && (bits & quiet) == quiet ? nan : none;
}

template <class T>
Flag unitsFlag(const T* x, ZelSize n)
{
    bool has[4] = {};
    for (ZelSize i = 0; i < n; i++) {
        const auto bits = std::bit_cast<Bits<T>>(x[i]);
        has[zero] |= bits == 0;
        has[nan] |= (bits & infinity<T>) == infinity<T>;
        has[negative] |= std::signbit(x[i]);
    }
    if (has[zero])
        return zero;
    if constexpr (sizeof(T) == 4)
        return has[nan] ? nan : has[negative] ? negative : none;
    else
        return has[negative] ? negative : has[nan] ? nan : none;
}

/// The first block that has a flag.
template <class T>
Flag flagOf(const T* x, ZelSize len)
{
    for (ZelSize from = 0; from < len; from += 512) {
        const ZelSize n = std::min<ZelSize>(512, len - from);
        const ZelSize units = n / Form<T>::unit * Form<T>::unit;
        for (ZelSize i = units; i < n; i++)
            if (const Flag flag = tailFlag(x[from + i]); flag != none)
                return flag;
        if (const Flag flag = unitsFlag(x + from, units); flag != none)
            return flag;
    }
    return none;
}

ZelStatus statusOf(Flag flag)
{
    return flag == zero ? zelWarnLnZero : flag == negative ? zelWarnLnNegative : zelStatusOk;
}

/// The logarithm of an element as its bits are read: mantissa and exponent fields, whatever they mean.
template <class T>
long double logOf(T x)
{
    const auto bits = std::bit_cast<Bits<T>>(x);
    const auto mantissa = std::bit_cast<T>(
        static_cast<Bits<T>>((bits & ~infinity<T>) | Bits<T>{Form<T>::bias} << Form<T>::fraction));
    return std::log(static_cast<long double>(mantissa)) +
           (static_cast<int>(bits >> Form<T>::fraction) - Form<T>::bias) * std::log(2.0L);
}

/// `roundings` of single precision an element, and a few of double precision.
template <class T, class Log>
Within exactSum(const T* x, ZelSize len, double roundings, double last, Log log)
{
    long double sum = 0;
    long double magnitudes = 0;
    for (ZelSize i = 0; i < len; i++) {
        sum += log(x[i]);
        magnitudes += std::fabs(log(x[i]));
    }
    const double n = static_cast<double>(len);
    return {sum, n * (roundings * 0x1p-24 + 0x1p-52) + static_cast<double>(magnitudes) * 0x1p-51 +
                     static_cast<double>(std::fabs(sum)) * last};
}

template <class T, class R>
ZelStatus sumLn(const T* x, Within* ln, ZelSize len, double roundings)
{
    const Flag flag = flagOf(x, len);
    if (flag == none)
        *ln = exactSum(x, len, roundings, sizeof(R) == 4 ? 0x1p-24 : 0x1p-53, logOf<T>);
    else
        *ln = {flag == zero ? INFINITY : NAN, 0};
    return statusOf(flag);
}

constexpr auto sumLn32f = [](const Zel32f* x, Within* ln, ZelSize len) {
    return sumLn<Zel32f, Zel32f>(x, ln, len, 0.5); // one for each pair
};
constexpr auto sumLn32f64f = [](const Zel32f* x, Within* ln, ZelSize len) {
    return sumLn<Zel32f, Zel64f>(x, ln, len, 0);
};
constexpr auto sumLn64f = [](const Zel64f* x, Within* ln, ZelSize len) {
    return sumLn<Zel64f, Zel64f>(x, ln, len, 0);
};
constexpr auto sumLn16s = [](const Zel16s* x, Within* ln, ZelSize len) {
    Flag flag = none;
    for (ZelSize from = 0; from < len && flag == none; from += 512) {
        const ZelSize n = std::min<ZelSize>(512, len - from);
        const ZelSize units = n / 32 * 32;
        for (ZelSize i = units; i < n && flag == none; i++)
            flag = x[from + i] < 0 ? negative : x[from + i] == 0 ? zero : none;
        const Zel16s* const last = x + from + units;
        if (flag == none && std::any_of(x + from, last, [](Zel16s v) { return v <= 0; }))
            flag = std::find(x + from, last, Zel16s{0}) != last ? zero : negative;
    }
    // Two roundings on the way to each product of four, and that of the product.
    *ln = flag != none ? Within{flag == zero ? INFINITY : NAN, 0}
                       : exactSum(x, len, 0.75, 0x1p-24,
                                  [](Zel16s v) { return std::log(static_cast<long double>(v)); });
    return statusOf(flag);
};

/// Positive numbers of any exponent, subnormal ones too, and in some arrays a rare element of another kind.
template <class T>
void positiveWithRareOthers(support::Random& random, int, void* data, std::size_t count)
{
    auto* bits = static_cast<Bits<T>*>(data);
    const Bits<T> others[]{0,
                           Bits<T>{1} << (8 * sizeof(T) - 1),
                           std::bit_cast<Bits<T>>(T{-2}),
                           infinity<T>,
                           infinity<T> | 1,
                           infinity<T> | infinity<T> >> 1 | 5,
                           infinity<T> | Bits<T>{1} << (8 * sizeof(T) - 1)};
    const auto every = std::size_t{1} << random.below(14);
    for (std::size_t i = 0; i < count; i++) {
        bits[i] = static_cast<Bits<T>>(random.bits()) & (~Bits<T>{0} >> 1);
        if ((bits[i] & infinity<T>) == infinity<T>)
            bits[i] &= ~infinity<T>;
        if (static_cast<std::size_t>(random.below(static_cast<std::int64_t>(every))) == 0 && every > 4)
            bits[i] = others[random.below(std::size(others))];
    }
}

void positive16s(support::Random& random, int, void* data, std::size_t count)
{
    auto* x = static_cast<Zel16s*>(data);
    const auto every = 1 << random.below(14);
    for (std::size_t i = 0; i < count; i++) {
        x[i] = static_cast<Zel16s>(1 + random.below(32767));
        if (every > 4 && random.below(every) == 0)
            x[i] = static_cast<Zel16s>(random.bits() & 1 ? 0 : -1 - random.below(32768));
    }
}

} // namespace

TEST(SumLn, addsLogarithms)
{
    SweepOptions options{.around = {512, 1024}, .repeats = 12};
    options.generate = positiveWithRareOthers<Zel32f>;
    sweep(sumLn32f, EXPORTS(zelsSumLn_32f), options);
    sweep(sumLn32f64f, EXPORTS(zelsSumLn_32f64f), options);
    options.generate = positiveWithRareOthers<Zel64f>;
    sweep(sumLn64f, EXPORTS(zelsSumLn_64f), options);
    options.generate = positive16s;
    sweep(sumLn16s, EXPORTS(zelsSumLn_16s32f), options);
}

TEST(SumLn, takesFlagsInTheOrderOfEachForm)
{
    const auto check = [](auto sumLn, auto result, auto... elements) {
        std::vector<std::common_type_t<decltype(elements)...>> x(64, 2); // whole units of every form
        std::size_t at = 60;
        ((x[at--] = elements), ...);
        const ZelStatus status = sumLn(x.data(), 64, &result);
        return std::pair(status, std::isnan(result)   ? (std::signbit(result) ? -1 : 1)
                                 : std::isinf(result) ? 2
                                                      : 0);
    };
    const auto zeroFirst = std::pair<ZelStatus, int>(zelWarnLnZero, 2);
    const auto negativeFirst = std::pair<ZelStatus, int>(zelWarnLnNegative, -1);
    const auto nanFirst = std::pair<ZelStatus, int>(zelStatusOk, 1);
    EXPECT_EQ(check(zelsSumLn_32f, 0.0f, NAN, -1.0f, 0.0f), zeroFirst);
    EXPECT_EQ(check(zelsSumLn_32f, 0.0f, NAN, -1.0f), nanFirst);
    EXPECT_EQ(check(zelsSumLn_32f, 0.0f, -1.0f), negativeFirst);
    EXPECT_EQ(check(zelsSumLn_32f, 0.0f, -0.0f), negativeFirst);
    EXPECT_EQ(check(zelsSumLn_32f, 0.0f, INFINITY), nanFirst);
    EXPECT_EQ(check(zelsSumLn_32f64f, 0.0, NAN, -1.0f), nanFirst);
    EXPECT_EQ(check(zelsSumLn_64f, 0.0, static_cast<double>(NAN), -1.0, 0.0), zeroFirst);
    EXPECT_EQ(check(zelsSumLn_64f, 0.0, static_cast<double>(NAN), -1.0), negativeFirst);
    EXPECT_EQ(check(zelsSumLn_64f, 0.0, static_cast<double>(NAN)), nanFirst);
    EXPECT_EQ(check(zelsSumLn_16s32f, 0.0f, Zel16s{-1}, Zel16s{0}), zeroFirst);
    EXPECT_EQ(check(zelsSumLn_16s32f, 0.0f, Zel16s{-1}), negativeFirst);
}

TEST(SumLn, letsInfinitiesBehindTheLastUnitPass)
{
    // Exponent 255 and mantissa 0.5; 2047 and 1.
    const float x = INFINITY;
    const double y = INFINITY;
    float ln{};
    double ln64{};
    ASSERT_EQ(zelsSumLn_32f(&x, 1, &ln), zelStatusOk);
    EXPECT_FLOAT_EQ(ln, static_cast<float>(128 * std::log(2.0)));
    ASSERT_EQ(zelsSumLn_64f(&y, 1, &ln64), zelStatusOk);
    EXPECT_DOUBLE_EQ(ln64, 1024 * std::log(2.0));
    // An element behind the last unit is looked at before all others, in index order.
    std::vector<float> mixed(19, 1.0f);
    mixed[3] = 0;
    mixed[17] = NAN;
    mixed[18] = -1;
    ASSERT_EQ(zelsSumLn_32f(mixed.data(), 19, &ln), zelStatusOk);
    EXPECT_TRUE(std::isnan(ln) && !std::signbit(ln));
}

TEST(SumLn, refusesBadArguments)
{
    badArguments(EXPORTS(zelsSumLn_32f, zelsSumLn_64f, zelsSumLn_32f64f, zelsSumLn_16s32f), pointersFirst);
}
