// Square roots: Sqrt. Negative elements of signed real types give a warning once the whole vector is done.
#include "frame/entry.h"
#include "frame/roundingMode.h"
#include "frame/scaledMap.h"
#include "math/hypot.h"
#include "math/root.h"
#include "zels.h"

namespace {

// Real floats.

inline OwnsVec<Zel32f> rootOf(OwnsVec<Zel32f> x)
{
    return _mm_sqrt_ps(x);
}
inline OwnsVec<Zel64f> rootOf(OwnsVec<Zel64f> x)
{
    return _mm_sqrt_pd(x);
}

template <OwnsShape shape, class T>
[[gnu::always_inline]] inline ZelStatus runFloatRoot(const T* pSrc, T* pDst, int len)
{
    if (const ZelStatus status = ownsCheck(len, pSrc, pDst); status != zelStatusOk)
        return status;
    auto negative = OwnsVec<T>{} < OwnsVec<T>{};
    ownsMap<shape>(
        [&negative](OwnsVec<T> x) {
            negative |= x < OwnsVec<T>{};
            return rootOf(x);
        },
        pDst, len, pSrc);
    return _mm_movemask_epi8(ownsInt(negative)) != 0 ? zelWarnSqrtNegative : zelStatusOk;
}

// The principal root of x + iy in doubles: with t = sqrt((|x| + |x + iy|) / 2) the parts are t and y / 2t,
// exchanged where x is negative. Nothing cancels.

struct Parts {
    OwnsF2 re, im;
};

/// From t, and infinite where a part of the argument is.
inline Parts principalRoot(OwnsF2 x, OwnsF2 y, OwnsF2 t)
{
    const OwnsF2 absY = OwnsMagnitude::of(y);
    const OwnsF2 infinity = _mm_set1_pd(std::numeric_limits<Zel64f>::infinity());
    t = ownsSelect(ownsIsInfinite(OwnsMagnitude::of(x), absY), infinity, t);
    OwnsF2 other = _mm_andnot_pd(_mm_cmpeq_pd(t, _mm_setzero_pd()), absY / (t + t));
    other = ownsSelect(_mm_cmpeq_pd(absY, infinity), infinity, other);
    const __m128d isLeft = _mm_cmplt_pd(x, _mm_setzero_pd());
    const OwnsF2 sign = _mm_and_pd(y, _mm_set1_pd(-0.0));
    return {ownsSelect(isLeft, other, t), _mm_or_pd(ownsSelect(isLeft, t, other), sign)};
}

/// Of parts whose squares fit a double: converted floats and integers.
inline Parts principalRootOfSmall(OwnsF2 x, OwnsF2 y)
{
    const OwnsF2 length = _mm_sqrt_pd(x * x + y * y);
    return principalRoot(x, y, _mm_sqrt_pd((OwnsMagnitude::of(x) + length) * 0.5));
}

inline Parts principalRootOf(OwnsF2 x, OwnsF2 y)
{
    const OwnsF2 absX = OwnsMagnitude::of(x);
    const OwnsF2 absY = OwnsMagnitude::of(y);
    const OwnsF2 larger = _mm_max_pd(absX, absY);
    if (ownsSquaresFit(larger)) [[likely]]
        return principalRoot(x, y, _mm_sqrt_pd((absX + ownsHypotInRange(absX, absY)) * 0.5));
    const OwnsRangeScale scale(larger);
    const OwnsF2 inX = absX * scale.in;
    // The length of (0, 0) is -0 in the rounding mode downward.
    const OwnsF2 root = _mm_sqrt_pd((inX + OwnsMagnitude::of(ownsHypotInRange(inX, absY * scale.in))) * 0.5);
    return principalRoot(x, y, root * scale.outOfRoot);
}

constexpr auto rootOfComplex32 = [](OwnsVec<Zel32f> v) -> OwnsVec<Zel32f> {
    const Parts root = principalRootOfSmall(_mm_cvtps_pd(_mm_shuffle_ps(v, v, 0x88)),
                                            _mm_cvtps_pd(_mm_shuffle_ps(v, v, 0xDD)));
    return _mm_unpacklo_ps(_mm_cvtpd_ps(root.re), _mm_cvtpd_ps(root.im));
};

/// Two elements at a time, where the driver has one: roots of both parts in one instruction.
void rootsOfComplex64(const Zel64fc* pSrc, Zel64fc* pDst, int len)
{
    const auto two = [](OwnsF2 a, OwnsF2 b) {
        return principalRootOf(_mm_unpacklo_pd(a, b), _mm_unpackhi_pd(a, b));
    };
    int i = 0;
    for (; i <= len - 2; i += 2) {
        const Parts root = two(ownsLoad(pSrc + i), ownsLoad(pSrc + i + 1));
        ownsStore(pDst + i, _mm_unpacklo_pd(root.re, root.im));
        ownsStore(pDst + i + 1, _mm_unpackhi_pd(root.re, root.im));
    }
    if (i < len) {
        const Parts root = two(ownsLoad(pSrc + i), ownsLoad(pSrc + i));
        ownsStore(pDst + i, _mm_unpacklo_pd(root.re, root.im));
    }
}

// Integers. The limits are those of the exact rule, taken from the largest root and that of 1; beyond the upper
// one the source is not read, and negative elements give no warning. A negative element gives 0.

constexpr OwnsScaleLimits limitsSqrt_8u{5, -8};
constexpr OwnsScaleLimits limitsSqrt_16u{9, -16};
constexpr OwnsScaleLimits limitsSqrt_16s{9, -15};
constexpr OwnsScaleLimits limitsSqrt_32s16s{17, -15};
constexpr OwnsScaleLimits limitsSqrt_16sc{9, -24}; // the smallest part is that of (-32768, 1)

struct Root16s {
    using V = OwnsVec<Zel16s>;

