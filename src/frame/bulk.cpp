// Bulk memory kernels.
//
// All of them write aligned vectors between an unaligned first and last one, which overlap the body and hold
// the same bytes that it writes. Where the data cannot fit the largest cache that the processor reports, the
// body bypasses the caches, so that the caller's working set stays there; a store fence follows. The report
// is slow to get and is asked for only where a streaming body is possible at all.
#include "frame/bulk.h"

#include "frame/cacheProbe.h"
#include "frame/vec.h"
#include "frame/zelsKernelConventions.h"

namespace {

using Bytes = OwnsVec<Zel8u>;

constexpr ZelSize vec = ownsVecBytes;
constexpr ZelSize round = 4 * vec;

/// Bytes from p up to the next vector boundary, and from the last boundary before p.
ZelSize upToBoundary(const Zel8u* p)
{
    return static_cast<ZelSize>(-reinterpret_cast<std::uintptr_t>(p) % vec);
}
ZelSize pastBoundary(const Zel8u* p)
{
    return static_cast<ZelSize>(reinterpret_cast<std::uintptr_t>(p) % vec);
}

template <class Word>
[[gnu::always_inline]] inline void copyEnds(const Zel8u* pSrc, Zel8u* pDst, ZelSize n)
{
    Word first;
    Word last;
    __builtin_memcpy(&first, pSrc, sizeof first);
    __builtin_memcpy(&last, pSrc + n - static_cast<ZelSize>(sizeof last), sizeof last);
    __builtin_memcpy(pDst, &first, sizeof first);
    __builtin_memcpy(pDst + n - static_cast<ZelSize>(sizeof last), &last, sizeof last);
}

/// Up to 64 bytes, overlapping or not: everything is read before anything is written.
[[gnu::always_inline]] inline void moveFew(const Zel8u* pSrc, Zel8u* pDst, ZelSize n)
{
    if (n > 32) {
        const Bytes a = ownsLoad(pSrc);
        const Bytes b = ownsLoad(pSrc + vec);
        const Bytes c = ownsLoad(pSrc + n - 2 * vec);
        const Bytes d = ownsLoad(pSrc + n - vec);
        ownsStore(pDst, a);
        ownsStore(pDst + vec, b);
        ownsStore(pDst + n - 2 * vec, c);
        ownsStore(pDst + n - vec, d);
    } else if (n >= 16) {
        copyEnds<Bytes>(pSrc, pDst, n);
    } else if (n >= 8) {
        copyEnds<std::uint64_t>(pSrc, pDst, n);
    } else if (n >= 4) {
        copyEnds<std::uint32_t>(pSrc, pDst, n);
    } else if (n >= 2) {
        copyEnds<std::uint16_t>(pSrc, pDst, n);
    } else if (n == 1) {
        *pDst = *pSrc;
    }
}

/// Four vectors, read before they are written.
[[gnu::always_inline]] inline void moveRound(const Zel8u* pSrc, Zel8u* pDst)
{
    const Bytes a = ownsLoad(pSrc);
    const Bytes b = ownsLoad(pSrc + vec);
    const Bytes c = ownsLoad(pSrc + 2 * vec);
    const Bytes d = ownsLoad(pSrc + 3 * vec);
    ownsStore(pDst, a);
    ownsStore(pDst + vec, b);
    ownsStore(pDst + 2 * vec, c);
    ownsStore(pDst + 3 * vec, d);
}

/// More than 64 bytes from the first to the last; right under overlap where the source lies above the
/// destination.
[[gnu::always_inline]] inline void moveForward(const Zel8u* pSrc, Zel8u* pDst, ZelSize n)
{
    const Bytes head = ownsLoad(pSrc);
    const Zel8u* const pTail = pSrc + n - round;
    const Bytes a = ownsLoad(pTail);
    const Bytes b = ownsLoad(pTail + vec);
    const Bytes c = ownsLoad(pTail + 2 * vec);
    const Bytes d = ownsLoad(pTail + 3 * vec);
    Zel8u* const pEnd = pDst + n - round;
    const ZelSize skip = upToBoundary(pDst);
    const Zel8u* s = pSrc + skip;
    for (Zel8u* p = pDst + skip; p < pEnd; p += round, s += round)
        moveRound(s, p);
    ownsStore(pEnd, a);
    ownsStore(pEnd + vec, b);
    ownsStore(pEnd + 2 * vec, c);
    ownsStore(pEnd + 3 * vec, d);
    ownsStore(pDst, head);
}

/// The same from the last to the first, for a source below the destination.
[[gnu::always_inline]] inline void moveBackward(const Zel8u* pSrc, Zel8u* pDst, ZelSize n)
{
    const Bytes a = ownsLoad(pSrc);
    const Bytes b = ownsLoad(pSrc + vec);
    const Bytes c = ownsLoad(pSrc + 2 * vec);
    const Bytes d = ownsLoad(pSrc + 3 * vec);
    const Bytes tail = ownsLoad(pSrc + n - vec);
    const ZelSize skip = pastBoundary(pDst + n);
    const Zel8u* s = pSrc + n - skip;
    for (Zel8u* p = pDst + n - skip; p > pDst + round; p -= round, s -= round)
        moveRound(s - round, p - round);
    ownsStore(pDst, a);
    ownsStore(pDst + vec, b);
    ownsStore(pDst + 2 * vec, c);
    ownsStore(pDst + 3 * vec, d);
    ownsStore(pDst + n - vec, tail);
}

/// Copies past the caches to an aligned destination, whole vectors only. A block is first touched a line at a
/// time, which brings it in faster than the copying loads alone would. Returns the bytes done.
ZelSize streamCopy(const Zel8u* pSrc, Zel8u* pDst, ZelSize n)
{
    const ZelSize whole = n / vec * vec;
    for (ZelSize done = 0; done < whole;) {
        const ZelSize left = whole - done;
        const ZelSize end = done + (left < ownsCopyBlock ? left : ownsCopyBlock);
        for (ZelSize at = done; at < end; at += ownsCacheLine)
            static_cast<void>(*static_cast<const volatile Zel8u*>(pSrc + at));
        for (; done < end; done += vec)
            ownsStream(pDst + done, ownsLoad(pSrc + done));
    }
    _mm_sfence();
    return whole;
}

/// The vector with its bytes moved down by `n`, those that fall out coming in at the top.
Bytes rotated(Bytes value, ZelSize n)
{
    const Bytes places{0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15};
    const Bytes from = (places + static_cast<Zel8u>(n)) & static_cast<Zel8u>(vec - 1);
    return ownsAs<Zel8u>(_mm_shuffle_epi8(ownsInt(value), ownsInt(from)));
}

/// Up to 64 bytes of a repeated value, whole values only: every place that a store begins at is a multiple of
/// them.
[[gnu::always_inline]] inline void fillFew(Bytes value, Zel8u* pDst, ZelSize n)
{
    if (n < vec) {
        if (n > 0)
            ownsStorePart(pDst, value, static_cast<int>(n));
        return;
    }
    ownsStore(pDst, value);
    ownsStore(pDst + n - vec, value);
    if (n > 2 * vec) {
        ownsStore(pDst + vec, value);
        ownsStore(pDst + n - 2 * vec, value);
    }
}

/// More than 64 bytes of a repeated value, past the caches if `counted` bytes pass the rule.
[[gnu::noinline]] ZelStatus fillMany(Bytes value, Zel8u* pDst, ZelSize n, OwnsFillRule rule, ZelSize counted)
{
    // A destination that is not aligned to its elements meets the boundary in the midst of one.
    const ZelSize skip = upToBoundary(pDst);
    const Bytes body = rotated(value, skip);
    Zel8u* const pEnd = pDst + n;
    Zel8u* p = pDst + skip;
    ownsStore(pDst, value);
    ownsStore(pEnd - vec, value);
    if (counted > rule.probeAbove) {
        const Zel64u cache = zelsCacheProbe();
        const auto bytes = static_cast<Zel64u>(counted);
        if (bytes > cache || (rule.fromCacheSize && bytes == cache)) {
            for (; p + vec <= pEnd; p += vec)
                ownsStream(p, body);
            _mm_sfence();
            return zelStatusOk;
        }
    }
    for (; p + round <= pEnd; p += round) {
        // Beyond the first cache a line that is asked for ahead is written 8 % sooner.
        _mm_prefetch(reinterpret_cast<const char*>(p) + ownsFillAhead, _MM_HINT_T0);
        ownsStore(p, body);
        ownsStore(p + vec, body);
        ownsStore(p + 2 * vec, body);
        ownsStore(p + 3 * vec, body);
    }
    for (; p + vec <= pEnd; p += vec)
        ownsStore(p, body);
    return zelStatusOk;
}

/// Copies that are long enough to ask for the cache size.
[[gnu::noinline]] ZelStatus copyMany(const Zel8u* pSrc, Zel8u* pDst, ZelSize n)
{
    const ZelSize skip = upToBoundary(pDst);
    const ZelSize left = n - skip;
    // A source that becomes aligned together with a misaligned destination stays with the caches.
    const bool alignedTogether = skip != 0 && upToBoundary(pSrc + skip) == 0;
    if (left >= ownsCopyProbeFrom && !alignedTogether) {
        const Zel64u cache = zelsCacheProbe();
        if (cache != ownsNoCacheSize && static_cast<Zel64u>(left) >= cache / 2) {
            moveFew(pSrc, pDst, skip);
            const ZelSize done = skip + streamCopy(pSrc + skip, pDst + skip, left);
            moveFew(pSrc + done, pDst + done, n - done);
            return zelStatusOk;
        }
    }
    moveForward(pSrc, pDst, n);
    return zelStatusOk;
}

} // namespace

