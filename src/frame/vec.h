// The 128-bit vocabulary: vector types, loads, stores and the few steps that operators cannot say.
//
// GCC and Clang give vector types the operators of their lanes, so one generic lambda serves a scalar and a
// vector: `a + b` is addps, `a > b ? a : b` is maxps with exactly the NaN rule written. Complex arrays are
// vectors of their parts, real and imaginary in turn.
#pragma once

#include "frame/each.h"
#include "zels/types.h"

#include <cstdint>
#include <smmintrin.h>
#include <type_traits>

/// The vector width in bytes. Drivers count lanes by it; code in which the order of operations is part of the
/// result fixes its lanes in its own types instead.
inline constexpr int ownsVecBytes = 16;

/// The part type of an element and how many parts it has: a complex element is two parts.
template <class T>
struct OwnsElem {
    using Part = T;
    static constexpr int parts = 1;
};
template <class P>
struct OwnsPair {
    using Part = P;
    static constexpr int parts = 2;
};
template <>
struct OwnsElem<Zel16sc> : OwnsPair<Zel16s> {
};
template <>
struct OwnsElem<Zel32sc> : OwnsPair<Zel32s> {
};
template <>
struct OwnsElem<Zel64sc> : OwnsPair<Zel64s> {
};
template <>
struct OwnsElem<Zel16fc> : OwnsPair<Zel16f> {
};
template <>
struct OwnsElem<Zel32fc> : OwnsPair<Zel32f> {
};
template <>
struct OwnsElem<Zel64fc> : OwnsPair<Zel64f> {
};

template <class T>
using OwnsPart = typename OwnsElem<T>::Part;
template <class T>
inline constexpr bool ownsIsComplex = OwnsElem<T>::parts == 2;

// An alias template with a dependent vector_size loses the attribute in deduction under GCC, so the types are
// spelled out.
template <class T>
struct OwnsVecOf;
template <>
struct OwnsVecOf<Zel8u> {
    typedef Zel8u Type __attribute__((vector_size(ownsVecBytes)));
};
template <>
struct OwnsVecOf<Zel8s> {
    typedef Zel8s Type __attribute__((vector_size(ownsVecBytes)));
};
template <>
struct OwnsVecOf<Zel16u> {
    typedef Zel16u Type __attribute__((vector_size(ownsVecBytes)));
};
template <>
struct OwnsVecOf<Zel16s> {
    typedef Zel16s Type __attribute__((vector_size(ownsVecBytes)));
};
template <>
struct OwnsVecOf<Zel32u> {
    typedef Zel32u Type __attribute__((vector_size(ownsVecBytes)));
};
template <>
struct OwnsVecOf<Zel32s> {
    typedef Zel32s Type __attribute__((vector_size(ownsVecBytes)));
};
template <>
struct OwnsVecOf<Zel64u> {
    typedef Zel64u Type __attribute__((vector_size(ownsVecBytes)));
};
template <>
struct OwnsVecOf<Zel64s> {
    typedef Zel64s Type __attribute__((vector_size(ownsVecBytes)));
};
template <>
struct OwnsVecOf<Zel32f> {
    typedef Zel32f Type __attribute__((vector_size(ownsVecBytes)));
};
template <>
struct OwnsVecOf<Zel64f> {
    typedef Zel64f Type __attribute__((vector_size(ownsVecBytes)));
};

/// The vector that holds elements of type T (of its parts, where T is complex).
template <class T>
using OwnsVec = typename OwnsVecOf<OwnsPart<T>>::Type;

/// Elements of type T in a vector.
template <class T>
inline constexpr int ownsLanes = ownsVecBytes / static_cast<int>(sizeof(T));

/// Several vectors of the same type, the elements of one after those of the other.
template <class T, int n>
struct OwnsVecs {
    OwnsVec<T> v[n];
};

// Intrinsics have one integer type and two float types; these carry any vector there and back.
template <class V>
inline __m128i ownsInt(V v)
{
    return reinterpret_cast<__m128i>(v);
}
template <class V>
inline __m128 ownsFloat(V v)
{
    return reinterpret_cast<__m128>(v);
}
template <class V>
inline __m128d ownsDouble(V v)
{
    return reinterpret_cast<__m128d>(v);
}
template <class T, class V>
inline OwnsVec<T> ownsAs(V v)
{
    return reinterpret_cast<OwnsVec<T>>(v);
}

// Memory. Callers' arrays need not be aligned even to their elements, so every access goes through these.

