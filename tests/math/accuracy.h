// What vector mathematics promises, and the functions that it is measured by: tests and docs/accuracy.md share both.
#pragma once

#include "math/vecMath.h"
#include "zels.h"

#include <cmath>
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
    {"ln", [](OwnsF4 x) { return ownsLn(x); }, std::log, {1, 2}, 0, 100},
    {"cubrt", [](OwnsF4 x) { return ownsCubrt(x); }, std::cbrt, {0.51, 1.02}, -100, 100},
    {"atan", [](OwnsF4 x) { return ownsAtan(x); }, std::atan, {1, 2}, -10, 10},
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

template <class T>
inline constexpr auto& elementaries = elementary32f;
template <>
inline constexpr auto& elementaries<Zel64f> = elementary64f;

constexpr ErrorBound boundOf(std::string_view name, auto type)
{
    for (const auto& function : elementaries<decltype(type)>)
        if (function.name == name)
            return function.bound;
    throw "no such function";
}
