// Natural logarithms of integers: Ln.
//
// Elements below 1 give the least integer of the type, and the first of them settles the status.
#include "frame/map.h"
#include "frame/roundingMode.h"
#include "frame/scale.h"
#include "math/lookup16.h"
#include "math/vecMathConst.h"
#include "math/vecMathTypes.h"
#include "zels.h"

#include <array>
#include <bit>
#include <limits>
#include <utility>

namespace {

using namespace owns_detail;

/// e^(power + 1/2).
constexpr Wide powerAndHalf(int power)
{
    Wide x = wideRootOfE;
    for (int n = 0; n < power; n++)
        x = x * wideE;
    return x;
}
constexpr Wide powerOfE(int power)
{
    Wide x = wideE;
    for (int n = 1; n < power; n++)
        x = x * wideE;
    return x;
}

/// The largest integers below e^(2^scaleFactor (n - 1/2)), n = 1, 2, ...: where round(ln(x) / 2^scaleFactor) takes
/// a step. None of the powers is an integer.
constexpr Zel64u below(int n, int scaleFactor)
{
    return wholeOf(scaleFactor == 0 ? powerAndHalf(n - 1) : powerOfE((2 * n - 1) << (scaleFactor - 1))).whole;
}

/// How many steps of a scale factor lie within 16 bits.
constexpr int stepsWithin16(int scaleFactor)
{
    int count = 0;
    while (below(count + 1, scaleFactor) < INT16_MAX)
        count++;
    return count;
}

/// For each power of two, the nearest integer to its logarithm, and the only step before the next power: steps
/// lie a factor of e apart.
struct Octave {
    Zel32s below;
    Zel32s ln;
};
constexpr auto octaves = [] {
    std::array<Octave, 32> all{};
    int n = 0;
    for (int k = 0; k < 32; k++) {
        const Zel64u next = below(n + 1, 0);
        const bool within = next < Zel64u{2} << k && next < INT32_MAX;
        all[static_cast<unsigned>(k)] = {within ? static_cast<Zel32s>(next) : INT32_MAX, n};
        n += within;
    }
    return all;
}();

/// The intervals of m, 0.499 <= m < 1.996: a number of at most 12 bits close to the inverse of the middle, and the
/// negative logarithm of that number. 1 is the middle of its interval, and there both are exact.
struct Interval {
    Zel32f inverse;
    Zel32f ln;
};
constexpr Zel32u firstInterval = 0x3eff8000u;
constexpr auto intervals = [] {
    std::array<Interval, 256> all{};
    for (Zel32u i = 0; i < all.size(); i++) {
        constexpr Zel32u one = 1u << 11;
        const Zel32u middle = i < 128 ? 128 + i : 2 * i; // in units of 2^-8
        const Zel32u inverse = (256 * one + middle / 2) / middle;
        const Zel32u excess = inverse > one ? inverse - one : one - inverse;
        const Zel64f ln = rounded(atanhFraction(fraction(excess, inverse + one)), -127, 24);
        all[i] = {static_cast<Zel32f>(inverse) / one, static_cast<Zel32f>(inverse > one ? -ln : ln)};
    }
    return all;
}();

/// Entries of two parts for four lanes.
struct Found {
    __m128 first, second;
};
template <class Entry>
Found found(const Entry& a, const Entry& b, const Entry& c, const Entry& d)
{
    const auto pair = [](const Entry& low, const Entry& high) {
        const __m128d first = _mm_load_sd(reinterpret_cast<const double*>(&low));
        return _mm_castpd_ps(_mm_loadh_pd(first, reinterpret_cast<const double*>(&high)));
    };
    const __m128 ab = pair(a, b);
    const __m128 cd = pair(c, d);
    return {_mm_shuffle_ps(ab, cd, 0x88), _mm_shuffle_ps(ab, cd, 0xDD)};
}

/// ln(x) * 2^(-scaleFactor) of integers from 1 on in single precision, within one unit and a quarter of the last
/// place; from 2^32 on as by 2^32, which brings all but 0 beyond 32 bits. To be run in the rounding mode to nearest.
class ScaledLn {
    // Repeated over the lanes here, and not for each vector of elements anew.
    OwnsF4 scale, perExponent;
    OwnsF4 one = ownsAll(1.0f), half = ownsAll(0.5f);

