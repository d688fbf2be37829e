// Which kernels store past the caches, and from which length on: seen by stepping into them.
#include "support/test.h"
#include "support/trace.h"

namespace {

/// A pointer to whatever is wanted.
struct Any {
    void* p;
    template <class T>
    operator T*() const
    {
        return static_cast<T*>(p);
    }
};

struct Kernel {
    const char* name;
    int size;  ///< bytes of an element of the destination
    int limit; ///< elements behind the peel up to which it does not stream; 0: it never does
    ZelStatus (*call)(Any source, Any destination, int len);
};

constexpr Zel32fc c32{2, 2};
constexpr Zel64fc c64{2, 2};

constexpr Kernel kernels[]{
    {"Add_32f", 4, 87383, [](Any s, Any d, int n) { return zelsAdd_32f(s, s, d, n); }},
    {"Add_64f", 8, 43691, [](Any s, Any d, int n) { return zelsAdd_64f(s, s, d, n); }},
    {"Mul_64f", 8, 43687, [](Any s, Any d, int n) { return zelsMul_64f(s, s, d, n); }},
    {"Mul_64fc", 16, 2 * 10922 + 1, [](Any s, Any d, int n) { return zelsMul_64fc(s, s, d, n); }},
    {"Mul_64fc_I", 16, 2 * 16384 + 1, [](Any s, Any d, int n) { return zelsMul_64fc_I(s, d, n); }},
    {"AddC_64fc", 16, 2 * 16384 + 1, [](Any s, Any d, int n) { return zelsAddC_64fc(s, c64, d, n); }},
    {"MulC_32f", 4, 131079, [](Any s, Any d, int n) { return zelsMulC_32f(s, 2, d, n); }},
    {"MulC_32fc", 8, 65539, [](Any s, Any d, int n) { return zelsMulC_32fc(s, c32, d, n); }},
    {"MulC_32fc_I", 8, 131073, [](Any, Any d, int n) { return zelsMulC_32fc_I(c32, d, n); }},
    {"Add_16s32f", 4, 262151, [](Any s, Any d, int n) { return zelsAdd_16s32f(s, s, d, n); }},
    {"Add_32f_I", 4, 0, [](Any s, Any d, int n) { return zelsAdd_32f_I(s, d, n); }},
    {"Add_64f_I", 8, 0, [](Any s, Any d, int n) { return zelsAdd_64f_I(s, d, n); }},
    {"Sub_32f", 4, 0, [](Any s, Any d, int n) { return zelsSub_32f(s, s, d, n); }},
    {"Sub_64f", 8, 0, [](Any s, Any d, int n) { return zelsSub_64f(s, s, d, n); }},
    {"Mul_32f", 4, 0, [](Any s, Any d, int n) { return zelsMul_32f(s, s, d, n); }},
    {"Mul_64f_I", 8, 0, [](Any s, Any d, int n) { return zelsMul_64f_I(s, d, n); }},
    {"Mul_32fc", 8, 0, [](Any s, Any d, int n) { return zelsMul_32fc(s, s, d, n); }},
    {"AddC_32f", 4, 0, [](Any s, Any d, int n) { return zelsAddC_32f(s, 2, d, n); }},
    {"AddC_64f", 8, 0, [](Any s, Any d, int n) { return zelsAddC_64f(s, 2, d, n); }},
    {"AddC_32fc", 8, 0, [](Any s, Any d, int n) { return zelsAddC_32fc(s, c32, d, n); }},
    {"SubC_32f", 4, 0, [](Any s, Any d, int n) { return zelsSubC_32f(s, 2, d, n); }},
    {"SubCRev_32f", 4, 0, [](Any s, Any d, int n) { return zelsSubCRev_32f(s, 2, d, n); }},
    {"SubCRev_64f", 8, 0, [](Any s, Any d, int n) { return zelsSubCRev_64f(s, 2, d, n); }},
    {"MulC_32f_I", 4, 0, [](Any, Any d, int n) { return zelsMulC_32f_I(2, d, n); }},
    {"MulC_64f", 8, 0, [](Any s, Any d, int n) { return zelsMulC_64f(s, 2, d, n); }},
    {"MulC_64fc", 16, 0, [](Any s, Any d, int n) { return zelsMulC_64fc(s, c64, d, n); }},
    {"Mul_16s32f", 4, 0, [](Any s, Any d, int n) { return zelsMul_16s32f(s, s, d, n); }},
    {"AddProduct_32f", 4, 0, [](Any s, Any d, int n) { return zelsAddProduct_32f(s, s, d, n); }},
    {"Abs_32f", 4, 0, [](Any s, Any d, int n) { return zelsAbs_32f(s, d, n); }},
    {"Move_8u", 1, 0, [](Any s, Any d, int n) { return zelsMove_8u(s, d, n); }},
};

constexpr std::size_t mostBytes = 9 << 20;

} // namespace

TEST(Streaming, beginsAtTheLengthsOfTheTable)
{
    if (!canTrace())
        GTEST_SKIP() << "no single steps on this machine";
    GuardedPages source(mostBytes);
    GuardedPages destination(mostBytes);
    for (const Kernel& kernel : kernels) {
        // The decision falls before the body, whose first rounds are among these steps.
        const auto streams = [&](int len, int offset) {
            const Trace seen =
                trace([&] { kernel.call({source.begin()}, {destination.begin() + offset}, len); }, 1000,
                      untilStreaming);
            EXPECT_EQ(seen.fences, 0) << kernel.name;
            EXPECT_EQ(seen.cpuids, 0) << kernel.name;
            return seen.streamingStores > 0;
        };
        if (kernel.limit == 0) {
            EXPECT_FALSE(streams(500000, 0)) << kernel.name;
            continue;
        }
        EXPECT_FALSE(streams(kernel.limit, 0)) << kernel.name;
        EXPECT_TRUE(streams(kernel.limit + 1, 0)) << kernel.name;
        if (kernel.size < 16) {
            const int peel = 16 / kernel.size - 1;
            EXPECT_FALSE(streams(kernel.limit + peel, kernel.size)) << kernel.name;
            EXPECT_TRUE(streams(kernel.limit + peel + 1, kernel.size)) << kernel.name;
        }
        // Single elements never lead from an odd address to an aligned one.
        EXPECT_FALSE(streams(2 * kernel.limit, 1)) << kernel.name;
    }
}
