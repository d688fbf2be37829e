// The driver of scaled integer work: checks, choice of the path, one kernel a path.
#pragma once

#include "frame/bulk.h"
#include "frame/map.h"
#include "frame/scaleFactor.h"

#include <climits>

// An operation has a static function `apply` for each path: apply(path, vectors...) gives the destination
// vector. The kernels are functions of their own, so that the in-place form and the other forms of an
// operation share them.

// In operations whose exact value is two words, told by their constant `word`, right shifts are three paths:
// below a word, OwnsShiftedRight; and these. Where such an operation has a constant `fraction` too, it has a path
// of its own for that shift: the product of two fractions as a fraction. A constant `mostLeft` tells the
// largest left shift that an operation knows; what is above saturates by sign. `pair` is `apply` for the form of
// two vectors that map.h tells of.

/// By `fraction`.
struct OwnsShiftedFraction {};
/// By exactly one word.
struct OwnsShiftedWord {};
/// By more than one word.
struct OwnsShiftedFar {
    int shift; ///< beyond the word
};

/// Whether a constant is 0, in both parts.
template <class T>
inline bool ownsIsZero(T val)
{
    if constexpr (ownsIsComplex<T>)
        return val.re == 0 && val.im == 0;
    else
        return val == 0;
}

template <class Op>
inline constexpr int ownsMostLeft = INT_MAX;
template <class Op>
requires requires
{
    Op::mostLeft;
}
inline constexpr int ownsMostLeft<Op> = Op::mostLeft;

/// The operation with its two operands exchanged.
template <class Op>
struct OwnsReversed {
    static constexpr int mostLeft = ownsMostLeft<Op>;
    template <class Path, class V>
    static V apply(Path path, V a, V b)
    {
        return Op::apply(path, b, a);
    }
};

namespace owns_detail {

// Sums without a scale factor are single instructions. Saturation by sign and far shifts are seldom asked for.
template <class Path>
inline constexpr OwnsCode codeOfPath = OwnsCode::compact;
template <>
inline constexpr OwnsCode codeOfPath<OwnsUnscaled> = OwnsCode::fast;
template <>
inline constexpr OwnsCode codeOfPath<OwnsBySign> = OwnsCode::least;
template <>
inline constexpr OwnsCode codeOfPath<OwnsShiftedFar> = OwnsCode::least;

/// An operation bound to its path.
template <class Op, class Path>
struct OnPath {
    static constexpr OwnsCode code = codeOfPath<Path>;
    Path path;

    template <class... V>
    auto operator()(V... x) const
    {
        return Op::apply(path, x...);
    }
    template <class... V>
    auto pair(V... x) const requires requires
    {
        Op::pair(path, x...);
    }
    {
        return Op::pair(path, x...);
    }
};

/// The same with a constant as the second operand.
template <class Op, class Path, class V>
struct OnPathWith {
    static constexpr OwnsCode code = codeOfPath<Path>;
    Path path;
    V val;

    auto operator()(V x) const { return Op::apply(path, x, val); }
};

template <OwnsShape shape, class Op, class Path, class D, class... S>
[[gnu::noinline]] void scaledKernel(Path path, D* pDst, ZelSize len, const S*... pSrc)
{
    ownsMap<shape>(OnPath<Op, Path>{path}, pDst, len, pSrc...);
}

template <OwnsShape shape, class Op, class Path, class D, class S>
[[gnu::noinline]] void scaledConstantKernel(Path path, D* pDst, ZelSize len, const S* pSrc, OwnsVec<S> val)
{
    ownsMap<shape>(OnPathWith<Op, Path, OwnsVec<S>>{path, val}, pDst, len, pSrc);
}

template <class Op>
concept OfTwoWords = requires
{
    Op::word;
};
template <class Op>
concept OfFractions = requires
{
    Op::fraction;
};

/// Calls `kernel` with the path, or one that it is split up into.
template <class Op, class Path, class Kernel>
[[gnu::always_inline]] inline void withPath(Path path, Kernel kernel)
{
    if constexpr (OfTwoWords<Op> && std::is_same_v<Path, OwnsShiftedRight>) {
        if constexpr (OfFractions<Op>)
            if (path.shift == Op::fraction)
                return kernel(OwnsShiftedFraction{});
        if (path.shift == Op::word)
            return kernel(OwnsShiftedWord{});
        if (path.shift > Op::word)
            return kernel(OwnsShiftedFar{path.shift - Op::word});
    }
    if constexpr (ownsMostLeft<Op> != INT_MAX && std::is_same_v<Path, OwnsShiftedLeft>)
        if (path.shift > ownsMostLeft<Op>)
            return kernel(OwnsBySign{});
    kernel(path);
}

} // namespace owns_detail

/// The entry of a scaled operation on vectors.
template <OwnsScaleLimits limits, OwnsShape shape, class Op, class D, class... S>
[[gnu::always_inline]] inline ZelStatus ownsRunScaled(int scaleFactor, D* pDst, ZelSize len, const S*... pSrc)
{
    if (const ZelStatus status = ownsCheck(len, pSrc..., pDst); status != zelStatusOk)
        return status;
    const auto kernel = [=](auto path) { owns_detail::scaledKernel<shape, Op>(path, pDst, len, pSrc...); };
    ownsWithScaleFactor<limits>(
        scaleFactor, [=] { ownsZero(pDst, len); },
        [=](auto path) { owns_detail::withPath<Op>(path, kernel); });
    return zelStatusOk;
}

/// A division by 2^scaleFactor alone, behind the checks, where the factor is from 1 on: for operations that differ
/// from each other in nothing else.
template <OwnsScaleLimits limits, OwnsShape shape, class Op, class D, class S>
[[gnu::always_inline]] inline void ownsMapShiftedRight(int scaleFactor, D* pDst, ZelSize len, const S* pSrc)
{
    if (scaleFactor >= limits.zero)
        ownsZero(pDst, len);
    else
        owns_detail::withPath<Op>(OwnsShiftedRight{scaleFactor}, [=](auto path) {
            owns_detail::scaledKernel<shape, Op>(path, pDst, len, pSrc);
        });
}

/// The entry of a scaled operation on a vector and a constant, behind the checks and short cuts.
template <OwnsScaleLimits limits, OwnsShape shape, class Op, class T>
[[gnu::always_inline]] inline ZelStatus ownsMapScaled(int scaleFactor, T* pDst, ZelSize len, const T* pSrc,
                                                      T val)
{
    const auto kernel = [=](auto path) {
        owns_detail::scaledConstantKernel<shape, Op>(path, pDst, len, pSrc, ownsSplat(val));
    };
    ownsWithScaleFactor<limits>(
        scaleFactor, [=] { ownsZero(pDst, len); },
        [=](auto path) { owns_detail::withPath<Op>(path, kernel); });
    return zelStatusOk;
}
