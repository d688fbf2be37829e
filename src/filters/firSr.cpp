// Single-rate FIR filters over floats: the engine of a call, out of place and in place.
#include "filters/firSrRun.h"

namespace {

// Overlap-save. Each transform takes L elements and gives the last v = L - h of them; the first h have wrapped around. The
// first transform takes the history, the last one what is left of the block. Those between read the block where it lies
// and write the destination where it lies, wrapped elements and all: the walk goes from the end to the start, so that the
// transform before puts the right ones in their place.
template <class E>
class OverlapSave {
    using Fft = OwnsFirFft<E>;

  public:
    OverlapSave(const OwnsFirSr& record, Zel8u* pBuf)
        : pPlan(static_cast<const typename Fft::Plan*>(record.pFftPlan)),
          pTaps(static_cast<const E*>(record.pFftTaps)), length(record.fftLen),
          pBlock(reinterpret_cast<E*>(pBuf)), pWork(pBuf + ZelSize{length} * static_cast<ZelSize>(sizeof(E)))
    {
    }

    void run(const E* pSrc, E* pDst, ZelSize count, const E* pHistory, ZelSize h)
    {
        const ZelSize v = length - h;
        const ZelSize first = count < v ? count : v;
        const ZelSize rest = (count - first) % v;
        ZelSize at = count - rest;
        if (rest > 0) {
            join(pSrc + (at - h), h, pSrc + at, rest);
            if (!filter(pBlock, pBlock))
                return;
            ownsCopy(pBlock + h, pDst + at, rest);
        }
        while (at > first) {
            at -= v;
            if (!filter(pSrc + (at - h), pDst + (at - h)))
                return;
        }
        join(pHistory, h, pSrc, first);
        if (filter(pBlock, pBlock))
            ownsCopy(pBlock + h, pDst, first);
    }

  private:
    const typename Fft::Plan* pPlan;
    const E* pTaps;
    int length;
    E* pBlock;
    Zel8u* pWork;

    void join(const E* pOld, ZelSize h, const E* pNew, ZelSize count)
    {
        ownsCopy(pOld, pBlock, h);
        ownsCopy(pNew, pBlock + h, count);
        ownsZero(pBlock + h + count, length - h - count);
    }

