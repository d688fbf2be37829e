// Thresholds of real elements: values and absolute values.
#include "support/test.h"

namespace {

/// Where denormals are zeros, a maximum or minimum gives them as zeros.
template <class T>
T seen(T x)
{
    if constexpr (std::is_floating_point_v<T>)
        if ((support::currentMode() & support::flushMode) != 0 &&
            std::fabs(x) < std::numeric_limits<T>::min())
            return std::copysign(T{0}, x);
    return x;
}

constexpr auto atLeast = [](auto x, auto level) { return seen(x) > seen(level) ? seen(x) : seen(level); };
constexpr auto atMost = [](auto x, auto level) { return seen(x) < seen(level) ? seen(x) : seen(level); };
constexpr auto limited = [](auto x, auto level, ZelCmpOp op) {
    return op == 0 ? atLeast(x, level) : atMost(x, level);
};
constexpr auto replacedBelow = [](auto x, auto level, auto value) { return level <= x ? x : value; };
constexpr auto replacedAbove = [](auto x, auto level, auto value) { return x <= level ? x : value; };
constexpr auto replacedBoth = [](auto x, auto low, auto forLow, auto high, auto forHigh) {
    return x < low ? forLow : x > high ? forHigh : x;
};

/// Signs are those of the elements, also where the level is -0 and where an integer has no negative.
template <bool below>
constexpr auto absoluteLimited = []<class T>(T x, T level) {
    if constexpr (std::is_integral_v<T>) {
        const Wide magnitude = x < 0 ? -Wide{x} : Wide{x};
        const Wide limit = below ? std::max<Wide>(magnitude, level) : std::min<Wide>(magnitude, level);
        return static_cast<T>(x < 0 ? -limit : limit);
    } else {
        const T magnitude = std::fabs(x);
        return std::copysign(below ? atLeast(magnitude, level) : atMost(magnitude, level), x);
    }
};
constexpr auto absoluteReplaced = []<class T>(T x, T level, T value) {
    if constexpr (std::is_integral_v<T>)
        return (x < 0 ? -Wide{x} : Wide{x}) < level ? value : x;
    else
        return std::fabs(x) < level ? value : x;
};

const SweepOptions options{.block = 16, .payload = true, .modes = Modes::roundingAndFlush, .repeats = 1};

enum Levels { any, notNegative };

/// Sweeps with levels of every kind in the first scalar's place.
template <class T, Modes modes = Modes::roundingAndFlush, class Model, class List, class... More>
void overLevels(Levels which, const Model& model, const List& list, More... more)
{
    SweepOptions inModes = options;
    inModes.modes = modes;
    using Limits = std::numeric_limits<T>;
    std::vector<T> levels{T{0}, T{3}, T{-5}, Limits::max(), Limits::lowest()};
    if constexpr (std::is_floating_point_v<T>)
        levels.insert(levels.end(),
                      {-T{0}, T{1.5}, Limits::denorm_min(), Limits::infinity(), Limits::quiet_NaN()});
    for (const T level : levels)
        if (which == any || !(level < 0))
            sweep(model, list, inModes, level, more...);
}

/// The limits of values and of absolute values.
template <Modes modes>
struct Limits {
    template <class T>
    static void values(T, const auto& lower, const auto& upper)
    {
        overLevels<T, modes>(any, atLeast, lower);
        overLevels<T, modes>(any, atMost, upper);
    }
    template <class T>
    static void absoluteValues(T, const auto& lower, const auto& upper)
    {
        overLevels<T, modes>(notNegative, absoluteLimited<true>, lower);
        overLevels<T, modes>(notNegative, absoluteLimited<false>, upper);
    }
    static void ofFloats()
    {
        values(Zel32f{}, EXPORTS(zelsThreshold_LT_32f, zelsThreshold_LT_32f_I),
               EXPORTS(zelsThreshold_GT_32f, zelsThreshold_GT_32f_I));
        values(Zel64f{}, EXPORTS(zelsThreshold_LT_64f, zelsThreshold_LT_64f_I),
               EXPORTS(zelsThreshold_GT_64f, zelsThreshold_GT_64f_I));
        for (const ZelCmpOp op : {zelCmpLess, zelCmpGreater}) {
            overLevels<Zel32f, modes>(any, limited, EXPORTS(zelsThreshold_32f, zelsThreshold_32f_I), op);
            overLevels<Zel64f, modes>(any, limited, EXPORTS(zelsThreshold_64f, zelsThreshold_64f_I), op);
        }
        absoluteValues(Zel32f{},
                       EXPORTS(zelsThreshold_LTAbs_32f, zelsThreshold_LTAbs_32f_I, zelsThreshold_LTAbs_32f_L,
                               zelsThreshold_LTAbs_32f_I_L),
                       EXPORTS(zelsThreshold_GTAbs_32f, zelsThreshold_GTAbs_32f_I));
        absoluteValues(Zel64f{},
                       EXPORTS(zelsThreshold_LTAbs_64f, zelsThreshold_LTAbs_64f_I, zelsThreshold_LTAbs_64f_L,
                               zelsThreshold_LTAbs_64f_I_L),
                       EXPORTS(zelsThreshold_GTAbs_64f, zelsThreshold_GTAbs_64f_I));
    }
};

} // namespace

