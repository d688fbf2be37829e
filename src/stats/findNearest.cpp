// The nearest entry of an ascending table.
#include "frame/entry.h"
#include "frame/vec.h"
#include "zels.h"

namespace {

/// The lower of two neighbours wins a tie. The search keeps table[low] <= value < table[high].
int nearest(Zel16u value, const Zel16u* pTable, int tblLen)
{
    const int last = tblLen - 1;
    if (value <= ownsGet(pTable))
        return 0;
    if (value >= ownsGet(pTable + last))
        return last;
    int low = 0;
    for (int span = last; span > 1;) {
        const int half = span / 2;
        if (value >= ownsGet(pTable + low + half)) {
            low += half;
            span -= half;
        } else {
            span = half;
        }
    }
    return value - ownsGet(pTable + low) > ownsGet(pTable + low + 1) - value ? low + 1 : low;
}

} // namespace

ZelStatus zelsFindNearestOne_16u(Zel16u inp, Zel16u* pOutVal, int* pOutIndex, const Zel16u* pTable,
                                 int tblLen)
{
    if (const ZelStatus status = ownsCheck(tblLen, pOutVal, pOutIndex, pTable); status != zelStatusOk)
        return status;
    const int index = nearest(inp, pTable, tblLen);
    ownsPut(pOutVal, ownsGet(pTable + index));
    ownsPut(pOutIndex, index);
    return zelStatusOk;
}

ZelStatus zelsFindNearest_16u(const Zel16u* pVals, Zel16u* pOutVals, int* pOutIndexes, int len,
                              const Zel16u* pTable, int tblLen)
{
    if (const ZelStatus status = ownsCheck(len, pVals, pOutVals, pOutIndexes, pTable); status != zelStatusOk)
        return status;
    if (tblLen < 1)
        return zelErrSize;
    for (ZelSize i = 0; i < len; i++) {
        const int index = nearest(ownsGet(pVals + i), pTable, tblLen);
        ownsPut(pOutVals + i, ownsGet(pTable + index));
        ownsPut(pOutIndexes + i, index);
    }
    return zelStatusOk;
}
