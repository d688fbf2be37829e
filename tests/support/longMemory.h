// Arrays of gigabytes that cost a few mebibytes: one small piece of memory mapped again and again over
// consecutive addresses, with pages of their own in windows around the places that a test looks at.
#pragma once

#include "support/sweep.h"

#include <span>

namespace support {

/// A range of addresses, its end against an inaccessible page.
class LongMemory {
  public:
    explicit LongMemory(ZelSize bytes);
    ~LongMemory();
    LongMemory(const LongMemory&) = delete;
    LongMemory& operator=(const LongMemory&) = delete;

    std::byte* begin() const { return first; }
    ZelSize size() const { return length; }
    /// Gives the pages around so many bytes memory of their own, zeroed; clipped to the range.
    std::span<std::byte> window(ZelSize offset, ZelSize bytes);
    /// The piece that is everywhere else.
    std::span<std::byte> piece() const;

  private:
    std::byte* first = nullptr;
    std::byte* mapped = nullptr;
    ZelSize length;
    ZelSize mappedLength;
};

/// A long array of elements: sources of it hold zeros but for the windows.
template <class T>
class LongArray {
  public:
    explicit LongArray(ZelSize count) : memory(count * static_cast<ZelSize>(sizeof(T))) {}
    T* data() const { return reinterpret_cast<T*>(memory.begin()); }
    /// Elements from index `first` on, in memory of their own.
    std::span<T> window(ZelSize first, ZelSize count)
    {
        const auto bytes =
            memory.window(first * static_cast<ZelSize>(sizeof(T)), count * static_cast<ZelSize>(sizeof(T)));
        return {reinterpret_cast<T*>(bytes.data()), bytes.size() / sizeof(T)};
    }

  private:
    LongMemory memory;
};

namespace detail {

std::string runLong(const Subject& subject, ZelSize len, const std::vector<ZelSize>& places);
void runLongAndReport(const Subject& subject, ZelSize len, const std::vector<ZelSize>& places);

} // namespace detail

/// One call of each function of the list with a length that a 32-bit byte count cannot hold. The elements
/// around the places (chunk boundaries), at both ends and at some places between are compared with the model.
template <class Model, class... F, class... Scalars>
void sweepLong(const Model& model, const Exports<F...>& exports, ZelSize len,
               const std::vector<ZelSize>& places, Scalars... scalars)
{
    [&]<std::size_t... k>(std::index_sequence<k...>)
    {
        (detail::Adapter<LengthIs::last, std::remove_pointer_t<F>, Model, Scalars...>::with(
             exports.file, exports.line, nameOf(exports.names, k), std::get<k>(exports.functions), model,
             [&](const detail::Subject& subject) { detail::runLongAndReport(subject, len, places); },
             scalars...),
         ...);
    }
    (std::index_sequence_for<F...>{});
}

/// The same for one function without a report to the test: for tests of the tool itself.
template <class Model, class F, class... Scalars>
std::string trySweepLong(const Model& model, F& function, ZelSize len, const std::vector<ZelSize>& places,
                         Scalars... scalars)
{
    return detail::Adapter<LengthIs::last, F, Model, Scalars...>::with(
        "", 0, "function", &function, model,
        [&](const detail::Subject& subject) { return detail::runLong(subject, len, places); }, scalars...);
}

/// The most elements of a type whose bytes a positive 32-bit integer counts: the chunk of the long forms.
template <class T>
inline constexpr ZelSize longChunk = INT32_MAX / static_cast<ZelSize>(sizeof(T));

} // namespace support
