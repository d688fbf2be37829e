// The version record.
#include "support/test.h"

#include <cstdio>

TEST(Version, tellsTheBuild)
{
    const ZelLibraryVersion* const version = zelsGetLibVersion();
    ASSERT_NE(version, nullptr);
    EXPECT_EQ(zelsGetLibVersion(), version);
    EXPECT_GE(version->versionMajor, 2026);
    EXPECT_LE(version->versionMajor, 9999);
    EXPECT_EQ(std::memcmp(version->cpuTag, "q4\0", 4), 0);
    EXPECT_STREQ(version->buildName, "zelSP SSE4.2 (q4)");
    char text[64];
    std::snprintf(text, sizeof text, "%d.%d.%d (r0x%08X)", version->versionMajor, version->versionMinor,
                  version->versionUpdate, static_cast<unsigned>(version->revision));
    EXPECT_STREQ(version->versionText, text);
    // The month in three letters, the day, the year.
    char month[4];
    int day = 0;
    int year = 0;
    int length = 0;
    ASSERT_EQ(std::sscanf(version->buildDate, "%3[A-Za-z] %d %4d%n", month, &day, &year, &length), 3);
    EXPECT_EQ(version->buildDate[length], '\0');
    EXPECT_NE(std::string("JanFebMarAprMayJunJulAugSepOctNovDec").find(month), std::string::npos);
    EXPECT_TRUE(day >= 1 && day <= 31 && year >= 2020) << version->buildDate;
}
