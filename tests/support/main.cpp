// The main program of every test program.
//
//   --family=NAME       only the tests in NAME.cpp
//   --without=PATTERNS  no test that these patterns, as in GoogleTest's filter, match
//   --brief             the sweeps take a sample of their calls
//   --exhaustive        only the tests whose names begin with Exhaustive; without it, all others. The exit
//                       status is 77 if there is none.
#include "support/current.h"
#include "support/random.h"
#include "support/sweep.h"

#include <cstdio>
#include <cstring>
#include <gtest/gtest.h>
#include <string>

namespace {

bool fromFamily(const testing::TestInfo& test, const std::string& family)
{
    const std::string file = test.file();
    const std::size_t slash = file.find_last_of('/');
    const std::string name = slash == std::string::npos ? file : file.substr(slash + 1);
    return family.empty() || name.substr(0, name.find('.')) == family;
}

} // namespace

int main(int argc, char** argv)
{
    testing::InitGoogleTest(&argc, argv);
    std::string family;
    std::string without;
    bool exhaustive = false;
    for (int i = 1; i < argc; i++) {
        if (std::strncmp(argv[i], "--family=", 9) == 0) {
            family = argv[i] + 9;
        } else if (std::strncmp(argv[i], "--without=", 10) == 0) {
            without = argv[i] + 10;
        } else if (std::strcmp(argv[i], "--brief") == 0) {
            support::makeSweepsBrief();
        } else if (std::strcmp(argv[i], "--exhaustive") == 0) {
            exhaustive = true;
        } else {
            std::fprintf(stderr, "unknown argument %s\n", argv[i]);
            return 2;
        }
    }

    const testing::UnitTest& unit = *testing::UnitTest::GetInstance();
    if (testing::GTEST_FLAG(filter) == "*") {
        std::string filter;
        bool inFile = false;
        for (int s = 0; s < unit.total_test_suite_count(); s++) {
            const testing::TestSuite& suite = *unit.GetTestSuite(s);
            for (int t = 0; t < suite.total_test_count(); t++) {
                const testing::TestInfo& test = *suite.GetTestInfo(t);
                if (!fromFamily(test, family))
                    continue;
                inFile = true;
                if ((std::strncmp(test.name(), "Exhaustive", 10) == 0) == exhaustive)
                    filter += std::string(filter.empty() ? "" : ":") + suite.name() + "." + test.name();
            }
        }
        if (filter.empty()) {
            std::fprintf(stderr, "no test%s in %s\n", exhaustive ? " named Exhaustive..." : "",
                         family.c_str());
            return exhaustive && inFile ? 77 : 1;
        }
        testing::GTEST_FLAG(filter) = without.empty() ? filter : filter + "-" + without;
    }

    std::printf("seed %llu (ZELS_TEST_SEED)\n", static_cast<unsigned long long>(support::testSeed()));
    support::installCrashReport();
    return RUN_ALL_TESTS();
}
