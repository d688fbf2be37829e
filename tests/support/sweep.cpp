#include "support/sweep.h"

#include "support/current.h"
#include "support/memory.h"
#include "support/modes.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <gtest/gtest.h>
#include <map>
#include <memory>

namespace support {

namespace {

using Bytes = std::vector<std::byte>;
constexpr int mostPointers = 8;

bool brief = false;
std::uintptr_t addresses[mostPointers]; // of the call that a model is asked about

/// Fill data is made once and read through windows that begin anywhere in it.
struct Pool {
    std::vector<std::uint64_t> words;
    const std::byte* at(std::size_t element, const Element& type) const
    {
        return reinterpret_cast<const std::byte*>(words.data()) +
               element * static_cast<std::size_t>(type.size);
    }
};
constexpr std::size_t poolSlack = 8192;

struct PoolKey {
    Kind kind;
    Fill fill;
    double low, high;
    bool only;
    auto operator<=>(const PoolKey&) const = default;
};

const Pool& sharedPool(const PoolKey& key, std::size_t parts)
{
    static std::map<PoolKey, Pool> pools;
    Pool& pool = pools[key];
    const std::size_t words = parts + 2 * poolSlack; // of at most eight bytes a part
    if (pool.words.size() < words) {
        const std::size_t size = std::max(words, 2 * pool.words.size());
        pool.words.resize(size);
        Random random("pool");
        fillParts(random, key.kind, key.fill, {key.low, key.high, key.only}, pool.words.data(), size);
    }
    return pool;
}

GuardedPages& sharedPages(std::size_t index, bool large)
{
    static GuardedPages pages[mostPointers][2];
    return pages[index][large];
}

using Shares = std::array<int, mostPointers>;
constexpr Shares none = [] {
    Shares shares{};
    shares.fill(-1);
    return shares;
}();

struct Case {
    ZelSize len = 0;
    Placement placement[mostPointers];
    Shares shares; ///< the earlier-placed pointer whose array this one is too, or -1
    Fill fill[mostPointers];
    unsigned mode = nearestMode;
};

class Runner {
  public:
    Runner(const detail::Subject& theSubject, const SweepOptions& theOptions)
        : subject(theSubject), options(theOptions), random(theSubject.name),
          count(theSubject.pointers.size()),
          tolerant(theOptions.ulps > 0 || theOptions.bound > 0 || theSubject.modelGivesBounds)
    {
        for (unsigned f = 0; f < static_cast<unsigned>(Fill::count); f++)
            if (options.fills >> f & 1)
                fills.push_back(static_cast<Fill>(f));
        modes = {nearestMode};
        if (options.modes != Modes::nearest)
            modes.assign(std::begin(roundingModes), std::end(roundingModes));
        if (options.modes == Modes::roundingAndFlush)
            for (const unsigned mode : roundingModes)
                modes.push_back(mode | flushMode);
        for (std::size_t k = 0; k < count; k++) {
            const auto& pointer = subject.pointers[k];
            (pointer.source ? sources : destinations).push_back(static_cast<int>(k));
            unit[k] = k < options.units.size() ? static_cast<std::size_t>(options.units[k]) : 1;
        }
        largest = 22 * options.block + 1;
        for (const ZelSize len : options.lengths)
            largest = std::max(largest, len);
        for (const ZelSize len : options.around)
            largest = std::max(largest, len + 24);
        if (options.generate)
            makeOwnPools();
    }

