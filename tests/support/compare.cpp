#include "support/compare.h"

#include <cmath>
#include <cstdio>
#include <cstring>
#include <limits>

namespace support {

namespace {

constexpr int sizeOf(Kind kind)
{
    switch (kind) {
    case Kind::u8:
    case Kind::s8:
        return 1;
    case Kind::u16:
    case Kind::s16:
        return 2;
    case Kind::u32:
    case Kind::s32:
    case Kind::f32:
        return 4;
    default:
        return 8;
    }
}

template <class T>
T get(const void* p)
{
    T value;
    std::memcpy(&value, p, sizeof value);
    return value;
}

template <class T>
std::int64_t ordered(T x)
{
    using Bits = std::conditional_t<sizeof(T) == 4, std::int32_t, std::int64_t>;
    const auto bits = std::bit_cast<Bits>(x);
    return bits < 0 ? static_cast<std::int64_t>(std::numeric_limits<Bits>::min()) - bits : bits;
}

} // namespace

template <class T>
long double ulpError(T result, long double exact)
{
    constexpr long double never = std::numeric_limits<long double>::infinity();
    if (std::isnan(exact) || std::isnan(result))
        return std::isnan(exact) && std::isnan(result) ? 0 : never;
    using Limits = std::numeric_limits<T>;
    const long double magnitude = std::fabs(exact);
    int exponent = 0;
    std::frexp(magnitude, &exponent);
    if (exponent < Limits::min_exponent || magnitude == 0)
        exponent = Limits::min_exponent;
    if (std::isinf(exact))
        return static_cast<long double>(result) == exact ? 0 : never;
    // An infinite result stands for the number after the largest finite one.
    exponent = std::min(exponent, Limits::max_exponent);
    const long double value = std::isinf(result) ? std::copysign(std::ldexp(1.0L, Limits::max_exponent),
                                                                 static_cast<long double>(result))
                                                 : static_cast<long double>(result);
    if (std::isinf(result) && std::signbit(result) == std::signbit(exact) && magnitude >= std::fabs(value))
        return 0;
    return std::fabs(value - exact) / std::ldexp(1.0L, exponent - Limits::digits);
}
template long double ulpError(float, long double);
template long double ulpError(double, long double);

template <class T>
std::uint64_t ulpsBetween(T a, T b)
{
    if (std::isnan(a) || std::isnan(b))
        return std::isnan(a) && std::isnan(b) ? 0 : UINT64_MAX;
    const std::int64_t x = ordered(a);
    const std::int64_t y = ordered(b);
    return x > y ? static_cast<std::uint64_t>(x) - static_cast<std::uint64_t>(y)
                 : static_cast<std::uint64_t>(y) - static_cast<std::uint64_t>(x);
}
template std::uint64_t ulpsBetween(float, float);
template std::uint64_t ulpsBetween(double, double);

long double partValue(Kind kind, const void* p)
{
    switch (kind) {
    case Kind::u8:
        return get<Zel8u>(p);
    case Kind::s8:
        return get<Zel8s>(p);
    case Kind::u16:
        return get<Zel16u>(p);
    case Kind::s16:
        return get<Zel16s>(p);
    case Kind::u32:
        return get<Zel32u>(p);
    case Kind::s32:
        return get<Zel32s>(p);
    case Kind::u64:
        return static_cast<long double>(get<Zel64u>(p));
    case Kind::s64:
        return static_cast<long double>(get<Zel64s>(p));
    case Kind::f32:
        return get<Zel32f>(p);
    case Kind::f64:
        return get<Zel64f>(p);
    }
    return 0;
}

std::string partText(Kind kind, const void* p)
{
    char text[96];
    if (kind == Kind::f32)
        std::snprintf(text, sizeof text, "%.9g (0x%08X)", static_cast<double>(get<Zel32f>(p)),
                      get<Zel32u>(p));
    else if (kind == Kind::f64)
        std::snprintf(text, sizeof text, "%.17g (0x%016llX)", get<Zel64f>(p),
                      static_cast<unsigned long long>(get<Zel64u>(p)));
    else
        std::snprintf(text, sizeof text, "%.0Lf", partValue(kind, p));
    return text;
}

std::string elementText(Element element, const void* p)
{
    if (element.parts == 1)
        return partText(element.kind, p);
    return "{" + partText(element.kind, p) + ", " +
           partText(element.kind, static_cast<const char*>(p) + sizeOf(element.kind)) + "}";
}

bool samePart(Kind kind, const void* a, const void* b, bool payload)
{
    if (std::memcmp(a, b, static_cast<std::size_t>(sizeOf(kind))) == 0)
        return true;
    return !payload && isFloat(kind) && std::isnan(partValue(kind, a)) && std::isnan(partValue(kind, b));
}

std::ptrdiff_t firstDifference(Kind kind, const void* a, const void* b, std::size_t parts, bool payload)
{
    const auto size = static_cast<std::size_t>(sizeOf(kind));
    if (std::memcmp(a, b, parts * size) == 0)
        return -1;
    for (std::size_t i = 0; i < parts; i++)
        if (!samePart(kind, static_cast<const char*>(a) + i * size, static_cast<const char*>(b) + i * size,
                      payload))
            return static_cast<std::ptrdiff_t>(i);
    return -1;
}

} // namespace support
