// Measures of zero crossings over pairs of neighbours.
#include "frame/reduce.h"
#include "zels.h"

namespace {

using I32x4 = OwnsVec<Zel32s>;

// A measure gives the contributions of pairs (x, y), which are the same for a pair of zeros: none. It has a vector form for
// each element type. Contributions of 16-bit lanes are added in pairs.

I32x4 inPairs(__m128i contributions, Zel16s unit)
{
    return ownsAs<Zel32s>(_mm_madd_epi16(contributions, _mm_set1_epi16(unit)));
}

/// Pairs of opposite sign.
struct Opposite {
    static I32x4 of(OwnsF32x4 x, OwnsF32x4 y)
    {
        const OwnsF32x4 zero{};
        return -I32x4(((x < zero) & (y > zero)) | ((x > zero) & (y < zero)));
    }
    // The upper half of a product is negative where the product is.
    static I32x4 of(OwnsVec<Zel16s> x, OwnsVec<Zel16s> y)
    {
        return inPairs(_mm_srai_epi16(_mm_mulhi_epi16(ownsInt(x), ownsInt(y)), 15), -1);
    }
};

/// Pairs of different sign bits.
struct SignBits {
    static I32x4 of(OwnsF32x4 x, OwnsF32x4 y)
    {
        return ownsAs<Zel32s>(_mm_srli_epi32(_mm_xor_si128(ownsInt(x), ownsInt(y)), 31));
    }
    static I32x4 of(OwnsVec<Zel16s> x, OwnsVec<Zel16s> y)
    {
        return inPairs(_mm_srai_epi16(_mm_xor_si128(ownsInt(x), ownsInt(y)), 15), -1);
    }
};

/// Differences of signs, where 0 has sign 0: twice the measure.
struct Signs {
    static I32x4 of(OwnsF32x4 x, OwnsF32x4 y)
    {
        const auto sign = [](OwnsF32x4 v) { return I32x4(v < OwnsF32x4{}) - I32x4(v > OwnsF32x4{}); };
        return ownsAs<Zel32s>(_mm_abs_epi32(ownsInt(sign(x) - sign(y))));
    }
    static I32x4 of(OwnsVec<Zel16s> x, OwnsVec<Zel16s> y)
    {
        const auto sign = [](OwnsVec<Zel16s> v) { return _mm_sign_epi16(_mm_set1_epi16(1), ownsInt(v)); };
        return inPairs(_mm_abs_epi16(_mm_sub_epi16(sign(x), sign(y))), 1);
    }
};

/// Sums over all pairs; blocks keep the lanes within 32 bits.
template <class Measure, class T>
Zel64s overPairs(const T* p, ZelSize len)
{
    Zel64u total = 0;
    ownsBlocks(ZelSize{1} << 30, 0, len - 1, [&](ZelSize from, ZelSize to) {
        OwnsVec<Zel32u> sums[2] = {};
        ownsVectors(
            sums, from, to,
            [](OwnsVec<Zel32u>& s, OwnsVec<T> x, OwnsVec<T> y) { s += ownsAs<Zel32u>(Measure::of(x, y)); }, p,
            p + 1);
        const OwnsVec<Zel32u> lanes = sums[0] + sums[1];
        total += Zel64u{lanes[0]} + lanes[1] + lanes[2] + lanes[3];
    });
    return static_cast<Zel64s>(total);
}

template <class T>
ZelStatus zeroCrossing(const T* pSrc, Zel32u len, Zel32f* pValZC, Zel32u zcType)
{
    if (const ZelStatus status = ownsCheck(len, pSrc, pValZC); status != zelStatusOk)
        return status;
    Zel64f value;
    switch (zcType) {
    case 0:
        value = static_cast<Zel64f>(overPairs<Opposite>(pSrc, len));
        break;
    case 1:
        value = static_cast<Zel64f>(overPairs<SignBits>(pSrc, len));
        break;
    case 2:
        value = 0.5 * static_cast<Zel64f>(overPairs<Signs>(pSrc, len));
        break;
    default:
        return zelErrRange;
    }
    ownsPut(pValZC, static_cast<Zel32f>(value));
    return zelStatusOk;
}

} // namespace

ZelStatus zelsZeroCrossing_16s32f(const Zel16s* pSrc, Zel32u len, Zel32f* pValZC, Zel32u zcType)
{
    return zeroCrossing(pSrc, len, pValZC, zcType);
}

ZelStatus zelsZeroCrossing_32f(const Zel32f* pSrc, Zel32u len, Zel32f* pValZC, Zel32u zcType)
{
    return zeroCrossing(pSrc, len, pValZC, zcType);
}
