// The number of bits that the largest magnitude needs. The length is tested before the pointers, on purpose.
//
// Floats are looked at as bit patterns: nothing here can raise a floating-point exception.
#include "frame/reduce.h"
#include "zels.h"

#include <bit>

namespace {

/// The order of integers is that of the union of their magnitudes. -32768 and the like have theirs in the unsigned
/// type.
int orderOfBits(const Zel16s* p, ZelSize len)
{
    OwnsVec<Zel16u> bits[2] = {};
    ownsVectors(
        bits, 0, len,
        [](OwnsVec<Zel16u>& r, OwnsVec<Zel16s> x) { r |= ownsAs<Zel16u>(_mm_abs_epi16(ownsInt(x))); }, p);
    const auto all = ownsAs<Zel64u>(bits[0] | bits[1]);
    Zel64u joined = all[0] | all[1];
    joined |= joined >> 32;
    return static_cast<int>(std::bit_width(static_cast<Zel16u>(joined | joined >> 16)));
}

int orderOfBits(const Zel32s* p, ZelSize len)
{
    OwnsVec<Zel32u> bits[2] = {};
    ownsVectors(
        bits, 0, len,
        [](OwnsVec<Zel32u>& r, OwnsVec<Zel32s> x) { r |= ownsAs<Zel32u>(_mm_abs_epi32(ownsInt(x))); }, p);
    const auto all = ownsAs<Zel64u>(bits[0] | bits[1]);
    const Zel64u joined = all[0] | all[1];
    return static_cast<int>(std::bit_width(static_cast<Zel32u>(joined | joined >> 32)));
}

template <class T>
ZelStatus integerOrder(const T* pSrc, int len, int* pOrder)
{
    if (len < 1)
        return zelErrSize;
    return ownsReduce(
        pOrder, [=] { return orderOfBits(pSrc, len); }, len, pSrc);
}

/// The largest word that holds an exponent, and whether any bit stands under the signs.
struct Largest {
    Zel32s exponentWord;
    bool nonZero;
};

template <class T>
Largest folded(OwnsVec<Zel32s> largest, OwnsVec<Zel32s> bits)
{
    const auto any = ownsAs<Zel64u>(bits);
    // The words of exponents are all four, or the upper ones of doubles.
    Zel32s word = largest[1] > largest[3] ? largest[1] : largest[3];
    if constexpr (sizeof(T) == 4) {
        const Zel32s other = largest[0] > largest[2] ? largest[0] : largest[2];
        word = word > other ? word : other;
    }
    return {word, (any[0] | any[1]) != 0};
}

/// A mask of all bits but the signs.
template <class T>
__m128i unsignedMask()
{
    return sizeof(T) == 4 ? _mm_set1_epi32(INT32_MAX) : _mm_set1_epi64x(INT64_MAX);
}

template <class T>
Largest largestOf(const T* p, ZelSize len, bool finiteOnly)
{
    constexpr Zel32s limit = sizeof(T) == 4 ? 0x7F7FFFFF : 0x7FEFFFFF;
    struct Words {
        OwnsVec<Zel32s> largest{};
        OwnsVec<Zel32s> bits{};
    };
    const auto fold = [&](auto value) {
        Words words[2];
        ownsVectors(
            words, 0, len,
            [&](Words& w, OwnsVec<T> x) {
                const __m128i bits = value(_mm_and_si128(ownsInt(x), unsignedMask<T>()));
                w.largest = ownsAs<Zel32s>(_mm_max_epi32(ownsInt(w.largest), bits));
                w.bits |= ownsAs<Zel32s>(bits);
            },
            p);
        const __m128i largest = _mm_max_epi32(ownsInt(words[0].largest), ownsInt(words[1].largest));
        return folded<T>(ownsAs<Zel32s>(largest), words[0].bits | words[1].bits);
    };
    if (!finiteOnly)
        return fold([](__m128i bits) { return bits; });
    return fold([](__m128i bits) {
        __m128i beyond = _mm_cmpgt_epi32(bits, _mm_set1_epi32(limit));
        if constexpr (sizeof(T) == 8)
            beyond = _mm_shuffle_epi32(beyond, 0xF5);
        return _mm_andnot_si128(beyond, bits);
    });
}

/// Elements that are not finite raise the warning and count as 0.
template <class T>
ZelStatus floatOrder(const T* pSrc, int len, int* pOrder)
{
    constexpr int fraction = sizeof(T) == 4 ? 23 : 20;
    constexpr Zel32s infinity = sizeof(T) == 4 ? 0x7F800000 : 0x7FF00000;
    constexpr int bias = sizeof(T) == 4 ? 126 : 1022;
    if (len < 1)
        return zelErrSize;
    if (const ZelStatus status = ownsCheck(len, pSrc, pOrder); status != zelStatusOk)
        return status;
    Largest largest = largestOf(pSrc, len, false);
    const bool finite = largest.exponentWord < infinity;
    if (!finite)
        largest = largestOf(pSrc, len, true);
    ownsPut(pOrder, largest.nonZero ? (largest.exponentWord >> fraction) - bias : 0);
    return finite ? zelStatusOk : zelWarnNaNSource;
}

} // namespace

ZelStatus zelsMaxOrder_16s(const Zel16s* pSrc, int len, int* pOrder)
{
    return integerOrder(pSrc, len, pOrder);
}

ZelStatus zelsMaxOrder_32s(const Zel32s* pSrc, int len, int* pOrder)
{
    return integerOrder(pSrc, len, pOrder);
}

ZelStatus zelsMaxOrder_32f(const Zel32f* pSrc, int len, int* pOrder)
{
    return floatOrder(pSrc, len, pOrder);
}

ZelStatus zelsMaxOrder_64f(const Zel64f* pSrc, int len, int* pOrder)
{
    return floatOrder(pSrc, len, pOrder);
}
