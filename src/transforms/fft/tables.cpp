#include "transforms/fft/tables.h"

#include "transforms/fft/access.h"

namespace {

// The twiddles exp(-2 pi i k j / M) of one index k, j = 0 to count - 1, to one row of each group. The angle
// is kept within a quarter circle; each time it leaves one, the value turns by -i.
template <class T>
void fillRow(T* row, int rowsPerGroup, int count, int step, OwnsSines<T> sines)
{
    constexpr int lanes = ownsLanes<T>;
    const int quarter = (1 << sines.order) / 4;
    T sign[2] = {1, -1};
    bool turned = false;
    int angle = 0;
    for (int j = 0; j < count; j += lanes, row += rowsPerGroup * lanes) {
        for (int lane = 0; lane < lanes; lane++, angle += step) {
            if (angle > quarter) {
                angle -= quarter;
                turned = !turned;
                const T re = sign[0];
                sign[0] = sign[1];
                sign[1] = -re;
            }
            const T c = sines.s[quarter - angle];
            const T s = sines.s[angle];
            row[lane] = sign[0] * (turned ? s : c);
            row[lanes + lane] = sign[1] * (turned ? c : s);
        }
    }
}

// Groups of complex factors made of the cosine and sine of 2 pi k / 2^order, k = 1 to count.
template <class T, class Factor>
void fillRecomb(T* p, int order, int count, OwnsSines<T> sines, Factor factor)
{
    constexpr int lanes = ownsLanes<T>;
    const int shift = sines.order - order;
    for (int k = 1; k <= count; p += 2 * lanes) {
        for (int lane = 0; lane < lanes; lane++, k++) {
            const OwnsOne<T> value = factor(sines.cosine(k << shift), sines.sine(k << shift));
            p[lane] = value.re;
            p[lanes + lane] = value.im;
        }
    }
}

// The two levels of W = exp(-2 pi i k / N): fine groups for k = 1 to F, and a coarse value for each F.
template <class T>
void fillTwoLevels(T* p, int order, OwnsSines<T> sines)
{
    constexpr int fine = 1 << OwnsFftTraits<T>::fineOrder;
    fillRecomb(p, order, fine, sines, [](T c, T s) { return OwnsOne<T>{c, -s}; });
    p += 2 * fine;
    const int shift = sines.order - order;
    const int coarse = (1 << order) / 4 / fine;
    for (int k = 0; k < coarse; k++) {
        *p++ = sines.cosine(fine * k << shift);
        *p++ = -sines.sine(fine * k << shift);
    }
}

} // namespace

void ownsFftBitRevTable(Zel32s* pIndex, int bits, int shift)
{
    // The entries of the upper half of a prefix are those of its lower half with the next bit set.
    pIndex[0] = 0;
    for (int bit = 0; bit < bits; bit++) {
        const int length = 1 << bit;
        const Zel32s set = 1 << (bits - 1 - bit + shift);
        for (int i = 0; i < length; i++)
            pIndex[length + i] = pIndex[i] + set;
    }
}

template <class T>
void ownsFftTwiddles(T* pTwiddles, int order, OwnsSines<T> sines)
{
    constexpr int lanes = ownsLanes<T>;
    int radixOrder = 0;
    for (int done = OwnsFftPasses::first(order); done < order; done += radixOrder) {
        radixOrder = OwnsFftPasses::radixOrder(order, done);
        const int radix = 1 << radixOrder;
        const int rows = 2 * (radix - 1);
        T* table = pTwiddles + OwnsFftPasses::offset(order, done);
        for (int k = 1; k < radix; k++)
            fillRow(table + (k - 1) * 2 * lanes, rows, 1 << done, k << (sines.order - done - radixOrder),
                    sines);
    }
}

template <class T>
void ownsFftRecombFwd(T* pTable, int order, OwnsSines<T> sines)
{
    if (order >= OwnsFftTraits<T>::realTwoLevel)
        return fillTwoLevels(pTable, order, sines);
    fillRecomb(pTable, order, (1 << order) / 4, sines, [](T c, T s) {
        return OwnsOne<T>{static_cast<T>(0.5 - 0.5 * static_cast<Zel64f>(s)), static_cast<T>(-0.5) * c};
    });
}

template <class T>
void ownsFftRecombInv(T* pTable, int order, OwnsSines<T> sines)
{
    if (order >= OwnsFftTraits<T>::realTwoLevel)
        return fillTwoLevels(pTable, order, sines);
    fillRecomb(pTable, order, (1 << order) / 4, sines, [](T c, T s) { return OwnsOne<T>{-s, c}; });
}

template void ownsFftTwiddles(Zel32f*, int, OwnsSines<Zel32f>);
template void ownsFftTwiddles(Zel64f*, int, OwnsSines<Zel64f>);
template void ownsFftRecombFwd(Zel32f*, int, OwnsSines<Zel32f>);
template void ownsFftRecombFwd(Zel64f*, int, OwnsSines<Zel64f>);
template void ownsFftRecombInv(Zel32f*, int, OwnsSines<Zel32f>);
template void ownsFftRecombInv(Zel64f*, int, OwnsSines<Zel64f>);