  public:
    explicit ScaledLn(int scaleFactor)
        : scale(ownsSplat(static_cast<Zel32f>(Zel64s{1} << (scaleFactor > -32 ? -scaleFactor : 32)))),
          // ln(4), within 4e-9.
          perExponent(scale * 0x1.62e43p-24f)
    {
    }

    OwnsF4 operator()(OwnsVec<Zel32s> x) const
    {
        // x = 4^k m, and m = (1 + r) / inverse with |r| < 0.0044: the product is exact up to 4096, and what the
        // cube of r would add, less than 2^-25, is less than a tenth of a unit above.
        const OwnsU4 bits = ownsBits(OwnsF4{_mm_cvtepi32_ps(ownsInt(x))});
        const OwnsU4 fromFirst = bits - firstInterval;
        const OwnsU4 k24 = fromFirst & 0xff000000u;
        OwnsU4 memory = fromFirst;
        asm("" : "+m"(memory));
        const auto* byte = reinterpret_cast<const Zel8u*>(&memory);
        const auto [inverse, ln] =
            found(intervals[byte[2]], intervals[byte[6]], intervals[byte[10]], intervals[byte[14]]);
        const OwnsF4 r = ownsFromBits(bits - k24) * OwnsF4(inverse) - one;
        return OwnsF4(_mm_cvtepi32_ps(ownsInt(k24))) * perExponent +
               (OwnsF4(ln) + r * (one - r * half)) * scale;
    }
};

// Each rule below gives the logarithm of elements from 1 on.

/// Counts the steps up to x: for scale factors from 0 to 4.
template <int scaleFactor>
struct BySteps16s {
    OwnsVec<Zel16s> operator()(OwnsVec<Zel16s> x) const
    {
        return [x]<int... i>(std::integer_sequence<int, i...>)
        {
            return -(... + (x > static_cast<Zel16s>(below(i + 1, scaleFactor))));
        }
        (std::make_integer_sequence<int, stepsWithin16(scaleFactor)>{});
    }
};

/// In factors above 4 all logarithms round to 0, and from -14 on down those above 7 saturate.
constexpr OwnsLookup16s lookup16s(const std::array<Zel16s, 6>& fromTwo, Zel32s rest)
{
    OwnsLookup16s table{};
    for (int x = 0; x < 16; x++)
        table.set(x, x < 2 ? 0 : x < 8 ? fromTwo[static_cast<unsigned>(x - 2)] : rest);
    return table;
}
constexpr Zel16s most = INT16_MAX;
constexpr OwnsLookup16s vanished16s = lookup16s({}, 0);
constexpr OwnsLookup16s times2To14 = lookup16s({11357, 18000, 22713, 26369, 29356, 31882}, most);
constexpr OwnsLookup16s times2To15 = lookup16s({22713, most, most, most, most, most}, most);
constexpr OwnsLookup16s saturated16s = lookup16s({most, most, most, most, most, most}, most);

struct ByFloats16s {
    ScaledLn ln;

    OwnsVec<Zel16s> operator()(OwnsVec<Zel16s> x) const
    {
        const auto scaled = [this](__m128i four) { return _mm_cvtps_epi32(ln(ownsAs<Zel32s>(four))); };
        const __m128i zero = _mm_setzero_si128();
        return ownsAs<Zel16s>(_mm_packs_epi32(scaled(_mm_unpacklo_epi16(ownsInt(x), zero)),
                                              scaled(_mm_unpackhi_epi16(ownsInt(x), zero))));
    }
};

/// The nearest integers, then shifted: so the quotient is truncated, on purpose.
struct ByOctaves32s {
    __m128i shift;

    explicit ByOctaves32s(int scaleFactor) : shift(_mm_cvtsi32_si128(scaleFactor & 31)) {}

    OwnsVec<Zel32s> operator()(OwnsVec<Zel32s> x) const
    {
        // An integer that is rounded up to a power of two as a float is above the last step before it.
        const OwnsU4 k = (ownsBits(OwnsF4{_mm_cvtepi32_ps(ownsInt(x))}) >> 23) - 127;
        const OwnsQuad32 at = ownsThroughMemory(k);
        const auto [below, ln] =
            found(octaves[at.first], octaves[at.second], octaves[at.third], octaves[at.fourth]);
        return ownsAs<Zel32s>(
            _mm_srl_epi32(ownsInt(ownsAs<Zel32s>(ln) - (x > ownsAs<Zel32s>(below))), shift));
    }
};

/// What reaches 2^31 overflows to the most negative integer, as an unsigned number one more than the largest.
struct ByFloats32s {
    ScaledLn ln;

