// Sums of natural logarithms with one logarithm a block: ln(product of mantissas) + (sum of exponents) *
// ln(2).
//
// A product of 512 mantissas, whether from [0.5, 1) or from [1, 2), stays within the exponents of a double.
// Mantissas and exponents are cut out of the bit patterns, so that subnormal numbers are not renormalised,
// and an infinity or a signalling NaN that no test stops passes for a number with the largest exponent.
#include "frame/reduce.h"
#include "zels.h"

#include <bit>
#include <cmath>
#include <limits>

namespace {

constexpr ZelSize blockLength = 512;

/// What an element without a logarithm makes of its block.
enum class Flag { none, zero, negative, nan };

/// A factor and a power of two: the mantissas and exponents of some elements.
struct Split {
    Zel64f mantissa = 1;
    Zel64s exponent = 0;
    Flag flag = Flag::none;
};

/// The fields of a float, and the mantissas that it is split into: [0.5, 1) for 32f, [1, 2) for 64f.
template <class T>
struct Fields;
template <>
struct Fields<Zel32f> {
    using Bits = Zel32u;
    static constexpr int fraction = 23;
    static constexpr Bits infinity = 0x7F800000;
    static constexpr Bits mantissaBits = 0x3F000000;
    static constexpr int bias = 126;
};
template <>
struct Fields<Zel64f> {
    using Bits = Zel64u;
    static constexpr int fraction = 52;
    static constexpr Bits infinity = 0x7FF0000000000000;
    static constexpr Bits mantissaBits = 0x3FF0000000000000;
    static constexpr int bias = 1023;
};

// Single elements, behind the whole units of a block.

template <class T>
Flag flagOf(T x)
{
    using F = Fields<T>;
    using Bits = typename F::Bits;
    constexpr Bits quietNan = F::infinity | Bits{1} << (F::fraction - 1);
    const auto bits = std::bit_cast<Bits>(x);
    return std::signbit(x)                 ? Flag::negative
           : bits == 0                     ? Flag::zero
           : (bits & quietNan) == quietNan ? Flag::nan
                                           : Flag::none;
}

template <class T>
void takeOne(Split& split, T x)
{
    using F = Fields<T>;
    const auto bits = std::bit_cast<typename F::Bits>(x);
    split.mantissa *= std::bit_cast<T>((bits & ~F::infinity) | F::mantissaBits);
    split.exponent += static_cast<Zel64s>(bits >> F::fraction) - F::bias;
}
void takeOne(Split& split, Zel16s x)
{
    takeOne(split, static_cast<Zel32f>(x));
}
Flag flagOf(Zel16s x)
{
    return flagOf(static_cast<Zel32f>(x));
}

// Vectors of elements.

/// What is wrong with any element, lane by lane; told at the end in the order of precedence of the form.
template <class T>
struct Watch {
    using V = OwnsVec<typename Fields<T>::Bits>;
    V zero{};
    V nan{};
    V negative{}; // in the sign bit

    void look(V bits)
    {
        zero |= V(bits == 0);
        nan |= V((bits & Fields<T>::infinity) == Fields<T>::infinity);
        negative |= bits;
    }

    Flag told() const
    {
        const bool hasZero = _mm_movemask_epi8(ownsInt(zero)) != 0;
        const bool hasNan = _mm_movemask_epi8(ownsInt(nan)) != 0;
        if constexpr (sizeof(T) == sizeof(Zel32f)) {
            const bool hasNegative = _mm_movemask_ps(ownsFloat(negative)) != 0;
            return hasZero ? Flag::zero : hasNan ? Flag::nan : hasNegative ? Flag::negative : Flag::none;
        } else {
            const bool hasNegative = _mm_movemask_pd(ownsDouble(negative)) != 0;
            return hasZero ? Flag::zero : hasNegative ? Flag::negative : hasNan ? Flag::nan : Flag::none;
        }
    }
};

/// Sums of exponents with their bias; a block has at most 512 of 11 bits.
template <class T>
struct Exponents {
    OwnsVec<typename Fields<T>::Bits> sum{};

