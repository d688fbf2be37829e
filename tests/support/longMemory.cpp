#include "support/longMemory.h"

#include "support/current.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <gtest/gtest.h>
#include <memory>
#include <sys/mman.h>
#include <unistd.h>

namespace support {

namespace {

constexpr ZelSize page = 4096;
constexpr ZelSize pieceBytes = ZelSize{1} << 21; // a large page, where the system has them for shared memory

[[noreturn]] void die(const char* what)
{
    std::perror(what);
    std::abort();
}

} // namespace

LongMemory::LongMemory(ZelSize bytes) : length(bytes)
{
    mappedLength = (bytes + pieceBytes - 1) / pieceBytes * pieceBytes;
    const auto reserved = static_cast<std::size_t>(mappedLength + 2 * pieceBytes);
    void* const all = mmap(nullptr, reserved, PROT_NONE, MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0);
    if (all == MAP_FAILED)
        die("addresses for a long array");
    const auto address = (reinterpret_cast<std::uintptr_t>(all) + pieceBytes - 1) / pieceBytes * pieceBytes;
    auto* const aligned = static_cast<std::byte*>(all) + (address - reinterpret_cast<std::uintptr_t>(all));
    munmap(all, static_cast<std::size_t>(aligned - static_cast<std::byte*>(all)));
    const auto kept = static_cast<std::size_t>(mappedLength + page);
    munmap(aligned + kept,
           reserved - kept - static_cast<std::size_t>(aligned - static_cast<std::byte*>(all)));
    mapped = aligned;
    first = mapped + (mappedLength - length);

    const int file = memfd_create("piece", 0);
    if (file < 0 || ftruncate(file, pieceBytes) != 0)
        die("a piece of shared memory");
    for (ZelSize at = 0; at < mappedLength; at += pieceBytes) {
        if (mmap(mapped + at, pieceBytes, PROT_READ | PROT_WRITE, MAP_SHARED | MAP_FIXED, file, 0) ==
            MAP_FAILED)
            die("a piece of a long array");
        madvise(mapped + at, pieceBytes, MADV_HUGEPAGE);
    }
    close(file);
}

LongMemory::~LongMemory()
{
    munmap(mapped, static_cast<std::size_t>(mappedLength + page));
}

std::span<std::byte> LongMemory::window(ZelSize offset, ZelSize bytes)
{
    const ZelSize from = std::max<ZelSize>(offset, 0);
    const ZelSize to = std::min(offset + bytes, length);
    const ZelSize shift = first - mapped;
    const ZelSize low = (from + shift) / page * page;
    const ZelSize high = (to + shift + page - 1) / page * page;
    if (mmap(mapped + low, static_cast<std::size_t>(high - low), PROT_READ | PROT_WRITE,
             MAP_PRIVATE | MAP_ANONYMOUS | MAP_FIXED, -1, 0) == MAP_FAILED)
        die("a window of a long array");
    return {first + from, static_cast<std::size_t>(to - from)};
}

std::span<std::byte> LongMemory::piece() const
{
    return {mapped + (mappedLength / pieceBytes / 2) * pieceBytes, static_cast<std::size_t>(pieceBytes)};
}

namespace detail {

namespace {

constexpr ZelSize around = 700; // elements on either side of a place

struct Stretch {
    ZelSize first, count; // elements
};

/// The stretches of elements around the places, those that meet made one.
std::vector<Stretch> stretchesAround(std::vector<ZelSize> places, ZelSize len)
{
    std::sort(places.begin(), places.end());
    std::vector<Stretch> found;
    for (const ZelSize place : places) {
        const ZelSize low = std::max<ZelSize>(place - around, 0);
        const ZelSize high = std::min(place + around, len);
        // Pages are whole: windows of elements of 16 bytes must not meet in one.
        if (!found.empty() && low <= found.back().first + found.back().count + page)
            found.back().count = high - found.back().first;
        else if (high > low)
            found.push_back({low, high - low});
    }
    return found;
}

} // namespace

std::string runLong(const Subject& subject, ZelSize len, const std::vector<ZelSize>& wantedPlaces)
{
    CurrentScope scope(
        [](const void* self, char* text, std::size_t size) {
            std::snprintf(text, size, "%s on a long array", static_cast<const Subject*>(self)->name.c_str());
        },
        &subject);
    Random random(subject.name);
    std::vector<ZelSize> places = wantedPlaces;
    places.insert(places.end(), {0, len});
    for (int i = 0; i < 6; i++)
        places.push_back(random.below(len));
    const std::vector<Stretch> stretches = stretchesAround(places, len);

    const std::size_t count = subject.pointers.size();
    std::vector<std::unique_ptr<LongMemory>> arrays;
    std::vector<void*> pointers;
    std::vector<std::vector<std::vector<std::byte>>> before(count); // by pointer and stretch
    const auto bytesOf = [&](std::size_t k, ZelSize n) { return n * subject.pointers[k].element.size; };
    for (std::size_t k = 0; k < count; k++) {
        const Element& element = subject.pointers[k].element;
        if (subject.pointers[k].single)
            return subject.name + ": results behind the length are not for sweepLong";
        arrays.push_back(std::make_unique<LongMemory>(bytesOf(k, len)));
        pointers.push_back(arrays[k]->begin());
        const std::span<std::byte> piece = arrays[k]->piece();
        fillParts(random, element.kind, Fill::ordinary, {0.99, 1.01}, piece.data(),
                  piece.size() / static_cast<std::size_t>(element.size / element.parts));
        for (const Stretch& stretch : stretches) {
            const std::span<std::byte> window =
                arrays[k]->window(bytesOf(k, stretch.first), bytesOf(k, stretch.count));
            std::vector<std::byte> data(window.size());
            fillParts(random, element.kind, Fill::mixed, {}, data.data(),
                      data.size() / static_cast<std::size_t>(element.size / element.parts));
            std::copy(data.begin(), data.end(), window.begin());
            before[k].push_back(std::move(data));
        }
    }

    const ZelStatus status = subject.call(subject.context, pointers.data(), len);
    if (status != zelStatusOk)
        return subject.name + ": status " + std::to_string(status);

    for (std::size_t s = 0; s < stretches.size(); s++) {
        std::vector<const void*> inputs;
        std::vector<Expected> expected;
        std::vector<std::vector<std::byte>> results;
        for (std::size_t k = 0; k < count; k++) {
            inputs.push_back(before[k][s].data());
            results.push_back(before[k][s]);
        }
        for (std::size_t k = 0; k < count; k++)
            if (!subject.pointers[k].source)
                expected.push_back({results[k].data(), nullptr});
        bool statusKnown = false;
        subject.model(subject.context, inputs.data(), expected.data(), stretches[s].count, false,
                      statusKnown);
        for (std::size_t k = 0; k < count; k++) {
            const Element& element = subject.pointers[k].element;
            const std::byte* const got = arrays[k]->begin() + bytesOf(k, stretches[s].first);
            const std::ptrdiff_t at =
                firstDifference(element.kind, got, results[k].data(),
                                results[k].size() / static_cast<std::size_t>(element.size / element.parts));
            if (at < 0)
                continue;
            const std::ptrdiff_t i = at / element.parts;
            return subject.name + ", length " + std::to_string(len) + ", pointer " + std::to_string(k) +
                   ", element " + std::to_string(stretches[s].first + i) + ": " +
                   elementText(element, got + bytesOf(k, i)) + ", expected " +
                   elementText(element, results[k].data() + bytesOf(k, i));
        }
    }
    return {};
}

void runLongAndReport(const Subject& subject, ZelSize len, const std::vector<ZelSize>& places)
{
    if (const std::string failure = runLong(subject, len, places); !failure.empty())
        ADD_FAILURE_AT(subject.file, subject.line) << failure;
}

} // namespace detail

} // namespace support
