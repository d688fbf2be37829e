// What the thresholds share: the sides of a level, the choice by mask, and magnitudes of complex elements.
#pragma once

#include "frame/bulk.h"
#include "frame/extremes.h"
#include "frame/parts.h"
#include "frame/squares.h"

#include <cmath>

/// The elements that are replaced.
enum class OwnsSide { below, above };

/// `yes` where the mask is all ones, else `no`.
template <class V>
inline V ownsChosen(auto mask, V yes, V no)
{
    if constexpr (sizeof(no[0]) == sizeof(Zel16s) && sizeof(mask[0]) != sizeof(Zel32s))
        return reinterpret_cast<V>(_mm_blendv_epi8(ownsInt(no), ownsInt(yes), ownsInt(mask)));
    else
        return reinterpret_cast<V>(_mm_blendv_ps(ownsFloat(no), ownsFloat(yes), ownsFloat(mask)));
}

/// Whether a mask of lanes of 32 or 64 bits has a lane set.
inline bool ownsAnyLane(auto mask)
{
    return _mm_movemask_ps(ownsFloat(mask)) != 0;
}

inline bool ownsAllLanes(auto mask)
{
    return _mm_movemask_ps(ownsFloat(mask)) == 15;
}

/// Where a <= b does not hold: either is a NaN, or a is larger.
inline __m128 ownsNotUpTo(OwnsVec<Zel32f> a, OwnsVec<Zel32f> b)
{
    return _mm_cmpnle_ps(a, b);
}
inline __m128d ownsNotUpTo(OwnsVec<Zel64f> a, OwnsVec<Zel64f> b)
{
    return _mm_cmpnle_pd(a, b);
}
inline __m128i ownsNotUpTo(OwnsVec<Zel16s> a, OwnsVec<Zel16s> b)
{
    return _mm_cmpgt_epi16(ownsInt(a), ownsInt(b));
}

/// A vector that is held in its register: g++ would load it once for the comparison and once for the choice.
template <class V>
inline V ownsHeld(V x)
{
    asm("" : "+x"(x));
    return x;
}

/// A magnitude with the sign of x.
inline OwnsVec<Zel32f> ownsWithSigns(OwnsVec<Zel32f> magnitude, OwnsVec<Zel32f> x)
{
    return _mm_or_ps(magnitude, _mm_and_ps(x, _mm_set1_ps(-0.0f)));
}
inline OwnsVec<Zel64f> ownsWithSigns(OwnsVec<Zel64f> magnitude, OwnsVec<Zel64f> x)
{
    return _mm_or_pd(magnitude, _mm_and_pd(x, _mm_set1_pd(-0.0)));
}

// Complex elements. Their sum of squares m is compared with the square of the level, both in the element's type. A
// float level is an ordinary one if its square and all sums above it are so far inside the type's range that the
// comparison is right to a rounding, and if sums from `leastSquare` on are: squares that sink below the normal
// numbers, or are flushed, make no difference there. By other levels, which are seldom, elements are compared one
// by one in a type that holds every square.

template <class P>
struct OwnsMagnitudes;
template <>
struct OwnsMagnitudes<Zel32f> {
    using Wide = Zel64f;
    using Complex = Zel32fc;
    static constexpr Zel32f leastLevel = 0x1p-50f, mostLevel = 0x1p62f;
    static constexpr Zel32f leastSquare = 0x1p-100f, mostSquare = 0x1p126f;
};
template <>
struct OwnsMagnitudes<Zel64f> {
    using Wide = long double;
    using Complex = Zel64fc;
    static constexpr Zel64f leastLevel = 0x1p-480, mostLevel = 0x1p510;
    static constexpr Zel64f leastSquare = 0x1p-960, mostSquare = 0x1p1022;
};

template <class P>
inline bool ownsIsOrdinaryLevel(P level)
{
    return level >= OwnsMagnitudes<P>::leastLevel && level <= OwnsMagnitudes<P>::mostLevel;
}

