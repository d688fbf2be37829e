// Where the passes read and write: callers' arrays in either form, and the working array.
//
// Callers' arrays have any alignment. Values in them are counted singly by the sources. The working array and
// the destinations are counted in groups, the values of one OwnsSplit. The working array keeps each group as
// a vector of real parts and a vector of imaginary parts: it is as large as an interleaved array, group for
// group at the same place.
#pragma once

#include "transforms/fft/complexVec.h"

template <class T>
inline OwnsVec<T> ownsLoadAligned(const T* p)
{
    return *reinterpret_cast<const OwnsVec<T>*>(p);
}

/// One complex value.
template <class T>
struct OwnsOne {
    T re, im;
};

/// Interleaved source. `Values` is the form in which a load gives values at no cost.
template <class T>
struct OwnsPairSource {
    using Values = OwnsPairs<T>;
    static constexpr bool halfLines = false;
    const T* p;

    OwnsPairSource from(ZelSize i) const { return {p + 2 * i}; }
    OwnsOne<T> get(ZelSize i) const { return {ownsGet(p + 2 * i), ownsGet(p + 2 * i + 1)}; }
    void load(ZelSize i, OwnsPairs<T>& x) const { x = {ownsLoad(p + 2 * i)}; }
    void prefetch(ZelSize i) const { _mm_prefetch(reinterpret_cast<const char*>(p + 2 * i), _MM_HINT_T0); }
};

/// Source in two arrays.
template <class T>
struct OwnsSplitSource {
    using Values = OwnsSplit<T>;
    /// A step of the first pass takes half a line of each array.
    static constexpr bool halfLines = true;
    const T* re;
    const T* im;

    OwnsSplitSource from(ZelSize i) const { return {re + i, im + i}; }
    OwnsOne<T> get(ZelSize i) const { return {ownsGet(re + i), ownsGet(im + i)}; }
    void load(ZelSize i, OwnsSplit<T>& x) const { x = {ownsLoad(re + i), ownsLoad(im + i)}; }
    void load(ZelSize i, OwnsPairs<T>& x) const
    {
        if constexpr (sizeof(T) == 4) {
            const __m128i low = _mm_loadl_epi64(reinterpret_cast<const __m128i*>(re + i));
            const __m128i high = _mm_loadl_epi64(reinterpret_cast<const __m128i*>(im + i));
            x = {ownsZipLow(ownsAs<T>(low), ownsAs<T>(high))};
        } else {
            x = {OwnsVec<T>{ownsGet(re + i), ownsGet(im + i)}};
        }
    }
};

/// The working array, as source and destination of a pass.
template <class T>
struct OwnsBlocks {
    static constexpr int step = 2 * ownsLanes<T>;
    T* p;

    OwnsBlocks from(ZelSize group) const { return {p + step * group}; }
    void prefetch(ZelSize group) const
    {
        _mm_prefetch(reinterpret_cast<const char*>(p + step * group), _MM_HINT_T0);
    }

    OwnsSplit<T> load(ZelSize group) const
    {
        return {ownsLoad(p + step * group), ownsLoad(p + step * group + ownsLanes<T>)};
    }
    void store(ZelSize group, OwnsSplit<T> x) const
    {
        ownsStore(p + step * group, x.re);
        ownsStore(p + step * group + ownsLanes<T>, x.im);
    }
};

/// Two arrays as the working array.
template <class T>
struct OwnsSplitBlocks {
    T* re;
    T* im;

    OwnsSplitBlocks from(ZelSize group) const
    {
        return {re + ownsLanes<T> * group, im + ownsLanes<T> * group};
    }

    void prefetch(ZelSize group) const
    {
        _mm_prefetch(reinterpret_cast<const char*>(re + ownsLanes<T> * group), _MM_HINT_T0);
        _mm_prefetch(reinterpret_cast<const char*>(im + ownsLanes<T> * group), _MM_HINT_T0);
    }

    OwnsSplit<T> load(ZelSize group) const
    {
        return {ownsLoad(re + ownsLanes<T> * group), ownsLoad(im + ownsLanes<T> * group)};
    }
    void store(ZelSize group, OwnsSplit<T> x) const
    {
        ownsStore(re + ownsLanes<T> * group, x.re);
        ownsStore(im + ownsLanes<T> * group, x.im);
    }
};

/// Interleaved destination of a last pass, which scales if it is told to. The inverse transform runs on
/// values whose parts are exchanged, and exchanges them back here.
template <class T, bool inverse, bool scaled>
struct OwnsPairSink {
    static constexpr bool split = false;
    T* p;
    T scale;

    OwnsPairSink from(ZelSize group) const { return {p + 2 * ownsLanes<T> * group, scale}; }

    void put(ZelSize i, OwnsOne<T> x) const
    {
        ownsPut(p + 2 * i, scaled ? x.re * scale : x.re);
        ownsPut(p + 2 * i + 1, scaled ? x.im * scale : x.im);
    }
    void storePairs(ZelSize i, OwnsPairs<T> x) const { ownsStore(p + 2 * i, scaled ? (x * scale).v : x.v); }

    void store(ZelSize group, OwnsSplit<T> x) const
    {
        if constexpr (scaled)
            x = x * scale;
        if constexpr (inverse)
            x = ownsExchanged(x);
        ownsStore(p + 2 * ownsLanes<T> * group, ownsZipLow(x.re, x.im));
        ownsStore(p + 2 * ownsLanes<T> * group + ownsLanes<T>, ownsZipHigh(x.re, x.im));
    }
};

/// Destination of a last pass in two arrays.
template <class T, bool scaled>
struct OwnsSplitSink {
    static constexpr bool split = true;
    T* re;
    T* im;
    T scale;

    OwnsSplitSink from(ZelSize group) const
    {
        return {re + ownsLanes<T> * group, im + ownsLanes<T> * group, scale};
    }

    void put(ZelSize i, OwnsOne<T> x) const
    {
        ownsPut(re + i, scaled ? x.re * scale : x.re);
        ownsPut(im + i, scaled ? x.im * scale : x.im);
    }
    void storePairs(ZelSize i, OwnsPairs<T> x) const
    {
        if constexpr (scaled)
            x = x * scale;
        if constexpr (sizeof(T) == 4) {
            const __m128 parts = _mm_shuffle_ps(x.v, x.v, 0xD8);
            _mm_storel_epi64(reinterpret_cast<__m128i*>(re + i), ownsInt(parts));
            _mm_storel_epi64(reinterpret_cast<__m128i*>(im + i), _mm_srli_si128(ownsInt(parts), 8));
        } else {
            ownsPut(re + i, x.v[0]);
            ownsPut(im + i, x.v[1]);
        }
    }
    void store(ZelSize group, OwnsSplit<T> x) const
    {
        if constexpr (scaled)
            x = x * scale;
        ownsStore(re + ownsLanes<T> * group, x.re);
        ownsStore(im + ownsLanes<T> * group, x.im);
    }
};
