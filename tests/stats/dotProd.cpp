// Dot products: the orders of additions bit for bit, integers against exact sums.
#include "stats/orders.h"

namespace {

using support::complexProduct;
using support::Wide;

// Products in the type of the result.

Zel32f productIn(Zel32f, Zel32f a, Zel32f b)
{
    return a * b;
}
Zel64f productIn(Zel64f, Zel32f a, Zel32f b)
{
    return static_cast<double>(a) * static_cast<double>(b);
}
Zel64f productIn(Zel64f, Zel64f a, Zel64f b)
{
    return a * b;
}
template <class C, class B>
C productIn(C, support::Part<B> a, B b)
{
    return {productIn(support::Part<C>{}, a, b.re), productIn(support::Part<C>{}, a, b.im)};
}
template <class C, support::Complex B>
C productIn(C, B a, B b)
{
    using P = support::Part<C>;
    return complexProduct(C{static_cast<P>(a.re), static_cast<P>(a.im)},
                          C{static_cast<P>(b.re), static_cast<P>(b.im)});
}

/// Element i of the round goes to sum `place(i)`; `fold` makes one of the sums; the rest is added in index order.
template <int round, int sums, class R, class A, class B, class Place, class Fold>
R inRounds(const A* x, const B* y, ZelSize from, ZelSize len, R first, Place place, Fold fold)
{
    R s[sums] = {};
    s[0] = first;
    ZelSize i = from;
    for (; len - i >= round; i += round)
        for (int k = 0; k < round; k++)
            s[place(k)] = s[place(k)] + productIn(R{}, x[i + k], y[i + k]);
    R dot = fold(s);
    for (; i < len; i++)
        dot = dot + productIn(R{}, x[i], y[i]);
    return dot;
}

constexpr auto same = [](int k) { return k; };
constexpr auto foldFour = [](auto* s) { return (s[0] + s[2]) + (s[1] + s[3]); };
constexpr auto foldTwo = [](auto* s) { return s[0] + s[1]; };

constexpr auto dot32f = [](const Zel32f* x, const Zel32f* y, Zel32f* dot, ZelSize len) {
    const auto fold = [](float* s) { return ((s[0] + s[2]) + s[4]) + ((s[1] + s[3]) + s[5]); };
    *dot = inRounds<6, 6>(x, y, 0, len, 0.0f, same, fold);
};
constexpr auto inFour = [](const auto* x, const Zel32fc* y, Zel32fc* dot, ZelSize len) {
    *dot = inRounds<4, 4>(x, y, 0, len, Zel32fc{}, same, foldFour);
};
constexpr auto dot32f64f = [](const Zel32f* x, const Zel32f* y, Zel64f* dot, ZelSize len) {
    *dot = inRounds<4, 4>(x, y, 0, len, 0.0, same, foldFour);
};
constexpr auto dot32fc64fc = [](const Zel32fc* x, const Zel32fc* y, Zel64fc* dot, ZelSize len) {
    *dot = inRounds<2, 2>(x, y, 0, len, Zel64fc{}, same, foldTwo);
};
constexpr auto dot32f32fc64fc = [](const Zel32f* x, const Zel32fc* y, Zel64fc* dot, ZelSize len) {
    const ZelSize from = behind(0, 8) == 4 ? 1 : 0;
    const Zel64fc first = from == 1 ? Zel64fc{} + productIn(Zel64fc{}, x[0], y[0]) : Zel64fc{};
    *dot = inRounds<4, 2>(
        x, y, from, len, first, [](int k) { return k % 2; }, foldTwo);
};

/// A group of products goes to the one sum as one value; the rest is added in descending index order.
template <int group, class A, class B, class R>
void inGroups(const A* x, const B* y, R* dot, ZelSize len)
{
    R sum{};
    for (ZelSize i = 0; i < len / group * group; i += group) {
        R p[group];
        for (int k = 0; k < group; k++)
            p[k] = productIn(R{}, x[i + k], y[i + k]);
        if constexpr (group == 8) {
            R lane[2];
            for (int k = 0; k < 2; k++)
                lane[k] = (p[6 + k] + p[2 + k]) + (p[4 + k] + p[k]);
            sum = sum + (lane[1] + lane[0]);
        } else {
            sum = sum + ((p[3] + p[1]) + (p[2] + p[0]));
        }
    }
    for (ZelSize i = len; i-- > len / group * group;)
        sum = sum + productIn(R{}, x[i], y[i]);
    *dot = sum;
}

constexpr auto dot64f = [](const Zel64f* x, const Zel64f* y, Zel64f* dot, ZelSize len) {
    inGroups<8>(x, y, dot, len);
};
constexpr auto dot64fc = [](const Zel64fc* x, const Zel64fc* y, Zel64fc* dot, ZelSize len) {
    inGroups<4>(x, y, dot, len);
};
constexpr auto dot64f64fc = [](const Zel64f* x, const Zel64fc* y, Zel64fc* dot, ZelSize len) {
    inGroups<8>(x, y, dot, len);
};

// Exact products.

Wide exactDot(const Zel16s* x, const Zel16s* y, ZelSize len)
{
    Wide dot = 0;
    for (ZelSize i = 0; i < len; i++)
        dot += Wide{x[i]} * y[i];
    return dot;
}

constexpr auto dot16s64s = [](const Zel16s* x, const Zel16s* y, Zel64s* dot, ZelSize len) {
    *dot = static_cast<Zel64s>(exactDot(x, y, len));
};
constexpr auto dot16s32f = [](const Zel16s* x, const Zel16s* y, Zel32f* dot, ZelSize len) {
    *dot = static_cast<float>(static_cast<Zel64s>(exactDot(x, y, len)));
};
constexpr auto dot16sc = [](const Zel16sc* x, const Zel16sc* y, Zel64sc* dot, ZelSize len) {
    *dot = {};
    for (ZelSize i = 0; i < len; i++) {
        dot->re += Zel64s{x[i].re} * y[i].re - Zel64s{x[i].im} * y[i].im;
        dot->im += Zel64s{x[i].re} * y[i].im + Zel64s{x[i].im} * y[i].re;
    }
};
constexpr auto dot16s16sc = [](const Zel16s* x, const Zel16sc* y, Zel64sc* dot, ZelSize len) {
    *dot = {};
    for (ZelSize i = 0; i < len; i++) {
        dot->re += Zel64s{x[i]} * y[i].re;
        dot->im += Zel64s{x[i]} * y[i].im;
    }
};
constexpr auto dot16s32s = [](const Zel16s* x, const Zel16s* y, Zel32s* dot, ZelSize len, int scaleFactor) {
    *dot = support::scaled<Zel32s>(exactDot(x, y, len), std::min(scaleFactor, 31));
};

/// Sums of doubles to nearest: places 0, 1, 4, 5 of a round of six in one pair of lanes, 2 and 3 in another.
constexpr auto nearest = [](const auto* x, const Zel32s* y, Zel32s* dot, ZelSize len, int scaleFactor) {
    double a[4] = {};
    ZelSize i = 0;
    for (; len - i >= 6; i += 6)
        for (int k = 0; k < 6; k++)
            a[k % 4] += static_cast<double>(x[i + k]) * y[i + k];
    for (; i < len; i++)
        a[0] += static_cast<double>(x[i]) * y[i];
    const double value = ((a[0] + a[2]) + (a[1] + a[3])) * std::ldexp(1.0, -std::clamp(scaleFactor, -31, 93));
    *dot = static_cast<Zel32s>(std::nearbyint(std::clamp(value, -2147483648.0, 2147483647.0)));
};

constexpr int scaledDots[]{0,  1,    2,         8,  15, 16, 30,  31,  32,  33,  62,  63,    93,
                           94, 1000, INT32_MAX, -1, -2, -8, -16, -30, -31, -32, -64, -1000, INT32_MIN};

} // namespace

