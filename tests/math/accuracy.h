// What vector mathematics promises, and the functions that it is measured by: tests and docs/accuracy.md share both.
#pragma once

#include "math/vecMath.h"
#include "zels.h"

#include <algorithm>
#include <cmath>
#include <complex>
#include <string_view>

/// The largest error in units of the last place: in the rounding mode to nearest, and in the others.
struct ErrorBound {
    double nearest;
    double directed;
};

/// A function of one argument: its kernel, a reference of more precision, its bound, and the range in which its
/// arguments usually lie.
template <class T, class Reference>
struct Elementary {
    const char* name;
    OwnsVec<T> (*kernel)(OwnsVec<T>);
    Reference (*exact)(Reference);
    ErrorBound bound;
    T low, high;
};

inline OwnsF4 sineOf(OwnsF4 x)
{
    OwnsF4 sin, cos;
    ownsSinCos(x, sin, cos);
    return sin;
}
inline OwnsF4 cosineOf(OwnsF4 x)
{
    OwnsF4 sin, cos;
    ownsSinCos(x, sin, cos);
    return cos;
}
inline OwnsF2 sineOf(OwnsF2 x)
{
    OwnsF2 sin, cos;
    ownsSinCos(x, sin, cos);
    return sin;
}
inline OwnsF2 cosineOf(OwnsF2 x)
{
    OwnsF2 sin, cos;
    ownsSinCos(x, sin, cos);
    return cos;
}

// Doubles are reference enough for floats: their own error is below 2^-28 units.
inline constexpr Elementary<Zel32f, double> elementary32f[]{
    {"exp", [](OwnsF4 x) { return ownsExp(x); }, std::exp, {0.995, 2}, -88, 88},
    {"ln", [](OwnsF4 x) { return ownsLn(x); }, std::log, {0.96, 2}, 0, 100},
    {"cubrt", [](OwnsF4 x) { return ownsCubrt(x); }, std::cbrt, {0.51, 1.02}, -100, 100},
    {"atan", [](OwnsF4 x) { return ownsAtan(x); }, std::atan, {0.99, 2}, -10, 10},
    {"sin", sineOf, std::sin, {0.93, 1.3}, -30, 30},
    {"cos", cosineOf, std::cos, {0.93, 1.3}, -30, 30},
};
inline constexpr Elementary<Zel64f, long double> elementary64f[]{
    {"exp", [](OwnsF2 x) { return ownsExp(x); }, std::exp, {0.78, 1.3}, -700, 700},
    {"ln", [](OwnsF2 x) { return ownsLn(x); }, std::log, {0.78, 1.3}, 0, 2},
    {"atan", [](OwnsF2 x) { return ownsAtan(x); }, std::atan, {0.57, 1.3}, -10, 10},
    {"sin", sineOf, std::sin, {0.82, 1.35}, -30, 30},
    {"cos", cosineOf, std::cos, {0.82, 1.35}, -30, 30},
};

/// Two results, or one and a 0.
template <class T>
struct Two {
    T first{}, second{};
};

template <class T>
Two(T, T) -> Two<T>;

/// A function of two arguments, real and imaginary part or magnitude and phase: exports on whole arrays.
template <class T, class Reference>
struct OfPairs {
    const char* name;
    const char* formula;
    void (*zels)(const T* x, const T* y, T* first, T* second, int n);
    Two<Reference> (*exact)(Reference x, Reference y);
    ErrorBound bound;
    /// Which arguments the bound is for; all of them where this is null.
    bool (*bounded)(T x, T y);
};

