// Conversion to narrower integers, by saturation and with a scale factor.
#include "arith/scaledProducts.h"
#include "zels.h"

namespace {

OwnsVec<Zel16s> packed(__m128i low, __m128i high)
{
    return ownsAs<Zel16s>(_mm_packs_epi32(low, high));
}

/// 32s to 16s by the scale-factor rule.
struct Narrow32s16s {
    using V = OwnsVec<Zel16s>;
    using X = OwnsVecs<Zel32s, 2>;
    static V apply(OwnsUnscaled, X x) { return packed(ownsInt(x.v[0]), ownsInt(x.v[1])); }
    static V apply(OwnsHalved, X x)
    {
        return packed(ownsInt(ownsHalvedEven(x.v[0])), ownsInt(ownsHalvedEven(x.v[1])));
    }
    static V apply(OwnsShiftedRight path, X x)
    {
        return packed(ownsInt(ownsRoundedRight(x.v[0], path.shift)),
                      ownsInt(ownsRoundedRight(x.v[1], path.shift)));
    }
    static V apply(OwnsShiftedLeft path, X x)
    {
        return ownsShiftedLeft(apply(OwnsUnscaled{}, x), path.shift);
    }
    static V apply(OwnsBySign, X x) { return ownsSaturatedBySign(apply(OwnsUnscaled{}, x)); }
};

// The rounding selectors in integer arithmetic, for the forms that take one: what is added to a value before
// the floor of its quotient by 2^shift is taken.

struct TowardZero {
    static __m128i addend16(OwnsVec<Zel16u>, int) { return _mm_setzero_si128(); }
    static __m128i addend32(__m128i x, int shift)
    {
        return _mm_and_si128(_mm_srai_epi32(x, 31), _mm_set1_epi32((1 << shift) - 1));
    }
    static auto addend64(int shift)
    {
        const __m128i most = _mm_set1_epi64x((Zel64s{1} << shift) - 1);
        return [=](__m128i x) { return _mm_and_si128(_mm_cmpgt_epi64(_mm_setzero_si128(), x), most); };
    }
    static __int128 addend(Zel64s x, int shift) { return x < 0 ? (__int128{1} << shift) - 1 : 0; }
};

struct ToNearestEven {
    static __m128i addend16(OwnsVec<Zel16u> x, int shift)
    {
        const __m128i half = _mm_set1_epi16(static_cast<short>(1 << (shift - 1)));
        const __m128i below = _mm_set1_epi16(static_cast<short>((2 << shift) - 1));
        return _mm_add_epi16(half, _mm_cmpeq_epi16(_mm_and_si128(ownsInt(x), below), half));
    }
    static __m128i addend32(__m128i x, int shift)
    {
        const __m128i half = _mm_set1_epi32(1 << (shift - 1));
        const __m128i below = _mm_set1_epi32((2 << shift) - 1);
        return _mm_add_epi32(half, _mm_cmpeq_epi32(_mm_and_si128(x, below), half));
    }
    static auto addend64(int shift)
    {
        const __m128i half = _mm_set1_epi64x(Zel64s{1} << (shift - 1));
        const __m128i below = _mm_set1_epi64x((Zel64s{2} << shift) - 1);
        return [=](__m128i x) { return _mm_add_epi64(half, _mm_cmpeq_epi64(_mm_and_si128(x, below), half)); };
    }
    static __int128 addend(Zel64s x, int shift)
    {
        const __int128 half = __int128{1} << (shift - 1);
        return half - ((x & (4 * half - 1)) == half);
    }
};

struct TiesAwayFromZero {
    static __m128i addend16(OwnsVec<Zel16u>, int shift)
    {
        return _mm_set1_epi16(static_cast<short>(1 << (shift - 1)));
    }
    static __m128i addend32(__m128i x, int shift)
    {
        return _mm_add_epi32(_mm_set1_epi32(1 << (shift - 1)), _mm_srai_epi32(x, 31));
    }
    static auto addend64(int shift)
    {
        const __m128i half = _mm_set1_epi64x(Zel64s{1} << (shift - 1));
        return [=](__m128i x) { return _mm_add_epi64(half, _mm_cmpgt_epi64(_mm_setzero_si128(), x)); };
    }
    static __int128 addend(Zel64s x, int shift) { return (__int128{1} << (shift - 1)) - (x < 0); }
};

/// 8u to 8s, in 16-bit lanes: with an addend at most 383.
template <class Rounding>
struct Narrow8u8s {
    using V = OwnsVec<Zel8s>;
    using X = OwnsVec<Zel8u>;