TEST(Threshold, limitsIntegers)
{
    using InEveryMode = Limits<Modes::rounding>;
    InEveryMode::values(Zel16s{}, EXPORTS(zelsThreshold_LT_16s, zelsThreshold_LT_16s_I),
                        EXPORTS(zelsThreshold_GT_16s, zelsThreshold_GT_16s_I));
    InEveryMode::values(Zel32s{}, EXPORTS(zelsThreshold_LT_32s, zelsThreshold_LT_32s_I),
                        EXPORTS(zelsThreshold_GT_32s, zelsThreshold_GT_32s_I));
    InEveryMode::absoluteValues(Zel16s{}, EXPORTS(zelsThreshold_LTAbs_16s, zelsThreshold_LTAbs_16s_I),
                                EXPORTS(zelsThreshold_GTAbs_16s, zelsThreshold_GTAbs_16s_I));
    InEveryMode::absoluteValues(Zel32s{}, EXPORTS(zelsThreshold_LTAbs_32s, zelsThreshold_LTAbs_32s_I),
                                EXPORTS(zelsThreshold_GTAbs_32s, zelsThreshold_GTAbs_32s_I));
    for (const ZelCmpOp op : {zelCmpLess, zelCmpGreater})
        overLevels<Zel16s>(any, limited, EXPORTS(zelsThreshold_16s, zelsThreshold_16s_I), op);
}

TEST(Threshold, limitsFloats)
{
    Limits<Modes::rounding>::ofFloats();
}

/// Minimum and maximum take subnormal numbers as zeros then.
TEST(Threshold, limitsFlushedFloats)
{
    Limits<Modes::roundingAndFlush>::ofFloats();
}

TEST(Threshold, replacesValues)
{
    const auto both = []<class T>(T value, const auto& below, const auto& above) {
        overLevels<T>(any, replacedBelow, below, value);
        overLevels<T>(any, replacedAbove, above, value);
    };
    both(Zel16s{7}, EXPORTS(zelsThreshold_LTVal_16s, zelsThreshold_LTVal_16s_I),
         EXPORTS(zelsThreshold_GTVal_16s, zelsThreshold_GTVal_16s_I));
    both(Zel32f{NAN}, EXPORTS(zelsThreshold_LTVal_32f, zelsThreshold_LTVal_32f_I),
         EXPORTS(zelsThreshold_GTVal_32f, zelsThreshold_GTVal_32f_I));
    both(Zel64f{-0.0}, EXPORTS(zelsThreshold_LTVal_64f, zelsThreshold_LTVal_64f_I),
         EXPORTS(zelsThreshold_GTVal_64f, zelsThreshold_GTVal_64f_I));
    for (const auto& [low, high] : {std::pair{-3, 4}, {2, 2}, {-32768, 32767}})
        sweep(replacedBoth,
              EXPORTS(zelsThreshold_LTValGTVal_16s, zelsThreshold_LTValGTVal_16s_I,
                      zelsThreshold_LTValGTVal_32s, zelsThreshold_LTValGTVal_32s_I,
                      zelsThreshold_LTValGTVal_32f, zelsThreshold_LTValGTVal_32f_I,
                      zelsThreshold_LTValGTVal_64f, zelsThreshold_LTValGTVal_64f_I),
              options, low, 100, high, -100);
    // The value for low elements may itself lie above the upper level; a level that is a NaN replaces nothing.
    sweep(replacedBoth, EXPORTS(zelsThreshold_LTValGTVal_32f, zelsThreshold_LTValGTVal_64f), options,
          static_cast<double>(NAN), 1.0, -0.0, 2.0);
}

