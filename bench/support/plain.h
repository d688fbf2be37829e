// Plain loops over an operation on single elements, as a user would write them. See BENCH_PLAIN.
//
//   bench::loop(bench::plain<[](auto a, auto b) { return a + b; }, Zel32f, Zel32f, Zel32f>)
#pragma once

#include "support/bench.h"

namespace bench {

/// d[i] = op(s[i]...): sources, destination, length.
template <auto op, class D, class... S>
BENCH_PLAIN void plain(const S*... s, D* d, int n)
{
    for (int i = 0; i < n; i++)
        d[i] = op(s[i]...);
}

/// d[i] = op(d[i], s[i]...): sources, destination, length.
template <auto op, class D, class... S>
BENCH_PLAIN void plainInPlace(const S*... s, D* d, int n)
{
    for (int i = 0; i < n; i++)
        d[i] = op(d[i], s[i]...);
}

/// d[i] = op(s[i], val): source, constant, destination, length.
template <auto op, class D, class S, class C>
BENCH_PLAIN void plainWith(const S* s, C val, D* d, int n)
{
    for (int i = 0; i < n; i++)
        d[i] = op(s[i], val);
}

/// d[i] = op(d[i], val): constant, destination, length.
template <auto op, class D, class C>
BENCH_PLAIN void plainWithInPlace(C val, D* d, int n)
{
    for (int i = 0; i < n; i++)
        d[i] = op(d[i], val);
}

/// d[i] = op(d[i], s[i], val): source, constant, destination, length.
template <auto op, class D, class S, class C>
BENCH_PLAIN void plainOnto(const S* s, C val, D* d, int n)
{
    for (int i = 0; i < n; i++)
        d[i] = op(d[i], s[i], val);
}

// The elements' own operations.

template <class T>
concept Complex = requires(T x)
{
    x.re;
};

inline constexpr auto sum = []<class T>(T a, T b) {
    if constexpr (Complex<T>)
        return T{a.re + b.re, a.im + b.im};
    else
        return a + b;
};

inline constexpr auto difference = []<class T>(T a, T b) {
    if constexpr (Complex<T>)
        return T{a.re - b.re, a.im - b.im};
    else
        return a - b;
};

inline constexpr auto product = []<class T>(T a, T b) {
    if constexpr (Complex<T>)
        return T{a.re * b.re - a.im * b.im, a.im * b.re + a.re * b.im};
    else
        return a * b;
};

inline constexpr auto differenceFrom = [](auto a, auto b) { return difference(b, a); };

inline constexpr auto sumWithProduct = [](auto d, auto a, auto b) { return sum(d, product(a, b)); };

} // namespace bench