    static V notNegative(V x) { return ownsAs<Zel16s>(_mm_max_epi16(ownsInt(x), _mm_setzero_si128())); }

    template <class Path>
    static V apply(Path path, V x)
    {
        return ownsAs<Zel16s>(OwnsSmallIntegerRoot<32767>::apply(path, ownsInt(notNegative(x))));
    }
    static V apply(OwnsBySign, V x) { return ownsSaturatedBySign(notNegative(x)); }

    static V joined(V x) { return x; }
    static constexpr int signs = 0xAAAA;
};

struct Root16u {
    using V = OwnsVec<Zel16u>;

    template <class Path>
    static V apply(Path path, V x)
    {
        return ownsAs<Zel16u>(OwnsSmallIntegerRoot<65535>::apply(path, ownsInt(x)));
    }
    static V apply(OwnsBySign, V x) { return ownsSaturatedBySign(x); }
};

struct Root8u {
    using V = OwnsVec<Zel8u>;

    template <class Path>
    static V apply(Path path, V x)
    {
        const __m128i zero = _mm_setzero_si128();
        return ownsAs<Zel8u>(
            _mm_packus_epi16(OwnsSmallIntegerRoot<32767>::apply(path, _mm_unpacklo_epi8(ownsInt(x), zero)),
                             OwnsSmallIntegerRoot<32767>::apply(path, _mm_unpackhi_epi8(ownsInt(x), zero))));
    }
    static V apply(OwnsBySign, V x) { return ownsSaturatedBySign(x); }
};

struct Root32s16s {
    using V = OwnsVecs<Zel32s, 2>;

    template <class Path>
    static OwnsVec<Zel16s> apply(Path path, V x)
    {
        const auto notNegative = [](OwnsVec<Zel32s> n) {
            return ownsAs<Zel32s>(_mm_max_epi32(ownsInt(n), _mm_setzero_si128()));
        };
        return ownsAs<Zel16s>(
            OwnsIntegerRoot<32767, true>::apply(path, notNegative(x.v[0]), notNegative(x.v[1])));
    }
    static OwnsVec<Zel16s> apply(OwnsBySign path, V x)
    {
        return Root16s::apply(path, ownsAs<Zel16s>(_mm_packs_epi32(ownsInt(x.v[0]), ownsInt(x.v[1]))));
    }

    static OwnsVec<Zel32s> joined(V x) { return x.v[0] | x.v[1]; }
    static constexpr int signs = 0x8888;
};

/// Both parts by the principal root in double precision, which is within 2^-51 of the true one; no part of a
/// 16-bit argument comes that near to a tie without being one, and those are exact. Single precision settles what
/// is not near a tie.
struct Root16sc {
    using V = OwnsVec<Zel16s>;
    using F = OwnsVec<Zel32f>;

