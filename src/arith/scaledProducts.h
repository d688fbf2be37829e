// Products of integers on every path of the scale factor, and their sums with an accumulator.
//
// A product of two words is held in halves where that spares work, and in lanes of twice the width where it
// must be. A right shift by less than a word rounds the double words. By exactly a word, the high half is the
// quotient and the low half the rest. By more, the high half is what is shifted, and all that matters of the
// low half is whether there is any.
#pragma once

#include "frame/scaleVec.h"
#include "frame/scaledMap.h"

// Products of 16-bit elements.

/// The low and the high half of each product. T tells the type of the result, and so of the high half.
template <class T>
struct OwnsHalves16 {
    OwnsVec<Zel16u> low;
    OwnsVec<T> high;

    /// The products in 32-bit lanes.
    __m128i first() const { return _mm_unpacklo_epi16(ownsInt(low), ownsInt(high)); }
    __m128i second() const { return _mm_unpackhi_epi16(ownsInt(low), ownsInt(high)); }
};

inline OwnsHalves16<Zel16s> ownsHalvesOf(OwnsVec<Zel16s> a, OwnsVec<Zel16s> b)
{
    return {ownsAs<Zel16u>(_mm_mullo_epi16(ownsInt(a), ownsInt(b))),
            ownsAs<Zel16s>(_mm_mulhi_epi16(ownsInt(a), ownsInt(b)))};
}
inline OwnsHalves16<Zel16u> ownsHalvesOf(OwnsVec<Zel16u> a, OwnsVec<Zel16u> b)
{
    return {ownsAs<Zel16u>(_mm_mullo_epi16(ownsInt(a), ownsInt(b))),
            ownsAs<Zel16u>(_mm_mulhi_epu16(ownsInt(a), ownsInt(b)))};
}
inline OwnsHalves16<Zel16s> ownsHalvesOf(OwnsVec<Zel16u> a, OwnsVec<Zel16s> b)
{
    // Taken as unsigned, a negative b is 65536 too large.
    const __m128i high = _mm_mulhi_epu16(ownsInt(a), ownsInt(b));
    const __m128i excess = _mm_and_si128(ownsInt(a), ownsInt(b >> 15));
    return {ownsAs<Zel16u>(_mm_mullo_epi16(ownsInt(a), ownsInt(b))),
            ownsAs<Zel16s>(_mm_sub_epi16(high, excess))};
}

inline OwnsVec<Zel16s> ownsSaturated16(OwnsHalves16<Zel16s> x)
{
    return ownsAs<Zel16s>(_mm_packs_epi32(x.first(), x.second()));
}
inline OwnsVec<Zel16u> ownsSaturated16(OwnsHalves16<Zel16u> x)
{
    const __m128i fits = _mm_cmpeq_epi16(ownsInt(x.high), _mm_setzero_si128());
    return x.low | ownsAs<Zel16u>(~fits);
}

/// One less where x is an even tie over 2^shift, 1 <= shift <= 15: that shows in the low half alone.
template <class T>
inline OwnsHalves16<T> ownsReadyToRound16(OwnsHalves16<T> x, int shift)
{
    const __m128i below = _mm_set1_epi16(static_cast<short>((2u << shift) - 1));
    const __m128i half = _mm_set1_epi16(static_cast<short>(1 << (shift - 1)));
    const __m128i evenTie = _mm_cmpeq_epi16(_mm_and_si128(ownsInt(x.low), below), half);
    return {x.low + ownsAs<Zel16u>(evenTie), x.high};
}