    template <class Step>
    static V inLanes16(X x, Step step)
    {
        const __m128i zero = _mm_setzero_si128();
        return ownsAs<Zel8s>(_mm_packs_epi16(step(_mm_unpacklo_epi8(ownsInt(x), zero)),
                                             step(_mm_unpackhi_epi8(ownsInt(x), zero))));
    }
    static V apply(OwnsUnscaled, X x) { return ownsAs<Zel8s>(_mm_min_epu8(ownsInt(x), _mm_set1_epi8(127))); }
    static V apply(OwnsHalved, X x) { return apply(OwnsShiftedRight{1}, x); }
    static V apply(OwnsShiftedRight path, X x)
    {
        return inLanes16(x, [=](__m128i v) {
            const __m128i addend = Rounding::addend16(ownsAs<Zel16u>(v), path.shift);
            return _mm_srl_epi16(_mm_add_epi16(v, addend), ownsCount(path.shift));
        });
    }
    static V apply(OwnsShiftedLeft path, X x)
    {
        return inLanes16(x, [=](__m128i v) { return _mm_sll_epi16(v, ownsCount(path.shift)); });
    }
    static V apply(OwnsBySign, X x) { return ownsAs<Zel8s>(ownsSaturatedBySign(x)) & 127; }
};

/// 16s to 8s, in 32-bit lanes.
template <class Rounding>
struct Narrow16s8s {
    using V = OwnsVec<Zel8s>;
    using X = OwnsVecs<Zel16s, 2>;

    static V packed8(__m128i low, __m128i high) { return ownsAs<Zel8s>(_mm_packs_epi16(low, high)); }

    static V apply(OwnsUnscaled, X x) { return packed8(ownsInt(x.v[0]), ownsInt(x.v[1])); }
    static V apply(OwnsHalved, X x) { return apply(OwnsShiftedRight{1}, x); }
    static V apply(OwnsShiftedRight path, X x)
    {
        const auto shifted = [=](__m128i v) {
            return _mm_sra_epi32(_mm_add_epi32(v, Rounding::addend32(v, path.shift)), ownsCount(path.shift));
        };
        const auto both = [=](__m128i v) {
            return _mm_packs_epi32(shifted(_mm_cvtepi16_epi32(v)),
                                   shifted(_mm_cvtepi16_epi32(_mm_srli_si128(v, 8))));
        };
        return packed8(both(ownsInt(x.v[0])), both(ownsInt(x.v[1])));
    }
    static V apply(OwnsShiftedLeft path, X x)
    {
        return packed8(ownsInt(ownsShiftedLeft(x.v[0], path.shift)),
                       ownsInt(ownsShiftedLeft(x.v[1], path.shift)));
    }
    static V apply(OwnsBySign, X x)
    {
        return packed8(ownsInt(ownsSaturatedBySign(x.v[0])), ownsInt(ownsSaturatedBySign(x.v[1])));
    }
};

/// The floor of (x + addend(x)) / 2^shift of 64-bit lanes, saturated; 1 <= shift <= 31.
template <class Addend>
OwnsVec<Zel32s> floorRight(OwnsLanes64 x, int shift, Addend addend)
{
    const OwnsLanes64 sum{_mm_add_epi64(x.even, addend(x.even)), _mm_add_epi64(x.odd, addend(x.odd))};
    const __m128i count = ownsCount(shift);
    const OwnsLanes64 shifted{_mm_srl_epi64(sum.even, count), _mm_srl_epi64(sum.odd, count)};
    const OwnsVec<Zel32s> high = sum.high();
    const __m128i above = _mm_sra_epi32(ownsInt(high), ownsCount(shift - 1));
    return ownsOrSaturated(shifted.low(), _mm_cmpeq_epi32(above, ownsNegative(high)), high);
}

/// 64s to 32s, in 64-bit lanes for shifts below a word. Farther shifts would need yet wider lanes, and go one
/// element at a time.
template <class Rounding>
struct Narrow64s32s {
    using V = OwnsVec<Zel32s>;
    using X = OwnsVecs<Zel64s, 2>;
    static constexpr int word = 32;

    static OwnsLanes64 lanes(X x) { return {ownsInt(x.v[0]), ownsInt(x.v[1])}; }