    static V inDouble(V v, Zel64f factor)
    {
        const OwnsVec<Zel32s> re = ownsAs<Zel32s>(v) << 16 >> 16;
        const OwnsVec<Zel32s> im = ownsAs<Zel32s>(v) >> 16;
        const auto nearest = [=](OwnsF2 x) {
            const OwnsF2 bounded =
                _mm_max_pd(_mm_min_pd(x * factor, _mm_set1_pd(32767)), _mm_set1_pd(-32768));
            return _mm_cvttpd_epi32(ownsRoundedNear(bounded));
        };
        const auto two = [=](__m128i x, __m128i y) {
            const Parts root = principalRootOfSmall(_mm_cvtepi32_pd(x), _mm_cvtepi32_pd(y));
            return _mm_unpacklo_epi32(nearest(root.re), nearest(root.im));
        };
        return ownsAs<Zel16s>(
            _mm_packs_epi32(two(ownsInt(re), ownsInt(im)),
                            two(_mm_srli_si128(ownsInt(re), 8), _mm_srli_si128(ownsInt(im), 8))));
    }
    [[gnu::noinline]] static V nearTie(V v, Zel64f factor) { return inDouble(v, factor); }

    /// For factors up to 2^23, by which all results are below 2^31.
    static V scaled(V v, Zel32f factor)
    {
        // The parts of a root are off by less than 5 * 2^-24 of the largest one, in every rounding mode.
        const Zel32f sure = 0.5f - 0x1.4p-22f * (factor < 128 ? 216 * factor : 32768);
        const OwnsVec<Zel32s> pairs = ownsAs<Zel32s>(v);
        const OwnsVec<Zel32s> re = pairs << 16 >> 16;
        const F sign = _mm_set1_ps(-0.0f);
        const F absX = _mm_andnot_ps(sign, _mm_cvtepi32_ps(ownsInt(re)));
        const F y = _mm_cvtepi32_ps(ownsInt(pairs >> 16));
        const F length = _mm_sqrt_ps(ownsUnsigned32f(ownsAs<Zel32s>(_mm_madd_epi16(ownsInt(v), ownsInt(v)))));
        const F t = _mm_sqrt_ps((absX + length) * 0.5f);
        const F other = F(_mm_andnot_ps(sign, y)) / F(_mm_max_ps(t + t, _mm_set1_ps(1)));
        const F isLeft = _mm_castsi128_ps(_mm_srai_epi32(ownsInt(re), 31));
        const F exchange = _mm_and_ps(isLeft, _mm_xor_ps(t, other));
        const F rootRe = F(_mm_xor_ps(t, exchange)) * factor;
        const F rootIm = F(_mm_xor_ps(_mm_xor_ps(other, exchange), _mm_and_ps(sign, y))) * factor;
        const F nearestRe = ownsRoundedNear(rootRe);
        const F nearestIm = ownsRoundedNear(rootIm);
        const F rest =
            _mm_max_ps(_mm_andnot_ps(sign, rootRe - nearestRe), _mm_andnot_ps(sign, rootIm - nearestIm));
        if (_mm_movemask_ps(_mm_cmpgt_ps(rest, _mm_set1_ps(sure))) != 0) [[unlikely]]
            return nearTie(v, factor);
        const __m128i wholeRe = _mm_cvttps_epi32(nearestRe);
        const __m128i wholeIm = _mm_cvttps_epi32(nearestIm);
        return ownsAs<Zel16s>(
            _mm_packs_epi32(_mm_unpacklo_epi32(wholeRe, wholeIm), _mm_unpackhi_epi32(wholeRe, wholeIm)));
    }
    static V apply(OwnsUnscaled, V v) { return scaled(v, 1); }
    static V apply(OwnsHalved, V v) { return scaled(v, 0.5f); }
    static V apply(OwnsShiftedRight path, V v)
    {
        return scaled(v, 1.0f / static_cast<Zel32f>(1 << path.shift));
    }
    static V apply(OwnsShiftedLeft path, V v) { return scaled(v, static_cast<Zel32f>(1 << path.shift)); }
    static V apply(OwnsBySign, V v) { return inDouble(v, 0x1p40); }
};

template <OwnsShape shape, class Op, class Path, class D, class S>
[[gnu::noinline]] bool rootKernel(Path path, const S* pSrc, D* pDst, int len)
{
    __m128i joined = _mm_setzero_si128();
    ownsMap<shape>(
        [path, &joined](auto x) {
            joined = _mm_or_si128(joined, ownsInt(Op::joined(x)));
            return Op::apply(path, x);
        },
        pDst, len, pSrc);
    return (_mm_movemask_epi8(joined) & Op::signs) != 0;
}

/// The entry for signed types.
template <OwnsScaleLimits limits, class Op, class S>
[[gnu::always_inline]] inline ZelStatus runSignedRoot(const S* pSrc, Zel16s* pDst, int len, int scaleFactor)
{
    if (const ZelStatus status = ownsCheck(len, pSrc, pDst); status != zelStatusOk)
        return status;
    bool negative = false;
    ownsWithScaleFactor<limits>(
        scaleFactor, [=] { ownsZero(pDst, len); },
        [&](auto path) { negative = rootKernel<shape_16s, Op>(path, pSrc, pDst, len); });
    return negative ? zelWarnSqrtNegative : zelStatusOk;
}

} // namespace

