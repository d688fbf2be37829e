// Dot products of float vectors.
//
// A running value takes products, real or complex, in the order of the round that it belongs to; every form
// has a round of its own. Products and additions are each rounded: nothing is fused.
#include "frame/reduce.h"
#include "zels.h"

namespace {

// Elements as double lanes: a real one in both lanes, a complex one as (re, im); and one or two products of
// them.

OwnsF64x2 wide(const Zel32f* p)
{
    const Zel64f x = ownsGet(p);
    return OwnsF64x2{x, x};
}
OwnsF64x2 wide(const Zel64f* p)
{
    const Zel64f x = ownsGet(p);
    return OwnsF64x2{x, x};
}
OwnsF64x2 wide(const Zel32fc* p)
{
    return ownsWidePair(ownsParts(p));
}
OwnsF64x2 wide(const Zel64fc* p)
{
    return ownsLoad(p);
}

/// One product with a complex second factor, (re, im).
template <class A, class B>
OwnsF64x2 product(const A* p1, const B* p2)
{
    if constexpr (ownsIsComplex<A>)
        return ownsComplexMul(wide(p1), wide(p2));
    else
        return wide(p1) * wide(p2);
}

/// Two products side by side, (re, im, re, im).
OwnsF32x4 twoProducts(const Zel32fc* p1, const Zel32fc* p2)
{
    return ownsComplexMul(ownsLoad(p1), ownsLoad(p2));
}
OwnsF32x4 twoProducts(const Zel32f* p1, const Zel32fc* p2)
{
    const __m128 factors = ownsFloat(ownsTake<Zel64f>(p1));
    return OwnsF32x4(_mm_unpacklo_ps(factors, factors)) * ownsLoad(p2);
}

Zel32fc oneProduct(Zel32fc a, Zel32fc b)
{
    return {a.re * b.re - a.im * b.im, a.im * b.re + a.re * b.im};
}
Zel32fc oneProduct(Zel32f a, Zel32fc b)
{
    return {a * b.re, a * b.im};
}

Zel64fc pairOf(OwnsF64x2 v)
{
    return {v[0], v[1]};
}

/// Six running sums A0 A1 B0 B1 C0 C1, one for each place in a round of six.
Zel32f dot32f(const Zel32f* p1, const Zel32f* p2, ZelSize len)
{
    struct Six {
        OwnsF32x4 ab{};
        OwnsF32x4 c{};
    } six;
    ZelSize i = ownsRounds<6>(six, 0, len, [=](Six& s, ZelSize at) {
        s.ab += ownsLoad(p1 + at) * ownsLoad(p2 + at);
        s.c += OwnsF32x4(ownsTake<Zel64f>(p1 + at + 4)) * OwnsF32x4(ownsTake<Zel64f>(p2 + at + 4));
    });
    const OwnsF32x4 sums = (six.ab + OwnsF32x4(_mm_movehl_ps(six.ab, six.ab))) + six.c;
    Zel32f dot = sums[0] + sums[1];
    for (; i < len; i++)
        dot += ownsGet(p1 + i) * ownsGet(p2 + i);
    return dot;
}

/// Four running sums of re and four of im, one for each place in a round of four: lanes 0 and 1 in a[0], 2
/// and 3 in a[1]. They fold as (l0 + l2) + (l1 + l3).
template <class A>
Zel32fc dot32fc(const A* p1, const Zel32fc* p2, ZelSize len)
{
    OwnsF32x4 a[2] = {};
    ZelSize i =
        ownsRounds<2>(a, 0, len, [=](OwnsF32x4& sums, ZelSize at) { sums += twoProducts(p1 + at, p2 + at); });
    const OwnsF32x4 pairs = a[0] + a[1];
    const OwnsF32x4 sum = pairs + OwnsF32x4(_mm_movehl_ps(pairs, pairs));
    Zel32fc dot{sum[0], sum[1]};
    for (; i < len; i++) {
        const Zel32fc term = oneProduct(ownsGet(p1 + i), ownsGet(p2 + i));
        dot = {dot.re + term.re, dot.im + term.im};
    }
    return dot;
}

/// Four running sums, one for each place in a round of four.
Zel64f dot32f64f(const Zel32f* p1, const Zel32f* p2, ZelSize len)
{
    OwnsF64x2 a[2] = {};
    ZelSize i = ownsRounds<2>(a, 0, len, [=](OwnsF64x2& sums, ZelSize at) {
        sums += ownsWidePair(p1 + at) * ownsWidePair(p2 + at);
    });
    Zel64f dot = ownsLaneSum(a[0] + a[1]);
    for (; i < len; i++)
        dot += Zel64f{ownsGet(p1 + i)} * Zel64f{ownsGet(p2 + i)};
    return dot;
}

/// Two running sums of re and two of im, in rounds of two.
Zel64fc dot32fc64fc(const Zel32fc* p1, const Zel32fc* p2, ZelSize len)
{
    const auto add = [=](OwnsF64x2& sum, ZelSize at) { sum += product(p1 + at, p2 + at); };
    OwnsF64x2 a[2] = {};
    const ZelSize i = ownsRounds<1>(a, 0, len, add);
    OwnsF64x2 dot = a[0] + a[1];
    ownsRounds<1>(dot, i, len, add);
    return pairOf(dot);
}

/// Two (re, im) sums that take turns in rounds of four.
Zel64fc dot32f32fc64fc(const Zel32f* p1, const Zel32fc* p2, ZelSize len)
{
    const auto add = [=](OwnsF64x2& sum, ZelSize at) { sum += product(p1 + at, p2 + at); };
    struct Turns {
        OwnsF64x2 first{};
        OwnsF64x2 second{};
    } turns;
    ZelSize i = 0;
    if (ownsBefore(8, p1, len) == 1) {
        add(turns.first, 0);
        i = 1;
    }
    i = ownsRounds<4>(turns, i, len, [&](Turns& t, ZelSize at) {
        add(t.first, at);
        add(t.second, at + 1);
        add(t.first, at + 2);
        add(t.second, at + 3);
    });
    OwnsF64x2 dot = turns.first + turns.second;
    ownsRounds<1>(dot, i, len, add);
    return pairOf(dot);
}

/// One running sum, to which a group of eight goes as one value; the last products in descending order.
Zel64f dot64f(const Zel64f* p1, const Zel64f* p2, ZelSize len)
{
    Zel64f dot = 0;
    const auto groups = [&](auto second) {
        const auto pair = [=](ZelSize at) { return ownsLoad(p1 + at) * second(at); };
        return ownsRounds<8>(dot, 0, len, [=](Zel64f& sum, ZelSize at) {
            sum += ownsLaneSum((pair(at + 6) + pair(at + 2)) + (pair(at + 4) + pair(at)));
        });
    };
    // An aligned factor is an operand in memory: four instructions a group less.
    const ZelSize whole =
        reinterpret_cast<std::uintptr_t>(p2) % sizeof(OwnsF64x2) == 0
            ? groups([=](ZelSize at) { return *reinterpret_cast<const OwnsF64x2*>(p2 + at); })
            : groups([=](ZelSize at) { return ownsLoad(p2 + at); });
    for (ZelSize i = len; i-- > whole;)
        dot += ownsGet(p1 + i) * ownsGet(p2 + i);
    return dot;
}

/// The same for a complex second factor. A group has eight products of a real factor, four of a complex one.
template <class A>
Zel64fc dot64fc(const A* p1, const Zel64fc* p2, ZelSize len)
{
    const auto one = [=](ZelSize at) { return product(p1 + at, p2 + at); };
    OwnsF64x2 dot{};
    ZelSize whole;
    if constexpr (ownsIsComplex<A>)
        whole = ownsRounds<4>(dot, 0, len, [=](OwnsF64x2& sum, ZelSize at) {
            sum += (one(at + 3) + one(at + 1)) + (one(at + 2) + one(at));
        });
    else
        whole = ownsRounds<8>(dot, 0, len, [=](OwnsF64x2& sum, ZelSize at) {
            const OwnsF64x2 odd = (one(at + 7) + one(at + 3)) + (one(at + 5) + one(at + 1));
            const OwnsF64x2 even = (one(at + 6) + one(at + 2)) + (one(at + 4) + one(at));
            sum += odd + even;
        });
    for (ZelSize i = len; i-- > whole;)
        dot += one(i);
    return pairOf(dot);
}

} // namespace

