// docs/accuracy.md promises what the tests hold the functions to.
#include "math/accuracy.h"
#include "support/test.h"

#include <cstdio>
#include <fstream>
#include <iterator>
#include <string>

TEST(AccuracyPage, promisesWhatTheTestsDemand)
{
    std::ifstream file(ZELS_ACCURACY_PAGE);
    const std::string page{std::istreambuf_iterator<char>(file), {}};
    std::size_t at = 0;
    const auto expectRow = [&](const std::string& name, const ErrorBound& bound) {
        char row[100];
        std::snprintf(row, sizeof row, "\n| %s | %g | ", name.c_str(), bound.nearest);
        const std::size_t found = page.find(row, at);
        EXPECT_NE(found, std::string::npos) << row;
        at = found == std::string::npos ? at : found;
    };
    const auto formulaOf = [](const auto& function) {
        return std::string(function.name) + ", `" + function.formula + "`";
    };
    for (const auto& function : elementary32f)
        expectRow(function.name, function.bound);
    for (const auto& function : elementary64f)
        expectRow(function.name, function.bound);
    for (const auto& function : pairs32f)
        expectRow(formulaOf(function), function.bound);
    for (const auto& function : pairs64f)
        expectRow(formulaOf(function), function.bound);
}
