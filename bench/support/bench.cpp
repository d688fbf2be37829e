#include "support/bench.h"

#include "support/report.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <map>
#include <random>
#include <regex>
#include <sstream>

namespace bench {
namespace {

struct Options {
    std::string filter;
    std::string json;
    std::vector<ZelSize> lengths;
    int rounds = 101;
    bool list = false;
} options;

bool disagreement = false;
std::vector<Row> rows;
std::mt19937 generator(2026); // NOLINT: the same order in every run

// Many short samples in turn beat few long ones by far: measured with a function beside itself on a busy
// machine, the median ratio of 101 rounds of a tenth of a millisecond strays by 0.4 % (root mean square),
// that of 15 rounds of one millisecond by 2.2 %; ratios of the quickest or of the median samples stray three
// times as much.
constexpr double sampleSeconds = 1e-4;
constexpr double rowSeconds = 0.4; ///< of one contestant, where a single call takes longer than a sample

std::map<std::string, void (*)(Run&)>& families()
{
    static std::map<std::string, void (*)(Run&)> all;
    return all;
}

bool asked(ZelSize length)
{
    return options.lengths.empty() || std::ranges::count(options.lengths, length) != 0;
}

double median(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    const std::size_t half = values.size() / 2;
    return values.size() % 2 ? values[half] : (values[half - 1] + values[half]) / 2;
}

/// How many calls fill a sample. The search warms caches and clock as well.
ZelSize calibrated(const Sample& sample)
{
    for (ZelSize calls = 1;;) {
        const double seconds = sample(calls);
        if (seconds > sampleSeconds / 2)
            return std::max<ZelSize>(1, std::llround(static_cast<double>(calls) * sampleSeconds / seconds));
        calls *= seconds > sampleSeconds / 50 ? 4 : 16;
    }
}

} // namespace

Family::Family(std::string name, void (*body)(Run&))
{
    families()[std::move(name)] = body;
}

Run::Run(std::string familyName) : family(std::move(familyName)), chosen{8, 13, 16, 32, 50, 64, 1024, 16384}
{
}

std::vector<ZelSize> Run::lengths() const
{
    std::vector<ZelSize> list = chosen;
    std::erase_if(list, [](ZelSize n) { return !asked(n); });
    return list;
}

bool Run::wants(const std::string& function) const
{
    return std::regex_search(family + ": " + function, std::regex(options.filter, std::regex::icase));
}

bool Run::measures(const std::string& function, ZelSize length) const
{
    return !options.list && asked(length) && wants(function);
}

void Run::compare(const std::string& function, const std::string& rival, const std::vector<double>& expected,
                  const std::vector<double>& found)
{
    double scale = 1;
    for (const double x : expected)
        scale = std::max(scale, std::fabs(x));
    for (std::size_t i = 0; i < expected.size(); i++) {
        if (!(std::fabs(found[i] - expected[i]) <= 1e-4 * scale) && found[i] != expected[i]) {
            std::printf("%s: %s gives %g in place %zu, zels gives %g: they do not do the same work\n",
                        function.c_str(), rival.c_str(), found[i], i, expected[i]);
            disagreement = true;
            return;
        }
    }
}

void Run::measure(const std::string& function, ZelSize length, Work work,
                  const std::vector<Contestant>& contestants)
{
    if (!asked(length))
        return;
    if (options.list) {
        std::printf("%s: %s, %lld\n", family.c_str(), function.c_str(), static_cast<long long>(length));
        return;
    }
    const std::size_t count = contestants.size();
    std::vector<ZelSize> calls;
    std::vector<std::size_t> order;
    for (const Contestant& contestant : contestants) {
        calls.push_back(calibrated(contestant.sample));
        order.push_back(order.size());
    }
    std::vector<std::vector<double>> seconds(count);
    const double once = contestants[0].sample(1);
    const int rounds =
        std::clamp(static_cast<int>(rowSeconds / once), std::min(9, options.rounds), options.rounds);
    for (int round = 0; round < rounds; round++) {
        std::ranges::shuffle(order, generator);
        for (const std::size_t k : order) {
            if (calls[k] >= 4) // leaves the neighbour's caches and clock behind
                contestants[k].sample(calls[k] / 4);
            seconds[k].push_back(contestants[k].sample(calls[k]) / static_cast<double>(calls[k]));
        }
    }
    Row row{family, function, length, work, {}};
    for (std::size_t k = 0; k < count; k++) {
        std::vector<double> ratios;
        for (std::size_t round = 0; round < seconds[k].size(); round++)
            ratios.push_back(seconds[k][round] / seconds[0][round]);
        row.results.push_back(
            {contestants[k].name, 1e9 * *std::ranges::min_element(seconds[k]), median(ratios)});
    }
    printRow(row);
    rows.push_back(std::move(row));
}

} // namespace bench

int main(int argc, char** argv)
{
    using namespace bench;
    const auto usage = [&] {
        std::printf(
            "usage: %s [--filter=REGEX] [--lengths=N,...] [--quick] [--json=FILE] [--rounds=N] [--list]\n"
            "  --filter   only rows whose \"family: function\" matches\n"
            "  --lengths  only rows of these lengths\n"
            "  --quick    fewer rounds (31)\n"
            "  --json     write the results for bench/report.py\n"
            "  --rounds   samples of each contestant in a row (101)\n"
            "  --list     name the rows and run nothing\n",
            argv[0]);
        return 2;
    };
    std::string command = argv[0];
    for (int i = 1; i < argc; i++) {
        const std::string argument = argv[i];
        command += " " + argument;
        const std::size_t equals = argument.find('=');
        const std::string name = argument.substr(0, equals);
        const std::string value = equals == std::string::npos ? "" : argument.substr(equals + 1);
        if (name == "--filter") {
            options.filter = value;
        } else if (name == "--json") {
            options.json = value;
        } else if (name == "--rounds") {
            options.rounds = std::max(1, std::atoi(value.c_str()));
        } else if (name == "--lengths") {
            std::istringstream list(value);
            for (std::string number; std::getline(list, number, ',');)
                options.lengths.push_back(std::atoll(number.c_str()));
        } else if (argument == "--quick") {
            options.rounds = 31;
        } else if (argument == "--list") {
            options.list = true;
        } else {
            return usage();
        }
    }
    if (!options.list)
        printHead();
    for (const auto& [name, body] : families()) {
        const std::size_t first = rows.size();
        Run run(name);
        body(run);
        printSummary({rows.begin() + static_cast<std::ptrdiff_t>(first), rows.end()});
    }
    if (!options.json.empty() && !writeJson(options.json, command, rows)) {
        std::fprintf(stderr, "%s: cannot write\n", options.json.c_str());
        return 1;
    }
    return disagreement ? 1 : 0;
}
