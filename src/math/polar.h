// Complex vectors as their parts, for operations that take either form.
#pragma once

#include "frame/parts.h"

/// The first `n` lanes, and 1 in the others.
inline OwnsVec<Zel32f> ownsFilledUp(OwnsVec<Zel32f> x, int n)
{
    const __m128i isBehind = _mm_cmpgt_epi32(_mm_set_epi32(4, 3, 2, 1), _mm_set1_epi32(n));
    return _mm_blendv_ps(x, _mm_set1_ps(1), _mm_castsi128_ps(isBehind));
}
inline OwnsVec<Zel64f> ownsFilledUp(OwnsVec<Zel64f> x, int)
{
    return OwnsVec<Zel64f>{x[0], 1};
}

/// Calls `op` with the real and the imaginary parts of a source of either kind. In partly filled vectors the real
/// parts are filled up: for angles and lengths 0 is a rare argument, which takes time.
template <class Op>
struct OwnsOnParts {
    static constexpr OwnsCode code = OwnsCode::compact;
    Op op;

    template <class V>
    auto part(int n, V re, V im) const
    {
        return op(ownsFilledUp(re, n), im);
    }
    template <class C>
    auto part(int n, OwnsVecs<C, 2> x) const
    {
        const auto parts = ownsDivided(x);
        return op(ownsFilledUp(parts.first, n), parts.second);
    }

    template <class V>
    auto operator()(V re, V im) const
    {
        return op(re, im);
    }
    template <class C>
    auto operator()(OwnsVecs<C, 2> x) const
    {
        const auto parts = ownsDivided(x);
        return op(parts.first, parts.second);
    }
};
template <class Op>
OwnsOnParts(Op) -> OwnsOnParts<Op>;
