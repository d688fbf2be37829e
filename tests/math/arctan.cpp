// Arctangents. Their errors over all arguments are tested with the kernels.
#include "math/polarTools.h"

namespace {

constexpr auto arctan = [](auto x) { return std::atan(static_cast<long double>(x)); };

} // namespace

TEST(Arctan, everyLengthAlignmentAndMode)
{
    sweepFloats(arctan, EXPORTS(zelsArctan_32f, zelsArctan_32f_I), boundOf("atan", Zel32f{}));
    sweepFloats(arctan, EXPORTS(zelsArctan_64f, zelsArctan_64f_I), boundOf("atan", Zel64f{}));
}

TEST(Arctan, refusesBadArguments)
{
    badArguments(EXPORTS(zelsArctan_32f, zelsArctan_32f_I, zelsArctan_64f, zelsArctan_64f_I), pointersFirst);
}
