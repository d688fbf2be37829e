// Pairwise extremes.
#include "support/test.h"

namespace {

// In place the destination's former value stands second.
constexpr auto larger = [](auto a, auto b) { return a > b ? a : b; };
constexpr auto smaller = [](auto a, auto b) { return a < b ? a : b; };

} // namespace

TEST(MaxEvery, takesTheSecondUnlessTheFirstIsBetter)
{
    const SweepOptions options{.payload = true, .repeats = 4};
    sweep(larger, EXPORTS(zelsMaxEvery_8u, zelsMaxEvery_16u, zelsMaxEvery_32f, zelsMaxEvery_64f), options);
    sweep(smaller, EXPORTS(zelsMinEvery_8u, zelsMinEvery_16u, zelsMinEvery_32f, zelsMinEvery_64f), options);
}

TEST(MaxEvery, worksInPlace)
{
    const SweepOptions options{.payload = true, .repeats = 4};
    sweep(larger,
          EXPORTS(zelsMaxEvery_8u_I, zelsMaxEvery_16s_I, zelsMaxEvery_16u_I, zelsMaxEvery_32s_I,
                  zelsMaxEvery_32f_I, zelsMaxEvery_64f_I),
          options);
    sweep(smaller,
          EXPORTS(zelsMinEvery_8u_I, zelsMinEvery_16s_I, zelsMinEvery_16u_I, zelsMinEvery_32s_I,
                  zelsMinEvery_32f_I, zelsMinEvery_64f_I),
          options);
}

TEST(MaxEvery, takesOverlappingDoublesOneByOne)
{
    support::Random random("overlap");
    for (const int distance : {-40, -3, -1, 0, 1, 2, 7, 39})
        for (const bool max : {false, true}) {
            std::vector<double> x(160);
            fill(random, x.data(), x.size(), support::Fill::mixed);
            std::vector<double> expected = x;
            const std::ptrdiff_t from = 50 + distance;
            for (std::ptrdiff_t i = 0; i < 40; i++) {
                const double a = expected[static_cast<std::size_t>(from + i)];
                double& b = expected[static_cast<std::size_t>(50 + i)];
                b = max ? larger(a, b) : smaller(a, b);
            }
            const auto function = max ? zelsMaxEvery_64f_I : zelsMinEvery_64f_I;
            ASSERT_EQ(function(x.data() + from, x.data() + 50, 40), zelStatusOk);
            EXPECT_EQ(std::memcmp(x.data(), expected.data(), x.size() * sizeof(double)), 0) << distance;
        }
}

TEST(MaxEvery, refusesBadArguments)
{
    badArguments(EXPORTS(zelsMaxEvery_8u, zelsMaxEvery_16u, zelsMaxEvery_32f, zelsMaxEvery_64f,
                         zelsMaxEvery_8u_I, zelsMaxEvery_16s_I, zelsMaxEvery_16u_I, zelsMaxEvery_32s_I,
                         zelsMaxEvery_32f_I, zelsMaxEvery_64f_I, zelsMinEvery_8u, zelsMinEvery_16u,
                         zelsMinEvery_32f, zelsMinEvery_64f, zelsMinEvery_8u_I, zelsMinEvery_16s_I,
                         zelsMinEvery_16u_I, zelsMinEvery_32s_I, zelsMinEvery_32f_I, zelsMinEvery_64f_I),
                 pointersFirst);
}
