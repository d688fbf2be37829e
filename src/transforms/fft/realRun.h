// Real transforms to and from the Perm layout; the other layouts are moves.
#pragma once

#include "transforms/fft/complexRun.h"
#include "transforms/fft/recombine.h"
#include "transforms/fft/straight.h"

/// A and B of the straight-line kernels. One list serves both directions.
template <class T, int order, bool inverse>
struct OwnsRecombConstants {
    static constexpr int count = (1 << order) / 4;
    struct Values {
        T re[count];
        T im[count];
    };
    static constexpr Values values = [] {
        Values v{};
        for (int k = 1; k <= count; k++) {
            const long double c = ownsExactCosine(k, order);
            const long double s = ownsExactSine(k, order);
            v.re[k - 1] = static_cast<T>(inverse ? -s : 0.5L - 0.5L * s);
            v.im[k - 1] = static_cast<T>(inverse ? c : -0.5L * c);
        }
        return v;
    }();

    static OwnsSplit<T> factor(ZelSize group)
    {
        return {ownsLoad(values.re + group * ownsLanes<T>), ownsLoad(values.im + group * ownsLanes<T>)};
    }
};

/// The pair k and M - k, one value at a time, for transforms too short for groups.
template <bool inverse, int order, class T>
[[gnu::always_inline]] inline void ownsRecombineOne(const T* pSrc, T* pDst, int k)
{
    constexpr int length = 1 << (order - 1);
    const auto& values = OwnsRecombConstants<T, order, inverse>::values;
    const OwnsOne<T> a{ownsGet(pSrc + 2 * k), ownsGet(pSrc + 2 * k + 1)};
    const OwnsOne<T> b{ownsGet(pSrc + 2 * (length - k)), -ownsGet(pSrc + 2 * (length - k) + 1)};
    const OwnsOne<T> d{a.re - b.re, a.im - b.im};
    const T c = values.re[k - 1];
    const T s = values.im[k - 1];
    const OwnsOne<T> turned{c * d.re - s * d.im, c * d.im + s * d.re};
    const OwnsOne<T> low = inverse ? OwnsOne<T>{a.re + b.re, a.im + b.im} : b;
    const OwnsOne<T> high = inverse ? low : a;
    ownsPut(pDst + 2 * k, low.re + turned.re);
    ownsPut(pDst + 2 * k + 1, low.im + turned.im);
    ownsPut(pDst + 2 * (length - k), high.re - turned.re);
    ownsPut(pDst + 2 * (length - k) + 1, turned.im - high.im);
}

/// All of the recombination by constants, from `pSrc` to `pDst`.
template <bool inverse, int order, class T>
[[gnu::always_inline]] inline void ownsRecombineStraight(const T* pSrc, T* pDst)
{
    constexpr int pairs = (1 << order) / 4;
    const T a = ownsGet(pSrc);
    const T b = ownsGet(pSrc + 1);
    if constexpr (pairs % ownsLanes<T> == 0)
        ownsRecombine<inverse>(pSrc, pDst, 2 * pairs, OwnsRecombConstants<T, order, inverse>{},
                               pairs / ownsLanes<T>);
    else
        ownsEach<pairs>([&](auto k) { ownsRecombineOne<inverse, order>(pSrc, pDst, k + 1); });
    ownsPut(pDst, a + b);
    ownsPut(pDst + 1, a - b);
}

/// Takes the groups of a straight-line kernel where they are wanted in registers.
template <class T, bool scaled>
struct OwnsGroupSink {
    OwnsSplit<T>* groups;
    T scale;

    void store(ZelSize group, OwnsSplit<T> x) const { groups[group] = scaled ? x * scale : x; }
};

inline OwnsVec<Zel32f> ownsBackwards(OwnsVec<Zel32f> v)
{
    return _mm_shuffle_ps(v, v, 0x1B);
}
inline OwnsVec<Zel64f> ownsBackwards(OwnsVec<Zel64f> v)
{
    return _mm_shuffle_pd(v, v, 1);
}

/// The values behind the first of two vectors, up to the first of the second.
template <class T>
inline OwnsVec<T> ownsNextValues(OwnsVec<T> a, OwnsVec<T> b)
{
    return ownsAs<T>(_mm_alignr_epi8(ownsInt(b), ownsInt(a), sizeof(T)));
}

