#include "transforms/fft/tables.h"

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

template void ownsFftTwiddles(Zel32f*, int, OwnsSines<Zel32f>);
template void ownsFftTwiddles(Zel64f*, int, OwnsSines<Zel64f>);
