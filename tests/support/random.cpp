#include "support/random.h"

#include <cstdlib>

namespace support {

std::uint64_t testSeed()
{
    static const std::uint64_t seed = [] {
        const char* const text = std::getenv("ZELS_TEST_SEED");
        return text ? std::strtoull(text, nullptr, 0) : 20261121;
    }();
    return seed;
}

Random::Random(std::string_view purpose) : state(testSeed())
{
    for (const char c : purpose)
        state = (state ^ static_cast<unsigned char>(c)) * 0x100000001B3;
}

} // namespace support
