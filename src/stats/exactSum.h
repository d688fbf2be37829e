// Exact integer sums.
#pragma once

#include "frame/reduce.h"

/// A running sum of 32-bit lanes, exact in 64 bits, at three instructions a vector: each lane keeps its sum
/// modulo 2^32 and the sum of its upper halves, which leaves the sum of the lower halves to be had by
/// subtraction. Good for 2^15 vectors, the running values that are merged counted together.
template <class T>
struct OwnsExactSum {
    OwnsVec<Zel32u> low{};
    OwnsVec<T> high{};

    void add(OwnsVec<T> x)
    {
        low += ownsAs<Zel32u>(x);
        high += x >> 16;
    }

    void merge(const OwnsExactSum& other)
    {
        low += other.low;
        high += other.high;
    }

    /// The sums of the four lanes.
    void lanes(OwnsVec<Zel64s>& first, OwnsVec<Zel64s>& last) const
    {
        const __m128i lowHalves = ownsInt(low - ownsAs<Zel32u>(high << 16));
        const __m128i upper = ownsInt(high);
        const auto widened = [](__m128i x) {
            return std::is_signed_v<T> ? _mm_cvtepi32_epi64(x) : _mm_cvtepu32_epi64(x);
        };
        const auto joined = [](__m128i halves, __m128i uppers) {
            return ownsAs<Zel64s>(_mm_add_epi64(_mm_cvtepu32_epi64(halves), _mm_slli_epi64(uppers, 16)));
        };
        first = joined(lowHalves, widened(upper));
        last = joined(_mm_srli_si128(lowHalves, 8), widened(_mm_srli_si128(upper, 8)));
    }

    /// The sums of the even and of the odd lanes.
    OwnsVec<Zel64s> pairs() const
    {
        OwnsVec<Zel64s> first;
        OwnsVec<Zel64s> last;
        lanes(first, last);
        return first + last;
    }
};

inline Zel64s ownsLaneSum(OwnsVec<Zel32s> v)
{
    return Zel64s{v[0]} + v[1] + v[2] + v[3];
}
inline Zel64s ownsLaneSum(OwnsVec<Zel64s> v)
{
    return v[0] + v[1];
}

/// Two sums side by side.
struct OwnsPairSum {
    Zel64s re;
    Zel64s im;
};

/// Elements a block: so many that no 32-bit lane, and no OwnsExactSum, can overflow in it.
inline constexpr ZelSize ownsExactBlock = 65536;

/// Sum of 16-bit elements; a pair sum has 17 bits, a block 32.
inline Zel64s ownsExactTotal(const Zel16s* pSrc, ZelSize len)
{
    const __m128i ones = _mm_set1_epi16(1);
    Zel64s total = 0;
    ownsBlocks(ownsExactBlock, 0, len, [&](ZelSize from, ZelSize to) {
        OwnsVec<Zel32s> a[4] = {};
        ownsVectors(
            a, from, to,
            [&](OwnsVec<Zel32s>& r, OwnsVec<Zel16s> x) {
                r += ownsAs<Zel32s>(_mm_madd_epi16(ownsInt(x), ones));
            },
            pSrc);
        total += ownsLaneSum((a[0] + a[1]) + (a[2] + a[3]));
    });
    return total;
}

/// Sums of the parts of 16-bit complex elements.
inline OwnsPairSum ownsExactTotal(const Zel16sc* pSrc, ZelSize len)
{
    struct Parts {
        OwnsVec<Zel32s> re{};
        OwnsVec<Zel32s> im{};
    };
    const __m128i real = _mm_set1_epi32(1);
    const __m128i imaginary = _mm_set1_epi32(1 << 16);
    OwnsPairSum total{};
    ownsBlocks(ownsExactBlock, 0, len, [&](ZelSize from, ZelSize to) {
        Parts a[2];
        ownsVectors(
            a, from, to,
            [&](Parts& r, OwnsVec<Zel16sc> x) {
                r.re += ownsAs<Zel32s>(_mm_madd_epi16(ownsInt(x), real));
                r.im += ownsAs<Zel32s>(_mm_madd_epi16(ownsInt(x), imaginary));
            },
            pSrc);
        total.re += ownsLaneSum(a[0].re + a[1].re);
        total.im += ownsLaneSum(a[0].im + a[1].im);
    });
    return total;
}

/// Sum of 32-bit elements.
inline Zel64s ownsExactTotal(const Zel32s* pSrc, ZelSize len)
{
    OwnsVec<Zel64s> total{};
    ownsBlocks(ownsExactBlock, 0, len, [&](ZelSize from, ZelSize to) {
        OwnsExactSum<Zel32s> a[2];
        ownsVectors(
            a, from, to, [](OwnsExactSum<Zel32s>& r, OwnsVec<Zel32s> x) { r.add(x); }, pSrc);
        a[0].merge(a[1]);
        total += a[0].pairs();
    });
    return ownsLaneSum(total);
}
