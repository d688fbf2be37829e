// Single-rate FIR filters over 16-bit samples: through floats, block by block, always by the direct engine.
#include "filters/firSrRun.h"

namespace {

// Real and imaginary parts are converted alike. Counts of 0 stand for the history of a single tap.

template <class S, class Data>
void toFloats(const S* pSrc, Data* pDst, ZelSize count)
{
    if (count > 0)
        zelsConvert_16s32f(reinterpret_cast<const Zel16s*>(pSrc), reinterpret_cast<Zel32f*>(pDst),
                           static_cast<int>(count * OwnsElem<S>::parts));
}

template <class Data, class S>
void toIntegers(const Data* pSrc, S* pDst, ZelSize count)
{
    if (count > 0)
        zelsConvert_32f16s_Sfs(reinterpret_cast<const Zel32f*>(pSrc), reinterpret_cast<Zel16s*>(pDst),
                               static_cast<int>(count * OwnsElem<S>::parts), zelRndNear, 0);
}

template <class Form, class S, class Data = typename Form::Data>
ZelStatus run(const S* pSrc, S* pDst, int numIters, ZelsFirSrState* pSpec, const S* pDlySrc, S* pDlyDst,
              Zel8u* pBuf)
{
    if (const ZelStatus status = ownsCheck(numIters, pSpec, pSrc, pDst, pBuf); status != zelStatusOk)
        return status;
    const OwnsFirSr& record = *ownsFirSr(pSpec);
    const ZelSize h = record.tapsLen - 1;
    OwnsFirSrBuffer<Data> buffer(pBuf, record.tapsLen);
    // Each block is read before its result is written, so that source, destination and histories may be one array.
    if (pDlySrc)
        toFloats(pDlySrc, buffer.pOld, h);
    else
        ownsZero(buffer.pOld, h);
    constexpr ZelSize chunk = Form::chunk / 2;
    Data* const pSamples = buffer.pArea;
    Data* const pSums = pSamples + chunk;
    for (ZelSize done = 0; done < numIters; done += chunk) {
        const ZelSize count = numIters - done < chunk ? numIters - done : chunk;
        toFloats(pSrc + done, pSamples, count);
        ownsFirNextHistory(buffer.pOld, pSamples, count, buffer.pNew, h);
        ownsFirSrDirect<Form>(record, pSamples, pSums, count, buffer.pOld,
                              reinterpret_cast<Data*>(buffer.pHead));
        toIntegers(pSums, pDst + done, count);
        Data* const pOld = buffer.pOld;
        buffer.pOld = buffer.pNew;
        buffer.pNew = pOld;
    }
    if (pDlyDst)
        toIntegers(buffer.pOld, pDlyDst, h);
    return zelStatusOk;
}

} // namespace

ZelStatus zelsFIRSR_16s(const Zel16s* pSrc, Zel16s* pDst, int numIters, ZelsFirSrState* pSpec,
                        const Zel16s* pDlySrc, Zel16s* pDlyDst, Zel8u* pBuf)
{
    return run<OwnsFirSr_32f>(pSrc, pDst, numIters, pSpec, pDlySrc, pDlyDst, pBuf);
}

ZelStatus zelsFIRSR_16sc(const Zel16sc* pSrc, Zel16sc* pDst, int numIters, ZelsFirSrState* pSpec,
                         const Zel16sc* pDlySrc, Zel16sc* pDlyDst, Zel8u* pBuf)
{
    return run<OwnsFirSr_32fc>(pSrc, pDst, numIters, pSpec, pDlySrc, pDlyDst, pBuf);
}
