// Scaled quotients of integers: exact, rounded once. The first vector is the divisor.
#include "arith/scaledTools.h"

#include <algorithm>
#include <utility>

namespace {

/// numerator / divisor times 2^-scaleFactor by a rounding mode, saturated; over zero by the sign of the numerator.
/// Outside [least, most] the factor alone decides.
template <class D>
D divided(Wide numerator, Wide divisor, ZelRoundMode rnd, int scaleFactor, int least, int most)
{
    using Limits = std::numeric_limits<D>;
    if (numerator == 0)
        return 0;
    if (divisor == 0)
        return numerator > 0 ? Limits::max() : Limits::min();
    const bool negative = (numerator < 0) != (divisor < 0);
    const Wide magnitude = numerator < 0 ? -numerator : numerator;
    const Wide magnitudeOfDivisor = divisor < 0 ? -divisor : divisor;
    if (scaleFactor > most)
        return 0;
    if (scaleFactor < least)
        return negative ? Limits::min() : Limits::max();
    const Wide n = scaleFactor < 0 ? magnitude << -scaleFactor : magnitude;
    const Wide d = scaleFactor > 0 ? magnitudeOfDivisor << scaleFactor : magnitudeOfDivisor;
    const Wide floor = n / d;
    const Wide rest = 2 * (n % d);
    const bool up = rnd == zelRndZero   ? false
                    : rnd == zelRndNear ? rest > d || (rest == d && (floor & 1) != 0)
                                        : rest >= d;
    return saturated<D>(negative ? -(floor + up) : floor + up);
}

std::pair<int, int> rangeOf(int bytesOfResult, int bytesOfDividend)
{
    if (bytesOfResult == 1)
        return {-15, 8};
    if (bytesOfResult == 4)
        return {-90, 90}; // no table: the exact rule
    return bytesOfDividend == 4 ? std::pair{-29, 31} : std::pair{-30, 15};
}

template <class D>
struct Quotient {
    template <class A, class B>
    WithStatus<D> operator()(A a, B b, int scaleFactor) const
    {
        const auto [least, most] = rangeOf(sizeof(D), sizeof(B));
        if constexpr (Complex<D>) {
            const Wide sum = Wide{a.re} * a.re + Wide{a.im} * a.im;
            const Wide re = sum == 0 ? Wide{b.re} : Wide{b.re} * a.re + Wide{b.im} * a.im;
            const Wide im = sum == 0 ? Wide{b.im} : Wide{b.im} * a.re - Wide{b.re} * a.im;
            const auto part = [&](Wide n) {
                return divided<Part<D>>(n, sum, zelRndNear, scaleFactor, -30, 15);
            };
            return {D{part(re), part(im)}, sum == 0 ? zelWarnDivByZero : zelStatusOk};
        } else {
            return {divided<D>(b, a, zelRndNear, scaleFactor, least, most),
                    a == 0 ? zelWarnDivByZero : zelStatusOk};
        }
    }
};
template <class T>
constexpr auto overConstant =
    [](T x, T val, int scaleFactor) { return Quotient<T>{}(val, x, scaleFactor).value; };

constexpr auto byMode = []<class T>(T a, T b, ZelRoundMode rnd, int scaleFactor) {
    return WithStatus<T>{divided<T>(b, a, rnd, scaleFactor, -30, 16),
                         a == 0 ? zelWarnDivByZero : zelStatusOk};
};

/// Divisors of any size; dividends next to a tie or a whole number of them at this factor.
template <class A, class B>
void nearTies(Random& random, int scaleFactor, std::vector<A>& a, std::vector<B>& b)
{
    for (std::size_t i = 0; i < a.size(); i++) {
        a[i] = edgy<A>(random);
        const int shift = std::clamp(scaleFactor, -40, 40);
        const Wide halves = random.below(1 << random.below(17)) * Wide{a[i]};
        const Wide target = shift < 0    ? halves >> (1 - shift)
                            : shift == 0 ? halves >> 1
                                         : halves << (shift - 1);
        b[i] = saturated<B>(target + random.below(3) - 1);
        if (random.below(16) == 0)
            (random.below(2) == 0 ? b[i] = 0 : a[i] = 0);
    }
}

template <class D, class A, class B, class F>
void dividesNearTies(const char* name, F function, int lowest, int highest)
{
    Random random(name);
    std::vector<A> a(4000);
    std::vector<B> b(a.size());
    std::vector<D> q(a.size());
    for (const int s : factors(lowest, highest))
        for (const unsigned mode : roundingModes) {
            nearTies(random, s, a, b);
            const FloatMode callers(mode);
            ASSERT_EQ(function(a.data(), b.data(), q.data(), static_cast<int>(a.size()), s),
                      zelWarnDivByZero);
            for (std::size_t i = 0; i < a.size(); i++)
                ASSERT_EQ(q[i], Quotient<D>{}(a[i], b[i], s).value)
                    << name << ": " << +b[i] << " / " << +a[i] << " by " << s << ", mode " << modeName(mode);
        }
}

} // namespace

