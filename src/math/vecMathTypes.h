// What the kernels of vector mathematics share: short names for their vectors, and the steps on bits.
#pragma once

#include "frame/vec.h"

using OwnsF4 = OwnsVec<Zel32f>;
using OwnsF2 = OwnsVec<Zel64f>;
using OwnsU4 = OwnsVec<Zel32u>;
using OwnsU2 = OwnsVec<Zel64u>;

/// On a namespace: its objects belong to the library, and are reached without the dynamic linker's table.
#define OWNS_INTERNAL __attribute__((visibility("hidden")))

inline OwnsU4 ownsBits(OwnsF4 x)
{
    return ownsAs<Zel32u>(x);
}
inline OwnsU2 ownsBits(OwnsF2 x)
{
    return ownsAs<Zel64u>(x);
}
inline OwnsF4 ownsFromBits(OwnsU4 x)
{
    return ownsAs<Zel32f>(x);
}
inline OwnsF2 ownsFromBits(OwnsU2 x)
{
    return ownsAs<Zel64f>(x);
}

/// The same number in every lane, as a constant. Kernels take their constants from memory, out of objects that
/// are defined elsewhere: a compiler that sees a constant repeated builds it anew, in steps that cost more.
constexpr OwnsF4 ownsAll(Zel32f x)
{
    return OwnsF4{x, x, x, x};
}
constexpr OwnsF2 ownsAll(Zel64f x)
{
    return OwnsF2{x, x};
}
constexpr OwnsU4 ownsAllOf(Zel32u x)
{
    return OwnsU4{x, x, x, x};
}
constexpr OwnsU2 ownsAllOf(Zel64u x)
{
    return OwnsU2{x, x};
}

inline constexpr Zel32u ownsSign32 = 0x80000000u;
inline constexpr Zel64u ownsSign64 = 0x8000000000000000u;

/// The unsigned integers of a float vector's lanes, and the sign bit in them.
template <class F>
using ownsUnsignedOf = std::conditional_t<std::is_same_v<F, OwnsF4>, Zel32u, Zel64u>;
template <class F>
inline constexpr ownsUnsignedOf<F> ownsSignBit = std::is_same_v<F, OwnsF4> ? ownsSign32 : ownsSign64;

inline OwnsU4 ownsSignOf(OwnsF4 x)
{
    return ownsBits(x) & ownsSign32;
}
inline OwnsU2 ownsSignOf(OwnsF2 x)
{
    return ownsBits(x) & ownsSign64;
}
inline OwnsU4 ownsMagnitudeBits(OwnsF4 x)
{
    return ownsBits(x) & ~ownsSign32;
}
inline OwnsU2 ownsMagnitudeBits(OwnsF2 x)
{
    return ownsBits(x) & ~ownsSign64;
}

/// The magnitude of x with the sign of `sign`. Results that are never negative take their sign so, since a 0 that
/// comes out of a sum is negative in the rounding mode downward.
template <class F>
inline F ownsWithSign(F x, F sign)
{
    return ownsFromBits(ownsMagnitudeBits(x) | ownsSignOf(sign));
}

// Conditions are gathered in sign bits: adding and joining integers runs where the float units do not, and one
// branch then serves all of them.

/// Sign bit set where the magnitude bits `m` (sign clear) are `limit` or more.
inline OwnsU4 ownsAtLeast(OwnsU4 m, Zel32u limit)
{
    return m + (ownsSign32 - limit);
}
inline OwnsU2 ownsAtLeast(OwnsU2 m, Zel64u limit)
{
    return m + (ownsSign64 - limit);
}
/// Sign bit set where the magnitude bits `m` (sign clear) are less than `limit`.
inline OwnsU4 ownsBelow(OwnsU4 m, Zel32u limit)
{
    return m - limit;
}
inline OwnsU2 ownsBelow(OwnsU2 m, Zel64u limit)
{
    return m - limit;
}
/// Whether any lane has its sign bit set.
inline bool ownsAny(OwnsU4 conditions)
{
    return _mm_movemask_ps(ownsFloat(conditions)) != 0;
}
inline bool ownsAny(OwnsU2 conditions)
{
    return _mm_movemask_pd(ownsDouble(conditions)) != 0;
}

/// `a` in the lanes whose mask has its sign bit set, `b` in the others.
template <class M>
inline OwnsF4 ownsSelect(M mask, OwnsF4 a, OwnsF4 b)
{
    return _mm_blendv_ps(b, a, ownsFloat(mask));
}
template <class M>
inline OwnsF2 ownsSelect(M mask, OwnsF2 a, OwnsF2 b)
{
    return _mm_blendv_pd(b, a, ownsDouble(mask));
}

/// Two vectors of doubles as floats, and of integers without their upper halves.
inline OwnsF4 ownsNarrowed(OwnsF2 first, OwnsF2 second)
{
    return _mm_movelh_ps(_mm_cvtpd_ps(first), _mm_cvtpd_ps(second));
}
inline OwnsU4 ownsLowHalves(OwnsU2 first, OwnsU2 second)
{
    return ownsAs<Zel32u>(_mm_shuffle_ps(ownsFloat(first), ownsFloat(second), _MM_SHUFFLE(2, 0, 2, 0)));
}

/// The first `n` lanes of x, and `value` in the others.
template <class V, class T>
inline V ownsFilled(V x, int n, T value)
{
    using Lane = std::remove_cvref_t<decltype(x[0])>;
    for (int lane = n; lane < static_cast<int>(sizeof(V) / sizeof(Lane)); lane++)
        x[lane] = static_cast<Lane>(value);
    return x;
}

/// Added to an integer of less than 2^51, puts that into the low bits.
inline constexpr Zel64f ownsRounder64f = 0x1.8p52;

/// The lanes of `x` as integers, by way of memory: lookups that hang on them wait longer, but the two float
/// units, which are what a kernel runs short of, have less to do than when lanes are moved out one by one.
struct OwnsPair64 {
    Zel64u first, second;
};
struct OwnsQuad32 {
    Zel32u first, second, third, fourth;
};
[[gnu::always_inline]] inline OwnsPair64 ownsThroughMemory(OwnsU2 x)
{
    OwnsU2 memory = x;
    asm("" : "+m"(memory));
    OwnsPair64 lanes;
    __builtin_memcpy(&lanes, &memory, sizeof lanes);
    return lanes;
}
[[gnu::always_inline]] inline OwnsQuad32 ownsThroughMemory(OwnsU4 x)
{
    OwnsU4 memory = x;
    asm("" : "+m"(memory));
    OwnsQuad32 lanes;
    __builtin_memcpy(&lanes, &memory, sizeof lanes);
    return lanes;
}
