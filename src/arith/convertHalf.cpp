// Conversion from and to half precision, without the instructions of newer processors.
//
// All steps are exact or round by themselves, so that neither the caller's rounding mode nor flushing of
// subnormal numbers has a say.
#include "arith/convertFloat.h"
#include "zels.h"

#include <bit>

namespace {

// A half has 5 bits of exponent biased by 15 and 10 of mantissa; a float 8, 127 and 23.
constexpr int mantissaGap = 23 - 10;
constexpr int biasGap = (127 - 15) << 23;
constexpr int halfInfinity = 0x7C00;
constexpr int leastNormalHalf = 0x0400;
constexpr int floatInfinity = 0x7F800000;
constexpr int leastNormalAsFloat = std::bit_cast<int>(0x1p-14f);

/// Four halves, each in a 32-bit lane of its own, as floats. A subnormal half is its mantissa in units of
/// 2^-24, a normal float. A NaN keeps its payload.
__m128i floatBits(__m128i halves)
{
    const __m128i magnitude = _mm_and_si128(halves, _mm_set1_epi32(0x7FFF));
    const __m128i sign = _mm_slli_epi32(_mm_xor_si128(halves, magnitude), 16);
    const __m128i beyond = _mm_cmpgt_epi32(magnitude, _mm_set1_epi32(halfInfinity - 1));
    __m128i normal = _mm_add_epi32(_mm_slli_epi32(magnitude, mantissaGap), _mm_set1_epi32(biasGap));
    normal = _mm_add_epi32(normal, _mm_and_si128(beyond, _mm_set1_epi32(biasGap)));
    const __m128 subnormal = _mm_mul_ps(_mm_cvtepi32_ps(magnitude), _mm_set1_ps(0x1p-24f));
    const __m128i isSubnormal = _mm_cmpgt_epi32(_mm_set1_epi32(leastNormalHalf), magnitude);
    return _mm_or_si128(sign, _mm_blendv_epi8(normal, _mm_castps_si128(subnormal), isSubnormal));
}

OwnsVec<Zel32f> floats(OwnsVec<Zel16f> x)
{
    return _mm_castsi128_ps(floatBits(_mm_cvtepu16_epi32(ownsInt(x))));
}

struct Widen16f32f {
    OwnsVec<Zel32f> operator()(OwnsVec<Zel16f> x) const { return floats(x); }

