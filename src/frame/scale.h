// Steps between element types: exact widening, scaling by powers of two, rounding and saturation of floats.
#pragma once

#include "frame/vec.h"

#include <bit>
#include <cmath>

/// The low four of eight 16-bit integers as floats.
inline OwnsVec<Zel32f> ownsWidened32f(OwnsVec<Zel16s> x)
{
    return _mm_cvtepi32_ps(_mm_cvtepi16_epi32(ownsInt(x)));
}

/// `value` times 2 to the power -scaleFactor. Any factor is valid: beyond the exponent range of a double it
/// gives infinity or zero.
inline Zel64f ownsScaled(Zel64f value, int scaleFactor)
{
    if (scaleFactor >= -1022 && scaleFactor <= 1022) [[likely]]
        return value * std::bit_cast<Zel64f>(std::uint64_t{1023u - static_cast<unsigned>(scaleFactor)} << 52);
    const int exponent = scaleFactor > 4096 ? -4096 : scaleFactor < -4096 ? 4096 : -scaleFactor;
    return std::scalbn(value, exponent);
}

/// Multiplies floats by 2 to the power -scaleFactor. One factor is enough within the exponents of a normal
/// number, and then the second is 1; beyond, two exact ones keep 0 at 0 and infinity at infinity.
template <class F>
struct OwnsPowerOfTwo {
    F first, second;

    [[gnu::always_inline]] explicit OwnsPowerOfTwo(int scaleFactor)
        : first(isNear(scaleFactor) ? nearFactor(scaleFactor) : farFactor(scaleFactor, false)),
          second(isNear(scaleFactor) ? 1 : farFactor(scaleFactor, true))
    {
    }

    template <class X>
    X operator()(X x) const
    {
        const X product = x * first;
        if (second == 1) [[likely]]
            return product;
        return product * second;
    }

  private:
    static constexpr int most = std::is_same_v<F, Zel32f> ? 126 : 1022;

    static bool isNear(int scaleFactor) { return scaleFactor >= -most && scaleFactor <= most; }
    static F nearFactor(int scaleFactor)
    {
        using Bits = std::conditional_t<std::is_same_v<F, Zel32f>, std::uint32_t, std::uint64_t>;
        constexpr int mantissa = std::is_same_v<F, Zel32f> ? 23 : 52;
        return std::bit_cast<F>(static_cast<Bits>(Bits(most + 1 - scaleFactor) << mantissa));
    }
    [[gnu::noinline]] static F farFactor(int scaleFactor, bool second)
    {
        const int exponent = scaleFactor < -2 * most  ? 2 * most
                             : scaleFactor > 2 * most ? -2 * most
                                                      : -scaleFactor;
        const int part = exponent > most ? most : exponent < -most ? -most : exponent;
        return static_cast<F>(ownsScaled(1.0, second ? part - exponent : -part));
    }
};

/// Calls `body` with the function that scales a float or a float vector; a factor of 0 multiplies nothing.
template <class F = Zel32f, class Body>
[[gnu::always_inline]] inline void ownsWithFloatScale(int scaleFactor, Body body)
{
    if (scaleFactor == 0)
        body([](auto x) { return x; });
    else
        body(OwnsPowerOfTwo<F>(scaleFactor));
}

/// Rounded to nearest, ties to even, whatever the caller's mode.
inline OwnsVec<Zel32f> ownsRoundedNear(OwnsVec<Zel32f> x)
{
    return _mm_round_ps(x, _MM_FROUND_TO_NEAREST_INT | _MM_FROUND_NO_EXC);
}

inline OwnsVec<Zel64f> ownsRoundedNear(OwnsVec<Zel64f> x)
{
    return _mm_round_pd(x, _MM_FROUND_TO_NEAREST_INT | _MM_FROUND_NO_EXC);
}

/// Not above `limit`. A NaN stays one, and like all that is too low it becomes the most negative integer: the
/// saturating packs make of that the lower end of any range.
inline OwnsVec<Zel32f> ownsBounded(OwnsVec<Zel32f> x, Zel32f limit)
{
    return _mm_min_ps(_mm_set1_ps(limit), x);
}
inline OwnsVec<Zel64f> ownsBounded(OwnsVec<Zel64f> x, Zel64f limit)
{
    return _mm_min_pd(_mm_set1_pd(limit), x);
}

/// Rounded to nearest, ties to even, and saturated; a NaN gives 0.
inline Zel64s ownsSaturated64s(Zel64f x)
{
    const __m128d rounded =
        _mm_round_sd(_mm_setzero_pd(), _mm_set_sd(x), _MM_FROUND_TO_NEAREST_INT | _MM_FROUND_NO_EXC);
    const Zel64f value = _mm_cvtsd_f64(rounded);
    if (value >= 9223372036854775808.0)
        return INT64_MAX;
    if (value <= -9223372036854775808.0)
        return INT64_MIN;
    return value == value ? _mm_cvttsd_si64(rounded) : 0;
}
