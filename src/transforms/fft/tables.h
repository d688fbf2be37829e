// The tables of a plan, made once by Init in the order in which the passes read them.
#pragma once

#include "transforms/fft/sine.h"

/// The passes of a transform of order n: a first pass of radix 4, without twiddles, then passes of radix 16 until
/// what remains is divisible by 3, and passes of radix 8. Radix 16 does the most work for what it loads and
/// stores, but its sixteen rows need more of the cache's ways the further they lie apart; so it comes first. (Order 7
/// leaves it 5 after a first pass of radix 4, and begins with radix 8.) `done` is the order that a pass finds
/// finished.
struct OwnsFftPasses {
    static constexpr int first(int order) { return order == 7 ? 3 : 2; }
    static constexpr int sixteens(int order) { return (order - first(order)) % 3; }
    static constexpr int radixOrder(int order, int done)
    {
        return done < first(order) + 4 * sixteens(order) ? 4 : 3;
    }
    /// The radix of the pass that finishes order `end`.
    static constexpr int radixOrderBefore(int order, int end)
    {
        return end <= first(order) + 4 * sixteens(order) ? 4 : 3;
    }

    /// Where the table of a pass begins. The passes that finish order n take 2^n - 2^first complex twiddles
    /// in all.
    static constexpr ZelSize offset(int order, int done)
    {
        return (ZelSize{1} << (done + 1)) - (ZelSize{1} << (first(order) + 1));
    }
};

/// pIndex[i] = the `bits` bits of i in reverse, shifted left by `shift`, for all i of that many bits.
void ownsFftBitRevTable(Zel32s* pIndex, int bits, int shift);

/// The twiddles of all passes after the first of a transform of this order.
template <class T>
void ownsFftTwiddles(T* pTwiddles, int order, OwnsSines<T> sines);

/// The twiddles of the column passes that finish a transform of this order: see columns.h.
template <class T>
void ownsFftColumnTable(T* pTable, int order, int columns, int widthOrder, OwnsSines<T> sines);

/// The recombination tables of a real plan of this order.
template <class T>
void ownsFftRecombFwd(T* pTable, int order, OwnsSines<T> sines);
template <class T>
void ownsFftRecombInv(T* pTable, int order, OwnsSines<T> sines);