    SweepReport run()
    {
        CurrentScope scope([](const void* self, char* text,
                              std::size_t size) { static_cast<const Runner*>(self)->describe(text, size); },
                           this);
        const ZelSize shortest = 2 * options.block + 1;
        for (ZelSize len = 1; len <= shortest && good(); len++) {
            // 5 has no divisor in common with 16: so every alignment has its turn.
            for (int offset = brief ? static_cast<int>(5 * len % 16) : 0; offset < 16 && good();
                 offset += brief ? 16 : 1)
                for (int i = 0; i < (brief ? 1 : options.repeats) && good(); i++)
                    offsetCase(len, offset, (brief ? len : i) % 2 == 0, none);
            for (int i = 0; i < (brief ? 1 : 2) && good(); i++) {
                flushCase(len, Placement::atEnd, none);
                flushCase(len, Placement::atStart, none);
            }
            eachSharing([&](const Shares& share) {
                for (int i = 0; i < (brief ? 1 : 4 * options.repeats) && good(); i++)
                    offsetCase(len, static_cast<int>(random.below(16)), i % 2 == 0, share);
                flushCase(len, Placement::atEnd, share);
                flushCase(len, Placement::atStart, share);
            });
        }
        // Lengths at which kernels begin to align, and of every rest.
        for (int i = 0; options.block > 0 && i < (brief ? 4 : 24 * options.repeats) && good(); i++) {
            const ZelSize len = shortest + 1 + random.below(20 * options.block);
            for (int k = 0; k < 4 && good(); k++)
                offsetCase(len, static_cast<int>(random.below(16)), k % 2 == 0, none);
            flushCase(len, i % 2 == 0 ? Placement::atEnd : Placement::atStart, none);
            eachSharing([&](const Shares& share) {
                offsetCase(len, static_cast<int>(random.below(16)), true, share);
            });
        }
        for (const ZelSize len : options.lengths)
            longCases(len, brief ? 2 : 8);
        for (const ZelSize threshold : options.around)
            for (const ZelSize more : {-1, 0, 1, 2, 9, 17})
                longCases(threshold + more, brief ? 1 : threshold > 10000 ? 2 : 4);
        return report;
    }

  private:
    bool good() const { return report.failure.empty(); }

    void makeOwnPools()
    {
        for (const int k : sources) {
            const Element& type = subject.pointers[static_cast<std::size_t>(k)].element;
            const std::size_t elements = (static_cast<std::size_t>(largest) + poolSlack) * unit[k];
            own[k].words.resize(elements * static_cast<std::size_t>(type.size) / 8 + 1);
            options.generate(random, k, own[k].words.data(), elements);
        }
    }

    /// Calls body with each way in which a destination may be a source of its type: the first destination
    /// each of them, each destination the source of its own place in the list, and all pointers one array.
    template <class Body>
    void eachSharing(Body body)
    {
        if (!options.inPlace)
            return;
        const auto alike = [&](int a, int b) {
            const auto& x = subject.pointers[static_cast<std::size_t>(a)];
            const auto& y = subject.pointers[static_cast<std::size_t>(b)];
            return x.element == y.element && !x.single && !y.single && unit[a] == unit[b];
        };
        Shares all = none;
        Shares paired = none;
        int alikeSources = 0;
        for (std::size_t s = 0; s < sources.size() && !destinations.empty(); s++) {
            if (!alike(sources[s], destinations[0]))
                continue;
            Shares one = none;
            one[static_cast<std::size_t>(destinations[0])] = sources[s];
            if (good())
                body(one);
            if (alikeSources++ > 0)
                all[static_cast<std::size_t>(sources[s])] = all[static_cast<std::size_t>(destinations[0])];
            else
                all[static_cast<std::size_t>(destinations[0])] = sources[s];
        }
        if (alikeSources > 1 && good())
            body(all);
        std::size_t pairs = 0;
        while (pairs < sources.size() && pairs < destinations.size() &&
               alike(sources[pairs], destinations[pairs])) {
            paired[static_cast<std::size_t>(destinations[pairs])] = sources[pairs];
            pairs++;
        }
        if (pairs > 1 && good())
            body(paired);
    }

    void longCases(ZelSize len, int repeats)
    {
        if (len < 1)
            return;
        for (int i = 0; i < repeats && good(); i++)
            offsetCase(len, i == 0 ? 0 : static_cast<int>(random.below(16)), i % 4 != 3, none);
        if (good())
            flushCase(len, Placement::atEnd, none);
        if (good())
            flushCase(len, Placement::atStart, none);
        eachSharing([&](const Shares& share) {
            offsetCase(len, 0, true, share);
            flushCase(len, Placement::atEnd, share);
        });
    }

