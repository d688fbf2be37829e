// FIR design by the window method, on the exported tones and windows.
#include "frame/vec.h"
#include "zels.h"

#include <cmath>
#include <cstdint>

namespace {

constexpr Zel64f pi = 3.141592653589793;
constexpr Zel64f twoPi = 6.283185307179586;
constexpr int fewestTaps = 5;

/// The taps around their middle. Tap k of a side stands at the distance t(k) from it.
class Taps {
  public:
    Taps(Zel64f* pTaps, int tapsLen, Zel8u* pBuffer)
        : p(pTaps), n(tapsLen), half(tapsLen >> 1), odd(tapsLen & 1),
          buffer(reinterpret_cast<Zel64f*>(pBuffer + (-reinterpret_cast<std::uintptr_t>(pBuffer) & 15)))
    {
    }

    Zel64f t(int k) const { return odd ? k + 1.0 : k + 0.5; }

    /// sin(2 pi f t(k)) in the first or second part of the buffer.
    const Zel64f* sines(int part, Zel64f f) const { return wave(part, f, twoPi * f * t(0) + 1.5 * pi); }
    /// cos(2 pi f t(k)).
    const Zel64f* cosines(Zel64f f) const { return wave(0, f, twoPi * f * t(0)); }

    void putMiddle(Zel64f value) const
    {
        if (odd)
            ownsPut(p + half, value);
    }
    /// `value(k)` over pi t(k), and `mirrored` times that on the other side.
    template <class Value>
    void putSides(Value value, Zel64f mirrored = 1) const
    {
        for (int k = 0; k < half; k++) {
            const Zel64f tap = value(k) / (pi * t(k));
            ownsPut(p + half + odd + k, tap);
            ownsPut(p + half - 1 - k, mirrored * tap);
        }
    }

    void window(ZelWinType winType) const
    {
        switch (winType) {
        case zelWinBartlett:
            zelsWinBartlett_64f_I(p, n);
            break;
        case zelWinBlackmanOpt:
            zelsWinBlackmanOpt_64f_I(p, n);
            break;
        case zelWinHamming:
            zelsWinHamming_64f_I(p, n);
            break;
        case zelWinHann:
            zelsWinHann_64f_I(p, n);
            break;
        default:
            break;
        }
    }

    /// The gain at frequency 0.
    Zel64f gainAtZero() const
    {
        Zel64f sum = 0;
        zelsSum_64f(p, n, &sum);
        return sum;
    }
    /// The magnitude of the gain at half the sampling rate.
    Zel64f gainAtHalf() const
    {
        Zel64f sum = 0;
        for (int i = 0; i < n; i++)
            sum += i % 2 ? -ownsGet(p + i) : ownsGet(p + i);
        return std::fabs(sum);
    }
    /// The gain of symmetric taps at frequency f.
    Zel64f gainAt(Zel64f f) const
    {
        const Zel64f* const cosine = cosines(f);
        Zel64f sum = 0;
        for (int k = 0; k < half; k++)
            sum += cosine[k] * ownsGet(p + half + odd + k);
        return 2 * sum + (odd ? ownsGet(p + half) : 0);
    }
    void divide(Zel64f gain) const { zelsDivC_64f_I(gain, p, n); }

  private:
    const Zel64f* wave(int part, Zel64f f, Zel64f phase) const
    {
        // Below a circle and a half; a rounded difference may fall on the end of the circle.
        if (phase >= twoPi)
            phase -= twoPi;
        if (phase < 0 || phase >= twoPi)
            phase = 0;
        Zel64f* const values = buffer + ZelSize{part} * (half + 1);
        zelsTone_64f(values, half + 1, 1, f, &phase, zelHintAccurate);
        return values;
    }

    Zel64f* p;
    int n, half, odd;
    Zel64f* buffer;
};

/// Comparisons are such that a NaN is refused.
bool isEdge(Zel64f f)
{
    return f > 0 && f < 0.5;
}

ZelStatus checked(Zel64f low, Zel64f high, const Zel64f* pTaps, int tapsLen, const Zel8u* pBuffer)
{
    if (!pTaps || !pBuffer)
        return zelErrNullPtr;
    return tapsLen < fewestTaps || !isEdge(low) || !isEdge(high) ? zelErrSize : zelStatusOk;
}

ZelStatus checkedBand(Zel64f low, Zel64f high, const Zel64f* pTaps, int tapsLen, const Zel8u* pBuffer)
{
    const ZelStatus status = checked(low, high, pTaps, tapsLen, pBuffer);
    return status == zelStatusOk && low >= high ? ZelStatus{zelErrSize} : status;
}

} // namespace

