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

/// All pairs of 8-bit elements by function(a, b, result, len, factor).
template <class Model, class F>
void allPairs(const char* name, F function, const Model& model, int lowest, int highest)
{
    std::vector<Zel8u> a(65536), b(65536), result(65536);
    for (std::size_t i = 0; i < a.size(); i++) {
        a[i] = static_cast<Zel8u>(i);
        b[i] = static_cast<Zel8u>(i >> 8);
    }
    for (const int s : factors(lowest, highest)) {
        ASSERT_EQ(function(a.data(), b.data(), result.data(), 65536, s), zelStatusOk);
        for (std::size_t i = 0; i < a.size(); i++)
            ASSERT_EQ(result[i], model(a[i], b[i], s))
                << name << " of " << +a[i] << ", " << +b[i] << " by " << s;
    }
}

/// For allPairs: a function of vector and constant.
constexpr auto eachConstant = [](auto function) {
    return [=](const Zel8u* a, const Zel8u* b, Zel8u* result, int len, int s) {
        for (int i = 0; i < len; i += 256)
            function(a + i, b[i], result + i, 256, s);
        return zelStatusOk;
    };
};

/// All 16-bit elements with each of some constants.
template <class T, class Model, class F>
void allInputs(const char* name, F function, const Model& model, int lowest, int highest,
               std::initializer_list<T> constants)
{
    const std::vector<T> a = everyValue<T>();
    std::vector<T> result(a.size());
    for (const T val : constants)
        for (const int s : factors(lowest, highest)) {
            ASSERT_EQ(function(a.data(), val, result.data(), 65536, s), zelStatusOk);
            for (std::size_t i = 0; i < a.size(); i++)
                ASSERT_EQ(result[i], model(a[i], val, s))
                    << name << " of " << a[i] << ", " << val << " by " << s;
        }
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

template <class... Lists>
void badArgumentsOf(CheckOrder order, const Lists&... lists)
{
    (badArguments(lists, order), ...);
}