/// Sums of squares that neither overflowed nor lost what matters. To overflow is to become the largest number in some
/// rounding modes.
template <class V>
inline auto ownsIsUsual(V m)
{
    using P = std::remove_cvref_t<decltype(m[0])>;
    return (m >= OwnsMagnitudes<P>::leastSquare) & (m <= OwnsMagnitudes<P>::mostSquare);
}

/// Whether an element lies beyond the level, or surely does not, computed in type W. A NaN does neither.
template <OwnsSide side, class W, class C>
inline bool ownsIsBeyond(C x, OwnsPart<C> level)
{
    const W re = x.re, im = x.im, limit = level;
    const W m = re * re + im * im;
    return side == OwnsSide::below ? m < limit * limit : m > limit * limit;
}
template <OwnsSide side, class W, class C>
inline bool ownsStays(C x, OwnsPart<C> level)
{
    const W re = x.re, im = x.im, limit = level;
    const W m = re * re + im * im;
    return side == OwnsSide::below ? limit * limit <= m : m <= limit * limit;
}

/// A wide complex number, for single elements out of the ordinary. Its sum of squares is infinite only of infinite
/// elements: these are left with their direction, in parts of 1 and 0.
template <class W>
struct OwnsWideComplex {
    W re, im, squares;
    bool isInfinite;

    template <class C>
    explicit OwnsWideComplex(C x)
        : re(x.re), im(x.im), squares(re * re + im * im), isInfinite(std::isinf(squares))
    {
        if (isInfinite) {
            re = std::copysign(W(std::isinf(re)), re);
            im = std::copysign(W(std::isinf(im)), im);
            squares = re * re + im * im;
        }
    }
};

/// An element with its phase and another magnitude; a zero has no phase.
template <class C>
inline C ownsAtMagnitude(C x, OwnsPart<C> level)
{
    using P = OwnsPart<C>;
    const OwnsWideComplex<typename OwnsMagnitudes<P>::Wide> wide(x);
    if (wide.squares == 0)
        return {level, 0};
    const auto factor = level / std::sqrt(wide.squares);
    return {static_cast<P>(wide.re * factor), static_cast<P>(wide.im * factor)};
}

/// One operation on single elements.
template <class C, class Op>
[[gnu::noinline]] void ownsOneByOne(const C* pSrc, C* pDst, int len, Op op)
{
    for (ZelSize i = 0; i < len; i++)
        ownsPut(pDst + i, op(ownsGet(pSrc + i)));
}

/// A value for each element in both its parts, from a value for each of two vectors of elements.
template <class V>
inline auto ownsSpread(V v)
{
    using C = typename OwnsMagnitudes<std::remove_cvref_t<decltype(v[0])>>::Complex;
    return OwnsVecs<C, 2>{{ownsZipLow(v, v), ownsZipHigh(v, v)}};
}

/// `results` but for elements whose sums of squares are not usual: these are computed one by one.
template <class Op, class V>
[[gnu::noinline, gnu::cold]] V ownsMended(Op op, V x, V results)
{
    using P = std::remove_cvref_t<decltype(x[0])>;
    const V squares = x * x;
    const auto isUsual = ownsIsUsual(squares + ownsSwapped(squares));
    for (int i = 0; i < ownsLanes<P>; i += 2)
        if (!isUsual[i]) {
            const typename OwnsMagnitudes<P>::Complex r =
                op(typename OwnsMagnitudes<P>::Complex{x[i], x[i + 1]});
            results[i] = r.re;
            results[i + 1] = r.im;
        }
    return results;
}

/// Which of four sums of squares of 16-bit parts lie beyond the level: they reach 2^31, so the comparison is unsigned.
template <OwnsSide side>
struct OwnsBeyond16 {
    Zel16s level;

    auto operator()(OwnsVec<Zel32s> m) const
    {
        const OwnsVec<Zel32u> squares = ownsAs<Zel32u>(m);
        const auto square = static_cast<Zel32u>(level * level);
        return side == OwnsSide::below ? squares < square : squares > square;
    }
};
