// Recombination: from the transform of a real signal taken as complex pairs to its spectrum, and back.
//
// A real signal of N values read as M = N/2 complex values has the transform Z. With W = exp(-2 pi i k / N)
// its spectrum is X[k] = (Z[k] + conj(Z[M-k])) / 2 - i W (Z[k] - conj(Z[M-k])) / 2. Written with A = (1 - i
// W) / 2 and D = Z[k] - conj(Z[M-k]) this is
//
//     X[k]   = conj(Z[M-k]) + A D
//     X[M-k] = conj(Z[k] - A D)
//
// and the inverse, without the factor 1/2, with B = i conj(W), S = X[k] + conj(X[M-k]), P = X[k] -
// conj(X[M-k]):
//
//     Z[k] = S + B P,  Z[M-k] = conj(S - B P)
//
// The tables hold A and B for k = 1 to N/4, in groups as the passes have them. For long transforms they would
// be as long as the data, so there the tables hold W in two levels, whose products are formed on the way.
#pragma once

#include "transforms/fft/access.h"
#include "transforms/fft/plan.h"

/// The values at p[at], p[at + 1], ... in one group, and the same in reverse order.
template <class T>
inline OwnsSplit<T> ownsLoadGroup(const T* p)
{
    return ownsUnzipped(ownsLoad(p), ownsLoad(p + ownsLanes<T>));
}
inline OwnsSplit<Zel32f> ownsLoadReversed(const Zel32f* p)
{
    const __m128 a = ownsLoad(p);
    const __m128 b = ownsLoad(p + 4);
    return {_mm_shuffle_ps(b, a, 0x22), _mm_shuffle_ps(b, a, 0x77)};
}
inline OwnsSplit<Zel64f> ownsLoadReversed(const Zel64f* p)
{
    return ownsUnzipped(ownsLoad(p + 2), ownsLoad(p));
}
template <class T>
inline void ownsStoreGroup(T* p, OwnsSplit<T> x)
{
    ownsStore(p, ownsZipLow(x.re, x.im));
    ownsStore(p + ownsLanes<T>, ownsZipHigh(x.re, x.im));
}
inline void ownsStoreReversed(Zel32f* p, OwnsSplit<Zel32f> x)
{
    const __m128 high = ownsZipHigh(x.re, x.im);
    const __m128 low = ownsZipLow(x.re, x.im);
    ownsStore(p, _mm_shuffle_ps(high, high, 0x4E));
    ownsStore(p + 4, _mm_shuffle_ps(low, low, 0x4E));
}
inline void ownsStoreReversed(Zel64f* p, OwnsSplit<Zel64f> x)
{
    ownsStore(p, ownsZipHigh(x.re, x.im));
    ownsStore(p + 2, ownsZipLow(x.re, x.im));
}

/// A or B from a whole table.
template <class T>
struct OwnsRecombWhole {
    const T* p;

    OwnsSplit<T> factor(ZelSize group) const
    {
        const T* row = p + 2 * ownsLanes<T> * group;
        return {ownsLoadAligned(row), ownsLoadAligned(row + ownsLanes<T>)};
    }
};

/// A or B as a product of a coarse and a fine value of W. Blocks of 2^fineOrder values share a coarse one.
template <class T, bool inverse>
struct OwnsRecombTwoLevel {
    const T* fine;
    const T* coarse;

    OwnsSplit<T> factor(ZelSize group) const
    {
        constexpr ZelSize perBlock = (ZelSize{1} << OwnsFftTraits<T>::fineOrder) / ownsLanes<T>;
        const T* f = fine + 2 * ownsLanes<T> * (group % perBlock);
        const T* c = coarse + 2 * (group / perBlock);
        const OwnsSplit<T> w = OwnsSplit<T>{ownsLoadAligned(f), ownsLoadAligned(f + ownsLanes<T>)} *
                               OwnsSplit<T>{ownsSplat(c[0]), ownsSplat(c[1])};
        if constexpr (inverse) {
            return {w.im, w.re}; // i conj(W)
        } else {
            const OwnsVec<T> half = ownsSplat(static_cast<T>(0.5));
            return {half + half * w.im, -(half * w.re)}; // (1 - i W) / 2
        }
    }
};

/// The pairs k and M - k of `groups` groups from k = 1 on, from `pSrc` to `pDst`, which may be the same. Both
/// point at value 0. The last group ends at k = M/2, the middle, which both sides then write alike.
template <bool inverse, class T, class Factors>
[[gnu::always_inline]] inline void ownsRecombine(const T* pSrc, T* pDst, ZelSize length, Factors factors,
                                                 ZelSize groups)
{
    constexpr int lanes = ownsLanes<T>;
    for (ZelSize g = 0; g < groups; g++) {
        const ZelSize low = 2 * (1 + g * lanes);
        const ZelSize high = 2 * (length - lanes * (g + 1));
        const OwnsSplit<T> a = ownsLoadGroup(pSrc + low);
        const OwnsSplit<T> b = ownsConj(ownsLoadReversed(pSrc + high));
        const OwnsSplit<T> turned = factors.factor(g) * (a - b);
        if constexpr (inverse) {
            const OwnsSplit<T> sum = a + b;
            ownsStoreGroup(pDst + low, sum + turned);
            ownsStoreReversed(pDst + high, ownsConj(sum - turned));
        } else {
            ownsStoreGroup(pDst + low, b + turned);
            ownsStoreReversed(pDst + high, ownsConj(a - turned));
        }
    }
}
