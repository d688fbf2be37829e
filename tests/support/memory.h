// Memory between two inaccessible pages: an access of one byte outside ends the program, with no sanitizer.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>

namespace support {

/// Pages with an inaccessible page on either side.
class GuardedPages {
  public:
    GuardedPages() = default;
    explicit GuardedPages(std::size_t bytes) { ensure(bytes); }
    ~GuardedPages() { release(); }
    GuardedPages(const GuardedPages&) = delete;
    GuardedPages& operator=(const GuardedPages&) = delete;

    /// At least so many bytes; what was there before may be lost.
    void ensure(std::size_t bytes);

    std::byte* begin() const { return first; }
    std::byte* end() const { return first + size; }

  private:
    void release();

    std::byte* first = nullptr;
    std::size_t size = 0;
};

/// Where an array lies in its pages.
struct Placement {
    enum Edge : std::uint8_t { atStart, atEnd } edge = atEnd;
    /// The byte offset of the address from a multiple of 16; -1: exactly against the guard page.
    int offset = -1;
};

/// A block of bytes placed in guarded pages, with sentinels in what room there is on either side.
class GuardedBlock {
  public:
    /// Puts a block of `bytes` bytes into the pages.
    void place(GuardedPages& pages, std::size_t bytes, Placement placement);
    /// The offset from the block of the first sentinel byte that has changed, or 0 if none has.
    std::ptrdiff_t damage() const;

    std::byte* data() const { return start; }

  private:
    static constexpr std::size_t most = 64;
    std::byte* start = nullptr;
    std::size_t length = 0, before = 0, after = 0;
};

/// An array of `count` elements between guard pages, for tests that make their calls themselves. The end (or
/// the start) of the data touches the guard page unless another offset is asked for. check() tells about
/// sentinels.
template <class T>
class Guarded {
  public:
    explicit Guarded(std::size_t count, Placement placement = {}) : pages(count * sizeof(T) + 4096), n(count)
    {
        block.place(pages, count * sizeof(T), placement);
    }
    T* data() { return reinterpret_cast<T*>(block.data()); }
    const T* data() const { return reinterpret_cast<const T*>(block.data()); }
    std::size_t size() const { return n; }
    /// Copies, because the array may be misaligned.
    T operator[](std::size_t i) const
    {
        T value;
        std::memcpy(&value, block.data() + i * sizeof(T), sizeof(T));
        return value;
    }
    void set(std::size_t i, T value) { std::memcpy(block.data() + i * sizeof(T), &value, sizeof(T)); }
    /// True while nothing was written outside.
    bool intact() const { return block.damage() == 0; }

  private:
    GuardedPages pages;
    GuardedBlock block;
    std::size_t n;
};

} // namespace support
