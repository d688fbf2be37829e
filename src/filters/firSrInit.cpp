// Single-rate FIR filters: sizes and set-up.
#include "filters/firSr.h"
#include "frame/bulk.h"

namespace {

template <class Form>
ZelStatus sizes(int tapsLen, int* pSpecSize, int* pBufSize)
{
    if (!pSpecSize || !pBufSize)
        return zelErrNullPtr;
    OwnsFirSrLayout layout;
    if (!ownsFirSrLayout<Form>(tapsLen, layout))
        return zelErrSizeOverflow;
    *pSpecSize = static_cast<int>(layout.recordSize());
    *pBufSize = static_cast<int>(layout.bufferSize());
    return zelStatusOk;
}

// The taps as the kernels read them.

template <class T>
void replicate(const T* pTaps, int n, T* p)
{
    for (int i = 0; i < n; i++, p += ownsLanes<T>)
        ownsStore(p, ownsSplat(ownsGet(pTaps + i)));
}

template <class T>
void reverse(const T* pTaps, int n, T* p)
{
    for (int i = 0; i < n; i++)
        p[i] = ownsGet(pTaps + n - 1 - i);
}

// A copy of the reversed taps for each place that a sample can have in a vector, between zeros. A kernel that sums along
// the taps would take them all; the one that there is sums along the samples and reads the first.
template <class T>
void shift(const T* pTaps, int n, T* p, ZelSize bytes)
{
    ownsZeroBytes(p, bytes);
    for (int copy = 0; copy < ownsLanes<T>; copy++)
        reverse(pTaps, n, p + copy * ownsFirRow<T>(n));
}

template <class C, class T>
void replicateComplex(const C* pTaps, int n, T* p)
{
    for (int i = 0; i < n; i++) {
        const C tap = ownsGet(pTaps + i);
        for (int lane = 0; lane < ownsLanes<T>; lane++) {
            p[lane] = tap.re;
            p[ownsLanes<T> + lane] = lane % 2 == 0 ? -tap.im : tap.im;
        }
        p += 2 * ownsLanes<T>;
    }
}

template <class Form>
void layOutTaps(OwnsFirSr& record, const typename Form::Taps* pTaps, ZelSize bytes)
{
    using T = typename Form::Part;
    const int n = record.tapsLen;
    T* const p = static_cast<T*>(record.pTaps);
    if constexpr (ownsIsComplex<typename Form::Taps>) {
        replicateComplex(pTaps, n, p);
    } else if constexpr (ownsIsComplex<typename Form::Data>) {
        reverse(pTaps, n, p);
    } else {
        record.tapsMode = n >= ownsFirShiftedFrom<T>;
        if (record.tapsMode == 0)
            replicate(pTaps, n, p);
        else
            shift(pTaps, n, p, bytes);
    }
}

// The spectrum of the taps, each in the place of a sample: under complex samples every other element stays 0, which
// keeps their real and imaginary parts apart.
template <class Form>
void transformTaps(OwnsFirSr& record, const typename Form::Taps* pTaps)
{
    using Element = typename Form::Element;
    auto* const p = static_cast<Element*>(record.pFftTaps);
    ownsZero(p, record.fftLen);
    for (int i = 0; i < record.tapsLen; i++)
        p[i * Form::perSample] = ownsGet(pTaps + i);
    OwnsFirFft<Element>::forward(
        p, p, static_cast<const typename OwnsFirFft<Element>::Plan*>(record.pFftPlan), record.pFftInitBuf);
}

template <class Form>
ZelStatus init(const typename Form::Taps* pTaps, int tapsLen, ZelAlgType algType, ZelsFirSrState* pSpec)
{
    using Fft = OwnsFirFft<typename Form::Element>;
    if (tapsLen < 1)
        return zelErrSize;
    if (!pTaps || !pSpec)
        return zelErrNullPtr;
    if (algType != zelAlgAuto && algType != zelAlgDirect && algType != zelAlgFFT)
        return zelErrAlgType;
    OwnsFirSrLayout layout;
    if (!ownsFirSrLayout<Form>(tapsLen, layout))
        return zelErrSizeOverflow;

    OwnsCarver carver(ownsFirSr(pSpec));
    OwnsFirSr& record = *carver.take<OwnsFirSr>(sizeof(OwnsFirSr));
    record = {};
    record.tapsLen = tapsLen;
    record.pTaps = carver.take<void>(layout.taps);
    record.algType = algType;
    layOutTaps<Form>(record, pTaps, layout.taps);
    if (algType == zelAlgDirect)
        return zelStatusOk;

    record.pFftPlanMem = carver.take<Zel8u>(layout.plan);
    record.pFftInitBuf = carver.take<Zel8u>(layout.making);
    carver.align();
    record.pFftTaps = carver.take<void>(layout.spectrum);
    record.fftLen = static_cast<Zel32s>(ZelSize{1} << layout.order);
    typename Fft::Plan* pPlan = nullptr;
    if (const ZelStatus status = Fft::init(&pPlan, layout.order, zelFftScaleInv, zelHintNone,
                                           record.pFftPlanMem, record.pFftInitBuf);
        status != zelStatusOk)
        return status;
    record.pFftPlan = pPlan;
    transformTaps<Form>(record, pTaps);
    return zelStatusOk;
}

} // namespace

