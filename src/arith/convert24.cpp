// Conversion from and to packed 24-bit integers: three bytes an element, low byte first, at any address.
//
// No element type is three bytes, so these run in blocks of their own: sixteen elements are three vectors of
// packed bytes and four of 32-bit lanes.
#include "arith/convertFloat.h"
#include "frame/scaleFactor.h"
#include "frame/scaleVec.h"
#include "zels.h"

namespace {

constexpr int bytes24 = 3;
constexpr Zel32s most24s = 0x7FFFFF;
constexpr Zel32s least24s = -0x800000;
constexpr Zel32s most24u = 0xFFFFFF;

/// The first four elements of twelve packed bytes that start at byte `at`, each in the upper three bytes of
/// its lane.
template <int at = 0>
__m128i spread(__m128i packed)
{
    constexpr char n = -1;
    return _mm_shuffle_epi8(packed, _mm_setr_epi8(n, at, at + 1, at + 2, n, at + 3, at + 4, at + 5, n, at + 6,
                                                  at + 7, at + 8, n, at + 9, at + 10, at + 11));
}

/// The low three bytes of each lane, packed into twelve.
__m128i gathered(__m128i lanes)
{
    return _mm_shuffle_epi8(lanes, _mm_setr_epi8(0, 1, 2, 4, 5, 6, 8, 9, 10, 12, 13, 14, -1, -1, -1, -1));
}

__m128i load(const Zel8u* p)
{
    return ownsInt(ownsLoad(p));
}

template <int order>
__m128i shuffled(__m128i low, __m128i high)
{
    return _mm_castps_si128(_mm_shuffle_ps(_mm_castsi128_ps(low), _mm_castsi128_ps(high), order));
}

/// One lane of `from` put into one of `into`.
template <int lanes>
__m128i inserted(__m128i into, __m128i from)
{
    return _mm_castps_si128(_mm_insert_ps(_mm_castsi128_ps(into), _mm_castsi128_ps(from), lanes));
}

/// From packed bytes: `widen` makes a vector of D of four spread elements.
template <class D, class Widen>
[[gnu::always_inline]] inline ZelStatus unpack(const Zel8u* pSrc, D* pDst, int len, Widen widen)
{
    if (const ZelStatus status = ownsCheck(len, pSrc, pDst); status != zelStatusOk)
        return status;
    const ZelSize count = len;
    ZelSize i = 0;
    for (; i + 16 <= count; i += 16) {
        const Zel8u* p = pSrc + bytes24 * i;
        ownsStore(pDst + i, widen(spread(load(p))));
        ownsStore(pDst + i + 4, widen(spread(load(p + 12))));
        ownsStore(pDst + i + 8, widen(spread(load(p + 24))));
        ownsStore(pDst + i + 12, widen(spread<4>(load(p + 32))));
    }
    for (; i < count; i += 4) {
        const int n = count - i < 4 ? static_cast<int>(count - i) : 4;
        const auto v = widen(spread(ownsInt(ownsLoadPart(pSrc + bytes24 * i, bytes24 * n))));
        if (n == 4)
            ownsStore(pDst + i, v);
        else
            ownsStorePart(pDst + i, v, n);
    }
    return zelStatusOk;
}

/// To packed bytes: `narrow` makes four elements in the low three bytes of their lanes of a vector of S.
template <class S, class Narrow>
[[gnu::always_inline]] inline void packWith(const S* pSrc, Zel8u* pDst, int len, Narrow narrow)
{
    const ZelSize count = len;
    ZelSize i = 0;
    for (; i + 16 <= count; i += 16) {
        Zel8u* p = pDst + bytes24 * i;
        __m128i part[4];
        ownsEach<4>([&](int k) { part[k] = gathered(ownsInt(narrow(ownsLoad(pSrc + i + 4 * k)))); });
        // Twelve bytes are three lanes: lanes 0 1 2 of each part, one after the other.
        ownsStore(p, ownsAs<Zel8u>(inserted<0x30>(part[0], part[1])));
        ownsStore(p + 16, ownsAs<Zel8u>(shuffled<0x49>(part[1], part[2])));
        ownsStore(p + 32, ownsAs<Zel8u>(_mm_alignr_epi8(part[3], _mm_slli_si128(part[2], 4), 12)));
    }
    for (; i < count; i += 4) {
        const int n = count - i < 4 ? static_cast<int>(count - i) : 4;
        const auto v = n == 4 ? ownsLoad(pSrc + i) : ownsLoadPart(pSrc + i, n);
        ownsStorePart(pDst + bytes24 * i, ownsAs<Zel8u>(gathered(ownsInt(narrow(v)))), bytes24 * n);
    }
}

OwnsVec<Zel32s> signedOf(__m128i spread)
{
    return ownsAs<Zel32s>(_mm_srai_epi32(spread, 8));
}
OwnsVec<Zel32s> unsignedOf(__m128i spread)
{
    return ownsAs<Zel32s>(_mm_srli_epi32(spread, 8));
}

/// Floats clamped to a range, where a NaN becomes the lower end, and rounded.
template <class Scale>
[[gnu::always_inline]] inline auto roundedTo(Zel32f least, Zel32f most, Scale scale)
{
    return [=](OwnsVec<Zel32f> x) {
        const OwnsVec<Zel32f> above = _mm_max_ps(scale(x), _mm_set1_ps(least));
        return ownsAs<Zel32s>(OwnsToNearest::integers(ownsBounded(above, most)));
    };
}

[[gnu::always_inline]] inline ZelStatus packFloats(const Zel32f* pSrc, Zel8u* pDst, int len, Zel32f least,
                                                   Zel32f most, int scaleFactor)
{
    if (const ZelStatus status = ownsCheck(len, pSrc, pDst); status != zelStatusOk)
        return status;
    const OwnsNearestMode nearest;
    ownsWithFloatScale(scaleFactor,
                       [=](auto scale) { packWith(pSrc, pDst, len, roundedTo(least, most, scale)); });
    return zelStatusOk;
}

/// 32-bit integers by the scale-factor rule, before they are clamped to 24 bits.
template <class V>
V scaled(OwnsUnscaled, V x)
{
    return x;
}
template <class V>
V scaled(OwnsHalved, V x)
{
    return ownsHalvedEven(x);
}
template <class V>
V scaled(OwnsShiftedRight path, V x)
{
    return ownsRoundedRight(x, path.shift);
}
template <class V>
V scaled(OwnsShiftedLeft path, V x)
{
    return ownsShiftedLeft(x, path.shift);
}
template <class V>
V scaled(OwnsBySign, V x)
{
    return ownsSaturatedBySign(x);
}

OwnsVec<Zel32s> clamped(OwnsVec<Zel32s> x)
{
    return ownsAs<Zel32s>(
        _mm_min_epi32(_mm_max_epi32(ownsInt(x), _mm_set1_epi32(least24s)), _mm_set1_epi32(most24s)));
}
OwnsVec<Zel32u> clamped(OwnsVec<Zel32u> x)
{
    return ownsAs<Zel32u>(_mm_min_epu32(ownsInt(x), _mm_set1_epi32(most24u)));
}

constexpr OwnsScaleLimits limits_32s24s{32, -31};

/// A factor above 31 acts as 31, so that no factor clears.
template <class S>
[[gnu::always_inline]] inline ZelStatus packIntegers(const S* pSrc, Zel8u* pDst, int len, int scaleFactor)
{
    if (const ZelStatus status = ownsCheck(len, pSrc, pDst); status != zelStatusOk)
        return status;
    ownsWithScaleFactor<limits_32s24s>(
        scaleFactor < 31 ? scaleFactor : 31, [] {},
        [=](auto path) {
            packWith(pSrc, pDst, len, [=](OwnsVec<S> x) { return clamped(scaled(path, x)); });
        });
    return zelStatusOk;
}

} // namespace

