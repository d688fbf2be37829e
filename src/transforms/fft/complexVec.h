// Complex values in vectors, in the two forms that the transforms work in.
//
// OwnsPairs holds them as memory does, real and imaginary parts in turn: two values in 32f, one in 64f. It
// serves where the values of one vector belong to different sums. OwnsSplit holds the real parts in one
// vector and the imaginary parts in another: four values in 32f, two in 64f. Rotations by i and products cost
// no shuffles there.
//
// The operations have the same names for both, so that a butterfly is written once.
#pragma once

#include "frame/parts.h"

/// The low `bits` bits of `value` in reverse.
constexpr int ownsReversed(int value, int bits)
{
    int reversed = 0;
    for (; bits > 0; bits--, value >>= 1)
        reversed = reversed << 1 | (value & 1);
    return reversed;
}

// OwnsPairs

template <class T>
struct OwnsPairs {
    static constexpr int values = ownsLanes<T> / 2;
    OwnsVec<T> v;
};

template <class T>
inline OwnsPairs<T> operator+(OwnsPairs<T> a, OwnsPairs<T> b)
{
    return {a.v + b.v};
}
template <class T>
inline OwnsPairs<T> operator-(OwnsPairs<T> a, OwnsPairs<T> b)
{
    return {a.v - b.v};
}
template <class T>
inline OwnsPairs<T> operator*(OwnsPairs<T> a, T factor)
{
    return {a.v * ownsSplat(factor)};
}

/// -i * a: the parts exchanged, the new imaginary part negated.
template <class T>
inline OwnsPairs<T> ownsQuarterTurn(OwnsPairs<T> a)
{
    return {ownsConjugate(ownsSwapped(a.v))};
}

/// The product of each value and re + i * im.
inline OwnsPairs<Zel32f> ownsTimes(OwnsPairs<Zel32f> a, OwnsVec<Zel32f> re, OwnsVec<Zel32f> im)
{
    return {_mm_addsub_ps(a.v * re, ownsSwapped(a.v) * im)};
}
inline OwnsPairs<Zel64f> ownsTimes(OwnsPairs<Zel64f> a, OwnsVec<Zel64f> re, OwnsVec<Zel64f> im)
{
    return {_mm_addsub_pd(a.v * re, ownsSwapped(a.v) * im)};
}

/// a - i * b and a + i * b.
template <class T>
inline OwnsPairs<T> ownsMinusI(OwnsPairs<T> a, OwnsPairs<T> b)
{
    return a + ownsQuarterTurn(b);
}
template <class T>
inline OwnsPairs<T> ownsPlusI(OwnsPairs<T> a, OwnsPairs<T> b)
{
    return a - ownsQuarterTurn(b);
}

// OwnsSplit

template <class T>
struct OwnsSplit {
    static constexpr int values = ownsLanes<T>;
    OwnsVec<T> re, im;
};

template <class T>
inline OwnsSplit<T> operator+(OwnsSplit<T> a, OwnsSplit<T> b)
{
    return {a.re + b.re, a.im + b.im};
}
template <class T>
inline OwnsSplit<T> operator-(OwnsSplit<T> a, OwnsSplit<T> b)
{
    return {a.re - b.re, a.im - b.im};
}
template <class T>
inline OwnsSplit<T> operator*(OwnsSplit<T> a, T factor)
{
    return {a.re * ownsSplat(factor), a.im * ownsSplat(factor)};
}
template <class T>
inline OwnsSplit<T> operator*(OwnsSplit<T> a, OwnsSplit<T> b)
{
    return {a.re * b.re - a.im * b.im, a.re * b.im + a.im * b.re};
}
template <class T>
inline OwnsSplit<T> ownsMinusI(OwnsSplit<T> a, OwnsSplit<T> b)
{
    return {a.re + b.im, a.im - b.re};
}
template <class T>
inline OwnsSplit<T> ownsPlusI(OwnsSplit<T> a, OwnsSplit<T> b)
{
    return {a.re - b.im, a.im + b.re};
}
template <class T>
inline OwnsSplit<T> ownsConj(OwnsSplit<T> a)
{
    return {a.re, -a.im};
}
template <class T>
inline OwnsSplit<T> ownsExchanged(OwnsSplit<T> a)
{
    return {a.im, a.re};
}

// From one form to the other

/// The real parts of two vectors of pairs, and their imaginary parts.
inline OwnsSplit<Zel32f> ownsUnzipped(OwnsVec<Zel32f> a, OwnsVec<Zel32f> b)
{
    return {_mm_shuffle_ps(a, b, 0x88), _mm_shuffle_ps(a, b, 0xDD)};
}
inline OwnsSplit<Zel64f> ownsUnzipped(OwnsVec<Zel64f> a, OwnsVec<Zel64f> b)
{
    return {_mm_unpacklo_pd(a, b), _mm_unpackhi_pd(a, b)};
}

/// A matrix turned: `row` holds as many vectors as OwnsSplit has values; `column[c]` receives the c-th value of
/// each, one after the other.
inline void ownsTurned(const OwnsPairs<Zel32f>* row, OwnsSplit<Zel32f>* column)
{
    const __m128 low01 = _mm_unpacklo_ps(row[0].v, row[1].v);
    const __m128 low23 = _mm_unpacklo_ps(row[2].v, row[3].v);
    const __m128 high01 = _mm_unpackhi_ps(row[0].v, row[1].v);
    const __m128 high23 = _mm_unpackhi_ps(row[2].v, row[3].v);
    column[0] = {_mm_movelh_ps(low01, low23), _mm_movehl_ps(low23, low01)};
    column[1] = {_mm_movelh_ps(high01, high23), _mm_movehl_ps(high23, high01)};
}
inline void ownsTurned(const OwnsPairs<Zel64f>* row, OwnsSplit<Zel64f>* column)
{
    column[0] = ownsUnzipped(row[0].v, row[1].v);
}
inline void ownsTurned(const OwnsSplit<Zel32f>* row, OwnsSplit<Zel32f>* column)
{
    __m128 re[4] = {row[0].re, row[1].re, row[2].re, row[3].re};
    __m128 im[4] = {row[0].im, row[1].im, row[2].im, row[3].im};
    _MM_TRANSPOSE4_PS(re[0], re[1], re[2], re[3]);
    _MM_TRANSPOSE4_PS(im[0], im[1], im[2], im[3]);
    ownsEach<4>([&](auto c) OWNS_INLINE { column[c] = {re[c], im[c]}; });
}
inline void ownsTurned(const OwnsSplit<Zel64f>* row, OwnsSplit<Zel64f>* column)
{
    column[0] = {ownsZipLow(row[0].re, row[1].re), ownsZipLow(row[0].im, row[1].im)};
    column[1] = {ownsZipHigh(row[0].re, row[1].re), ownsZipHigh(row[0].im, row[1].im)};
}