namespace of_pairs {

template <auto function>
constexpr auto single = [](auto x, auto y, auto first, auto second, int n) {
    function(x, y, first, n);
    std::fill_n(second, n, 0);
};
template <auto function>
constexpr auto both = [](auto... arguments) { function(arguments...); };
template <auto function, class C>
constexpr auto complex = [](auto x, auto y, auto first, auto second, int n) {
    for (int i = 0; i < n; i++) {
        C z{x[i], y[i]};
        function(&z, &z, 1);
        first[i] = z.re;
        second[i] = z.im;
    }
};

constexpr auto angle = [](auto x, auto y) { return Two{std::atan2(y, x), decltype(x){}}; };
constexpr auto length = [](auto x, auto y) { return Two{std::hypot(x, y), decltype(x){}}; };
constexpr auto power = [](auto x, auto y) { return Two{x * x + y * y, decltype(x){}}; };
constexpr auto cartesian = [](auto magn, auto phase) {
    return Two{magn * std::cos(phase), magn * std::sin(phase)};
};
constexpr auto root = [](auto x, auto y) {
    const auto z = std::sqrt(std::complex(x, y));
    return Two{z.real(), z.imag()};
};

/// Where the squares of floats neither overflow nor lose bits.
constexpr auto squaresFit = [](Zel32f x, Zel32f y) {
    const Zel32f larger = std::max(std::fabs(x), std::fabs(y));
    return larger >= 0x1p-62f && larger <= 0x1.6p63f && !std::isunordered(x, y);
};

/// The standard leaves open the sign of one infinite root.
constexpr auto rootSettled = [](auto x, auto y) { return !(std::isinf(x) && x < 0 && std::isnan(y)); };

/// A unit of sine or cosine may be two of a product, and that is rounded once more.
constexpr ErrorBound boundOfProduct(const auto& sine)
{
    return {2 * sine.bound.nearest + 0.5, 2 * sine.bound.directed + 1};
}

} // namespace of_pairs

inline constexpr OfPairs<Zel32f, double> pairs32f[]{
    {"Phase", "atan2(y, x)", of_pairs::single<zelsPhase_32f>, of_pairs::angle, {0.83, 2}, nullptr},
    {"Magnitude",
     "hypot(x, y)",
     of_pairs::single<zelsMagnitude_32f>,
     of_pairs::length,
     {6, 6},
     of_pairs::squaresFit},
    {"PolarToCart", "x cos(y), x sin(y)", of_pairs::both<zelsPolarToCart_32f>, of_pairs::cartesian,
     of_pairs::boundOfProduct(elementary32f[4]), nullptr},
    {"Sqrt",
     "root of x + iy",
     of_pairs::complex<zelsSqrt_32fc, Zel32fc>,
     of_pairs::root,
     {0.51, 1.01},
     of_pairs::rootSettled},
    {"PowerSpectr",
     "x^2 + y^2",
     of_pairs::single<zelsPowerSpectr_32f>,
     of_pairs::power,
     {1.25, 2.5},
     nullptr},
};
// A length is within 0.86 units; one below the normal numbers is rounded twice, the first time half a unit finer.
inline constexpr OfPairs<Zel64f, long double> pairs64f[]{
    {"Phase", "atan2(y, x)", of_pairs::single<zelsPhase_64f>, of_pairs::angle, {0.79, 2}, nullptr},
    {"Magnitude",
     "hypot(x, y)",
     of_pairs::single<zelsMagnitude_64f>,
     of_pairs::length,
     {0.93, 1.72},
     nullptr},
    {"PolarToCart", "x cos(y), x sin(y)", of_pairs::both<zelsPolarToCart_64f>, of_pairs::cartesian,
     of_pairs::boundOfProduct(elementary64f[3]), nullptr},
    {"Sqrt",
     "root of x + iy",
     of_pairs::complex<zelsSqrt_64fc, Zel64fc>,
     of_pairs::root,
     {2.5, 5},
     of_pairs::rootSettled},
    {"PowerSpectr",
     "x^2 + y^2",
     of_pairs::single<zelsPowerSpectr_64f>,
     of_pairs::power,
     {1.25, 2.5},
     nullptr},
};

template <class T>
inline constexpr auto& elementaries = elementary32f;
template <>
inline constexpr auto& elementaries<Zel64f> = elementary64f;
template <class T>
inline constexpr auto& pairFunctions = pairs32f;
template <>
inline constexpr auto& pairFunctions<Zel64f> = pairs64f;

/// The bound of a function of either table, for the type of `type`.
constexpr ErrorBound boundOf(std::string_view name, auto type)
{
    for (const auto& function : elementaries<decltype(type)>)
        if (function.name == name)
            return function.bound;
    for (const auto& function : pairFunctions<decltype(type)>)
        if (function.name == name)
            return function.bound;
    throw "no such function";
}
