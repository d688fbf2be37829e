// Scaled sums and differences of integers.
#include "arith/scaledTools.h"

namespace {

/// The exact value of each part by `op`, then the scale-factor rule.
template <class Op>
struct Scaled {
    Op op;
    template <class T>
    T operator()(T a, T b, int scaleFactor) const
    {
        if constexpr (Complex<T>)
            return {(*this)(a.re, b.re, scaleFactor), (*this)(a.im, b.im, scaleFactor)};
        else
            return scaled<T>(op(Wide{a}, Wide{b}), scaleFactor);
    }
};
template <class Op>
Scaled(Op) -> Scaled<Op>;

constexpr Scaled sum{[](Wide a, Wide b) { return a + b; }};
constexpr Scaled difference{[](Wide a, Wide b) { return a - b; }};
constexpr Scaled fromSecond{[](Wide a, Wide b) { return b - a; }};

constexpr auto unscaledSum = [](auto a, auto b) { return saturated<decltype(b)>(Wide{a} + b); };

const auto sums = EXPORTS(zelsAdd_8u_Sfs, zelsAdd_16s_Sfs, zelsAdd_16u_Sfs, zelsAdd_32s_Sfs, zelsAdd_8u_ISfs,
                          zelsAdd_16s_ISfs, zelsAdd_16u_ISfs, zelsAdd_32s_ISfs);
const auto differences = EXPORTS(zelsSub_8u_Sfs, zelsSub_16s_Sfs, zelsSub_16u_Sfs, zelsSub_32s_Sfs,
                                 zelsSub_8u_ISfs, zelsSub_16s_ISfs, zelsSub_16u_ISfs, zelsSub_32s_ISfs);
const auto complexSums = EXPORTS(zelsAdd_16sc_Sfs, zelsAdd_16sc_ISfs, zelsAdd_32sc_Sfs, zelsAdd_32sc_ISfs);
const auto complexDifferences =
    EXPORTS(zelsSub_16sc_Sfs, zelsSub_16sc_ISfs, zelsSub_32sc_Sfs, zelsSub_32sc_ISfs);
const auto plusConstant = EXPORTS(zelsAddC_8u_Sfs, zelsAddC_16s_Sfs, zelsAddC_16u_Sfs, zelsAddC_32s_Sfs,
                                  zelsAddC_8u_ISfs, zelsAddC_16s_ISfs, zelsAddC_16u_ISfs, zelsAddC_32s_ISfs);
const auto lessConstant = EXPORTS(zelsSubC_8u_Sfs, zelsSubC_16s_Sfs, zelsSubC_16u_Sfs, zelsSubC_32s_Sfs,
                                  zelsSubC_8u_ISfs, zelsSubC_16s_ISfs, zelsSubC_16u_ISfs, zelsSubC_32s_ISfs);
const auto constantLess =
    EXPORTS(zelsSubCRev_8u_Sfs, zelsSubCRev_16s_Sfs, zelsSubCRev_16u_Sfs, zelsSubCRev_32s_Sfs,
            zelsSubCRev_8u_ISfs, zelsSubCRev_16s_ISfs, zelsSubCRev_16u_ISfs, zelsSubCRev_32s_ISfs);
const auto plusConstant16sc = EXPORTS(zelsAddC_16sc_Sfs, zelsAddC_16sc_ISfs);
const auto lessConstant16sc = EXPORTS(zelsSubC_16sc_Sfs, zelsSubC_16sc_ISfs);
const auto constantLess16sc = EXPORTS(zelsSubCRev_16sc_Sfs, zelsSubCRev_16sc_ISfs);
const auto plusConstant32sc = EXPORTS(zelsAddC_32sc_Sfs, zelsAddC_32sc_ISfs);
const auto lessConstant32sc = EXPORTS(zelsSubC_32sc_Sfs, zelsSubC_32sc_ISfs);
const auto constantLess32sc = EXPORTS(zelsSubCRev_32sc_Sfs, zelsSubCRev_32sc_ISfs);

} // namespace