/// Divided by 2^shift, rounded, saturated; 1 <= shift <= 15.
template <class T>
inline OwnsVec<T> ownsRoundedRight16(OwnsHalves16<T> whole, int shift)
{
    const OwnsHalves16<T> x = ownsReadyToRound16(whole, shift);
    const __m128i bias = _mm_set1_epi32(1 << (shift - 1));
    const __m128i first = _mm_add_epi32(x.first(), bias);
    const __m128i second = _mm_add_epi32(x.second(), bias);
    const __m128i count = ownsCount(shift);
    if constexpr (std::is_signed_v<T>)
        return ownsAs<T>(_mm_packs_epi32(_mm_sra_epi32(first, count), _mm_sra_epi32(second, count)));
    else
        return ownsAs<T>(_mm_packus_epi32(_mm_srl_epi32(first, count), _mm_srl_epi32(second, count)));
}

/// x where `low`, the low half of a product of which x is the high part rounded with ties upward, was no even
/// tie; one less where it was.
inline OwnsVec<Zel16s> ownsWithoutEvenTies(__m128i x, __m128i low, int shift)
{
    const __m128i below = _mm_set1_epi16(static_cast<short>((2u << shift) - 1));
    const __m128i half = _mm_set1_epi16(static_cast<short>(1 << (shift - 1)));
    return ownsAs<Zel16s>(_mm_add_epi16(x, _mm_cmpeq_epi16(_mm_and_si128(low, below), half)));
}

/// Divided by 2^16, rounded: up where the rest is over one half, or just one half above an odd quotient.
template <class T>
inline OwnsVec<T> ownsRoundedWord16(OwnsHalves16<T> x)
{
    const __m128i overHalf = _mm_xor_si128(ownsInt(x.low), _mm_set1_epi16(-32768));
    const __m128i odd = _mm_and_si128(ownsInt(x.high), _mm_set1_epi16(1));
    const __m128i up = _mm_cmpgt_epi16(_mm_adds_epi16(overHalf, odd), _mm_setzero_si128());
    return ownsAs<T>(_mm_sub_epi16(ownsInt(x.high), up));
}

/// 1 where the low half is not 0.
template <class T>
inline OwnsVec<T> ownsSticky16(OwnsHalves16<T> x)
{
    return ownsAs<T>(_mm_min_epu16(ownsInt(x.low), _mm_set1_epi16(1)));
}

// Products of 32-bit elements, in 64-bit lanes.

/// Four exact values, those of the elements in even places and those in odd ones; at most 2^63 - 2^31 in
/// magnitude, so that they have room to be rounded in up to a shift of 31.
struct OwnsLanes64 {
    __m128i even, odd;

    // The halves of all four, in the order even, even, odd, odd.
    OwnsVec<Zel32s> low() const { return ownsAs<Zel32s>(shuffled<0x88>()); }
    OwnsVec<Zel32s> high() const { return ownsAs<Zel32s>(shuffled<0xDD>()); }

  private:
    template <int order>
    __m128i shuffled() const
    {
        return _mm_castps_si128(_mm_shuffle_ps(_mm_castsi128_ps(even), _mm_castsi128_ps(odd), order));
    }
};

inline OwnsVec<Zel32s> ownsSaturated32(OwnsLanes64 x)
{
    return ownsOrSaturated(x.low(), _mm_cmpeq_epi32(ownsInt(x.high()), ownsNegative(x.low())), x.high());
}

/// Divided by 2^shift, rounded, saturated; 1 <= shift <= 31. One half is added; what was an even tie then has
/// the low bits 1 0...0 from bit `shift` on down, all in the low half, and the result loses one. It fits where
/// what lies above it in the high half is all sign.
inline OwnsVec<Zel32s> ownsRoundedRight32(OwnsLanes64 x, int shift)
{
    const __m128i half = _mm_set1_epi64x(Zel64s{1} << (shift - 1));
    const OwnsLanes64 sum{_mm_add_epi64(x.even, half), _mm_add_epi64(x.odd, half)};
    const __m128i below = _mm_set1_epi32(static_cast<int>((2u << shift) - 1));
    const __m128i oddTie = _mm_set1_epi32(static_cast<int>(1u << shift));
    const __m128i low = ownsInt(sum.low());
    const OwnsVec<Zel32s> high = sum.high();
    const __m128i fromEven = _mm_cmpeq_epi32(_mm_and_si128(low, below), oddTie);
    const __m128i shifted = _mm_or_si128(_mm_srl_epi32(low, ownsCount(shift)),
                                         _mm_sll_epi32(ownsInt(high), ownsCount(32 - shift)));
    const __m128i above = _mm_sra_epi32(ownsInt(high), ownsCount(shift - 1));
    const OwnsVec<Zel32s> result = ownsAs<Zel32s>(_mm_add_epi32(shifted, fromEven));
    return ownsOrSaturated(result, _mm_cmpeq_epi32(above, ownsNegative(high)), high);
}

