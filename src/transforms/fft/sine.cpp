#include "transforms/fft/sine.h"

namespace {

constexpr int storedLength = (1 << ownsFftStoredSines) / 4 + 1;

template <class T>
struct StoredSines {
    T s[storedLength];
};

template <class T>
constexpr StoredSines<T> stored = [] {
    StoredSines<T> table{};
    for (int k = 0; k < storedLength; k++)
        table.s[k] = static_cast<T>(ownsExactSine(k, ownsFftStoredSines));
    return table;
}();

// sin(2 pi x) and cos(2 pi x) for 0 <= x <= 1/8 in double precision, by Taylor's series in x * x. `terms` is
// the count of terms behind the first: five leave 1e-11, which disappears in a float; eight leave 1e-18.
struct Coefficients {
    Zel64f sine[9];
    Zel64f cosine[9];
};

constexpr Coefficients coefficients = [] {
    Coefficients c{};
    long double term = 1;
    for (int k = 0; k < 9; k++) {
        const long double even = 2 * k;
        const long double sign = k % 2 == 0 ? 1 : -1;
        c.cosine[k] = static_cast<Zel64f>(sign * term);
        term *= 2 * ownsPi / (even + 1);
        c.sine[k] = static_cast<Zel64f>(sign * term);
        term *= 2 * ownsPi / (even + 2);
    }
    return c;
}();

// 2 pi in two parts. The first has 26 bits, so that its products with k / N, k up to 2^24, are exact.
constexpr Zel64f twoPiHigh = 0x1.921fb54p+2;
constexpr auto twoPiLow = static_cast<Zel64f>(2 * ownsPi - static_cast<long double>(twoPiHigh));

template <int terms>
inline __m128d evaluated(const Zel64f* c, __m128d square)
{
    __m128d sum = _mm_set1_pd(c[terms]);
    for (int k = terms - 1; k > 0; k--)
        sum = sum * square + _mm_set1_pd(c[k]);
    return sum * square;
}

template <int terms>
inline __m128d sine(__m128d x)
{
    const __m128d rest = evaluated<terms>(coefficients.sine, x * x);
    return x * _mm_set1_pd(twoPiHigh) + (x * _mm_set1_pd(twoPiLow) + x * rest);
}

template <int terms>
inline __m128d cosine(__m128d x)
{
    return _mm_set1_pd(1.0) + evaluated<terms>(coefficients.cosine, x * x);
}

// Lane 0 to p[0], lane 1 to p[1].
inline void put(Zel32f* p, __m128d v)
{
    _mm_storel_epi64(reinterpret_cast<__m128i*>(p), ownsInt(_mm_cvtpd_ps(v)));
}
inline void put(Zel64f* p, __m128d v)
{
    ownsStore(p, v);
}

// Both halves of the quarter wave at once: sines of angles up to pi/4 from the lower end, cosines from the
// upper end. k / N has no rounding error, so that the only errors are those of the last steps.
template <class T>
void makeSines(T* s, int order)
{
    constexpr int terms = sizeof(T) == 4 ? 5 : 8;
    const int quarter = (1 << order) / 4;
    const __m128d unit = _mm_set1_pd(1.0 / (1 << order));
    __m128d k = _mm_setr_pd(0.0, 1.0);
    for (int low = 0; low < quarter / 2; low += 2, k += _mm_set1_pd(2.0)) {
        const __m128d x = k * unit;
        put(s + low, sine<terms>(x));
        const __m128d c = cosine<terms>(x);
        put(s + (quarter - low - 1), _mm_shuffle_pd(c, c, 1));
    }
    s[quarter / 2] = stored<T>.s[storedLength / 2];
}

} // namespace

template <class T>
OwnsSines<T> ownsFftSineTable(int order, Zel8u* pInitMem)
{
    if (order <= ownsFftStoredSines)
        return {stored<T>.s, ownsFftStoredSines};
    T* s = reinterpret_cast<T*>(pInitMem);
    makeSines(s, order);
    return {s, order};
}

template OwnsSines<Zel32f> ownsFftSineTable(int, Zel8u*);
template OwnsSines<Zel64f> ownsFftSineTable(int, Zel8u*);