TEST(DivisionScaled, allPairsOf8Bits)
{
    const std::vector<Zel8u> b = everyValue<Zel8u>();
    std::vector<Zel8u> a(256), q(256), overConstant(256);
    for (const int s : factors(-32, 18))
        for (int divisor = 0; divisor < 256; divisor++) {
            const auto d = static_cast<Zel8u>(divisor);
            std::fill(a.begin(), a.end(), d);
            const ZelStatus status = d == 0 ? zelWarnDivByZero : zelStatusOk;
            ASSERT_EQ(zelsDiv_8u_Sfs(a.data(), b.data(), q.data(), 256, s), status);
            for (std::size_t i = 0; i < 256; i++)
                ASSERT_EQ(q[i], Quotient<Zel8u>{}(d, b[i], s).value) << i << " / " << divisor << " by " << s;
            if (d != 0) {
                ASSERT_EQ(zelsDivC_8u_Sfs(b.data(), d, overConstant.data(), 256, s), zelStatusOk);
                ASSERT_EQ(overConstant, q);
            }
            for (const ZelRoundMode rnd : {zelRndZero, zelRndNear, zelRndFinancial}) {
                ASSERT_EQ(zelsDiv_Round_8u_Sfs(a.data(), b.data(), q.data(), 256, rnd, s), status);
                for (std::size_t i = 0; i < 256; i++)
                    ASSERT_EQ(q[i], byMode(d, b[i], rnd, s).value)
                        << i << " / " << divisor << " by " << s << ", rounding " << rnd;
            }
        }
}

TEST(DivisionScaled, all16BitInputs)
{
    allInputs<Zel16s>("zelsDivC_16s_Sfs", zelsDivC_16s_Sfs, overConstant<Zel16s>, -33, 18,
                      {-32768, -3, 1, 10, 32767});
    allInputs<Zel16u>("zelsDivC_16u_Sfs", zelsDivC_16u_Sfs, overConstant<Zel16u>, -33, 18, {1, 7, 65535});
    const std::vector<Zel16u> x = everyValue<Zel16u>();
    std::vector<Zel16u> q(x.size());
    for (const Zel16u val : std::initializer_list<Zel16u>{0, 1, 255, 32767, 65535}) {
        ASSERT_EQ(zelsDivCRev_16u(x.data(), val, q.data(), 65536), zelWarnDivByZero);
        for (std::size_t i = 0; i < x.size(); i++)
            ASSERT_EQ(q[i], Quotient<Zel16u>{}(x[i], val, 0).value) << val << " / " << x[i];
    }
}

TEST(DivisionScaled, roundsOnceNextToTies)
{
    dividesNearTies<Zel16s, Zel16s, Zel16s>("zelsDiv_16s_Sfs", zelsDiv_16s_Sfs, -33, 18);
    dividesNearTies<Zel16u, Zel16u, Zel16u>("zelsDiv_16u_Sfs", zelsDiv_16u_Sfs, -33, 18);
    dividesNearTies<Zel32s, Zel32s, Zel32s>("zelsDiv_32s_Sfs", zelsDiv_32s_Sfs, -66, 34);
    dividesNearTies<Zel16s, Zel16s, Zel32s>("zelsDiv_32s16s_Sfs", zelsDiv_32s16s_Sfs, -32, 34);
    Random random("roundsOnceNextToTies");
    const auto byModes = [&](auto function, auto type) {
        using T = decltype(type);
        std::vector<T> a(4000), b(4000), q(4000);
        for (const int s : factors(-33, 19))
            for (const ZelRoundMode rnd : {zelRndZero, zelRndNear, zelRndFinancial}) {
                nearTies(random, s, a, b);
                const FloatMode callers(roundingModes[random.below(4)]);
                ASSERT_EQ(function(a.data(), b.data(), q.data(), 4000, rnd, s), zelWarnDivByZero);
                for (std::size_t i = 0; i < a.size(); i++)
                    ASSERT_EQ(q[i], byMode(a[i], b[i], rnd, s).value)
                        << b[i] << " / " << a[i] << " by " << s << ", rounding " << rnd;
            }
    };
    byModes(zelsDiv_Round_16s_Sfs, Zel16s{});
    byModes(zelsDiv_Round_16u_Sfs, Zel16u{});
}

