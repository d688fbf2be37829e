/** @file
 *  Mathematical functions of vectors: squares, roots, exponentials, logarithms, polar geometry, powers, normalisation.
 */
#ifndef ZELS_MATH_H
#define ZELS_MATH_H

#include "zels/types.h"

#ifdef __cplusplus
extern "C" {
#endif

/** @defgroup math Mathematical functions
 *  Each element is computed by itself, whatever its place in the vector and the vector's length. Source and
 * destination may be the same array; the `_I` and `_ISfs` forms are just that. The long forms test the length
 * before the pointers, the others after. Scaled forms give the value times 2 to the power -`scaleFactor`,
 * rounded to nearest with ties to even in every rounding mode of the caller, and saturated; each int is a
 * valid scale factor, and one that makes every result 0 clears the destination unread.
 *  @{
 */

/** @name Square
 *  `pDst[n] = pSrc[n] * pSrc[n]`. Float results are one rounded product, complex ones `re = a*a - b*b`,
 * `im = b*a + a*b` with each product and sum rounded. The scaled forms start from the exact square; each part
 * of a complex one is rounded and saturated by itself.
 *  @param pSrc source
 *  @param pDst destination
 *  @param pSrcDst source and destination
 *  @param len length in elements
 *  @param scaleFactor the result is divided by 2 to this power
 *  @return #zelErrNullPtr for a null pointer, else #zelErrSize for a length below 1, else #zelStatusOk
 *  @{
 */
ZELS_API ZelStatus zelsSqr_32f(const Zel32f* pSrc, Zel32f* pDst, int len);
ZELS_API ZelStatus zelsSqr_32f_I(Zel32f* pSrcDst, int len);
ZELS_API ZelStatus zelsSqr_32f_L(const Zel32f* pSrc, Zel32f* pDst, ZelSize len);
ZELS_API ZelStatus zelsSqr_32f_I_L(Zel32f* pSrcDst, ZelSize len);
ZELS_API ZelStatus zelsSqr_64f(const Zel64f* pSrc, Zel64f* pDst, int len);
ZELS_API ZelStatus zelsSqr_64f_I(Zel64f* pSrcDst, int len);
ZELS_API ZelStatus zelsSqr_64f_L(const Zel64f* pSrc, Zel64f* pDst, ZelSize len);
ZELS_API ZelStatus zelsSqr_64f_I_L(Zel64f* pSrcDst, ZelSize len);
ZELS_API ZelStatus zelsSqr_32fc(const Zel32fc* pSrc, Zel32fc* pDst, int len);
ZELS_API ZelStatus zelsSqr_32fc_I(Zel32fc* pSrcDst, int len);
ZELS_API ZelStatus zelsSqr_32fc_L(const Zel32fc* pSrc, Zel32fc* pDst, ZelSize len);
ZELS_API ZelStatus zelsSqr_32fc_I_L(Zel32fc* pSrcDst, ZelSize len);
ZELS_API ZelStatus zelsSqr_64fc(const Zel64fc* pSrc, Zel64fc* pDst, int len);
ZELS_API ZelStatus zelsSqr_64fc_I(Zel64fc* pSrcDst, int len);
ZELS_API ZelStatus zelsSqr_64fc_L(const Zel64fc* pSrc, Zel64fc* pDst, ZelSize len);
ZELS_API ZelStatus zelsSqr_64fc_I_L(Zel64fc* pSrcDst, ZelSize len);
ZELS_API ZelStatus zelsSqr_8u_Sfs(const Zel8u* pSrc, Zel8u* pDst, int len, int scaleFactor);
ZELS_API ZelStatus zelsSqr_8u_ISfs(Zel8u* pSrcDst, int len, int scaleFactor);
ZELS_API ZelStatus zelsSqr_16s_Sfs(const Zel16s* pSrc, Zel16s* pDst, int len, int scaleFactor);
ZELS_API ZelStatus zelsSqr_16s_ISfs(Zel16s* pSrcDst, int len, int scaleFactor);
ZELS_API ZelStatus zelsSqr_16u_Sfs(const Zel16u* pSrc, Zel16u* pDst, int len, int scaleFactor);
ZELS_API ZelStatus zelsSqr_16u_ISfs(Zel16u* pSrcDst, int len, int scaleFactor);
ZELS_API ZelStatus zelsSqr_16sc_Sfs(const Zel16sc* pSrc, Zel16sc* pDst, int len, int scaleFactor);
ZELS_API ZelStatus zelsSqr_16sc_ISfs(Zel16sc* pSrcDst, int len, int scaleFactor);
/** @} */

/** @name Square root
 *  The root of each element; complex elements have the principal root, whose real part is not negative.
 *
 *  A negative element of a signed real type gives a NaN, in integer forms 0, and #zelWarnSqrtNegative is
 * returned once the whole vector is done. -0 gives -0 and no warning. Scale factors that leave no integer
 * result but 0 (above 16 in zelsSqrt_32s16s_Sfs, above 8 in zelsSqrt_16s_Sfs) give no warning either, since
 * the source is not read.
 *
 *  Real floats are correctly rounded in the caller's mode. Complex ones have the special values of the
 * standard `csqrt` and overflow nowhere; each part is within 1 unit in the last place in `32fc` and within 3 in
 * `64fc`, rounding to nearest (docs/accuracy.md has the bounds). Integer results are correctly rounded.
 *  @param pSrc source
 *  @param pDst destination
 *  @param pSrcDst source and destination
 *  @param len length in elements
 *  @param scaleFactor the result is divided by 2 to this power
 *  @return #zelErrNullPtr for a null pointer, else #zelErrSize for a length below 1, else #zelWarnSqrtNegative
 *  where an element is negative, else #zelStatusOk
 *  @{
 */
ZELS_API ZelStatus zelsSqrt_32f(const Zel32f* pSrc, Zel32f* pDst, int len);
ZELS_API ZelStatus zelsSqrt_32f_I(Zel32f* pSrcDst, int len);
ZELS_API ZelStatus zelsSqrt_64f(const Zel64f* pSrc, Zel64f* pDst, int len);
ZELS_API ZelStatus zelsSqrt_64f_I(Zel64f* pSrcDst, int len);
ZELS_API ZelStatus zelsSqrt_32fc(const Zel32fc* pSrc, Zel32fc* pDst, int len);
ZELS_API ZelStatus zelsSqrt_32fc_I(Zel32fc* pSrcDst, int len);
ZELS_API ZelStatus zelsSqrt_64fc(const Zel64fc* pSrc, Zel64fc* pDst, int len);
ZELS_API ZelStatus zelsSqrt_64fc_I(Zel64fc* pSrcDst, int len);
ZELS_API ZelStatus zelsSqrt_8u_Sfs(const Zel8u* pSrc, Zel8u* pDst, int len, int scaleFactor);
ZELS_API ZelStatus zelsSqrt_8u_ISfs(Zel8u* pSrcDst, int len, int scaleFactor);
ZELS_API ZelStatus zelsSqrt_16u_Sfs(const Zel16u* pSrc, Zel16u* pDst, int len, int scaleFactor);
ZELS_API ZelStatus zelsSqrt_16u_ISfs(Zel16u* pSrcDst, int len, int scaleFactor);
ZELS_API ZelStatus zelsSqrt_16s_Sfs(const Zel16s* pSrc, Zel16s* pDst, int len, int scaleFactor);
ZELS_API ZelStatus zelsSqrt_16s_ISfs(Zel16s* pSrcDst, int len, int scaleFactor);
ZELS_API ZelStatus zelsSqrt_16sc_Sfs(const Zel16sc* pSrc, Zel16sc* pDst, int len, int scaleFactor);
ZELS_API ZelStatus zelsSqrt_16sc_ISfs(Zel16sc* pSrcDst, int len, int scaleFactor);
ZELS_API ZelStatus zelsSqrt_32s16s_Sfs(const Zel32s* pSrc, Zel16s* pDst, int len, int scaleFactor);
/** @} */

/** @name Cube root
 *  The real cube root of each element, of its sign: in zelsCubrt_32f within 1 unit in the last place (nearly
 * rounded: docs/accuracy.md), the roots of cubes exact.
 *
 *  zelsCubrt_32s16s_Sfs takes the root in single precision, of the element rounded to that by the caller's mode,
 * and rounds it to the nearest integer, ties to even.
 *  @param pSrc source
 *  @param pDst destination
 *  @param len length in elements
 *  @param scaleFactor the result is divided by 2 to this power
 *  @return #zelErrNullPtr for a null pointer, else #zelErrSize for a length below 1, else #zelStatusOk
 *  @{
 */
ZELS_API ZelStatus zelsCubrt_32f(const Zel32f* pSrc, Zel32f* pDst, int len);
ZELS_API ZelStatus zelsCubrt_32s16s_Sfs(const Zel32s* pSrc, Zel16s* pDst, int len, int scaleFactor);
/** @} */

/** @name Exponential
 *  `exp(x)`, with the special values of the standard function and without a warning for results that overflow or
 * underflow, within 1 unit in the last place, rounding to nearest (docs/accuracy.md has the bounds). In `32f`
 * all above 88.72283 gives infinity, all below -103.97208 gives 0.
 *
 *  The scaled forms give `exp(x) * 2^-scaleFactor` with one half added, without its fraction, saturated. Scale
 * factors count modulo 128, towards 0: 129 acts as 1, -129 as -1. The destination of zelsExp_32s_Sfs may begin
 * anywhere before the source and overlap it.
 *  @param pSrc source
 *  @param pDst destination
 *  @param pSrcDst source and destination
 *  @param len length in elements
 *  @param scaleFactor the result is divided by 2 to this power
 *  @return #zelErrNullPtr for a null pointer, else #zelErrSize for a length below 1, else #zelStatusOk
 *  @{
 */
ZELS_API ZelStatus zelsExp_32f(const Zel32f* pSrc, Zel32f* pDst, int len);
ZELS_API ZelStatus zelsExp_32f_I(Zel32f* pSrcDst, int len);
ZELS_API ZelStatus zelsExp_64f(const Zel64f* pSrc, Zel64f* pDst, int len);
ZELS_API ZelStatus zelsExp_64f_I(Zel64f* pSrcDst, int len);
ZELS_API ZelStatus zelsExp_16s_Sfs(const Zel16s* pSrc, Zel16s* pDst, int len, int scaleFactor);
ZELS_API ZelStatus zelsExp_16s_ISfs(Zel16s* pSrcDst, int len, int scaleFactor);
ZELS_API ZelStatus zelsExp_32s_Sfs(const Zel32s* pSrc, Zel32s* pDst, int len, int scaleFactor);
ZELS_API ZelStatus zelsExp_32s_ISfs(Zel32s* pSrcDst, int len, int scaleFactor);
/** @} */

/** @name Natural logarithm
 *  `ln(x)`: minus infinity for 0 of either sign, NaN for a negative element, within 1 unit in the last place,
 * rounding to nearest (docs/accuracy.md has the bounds). All elements are done in any case; then a zero anywhere
 * gives #zelWarnLnZero, else a negative element #zelWarnLnNegative.
 *
 *  In the scaled forms an element below 1 gives the least integer of the type, and here the first such element
 * alone settles the warning. The others, by scale factor:
 *  - zelsLn_16s_Sfs rounds `ln(x) * 2^-scaleFactor` to the nearest integer; factors from -1 to -13 compute in
 * single precision.
 *  - zelsLn_32s_Sfs with a factor of 0 or more rounds `ln(x)` to the nearest integer first and then shifts it
 * right by the lower five bits of the factor, which truncates; below 0 it computes in single precision.
 *  @param pSrc source
 *  @param pDst destination
 *  @param pSrcDst source and destination
 *  @param len length in elements
 *  @param scaleFactor the result is divided by 2 to this power
 *  @return #zelErrNullPtr for a null pointer, else #zelErrSize for a length below 1, else #zelWarnLnZero or
 *  #zelWarnLnNegative as told above, else #zelStatusOk
 *  @{
 */
ZELS_API ZelStatus zelsLn_32f(const Zel32f* pSrc, Zel32f* pDst, int len);
ZELS_API ZelStatus zelsLn_32f_I(Zel32f* pSrcDst, int len);
ZELS_API ZelStatus zelsLn_64f(const Zel64f* pSrc, Zel64f* pDst, int len);
ZELS_API ZelStatus zelsLn_64f_I(Zel64f* pSrcDst, int len);
ZELS_API ZelStatus zelsLn_16s_Sfs(const Zel16s* pSrc, Zel16s* pDst, int len, int scaleFactor);
ZELS_API ZelStatus zelsLn_16s_ISfs(Zel16s* pSrcDst, int len, int scaleFactor);
ZELS_API ZelStatus zelsLn_32s_Sfs(const Zel32s* pSrc, Zel32s* pDst, int len, int scaleFactor);
ZELS_API ZelStatus zelsLn_32s_ISfs(Zel32s* pSrcDst, int len, int scaleFactor);
/** @} */

/** @name Magnitude
 *  `sqrt(re^2 + im^2)`, from two vectors of parts or from complex elements.
 *
 *  Results in `32f` are made by one Newton step from the processor's estimate of the reciprocal root of the
 * sum of squares in single precision: within 5 units in the last place of the root of that sum and 6 of the exact
 * magnitude, rounding to nearest; not necessarily exact even for (3, 4), and NaN where the sum overflows to infinity. A
 * sum below the normal numbers has its true root. The forms of 16-bit
 * sources start from the exact sum of squares, rounded once. Results in `64f` are those of `hypot`: no undue
 * overflow, an infinity wins over a NaN, within 1 unit in the last place, rounding to nearest (docs/accuracy.md has
 * the bounds).
 *
 *  The scaled forms of 16-bit sources round the exact value, but 0 is the result of every scale factor above
 * 15; one below -14 gives 32767 for each element but 0. zelsMagnitude_32sc_Sfs computes in double precision
 * and rounds as the caller's mode says; a factor above 32 gives 0, and one below -30 gives 2147483647 for each
 * element but 0.
 *  @param pSrcRe real parts
 *  @param pSrcIm imaginary parts
 *  @param pSrc source
 *  @param pDst destination
 *  @param len length in elements
 *  @param scaleFactor the result is divided by 2 to this power
 *  @return #zelErrNullPtr for a null pointer, else #zelErrSize for a length below 1, else #zelStatusOk
 *  @{
 */
ZELS_API ZelStatus zelsMagnitude_32f(const Zel32f* pSrcRe, const Zel32f* pSrcIm, Zel32f* pDst, int len);
ZELS_API ZelStatus zelsMagnitude_32f_L(const Zel32f* pSrcRe, const Zel32f* pSrcIm, Zel32f* pDst, ZelSize len);
ZELS_API ZelStatus zelsMagnitude_64f(const Zel64f* pSrcRe, const Zel64f* pSrcIm, Zel64f* pDst, int len);
ZELS_API ZelStatus zelsMagnitude_64f_L(const Zel64f* pSrcRe, const Zel64f* pSrcIm, Zel64f* pDst, ZelSize len);
ZELS_API ZelStatus zelsMagnitude_32fc(const Zel32fc* pSrc, Zel32f* pDst, int len);
ZELS_API ZelStatus zelsMagnitude_32fc_L(const Zel32fc* pSrc, Zel32f* pDst, ZelSize len);
ZELS_API ZelStatus zelsMagnitude_64fc(const Zel64fc* pSrc, Zel64f* pDst, int len);
ZELS_API ZelStatus zelsMagnitude_64fc_L(const Zel64fc* pSrc, Zel64f* pDst, ZelSize len);
ZELS_API ZelStatus zelsMagnitude_16s32f(const Zel16s* pSrcRe, const Zel16s* pSrcIm, Zel32f* pDst, int len);
ZELS_API ZelStatus zelsMagnitude_16sc32f(const Zel16sc* pSrc, Zel32f* pDst, int len);
ZELS_API ZelStatus zelsMagnitude_16s_Sfs(const Zel16s* pSrcRe, const Zel16s* pSrcIm, Zel16s* pDst, int len,
                                         int scaleFactor);
ZELS_API ZelStatus zelsMagnitude_16sc_Sfs(const Zel16sc* pSrc, Zel16s* pDst, int len, int scaleFactor);
ZELS_API ZelStatus zelsMagnitude_32sc_Sfs(const Zel32sc* pSrc, Zel32s* pDst, int len, int scaleFactor);
/** @} */

/** @name Arctangent
 *  `pDst[n] = atan(pSrc[n])`, between -pi/2 and pi/2, for every argument, within 1 unit in the last place, rounding
 * to nearest (docs/accuracy.md has the bounds).
 *  @param pSrc source
 *  @param pDst destination
 *  @param pSrcDst source and destination
 *  @param len length in elements
 *  @return #zelErrNullPtr for a null pointer, else #zelErrSize for a length below 1, else #zelStatusOk
 *  @{
 */
ZELS_API ZelStatus zelsArctan_32f(const Zel32f* pSrc, Zel32f* pDst, int len);
ZELS_API ZelStatus zelsArctan_32f_I(Zel32f* pSrcDst, int len);
ZELS_API ZelStatus zelsArctan_64f(const Zel64f* pSrc, Zel64f* pDst, int len);
ZELS_API ZelStatus zelsArctan_64f_I(Zel64f* pSrcDst, int len);
/** @} */

/** @name Phase
 *  `atan2(im, re)`, between -pi and pi, from two vectors of parts or from complex elements. Zeros of either sign,
 * infinities and NaN give what the standard function gives. Float results are within 1 unit in the last place, rounding to
 * nearest (docs/accuracy.md has the bounds).
 *
 *  The scaled forms round the exact angle times 2 to the power -`scaleFactor` to nearest in every rounding mode,
 * and saturate; but every scale factor above 1 gives 0, although pi / 4 rounds to 1.
 *  @param pSrcRe real parts
 *  @param pSrcIm imaginary parts
 *  @param pSrc source
 *  @param pDst destination
 *  @param len length in elements
 *  @param scaleFactor the result is divided by 2 to this power
 *  @return #zelErrNullPtr for a null pointer, else #zelErrSize for a length below 1, else #zelStatusOk
 *  @{
 */
ZELS_API ZelStatus zelsPhase_32f(const Zel32f* pSrcRe, const Zel32f* pSrcIm, Zel32f* pDst, int len);
ZELS_API ZelStatus zelsPhase_64f(const Zel64f* pSrcRe, const Zel64f* pSrcIm, Zel64f* pDst, int len);
ZELS_API ZelStatus zelsPhase_32fc(const Zel32fc* pSrc, Zel32f* pDst, int len);
ZELS_API ZelStatus zelsPhase_64fc(const Zel64fc* pSrc, Zel64f* pDst, int len);
ZELS_API ZelStatus zelsPhase_16s32f(const Zel16s* pSrcRe, const Zel16s* pSrcIm, Zel32f* pDst, int len);
ZELS_API ZelStatus zelsPhase_16sc32f(const Zel16sc* pSrc, Zel32f* pDst, int len);
ZELS_API ZelStatus zelsPhase_16s_Sfs(const Zel16s* pSrcRe, const Zel16s* pSrcIm, Zel16s* pDst, int len,
                                     int scaleFactor);
ZELS_API ZelStatus zelsPhase_16sc_Sfs(const Zel16sc* pSrc, Zel16s* pDst, int len, int scaleFactor);
/** @} */

/** @name Cartesian to polar form
 *  Magnitude and phase of each element: the results of zelsMagnitude and zelsPhase of the same type and scale
 * factor. In the float forms the destinations may be the sources.
 *  @param pSrcRe real parts
 *  @param pSrcIm imaginary parts
 *  @param pSrc source
 *  @param pDstMagn magnitudes
 *  @param pDstPhase phases
 *  @param len length in elements
 *  @param magnScaleFactor the magnitude is divided by 2 to this power
 *  @param phaseScaleFactor the phase is divided by 2 to this power
 *  @return #zelErrNullPtr for a null pointer, else #zelErrSize for a length below 1, else #zelStatusOk
 *  @{
 */
ZELS_API ZelStatus zelsCartToPolar_32f(const Zel32f* pSrcRe, const Zel32f* pSrcIm, Zel32f* pDstMagn,
                                       Zel32f* pDstPhase, int len);
ZELS_API ZelStatus zelsCartToPolar_64f(const Zel64f* pSrcRe, const Zel64f* pSrcIm, Zel64f* pDstMagn,
                                       Zel64f* pDstPhase, int len);
ZELS_API ZelStatus zelsCartToPolar_32fc(const Zel32fc* pSrc, Zel32f* pDstMagn, Zel32f* pDstPhase, int len);
ZELS_API ZelStatus zelsCartToPolar_64fc(const Zel64fc* pSrc, Zel64f* pDstMagn, Zel64f* pDstPhase, int len);
ZELS_API ZelStatus zelsCartToPolar_16sc_Sfs(const Zel16sc* pSrc, Zel16s* pDstMagn, Zel16s* pDstPhase, int len,
                                            int magnScaleFactor, int phaseScaleFactor);
/** @} */

/** @name Polar to Cartesian form
 *  `re = magn * cos(phase)`, `im = magn * sin(phase)`, for phases of any size. Sine and cosine are within 1 unit in
 * the last place, rounding to nearest, and each product is rounded once more (docs/accuracy.md has the bounds). In the
 * split forms the destinations may be the sources.
 *
 *  The scaled form takes `magn * 2^-magnScaleFactor` and `phase * 2^-phaseScaleFactor` for magnitude and phase (factors
 * beyond 1000 either way count as 1000), rounds the parts to nearest in every rounding mode, and saturates them. A part
 * that comes within 2^-36 of a tie may be rounded to either side.
 *  @param pSrcMagn magnitudes
 *  @param pSrcPhase phases
 *  @param pDstRe real parts
 *  @param pDstIm imaginary parts
 *  @param pDst destination
 *  @param len length in elements
 *  @param magnScaleFactor the magnitude is divided by 2 to this power
 *  @param phaseScaleFactor the phase is divided by 2 to this power
 *  @return #zelErrNullPtr for a null pointer, else #zelErrSize for a length below 1, else #zelStatusOk
 *  @{
 */
ZELS_API ZelStatus zelsPolarToCart_32f(const Zel32f* pSrcMagn, const Zel32f* pSrcPhase, Zel32f* pDstRe,
                                       Zel32f* pDstIm, int len);
ZELS_API ZelStatus zelsPolarToCart_64f(const Zel64f* pSrcMagn, const Zel64f* pSrcPhase, Zel64f* pDstRe,
                                       Zel64f* pDstIm, int len);
ZELS_API ZelStatus zelsPolarToCart_32fc(const Zel32f* pSrcMagn, const Zel32f* pSrcPhase, Zel32fc* pDst,
                                        int len);
ZELS_API ZelStatus zelsPolarToCart_64fc(const Zel64f* pSrcMagn, const Zel64f* pSrcPhase, Zel64fc* pDst,
                                        int len);
ZELS_API ZelStatus zelsPolarToCart_16sc_Sfs(const Zel16s* pSrcMagn, const Zel16s* pSrcPhase, Zel16sc* pDst,
                                            int len, int magnScaleFactor, int phaseScaleFactor);
/** @} */

/** @name Power
 *  `re^2 + im^2`, from two vectors of parts or from complex elements. Float products and sums are rounded one
 * by one, which is within 1.25 units in the last place, rounding to nearest. Integer sums are exact; in `32f` they are
 * rounded once, by the caller's mode.
 *  @param pSrcRe real parts
 *  @param pSrcIm imaginary parts
 *  @param pSrc source
 *  @param pDst destination
 *  @param len length in elements
 *  @param scaleFactor the result is divided by 2 to this power
 *  @return #zelErrNullPtr for a null pointer, else #zelErrSize for a length below 1, else #zelStatusOk
 *  @{
 */
ZELS_API ZelStatus zelsPowerSpectr_32f(const Zel32f* pSrcRe, const Zel32f* pSrcIm, Zel32f* pDst, int len);
ZELS_API ZelStatus zelsPowerSpectr_32f_L(const Zel32f* pSrcRe, const Zel32f* pSrcIm, Zel32f* pDst,
                                         ZelSize len);
ZELS_API ZelStatus zelsPowerSpectr_64f(const Zel64f* pSrcRe, const Zel64f* pSrcIm, Zel64f* pDst, int len);
ZELS_API ZelStatus zelsPowerSpectr_64f_L(const Zel64f* pSrcRe, const Zel64f* pSrcIm, Zel64f* pDst,
                                         ZelSize len);
ZELS_API ZelStatus zelsPowerSpectr_32fc(const Zel32fc* pSrc, Zel32f* pDst, int len);
ZELS_API ZelStatus zelsPowerSpectr_32fc_L(const Zel32fc* pSrc, Zel32f* pDst, ZelSize len);
ZELS_API ZelStatus zelsPowerSpectr_64fc(const Zel64fc* pSrc, Zel64f* pDst, int len);
ZELS_API ZelStatus zelsPowerSpectr_64fc_L(const Zel64fc* pSrc, Zel64f* pDst, ZelSize len);
ZELS_API ZelStatus zelsPowerSpectr_16s32f(const Zel16s* pSrcRe, const Zel16s* pSrcIm, Zel32f* pDst, int len);
ZELS_API ZelStatus zelsPowerSpectr_16sc32f(const Zel16sc* pSrc, Zel32f* pDst, int len);
ZELS_API ZelStatus zelsPowerSpectr_16s_Sfs(const Zel16s* pSrcRe, const Zel16s* pSrcIm, Zel16s* pDst, int len,
                                           int scaleFactor);
ZELS_API ZelStatus zelsPowerSpectr_16sc_Sfs(const Zel16sc* pSrc, Zel16s* pDst, int len, int scaleFactor);
/** @} */

/** @name Normalisation
 *  `pDst[n] = (pSrc[n] - vSub) / vDiv`, computed with the reciprocal of `vDiv`: the difference, the reciprocal
 * and the product are each rounded in the data type. The scaled forms compute in single precision, where the
 * differences are exact, with the factor `1 / vDiv * 2^-scaleFactor`; below 2^-17 it clears the destination
 * unread. The product is rounded to nearest with ties to even and saturated.
 *  @param pSrc source
 *  @param pDst destination
 *  @param pSrcDst source and destination
 *  @param len length in elements
 *  @param vSub what is subtracted from each element
 *  @param vDiv divisor
 *  @param scaleFactor the result is divided by 2 to this power
 *  @return #zelErrNullPtr for a null pointer, else #zelErrSize for a length below 1, else #zelErrDivByZero for
 *  a divisor of 0 (in `32f` and `32fc` of less than 1.1754943508222875e-38 either way), else #zelStatusOk
 *  @{
 */
ZELS_API ZelStatus zelsNormalize_32f(const Zel32f* pSrc, Zel32f* pDst, int len, Zel32f vSub, Zel32f vDiv);
ZELS_API ZelStatus zelsNormalize_32f_I(Zel32f* pSrcDst, int len, Zel32f vSub, Zel32f vDiv);
ZELS_API ZelStatus zelsNormalize_64f(const Zel64f* pSrc, Zel64f* pDst, int len, Zel64f vSub, Zel64f vDiv);
ZELS_API ZelStatus zelsNormalize_64f_I(Zel64f* pSrcDst, int len, Zel64f vSub, Zel64f vDiv);
ZELS_API ZelStatus zelsNormalize_32fc(const Zel32fc* pSrc, Zel32fc* pDst, int len, Zel32fc vSub, Zel32f vDiv);
ZELS_API ZelStatus zelsNormalize_32fc_I(Zel32fc* pSrcDst, int len, Zel32fc vSub, Zel32f vDiv);
ZELS_API ZelStatus zelsNormalize_64fc(const Zel64fc* pSrc, Zel64fc* pDst, int len, Zel64fc vSub, Zel64f vDiv);
ZELS_API ZelStatus zelsNormalize_64fc_I(Zel64fc* pSrcDst, int len, Zel64fc vSub, Zel64f vDiv);
ZELS_API ZelStatus zelsNormalize_16s_Sfs(const Zel16s* pSrc, Zel16s* pDst, int len, Zel16s vSub, int vDiv,
                                         int scaleFactor);
ZELS_API ZelStatus zelsNormalize_16s_ISfs(Zel16s* pSrcDst, int len, Zel16s vSub, int vDiv, int scaleFactor);
ZELS_API ZelStatus zelsNormalize_16sc_Sfs(const Zel16sc* pSrc, Zel16sc* pDst, int len, Zel16sc vSub, int vDiv,
                                          int scaleFactor);
ZELS_API ZelStatus zelsNormalize_16sc_ISfs(Zel16sc* pSrcDst, int len, Zel16sc vSub, int vDiv,
                                           int scaleFactor);
/** @} */

/** @} */

#ifdef __cplusplus
}
#endif

#endif
