// Dot products of integer vectors: those of 16-bit data are exact, the others are sums of doubles.
#include "frame/roundingMode.h"
#include "stats/exactSum.h"
#include "stats/scaled.h"
#include "zels.h"

namespace {

using I32x4 = OwnsVec<Zel32s>;

/// Sums of products of neighbours, less one: of all pairs only -32768 * -32768 twice leaves 32 bits, by one,
/// and with one taken away it comes out as the largest integer.
I32x4 pairsLessOne(__m128i a, __m128i b)
{
    return ownsAs<Zel32s>(_mm_sub_epi32(_mm_madd_epi16(a, b), _mm_set1_epi32(1)));
}

/// What pairsLessOne took away from all lanes of `len` elements, read in vectors of `lanes`.
Zel64s takenAway(ZelSize len, int lanes)
{
    return 4 * ((len + lanes - 1) / lanes);
}

Zel64s exactDot(const Zel16s* p1, const Zel16s* p2, ZelSize len)
{
    using Sum = OwnsExactSum<Zel32s>;
    OwnsVec<Zel64s> total{};
    ownsBlocks(ownsExactBlock, 0, len, [&](ZelSize from, ZelSize to) {
        Sum a[2];
        ownsVectors(
            a, from, to,
            [](Sum& r, OwnsVec<Zel16s> x, OwnsVec<Zel16s> y) { r.add(pairsLessOne(ownsInt(x), ownsInt(y))); },
            p1, p2);
        a[0].merge(a[1]);
        total += a[0].pairs();
    });
    return ownsLaneSum(total) + takenAway(len, 8);
}

/// The real parts fit 32 bits, so that they may be put together modulo 2^32: with the complement ~y of an
/// imaginary part, which is -y - 1, a product pair gives re - (imaginary part of x). -y itself does not exist
/// for -32768.
Zel64sc exactDot(const Zel16sc* p1, const Zel16sc* p2, ZelSize len)
{
    struct Parts {
        OwnsExactSum<Zel32s> re;
        OwnsExactSum<Zel32s> im;
    };
    const __m128i imaginary = _mm_set1_epi32(static_cast<int>(0xFFFF0000));
    const __m128i swap = _mm_set_epi8(13, 12, 15, 14, 9, 8, 11, 10, 5, 4, 7, 6, 1, 0, 3, 2);
    OwnsVec<Zel64s> re{};
    OwnsVec<Zel64s> im{};
    ownsBlocks(ownsExactBlock, 0, len, [&](ZelSize from, ZelSize to) {
        Parts a[1];
        ownsVectors(
            a, from, to,
            [=](Parts& r, OwnsVec<Zel16sc> x, OwnsVec<Zel16sc> y) {
                const __m128i lessIm = _mm_madd_epi16(ownsInt(x), _mm_xor_si128(ownsInt(y), imaginary));
                r.re.add(ownsAs<Zel32s>(_mm_add_epi32(lessIm, _mm_srai_epi32(ownsInt(x), 16))));
                r.im.add(pairsLessOne(ownsInt(x), _mm_shuffle_epi8(ownsInt(y), swap)));
            },
            p1, p2);
        re += a[0].re.pairs();
        im += a[0].im.pairs();
    });
    return {ownsLaneSum(re), ownsLaneSum(im) + takenAway(len, 4)};
}

/// Two real elements meet the real parts, and the imaginary parts, of two complex ones.
Zel64sc exactDot(const Zel16s* p1, const Zel16sc* p2, ZelSize len)
{
    using Sum = OwnsExactSum<Zel32s>;
    const __m128i byPart = _mm_set_epi8(15, 14, 11, 10, 13, 12, 9, 8, 7, 6, 3, 2, 5, 4, 1, 0);
    OwnsVec<Zel64s> total{};
    ownsBlocks(ownsExactBlock, 0, len, [&](ZelSize from, ZelSize to) {
        Sum a[2];
        ownsVectors(
            a, from, to,
            [=](Sum& r, OwnsVec<Zel16sc> y, OwnsVec<Zel16s> x) {
                r.add(pairsLessOne(_mm_unpacklo_epi32(ownsInt(x), ownsInt(x)),
                                   _mm_shuffle_epi8(ownsInt(y), byPart)));
            },
            p2, p1);
        a[0].merge(a[1]);
        total += a[0].pairs();
    });
    // Half of the lanes belong to either part.
    const Zel64s taken = takenAway(len, 4) / 2;
    return {total[0] + taken, total[1] + taken};
}

OwnsF64x2 widePair(const Zel32s* p)
{
    return _mm_cvtepi32_pd(ownsInt(ownsTake<Zel64f>(p)));
}
OwnsF64x2 widePair(const Zel16s* p)
{
    return _mm_cvtepi32_pd(_mm_cvtepi16_epi32(ownsInt(ownsTake<Zel64f>(p))));
}

/// In rounds of six, two sums of pairs: the first takes elements 0, 1, 4, 5, the second 2, 3. The rest goes
/// singly into the low lane of the first.
template <class A>
Zel64f wideDot(const A* p1, const Zel32s* p2, ZelSize len)
{
    const auto pair = [=](ZelSize at) { return widePair(p1 + at) * widePair(p2 + at); };
    struct Sums {
        OwnsF64x2 first{};
        OwnsF64x2 second{};
    } sums;
    ZelSize i = ownsRounds<6>(sums, 0, len, [=](Sums& s, ZelSize at) {
        s.first += pair(at);
        s.second += pair(at + 2);
        s.first += pair(at + 4);
    });
    for (; i < len; i++)
        sums.first += OwnsF64x2{static_cast<Zel64f>(ownsGet(p1 + i)) * static_cast<Zel64f>(ownsGet(p2 + i))};
    return ownsLaneSum(sums.first + sums.second);
}

// The sums are rounded to nearest whatever the caller's mode, and so is the result, which goes to memory
// before the caller's mode is back.
template <class A>
ZelStatus nearestDot(const A* pSrc1, const Zel32s* pSrc2, int len, Zel32s* pDp, int scaleFactor)
{
    if (const ZelStatus status = ownsCheck(len, pSrc1, pSrc2, pDp); status != zelStatusOk)
        return status;
    const int places = scaleFactor < -31 ? -31 : scaleFactor > 93 ? 93 : scaleFactor;
    const OwnsNearestMode nearest;
    ownsPut(pDp, ownsConverted<Zel32s>(wideDot(pSrc1, pSrc2, len) * ownsMultiplier(places)));
    return zelStatusOk;
}

} // namespace

