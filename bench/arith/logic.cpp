// Logic and shifts, beside plain loops, loops written by hand, and VOLK.
#include "support/plain.h"
#include "support/volk.h"

#include <smmintrin.h>
#if BENCH_HAS_VOLK
#include <volk/volk_32i_x2_and_32i.h>
#endif

namespace {

constexpr auto bitAnd = []<class T>(T a, T b) { return static_cast<T>(a & b); };
constexpr auto bitOr = []<class T>(T a, T b) { return static_cast<T>(a | b); };
constexpr auto bitXor = []<class T>(T a, T b) { return static_cast<T>(a ^ b); };
constexpr auto bitNot = []<class T>(T a) { return static_cast<T>(~a); };
constexpr auto left = []<class T>(T a, int count) { return static_cast<T>(a << count); };
constexpr auto right = []<class T>(T a, int count) { return static_cast<T>(a >> count); };

template <class T>
__m128i load(const T* p)
{
    return _mm_loadu_si128(reinterpret_cast<const __m128i*>(p));
}
template <class T>
void store(T* p, __m128i v)
{
    _mm_storeu_si128(reinterpret_cast<__m128i*>(p), v);
}

/// Four vectors a round.
template <class T>
constexpr int group = 64 / sizeof(T);

template <auto instruction, auto op, class T>
BENCH_PLAIN void sse(const T* a, const T* b, T* d, int n)
{
    int i = 0;
    for (; i + group<T> <= n; i += group<T>)
        for (int k = 0; k < group<T>; k += group<T> / 4)
            store(d + i + k, instruction(load(a + i + k), load(b + i + k)));
    for (; i < n; i++)
        d[i] = op(a[i], b[i]);
}

template <auto instruction, auto op, class T, class C>
BENCH_PLAIN void sseWith(const T* s, C val, T* d, int n)
{
    const __m128i constant = instruction.constant(val);
    int i = 0;
    for (; i + group<T> <= n; i += group<T>)
        for (int k = 0; k < group<T>; k += group<T> / 4)
            store(d + i + k, instruction(load(s + i + k), constant));
    for (; i < n; i++)
        d[i] = op(s[i], val);
}

struct Xor16 {
    static __m128i constant(Zel16u val) { return _mm_set1_epi16(static_cast<short>(val)); }
    __m128i operator()(__m128i x, __m128i c) const { return _mm_xor_si128(x, c); }
};
struct Shift {
    static __m128i constant(int count) { return _mm_cvtsi32_si128(count); }
};
struct Left16 : Shift {
    __m128i operator()(__m128i x, __m128i c) const { return _mm_sll_epi16(x, c); }
};
struct Right16s : Shift {
    __m128i operator()(__m128i x, __m128i c) const { return _mm_sra_epi16(x, c); }
};
struct Right32s : Shift {
    __m128i operator()(__m128i x, __m128i c) const { return _mm_sra_epi32(x, c); }
};

template <auto zels, auto zelsInPlace, auto op, class T, class... Peers>
void vectors(bench::Run& run, const char* name, Peers... peers)
{
    run.map(name, zels, bench::loop(bench::plain<op, T, T, T>), peers...);
    run.map(std::string(name) + "_I", zelsInPlace, bench::loop(bench::plainInPlace<op, T, T>));
}

template <auto zels, auto zelsInPlace, auto op, class T, class C, class... Peers>
void constants(bench::Run& run, const char* name, Peers... peers)
{
    run.map(name, zels, bench::loop(bench::plainWith<op, T, T, C>), peers...);
    run.mapInPlace(
        std::string(name) + "_I", [](C, T* d, int n) { zelsInPlace(C{3}, d, n); },
        bench::loop([](C, T* d, int n) { bench::plainWithInPlace<op, T, C>(C{3}, d, n); }));
}

const bench::Family logic("Logic", [](bench::Run& run) {
    constexpr auto instruction = [](__m128i a, __m128i b) { return _mm_and_si128(a, b); };
    vectors<zelsAnd_8u, zelsAnd_8u_I, bitAnd, Zel8u>(
        run, "zelsAnd_8u", bench::peer("SSE loop", sse<instruction, bitAnd, Zel8u>));
    vectors<zelsOr_16u, zelsOr_16u_I, bitOr, Zel16u>(run, "zelsOr_16u");
    vectors<zelsXor_32u, zelsXor_32u_I, bitXor, Zel32u>(run, "zelsXor_32u");
    run.map("zelsAnd_32u", zelsAnd_32u, bench::peer("SSE loop", sse<instruction, bitAnd, Zel32u>),
            BENCH_VOLK("VOLK SSE (aligned)", [](const Zel32u* a, const Zel32u* b, Zel32u* d, int n) {
                volk_32i_x2_and_32i_a_sse(reinterpret_cast<int32_t*>(d), reinterpret_cast<const int32_t*>(a),
                                          reinterpret_cast<const int32_t*>(b), static_cast<unsigned>(n));
            }));
    run.map("zelsNot_8u", zelsNot_8u, bench::loop(bench::plain<bitNot, Zel8u, Zel8u>));
    run.map("zelsNot_32u", zelsNot_32u, bench::loop(bench::plain<bitNot, Zel32u, Zel32u>));
    constants<zelsAndC_8u, zelsAndC_8u_I, bitAnd, Zel8u, Zel8u>(run, "zelsAndC_8u");
    constants<zelsXorC_16u, zelsXorC_16u_I, bitXor, Zel16u, Zel16u>(
        run, "zelsXorC_16u", bench::peer("SSE loop", sseWith<Xor16{}, bitXor, Zel16u, Zel16u>));
    constants<zelsOrC_32u, zelsOrC_32u_I, bitOr, Zel32u, Zel32u>(run, "zelsOrC_32u");
});

const bench::Family shifts("Shifts", [](bench::Run& run) {
    constants<zelsLShiftC_8u, zelsLShiftC_8u_I, left, Zel8u, int>(run, "zelsLShiftC_8u");
    constants<zelsRShiftC_8u, zelsRShiftC_8u_I, right, Zel8u, int>(run, "zelsRShiftC_8u");
    constants<zelsLShiftC_16u, zelsLShiftC_16u_I, left, Zel16u, int>(
        run, "zelsLShiftC_16u", bench::peer("SSE loop", sseWith<Left16{}, left, Zel16u, int>));
    constants<zelsLShiftC_16s, zelsLShiftC_16s_I, left, Zel16s, int>(run, "zelsLShiftC_16s");
    constants<zelsRShiftC_16u, zelsRShiftC_16u_I, right, Zel16u, int>(run, "zelsRShiftC_16u");
    constants<zelsRShiftC_16s, zelsRShiftC_16s_I, right, Zel16s, int>(
        run, "zelsRShiftC_16s", bench::peer("SSE loop", sseWith<Right16s{}, right, Zel16s, int>));
    constants<zelsLShiftC_32s, zelsLShiftC_32s_I, left, Zel32s, int>(run, "zelsLShiftC_32s");
    constants<zelsRShiftC_32s, zelsRShiftC_32s_I, right, Zel32s, int>(
        run, "zelsRShiftC_32s", bench::peer("SSE loop", sseWith<Right32s{}, right, Zel32s, int>));
});

} // namespace
