// The contest of docs/accuracy.md: the worst error of each contestant, and a row of them.
#pragma once

#include "math/accuracy.h"
#include "support/compare.h"
#include "support/random.h"

#include <cstdio>
#include <limits>
#include <optional>
#include <string>

/// The worst error that was met, and its argument.
template <class T, class Argument>
struct Worst {
    long double error = 0;
    Argument at{};

    template <class Exact>
    void take(const Argument& argument, T result, Exact exact)
    {
        // A unit is at least this part of the value: most errors need not be measured to be known as no worse.
        constexpr auto unit = std::numeric_limits<T>::epsilon() / 2;
        if (std::fabs(static_cast<Exact>(result) - exact) <=
            static_cast<Exact>(error) * unit * std::fabs(exact))
            return;
        const long double found = support::ulpError<T>(result, exact);
        if (found > error) {
            error = found;
            at = argument;
        }
    }
};

/// The figure alone, with its argument where it is wrong altogether.
template <class W>
std::string cellOf(const W& worst, const std::string& at)
{
    if (worst.error > 1000)
        return "more than 1000 " + at;
    char cell[40];
    std::snprintf(cell, sizeof cell, "%.3Lf", worst.error);
    return cell;
}

/// The rows of functions of two arguments; of one alone where it is named.
void pairRows32f(const char* name);
void pairRows64f(const char* name);
