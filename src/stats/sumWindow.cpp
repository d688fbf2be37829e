// Sliding window sums.
#include "frame/reduce.h"
#include "zels.h"

namespace {

OwnsF32x4 widened(const Zel8u* p)
{
    return _mm_cvtepi32_ps(_mm_cvtepu8_epi32(ownsInt(ownsTake<Zel32f>(p))));
}

/// Rounds of twelve in three running vectors, the rest in index order.
Zel32f firstWindow(const Zel8u* p, ZelSize n)
{
    OwnsF32x4 r[3] = {};
    ZelSize i = ownsRounds<4>(r, 0, n, [p](OwnsF32x4& sums, ZelSize at) { sums += widened(p + at); });
    const OwnsF32x4 lanes = r[0] + r[2] + r[1];
    const OwnsF32x4 pairs = lanes + OwnsF32x4(_mm_movehl_ps(lanes, lanes));
    Zel32f sum = pairs[0] + pairs[1];
    for (; i < n; i++)
        sum += static_cast<Zel32f>(ownsGet(p + i));
    return sum;
}

/// Rounds of eight, each of which goes to the sum as one value (exact in 19 bits), the rest in descending
/// order.
Zel32f firstWindow(const Zel16s* p, ZelSize n)
{
    Zel32f sum = 0;
    const ZelSize whole = ownsRounds<8>(sum, 0, n, [p](Zel32f& s, ZelSize at) {
        const __m128i pairs = _mm_madd_epi16(ownsInt(ownsLoad(p + at)), _mm_set1_epi16(1));
        const __m128i fours = _mm_add_epi32(pairs, _mm_shuffle_epi32(pairs, 0x4E));
        s += static_cast<Zel32f>(_mm_cvtsi128_si32(fours) + _mm_extract_epi32(fours, 1));
    });
    for (ZelSize i = n; i-- > whole;)
        sum += static_cast<Zel32f>(ownsGet(p + i));
    return sum;
}

// The element that the last window would be left by is not read: the sum that it would make has no place.
template <class T>
ZelStatus sumWindow(const T* pSrc, Zel32f* pDst, int len, int maskSize)
{
    if (const ZelStatus status = ownsCheck(len, pSrc, pDst); status != zelStatusOk)
        return status;
    if (maskSize < 1)
        return zelErrMaskSize;
    Zel32f sum = firstWindow(pSrc, maskSize);
    ownsPut(pDst, sum);
    const T* entering = pSrc + maskSize;
    for (ZelSize i = 1; i < len; i++) {
        sum += static_cast<Zel32f>(ownsGet(entering + i - 1) - ownsGet(pSrc + i - 1));
        ownsPut(pDst + i, sum);
    }
    return zelStatusOk;
}

} // namespace

ZelStatus zelsSumWindow_8u32f(const Zel8u* pSrc, Zel32f* pDst, int len, int maskSize)
{
    return sumWindow(pSrc, pDst, len, maskSize);
}

ZelStatus zelsSumWindow_16s32f(const Zel16s* pSrc, Zel32f* pDst, int len, int maskSize)
{
    return sumWindow(pSrc, pDst, len, maskSize);
}
