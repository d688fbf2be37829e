// Straight-line kernels of the orders 0 to 5, and 6 by pairs: no tables, no work memory, every constant built in.
//
// A kernel reads all of its source before it writes, so that it may run in place. Orders 3 to 5 are one pass
// of radix 4 over the columns of a matrix of four rows, and one butterfly across its results, where values have to
// be brought together; where a vector is one value, everything stays in pairs.
#pragma once

#include "transforms/fft/access.h"
#include "transforms/fft/butterfly.h"
#include "transforms/fft/sine.h"

/// exp(-+2 pi i j d / 2^order) for j = 0, 1, 2, 3, as vectors: the twiddles of row d in the last butterfly.
template <class T, int order, int d, bool inverse>
struct OwnsFourTwiddles {
    struct Lanes {
        alignas(16) T re[4];
        alignas(16) T im[4];
    };
    static constexpr Lanes lanes = [] {
        Lanes w{};
        for (int j = 0; j < 4; j++) {
            w.re[j] = static_cast<T>(ownsExactCosine(j * d, order));
            w.im[j] = static_cast<T>(ownsExactSine(inverse ? j * d : -j * d, order));
        }
        return w;
    }();

    static OwnsSplit<T> group(int g)
    {
        return {ownsLoadAligned(lanes.re + g * ownsLanes<T>), ownsLoadAligned(lanes.im + g * ownsLanes<T>)};
    }
};

/// Orders 3, 4, 5.
template <int order, bool inverse, class T, class Source, class Sink>
[[gnu::always_inline]] inline void ownsStraightMatrix(Source src, Sink sink)
{
    constexpr int columns = 1 << (order - 2);
    using Natural = typename Source::Values;
    using Values = std::conditional_t<Natural::values <= columns, Natural, OwnsPairs<T>>;
    constexpr int values = Values::values;
    constexpr int groups = 4 / ownsLanes<T>;
    OwnsSplit<T> work[groups][columns];
    ownsEach<columns / values>([&](auto pair) OWNS_INLINE {
        Values x[4];
        ownsEach<4>([&](auto d)
                        OWNS_INLINE { src.load(ownsReversed(d, 2) * columns + pair * values, x[d]); });
        ownsButterfly(x);
        Values y[4];
        ownsEach<4>([&](auto k) OWNS_INLINE { y[k] = x[ownsOutput<inverse>(k, 4)]; });
        ownsEach<groups>([&](auto g) OWNS_INLINE {
            OwnsSplit<T> turned[values];
            ownsTurned(y + g * ownsLanes<T>, turned);
            ownsEach<values>(
                [&](auto v) OWNS_INLINE { work[g][ownsReversed(pair * values + v, order - 2)] = turned[v]; });
        });
    });
    ownsEach<groups>([&](auto g) OWNS_INLINE {
        ownsEach<columns - 1>([&](auto k) OWNS_INLINE {
            constexpr int d = k + 1;
            constexpr int row = ownsReversed(d, order - 2);
            work[g][d] = work[g][d] * OwnsFourTwiddles<T, order, row, inverse>::group(g);
        });
        ownsButterfly(work[g]);
        ownsEach<columns>([&](auto k) OWNS_INLINE {
            sink.store(g + k * groups, work[g][ownsOutput<inverse>(k, columns)]);
        });
    });
}

/// Order 2, by pairs.
template <bool inverse, class T, class Source, class Sink>
[[gnu::always_inline]] inline void ownsStraightFour(Source src, Sink sink)
{
    if constexpr (sizeof(T) == 4) {
        OwnsPairs<T> a;
        OwnsPairs<T> b;
        src.load(0, a);
        src.load(2, b);
        const __m128 sum = (a + b).v;
        const __m128 diff = (a - b).v;
        // The second of the odd values turns by a quarter: forward (im, -re), inverse (-im, re).
        const __m128 sign =
            inverse ? _mm_setr_ps(0.0f, 0.0f, -0.0f, 0.0f) : _mm_setr_ps(0.0f, 0.0f, 0.0f, -0.0f);
        const OwnsPairs<T> even{_mm_movelh_ps(sum, diff)};
        const OwnsPairs<T> odd{_mm_xor_ps(_mm_shuffle_ps(sum, diff, 0xBE), sign)};
        sink.storePairs(0, even + odd);
        sink.storePairs(2, even - odd);
    } else {
        OwnsPairs<T> x[4];
        ownsEach<4>([&](auto d) OWNS_INLINE { src.load(ownsReversed(d, 2), x[d]); });
        ownsButterfly(x);
        ownsEach<4>([&](auto k) OWNS_INLINE { sink.storePairs(k, x[ownsOutput<inverse>(k, 4)]); });
    }
}

