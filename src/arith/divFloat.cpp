// Quotients of float vectors: Div, and DivCRev of a constant by a vector. The first vector is the divisor.
#include "arith/division.h"
#include "zels.h"

namespace {

/// b over a in single precision: an estimate y of 1/a, good to 12 bits, times a series in its error e = 1 - a y.
/// Of 1/a = y / (1 - e) = y (1 + e + e^2 + ...) three terms leave the error at that of the roundings.
struct Divide32f {
    using Estimates = void;
    bool& zero;

    explicit Divide32f(bool& anyZero) : zero(anyZero) {}

    Zel32f operator()(Zel32f a, Zel32f b) const
    {
        zero |= a == 0;
        return b / a;
    }
    OwnsVec<Zel32f> operator()(OwnsVec<Zel32f> a, OwnsVec<Zel32f> b) const
    {
        if (_mm_movemask_ps(_mm_cmpeq_ps(a, _mm_setzero_ps())) != 0) [[unlikely]] {
            zero = true;
            return b / a;
        }
        return estimate(a, b);
    }
    /// Over zero the estimate is a NaN: one comparison looks for these in two vectors.
    OwnsVecs<Zel32f, 2> pair(OwnsVecs<Zel32f, 2> a, OwnsVecs<Zel32f, 2> b) const
    {
        const OwnsVec<Zel32f> first = estimate(a.v[0], b.v[0]);
        const OwnsVec<Zel32f> second = estimate(a.v[1], b.v[1]);
        if (_mm_movemask_ps(_mm_cmpunord_ps(first, second)) != 0) [[unlikely]]
            return {{(*this)(a.v[0], b.v[0]), (*this)(a.v[1], b.v[1])}};
        return {{first, second}};
    }

  private:
    static OwnsVec<Zel32f> estimate(OwnsVec<Zel32f> a, OwnsVec<Zel32f> b)
    {
        const OwnsVec<Zel32f> y = _mm_rcp_ps(a);
        const OwnsVec<Zel32f> e = 1 - a * y;
        return b * (y + e * (y + e * y));
    }
};

ZelStatus divide32f(const Zel32f* pSrc1, const Zel32f* pSrc2, Zel32f* pDst, int len)
{
    if (const ZelStatus status = ownsCheck(len, pSrc1, pSrc2, pDst); status != zelStatusOk)
        return status;
    bool zero = false;
    ownsMap<shape_32f>(Divide32f{zero}, pDst, len, pSrc1, pSrc2);
    return zero ? zelWarnDivByZero : zelStatusOk;
}

struct DivideConstant32f {
    using Estimates = void;
    Zel32f val;
    Divide32f divide;

    Zel32f operator()(Zel32f a) const { return divide(a, val); }
    OwnsVec<Zel32f> operator()(OwnsVec<Zel32f> a) const { return divide(a, ownsSplat(val)); }
    OwnsVecs<Zel32f, 2> pair(OwnsVecs<Zel32f, 2> a) const
    {
        return divide.pair(a, {{ownsSplat(val), ownsSplat(val)}});
    }
};

ZelStatus divideConstant32f(const Zel32f* pSrc, Zel32f val, Zel32f* pDst, int len)
{
    if (const ZelStatus status = ownsCheck(len, pSrc, pDst); status != zelStatusOk)
        return status;
    bool zero = false;
    ownsMap<shape_32f>(DivideConstant32f{val, Divide32f{zero}}, pDst, len, pSrc);
    return zero ? zelWarnDivByZero : zelStatusOk;
}

/// b over a in double precision, truly divided.
struct Divide64f {
    OwnsZeroWatch& zeros;

    OwnsVec<Zel64f> operator()(OwnsVec<Zel64f> a, OwnsVec<Zel64f> b) const
    {
        zeros.note(ownsInt(a == 0.0));
        return b / a;
    }
    OwnsVec<Zel64f> part(int n, OwnsVec<Zel64f> a, OwnsVec<Zel64f> b) const
    {
        return (*this)(ownsPaddedDivisor<Zel64f>(a, n), b);
    }
};

/// b over a, complex: b times the conjugate of a, over the sum of squares. Where a is zero, b takes the place
/// of that product: each part gives an infinity of its sign, or a NaN.
template <class C>
struct DivideComplex {
    using V = OwnsVec<C>;
    OwnsZeroWatch& zeros;

