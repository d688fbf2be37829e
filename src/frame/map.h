// The driver of element-wise work: any number of sources, one destination, one operation.
#pragma once

#include "frame/entry.h"
#include "frame/vec.h"
#include "frame/zelsKernelConventions.h"

// An operation is a callable that takes one vector for each source and gives a destination vector. Peel and
// tail run it on partly filled vectors, so that one definition is enough; an operation that must not mistake
// the zeros behind the last element for elements has a form part(n, vectors...) for these. A source narrower
// than the destination arrives in the low lanes of its vector, a wider one as OwnsVecs: see ownsTake.

/// Marks an operation whose vectors estimate what single elements compute truly: it has a form for single
/// elements too, and short vectors, peel and tail take that one.
template <class Op>
concept OwnsEstimates = requires
{
    typename Op::Estimates;
};

namespace owns_detail {

/// The operation on vectors whose first `n` lanes hold elements.
template <class Op, class... V>
[[gnu::always_inline]] inline auto onPart(Op& op, int n, V... v)
{
    if constexpr (requires { op.part(n, v...); })
        return op.part(n, v...);
    else
        return op(v...);
}

/// Fewer elements than a vector has lanes.
template <class Op, class D, class... S>
[[gnu::always_inline]] inline void few(Op& op, D* pDst, int n, const S*... pSrc)
{
    if constexpr (OwnsEstimates<Op>) {
        for (int i = 0; i < n; i++)
            ownsPut(pDst + i, op(ownsGet(pSrc + i)...));
    } else if constexpr (ownsLanes<D> == 2) {
        if (n > 0)
            ownsStorePart(pDst, onPart(op, 1, ownsTakePart<D>(pSrc, 1)...), 1);
    } else if constexpr (ownsLanes<D> == 4) {
        // By the bits of the count: branches that a caller's usual length teaches the processor.
        if (n & 1)
            ownsStorePart(pDst, onPart(op, 1, ownsTakePart<D>(pSrc, 1)...), 1);
        if (n & 2) {
            const int at = n & 1;
            ownsStorePart(pDst + at, onPart(op, 2, ownsTakePart<D>(pSrc + at, 2)...), 2);
        }
    } else if constexpr (ownsLanes<D> > 4) {
        if (n > 0)
            ownsStorePart(pDst, onPart(op, n, ownsTakePart<D>(pSrc, n)...), n);
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
    if constexpr (OwnsEstimates<Op>)
        if (len < shape.cut)
            return owns_detail::few(op, pDst, static_cast<int>(len), pSrc...);
    ZelSize i = 0;
    if (OwnsEstimates<Op> || len >= ownsPeelFrom / static_cast<ZelSize>(sizeof(D))) [[unlikely]] {
        const int peel = owns_detail::peelCount(pDst);
        if (peel > 0) {
            owns_detail::few(op, pDst, peel, pSrc...);
            i = peel;
        }
        if (shape.streamAbove != INT64_MAX && peel >= 0 && len - i > shape.streamAbove) {
            for (; i <= len - 2 * lanes; i += 2 * lanes) {
                ownsStream(pDst + i, op(ownsTake<D>(pSrc + i)...));
                ownsStream(pDst + i + lanes, op(ownsTake<D>(pSrc + i + lanes)...));
            }
        }
    }
    for (; i <= len - 2 * lanes; i += 2 * lanes) {
        ownsStore(pDst + i, op(ownsTake<D>(pSrc + i)...));
        ownsStore(pDst + i + lanes, op(ownsTake<D>(pSrc + i + lanes)...));
    }
    // Whole rounds are common, and then the tail need not even be prepared.
    if (i == len)
        return;
    if (!OwnsEstimates<Op> && i <= len - lanes) {
        ownsStore(pDst + i, op(ownsTake<D>(pSrc + i)...));
        i += lanes;
    }
    owns_detail::few(op, pDst + i, static_cast<int>(len - i), (pSrc + i)...);
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
