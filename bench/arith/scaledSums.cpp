// Scaled integer sums and products, beside their plain definition.
#include "support/plain.h"

#include <algorithm>
#include <limits>
#include <smmintrin.h>

namespace {

template <class T>
T saturated(auto x)
{
    using Limits = std::numeric_limits<T>;
    return static_cast<T>(std::clamp<decltype(x)>(x, Limits::min(), Limits::max()));
}

/// The rule by its definition, in a wide integer that holds the exact value.
enum class Path { none, right, left };
template <Path path, class T>
T rule(auto x, int s)
{
    if constexpr (path == Path::right)
        x = (x + ((x >> s) & 1) + ((decltype(x){1} << (s - 1)) - 1)) >> s;
    if constexpr (path == Path::left)
        x <<= s;
    return saturated<T>(x);
}

template <auto op, Path path, class W, class D, class S>
BENCH_PLAIN void plain(const S* a, const S* b, D* d, int n, int s)
{
    for (int i = 0; i < n; i++)
        d[i] = rule<path, D>(op(static_cast<W>(a[i]), static_cast<W>(b[i])), s);
}
template <auto op, Path path, class W, class T>
BENCH_PLAIN void plainC(const T* a, T val, T* d, int n, int s)
{
    for (int i = 0; i < n; i++)
        d[i] = rule<path, T>(op(static_cast<W>(a[i]), static_cast<W>(val)), s);
}
template <Path path, class W, class C>
BENCH_PLAIN void plainComplex(const C* a, const C* b, C* d, int n, int s)
{
    using T = decltype(C::re);
    for (int i = 0; i < n; i++) {
        const W ar = a[i].re, ai = a[i].im, br = b[i].re, bi = b[i].im;
        d[i].re = rule<path, T>(ar * br - ai * bi, s);
        d[i].im = rule<path, T>(ai * br + ar * bi, s);
    }
}

constexpr auto add = [](auto a, auto b) { return a + b; };
constexpr auto sub = [](auto a, auto b) { return b - a; };
constexpr auto mul = [](auto a, auto b) { return a * b; };

template <auto instruction, class T>
BENCH_PLAIN void sse(const T* a, const T* b, T* d, int n)
{
    int i = 0;
    constexpr int lanes = 16 / sizeof(T);
    for (; i + lanes <= n; i += lanes) {
        const __m128i x = _mm_loadu_si128(reinterpret_cast<const __m128i*>(a + i));
        const __m128i y = _mm_loadu_si128(reinterpret_cast<const __m128i*>(b + i));
        _mm_storeu_si128(reinterpret_cast<__m128i*>(d + i), instruction(x, y));
    }
    for (; i < n; i++)
        d[i] = saturated<T>(static_cast<int>(a[i]) + b[i]);
}

/// One row for each kind of factor.
template <auto zels, auto op, class W, class D, class S, class WLeft = W>
void factors(bench::Run& run, const std::string& name, int shift)
{
    using P = const S*;
    const auto row = [&]<Path path>(std::integral_constant<Path, path>, int factor, const char* what) {
        const int s = factor < 0 ? -factor : factor;
        run.map(
            name + what, [=](P a, P b, D* d, int n) { zels(a, b, d, n, factor); },
            bench::loop([=](P a, P b, D* d, int n) {
                plain<op, path, std::conditional_t<path == Path::left, WLeft, W>, D, S>(a, b, d, n, s);
            }));
    };
    row(std::integral_constant<Path, Path::none>{}, 0, ", factor 0");
    row(std::integral_constant<Path, Path::right>{}, 1, ", factor 1");
    row(std::integral_constant<Path, Path::right>{}, shift, ", right shift");
    row(std::integral_constant<Path, Path::left>{}, -2, ", left shift");
}
template <auto zels, auto op, class W, class T, class WLeft = W>
void factorsC(bench::Run& run, const std::string& name, int shift)
{
    const auto row = [&]<Path path>(std::integral_constant<Path, path>, int factor, const char* what) {
        const int s = factor < 0 ? -factor : factor;
        run.map(
            name + what, [=](const T* a, T val, T* d, int n) { zels(a, val, d, n, factor); },
            bench::loop([=](const T* a, T val, T* d, int n) {
                plainC<op, path, std::conditional_t<path == Path::left, WLeft, W>, T>(a, val, d, n, s);
            }));
    };
    row(std::integral_constant<Path, Path::right>{}, 1, ", factor 1");
    row(std::integral_constant<Path, Path::right>{}, shift, ", right shift");
    row(std::integral_constant<Path, Path::left>{}, -2, ", left shift");
}
template <auto zels, class W, class C, class WLeft = W>
void factorsComplex(bench::Run& run, const std::string& name, int shift)
{
    using P = const C*;
    const auto row = [&]<Path path>(std::integral_constant<Path, path>, int factor, const char* what) {
        const int s = factor < 0 ? -factor : factor;
        run.map(
            name + what, [=](P a, P b, C* d, int n) { zels(a, b, d, n, factor); },
            bench::loop([=](P a, P b, C* d, int n) {
                plainComplex<path, std::conditional_t<path == Path::left, WLeft, W>, C>(a, b, d, n, s);
            }));
    };
    row(std::integral_constant<Path, Path::none>{}, 0, ", factor 0");
    row(std::integral_constant<Path, Path::right>{}, 1, ", factor 1");
    row(std::integral_constant<Path, Path::right>{}, shift, ", right shift");
    row(std::integral_constant<Path, Path::left>{}, -2, ", left shift");
}

const bench::Family sums("Scaled sums of integers", [](bench::Run& run) {
    const auto addsWith = [&]<auto zels, auto instruction, class T>(const char* name)
    {
        run.map(
            name, [](const T* a, const T* b, T* d, int n) { zels(a, b, d, n, 0); },
            bench::peer("SSE loop", sse<instruction, T>));
    };
    addsWith.operator()<zelsAdd_8u_Sfs, [](auto x, auto y) { return _mm_adds_epu8(x, y); }, Zel8u>(
        "zelsAdd_8u_Sfs, factor 0, instruction");
    addsWith.operator()<zelsAdd_16s_Sfs, [](auto x, auto y) { return _mm_adds_epi16(x, y); }, Zel16s>(
        "zelsAdd_16s_Sfs, factor 0, instruction");
    addsWith.operator()<zelsAdd_16u_Sfs, [](auto x, auto y) { return _mm_adds_epu16(x, y); }, Zel16u>(
        "zelsAdd_16u_Sfs, factor 0, instruction");
    factors<zelsAdd_8u_Sfs, add, int, Zel8u, Zel8u>(run, "zelsAdd_8u_Sfs", 2);
    factors<zelsAdd_16s_Sfs, add, int, Zel16s, Zel16s>(run, "zelsAdd_16s_Sfs", 3);
    factors<zelsAdd_16u_Sfs, add, int, Zel16u, Zel16u>(run, "zelsAdd_16u_Sfs", 3);
    factors<zelsAdd_32s_Sfs, add, Zel64s, Zel32s, Zel32s>(run, "zelsAdd_32s_Sfs", 3);
    factors<zelsSub_8u_Sfs, sub, int, Zel8u, Zel8u>(run, "zelsSub_8u_Sfs", 2);
    factors<zelsSub_16s_Sfs, sub, int, Zel16s, Zel16s>(run, "zelsSub_16s_Sfs", 3);
    factors<zelsSub_16u_Sfs, sub, int, Zel16u, Zel16u>(run, "zelsSub_16u_Sfs", 3);
    factors<zelsSub_32s_Sfs, sub, Zel64s, Zel32s, Zel32s>(run, "zelsSub_32s_Sfs", 3);
    factorsC<zelsAddC_16s_Sfs, add, int, Zel16s>(run, "zelsAddC_16s_Sfs", 3);
    factorsC<zelsAddC_32s_Sfs, add, Zel64s, Zel32s>(run, "zelsAddC_32s_Sfs", 3);
});

const bench::Family products("Scaled products of integers", [](bench::Run& run) {
    factors<zelsMul_8u_Sfs, mul, int, Zel8u, Zel8u>(run, "zelsMul_8u_Sfs", 8);
    factors<zelsMul_16s_Sfs, mul, int, Zel16s, Zel16s, Zel64s>(run, "zelsMul_16s_Sfs", 15);
    factors<zelsMul_16u_Sfs, mul, Zel64s, Zel16u, Zel16u>(run, "zelsMul_16u_Sfs", 16);
    run.map(
        "zelsMul_16s_Sfs, right shift by 10",
        [](const Zel16s* a, const Zel16s* b, Zel16s* d, int n) { zelsMul_16s_Sfs(a, b, d, n, 10); },
        bench::loop([](const Zel16s* a, const Zel16s* b, Zel16s* d, int n) {
            plain<mul, Path::right, int, Zel16s, Zel16s>(a, b, d, n, 10);
        }));
    factors<zelsMul_16s32s_Sfs, mul, int, Zel32s, Zel16s, Zel64s>(run, "zelsMul_16s32s_Sfs", 4);
    factors<zelsMul_32s_Sfs, mul, Zel64s, Zel32s, Zel32s, __int128>(run, "zelsMul_32s_Sfs", 31);
    factorsC<zelsMulC_8u_Sfs, mul, int, Zel8u>(run, "zelsMulC_8u_Sfs", 6);
    factorsC<zelsMulC_16s_Sfs, mul, int, Zel16s, Zel64s>(run, "zelsMulC_16s_Sfs", 15);
    factorsC<zelsMulC_32s_Sfs, mul, Zel64s, Zel32s, __int128>(run, "zelsMulC_32s_Sfs", 31);
    factorsComplex<zelsMul_16sc_Sfs, Zel64s, Zel16sc>(run, "zelsMul_16sc_Sfs", 15);
    factorsComplex<zelsMul_32sc_Sfs, Zel64s, Zel32sc, __int128>(run, "zelsMul_32sc_Sfs", 31);
});

} // namespace
