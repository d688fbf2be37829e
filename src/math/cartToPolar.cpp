// Cartesian to polar form: CartToPolar.
#include "frame/entry.h"
#include "math/magnitude.h"
#include "math/polar.h"
#include "math/vecMath.h"
#include "zels.h"

#include <algorithm>

namespace {

/// Both results of an element in one pass, so that they may replace its parts.
constexpr OwnsOnParts polar{[]<class V>(V re, V im) -> OwnsParts2<V> {
    return {ownsMagnitude(re, im), ownsAtan2(im, re)};
}};

template <class T, class... S>
[[gnu::always_inline]] inline ZelStatus run(T* pDstMagn, T* pDstPhase, int len, const S*... pSrc)
{
    if (const ZelStatus status = ownsCheck(len, pSrc..., pDstMagn, pDstPhase); status != zelStatusOk)
        return status;
    ownsMapParts<T>(polar, OwnsTwoArrays<T>{pDstMagn, pDstPhase}, len, pSrc...);
    return zelStatusOk;
}

} // namespace

ZelStatus zelsCartToPolar_32f(const Zel32f* pSrcRe, const Zel32f* pSrcIm, Zel32f* pDstMagn, Zel32f* pDstPhase,
                              int len)
{
    return run(pDstMagn, pDstPhase, len, pSrcRe, pSrcIm);
}

ZelStatus zelsCartToPolar_64f(const Zel64f* pSrcRe, const Zel64f* pSrcIm, Zel64f* pDstMagn, Zel64f* pDstPhase,
                              int len)
{
    return run(pDstMagn, pDstPhase, len, pSrcRe, pSrcIm);
}

ZelStatus zelsCartToPolar_32fc(const Zel32fc* pSrc, Zel32f* pDstMagn, Zel32f* pDstPhase, int len)
{
    return run(pDstMagn, pDstPhase, len, pSrc);
}

ZelStatus zelsCartToPolar_64fc(const Zel64fc* pSrc, Zel64f* pDstMagn, Zel64f* pDstPhase, int len)
{
    return run(pDstMagn, pDstPhase, len, pSrc);
}

ZelStatus zelsCartToPolar_16sc_Sfs(const Zel16sc* pSrc, Zel16s* pDstMagn, Zel16s* pDstPhase, int len,
                                   int magnScaleFactor, int phaseScaleFactor)
{
    if (const ZelStatus status = ownsCheck(len, pSrc, pDstMagn, pDstPhase); status != zelStatusOk)
        return status;
    // Blocks whose source is still in the first-level cache when it is read again.
    constexpr int block = 2048;
    for (int done = 0; done < len;) {
        const int count = std::min(len - done, block);
        zelsMagnitude_16sc_Sfs(pSrc + done, pDstMagn + done, count, magnScaleFactor);
        zelsPhase_16sc_Sfs(pSrc + done, pDstPhase + done, count, phaseScaleFactor);
        done += count;
    }
    return zelStatusOk;
}
