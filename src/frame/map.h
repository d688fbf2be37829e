// The driver of element-wise work: any number of sources, one destination, one operation.
#pragma once

#include "frame/entry.h"
#include "frame/vec.h"
#include "frame/zelsKernelConventions.h"

// An operation is a callable that takes one argument for each source and gives a destination vector. For
// destinations of real floats it takes single elements as well, and peel and tail run it on these; a generic
// lambda serves both. All other destinations peel and end with partly filled vectors, so that one definition
// is enough. A source narrower than the destination arrives in the low lanes of its vector, a wider one as
// OwnsVecs: see ownsTake.

namespace owns_detail {

template <class D>
inline constexpr bool singleElements = std::is_floating_point_v<D>;

template <class Op, class D, class... S>
[[gnu::always_inline]] inline void few(Op& op, D* pDst, int n, const S*... pSrc)
{
    if constexpr (singleElements<D>) {
        for (int i = 0; i < n; i++)
            ownsPut(pDst + i, op(ownsGet(pSrc + i)...));
    } else if constexpr (ownsLanes<D> > 1) {
        if (n > 0)
            ownsStorePart(pDst, op(ownsTakePart<D>(pSrc, n)...), n);
    }
}

} // namespace owns_detail

/// Runs `op` over `len` elements by the pattern of zelsKernelConventions.h. Each source may be the
/// destination itself.
template <OwnsShape shape, class Op, class D, class... S>
[[gnu::always_inline]] inline void ownsMap(Op op, D* pDst, ZelSize len, const S*... pSrc)
{
    constexpr int lanes = ownsLanes<D>;
    ZelSize i = 0;
    if (len >= shape.cut) {
        bool aligned = false;
        const auto offset = reinterpret_cast<std::uintptr_t>(pDst) % ownsVecBytes;
        if (offset % sizeof(D) == 0) {
            aligned = true;
            if (offset != 0) {
                const ZelSize whole = static_cast<ZelSize>((ownsVecBytes - offset) / sizeof(D));
                const ZelSize peel = whole < len ? whole : len;
                owns_detail::few(op, pDst, static_cast<int>(peel), pSrc...);
                i = peel;
            }
        }
        if (shape.streamAbove != INT64_MAX && aligned && len - i > shape.streamAbove) {
            for (; i + 2 * lanes <= len; i += 2 * lanes) {
                ownsStream(pDst + i, op(ownsTake<D>(pSrc + i)...));
                ownsStream(pDst + i + lanes, op(ownsTake<D>(pSrc + i + lanes)...));
            }
        } else {
            for (; i + 2 * lanes <= len; i += 2 * lanes) {
                ownsStore(pDst + i, op(ownsTake<D>(pSrc + i)...));
                ownsStore(pDst + i + lanes, op(ownsTake<D>(pSrc + i + lanes)...));
            }
        }
    }
    for (; i + lanes <= len; i += lanes)
        ownsStore(pDst + i, op(ownsTake<D>(pSrc + i)...));
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
