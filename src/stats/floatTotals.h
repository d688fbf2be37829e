// The sums behind Sum and Mean of floats, before they are rounded to their type.
//
// All give two double lanes: of real data the sum is that of the lanes, of complex data they are its parts.
// Both are read as a row of parts, so a complex element is a pair.
#pragma once

#include "frame/entry.h"
#include "frame/reduce.h"

/// Every element widened before it is added: the error is that of a double-precision sum.
template <class T>
[[gnu::always_inline]] inline OwnsF64x2 ownsAccurateTotal(const T* pSrc, ZelSize len)
{
    const Zel32f* p = ownsParts(pSrc);
    const ZelSize n = len * OwnsElem<T>::parts;
    const auto add = [p](OwnsF64x2& a, ZelSize i) { a += ownsWidePair(p + i); };

    OwnsF64x2 a[4] = {};
    ZelSize i = 0;
    if (!ownsIsComplex<T> && ownsBefore(8, p, n) == 1) {
        a[0] += ownsWideOne(p);
        i = 1;
    }
    i = ownsRounds<2>(a, i, n, add); // eight parts a round
    OwnsF64x2 b[2] = {a[0] + a[2], a[1] + a[3]};
    i = ownsRounds<2>(b, i, n, add);
    i = ownsRounds<2>(b[0], i, n, add);
    if (i < n)
        b[0] += ownsWideOne(p + i);
    return b[0] + b[1];
}

/// A block in single precision.
inline OwnsF64x2 ownsBlockTotal(const Zel32f* p, ZelSize n)
{
    const auto add = [p](OwnsF32x4& b, ZelSize i) { b += ownsLoad(p + i); };

    OwnsF32x4 b[4] = {};
    ZelSize i = ownsRounds<4>(b, 0, n, add); // sixteen parts a round
    OwnsF32x4 sum = (b[0] + b[2]) + (b[1] + b[3]);
    i = ownsRounds<4>(sum, i, n, add);
    if (i + 2 <= n) {
        sum += OwnsF32x4(ownsTake<Zel64f>(p + i));
        i += 2;
    }
    if (i < n)
        sum += OwnsF32x4{ownsGet(p + i)};
    return ownsWideFold(sum);
}

/// Blocks of 32,768 parts summed in single precision, from the first 16-byte boundary on. The block bounds
/// the error: 2,048 additions in each lane and a few folds.
template <class T>
[[gnu::always_inline]] inline OwnsF64x2 ownsFastTotal(const T* pSrc, ZelSize len)
{
    const Zel32f* p = ownsParts(pSrc);
    const ZelSize before = ownsBefore(16, pSrc, len);

    OwnsF64x2 total{};
    for (ZelSize i = 0; i < before; i++)
        total += ownsIsComplex<T> ? ownsWidePair(p + 2 * i) : ownsWideOne(p + i);
    constexpr int parts = OwnsElem<T>::parts;
    ownsBlocks(32768, parts * before, parts * len,
               [&](ZelSize from, ZelSize to) { total += ownsBlockTotal(p + from, to - from); });
    return total;
}

/// The path by the hint: any value but zelHintFast is the accurate one.
template <class T>
inline OwnsF64x2 ownsTotal(const T* pSrc, ZelSize len, ZelHintAlgorithm hint)
{
    return hint == zelHintFast ? ownsFastTotal(pSrc, len) : ownsAccurateTotal(pSrc, len);
}

/// Doubles in eight running sums.
template <class T>
[[gnu::always_inline]] inline OwnsF64x2 ownsTotal(const T* pSrc, ZelSize len)
{
    const Zel64f* p = ownsParts(pSrc);
    const ZelSize n = len * OwnsElem<T>::parts;
    const auto add = [p](OwnsF64x2& a, ZelSize i) { a += ownsLoad(p + i); };

    OwnsF64x2 a[4] = {};
    ZelSize i = 0;
    if (!ownsIsComplex<T> && ownsBefore(16, p, n) == 1) {
        a[0] += OwnsF64x2{ownsGet(p)};
        i = 1;
    }
    i = ownsRounds<2>(a, i, n, add); // eight parts a round
    OwnsF64x2 sum = a[0] + a[1] + (a[2] + a[3]);
    i = ownsRounds<2>(sum, i, n, add);
    if (i < n)
        sum += OwnsF64x2{ownsGet(p + i)};
    return sum;
}

/// A total in its type: real data adds up the lanes, complex data keeps them apart.
template <class T>
inline T ownsRounded(OwnsF64x2 total)
{
    if constexpr (ownsIsComplex<T>)
        return {static_cast<OwnsPart<T>>(total[0]), static_cast<OwnsPart<T>>(total[1])};
    else
        return static_cast<T>(ownsLaneSum(total));
}
