#include "support/report.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <ctime>
#include <fstream>
#include <sstream>

namespace bench {
namespace {

std::string processor()
{
    std::ifstream file("/proc/cpuinfo");
    for (std::string line; std::getline(file, line);) {
        if (line.starts_with("model name"))
            return line.substr(line.find(':') + 2);
    }
    return "unknown processor";
}

std::string caches()
{
    std::ostringstream text;
    for (const auto& cache : benchmark::CPUInfo::Get().caches) {
        if (cache.type != "Instruction")
            text << (text.tellp() > 0 ? ", " : "") << "L" << cache.level << " " << cache.size / 1024
                 << " KiB";
    }
    return text.str();
}

std::string compiler()
{
#ifdef __clang__
    return "clang " __clang_version__;
#else
    return "g++ " __VERSION__;
#endif
}

std::string grouped(ZelSize n)
{
    constexpr ZelSize mebi = 1 << 20;
    if (n >= mebi && n % mebi == 0)
        return std::to_string(n / mebi) + " Mi";
    std::string text = std::to_string(n);
    for (std::size_t at = text.size(); at > 3; at -= 3)
        text.insert(text.begin() + static_cast<std::ptrdiff_t>(at - 3), ',');
    return text;
}

std::string quoted(const std::string& text)
{
    std::string out = "\"";
    for (const char c : text) {
        if (c == '"' || c == '\\')
            out += '\\';
        out += c;
    }
    return out + "\"";
}

} // namespace

void printHead()
{
    std::printf("%s; %s; peers compiled by %s\n"
                "Ratios are the peer's time over that of zels: above 1 zels is faster.\n",
                processor().c_str(), caches().c_str(), compiler().c_str());
}

void printRow(const Row& row)
{
    static std::string family;
    if (row.family != family)
        std::printf("\n%s\n", (family = row.family).c_str());
    const double ns = row.results[0].nanoseconds;
    const double elements = static_cast<double>(row.length);
    std::printf("%-26s %8s %9.4g ns/element", row.function.c_str(), grouped(row.length).c_str(),
                ns / elements);
    if (row.work.bytes > 0)
        std::printf(" %7.1f GB/s", row.work.bytes * elements / ns);
    if (row.work.flops > 0)
        std::printf(" %7.1f GFLOP/s", row.work.flops * elements / ns);
    for (std::size_t k = 1; k < row.results.size(); k++)
        std::printf("   %s %.2f", row.results[k].name.c_str(), row.results[k].ratio);
    std::printf("\n");
    std::fflush(stdout);
}

void printSummary(const std::vector<Row>& rows)
{
    std::vector<std::string> names;
    for (const Row& row : rows) {
        for (std::size_t k = 1; k < row.results.size(); k++) {
            if (std::ranges::count(names, row.results[k].name) == 0)
                names.push_back(row.results[k].name);
        }
    }
    for (const std::string& name : names) {
        double logs = 0;
        double lowest = HUGE_VAL;
        std::string where;
        int count = 0;
        int below = 0;
        for (const Row& row : rows) {
            for (const Result& result : row.results) {
                if (result.name != name)
                    continue;
                count++;
                logs += std::log(result.ratio);
                below += result.ratio < 0.97;
                if (result.ratio < lowest) {
                    lowest = result.ratio;
                    where = row.function + " at " + grouped(row.length);
                }
            }
        }
        std::printf("  against %s: geometric mean %.2f, lowest %.2f (%s), %d of %d below 0.97\n",
                    name.c_str(), std::exp(logs / count), lowest, where.c_str(), below, count);
    }
}

bool writeJson(const std::string& file, const std::string& command, const std::vector<Row>& rows)
{
    std::ofstream out(file);
    char date[32];
    const std::time_t now = std::time(nullptr);
    std::strftime(date, sizeof date, "%Y-%m-%d", std::localtime(&now));
    const std::string program = command.substr(0, command.find(' '));
    const std::string subsystem = program.substr(program.rfind("bench_") + 6);
    out << "{\"subsystem\": " << quoted(subsystem) << ", \"date\": " << quoted(date)
        << ", \"processor\": " << quoted(processor()) << ", \"caches\": " << quoted(caches())
        << ", \"compiler\": " << quoted(compiler()) << ", \"command\": " << quoted(command)
        << ",\n \"rows\": [";
    const char* comma = "\n";
    for (const Row& row : rows) {
        out << comma << "  {\"family\": " << quoted(row.family) << ", \"function\": " << quoted(row.function)
            << ", \"length\": " << row.length << ", \"bytes\": " << row.work.bytes
            << ", \"flops\": " << row.work.flops << ", \"results\": [";
        comma = ",\n";
        const char* inner = "";
        for (const Result& result : row.results) {
            out << inner << "{\"name\": " << quoted(result.name) << ", \"ns\": " << result.nanoseconds
                << ", \"ratio\": " << result.ratio << "}";
            inner = ", ";
        }
        out << "]}";
    }
    out << "\n]}\n";
    return static_cast<bool>(out.flush());
}

} // namespace bench
