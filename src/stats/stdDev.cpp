// Standard deviations, with and without the mean: one pass of sum and sum of squares.
#include "stats/exactSum.h"
#include "stats/scaled.h"
#include "zels.h"

#include <cmath>

namespace {

/// Two sums of the elements: of themselves and of their squares.
struct Moments {
    Zel64f sum;
    Zel64f squares;
};

/// Running sums in lanes.
template <class V>
struct Running {
    V sum{};
    V squares{};

    void add(V x)
    {
        sum += x;
        squares += x * x;
    }
    Running operator+(const Running& other) const { return {sum + other.sum, squares + other.squares}; }
    void operator+=(const Running& other) { *this = *this + other; }
};

Moments folded(const Running<OwnsF64x2>& r)
{
    return {ownsLaneSum(r.sum), ownsLaneSum(r.squares)};
}

Moments accurateMoments(const Zel32f* p, ZelSize len)
{
    const auto add = [p](Running<OwnsF64x2>& r, ZelSize i) { r.add(ownsWidePair(p + i)); };

    Running<OwnsF64x2> a[2];
    ZelSize i = 0;
    if (ownsBefore(8, p, len) == 1) {
        a[0].add(ownsWideOne(p));
        i = 1;
    }
    i = ownsRounds<2>(a, i, len, add); // four elements a round
    i = ownsRounds<2>(a[0], i, len, add);
    if (i < len)
        a[0].add(ownsWideOne(p + i));
    return folded(a[0] + a[1]);
}

/// Blocks of 1,024 elements in single precision; what stands before the first 16-byte boundary and behind the
/// last round singly in double precision.
Moments fastMoments(const Zel32f* p, ZelSize len)
{
    const auto add = [p](Running<OwnsF32x4>& r, ZelSize i) { r.add(ownsLoad(p + i)); };
    const auto addOne = [p](Running<OwnsF64x2>& r, ZelSize i) { r.add(ownsWideOne(p + i)); };

    Running<OwnsF64x2> total;
    const bool unaligned = reinterpret_cast<std::uintptr_t>(p) % sizeof(Zel32f) != 0;
    const ZelSize before = ownsRounds<1>(total, 0, unaligned ? len : ownsBefore(16, p, len), addOne);
    ownsBlocks(1024, before, len, [&](ZelSize from, ZelSize to) {
        Running<OwnsF32x4> b[2];
        const ZelSize i = ownsRounds<4>(b, from, to, add); // eight elements a round
        const Running<OwnsF32x4> block = b[0] + b[1];
        total += {ownsWideFold(block.sum), ownsWideFold(block.squares)};
        ownsRounds<1>(total, i, to, addOne);
    });
    return folded(total);
}

Moments moments(const Zel64f* p, ZelSize len)
{
    const auto add = [p](Running<OwnsF64x2>& r, ZelSize i) { r.add(ownsLoad(p + i)); };

    Running<OwnsF64x2> a[4];
    ZelSize i = ownsRounds<2>(a, 0, len, add); // eight elements a round
    Running<OwnsF64x2> sum = a[0] + a[1] + (a[2] + a[3]);
    i = ownsRounds<2>(sum, i, len, add);
    if (i < len)
        sum.add(OwnsF64x2{ownsGet(p + i)});
    return folded(sum);
}

/// Exact sums: a block's squares come in pairs below 2^31 + 1, as unsigned values.
Moments moments(const Zel16s* p, ZelSize len)
{
    struct Lanes {
        OwnsVec<Zel32s> sum{};
        OwnsExactSum<Zel32u> squares;
    };
    const __m128i ones = _mm_set1_epi16(1);
    Zel64s sum = 0;
    OwnsVec<Zel64s> squares{};
    ownsBlocks(ownsExactBlock, 0, len, [&](ZelSize from, ZelSize to) {
        Lanes a[2];
        ownsVectors(
            a, from, to,
            [ones](Lanes& r, OwnsVec<Zel16s> x) {
                r.sum += ownsAs<Zel32s>(_mm_madd_epi16(ownsInt(x), ones));
                r.squares.add(ownsAs<Zel32u>(_mm_madd_epi16(ownsInt(x), ownsInt(x))));
            },
            p);
        sum += ownsLaneSum(a[0].sum + a[1].sum);
        a[0].squares.merge(a[1].squares);
        squares += a[0].squares.pairs();
    });
    return {static_cast<Zel64f>(sum), static_cast<Zel64f>(ownsLaneSum(squares))};
}

Zel64f mean(Moments m, int len)
{
    return m.sum / len;
}

/// The sample formula. The comparison gives 0 for a numerator that rounding made negative, and for NaN.
Zel64f deviation(Moments m, int len)
{
    const Zel64f n = len;
    const Zel64f numerator = n * m.squares - m.sum * m.sum;
    return std::sqrt((numerator > 0 ? numerator : 0) / (n * (n - 1)));
}

Zel32s scaled(Zel64f value, int scaleFactor)
{
    return ownsConverted<Zel32s>(ownsTimesMultiplier(value, scaleFactor));
}

/// The entry: pointers, then a length of at least 2. `store` gets the moments.
template <class Sums, class Store, class S, class... R>
[[gnu::always_inline]] inline ZelStatus deviationOf(Sums sums, Store store, int len, const S* pSrc,
                                                    const R*... pResult)
{
    if (const ZelStatus status = ownsCheck(len < 2 ? 0 : len, pSrc, pResult...); status != zelStatusOk)
        return status;
    store(sums(pSrc, len));
    return zelStatusOk;
}

constexpr auto exact = [](auto p, ZelSize len) { return moments(p, len); };

} // namespace