TEST(DivisionScaled, complexQuotients)
{
    sweepFactors<Zel16sc, Zel16sc>(Quotient<Zel16sc>{}, EXPORTS(zelsDiv_16sc_Sfs), -33, 18);
    constexpr Zel16s least = -32768;
    for (const Zel16sc val : {Zel16sc{1, 0}, Zel16sc{least, least}, Zel16sc{0, -3}, Zel16sc{181, 32767}})
        sweepFactors<Zel16sc>(overConstant<Zel16sc>, EXPORTS(zelsDivC_16sc_Sfs), -33, 18, val);
    // The one numerator of 32 bits, 2^31, over itself.
    const Zel16sc x{least, least};
    for (const int s : factors(-33, 18)) {
        Zel16sc q;
        ASSERT_EQ(zelsDiv_16sc_Sfs(&x, &x, &q, 1, s), zelStatusOk);
        EXPECT_EQ(q.re, Quotient<Zel16sc>{}(x, x, s).value.re) << s;
    }
}

TEST(DivisionScaled, everyLengthAndAlignment)
{
    const auto paths = {0, 3, 60, -4, -20, -100};
    sweepPaths(Quotient<Zel8u>{}, EXPORTS(zelsDiv_8u_Sfs, zelsDiv_8u_ISfs), paths);
    sweepPaths(Quotient<Zel16s>{}, EXPORTS(zelsDiv_16s_Sfs, zelsDiv_16s_ISfs, zelsDiv_32s16s_Sfs), paths);
    sweepPaths(Quotient<Zel16u>{}, EXPORTS(zelsDiv_16u_Sfs, zelsDiv_16u_ISfs), paths);
    sweepPaths(Quotient<Zel32s>{}, EXPORTS(zelsDiv_32s_Sfs, zelsDiv_32s_ISfs), paths);
    sweepPaths(Quotient<Zel16sc>{}, EXPORTS(zelsDiv_16sc_Sfs, zelsDiv_16sc_ISfs), paths);
    for (const ZelRoundMode rnd : {zelRndZero, zelRndNear, zelRndFinancial})
        sweepPaths(byMode,
                   EXPORTS(zelsDiv_Round_8u_Sfs, zelsDiv_Round_8u_ISfs, zelsDiv_Round_16s_Sfs,
                           zelsDiv_Round_16s_ISfs, zelsDiv_Round_16u_Sfs, zelsDiv_Round_16u_ISfs),
                   paths, rnd);
    sweepPaths(overConstant<Zel8u>, EXPORTS(zelsDivC_8u_Sfs, zelsDivC_8u_ISfs), paths, 7);
    sweepPaths(overConstant<Zel16s>, EXPORTS(zelsDivC_16s_Sfs, zelsDivC_16s_ISfs), paths, -7);
    sweepPaths(overConstant<Zel16u>, EXPORTS(zelsDivC_16u_Sfs, zelsDivC_16u_ISfs), paths, 7);
    sweepPaths(overConstant<Zel16sc>, EXPORTS(zelsDivC_16sc_Sfs, zelsDivC_16sc_ISfs), paths,
               Zel16sc{7, -100});
    const auto constantOver = [](Zel16u x, Zel16u val) { return Quotient<Zel16u>{}(x, val, 0); };
    for (const int val : {0, 12345})
        sweep(constantOver, EXPORTS(zelsDivCRev_16u, zelsDivCRev_16u_I), {.repeats = 1}, val);
}

