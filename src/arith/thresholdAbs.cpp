// Thresholds of absolute values: LTAbs, GTAbs and LTAbsVal.
#include "arith/threshold.h"
#include "zels.h"

#include <limits>

namespace {

// The most negative integer has an absolute value among the unsigned numbers.
inline OwnsVec<Zel16u> unsignedMagnitude(OwnsVec<Zel16s> x)
{
    return ownsAs<Zel16u>(_mm_abs_epi16(ownsInt(x)));
}
inline OwnsVec<Zel32u> unsignedMagnitude(OwnsVec<Zel32s> x)
{
    return ownsAs<Zel32u>(_mm_abs_epi32(ownsInt(x)));
}

// Negated where x is negative, with a positive zero; the magnitude may be that of the most negative integer.
inline OwnsVec<Zel16s> withSigns(OwnsVec<Zel16u> magnitude, OwnsVec<Zel16s> x)
{
    return ownsAs<Zel16s>(_mm_sign_epi16(ownsInt(magnitude), ownsInt(x | 1)));
}
inline OwnsVec<Zel32s> withSigns(OwnsVec<Zel32u> magnitude, OwnsVec<Zel32s> x)
{
    return ownsAs<Zel32s>(_mm_sign_epi32(ownsInt(magnitude), ownsInt(x | 1)));
}

/// Not below the level. Of floats the level is the second operand of the maximum, so a NaN comes out as the level with
/// its sign.
template <class T>
struct Raise {
    OwnsVec<T> level;

    OwnsVec<T> operator()(OwnsVec<T> x) const
    {
        if constexpr (std::is_integral_v<T>) {
            const auto magnitude = unsignedMagnitude(x);
            return withSigns(OwnsLargest::fold(magnitude, reinterpret_cast<decltype(magnitude)>(level)), x);
        } else {
            return ownsWithSigns(OwnsLargest::fold(OwnsMagnitude::of(x), level), x);
        }
    }
};

/// Not above the level, a NaN likewise.
template <class T>
struct Lower {
    OwnsVec<T> level;

    OwnsVec<T> operator()(OwnsVec<T> x) const
    {
        if constexpr (std::is_integral_v<T>)
            return OwnsSmallest::fold(OwnsLargest::fold(x, -level), level);
        else
            return ownsWithSigns(OwnsSmallest::fold(OwnsMagnitude::of(x), level), x);
    }
};

/// A NaN stays. A negative level replaces nothing, as one of 0 does.
template <class T>
struct ReplaceSmall {
    OwnsVec<T> level, value;

    OwnsVec<T> operator()(OwnsVec<T> x) const
    {
        x = ownsHeld(x);
        return OwnsMagnitude::of(x) < level ? value : x;
    }
};

/// Integers: -level < x < level if x + level - 1 is below 2 level - 1 as an unsigned number; half the range is taken off
/// both, for a signed comparison.
template <class T>
requires std::is_integral_v<T>
struct ReplaceSmall<T> {
    OwnsVec<T> shift, bound, value;

    ReplaceSmall(OwnsVec<T> level, OwnsVec<T> theValue) : value(theValue)
    {
        using U = std::make_unsigned_t<T>;
        const auto lowest = static_cast<U>(std::numeric_limits<T>::min());
        const auto size = level[0] > 0 ? static_cast<U>(level[0]) : U{0};
        shift = ownsSplat(static_cast<T>(static_cast<U>(size - 1 + lowest)));
        bound = ownsSplat(static_cast<T>(static_cast<U>((size == 0 ? 0 : 2 * size - 1) + lowest)));
    }
    OwnsVec<T> operator()(OwnsVec<T> x) const
    {
        using U = std::make_unsigned_t<T>;
        x = ownsHeld(x);
        return ownsAs<T>(ownsAs<U>(x) + ownsAs<U>(shift)) < bound ? value : x;
    }
};

/// A level of -0 is one of 0, and must not lend its sign.
template <template <class> class Op, class T>
ZelStatus limit(const T* pSrc, T* pDst, int len, T level)
{
    if (const ZelStatus status = ownsCheck(len, pSrc, pDst); status != zelStatusOk)
        return status;
    if (level < 0)
        return zelErrThreshNegLevel;
    ownsMap<ownsShapeOf<T>>(Op<T>{ownsSplat(OwnsMagnitude::of(level))}, pDst, len, pSrc);
    return zelStatusOk;
}

template <class T>
ZelStatus replaceSmall(const T* pSrc, T* pDst, int len, T level, T value)
{
    return ownsRun<ownsShapeOf<T>>(ReplaceSmall<T>{ownsSplat(level), ownsSplat(value)}, pDst, len, pSrc);
}

/// What a short form does, with the length as its last argument.
template <auto shortForm>
constexpr auto lengthLast =
    [](auto level, auto... pointersAndLength) { return shortForm(pointersAndLength..., level); };

} // namespace

ZelStatus zelsThreshold_LTAbs_16s(const Zel16s* pSrc, Zel16s* pDst, int len, Zel16s level)
{
    return limit<Raise>(pSrc, pDst, len, level);
}

ZelStatus zelsThreshold_LTAbs_16s_I(Zel16s* pSrcDst, int len, Zel16s level)
{
    return zelsThreshold_LTAbs_16s(pSrcDst, pSrcDst, len, level);
}

ZelStatus zelsThreshold_LTAbs_32s(const Zel32s* pSrc, Zel32s* pDst, int len, Zel32s level)
{
    return limit<Raise>(pSrc, pDst, len, level);
}

ZelStatus zelsThreshold_LTAbs_32s_I(Zel32s* pSrcDst, int len, Zel32s level)
{
    return zelsThreshold_LTAbs_32s(pSrcDst, pSrcDst, len, level);
}

