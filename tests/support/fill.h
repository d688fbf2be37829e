// What the sweeps fill arrays with: ordinary data, and data that is out for trouble.
#pragma once

#include "support/element.h"
#include "support/random.h"

#include <cstddef>

namespace support {

enum class Fill : unsigned {
    ordinary,    ///< floats of full mantissa within the range asked for; integers over their whole range
    small,       ///< small whole numbers, so that sums, products and quotients often come out exact
    ties,        ///< halves of odd numbers, and integers whose low bits are those of a tie after a shift
    extremes,    ///< limits, saturation edges, zeros of both signs, infinities, NaNs, subnormals
    mixed,       ///< ordinary, with an extreme here and there
    anyBits,     ///< any bit pattern: exponents over the whole range, NaNs with payloads, signalling ones too
    equal,       ///< runs of one value
    sorted,      ///< runs of ascending and descending values
    alternating, ///< one value and its negative in turn
    count
};

constexpr unsigned fillBit(Fill fill)
{
    return 1u << static_cast<unsigned>(fill);
}
inline constexpr unsigned allFills = fillBit(Fill::count) - 1;
/// Fills whose every value is an ordinary one.
inline constexpr unsigned tameFills = fillBit(Fill::ordinary) | fillBit(Fill::small) | fillBit(Fill::ties) |
                                      fillBit(Fill::equal) | fillBit(Fill::sorted) |
                                      fillBit(Fill::alternating);

/// The range of ordinary floats, and a limit that all fills keep to if it is set.
struct Values {
    double low = -8;
    double high = 8;
    bool only = false; ///< no value outside [low, high] (integers too), no NaN
};

const char* fillName(Fill fill);

/// Fills `parts` number parts from an aligned address.
void fillParts(Random& random, Kind kind, Fill fill, Values values, void* pDst, std::size_t parts);

/// The same for an array of elements.
template <class T>
void fill(Random& random, T* pDst, std::size_t count, Fill how = Fill::ordinary, Values values = {})
{
    constexpr Element element = elementOf<T>();
    fillParts(random, element.kind, how, values, pDst, count * element.parts);
}

} // namespace support