ZelStatus zelsConvert_24s32s(const Zel8u* pSrc, Zel32s* pDst, int len)
{
    return unpack(pSrc, pDst, len, [](__m128i x) { return signedOf(x); });
}

ZelStatus zelsConvert_24u32u(const Zel8u* pSrc, Zel32u* pDst, int len)
{
    return unpack(pSrc, pDst, len, [](__m128i x) { return ownsAs<Zel32u>(unsignedOf(x)); });
}

ZelStatus zelsConvert_24s32f(const Zel8u* pSrc, Zel32f* pDst, int len)
{
    return unpack(pSrc, pDst, len,
                  [](__m128i x) -> OwnsVec<Zel32f> { return _mm_cvtepi32_ps(ownsInt(signedOf(x))); });
}

ZelStatus zelsConvert_24u32f(const Zel8u* pSrc, Zel32f* pDst, int len)
{
    return unpack(pSrc, pDst, len,
                  [](__m128i x) -> OwnsVec<Zel32f> { return _mm_cvtepi32_ps(ownsInt(unsignedOf(x))); });
}

ZelStatus zelsConvert_32f24s_Sfs(const Zel32f* pSrc, Zel8u* pDst, int len, int scaleFactor)
{
    return packFloats(pSrc, pDst, len, least24s, most24s, scaleFactor);
}

ZelStatus zelsConvert_32f24u_Sfs(const Zel32f* pSrc, Zel8u* pDst, int len, int scaleFactor)
{
    return packFloats(pSrc, pDst, len, 0, most24u, scaleFactor);
}

ZelStatus zelsConvert_32s24s_Sfs(const Zel32s* pSrc, Zel8u* pDst, int len, int scaleFactor)
{
    return packIntegers(pSrc, pDst, len, scaleFactor);
}

ZelStatus zelsConvert_32u24u_Sfs(const Zel32u* pSrc, Zel8u* pDst, int len, int scaleFactor)
{
    return packIntegers(pSrc, pDst, len, scaleFactor);
}
