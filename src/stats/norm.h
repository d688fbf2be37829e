// The reductions behind Norm and NormDiff. Both forms share them: a vector of elements is looked at by itself, or as the
// difference of two.
#pragma once

#include "stats/exactSum.h"
#include "stats/extrema.h"
#include "stats/scaled.h"

#include <bit>
#include <cmath>
#include <limits>

/// A vector of one array, or the difference of two, in the element type.
inline auto ownsDifference(auto x)
{
    return x;
}
inline auto ownsDifference(auto x, auto y)
{
    return x - y;
}

// Terms of float norms, as vectors of the type that is summed. Missing elements are zeros and give zeros.

/// Real magnitudes and squares in their own type.
template <class T>
struct OwnsRealTerms {
    using Sum = T;
    template <class Add>
    static void magnitudes(OwnsVec<T> x, Add add)
    {
        add(OwnsMagnitude::of(x));
    }
    template <class Add>
    static void squares(OwnsVec<T> x, Add add)
    {
        add(x * x);
    }
};

/// Squared magnitudes of complex elements in double precision. `parts` gives add a pair of squared parts.
template <class T>
struct OwnsComplexTerms {
    using Sum = Zel64f;
    template <class Add>
    static void squares(OwnsVec<T> x, Add add)
    {
        if constexpr (std::is_same_v<T, Zel32fc>) {
            const OwnsF64x2 first = _mm_cvtps_pd(x);
            const OwnsF64x2 second = _mm_cvtps_pd(_mm_movehl_ps(x, x));
            add(first * first);
            add(second * second);
        } else {
            add(x * x);
        }
    }
    /// One squared magnitude in each lane, or one alone beside a zero.
    template <class Add>
    static void squaredMagnitudes(OwnsVec<T> x, Add add)
    {
        if constexpr (std::is_same_v<T, Zel32fc>) {
            const OwnsF64x2 first = _mm_cvtps_pd(x);
            const OwnsF64x2 second = _mm_cvtps_pd(_mm_movehl_ps(x, x));
            add(OwnsF64x2(_mm_hadd_pd(first * first, second * second)));
        } else {
            add(OwnsF64x2(_mm_hadd_pd(x * x, _mm_setzero_pd())));
        }
    }
    template <class Add>
    static void magnitudes(OwnsVec<T> x, Add add)
    {
        squaredMagnitudes(x, [&](OwnsF64x2 m) { add(OwnsF64x2(_mm_sqrt_pd(m))); });
    }
};

template <class T>
using OwnsTerms = std::conditional_t<ownsIsComplex<T>, OwnsComplexTerms<T>, OwnsRealTerms<T>>;

/// All lanes of the terms of one vector after the other joined by `join`.
template <class Sum, class Terms, class Join, class T, class... S>
[[gnu::always_inline]] inline OwnsVec<Sum> ownsJoined(Terms terms, Join join, ZelSize from, ZelSize to,
                                                      const T* p, const S*... more)
{
    OwnsVec<Sum> r[4] = {};
    ownsVectors(
        r, from, to,
        [&](OwnsVec<Sum>& running, auto... x) {
            terms(ownsDifference(x...), [&](OwnsVec<Sum> term) { running = join(running, term); });
        },
        p, more...);
    return join(join(r[0], r[2]), join(r[1], r[3]));
}

inline Zel32f ownsLaneSum(OwnsF32x4 v)
{
    return (v[0] + v[2]) + (v[1] + v[3]);
}

/// The sum of terms. Blocks of 2^14 elements keep the error of single precision at some thousand roundings, and the
/// blocks themselves are few.
template <class Sum, class Terms, class T, class... S>
[[gnu::always_inline]] inline Sum ownsTermSum(Terms terms, ZelSize len, const T* p, const S*... more)
{
    const auto plus = [](OwnsVec<Sum> a, OwnsVec<Sum> b) { return a + b; };
    OwnsVec<Sum> total{};
    ownsBlocks(16384, 0, len, [&](ZelSize from, ZelSize to) {
        total += ownsJoined<Sum>(terms, plus, from, to, p, more...);
    });
    return ownsLaneSum(total);
}

/// The largest of terms that are not negative; NaNs are passed over.
template <class Sum, class Terms, class T, class... S>
[[gnu::always_inline]] inline Sum ownsLargestTerm(Terms terms, ZelSize len, const T* p, const S*... more)
{
    const auto larger = [](OwnsVec<Sum> best, OwnsVec<Sum> x) { return OwnsLargest::fold(x, best); };
    const auto lanes = ownsJoined<Sum>(terms, larger, 0, len, p, more...);
    return ownsLaneFold<Sum>(OwnsBest<OwnsLargest, OwnsVec<Sum>>(lanes)).best;
}

// The norms of float vectors.

template <class R, class T, class... S>
inline R ownsNormInf(ZelSize len, const T* p, const S*... more)
{
    using Sum = typename OwnsTerms<T>::Sum;
    if constexpr (ownsIsComplex<T>) {
        const auto terms = [](auto x, auto add) { OwnsTerms<T>::squaredMagnitudes(x, add); };
        return static_cast<R>(std::sqrt(ownsLargestTerm<Sum>(terms, len, p, more...)));
    } else {
        const auto terms = [](auto x, auto add) { OwnsTerms<T>::magnitudes(x, add); };
        return ownsLargestTerm<Sum>(terms, len, p, more...);
    }
}

template <class T, class... S>
inline auto ownsNormL1(ZelSize len, const T* p, const S*... more)
{
    const auto terms = [](auto x, auto add) { OwnsTerms<T>::magnitudes(x, add); };
    return ownsTermSum<typename OwnsTerms<T>::Sum>(terms, len, p, more...);
}

