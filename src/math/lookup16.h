// A function of 16 arguments in a row, looked up for a vector at once.
#pragma once

#include "frame/vec.h"

/// The results, their low and high bytes apart.
struct alignas(16) OwnsLookup16s {
    Zel8u low[16];
    Zel8u high[16];

    constexpr void set(int index, Zel32s result)
    {
        low[index] = static_cast<Zel8u>(result);
        high[index] = static_cast<Zel8u>(result >> 8);
    }
    constexpr Zel16s get(int index) const { return static_cast<Zel16s>(high[index] << 8 | low[index]); }
};

/// The table in registers. Arguments outside the row count as its ends.
class OwnsLooker16s {
    __m128i first, last, low, high;

  public:
    OwnsLooker16s(const OwnsLookup16s& table, Zel16s firstArgument)
        : first(_mm_set1_epi16(firstArgument)), last(_mm_add_epi16(first, _mm_set1_epi16(15))),
          low(ownsInt(ownsLoad(table.low))), high(ownsInt(ownsLoad(table.high)))
    {
    }

    OwnsVec<Zel16s> operator()(OwnsVec<Zel16s> x) const
    {
        const __m128i index = _mm_sub_epi16(_mm_min_epi16(_mm_max_epi16(ownsInt(x), first), last), first);
        const __m128i bytes = _mm_packus_epi16(index, index);
        return ownsAs<Zel16s>(_mm_unpacklo_epi8(_mm_shuffle_epi8(low, bytes), _mm_shuffle_epi8(high, bytes)));
    }
};
