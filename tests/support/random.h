// Random numbers that every run draws alike. ZELS_TEST_SEED in the environment chooses another run.
#pragma once

#include <cstdint>
#include <string_view>

namespace support {

/// The seed of this run.
std::uint64_t testSeed();

/// SplitMix64: fast, and good enough from any seed.
class Random {
  public:
    explicit Random(std::uint64_t seed) : state(seed) {}
    /// A generator of its own for each purpose, the same in every run of one seed.
    explicit Random(std::string_view purpose);

    std::uint64_t bits()
    {
        std::uint64_t z = (state += 0x9E3779B97F4A7C15);
        z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9;
        z = (z ^ (z >> 27)) * 0x94D049BB133111EB;
        return z ^ (z >> 31);
    }
    /// 0 to n - 1.
    std::int64_t below(std::int64_t n)
    {
        return static_cast<std::int64_t>(bits() % static_cast<std::uint64_t>(n));
    }
    double uniform(double low, double high)
    {
        return low + (high - low) * (static_cast<double>(bits() >> 11) * 0x1p-53);
    }

  private:
    std::uint64_t state;
};

} // namespace support
