// Thresholds of complex elements by magnitude, and inverses.
#include "support/test.h"

namespace {

struct WideComplex {
    long double re, im;
};

/// Sums of squares decide; those of doubles need more than 64 bits of a long double only where a limit is met to a
/// rounding, and there both outcomes agree.
template <bool below, class C>
bool isBeyond(C x, Part<C> level)
{
    const long double re = x.re, im = x.im, limit = level;
    const long double m = re * re + im * im;
    return below ? m < limit * limit : m > limit * limit;
}

/// The phase of an infinite element is that of its infinite parts.
template <bool below>
constexpr auto magnitudeLimited = []<class C>(C x, Part<C> level) {
    WideComplex z{x.re, x.im};
    if (!below && level == 0)
        return WideComplex{0, 0};
    if (!isBeyond<below>(x, level))
        return z;
    if (std::isinf(x.re) || std::isinf(x.im))
        z = {std::copysign(std::isinf(z.re) ? 1.0L : 0.0L, z.re),
             std::copysign(std::isinf(z.im) ? 1.0L : 0.0L, z.im)};
    const long double magnitude = std::hypot(z.re, z.im);
    if (magnitude == 0)
        return WideComplex{level, 0};
    return WideComplex{z.re * level / magnitude, z.im * level / magnitude};
};

/// In the element's type, as documented; a NaN is replaced.
template <bool below>
constexpr auto magnitudeReplaced = []<class C>(C x, Part<C> level, C value) {
    if constexpr (std::is_integral_v<Part<C>>) {
        return isBeyond<below>(x, level) ? value : x;
    } else {
        const Part<C> m = x.re * x.re + x.im * x.im;
        return (below ? level * level <= m : m <= level * level) ? x : value;
    }
};
/// At levels whose squares the type does not hold.
template <bool below>
constexpr auto magnitudeReplacedWide = []<class C>(C x, Part<C> level, C value) {
    return std::isnan(x.re) || std::isnan(x.im) || isBeyond<below>(x, level) ? value : x;
};

/// part * level / sqrt(m), rounded to nearest, ties to even, by its square: (2 r + 1)^2 m against 4 (part * level)^2.
Zel16s scaledPart(Zel16s part, Zel16s level, Wide m)
{
    const Wide n = std::abs(int{part}) * level;
    Wide r = static_cast<Wide>(static_cast<long double>(n) / std::sqrt(static_cast<long double>(m))) - 2;
    const auto halfAbove = [&] { return (2 * r + 1) * (2 * r + 1) * m; };
    r = std::max<Wide>(r, 0);
    while (halfAbove() < 4 * n * n || (halfAbove() == 4 * n * n && (r & 1) != 0))
        r++;
    return static_cast<Zel16s>(part < 0 ? -r : r);
}
template <bool below>
constexpr auto integersLimited = [](Zel16sc x, Zel16s level) {
    if (!isBeyond<below>(x, level))
        return x;
    const Wide m = Wide{x.re} * x.re + Wide{x.im} * x.im;
    return m == 0 ? Zel16sc{level, 0} : Zel16sc{scaledPart(x.re, level, m), scaledPart(x.im, level, m)};
};

constexpr auto inverse = []<class C>(C x, auto level) {
    const WideComplex z = magnitudeLimited<true>(x, level);
    const long double m = z.re * z.re + z.im * z.im;
    if (m == 0)
        return WithStatus{WideComplex{1 / 0.0L, 0}, level == 0 ? zelWarnInvZero : zelStatusOk};
    if (std::isinf(m))
        return WithStatus{WideComplex{0, 0}, zelStatusOk};
    return WithStatus{WideComplex{z.re / m, -z.im / m}, zelStatusOk};
};

const SweepOptions exact{.block = 16, .modes = Modes::rounding, .repeats = 1};

/// Ordinary levels, and such as have no square in the type.
template <class P>
std::vector<P> levels()
{
    using Limits = std::numeric_limits<P>;
    return {P{5},          P{0.375},      P{1e9},           P{0}, Limits::denorm_min(),
            Limits::min(), Limits::max(), Limits::max() / 4};
}

} // namespace

TEST(ThresholdMagnitude, keepsThePhase)
{
    const auto both = []<class P>(P, double ulps, const auto& lower, const auto& upper,
                                  const auto& selected) {
        SweepOptions options = exact;
        for (const P level : levels<P>()) {
            for (const Modes modes : {Modes::nearest, Modes::rounding}) {
                options.modes = modes;
                options.ulps = modes == Modes::nearest ? ulps : 2 * ulps;
                sweep(magnitudeLimited<true>, lower, options, level);
                sweep(magnitudeLimited<false>, upper, options, level);
            }
            options.block = 4;
            sweep([](auto x, P l, ZelCmpOp) { return magnitudeLimited<true>(x, l); }, selected, options,
                  level, zelCmpLess);
            sweep([](auto x, P l, ZelCmpOp) { return magnitudeLimited<false>(x, l); }, selected, options,
                  level, zelCmpGreater);
        }
    };
    both(Zel32f{}, 6, EXPORTS(zelsThreshold_LT_32fc, zelsThreshold_LT_32fc_I),
         EXPORTS(zelsThreshold_GT_32fc, zelsThreshold_GT_32fc_I),
         EXPORTS(zelsThreshold_32fc, zelsThreshold_32fc_I));
    both(Zel64f{}, 3, EXPORTS(zelsThreshold_LT_64fc, zelsThreshold_LT_64fc_I),
         EXPORTS(zelsThreshold_GT_64fc, zelsThreshold_GT_64fc_I),
         EXPORTS(zelsThreshold_64fc, zelsThreshold_64fc_I));
}