template <class T>
inline T ownsGet(const T* p)
{
    T value;
    __builtin_memcpy(&value, p, sizeof value);
    return value;
}

template <class T>
inline void ownsPut(T* p, std::type_identity_t<T> value)
{
    __builtin_memcpy(p, &value, sizeof value);
}

/// A whole vector from any address.
template <class T>
inline OwnsVec<T> ownsLoad(const T* p)
{
    OwnsVec<T> v;
    __builtin_memcpy(&v, p, sizeof v);
    return v;
}

/// A whole vector to any address. On an aligned address this costs what an aligned store does.
template <class T>
inline void ownsStore(T* p, std::type_identity_t<OwnsVec<T>> v)
{
    __builtin_memcpy(p, &v, sizeof v);
}

/// A whole vector past the caches to an aligned address.
template <class T>
inline void ownsStream(T* p, std::type_identity_t<OwnsVec<T>> v)
{
    _mm_stream_si128(reinterpret_cast<__m128i*>(p), ownsInt(v));
}

/// The first `n` elements of a vector (0 < n < lanes), the others zero; reads not one byte more.
/// Two overlapping reads cover any count of bytes: the bytes that both hold fall on the same place.
template <class T>
inline OwnsVec<T> ownsLoadPart(const T* p, int n)
{
    const auto* bytes = reinterpret_cast<const char*>(p);
    const int count = n * static_cast<int>(sizeof(T));
    const auto read = [&](auto word, int at) {
        __builtin_memcpy(&word, bytes + at, sizeof word);
        return std::uint64_t{word};
    };
    std::uint64_t low = 0;
    std::uint64_t high = 0;
    if (count >= 8) {
        low = read(std::uint64_t{}, 0);
        if (count > 8)
            high = read(std::uint64_t{}, count - 8) >> (8 * (16 - count));
    } else if (count >= 4) {
        low = read(std::uint32_t{}, 0) | read(std::uint32_t{}, count - 4) << (8 * (count - 4));
    } else if (count >= 2) {
        low = read(std::uint16_t{}, 0) | read(std::uint16_t{}, count - 2) << (8 * (count - 2));
    } else {
        low = read(std::uint8_t{}, 0);
    }
    return ownsAs<T>(_mm_set_epi64x(static_cast<std::int64_t>(high), static_cast<std::int64_t>(low)));
}

/// Writes the first `n` elements of a vector (0 < n < lanes) and not one byte more.
template <class T>
inline void ownsStorePart(T* p, std::type_identity_t<OwnsVec<T>> v, int n)
{
    auto* bytes = reinterpret_cast<char*>(p);
    const int count = n * static_cast<int>(sizeof(T));
    const auto write = [&](auto word, int at) { __builtin_memcpy(bytes + at, &word, sizeof word); };
    const auto low = static_cast<std::uint64_t>(_mm_cvtsi128_si64(ownsInt(v)));
    const auto high = static_cast<std::uint64_t>(_mm_extract_epi64(ownsInt(v), 1));
    if (count >= 8) {
        write(low, 0);
        if (count > 8)
            write((low >> (8 * (count - 8))) | (high << (8 * (16 - count))), count - 8);
    } else if (count >= 4) {
        write(static_cast<std::uint32_t>(low), 0);
        write(static_cast<std::uint32_t>(low >> (8 * (count - 4))), count - 4);
    } else if (count >= 2) {
        write(static_cast<std::uint16_t>(low), 0);
        write(static_cast<std::uint16_t>(low >> (8 * (count - 2))), count - 2);
    } else {
        write(static_cast<std::uint8_t>(low), 0);
    }
}

/// As many elements of S as a vector of D has lanes: a whole vector where the sizes agree; where S is
/// narrower, the low part of a vector (the rest is zero); where S is wider, several vectors.
template <class D, class S>
[[gnu::always_inline]] inline auto ownsTake(const S* p)
{
    constexpr int bytes = ownsLanes<D> * static_cast<int>(sizeof(S));
    if constexpr (bytes == ownsVecBytes) {
        return ownsLoad(p);
    } else if constexpr (bytes == 8) {
        return ownsAs<S>(_mm_loadl_epi64(reinterpret_cast<const __m128i*>(p)));
    } else if constexpr (bytes == 4) {
        return ownsAs<S>(_mm_cvtsi32_si128(ownsGet(reinterpret_cast<const Zel32s*>(p))));
    } else if constexpr (bytes == 2) {
        return ownsAs<S>(_mm_cvtsi32_si128(ownsGet(reinterpret_cast<const Zel16u*>(p))));
    } else {
        OwnsVecs<S, bytes / ownsVecBytes> vecs;
        ownsEach<bytes / ownsVecBytes>([&](int k) { vecs.v[k] = ownsLoad(p + k * ownsLanes<S>); });
        return vecs;
    }
}