ZelStatus zelsDotProd_16s32f(const Zel16s* pSrc1, const Zel16s* pSrc2, int len, Zel32f* pDp)
{
    return ownsReduce(
        pDp, [=] { return static_cast<Zel32f>(exactDot(pSrc1, pSrc2, len)); }, len, pSrc1, pSrc2);
}

ZelStatus zelsDotProd_16s64s(const Zel16s* pSrc1, const Zel16s* pSrc2, int len, Zel64s* pDp)
{
    return ownsReduce(
        pDp, [=] { return exactDot(pSrc1, pSrc2, len); }, len, pSrc1, pSrc2);
}

ZelStatus zelsDotProd_16sc64sc(const Zel16sc* pSrc1, const Zel16sc* pSrc2, int len, Zel64sc* pDp)
{
    return ownsReduce(
        pDp, [=] { return exactDot(pSrc1, pSrc2, len); }, len, pSrc1, pSrc2);
}

ZelStatus zelsDotProd_16s16sc64sc(const Zel16s* pSrc1, const Zel16sc* pSrc2, int len, Zel64sc* pDp)
{
    return ownsReduce(
        pDp, [=] { return exactDot(pSrc1, pSrc2, len); }, len, pSrc1, pSrc2);
}

// Factors above 31 scale as 31 does: large sums do not vanish under them.
ZelStatus zelsDotProd_16s32s_Sfs(const Zel16s* pSrc1, const Zel16s* pSrc2, int len, Zel32s* pDp,
                                 int scaleFactor)
{
    const auto dot = [=] {
        return ownsScaledInteger<Zel32s>(exactDot(pSrc1, pSrc2, len), scaleFactor > 31 ? 31 : scaleFactor);
    };
    return ownsReduce(pDp, dot, len, pSrc1, pSrc2);
}

ZelStatus zelsDotProd_16s32s32s_Sfs(const Zel16s* pSrc1, const Zel32s* pSrc2, int len, Zel32s* pDp,
                                    int scaleFactor)
{
    return nearestDot(pSrc1, pSrc2, len, pDp, scaleFactor);
}

ZelStatus zelsDotProd_32s_Sfs(const Zel32s* pSrc1, const Zel32s* pSrc2, int len, Zel32s* pDp, int scaleFactor)
{
    return nearestDot(pSrc1, pSrc2, len, pDp, scaleFactor);
}
