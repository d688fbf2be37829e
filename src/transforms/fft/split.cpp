// Complex transforms of real and imaginary parts in two arrays.
//
// The inverse transform is the forward one with the parts exchanged, and here that is a matter of which array
// is called which.
#include "transforms/fft/combine.h"
#include "transforms/fft/complexRun.h"
#include "transforms/fft/init.h"
#include "transforms/fft/straight.h"

namespace {

// Pointers one by one, which stay in registers: a record of three goes through memory, and is waited for.
template <bool scaled, class T>
void run(const T* pSrcRe, const T* pSrcIm, T* pDstRe, T* pDstIm, const OwnsFftPlan<T>& plan, Zel8u* pBuffer)
{
    const OwnsSplitSource<T> src{pSrcRe, pSrcIm};
    const OwnsSplitSink<T, scaled> sink{pDstRe, pDstIm, plan.scale};
    if (plan.order <= ownsFftStraight)
        return ownsStraight<false, T>(plan.order, src, sink);
    Zel8u* const pWork = ownsRounded64(pBuffer);
    if (plan.order >= OwnsFftTraits<T>::decomposed)
        return ownsFftCombineSplit(src, sink, plan, pWork);
    ownsFftRun<false>(src, sink, OwnsBlocks<T>{reinterpret_cast<T*>(pWork)}, plan, plan.order);
}

template <bool inverse, class T>
ZelStatus checked(const T* pSrcRe, const T* pSrcIm, T* pDstRe, T* pDstIm, const OwnsFftPlan<T>* pPlan,
                  Zel32s tag, Zel8u* pBuffer)
{
    if (const ZelStatus status = ownsFftCheck(pPlan, tag, pBuffer, pSrcRe, pSrcIm, pDstRe, pDstIm);
        status != zelStatusOk)
        return status;
    const auto transform = ownsFftScales<inverse>(*pPlan) ? run<true, T> : run<false, T>;
    if (inverse)
        transform(pSrcIm, pSrcRe, pDstIm, pDstRe, *pPlan, pBuffer);
    else
        transform(pSrcRe, pSrcIm, pDstRe, pDstIm, *pPlan, pBuffer);
    return zelStatusOk;
}

} // namespace

ZelStatus zelsFFTFwd_CToC_32f(const Zel32f* pSrcRe, const Zel32f* pSrcIm, Zel32f* pDstRe, Zel32f* pDstIm,
                              const ZelsFftPlan_C_32f* pPlan, Zel8u* pBuffer)
{
    return checked<false>(pSrcRe, pSrcIm, pDstRe, pDstIm, pPlan, ownsTagFft_C_32f, pBuffer);
}

ZelStatus zelsFFTFwd_CToC_32f_I(Zel32f* pSrcDstRe, Zel32f* pSrcDstIm, const ZelsFftPlan_C_32f* pPlan,
                                Zel8u* pBuffer)
{
    return zelsFFTFwd_CToC_32f(pSrcDstRe, pSrcDstIm, pSrcDstRe, pSrcDstIm, pPlan, pBuffer);
}

ZelStatus zelsFFTInv_CToC_32f(const Zel32f* pSrcRe, const Zel32f* pSrcIm, Zel32f* pDstRe, Zel32f* pDstIm,
                              const ZelsFftPlan_C_32f* pPlan, Zel8u* pBuffer)
{
    return checked<true>(pSrcRe, pSrcIm, pDstRe, pDstIm, pPlan, ownsTagFft_C_32f, pBuffer);
}

ZelStatus zelsFFTInv_CToC_32f_I(Zel32f* pSrcDstRe, Zel32f* pSrcDstIm, const ZelsFftPlan_C_32f* pPlan,
                                Zel8u* pBuffer)
{
    return zelsFFTInv_CToC_32f(pSrcDstRe, pSrcDstIm, pSrcDstRe, pSrcDstIm, pPlan, pBuffer);
}

ZelStatus zelsFFTFwd_CToC_64f(const Zel64f* pSrcRe, const Zel64f* pSrcIm, Zel64f* pDstRe, Zel64f* pDstIm,
                              const ZelsFftPlan_C_64f* pPlan, Zel8u* pBuffer)
{
    return checked<false>(pSrcRe, pSrcIm, pDstRe, pDstIm, pPlan, ownsTagFft_C_64f, pBuffer);
}

ZelStatus zelsFFTFwd_CToC_64f_I(Zel64f* pSrcDstRe, Zel64f* pSrcDstIm, const ZelsFftPlan_C_64f* pPlan,
                                Zel8u* pBuffer)
{
    return zelsFFTFwd_CToC_64f(pSrcDstRe, pSrcDstIm, pSrcDstRe, pSrcDstIm, pPlan, pBuffer);
}

ZelStatus zelsFFTInv_CToC_64f(const Zel64f* pSrcRe, const Zel64f* pSrcIm, Zel64f* pDstRe, Zel64f* pDstIm,
                              const ZelsFftPlan_C_64f* pPlan, Zel8u* pBuffer)
{
    return checked<true>(pSrcRe, pSrcIm, pDstRe, pDstIm, pPlan, ownsTagFft_C_64f, pBuffer);
}

ZelStatus zelsFFTInv_CToC_64f_I(Zel64f* pSrcDstRe, Zel64f* pSrcDstIm, const ZelsFftPlan_C_64f* pPlan,
                                Zel8u* pBuffer)
{
    return zelsFFTInv_CToC_64f(pSrcDstRe, pSrcDstIm, pSrcDstRe, pSrcDstIm, pPlan, pBuffer);
}