/// The same by 31 of products of two elements: of these only 2^62, of the least element by itself, does not fit,
/// and it alone comes out as the least result.
inline OwnsVec<Zel32s> ownsRoundedFraction32(OwnsLanes64 x)
{
    const __m128i half = _mm_set1_epi64x(Zel64s{1} << 30);
    const OwnsLanes64 sum{_mm_add_epi64(x.even, half), _mm_add_epi64(x.odd, half)};
    const OwnsVec<Zel32s> low = sum.low();
    const OwnsVec<Zel32s> high = sum.high();
    const OwnsVec<Zel32s> result =
        high + high + ownsAs<Zel32s>(_mm_srli_epi32(ownsInt(low), 31)) + (low == INT32_MIN);
    return result ^ (result == INT32_MIN);
}

/// Divided by 2^32, rounded, saturated.
inline OwnsVec<Zel32s> ownsRoundedWord32(OwnsLanes64 x)
{
    const OwnsVec<Zel32s> overHalf = x.low() ^ INT32_MIN;
    const OwnsVec<Zel32s> up = (overHalf > -(x.high() & 1)) & (x.high() != INT32_MAX);
    return x.high() - up;
}

/// Divided by 2^(32 + shift), rounded; 1 <= shift <= 31.
inline OwnsVec<Zel32s> ownsRoundedFar32(OwnsLanes64 x, int shift)
{
    const __m128i sticky = _mm_min_epu32(ownsInt(x.low()), _mm_set1_epi32(1));
    return ownsRoundedRight(x.high(), ownsAs<Zel32s>(sticky), shift);
}

/// Elements in their own order again.
inline OwnsVec<Zel32s> ownsInOrder(OwnsVec<Zel32s> x)
{
    return ownsAs<Zel32s>(_mm_shuffle_epi32(ownsInt(x), 0xD8));
}

/// The element in the odd place of each 64-bit lane, brought to where pmuldq reads it.
inline __m128i ownsOddPlaces(OwnsVec<Zel32s> x)
{
    return _mm_shuffle_epi32(ownsInt(x), 0xF5);
}

inline OwnsLanes64 ownsProducts64(OwnsVec<Zel32s> a, OwnsVec<Zel32s> b)
{
    return {_mm_mul_epi32(ownsInt(a), ownsInt(b)), _mm_mul_epi32(ownsOddPlaces(a), ownsOddPlaces(b))};
}

// The sign of a product, without a product.

inline OwnsVec<Zel16s> ownsSignOfProduct(OwnsVec<Zel16s> a, OwnsVec<Zel16s> b)
{
    return ownsAs<Zel16s>(_mm_sign_epi16(_mm_sign_epi16(_mm_set1_epi16(1), ownsInt(a)), ownsInt(b)));
}
inline OwnsVec<Zel32s> ownsSignOfProduct(OwnsVec<Zel32s> a, OwnsVec<Zel32s> b)
{
    return ownsAs<Zel32s>(_mm_sign_epi32(_mm_sign_epi32(_mm_set1_epi32(1), ownsInt(a)), ownsInt(b)));
}
inline OwnsVec<Zel16s> ownsSignOfProduct(OwnsVec<Zel16u> a, OwnsVec<Zel16s> b)
{
    return ownsAs<Zel16s>(_mm_andnot_si128(_mm_cmpeq_epi16(ownsInt(a), _mm_setzero_si128()), ownsInt(b)));
}
inline OwnsVec<Zel16u> ownsSignOfProduct(OwnsVec<Zel16u> a, OwnsVec<Zel16u> b)
{
    return ownsAs<Zel16u>(_mm_min_epu16(ownsInt(a), ownsInt(b)));
}
inline OwnsVec<Zel8u> ownsSignOfProduct(OwnsVec<Zel8u> a, OwnsVec<Zel8u> b)
{
    return ownsAs<Zel8u>(_mm_min_epu8(ownsInt(a), ownsInt(b)));
}