ZelStatus zelsStdDev_32f(const Zel32f* pSrc, int len, Zel32f* pStdDev, ZelHintAlgorithm hint)
{
    const auto sums = hint == zelHintFast ? fastMoments : accurateMoments;
    return deviationOf(
        sums, [=](Moments m) { ownsPut(pStdDev, static_cast<Zel32f>(deviation(m, len))); }, len, pSrc,
        pStdDev);
}

ZelStatus zelsStdDev_64f(const Zel64f* pSrc, int len, Zel64f* pStdDev)
{
    return deviationOf(
        exact, [=](Moments m) { ownsPut(pStdDev, deviation(m, len)); }, len, pSrc, pStdDev);
}

ZelStatus zelsStdDev_16s_Sfs(const Zel16s* pSrc, int len, Zel16s* pStdDev, int scaleFactor)
{
    const auto store = [=](Moments m) {
        ownsPut(pStdDev, ownsSaturated<Zel16s>(scaled(deviation(m, len), scaleFactor)));
    };
    return deviationOf(exact, store, len, pSrc, pStdDev);
}

ZelStatus zelsStdDev_16s32s_Sfs(const Zel16s* pSrc, int len, Zel32s* pStdDev, int scaleFactor)
{
    const auto store = [=](Moments m) { ownsPut(pStdDev, scaled(deviation(m, len), scaleFactor)); };
    return deviationOf(exact, store, len, pSrc, pStdDev);
}

ZelStatus zelsMeanStdDev_32f(const Zel32f* pSrc, int len, Zel32f* pMean, Zel32f* pStdDev)
{
    const auto store = [=](Moments m) {
        ownsPut(pMean, static_cast<Zel32f>(mean(m, len)));
        ownsPut(pStdDev, static_cast<Zel32f>(deviation(m, len)));
    };
    return deviationOf(accurateMoments, store, len, pSrc, pMean, pStdDev);
}

ZelStatus zelsMeanStdDev_64f(const Zel64f* pSrc, int len, Zel64f* pMean, Zel64f* pStdDev)
{
    const auto store = [=](Moments m) {
        ownsPut(pMean, mean(m, len));
        ownsPut(pStdDev, deviation(m, len));
    };
    return deviationOf(exact, store, len, pSrc, pMean, pStdDev);
}

ZelStatus zelsMeanStdDev_16s_Sfs(const Zel16s* pSrc, int len, Zel16s* pMean, Zel16s* pStdDev, int scaleFactor)
{
    const auto store = [=](Moments m) {
        ownsPut(pMean, ownsSaturated<Zel16s>(scaled(mean(m, len), scaleFactor)));
        ownsPut(pStdDev, ownsSaturated<Zel16s>(scaled(deviation(m, len), scaleFactor)));
    };
    return deviationOf(exact, store, len, pSrc, pMean, pStdDev);
}

ZelStatus zelsMeanStdDev_16s32s_Sfs(const Zel16s* pSrc, int len, Zel32s* pMean, Zel32s* pStdDev,
                                    int scaleFactor)
{
    const auto store = [=](Moments m) {
        ownsPut(pMean, scaled(mean(m, len), scaleFactor));
        ownsPut(pStdDev, scaled(deviation(m, len), scaleFactor));
    };
    return deviationOf(exact, store, len, pSrc, pMean, pStdDev);
}
