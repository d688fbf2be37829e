// The long forms of float arithmetic on lengths that 32-bit byte counts cannot hold.
#include "support/test.h"

namespace {

constexpr auto sum = [](auto a, auto b) { return a + b; };
constexpr auto product = [](auto a, auto b) { return a * b; };

constexpr ZelSize pastChunk32f = longChunk<Zel32f> + 1234;
constexpr ZelSize pastChunk64f = longChunk<Zel64f> + 1234;

} // namespace

TEST(FloatLong, worksInChunks)
{
    sweepLong(sum, EXPORTS(zelsAdd_32f_L, zelsAdd_32f_I_L), pastChunk32f, {longChunk<Zel32f>});
    sweepLong(sum, EXPORTS(zelsAddC_64f_I_L), pastChunk64f, {longChunk<Zel64f>}, 2.5);
}

TEST(FloatLong, worksInOnePiece)
{
    sweepLong(product, EXPORTS(zelsMulC_32f_L), (ZelSize{1} << 31) + 1234, {ZelSize{1} << 31}, 2.5f);
}