TEST(Threshold, replacesSmallAbsoluteValues)
{
    overLevels<Zel16s>(any, absoluteReplaced,
                       EXPORTS(zelsThreshold_LTAbsVal_16s, zelsThreshold_LTAbsVal_16s_I), Zel16s{-9});
    overLevels<Zel32s>(any, absoluteReplaced,
                       EXPORTS(zelsThreshold_LTAbsVal_32s, zelsThreshold_LTAbsVal_32s_I), -9);
    overLevels<Zel32f>(any, absoluteReplaced,
                       EXPORTS(zelsThreshold_LTAbsVal_32f, zelsThreshold_LTAbsVal_32f_I), -9.0f);
    overLevels<Zel64f>(any, absoluteReplaced,
                       EXPORTS(zelsThreshold_LTAbsVal_64f, zelsThreshold_LTAbsVal_64f_I), -9.0);
}

TEST(ThresholdLong, limitsInChunks)
{
    sweepLong(absoluteLimited<true>, EXPORTS(zelsThreshold_LTAbs_32f_L, zelsThreshold_LTAbs_32f_I_L),
              longChunk<Zel32f> + 1234, {longChunk<Zel32f>}, 1.5f);
    sweepLong(absoluteLimited<true>, EXPORTS(zelsThreshold_LTAbs_64f_L, zelsThreshold_LTAbs_64f_I_L),
              longChunk<Zel64f> + 1234, {longChunk<Zel64f>}, 1.5);
}