TEST(ScaledSums, allPairsOf8Bits)
{
    allPairs("zelsAdd_8u_Sfs", zelsAdd_8u_Sfs, sum, -9, 11);
    allPairs("zelsSub_8u_Sfs", zelsSub_8u_Sfs, fromSecond, -9, 10);
    allPairs("zelsAddC_8u_Sfs", eachConstant(zelsAddC_8u_Sfs), sum, -9, 11);
    allPairs("zelsSubC_8u_Sfs", eachConstant(zelsSubC_8u_Sfs), difference, -9, 10);
    allPairs("zelsSubCRev_8u_Sfs", eachConstant(zelsSubCRev_8u_Sfs), fromSecond, -9, 10);
}

TEST(ScaledSums, all16BitInputs)
{
    const std::initializer_list<Zel16s> constants{-32768, -32767, -256, 0, 3, 16384, 32767};
    allInputs("zelsAddC_16s_Sfs", zelsAddC_16s_Sfs, sum, -17, 18, constants);
    allInputs("zelsSubC_16s_Sfs", zelsSubC_16s_Sfs, difference, -17, 18, constants);
    allInputs("zelsSubCRev_16s_Sfs", zelsSubCRev_16s_Sfs, fromSecond, -17, 18, constants);
    const std::initializer_list<Zel16u> unsignedConstants{0, 3, 32768, 65535};
    allInputs("zelsAddC_16u_Sfs", zelsAddC_16u_Sfs, sum, -17, 19, unsignedConstants);
    allInputs("zelsSubC_16u_Sfs", zelsSubC_16u_Sfs, difference, -17, 18, unsignedConstants);
    allInputs("zelsSubCRev_16u_Sfs", zelsSubCRev_16u_Sfs, fromSecond, -17, 18, unsignedConstants);
}

TEST(ScaledSums, everyFactor)
{
    sweepFactors<Zel16s, Zel16s>(sum, EXPORTS(zelsAdd_16s_Sfs), -18, 19);
    sweepFactors<Zel16s, Zel16s>(fromSecond, EXPORTS(zelsSub_16s_Sfs), -18, 19);
    sweepFactors<Zel16u, Zel16u>(sum, EXPORTS(zelsAdd_16u_Sfs), -18, 19);
    sweepFactors<Zel16u, Zel16u>(fromSecond, EXPORTS(zelsSub_16u_Sfs), -18, 19);
    sweepFactors<Zel32s, Zel32s>(sum, EXPORTS(zelsAdd_32s_Sfs), -33, 35);
    sweepFactors<Zel32s, Zel32s>(fromSecond, EXPORTS(zelsSub_32s_Sfs), -33, 35);
    for (const Zel32s val : {INT32_MIN, -65536, -1, 0, 1, INT32_MAX}) {
        sweepFactors<Zel32s>(sum, EXPORTS(zelsAddC_32s_Sfs), -33, 35, val);
        sweepFactors<Zel32s>(difference, EXPORTS(zelsSubC_32s_Sfs), -33, 35, val);
        sweepFactors<Zel32s>(fromSecond, EXPORTS(zelsSubCRev_32s_Sfs), -33, 35, val);
    }
    const Zel16sc val16{-32768, 3};
    sweepFactors<Zel16sc>(sum, EXPORTS(zelsAddC_16sc_Sfs), -18, 19, val16);
    sweepFactors<Zel16sc>(difference, EXPORTS(zelsSubC_16sc_Sfs), -18, 19, val16);
    sweepFactors<Zel16sc>(fromSecond, EXPORTS(zelsSubCRev_16sc_Sfs), -18, 19, val16);
    const Zel32sc val32{INT32_MAX, INT32_MIN};
    sweepFactors<Zel32sc>(sum, EXPORTS(zelsAddC_32sc_Sfs), -33, 35, val32);
    sweepFactors<Zel32sc>(difference, EXPORTS(zelsSubC_32sc_Sfs), -33, 35, val32);
    sweepFactors<Zel32sc>(fromSecond, EXPORTS(zelsSubCRev_32sc_Sfs), -33, 35, val32);
}

