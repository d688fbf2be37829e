// The engines of single-rate FIR filters, and the history that passes from call to call.
#pragma once

#include "filters/firKernel.h"
#include "filters/firSr.h"
#include "frame/bulk.h"

/// The places in the work buffer, which are the same for all engines.
template <class Data>
struct OwnsFirSrBuffer {
    Data* pOld; ///< two histories
    Data* pNew;
    Data* pArea;  ///< output, or converted samples
    Zel8u* pHead; ///< samples of both sides of the block's start; a transform's block and its work buffer

    OwnsFirSrBuffer(Zel8u* pBuf, int tapsLen)
    {
        const ZelSize history = ZelSize{tapsLen - 1} * static_cast<ZelSize>(sizeof(Data));
        OwnsCarver carver(pBuf);
        pOld = carver.take<Data>(history);
        pNew = carver.take<Data>(ownsRounded64(2 * history) - history);
        pArea = carver.take<Data>(ownsFirAreaBytes);
        pHead = carver.take<Zel8u>(0);
    }
};

/// A history, or zeros where there is none.
template <class Data>
inline void ownsFirTakeHistory(const Data* pDlySrc, Data* pHistory, ZelSize h)
{
    if (pDlySrc)
        ownsCopy(pDlySrc, pHistory, h);
    else
        ownsZero(pHistory, h);
}

/// The history behind `count` samples: what is left of the former one, then the last samples.
template <class Data>
inline void ownsFirNextHistory(const Data* pOld, const Data* pSrc, ZelSize count, Data* pNew, ZelSize h)
{
    const ZelSize kept = h > count ? h - count : 0;
    ownsCopy(pOld + (h - kept), pNew, kept);
    ownsCopy(pSrc + (count - (h - kept)), pNew + kept, h - kept);
}

/// The kernel for a record: `count` outputs, the first from the samples from pSrc on.
template <class Form>
inline void ownsFirSrKernel(const OwnsFirSr& record, const typename Form::Data* pSrc,
                            typename Form::Data* pDst, ZelSize count)
{
    using T = typename Form::Part;
    constexpr int stride = OwnsElem<typename Form::Data>::parts;
    const auto* pFrom = reinterpret_cast<const T*>(pSrc);
    auto* pTo = reinterpret_cast<T*>(pDst);
    const auto* pTaps = static_cast<const T*>(record.pTaps);
    const int n = record.tapsLen;
    if constexpr (ownsIsComplex<typename Form::Taps>)
        ownsFirSum<OwnsComplexSums>(pFrom, pTo, count * stride, OwnsComplexTaps<T>{pTaps, n}, stride);
    else if (ownsIsComplex<typename Form::Data> || record.tapsMode != 0)
        ownsFirSum<OwnsRealSums>(pFrom, pTo, count * stride, OwnsReversedTaps<T>{pTaps, n}, stride);
    else
        ownsFirSum<OwnsRealSums>(pFrom, pTo, count * stride, OwnsReplicatedTaps<T>{pTaps, n}, stride);
}

/// The direct engine. The outputs that need the history are summed over a copy that joins it to the block; the others
/// straight over the block. A remainder of less than a vector goes with the former, since its vector would reach beyond
/// the block. `pHead` has room for the history and tapsLen + lanes samples.
template <class Form>
void ownsFirSrDirect(const OwnsFirSr& record, const typename Form::Data* pSrc, typename Form::Data* pDst,
                     ZelSize count, const typename Form::Data* pHistory, typename Form::Data* pHead)
{
    constexpr int lanes = ownsLanes<typename Form::Data>;
    const ZelSize h = record.tapsLen - 1;
    const ZelSize joined = count < h + lanes ? count : h;
    if (joined > 0) {
        ownsCopy(pHistory, pHead, h);
        ownsCopy(pSrc, pHead + h, joined);
        ownsZero(pHead + h + joined, lanes - 1);
        ownsFirSrKernel<Form>(record, pHead, pDst, joined);
    }
    if (joined < count)
        ownsFirSrKernel<Form>(record, pSrc + (joined - h), pDst + joined, count - joined);
}
