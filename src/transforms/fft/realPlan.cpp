// Plans of real transforms.
#include "transforms/fft/init.h"

namespace {

template <class T>
ZelStatus sizes(int order, int flag, int* pPlanSize, int* pInitSize, int* pWorkSize)
{
    return ownsFftGetSize(order, flag, OwnsFftTraits<T>::highest + 1, ownsFftLayoutReal<T>, pPlanSize,
                          pInitSize, pWorkSize);
}

template <class T, class Plan>
ZelStatus build(Plan** ppPlan, int order, int flag, ZelHintAlgorithm hint, Zel32s tag, Zel8u* pPlanMem,
                Zel8u* pInitMem)
{
    OwnsFftPlan<T>* pPlan = nullptr;
    if (const ZelStatus status =
            ownsFftOpen(ppPlan, order, OwnsFftTraits<T>::highest + 1, flag, hint, tag, pPlanMem, pPlan);
        status != zelStatusOk)
        return status;
    const OwnsFftLayout layout = ownsFftLayoutReal<T>(order);
    if (layout.init != 0 && !pInitMem)
        return zelErrNullPtr;
    if (layout.tables()) {
        const OwnsSines<T> sines = ownsFftSineTable<T>(order, ownsRounded64(pInitMem));
        OwnsCarver carver(ownsFftTables(pPlan));
        ownsFftBuildComplex(*pPlan, order - 1, layout, sines, carver);
        T* pForward = carver.take<T>(layout.recomb);
        T* pInverse = carver.take<T>(layout.recomb);
        ownsFftRecombFwd(pForward, order, sines);
        ownsFftRecombInv(pInverse, order, sines);
        pPlan->recombFwd = pForward;
        pPlan->recombInv = pInverse;
    }
    *ppPlan = static_cast<Plan*>(pPlan);
    return zelStatusOk;
}

} // namespace

ZelStatus zelsFFTGetSize_R_32f(int order, int flag, ZelHintAlgorithm, int* pPlanSize, int* pInitSize,
                               int* pWorkSize)
{
    return sizes<Zel32f>(order, flag, pPlanSize, pInitSize, pWorkSize);
}

ZelStatus zelsFFTGetSize_R_64f(int order, int flag, ZelHintAlgorithm, int* pPlanSize, int* pInitSize,
                               int* pWorkSize)
{
    return sizes<Zel64f>(order, flag, pPlanSize, pInitSize, pWorkSize);
}

ZelStatus zelsFFTInit_R_32f(ZelsFftPlan_R_32f** ppPlan, int order, int flag, ZelHintAlgorithm hint,
                            Zel8u* pPlanMem, Zel8u* pInitMem)
{
    return build<Zel32f>(ppPlan, order, flag, hint, ownsTagFft_R_32f, pPlanMem, pInitMem);
}

ZelStatus zelsFFTInit_R_64f(ZelsFftPlan_R_64f** ppPlan, int order, int flag, ZelHintAlgorithm hint,
                            Zel8u* pPlanMem, Zel8u* pInitMem)
{
    return build<Zel64f>(ppPlan, order, flag, hint, ownsTagFft_R_64f, pPlanMem, pInitMem);
}