    void common(Case& c, ZelSize len, const Shares& share)
    {
        c.len = len;
        c.shares = share;
        c.mode = modes[static_cast<std::size_t>(random.below(static_cast<std::int64_t>(modes.size())))];
        for (std::size_t k = 0; k < count; k++) {
            c.fill[k] =
                fills[static_cast<std::size_t>(random.below(static_cast<std::int64_t>(fills.size())))];
        }
    }

    /// The destination at a byte offset from a multiple of 16; the sources anywhere, or in whole elements.
    void offsetCase(ZelSize len, int offset, bool wholeElements, const Shares& share)
    {
        Case c;
        common(c, len, share);
        for (std::size_t k = 0; k < count; k++) {
            const Element& element = subject.pointers[k].element;
            const int step = wholeElements ? std::min(16, element.size / element.parts) : 1;
            c.placement[k] = {random.bits() & 1 ? Placement::atStart : Placement::atEnd,
                              static_cast<int>(random.below(16)) / step * step};
        }
        int written = destinations.empty() ? sources[0] : destinations[0];
        if (const int root = share[static_cast<std::size_t>(written)]; root >= 0)
            written = root;
        c.placement[written].offset = offset;
        attempt(c);
    }

    void flushCase(ZelSize len, Placement::Edge edge, const Shares& share)
    {
        if (!good())
            return;
        Case c;
        common(c, len, share);
        for (std::size_t k = 0; k < count; k++)
            c.placement[k] = {edge, -1};
        attempt(c);
    }

    std::size_t elements(std::size_t k, ZelSize len) const
    {
        return subject.pointers[k].single ? 1 : static_cast<std::size_t>(len) * unit[k];
    }

    void attempt(const Case& c)
    {
        current = &c;
        report.calls++;
        const std::byte* data[mostPointers];
        const void* inputs[mostPointers];
        void* pointers[mostPointers];
        std::size_t bytes[mostPointers];
        const bool large = c.len > 22 * options.block + 1;
        const auto poolOf = [&](std::size_t k) -> const Pool& {
            const auto& pointer = subject.pointers[k];
            if (options.generate && pointer.source)
                return own[k];
            return sharedPool({pointer.element.kind, c.fill[k], options.values.low, options.values.high,
                               options.values.only},
                              elements(k, c.len) * static_cast<std::size_t>(pointer.element.parts));
        };
        // Two pointers may have one pool, which grows to what the larger needs before either reads it.
        for (std::size_t k = 0; k < count; k++)
            poolOf(k);
        for (std::size_t k = 0; k < count; k++) {
            const Element& element = subject.pointers[k].element;
            bytes[k] = elements(k, c.len) * static_cast<std::size_t>(element.size);
            data[k] =
                poolOf(k).at(static_cast<std::size_t>(random.below(poolSlack)) / unit[k] * unit[k], element);
        }
        for (std::size_t k = 0; k < count; k++) {
            if (c.shares[k] >= 0)
                continue;
            blocks[k].place(sharedPages(k, large), bytes[k], c.placement[k]);
            std::memcpy(blocks[k].data(), data[k], bytes[k]);
            pointers[k] = blocks[k].data();
        }
        for (std::size_t k = 0; k < count; k++) {
            if (c.shares[k] >= 0) {
                pointers[k] = pointers[static_cast<std::size_t>(c.shares[k])];
                data[k] = data[static_cast<std::size_t>(c.shares[k])];
            }
            inputs[k] = data[k];
        }

        detail::Expected expected[mostPointers];
        for (std::size_t d = 0; d < destinations.size(); d++) {
            const auto k = static_cast<std::size_t>(destinations[d]);
            values[d].assign(data[k], data[k] + bytes[k]);
            if (tolerant)
                exact[d].resize(elements(k, c.len) *
                                static_cast<std::size_t>(subject.pointers[k].element.parts));
            expected[d] = {values[d].data(), tolerant ? exact[d].data() : nullptr};
        }
        bool statusKnown = false;
        for (std::size_t k = 0; k < count; k++)
            addresses[k] = reinterpret_cast<std::uintptr_t>(pointers[k]);
        setMode(options.modelToNearest ? nearestMode : c.mode);
        const ZelStatus modelStatus =
            subject.model(subject.context, inputs, expected, c.len, options.lowestStatus, statusKnown);
        setMode(c.mode);
        const ZelStatus status = subject.call(subject.context, pointers, c.len);
        const unsigned modeAfter = currentMode();
        setMode(nearestMode);

        const ZelStatus wanted = statusKnown ? modelStatus : options.status;
        if (status != wanted)
            return fail("status " + std::to_string(status) + ", expected " + std::to_string(wanted));
        if (modeAfter != c.mode)
            return fail(std::string("left the floating-point mode ") + modeName(modeAfter));
        for (std::size_t k = 0; k < count && good(); k++) {
            if (c.shares[k] >= 0)
                continue;
            if (const std::ptrdiff_t at = blocks[k].damage(); at != 0)
                return fail("pointer " + std::to_string(k) + ": wrote outside the array, at byte " +
                            std::to_string(at) + " of " + std::to_string(bytes[k]));
            const bool written = std::any_of(destinations.begin(), destinations.end(), [&](int d) {
                return d == static_cast<int>(k) ||
                       c.shares[static_cast<std::size_t>(d)] == static_cast<int>(k);
            });
            if (!written && std::memcmp(pointers[k], data[k], bytes[k]) != 0)
                return fail("pointer " + std::to_string(k) + ": wrote to a source");
        }
        for (std::size_t d = 0; d < destinations.size() && good(); d++)
            compare(static_cast<std::size_t>(destinations[d]), d, pointers, inputs, bytes);
    }

