// Means of integer vectors.
#include "stats/exactSum.h"
#include "stats/scaled.h"
#include "zels.h"

namespace {

/// A magnitude divided by the length, to the nearest integer, ties to even.
Zel64u dividedNear(Zel64u magnitude, Zel64u len)
{
    const Zel64u quotient = magnitude / len;
    const Zel64u rest = magnitude % len;
    return quotient + (2 * rest > len ? 1 : 2 * rest == len ? quotient & 1 : 0);
}

/// A rounded magnitude shifted right by a factor that counts modulo 64. The bit below the last one kept goes
/// in as one unit, not as the half that it is worth: 6 / 4 gives 1 and 7 / 4 gives 2.
Zel64u shiftedRight(Zel64u magnitude, int scaleFactor)
{
    if (scaleFactor == 0)
        return magnitude;
    const auto shift = static_cast<unsigned>(scaleFactor);
    return (magnitude + ((magnitude >> ((shift - 1) % 64)) & 1)) >> (shift % 64);
}

/// The mean scaled up: a sum of 32 bits is shifted before the division, so that the fraction of the mean
/// survives.
Zel64u shiftedLeft(Zel64u sum, Zel64u len, int scaleFactor, Zel64u sumLimit)
{
    const Zel64u limit = Zel64u{1} << 31; // saturates either sign, whatever may follow
    if (scaleFactor < -31)
        return dividedNear(sum, len) == 0 ? 0 : limit;
    if (sum <= sumLimit)
        return dividedNear(sum << -scaleFactor, len);
    // The rounded mean has 32 bits, so it may be shifted by 31.
    return dividedNear(sum, len) << -scaleFactor;
}

Zel32s scaledMean(Zel64s sum, int len, int scaleFactor)
{
    const bool negative = sum < 0;
    const auto magnitude = static_cast<Zel64u>(negative ? -sum : sum);
    const auto count = static_cast<Zel64u>(len);
    if (scaleFactor >= 0) {
        const auto value = static_cast<Zel64s>(shiftedRight(dividedNear(magnitude, count), scaleFactor));
        return static_cast<Zel32s>(negative ? -value : value);
    }
    const Zel64u fitting = static_cast<Zel64u>(INT32_MAX) + negative;
    const auto value = static_cast<Zel64s>(shiftedLeft(magnitude, count, scaleFactor, fitting));
    return ownsSaturated<Zel32s>(negative ? -value : value);
}

} // namespace

// The real form divides and then scales, the complex one scales and then divides.
ZelStatus zelsMean_16s_Sfs(const Zel16s* pSrc, int len, Zel16s* pMean, int scaleFactor)
{
    const auto mean = [=] {
        const Zel64f total = static_cast<Zel64f>(ownsExactTotal(pSrc, len));
        return ownsConverted<Zel16s>(ownsTimesMultiplier(total / len, scaleFactor));
    };
    return ownsReduce(pMean, mean, len, pSrc);
}

ZelStatus zelsMean_16sc_Sfs(const Zel16sc* pSrc, int len, Zel16sc* pMean, int scaleFactor)
{
    const auto mean = [=] {
        const auto [re, im] = ownsExactTotal(pSrc, len);
        const auto part = [=](Zel64s total) {
            return ownsConverted<Zel16s>(ownsTimesMultiplier(static_cast<Zel64f>(total), scaleFactor) / len);
        };
        return Zel16sc{part(re), part(im)};
    };
    return ownsReduce(pMean, mean, len, pSrc);
}

ZelStatus zelsMean_32s_Sfs(const Zel32s* pSrc, int len, Zel32s* pMean, int scaleFactor)
{
    return ownsReduce(
        pMean, [=] { return scaledMean(ownsExactTotal(pSrc, len), len, scaleFactor); }, len, pSrc);
}
