// What the tools know of an element type at run time.
#pragma once

#include "zels.h"

#include <cstdint>
#include <type_traits>

namespace support {

/// Number types of element parts. Half-precision values are carried as the 16-bit patterns that they are.
enum class Kind : std::uint8_t { u8, s8, u16, s16, u32, s32, u64, s64, f32, f64 };

/// An element: a part type, and 1 part or 2 (complex).
struct Element {
    Kind kind;
    int parts;
    int size; ///< bytes of the whole element
    bool operator==(const Element&) const = default;
};

constexpr bool isFloat(Kind kind)
{
    return kind == Kind::f32 || kind == Kind::f64;
}

namespace detail {

template <class T>
constexpr Kind kindOf()
{
    if constexpr (std::is_same_v<T, Zel32f>)
        return Kind::f32;
    else if constexpr (std::is_same_v<T, Zel64f>)
        return Kind::f64;
    else if constexpr (std::is_signed_v<T>)
        return sizeof(T) == 1   ? Kind::s8
               : sizeof(T) == 2 ? Kind::s16
               : sizeof(T) == 4 ? Kind::s32
                                : Kind::s64;
    else
        return sizeof(T) == 1   ? Kind::u8
               : sizeof(T) == 2 ? Kind::u16
               : sizeof(T) == 4 ? Kind::u32
                                : Kind::u64;
}

} // namespace detail

template <class T>
concept Complex = requires(T x)
{
    x.re;
    x.im;
};

template <class T>
struct PartOf {
    using Type = T;
};
template <Complex T>
struct PartOf<T> {
    using Type = decltype(T::re);
};
/// The part type of a complex type, a real type itself.
template <class T>
using Part = typename PartOf<T>::Type;

/// Anything else that a pointer may point to (records, work memory) counts as bytes.
template <class T>
constexpr Element elementOf()
{
    if constexpr (Complex<T>)
        return {detail::kindOf<Part<T>>(), 2, sizeof(T)};
    else if constexpr (std::is_arithmetic_v<T>)
        return {detail::kindOf<T>(), 1, sizeof(T)};
    else
        return {Kind::u8, 1, 1};
}

} // namespace support
