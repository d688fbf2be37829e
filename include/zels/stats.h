/** @file
 *  Statistics: sums, means, deviations, dot products, norms, extrema, searching and counting.
 */
#ifndef ZELS_STATS_H
#define ZELS_STATS_H

#include "zels/types.h"

#ifdef __cplusplus
extern "C" {
#endif

/** @defgroup sums Sums, means and dot products
 *  One vector, or a pair of vectors, reduced to one value. Wherever floats are added the order of the
 * additions is fixed, so that a result can be repeated to the bit; it may depend on the alignment of the data
 * to 16 bytes. Float results follow the caller's rounding mode; an overflow gives infinity, a NaN makes the
 * sum NaN. Scaled results saturate without a warning.
 *  @{
 */

/** @name Sum
 *  `sum(pSrc[n])`.
 *  Single precision has two paths. The accurate one adds in double precision and rounds once. The fast one
 *  (#zelHintFast) adds blocks of 32,768 components in single precision, sixteen running sums each, and the
 *  blocks in double precision: its error is below 2,060 single-precision roundings of the sum of magnitudes
 * of a block. Doubles are added in eight running sums. Integers are summed exactly, multiplied by
 *  `2^(-scaleFactor)` and saturated: the 16-bit forms round as the caller's mode says and saturate to 32 bits
 * first, zelsSum_32s_Sfs rounds to nearest, ties to even.
 *  @param pSrc source
 *  @param len length in elements
 *  @param pSum where the sum goes
 *  @param hint #zelHintFast for the fast path, any other value for the accurate one
 *  @param scaleFactor scale factor, any value
 *  @return #zelErrNullPtr for a null pointer, else #zelErrSize for a length below 1, else #zelStatusOk
 *  @{
 */
ZELS_API ZelStatus zelsSum_32f(const Zel32f* pSrc, int len, Zel32f* pSum, ZelHintAlgorithm hint);
ZELS_API ZelStatus zelsSum_32f_L(const Zel32f* pSrc, ZelSize len, Zel32f* pSum, ZelHintAlgorithm hint);
ZELS_API ZelStatus zelsSum_32fc(const Zel32fc* pSrc, int len, Zel32fc* pSum, ZelHintAlgorithm hint);
ZELS_API ZelStatus zelsSum_32fc_L(const Zel32fc* pSrc, ZelSize len, Zel32fc* pSum, ZelHintAlgorithm hint);
ZELS_API ZelStatus zelsSum_64f(const Zel64f* pSrc, int len, Zel64f* pSum);
ZELS_API ZelStatus zelsSum_64f_L(const Zel64f* pSrc, ZelSize len, Zel64f* pSum);
ZELS_API ZelStatus zelsSum_64fc(const Zel64fc* pSrc, int len, Zel64fc* pSum);
ZELS_API ZelStatus zelsSum_64fc_L(const Zel64fc* pSrc, ZelSize len, Zel64fc* pSum);
ZELS_API ZelStatus zelsSum_16s_Sfs(const Zel16s* pSrc, int len, Zel16s* pSum, int scaleFactor);
ZELS_API ZelStatus zelsSum_16s32s_Sfs(const Zel16s* pSrc, int len, Zel32s* pSum, int scaleFactor);
ZELS_API ZelStatus zelsSum_16sc_Sfs(const Zel16sc* pSrc, int len, Zel16sc* pSum, int scaleFactor);
ZELS_API ZelStatus zelsSum_16sc32sc_Sfs(const Zel16sc* pSrc, int len, Zel32sc* pSum, int scaleFactor);
ZELS_API ZelStatus zelsSum_32s_Sfs(const Zel32s* pSrc, int len, Zel32s* pSum, int scaleFactor);
/** @} */

/** @name Mean
 *  `sum(pSrc[n]) / len`, from the sums above.
 *  The forms round in different places. zelsMean_32f rounds the sum to single precision, divides in double
 *  precision and rounds again; zelsMean_32f_L and zelsMean_32fc_L divide, or multiply by the reciprocal of
 * the length, wholly in single precision; zelsMean_32fc multiplies the unrounded sum by the reciprocal in
 * double precision and rounds once. zelsMean_64f divides, zelsMean_64fc multiplies by the reciprocal. The
 * 16-bit forms divide and scale in double precision and round as the caller's mode says.
 *
 *  zelsMean_32s_Sfs works in integers: the exact sum is divided to the nearest integer, ties to even. A
 * positive scale factor, taken modulo 64, then shifts the magnitude right after the bit below the last one
 * kept has been added as one unit (6 with factor 2 gives 1, 7 gives 2). A factor from -31 to -1 shifts a sum
 * that fits 32 bits before the division, so that the fraction of the mean survives, and the rounded mean
 * otherwise; a lower factor saturates any mean but 0.
 *  @param pSrc source
 *  @param len length in elements
 *  @param pMean where the mean goes
 *  @param hint #zelHintFast for the fast path, any other value for the accurate one
 *  @param scaleFactor scale factor, any value
 *  @return #zelErrNullPtr for a null pointer, else #zelErrSize for a length below 1, else #zelStatusOk
 *  @{
 */
ZELS_API ZelStatus zelsMean_32f(const Zel32f* pSrc, int len, Zel32f* pMean, ZelHintAlgorithm hint);
ZELS_API ZelStatus zelsMean_32f_L(const Zel32f* pSrc, ZelSize len, Zel32f* pMean, ZelHintAlgorithm hint);
ZELS_API ZelStatus zelsMean_32fc(const Zel32fc* pSrc, int len, Zel32fc* pMean, ZelHintAlgorithm hint);
ZELS_API ZelStatus zelsMean_32fc_L(const Zel32fc* pSrc, ZelSize len, Zel32fc* pMean, ZelHintAlgorithm hint);
ZELS_API ZelStatus zelsMean_64f(const Zel64f* pSrc, int len, Zel64f* pMean);
ZELS_API ZelStatus zelsMean_64f_L(const Zel64f* pSrc, ZelSize len, Zel64f* pMean);
ZELS_API ZelStatus zelsMean_64fc(const Zel64fc* pSrc, int len, Zel64fc* pMean);
ZELS_API ZelStatus zelsMean_64fc_L(const Zel64fc* pSrc, ZelSize len, Zel64fc* pMean);
ZELS_API ZelStatus zelsMean_16s_Sfs(const Zel16s* pSrc, int len, Zel16s* pMean, int scaleFactor);
ZELS_API ZelStatus zelsMean_16sc_Sfs(const Zel16sc* pSrc, int len, Zel16sc* pMean, int scaleFactor);
ZELS_API ZelStatus zelsMean_32s_Sfs(const Zel32s* pSrc, int len, Zel32s* pMean, int scaleFactor);
/** @} */

/** @name Standard deviation
 *  The deviation of a sample, `sqrt(max(len * sum(x^2) - sum(x)^2, 0) / (len * (len - 1)))`, and the mean.
 * One pass, in double precision; data whose mean is large beside its deviation loses as many digits as twice
 * the logarithm of their ratio. The 16-bit sums are exact. zelsStdDev_32f with #zelHintFast sums blocks of
 * 1,024 elements in single precision. A NaN in the data makes the mean NaN and the deviation 0. Scaled
 * results are multiplied by `2^(-scaleFactor)`, rounded as the caller's mode says and saturated.
 *  @param pSrc source
 *  @param len length in elements, at least 2
 *  @param pMean where the mean goes
 *  @param pStdDev where the deviation goes
 *  @param hint #zelHintFast for the fast path, any other value for the accurate one
 *  @param scaleFactor scale factor, any value
 *  @return #zelErrNullPtr for a null pointer, else #zelErrSize for a length below 2, else #zelStatusOk
 *  @{
 */
ZELS_API ZelStatus zelsStdDev_32f(const Zel32f* pSrc, int len, Zel32f* pStdDev, ZelHintAlgorithm hint);
ZELS_API ZelStatus zelsStdDev_64f(const Zel64f* pSrc, int len, Zel64f* pStdDev);
ZELS_API ZelStatus zelsStdDev_16s_Sfs(const Zel16s* pSrc, int len, Zel16s* pStdDev, int scaleFactor);
ZELS_API ZelStatus zelsStdDev_16s32s_Sfs(const Zel16s* pSrc, int len, Zel32s* pStdDev, int scaleFactor);
ZELS_API ZelStatus zelsMeanStdDev_32f(const Zel32f* pSrc, int len, Zel32f* pMean, Zel32f* pStdDev);
ZELS_API ZelStatus zelsMeanStdDev_64f(const Zel64f* pSrc, int len, Zel64f* pMean, Zel64f* pStdDev);
ZELS_API ZelStatus zelsMeanStdDev_16s_Sfs(const Zel16s* pSrc, int len, Zel16s* pMean, Zel16s* pStdDev,
                                          int scaleFactor);
ZELS_API ZelStatus zelsMeanStdDev_16s32s_Sfs(const Zel16s* pSrc, int len, Zel32s* pMean, Zel32s* pStdDev,
                                             int scaleFactor);
/** @} */

/** @name Dot product
 *  `sum(pSrc1[n] * pSrc2[n])`, complex products without conjugation. The type tags name the two sources and
 * the result; one tag serves all three, and of two tags the first serves both sources. Forms with a
 * double-precision result multiply and add in double precision, those with a single-precision result in
 *  single precision, in a few running sums. The integer forms of 16-bit data are exact; zelsDotProd_16s32f
 *  rounds once. zelsDotProd_32s_Sfs and zelsDotProd_16s32s32s_Sfs add in double precision, so that they are
 * exact only as long as the sum of magnitudes stays within 2^53; they round to nearest whatever the caller's
 * mode. Scaled results round to nearest, ties to even, and saturate; zelsDotProd_16s32s_Sfs scales by no more
 * than 31 places either way, the other two by no more than 93 down and 31 up.
 *  @param pSrc1 first source
 *  @param pSrc2 second source
 *  @param len length in elements
 *  @param pDp where the dot product goes
 *  @param scaleFactor scale factor, any value
 *  @return #zelErrNullPtr for a null pointer, else #zelErrSize for a length below 1, else #zelStatusOk
 *  @{
 */
ZELS_API ZelStatus zelsDotProd_32f(const Zel32f* pSrc1, const Zel32f* pSrc2, int len, Zel32f* pDp);
ZELS_API ZelStatus zelsDotProd_32fc(const Zel32fc* pSrc1, const Zel32fc* pSrc2, int len, Zel32fc* pDp);
ZELS_API ZelStatus zelsDotProd_32f32fc(const Zel32f* pSrc1, const Zel32fc* pSrc2, int len, Zel32fc* pDp);
ZELS_API ZelStatus zelsDotProd_32f64f(const Zel32f* pSrc1, const Zel32f* pSrc2, int len, Zel64f* pDp);
ZELS_API ZelStatus zelsDotProd_32f64f_L(const Zel32f* pSrc1, const Zel32f* pSrc2, ZelSize len, Zel64f* pDp);
ZELS_API ZelStatus zelsDotProd_32fc64fc(const Zel32fc* pSrc1, const Zel32fc* pSrc2, int len, Zel64fc* pDp);
ZELS_API ZelStatus zelsDotProd_32fc64fc_L(const Zel32fc* pSrc1, const Zel32fc* pSrc2, ZelSize len,
                                          Zel64fc* pDp);
ZELS_API ZelStatus zelsDotProd_32f32fc64fc(const Zel32f* pSrc1, const Zel32fc* pSrc2, int len, Zel64fc* pDp);
ZELS_API ZelStatus zelsDotProd_32f32fc64fc_L(const Zel32f* pSrc1, const Zel32fc* pSrc2, ZelSize len,
                                             Zel64fc* pDp);
ZELS_API ZelStatus zelsDotProd_64f(const Zel64f* pSrc1, const Zel64f* pSrc2, int len, Zel64f* pDp);
ZELS_API ZelStatus zelsDotProd_64f_L(const Zel64f* pSrc1, const Zel64f* pSrc2, ZelSize len, Zel64f* pDp);
ZELS_API ZelStatus zelsDotProd_64fc(const Zel64fc* pSrc1, const Zel64fc* pSrc2, int len, Zel64fc* pDp);
ZELS_API ZelStatus zelsDotProd_64fc_L(const Zel64fc* pSrc1, const Zel64fc* pSrc2, ZelSize len, Zel64fc* pDp);
ZELS_API ZelStatus zelsDotProd_64f64fc(const Zel64f* pSrc1, const Zel64fc* pSrc2, int len, Zel64fc* pDp);
ZELS_API ZelStatus zelsDotProd_64f64fc_L(const Zel64f* pSrc1, const Zel64fc* pSrc2, ZelSize len,
                                         Zel64fc* pDp);
ZELS_API ZelStatus zelsDotProd_16s32f(const Zel16s* pSrc1, const Zel16s* pSrc2, int len, Zel32f* pDp);
ZELS_API ZelStatus zelsDotProd_16s64s(const Zel16s* pSrc1, const Zel16s* pSrc2, int len, Zel64s* pDp);
ZELS_API ZelStatus zelsDotProd_16sc64sc(const Zel16sc* pSrc1, const Zel16sc* pSrc2, int len, Zel64sc* pDp);
ZELS_API ZelStatus zelsDotProd_16s16sc64sc(const Zel16s* pSrc1, const Zel16sc* pSrc2, int len, Zel64sc* pDp);
ZELS_API ZelStatus zelsDotProd_16s32s_Sfs(const Zel16s* pSrc1, const Zel16s* pSrc2, int len, Zel32s* pDp,
                                          int scaleFactor);
ZELS_API ZelStatus zelsDotProd_16s32s32s_Sfs(const Zel16s* pSrc1, const Zel32s* pSrc2, int len, Zel32s* pDp,
                                             int scaleFactor);
ZELS_API ZelStatus zelsDotProd_32s_Sfs(const Zel32s* pSrc1, const Zel32s* pSrc2, int len, Zel32s* pDp,
                                       int scaleFactor);
/** @} */

/** @name Sum of natural logarithms
 *  `sum(ln(pSrc[n]))`, with one logarithm for every 512 elements: mantissas are multiplied and exponents
 * added, in double precision but for the first products of zelsSumLn_32f and zelsSumLn_16s32f, which are
 * rounded to single precision. Subnormal elements count as their mantissa bits at the least exponent.
 *
 *  A zero gives +infinity and #zelWarnLnZero, a negative element (-0.0 included) a negative NaN and
 *  #zelWarnLnNegative, a NaN a positive NaN without a warning; the first block of 512 elements that holds
 * such an element decides. Within a block the elements beyond its last whole unit (of 16 elements; 4 for
 * doubles, 32 for integers) are looked at first, one by one, and then all the others for a zero, a NaN and a
 * negative element, in this order (zelsSumLn_64f: zero, negative, NaN). An infinity counts as a NaN in a
 * whole unit, and as a plain number of exponent 255 (2047) beyond; so does a signalling NaN there.
 *  @param pSrc source
 *  @param len length in elements
 *  @param pLn where the sum goes
 *  @return #zelErrNullPtr for a null pointer, else #zelErrSize for a length below 1, else #zelWarnLnZero,
 *  #zelWarnLnNegative or #zelStatusOk
 *  @{
 */
ZELS_API ZelStatus zelsSumLn_32f(const Zel32f* pSrc, int len, Zel32f* pLn);
ZELS_API ZelStatus zelsSumLn_64f(const Zel64f* pSrc, int len, Zel64f* pLn);
ZELS_API ZelStatus zelsSumLn_32f64f(const Zel32f* pSrc, int len, Zel64f* pLn);
ZELS_API ZelStatus zelsSumLn_16s32f(const Zel16s* pSrc, int len, Zel32f* pLn);
/** @} */

/** @name Sliding window sum
 *  `pDst[n] = pSrc[n] + ... + pSrc[n + maskSize - 1]`: the first window is summed in single precision, and every
 * further one is the one before plus the exact difference of the elements that enter and leave. Results are
 * exact as long as no window sum passes 2^24 in magnitude.
 *  @param pSrc source of len + maskSize elements; the value of the last does not matter
 *  @param pDst destination of len elements
 *  @param len length of the destination
 *  @param maskSize length of the window
 *  @return #zelErrNullPtr for a null pointer, else #zelErrSize for a length below 1, else #zelErrMaskSize for
 * a window below 1, else #zelStatusOk
 *  @{
 */
ZELS_API ZelStatus zelsSumWindow_8u32f(const Zel8u* pSrc, Zel32f* pDst, int len, int maskSize);
ZELS_API ZelStatus zelsSumWindow_16s32f(const Zel16s* pSrc, Zel32f* pDst, int len, int maskSize);
/** @} */

/** @} */

/** @defgroup norms Norms
 *  Norms of a vector, and of the difference of two. A difference is formed in the element type, that of
 * 16-bit data without saturation. The tags name the source and the result. Sums of floats run in the type of
 * the element, and in double precision where the result is a double; sums of 16-bit data are exact.
 *  @{
 */

/** @name Infinity norm
 *  The largest magnitude; complex ones are roots of sums of squares, formed in double precision without a guard against
 * overflow. The scaled form shifts it by the scale factor without rounding: right for a
 * positive one; left for a negative one, by no more than 31 places, with results of 2^31 - 1 and more
 * becoming 2^31 - 1.
 *  @param pSrc source
 *  @param pSrc1 first source
 *  @param pSrc2 second source
 *  @param len length in elements
 *  @param pNorm where the norm goes
 *  @param scaleFactor scale factor, any value
 *  @return #zelErrNullPtr for a null pointer, else #zelErrSize for a length below 1, else #zelStatusOk
 *  @{
 */
ZELS_API ZelStatus zelsNorm_Inf_16s32f(const Zel16s* pSrc, int len, Zel32f* pNorm);
ZELS_API ZelStatus zelsNorm_Inf_16s32s_Sfs(const Zel16s* pSrc, int len, Zel32s* pNorm, int scaleFactor);
ZELS_API ZelStatus zelsNorm_Inf_32f(const Zel32f* pSrc, int len, Zel32f* pNorm);
ZELS_API ZelStatus zelsNorm_Inf_32fc32f(const Zel32fc* pSrc, int len, Zel32f* pNorm);
ZELS_API ZelStatus zelsNorm_Inf_64f(const Zel64f* pSrc, int len, Zel64f* pNorm);
ZELS_API ZelStatus zelsNorm_Inf_64fc64f(const Zel64fc* pSrc, int len, Zel64f* pNorm);
ZELS_API ZelStatus zelsNormDiff_Inf_16s32f(const Zel16s* pSrc1, const Zel16s* pSrc2, int len, Zel32f* pNorm);
ZELS_API ZelStatus zelsNormDiff_Inf_16s32s_Sfs(const Zel16s* pSrc1, const Zel16s* pSrc2, int len,
                                               Zel32s* pNorm, int scaleFactor);
ZELS_API ZelStatus zelsNormDiff_Inf_32f(const Zel32f* pSrc1, const Zel32f* pSrc2, int len, Zel32f* pNorm);
ZELS_API ZelStatus zelsNormDiff_Inf_32fc32f(const Zel32fc* pSrc1, const Zel32fc* pSrc2, int len,
                                            Zel32f* pNorm);
ZELS_API ZelStatus zelsNormDiff_Inf_64f(const Zel64f* pSrc1, const Zel64f* pSrc2, int len, Zel64f* pNorm);
ZELS_API ZelStatus zelsNormDiff_Inf_64fc64f(const Zel64fc* pSrc1, const Zel64fc* pSrc2, int len,
                                            Zel64f* pNorm);
/** @} */

/** @name L1 norm
 *  The sum of magnitudes; complex ones are formed as for the infinity norm. The scaled forms shift it by the scale factor without rounding, left by no more
 * than 31 places (32 above 65,536 elements; 63 in the 64-bit form), and limit shifted results to the largest
 * value. With factor 0 the 32-bit form stores the low 32 bits of the sum as they stand.
 *  @param pSrc source
 *  @param pSrc1 first source
 *  @param pSrc2 second source
 *  @param len length in elements
 *  @param pNorm where the norm goes
 *  @param scaleFactor scale factor, any value
 *  @return #zelErrNullPtr for a null pointer, else #zelErrSize for a length below 1, else #zelStatusOk
 *  @{
 */
ZELS_API ZelStatus zelsNorm_L1_16s32f(const Zel16s* pSrc, int len, Zel32f* pNorm);
ZELS_API ZelStatus zelsNorm_L1_16s32s_Sfs(const Zel16s* pSrc, int len, Zel32s* pNorm, int scaleFactor);
ZELS_API ZelStatus zelsNorm_L1_16s64s_Sfs(const Zel16s* pSrc, int len, Zel64s* pNorm, int scaleFactor);
ZELS_API ZelStatus zelsNorm_L1_32f(const Zel32f* pSrc, int len, Zel32f* pNorm);
ZELS_API ZelStatus zelsNorm_L1_32fc64f(const Zel32fc* pSrc, int len, Zel64f* pNorm);
ZELS_API ZelStatus zelsNorm_L1_64f(const Zel64f* pSrc, int len, Zel64f* pNorm);
ZELS_API ZelStatus zelsNorm_L1_64fc64f(const Zel64fc* pSrc, int len, Zel64f* pNorm);
ZELS_API ZelStatus zelsNormDiff_L1_16s32f(const Zel16s* pSrc1, const Zel16s* pSrc2, int len, Zel32f* pNorm);
ZELS_API ZelStatus zelsNormDiff_L1_16s32s_Sfs(const Zel16s* pSrc1, const Zel16s* pSrc2, int len,
                                              Zel32s* pNorm, int scaleFactor);
ZELS_API ZelStatus zelsNormDiff_L1_16s64s_Sfs(const Zel16s* pSrc1, const Zel16s* pSrc2, int len,
                                              Zel64s* pNorm, int scaleFactor);
ZELS_API ZelStatus zelsNormDiff_L1_32f(const Zel32f* pSrc1, const Zel32f* pSrc2, int len, Zel32f* pNorm);
ZELS_API ZelStatus zelsNormDiff_L1_32fc64f(const Zel32fc* pSrc1, const Zel32fc* pSrc2, int len,
                                           Zel64f* pNorm);
ZELS_API ZelStatus zelsNormDiff_L1_64f(const Zel64f* pSrc1, const Zel64f* pSrc2, int len, Zel64f* pNorm);
ZELS_API ZelStatus zelsNormDiff_L1_64fc64f(const Zel64fc* pSrc1, const Zel64fc* pSrc2, int len,
                                           Zel64f* pNorm);
/** @} */

/** @name L2 norm
 *  The square root of the sum of squares (L2) and that sum itself (L2Sqr). Squares are formed as they stand,
 * without a guard against overflow.
 *
 *  The 32-bit scaled form multiplies the root by `2^(-scaleFactor)`, rounds as the caller's mode says and
 * saturates; the power is a signed 32-bit value, 1 shifted by the magnitude of the factor modulo 32, so that
 * a magnitude of 31 changes the sign and one of 32 scales by nothing. L2Sqr shifts the exact sum without
 * rounding, left by no more than 63 places, and limits shifted results to 2^63 - 1.
 *  @param pSrc source
 *  @param pSrc1 first source
 *  @param pSrc2 second source
 *  @param len length in elements
 *  @param pNorm where the norm goes
 *  @param scaleFactor scale factor, any value
 *  @return #zelErrNullPtr for a null pointer, else #zelErrSize for a length below 1, else #zelStatusOk
 *  @{
 */
ZELS_API ZelStatus zelsNorm_L2_16s32f(const Zel16s* pSrc, int len, Zel32f* pNorm);
ZELS_API ZelStatus zelsNorm_L2_16s32s_Sfs(const Zel16s* pSrc, int len, Zel32s* pNorm, int scaleFactor);
ZELS_API ZelStatus zelsNorm_L2Sqr_16s64s_Sfs(const Zel16s* pSrc, int len, Zel64s* pNorm, int scaleFactor);
ZELS_API ZelStatus zelsNorm_L2_32f(const Zel32f* pSrc, int len, Zel32f* pNorm);
ZELS_API ZelStatus zelsNorm_L2_32f_L(const Zel32f* pSrc, ZelSize len, Zel32f* pNorm);
ZELS_API ZelStatus zelsNorm_L2_32fc64f(const Zel32fc* pSrc, int len, Zel64f* pNorm);
ZELS_API ZelStatus zelsNorm_L2_32fc64f_L(const Zel32fc* pSrc, ZelSize len, Zel64f* pNorm);
ZELS_API ZelStatus zelsNorm_L2_64f(const Zel64f* pSrc, int len, Zel64f* pNorm);
ZELS_API ZelStatus zelsNorm_L2_64f_L(const Zel64f* pSrc, ZelSize len, Zel64f* pNorm);
ZELS_API ZelStatus zelsNorm_L2_64fc64f(const Zel64fc* pSrc, int len, Zel64f* pNorm);
ZELS_API ZelStatus zelsNorm_L2_64fc64f_L(const Zel64fc* pSrc, ZelSize len, Zel64f* pNorm);
ZELS_API ZelStatus zelsNormDiff_L2_16s32f(const Zel16s* pSrc1, const Zel16s* pSrc2, int len, Zel32f* pNorm);
ZELS_API ZelStatus zelsNormDiff_L2_16s32s_Sfs(const Zel16s* pSrc1, const Zel16s* pSrc2, int len,
                                              Zel32s* pNorm, int scaleFactor);
ZELS_API ZelStatus zelsNormDiff_L2Sqr_16s64s_Sfs(const Zel16s* pSrc1, const Zel16s* pSrc2, int len,
                                                 Zel64s* pNorm, int scaleFactor);
ZELS_API ZelStatus zelsNormDiff_L2_32f(const Zel32f* pSrc1, const Zel32f* pSrc2, int len, Zel32f* pNorm);
ZELS_API ZelStatus zelsNormDiff_L2_32fc64f(const Zel32fc* pSrc1, const Zel32fc* pSrc2, int len,
                                           Zel64f* pNorm);
ZELS_API ZelStatus zelsNormDiff_L2_64f(const Zel64f* pSrc1, const Zel64f* pSrc2, int len, Zel64f* pNorm);
ZELS_API ZelStatus zelsNormDiff_L2_64fc64f(const Zel64fc* pSrc1, const Zel64fc* pSrc2, int len,
                                           Zel64f* pNorm);
/** @} */

/** @} */

/** @defgroup extrema Extrema and their indices
 *  The largest and smallest value of a vector, of its magnitudes, or of two vectors element by element.
 *
 *  An index is the smallest at which the extreme value occurs. The most negative integer has the magnitude of
 * the largest positive one. Floats are compared as `best > x ? best : x` (`<` for a minimum), in several
 * lanes for the forms without an index: a NaN replaces the best of its lane and is itself replaced by the
 * next element of that lane. The forms with an index replace the best only by an element that compares
 * strictly better: they pass over NaNs, but for one at the very start, which stays the result with index 0.
 *
 *  The long forms fold chunks of 2^31 - 1 bytes in the same way; ties stay with the earliest element.
 *  @{
 */

/** @name Maximum and minimum
 *  The largest or the smallest value.
 *  @param pSrc source
 *  @param len length in elements
 *  @param pMax where the maximum goes
 *  @param pMin where the minimum goes
 *  @return #zelErrNullPtr for a null pointer, else #zelErrSize for a length below 1, else #zelStatusOk
 *  @{
 */
ZELS_API ZelStatus zelsMax_16s(const Zel16s* pSrc, int len, Zel16s* pMax);
ZELS_API ZelStatus zelsMax_32s(const Zel32s* pSrc, int len, Zel32s* pMax);
ZELS_API ZelStatus zelsMax_32f(const Zel32f* pSrc, int len, Zel32f* pMax);
ZELS_API ZelStatus zelsMax_32f_L(const Zel32f* pSrc, ZelSize len, Zel32f* pMax);
ZELS_API ZelStatus zelsMax_64f(const Zel64f* pSrc, int len, Zel64f* pMax);
ZELS_API ZelStatus zelsMax_64f_L(const Zel64f* pSrc, ZelSize len, Zel64f* pMax);
ZELS_API ZelStatus zelsMin_16s(const Zel16s* pSrc, int len, Zel16s* pMin);
ZELS_API ZelStatus zelsMin_32s(const Zel32s* pSrc, int len, Zel32s* pMin);
ZELS_API ZelStatus zelsMin_32f(const Zel32f* pSrc, int len, Zel32f* pMin);
ZELS_API ZelStatus zelsMin_32f_L(const Zel32f* pSrc, ZelSize len, Zel32f* pMin);
ZELS_API ZelStatus zelsMin_64f(const Zel64f* pSrc, int len, Zel64f* pMin);
ZELS_API ZelStatus zelsMin_64f_L(const Zel64f* pSrc, ZelSize len, Zel64f* pMin);
/** @} */

/** @name Maximum and minimum of magnitudes
 *  The largest or the smallest magnitude.
 *  @param pSrc source
 *  @param len length in elements
 *  @param pMaxAbs where the largest magnitude goes
 *  @param pMinAbs where the smallest magnitude goes
 *  @return #zelErrNullPtr for a null pointer, else #zelErrSize for a length below 1, else #zelStatusOk
 *  @{
 */
ZELS_API ZelStatus zelsMaxAbs_16s(const Zel16s* pSrc, int len, Zel16s* pMaxAbs);
ZELS_API ZelStatus zelsMaxAbs_32s(const Zel32s* pSrc, int len, Zel32s* pMaxAbs);
ZELS_API ZelStatus zelsMaxAbs_32f(const Zel32f* pSrc, int len, Zel32f* pMaxAbs);
ZELS_API ZelStatus zelsMaxAbs_32f_L(const Zel32f* pSrc, ZelSize len, Zel32f* pMaxAbs);
ZELS_API ZelStatus zelsMaxAbs_64f(const Zel64f* pSrc, int len, Zel64f* pMaxAbs);
ZELS_API ZelStatus zelsMaxAbs_64f_L(const Zel64f* pSrc, ZelSize len, Zel64f* pMaxAbs);
ZELS_API ZelStatus zelsMinAbs_16s(const Zel16s* pSrc, int len, Zel16s* pMinAbs);
ZELS_API ZelStatus zelsMinAbs_32s(const Zel32s* pSrc, int len, Zel32s* pMinAbs);
ZELS_API ZelStatus zelsMinAbs_32f(const Zel32f* pSrc, int len, Zel32f* pMinAbs);
ZELS_API ZelStatus zelsMinAbs_32f_L(const Zel32f* pSrc, ZelSize len, Zel32f* pMinAbs);
ZELS_API ZelStatus zelsMinAbs_64f(const Zel64f* pSrc, int len, Zel64f* pMinAbs);
ZELS_API ZelStatus zelsMinAbs_64f_L(const Zel64f* pSrc, ZelSize len, Zel64f* pMinAbs);
/** @} */

/** @name Maximum and minimum with index
 *  The largest or the smallest value and where it stands first. With a null `pIndx` the call is the one of
 * the form without an index. Blocks of 8 KiB of floats are folded in lanes first, and searched only when the
 * fold comes out strictly better: a block whose fold is NaN is passed over.
 *  @param pSrc source
 *  @param len length in elements
 *  @param pMax where the maximum goes
 *  @param pMin where the minimum goes
 *  @param pIndx where the index goes, or null
 *  @return #zelErrNullPtr for another null pointer, else #zelErrSize for a length below 1, else #zelStatusOk
 *  @{
 */
ZELS_API ZelStatus zelsMaxIndx_16s(const Zel16s* pSrc, int len, Zel16s* pMax, int* pIndx);
ZELS_API ZelStatus zelsMaxIndx_32s(const Zel32s* pSrc, int len, Zel32s* pMax, int* pIndx);
ZELS_API ZelStatus zelsMaxIndx_32f(const Zel32f* pSrc, int len, Zel32f* pMax, int* pIndx);
ZELS_API ZelStatus zelsMaxIndx_32f_L(const Zel32f* pSrc, ZelSize len, Zel32f* pMax, ZelSize* pIndx);
ZELS_API ZelStatus zelsMaxIndx_64f(const Zel64f* pSrc, int len, Zel64f* pMax, int* pIndx);
ZELS_API ZelStatus zelsMaxIndx_64f_L(const Zel64f* pSrc, ZelSize len, Zel64f* pMax, ZelSize* pIndx);
ZELS_API ZelStatus zelsMinIndx_16s(const Zel16s* pSrc, int len, Zel16s* pMin, int* pIndx);
ZELS_API ZelStatus zelsMinIndx_32s(const Zel32s* pSrc, int len, Zel32s* pMin, int* pIndx);
ZELS_API ZelStatus zelsMinIndx_32f(const Zel32f* pSrc, int len, Zel32f* pMin, int* pIndx);
ZELS_API ZelStatus zelsMinIndx_32f_L(const Zel32f* pSrc, ZelSize len, Zel32f* pMin, ZelSize* pIndx);
ZELS_API ZelStatus zelsMinIndx_64f(const Zel64f* pSrc, int len, Zel64f* pMin, int* pIndx);
ZELS_API ZelStatus zelsMinIndx_64f_L(const Zel64f* pSrc, ZelSize len, Zel64f* pMin, ZelSize* pIndx);
/** @} */

/** @name Maximum and minimum of magnitudes with index
 *  The largest or the smallest magnitude and where it stands first. With a null `pIndx` the call is the one
 * of the form without an index. The float forms start from 0 (infinity for the minimum) at index -1 and pass
 * over all NaNs: a vector without a magnitude above 0 (below infinity) gives that value with index -1.
 *  @param pSrc source
 *  @param len length in elements
 *  @param pMaxAbs where the largest magnitude goes
 *  @param pMinAbs where the smallest magnitude goes
 *  @param pIndx where the index goes, or null
 *  @return #zelErrNullPtr for another null pointer, else #zelErrSize for a length below 1, else #zelStatusOk
 *  @{
 */
ZELS_API ZelStatus zelsMaxAbsIndx_16s(const Zel16s* pSrc, int len, Zel16s* pMaxAbs, int* pIndx);
ZELS_API ZelStatus zelsMaxAbsIndx_32s(const Zel32s* pSrc, int len, Zel32s* pMaxAbs, int* pIndx);
ZELS_API ZelStatus zelsMaxAbsIndx_32f(const Zel32f* pSrc, int len, Zel32f* pMaxAbs, int* pIndx);
ZELS_API ZelStatus zelsMaxAbsIndx_32f_L(const Zel32f* pSrc, ZelSize len, Zel32f* pMaxAbs, ZelSize* pIndx);
ZELS_API ZelStatus zelsMaxAbsIndx_64f(const Zel64f* pSrc, int len, Zel64f* pMaxAbs, int* pIndx);
ZELS_API ZelStatus zelsMaxAbsIndx_64f_L(const Zel64f* pSrc, ZelSize len, Zel64f* pMaxAbs, ZelSize* pIndx);
ZELS_API ZelStatus zelsMinAbsIndx_16s(const Zel16s* pSrc, int len, Zel16s* pMinAbs, int* pIndx);
ZELS_API ZelStatus zelsMinAbsIndx_32s(const Zel32s* pSrc, int len, Zel32s* pMinAbs, int* pIndx);
ZELS_API ZelStatus zelsMinAbsIndx_32f(const Zel32f* pSrc, int len, Zel32f* pMinAbs, int* pIndx);
ZELS_API ZelStatus zelsMinAbsIndx_32f_L(const Zel32f* pSrc, ZelSize len, Zel32f* pMinAbs, ZelSize* pIndx);
ZELS_API ZelStatus zelsMinAbsIndx_64f(const Zel64f* pSrc, int len, Zel64f* pMinAbs, int* pIndx);
ZELS_API ZelStatus zelsMinAbsIndx_64f_L(const Zel64f* pSrc, ZelSize len, Zel64f* pMinAbs, ZelSize* pIndx);
/** @} */

/** @name Minimum and maximum together
 *  Both in one pass.
 *  @param pSrc source
 *  @param len length in elements
 *  @param pMin where the minimum goes
 *  @param pMax where the maximum goes
 *  @return #zelErrNullPtr for a null pointer, else #zelErrSize for a length below 1, else #zelStatusOk
 *  @{
 */
ZELS_API ZelStatus zelsMinMax_8u(const Zel8u* pSrc, int len, Zel8u* pMin, Zel8u* pMax);
ZELS_API ZelStatus zelsMinMax_16u(const Zel16u* pSrc, int len, Zel16u* pMin, Zel16u* pMax);
ZELS_API ZelStatus zelsMinMax_16s(const Zel16s* pSrc, int len, Zel16s* pMin, Zel16s* pMax);
ZELS_API ZelStatus zelsMinMax_32u(const Zel32u* pSrc, int len, Zel32u* pMin, Zel32u* pMax);
ZELS_API ZelStatus zelsMinMax_32s(const Zel32s* pSrc, int len, Zel32s* pMin, Zel32s* pMax);
ZELS_API ZelStatus zelsMinMax_32f(const Zel32f* pSrc, int len, Zel32f* pMin, Zel32f* pMax);
ZELS_API ZelStatus zelsMinMax_32f_L(const Zel32f* pSrc, ZelSize len, Zel32f* pMin, Zel32f* pMax);
ZELS_API ZelStatus zelsMinMax_64f(const Zel64f* pSrc, int len, Zel64f* pMin, Zel64f* pMax);
ZELS_API ZelStatus zelsMinMax_64f_L(const Zel64f* pSrc, ZelSize len, Zel64f* pMin, Zel64f* pMax);
/** @} */

/** @name Minimum and maximum together with index
 *  The results of the forms without an index, and the first elements that equal them. -0.0 equals +0.0; a NaN
 *  equals nothing, and its index is 0. No pointer may be null.
 *  @param pSrc source
 *  @param len length in elements
 *  @param pMin where the minimum goes
 *  @param pMinIndx where its index goes
 *  @param pMax where the maximum goes
 *  @param pMaxIndx where its index goes
 *  @return #zelErrNullPtr for a null pointer, else #zelErrSize for a length below 1, else #zelStatusOk
 *  @{
 */
ZELS_API ZelStatus zelsMinMaxIndx_8u(const Zel8u* pSrc, int len, Zel8u* pMin, int* pMinIndx, Zel8u* pMax,
                                     int* pMaxIndx);
ZELS_API ZelStatus zelsMinMaxIndx_16u(const Zel16u* pSrc, int len, Zel16u* pMin, int* pMinIndx, Zel16u* pMax,
                                      int* pMaxIndx);
ZELS_API ZelStatus zelsMinMaxIndx_16s(const Zel16s* pSrc, int len, Zel16s* pMin, int* pMinIndx, Zel16s* pMax,
                                      int* pMaxIndx);
ZELS_API ZelStatus zelsMinMaxIndx_32u(const Zel32u* pSrc, int len, Zel32u* pMin, int* pMinIndx, Zel32u* pMax,
                                      int* pMaxIndx);
ZELS_API ZelStatus zelsMinMaxIndx_32s(const Zel32s* pSrc, int len, Zel32s* pMin, int* pMinIndx, Zel32s* pMax,
                                      int* pMaxIndx);
ZELS_API ZelStatus zelsMinMaxIndx_32f(const Zel32f* pSrc, int len, Zel32f* pMin, int* pMinIndx, Zel32f* pMax,
                                      int* pMaxIndx);
ZELS_API ZelStatus zelsMinMaxIndx_32f_L(const Zel32f* pSrc, ZelSize len, Zel32f* pMin, ZelSize* pMinIndx,
                                        Zel32f* pMax, ZelSize* pMaxIndx);
ZELS_API ZelStatus zelsMinMaxIndx_64f(const Zel64f* pSrc, int len, Zel64f* pMin, int* pMinIndx, Zel64f* pMax,
                                      int* pMaxIndx);
ZELS_API ZelStatus zelsMinMaxIndx_64f_L(const Zel64f* pSrc, ZelSize len, Zel64f* pMin, ZelSize* pMinIndx,
                                        Zel64f* pMax, ZelSize* pMaxIndx);
/** @} */

/** @name Order of the largest magnitude
 *  The number of bits that the largest magnitude needs: `n` such that it lies in [2^(n-1), 2^n). Zero has
 * order 0; -32768 has order 16; a subnormal float has order -126, a subnormal double -1022. NaNs and
 * infinities count as zeros and give a warning. The length is tested before the pointers.
 *  @param pSrc source
 *  @param len length in elements
 *  @param pOrder where the order goes
 *  @return #zelErrSize for a length below 1, else #zelErrNullPtr for a null pointer, else #zelWarnNaNSource
 * for a NaN or an infinity in the source, else #zelStatusOk
 *  @{
 */
ZELS_API ZelStatus zelsMaxOrder_16s(const Zel16s* pSrc, int len, int* pOrder);
ZELS_API ZelStatus zelsMaxOrder_32s(const Zel32s* pSrc, int len, int* pOrder);
ZELS_API ZelStatus zelsMaxOrder_32f(const Zel32f* pSrc, int len, int* pOrder);
ZELS_API ZelStatus zelsMaxOrder_64f(const Zel64f* pSrc, int len, int* pOrder);
/** @} */

/** @name Pairwise maximum
 *  `pDst[n] = pSrc1[n] > pSrc2[n] ? pSrc1[n] : pSrc2[n]`; in place
 *  `pSrcDst[n] = pSrc[n] > pSrcDst[n] ? pSrc[n] : pSrcDst[n]`. So a NaN in either gives the value of the second. The sources of zelsMaxEvery_64f_I
 * may overlap in any way: then elements are processed one by one in rising order.
 *  @param pSrc1 first source
 *  @param pSrc2 second source
 *  @param pDst destination
 *  @param pSrc first source of the in-place forms
 *  @param pSrcDst second source and destination
 *  @param len length in elements
 *  @return #zelErrNullPtr for a null pointer, else #zelErrSize for a length below 1, else #zelStatusOk
 *  @{
 */
ZELS_API ZelStatus zelsMaxEvery_8u(const Zel8u* pSrc1, const Zel8u* pSrc2, Zel8u* pDst, Zel32u len);
ZELS_API ZelStatus zelsMaxEvery_16u(const Zel16u* pSrc1, const Zel16u* pSrc2, Zel16u* pDst, Zel32u len);
ZELS_API ZelStatus zelsMaxEvery_32f(const Zel32f* pSrc1, const Zel32f* pSrc2, Zel32f* pDst, Zel32u len);
ZELS_API ZelStatus zelsMaxEvery_64f(const Zel64f* pSrc1, const Zel64f* pSrc2, Zel64f* pDst, Zel32u len);
ZELS_API ZelStatus zelsMaxEvery_8u_I(const Zel8u* pSrc, Zel8u* pSrcDst, int len);
ZELS_API ZelStatus zelsMaxEvery_16s_I(const Zel16s* pSrc, Zel16s* pSrcDst, int len);
ZELS_API ZelStatus zelsMaxEvery_16u_I(const Zel16u* pSrc, Zel16u* pSrcDst, int len);
ZELS_API ZelStatus zelsMaxEvery_32s_I(const Zel32s* pSrc, Zel32s* pSrcDst, int len);
ZELS_API ZelStatus zelsMaxEvery_32f_I(const Zel32f* pSrc, Zel32f* pSrcDst, int len);
ZELS_API ZelStatus zelsMaxEvery_64f_I(const Zel64f* pSrc, Zel64f* pSrcDst, Zel32u len);
/** @} */

/** @name Pairwise minimum
 *  `pDst[n] = pSrc1[n] < pSrc2[n] ? pSrc1[n] : pSrc2[n]`; in place
 *  `pSrcDst[n] = pSrc[n] < pSrcDst[n] ? pSrc[n] : pSrcDst[n]`. So a NaN in either gives the value of the second. The sources of zelsMinEvery_64f_I
 * may overlap in any way: then elements are processed one by one in rising order.
 *  @param pSrc1 first source
 *  @param pSrc2 second source
 *  @param pDst destination
 *  @param pSrc first source of the in-place forms
 *  @param pSrcDst second source and destination
 *  @param len length in elements
 *  @return #zelErrNullPtr for a null pointer, else #zelErrSize for a length below 1, else #zelStatusOk
 *  @{
 */
ZELS_API ZelStatus zelsMinEvery_8u(const Zel8u* pSrc1, const Zel8u* pSrc2, Zel8u* pDst, Zel32u len);
ZELS_API ZelStatus zelsMinEvery_16u(const Zel16u* pSrc1, const Zel16u* pSrc2, Zel16u* pDst, Zel32u len);
ZELS_API ZelStatus zelsMinEvery_32f(const Zel32f* pSrc1, const Zel32f* pSrc2, Zel32f* pDst, Zel32u len);
ZELS_API ZelStatus zelsMinEvery_64f(const Zel64f* pSrc1, const Zel64f* pSrc2, Zel64f* pDst, Zel32u len);
ZELS_API ZelStatus zelsMinEvery_8u_I(const Zel8u* pSrc, Zel8u* pSrcDst, int len);
ZELS_API ZelStatus zelsMinEvery_16s_I(const Zel16s* pSrc, Zel16s* pSrcDst, int len);
ZELS_API ZelStatus zelsMinEvery_16u_I(const Zel16u* pSrc, Zel16u* pSrcDst, int len);
ZELS_API ZelStatus zelsMinEvery_32s_I(const Zel32s* pSrc, Zel32s* pSrcDst, int len);
ZELS_API ZelStatus zelsMinEvery_32f_I(const Zel32f* pSrc, Zel32f* pSrcDst, int len);
ZELS_API ZelStatus zelsMinEvery_64f_I(const Zel64f* pSrc, Zel64f* pSrcDst, Zel32u len);
/** @} */

/** @} */

/** @defgroup search Searching and counting
 *  @{
 */

/** @name Nearest entry of a table
 *  The entry of an ascending table that is nearest to a value, and its index. A tie goes to the lower entry.
 * A value that stands several times in the table gives the last of its entries, or the first of all when it
 * is the least.
 *  @param inp value
 *  @param pOutVal where the nearest entry goes
 *  @param pOutIndex where its index goes
 *  @param pVals values
 *  @param pOutVals where the nearest entries go
 *  @param pOutIndexes where their indices go
 *  @param len number of values
 *  @param pTable table, ascending
 *  @param tblLen number of entries
 *  @return #zelErrNullPtr for a null pointer, else #zelErrSize for `len` or `tblLen` below 1, else
 * #zelStatusOk
 *  @{
 */
ZELS_API ZelStatus zelsFindNearestOne_16u(Zel16u inp, Zel16u* pOutVal, int* pOutIndex, const Zel16u* pTable,
                                          int tblLen);
ZELS_API ZelStatus zelsFindNearest_16u(const Zel16u* pVals, Zel16u* pOutVals, int* pOutIndexes, int len,
                                       const Zel16u* pTable, int tblLen);
/** @} */

/** The number of elements strictly between two bounds: elements equal to a bound do not count.
 *  @param pSrc source
 *  @param len length in elements
 *  @param pCounts where the number goes
 *  @param lowerBound lower bound
 *  @param upperBound upper bound
 *  @return #zelErrNullPtr for a null pointer, else #zelErrSize for a length below 1, else #zelStatusOk
 */
ZELS_API ZelStatus zelsCountInRange_32s(const Zel32s* pSrc, int len, int* pCounts, Zel32s lowerBound,
                                        Zel32s upperBound);

/** @name Zero crossings
 *  A measure over all pairs of neighbours, by `zcType`:
 *
 *  | `zcType` | Measure |
 *  |---|---|
 *  | 0 | pairs of opposite sign: a zero between breaks a crossing |
 *  | 1 | pairs whose sign bits differ, those of zeros included |
 *  | 2 | half the sum of the differences of signs, zero having sign 0 |
 *
 *  So a way through an exact zero counts nothing, by the sign of the zero, or twice one half. A NaN has no
 * sign, but a sign bit. A single element has no crossing.
 *  @param pSrc source
 *  @param len length in elements
 *  @param pValZC where the measure goes
 *  @param zcType kind of measure
 *  @return #zelErrNullPtr for a null pointer, else #zelErrSize for a length of 0, else #zelErrRange for an
 * unknown kind, else #zelStatusOk
 *  @{
 */
ZELS_API ZelStatus zelsZeroCrossing_16s32f(const Zel16s* pSrc, Zel32u len, Zel32f* pValZC, Zel32u zcType);
ZELS_API ZelStatus zelsZeroCrossing_32f(const Zel32f* pSrc, Zel32u len, Zel32f* pValZC, Zel32u zcType);
/** @} */

/** @name Replacement of NaNs
 *  Each NaN, of either sign, quiet or signalling, becomes `value`. Infinities stay.
 *  @param pSrcDst source and destination
 *  @param len length in elements
 *  @param value replacement
 *  @return #zelErrNullPtr for a null pointer, else #zelErrSize for a length below 1, else #zelStatusOk
 *  @{
 */
ZELS_API ZelStatus zelsReplaceNAN_32f_I(Zel32f* pSrcDst, int len, Zel32f value);
ZELS_API ZelStatus zelsReplaceNAN_64f_I(Zel64f* pSrcDst, int len, Zel64f value);
/** @} */

/** @name Pattern match
 *  Hamming distances of bit vectors: `pDst[p * srcLen + s]` is the number of bits in which row `p` of the
 * patterns and row `s` of the source differ, modulo 2^16. Rows are `patternSize` bytes long and start
 * `srcStep` and `patternStep` bytes apart; they may overlap.
 *  @param pSrc source rows
 *  @param srcStep bytes from one source row to the next
 *  @param srcLen number of source rows
 *  @param pPattern pattern rows
 *  @param patternStep bytes from one pattern row to the next
 *  @param patternLen number of pattern rows
 *  @param patternSize bytes in a row, 1 to 65535
 *  @param pDst destination of `patternLen * srcLen` distances
 *  @param hint one of #ZelHintAlgorithm; all work alike
 *  @param pBuffer work buffer
 *  @param pBufferSize where the size of the work buffer in bytes goes
 *  @return #zelErrNullPtr for a null pointer, else #zelErrStep for a step below 1, else #zelErrSize for a
 * length or size out of range, else #zelErrBadArg for an unknown hint, else #zelStatusOk
 *  @{
 */
ZELS_API ZelStatus zelsPatternMatchGetBufferSize(int srcLen, int patternLen, int patternSize,
                                                 ZelHintAlgorithm hint, int* pBufferSize);
ZELS_API ZelStatus zelsPatternMatch_8u16u(const Zel8u* pSrc, int srcStep, int srcLen, const Zel8u* pPattern,
                                          int patternStep, int patternLen, int patternSize, Zel16u* pDst,
                                          ZelHintAlgorithm hint, Zel8u* pBuffer);
/** @} */

/** @} */

#ifdef __cplusplus
}
#endif

#endif