/// The forward transform of 16 values in 32f, whose half is two groups. They stay in registers: in memory the
/// recombination would read across the places where they were just written, and wait for both. The results are
/// written in whole aligned pieces for the sake of who reads them next.
template <bool scaled>
[[gnu::always_inline]] inline void ownsRealStraightSixteen(const Zel32f* pSrc, Zel32f* pDst, Zel32f scale)
{
    using T = Zel32f;
    constexpr int order = 4;
    OwnsSplit<T> z[2];
    ownsStraightMatrix<order - 1, false, T>(OwnsPairSource<T>{pSrc}, OwnsGroupSink<T, scaled>{z, scale});
    const OwnsSplit<T> a{ownsNextValues<T>(z[0].re, z[1].re), ownsNextValues<T>(z[0].im, z[1].im)};
    const OwnsSplit<T> b = ownsConj(OwnsSplit<T>{ownsBackwards(z[1].re), ownsBackwards(z[1].im)});
    const OwnsSplit<T> turned = OwnsRecombConstants<T, order, false>::factor(0) * (a - b);
    const OwnsSplit<T> low = b + turned;
    const __m128 first = ownsZipLow(low.re, low.im); // bins 1 and 2
    const __m128 second = ownsZipHigh(low.re, low.im);
    const __m128 ends =
        _mm_add_ps(_mm_shuffle_ps(z[0].re, z[0].re, 0),
                   _mm_xor_ps(_mm_shuffle_ps(z[0].im, z[0].im, 0), _mm_setr_ps(0, -0.0f, 0, 0)));
    ownsStore(pDst, _mm_movelh_ps(ends, first));
    ownsStore(pDst + 4, _mm_shuffle_ps(first, second, 0x4E));
    ownsStoreReversed(pDst + 8, ownsConj(a - turned));
}

/// A real transform of a short order, forward into the Perm layout or inverse from it.
template <int order, bool inverse, bool scaled, class T>
[[gnu::always_inline]] inline void ownsRealStraightOf(const T* pSrc, T* pDst, T scale)
{
    if constexpr (order == 0) {
        ownsPut(pDst, scaled ? ownsGet(pSrc) * scale : ownsGet(pSrc));
    } else if constexpr (order == 1) {
        const T a = ownsGet(pSrc);
        const T b = ownsGet(pSrc + 1);
        ownsPut(pDst, scaled ? (a + b) * scale : a + b);
        ownsPut(pDst + 1, scaled ? (a - b) * scale : a - b);
    } else {
        alignas(16) T half[1 << order];
        if constexpr (!inverse && order == 4 && sizeof(T) == 4) {
            ownsRealStraightSixteen<scaled>(pSrc, pDst, scale);
        } else if constexpr (inverse) {
            ownsRecombineStraight<true, order>(pSrc, half);
            ownsStraight<true, T>(order - 1, OwnsPairSource<T>{half},
                                  OwnsPairSink<T, false, scaled>{pDst, scale});
        } else {
            ownsStraight<false, T>(order - 1, OwnsPairSource<T>{pSrc},
                                   OwnsPairSink<T, false, scaled>{half, scale});
            ownsRecombineStraight<false, order>(half, pDst);
        }
    }
}

template <bool inverse, bool scaled, class T>
inline void ownsRealStraight(int order, const T* pSrc, T* pDst, T scale)
{
    switch (order) {
    case 0:
        return ownsRealStraightOf<0, inverse, scaled>(pSrc, pDst, scale);
    case 1:
        return ownsRealStraightOf<1, inverse, scaled>(pSrc, pDst, scale);
    case 2:
        return ownsRealStraightOf<2, inverse, scaled>(pSrc, pDst, scale);
    case 3:
        return ownsRealStraightOf<3, inverse, scaled>(pSrc, pDst, scale);
    case 4:
        return ownsRealStraightOf<4, inverse, scaled>(pSrc, pDst, scale);
    default:
        if constexpr (OwnsFftTraits<T>::straightReal == 5)
            return ownsRealStraightOf<5, inverse, scaled>(pSrc, pDst, scale);
    }
}

/// The recombination by the plan's tables. Bins 0 and N/2 are not touched.
template <bool inverse, class T>
inline void ownsRecombineByTable(const T* pSrc, T* pDst, const OwnsFftPlan<T>& plan)
{
    using Traits = OwnsFftTraits<T>;
    const ZelSize length = ZelSize{1} << (plan.order - 1);
    const ZelSize groups = length / (2 * ownsLanes<T>);
    const T* table = inverse ? plan.recombInv : plan.recombFwd;
    if (plan.order < Traits::realTwoLevel)
        ownsRecombine<inverse>(pSrc, pDst, length, OwnsRecombWhole<T>{table}, groups);
    else
        ownsRecombine<inverse>(pSrc, pDst, length,
                               OwnsRecombTwoLevel<T, inverse>{table, table + (2 << Traits::fineOrder)},
                               groups);
}
