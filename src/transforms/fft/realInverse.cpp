// Inverse transforms to real signals, from the layouts CCS, Pack and Perm.
#include "frame/bulk.h"
#include "transforms/fft/realRun.h"

namespace {

// A layout: where bin N/2 stands, and how many elements before its Perm place bin 1 stands.
enum Layout { ccs, pack, perm };

// The spectrum in Perm places. Order 0 has bin 0 alone.
template <Layout layout, class T>
void toPerm(const T* pSrc, T* pDst, int order)
{
    const ZelSize length = ZelSize{1} << order;
    if (order == 0) {
        ownsPut(pDst, ownsGet(pSrc));
        return;
    }
    const T bottom = ownsGet(pSrc);
    const T top = ownsGet(pSrc + (layout == ccs ? length : layout == pack ? length - 1 : 1));
    if (layout == pack || pSrc != pDst)
        ownsMoveBytes(pSrc + (layout == pack ? 1 : 2), pDst + 2,
                      (length - 2) * static_cast<ZelSize>(sizeof(T)));
    ownsPut(pDst, bottom);
    ownsPut(pDst + 1, top);
}

template <Layout layout, class T>
ZelStatus inverse(const T* pSrc, T* pDst, const OwnsFftPlan<T>* pPlan, Zel32s tag, Zel8u* pBuffer)
{
    if (const ZelStatus status = ownsFftCheck(pPlan, tag, pBuffer, pSrc, pDst); status != zelStatusOk)
        return status;
    const int order = pPlan->order;
    const T* pPerm = pSrc;
    if (layout != perm) {
        toPerm<layout>(pSrc, pDst, order);
        pPerm = pDst;
    }
    if (order > OwnsFftTraits<T>::straightReal) {
        const T a = ownsGet(pPerm);
        const T b = ownsGet(pPerm + 1);
        ownsRecombineByTable<true>(pPerm, pDst, *pPlan);
        ownsPut(pDst, a + b);
        ownsPut(pDst + 1, a - b);
        ownsFftInterleaved<true>(pDst, pDst, *pPlan, order - 1, pBuffer);
    } else if (pPlan->scaleInv != 0) {
        ownsRealStraight<true, true>(order, pPerm, pDst, pPlan->scale);
    } else {
        ownsRealStraight<true, false>(order, pPerm, pDst, pPlan->scale);
    }
    return zelStatusOk;
}

} // namespace

ZelStatus zelsFFTInv_CCSToR_32f(const Zel32f* pSrc, Zel32f* pDst, const ZelsFftPlan_R_32f* pPlan,
                                Zel8u* pBuffer)
{
    return inverse<ccs>(pSrc, pDst, pPlan, ownsTagFft_R_32f, pBuffer);
}

ZelStatus zelsFFTInv_CCSToR_32f_I(Zel32f* pSrcDst, const ZelsFftPlan_R_32f* pPlan, Zel8u* pBuffer)
{
    return zelsFFTInv_CCSToR_32f(pSrcDst, pSrcDst, pPlan, pBuffer);
}

ZelStatus zelsFFTInv_PackToR_32f(const Zel32f* pSrc, Zel32f* pDst, const ZelsFftPlan_R_32f* pPlan,
                                 Zel8u* pBuffer)
{
    return inverse<pack>(pSrc, pDst, pPlan, ownsTagFft_R_32f, pBuffer);
}

ZelStatus zelsFFTInv_PackToR_32f_I(Zel32f* pSrcDst, const ZelsFftPlan_R_32f* pPlan, Zel8u* pBuffer)
{
    return zelsFFTInv_PackToR_32f(pSrcDst, pSrcDst, pPlan, pBuffer);
}

ZelStatus zelsFFTInv_PermToR_32f(const Zel32f* pSrc, Zel32f* pDst, const ZelsFftPlan_R_32f* pPlan,
                                 Zel8u* pBuffer)
{
    return inverse<perm>(pSrc, pDst, pPlan, ownsTagFft_R_32f, pBuffer);
}

ZelStatus zelsFFTInv_PermToR_32f_I(Zel32f* pSrcDst, const ZelsFftPlan_R_32f* pPlan, Zel8u* pBuffer)
{
    return zelsFFTInv_PermToR_32f(pSrcDst, pSrcDst, pPlan, pBuffer);
}

ZelStatus zelsFFTInv_CCSToR_64f(const Zel64f* pSrc, Zel64f* pDst, const ZelsFftPlan_R_64f* pPlan,
                                Zel8u* pBuffer)
{
    return inverse<ccs>(pSrc, pDst, pPlan, ownsTagFft_R_64f, pBuffer);
}

ZelStatus zelsFFTInv_CCSToR_64f_I(Zel64f* pSrcDst, const ZelsFftPlan_R_64f* pPlan, Zel8u* pBuffer)
{
    return zelsFFTInv_CCSToR_64f(pSrcDst, pSrcDst, pPlan, pBuffer);
}

ZelStatus zelsFFTInv_PackToR_64f(const Zel64f* pSrc, Zel64f* pDst, const ZelsFftPlan_R_64f* pPlan,
                                 Zel8u* pBuffer)
{
    return inverse<pack>(pSrc, pDst, pPlan, ownsTagFft_R_64f, pBuffer);
}

ZelStatus zelsFFTInv_PackToR_64f_I(Zel64f* pSrcDst, const ZelsFftPlan_R_64f* pPlan, Zel8u* pBuffer)
{
    return zelsFFTInv_PackToR_64f(pSrcDst, pSrcDst, pPlan, pBuffer);
}

ZelStatus zelsFFTInv_PermToR_64f(const Zel64f* pSrc, Zel64f* pDst, const ZelsFftPlan_R_64f* pPlan,
                                 Zel8u* pBuffer)
{
    return inverse<perm>(pSrc, pDst, pPlan, ownsTagFft_R_64f, pBuffer);
}

ZelStatus zelsFFTInv_PermToR_64f_I(Zel64f* pSrcDst, const ZelsFftPlan_R_64f* pPlan, Zel8u* pBuffer)
{
    return zelsFFTInv_PermToR_64f(pSrcDst, pSrcDst, pPlan, pBuffer);
}