TEST(ThresholdMagnitude, roundsIntegersOnce)
{
    for (const int level : {0, 1, 7, 300, 23170, 32767}) {
        sweep(integersLimited<true>, EXPORTS(zelsThreshold_LT_16sc, zelsThreshold_LT_16sc_I), exact, level);
        sweep(integersLimited<false>, EXPORTS(zelsThreshold_GT_16sc, zelsThreshold_GT_16sc_I), exact, level);
        sweep([](Zel16sc x, Zel16s l, ZelCmpOp) { return integersLimited<true>(x, l); },
              EXPORTS(zelsThreshold_16sc, zelsThreshold_16sc_I), exact, level, zelCmpLess);
    }
    sweep([](Zel16sc x, Zel16s l, ZelCmpOp) { return integersLimited<false>(x, l); },
          EXPORTS(zelsThreshold_16sc, zelsThreshold_16sc_I), exact, 300, zelCmpGreater);
}

TEST(ThresholdMagnitude, takesSingleElementsTruly)
{
    Zel32fc x[]{{0, 0}, {3, 4}, {-5, -12}, {1e-30f, -0.0f}, {0, 1e-30f}};
    ASSERT_EQ(zelsThreshold_LT_32fc_I(x, 4, 10), zelStatusOk);
    const Zel32fc expected[]{{10, 0}, {6, 8}, {-5, -12}, {10, -0.0f}, {0, 1e-30f}};
    EXPECT_EQ(std::memcmp(x, expected, sizeof x), 0);
}

TEST(ThresholdMagnitude, replacesByValues)
{
    SweepOptions options = exact;
    options.payload = true;
    const auto both = [&]<class C>(C value, auto level, const auto& below, const auto& above) {
        using P = Part<C>;
        options.modes = Modes::roundingAndFlush;
        sweep(magnitudeReplaced<true>, below, options, level, value);
        sweep(magnitudeReplaced<false>, above, options, level, value);
        options.modes = Modes::nearest; // a rounding decides where a level is met
        if constexpr (std::is_floating_point_v<P>)
            for (const P extreme : levels<P>())
                if (extreme * extreme < 1e-30f || std::isinf(extreme * extreme)) {
                    sweep(magnitudeReplacedWide<true>, below, options, extreme, value);
                    sweep(magnitudeReplacedWide<false>, above, options, extreme, value);
                }
    };
    both(Zel32fc{-1, 2}, 5.0f, EXPORTS(zelsThreshold_LTVal_32fc, zelsThreshold_LTVal_32fc_I),
         EXPORTS(zelsThreshold_GTVal_32fc, zelsThreshold_GTVal_32fc_I));
    both(Zel64fc{-1, 2}, 5.0, EXPORTS(zelsThreshold_LTVal_64fc, zelsThreshold_LTVal_64fc_I),
         EXPORTS(zelsThreshold_GTVal_64fc, zelsThreshold_GTVal_64fc_I));
    for (const int level : {0, 5, 32767})
        both(Zel16sc{-1, 2}, static_cast<Zel16s>(level),
             EXPORTS(zelsThreshold_LTVal_16sc, zelsThreshold_LTVal_16sc_I),
             EXPORTS(zelsThreshold_GTVal_16sc, zelsThreshold_GTVal_16sc_I));
}

TEST(ThresholdMagnitude, inverts)
{
    const auto sweepAll = []<class P>(P, double ulps, const auto& list) {
        SweepOptions options = exact;
        for (const P level : levels<P>())
            for (const Modes modes : {Modes::nearest, Modes::rounding}) {
                options.modes = modes;
                options.ulps = modes == Modes::nearest ? ulps : 2 * ulps;
                // Inverses overflow to the largest number in some modes, but for those of zeros.
                if (modes != Modes::nearest && level == std::numeric_limits<P>::denorm_min())
                    continue;
                options.fills =
                    modes != Modes::nearest && level == 0 ? support::tameFills : support::allFills;
                sweep(inverse, list, options, level);
            }
    };
    sweepAll(Zel32f{}, 4, EXPORTS(zelsThreshold_LTInv_32fc, zelsThreshold_LTInv_32fc_I));
    sweepAll(Zel64f{}, 4, EXPORTS(zelsThreshold_LTInv_64fc, zelsThreshold_LTInv_64fc_I));
}

TEST(ThresholdMagnitude, invertsRealElementsTruly)
{
    for (const double level : {0.0, -0.0, 0.75, 1e-42, 1e300})
        sweep(
            []<class T>(T x, T l) {
                const T limited = std::copysign(l == 0 || std::fabs(x) > l ? std::fabs(x) : l, x);
                return WithStatus{1 / limited, l == 0 && x == 0 ? zelWarnInvZero : zelStatusOk};
            },
            EXPORTS(zelsThreshold_LTInv_32f, zelsThreshold_LTInv_32f_I, zelsThreshold_LTInv_64f,
                    zelsThreshold_LTInv_64f_I),
            exact, level);
}
