// Elements within a range.
#include "frame/reduce.h"
#include "zels.h"

// Elements equal to a bound are not in the range.
ZelStatus zelsCountInRange_32s(const Zel32s* pSrc, int len, int* pCounts, Zel32s lowerBound,
                               Zel32s upperBound)
{
    const auto count = [=] {
        const __m128i lower = _mm_set1_epi32(lowerBound);
        const __m128i upper = _mm_set1_epi32(upperBound);
        OwnsVec<Zel32s> r[2] = {};
        ZelSize i = ownsRounds<4>(r, 0, len, [=](OwnsVec<Zel32s>& counts, ZelSize at) {
            const __m128i x = ownsInt(ownsLoad(pSrc + at));
            const __m128i within = _mm_and_si128(_mm_cmpgt_epi32(x, lower), _mm_cmplt_epi32(x, upper));
            counts -= ownsAs<Zel32s>(within);
        });
        const OwnsVec<Zel32s> counts = r[0] + r[1];
        int total = counts[0] + counts[1] + counts[2] + counts[3];
        for (; i < len; i++) {
            const Zel32s x = ownsGet(pSrc + i);
            total += lowerBound < x && x < upperBound;
        }
        return total;
    };
    return ownsReduce(pCounts, count, len, pSrc);
}