    // The plan was made with the record, so that nothing can fail; if it did, the call would end there.
    bool filter(const E* pSrc, E* pDst)
    {
        return Fft::forward(pSrc, pBlock, pPlan, pWork) == zelStatusOk &&
               Fft::multiply(pTaps, pBlock, length) == zelStatusOk &&
               Fft::inverse(pBlock, pDst, pPlan, pWork) == zelStatusOk;
    }
};

enum class Engine { direct, fft };

template <class Form>
Engine engineFor(const OwnsFirSr& record, int numIters)
{
    const bool fft =
        record.algType == zelAlgFFT ||
        (record.algType == zelAlgAuto && record.tapsLen >= Form::fromTaps && numIters >= Form::fromIters);
    return fft ? Engine::fft : Engine::direct;
}

template <class Form, class Data = typename Form::Data>
void filterBlock(Engine engine, const OwnsFirSr& record, const Data* pSrc, Data* pDst, ZelSize count,
                 const Data* pHistory, Zel8u* pHead)
{
    using Element = typename Form::Element;
    constexpr ZelSize per = Form::perSample;
    if (engine == Engine::direct)
        ownsFirSrDirect<Form>(record, pSrc, pDst, count, pHistory, reinterpret_cast<Data*>(pHead));
    else
        OverlapSave<Element>(record, pHead)
            .run(reinterpret_cast<const Element*>(pSrc), reinterpret_cast<Element*>(pDst), per * count,
                 reinterpret_cast<const Element*>(pHistory), per * (record.tapsLen - 1));
}

// In place, or with outputs where the history lies: by chunks into the output area, so that this is no larger for a
// longer block.
template <class Form, class Data = typename Form::Data>
void filterInPlace(Engine engine, const OwnsFirSr& record, const Data* pSrc, Data* pDst, int numIters,
                   const Data* pDlySrc, Data* pDlyDst, OwnsFirSrBuffer<Data> buffer)
{
    const ZelSize h = record.tapsLen - 1;
    ownsFirTakeHistory(pDlySrc, buffer.pOld, h);
    for (ZelSize done = 0; done < numIters; done += Form::chunk) {
        const ZelSize count = numIters - done < Form::chunk ? numIters - done : Form::chunk;
        ownsFirNextHistory(buffer.pOld, pSrc + done, count, buffer.pNew, h);
        filterBlock<Form>(engine, record, pSrc + done, buffer.pArea, count, buffer.pOld, buffer.pHead);
        ownsCopy(buffer.pArea, pDst + done, count);
        Data* const pOld = buffer.pOld;
        buffer.pOld = buffer.pNew;
        buffer.pNew = pOld;
    }
    if (pDlyDst)
        ownsCopy(buffer.pOld, pDlyDst, h);
}

template <class Form, class Data = typename Form::Data>
ZelStatus run(const Data* pSrc, Data* pDst, int numIters, ZelsFirSrState* pSpec, const Data* pDlySrc,
              Data* pDlyDst, Zel8u* pBuf)
{
    if (const ZelStatus status = ownsCheck(numIters, pSpec, pSrc, pDst, pBuf); status != zelStatusOk)
        return status;
    const OwnsFirSr& record = *ownsFirSr(pSpec);
    const ZelSize h = record.tapsLen - 1;
    const OwnsFirSrBuffer<Data> buffer(pBuf, record.tapsLen);
    const Engine engine = engineFor<Form>(record, numIters);
    if (pSrc == pDst || pDst == pDlySrc) {
        filterInPlace<Form>(engine, record, pSrc, pDst, numIters, pDlySrc, pDlyDst, buffer);
        return zelStatusOk;
    }
    // The new history is delivered before anything is filtered, so the old one must not lie in its place.
    const Data* pHistory = pDlySrc;
    if (!pDlySrc || pDlySrc == pDlyDst) {
        ownsFirTakeHistory(pDlySrc, buffer.pOld, h);
        pHistory = buffer.pOld;
    }
    if (pDlyDst)
        ownsFirNextHistory(pHistory, pSrc, numIters, pDlyDst, h);
    filterBlock<Form>(engine, record, pSrc, pDst, numIters, pHistory, buffer.pHead);
    return zelStatusOk;
}

} // namespace

ZelStatus zelsFIRSR_32f(const Zel32f* pSrc, Zel32f* pDst, int numIters, ZelsFirSrState* pSpec,
                        const Zel32f* pDlySrc, Zel32f* pDlyDst, Zel8u* pBuf)
{
    return run<OwnsFirSr_32f>(pSrc, pDst, numIters, pSpec, pDlySrc, pDlyDst, pBuf);
}

ZelStatus zelsFIRSR_32fc(const Zel32fc* pSrc, Zel32fc* pDst, int numIters, ZelsFirSrState* pSpec,
                         const Zel32fc* pDlySrc, Zel32fc* pDlyDst, Zel8u* pBuf)
{
    return run<OwnsFirSr_32fc>(pSrc, pDst, numIters, pSpec, pDlySrc, pDlyDst, pBuf);
}

ZelStatus zelsFIRSR_64f(const Zel64f* pSrc, Zel64f* pDst, int numIters, ZelsFirSrState* pSpec,
                        const Zel64f* pDlySrc, Zel64f* pDlyDst, Zel8u* pBuf)
{
    return run<OwnsFirSr_64f>(pSrc, pDst, numIters, pSpec, pDlySrc, pDlyDst, pBuf);
}

ZelStatus zelsFIRSR_64fc(const Zel64fc* pSrc, Zel64fc* pDst, int numIters, ZelsFirSrState* pSpec,
                         const Zel64fc* pDlySrc, Zel64fc* pDlyDst, Zel8u* pBuf)
{
    return run<OwnsFirSr_64fc>(pSrc, pDst, numIters, pSpec, pDlySrc, pDlyDst, pBuf);
}

ZelStatus zelsFIRSR32f_32fc(const Zel32fc* pSrc, Zel32fc* pDst, int numIters, ZelsFirSrState* pSpec,
                            const Zel32fc* pDlySrc, Zel32fc* pDlyDst, Zel8u* pBuf)
{
    return run<OwnsFirSr32f_32fc>(pSrc, pDst, numIters, pSpec, pDlySrc, pDlyDst, pBuf);
}
