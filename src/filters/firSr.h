// The record of a single-rate FIR filter, and where its parts and those of the work buffer lie.
#pragma once

#include "filters/firFft.h"
#include "frame/carve.h"
#include "frame/entry.h"
#include "frame/vec.h"
#include "zels/filters.h"

/// Stands at the first 64-byte boundary of the caller's memory. The taps follow, then, unless the filter is always
/// direct, what the FFT engine needs.
struct OwnsFirSr {
    Zel32s tapsLen;
    void* pTaps;
    Zel32s tapsMode; ///< of real filters: 0 replicated taps, 1 shifted copies
    Zel32s algType;
    void* pFftPlan;
    Zel8u* pFftPlanMem;
    Zel8u* pFftInitBuf; ///< memory used while the plan and the spectrum are made
    void* pFftTaps;     ///< spectrum of the taps
    Zel32s fftLen;      ///< length of the transform, in its own elements
};
static_assert(sizeof(OwnsFirSr) == 64);

inline OwnsFirSr* ownsFirSr(ZelsFirSrState* pSpec)
{
    return reinterpret_cast<OwnsFirSr*>(ownsRounded64(reinterpret_cast<Zel8u*>(pSpec)));
}

/// Bytes of the output area for work in place, and for blocks of converted samples.
inline constexpr ZelSize ownsFirAreaBytes = 32768;

/// What sets one kind of filter apart from another: its data, its taps, the element of its transform, and from how many
/// taps and samples on the FFT engine is the quicker one.
template <class Data_, class Taps_, class Element_, int fromTaps_, int fromIters_>
struct OwnsFirSrForm {
    using Data = Data_;
    using Taps = Taps_;
    using Part = OwnsPart<Data>;
    using Element = Element_;
    static constexpr int fromTaps = fromTaps_;
    static constexpr int fromIters = fromIters_;
    /// Elements of the transform in one sample: complex samples under real taps are transformed as twice as many reals.
    static constexpr int perSample = ownsIsComplex<Data> && !ownsIsComplex<Element> ? 2 : 1;
    /// Samples in the output area.
    static constexpr ZelSize chunk = ownsFirAreaBytes / static_cast<ZelSize>(sizeof(Data));
};

using OwnsFirSr_32f = OwnsFirSrForm<Zel32f, Zel32f, Zel32f, 64, 128>;
using OwnsFirSr_64f = OwnsFirSrForm<Zel64f, Zel64f, Zel64f, 38, 128>;
using OwnsFirSr_32fc = OwnsFirSrForm<Zel32fc, Zel32fc, Zel32fc, 18, 256>;
using OwnsFirSr_64fc = OwnsFirSrForm<Zel64fc, Zel64fc, Zel64fc, 18, 256>;
using OwnsFirSr32f_32fc = OwnsFirSrForm<Zel32fc, Zel32f, Zel32f, 64, 256>;

/// From this many taps on a real record holds shifted copies of the reversed taps instead of replicated ones.
template <class T>
inline constexpr int ownsFirShiftedFrom = sizeof(T) == 4 ? 32 : 9;

/// Elements from one of the shifted copies to the next, the shift included.
template <class T>
constexpr ZelSize ownsFirRow(int tapsLen)
{
    return sizeof(T) == 4 ? ((ZelSize{tapsLen} + 6) & ~3) + 1 : (ZelSize{tapsLen} + 2) | 1;
}

/// Bytes of the parts of record and work buffer.
struct OwnsFirSrLayout {
    ZelSize taps = 0;
    ZelSize plan = 0;
    ZelSize making = 0; ///< memory of the plan's Init, then work buffer of the taps' transform
    ZelSize spectrum = 0;
    ZelSize block = 0; ///< a block of samples: history and new ones, or a transform's
    ZelSize histories = 0;
    ZelSize work = 0; ///< of a transform
    int order = 0;    ///< of the transform

    /// The header and rounding up, of the record and of the spectrum, take at most 190.
    constexpr ZelSize recordSize() const { return taps + 191 + plan + making + spectrum; }
    constexpr ZelSize bufferSize() const { return block + histories + ownsFirAreaBytes + spectrum + work; }
};

/// The layout for so many taps; false where it exceeds what any transform or a 32-bit size can be.
template <class Form>
bool ownsFirSrLayout(int tapsLen, OwnsFirSrLayout& layout)
{
    using Data = typename Form::Data;
    using Taps = typename Form::Taps;
    constexpr auto size = [](ZelSize n, ZelSize bytes) { return ownsRounded64(n * bytes); };
    const ZelSize n = tapsLen;
    ZelSize taps = 0;
    if constexpr (ownsIsComplex<Taps>) {
        taps = size(n, 2 * ownsVecBytes);
    } else {
        constexpr ZelSize e = sizeof(Taps);
        const ZelSize copies = e == 4 ? 16 * ((n + 6) & ~3) : 8 * ((2 * n + 4) & ~3);
        taps = size(n, ownsVecBytes) > copies ? size(n, ownsVecBytes) : copies;
    }
    layout.taps = taps;

    // The shortest transform that gives at least as many outputs as it takes history.
    const ZelSize elements = n * Form::perSample;
    int k = 1;
    while (ZelSize{1} << k <= elements)
        k++;
    layout.order = k + 1;
    int planSize = 0;
    int initSize = 0;
    int workSize = 0;
    if (OwnsFirFft<typename Form::Element>::getSize(layout.order, zelFftScaleInv, zelHintNone, &planSize,
                                                    &initSize, &workSize) != zelStatusOk)
        return false;
    layout.plan = planSize;
    layout.making = initSize > workSize ? initSize : workSize;
    layout.work = workSize;
    layout.spectrum = static_cast<ZelSize>(sizeof(typename Form::Element)) << layout.order;
    layout.block = size(2 * n, sizeof(Data));
    layout.histories = size(2 * (n - 1), sizeof(Data));
    return layout.recordSize() <= INT32_MAX && layout.bufferSize() <= INT32_MAX;
}