    /// Takes the exponents out of a vector of elements that are not negative and leaves the mantissas.
    OwnsVec<T> split(OwnsVec<typename Fields<T>::Bits> bits)
    {
        sum += bits >> Fields<T>::fraction;
        return ownsAs<T>((bits & ~Fields<T>::infinity) | Fields<T>::mantissaBits);
    }

    Zel64s total(ZelSize elements) const
    {
        Zel64u all = 0;
        for (int k = 0; k < ownsLanes<T>; k++)
            all += sum[k];
        return static_cast<Zel64s>(all) - Fields<T>::bias * elements;
    }
};

OwnsF64x2 lowWide(OwnsF32x4 v)
{
    return _mm_cvtps_pd(v);
}
OwnsF64x2 highWide(OwnsF32x4 v)
{
    return _mm_cvtps_pd(_mm_movehl_ps(v, v));
}

/// Four running products hide the latency of the multiplication.
struct Chains {
    OwnsF64x2 c[4] = {{1, 1}, {1, 1}, {1, 1}, {1, 1}};

    void multiply(OwnsF32x4 m0, OwnsF32x4 m1)
    {
        c[0] *= lowWide(m0);
        c[1] *= highWide(m0);
        c[2] *= lowWide(m1);
        c[3] *= highWide(m1);
    }
    Zel64f product() const
    {
        const OwnsF64x2 all = (c[0] * c[2]) * (c[1] * c[3]);
        return all[0] * all[1];
    }
};

OwnsVec<Zel32u> bitsAt(const Zel32f* p)
{
    return ownsAs<Zel32u>(ownsLoad(p));
}

// A form: how its whole units are split.

/// 16 elements a unit, pairs multiplied in single precision.
struct Pairs32f {
    using Element = Zel32f;
    static constexpr ZelSize unit = 16;

    static void multiply(Chains& chains, OwnsF32x4 m0, OwnsF32x4 m1, OwnsF32x4 m2, OwnsF32x4 m3)
    {
        chains.multiply(m0 * m1, m2 * m3);
    }
};

/// 16 elements a unit, all multiplied in double precision.
struct Singles32f {
    using Element = Zel32f;
    static constexpr ZelSize unit = 16;

