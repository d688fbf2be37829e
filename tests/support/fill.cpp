#include "support/fill.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstring>
#include <limits>
#include <vector>

namespace support {

namespace {

template <class T>
const std::vector<T>& extremes()
{
    static const std::vector<T> list = [] {
        using Limits = std::numeric_limits<T>;
        std::vector<T> found;
        if constexpr (std::is_floating_point_v<T>) {
            const T inf = Limits::infinity();
            for (const T x :
                 {T(0), Limits::denorm_min(), Limits::min(), std::nextafter(Limits::min(), T(0)), T(1),
                  std::nextafter(T(1), T(2)), std::nextafter(T(1), T(0)), T(2), T(0.5),
                  std::nextafter(T(0.5), T(0)), T(1.5), T(2.5), Limits::max(), inf, Limits::quiet_NaN()}) {
                found.push_back(x);
                found.push_back(-x);
            }
            // The edges of the integer types, from both sides and at the half between.
            for (const double limit :
                 {0x1p7, 0x1p8, 0x1p15, 0x1p16, 0x1p23, 0x1p24, 0x1p31, 0x1p32, 0x1p63, 0x1p64})
                for (const double x : {limit - 1.5, limit - 1, limit - 0.5, limit, limit + 0.5, limit + 1}) {
                    found.push_back(static_cast<T>(x));
                    found.push_back(static_cast<T>(-x));
                }
        } else {
            const T low = Limits::min();
            const T high = Limits::max();
            const T half = static_cast<T>(high / 2);
            for (const T x : {low, static_cast<T>(low + 1), static_cast<T>(low + 2), static_cast<T>(low / 2),
                              static_cast<T>(low / 2 - 1), static_cast<T>(-1), T(0), T(1), T(2), T(3), half,
                              static_cast<T>(half + 1), static_cast<T>(high - 1), high})
                found.push_back(x);
        }
        return found;
    }();
    return list;
}

template <class T>
T ordinary(Random& random, const Values& values)
{
    if constexpr (std::is_floating_point_v<T>)
        return static_cast<T>(random.uniform(values.low, values.high));
    else
        return static_cast<T>(random.bits() >> 16);
}

template <class T>
T small(Random& random)
{
    const std::int64_t low = std::is_unsigned_v<T> ? 0 : -9;
    return static_cast<T>(low + random.below(10 - low));
}

template <class T>
T anyBits(Random& random)
{
    const std::uint64_t bits = random.bits();
    T value;
    std::memcpy(&value, &bits, sizeof value);
    return value;
}

template <class T>
void fillAs(Random& random, Fill how, const Values& values, T* p, std::size_t n)
{
    const auto pick = [&] {
        return extremes<T>()[static_cast<std::size_t>(
            random.below(static_cast<std::int64_t>(extremes<T>().size())))];
    };
    switch (how) {
    case Fill::ordinary:
    case Fill::count:
        for (std::size_t i = 0; i < n; i++)
            p[i] = ordinary<T>(random, values);
        break;
    case Fill::small:
        for (std::size_t i = 0; i < n; i++)
            p[i] = small<T>(random);
        break;
    case Fill::ties:
        for (std::size_t i = 0; i < n; i++) {
            if constexpr (std::is_floating_point_v<T>) {
                p[i] = static_cast<T>(random.below(1 << (4 + random.below(14)))) + T(0.5);
                if (random.bits() & 1)
                    p[i] = -p[i];
            } else {
                const int zeros = static_cast<int>(random.below(8 * static_cast<int>(sizeof(T)) - 1));
                p[i] = static_cast<T>((random.bits() | 1) << zeros);
            }
        }
        break;
    case Fill::extremes:
        // Now and then a run of one of them.
        for (std::size_t i = 0; i < n; i++)
            p[i] = i % 128 > 96 ? p[i - 1] : pick();
        break;
    case Fill::mixed:
        for (std::size_t i = 0; i < n; i++)
            p[i] = random.below(8) == 0 ? pick() : ordinary<T>(random, values);
        break;
    case Fill::anyBits:
        for (std::size_t i = 0; i < n; i++)
            p[i] = anyBits<T>(random);
        break;
    case Fill::equal: {
        T value{};
        for (std::size_t i = 0; i < n; i++) {
            if (i % 256 == 0)
                value = random.below(3) == 0 ? small<T>(random) : ordinary<T>(random, values);
            p[i] = value;
        }
        break;
    }
    case Fill::sorted:
        for (std::size_t i = 0; i < n; i++)
            p[i] = ordinary<T>(random, values);
        for (std::size_t i = 0; i < n; i += 256) {
            std::sort(p + i, p + std::min(n, i + 256));
            if (i / 256 % 2 != 0)
                std::reverse(p + i, p + std::min(n, i + 256));
        }
        break;
    case Fill::alternating: {
        T value{};
        for (std::size_t i = 0; i < n; i++) {
            if (i % 64 == 0)
                value = ordinary<T>(random, values);
            p[i] = i % 2 == 0
                       ? value
                       : static_cast<T>(std::is_unsigned_v<T> ? ~static_cast<std::uint64_t>(value) : 0);
            if constexpr (!std::is_unsigned_v<T>)
                if (i % 2 != 0)
                    p[i] = value == std::numeric_limits<T>::min() ? std::numeric_limits<T>::max()
                                                                  : static_cast<T>(-value);
        }
        break;
    }
    }
    if (values.only) {
        // What of the range the type holds; 2^63 and 2^64 are not among it.
        const double low = std::max(values.low, static_cast<double>(std::numeric_limits<T>::lowest()));
        double high = std::min(values.high, static_cast<double>(std::numeric_limits<T>::max()));
        if (std::is_integral_v<T> && high >= 0x1p62)
            high = std::nextafter(high, 0.0);
        for (std::size_t i = 0; i < n; i++)
            if (!(static_cast<double>(p[i]) >= low && static_cast<double>(p[i]) <= high))
                p[i] = static_cast<T>(random.uniform(low, high));
    }
}

} // namespace

const char* fillName(Fill fill)
{
    static constexpr const char* names[]{"ordinary", "small", "ties",   "extremes",   "mixed",
                                         "anyBits",  "equal", "sorted", "alternating"};
    return names[static_cast<unsigned>(fill)];
}

void fillParts(Random& random, Kind kind, Fill how, Values values, void* pDst, std::size_t parts)
{
    const auto as = [&]<class T>(T) { fillAs(random, how, values, static_cast<T*>(pDst), parts); };
    switch (kind) {
    case Kind::u8:
        return as(Zel8u{});
    case Kind::s8:
        return as(Zel8s{});
    case Kind::u16:
        return as(Zel16u{});
    case Kind::s16:
        return as(Zel16s{});
    case Kind::u32:
        return as(Zel32u{});
    case Kind::s32:
        return as(Zel32s{});
    case Kind::u64:
        return as(Zel64u{});
    case Kind::s64:
        return as(Zel64s{});
    case Kind::f32:
        return as(Zel32f{});
    case Kind::f64:
        return as(Zel64f{});
    }
}

} // namespace support
