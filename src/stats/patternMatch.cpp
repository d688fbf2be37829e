// Hamming distances of bit vectors.
#include "frame/entry.h"
#include "frame/vec.h"
#include "zels.h"

#include <bit>

namespace {

constexpr int largestPattern = 65535;
constexpr int hints = 3;
constexpr int bufferSize = 4; // no kernel needs any; a caller that allocates gets something to hold

Zel64u word(const Zel8u* p)
{
    return ownsGet(reinterpret_cast<const Zel64u*>(p));
}

/// The last `n` bytes of a row, 0 < n < 8.
Zel64u partialWord(const Zel8u* p, int n)
{
    return static_cast<Zel64u>(_mm_cvtsi128_si64(ownsInt(ownsLoadPart(p, n))));
}

unsigned distance(const Zel8u* a, const Zel8u* b, int size)
{
    const auto differing = [](Zel64u x, Zel64u y) { return static_cast<unsigned>(std::popcount(x ^ y)); };
    unsigned sums[4] = {};
    int i = 0;
    for (; i + 32 <= size; i += 32)
        for (ZelSize k = 0; k < 4; k++)
            sums[k] += differing(word(a + i + 8 * k), word(b + i + 8 * k));
    for (; i + 8 <= size; i += 8)
        sums[0] += differing(word(a + i), word(b + i));
    if (i < size)
        sums[1] += differing(partialWord(a + i, size - i), partialWord(b + i, size - i));
    return (sums[0] + sums[1]) + (sums[2] + sums[3]);
}

} // namespace

ZelStatus zelsPatternMatchGetBufferSize(int srcLen, int patternLen, int patternSize, ZelHintAlgorithm hint,
                                        int* pBufferSize)
{
    if (!pBufferSize)
        return zelErrNullPtr;
    if (srcLen < 1 || patternLen < 1 || patternSize < 1 || patternSize > largestPattern)
        return zelErrSize;
    if (static_cast<unsigned>(hint) >= hints)
        return zelErrBadArg;
    ownsPut(pBufferSize, bufferSize);
    return zelStatusOk;
}

ZelStatus zelsPatternMatch_8u16u(const Zel8u* pSrc, int srcStep, int srcLen, const Zel8u* pPattern,
                                 int patternStep, int patternLen, int patternSize, Zel16u* pDst,
                                 ZelHintAlgorithm hint, Zel8u* pBuffer) // NOLINT: the interface has it
{
    if (!pSrc || !pPattern || !pDst || !pBuffer)
        return zelErrNullPtr;
    if (patternStep < 1 || srcStep < 1)
        return zelErrStep;
    if (patternLen < 1 || srcLen < 1 || patternSize < 1 || patternSize > largestPattern)
        return zelErrSize;
    if (static_cast<unsigned>(hint) >= hints)
        return zelErrBadArg;
    for (ZelSize p = 0; p < patternLen; p++)
        for (ZelSize s = 0; s < srcLen; s++)
            // Rows above 8 KiB may differ in more bits than the destination counts: the low bits are kept.
            ownsPut(pDst + p * srcLen + s, static_cast<Zel16u>(distance(
                                               pSrc + s * srcStep, pPattern + p * patternStep, patternSize)));
    return zelStatusOk;
}
