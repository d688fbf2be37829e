#include "transforms/fft/columns.h"
#include "transforms/fft/tables.h"

namespace {

// exp(-2 pi i k / 2^order) for any k of the circle.
template <class T>
OwnsOne<T> unit(ZelSize k, int order, OwnsSines<T> sines)
{
    const int circle = 1 << sines.order;
    const int quarter = circle / 4;
    const int angle = static_cast<int>(k << (sines.order - order)) & (circle - 1);
    const T c = sines.s[quarter - angle % quarter];
    const T s = sines.s[angle % quarter];
    switch (angle / quarter) {
    case 0:
        return {c, -s};
    case 1:
        return {-s, -c};
    case 2:
        return {-c, s};
    default:
        return {s, c};
    }
}

template <class T>
T* putConstant(T* p, OwnsOne<T> value)
{
    for (int k = 0; k < ownsSpreadStep<T>; k++) {
        p[k] = value.re;
        p[ownsSpreadStep<T> + k] = value.im;
    }
    return p + ownsConstantStep<T>;
}

} // namespace

template <class T>
void ownsFftColumnTable(T* pTable, int order, int columns, int widthOrder, OwnsSines<T> sines)
{
    constexpr int lanes = ownsLanes<T>;
    const int rows = 1 << columns;
    const int width = 1 << widthOrder;
    T* p = pTable;
    for (int i = 0; i < rows; i++) {
        const ZelSize row = ownsReversed(i, columns);
        for (int c = 0; c < width; c += lanes, p += 2 * lanes) {
            for (int lane = 0; lane < lanes; lane++) {
                const OwnsOne<T> w = unit(row * (c + lane), order, sines);
                p[lane] = w.re;
                p[lanes + lane] = w.im;
            }
        }
    }

    T* constant = p;
    int radixOrder = 0;
    for (int done = ownsColumnRadix(columns, 0); done < columns; done += radixOrder) {
        radixOrder = ownsColumnRadix(columns, done);
        for (int j = 0; j < 1 << done; j++)
            for (int k = 1; k < 1 << radixOrder; k++)
                constant = putConstant(constant, unit(ZelSize{j} * k, done + radixOrder, sines));
    }

    T* coarse = p + (static_cast<ZelSize>(ownsConstantStep<T>) << columns);
    const int tiles = 1 << (order - columns - widthOrder);
    for (int t = 0; t < tiles; t++)
        for (int i = 0; i < rows; i++)
            coarse = putConstant(coarse,
                                 unit((ZelSize{ownsReversed(i, columns)} * t) << widthOrder, order, sines));
}

template void ownsFftColumnTable(Zel32f*, int, int, int, OwnsSines<Zel32f>);
template void ownsFftColumnTable(Zel64f*, int, int, int, OwnsSines<Zel64f>);
