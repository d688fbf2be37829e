// Plans of complex transforms.
#include "transforms/fft/init.h"

namespace {

template <class T>
ZelStatus sizes(int order, int flag, int* pPlanSize, int* pInitSize, int* pWorkSize)
{
    return ownsFftGetSize(order, flag, OwnsFftTraits<T>::highest, ownsFftLayoutComplex<T>, pPlanSize,
                          pInitSize, pWorkSize);
}

template <class T, class Plan>
ZelStatus build(Plan** ppPlan, int order, int flag, ZelHintAlgorithm hint, Zel32s tag, Zel8u* pPlanMem,
                Zel8u* pInitMem)
{
    OwnsFftPlan<T>* pPlan = nullptr;
    if (const ZelStatus status =
            ownsFftOpen(ppPlan, order, OwnsFftTraits<T>::highest, flag, hint, tag, pPlanMem, pPlan);
        status != zelStatusOk)
        return status;
    const OwnsFftLayout layout = ownsFftLayoutComplex<T>(order);
    if (layout.init != 0 && !pInitMem)
        return zelErrNullPtr;
    if (layout.tables()) {
        const OwnsSines<T> sines = ownsFftSineTable<T>(order, ownsRounded64(pInitMem));
        OwnsCarver carver(ownsFftTables(pPlan));
        ownsFftBuildComplex(*pPlan, order, layout, sines, carver);
    }
    *ppPlan = static_cast<Plan*>(pPlan);
    return zelStatusOk;
}

} // namespace

ZelStatus zelsFFTGetSize_C_32fc(int order, int flag, ZelHintAlgorithm, int* pPlanSize, int* pInitSize,
                                int* pWorkSize)
{
    return sizes<Zel32f>(order, flag, pPlanSize, pInitSize, pWorkSize);
}

ZelStatus zelsFFTGetSize_C_32f(int order, int flag, ZelHintAlgorithm, int* pPlanSize, int* pInitSize,
                               int* pWorkSize)
{
    return sizes<Zel32f>(order, flag, pPlanSize, pInitSize, pWorkSize);
}

ZelStatus zelsFFTGetSize_C_64fc(int order, int flag, ZelHintAlgorithm, int* pPlanSize, int* pInitSize,
                                int* pWorkSize)
{
    return sizes<Zel64f>(order, flag, pPlanSize, pInitSize, pWorkSize);
}

ZelStatus zelsFFTGetSize_C_64f(int order, int flag, ZelHintAlgorithm, int* pPlanSize, int* pInitSize,
                               int* pWorkSize)
{
    return sizes<Zel64f>(order, flag, pPlanSize, pInitSize, pWorkSize);
}

ZelStatus zelsFFTInit_C_32fc(ZelsFftPlan_C_32fc** ppPlan, int order, int flag, ZelHintAlgorithm hint,
                             Zel8u* pPlanMem, Zel8u* pInitMem)
{
    return build<Zel32f>(ppPlan, order, flag, hint, ownsTagFft_C_32fc, pPlanMem, pInitMem);
}

ZelStatus zelsFFTInit_C_32f(ZelsFftPlan_C_32f** ppPlan, int order, int flag, ZelHintAlgorithm hint,
                            Zel8u* pPlanMem, Zel8u* pInitMem)
{
    return build<Zel32f>(ppPlan, order, flag, hint, ownsTagFft_C_32f, pPlanMem, pInitMem);
}

ZelStatus zelsFFTInit_C_64fc(ZelsFftPlan_C_64fc** ppPlan, int order, int flag, ZelHintAlgorithm hint,
                             Zel8u* pPlanMem, Zel8u* pInitMem)
{
    return build<Zel64f>(ppPlan, order, flag, hint, ownsTagFft_C_64fc, pPlanMem, pInitMem);
}

ZelStatus zelsFFTInit_C_64f(ZelsFftPlan_C_64f** ppPlan, int order, int flag, ZelHintAlgorithm hint,
                            Zel8u* pPlanMem, Zel8u* pInitMem)
{
    return build<Zel64f>(ppPlan, order, flag, hint, ownsTagFft_C_64f, pPlanMem, pInitMem);
}
