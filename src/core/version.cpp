// The version record.
#include "zels.h"

#ifndef ZELS_BUILD_DATE
#define ZELS_BUILD_DATE __DATE__
#endif

namespace {

constexpr ZelLibraryVersion version{
    2026,
    0,
    0,
    0x00000001,
    {'q', '4', '\0', '\0'},
    "zelSP SSE4.2 (q4)",
    "2026.0.0 (r0x00000001)",
    ZELS_BUILD_DATE,
};

} // namespace

const ZelLibraryVersion* zelsGetLibVersion()
{
    return &version;
}