/// Orders 3 and 4 by pairs, for sources where a vector is one value and nothing needs to be turned.
template <bool inverse, class T, class Source, class Sink>
[[gnu::always_inline]] inline void ownsStraightEight(Source src, Sink sink)
{
    OwnsPairs<T> x[8];
    ownsEach<8>([&](auto d) OWNS_INLINE { src.load(ownsReversed(d, 3), x[d]); });
    ownsButterfly(x);
    ownsEach<8>([&](auto k) OWNS_INLINE { sink.storePairs(k, x[ownsOutput<inverse>(k, 8)]); });
}
template <bool inverse, class T, class Source, class Sink>
[[gnu::always_inline]] inline void ownsStraightSixteen(Source src, Sink sink)
{
    OwnsPairs<T> x[4][4];
    ownsEach<4>([&](auto a) OWNS_INLINE {
        ownsEach<4>([&](auto d) OWNS_INLINE { src.load(ownsReversed(4 * a + d, 4), x[a][d]); });
        ownsButterfly(x[a]);
    });
    ownsEach<4>([&](auto k) OWNS_INLINE {
        ownsButterflyAcross<k>(x);
        ownsEach<4>([&](auto a)
                        OWNS_INLINE { sink.storePairs(ownsOutput<inverse>(4 * a + k, 16), x[a][k]); });
    });
}

/// Orders 5 and 6 by pairs, for sources where a vector is one value: transforms of 8 over the columns of a matrix of
/// eight rows, then along its rows.
template <int order, bool inverse, class T, class Source, class Sink>
[[gnu::always_inline]] inline void ownsStraightColumns(Source src, Sink sink)
{
    constexpr int columns = 1 << (order - 3);
    OwnsPairs<T> work[8][columns];
    ownsEach<columns>([&](auto c) OWNS_INLINE {
        OwnsPairs<T> x[8];
        ownsEach<8>([&](auto d) OWNS_INLINE { src.load(ownsReversed(d, 3) * columns + c, x[d]); });
        ownsButterfly(x);
        ownsEach<8>([&](auto k) OWNS_INLINE {
            const OwnsPairs<T> y = x[ownsOutput<inverse>(k, 8)];
            constexpr int e = inverse ? -c * k : c * k;
            if constexpr (e == 0)
                work[k][c] = y;
            else
                work[k][c] = ownsTurnedBy<e, order>(y);
        });
    });
    ownsEach<8>([&](auto k) OWNS_INLINE {
        OwnsPairs<T> y[columns];
        ownsEach<columns>([&](auto d) OWNS_INLINE { y[d] = work[k][ownsReversed(d, order - 3)]; });
        ownsButterfly(y);
        ownsEach<columns>(
            [&](auto j) OWNS_INLINE { sink.storePairs(k + 8 * j, y[ownsOutput<inverse>(j, columns)]); });
    });
}

/// Order 3 from two arrays in 32f: sums and differences of the halves of the source, the differences turned, are two
/// transforms of 4, whose values lie in turn from there on, as their results do in the end.
template <class Source, class Sink>
[[gnu::always_inline]] inline void ownsStraightEightSplit(Source src, Sink sink)
{
    using X = OwnsSplit<Zel32f>;
    X a;
    X b;
    src.load(0, a);
    src.load(4, b);
    const X even = a + b;
    const X odd = (a - b) * OwnsFourTwiddles<Zel32f, 3, 1, false>::group(0);
    const X first{ownsZipLow(even.re, odd.re), ownsZipLow(even.im, odd.im)};
    const X second{ownsZipHigh(even.re, odd.re), ownsZipHigh(even.im, odd.im)};
    const X sum = first + second;
    const X diff = first - second;
    const X low{_mm_movelh_ps(sum.re, diff.re), _mm_movelh_ps(sum.im, diff.im)};
    const __m128 turned = _mm_xor_ps(_mm_movehl_ps(diff.re, sum.im), _mm_setr_ps(0.0f, 0.0f, -0.0f, -0.0f));
    const X high{_mm_movehl_ps(diff.im, sum.re), turned};
    sink.store(0, low + high);
    sink.store(1, low - high);
}

/// The highest order that has a kernel. Plans have tables from order 6 on all the same, since their sizes are promised.
template <class Source>
inline constexpr int ownsHighestStraight = Source::Values::values == 1 ? 6 : 5;

/// The kernel of an order, as a choice at run time.
template <bool inverse, class T, class Source, class Sink>
[[gnu::always_inline]] inline void ownsStraight(int order, Source src, Sink sink)
{
    switch (order) {
    case 0:
        sink.put(0, src.get(0));
        break;
    case 1: {
        const OwnsOne<T> a = src.get(0);
        const OwnsOne<T> b = src.get(1);
        sink.put(0, {a.re + b.re, a.im + b.im});
        sink.put(1, {a.re - b.re, a.im - b.im});
        break;
    }
    case 2:
        ownsStraightFour<inverse, T>(src, sink);
        break;
    case 3:
        if constexpr (Source::Values::values == 1)
            ownsStraightEight<inverse, T>(src, sink);
        else if constexpr (std::is_same_v<typename Source::Values, OwnsSplit<Zel32f>>)
            ownsStraightEightSplit(src, sink);
        else
            ownsStraightMatrix<3, inverse, T>(src, sink);
        break;
    case 4:
        if constexpr (Source::Values::values == 1)
            ownsStraightSixteen<inverse, T>(src, sink);
        else
            ownsStraightMatrix<4, inverse, T>(src, sink);
        break;
    case 6:
        if constexpr (ownsHighestStraight<Source> == 6)
            ownsStraightColumns<6, inverse, T>(src, sink);
        break;
    default:
        if constexpr (Source::Values::values == 1)
            ownsStraightColumns<5, inverse, T>(src, sink);
        else
            ownsStraightMatrix<5, inverse, T>(src, sink);
        break;
    }
}