ZelStatus zelsDotProd_32f(const Zel32f* pSrc1, const Zel32f* pSrc2, int len, Zel32f* pDp)
{
    return ownsReduce(
        pDp, [=] { return dot32f(pSrc1, pSrc2, len); }, len, pSrc1, pSrc2);
}

ZelStatus zelsDotProd_32fc(const Zel32fc* pSrc1, const Zel32fc* pSrc2, int len, Zel32fc* pDp)
{
    return ownsReduce(
        pDp, [=] { return dot32fc(pSrc1, pSrc2, len); }, len, pSrc1, pSrc2);
}

ZelStatus zelsDotProd_32f32fc(const Zel32f* pSrc1, const Zel32fc* pSrc2, int len, Zel32fc* pDp)
{
    return ownsReduce(
        pDp, [=] { return dot32fc(pSrc1, pSrc2, len); }, len, pSrc1, pSrc2);
}

ZelStatus zelsDotProd_32f64f(const Zel32f* pSrc1, const Zel32f* pSrc2, int len, Zel64f* pDp)
{
    return zelsDotProd_32f64f_L(pSrc1, pSrc2, len, pDp);
}

ZelStatus zelsDotProd_32f64f_L(const Zel32f* pSrc1, const Zel32f* pSrc2, ZelSize len, Zel64f* pDp)
{
    return ownsReduce(
        pDp, [=] { return dot32f64f(pSrc1, pSrc2, len); }, len, pSrc1, pSrc2);
}

