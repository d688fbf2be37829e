// Scaling of results that are doubles: the 16-bit sums, means and deviations.
//
// The multiplier is made from the exponent field alone, and the result is converted in the caller's rounding
// mode. Results that are exact integers are scaled by frame/scaleFactor.h.
#pragma once

#include "frame/scaleFactor.h"
#include "frame/vec.h"

#include <bit>

/// 2 to the power -scaleFactor; 0 from factor 1023 on and infinity from -1024 on, where the exponent field
/// ends.
inline Zel64f ownsMultiplier(int scaleFactor)
{
    const int exponent = scaleFactor > 1023 ? 0 : scaleFactor < -1024 ? 2047 : 1023 - scaleFactor;
    return std::bit_cast<Zel64f>(static_cast<Zel64u>(exponent) << 52);
}

/// `value` times the multiplier. 0 stays 0, even under an infinite one.
inline Zel64f ownsTimesMultiplier(Zel64f value, int scaleFactor)
{
    return value == 0 ? 0.0 : value * ownsMultiplier(scaleFactor);
}

/// Clamped to the range of T (32 bits at most) and converted in the caller's rounding mode.
template <class T>
inline T ownsConverted(Zel64f value)
{
    constexpr Zel64f most = std::numeric_limits<T>::max();
    constexpr Zel64f least = std::numeric_limits<T>::min();
    const Zel64f clamped = value > most ? most : value < least ? least : value;
    return static_cast<T>(_mm_cvtsd_si32(_mm_set_sd(clamped)));
}
