// Transforms of real signals, in the layouts CCS, Pack and Perm.
//
// The half-length complex transform and the recombination produce Perm; the other layouts are moves of it.
#include "frame/bulk.h"
#include "transforms/fft/realRun.h"

namespace {

constexpr auto toPerm = [](auto*, int) {};

// Order 0 and 1 are alike in Pack and Perm.
constexpr auto toPack = []<class T>(T* pDst, int order) {
    if (order < 2)
        return;
    const ZelSize length = ZelSize{1} << order;
    const T top = ownsGet(pDst + 1);
    ownsMoveBytes(pDst + 2, pDst + 1, (length - 2) * static_cast<ZelSize>(sizeof(T)));
    ownsPut(pDst + length - 1, top);
};

constexpr auto toCcs = []<class T>(T* pDst, int order) {
    const ZelSize length = ZelSize{1} << order;
    if (order > 0) {
        ownsPut(pDst + length, ownsGet(pDst + 1));
        ownsPut(pDst + length + 1, 0);
    }
    ownsPut(pDst + 1, 0);
};

template <auto toLayout, class T>
ZelStatus forward(const T* pSrc, T* pDst, const OwnsFftPlan<T>* pPlan, Zel32s tag, Zel8u* pBuffer)
{
    if (const ZelStatus status = ownsFftCheck(pPlan, tag, pBuffer, pSrc, pDst); status != zelStatusOk)
        return status;
    const int order = pPlan->order;
    if (order > OwnsFftTraits<T>::straightReal) {
        ownsFftInterleaved<false>(pSrc, pDst, *pPlan, order - 1, pBuffer);
        const T a = ownsGet(pDst);
        const T b = ownsGet(pDst + 1);
        ownsPut(pDst, a + b);
        ownsPut(pDst + 1, a - b);
        ownsRecombineByTable<false>(pDst, pDst, *pPlan);
    } else if (pPlan->scaleFwd != 0) {
        ownsRealStraight<false, true>(order, pSrc, pDst, pPlan->scale);
    } else {
        ownsRealStraight<false, false>(order, pSrc, pDst, pPlan->scale);
    }
    toLayout(pDst, order);
    return zelStatusOk;
}

} // namespace

ZelStatus zelsFFTFwd_RToCCS_32f(const Zel32f* pSrc, Zel32f* pDst, const ZelsFftPlan_R_32f* pPlan,
                                Zel8u* pBuffer)
{
    return forward<toCcs>(pSrc, pDst, pPlan, ownsTagFft_R_32f, pBuffer);
}

ZelStatus zelsFFTFwd_RToCCS_32f_I(Zel32f* pSrcDst, const ZelsFftPlan_R_32f* pPlan, Zel8u* pBuffer)
{
    return zelsFFTFwd_RToCCS_32f(pSrcDst, pSrcDst, pPlan, pBuffer);
}

ZelStatus zelsFFTFwd_RToPack_32f(const Zel32f* pSrc, Zel32f* pDst, const ZelsFftPlan_R_32f* pPlan,
                                 Zel8u* pBuffer)
{
    return forward<toPack>(pSrc, pDst, pPlan, ownsTagFft_R_32f, pBuffer);
}

ZelStatus zelsFFTFwd_RToPack_32f_I(Zel32f* pSrcDst, const ZelsFftPlan_R_32f* pPlan, Zel8u* pBuffer)
{
    return zelsFFTFwd_RToPack_32f(pSrcDst, pSrcDst, pPlan, pBuffer);
}

ZelStatus zelsFFTFwd_RToPerm_32f(const Zel32f* pSrc, Zel32f* pDst, const ZelsFftPlan_R_32f* pPlan,
                                 Zel8u* pBuffer)
{
    return forward<toPerm>(pSrc, pDst, pPlan, ownsTagFft_R_32f, pBuffer);
}

ZelStatus zelsFFTFwd_RToPerm_32f_I(Zel32f* pSrcDst, const ZelsFftPlan_R_32f* pPlan, Zel8u* pBuffer)
{
    return zelsFFTFwd_RToPerm_32f(pSrcDst, pSrcDst, pPlan, pBuffer);
}

ZelStatus zelsFFTFwd_RToCCS_64f(const Zel64f* pSrc, Zel64f* pDst, const ZelsFftPlan_R_64f* pPlan,
                                Zel8u* pBuffer)
{
    return forward<toCcs>(pSrc, pDst, pPlan, ownsTagFft_R_64f, pBuffer);
}

ZelStatus zelsFFTFwd_RToCCS_64f_I(Zel64f* pSrcDst, const ZelsFftPlan_R_64f* pPlan, Zel8u* pBuffer)
{
    return zelsFFTFwd_RToCCS_64f(pSrcDst, pSrcDst, pPlan, pBuffer);
}

ZelStatus zelsFFTFwd_RToPack_64f(const Zel64f* pSrc, Zel64f* pDst, const ZelsFftPlan_R_64f* pPlan,
                                 Zel8u* pBuffer)
{
    return forward<toPack>(pSrc, pDst, pPlan, ownsTagFft_R_64f, pBuffer);
}

ZelStatus zelsFFTFwd_RToPack_64f_I(Zel64f* pSrcDst, const ZelsFftPlan_R_64f* pPlan, Zel8u* pBuffer)
{
    return zelsFFTFwd_RToPack_64f(pSrcDst, pSrcDst, pPlan, pBuffer);
}

ZelStatus zelsFFTFwd_RToPerm_64f(const Zel64f* pSrc, Zel64f* pDst, const ZelsFftPlan_R_64f* pPlan,
                                 Zel8u* pBuffer)
{
    return forward<toPerm>(pSrc, pDst, pPlan, ownsTagFft_R_64f, pBuffer);
}

ZelStatus zelsFFTFwd_RToPerm_64f_I(Zel64f* pSrcDst, const ZelsFftPlan_R_64f* pPlan, Zel8u* pBuffer)
{
    return zelsFFTFwd_RToPerm_64f(pSrcDst, pSrcDst, pPlan, pBuffer);
}
