#include "support/memory.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <sys/mman.h>

namespace support {

namespace {

constexpr std::size_t page = 4096;
constexpr std::byte sentinel{0xA5};

} // namespace

void GuardedPages::ensure(std::size_t bytes)
{
    const std::size_t wanted = (bytes + page - 1) / page * page;
    if (wanted <= size)
        return;
    release();
    void* const all =
        mmap(nullptr, wanted + 2 * page, PROT_NONE, MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0);
    if (all == MAP_FAILED ||
        mprotect(static_cast<std::byte*>(all) + page, wanted, PROT_READ | PROT_WRITE) != 0) {
        std::perror("guarded pages");
        std::abort();
    }
    first = static_cast<std::byte*>(all) + page;
    size = wanted;
}

void GuardedPages::release()
{
    if (first)
        munmap(first - page, size + 2 * page);
    first = nullptr;
    size = 0;
}

void GuardedBlock::place(GuardedPages& pages, std::size_t bytes, Placement placement)
{
    pages.ensure(bytes + 32);
    length = bytes;
    if (placement.edge == Placement::atStart) {
        start = pages.begin() + (placement.offset < 0 ? 0 : placement.offset);
    } else {
        start = pages.end() - bytes;
        if (placement.offset >= 0)
            start -=
                (reinterpret_cast<std::uintptr_t>(start) - static_cast<std::uintptr_t>(placement.offset)) %
                16;
    }
    before = std::min(most, static_cast<std::size_t>(start - pages.begin()));
    after = std::min(most, static_cast<std::size_t>(pages.end() - (start + bytes)));
    std::fill_n(start - before, before, sentinel);
    std::fill_n(start + bytes, after, sentinel);
}

std::ptrdiff_t GuardedBlock::damage() const
{
    for (std::size_t i = 1; i <= before; i++)
        if (start[-static_cast<std::ptrdiff_t>(i)] != sentinel)
            return -static_cast<std::ptrdiff_t>(i);
    for (std::size_t i = 0; i < after; i++)
        if (start[length + i] != sentinel)
            return static_cast<std::ptrdiff_t>(length + i);
    return 0;
}

} // namespace support