// The operations.

/// a * b of 16-bit elements: 16s, 16u, or 16u by 16s, with a result of type T.
template <class T>
struct OwnsProduct16 {
    static constexpr int word = 16;
    template <class A, class B>
    static OwnsVec<T> apply(OwnsUnscaled, A a, B b)
    {
        return ownsSaturated16(ownsHalvesOf(a, b));
    }
    template <class A, class B>
    static OwnsVec<T> apply(OwnsHalved, A a, B b)
    {
        return ownsRoundedRight16(ownsHalvesOf(a, b), 1);
    }
    template <class A, class B>
    static OwnsVec<T> apply(OwnsShiftedRight path, A a, B b)
    {
        return ownsRoundedRight16(ownsHalvesOf(a, b), path.shift);
    }
    template <class A, class B>
    static OwnsVec<T> apply(OwnsShiftedWord, A a, B b)
    {
        return ownsRoundedWord16(ownsHalvesOf(a, b));
    }
    template <class A, class B>
    static OwnsVec<T> apply(OwnsShiftedFar path, A a, B b)
    {
        const OwnsHalves16<T> x = ownsHalvesOf(a, b);
        return ownsRoundedRight(x.high, ownsSticky16(x), path.shift);
    }
    template <class A, class B>
    static OwnsVec<T> apply(OwnsShiftedLeft path, A a, B b)
    {
        const OwnsVec<T> x = ownsSaturated16(ownsHalvesOf(a, b));
        if constexpr (std::is_signed_v<T>)
            return ownsShiftedLeft(x, path.shift);
        else // up to 16, which is one place too many
            return ownsShiftedLeft(ownsAs<T>(_mm_adds_epu16(ownsInt(x), ownsInt(x))), path.shift - 1);
    }
    template <class A, class B>
    static OwnsVec<T> apply(OwnsBySign, A a, B b)
    {
        return ownsSaturatedBySign(ownsSignOfProduct(a, b));
    }
};

/// a * b of 16s elements. Divided by 2^15 it is a rounding product, in which only the square of the least element
/// does not fit, and it alone comes out as the least result.
struct OwnsProduct16s : OwnsProduct16<Zel16s> {
    using V = OwnsVec<Zel16s>;
    using OwnsProduct16<Zel16s>::apply;
    static constexpr int fraction = 15;

    static V apply(OwnsShiftedFraction, V a, V b)
    {
        const __m128i rounded = _mm_mulhrs_epi16(ownsInt(a), ownsInt(b));
        const V result = ownsWithoutEvenTies(rounded, _mm_mullo_epi16(ownsInt(a), ownsInt(b)), 15);
        return result ^ (result == INT16_MIN);
    }
};

/// a * b of 8u elements, in 16-bit lanes.
struct OwnsProduct8u {
    using V = OwnsVec<Zel8u>;

    template <class Narrow>
    static V inLanes16(V a, V b, Narrow narrow)
    {
        const __m128i zero = _mm_setzero_si128();
        const __m128i first =
            _mm_mullo_epi16(_mm_unpacklo_epi8(ownsInt(a), zero), _mm_unpacklo_epi8(ownsInt(b), zero));
        const __m128i second =
            _mm_mullo_epi16(_mm_unpackhi_epi8(ownsInt(a), zero), _mm_unpackhi_epi8(ownsInt(b), zero));
        return ownsAs<Zel8u>(_mm_packus_epi16(narrow(first), narrow(second)));
    }
    static __m128i bounded(__m128i x) { return _mm_min_epu16(x, _mm_set1_epi16(255)); }