TEST(DotProd, addsFloatsInOrder)
{
    const SweepOptions options{.modes = Modes::roundingAndFlush, .repeats = 8};
    sweep(dot32f, EXPORTS(zelsDotProd_32f), options);
    sweep(inFour, EXPORTS(zelsDotProd_32fc, zelsDotProd_32f32fc), options);
    sweep(dot32f64f, EXPORTS(zelsDotProd_32f64f, zelsDotProd_32f64f_L), options);
    sweep(dot32fc64fc, EXPORTS(zelsDotProd_32fc64fc, zelsDotProd_32fc64fc_L), options);
    sweep(dot32f32fc64fc, EXPORTS(zelsDotProd_32f32fc64fc, zelsDotProd_32f32fc64fc_L), options);
    sweep(dot64f, EXPORTS(zelsDotProd_64f, zelsDotProd_64f_L), options);
    sweep(dot64fc, EXPORTS(zelsDotProd_64fc, zelsDotProd_64fc_L), options);
    sweep(dot64f64fc, EXPORTS(zelsDotProd_64f64fc, zelsDotProd_64f64fc_L), options);
}

TEST(DotProd, addsProductsOf16BitsExactly)
{
    const SweepOptions options{.around = {65536}, .modes = Modes::rounding};
    sweep(dot16s64s, EXPORTS(zelsDotProd_16s64s), options);
    sweep(dot16s32f, EXPORTS(zelsDotProd_16s32f), options);
    sweep(dot16sc, EXPORTS(zelsDotProd_16sc64sc), options);
    sweep(dot16s16sc, EXPORTS(zelsDotProd_16s16sc64sc), options);
    for (const int factor : scaledDots)
        sweep<LengthIs::first>(dot16s32s, EXPORTS(zelsDotProd_16s32s_Sfs),
                               {.around = {257}, .modes = Modes::rounding, .repeats = 1}, factor);
}

