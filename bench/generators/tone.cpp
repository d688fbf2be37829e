// Tones.
#include "support/bench.h"
#include "zels.h"

#include <cmath>

namespace {

constexpr double frequency = 0.0123;
constexpr double start = 1;

/// The definition, in the type of the tone: a loop of the cosine (and sine) of the C library.
template <class T, class S>
BENCH_PLAIN void libraryTone(T* d, int n)
{
    constexpr auto w = static_cast<S>(6.283185307179586 * frequency);
    for (int i = 0; i < n; i++) {
        const S angle = w * static_cast<S>(i) + S(start);
        if constexpr (requires(T x) { x.re; })
            d[i] = {S(0.7) * std::cos(angle), S(0.7) * std::sin(angle)};
        else
            d[i] = S(0.7) * std::cos(angle);
    }
}

template <class T>
BENCH_PLAIN void libraryTone16(T* d, int n)
{
    constexpr auto w = static_cast<float>(6.283185307179586 * frequency);
    const auto part = [](float x) { return static_cast<Zel16s>(std::lround(x)); };
    for (int i = 0; i < n; i++) {
        const float angle = w * static_cast<float>(i) + static_cast<float>(start);
        if constexpr (requires(T x) { x.re; })
            d[i] = {part(3000 * std::cos(angle)), part(3000 * std::sin(angle))};
        else
            d[i] = part(3000 * std::cos(angle));
    }
}

template <class T, auto tone, int hint, class M, class F>
void call(T* d, int n, M magn)
{
    F phase = start;
    tone(d, n, magn, F(frequency), &phase, hint);
}

const bench::Family family("Tones", [](bench::Run& run) {
    run.lengths({16, 64, 256, 1024, 16384, 262144});
    const auto rows = [&]<class T>(const char* name, auto zels, auto definition) {
        for (const ZelSize n : run.lengths()) {
            const bench::Array<T> array(n);
            T* const d = array;
            const int len = static_cast<int>(n);
            run.row(
                name, n, {.bytes = sizeof(T)}, [=] { zels(d, len); },
                bench::peer("scalar cosines of libm", [=] { definition(d, len); }));
        }
    };
    rows.operator()<Zel32f>(
        "zelsTone_32f",
        [](Zel32f* d, int n) { call<Zel32f, zelsTone_32f, zelHintNone, Zel32f, Zel32f>(d, n, 0.7f); },
        libraryTone<Zel32f, float>);
    rows.operator()<Zel64f>(
        "zelsTone_64f",
        [](Zel64f* d, int n) { call<Zel64f, zelsTone_64f, zelHintNone, Zel64f, Zel64f>(d, n, 0.7); },
        libraryTone<Zel64f, double>);
    rows.operator()<Zel64f>(
        "zelsTone_64f, fast",
        [](Zel64f* d, int n) { call<Zel64f, zelsTone_64f, zelHintFast, Zel64f, Zel64f>(d, n, 0.7); },
        libraryTone<Zel64f, double>);
    rows.operator()<Zel32fc>(
        "zelsTone_32fc",
        [](Zel32fc* d, int n) { call<Zel32fc, zelsTone_32fc, zelHintNone, Zel32f, Zel32f>(d, n, 0.7f); },
        libraryTone<Zel32fc, float>);
    rows.operator()<Zel64fc>(
        "zelsTone_64fc",
        [](Zel64fc* d, int n) { call<Zel64fc, zelsTone_64fc, zelHintNone, Zel64f, Zel64f>(d, n, 0.7); },
        libraryTone<Zel64fc, double>);
    rows.operator()<Zel16s>(
        "zelsTone_16s",
        [](Zel16s* d, int n) { call<Zel16s, zelsTone_16s, zelHintNone, Zel16s, Zel32f>(d, n, 3000); },
        libraryTone16<Zel16s>);
    rows.operator()<Zel16sc>(
        "zelsTone_16sc",
        [](Zel16sc* d, int n) { call<Zel16sc, zelsTone_16sc, zelHintNone, Zel16s, Zel32f>(d, n, 3000); },
        libraryTone16<Zel16sc>);
});

} // namespace
