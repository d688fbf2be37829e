// sqrt(x^2 + y^2) in double precision without undue overflow, within 0.86 units of the last place, or
// 0.93 where the result is below the normal numbers.
#pragma once

#include "frame/extremes.h"
#include "math/vecMathTypes.h"

#include <limits>

inline __m128d ownsIsInfinite(OwnsF2 absX, OwnsF2 absY)
{
    const __m128d infinity = _mm_set1_pd(std::numeric_limits<Zel64f>::infinity());
    return _mm_or_pd(_mm_cmpeq_pd(absX, infinity), _mm_cmpeq_pd(absY, infinity));
}

/// Where squares neither overflow nor lose bits: the larger value lies between 2^-450 and 2^500. Zeros,
/// infinities and NaN lie outside.
inline bool ownsSquaresFit(OwnsF2 larger)
{
    return _mm_movemask_pd(_mm_and_pd(_mm_cmpge_pd(larger, _mm_set1_pd(0x1p-450)),
                                      _mm_cmple_pd(larger, _mm_set1_pd(0x1p500)))) == 3;
}

/// What brings values into that range, and a length or its root back.
struct OwnsRangeScale {
    OwnsF2 in, out, outOfRoot;

    explicit OwnsRangeScale(OwnsF2 larger)
    {
        const __m128d big = _mm_cmpgt_pd(larger, _mm_set1_pd(0x1p500));
        const __m128d tiny = _mm_cmplt_pd(larger, _mm_set1_pd(0x1p-450));
        const auto choose = [&](Zel64f ifBig, Zel64f ifTiny) {
            return ownsSelect(big, _mm_set1_pd(ifBig), ownsSelect(tiny, _mm_set1_pd(ifTiny), _mm_set1_pd(1)));
        };
        in = choose(0x1p-600, 0x1p600);
        out = choose(0x1p600, 0x1p-600);
        outOfRoot = choose(0x1p300, 0x1p-300);
    }
};

/// For absolute values in that range. The squares are exact in two pieces, of the upper 26 bits and of the
/// rest; their sum is rounded once and the root once.
inline OwnsF2 ownsHypotInRange(OwnsF2 absX, OwnsF2 absY)
{
    // Each instruction gives its second operand where there is a NaN, so one of the two carries it on.
    const OwnsF2 a = _mm_max_pd(absY, absX);
    const OwnsF2 b = _mm_min_pd(absX, absY);
    const __m128d upper = _mm_castsi128_pd(_mm_set1_epi64x(-0x8000000));
    const OwnsF2 aUpper = _mm_and_pd(a, upper);
    const OwnsF2 bUpper = _mm_and_pd(b, upper);
    const OwnsF2 aSquare = aUpper * aUpper;
    const OwnsF2 bSquare = bUpper * bUpper;
    const OwnsF2 sum = aSquare + bSquare;
    const OwnsF2 lost = bSquare - (sum - aSquare);
    const OwnsF2 rest = (a + aUpper) * (a - aUpper) + (b + bUpper) * (b - bUpper);
    return _mm_sqrt_pd(sum + (lost + rest));
}

/// hypot(x, y), with the special values of the standard function: an infinity wins over a NaN.
inline OwnsF2 ownsHypot(OwnsF2 x, OwnsF2 y)
{
    const OwnsF2 absX = OwnsMagnitude::of(x);
    const OwnsF2 absY = OwnsMagnitude::of(y);
    const OwnsF2 larger = _mm_max_pd(absX, absY);
    if (ownsSquaresFit(larger)) [[likely]]
        return ownsHypotInRange(absX, absY);
    const OwnsRangeScale scale(larger);
    // Without sign, since in the rounding mode downward the length of (0, 0) comes out as -0.
    const OwnsF2 length = OwnsMagnitude::of(ownsHypotInRange(absX * scale.in, absY * scale.in)) * scale.out;
    return ownsSelect(ownsIsInfinite(absX, absY), _mm_set1_pd(std::numeric_limits<Zel64f>::infinity()),
                      length);
}
