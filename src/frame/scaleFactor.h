// The scale factor of the `_Sfs` forms: an exact integer times 2 to the power -scaleFactor, rounded to
// nearest with ties to even, saturated to the destination. Every int is a valid factor.
//
// Of one value: ownsScaledInteger, from any wide integer to any element type. Of vectors: one of six paths is
// chosen once a call by ownsWithScaleFactor, from the factor and the limits of the form; the steps that the
// kernels of a path are made of are in scaleVec.h.
#pragma once

#include "zels/types.h"

#include <limits>
#include <type_traits>

// One value. W is a wide integer that holds the exact value: Zel64s, Zel64u or __int128.

namespace owns_detail {

template <class W>
struct UnsignedOf {
    using Type = std::make_unsigned_t<W>;
};
template <>
struct UnsignedOf<__int128> {
    using Type = unsigned __int128;
};
template <>
struct UnsignedOf<unsigned __int128> {
    using Type = unsigned __int128;
};

/// The range of T, as far as W can tell it.
template <class T, class W>
inline constexpr W most = static_cast<W>(std::numeric_limits<T>::max());
template <class T, class W>
inline constexpr W least = W(-1) > W(0) ? W(0) : static_cast<W>(std::numeric_limits<T>::min());

} // namespace owns_detail

/// x / 2^shift for 0 < shift < the bits of W, to nearest, ties to even. Quotient and rest are apart, so that
/// nothing overflows.
template <class W>
constexpr W ownsRoundedRight(W x, int shift)
{
    using U = typename owns_detail::UnsignedOf<W>::Type;
    const U half = static_cast<U>(U{1} << (shift - 1));
    const W floor = static_cast<W>(x >> shift);
    const U rest = static_cast<U>(x) & static_cast<U>(2 * half - 1);
    return static_cast<W>(floor + (rest + static_cast<U>(floor & 1) > half ? 1 : 0));
}

/// x, saturated to T.
template <class T, class W>
constexpr T ownsSaturated(W x)
{
    using namespace owns_detail;
    return static_cast<T>(x > most<T, W> ? most<T, W> : x < least<T, W> ? least<T, W> : x);
}

/// The scale-factor rule of one value: x * 2^(-scaleFactor), rounded to nearest, ties to even, saturated to
/// T. W must hold the range of T.
template <class T, class W>
constexpr T ownsScaledInteger(W x, int scaleFactor)
{
    constexpr int wide = 8 * static_cast<int>(sizeof(W));
    constexpr int narrow = 8 * static_cast<int>(sizeof(T));
    if (scaleFactor > 0) {
        if (scaleFactor < wide)
            return ownsSaturated<T>(ownsRoundedRight(x, scaleFactor));
        // At the width itself the value is at most one half, except in the upper half of an unsigned type.
        return static_cast<T>(scaleFactor == wide && x > 0 && (x >> (wide - 1)) != 0 &&
                              static_cast<W>(x << 1) != 0);
    }
    const W bounded = static_cast<W>(ownsSaturated<T>(x));
    if (scaleFactor == 0 || bounded == 0)
        return static_cast<T>(bounded);
    const bool shifts = scaleFactor > -narrow;
    if (bounded > 0) {
        constexpr W limit = owns_detail::most<T, W>;
        return static_cast<T>(shifts && bounded <= (limit >> -scaleFactor) ? bounded << -scaleFactor : limit);
    }
    constexpr W limit = owns_detail::least<T, W>;
    return static_cast<T>(shifts && bounded >= (limit >> -scaleFactor) ? bounded * (W{1} << -scaleFactor)
                                                                       : limit);
}

// The six paths of a call. A factor at the zero limit clears the destination unread; each of the others is
// one kernel, told by the type of its path.

/// Factor 0: saturation alone.
struct OwnsUnscaled {};
/// Factor 1: the hottest shift has a kernel of its own.
struct OwnsHalved {};
/// Factor 2 up to the zero limit: division by 2^shift, rounded.
struct OwnsShiftedRight {
    int shift;
};
/// A negative factor above the saturation limit: multiplication by 2^shift, 1 <= shift.
struct OwnsShiftedLeft {
    int shift;
};
/// A factor at or below the saturation limit: 0 stays 0, all else saturates by its sign.
struct OwnsBySign {};

/// The limits of one form.
struct OwnsScaleLimits {
    int zero;       ///< a factor at or above this one clears the destination
    int saturation; ///< a factor at or below this one saturates by sign
};

/// Chooses the path: calls `clear` or `body` with the path.
template <OwnsScaleLimits limits, class Clear, class Body>
[[gnu::always_inline]] inline void ownsWithScaleFactor(int scaleFactor, Clear clear, Body body)
{
    if (scaleFactor == 0)
        body(OwnsUnscaled{});
    else if (scaleFactor == 1)
        body(OwnsHalved{});
    else if (scaleFactor >= limits.zero)
        clear();
    else if (scaleFactor > 1)
        body(OwnsShiftedRight{scaleFactor});
    else if (scaleFactor > limits.saturation)
        body(OwnsShiftedLeft{-scaleFactor});
    else
        body(OwnsBySign{});
}

// The table of limits. They are part of the interface: where a factor inside the range of the exact rule
// would still round some value to 1, the table holds. Complex sums follow the row of their part type.
inline constexpr OwnsScaleLimits limitsAdd_8u{10, -8};
inline constexpr OwnsScaleLimits limitsSub_8u{9, -8};
inline constexpr OwnsScaleLimits limitsMul_8u{17, -8};
inline constexpr OwnsScaleLimits limitsAdd_16s{17, -16};
inline constexpr OwnsScaleLimits limitsSub_16s{17, -16};
inline constexpr OwnsScaleLimits limitsAdd_16u{18, -16};
inline constexpr OwnsScaleLimits limitsSub_16u{17, -16};
inline constexpr OwnsScaleLimits limitsMul_16s{31, -16};
inline constexpr OwnsScaleLimits limitsMul_16sc{32, -16};
inline constexpr OwnsScaleLimits limitsMul_16u{33, -17};
inline constexpr OwnsScaleLimits limitsMul_16u16s{32, -15};
inline constexpr OwnsScaleLimits limitsMul_16s32s{31, -31};
inline constexpr OwnsScaleLimits limitsAdd_32s{33, -31};
inline constexpr OwnsScaleLimits limitsSub_32s{33, -31};
inline constexpr OwnsScaleLimits limitsMul_32s{63, -32};
inline constexpr OwnsScaleLimits limitsMul_32sc{64, -32};
inline constexpr OwnsScaleLimits limitsMulC_32sc{64, -31};
inline constexpr OwnsScaleLimits limitsAddProduct_16s{32, -15};
inline constexpr OwnsScaleLimits limitsAddProduct_16s32s{33, -31};
inline constexpr OwnsScaleLimits limitsAddProduct_32s{63, -31};