    /// Eight halves. Zeros and normal numbers take shifts of their upper and their lower bits.
    static OwnsVecs<Zel32f, 2> pair(OwnsVec<Zel16f> v)
    {
        const __m128i h = ownsInt(v);
        const __m128i magnitude = _mm_and_si128(h, _mm_set1_epi16(0x7FFF));
        const __m128i sign = _mm_xor_si128(h, magnitude);
        const __m128i isZero = _mm_cmpeq_epi16(magnitude, _mm_setzero_si128());
        const __m128i small = _mm_cmpgt_epi16(_mm_set1_epi16(leastNormalHalf), magnitude);
        if (_mm_movemask_epi8(_mm_andnot_si128(isZero, small)) != 0) [[unlikely]]
            return {{floats(v), floats(ownsAs<Zel16f>(_mm_srli_si128(h, 8)))}};
        const __m128i bias = _mm_set1_epi16(static_cast<short>(biasGap >> 16));
        const __m128i beyond = _mm_cmpgt_epi16(magnitude, _mm_set1_epi16(halfInfinity - 1));
        const __m128i biased = _mm_add_epi16(_mm_srli_epi16(magnitude, mantissaGap - 10), bias);
        const __m128i exponent = _mm_add_epi16(biased, _mm_and_si128(beyond, bias));
        const __m128i upper = _mm_or_si128(sign, _mm_andnot_si128(isZero, exponent));
        const __m128i lower = _mm_slli_epi16(magnitude, mantissaGap);
        return {{_mm_castsi128_ps(_mm_unpacklo_epi16(lower, upper)),
                 _mm_castsi128_ps(_mm_unpackhi_epi16(lower, upper))}};
    }
};

// How a magnitude loses its low bits, by the selector. `normal` takes the bits of a float with the bias of a
// half and rounds them off, carrying into the exponent where it must; `subnormal` rounds a count of 2^-24, at
// most 1024; `overflowed` is the largest result of a finite number.

struct TowardZero {
    static constexpr int overflowed = halfInfinity - 1;
    static __m128i normal(__m128i x) { return _mm_srli_epi32(x, mantissaGap); }
    static __m128i subnormal(__m128 units) { return _mm_cvttps_epi32(units); }
};

struct ToNearestEven {
    static constexpr int overflowed = halfInfinity;
    static __m128i normal(__m128i x)
    {
        const __m128i odd = _mm_and_si128(_mm_srli_epi32(x, mantissaGap), _mm_set1_epi32(1));
        const __m128i raised =
            _mm_add_epi32(_mm_add_epi32(x, _mm_set1_epi32((1 << (mantissaGap - 1)) - 1)), odd);
        return _mm_srli_epi32(raised, mantissaGap);
    }
    static __m128i subnormal(__m128 units)
    {
        return _mm_cvttps_epi32(_mm_round_ps(units, _MM_FROUND_TO_NEAREST_INT | _MM_FROUND_NO_EXC));
    }
};

struct TiesAwayFromZero {
    static constexpr int overflowed = halfInfinity;
    static __m128i normal(__m128i x)
    {
        return _mm_srli_epi32(_mm_add_epi32(x, _mm_set1_epi32(1 << (mantissaGap - 1))), mantissaGap);
    }
    static __m128i subnormal(__m128 units)
    {
        const __m128i halves = _mm_cvttps_epi32(_mm_add_ps(units, units));
        return _mm_srli_epi32(_mm_add_epi32(halves, _mm_set1_epi32(1)), 1);
    }
};

/// Four floats as halves without sign, in 32-bit lanes. A NaN keeps what fits of its payload; where nothing
/// would be left of it, it becomes a quiet one.
template <class Rounding>
__m128i halfMagnitudes(OwnsVec<Zel32f> v)
{
    const __m128i x = _mm_and_si128(ownsInt(v), _mm_set1_epi32(INT32_MAX));
    const __m128i normal = Rounding::normal(_mm_sub_epi32(x, _mm_set1_epi32(biasGap)));
    const __m128i subnormal = Rounding::subnormal(_mm_mul_ps(_mm_castsi128_ps(x), _mm_set1_ps(0x1p24f)));
    const __m128i isSubnormal = _mm_cmpgt_epi32(_mm_set1_epi32(leastNormalAsFloat), x);
    __m128i half =
        _mm_min_epi32(_mm_blendv_epi8(normal, subnormal, isSubnormal), _mm_set1_epi32(Rounding::overflowed));
    if (Rounding::overflowed != halfInfinity)
        half = _mm_sub_epi32(half, _mm_cmpeq_epi32(x, _mm_set1_epi32(floatInfinity)));
    const __m128i isNaN = _mm_cmpgt_epi32(x, _mm_set1_epi32(floatInfinity));
    if (_mm_movemask_epi8(isNaN) != 0) [[unlikely]] {
        const __m128i payload = _mm_and_si128(_mm_srli_epi32(x, mantissaGap), _mm_set1_epi32(0x3FF));
        const __m128i empty = _mm_cmpeq_epi32(payload, _mm_setzero_si128());
        const __m128i kept = _mm_or_si128(payload, _mm_and_si128(empty, _mm_set1_epi32(0x200)));
        half = _mm_blendv_epi8(half, _mm_or_si128(kept, _mm_set1_epi32(halfInfinity)), isNaN);
    }
    return half;
}

template <class Rounding>
OwnsVec<Zel16f> halves(OwnsVec<Zel32f> low, OwnsVec<Zel32f> high)
{
    const __m128i magnitudes =
        _mm_packus_epi32(halfMagnitudes<Rounding>(low), halfMagnitudes<Rounding>(high));
    const __m128i signs =
        _mm_and_si128(_mm_packs_epi32(ownsInt(low), ownsInt(high)), _mm_set1_epi16(-0x8000));
    return ownsAs<Zel16f>(_mm_or_si128(magnitudes, signs));
}

template <class Rounding>
constexpr auto narrow32f = [](OwnsVecs<Zel32f, 2> x) { return halves<Rounding>(x.v[0], x.v[1]); };

template <class Rounding>
constexpr auto narrow16s = [](OwnsVec<Zel16s> x) {
    return halves<Rounding>(ownsWidened32f(x), ownsWidened32f(ownsAs<Zel16s>(_mm_srli_si128(ownsInt(x), 8))));
};

template <class Scale, class Round>
struct Narrow16f16s {
    static constexpr OwnsCode code = OwnsCode::compact;
    Scale scale;

