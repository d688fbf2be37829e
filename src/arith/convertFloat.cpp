// Conversion from floats to integers.
#include "arith/convertFloat.h"
#include "zels.h"

#include <limits>

namespace {

template <class D>
inline constexpr OwnsShape shape = sizeof(D) == 1   ? shape_8u
                                   : sizeof(D) == 2 ? shape_16s
                                                    : shape_32s;

/// Floats to D, scaled by `scale`, rounded by Round.
template <class D, class Scale, class Round>
struct Narrow {
    static constexpr OwnsCode code = OwnsCode::compact;
    Scale scale;

    static constexpr auto limit = std::numeric_limits<D>::max();

    template <int n>
    [[gnu::always_inline]] OwnsVec<D> operator()(OwnsVecs<Zel32f, n> x) const
    {
        __m128i integers[n];
        ownsEach<n>([&](int k) { integers[k] = Round::integers(ownsBounded(scale(x.v[k]), limit)); });
        return ownsPacked<D>(integers);
    }
    template <int n>
    [[gnu::always_inline]] OwnsVec<D> operator()(OwnsVecs<Zel64f, n> x) const
    {
        __m128i integers[n / 2];
        ownsEach<n / 2>([&](int k) {
            integers[k] = ownsIntegers<Round>(ownsBounded(scale(x.v[2 * k]), limit),
                                              ownsBounded(scale(x.v[2 * k + 1]), limit));
        });
        return ownsPacked<D>(integers);
    }
};

// No float holds the largest 32-bit integer, nor a double the largest of 64 bits. What reaches the power of
// two above it overflows to the most negative integer, whose complement is the largest.

template <class Scale, class Round>
struct Narrow32f32s {
    Scale scale;
    OwnsVec<Zel32s> operator()(OwnsVec<Zel32f> v) const
    {
        const OwnsVec<Zel32f> x = scale(v);
        return ownsAs<Zel32s>(Round::integers(x)) ^ (x >= 0x1p31f);
    }
};

template <class Scale, class Round>
struct Narrow64f64s {
    static constexpr OwnsCode code = OwnsCode::compact;
    Scale scale;
    OwnsVec<Zel64s> operator()(OwnsVec<Zel64f> v) const
    {
        const OwnsVec<Zel64f> x = scale(v);
        const __m128i integers = _mm_set_epi64x(Round::integer(_mm_unpackhi_pd(x, x)), Round::integer(x));
        return ownsAs<Zel64s>(integers) ^ (x >= 0x1p63);
    }
};

template <template <class, class> class Op, class D, class F>
[[gnu::always_inline]] inline ZelStatus runWith(const F* pSrc, D* pDst, int len, ZelRoundMode rnd,
                                                int scaleFactor)
{
    if (const ZelStatus status = ownsCheck(len, pSrc, pDst); status != zelStatusOk)
        return status;
    ownsWithRounding(rnd, [=](auto round) {
        ownsWithFloatScale<F>(scaleFactor, [=](auto scale) {
            ownsMap<shape<D>>(Op<decltype(scale), decltype(round)>{scale}, pDst, len, pSrc);
        });
    });
    return zelStatusOk;
}

template <class D>
struct To {
    template <class Scale, class Round>
    using Op = Narrow<D, Scale, Round>;
};

template <class D, class F>
[[gnu::always_inline]] inline ZelStatus run(const F* pSrc, D* pDst, int len, ZelRoundMode rnd,
                                            int scaleFactor)
{
    return runWith<To<D>::template Op>(pSrc, pDst, len, rnd, scaleFactor);
}

} // namespace

ZelStatus zelsConvert_32f8s_Sfs(const Zel32f* pSrc, Zel8s* pDst, int len, ZelRoundMode rnd, int scaleFactor)
{
    return run(pSrc, pDst, len, rnd, scaleFactor);
}

ZelStatus zelsConvert_32f8u_Sfs(const Zel32f* pSrc, Zel8u* pDst, int len, ZelRoundMode rnd, int scaleFactor)
{
    return run(pSrc, pDst, len, rnd, scaleFactor);
}

ZelStatus zelsConvert_32f16s_Sfs(const Zel32f* pSrc, Zel16s* pDst, int len, ZelRoundMode rnd, int scaleFactor)
{
    return run(pSrc, pDst, len, rnd, scaleFactor);
}

ZelStatus zelsConvert_32f16u_Sfs(const Zel32f* pSrc, Zel16u* pDst, int len, ZelRoundMode rnd, int scaleFactor)
{
    return run(pSrc, pDst, len, rnd, scaleFactor);
}

ZelStatus zelsConvert_32f32s_Sfs(const Zel32f* pSrc, Zel32s* pDst, int len, ZelRoundMode rnd, int scaleFactor)
{
    return runWith<Narrow32f32s>(pSrc, pDst, len, rnd, scaleFactor);
}

ZelStatus zelsConvert_64f8s_Sfs(const Zel64f* pSrc, Zel8s* pDst, int len, ZelRoundMode rnd, int scaleFactor)
{
    return run(pSrc, pDst, len, rnd, scaleFactor);
}

ZelStatus zelsConvert_64f8u_Sfs(const Zel64f* pSrc, Zel8u* pDst, int len, ZelRoundMode rnd, int scaleFactor)
{
    return run(pSrc, pDst, len, rnd, scaleFactor);
}

ZelStatus zelsConvert_64f16s_Sfs(const Zel64f* pSrc, Zel16s* pDst, int len, ZelRoundMode rnd, int scaleFactor)
{
    return run(pSrc, pDst, len, rnd, scaleFactor);
}

ZelStatus zelsConvert_64f16u_Sfs(const Zel64f* pSrc, Zel16u* pDst, int len, ZelRoundMode rnd, int scaleFactor)
{
    return run(pSrc, pDst, len, rnd, scaleFactor);
}

ZelStatus zelsConvert_64f32s_Sfs(const Zel64f* pSrc, Zel32s* pDst, int len, ZelRoundMode rnd, int scaleFactor)
{
    return run(pSrc, pDst, len, rnd, scaleFactor);
}

ZelStatus zelsConvert_64f64s_Sfs(const Zel64f* pSrc, Zel64s* pDst, int len, ZelRoundMode rnd, int scaleFactor)
{
    return runWith<Narrow64f64s>(pSrc, pDst, len, rnd, scaleFactor);
}
