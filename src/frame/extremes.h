// The larger and the smaller of two, and magnitudes, of single elements and of vectors.
#pragma once

#include "frame/vec.h"

#include <type_traits>

// Better. `fold` is `best > x ? best : x`, exactly so for floats: a NaN as either operand gives x, and so does a pair of
// zeros. `better` is the strict comparison of an element with the best so far.

struct OwnsLargest {
    static bool better(auto x, auto best) { return x > best; }

    template <class T>
    static std::enable_if_t<std::is_arithmetic_v<T>, T> fold(T best, T x)
    {
        return best > x ? best : x;
    }
    static OwnsVec<Zel32f> fold(OwnsVec<Zel32f> best, OwnsVec<Zel32f> x) { return _mm_max_ps(best, x); }
    static OwnsVec<Zel64f> fold(OwnsVec<Zel64f> best, OwnsVec<Zel64f> x) { return _mm_max_pd(best, x); }
    static OwnsVec<Zel8u> fold(OwnsVec<Zel8u> best, OwnsVec<Zel8u> x)
    {
        return ownsAs<Zel8u>(_mm_max_epu8(ownsInt(best), ownsInt(x)));
    }
    static OwnsVec<Zel16u> fold(OwnsVec<Zel16u> best, OwnsVec<Zel16u> x)
    {
        return ownsAs<Zel16u>(_mm_max_epu16(ownsInt(best), ownsInt(x)));
    }
    static OwnsVec<Zel16s> fold(OwnsVec<Zel16s> best, OwnsVec<Zel16s> x)
    {
        return ownsAs<Zel16s>(_mm_max_epi16(ownsInt(best), ownsInt(x)));
    }
    static OwnsVec<Zel32u> fold(OwnsVec<Zel32u> best, OwnsVec<Zel32u> x)
    {
        return ownsAs<Zel32u>(_mm_max_epu32(ownsInt(best), ownsInt(x)));
    }
    static OwnsVec<Zel32s> fold(OwnsVec<Zel32s> best, OwnsVec<Zel32s> x)
    {
        return ownsAs<Zel32s>(_mm_max_epi32(ownsInt(best), ownsInt(x)));
    }
};

struct OwnsSmallest {
    static bool better(auto x, auto best) { return x < best; }

    template <class T>
    static std::enable_if_t<std::is_arithmetic_v<T>, T> fold(T best, T x)
    {
        return best < x ? best : x;
    }
    static OwnsVec<Zel32f> fold(OwnsVec<Zel32f> best, OwnsVec<Zel32f> x) { return _mm_min_ps(best, x); }
    static OwnsVec<Zel64f> fold(OwnsVec<Zel64f> best, OwnsVec<Zel64f> x) { return _mm_min_pd(best, x); }
    static OwnsVec<Zel8u> fold(OwnsVec<Zel8u> best, OwnsVec<Zel8u> x)
    {
        return ownsAs<Zel8u>(_mm_min_epu8(ownsInt(best), ownsInt(x)));
    }
    static OwnsVec<Zel16u> fold(OwnsVec<Zel16u> best, OwnsVec<Zel16u> x)
    {
        return ownsAs<Zel16u>(_mm_min_epu16(ownsInt(best), ownsInt(x)));
    }
    static OwnsVec<Zel16s> fold(OwnsVec<Zel16s> best, OwnsVec<Zel16s> x)
    {
        return ownsAs<Zel16s>(_mm_min_epi16(ownsInt(best), ownsInt(x)));
    }
    static OwnsVec<Zel32u> fold(OwnsVec<Zel32u> best, OwnsVec<Zel32u> x)
    {
        return ownsAs<Zel32u>(_mm_min_epu32(ownsInt(best), ownsInt(x)));
    }
    static OwnsVec<Zel32s> fold(OwnsVec<Zel32s> best, OwnsVec<Zel32s> x)
    {
        return ownsAs<Zel32s>(_mm_min_epi32(ownsInt(best), ownsInt(x)));
    }
};

// Views of an element. The magnitude of the most negative integer is limited to the largest one.

struct OwnsPlain {
    static auto of(auto x) { return x; }
};

struct OwnsMagnitude {
    static Zel32f of(Zel32f x) { return __builtin_fabsf(x); }
    static Zel64f of(Zel64f x) { return __builtin_fabs(x); }
    static OwnsVec<Zel32f> of(OwnsVec<Zel32f> x) { return _mm_andnot_ps(_mm_set1_ps(-0.0f), x); }
    static OwnsVec<Zel64f> of(OwnsVec<Zel64f> x) { return _mm_andnot_pd(_mm_set1_pd(-0.0), x); }

    static Zel16s of(Zel16s x) { return static_cast<Zel16s>(x < -32767 ? 32767 : x < 0 ? -x : x); }
    static Zel32s of(Zel32s x) { return x < -INT32_MAX ? INT32_MAX : x < 0 ? -x : x; }
    static OwnsVec<Zel16s> of(OwnsVec<Zel16s> x)
    {
        return ownsAs<Zel16s>(_mm_abs_epi16(_mm_max_epi16(ownsInt(x), _mm_set1_epi16(-32767))));
    }
    static OwnsVec<Zel32s> of(OwnsVec<Zel32s> x)
    {
        return ownsAs<Zel32s>(_mm_abs_epi32(_mm_max_epi32(ownsInt(x), _mm_set1_epi32(-INT32_MAX))));
    }
};
