// Bit strings from any bit position to any other: CopyLE, CopyBE.
#include "frame/bulk.h"
#include "frame/entry.h"
#include "frame/map.h"
#include "zels.h"

namespace {

// How bits are numbered within a byte, and what follows from it: `ahead` moves a bit towards number 0, `back` away from it.
// The vector steps make bytes of the string from bytes at a distance of `shift` bits (1 to 7) and the bytes behind them.

struct LowFirst {
    static unsigned ahead(unsigned x, int n) { return x >> n; }
    static unsigned back(unsigned x, int n) { return x << n; }

    /// A shift of 64-bit lanes carries bits from byte to byte. Those that it brings in from the next byte and those that
    /// come with the vector of next bytes are the same bits of the string, so that nothing needs a mask.
    struct Realign {
        __m128i toFront, toBack;
        explicit Realign(int shift) : toFront(_mm_cvtsi32_si128(shift)), toBack(_mm_cvtsi32_si128(8 - shift))
        {
        }
        OwnsVec<Zel8u> operator()(OwnsVec<Zel8u> x, OwnsVec<Zel8u> next) const
        {
            return ownsAs<Zel8u>(
                _mm_or_si128(_mm_srl_epi64(ownsInt(x), toFront), _mm_sll_epi64(ownsInt(next), toBack)));
        }
    };
};

struct HighFirst {
    static unsigned ahead(unsigned x, int n) { return x << n & 0xFF; }
    static unsigned back(unsigned x, int n) { return x >> n; }

    /// Here the lanes of the processor run against the string, and what crosses from byte to byte is masked out.
    struct Realign {
        __m128i toFront, toBack, front;
        explicit Realign(int shift)
            : toFront(_mm_cvtsi32_si128(shift)), toBack(_mm_cvtsi32_si128(8 - shift)),
              front(_mm_set1_epi8(static_cast<char>(0xFF << shift)))
        {
        }
        OwnsVec<Zel8u> operator()(OwnsVec<Zel8u> x, OwnsVec<Zel8u> next) const
        {
            return ownsAs<Zel8u>(_mm_or_si128(_mm_and_si128(front, _mm_sll_epi16(ownsInt(x), toFront)),
                                              _mm_andnot_si128(front, _mm_srl_epi16(ownsInt(next), toBack))));
        }
    };
};

/// Copies `n` bits within a byte of the destination, bit `from` of the source on to bit `to` on; n is above 0 and to + n
/// at most 8. Reads a second byte only if it has one of the bits.
template <class Order>
void copyWithinByte(const Zel8u* pSrc, int from, Zel8u* pDst, int to, int n)
{
    unsigned bits = Order::ahead(pSrc[0], from);
    if (from + n > 8)
        bits |= Order::back(pSrc[1], 8 - from);
    const unsigned mask = Order::back(0xFFu & ~Order::back(0xFFu, n), to);
    *pDst = static_cast<Zel8u>((*pDst & ~mask) | (Order::back(bits, to) & mask));
}

template <class Order>
ZelStatus copyBits(const Zel8u* pSrc, int srcBitOffset, Zel8u* pDst, int dstBitOffset, int len)
{
    if (const ZelStatus status = ownsCheck(len, pSrc, pDst); status != zelStatusOk)
        return status;
    if (srcBitOffset < 0 || dstBitOffset < 0)
        return zelErrSize;
    pSrc += srcBitOffset / 8;
    pDst += dstBitOffset / 8;
    int from = srcBitOffset % 8;
    if (const int to = dstBitOffset % 8; to != 0) {
        const int n = len < 8 - to ? len : 8 - to;
        copyWithinByte<Order>(pSrc, from, pDst, to, n);
        len -= n;
        pSrc += (from + n) / 8;
        pDst++;
        from = (from + n) % 8;
    }
    const int bytes = len / 8;
    if (from == 0)
        ownsCopyBytes(pSrc, pDst, bytes);
    else if (bytes > 0)
        ownsMap<shapeBits>(OwnsLight{typename Order::Realign(from)}, pDst, bytes, pSrc, pSrc + 1);
    if (const int n = len % 8; n != 0)
        copyWithinByte<Order>(pSrc + bytes, from, pDst + bytes, 0, n);
    return zelStatusOk;
}

} // namespace

ZelStatus zelsCopyBE_1u(const Zel8u* pSrc, int srcBitOffset, Zel8u* pDst, int dstBitOffset, int len)
{
    return copyBits<HighFirst>(pSrc, srcBitOffset, pDst, dstBitOffset, len);
}

ZelStatus zelsCopyLE_1u(const Zel8u* pSrc, int srcBitOffset, Zel8u* pDst, int dstBitOffset, int len)
{
    return copyBits<LowFirst>(pSrc, srcBitOffset, pDst, dstBitOffset, len);
}