    V operator()(V a, V b) const
    {
        const V re = ownsReals(a);
        const V im = ownsImags(a);
        const V sum = re * re + im * im;
        // Imaginary parts first: subtraction and addition then fall on the right ones without a negation, which
        // the compiler might move into a product and so round the other way.
        V numerator = ownsSwapped(ownsSubAdd(ownsSwapped(b) * re, b * im));
        const __m128i isZero = bothParts(ownsInt(a == 0));
        if (_mm_movemask_epi8(isZero) != 0) [[unlikely]] {
            zeros.note(isZero);
            numerator = ownsAs<OwnsPart<C>>(_mm_blendv_epi8(ownsInt(numerator), ownsInt(b), isZero));
        }
        return numerator / sum;
    }
    V part(int n, V a, V b) const { return (*this)(ownsPaddedDivisor<C>(a, n), b); }

    /// The same with real and imaginary parts in vectors of their own. A sum of 0 comes of small divisors, too.
    OwnsVecs<C, 2> pair(OwnsVecs<C, 2> a, OwnsVecs<C, 2> b) const
    {
        const auto [re, im] = apart(a);
        const auto [bRe, bIm] = apart(b);
        const V sum = re * re + im * im;
        if (_mm_movemask_epi8(ownsInt(sum == 0)) != 0) [[unlikely]]
            return {{(*this)(a.v[0], b.v[0]), (*this)(a.v[1], b.v[1])}};
        return together((bRe * re + bIm * im) / sum, (bIm * re - bRe * im) / sum);
    }

  private:
    struct Parts {
        V re, im;
    };
    static Parts apart(OwnsVecs<C, 2> x)
    {
        if constexpr (sizeof(C) == 8)
            return {_mm_shuffle_ps(x.v[0], x.v[1], 0x88), _mm_shuffle_ps(x.v[0], x.v[1], 0xDD)};
        else
            return {_mm_unpacklo_pd(x.v[0], x.v[1]), _mm_unpackhi_pd(x.v[0], x.v[1])};
    }
    static OwnsVecs<C, 2> together(V re, V im)
    {
        if constexpr (sizeof(C) == 8)
            return {{_mm_unpacklo_ps(re, im), _mm_unpackhi_ps(re, im)}};
        else
            return {{_mm_unpacklo_pd(re, im), _mm_unpackhi_pd(re, im)}};
    }
    static __m128i bothParts(__m128i each)
    {
        if constexpr (sizeof(C) == 8)
            return _mm_cmpeq_epi64(each, _mm_set1_epi64x(-1));
        else
            return _mm_and_si128(each, _mm_shuffle_epi32(each, 0x4E));
    }
};

template <OwnsShape shape, class Op, class T>
ZelStatus divide(const T* pSrc1, const T* pSrc2, T* pDst, int len)
{
    if (const ZelStatus status = ownsCheck(len, pSrc1, pSrc2, pDst); status != zelStatusOk)
        return status;
    OwnsZeroWatch zeros;
    ownsMap<shape>(Op{zeros}, pDst, len, pSrc1, pSrc2);
    return zeros.status();
}

} // namespace

ZelStatus zelsDiv_32f(const Zel32f* pSrc1, const Zel32f* pSrc2, Zel32f* pDst, int len)
{
    return divide32f(pSrc1, pSrc2, pDst, len);
}

ZelStatus zelsDiv_32f_I(const Zel32f* pSrc, Zel32f* pSrcDst, int len)
{
    return divide32f(pSrc, pSrcDst, pSrcDst, len);
}

ZelStatus zelsDiv_32f_L(const Zel32f* pSrc1, const Zel32f* pSrc2, Zel32f* pDst, ZelSize len)
{
    return ownsChunked<zelsDiv_32f, Zel32f>(len, pSrc1, pSrc2, pDst);
}

ZelStatus zelsDiv_32f_I_L(const Zel32f* pSrc, Zel32f* pSrcDst, ZelSize len)
{
    return ownsChunked<zelsDiv_32f_I, Zel32f>(len, pSrc, pSrcDst);
}

