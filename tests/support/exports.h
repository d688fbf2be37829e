// Functions under test with their names, and what can be read from their types.
#pragma once

#include "support/element.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <tuple>
#include <vector>

namespace support {

/// Functions with the text of their names and the place of the test, for messages.
template <class... F>
struct Exports {
    std::string_view names; ///< "zelsAdd_32f, zelsAdd_32f_I"
    const char* file;
    int line;
    std::tuple<F...> functions;
};

/// EXPORTS(zelsAdd_32f, zelsAdd_32f_I): a list of functions for the tools.
#define EXPORTS(...) ::support::makeExports(#__VA_ARGS__, __FILE__, __LINE__, __VA_ARGS__)

template <class... F>
Exports<F*...> makeExports(std::string_view names, const char* file, int line, F&... functions)
{
    return {names, file, line, {&functions...}};
}

/// The name of one function of a list.
std::string nameOf(std::string_view names, std::size_t index);

/// Which integer argument right after a pointer is the length: the last one, as in element-wise functions, or
/// the first, as in reductions whose result pointer stands behind the length and has more integers after it.
enum class LengthIs { last, first };

template <class T>
inline constexpr bool canBeLength =
    std::is_same_v<T, int> || std::is_same_v<T, ZelSize> || std::is_same_v<T, Zel32u>;

/// The index of the length among the argument types, or -1.
template <LengthIs which, class... A>
constexpr int lengthIndex()
{
    constexpr bool pointer[]{std::is_pointer_v<A>...};
    constexpr bool integer[]{canBeLength<A>...};
    int found = -1;
    for (int i = 1; i < static_cast<int>(sizeof...(A)); i++)
        if (pointer[i - 1] && integer[i] && (which == LengthIs::last || found < 0))
            found = i;
    return found;
}

} // namespace support