    static V apply(OwnsUnscaled, V a, V b)
    {
        return inLanes16(a, b, [](__m128i x) { return bounded(x); });
    }
    static V apply(OwnsHalved, V a, V b)
    {
        return inLanes16(a, b, [](__m128i v) {
            const OwnsVec<Zel16u> x = ownsAs<Zel16u>(v);
            return ownsInt((x + ((x >> 1) & 1)) >> 1);
        });
    }
    static V apply(OwnsShiftedRight path, V a, V b)
    {
        return inLanes16(a, b,
                         [=](__m128i x) { return ownsInt(ownsRoundedRight(ownsAs<Zel16u>(x), path.shift)); });
    }
    static V apply(OwnsShiftedLeft path, V a, V b)
    {
        const __m128i factor = _mm_set1_epi16(static_cast<short>(1 << path.shift));
        return inLanes16(a, b, [=](__m128i x) { return _mm_mullo_epi16(bounded(x), factor); });
    }
    static V apply(OwnsBySign, V a, V b) { return ownsSaturatedBySign(ownsSignOfProduct(a, b)); }
};

/// a * b of 32s elements.
struct OwnsProduct32s {
    using V = OwnsVec<Zel32s>;
    static constexpr int word = 32;
    static constexpr int fraction = 31;

    static V roundedFraction(OwnsLanes64 x) { return ownsRoundedFraction32(x); }
    static OwnsLanes64 exact(V a, V b) { return ownsProducts64(a, b); }
    static V apply(OwnsBySign, V a, V b) { return ownsSaturatedBySign(ownsSignOfProduct(a, b)); }
};

/// a * b of 32sc elements. The one imaginary part that does not fit, 2^63, wraps to -2^63, which is none of
/// the others; it is made 2^63 - 2^32, which gives the same result on every path. Only the exact value knows
/// its sign.
struct OwnsProduct32sc {
    using V = OwnsVec<Zel32s>;
    static constexpr int word = 32;
    static constexpr int fraction = 31;

    static V roundedFraction(OwnsLanes64 x) { return ownsRoundedRight32(x, fraction); }

    static OwnsLanes64 exact(V a, V b)
    {
        const __m128i ai = ownsOddPlaces(a);
        const __m128i bi = ownsOddPlaces(b);
        const __m128i re = _mm_sub_epi64(_mm_mul_epi32(ownsInt(a), ownsInt(b)), _mm_mul_epi32(ai, bi));
        const __m128i im = _mm_add_epi64(_mm_mul_epi32(ai, ownsInt(b)), _mm_mul_epi32(ownsInt(a), bi));
        const __m128i wrapped = _mm_cmpeq_epi64(im, _mm_set1_epi64x(INT64_MIN));
        return {re, _mm_add_epi64(im, _mm_slli_epi64(wrapped, 32))};
    }
    static V apply(OwnsBySign, V a, V b)
    {
        return ownsInOrder(ownsSaturatedBySign(ownsSaturated32(exact(a, b))));
    }
};

/// sum + a * b of 32s elements.
struct OwnsAddProduct32s {
    using V = OwnsVec<Zel32s>;
    static constexpr int word = 32;

    static OwnsLanes64 exact(V sum, V a, V b)
    {
        const OwnsLanes64 products = ownsProducts64(a, b);
        const OwnsLanes64 widened = ownsProducts64(sum, ownsSplat<Zel32s>(1));
        return {_mm_add_epi64(products.even, widened.even), _mm_add_epi64(products.odd, widened.odd)};
    }
    static V apply(OwnsBySign, V sum, V a, V b)
    {
        return ownsInOrder(ownsSaturatedBySign(ownsSaturated32(exact(sum, a, b))));
    }
};

