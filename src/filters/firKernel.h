// The direct sum of FIR filters: outputs side by side in vectors, one tap after the other.
//
// Each output is summed on its own, from the oldest sample to the newest, whatever its place in a vector or a block. So
// a stream gives the same bits however it is cut into calls. All source and destination pointers are to parts;
// `stride` is the parts of one sample.
#pragma once

#include "frame/each.h"
#include "frame/vec.h"

/// A tap in a vector of its own: the newest sample's stands first in memory.
template <class T>
struct OwnsReplicatedTaps {
    const T* pTaps;
    int count;

    auto operator()(int i) const { return ownsLoad(pTaps + ZelSize{count - 1 - i} * ownsLanes<T>); }
};

/// Plain taps, the oldest sample's first.
template <class T>
struct OwnsReversedTaps {
    const T* pTaps;
    int count;

    auto operator()(int i) const { return ownsSplat(ownsGet(pTaps + i)); }
};

/// Sums of samples times real taps.
template <class T, int vectors>
struct OwnsRealSums {
    OwnsVec<T> sum[vectors];

    template <bool first>
    [[gnu::always_inline]] void add(OwnsVec<T> tap, const T* pSrc)
    {
        ownsEach<vectors>([&](auto v) OWNS_INLINE {
            const auto product = tap * ownsLoad(pSrc + v * ownsLanes<T>);
            sum[v] = first ? product : sum[v] + product;
        });
    }
    [[gnu::always_inline]] OwnsVec<T> result(int v) const { return sum[v]; }
};

/// A complex tap in two vectors: the real part in every lane, then the imaginary part, negated where it meets a real
/// part. The newest sample's stands first in memory.
template <class T>
struct OwnsComplexTaps {
    struct Tap {
        OwnsVec<T> re, im;
    };
    const T* pTaps;
    int count;

    Tap operator()(int i) const
    {
        const T* p = pTaps + ZelSize{count - 1 - i} * (2 * ownsLanes<T>);
        return {ownsLoad(p), ownsLoad(p + ownsLanes<T>)};
    }
};

/// Sums of complex samples times complex taps. The products with the imaginary parts add up in the places of the samples'
/// parts, and the two of a sum change places at the end: no shuffle a tap.
template <class T, int vectors>
struct OwnsComplexSums {
    OwnsVec<T> sum[vectors], turned[vectors];

    template <bool first>
    [[gnu::always_inline]] void add(typename OwnsComplexTaps<T>::Tap tap, const T* pSrc)
    {
        ownsEach<vectors>([&](auto v) OWNS_INLINE {
            const auto x = ownsLoad(pSrc + v * ownsLanes<T>);
            const auto re = tap.re * x;
            const auto im = tap.im * x;
            sum[v] = first ? re : sum[v] + re;
            turned[v] = first ? im : turned[v] + im;
        });
    }
    // (-im*x.re, im*x.im) exchanged and subtracted: -im*x.im to the real part, +im*x.re to the imaginary part.
    [[gnu::always_inline]] OwnsVec<T> result(int v) const { return sum[v] - ownsSwapped(turned[v]); }
};

namespace owns_detail {

template <class Sums, class T, class Taps>
[[gnu::always_inline]] inline Sums firSums(const T* pSrc, Taps taps, int stride)
{
    Sums sums;
    sums.template add<true>(taps(0), pSrc);
    for (int i = 1; i < taps.count; i++) {
        pSrc += stride;
        sums.template add<false>(taps(i), pSrc);
    }
    return sums;
}

} // namespace owns_detail

/// `count` output parts, the first from the taps.count samples from pSrc on. Where there is less than a vector of them, the
/// source must be readable up to where that vector's would end; else nothing is read or written outside.
template <template <class, int> class Sums, class T, class Taps>
[[gnu::always_inline]] inline void ownsFirSum(const T* pSrc, T* pDst, ZelSize count, Taps taps, int stride)
{
    constexpr int lanes = ownsLanes<T>;
    const auto block = [&](auto vectors, ZelSize at) OWNS_INLINE {
        const auto sums = owns_detail::firSums<Sums<T, vectors>>(pSrc + at, taps, stride);
        ownsEach<vectors>([&](auto v) OWNS_INLINE { ownsStore(pDst + at + v * lanes, sums.result(v)); });
    };
    // As many sums as leave registers for a tap and a product; then as many as hide half of the latency of the additions.
    constexpr bool real = sizeof(Sums<T, 1>) == ownsVecBytes;
    constexpr std::integral_constant<int, real ? 12 : 6> most;
    constexpr std::integral_constant<int, real ? 4 : 3> some;
    constexpr std::integral_constant<int, 1> one;

    // The last block of each kind ends where the outputs end, and does some of the former's over again.
    if (count >= some * lanes) {
        ZelSize at = 0;
        for (; at <= count - most * lanes; at += most * lanes)
            block(most, at);
        if (count - at > some * lanes && count >= most * lanes)
            block(most, count - most * lanes);
        else
            for (; at < count; at += some * lanes)
                block(some, at < count - some * lanes ? at : count - some * lanes);
    } else if (count >= lanes) {
        for (ZelSize at = 0; at < count; at += lanes)
            block(one, at < count - lanes ? at : count - lanes);
    } else {
        const auto sums = owns_detail::firSums<Sums<T, 1>>(pSrc, taps, stride);
        ownsStorePart(pDst, sums.result(0), static_cast<int>(count));
    }
}