template <class T, class... S>
inline auto ownsNormL2(ZelSize len, const T* p, const S*... more)
{
    const auto terms = [](auto x, auto add) { OwnsTerms<T>::squares(x, add); };
    return std::sqrt(ownsTermSum<typename OwnsTerms<T>::Sum>(terms, len, p, more...));
}

// The norms of 16-bit vectors, exact. Distances have 16 bits without a sign: |-32768| is 32768, and two elements lie no
// more than 65535 apart.

inline __m128i ownsDistance(OwnsVec<Zel16s> x)
{
    return _mm_abs_epi16(ownsInt(x));
}
inline __m128i ownsDistance(OwnsVec<Zel16s> x, OwnsVec<Zel16s> y)
{
    return _mm_sub_epi16(_mm_max_epi16(ownsInt(x), ownsInt(y)), _mm_min_epi16(ownsInt(x), ownsInt(y)));
}

template <class... S>
inline Zel64u ownsExactInf(ZelSize len, const S*... p)
{
    OwnsVec<Zel16u> r[4] = {};
    const auto take = [](OwnsVec<Zel16u>& largest, auto... x) {
        largest = OwnsLargest::fold(largest, ownsAs<Zel16u>(ownsDistance(x...)));
    };
    ownsVectors(r, 0, len, take, p...);
    const auto all = OwnsLargest::fold(OwnsLargest::fold(r[0], r[2]), OwnsLargest::fold(r[1], r[3]));
    return ownsLaneFold<Zel16u>(OwnsBest<OwnsLargest, OwnsVec<Zel16u>>(all)).best;
}

/// Distances are summed as signed values that lie 32768 below them.
template <class... S>
inline Zel64u ownsExactL1(ZelSize len, const S*... p)
{
    const auto add = [](OwnsVec<Zel32s>& sum, auto... x) {
        const __m128i below = _mm_xor_si128(ownsDistance(x...), _mm_set1_epi16(-32768));
        sum += ownsAs<Zel32s>(_mm_madd_epi16(below, _mm_set1_epi16(1)));
    };
    Zel64s total = 0;
    ownsBlocks(ownsExactBlock, 0, len, [&](ZelSize from, ZelSize to) {
        OwnsVec<Zel32s> r[4] = {};
        ownsVectors(r, from, to, add, p...);
        total += ownsLaneSum(r[0] + r[1]) + ownsLaneSum(r[2] + r[3]);
    });
    return static_cast<Zel64u>(total + (len + 7) / 8 * 8 * 32768);
}

/// Squares in pairs of no more than 2^31, or, of differences, singly below 2^32.
inline void ownsAddSquares(OwnsExactSum<Zel32u>& sum, OwnsVec<Zel16s> x)
{
    sum.add(ownsAs<Zel32u>(_mm_madd_epi16(ownsInt(x), ownsInt(x))));
}
inline void ownsAddSquares(OwnsExactSum<Zel32u>& sum, OwnsVec<Zel16s> x, OwnsVec<Zel16s> y)
{
    const __m128i distance = ownsDistance(x, y);
    const __m128i low = _mm_mullo_epi16(distance, distance);
    const __m128i high = _mm_mulhi_epu16(distance, distance);
    sum.add(ownsAs<Zel32u>(_mm_unpacklo_epi16(low, high)));
    sum.add(ownsAs<Zel32u>(_mm_unpackhi_epi16(low, high)));
}

template <class... S>
inline Zel64u ownsExactL2Sqr(ZelSize len, const S*... p)
{
    OwnsVec<Zel64s> total{};
    ownsBlocks(ownsExactBlock, 0, len, [&](ZelSize from, ZelSize to) {
        OwnsExactSum<Zel32u> r[2];
        ownsVectors(
            r, from, to, [](OwnsExactSum<Zel32u>& sum, auto... x) { ownsAddSquares(sum, x...); }, p...);
        r[0].merge(r[1]);
        total += r[0].pairs();
    });
    return static_cast<Zel64u>(ownsLaneSum(total));
}

// Scaling of exact norms. It rounds nothing.

/// Shifted right or left by the scale factor and limited to the range of R. Without a shift there is no limit: the low
/// bits are the result.
template <class R>
inline R ownsShifted(Zel64u norm, int scaleFactor)
{
    constexpr R most = std::numeric_limits<R>::max();
    if (scaleFactor == 0 || norm == 0)
        return static_cast<R>(norm);
    if (scaleFactor > 0) {
        const Zel64u shifted = scaleFactor < 64 ? norm >> scaleFactor : 0;
        return shifted < static_cast<Zel64u>(most) ? static_cast<R>(shifted) : most;
    }
    // The top bit must stay below that of the sign. A factor below -63 leads out of any range.
    const int width = static_cast<int>(std::bit_width(norm));
    return scaleFactor < -63 || width - scaleFactor > std::numeric_limits<R>::digits
               ? most
               : static_cast<R>(norm << -scaleFactor);
}

/// The square root of an exact sum of squares.
inline Zel64f ownsRoot(Zel64u squares)
{
    return std::sqrt(static_cast<Zel64f>(static_cast<Zel64s>(squares)));
}

/// The root, scaled by a power of two that is a signed 32-bit value: at a magnitude of 31 it is negative, and beyond it
/// begins again at 1.
inline Zel32s ownsScaledRoot(Zel64u squares, int scaleFactor)
{
    const Zel64f root = ownsRoot(squares);
    const auto factor = static_cast<unsigned>(scaleFactor);
    const auto power = static_cast<Zel32s>(1u << ((scaleFactor < 1 ? 0u - factor : factor) % 32));
    return ownsConverted<Zel32s>(scaleFactor < 1 ? root * power : root / power);
}
