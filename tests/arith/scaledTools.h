// Data and factors that are out for trouble in scaled integer arithmetic.
#pragma once

#include "support/test.h"

#include <initializer_list>
#include <vector>

/// Limits, values about powers of two (whose sums, products and quotients fall on ties and saturation edges),
/// small values, and now and then any bits.
template <class T>
T edgy(Random& random)
{
    constexpr int bits = 8 * sizeof(T);
    const auto power = std::uint64_t{1} << random.below(bits);
    const auto few = static_cast<std::uint64_t>(random.below(5) - 2);
    switch (random.below(8)) {
    case 0:
        return static_cast<T>(std::numeric_limits<T>::max() - static_cast<T>(random.below(3)));
    case 1:
        return static_cast<T>(std::numeric_limits<T>::min() + static_cast<T>(random.below(3)));
    case 2:
        return static_cast<T>(power + few);
    case 3:
        return static_cast<T>(few - power);
    case 4:
        return static_cast<T>(power | std::uint64_t{1} << random.below(bits));
    case 5:
        return static_cast<T>(3 * few);
    default:
        return static_cast<T>(random.bits());
    }
}

/// Fills each source with such values of its part type.
template <class... T>
auto edgySources()
{
    return [](Random& random, int pointer, void* pData, std::size_t count) {
        int k = 0;
        const auto fillIf = [&]<class S>(S*) {
            if (k++ != pointer)
                return;
            auto* parts = static_cast<Part<S>*>(pData);
            for (std::size_t i = 0; i < count * (Complex<S> ? 2 : 1); i++)
                parts[i] = edgy<Part<S>>(random);
        };
        (fillIf(static_cast<T*>(nullptr)), ...);
    };
}

/// The factors from below the saturation limit to above the zero limit, and the ends of int.
inline std::vector<int> factors(int lowest, int highest)
{
    std::vector<int> list{std::numeric_limits<int>::min(), std::numeric_limits<int>::max()};
    for (int s = lowest; s <= highest; s++)
        list.push_back(s);
    return list;
}

/// Every factor on data out for trouble. The lengths are few: what matters is the arithmetic.
template <class... Sources, class Model, class Functions, class... Scalars>
void sweepFactors(const Model& model, const Functions& functions, int lowest, int highest, Scalars... scalars)
{
    for (const int scaleFactor : factors(lowest, highest))
        sweep(model, functions,
              {.block = 0,
               .lengths = {300},
               .inPlace = false,
               .generate = edgySources<Sources...>(),
               .repeats = 1},
              scalars..., scaleFactor);
}

/// A factor of each path at every length and alignment.
template <class Model, class Functions, class... Scalars>
void sweepPaths(const Model& model, const Functions& functions, std::initializer_list<int> scaleFactors,
                Scalars... scalars)
{
    for (const int scaleFactor : scaleFactors)
        sweep(model, functions, {.lengths = {257, 1000}, .repeats = 1}, scalars..., scaleFactor);
}
