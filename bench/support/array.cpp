#include "support/array.h"

#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <new>
#include <random>

namespace bench {
namespace {

template <class P, class Draw>
void fillWith(void* p, std::size_t count, Draw draw)
{
    for (std::size_t i = 0; i < count; i++) {
        const P value = static_cast<P>(draw(i));
        std::memcpy(static_cast<char*>(p) + i * sizeof(P), &value, sizeof value);
    }
}

} // namespace

int Make::nextPlace()
{
    static int place = 0;
    return place++;
}

void* makeArray(const Make& make, char kind, std::size_t partBytes, std::size_t elementBytes)
{
    constexpr std::size_t page = 4096;
    constexpr std::size_t stagger = 17 * 64; // four arrays lie at least 832 bytes apart in their pages
    const std::size_t bytes = static_cast<std::size_t>(make.length) * elementBytes;
    const std::size_t offset = static_cast<std::size_t>(make.place % 4) * stagger;
    char* base = static_cast<char*>(std::aligned_alloc(page, (offset + bytes + page) / page * page));
    if (!base)
        throw std::bad_alloc();
    char* p = base + offset;

    // One random stretch, repeated: large arrays are made quickly.
    std::mt19937_64 random(static_cast<std::uint64_t>(make.place) + 1);
    const std::size_t stretch = bytes < 65536 ? bytes : 65536;
    const std::size_t count = stretch / partBytes;
    const std::size_t parts = elementBytes / partBytes;
    const auto sign = [&] { return random() & 1 ? 1.0 : -1.0; };
    const auto unit = [&](std::size_t i) { // one part of each element is +-1, chosen by the element's number
        const std::size_t element = i / parts;
        return parts == 1 || (element * 7 / 3 + i) % parts == 0 ? sign() : 0.0;
    };
    const auto real = [&](std::size_t) { return sign() * std::uniform_real_distribution<>(0.5, 1)(random); };
    const auto whole = [&](std::size_t) { return random(); };
    const auto draw = [&](auto part) {
        using P = decltype(part);
        if (make.fill == Fill::units)
            fillWith<P>(p, count, unit);
        else if constexpr (std::is_floating_point_v<P>)
            fillWith<P>(p, count, real);
        else
            fillWith<P>(p, count, whole);
    };
    switch (partBytes) {
    case 1:
        draw(std::int8_t{});
        break;
    case 2:
        draw(std::int16_t{});
        break;
    case 4:
        kind == 'f' ? draw(float{}) : draw(std::int32_t{});
        break;
    default:
        kind == 'f' ? draw(double{}) : draw(std::int64_t{});
        break;
    }
    for (std::size_t at = stretch; at < bytes; at += stretch)
        std::memcpy(p + at, p, bytes - at < stretch ? bytes - at : stretch);
    return base + offset;
}

void freeArray(void* p)
{
    constexpr std::uintptr_t page = 4096;
    std::free(reinterpret_cast<void*>(reinterpret_cast<std::uintptr_t>(p) / page * page));
}

} // namespace bench
