// Writes the tables of docs/accuracy.md: the largest errors of the vector mathematics beside those of the system's
// functions. `accuracy STEP` takes every STEP-th float: with 1 all of them, which lasts minutes for each function;
// `accuracy STEP 32f exp` or `accuracy STEP 64f Phase` gives one row alone.
#include "contest.h"

#include <bit>
#include <cstdlib>
#include <cstring>
#include <sleef.h>

extern "C" {
__m128 _ZGVbN4v_expf(__m128);
__m128 _ZGVbN4v_logf(__m128);
__m128 _ZGVbN4v_cbrtf(__m128);
__m128 _ZGVbN4v_atanf(__m128);
__m128 _ZGVbN4v_sinf(__m128);
__m128 _ZGVbN4v_cosf(__m128);
__m128d _ZGVbN2v_exp(__m128d);
__m128d _ZGVbN2v_log(__m128d);
__m128d _ZGVbN2v_atan(__m128d);
__m128d _ZGVbN2v_sin(__m128d);
__m128d _ZGVbN2v_cos(__m128d);
}

namespace {

/// The peers of a function: the system's scalar one, its vector one, SLEEF's of the class of 1 unit.
template <class T>
struct Peers {
    const char* name;
    T (*scalar)(T);
    OwnsVec<T> (*system)(OwnsVec<T>);
    OwnsVec<T> (*sleef)(OwnsVec<T>);
};
template <auto function, class V>
V vector(V x)
{
    return function(x);
}
constexpr Peers<Zel32f> peers32f[]{
    {"exp", std::exp, vector<_ZGVbN4v_expf>, vector<Sleef_expf4_u10sse4>},
    {"ln", std::log, vector<_ZGVbN4v_logf>, vector<Sleef_logf4_u10sse4>},
    {"cubrt", std::cbrt, vector<_ZGVbN4v_cbrtf>, vector<Sleef_cbrtf4_u10sse4>},
    {"atan", std::atan, vector<_ZGVbN4v_atanf>, vector<Sleef_atanf4_u10sse4>},
    {"sin", std::sin, vector<_ZGVbN4v_sinf>, vector<Sleef_sinf4_u10sse4>},
    {"cos", std::cos, vector<_ZGVbN4v_cosf>, vector<Sleef_cosf4_u10sse4>},
};
constexpr Peers<Zel64f> peers64f[]{
    {"exp", std::exp, vector<_ZGVbN2v_exp>, vector<Sleef_expd2_u10sse4>},
    {"ln", std::log, vector<_ZGVbN2v_log>, vector<Sleef_logd2_u10sse4>},
    {"atan", std::atan, vector<_ZGVbN2v_atan>, vector<Sleef_atand2_u10sse4>},
    {"sin", std::sin, vector<_ZGVbN2v_sin>, vector<Sleef_sind2_u10sse4>},
    {"cos", std::cos, vector<_ZGVbN2v_cos>, vector<Sleef_cosd2_u10sse4>},
};

/// All four contestants on the vectors that `next` gives until it returns false.
template <class T, class Function, class Next>
void row(const Function& function, const Peers<T>& peers, Next next)
{
    Worst<T, T> zels, scalar, system, sleef;
    for (OwnsVec<T> x; next(x);) {
        const OwnsVec<T> ours = function.kernel(x);
        const OwnsVec<T> theirs = peers.system(x);
        const OwnsVec<T> others = peers.sleef(x);
        for (int lane = 0; lane < ownsLanes<T>; lane++) {
            const T argument = x[lane];
            const auto exact = function.exact(argument);
            zels.take(argument, ours[lane], exact);
            scalar.take(argument, peers.scalar(argument), exact);
            system.take(argument, theirs[lane], exact);
            sleef.take(argument, others[lane], exact);
        }
    }
    const auto text = [](T at) {
        char argument[40];
        std::snprintf(argument, sizeof argument, "(%.9g)", static_cast<double>(at));
        return std::string(argument);
    };
    const auto cell = [&](const auto& worst) { return cellOf(worst, text(worst.at)); };
    std::printf("| %s | %g | %s %s | %s | %s | %s |\n", function.name, function.bound.nearest,
                cellOf(zels, "").c_str(), text(zels.at).c_str(), cell(scalar).c_str(), cell(system).c_str(),
                cell(sleef).c_str());
    std::fflush(stdout);
}

/// Every step-th float.
void row32f(unsigned step, const char* name)
{
    for (std::size_t i = 0; i < std::size(elementary32f); i++)
        if (!name || std::strcmp(name, elementary32f[i].name) == 0) {
            std::uint64_t bits = 0;
            row(elementary32f[i], peers32f[i], [&](OwnsF4& x) {
                const auto low = static_cast<Zel32u>(bits);
                x = ownsFromBits(OwnsU4{low, low + step, low + 2 * step, low + 3 * step});
                return (bits += 4 * std::uint64_t{step}) <= std::uint64_t{1} << 32;
            });
        }
}

/// Forty million doubles: any pattern, the usual range, close to 1, close to multiples of pi/2.
void row64f(const char* name)
{
    for (std::size_t i = 0; i < std::size(elementary64f); i++)
        if (!name || std::strcmp(name, elementary64f[i].name) == 0) {
            support::Random random("accuracy");
            const auto& function = elementary64f[i];
            int count = 0;
            row(function, peers64f[i], [&](OwnsF2& x) {
                const std::uint64_t bits = random.bits();
                const Zel64f near =
                    std::rint(std::ldexp(random.uniform(0.5, 1), static_cast<int>(bits % 40)));
                if (count++ % 2 == 0)
                    x = OwnsF2{std::bit_cast<Zel64f>(bits), random.uniform(function.low, function.high)};
                else
                    x = OwnsF2{1 + std::ldexp(random.uniform(-1, 1), -static_cast<int>(bits % 52)),
                               near * 1.5707963267948966};
                return count <= 20000000;
            });
        }
}

/// A heading, what the arguments are, and the head of the table.
void table(const char* heading, const char* arguments)
{
    std::printf("\n## %s\n\n%s"
                "| Function | Promised | zels, and where | glibc | glibc vector | SLEEF |\n"
                "|---|---|---|---|---|---|\n",
                heading, arguments);
    std::fflush(stdout);
}

} // namespace

