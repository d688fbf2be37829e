// The cube root: its constants and its rare arguments.
#include "math/vecMathCubrt.h"

namespace owns_detail {

constexpr CubrtConstants cubrtConstants = {
    .third = ownsAll(0x1.555556p-2f),
    // 4/3 * 127 * 2^23, less what spreads the error evenly to both sides.
    .start = ownsAll(1419922955.0f),
    // c^(-2/3) for 0.902 < c < 1.109, off by 2^-12.8 of itself.
    .p0 = ownsAll(0x1.1c85fap1f),
    .p1 = ownsAll(-0x1.c66b28p0f),
    .p2 = ownsAll(0x1.1ac094p-1f),
    // ((1 + t)^(1/3) - 1) / t for |t| < 0.012, off by 2^-32 / t.
    .q0 = ownsAll(0x1.555556p-2f),
    .q1 = ownsAll(-0x1.c722a0p-4f),
    .q2 = ownsAll(0x1.f89778p-5f),
    .one = ownsAllOf(0x3f800000u),
    .round = ownsAllOf(1u << 15),
    .leadingBits = ownsAllOf(~0u << 16),
};

OwnsF4 cubrtRare(OwnsF4 x)
{
    const OwnsF4 m = ownsFromBits(ownsMagnitudeBits(x));
    const OwnsF4 one = ownsSplat(1.0f);
    const OwnsF4 small = _mm_cmplt_ps(m, _mm_set1_ps(0x1p-90f));
    const OwnsF4 large = _mm_cmpge_ps(m, _mm_set1_ps(0x1p100f));
    const auto bySize = [=](Zel32f ifSmall, Zel32f ifLarge) {
        return ownsSelect(small, ownsSplat(ifSmall), ownsSelect(large, ownsSplat(ifLarge), one));
    };
    const OwnsF4 scaled = m * bySize(0x1p60f, 0x1p-60f);
    // Zeros, and subnormal numbers where the caller counts them as 0.
    const OwnsF4 zero = _mm_cmpeq_ps(scaled, _mm_setzero_ps());
    const OwnsF4 unbounded = ownsAs<Zel32f>(_mm_cmpgt_epi32(ownsInt(m), _mm_set1_epi32(0x7f7fffff)));
    OwnsF4 y =
        cubrtCore(ownsSelect(OwnsF4{_mm_or_ps(zero, unbounded)}, one, scaled)) * bySize(0x1p-20f, 0x1p20f);
    y = ownsSelect(unbounded, m + m, OwnsF4{_mm_andnot_ps(zero, y)});
    return ownsFromBits(ownsBits(y) | ownsSignOf(x));
}

} // namespace owns_detail