    OwnsVec<Zel16s> operator()(OwnsVec<Zel16f> x) const
    {
        const auto integers = [&](OwnsVec<Zel32f> v) {
            return Round::integers(ownsBounded(scale(v), INT16_MAX));
        };
        return ownsPacked<Zel16s>(
            {integers(floats(x)), integers(floats(ownsAs<Zel16f>(_mm_srli_si128(ownsInt(x), 8))))});
    }
};

/// The check that all three narrowing forms make behind the others: the financial mode has no name here.
ZelStatus refuse(ZelStatus status, ZelRoundMode rnd)
{
    return status != zelStatusOk ? status : rnd == zelRndFinancial ? zelErrRoundMode : zelStatusOk;
}

} // namespace

ZelStatus zelsConvert_16f32f(const Zel16f* pSrc, Zel32f* pDst, int len)
{
    return ownsRun<shape_32f>(Widen16f32f{}, pDst, len, pSrc);
}

ZelStatus zelsConvert_32f16f(const Zel32f* pSrc, Zel16f* pDst, int len, ZelRoundMode rnd)
{
    if (const ZelStatus status = refuse(ownsCheck(len, pSrc, pDst), rnd); status != zelStatusOk)
        return status;
    if (rnd == zelRndZero)
        ownsMap<shape_16s>(narrow32f<TowardZero>, pDst, len, pSrc);
    else if (rnd == zelRndNear)
        ownsMap<shape_16s>(narrow32f<ToNearestEven>, pDst, len, pSrc);
    else
        ownsMap<shape_16s>(narrow32f<TiesAwayFromZero>, pDst, len, pSrc);
    return zelStatusOk;
}

ZelStatus zelsConvert_16s16f(const Zel16s* pSrc, Zel16f* pDst, int len, ZelRoundMode rnd)
{
    if (const ZelStatus status = refuse(ownsCheck(len, pSrc, pDst), rnd); status != zelStatusOk)
        return status;
    if (rnd == zelRndNear)
        ownsMap<shape_16s>(narrow16s<ToNearestEven>, pDst, len, pSrc);
    else
        ownsMap<shape_16s>(narrow16s<TowardZero>, pDst, len, pSrc);
    return zelStatusOk;
}

ZelStatus zelsConvert_16f16s_Sfs(const Zel16f* pSrc, Zel16s* pDst, int len, ZelRoundMode rnd, int scaleFactor)
{
    if (const ZelStatus status = refuse(ownsCheck(len, pSrc, pDst), rnd); status != zelStatusOk)
        return status;
    ownsWithRounding(rnd, [=](auto round) {
        ownsWithFloatScale(scaleFactor, [=](auto scale) {
            ownsMap<shape_16s>(Narrow16f16s<decltype(scale), decltype(round)>{scale}, pDst, len, pSrc);
        });
    });
    return zelStatusOk;
}
