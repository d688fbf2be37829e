// Windows that are made of cosines.
#pragma once

#include "generators/window.h"
#include "math/vecMath.h"

inline constexpr Zel64f ownsWindowPi = 3.141592653589793;

/// cos(pi / (len - 1)) and the sine.
inline void ownsWindowHalfStep(int len, Zel64f& sin, Zel64f& cos)
{
    OwnsF2 s, c;
    ownsSinCos(ownsSplat(ownsWindowPi / (len - 1)), s, c);
    sin = s[0];
    cos = c[0];
}

/// V[n] = 1 - cos(n a), a = 2 pi / (len - 1), four at a time. The recurrence C[n + 4] = 2 cos(4a) C[n] - C[n - 4] of the
/// cosines, in differences E[n] = V[n] - V[n - 4]:
///
///     E[n + 4] = E[n] + 4 sin^2(2a) (1 - V[n]),  V[n + 4] = V[n] + E[n + 4]
///
/// With the factor 2 cos(4a) the angles of long windows would be off by epsilon / a^2. V and E begin from products of
/// sines, so that even the smallest values keep their digits.
class OwnsOneLessCosine {
  public:
    OwnsOneLessCosine(Zel64f sinHalf, Zel64f cosHalf)
    {
        const Zel64f sin1 = 2 * sinHalf * cosHalf;
        const Zel64f cos1 = 1 - 2 * sinHalf * sinHalf;
        const Zel64f sin2 = 2 * sin1 * cos1;
        const Zel64f sin3Half = sin1 * cosHalf + cos1 * sinHalf;
        v = {OwnsF2{0, 2 * sinHalf * sinHalf}, OwnsF2{2 * sin1 * sin1, 2 * sin3Half * sin3Half}};
        e = {OwnsF2{-2 * sin2 * sin2, -2 * sin1 * sin2}, OwnsF2{0, 2 * sin1 * sin2}};
        factor = ownsSplat(4 * sin2 * sin2);
    }

    [[gnu::always_inline]] OwnsFour next()
    {
        const OwnsFour value = v;
        e.low = (e.low + factor) - factor * v.low;
        e.high = (e.high + factor) - factor * v.high;
        v.low += e.low;
        v.high += e.high;
        return value;
    }

    static constexpr Zel64f middle = 2;

  private:
    OwnsFour v, e;
    OwnsF2 factor;
};

/// A window that is a polynomial in V, given by its operation on numbers and vectors.
template <class Polynomial>
struct OwnsCosineWindow {
    OwnsOneLessCosine v;
    Polynomial polynomial;

    [[gnu::always_inline]] OwnsFour next()
    {
        const OwnsFour x = v.next();
        return {polynomial(x.low), polynomial(x.high)};
    }
    Zel64f middle() const { return polynomial(OwnsOneLessCosine::middle); }
};