    void compare(std::size_t k, std::size_t d, void* const* pointers, const void* const* inputs,
                 const std::size_t* bytes)
    {
        const Element& element = subject.pointers[k].element;
        const auto partSize = static_cast<std::size_t>(element.size / element.parts);
        const std::size_t parts = bytes[k] / partSize;
        const auto* got = static_cast<const std::byte*>(pointers[k]);
        if (!tolerant) {
            const std::ptrdiff_t at =
                firstDifference(element.kind, got, values[d].data(), parts, options.payload);
            if (at >= 0)
                differ(k, static_cast<std::size_t>(at) / static_cast<std::size_t>(element.parts), got,
                       elementText(element, values[d].data() + static_cast<std::size_t>(at) /
                                                                   static_cast<std::size_t>(element.parts) *
                                                                   static_cast<std::size_t>(element.size)),
                       inputs);
            return;
        }
        for (std::size_t i = 0; i < parts; i++) {
            const long double value = partValue(element.kind, got + i * partSize);
            const Within& exactly = exact[d][i];
            const long double error = std::isnan(value) || std::isnan(exactly.value)
                                          ? (std::isnan(value) && std::isnan(exactly.value)
                                                 ? 0
                                                 : std::numeric_limits<long double>::infinity())
                                      : value == exactly.value ? 0
                                                               : std::fabs(value - exactly.value);
            const long double ulps = options.ulps == 0 ? 0
                                     : element.kind == Kind::f32
                                         ? ulpError(static_cast<float>(value), exactly.value)
                                         : ulpError(static_cast<double>(value), exactly.value);
            const bool fine = error == 0 || error <= exactly.bound ||
                              error <= static_cast<long double>(options.bound) ||
                              (options.ulps > 0 && ulps <= static_cast<long double>(options.ulps));
            if (fine) {
                report.worstUlps = std::max(report.worstUlps, ulps);
                continue;
            }
            char text[160];
            std::snprintf(text, sizeof text, "%.21Lg (error %.3Lg, %.3Lg units in the last place)",
                          exactly.value, error, options.ulps > 0 ? ulps : std::nanl(""));
            const std::size_t at = i / static_cast<std::size_t>(element.parts);
            return differ(k, at, got, text, inputs);
        }
    }

