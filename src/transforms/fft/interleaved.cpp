// Complex transforms of interleaved values.
#include "frame/entry.h"
#include "transforms/fft/combine.h"
#include "transforms/fft/complexRun.h"
#include "transforms/fft/init.h"
#include "transforms/fft/straight.h"

namespace {

template <bool inverse, bool scaled, class T>
void run(const T* pSrc, T* pDst, const OwnsFftPlan<T>& plan, int order, Zel8u* pBuffer)
{
    const OwnsPairSource<T> src{pSrc};
    if (order <= ownsHighestStraight<OwnsPairSource<T>>)
        return ownsStraight<inverse, T>(order, src, OwnsPairSink<T, false, scaled>{pDst, plan.scale});
    if (order >= OwnsFftTraits<T>::decomposed)
        return ownsFftCombine<inverse, scaled>(pSrc, pDst, plan, order, ownsRounded64(pBuffer));
    const OwnsPairSink<T, inverse, scaled> sink{pDst, plan.scale};
    // The destination itself is the working array where the passes can run on it at full speed.
    const bool direct = pSrc != pDst && reinterpret_cast<std::uintptr_t>(pDst) % ownsVecBytes == 0;
    const OwnsBlocks<T> work{direct ? pDst : reinterpret_cast<T*>(ownsRounded64(pBuffer))};
    ownsFftRun<inverse>(src, sink, work, plan, order);
}

template <bool inverse, class E, class T>
ZelStatus checked(const E* pSrc, E* pDst, const OwnsFftPlan<T>* pPlan, Zel32s tag, Zel8u* pBuffer)
{
    const ZelStatus status = ownsFftCheck(pPlan, tag, pBuffer, pSrc, pDst);
    if (status == zelStatusOk)
        ownsFftInterleaved<inverse>(ownsParts(pSrc), ownsParts(pDst), *pPlan, pPlan->order, pBuffer);
    return status;
}

} // namespace

template <bool inverse, class T>
void ownsFftInterleaved(const T* pSrc, T* pDst, const OwnsFftPlan<T>& plan, int order, Zel8u* pBuffer)
{
    if (ownsFftScales<inverse>(plan))
        run<inverse, true>(pSrc, pDst, plan, order, pBuffer);
    else
        run<inverse, false>(pSrc, pDst, plan, order, pBuffer);
}

template void ownsFftInterleaved<false>(const Zel32f*, Zel32f*, const OwnsFftPlan<Zel32f>&, int, Zel8u*);
template void ownsFftInterleaved<true>(const Zel32f*, Zel32f*, const OwnsFftPlan<Zel32f>&, int, Zel8u*);
template void ownsFftInterleaved<false>(const Zel64f*, Zel64f*, const OwnsFftPlan<Zel64f>&, int, Zel8u*);
template void ownsFftInterleaved<true>(const Zel64f*, Zel64f*, const OwnsFftPlan<Zel64f>&, int, Zel8u*);

ZelStatus zelsFFTFwd_CToC_32fc(const Zel32fc* pSrc, Zel32fc* pDst, const ZelsFftPlan_C_32fc* pPlan,
                               Zel8u* pBuffer)
{
    return checked<false>(pSrc, pDst, pPlan, ownsTagFft_C_32fc, pBuffer);
}

ZelStatus zelsFFTInv_CToC_32fc(const Zel32fc* pSrc, Zel32fc* pDst, const ZelsFftPlan_C_32fc* pPlan,
                               Zel8u* pBuffer)
{
    return checked<true>(pSrc, pDst, pPlan, ownsTagFft_C_32fc, pBuffer);
}

ZelStatus zelsFFTFwd_CToC_32fc_I(Zel32fc* pSrcDst, const ZelsFftPlan_C_32fc* pPlan, Zel8u* pBuffer)
{
    return zelsFFTFwd_CToC_32fc(pSrcDst, pSrcDst, pPlan, pBuffer);
}

ZelStatus zelsFFTInv_CToC_32fc_I(Zel32fc* pSrcDst, const ZelsFftPlan_C_32fc* pPlan, Zel8u* pBuffer)
{
    return zelsFFTInv_CToC_32fc(pSrcDst, pSrcDst, pPlan, pBuffer);
}

ZelStatus zelsFFTFwd_CToC_64fc(const Zel64fc* pSrc, Zel64fc* pDst, const ZelsFftPlan_C_64fc* pPlan,
                               Zel8u* pBuffer)
{
    return checked<false>(pSrc, pDst, pPlan, ownsTagFft_C_64fc, pBuffer);
}

ZelStatus zelsFFTInv_CToC_64fc(const Zel64fc* pSrc, Zel64fc* pDst, const ZelsFftPlan_C_64fc* pPlan,
                               Zel8u* pBuffer)
{
    return checked<true>(pSrc, pDst, pPlan, ownsTagFft_C_64fc, pBuffer);
}

ZelStatus zelsFFTFwd_CToC_64fc_I(Zel64fc* pSrcDst, const ZelsFftPlan_C_64fc* pPlan, Zel8u* pBuffer)
{
    return zelsFFTFwd_CToC_64fc(pSrcDst, pSrcDst, pPlan, pBuffer);
}

ZelStatus zelsFFTInv_CToC_64fc_I(Zel64fc* pSrcDst, const ZelsFftPlan_C_64fc* pPlan, Zel8u* pBuffer)
{
    return zelsFFTInv_CToC_64fc(pSrcDst, pSrcDst, pPlan, pBuffer);
}