ZelStatus zelsThreshold_LTAbs_32f(const Zel32f* pSrc, Zel32f* pDst, int len, Zel32f level)
{
    return limit<Raise>(pSrc, pDst, len, level);
}

ZelStatus zelsThreshold_LTAbs_32f_I(Zel32f* pSrcDst, int len, Zel32f level)
{
    return zelsThreshold_LTAbs_32f(pSrcDst, pSrcDst, len, level);
}

ZelStatus zelsThreshold_LTAbs_32f_L(const Zel32f* pSrc, Zel32f* pDst, ZelSize len, Zel32f level)
{
    return ownsChunked<lengthLast<zelsThreshold_LTAbs_32f>, Zel32f>(len, level, pSrc, pDst);
}

ZelStatus zelsThreshold_LTAbs_32f_I_L(Zel32f* pSrcDst, ZelSize len, Zel32f level)
{
    return ownsChunked<lengthLast<zelsThreshold_LTAbs_32f_I>, Zel32f>(len, level, pSrcDst);
}

ZelStatus zelsThreshold_LTAbs_64f(const Zel64f* pSrc, Zel64f* pDst, int len, Zel64f level)
{
    return limit<Raise>(pSrc, pDst, len, level);
}

ZelStatus zelsThreshold_LTAbs_64f_I(Zel64f* pSrcDst, int len, Zel64f level)
{
    return zelsThreshold_LTAbs_64f(pSrcDst, pSrcDst, len, level);
}

ZelStatus zelsThreshold_LTAbs_64f_L(const Zel64f* pSrc, Zel64f* pDst, ZelSize len, Zel64f level)
{
    return ownsChunked<lengthLast<zelsThreshold_LTAbs_64f>, Zel64f>(len, level, pSrc, pDst);
}

ZelStatus zelsThreshold_LTAbs_64f_I_L(Zel64f* pSrcDst, ZelSize len, Zel64f level)
{
    return ownsChunked<lengthLast<zelsThreshold_LTAbs_64f_I>, Zel64f>(len, level, pSrcDst);
}

ZelStatus zelsThreshold_GTAbs_16s(const Zel16s* pSrc, Zel16s* pDst, int len, Zel16s level)
{
    return limit<Lower>(pSrc, pDst, len, level);
}

ZelStatus zelsThreshold_GTAbs_16s_I(Zel16s* pSrcDst, int len, Zel16s level)
{
    return zelsThreshold_GTAbs_16s(pSrcDst, pSrcDst, len, level);
}

ZelStatus zelsThreshold_GTAbs_32s(const Zel32s* pSrc, Zel32s* pDst, int len, Zel32s level)
{
    return limit<Lower>(pSrc, pDst, len, level);
}

ZelStatus zelsThreshold_GTAbs_32s_I(Zel32s* pSrcDst, int len, Zel32s level)
{
    return zelsThreshold_GTAbs_32s(pSrcDst, pSrcDst, len, level);
}

ZelStatus zelsThreshold_GTAbs_32f(const Zel32f* pSrc, Zel32f* pDst, int len, Zel32f level)
{
    return limit<Lower>(pSrc, pDst, len, level);
}

ZelStatus zelsThreshold_GTAbs_32f_I(Zel32f* pSrcDst, int len, Zel32f level)
{
    return zelsThreshold_GTAbs_32f(pSrcDst, pSrcDst, len, level);
}

ZelStatus zelsThreshold_GTAbs_64f(const Zel64f* pSrc, Zel64f* pDst, int len, Zel64f level)
{
    return limit<Lower>(pSrc, pDst, len, level);
}

ZelStatus zelsThreshold_GTAbs_64f_I(Zel64f* pSrcDst, int len, Zel64f level)
{
    return zelsThreshold_GTAbs_64f(pSrcDst, pSrcDst, len, level);
}

ZelStatus zelsThreshold_LTAbsVal_16s(const Zel16s* pSrc, Zel16s* pDst, int len, Zel16s level, Zel16s value)
{
    return replaceSmall(pSrc, pDst, len, level, value);
}

ZelStatus zelsThreshold_LTAbsVal_16s_I(Zel16s* pSrcDst, int len, Zel16s level, Zel16s value)
{
    return zelsThreshold_LTAbsVal_16s(pSrcDst, pSrcDst, len, level, value);
}

ZelStatus zelsThreshold_LTAbsVal_32s(const Zel32s* pSrc, Zel32s* pDst, int len, Zel32s level, Zel32s value)
{
    return replaceSmall(pSrc, pDst, len, level, value);
}

ZelStatus zelsThreshold_LTAbsVal_32s_I(Zel32s* pSrcDst, int len, Zel32s level, Zel32s value)
{
    return zelsThreshold_LTAbsVal_32s(pSrcDst, pSrcDst, len, level, value);
}

ZelStatus zelsThreshold_LTAbsVal_32f(const Zel32f* pSrc, Zel32f* pDst, int len, Zel32f level, Zel32f value)
{
    return replaceSmall(pSrc, pDst, len, level, value);
}

ZelStatus zelsThreshold_LTAbsVal_32f_I(Zel32f* pSrcDst, int len, Zel32f level, Zel32f value)
{
    return zelsThreshold_LTAbsVal_32f(pSrcDst, pSrcDst, len, level, value);
}

ZelStatus zelsThreshold_LTAbsVal_64f(const Zel64f* pSrc, Zel64f* pDst, int len, Zel64f level, Zel64f value)
{
    return replaceSmall(pSrc, pDst, len, level, value);
}

ZelStatus zelsThreshold_LTAbsVal_64f_I(Zel64f* pSrcDst, int len, Zel64f level, Zel64f value)
{
    return zelsThreshold_LTAbsVal_64f(pSrcDst, pSrcDst, len, level, value);
}