TEST(DivisionScaled, divides64sByAReciprocal)
{
    const auto model = [](Zel64s x, Zel64s val, int scaleFactor) {
        const Wide magnitude = val < 0 ? -Wide{val} : Wide{val};
        Wide factor = val;
        int shift = 0;
        if (magnitude > 1) {
            int k = 0;
            while (Wide{2} << k < magnitude)
                k++;
            Wide q = 0;
            Wide rest = Wide{1} << k;
            for (int round = 0; round < 8; round++) {
                rest <<= 8;
                q = q << 8 | rest / magnitude;
                rest %= magnitude;
            }
            factor = (q + (q & 1)) >> 1;
            factor = val < 0 ? -factor : factor;
            shift = k + 63;
        }
        const Zel64s s = Zel64s{scaleFactor} + shift;
        const Wide exact = x * factor;
        return scaled<Zel64s>(s > 0 ? exact : saturated<Zel64s>(exact),
                              static_cast<int>(std::clamp<Zel64s>(s, -200, 200)));
    };
    Random random("divides64s");
    std::vector<Zel64s> x(64), q;
    for (const Zel64s val :
         {Zel64s{1}, Zel64s{-1}, Zel64s{2}, Zel64s{3}, Zel64s{-4}, Zel64s{5}, Zel64s{1000003},
          Zel64s{-1} << 40, INT64_MAX, INT64_MAX - 1, INT64_MIN, INT64_MIN + 1, (Zel64s{1} << 62) + 1})
        for (const int s : factors(-66, 70)) {
            for (Zel64s& v : x)
                v = edgy<Zel64s>(random);
            q = x;
            ASSERT_EQ(zelsDivC_64s_ISfs(val, q.data(), 64, s), zelStatusOk);
            for (std::size_t i = 0; i < x.size(); i++) {
                ASSERT_EQ(q[i], model(x[i], val, s)) << x[i] << " / " << val << " by " << s;
                if (s == 0 && !(x[i] == INT64_MIN && val == -1)) {
                    ASSERT_LE(std::abs(q[i] - x[i] / val), 1) << x[i] << " / " << val;
                }
            }
        }
    q = {5, -5, 0, INT64_MIN};
    EXPECT_EQ(zelsDivC_64s_ISfs(0, q.data(), 4, 3), zelWarnDivByZero);
    EXPECT_EQ(q, (std::vector<Zel64s>{INT64_MAX, INT64_MIN, 0, INT64_MIN}));
    EXPECT_EQ(zelsDivC_64s_ISfs(0, nullptr, 0, 0), zelErrNullPtr);
    EXPECT_EQ(zelsDivC_64s_ISfs(0, q.data(), 0, 0), zelErrSize);
    EXPECT_EQ(zelsDivC_64s_ISfs(0, q.data(), -1, 0), zelStatusOk);
    EXPECT_EQ(zelsDivC_64s_ISfs(3, q.data(), INT_MIN, 0), zelStatusOk);
    EXPECT_EQ(q[0], INT64_MAX);
}

TEST(DivisionScaled, refusesBadArguments)
{
    badArguments(EXPORTS(zelsDiv_8u_Sfs, zelsDiv_8u_ISfs, zelsDiv_16s_Sfs, zelsDiv_16s_ISfs, zelsDiv_16u_Sfs,
                         zelsDiv_16u_ISfs, zelsDiv_16sc_Sfs, zelsDiv_16sc_ISfs, zelsDiv_32s_Sfs,
                         zelsDiv_32s_ISfs, zelsDiv_32s16s_Sfs, zelsDivCRev_16u, zelsDivCRev_16u_I),
                 pointersFirst);
    const auto zeros = selector(3, {0}, zelErrDivByZero);
    badArguments(EXPORTS(zelsDivC_8u_Sfs, zelsDivC_16s_Sfs, zelsDivC_16u_Sfs), pointersFirst, array(64),
                 zeros, array(64), length(4), value(0));
    badArguments(EXPORTS(zelsDivC_8u_ISfs, zelsDivC_16s_ISfs, zelsDivC_16u_ISfs), pointersFirst, zeros,
                 array(64), length(4), value(0));
    const auto modes = selector(1, {3, -1, INT_MIN}, zelErrRoundMode);
    badArguments(EXPORTS(zelsDiv_Round_8u_Sfs, zelsDiv_Round_16s_Sfs, zelsDiv_Round_16u_Sfs), pointersFirst,
                 array(64), array(64), array(64), length(4), modes, value(0));
    badArguments(EXPORTS(zelsDiv_Round_8u_ISfs, zelsDiv_Round_16s_ISfs, zelsDiv_Round_16u_ISfs),
                 pointersFirst, array(64), array(64), length(4), modes, value(0));
    Zel16sc x{1, 2};
    EXPECT_EQ(zelsDivC_16sc_Sfs(&x, {0, 0}, &x, 1, 0), zelErrDivByZero);
    EXPECT_EQ(zelsDivC_16sc_ISfs({0, 0}, &x, 0, 0), zelErrSize);
    EXPECT_EQ(zelsDivC_16sc_ISfs({0, 0}, nullptr, 0, 0), zelErrNullPtr);
    EXPECT_EQ(x.re, 1);
}
