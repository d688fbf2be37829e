// Bit reversal of whole arrays, by square tiles.
//
// The index of a value in an array of 2^n is (high, middle, low), high and low of t bits. The reversal sends
// it to (rev(low), rev(middle), rev(high)): the tile of all values with one middle goes, turned and reversed
// inside, to the tile of the reversed middle. Rows of a tile are 2^t values, whole cache lines; so the array
// is read and written in lines though the values move singly.
#pragma once

#include "frame/bulk.h"
#include "transforms/fft/complexVec.h"

/// A value to be moved: 4, 8 or 16 bytes, and the count of them in a vector.
template <int bytes>
struct OwnsMoved {
    static constexpr int lanes = ownsVecBytes / bytes;
    using Block = __m128i[lanes];

    /// Row r of the block receives the r-th values of its rows.
    static void turn(Block& b)
    {
        if constexpr (bytes == 8) {
            const __m128i a = b[0];
            b[0] = _mm_unpacklo_epi64(a, b[1]);
            b[1] = _mm_unpackhi_epi64(a, b[1]);
        } else if constexpr (bytes == 4) {
            const __m128i low01 = _mm_unpacklo_epi32(b[0], b[1]);
            const __m128i low23 = _mm_unpacklo_epi32(b[2], b[3]);
            const __m128i high01 = _mm_unpackhi_epi32(b[0], b[1]);
            const __m128i high23 = _mm_unpackhi_epi32(b[2], b[3]);
            b[0] = _mm_unpacklo_epi64(low01, low23);
            b[1] = _mm_unpackhi_epi64(low01, low23);
            b[2] = _mm_unpacklo_epi64(high01, high23);
            b[3] = _mm_unpackhi_epi64(high01, high23);
        }
    }
};

/// The numbers of so many bits in reverse.
template <int bits>
inline constexpr auto ownsReversedNumbers = [] {
    struct {
        Zel8u at[1 << bits];
    } numbers{};
    for (int i = 0; i < 1 << bits; i++)
        numbers.at[i] = static_cast<Zel8u>(ownsReversed(i, bits));
    return numbers;
}();

/// One tile, from rows of fromPitch bytes to rows of toPitch bytes. The places of a block's values are
/// reversed multiples of the row count over `lanes`, so that whole vectors are read and written.
template <int bytes, int tileOrder>
inline void ownsReverseTile(const Zel8u* pFrom, ZelSize fromPitch, Zel8u* pTo, ZelSize toPitch)
{
    using Moved = OwnsMoved<bytes>;
    constexpr int lanes = Moved::lanes;
    constexpr int side = 1 << tileOrder;
    constexpr int laneOrder = lanes == 4 ? 2 : lanes == 2 ? 1 : 0;
    constexpr int apart = side / lanes;
    const auto& reversed = ownsReversedNumbers<tileOrder - laneOrder>.at;
    for (int row = 0; row < apart; row++) {
        // Rows `row` plus multiples of `apart` take the columns from `column` on.
        const int column = reversed[row] * lanes;
        for (int q = 0; q < side; q += lanes) {
            const Zel8u* from = pFrom + reversed[q / lanes] * fromPitch + column * bytes;
            typename Moved::Block block;
            ownsEach<lanes>([&](auto k) {
                const Zel8u* line = from + ownsReversed(k, laneOrder) * apart * fromPitch;
                block[k] = ownsInt(ownsLoad(line));
            });
            Moved::turn(block);
            ownsEach<lanes>([&](auto k) {
                Zel8u* line = pTo + (row + ownsReversed(k, laneOrder) * apart) * toPitch + q * bytes;
                ownsStore(line, ownsAs<Zel8u>(block[k]));
            });
        }
    }
}

/// Copies the rows of a tile.
inline void ownsCopyTile(const Zel8u* pFrom, ZelSize fromPitch, Zel8u* pTo, ZelSize toPitch, int rows,
                         int rowBytes)
{
    for (int row = 0; row < rows; row++)
        for (int at = 0; at < rowBytes; at += ownsVecBytes)
            ownsStore(pTo + row * toPitch + at, ownsLoad(pFrom + row * fromPitch + at));
}

/// Puts an array of 2^order values of `bytes` bytes into bit-reversed order. pIndex holds the reversed
/// middles, shifted left by 2 tileOrder - 3. Source and destination may be the same; `pWork` takes two tiles.
template <int bytes, int tileOrder>
void ownsTileReverse(const Zel8u* pSrc, Zel8u* pDst, int order, const Zel32s* pIndex, Zel8u* pWork)
{
    constexpr int side = 1 << tileOrder;
    constexpr ZelSize rowBytes = ZelSize{side} * bytes;
    const ZelSize pitch = (ZelSize{bytes} << order) / side;
    const int tiles = 1 << (order - 2 * tileOrder);
    Zel8u* const other = pWork + side * rowBytes;
    for (int t = 0; t < tiles; t++) {
        const int r = pIndex[t] >> (2 * tileOrder - 3);
        const ZelSize here = ZelSize{t} * rowBytes;
        const ZelSize there = ZelSize{r} * rowBytes;
        if (pSrc != pDst) {
            ownsCopyTile(pSrc + there, pitch, pWork, rowBytes, side, rowBytes);
            ownsReverseTile<bytes, tileOrder>(pWork, rowBytes, pDst + here, pitch);
        } else if (t <= r) {
            ownsCopyTile(pDst + here, pitch, pWork, rowBytes, side, rowBytes);
            if (t != r) {
                ownsCopyTile(pDst + there, pitch, other, rowBytes, side, rowBytes);
                ownsReverseTile<bytes, tileOrder>(other, rowBytes, pDst + here, pitch);
            }
            ownsReverseTile<bytes, tileOrder>(pWork, rowBytes, pDst + there, pitch);
        }
    }
}