ZelStatus zelsFIRGenGetBufferSize(int tapsLen, int* pBufferSize)
{
    if (!pBufferSize)
        return zelErrNullPtr;
    if (tapsLen < fewestTaps)
        return zelErrSize;
    // Two tones of a half and one values, and what rounding up to 16 bytes takes. The count is that of 32 bits.
    const unsigned half = static_cast<unsigned>(tapsLen) >> 1;
    ownsPut(pBufferSize, static_cast<int>(((16 * half + 46) & ~31u) | 16u));
    return zelStatusOk;
}

ZelStatus zelsFIRGenLowpass_64f(Zel64f rFreq, Zel64f* pTaps, int tapsLen, ZelWinType winType, int doNormal,
                                Zel8u* pBuffer)
{
    if (const ZelStatus status = checked(rFreq, rFreq, pTaps, tapsLen, pBuffer); status != zelStatusOk)
        return status;
    const Taps taps(pTaps, tapsLen, pBuffer);
    const Zel64f* const sine = taps.sines(0, rFreq);
    taps.putMiddle(2 * rFreq);
    taps.putSides([=](int k) { return sine[k]; });
    taps.window(winType);
    if (doNormal)
        taps.divide(taps.gainAtZero());
    return zelStatusOk;
}

ZelStatus zelsFIRGenHighpass_64f(Zel64f rFreq, Zel64f* pTaps, int tapsLen, ZelWinType winType, int doNormal,
                                 Zel8u* pBuffer)
{
    if (const ZelStatus status = checked(rFreq, rFreq, pTaps, tapsLen, pBuffer); status != zelStatusOk)
        return status;
    const Taps taps(pTaps, tapsLen, pBuffer);
    if (tapsLen % 2) {
        const Zel64f* const sine = taps.sines(0, rFreq);
        taps.putMiddle(1 - 2 * rFreq);
        taps.putSides([=](int k) { return -sine[k]; });
    } else {
        // Symmetric taps of even number have no gain at half the sampling rate. Antisymmetric ones have: the integral
        // of sin(2 pi x t) from the edge to one half, in which cos(pi t) is 0.
        const Zel64f* const cosine = taps.cosines(rFreq);
        taps.putSides([=](int k) { return cosine[k]; }, -1);
    }
    taps.window(winType);
    if (doNormal)
        taps.divide(taps.gainAtHalf());
    return zelStatusOk;
}

ZelStatus zelsFIRGenBandpass_64f(Zel64f rLowFreq, Zel64f rHighFreq, Zel64f* pTaps, int tapsLen,
                                 ZelWinType winType, int doNormal, Zel8u* pBuffer)
{
    if (const ZelStatus status = checkedBand(rLowFreq, rHighFreq, pTaps, tapsLen, pBuffer);
        status != zelStatusOk)
        return status;
    const Taps taps(pTaps, tapsLen, pBuffer);
    const Zel64f* const low = taps.sines(0, rLowFreq);
    const Zel64f* const high = taps.sines(1, rHighFreq);
    taps.putMiddle(2 * (rHighFreq - rLowFreq));
    taps.putSides([=](int k) { return high[k] - low[k]; });
    taps.window(winType);
    if (doNormal)
        taps.divide(taps.gainAt(0.5 * (rLowFreq + rHighFreq)));
    return zelStatusOk;
}

ZelStatus zelsFIRGenBandstop_64f(Zel64f rLowFreq, Zel64f rHighFreq, Zel64f* pTaps, int tapsLen,
                                 ZelWinType winType, int doNormal, Zel8u* pBuffer)
{
    if (const ZelStatus status = checkedBand(rLowFreq, rHighFreq, pTaps, tapsLen, pBuffer);
        status != zelStatusOk)
        return status;
    const Taps taps(pTaps, tapsLen, pBuffer);
    const Zel64f* const low = taps.sines(0, rLowFreq);
    const Zel64f* const high = taps.sines(1, rHighFreq);
    taps.putMiddle(1 - 2 * (rHighFreq - rLowFreq));
    // sin(pi t) is 0 at whole distances, and 1 or -1 in turn halfway.
    const auto all = [=](int k) { return tapsLen % 2 ? 0 : k % 2 ? -1 : 1; };
    taps.putSides([=](int k) { return all(k) - (high[k] - low[k]); });
    taps.window(winType);
    if (doNormal)
        taps.divide(taps.gainAtZero());
    return zelStatusOk;
}
