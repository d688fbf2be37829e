// What the runner has to say: a table on the terminal while it works, and a JSON file for bench/report.py.
#pragma once

#include "support/bench.h"

#include <string>
#include <vector>

namespace bench {

struct Result {
    std::string name;
    double nanoseconds; ///< of a call, the quickest sample
    double ratio;       ///< its time over that of zels, the median of the rounds: above 1 zels is faster
};

/// The first result is that of zels.
struct Row {
    std::string family;
    std::string function;
    ZelSize length;
    Work work;
    std::vector<Result> results;
};

void printHead();
void printRow(const Row& row);
/// For each peer of a family the geometric mean of its ratios, the lowest, and how many miss 0.97.
void printSummary(const std::vector<Row>& rows);
bool writeJson(const std::string& file, const std::string& command, const std::vector<Row>& rows);

} // namespace bench