ZelStatus zelsDotProd_32fc64fc(const Zel32fc* pSrc1, const Zel32fc* pSrc2, int len, Zel64fc* pDp)
{
    return zelsDotProd_32fc64fc_L(pSrc1, pSrc2, len, pDp);
}

ZelStatus zelsDotProd_32fc64fc_L(const Zel32fc* pSrc1, const Zel32fc* pSrc2, ZelSize len, Zel64fc* pDp)
{
    return ownsReduce(
        pDp, [=] { return dot32fc64fc(pSrc1, pSrc2, len); }, len, pSrc1, pSrc2);
}

ZelStatus zelsDotProd_32f32fc64fc(const Zel32f* pSrc1, const Zel32fc* pSrc2, int len, Zel64fc* pDp)
{
    return zelsDotProd_32f32fc64fc_L(pSrc1, pSrc2, len, pDp);
}

ZelStatus zelsDotProd_32f32fc64fc_L(const Zel32f* pSrc1, const Zel32fc* pSrc2, ZelSize len, Zel64fc* pDp)
{
    return ownsReduce(
        pDp, [=] { return dot32f32fc64fc(pSrc1, pSrc2, len); }, len, pSrc1, pSrc2);
}

ZelStatus zelsDotProd_64f(const Zel64f* pSrc1, const Zel64f* pSrc2, int len, Zel64f* pDp)
{
    return zelsDotProd_64f_L(pSrc1, pSrc2, len, pDp);
}

ZelStatus zelsDotProd_64f_L(const Zel64f* pSrc1, const Zel64f* pSrc2, ZelSize len, Zel64f* pDp)
{
    return ownsReduce(
        pDp, [=] { return dot64f(pSrc1, pSrc2, len); }, len, pSrc1, pSrc2);
}

ZelStatus zelsDotProd_64fc(const Zel64fc* pSrc1, const Zel64fc* pSrc2, int len, Zel64fc* pDp)
{
    return zelsDotProd_64fc_L(pSrc1, pSrc2, len, pDp);
}

ZelStatus zelsDotProd_64fc_L(const Zel64fc* pSrc1, const Zel64fc* pSrc2, ZelSize len, Zel64fc* pDp)
{
    return ownsReduce(
        pDp, [=] { return dot64fc(pSrc1, pSrc2, len); }, len, pSrc1, pSrc2);
}

ZelStatus zelsDotProd_64f64fc(const Zel64f* pSrc1, const Zel64fc* pSrc2, int len, Zel64fc* pDp)
{
    return zelsDotProd_64f64fc_L(pSrc1, pSrc2, len, pDp);
}

ZelStatus zelsDotProd_64f64fc_L(const Zel64f* pSrc1, const Zel64fc* pSrc2, ZelSize len, Zel64fc* pDp)
{
    return ownsReduce(
        pDp, [=] { return dot64fc(pSrc1, pSrc2, len); }, len, pSrc1, pSrc2);
}
