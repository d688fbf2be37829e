// Exponentials of integers: Exp.
//
// With a given scale factor, results between 0 and saturation belong to few arguments in a row, so the whole
// function is a short table. There is one for each scale factor modulo 128, on which alone the result depends.
// The tables come out as double precision has it: no value lies closer to where rounding turns than 2^-41 of
// itself, but for exp(0) / 2, which goes up.
#include "frame/entry.h"
#include "frame/map.h"
#include "math/lookup16.h"
#include "math/vecMathConst.h"
#include "math/vecMathTypes.h"
#include "zels.h"

#include <algorithm>
#include <array>

namespace {

using namespace owns_detail;

constexpr int factors = 127; // either way

/// e^n for all arguments of the tables.
constexpr int leastArgument = -90;
constexpr int mostArgument = 113;
constexpr auto powersOfE = [] {
    std::array<Wide, mostArgument - leastArgument + 1> powers{};
    Wide* const one = &powers[-leastArgument];
    *one = {U128{1} << 127, -127};
    for (int n = 1; n <= mostArgument; n++)
        one[n] = one[n - 1] * wideE;
    for (int n = -1; n >= leastArgument; n--)
        one[n] = one[n + 1] * widePerE;
    return powers;
}();

/// min(most, floor(e^n * 2^-scaleFactor + 1/2)).
constexpr Zel32s scaledPower(int n, int scaleFactor, Zel32s most)
{
    const Wide e = powersOfE[static_cast<unsigned>(n - leastArgument)];
    const Wide x{e.mantissa, e.exponent - scaleFactor};
    if (x.exponent > -97) // 2^31 or more
        return most;
    const WholeAndHalf parts = wholeOf(x);
    const Zel64u rounded = parts.whole + parts.half;
    return rounded > static_cast<Zel64u>(most) ? most : static_cast<Zel32s>(rounded);
}

/// The last argument whose result is 0.
constexpr int lastZero(int scaleFactor)
{
    int n = scaleFactor * 693 / 1000 - 2;
    while (scaledPower(n + 1, scaleFactor, 1) == 0)
        n++;
    return n;
}

/// Results from the last 0 on up to saturation: of 16 bits at most 12 lie between, of 32 bits at most 23.
constexpr int count32s = 25;
struct Results32s {
    Zel32s result[count32s];
};

template <class Results, class Fill>
constexpr auto makeTables(Fill fill)
{
    std::array<Results, 2 * factors + 1> tables{};
    for (int factor = -factors; factor <= factors; factor++)
        fill(tables[static_cast<unsigned>(factor + factors)], factor, lastZero(factor));
    return tables;
}

constexpr auto firstArguments =
    makeTables<Zel16s>([](Zel16s& first, int, int zero) { first = static_cast<Zel16s>(zero); });
constexpr auto tables16s = makeTables<OwnsLookup16s>([](OwnsLookup16s& table, int factor, int zero) {
    for (int i = 0; i < 16; i++)
        table.set(i, scaledPower(zero + i, factor, INT16_MAX));
});
constexpr auto tables32s = makeTables<Results32s>([](Results32s& table, int factor, int zero) {
    for (int i = 0; i < count32s; i++)
        table.result[i] = scaledPower(zero + i, factor, INT32_MAX);
});

static_assert(
    [] {
        const auto ends16s = [](const OwnsLookup16s& table) { return table.get(15) == INT16_MAX; };
        const auto ends32s = [](const Results32s& table) { return table.result[count32s - 1] == INT32_MAX; };
        return std::ranges::all_of(tables16s, ends16s) && std::ranges::all_of(tables32s, ends32s);
    }(),
    "each table ends in saturation");

/// Scale factors count modulo 128, towards 0.
unsigned tableOf(int scaleFactor)
{
    return static_cast<unsigned>(scaleFactor % 128 + factors);
}

class Exp32s {
    const Zel32s* result;
    __m128i first, last;

  public:
    explicit Exp32s(int scaleFactor)
    {
        const unsigned table = tableOf(scaleFactor);
        result = tables32s[table].result;
        first = _mm_set1_epi32(firstArguments[table]);
        last = _mm_add_epi32(first, _mm_set1_epi32(count32s - 1));
    }

    OwnsVec<Zel32s> operator()(OwnsVec<Zel32s> x) const
    {
        const __m128i index = _mm_sub_epi32(_mm_min_epi32(_mm_max_epi32(ownsInt(x), first), last), first);
        const OwnsQuad32 at = ownsThroughMemory(ownsAs<Zel32u>(index));
        return OwnsVec<Zel32s>{result[at.first], result[at.second], result[at.third], result[at.fourth]};
    }
};

} // namespace

ZelStatus zelsExp_16s_Sfs(const Zel16s* pSrc, Zel16s* pDst, int len, int scaleFactor)
{
    const unsigned table = tableOf(scaleFactor);
    return ownsRun<shape_16s>(OwnsLooker16s(tables16s[table], firstArguments[table]), pDst, len, pSrc);
}

ZelStatus zelsExp_16s_ISfs(Zel16s* pSrcDst, int len, int scaleFactor)
{
    return zelsExp_16s_Sfs(pSrcDst, pSrcDst, len, scaleFactor);
}

ZelStatus zelsExp_32s_Sfs(const Zel32s* pSrc, Zel32s* pDst, int len, int scaleFactor)
{
    // The destination may overlap the source. Where it begins before the source, vectors do; where it begins
    // behind, results are arguments of later elements, one by one.
    const Exp32s exp(scaleFactor);
    const ZelSize ahead = reinterpret_cast<const char*>(pDst) - reinterpret_cast<const char*>(pSrc);
    if (pSrc && pDst && ahead > 0 && ahead < ZelSize{4} * len) [[unlikely]] {
        for (int i = 0; i < len; i++)
            ownsStorePart(pDst + i, exp(ownsLoadPart(pSrc + i, 1)), 1);
        return zelStatusOk;
    }
    return ownsRun<shape_32s>(exp, pDst, len, pSrc);
}

ZelStatus zelsExp_32s_ISfs(Zel32s* pSrcDst, int len, int scaleFactor)
{
    return zelsExp_32s_Sfs(pSrcDst, pSrcDst, len, scaleFactor);
}