    OwnsVec<Zel32s> operator()(OwnsVec<Zel32s> x) const
    {
        return ownsAs<Zel32s>(_mm_min_epu32(_mm_cvtps_epi32(ln(x)), _mm_set1_epi32(INT32_MAX)));
    }
};

/// A rule for all elements.
template <class T, class Rule>
struct WithBad {
    Rule rule;
    ZelStatus& status;

    OwnsVec<T> operator()(OwnsVec<T> x) const
    {
        if (const int good = _mm_movemask_epi8(ownsInt(x > 0)); good != 0xFFFF) [[unlikely]]
            return withBad(rule, status, x, static_cast<unsigned>(good));
        return rule(x);
    }
    OwnsVec<T> part(int n, OwnsVec<T> x) const { return (*this)(ownsFilled(x, n, 1)); }

  private:
    /// `good` tells in which bytes of the vector there are elements from 1 on.
    [[gnu::noinline]] static OwnsVec<T> withBad(const Rule& rule, ZelStatus& status, OwnsVec<T> x,
                                                unsigned good)
    {
        if (status == zelStatusOk)
            status = x[std::countr_one(good) / static_cast<int>(sizeof(T))] == 0 ? zelWarnLnZero
                                                                                 : zelWarnLnNegative;
        return rule(x > 1 ? x : OwnsVec<T>{} + 1) | ((x < 1) & std::numeric_limits<T>::min());
    }
};

template <OwnsShape shape, class T, class Rule>
[[gnu::noinline]] ZelStatus run(Rule rule, const T* pSrc, T* pDst, int len)
{
    ZelStatus status = zelStatusOk;
    ownsMap<shape>(WithBad<T, Rule>{rule, status}, pDst, len, pSrc);
    return status;
}

} // namespace

ZelStatus zelsLn_16s_Sfs(const Zel16s* pSrc, Zel16s* pDst, int len, int scaleFactor)
{
    if (const ZelStatus status = ownsCheck(len, pSrc, pDst); status != zelStatusOk)
        return status;
    const OwnsNearestMode mode(scaleFactor < 0);
    const auto by = [=](auto rule) { return run<shape_16s>(rule, pSrc, pDst, len); };
    switch (scaleFactor) {
    case 0:
        return by(BySteps16s<0>{});
    case 1:
        return by(BySteps16s<1>{});
    case 2:
        return by(BySteps16s<2>{});
    case 3:
        return by(BySteps16s<3>{});
    case 4:
        return by(BySteps16s<4>{});
    case -14:
        return by(OwnsLooker16s(times2To14, 0));
    case -15:
        return by(OwnsLooker16s(times2To15, 0));
    default:
        return scaleFactor > 4     ? by(OwnsLooker16s(vanished16s, 0))
               : scaleFactor < -15 ? by(OwnsLooker16s(saturated16s, 0))
                                   : by(ByFloats16s{ScaledLn(scaleFactor)});
    }
}

ZelStatus zelsLn_16s_ISfs(Zel16s* pSrcDst, int len, int scaleFactor)
{
    return zelsLn_16s_Sfs(pSrcDst, pSrcDst, len, scaleFactor);
}

ZelStatus zelsLn_32s_Sfs(const Zel32s* pSrc, Zel32s* pDst, int len, int scaleFactor)
{
    if (const ZelStatus status = ownsCheck(len, pSrc, pDst); status != zelStatusOk)
        return status;
    const OwnsNearestMode mode(scaleFactor < 0);
    return scaleFactor >= 0 ? run<shape_32s>(ByOctaves32s(scaleFactor), pSrc, pDst, len)
                            : run<shape_32s>(ByFloats32s{ScaledLn(scaleFactor)}, pSrc, pDst, len);
}

ZelStatus zelsLn_32s_ISfs(Zel32s* pSrcDst, int len, int scaleFactor)
{
    return zelsLn_32s_Sfs(pSrcDst, pSrcDst, len, scaleFactor);
}