// The tests differ from the usual order on purpose: the count of taps, then the type, then the pointers.
ZelStatus zelsFIRSRGetSize(int tapsLen, ZelDataType tapsType, int* pSpecSize, int* pBufSize)
{
    if (tapsLen < 1)
        return zelErrSize;
    switch (tapsType) {
    case zelDt32f:
        return sizes<OwnsFirSr_32f>(tapsLen, pSpecSize, pBufSize);
    case zelDt32fc:
        return sizes<OwnsFirSr_32fc>(tapsLen, pSpecSize, pBufSize);
    case zelDt64f:
        return sizes<OwnsFirSr_64f>(tapsLen, pSpecSize, pBufSize);
    case zelDt64fc:
        return sizes<OwnsFirSr_64fc>(tapsLen, pSpecSize, pBufSize);
    default:
        return zelErrDataType;
    }
}

ZelStatus zelsFIRSRGetSize32f_32fc(int tapsLen, int* pSpecSize, int* pBufSize)
{
    return tapsLen < 1 ? zelErrSize : sizes<OwnsFirSr32f_32fc>(tapsLen, pSpecSize, pBufSize);
}

ZelStatus zelsFIRSRInit_32f(const Zel32f* pTaps, int tapsLen, ZelAlgType algType, ZelsFirSrState* pSpec)
{
    return init<OwnsFirSr_32f>(pTaps, tapsLen, algType, pSpec);
}

ZelStatus zelsFIRSRInit_32fc(const Zel32fc* pTaps, int tapsLen, ZelAlgType algType, ZelsFirSrState* pSpec)
{
    return init<OwnsFirSr_32fc>(pTaps, tapsLen, algType, pSpec);
}

ZelStatus zelsFIRSRInit_64f(const Zel64f* pTaps, int tapsLen, ZelAlgType algType, ZelsFirSrState* pSpec)
{
    return init<OwnsFirSr_64f>(pTaps, tapsLen, algType, pSpec);
}

ZelStatus zelsFIRSRInit_64fc(const Zel64fc* pTaps, int tapsLen, ZelAlgType algType, ZelsFirSrState* pSpec)
{
    return init<OwnsFirSr_64fc>(pTaps, tapsLen, algType, pSpec);
}

ZelStatus zelsFIRSRInit32f_32fc(const Zel32f* pTaps, int tapsLen, ZelAlgType algType, ZelsFirSrState* pSpec)
{
    return init<OwnsFirSr32f_32fc>(pTaps, tapsLen, algType, pSpec);
}