    /// From 2^62 on in magnitude every result saturates: so bounded, a value has room to be rounded in.
    static __m128i bounded(__m128i x)
    {
        const __m128i most = _mm_set1_epi64x(0x400000007FFFFFFF);
        const __m128i least = _mm_set1_epi64x(static_cast<Zel64s>(0xBFFFFFFF80000000));
        return _mm_max_epi32(_mm_min_epi32(x, most), least);
    }
    static V apply(OwnsUnscaled, X x) { return ownsSaturated32(lanes(x)); }
    static V apply(OwnsHalved, X x) { return apply(OwnsShiftedRight{1}, x); }
    static V apply(OwnsShiftedRight path, X x)
    {
        const OwnsLanes64 room{bounded(ownsInt(x.v[0])), bounded(ownsInt(x.v[1]))};
        return floorRight(room, path.shift, Rounding::addend64(path.shift));
    }
    static V apply(OwnsShiftedWord, X x) { return apply(OwnsShiftedFar{0}, x); }
    static V apply(OwnsShiftedFar path, X x)
    {
        const int shift = word + path.shift;
        V result;
        for (int k = 0; k < 4; k++) {
            const Zel64s v = x.v[k / 2][k % 2];
            result[k] = ownsSaturated<Zel32s>((v + Rounding::addend(v, shift)) >> shift);
        }
        return result;
    }
    static V apply(OwnsShiftedLeft path, X x)
    {
        return ownsShiftedLeft(apply(OwnsUnscaled{}, x), path.shift);
    }
    static V apply(OwnsBySign, X x) { return ownsSaturatedBySign(apply(OwnsUnscaled{}, x)); }
};

// At a factor of the source's width the most negative value is one half, which may still round away from
// zero.
constexpr OwnsScaleLimits limits_8u8s{9, -8};
constexpr OwnsScaleLimits limits_16s8s{17, -8};
constexpr OwnsScaleLimits limits_64s32s{65, -32};
constexpr OwnsScaleLimits limits_32s16s{32, -15};

template <OwnsScaleLimits limits, OwnsShape shape, template <class> class Op, class D, class S>
[[gnu::always_inline]] inline ZelStatus run(ZelRoundMode rnd, int scaleFactor, D* pDst, int len,
                                            const S* pSrc)
{
    if (rnd == zelRndZero || scaleFactor <= 0)
        return ownsRunScaled<limits, shape, Op<TowardZero>>(scaleFactor, pDst, len, pSrc);
    if (const ZelStatus status = ownsCheck(len, pSrc, pDst); status != zelStatusOk)
        return status;
    if (rnd == zelRndNear)
        ownsMapShiftedRight<limits, shape, Op<ToNearestEven>>(scaleFactor, pDst, len, pSrc);
    else
        ownsMapShiftedRight<limits, shape, Op<TiesAwayFromZero>>(scaleFactor, pDst, len, pSrc);
    return zelStatusOk;
}

} // namespace

ZelStatus zelsConvert_8s8u(const Zel8s* pSrc, Zel8u* pDst, int len)
{
    const auto positive = [](OwnsVec<Zel8s> x) {
        return ownsAs<Zel8u>(_mm_max_epi8(ownsInt(x), _mm_setzero_si128()));
    };
    return ownsRun<shape_8u>(positive, pDst, len, pSrc);
}

ZelStatus zelsConvert_32s16s(const Zel32s* pSrc, Zel16s* pDst, int len)
{
    const auto saturate = [](OwnsVecs<Zel32s, 2> x) { return Narrow32s16s::apply(OwnsUnscaled{}, x); };
    return ownsRun<shapeConvert_32s16s>(saturate, pDst, len, pSrc);
}

// A factor above 31 acts as 31, which still leaves -1 of the most negative value.
ZelStatus zelsConvert_32s16s_Sfs(const Zel32s* pSrc, Zel16s* pDst, int len, int scaleFactor)
{
    return ownsRunScaled<limits_32s16s, shape_16s, Narrow32s16s>(scaleFactor < 31 ? scaleFactor : 31, pDst,
                                                                 len, pSrc);
}

ZelStatus zelsConvert_8u8s_Sfs(const Zel8u* pSrc, Zel8s* pDst, int len, ZelRoundMode rnd, int scaleFactor)
{
    return run<limits_8u8s, shape_8u, Narrow8u8s>(rnd, scaleFactor, pDst, len, pSrc);
}

ZelStatus zelsConvert_16s8s_Sfs(const Zel16s* pSrc, Zel8s* pDst, int len, ZelRoundMode rnd, int scaleFactor)
{
    return run<limits_16s8s, shape_8u, Narrow16s8s>(rnd, scaleFactor, pDst, len, pSrc);
}

ZelStatus zelsConvert_64s32s_Sfs(const Zel64s* pSrc, Zel32s* pDst, int len, ZelRoundMode rnd, int scaleFactor)
{
    return run<limits_64s32s, shape_32s, Narrow64s32s>(rnd, scaleFactor, pDst, len, pSrc);
}
