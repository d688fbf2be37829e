// The steps that the size queries and Init of all plans share.
#pragma once

#include "frame/bulk.h"
#include "frame/carve.h"
#include "transforms/fft/tables.h"

#include <cmath>

inline bool ownsFftFlagGood(int flag)
{
    return flag == zelFftScaleFwd || flag == zelFftScaleInv || flag == zelFftScaleSqrt ||
           flag == zelFftScaleNone;
}

/// A size query. `layoutOf` gives the layout of an order, `highest` is the last that there is. An order that
/// no plan has is reported ahead of all else, one that this plan has not is reported last, on purpose.
template <class LayoutOf>
ZelStatus ownsFftGetSize(int order, int flag, int highest, LayoutOf layoutOf, int* pPlanSize, int* pInitSize,
                         int* pWorkSize)
{
    if (order < 0 || order > 30)
        return zelErrFftOrder;
    if (!pPlanSize || !pInitSize || !pWorkSize)
        return zelErrNullPtr;
    if (!ownsFftFlagGood(flag))
        return zelErrFftFlag;
    if (order > highest)
        return zelErrFftOrder;
    const OwnsFftLayout layout = layoutOf(order);
    *pPlanSize = static_cast<int>(layout.planSize());
    *pInitSize = static_cast<int>(layout.initSize());
    *pWorkSize = static_cast<int>(layout.workSize());
    return zelStatusOk;
}

/// Opens a plan: the tests up to that of the flag and the fields that need no tables. `pPlan` receives the
/// record.
template <class T>
ZelStatus ownsFftOpen(const void* ppPlan, int order, int highest, int flag, ZelHintAlgorithm hint, Zel32s tag,
                      Zel8u* pPlanMem, OwnsFftPlan<T>*& pPlan)
{
    if (!ppPlan)
        return zelErrNullPtr;
    if (order < 0 || order > highest)
        return zelErrFftOrder;
    if (!pPlanMem)
        return zelErrNullPtr;
    pPlan = reinterpret_cast<OwnsFftPlan<T>*>(ownsRounded64(pPlanMem));
    ownsZero(pPlan, 1);
    pPlan->order = order;
    pPlan->hint = hint;
    if (!ownsFftFlagGood(flag))
        return zelErrFftFlag; // the tag stays 0: no run function takes such a plan
    pPlan->tag = tag;
    const auto length = static_cast<T>(ZelSize{1} << order);
    if (flag == zelFftScaleSqrt)
        pPlan->scale = static_cast<T>(1.0 / std::sqrt(static_cast<Zel64f>(length)));
    else if (flag != zelFftScaleNone)
        pPlan->scale = 1 / length;
    pPlan->scaleFwd = flag == zelFftScaleFwd || flag == zelFftScaleSqrt;
    pPlan->scaleInv = flag == zelFftScaleInv || flag == zelFftScaleSqrt;
    return zelStatusOk;
}

/// The part of a plan that serves a complex transform of this order, which is that of the plan or one less.
template <class T>
void ownsFftBuildComplex(OwnsFftPlan<T>& plan, int order, const OwnsFftLayout& layout, OwnsSines<T> sines,
                         OwnsCarver& carver)
{
    if (layout.twiddles == 0)
        return;
    auto* pBitRev = carver.take<Zel32s>(layout.bitRev);
    auto* pTwiddles = carver.take<T>(layout.twiddles);
    plan.bitRev = pBitRev;
    plan.twiddles = pTwiddles;
    plan.workBytes = static_cast<Zel32s>(layout.work);
    if (order < OwnsFftTraits<T>::decomposed) {
        constexpr int line = sizeof(T) == 4 ? 3 : 2;
        ownsFftBitRevTable(pBitRev, order - 3 - line, line);
        ownsFftTwiddles(pTwiddles, order, sines);
        return;
    }
    const OwnsFftShape shape = ownsFftShape<T>(order);
    constexpr int tile = 2 * OwnsFftTraits<T>::tileOrder;
    ownsFftBitRevTable(pBitRev, order - tile, tile - 3);
    ownsFftTwiddles(pTwiddles, shape.leaf, sines);
    int done = order;
    for (int level = 0; level < shape.levels; level++) {
        T* pTable = carver.take<T>(layout.levels[level]);
        const int inner = shape.levels - 1 - level;
        ownsFftColumnTable(pTable, done, shape.columns[inner], shape.widthOrder[inner], sines);
        plan.levelTwiddles[level] = pTable;
        done -= shape.columns[inner];
    }
}