int main(int argc, char** argv)
{
    const unsigned step = argc > 1 ? static_cast<unsigned>(std::max(1, std::atoi(argv[1]))) : 1;
    if (argc == 4) {
        const bool isSingle = std::strcmp(argv[2], "32f") == 0;
        isSingle ? row32f(step, argv[3]) : row64f(argv[3]);
        isSingle ? pairRows32f(argv[3]) : pairRows64f(argv[3]);
        return 0;
    }
    std::printf(R"(# Accuracy of the vector mathematics

Written by `./dev accuracy [STEP]`. Errors are in units of the last place of the exact result, in the rounding mode
to nearest, against a reference of more precision. "Promised" is the bound that the tests hold the functions to; in
the other rounding modes it is the greater of 2 and twice that. The vector functions beside them are those of 128
bits, SLEEF's of its class of 1 unit, for lengths of half a unit.

Special values (zeros of both signs, infinities, NaN, subnormal numbers) count: a result that should be infinite or
a NaN and is not is shown as "more than 1000", with its argument.
)");
    const std::string which = step == 1 ? "all" : "every " + std::to_string(step) + "th of the";
    table(("Single precision: " + which + " 2^32 arguments").c_str(), "");
    row32f(step, nullptr);
    table("Double precision: 40 million arguments",
          "Any bit pattern, the usual range, close to 1 and close to multiples of pi/2, in equal parts.\n\n");
    row64f(nullptr);
    table("Single precision: 40 million pairs of arguments",
          "Any bit patterns and special values, the unit circle, close to diagonals and axes, of like size, "
          "around "
          "the\n"
          "subnormal numbers, the usual range, close to multiples of pi/2, in equal parts. Of two results "
          "the worse "
          "counts.\n\n");
    pairRows32f(nullptr);
    table("Double precision: 40 million pairs of arguments", "");
    pairRows64f(nullptr);
    std::printf(R"(
Magnitudes in single precision are by contract one Newton step from the processor's estimate of a reciprocal root,
and a NaN where the sum of squares overflows: their row is of parts whose squares fit. Square roots of real numbers
are correctly rounded. Squares, powers and normalised values are made of single operations in a documented order,
and tested to the bit.
)");
    return 0;
}
