// The kernels of vector mathematics: errors over the whole range, special values, lanes that must not disturb each
// other.
#include "math/accuracy.h"
#include "math/pairs.h"
#include "support/test.h"

#include <cstring>
#include <vector>

namespace {

template <class T>
constexpr int lanes = ownsLanes<T>;

/// The worst error of a kernel on some arguments in a mode of the caller.
template <class T>
struct Worst {
    long double error = 0;
    T at = 0;

    template <class Function>
    void take(const Function& function, OwnsVec<T> x, unsigned mode)
    {
        OwnsVec<T> result;
        {
            const FloatMode callers(mode);
            result = function.kernel(x);
        }
        for (int lane = 0; lane < lanes<T>; lane++) {
            const T argument = x[lane];
            const auto exact = function.exact(argument);
            // A unit is at least this part of the value: most errors need not be measured to be known as no worse.
            constexpr auto unit = std::numeric_limits<T>::epsilon() / 2;
            if (std::fabs(result[lane] - exact) <= static_cast<Zel64f>(error) * unit * std::fabs(exact))
                continue;
            const long double found = ulpError<T>(result[lane], exact);
            if (found > error) {
                error = found;
                at = argument;
            }
        }
    }
};

template <class T, class Function>
void expectWithin(const Function& function, const Worst<T>& worst, unsigned mode)
{
    const double bound = mode == nearestMode ? function.bound.nearest : function.bound.directed;
    EXPECT_LE(worst.error, bound) << function.name << " of " << elementText(elementOf<T>(), &worst.at) << ", "
                                  << modeName(mode);
}

template <class T, class Function>
Worst<T> onList(const Function& function, const std::vector<T>& list, unsigned mode)
{
    Worst<T> worst;
    for (std::size_t i = 0; i < list.size(); i += lanes<T>) {
        OwnsVec<T> x{};
        for (int lane = 0; lane < lanes<T>; lane++)
            x[lane] = list[(i + static_cast<std::size_t>(lane)) % list.size()];
        worst.take(function, x, mode);
    }
    return worst;
}

/// All patterns of a float at a distance.
template <class Function>
Worst<Zel32f> onPatterns(const Function& function, unsigned step, unsigned mode)
{
    Worst<Zel32f> worst;
    for (std::uint64_t bits = 0; bits < std::uint64_t{1} << 32; bits += 4 * std::uint64_t{step}) {
        const auto low = static_cast<Zel32u>(bits);
        worst.take(function, ownsFromBits(OwnsU4{low, low + step, low + 2 * step, low + 3 * step}), mode);
    }
    return worst;
}

/// Doubles of any pattern and in the usual range; close to 1, to multiples of pi/2 and to the limits of the paths.
std::vector<Zel64f> telling(Random& random, Zel64f low, Zel64f high, int count)
{
    std::vector<Zel64f> list;
    for (int i = 0; i < count; i++) {
        const std::uint64_t bits = random.bits();
        const Zel64f usual = random.uniform(low, high);
        list.push_back(std::bit_cast<Zel64f>(bits));
        list.push_back(usual);
        list.push_back(1 + std::ldexp(random.uniform(-1, 1), -static_cast<int>(bits % 52)));
        const Zel64f turns = std::ldexp(random.uniform(0.5, 1), static_cast<int>(bits % 40));
        list.push_back(std::rint(turns) * 1.5707963267948966);
    }
    for (const Zel64f limit : {664.0, 708.4, 709.79, 745.14, 32768.0, 0x1p900, 0x1p-1022, 5e-324}) {
        for (int i = -3; i <= 3; i++)
            for (const Zel64f sign : {1.0, -1.0})
                list.push_back(sign * std::bit_cast<Zel64f>(std::bit_cast<std::uint64_t>(limit) +
                                                            static_cast<std::uint64_t>(i)));
    }
    // The doubles closest to a multiple of pi/2, and one whose reduction needs the far end of 2/pi.
    for (const Zel64f hard :
         {0x1.6ac5b262ca1ffp849, 0x1.951133bdf7fd4p45, 0x1.0000000000001p1023, 1e22, 0x1p1000})
        list.push_back(hard);
    return list;
}

template <class T>
class VecMath : public testing::Test {
};
using FloatTypes = testing::Types<Zel32f, Zel64f>;
TYPED_TEST_SUITE(VecMath, FloatTypes);

} // namespace

TYPED_TEST(VecMath, staysWithinItsBoundsInEveryMode)
{
    Random random("staysWithinItsBoundsInEveryMode");
    for (const auto& function : elementaries<TypeParam>)
        for (const unsigned mode : roundingModes) {
            if constexpr (sizeof(TypeParam) == 4)
                expectWithin(function, onPatterns(function, 7919, mode), mode);
            else
                expectWithin(function,
                             onList(function, telling(random, function.low, function.high, 5000), mode),
                             mode);
        }
}

/// The exports of two arguments, on pairs of every kind.
TYPED_TEST(VecMath, staysWithinItsBoundsOnPairs)
{
    using T = TypeParam;
    constexpr int count = Pairs<T>::count;
    Pairs<T> pairs;
    T first[count], second[count];
    for (const auto& function : pairFunctions<T>)
        for (int round = 0; round < 100; round++) {
            pairs.next();
            function.zels(pairs.x, pairs.y, first, second, count);
            for (int i = 0; i < count; i++) {
                const T x = pairs.x[i], y = pairs.y[i];
                if (function.bounded && !function.bounded(x, y))
                    continue;
                const auto exact = function.exact(x, y);
                ASSERT_LE(ulpError<T>(first[i], exact.first), function.bound.nearest)
                    << function.name << " of " << x << ", " << y;
                ASSERT_LE(ulpError<T>(second[i], exact.second), function.bound.nearest)
                    << function.name << " of " << x << ", " << y;
            }
        }
}

