// Bulk memory: Copy, Move, Set and Zero, by bytes.
#include "support/bench.h"

#include <cstring>
#include <emmintrin.h>

// The compiler must not see its library functions in these loops.
#ifdef __clang__
#define BENCH_VECTOR_LOOP BENCH_PLAIN
#else
#define BENCH_VECTOR_LOOP BENCH_PLAIN [[gnu::optimize("no-tree-loop-distribute-patterns")]]
#endif

namespace {

__m128i* at(void* p)
{
    return static_cast<__m128i*>(p);
}
const __m128i* at(const void* p)
{
    return static_cast<const __m128i*>(p);
}

BENCH_VECTOR_LOOP void vectorCopy(const Zel8u* s, Zel8u* d, int n)
{
    int i = 0;
    for (; i + 16 <= n; i += 16)
        _mm_storeu_si128(at(d + i), _mm_loadu_si128(at(s + i)));
    for (; i < n; i++)
        d[i] = s[i];
}

BENCH_VECTOR_LOOP void vectorMove(const Zel8u* s, Zel8u* d, int n)
{
    if (s >= d)
        return vectorCopy(s, d, n);
    int i = n;
    for (; i >= 16; i -= 16)
        _mm_storeu_si128(at(d + i - 16), _mm_loadu_si128(at(s + i - 16)));
    for (; i > 0; i--)
        d[i - 1] = s[i - 1];
}

BENCH_VECTOR_LOOP void vectorSet(Zel8u val, Zel8u* d, int n)
{
    const __m128i vals = _mm_set1_epi8(static_cast<char>(val));
    int i = 0;
    for (; i + 16 <= n; i += 16)
        _mm_storeu_si128(at(d + i), vals);
    for (; i < n; i++)
        d[i] = val;
}

void vectorZero(Zel8u* d, int n)
{
    vectorSet(0, d, n);
}

// 16 bytes to 256 MiB, whole vectors and odd counts.
const std::vector<ZelSize> sizes{16,      31,      32,      50,      64,     100,   128,
                                 256,     1000,    1024,    4096,    16384,  65536, 1 << 18,
                                 1 << 20, 1 << 22, 1 << 24, 1 << 26, 1 << 28};

const bench::Family family("Bulk memory", [](bench::Run& run) {
    run.lengths(sizes);
    run.map("zelsCopy_8u", zelsCopy_8u, bench::peer("vector loop", vectorCopy),
            bench::peer("glibc memcpy (wider vectors)", [](const Zel8u* s, Zel8u* d, int n) {
                std::memcpy(d, s, static_cast<std::size_t>(n));
            }));
    run.map(
        "zelsCopy_8u, source misaligned",
        [](const Zel8u* s, Zel8u* d, int n) { zelsCopy_8u(s + 1, d, n - 1); },
        bench::peer("vector loop", [](const Zel8u* s, Zel8u* d, int n) { vectorCopy(s + 1, d, n - 1); }),
        bench::peer("glibc memcpy (wider vectors)", [](const Zel8u* s, Zel8u* d, int n) {
            std::memcpy(d, s + 1, static_cast<std::size_t>(n) - 1);
        }));
    run.map("zelsMove_8u", zelsMove_8u, bench::peer("vector loop", vectorMove),
            bench::peer("glibc memmove (wider vectors)", [](const Zel8u* s, Zel8u* d, int n) {
                std::memmove(d, s, static_cast<std::size_t>(n));
            }));
    run.mapInPlace(
        "zelsMove_8u, up by four", [](Zel8u* d, int n) { zelsMove_8u(d, d + 4, n - 4); },
        bench::peer("vector loop", [](Zel8u* d, int n) { vectorMove(d, d + 4, n - 4); }),
        bench::peer("glibc memmove (wider vectors)",
                    [](Zel8u* d, int n) { std::memmove(d + 4, d, static_cast<std::size_t>(n) - 4); }));
    run.mapInPlace(
        "zelsMove_8u, down by four", [](Zel8u* d, int n) { zelsMove_8u(d + 4, d, n - 4); },
        bench::peer("vector loop", [](Zel8u* d, int n) { vectorMove(d + 4, d, n - 4); }),
        bench::peer("glibc memmove (wider vectors)",
                    [](Zel8u* d, int n) { std::memmove(d, d + 4, static_cast<std::size_t>(n) - 4); }));
    run.map("zelsSet_8u", zelsSet_8u, bench::peer("vector loop", vectorSet),
            bench::peer("glibc memset (wider vectors)", [](Zel8u val, Zel8u* d, int n) {
                std::memset(d, val, static_cast<std::size_t>(n));
            }));
    run.map("zelsZero_8u", zelsZero_8u, bench::peer("vector loop", vectorZero),
            bench::peer("glibc memset (wider vectors)",
                        [](Zel8u* d, int n) { std::memset(d, 0, static_cast<std::size_t>(n)); }));
});

} // namespace