    void differ(std::size_t k, std::size_t i, const std::byte* got, const std::string& wanted,
                const void* const* inputs)
    {
        const Element& element = subject.pointers[k].element;
        std::string text = "pointer " + std::to_string(k) + ", element " + std::to_string(i) + ": " +
                           elementText(element, got + i * static_cast<std::size_t>(element.size)) +
                           ", expected " + wanted;
        for (std::size_t s = 0; s < count; s++) {
            const Element& type = subject.pointers[s].element;
            if (subject.pointers[s].single || unit[s] != 1)
                continue;
            text += "\n  pointer " + std::to_string(s) +
                    (subject.pointers[s].source ? " there: " : " held: ") +
                    elementText(type, static_cast<const std::byte*>(inputs[s]) +
                                          i * static_cast<std::size_t>(type.size));
        }
        fail(text);
    }

    void fail(const std::string& what)
    {
        char text[512];
        describe(text, sizeof text);
        report.failure = std::string(text) + "\n  " + what;
    }

    void describe(char* text, std::size_t size) const
    {
        if (!current)
            return;
        const Case& c = *current;
        int used = std::snprintf(text, size, "%s: length %lld, mode %s, call %lld, seed %llu",
                                 subject.name.c_str(), static_cast<long long>(c.len), modeName(c.mode),
                                 report.calls, static_cast<unsigned long long>(testSeed()));
        for (std::size_t k = 0; k < count && used > 0 && static_cast<std::size_t>(used) < size; k++) {
            const std::size_t at = static_cast<std::size_t>(used);
            if (c.shares[k] >= 0)
                used += std::snprintf(text + at, size - at, "\n  pointer %zu: the same as pointer %d", k,
                                      c.shares[k]);
            else
                used += std::snprintf(
                    text + at, size - at, "\n  pointer %zu: address %d mod 16, %s, data %s", k,
                    static_cast<int>(reinterpret_cast<std::uintptr_t>(blocks[k].data()) % 16),
                    c.placement[k].offset >= 0                ? "near a guard page"
                    : c.placement[k].edge == Placement::atEnd ? "the guard page right behind it"
                                                              : "the guard page right before it",
                    options.generate && subject.pointers[k].source ? "of the test" : fillName(c.fill[k]));
        }
    }

    const detail::Subject& subject;
    const SweepOptions& options;
    Random random;
    std::size_t count;
    bool tolerant;
    std::vector<Fill> fills;
    std::vector<unsigned> modes;
    std::vector<int> sources, destinations;
    std::size_t unit[mostPointers];
    ZelSize largest;
    Pool own[mostPointers];
    GuardedBlock blocks[mostPointers];
    Bytes values[mostPointers];
    std::vector<Within> exact[mostPointers];
    const Case* current = nullptr;
    SweepReport report;
};

} // namespace

void makeSweepsBrief()
{
    brief = true;
}

std::uintptr_t callAddress(std::size_t pointer)
{
    return addresses[pointer];
}

namespace detail {

SweepReport runSweep(const Subject& subject, const SweepOptions& options)
{
    if (subject.pointers.size() > mostPointers) {
        SweepReport report;
        report.failure = subject.name + ": more pointers than the sweep takes";
        return report;
    }
    return Runner(subject, options).run();
}

SweepReport runAndReport(const Subject& subject, const SweepOptions& options)
{
    SweepReport report = runSweep(subject, options);
    if (!report.failure.empty())
        ADD_FAILURE_AT(subject.file, subject.line) << report.failure;
    return report;
}

void modelOutOfRange(long double value)
{
    ADD_FAILURE() << "the model gives " << static_cast<double>(value)
                  << ", which the destination cannot hold";
}

} // namespace detail

} // namespace support
