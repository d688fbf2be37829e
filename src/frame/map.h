// The driver of element-wise work: any number of sources, one destination, one operation.
#pragma once

#include "frame/entry.h"
#include "frame/vec.h"
#include "frame/zelsKernelConventions.h"

// An operation is a callable that takes one vector for each source and gives a destination vector. Peel and
// tail run it on partly filled vectors, so that one definition is enough; an operation that must not mistake
// the zeros behind the last element for elements has a form part(n, vectors...) for these. A source narrower
// than the destination arrives in the low lanes of its vector, a wider one as OwnsVecs: see ownsTake. Where all
// sources are half as wide as the destination, an operation may have a form pair(vectors...) for whole vectors of
// them, which gives two destination vectors; where they are as wide, that form takes two vectors of each.

/// Marks an operation whose vectors estimate what single elements compute truly: it has a form for single
/// elements too, and short vectors, peel and tail take that one.
template <class Op>
concept OwnsEstimates = requires
{
    typename Op::Estimates;
};

/// How much code an operation is worth. It tells by a constant `code`; without one all is made for speed.
enum class OwnsCode {
    light, ///< as fast, and long vectors take four at a time: for an instruction or two, beside which the loop counts
    fast, ///< the usual lengths of tails have copies of the operation
    compact, ///< one copy for all tails, which is some nanoseconds slower there: for operations of many instructions
    least, ///< one vector a round too, at any alignment: for what is seldom asked for
};
template <class Op>
inline constexpr OwnsCode ownsCodeOf = OwnsCode::fast;
template <class Op>
requires requires
{
    Op::code;
}
inline constexpr OwnsCode ownsCodeOf<Op> = Op::code;

/// Makes an operation a light one.
template <class Op>
struct OwnsLight : Op {
    static constexpr OwnsCode code = OwnsCode::light;
};
template <class Op>
OwnsLight(Op) -> OwnsLight<Op>;

namespace owns_detail {

/// `count` elements from the `i`-th on, fewer than a vector has lanes.
template <class Op, class D, class... S>
[[gnu::always_inline]] inline void part(Op& op, D* pDst, ZelSize& i, int count, const S*... pSrc)
{
    if constexpr (requires { op.part(count, ownsTakePart<D>(pSrc, count)...); })
        ownsStorePart(pDst + i, op.part(count, ownsTakePart<D>(pSrc + i, count)...), count);
    else
        ownsStorePart(pDst + i, op(ownsTakePart<D>(pSrc + i, count)...), count);
    i += count;
}

/// The low bits of `rest`, as many elements as a vector does not fill. The branches on them are those that a
/// caller's usual length teaches the processor. Narrow elements take the lowest bits in one part: each step is a
/// copy of the operation.
template <class Op, class D, class... S>
[[gnu::always_inline]] inline void few(Op& op, D* pDst, ZelSize& i, int rest, const S*... pSrc)
{
    constexpr int lanes = ownsLanes<D>;
    if constexpr (OwnsEstimates<Op>) {
        for (const ZelSize end = i + rest; i < end; i++)
            ownsPut(pDst + i, op(ownsGet(pSrc + i)...));
    } else if constexpr (ownsCodeOf<Op> > OwnsCode::fast) {
        if (const int count = rest & (lanes - 1); count != 0) [[likely]]
            part(op, pDst, i, count, pSrc...);
    } else {
        if constexpr (lanes > 2)
            if (rest & (lanes / 2)) [[likely]]
                part(op, pDst, i, lanes / 2, pSrc...);
        if constexpr (lanes > 1)
            if (const int lowest = rest & (lanes > 2 ? lanes / 2 - 1 : 1); lowest != 0) [[likely]]
                part(op, pDst, i, lanes > 4 ? lowest : 1, pSrc...);
    }
}

/// Two destination vectors from index 0 on, by `store`.
template <class Op, class D, class Store, class... S>
[[gnu::always_inline]] inline void round(Op& op, D* pDst, Store store, const S*... pSrc)
{
    constexpr ZelSize lanes = ownsLanes<D>;
    if constexpr (requires { op.pair(ownsLoad(pSrc)...); }) {
        const OwnsVecs<D, 2> both = op.pair(ownsLoad(pSrc)...);
        store(pDst, both.v[0]);
        store(pDst + lanes, both.v[1]);
    } else if constexpr (requires { op.pair(OwnsVecs<S, 2>{}...); }) {
        const OwnsVecs<D, 2> both = op.pair(OwnsVecs<S, 2>{{ownsLoad(pSrc), ownsLoad(pSrc + lanes)}}...);
        store(pDst, both.v[0]);
        store(pDst + lanes, both.v[1]);
    } else {
        store(pDst, op(ownsTake<D>(pSrc)...));
        store(pDst + lanes, op(ownsTake<D>(pSrc + lanes)...));
    }
}

/// Elements up to the next vector boundary, or -1 where single elements do not lead to one.
template <class D>
[[gnu::always_inline]] inline int peelCount(const D* pDst)
{
    const auto ahead = static_cast<unsigned>(-reinterpret_cast<std::uintptr_t>(pDst) % ownsVecBytes);
    return ahead % sizeof(D) == 0 ? static_cast<int>(ahead / sizeof(D)) : -1;
}

} // namespace owns_detail