class VecMath32f : public testing::TestWithParam<int> {};
INSTANTIATE_TEST_SUITE_P(, VecMath32f, testing::Range(0, static_cast<int>(std::size(elementary32f))));

TEST_P(VecMath32f, ExhaustiveErrors)
{
    const auto& function = elementary32f[GetParam()];
    const auto worst = onPatterns(function, 1, nearestMode);
    expectWithin(function, worst, nearestMode);
    expectWithin(function, onPatterns(function, 31, downMode), downMode);
    RecordProperty(function.name, std::to_string(static_cast<double>(worst.error)));
}

TEST(VecMath64f, ExhaustiveErrors)
{
    Random random("ExhaustiveErrors");
    for (const auto& function : elementary64f) {
        const auto list = telling(random, function.low, function.high, 3000000);
        expectWithin(function, onList(function, list, nearestMode), nearestMode);
    }
}

/// Each special value in each lane beside ordinary ones: its own result is the standard function's, to the sign of a
/// zero in every mode, and theirs do not change.
TYPED_TEST(VecMath, takesSpecialValuesInEveryLane)
{
    using T = TypeParam;
    using Limits = std::numeric_limits<T>;
    const T ordinary[]{T(0.5), T(2.25), T(0.875), T(7)};
    const T specials[]{T(0),
                       -T(0),
                       Limits::infinity(),
                       -Limits::infinity(),
                       Limits::quiet_NaN(),
                       Limits::signaling_NaN(),
                       -Limits::quiet_NaN(),
                       Limits::denorm_min(),
                       -Limits::denorm_min(),
                       Limits::min(),
                       Limits::max(),
                       Limits::lowest(),
                       T(1),
                       T(-1),
                       T(1e30)};
    for (const auto& function : elementaries<T>)
        for (const unsigned mode : roundingModes)
            for (const T special : specials)
                for (int lane = 0; lane < lanes<T>; lane++) {
                    OwnsVec<T> x{};
                    for (int i = 0; i < lanes<T>; i++)
                        x[i] = ordinary[i];
                    const auto called = [&](OwnsVec<T> argument) {
                        const FloatMode callers(mode);
                        return function.kernel(argument);
                    };
                    const OwnsVec<T> before = called(x);
                    x[lane] = special;
                    const OwnsVec<T> after = called(x);
                    const auto exact = function.exact(special);
                    const T found = after[lane];
                    const double bound =
                        mode == nearestMode ? function.bound.nearest : function.bound.directed;
                    EXPECT_LE(ulpError<T>(found, exact), bound)
                        << function.name << " of " << elementText(elementOf<T>(), &special) << ", "
                        << modeName(mode);
                    EXPECT_TRUE(exact != 0 || std::signbit(found) == std::signbit(exact))
                        << function.name << ", " << modeName(mode);
                    for (int i = 0; i < lanes<T>; i++)
                        EXPECT_TRUE(i == lane || before[i] == after[i]) << function.name;
                }
}

/// Arguments and results that the caller counts as 0 are 0, and nothing else is disturbed.
TEST(VecMathFlush, flushesWhereTheCallerDoes)
{
    const FloatMode callers(flushMode);
    const OwnsF4 small{1e-40f, -1e-40f, 1.0f, 2.0f};
    for (const auto& function : elementary32f) {
        const OwnsF4 found = function.kernel(small);
        const OwnsF4 expected = function.kernel(OwnsF4{0.0f, -0.0f, 1.0f, 2.0f});
        for (int lane = 0; lane < 4; lane++)
            EXPECT_EQ(std::bit_cast<Zel32u>(Zel32f(found[lane])),
                      std::bit_cast<Zel32u>(Zel32f(expected[lane])))
                << function.name << ", lane " << lane;
    }
    EXPECT_EQ(ownsExp(OwnsF4{-90, 0, 0, 0})[0], 0);
    EXPECT_EQ(ownsExp(OwnsF2{-740, 0})[0], 0);
}

/// What functions of one argument share: the length and the place of an element do not show in its result.
TEST(VecMathExports, dependNeitherOnPlaceNorOnLength)
{
    const auto test = [](auto function, auto type, const char* name) {
        using T = decltype(type);
        Random random(name);
        std::vector<T> x(300), whole(300), part(300);
        fill(random, x.data(), x.size(), Fill::mixed);
        function(x.data(), whole.data(), 300);
        for (std::size_t first = 0; first < 40; first++)
            for (std::size_t n = 1; n < 60; n += 1 + first % 3) {
                function(x.data() + first, part.data() + first % 5, static_cast<int>(n));
                ASSERT_LT(
                    firstDifference(elementOf<T>().kind, part.data() + first % 5, whole.data() + first, n), 0)
                    << name << ", element " << first << ", length " << n;
            }
    };
    test(zelsExp_32f, Zel32f{}, "zelsExp_32f");
    test(zelsExp_64f, Zel64f{}, "zelsExp_64f");
    test(zelsLn_32f, Zel32f{}, "zelsLn_32f");
    test(zelsLn_64f, Zel64f{}, "zelsLn_64f");
    test(zelsCubrt_32f, Zel32f{}, "zelsCubrt_32f");
    test(zelsArctan_32f, Zel32f{}, "zelsArctan_32f");
    test(zelsArctan_64f, Zel64f{}, "zelsArctan_64f");
}
