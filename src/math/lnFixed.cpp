// Natural logarithms of integers: Ln.
//
// Elements below 1 give the least integer of the type, and the first of them settles the status.
#include "frame/map.h"
#include "frame/scale.h"
#include "math/lookup16.h"
#include "math/vecMath.h"
#include "math/vecMathConst.h"
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

/// In single precision.
struct ByFloats16s {
    OwnsF4 scale;

    explicit ByFloats16s(int scaleFactor) : scale(ownsSplat(static_cast<Zel32f>(1 << -scaleFactor))) {}

    OwnsVec<Zel16s> operator()(OwnsVec<Zel16s> x) const
    {
        const __m128i first = scaled(_mm_cvtepi16_epi32(ownsInt(x)));
        const __m128i second = scaled(_mm_cvtepi16_epi32(_mm_unpackhi_epi64(ownsInt(x), ownsInt(x))));
        return ownsAs<Zel16s>(_mm_packs_epi32(first, second));
    }

  private:
    __m128i scaled(__m128i x) const
    {
        return _mm_cvttps_epi32(ownsRoundedNear(ownsLnOfIntegers(ownsAs<Zel32s>(x)) * scale));
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
        const auto pair = [](Zel32u first, Zel32u second) {
            const __m128d o = _mm_load_sd(reinterpret_cast<const double*>(&octaves[first]));
            return _mm_castpd_ps(_mm_loadh_pd(o, reinterpret_cast<const double*>(&octaves[second])));
        };
        const __m128 o01 = pair(at.first, at.second);
        const __m128 o23 = pair(at.third, at.fourth);
        const auto below = ownsAs<Zel32s>(_mm_shuffle_ps(o01, o23, _MM_SHUFFLE(2, 0, 2, 0)));
        const auto ln = ownsAs<Zel32s>(_mm_shuffle_ps(o01, o23, _MM_SHUFFLE(3, 1, 3, 1)));
        return ownsAs<Zel32s>(_mm_srl_epi32(ownsInt(ln - (x > below)), shift));
    }
};

/// In single precision. What reaches 2^31 overflows to the most negative integer, whose complement is the largest.
struct ByFloats32s {
    OwnsF4 scale;

    /// From 2^32 on all but 0 saturates.
    explicit ByFloats32s(int scaleFactor)
        : scale(ownsSplat(static_cast<Zel32f>(Zel64s{1} << (scaleFactor > -32 ? -scaleFactor : 32))))
    {
    }

    OwnsVec<Zel32s> operator()(OwnsVec<Zel32s> x) const
    {
        const OwnsF4 ln = ownsLnOfIntegers(x) * scale;
        return ownsAs<Zel32s>(_mm_cvttps_epi32(ownsRoundedNear(ln))) ^ (ln >= 0x1p31f);
    }
};

/// The warning of the first element below 1; `bytes` tells in which bytes of the vector there are such elements.
template <class T>
[[gnu::cold, gnu::noinline]] ZelStatus warningOf(OwnsVec<T> x, unsigned bytes)
{
    return x[std::countr_zero(bytes) / static_cast<int>(sizeof(T))] == 0 ? zelWarnLnZero : zelWarnLnNegative;
}

/// A rule for all elements.
template <class T, class Rule>
struct WithBad {
    Rule rule;
    ZelStatus& status;

    OwnsVec<T> operator()(OwnsVec<T> x) const
    {
        const OwnsVec<T> bad = x < 1;
        if (const int bytes = _mm_movemask_epi8(ownsInt(bad)); bytes != 0) [[unlikely]]
            if (status == zelStatusOk)
                status = warningOf<T>(x, static_cast<unsigned>(bytes));
        return rule(x > 1 ? x : OwnsVec<T>{} + 1) | (bad & std::numeric_limits<T>::min());
    }
    OwnsVec<T> part(int n, OwnsVec<T> x) const { return (*this)(ownsFilled(x, n, 1)); }
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
                                   : by(ByFloats16s(scaleFactor));
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
    return scaleFactor >= 0 ? run<shape_32s>(ByOctaves32s(scaleFactor), pSrc, pDst, len)
                            : run<shape_32s>(ByFloats32s(scaleFactor), pSrc, pDst, len);
}

ZelStatus zelsLn_32s_ISfs(Zel32s* pSrcDst, int len, int scaleFactor)
{
    return zelsLn_32s_Sfs(pSrcDst, pSrcDst, len, scaleFactor);
}