ZelStatus zelsDiv_64f(const Zel64f* pSrc1, const Zel64f* pSrc2, Zel64f* pDst, int len)
{
    return divide<shape_64f, Divide64f>(pSrc1, pSrc2, pDst, len);
}

ZelStatus zelsDiv_64f_I(const Zel64f* pSrc, Zel64f* pSrcDst, int len)
{
    return divide<shape_64f, Divide64f>(pSrc, pSrcDst, pSrcDst, len);
}

ZelStatus zelsDiv_64f_L(const Zel64f* pSrc1, const Zel64f* pSrc2, Zel64f* pDst, ZelSize len)
{
    return ownsChunked<zelsDiv_64f, Zel64f>(len, pSrc1, pSrc2, pDst);
}

ZelStatus zelsDiv_64f_I_L(const Zel64f* pSrc, Zel64f* pSrcDst, ZelSize len)
{
    return ownsChunked<zelsDiv_64f_I, Zel64f>(len, pSrc, pSrcDst);
}

ZelStatus zelsDiv_32fc(const Zel32fc* pSrc1, const Zel32fc* pSrc2, Zel32fc* pDst, int len)
{
    return divide<shape_32fc, DivideComplex<Zel32fc>>(pSrc1, pSrc2, pDst, len);
}

ZelStatus zelsDiv_32fc_I(const Zel32fc* pSrc, Zel32fc* pSrcDst, int len)
{
    return divide<shape_32fc, DivideComplex<Zel32fc>>(pSrc, pSrcDst, pSrcDst, len);
}

ZelStatus zelsDiv_32fc_L(const Zel32fc* pSrc1, const Zel32fc* pSrc2, Zel32fc* pDst, ZelSize len)
{
    return ownsChunked<zelsDiv_32fc, Zel32fc>(len, pSrc1, pSrc2, pDst);
}

ZelStatus zelsDiv_32fc_I_L(const Zel32fc* pSrc, Zel32fc* pSrcDst, ZelSize len)
{
    return ownsChunked<zelsDiv_32fc_I, Zel32fc>(len, pSrc, pSrcDst);
}

ZelStatus zelsDiv_64fc(const Zel64fc* pSrc1, const Zel64fc* pSrc2, Zel64fc* pDst, int len)
{
    return divide<shape_64fc, DivideComplex<Zel64fc>>(pSrc1, pSrc2, pDst, len);
}

ZelStatus zelsDiv_64fc_I(const Zel64fc* pSrc, Zel64fc* pSrcDst, int len)
{
    return divide<shape_64fc, DivideComplex<Zel64fc>>(pSrc, pSrcDst, pSrcDst, len);
}

ZelStatus zelsDiv_64fc_L(const Zel64fc* pSrc1, const Zel64fc* pSrc2, Zel64fc* pDst, ZelSize len)
{
    return ownsChunked<zelsDiv_64fc, Zel64fc>(len, pSrc1, pSrc2, pDst);
}

ZelStatus zelsDiv_64fc_I_L(const Zel64fc* pSrc, Zel64fc* pSrcDst, ZelSize len)
{
    return ownsChunked<zelsDiv_64fc_I, Zel64fc>(len, pSrc, pSrcDst);
}

ZelStatus zelsDivCRev_32f(const Zel32f* pSrc, Zel32f val, Zel32f* pDst, int len)
{
    return divideConstant32f(pSrc, val, pDst, len);
}

ZelStatus zelsDivCRev_32f_I(Zel32f val, Zel32f* pSrcDst, int len)
{
    return divideConstant32f(pSrcDst, val, pSrcDst, len);
}

ZelStatus zelsDivCRev_32f_L(const Zel32f* pSrc, Zel32f val, Zel32f* pDst, ZelSize len)
{
    return ownsChunked<zelsDivCRev_32f, Zel32f>(len, pSrc, val, pDst);
}

ZelStatus zelsDivCRev_32f_I_L(Zel32f val, Zel32f* pSrcDst, ZelSize len)
{
    return ownsChunked<zelsDivCRev_32f_I, Zel32f>(len, val, pSrcDst);
}