/// The paths of an operation whose exact values stand in 64-bit lanes; the sign path is the operation's own.
template <class Op>
struct OwnsInLanes64 : Op {
    using V = OwnsVec<Zel32s>;
    using Op::apply;
    template <class... S>
    static V apply(OwnsUnscaled, S... s)
    {
        return ownsInOrder(ownsSaturated32(Op::exact(s...)));
    }
    template <class... S>
    static V apply(OwnsHalved, S... s)
    {
        return ownsInOrder(ownsRoundedRight32(Op::exact(s...), 1));
    }
    template <class... S>
    static V apply(OwnsShiftedRight path, S... s)
    {
        return ownsInOrder(ownsRoundedRight32(Op::exact(s...), path.shift));
    }
    template <class... S>
    static V apply(OwnsShiftedFraction, S... s)
    {
        return ownsInOrder(Op::roundedFraction(Op::exact(s...)));
    }
    template <class... S>
    static V apply(OwnsShiftedWord, S... s)
    {
        return ownsInOrder(ownsRoundedWord32(Op::exact(s...)));
    }
    template <class... S>
    static V apply(OwnsShiftedFar path, S... s)
    {
        return ownsInOrder(ownsRoundedFar32(Op::exact(s...), path.shift));
    }
    template <class... S>
    static V apply(OwnsShiftedLeft path, S... s)
    {
        return ownsInOrder(ownsShiftedLeft(ownsSaturated32(Op::exact(s...)), path.shift));
    }
};

/// a * b of 16sc elements: real and imaginary parts in 32-bit lanes.
struct OwnsProduct16sc {
    using V = OwnsVec<Zel16s>;

    /// re = ar*br - ai*bi = ar*br + ai*~bi + ai, which wraps on the way and fits at the end; im = ar*bi +
    /// ai*br, where only 2^31 does not fit. It comes out as -2^31, a value that is none of the others, and is
    /// taken for 2^31 - 1, which gives the same result on every path.
    template <class Narrow>
    static V inLanes32(V a, V b, Narrow narrow)
    {
        const __m128i conjugate = _mm_xor_si128(ownsInt(b), _mm_set1_epi32(static_cast<int>(0xFFFF0000u)));
        const __m128i swapped = ownsInt((ownsAs<Zel32u>(b) << 16) | (ownsAs<Zel32u>(b) >> 16));
        const auto re = ownsAs<Zel32s>(_mm_madd_epi16(ownsInt(a), conjugate)) + (ownsAs<Zel32s>(a) >> 16);
        const auto im = ownsAs<Zel32s>(_mm_madd_epi16(ownsInt(a), swapped));
        const __m128i parts = _mm_packs_epi32(ownsInt(narrow(re)), ownsInt(narrow(im ^ (im == INT32_MIN))));
        return ownsAs<Zel16s>(
            _mm_shuffle_epi8(parts, _mm_setr_epi8(0, 1, 8, 9, 2, 3, 10, 11, 4, 5, 12, 13, 6, 7, 14, 15)));
    }

    static V apply(OwnsUnscaled, V a, V b)
    {
        return inLanes32(a, b, [](auto x) { return x; });
    }
    static V apply(OwnsHalved, V a, V b)
    {
        return inLanes32(a, b, [](auto x) { return ownsHalvedEven(x); });
    }
    static V apply(OwnsShiftedRight path, V a, V b)
    {
        return inLanes32(a, b, [=](auto x) { return ownsRoundedRight(x, path.shift); });
    }
    static V apply(OwnsShiftedLeft path, V a, V b)
    {
        return ownsShiftedLeft(apply(OwnsUnscaled{}, a, b), path.shift);
    }
    static V apply(OwnsBySign, V a, V b) { return ownsSaturatedBySign(apply(OwnsUnscaled{}, a, b)); }
};
