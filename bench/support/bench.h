// The benchmark tools: a zels function beside what a user would take instead, timed in one run.
//
//   const bench::Family sums("Sums of float vectors", [](bench::Run& run) {
//       run.map("zelsAdd_32f", zelsAdd_32f, bench::loop(plainAdd<Zel32f>));
//   });
//
// The contestants of a row take turns in samples of a tenth of a millisecond, in a new random order each
// round, so that drift of the clock and the noise of other programs meet all of them alike. See
// bench/README.md.
#pragma once

#include "support/arguments.h"

#include <benchmark/benchmark.h>

#include <chrono>
#include <functional>
#include <string>
#include <vector>

// A plain loop is compiled as a function of its own, which nothing that the caller knows can specialise, and
// lies well: on short vectors a bad place in the instruction cache would cost a quarter of the time.
#ifdef __clang__
#define BENCH_PLAIN [[gnu::noinline, gnu::aligned(64)]]
#else
#define BENCH_PLAIN [[gnu::noipa, gnu::aligned(64)]]
#endif

namespace bench {

/// What one element costs, for the throughput columns: bytes read and written, floating-point operations.
struct Work {
    double bytes = 0;
    double flops = 0;
};

/// A rival of a zels function. A name says so where the peer uses wider vectors than 128 bits.
template <class Call>
struct Peer {
    std::string name;
    Call call;
};
template <class Call>
Peer<Call> peer(std::string name, Call call)
{
    return {std::move(name), std::move(call)};
}

/// The same loop as the compiler makes it at -O3 -msse4.2.
template <class Call>
Peer<Call> loop(Call call)
{
    return {"-O3 loop", std::move(call)};
}

/// Stands where a peer's library is not installed.
struct NoPeer {};

/// The seconds that so many calls take, at least one.
using Sample = std::function<double(ZelSize calls)>;

struct Contestant {
    std::string name;
    Sample sample;
};

class Run {
  public:
    explicit Run(std::string familyName);

    /// The lengths of `map`, and for loops over rows: 8, 13, 16, 32, 50, 64, 1,024 and 16,384, or as set.
    std::vector<ZelSize> lengths() const;
    void lengths(std::vector<ZelSize> list) { chosen = std::move(list); }

    /// Whether the command line asks for this function: worth a test before a costly set-up.
    bool wants(const std::string& function) const;

    /// Whether this row will be measured, and not just named: where the set-up takes seconds.
    bool measures(const std::string& function, ZelSize length) const;

    /// One row: a call of the zels function on `length` elements beside its peers.
    template <class Zels, class... Peers>
    void row(const std::string& function, ZelSize length, Work work, Zels zels, Peers... peers)
    {
        if (!wants(function))
            return;
        std::vector<Contestant> all{{"zels", sampleOf(std::move(zels))}};
        (add(all, std::move(peers)), ...);
        measure(function, length, work, all);
    }

    /// A row for each length. The arrays come from the signature, which has pointers, constants and the
    /// length as its last argument; peers take the same arguments in the same order. Before anything is
    /// timed, each peer's output is compared with that of zels, to be sure that they do the same work.
    template <class Zels, class... Peers>
    void map(const std::string& function, Zels zels, Peers... peers)
    {
        mapOn(std::function{zels}, Fill::any, function, zels, peers...);
    }

    /// The same where the destination is read as well: its bytes count twice, and the arrays hold units.
    template <class Zels, class... Peers>
    void mapInPlace(const std::string& function, Zels zels, Peers... peers)
    {
        mapOn(std::function{zels}, Fill::units, function, zels, peers...);
    }

  private:
    std::string family;
    std::vector<ZelSize> chosen;

    void measure(const std::string& function, ZelSize length, Work work,
                 const std::vector<Contestant>& contestants);
    void compare(const std::string& function, const std::string& rival, const std::vector<double>& expected,
                 const std::vector<double>& found);

    template <class Call>
    static Sample sampleOf(Call call)
    {
        return [call](ZelSize calls) {
            auto local = call;
            const auto start = std::chrono::steady_clock::now();
            asm volatile(".p2align 6"); // the calling loop lies alike for all contestants
            do {
                local();
                benchmark::ClobberMemory();
            } while (--calls > 0);
            return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
        };
    }

    template <class Call>
    static void add(std::vector<Contestant>& all, Peer<Call> rival)
    {
        all.push_back({std::move(rival.name), sampleOf(std::move(rival.call))});
    }
    static void add(std::vector<Contestant>&, NoPeer) {}

    template <class Call, class All>
    static auto bound(Call call, All all)
    {
        return [call, all] { std::apply(call, all); };
    }
    template <class Call, class All>
    static auto bound(Peer<Call> rival, All all)
    {
        return peer(rival.name, bound(rival.call, all));
    }
    template <class All>
    static NoPeer bound(NoPeer, All)
    {
        return {};
    }

    template <class R, class... A, class Zels, class... Peers>
    void mapOn(std::function<R(A...)>, Fill fill, const std::string& function, Zels zels, Peers... peers)
    {
        if (!wants(function))
            return;
        const auto outputOf = [&](auto& call) {
            const Arguments<A...> arguments(1000, fill);
            std::apply(call, arguments.all());
            return arguments.output();
        };
        const std::vector<double> expected = outputOf(zels);
        const auto check = [&](auto& rival) {
            if constexpr (requires { rival.call; })
                compare(function, rival.name, expected, outputOf(rival.call));
        };
        (check(peers), ...);

        for (const ZelSize n : lengths()) {
            const Arguments<A...> arguments(n, fill);
            const auto all = arguments.all();
            row(function, n, {.bytes = arguments.bytes(fill)}, bound(zels, all), bound(peers, all)...);
        }
    }
};

/// Registers a family of functions; `body` adds its rows. Families run in the order of their names.
class Family {
  public:
    Family(std::string name, void (*body)(Run&));
};

} // namespace bench