ZelStatus zelsSqrt_32f(const Zel32f* pSrc, Zel32f* pDst, int len)
{
    return runFloatRoot<shape_32f>(pSrc, pDst, len);
}

ZelStatus zelsSqrt_32f_I(Zel32f* pSrcDst, int len)
{
    return zelsSqrt_32f(pSrcDst, pSrcDst, len);
}

ZelStatus zelsSqrt_64f(const Zel64f* pSrc, Zel64f* pDst, int len)
{
    return runFloatRoot<shape_64f>(pSrc, pDst, len);
}

ZelStatus zelsSqrt_64f_I(Zel64f* pSrcDst, int len)
{
    return zelsSqrt_64f(pSrcDst, pSrcDst, len);
}

ZelStatus zelsSqrt_32fc(const Zel32fc* pSrc, Zel32fc* pDst, int len)
{
    return ownsRun<shape_32fc>(rootOfComplex32, pDst, len, pSrc);
}

ZelStatus zelsSqrt_32fc_I(Zel32fc* pSrcDst, int len)
{
    return zelsSqrt_32fc(pSrcDst, pSrcDst, len);
}

ZelStatus zelsSqrt_64fc(const Zel64fc* pSrc, Zel64fc* pDst, int len)
{
    if (const ZelStatus status = ownsCheck(len, pSrc, pDst); status != zelStatusOk)
        return status;
    rootsOfComplex64(pSrc, pDst, len);
    return zelStatusOk;
}

ZelStatus zelsSqrt_64fc_I(Zel64fc* pSrcDst, int len)
{
    return zelsSqrt_64fc(pSrcDst, pSrcDst, len);
}

ZelStatus zelsSqrt_8u_Sfs(const Zel8u* pSrc, Zel8u* pDst, int len, int scaleFactor)
{
    return ownsRunScaled<limitsSqrt_8u, shape_8u, Root8u>(scaleFactor, pDst, len, pSrc);
}

ZelStatus zelsSqrt_8u_ISfs(Zel8u* pSrcDst, int len, int scaleFactor)
{
    return zelsSqrt_8u_Sfs(pSrcDst, pSrcDst, len, scaleFactor);
}

ZelStatus zelsSqrt_16u_Sfs(const Zel16u* pSrc, Zel16u* pDst, int len, int scaleFactor)
{
    return ownsRunScaled<limitsSqrt_16u, shape_16s, Root16u>(scaleFactor, pDst, len, pSrc);
}

ZelStatus zelsSqrt_16u_ISfs(Zel16u* pSrcDst, int len, int scaleFactor)
{
    return zelsSqrt_16u_Sfs(pSrcDst, pSrcDst, len, scaleFactor);
}

ZelStatus zelsSqrt_16s_Sfs(const Zel16s* pSrc, Zel16s* pDst, int len, int scaleFactor)
{
    return runSignedRoot<limitsSqrt_16s, Root16s>(pSrc, pDst, len, scaleFactor);
}

ZelStatus zelsSqrt_16s_ISfs(Zel16s* pSrcDst, int len, int scaleFactor)
{
    return zelsSqrt_16s_Sfs(pSrcDst, pSrcDst, len, scaleFactor);
}

ZelStatus zelsSqrt_16sc_Sfs(const Zel16sc* pSrc, Zel16sc* pDst, int len, int scaleFactor)
{
    return ownsRunScaled<limitsSqrt_16sc, shape_16sc, Root16sc>(scaleFactor, pDst, len, pSrc);
}

ZelStatus zelsSqrt_16sc_ISfs(Zel16sc* pSrcDst, int len, int scaleFactor)
{
    return zelsSqrt_16sc_Sfs(pSrcDst, pSrcDst, len, scaleFactor);
}

ZelStatus zelsSqrt_32s16s_Sfs(const Zel32s* pSrc, Zel16s* pDst, int len, int scaleFactor)
{
    const OwnsNearestMode mode(scaleFactor > 0);
    return runSignedRoot<limitsSqrt_32s16s, Root32s16s>(pSrc, pDst, len, scaleFactor);
}