TEST(ScaledSums, everyLengthAndAlignment)
{
    const auto paths = {0, 1, 3, 40, -2, -40};
    sweepPaths(sum, sums, paths);
    sweepPaths(sum, complexSums, paths);
    sweepPaths(fromSecond, differences, paths);
    sweepPaths(fromSecond, complexDifferences, paths);
    sweepPaths(sum, plusConstant, paths, 77);
    sweepPaths(difference, lessConstant, paths, 77);
    sweepPaths(fromSecond, constantLess, paths, 77);
    const Zel16sc val16{1000, -7};
    sweepPaths(sum, plusConstant16sc, paths, val16);
    sweepPaths(difference, lessConstant16sc, paths, val16);
    sweepPaths(fromSecond, constantLess16sc, paths, val16);
    const Zel32sc val32{-70000, 5};
    sweepPaths(sum, plusConstant32sc, paths, val32);
    sweepPaths(difference, lessConstant32sc, paths, val32);
    sweepPaths(fromSecond, constantLess32sc, paths, val32);
}

TEST(ScaledSums, neutralConstants)
{
    // Without a scale factor a copy; in place and with one, as any other constant.
    sweepPaths(sum, EXPORTS(zelsAddC_8u_Sfs, zelsAddC_16s_ISfs, zelsAddC_16u_Sfs, zelsAddC_32s_ISfs), {0, 1},
               0);
    sweepPaths(difference, EXPORTS(zelsSubC_8u_Sfs, zelsSubC_16s_ISfs, zelsSubC_16u_Sfs, zelsSubC_32s_ISfs),
               {0, 1}, 0);
    sweepPaths(fromSecond, EXPORTS(zelsSubCRev_8u_Sfs, zelsSubCRev_8u_ISfs), {0, 1, -20}, 0);
    for (const Zel32sc val : {Zel32sc{0, 0}, Zel32sc{0, 9}, Zel32sc{9, 0}})
        sweepPaths(sum, EXPORTS(zelsAddC_32sc_Sfs, zelsAddC_32sc_ISfs), {0}, val);
}

TEST(ScaledSums, withoutScaleFactor)
{
    sweep(unscaledSum,
          EXPORTS(zelsAdd_16s, zelsAdd_16s_I, zelsAdd_16u, zelsAdd_32u, zelsAdd_32u_I, zelsAdd_16s32s_I));
    sweep([](Zel8u a, Zel8u b) { return a + b; }, EXPORTS(zelsAdd_8u16u));
    sweep([](Zel16s a, Zel16s b) { return saturated<Zel16s>(Wide{b} - a); },
          EXPORTS(zelsSub_16s, zelsSub_16s_I));
    for (const Zel16s val : std::initializer_list<Zel16s>{0, 1, 32767, -32768}) {
        sweep(unscaledSum, EXPORTS(zelsAddC_16s_I), val);
        sweep([](Zel16s x, Zel16s c) { return saturated<Zel16s>(Wide{x} - c); }, EXPORTS(zelsSubC_16s_I),
              val);
    }
}

TEST(ScaledSums, refusesBadArguments)
{
    badArgumentsOf(pointersFirst, sums, differences, plusConstant, lessConstant, constantLess,
                   plusConstant16sc, lessConstant16sc, constantLess16sc, plusConstant32sc, lessConstant32sc,
                   constantLess32sc,
                   EXPORTS(zelsAdd_16s, zelsAdd_16s_I, zelsAdd_16u, zelsAdd_32u, zelsAdd_32u_I, zelsAdd_8u16u,
                           zelsAdd_16s32s_I, zelsSub_16s, zelsSub_16s_I, zelsAddC_16s_I, zelsSubC_16s_I));
    badArgumentsOf(lengthFirst, complexSums, complexDifferences);
}