TEST(DotProd, keepsLargestProductsExact)
{
    // -32768 * -32768 twice is the one pair that 32 bits do not hold; all lanes at it, past several blocks.
    for (const int n : {1, 2, 3, 15, 32768, 3 * 65536 + 5}) {
        const std::vector<Zel16s> low(static_cast<std::size_t>(2 * n), -32768);
        const auto* complex = reinterpret_cast<const Zel16sc*>(low.data());
        Zel64s dot{};
        ASSERT_EQ(zelsDotProd_16s64s(low.data(), low.data(), n, &dot), zelStatusOk);
        EXPECT_EQ(dot, Zel64s{n} << 30);
        Zel64sc dots{};
        ASSERT_EQ(zelsDotProd_16sc64sc(complex, complex, n, &dots), zelStatusOk);
        EXPECT_EQ(dots.re, 0);
        EXPECT_EQ(dots.im, Zel64s{n} << 31);
        ASSERT_EQ(zelsDotProd_16s16sc64sc(low.data(), complex, n, &dots), zelStatusOk);
        EXPECT_EQ(dots.re, Zel64s{n} << 30);
        EXPECT_EQ(dots.im, Zel64s{n} << 30);
        // The real part at its largest: -32768 * -32768 - (-32768 * 32767).
        std::vector<Zel16sc> conjugates(static_cast<std::size_t>(n), Zel16sc{-32768, 32767});
        ASSERT_EQ(zelsDotProd_16sc64sc(complex, conjugates.data(), n, &dots), zelStatusOk);
        EXPECT_EQ(dots.re, n * ((Zel64s{1} << 31) - 32768));
        EXPECT_EQ(dots.im, n * Zel64s{32768});
    }
}

TEST(DotProd, addsProductsOf32BitsToNearest)
{
    for (const int factor : scaledDots) {
        const SweepOptions options{.modes = Modes::rounding, .modelToNearest = true, .repeats = 1};
        sweep<LengthIs::first>(nearest, EXPORTS(zelsDotProd_32s_Sfs, zelsDotProd_16s32s32s_Sfs), options,
                               factor);
        // Results in range, ties among them.
        SweepOptions small = options;
        small.values = {.low = -9, .high = 9, .only = true};
        sweep<LengthIs::first>(nearest, EXPORTS(zelsDotProd_32s_Sfs, zelsDotProd_16s32s32s_Sfs), small,
                               factor);
    }
}

TEST(DotProd, refusesBadArguments)
{
    badArguments<LengthIs::first>(
        EXPORTS(zelsDotProd_32f, zelsDotProd_32fc, zelsDotProd_32f32fc, zelsDotProd_32f64f,
                zelsDotProd_32f64f_L, zelsDotProd_32fc64fc, zelsDotProd_32fc64fc_L, zelsDotProd_32f32fc64fc,
                zelsDotProd_32f32fc64fc_L, zelsDotProd_64f, zelsDotProd_64f_L, zelsDotProd_64fc,
                zelsDotProd_64fc_L, zelsDotProd_64f64fc, zelsDotProd_64f64fc_L, zelsDotProd_16s32f,
                zelsDotProd_16s64s, zelsDotProd_16sc64sc, zelsDotProd_16s16sc64sc, zelsDotProd_16s32s_Sfs,
                zelsDotProd_16s32s32s_Sfs, zelsDotProd_32s_Sfs),
        pointersFirst);
}
