// Complex transforms of any order, as the complex and the real functions run them.
#pragma once

#include "transforms/fft/plan.h"

/// The choice of what a run needs to know: the direction, and whether the plan scales it.
template <bool inverse, class T>
inline bool ownsFftScales(const OwnsFftPlan<T>& plan)
{
    return (inverse ? plan.scaleInv : plan.scaleFwd) != 0;
}

/// A transform of interleaved values, of the plan's tables and scale and of the given order (that of the
/// plan, or one less in a real plan). pDst may be pSrc.
template <bool inverse, class T>
void ownsFftInterleaved(const T* pSrc, T* pDst, const OwnsFftPlan<T>& plan, int order, Zel8u* pBuffer);

/// The tests of a run call, in their order: the plan, its tag, the data, the buffer.
template <class T, class... P>
inline ZelStatus ownsFftCheck(const OwnsFftPlan<T>* pPlan, Zel32s tag, const Zel8u* pBuffer, const P*... p)
{
    if (!pPlan)
        return zelErrNullPtr;
    if (pPlan->tag != tag)
        return zelErrContextMatch;
    if ((... || !p) || (!pBuffer && pPlan->workBytes > 0))
        return zelErrNullPtr;
    return zelStatusOk;
}
