// Squares.
#include "math/fixedTools.h"

namespace {

constexpr auto square = [](auto x) { return elementProduct(x, x); };

constexpr auto scaledSquare = []<class T>(T x, int scaleFactor) {
    if constexpr (Complex<T>)
        return T{scaled<Part<T>>(Wide{x.re} * x.re - Wide{x.im} * x.im, scaleFactor),
                 scaled<Part<T>>(2 * Wide{x.re} * x.im, scaleFactor)};
    else
        return scaled<T>(Wide{x} * x, scaleFactor);
};

} // namespace

TEST(Sqr, squaresFloats)
{
    sweep(square,
          EXPORTS(zelsSqr_32f, zelsSqr_64f, zelsSqr_32fc, zelsSqr_64fc, zelsSqr_32f_I, zelsSqr_64f_I,
                  zelsSqr_32fc_I, zelsSqr_64fc_I, zelsSqr_32f_L, zelsSqr_64f_L, zelsSqr_32fc_L,
                  zelsSqr_64fc_L, zelsSqr_32f_I_L, zelsSqr_64f_I_L, zelsSqr_32fc_I_L, zelsSqr_64fc_I_L),
          {.modes = Modes::roundingAndFlush});
}

TEST(SqrLong, worksInChunks)
{
    sweepLong(square, EXPORTS(zelsSqr_32f_L, zelsSqr_32f_I_L), longChunk<Zel32f> + 1234, {longChunk<Zel32f>});
    sweepLong(square, EXPORTS(zelsSqr_64fc_L), longChunk<Zel64fc> + 1234, {longChunk<Zel64fc>});
}

TEST(Sqr, all16BitInputsByEveryFactor)
{
    checkFactors<Zel8u>(scaledSquare, EXPORTS(zelsSqr_8u_Sfs), factors(-9, 18), everyValue<Zel8u>());
    checkFactors<Zel16s>(scaledSquare, EXPORTS(zelsSqr_16s_Sfs), factors(-17, 32), everyValue<Zel16s>());
    checkFactors<Zel16u>(scaledSquare, EXPORTS(zelsSqr_16u_Sfs), factors(-18, 34), everyValue<Zel16u>());
    std::vector<Zel16sc> pairs;
    for (const Zel16s re : tellingParts())
        for (const Zel16s im : tellingParts())
            pairs.push_back({re, im});
    checkFactors<Zel16sc>(scaledSquare, EXPORTS(zelsSqr_16sc_Sfs), factors(-17, 33), pairs);
}

TEST(Sqr, everyLengthAndAlignment)
{
    for (const int s : {0, 1, 9, -3})
        sweep(scaledSquare,
              EXPORTS(zelsSqr_8u_Sfs, zelsSqr_16s_Sfs, zelsSqr_16u_Sfs, zelsSqr_16sc_Sfs, zelsSqr_8u_ISfs,
                      zelsSqr_16s_ISfs, zelsSqr_16u_ISfs, zelsSqr_16sc_ISfs),
              {.lengths = {257}, .repeats = 1}, s);
}

TEST(Sqr, refusesBadArguments)
{
    badArguments(EXPORTS(zelsSqr_32f, zelsSqr_64f, zelsSqr_32fc, zelsSqr_64fc, zelsSqr_32f_I, zelsSqr_64f_I,
                         zelsSqr_32fc_I, zelsSqr_64fc_I, zelsSqr_8u_Sfs, zelsSqr_16s_Sfs, zelsSqr_16u_Sfs,
                         zelsSqr_16sc_Sfs, zelsSqr_8u_ISfs, zelsSqr_16s_ISfs, zelsSqr_16u_ISfs,
                         zelsSqr_16sc_ISfs),
                 pointersFirst);
    badArguments(EXPORTS(zelsSqr_32f_L, zelsSqr_64f_L, zelsSqr_32fc_L, zelsSqr_64fc_L, zelsSqr_32f_I_L,
                         zelsSqr_64f_I_L, zelsSqr_32fc_I_L, zelsSqr_64fc_I_L),
                 lengthFirst);
}
