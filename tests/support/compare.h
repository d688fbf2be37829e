// Comparison of results: bit for bit, in units of the last place, within a bound.
#pragma once

#include "support/element.h"

#include <bit>
#include <cstddef>
#include <string>

namespace support {

/// A value and the error allowed on it, as a model may give it where one bound does not fit all elements.
struct Within {
    long double value;
    long double bound;
};

/// The distance of a result from the exact value in units of its last place: the spacing of T at the exact
/// value, which is that of the smallest normal number below it. 0 for two NaNs or equal infinities; infinite
/// where only one is a NaN, or an infinity that rounding does not explain.
template <class T>
long double ulpError(T result, long double exact);

/// How many values of T lie between two values, 0 for equal ones. Both zeros count as equal.
template <class T>
std::uint64_t ulpsBetween(T a, T b);

/// The value and its bits: "0.1f (0x3DCCCCCD)".
std::string partText(Kind kind, const void* p);
/// The parts of an element.
std::string elementText(Element element, const void* p);

/// True if both parts have the same bits, or both are NaN unless `payload` is set.
bool samePart(Kind kind, const void* a, const void* b, bool payload = false);
/// The first part in which two arrays differ by that, or -1.
std::ptrdiff_t firstDifference(Kind kind, const void* a, const void* b, std::size_t parts,
                               bool payload = false);

/// A part as a long double: exact for every kind.
long double partValue(Kind kind, const void* p);

template <class T>
inline T fromBits(std::conditional_t<sizeof(T) == 4, std::uint32_t, std::uint64_t> bits)
{
    return std::bit_cast<T>(bits);
}

} // namespace support