ZelStatus ownsCopyBytes(const void* pSource, void* pDestination, ZelSize bytes)
{
    const auto* pSrc = static_cast<const Zel8u*>(pSource);
    auto* pDst = static_cast<Zel8u*>(pDestination);
    if (bytes <= round)
        moveFew(pSrc, pDst, bytes);
    else if (bytes < ownsCopyProbeFrom)
        moveForward(pSrc, pDst, bytes);
    else
        return copyMany(pSrc, pDst, bytes);
    return zelStatusOk;
}

ZelStatus ownsMoveBytes(const void* pSource, void* pDestination, ZelSize bytes)
{
    const auto* pSrc = static_cast<const Zel8u*>(pSource);
    auto* pDst = static_cast<Zel8u*>(pDestination);
    if (bytes <= round)
        moveFew(pSrc, pDst, bytes);
    else if (pSrc < pDst)
        moveBackward(pSrc, pDst, bytes);
    else if (pSrc > pDst)
        moveForward(pSrc, pDst, bytes);
    return zelStatusOk;
}

ZelStatus ownsZeroBytes(void* pDestination, ZelSize bytes)
{
    auto* pDst = static_cast<Zel8u*>(pDestination);
    if (bytes > round)
        return fillMany(Bytes{}, pDst, bytes, ownsFillRule8, bytes - upToBoundary(pDst));
    fillFew(Bytes{}, pDst, bytes);
    return zelStatusOk;
}

ZelStatus ownsSetBytes(OwnsVec<Zel8u> value, int width, void* pDestination, ZelSize len)
{
    auto* pDst = static_cast<Zel8u*>(pDestination);
    const ZelSize bytes = len * width;
    if (bytes > round)
        return fillMany(value, pDst, bytes, width == 1 ? ownsFillRule8 : ownsFillRuleWider, bytes);
    fillFew(value, pDst, bytes);
    return zelStatusOk;
}