/// Runs `op` over `len` elements by the pattern of zelsKernelConventions.h. Each source may be the
/// destination itself.
template <OwnsShape shape, class Op, class D, class... S>
[[gnu::always_inline]] inline void ownsMap(Op op, D* pDst, ZelSize len, const S*... pSrc)
{
    constexpr ZelSize lanes = ownsLanes<D>;
    ZelSize i = 0;
    if constexpr (ownsCodeOf<Op> == OwnsCode::least) {
        for (; i <= len - lanes; i += lanes)
            ownsStore(pDst + i, op(ownsTake<D>(pSrc + i)...));
        return owns_detail::few(op, pDst, i, static_cast<int>(len - i), pSrc...);
    }
    if constexpr (OwnsEstimates<Op>)
        if (len < shape.cut)
            return owns_detail::few(op, pDst, i, static_cast<int>(len), pSrc...);
    if (OwnsEstimates<Op> || len >= ownsPeelFrom / static_cast<ZelSize>(sizeof(D))) [[unlikely]] {
        const int peel = owns_detail::peelCount(pDst);
        if (peel > 0)
            owns_detail::few(op, pDst, i, peel, pSrc...);
        if (shape.streamAbove != INT64_MAX && peel >= 0 && len - i > shape.streamAbove) {
            for (; i <= len - 2 * lanes; i += 2 * lanes)
                owns_detail::round(
                    op, pDst + i, [](D* p, auto v) { ownsStream(p, v); }, (pSrc + i)...);
        }
        if constexpr (ownsCodeOf<Op> == OwnsCode::light)
            for (; i <= len - 4 * lanes; i += 4 * lanes)
                ownsEach<2>([&](int k) OWNS_INLINE {
                    owns_detail::round(
                        op, pDst + i + 2 * lanes * k, [](D* p, auto v) { ownsStore(p, v); },
                        (pSrc + i + 2 * lanes * k)...);
                });
    }
    for (; i <= len - 2 * lanes; i += 2 * lanes)
        owns_detail::round(
            op, pDst + i, [](D* p, auto v) { ownsStore(p, v); }, (pSrc + i)...);
    // Whole rounds are the usual length of blocks, and leave without a jump.
    const int rest = static_cast<int>(len - i);
    if (rest == 0) [[likely]]
        return;
    if (!OwnsEstimates<Op> && (rest & lanes) != 0) [[likely]] {
        ownsStore(pDst + i, op(ownsTake<D>(pSrc + i)...));
        i += lanes;
    }
    owns_detail::few(op, pDst, i, rest, pSrc...);
}

/// The plain entry over ownsMap: pointers, length, work.
template <OwnsShape shape, class Op, class D, class... S>
[[gnu::always_inline]] inline ZelStatus ownsRun(Op op, D* pDst, ZelSize len, const S*... pSrc)
{
    if (const ZelStatus status = ownsCheck(len, pSrc..., pDst); status != zelStatusOk)
        return status;
    ownsMap<shape>(op, pDst, len, pSrc...);
    return zelStatusOk;
}