    static void multiply(Chains& chains, OwnsF32x4 m0, OwnsF32x4 m1, OwnsF32x4 m2, OwnsF32x4 m3)
    {
        chains.multiply(m0, m1);
        chains.multiply(m2, m3);
    }
};

template <class Form>
Split splitUnits(const Zel32f* p, ZelSize n)
{
    Watch<Zel32f> watch;
    Exponents<Zel32f> exponents;
    Chains chains;
    ownsRounds<Form::unit>(chains, 0, n, [&](Chains& c, ZelSize i) {
        const auto mantissas = [&](ZelSize at) {
            const auto bits = bitsAt(p + at);
            watch.look(bits);
            return exponents.split(bits);
        };
        Form::multiply(c, mantissas(i), mantissas(i + 4), mantissas(i + 8), mantissas(i + 12));
    });
    return {chains.product(), exponents.total(n), watch.told()};
}

/// 4 elements a unit, two chains.
struct Singles64f {
    using Element = Zel64f;
    static constexpr ZelSize unit = 4;
};

template <class Form>
Split splitUnits(const Zel64f* p, ZelSize n)
{
    Watch<Zel64f> watch;
    Exponents<Zel64f> exponents;
    OwnsF64x2 c[2] = {{1, 1}, {1, 1}};
    ownsRounds<2>(c, 0, n, [&](OwnsF64x2& chain, ZelSize i) {
        const auto bits = ownsAs<Zel64u>(ownsLoad(p + i));
        watch.look(bits);
        chain *= exponents.split(bits);
    });
    const OwnsF64x2 product = c[0] * c[1];
    return {product[0] * product[1], exponents.total(n), watch.told()};
}

/// 32 elements a unit: pairs multiplied exactly in integers (32 bits), pairs of pairs in single precision,
/// and only these split.
struct Fours16s {
    using Element = Zel16s;
    static constexpr ZelSize unit = 32;
};

template <class Form>
Split splitUnits(const Zel16s* p, ZelSize n)
{
    struct Products {
        OwnsF32x4 low;
        OwnsF32x4 high;
    };
    const __m128i none = _mm_setzero_si128();
    __m128i zero = none;
    __m128i negative = none;
    Exponents<Zel32f> exponents;
    const auto look = [&](ZelSize i) {
        const __m128i x = ownsInt(ownsLoad(p + i));
        zero = _mm_or_si128(zero, _mm_cmpeq_epi16(x, none));
        negative = _mm_or_si128(negative, x);
        return x;
    };
    const auto pairs = [&](ZelSize i) {
        const __m128i x = look(i);
        const __m128i y = look(i + 8);
        const __m128i lower = _mm_mullo_epi16(x, y);
        const __m128i upper = _mm_mulhi_epi16(x, y);
        return Products{_mm_cvtepi32_ps(_mm_unpacklo_epi16(lower, upper)),
                        _mm_cvtepi32_ps(_mm_unpackhi_epi16(lower, upper))};
    };
    Chains chains;
    ownsRounds<Form::unit>(chains, 0, n, [&](Chains& ch, ZelSize i) {
        const Products a = pairs(i);
        const Products b = pairs(i + 16);
        ch.multiply(exponents.split(ownsAs<Zel32u>(a.low * b.low)),
                    exponents.split(ownsAs<Zel32u>(a.high * b.high)));
    });
    const bool hasNegative = (_mm_movemask_epi8(negative) & 0xAAAA) != 0;
    const Flag flag = _mm_movemask_epi8(zero) != 0 ? Flag::zero : hasNegative ? Flag::negative : Flag::none;
    return {chains.product(), exponents.total(n / 4), flag};
}

/// A block: the elements behind the last whole unit are examined first, in index order, then the units
/// together.
template <class Form, class T>
Split splitBlock(const T* p, ZelSize n)
{
    const ZelSize units = n / Form::unit * Form::unit;
    for (ZelSize i = units; i < n; i++)
        if (const Flag flag = flagOf(ownsGet(p + i)); flag != Flag::none)
            return {1, 0, flag};
    Split split = splitUnits<Form>(p, units);
    for (ZelSize i = units; i < n; i++)
        takeOne(split, ownsGet(p + i));
    return split;
}

template <class R>
ZelStatus flagged(Flag flag, R* pLn)
{
    using Limits = std::numeric_limits<R>;
    ownsPut(pLn, flag == Flag::zero       ? Limits::infinity()
                 : flag == Flag::negative ? -Limits::quiet_NaN()
                                          : Limits::quiet_NaN());
    return flag == Flag::zero ? zelWarnLnZero : flag == Flag::negative ? zelWarnLnNegative : zelStatusOk;
}

template <class Form, class R>
ZelStatus sumLn(const typename Form::Element* pSrc, int len, R* pLn)
{
    if (const ZelStatus status = ownsCheck(len, pSrc, pLn); status != zelStatusOk)
        return status;
    Zel64f total = 0;
    for (ZelSize i = 0; i < len; i += blockLength) {
        const Split split = splitBlock<Form>(pSrc + i, len - i < blockLength ? len - i : blockLength);
        if (split.flag != Flag::none)
            return flagged(split.flag, pLn);
        total += std::log(split.mantissa) + static_cast<Zel64f>(split.exponent) * 0.6931471805599453;
    }
    ownsPut(pLn, static_cast<R>(total));
    return zelStatusOk;
}

} // namespace

ZelStatus zelsSumLn_32f(const Zel32f* pSrc, int len, Zel32f* pLn)
{
    return sumLn<Pairs32f>(pSrc, len, pLn);
}

ZelStatus zelsSumLn_64f(const Zel64f* pSrc, int len, Zel64f* pLn)
{
    return sumLn<Singles64f>(pSrc, len, pLn);
}

ZelStatus zelsSumLn_32f64f(const Zel32f* pSrc, int len, Zel64f* pLn)
{
    return sumLn<Singles32f>(pSrc, len, pLn);
}

ZelStatus zelsSumLn_16s32f(const Zel16s* pSrc, int len, Zel32f* pLn)
{
    return sumLn<Fours16s>(pSrc, len, pLn);
}
