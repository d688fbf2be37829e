// Kaiser windows.
#include "generators/window.h"
#include "math/vecMath.h"
#include "zels.h"

#include <cmath>

namespace {

/// Even and odd powers side by side, which halves the wait; the coefficients from the lowest power on.
template <int n>
[[gnu::always_inline]] inline OwnsF2 polynomial(const Zel64f (&c)[n], OwnsF2 t)
{
    const OwnsF2 square = t * t;
    OwnsF2 even = ownsSplat(c[(n - 1) & ~1]);
    OwnsF2 odd = ownsSplat(c[((n - 2) & ~1) + 1]);
    ownsEach<(n - 1) / 2>([&](int k) { even = even * square + ownsSplat(c[((n - 3) & ~1) - 2 * k]); });
    ownsEach<n / 2 - 1>([&](int k) { odd = odd * square + ownsSplat(c[((n - 4) & ~1) + 1 - 2 * k]); });
    return even + odd * t;
}

/// I0(x) for x below 4, in t = (x/4)^2.
constexpr Zel64f besselSmall[]{0.9999999985, 4.0000001935, 3.9999959541, 1.777809969,
                               0.4443189384, 0.0713758187, 0.0075942968, 0.0008267816};
/// I0(x) sqrt(x) / exp(x) for x of 4 and more, in 4/x.
constexpr Zel64f besselLarge[]{0.3989422809,  0.0124667783,  0.0017623668,  0.00026,      0.0022585672,
                               -0.0128314822, 0.0495811118,  -0.1209940805, 0.1895476618, -0.1867783276,
                               0.1113315511,  -0.0366694767, 0.0051246015};

/// I0(4 sqrt(t)).
[[gnu::always_inline]] inline OwnsF2 bessel0(OwnsF2 t)
{
    const int small = _mm_movemask_pd(_mm_cmplt_pd(t, ownsSplat(1.0)));
    if (small == 3)
        return polynomial(besselSmall, t);
    const OwnsF2 in = _mm_max_pd(ownsSplat(1.0), t);
    const OwnsF2 root = _mm_sqrt_pd(in);
    const OwnsF2 inverse = 1.0 / root;
    // 1 / sqrt(x) is half the root of 4/x.
    const OwnsF2 large =
        ownsExp(root * 4.0) * (_mm_sqrt_pd(inverse) * 0.5) * polynomial(besselLarge, inverse);
    if (small == 0)
        return large;
    return _mm_blendv_pd(large, polynomial(besselSmall, t), _mm_cmplt_pd(t, ownsSplat(1.0)));
}

/// m^2 - (n - m)^2 is n (len - 1 - n).
class Kaiser {
  public:
    Kaiser(int len, Zel64f alpha) : last(ownsSplat(len - 1.0))
    {
        const Zel64f m = 0.5 * (len - 1);
        quarter = ownsSplat(0.25 * alpha);
        const OwnsF2 edge = quarter * ownsSplat(m);
        inverse = 1.0 / bessel0(edge * edge);
    }

    [[gnu::always_inline]] OwnsFour next()
    {
        const OwnsFour w{at(n.low), at(n.high)};
        n = {n.low + 4.0, n.high + 4.0};
        return w;
    }
    static Zel64f middle() { return 1; }

  private:
    [[gnu::always_inline]] OwnsF2 at(OwnsF2 k) const
    {
        return bessel0((quarter * k) * (quarter * (last - k))) * inverse;
    }

    OwnsFour n{OwnsF2{0, 1}, OwnsF2{2, 3}};
    OwnsF2 last, quarter, inverse;
};

template <class T>
ZelStatus runKaiser(const T* pSrc, T* pDst, int len, Zel64f alpha)
{
    if (const ZelStatus status = ownsCheck(len, pSrc, pDst); status != zelStatusOk)
        return status;
    // I0 within the exponents of the type that computes; 16-bit data takes doubles.
    constexpr Zel64f limit = std::is_same_v<OwnsPart<T>, Zel32f> ? 38 : 308;
    if (0.5 * (len - 1) * std::fabs(alpha) > limit)
        return zelErrKaiserAlpha;
    if (len == 1)
        ownsPut(pDst, ownsGet(pSrc));
    else
        ownsApplyWindow(Kaiser(len, alpha), pSrc, pDst, len);
    return zelStatusOk;
}

} // namespace

ZelStatus zelsWinKaiser_16s(const Zel16s* pSrc, Zel16s* pDst, int len, Zel32f alpha)
{
    return runKaiser(pSrc, pDst, len, alpha);
}

ZelStatus zelsWinKaiser_16s_I(Zel16s* pSrcDst, int len, Zel32f alpha)
{
    return zelsWinKaiser_16s(pSrcDst, pSrcDst, len, alpha);
}

ZelStatus zelsWinKaiser_16sc(const Zel16sc* pSrc, Zel16sc* pDst, int len, Zel32f alpha)
{
    return runKaiser(pSrc, pDst, len, alpha);
}

ZelStatus zelsWinKaiser_16sc_I(Zel16sc* pSrcDst, int len, Zel32f alpha)
{
    return zelsWinKaiser_16sc(pSrcDst, pSrcDst, len, alpha);
}

ZelStatus zelsWinKaiser_32f(const Zel32f* pSrc, Zel32f* pDst, int len, Zel32f alpha)
{
    return runKaiser(pSrc, pDst, len, alpha);
}

ZelStatus zelsWinKaiser_32f_I(Zel32f* pSrcDst, int len, Zel32f alpha)
{
    return zelsWinKaiser_32f(pSrcDst, pSrcDst, len, alpha);
}

ZelStatus zelsWinKaiser_32fc(const Zel32fc* pSrc, Zel32fc* pDst, int len, Zel32f alpha)
{
    return runKaiser(pSrc, pDst, len, alpha);
}

ZelStatus zelsWinKaiser_32fc_I(Zel32fc* pSrcDst, int len, Zel32f alpha)
{
    return zelsWinKaiser_32fc(pSrcDst, pSrcDst, len, alpha);
}

ZelStatus zelsWinKaiser_64f(const Zel64f* pSrc, Zel64f* pDst, int len, Zel64f alpha)
{
    return runKaiser(pSrc, pDst, len, alpha);
}

ZelStatus zelsWinKaiser_64f_I(Zel64f* pSrcDst, int len, Zel64f alpha)
{
    return zelsWinKaiser_64f(pSrcDst, pSrcDst, len, alpha);
}

ZelStatus zelsWinKaiser_64fc(const Zel64fc* pSrc, Zel64fc* pDst, int len, Zel64f alpha)
{
    return runKaiser(pSrc, pDst, len, alpha);
}

ZelStatus zelsWinKaiser_64fc_I(Zel64fc* pSrcDst, int len, Zel64f alpha)
{
    return zelsWinKaiser_64fc(pSrcDst, pSrcDst, len, alpha);
}
