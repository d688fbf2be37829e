// Models of roots in fixed point, and sources that hold what they must get right.
#pragma once

#include "support/test.h"

#include <cstring>
#include <vector>

/// The largest integer whose square is not above n.
inline Wide floorRoot(Wide n)
{
    auto r = static_cast<Wide>(std::sqrt(static_cast<long double>(n)));
    while (r * r > n)
        r--;
    while ((r + 1) * (r + 1) <= n)
        r++;
    return r;
}

/// sqrt(n) * 2^-scaleFactor to nearest, ties to even, saturated, by comparing squares of integers.
template <class T>
T scaledRoot(Wide n, int scaleFactor)
{
    if (n <= 0 || scaleFactor > 40)
        return 0;
    if (scaleFactor < -40)
        return std::numeric_limits<T>::max();
    if (scaleFactor <= 0) {
        const Wide m = n << (-2 * scaleFactor);
        const Wide r = floorRoot(m);
        return saturated<T>(r + (m > r * r + r));
    }
    const Wide r = floorRoot(n) >> scaleFactor;
    const Wide middle = (2 * r + 1) << (scaleFactor - 1);
    const Wide beyond = n - middle * middle;
    return saturated<T>(r + (beyond > 0 || (beyond == 0 && (r & 1) != 0)));
}

/// Parts to combine with each other: limits, powers of two and their neighbours, some of no pattern.
inline std::vector<Zel16s> tellingParts()
{
    std::vector<Zel16s> parts{-32768, -32767, 32767, 0, 12345, -23170, 23170, 23171, 181, 182, -3, 3};
    for (int bit = 0; bit < 15; bit += 2)
        for (const int x : {(1 << bit) - 1, 1 << bit, -(1 << bit)})
            parts.push_back(static_cast<Zel16s>(x));
    return parts;
}

/// The model of complex elements from that of parts.
template <auto ofParts>
constexpr auto ofComplex = [](Complex auto z, auto... scalars) requires requires
{
    ofParts(z.re, z.im, scalars...);
}
{
    return ofParts(z.re, z.im, scalars...);
};

/// One function on these sources, by each factor, in each rounding mode, against the model of one element.
template <class D, class Model, class F, class... S>
void checkFactors(const Model& model, const Exports<F>& function, const std::vector<int>& scaleFactors,
                  const std::vector<S>&... sources)
{
    const std::size_t n = std::min({sources.size()...});
    std::vector<D> result(n);
    for (const unsigned mode : roundingModes)
        for (const int s : scaleFactors) {
            {
                const FloatMode callers(mode);
                std::get<0>(function.functions)(sources.data()..., result.data(), static_cast<int>(n), s);
            }
            for (std::size_t i = 0; i < n; i++) {
                const D expected = model(sources[i]..., s);
                ASSERT_EQ(std::memcmp(&result[i], &expected, sizeof(D)), 0)
                    << function.names << " at " << i << " by " << s << ", " << modeName(mode) << ": "
                    << elementText(elementOf<D>(), &result[i]) << " instead of "
                    << elementText(elementOf<D>(), &expected);
            }
        }
}