TEST(Threshold, refusesBadArguments)
{
    const selector relOp(4, {1, 2, 3, 5, 8, -1, -4, 1 << 30}, zelErrBadArg);
    const selector magnitude = ranked(3, selector(1, {-1, -30000}, zelErrThreshNegLevel));
    const auto outOfPlace = [](const auto& list, auto... more) {
        badArguments(list, pointersFirst, array(), array(), length(3), more...);
    };
    const auto inPlace = [](const auto& list, auto... more) {
        badArguments(list, pointersFirst, array(), length(3), more...);
    };
    // Values may be negative.
    const auto levels = value(-3);
    outOfPlace(EXPORTS(zelsThreshold_16s, zelsThreshold_32f, zelsThreshold_64f), levels, relOp);
    inPlace(EXPORTS(zelsThreshold_16s_I, zelsThreshold_32f_I, zelsThreshold_64f_I), levels, relOp);
    outOfPlace(EXPORTS(zelsThreshold_16sc, zelsThreshold_32fc, zelsThreshold_64fc), magnitude, relOp);
    inPlace(EXPORTS(zelsThreshold_16sc_I, zelsThreshold_32fc_I, zelsThreshold_64fc_I), magnitude, relOp);

    badArguments(EXPORTS(zelsThreshold_LT_16s, zelsThreshold_LT_32s, zelsThreshold_LT_32f,
                         zelsThreshold_LT_64f, zelsThreshold_GT_16s, zelsThreshold_GT_32s,
                         zelsThreshold_GT_32f, zelsThreshold_GT_64f, zelsThreshold_LT_16s_I,
                         zelsThreshold_LT_32s_I, zelsThreshold_LT_32f_I, zelsThreshold_LT_64f_I,
                         zelsThreshold_GT_16s_I, zelsThreshold_GT_32s_I, zelsThreshold_GT_32f_I,
                         zelsThreshold_GT_64f_I, zelsThreshold_LTVal_16s, zelsThreshold_LTVal_32f,
                         zelsThreshold_LTVal_64f, zelsThreshold_GTVal_16s, zelsThreshold_GTVal_32f,
                         zelsThreshold_GTVal_64f, zelsThreshold_LTVal_16s_I, zelsThreshold_LTVal_32f_I,
                         zelsThreshold_LTVal_64f_I, zelsThreshold_GTVal_16s_I, zelsThreshold_GTVal_32f_I,
                         zelsThreshold_GTVal_64f_I, zelsThreshold_LTAbsVal_16s, zelsThreshold_LTAbsVal_32s,
                         zelsThreshold_LTAbsVal_32f, zelsThreshold_LTAbsVal_64f, zelsThreshold_LTAbsVal_16s_I,
                         zelsThreshold_LTAbsVal_32s_I, zelsThreshold_LTAbsVal_32f_I,
                         zelsThreshold_LTAbsVal_64f_I),
                 pointersFirst);

    outOfPlace(EXPORTS(zelsThreshold_LT_16sc, zelsThreshold_LT_32fc, zelsThreshold_LT_64fc,
                       zelsThreshold_GT_16sc, zelsThreshold_GT_32fc, zelsThreshold_GT_64fc,
                       zelsThreshold_LTAbs_16s, zelsThreshold_LTAbs_32s, zelsThreshold_LTAbs_32f,
                       zelsThreshold_LTAbs_64f, zelsThreshold_GTAbs_16s, zelsThreshold_GTAbs_32s,
                       zelsThreshold_GTAbs_32f, zelsThreshold_GTAbs_64f, zelsThreshold_LTInv_32f,
                       zelsThreshold_LTInv_64f, zelsThreshold_LTInv_32fc, zelsThreshold_LTInv_64fc),
               magnitude);
    inPlace(EXPORTS(zelsThreshold_LT_16sc_I, zelsThreshold_LT_32fc_I, zelsThreshold_LT_64fc_I,
                    zelsThreshold_GT_16sc_I, zelsThreshold_GT_32fc_I, zelsThreshold_GT_64fc_I,
                    zelsThreshold_LTAbs_16s_I, zelsThreshold_LTAbs_32s_I, zelsThreshold_LTAbs_32f_I,
                    zelsThreshold_LTAbs_64f_I, zelsThreshold_GTAbs_16s_I, zelsThreshold_GTAbs_32s_I,
                    zelsThreshold_GTAbs_32f_I, zelsThreshold_GTAbs_64f_I, zelsThreshold_LTInv_32f_I,
                    zelsThreshold_LTInv_64f_I, zelsThreshold_LTInv_32fc_I, zelsThreshold_LTInv_64fc_I),
            magnitude);
    const auto val = []<class C>(C number, const auto& list, const auto& listInPlace, const auto& level) {
        badArguments(list, pointersFirst, array(), array(), length(3), level, value(number));
        badArguments(listInPlace, pointersFirst, array(), length(3), level, value(number));
    };
    val(Zel16sc{1, 1}, EXPORTS(zelsThreshold_LTVal_16sc, zelsThreshold_GTVal_16sc),
        EXPORTS(zelsThreshold_LTVal_16sc_I, zelsThreshold_GTVal_16sc_I), magnitude);
    val(Zel32fc{1, 1}, EXPORTS(zelsThreshold_LTVal_32fc, zelsThreshold_GTVal_32fc),
        EXPORTS(zelsThreshold_LTVal_32fc_I, zelsThreshold_GTVal_32fc_I), magnitude);
    val(Zel64fc{1, 1}, EXPORTS(zelsThreshold_LTVal_64fc, zelsThreshold_GTVal_64fc),
        EXPORTS(zelsThreshold_LTVal_64fc_I, zelsThreshold_GTVal_64fc_I), magnitude);

    badArguments(EXPORTS(zelsThreshold_LTAbs_32f_L, zelsThreshold_LTAbs_64f_L), lengthFirst, array(), array(),
                 length(3), magnitude);
    badArguments(EXPORTS(zelsThreshold_LTAbs_32f_I_L, zelsThreshold_LTAbs_64f_I_L), lengthFirst, array(),
                 length(3), magnitude);

    const selector crossed(5, {7, 30000}, zelErrThreshold);
    outOfPlace(EXPORTS(zelsThreshold_LTValGTVal_16s, zelsThreshold_LTValGTVal_32s,
                       zelsThreshold_LTValGTVal_32f, zelsThreshold_LTValGTVal_64f),
               crossed, value(1), value(6), value(1));
    inPlace(EXPORTS(zelsThreshold_LTValGTVal_16s_I, zelsThreshold_LTValGTVal_32s_I,
                    zelsThreshold_LTValGTVal_32f_I, zelsThreshold_LTValGTVal_64f_I),
            crossed, value(1), value(6), value(1));
}
