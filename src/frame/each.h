// Loops over constants: arrays of vectors that are indexed by them stay in registers.
#pragma once

#include <type_traits>
#include <utility>

/// Marks a lambda, where the attribute of the standard's form has no place in C++20. Arrays that it indexes by
/// constants stay in registers only if it is inlined.
#define OWNS_INLINE __attribute__((always_inline))

/// Calls body with the constants 0 to n-1, so that arrays indexed by them stay in registers.
template <int n, class Body>
[[gnu::always_inline]] inline void ownsEach(Body body)
{
    [&]<int... k>(std::integer_sequence<int, k...>) OWNS_INLINE
    {
        (body(std::integral_constant<int, k>{}), ...);
    }
    (std::make_integer_sequence<int, n>{});
}