/// The same for the first `n` of the elements (0 < n < lanes of D).
template <class D, class S>
inline auto ownsTakePart(const S* p, int n)
{
    constexpr int bytes = ownsLanes<D> * static_cast<int>(sizeof(S));
    if constexpr (bytes <= ownsVecBytes) {
        return ownsLoadPart(p, n);
    } else {
        OwnsVecs<S, bytes / ownsVecBytes> vecs;
        ownsEach<bytes / ownsVecBytes>([&](int k) {
            const int left = n - k * ownsLanes<S>;
            vecs.v[k] = left >= ownsLanes<S> ? ownsLoad(p + k * ownsLanes<S>)
                        : left > 0           ? ownsLoadPart(p + k * ownsLanes<S>, left)
                                             : OwnsVec<S>{};
        });
        return vecs;
    }
}

// Steps on vectors.

/// The same element in every lane, by its bit pattern.
template <class T>
inline OwnsVec<T> ownsSplat(T value)
{
    if constexpr (std::is_same_v<T, Zel32f>) {
        return _mm_set1_ps(value);
    } else if constexpr (std::is_same_v<T, Zel64f>) {
        return _mm_set1_pd(value);
    } else if constexpr (std::is_same_v<T, Zel64fc>) {
        // Both parts arrive in registers. As bytes of one object they would go through memory, in two stores
        // that the load of the whole has to wait for.
        return _mm_unpacklo_pd(_mm_set_sd(value.re), _mm_set_sd(value.im));
    } else {
        const auto bits = [&](auto word) {
            __builtin_memcpy(&word, &value, sizeof word);
            return word;
        };
        if constexpr (sizeof(T) == 1)
            return ownsAs<T>(_mm_set1_epi8(bits(char{})));
        else if constexpr (sizeof(T) == 2)
            return ownsAs<T>(_mm_set1_epi16(bits(Zel16s{})));
        else if constexpr (sizeof(T) == 4)
            return ownsAs<T>(_mm_set1_epi32(bits(Zel32s{})));
        else if constexpr (sizeof(T) == 8)
            return ownsAs<T>(_mm_set1_epi64x(bits(Zel64s{})));
        else
            return bits(OwnsVec<T>{});
    }
}

/// Real parts, or imaginary parts, each in both places of its element; the parts exchanged.
inline OwnsVec<Zel32f> ownsReals(OwnsVec<Zel32f> v)
{
    return _mm_moveldup_ps(v);
}
inline OwnsVec<Zel64f> ownsReals(OwnsVec<Zel64f> v)
{
    return _mm_unpacklo_pd(v, v);
}
inline OwnsVec<Zel32f> ownsImags(OwnsVec<Zel32f> v)
{
    return _mm_movehdup_ps(v);
}
inline OwnsVec<Zel64f> ownsImags(OwnsVec<Zel64f> v)
{
    return _mm_unpackhi_pd(v, v);
}
inline OwnsVec<Zel32f> ownsSwapped(OwnsVec<Zel32f> v)
{
    return _mm_shuffle_ps(v, v, 0xB1);
}
inline OwnsVec<Zel64f> ownsSwapped(OwnsVec<Zel64f> v)
{
    return _mm_shuffle_pd(v, v, 1);
}

/// Real parts of a less those of b, imaginary parts of a plus those of b.
inline OwnsVec<Zel32f> ownsSubAdd(OwnsVec<Zel32f> a, OwnsVec<Zel32f> b)
{
    return _mm_addsub_ps(a, b);
}
inline OwnsVec<Zel64f> ownsSubAdd(OwnsVec<Zel64f> a, OwnsVec<Zel64f> b)
{
    return _mm_addsub_pd(a, b);
}

/// Complex product: re = ar*br - ai*bi, im = ai*br + ar*bi, each product and each sum rounded.
template <class V>
inline V ownsComplexMul(V a, V b)
{
    return ownsSubAdd(a * ownsReals(b), ownsSwapped(a) * ownsImags(b));
}
