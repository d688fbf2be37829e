/** @file
 *  Element-wise arithmetic, conversion and bulk memory.
 */
#ifndef ZELS_ARITH_H
#define ZELS_ARITH_H

#include "zels/types.h"

#ifdef __cplusplus
extern "C" {
#endif

/** @defgroup bulk Bulk memory
 *  Copy, move, fill and clear. Elements are handled as bit patterns, so no value is disturbed.
 *  @{
 */

/** @name Copy
 *  `pDst[n] = pSrc[n]`. The arrays must not overlap.
 *  The byte count is formed in 32 bits: from 2^32 bytes on it wraps, and a long vector wants the `_L` form,
 * which counts in 64 bits. zelsCopy_32s alone copies any length. On processors that report their cache sizes
 * by CPUID leaf 2, vectors of half the largest cache and more bypass the caches.
 *  @param pSrc source
 *  @param pDst destination
 *  @param len length in elements
 *  @return #zelErrNullPtr for a null pointer, else #zelErrSize for a length below 1, else #zelStatusOk
 *  @{
 */
ZELS_API ZelStatus zelsCopy_8u(const Zel8u* pSrc, Zel8u* pDst, int len);
ZELS_API ZelStatus zelsCopy_16s(const Zel16s* pSrc, Zel16s* pDst, int len);
ZELS_API ZelStatus zelsCopy_16sc(const Zel16sc* pSrc, Zel16sc* pDst, int len);
ZELS_API ZelStatus zelsCopy_32f(const Zel32f* pSrc, Zel32f* pDst, int len);
ZELS_API ZelStatus zelsCopy_32fc(const Zel32fc* pSrc, Zel32fc* pDst, int len);
ZELS_API ZelStatus zelsCopy_32s(const Zel32s* pSrc, Zel32s* pDst, int len);
ZELS_API ZelStatus zelsCopy_32sc(const Zel32sc* pSrc, Zel32sc* pDst, int len);
ZELS_API ZelStatus zelsCopy_64f(const Zel64f* pSrc, Zel64f* pDst, int len);
ZELS_API ZelStatus zelsCopy_64fc(const Zel64fc* pSrc, Zel64fc* pDst, int len);
ZELS_API ZelStatus zelsCopy_64s(const Zel64s* pSrc, Zel64s* pDst, int len);
ZELS_API ZelStatus zelsCopy_64sc(const Zel64sc* pSrc, Zel64sc* pDst, int len);
ZELS_API ZelStatus zelsCopy_32f_L(const Zel32f* pSrc, Zel32f* pDst, ZelSize len);
ZELS_API ZelStatus zelsCopy_64f_L(const Zel64f* pSrc, Zel64f* pDst, ZelSize len);
ZELS_API ZelStatus zelsCopy_32fc_L(const Zel32fc* pSrc, Zel32fc* pDst, ZelSize len);
ZELS_API ZelStatus zelsCopy_64fc_L(const Zel64fc* pSrc, Zel64fc* pDst, ZelSize len);
/** @} */

/** @name Move
 *  `pDst[n] = pSrc[n]` for arrays that may overlap in any way.
 *  The byte count is formed in 32 bits, signed: 2^31 bytes and more are not moved.
 *  @param pSrc source
 *  @param pDst destination
 *  @param len length in elements
 *  @return #zelErrNullPtr for a null pointer, else #zelErrSize for a length below 1, else #zelStatusOk
 *  @{
 */
ZELS_API ZelStatus zelsMove_8u(const Zel8u* pSrc, Zel8u* pDst, int len);
ZELS_API ZelStatus zelsMove_16s(const Zel16s* pSrc, Zel16s* pDst, int len);
ZELS_API ZelStatus zelsMove_16sc(const Zel16sc* pSrc, Zel16sc* pDst, int len);
ZELS_API ZelStatus zelsMove_32f(const Zel32f* pSrc, Zel32f* pDst, int len);
ZELS_API ZelStatus zelsMove_32fc(const Zel32fc* pSrc, Zel32fc* pDst, int len);
ZELS_API ZelStatus zelsMove_32s(const Zel32s* pSrc, Zel32s* pDst, int len);
ZELS_API ZelStatus zelsMove_32sc(const Zel32sc* pSrc, Zel32sc* pDst, int len);
ZELS_API ZelStatus zelsMove_64f(const Zel64f* pSrc, Zel64f* pDst, int len);
ZELS_API ZelStatus zelsMove_64fc(const Zel64fc* pSrc, Zel64fc* pDst, int len);
ZELS_API ZelStatus zelsMove_64s(const Zel64s* pSrc, Zel64s* pDst, int len);
ZELS_API ZelStatus zelsMove_64sc(const Zel64sc* pSrc, Zel64sc* pDst, int len);
/** @} */

/** @name Set
 *  `pDst[n] = val`, by the bit pattern: even a signalling NaN is written unchanged.
 *  @param val value
 *  @param pDst destination
 *  @param len length in elements
 *  @return #zelErrNullPtr for a null pointer, else #zelErrSize for a length below 1, else #zelStatusOk
 *  @{
 */
ZELS_API ZelStatus zelsSet_8u(Zel8u val, Zel8u* pDst, int len);
ZELS_API ZelStatus zelsSet_16s(Zel16s val, Zel16s* pDst, int len);
ZELS_API ZelStatus zelsSet_16sc(Zel16sc val, Zel16sc* pDst, int len);
ZELS_API ZelStatus zelsSet_32f(Zel32f val, Zel32f* pDst, int len);
ZELS_API ZelStatus zelsSet_32fc(Zel32fc val, Zel32fc* pDst, int len);
ZELS_API ZelStatus zelsSet_32s(Zel32s val, Zel32s* pDst, int len);
ZELS_API ZelStatus zelsSet_32sc(Zel32sc val, Zel32sc* pDst, int len);
ZELS_API ZelStatus zelsSet_64f(Zel64f val, Zel64f* pDst, int len);
ZELS_API ZelStatus zelsSet_64fc(Zel64fc val, Zel64fc* pDst, int len);
ZELS_API ZelStatus zelsSet_64s(Zel64s val, Zel64s* pDst, int len);
ZELS_API ZelStatus zelsSet_64sc(Zel64sc val, Zel64sc* pDst, int len);
/** @} */

/** @name Zero
 *  `pDst[n] = 0`.
 *  The byte count is formed in 32 bits, signed: a vector of 2^31 bytes and more wants the `_L` form.
 *  @param pDst destination
 *  @param len length in elements
 *  @return #zelErrNullPtr for a null pointer, else #zelErrSize for a length below 1, else #zelStatusOk
 *  @{
 */
ZELS_API ZelStatus zelsZero_8u(Zel8u* pDst, int len);
ZELS_API ZelStatus zelsZero_16s(Zel16s* pDst, int len);
ZELS_API ZelStatus zelsZero_16sc(Zel16sc* pDst, int len);
ZELS_API ZelStatus zelsZero_32f(Zel32f* pDst, int len);
ZELS_API ZelStatus zelsZero_32fc(Zel32fc* pDst, int len);
ZELS_API ZelStatus zelsZero_32s(Zel32s* pDst, int len);
ZELS_API ZelStatus zelsZero_32sc(Zel32sc* pDst, int len);
ZELS_API ZelStatus zelsZero_64f(Zel64f* pDst, int len);
ZELS_API ZelStatus zelsZero_64fc(Zel64fc* pDst, int len);
ZELS_API ZelStatus zelsZero_64s(Zel64s* pDst, int len);
ZELS_API ZelStatus zelsZero_64sc(Zel64sc* pDst, int len);
ZELS_API ZelStatus zelsZero_32f_L(Zel32f* pDst, ZelSize len);
ZELS_API ZelStatus zelsZero_64f_L(Zel64f* pDst, ZelSize len);
ZELS_API ZelStatus zelsZero_32fc_L(Zel32fc* pDst, ZelSize len);
ZELS_API ZelStatus zelsZero_64fc_L(Zel64fc* pDst, ZelSize len);
/** @} */

/** @} */

/** @defgroup arith Element-wise arithmetic
 *  Each element is computed by itself. Float results are exact functions of the operands under the caller's
 * rounding and flush-to-zero modes: one IEEE operation for real data, and for complex products four rounded
 * products and two rounded sums, `re = ar*br - ai*bi`, `im = ai*br + ar*bi`, never fused. Source and
 * destination may be the same array. The complex sums and differences and the long forms test the length
 * before the pointers, the others after.
 *  @{
 */

/** @name Absolute value
 *  `pDst[n] = |pSrc[n]|`. Integers saturate: the most negative value gives the largest. Floats have their
 * sign bit cleared: a NaN keeps its payload.
 *  @param pSrc source
 *  @param pDst destination
 *  @param pSrcDst source and destination
 *  @param len length in elements
 *  @return #zelErrNullPtr for a null pointer, else #zelErrSize for a length below 1, else #zelStatusOk
 *  @{
 */
ZELS_API ZelStatus zelsAbs_16s(const Zel16s* pSrc, Zel16s* pDst, int len);
ZELS_API ZelStatus zelsAbs_16s_I(Zel16s* pSrcDst, int len);
ZELS_API ZelStatus zelsAbs_32s(const Zel32s* pSrc, Zel32s* pDst, int len);
ZELS_API ZelStatus zelsAbs_32s_I(Zel32s* pSrcDst, int len);
ZELS_API ZelStatus zelsAbs_32f(const Zel32f* pSrc, Zel32f* pDst, int len);
ZELS_API ZelStatus zelsAbs_32f_I(Zel32f* pSrcDst, int len);
ZELS_API ZelStatus zelsAbs_32f_L(const Zel32f* pSrc, Zel32f* pDst, ZelSize len);
ZELS_API ZelStatus zelsAbs_32f_I_L(Zel32f* pSrcDst, ZelSize len);
ZELS_API ZelStatus zelsAbs_64f(const Zel64f* pSrc, Zel64f* pDst, int len);
ZELS_API ZelStatus zelsAbs_64f_I(Zel64f* pSrcDst, int len);
ZELS_API ZelStatus zelsAbs_64f_L(const Zel64f* pSrc, Zel64f* pDst, ZelSize len);
ZELS_API ZelStatus zelsAbs_64f_I_L(Zel64f* pSrcDst, ZelSize len);
/** @} */

/** @name Sum
 *  `pDst[n] = pSrc1[n] + pSrc2[n]`; in place `pSrcDst[n] = pSrcDst[n] + pSrc[n]`. The mixed form converts
 * both sources exactly to single precision first.
 *  @param pSrc1 first source
 *  @param pSrc2 second source
 *  @param pDst destination
 *  @param pSrc first source of the in-place forms
 *  @param pSrcDst second source and destination
 *  @param len length in elements
 *  @return #zelErrNullPtr for a null pointer, else #zelErrSize for a length below 1, else #zelStatusOk
 *  @{
 */
ZELS_API ZelStatus zelsAdd_32f(const Zel32f* pSrc1, const Zel32f* pSrc2, Zel32f* pDst, int len);
ZELS_API ZelStatus zelsAdd_32f_I(const Zel32f* pSrc, Zel32f* pSrcDst, int len);
ZELS_API ZelStatus zelsAdd_32f_L(const Zel32f* pSrc1, const Zel32f* pSrc2, Zel32f* pDst, ZelSize len);
ZELS_API ZelStatus zelsAdd_32f_I_L(const Zel32f* pSrc, Zel32f* pSrcDst, ZelSize len);
ZELS_API ZelStatus zelsAdd_64f(const Zel64f* pSrc1, const Zel64f* pSrc2, Zel64f* pDst, int len);
ZELS_API ZelStatus zelsAdd_64f_I(const Zel64f* pSrc, Zel64f* pSrcDst, int len);
ZELS_API ZelStatus zelsAdd_64f_L(const Zel64f* pSrc1, const Zel64f* pSrc2, Zel64f* pDst, ZelSize len);
ZELS_API ZelStatus zelsAdd_64f_I_L(const Zel64f* pSrc, Zel64f* pSrcDst, ZelSize len);
ZELS_API ZelStatus zelsAdd_32fc(const Zel32fc* pSrc1, const Zel32fc* pSrc2, Zel32fc* pDst, int len);
ZELS_API ZelStatus zelsAdd_32fc_I(const Zel32fc* pSrc, Zel32fc* pSrcDst, int len);
ZELS_API ZelStatus zelsAdd_32fc_L(const Zel32fc* pSrc1, const Zel32fc* pSrc2, Zel32fc* pDst, ZelSize len);
ZELS_API ZelStatus zelsAdd_32fc_I_L(const Zel32fc* pSrc, Zel32fc* pSrcDst, ZelSize len);
ZELS_API ZelStatus zelsAdd_64fc(const Zel64fc* pSrc1, const Zel64fc* pSrc2, Zel64fc* pDst, int len);
ZELS_API ZelStatus zelsAdd_64fc_I(const Zel64fc* pSrc, Zel64fc* pSrcDst, int len);
ZELS_API ZelStatus zelsAdd_64fc_L(const Zel64fc* pSrc1, const Zel64fc* pSrc2, Zel64fc* pDst, ZelSize len);
ZELS_API ZelStatus zelsAdd_64fc_I_L(const Zel64fc* pSrc, Zel64fc* pSrcDst, ZelSize len);
ZELS_API ZelStatus zelsAdd_16s32f(const Zel16s* pSrc1, const Zel16s* pSrc2, Zel32f* pDst, int len);
/** @} */

/** @name Difference
 *  `pDst[n] = pSrc2[n] - pSrc1[n]`: the first source is the subtrahend; in place `pSrcDst[n] = pSrcDst[n] -
 * pSrc[n]`. The mixed form converts both sources exactly to single precision first.
 *  @param pSrc1 first source
 *  @param pSrc2 second source
 *  @param pDst destination
 *  @param pSrc first source of the in-place forms
 *  @param pSrcDst second source and destination
 *  @param len length in elements
 *  @return #zelErrNullPtr for a null pointer, else #zelErrSize for a length below 1, else #zelStatusOk
 *  @{
 */
ZELS_API ZelStatus zelsSub_32f(const Zel32f* pSrc1, const Zel32f* pSrc2, Zel32f* pDst, int len);
ZELS_API ZelStatus zelsSub_32f_I(const Zel32f* pSrc, Zel32f* pSrcDst, int len);
ZELS_API ZelStatus zelsSub_32f_L(const Zel32f* pSrc1, const Zel32f* pSrc2, Zel32f* pDst, ZelSize len);
ZELS_API ZelStatus zelsSub_32f_I_L(const Zel32f* pSrc, Zel32f* pSrcDst, ZelSize len);
ZELS_API ZelStatus zelsSub_64f(const Zel64f* pSrc1, const Zel64f* pSrc2, Zel64f* pDst, int len);
ZELS_API ZelStatus zelsSub_64f_I(const Zel64f* pSrc, Zel64f* pSrcDst, int len);
ZELS_API ZelStatus zelsSub_64f_L(const Zel64f* pSrc1, const Zel64f* pSrc2, Zel64f* pDst, ZelSize len);
ZELS_API ZelStatus zelsSub_64f_I_L(const Zel64f* pSrc, Zel64f* pSrcDst, ZelSize len);
ZELS_API ZelStatus zelsSub_32fc(const Zel32fc* pSrc1, const Zel32fc* pSrc2, Zel32fc* pDst, int len);
ZELS_API ZelStatus zelsSub_32fc_I(const Zel32fc* pSrc, Zel32fc* pSrcDst, int len);
ZELS_API ZelStatus zelsSub_32fc_L(const Zel32fc* pSrc1, const Zel32fc* pSrc2, Zel32fc* pDst, ZelSize len);
ZELS_API ZelStatus zelsSub_32fc_I_L(const Zel32fc* pSrc, Zel32fc* pSrcDst, ZelSize len);
ZELS_API ZelStatus zelsSub_64fc(const Zel64fc* pSrc1, const Zel64fc* pSrc2, Zel64fc* pDst, int len);
ZELS_API ZelStatus zelsSub_64fc_I(const Zel64fc* pSrc, Zel64fc* pSrcDst, int len);
ZELS_API ZelStatus zelsSub_64fc_L(const Zel64fc* pSrc1, const Zel64fc* pSrc2, Zel64fc* pDst, ZelSize len);
ZELS_API ZelStatus zelsSub_64fc_I_L(const Zel64fc* pSrc, Zel64fc* pSrcDst, ZelSize len);
ZELS_API ZelStatus zelsSub_16s32f(const Zel16s* pSrc1, const Zel16s* pSrc2, Zel32f* pDst, int len);
/** @} */

/** @name Product
 *  `pDst[n] = pSrc1[n] * pSrc2[n]`; in place `pSrcDst[n] = pSrcDst[n] * pSrc[n]`. zelsMul_16s32f converts
 * both sources exactly to single precision first; the forms of a real and a complex vector multiply both
 * parts by the real value.
 *  @param pSrc1 first source
 *  @param pSrc2 second source
 *  @param pDst destination
 *  @param pSrc first source of the in-place forms
 *  @param pSrcDst second source and destination
 *  @param len length in elements
 *  @return #zelErrNullPtr for a null pointer, else #zelErrSize for a length below 1, else #zelStatusOk
 *  @{
 */
ZELS_API ZelStatus zelsMul_32f(const Zel32f* pSrc1, const Zel32f* pSrc2, Zel32f* pDst, int len);
ZELS_API ZelStatus zelsMul_32f_I(const Zel32f* pSrc, Zel32f* pSrcDst, int len);
ZELS_API ZelStatus zelsMul_32f_L(const Zel32f* pSrc1, const Zel32f* pSrc2, Zel32f* pDst, ZelSize len);
ZELS_API ZelStatus zelsMul_32f_I_L(const Zel32f* pSrc, Zel32f* pSrcDst, ZelSize len);
ZELS_API ZelStatus zelsMul_64f(const Zel64f* pSrc1, const Zel64f* pSrc2, Zel64f* pDst, int len);
ZELS_API ZelStatus zelsMul_64f_I(const Zel64f* pSrc, Zel64f* pSrcDst, int len);
ZELS_API ZelStatus zelsMul_64f_L(const Zel64f* pSrc1, const Zel64f* pSrc2, Zel64f* pDst, ZelSize len);
ZELS_API ZelStatus zelsMul_64f_I_L(const Zel64f* pSrc, Zel64f* pSrcDst, ZelSize len);
ZELS_API ZelStatus zelsMul_32fc(const Zel32fc* pSrc1, const Zel32fc* pSrc2, Zel32fc* pDst, int len);
ZELS_API ZelStatus zelsMul_32fc_I(const Zel32fc* pSrc, Zel32fc* pSrcDst, int len);
ZELS_API ZelStatus zelsMul_32fc_L(const Zel32fc* pSrc1, const Zel32fc* pSrc2, Zel32fc* pDst, ZelSize len);
ZELS_API ZelStatus zelsMul_32fc_I_L(const Zel32fc* pSrc, Zel32fc* pSrcDst, ZelSize len);
ZELS_API ZelStatus zelsMul_64fc(const Zel64fc* pSrc1, const Zel64fc* pSrc2, Zel64fc* pDst, int len);
ZELS_API ZelStatus zelsMul_64fc_I(const Zel64fc* pSrc, Zel64fc* pSrcDst, int len);
ZELS_API ZelStatus zelsMul_64fc_L(const Zel64fc* pSrc1, const Zel64fc* pSrc2, Zel64fc* pDst, ZelSize len);
ZELS_API ZelStatus zelsMul_64fc_I_L(const Zel64fc* pSrc, Zel64fc* pSrcDst, ZelSize len);
ZELS_API ZelStatus zelsMul_16s32f(const Zel16s* pSrc1, const Zel16s* pSrc2, Zel32f* pDst, int len);
ZELS_API ZelStatus zelsMul_32f32fc(const Zel32f* pSrc1, const Zel32fc* pSrc2, Zel32fc* pDst, int len);
ZELS_API ZelStatus zelsMul_32f32fc_I(const Zel32f* pSrc, Zel32fc* pSrcDst, int len);
/** @} */

/** @name Sum with a constant
 *  `pDst[n] = pSrc[n] + val`. In the real forms a constant of 0 (of either sign) makes a copy, or in place
 * nothing, so that -0 stays -0. With such a constant zelsAddC_64f gives #zelErrSize where `8 * len` does not
 * fit a positive 32-bit integer.
 *  @param pSrc source
 *  @param val constant
 *  @param pDst destination
 *  @param pSrcDst source and destination
 *  @param len length in elements
 *  @return #zelErrNullPtr for a null pointer, else #zelErrSize for a length below 1, else #zelStatusOk
 *  @{
 */
ZELS_API ZelStatus zelsAddC_32f(const Zel32f* pSrc, Zel32f val, Zel32f* pDst, int len);
ZELS_API ZelStatus zelsAddC_32f_I(Zel32f val, Zel32f* pSrcDst, int len);
ZELS_API ZelStatus zelsAddC_32f_L(const Zel32f* pSrc, Zel32f val, Zel32f* pDst, ZelSize len);
ZELS_API ZelStatus zelsAddC_32f_I_L(Zel32f val, Zel32f* pSrcDst, ZelSize len);
ZELS_API ZelStatus zelsAddC_64f(const Zel64f* pSrc, Zel64f val, Zel64f* pDst, int len);
ZELS_API ZelStatus zelsAddC_64f_I(Zel64f val, Zel64f* pSrcDst, int len);
ZELS_API ZelStatus zelsAddC_64f_L(const Zel64f* pSrc, Zel64f val, Zel64f* pDst, ZelSize len);
ZELS_API ZelStatus zelsAddC_64f_I_L(Zel64f val, Zel64f* pSrcDst, ZelSize len);
ZELS_API ZelStatus zelsAddC_32fc(const Zel32fc* pSrc, Zel32fc val, Zel32fc* pDst, int len);
ZELS_API ZelStatus zelsAddC_32fc_I(Zel32fc val, Zel32fc* pSrcDst, int len);
ZELS_API ZelStatus zelsAddC_32fc_L(const Zel32fc* pSrc, Zel32fc val, Zel32fc* pDst, ZelSize len);
ZELS_API ZelStatus zelsAddC_32fc_I_L(Zel32fc val, Zel32fc* pSrcDst, ZelSize len);
ZELS_API ZelStatus zelsAddC_64fc(const Zel64fc* pSrc, Zel64fc val, Zel64fc* pDst, int len);
ZELS_API ZelStatus zelsAddC_64fc_I(Zel64fc val, Zel64fc* pSrcDst, int len);
ZELS_API ZelStatus zelsAddC_64fc_L(const Zel64fc* pSrc, Zel64fc val, Zel64fc* pDst, ZelSize len);
ZELS_API ZelStatus zelsAddC_64fc_I_L(Zel64fc val, Zel64fc* pSrcDst, ZelSize len);
/** @} */

/** @name Difference with a constant
 *  `pDst[n] = pSrc[n] - val`. In the real forms a constant of 0 makes a copy, or in place nothing.
 *  @param pSrc source
 *  @param val constant
 *  @param pDst destination
 *  @param pSrcDst source and destination
 *  @param len length in elements
 *  @return #zelErrNullPtr for a null pointer, else #zelErrSize for a length below 1, else #zelStatusOk
 *  @{
 */
ZELS_API ZelStatus zelsSubC_32f(const Zel32f* pSrc, Zel32f val, Zel32f* pDst, int len);
ZELS_API ZelStatus zelsSubC_32f_I(Zel32f val, Zel32f* pSrcDst, int len);
ZELS_API ZelStatus zelsSubC_32f_L(const Zel32f* pSrc, Zel32f val, Zel32f* pDst, ZelSize len);
ZELS_API ZelStatus zelsSubC_32f_I_L(Zel32f val, Zel32f* pSrcDst, ZelSize len);
ZELS_API ZelStatus zelsSubC_64f(const Zel64f* pSrc, Zel64f val, Zel64f* pDst, int len);
ZELS_API ZelStatus zelsSubC_64f_I(Zel64f val, Zel64f* pSrcDst, int len);
ZELS_API ZelStatus zelsSubC_64f_L(const Zel64f* pSrc, Zel64f val, Zel64f* pDst, ZelSize len);
ZELS_API ZelStatus zelsSubC_64f_I_L(Zel64f val, Zel64f* pSrcDst, ZelSize len);
ZELS_API ZelStatus zelsSubC_32fc(const Zel32fc* pSrc, Zel32fc val, Zel32fc* pDst, int len);
ZELS_API ZelStatus zelsSubC_32fc_I(Zel32fc val, Zel32fc* pSrcDst, int len);
ZELS_API ZelStatus zelsSubC_32fc_L(const Zel32fc* pSrc, Zel32fc val, Zel32fc* pDst, ZelSize len);
ZELS_API ZelStatus zelsSubC_32fc_I_L(Zel32fc val, Zel32fc* pSrcDst, ZelSize len);
ZELS_API ZelStatus zelsSubC_64fc(const Zel64fc* pSrc, Zel64fc val, Zel64fc* pDst, int len);
ZELS_API ZelStatus zelsSubC_64fc_I(Zel64fc val, Zel64fc* pSrcDst, int len);
ZELS_API ZelStatus zelsSubC_64fc_L(const Zel64fc* pSrc, Zel64fc val, Zel64fc* pDst, ZelSize len);
ZELS_API ZelStatus zelsSubC_64fc_I_L(Zel64fc val, Zel64fc* pSrcDst, ZelSize len);
/** @} */

/** @name Difference from a constant
 *  `pDst[n] = val - pSrc[n]`, whatever the constant.
 *  @param pSrc source
 *  @param val constant
 *  @param pDst destination
 *  @param pSrcDst source and destination
 *  @param len length in elements
 *  @return #zelErrNullPtr for a null pointer, else #zelErrSize for a length below 1, else #zelStatusOk
 *  @{
 */
ZELS_API ZelStatus zelsSubCRev_32f(const Zel32f* pSrc, Zel32f val, Zel32f* pDst, int len);
ZELS_API ZelStatus zelsSubCRev_32f_I(Zel32f val, Zel32f* pSrcDst, int len);
ZELS_API ZelStatus zelsSubCRev_32f_L(const Zel32f* pSrc, Zel32f val, Zel32f* pDst, ZelSize len);
ZELS_API ZelStatus zelsSubCRev_32f_I_L(Zel32f val, Zel32f* pSrcDst, ZelSize len);
ZELS_API ZelStatus zelsSubCRev_64f(const Zel64f* pSrc, Zel64f val, Zel64f* pDst, int len);
ZELS_API ZelStatus zelsSubCRev_64f_I(Zel64f val, Zel64f* pSrcDst, int len);
ZELS_API ZelStatus zelsSubCRev_64f_L(const Zel64f* pSrc, Zel64f val, Zel64f* pDst, ZelSize len);
ZELS_API ZelStatus zelsSubCRev_64f_I_L(Zel64f val, Zel64f* pSrcDst, ZelSize len);
ZELS_API ZelStatus zelsSubCRev_32fc(const Zel32fc* pSrc, Zel32fc val, Zel32fc* pDst, int len);
ZELS_API ZelStatus zelsSubCRev_32fc_I(Zel32fc val, Zel32fc* pSrcDst, int len);
ZELS_API ZelStatus zelsSubCRev_32fc_L(const Zel32fc* pSrc, Zel32fc val, Zel32fc* pDst, ZelSize len);
ZELS_API ZelStatus zelsSubCRev_32fc_I_L(Zel32fc val, Zel32fc* pSrcDst, ZelSize len);
ZELS_API ZelStatus zelsSubCRev_64fc(const Zel64fc* pSrc, Zel64fc val, Zel64fc* pDst, int len);
ZELS_API ZelStatus zelsSubCRev_64fc_I(Zel64fc val, Zel64fc* pSrcDst, int len);
ZELS_API ZelStatus zelsSubCRev_64fc_L(const Zel64fc* pSrc, Zel64fc val, Zel64fc* pDst, ZelSize len);
ZELS_API ZelStatus zelsSubCRev_64fc_I_L(Zel64fc val, Zel64fc* pSrcDst, ZelSize len);
/** @} */

/** @name Product with a constant
 *  `pDst[n] = pSrc[n] * val`. In the real forms a constant of 1 makes a copy, or in place nothing, and a
 * constant of 0 clears the destination, so that infinity or NaN times 0 is 0 there.
 *  @param pSrc source
 *  @param val constant
 *  @param pDst destination
 *  @param pSrcDst source and destination
 *  @param len length in elements
 *  @return #zelErrNullPtr for a null pointer, else #zelErrSize for a length below 1, else #zelStatusOk
 *  @{
 */
ZELS_API ZelStatus zelsMulC_32f(const Zel32f* pSrc, Zel32f val, Zel32f* pDst, int len);
ZELS_API ZelStatus zelsMulC_32f_I(Zel32f val, Zel32f* pSrcDst, int len);
ZELS_API ZelStatus zelsMulC_32f_L(const Zel32f* pSrc, Zel32f val, Zel32f* pDst, ZelSize len);
ZELS_API ZelStatus zelsMulC_32f_I_L(Zel32f val, Zel32f* pSrcDst, ZelSize len);
ZELS_API ZelStatus zelsMulC_64f(const Zel64f* pSrc, Zel64f val, Zel64f* pDst, int len);
ZELS_API ZelStatus zelsMulC_64f_I(Zel64f val, Zel64f* pSrcDst, int len);
ZELS_API ZelStatus zelsMulC_64f_L(const Zel64f* pSrc, Zel64f val, Zel64f* pDst, ZelSize len);
ZELS_API ZelStatus zelsMulC_64f_I_L(Zel64f val, Zel64f* pSrcDst, ZelSize len);
ZELS_API ZelStatus zelsMulC_32fc(const Zel32fc* pSrc, Zel32fc val, Zel32fc* pDst, int len);
ZELS_API ZelStatus zelsMulC_32fc_I(Zel32fc val, Zel32fc* pSrcDst, int len);
ZELS_API ZelStatus zelsMulC_32fc_L(const Zel32fc* pSrc, Zel32fc val, Zel32fc* pDst, ZelSize len);
ZELS_API ZelStatus zelsMulC_32fc_I_L(Zel32fc val, Zel32fc* pSrcDst, ZelSize len);
ZELS_API ZelStatus zelsMulC_64fc(const Zel64fc* pSrc, Zel64fc val, Zel64fc* pDst, int len);
ZELS_API ZelStatus zelsMulC_64fc_I(Zel64fc val, Zel64fc* pSrcDst, int len);
ZELS_API ZelStatus zelsMulC_64fc_L(const Zel64fc* pSrc, Zel64fc val, Zel64fc* pDst, ZelSize len);
ZELS_API ZelStatus zelsMulC_64fc_I_L(Zel64fc val, Zel64fc* pSrcDst, ZelSize len);
/** @} */

/** @name Sum with a product
 *  `pSrcDst[n] = pSrcDst[n] + pSrc1[n] * pSrc2[n]`, or with `val` in place of the second source. Product and
 * sum are each rounded.
 *  @param pSrc1 first factor
 *  @param pSrc2 second factor
 *  @param pSrc first factor
 *  @param val second factor, a constant
 *  @param pSrcDst sum
 *  @param len length in elements
 *  @return #zelErrNullPtr for a null pointer, else #zelErrSize for a length below 1, else #zelStatusOk
 *  @{
 */
ZELS_API ZelStatus zelsAddProduct_32f(const Zel32f* pSrc1, const Zel32f* pSrc2, Zel32f* pSrcDst, int len);
ZELS_API ZelStatus zelsAddProduct_64f(const Zel64f* pSrc1, const Zel64f* pSrc2, Zel64f* pSrcDst, int len);
ZELS_API ZelStatus zelsAddProduct_32fc(const Zel32fc* pSrc1, const Zel32fc* pSrc2, Zel32fc* pSrcDst, int len);
ZELS_API ZelStatus zelsAddProduct_64fc(const Zel64fc* pSrc1, const Zel64fc* pSrc2, Zel64fc* pSrcDst, int len);
ZELS_API ZelStatus zelsAddProductC_32f(const Zel32f* pSrc, Zel32f val, Zel32f* pSrcDst, int len);
ZELS_API ZelStatus zelsAddProductC_64f(const Zel64f* pSrc, Zel64f val, Zel64f* pSrcDst, int len);
ZELS_API ZelStatus zelsAddProductC_32fc(const Zel32fc* pSrc, Zel32fc val, Zel32fc* pSrcDst, int len);
ZELS_API ZelStatus zelsAddProductC_64fc(const Zel64fc* pSrc, Zel64fc val, Zel64fc* pSrcDst, int len);
/** @} */

/** `pSrc[n] * val` in single precision, converted under the caller's rounding mode and packed with
 * saturation. There is no clamp before the conversion: a product outside the range of a 32-bit integer gives
 * -32768 whatever its sign.
 *  @param pSrc source
 *  @param val constant
 *  @param pDst destination
 *  @param len length in elements
 *  @return #zelErrNullPtr for a null pointer, else #zelErrSize for a length below 1, else #zelStatusOk
 */
ZELS_API ZelStatus zelsMulC_Low_32f16s(const Zel32f* pSrc, Zel32f val, Zel16s* pDst, int len);

/** `pSrc[n] * (val * 2^(-scaleFactor))` in single precision, clamped to the range of #Zel16s and rounded.
 * Product and conversion round to nearest, ties to even, whatever the caller's mode. A scaled constant beyond the range of single precision
 * stays at its edge, so that 0 gives 0 and an infinity saturates; a subnormal one loses bits. A NaN product
 * gives -32768.
 *  @param pSrc source
 *  @param val constant
 *  @param pDst destination
 *  @param len length in elements
 *  @param scaleFactor scale factor, any value
 *  @return #zelErrNullPtr for a null pointer, else #zelErrSize for a length below 1, else #zelStatusOk
 */
ZELS_API ZelStatus zelsMulC_32f16s_Sfs(const Zel32f* pSrc, Zel32f val, Zel16s* pDst, int len,
                                       int scaleFactor);

/** `pSrcDst[n] * (val * 2^(-scaleFactor))` in double precision, rounded to nearest, ties to even, and
 * saturated. An element of 0 stays 0 whatever the constant; any other NaN product gives 0.
 *  @param val constant
 *  @param pSrcDst source and destination
 *  @param len length in elements
 *  @param scaleFactor scale factor, any value
 *  @return #zelErrNullPtr for a null pointer, else #zelErrSize for a length below 1, else #zelStatusOk
 */
ZELS_API ZelStatus zelsMulC_64f64s_ISfs(Zel64f val, Zel64s* pSrcDst, int len, int scaleFactor);

/** @} */

/** @defgroup scaled Scaled integer arithmetic
 *  Integer arithmetic with a scale factor, exact to the bit: the exact sum, difference or product times
 *  2^(-scaleFactor) is rounded to nearest, ties to even, and saturated to the element type. A positive factor
 *  divides, a negative one multiplies, and every int is valid: a factor so high that every result rounds to 0
 *  clears the destination, one so low that nothing but 0 stays in range saturates by the sign of the exact
 *  value (in zelsAddProduct_32s_Sfs a factor of 63 clears, though the largest sums would round to 1). Each
 *  part of a complex result is rounded and saturated by itself. Source and destination may be the same array.
 *  The complex sums and differences of two vectors test the length before the pointers, the others after.
 *  @{
 */

/** @name Scaled sum
 *  `pDst[n] = pSrc1[n] + pSrc2[n]`, scaled; in place `pSrcDst[n] = pSrcDst[n] + pSrc[n]`. The forms without a
 *  scale factor saturate only; zelsAdd_8u16u has room for any sum.
 *  @param pSrc1 first source
 *  @param pSrc2 second source
 *  @param pDst destination
 *  @param pSrc first source of the in-place forms
 *  @param pSrcDst second source and destination
 *  @param len length in elements
 *  @param scaleFactor scale factor, any value
 *  @return #zelErrNullPtr for a null pointer, else #zelErrSize for a length below 1, else #zelStatusOk
 *  @{
 */
ZELS_API ZelStatus zelsAdd_8u_Sfs(const Zel8u* pSrc1, const Zel8u* pSrc2, Zel8u* pDst, int len,
                                  int scaleFactor);
ZELS_API ZelStatus zelsAdd_8u_ISfs(const Zel8u* pSrc, Zel8u* pSrcDst, int len, int scaleFactor);
ZELS_API ZelStatus zelsAdd_16s_Sfs(const Zel16s* pSrc1, const Zel16s* pSrc2, Zel16s* pDst, int len,
                                   int scaleFactor);
ZELS_API ZelStatus zelsAdd_16s_ISfs(const Zel16s* pSrc, Zel16s* pSrcDst, int len, int scaleFactor);
ZELS_API ZelStatus zelsAdd_16u_Sfs(const Zel16u* pSrc1, const Zel16u* pSrc2, Zel16u* pDst, int len,
                                   int scaleFactor);
ZELS_API ZelStatus zelsAdd_16u_ISfs(const Zel16u* pSrc, Zel16u* pSrcDst, int len, int scaleFactor);
ZELS_API ZelStatus zelsAdd_16sc_Sfs(const Zel16sc* pSrc1, const Zel16sc* pSrc2, Zel16sc* pDst, int len,
                                    int scaleFactor);
ZELS_API ZelStatus zelsAdd_16sc_ISfs(const Zel16sc* pSrc, Zel16sc* pSrcDst, int len, int scaleFactor);
ZELS_API ZelStatus zelsAdd_32s_Sfs(const Zel32s* pSrc1, const Zel32s* pSrc2, Zel32s* pDst, int len,
                                   int scaleFactor);
ZELS_API ZelStatus zelsAdd_32s_ISfs(const Zel32s* pSrc, Zel32s* pSrcDst, int len, int scaleFactor);
ZELS_API ZelStatus zelsAdd_32sc_Sfs(const Zel32sc* pSrc1, const Zel32sc* pSrc2, Zel32sc* pDst, int len,
                                    int scaleFactor);
ZELS_API ZelStatus zelsAdd_32sc_ISfs(const Zel32sc* pSrc, Zel32sc* pSrcDst, int len, int scaleFactor);
ZELS_API ZelStatus zelsAdd_16s(const Zel16s* pSrc1, const Zel16s* pSrc2, Zel16s* pDst, int len);
ZELS_API ZelStatus zelsAdd_16s_I(const Zel16s* pSrc, Zel16s* pSrcDst, int len);
ZELS_API ZelStatus zelsAdd_16u(const Zel16u* pSrc1, const Zel16u* pSrc2, Zel16u* pDst, int len);
ZELS_API ZelStatus zelsAdd_32u(const Zel32u* pSrc1, const Zel32u* pSrc2, Zel32u* pDst, int len);
ZELS_API ZelStatus zelsAdd_32u_I(const Zel32u* pSrc, Zel32u* pSrcDst, int len);
ZELS_API ZelStatus zelsAdd_8u16u(const Zel8u* pSrc1, const Zel8u* pSrc2, Zel16u* pDst, int len);
ZELS_API ZelStatus zelsAdd_16s32s_I(const Zel16s* pSrc, Zel32s* pSrcDst, int len);
/** @} */

/** @name Scaled difference
 *  `pDst[n] = pSrc2[n] - pSrc1[n]`, scaled: the first source is the subtrahend; in place `pSrcDst[n] =
 *  pSrcDst[n] - pSrc[n]`. The forms without a scale factor saturate only.
 *  @param pSrc1 first source
 *  @param pSrc2 second source
 *  @param pDst destination
 *  @param pSrc first source of the in-place forms
 *  @param pSrcDst second source and destination
 *  @param len length in elements
 *  @param scaleFactor scale factor, any value
 *  @return #zelErrNullPtr for a null pointer, else #zelErrSize for a length below 1, else #zelStatusOk
 *  @{
 */
ZELS_API ZelStatus zelsSub_8u_Sfs(const Zel8u* pSrc1, const Zel8u* pSrc2, Zel8u* pDst, int len,
                                  int scaleFactor);
ZELS_API ZelStatus zelsSub_8u_ISfs(const Zel8u* pSrc, Zel8u* pSrcDst, int len, int scaleFactor);
ZELS_API ZelStatus zelsSub_16s_Sfs(const Zel16s* pSrc1, const Zel16s* pSrc2, Zel16s* pDst, int len,
                                   int scaleFactor);
ZELS_API ZelStatus zelsSub_16s_ISfs(const Zel16s* pSrc, Zel16s* pSrcDst, int len, int scaleFactor);
ZELS_API ZelStatus zelsSub_16u_Sfs(const Zel16u* pSrc1, const Zel16u* pSrc2, Zel16u* pDst, int len,
                                   int scaleFactor);
ZELS_API ZelStatus zelsSub_16u_ISfs(const Zel16u* pSrc, Zel16u* pSrcDst, int len, int scaleFactor);
ZELS_API ZelStatus zelsSub_16sc_Sfs(const Zel16sc* pSrc1, const Zel16sc* pSrc2, Zel16sc* pDst, int len,
                                    int scaleFactor);
ZELS_API ZelStatus zelsSub_16sc_ISfs(const Zel16sc* pSrc, Zel16sc* pSrcDst, int len, int scaleFactor);
ZELS_API ZelStatus zelsSub_32s_Sfs(const Zel32s* pSrc1, const Zel32s* pSrc2, Zel32s* pDst, int len,
                                   int scaleFactor);
ZELS_API ZelStatus zelsSub_32s_ISfs(const Zel32s* pSrc, Zel32s* pSrcDst, int len, int scaleFactor);
ZELS_API ZelStatus zelsSub_32sc_Sfs(const Zel32sc* pSrc1, const Zel32sc* pSrc2, Zel32sc* pDst, int len,
                                    int scaleFactor);
ZELS_API ZelStatus zelsSub_32sc_ISfs(const Zel32sc* pSrc, Zel32sc* pSrcDst, int len, int scaleFactor);
ZELS_API ZelStatus zelsSub_16s(const Zel16s* pSrc1, const Zel16s* pSrc2, Zel16s* pDst, int len);
ZELS_API ZelStatus zelsSub_16s_I(const Zel16s* pSrc, Zel16s* pSrcDst, int len);
/** @} */

/** @name Scaled product
 *  `pDst[n] = pSrc1[n] * pSrc2[n]`, scaled; in place `pSrcDst[n] = pSrcDst[n] * pSrc[n]`. Complex products
 *  are exact before each part is scaled. The forms without a scale factor saturate only; zelsMul_8u16u has
 *  room for any product. From 262152 elements on zelsMul_16s32s_Sfs writes past the caches.
 *  @param pSrc1 first source
 *  @param pSrc2 second source
 *  @param pDst destination
 *  @param pSrc first source of the in-place forms
 *  @param pSrcDst second source and destination
 *  @param len length in elements
 *  @param scaleFactor scale factor, any value
 *  @return #zelErrNullPtr for a null pointer, else #zelErrSize for a length below 1, else #zelStatusOk
 *  @{
 */
ZELS_API ZelStatus zelsMul_8u_Sfs(const Zel8u* pSrc1, const Zel8u* pSrc2, Zel8u* pDst, int len,
                                  int scaleFactor);
ZELS_API ZelStatus zelsMul_8u_ISfs(const Zel8u* pSrc, Zel8u* pSrcDst, int len, int scaleFactor);
ZELS_API ZelStatus zelsMul_16s_Sfs(const Zel16s* pSrc1, const Zel16s* pSrc2, Zel16s* pDst, int len,
                                   int scaleFactor);
ZELS_API ZelStatus zelsMul_16s_ISfs(const Zel16s* pSrc, Zel16s* pSrcDst, int len, int scaleFactor);
ZELS_API ZelStatus zelsMul_16u_Sfs(const Zel16u* pSrc1, const Zel16u* pSrc2, Zel16u* pDst, int len,
                                   int scaleFactor);
ZELS_API ZelStatus zelsMul_16u_ISfs(const Zel16u* pSrc, Zel16u* pSrcDst, int len, int scaleFactor);
ZELS_API ZelStatus zelsMul_16sc_Sfs(const Zel16sc* pSrc1, const Zel16sc* pSrc2, Zel16sc* pDst, int len,
                                    int scaleFactor);
ZELS_API ZelStatus zelsMul_16sc_ISfs(const Zel16sc* pSrc, Zel16sc* pSrcDst, int len, int scaleFactor);
ZELS_API ZelStatus zelsMul_32s_Sfs(const Zel32s* pSrc1, const Zel32s* pSrc2, Zel32s* pDst, int len,
                                   int scaleFactor);
ZELS_API ZelStatus zelsMul_32s_ISfs(const Zel32s* pSrc, Zel32s* pSrcDst, int len, int scaleFactor);
ZELS_API ZelStatus zelsMul_32sc_Sfs(const Zel32sc* pSrc1, const Zel32sc* pSrc2, Zel32sc* pDst, int len,
                                    int scaleFactor);
ZELS_API ZelStatus zelsMul_32sc_ISfs(const Zel32sc* pSrc, Zel32sc* pSrcDst, int len, int scaleFactor);
ZELS_API ZelStatus zelsMul_16u16s_Sfs(const Zel16u* pSrc1, const Zel16s* pSrc2, Zel16s* pDst, int len,
                                      int scaleFactor);
ZELS_API ZelStatus zelsMul_16s32s_Sfs(const Zel16s* pSrc1, const Zel16s* pSrc2, Zel32s* pDst, int len,
                                      int scaleFactor);
ZELS_API ZelStatus zelsMul_16s(const Zel16s* pSrc1, const Zel16s* pSrc2, Zel16s* pDst, int len);
ZELS_API ZelStatus zelsMul_16s_I(const Zel16s* pSrc, Zel16s* pSrcDst, int len);
ZELS_API ZelStatus zelsMul_8u16u(const Zel8u* pSrc1, const Zel8u* pSrc2, Zel16u* pDst, int len);
/** @} */

/** @name Scaled sum with a constant
 *  `pDst[n] = pSrc[n] + val`, scaled. With a constant and a factor of 0 this is a copy, or in place nothing.
 *  @param pSrc source
 *  @param val constant
 *  @param pDst destination
 *  @param pSrcDst source and destination
 *  @param len length in elements
 *  @param scaleFactor scale factor, any value
 *  @return #zelErrNullPtr for a null pointer, else #zelErrSize for a length below 1, else #zelStatusOk
 *  @{
 */
ZELS_API ZelStatus zelsAddC_8u_Sfs(const Zel8u* pSrc, Zel8u val, Zel8u* pDst, int len, int scaleFactor);
ZELS_API ZelStatus zelsAddC_8u_ISfs(Zel8u val, Zel8u* pSrcDst, int len, int scaleFactor);
ZELS_API ZelStatus zelsAddC_16s_Sfs(const Zel16s* pSrc, Zel16s val, Zel16s* pDst, int len, int scaleFactor);
ZELS_API ZelStatus zelsAddC_16s_ISfs(Zel16s val, Zel16s* pSrcDst, int len, int scaleFactor);
ZELS_API ZelStatus zelsAddC_16u_Sfs(const Zel16u* pSrc, Zel16u val, Zel16u* pDst, int len, int scaleFactor);
ZELS_API ZelStatus zelsAddC_16u_ISfs(Zel16u val, Zel16u* pSrcDst, int len, int scaleFactor);
ZELS_API ZelStatus zelsAddC_16sc_Sfs(const Zel16sc* pSrc, Zel16sc val, Zel16sc* pDst, int len,
                                     int scaleFactor);
ZELS_API ZelStatus zelsAddC_16sc_ISfs(Zel16sc val, Zel16sc* pSrcDst, int len, int scaleFactor);
ZELS_API ZelStatus zelsAddC_32s_Sfs(const Zel32s* pSrc, Zel32s val, Zel32s* pDst, int len, int scaleFactor);
ZELS_API ZelStatus zelsAddC_32s_ISfs(Zel32s val, Zel32s* pSrcDst, int len, int scaleFactor);
ZELS_API ZelStatus zelsAddC_32sc_Sfs(const Zel32sc* pSrc, Zel32sc val, Zel32sc* pDst, int len,
                                     int scaleFactor);
ZELS_API ZelStatus zelsAddC_32sc_ISfs(Zel32sc val, Zel32sc* pSrcDst, int len, int scaleFactor);
ZELS_API ZelStatus zelsAddC_16s_I(Zel16s val, Zel16s* pSrcDst, int len);
/** @} */

/** @name Scaled difference with a constant
 *  `pDst[n] = pSrc[n] - val`, scaled. With a constant and a factor of 0 this is a copy, or in place nothing.
 *  @param pSrc source
 *  @param val constant
 *  @param pDst destination
 *  @param pSrcDst source and destination
 *  @param len length in elements
 *  @param scaleFactor scale factor, any value
 *  @return #zelErrNullPtr for a null pointer, else #zelErrSize for a length below 1, else #zelStatusOk
 *  @{
 */
ZELS_API ZelStatus zelsSubC_8u_Sfs(const Zel8u* pSrc, Zel8u val, Zel8u* pDst, int len, int scaleFactor);
ZELS_API ZelStatus zelsSubC_8u_ISfs(Zel8u val, Zel8u* pSrcDst, int len, int scaleFactor);
ZELS_API ZelStatus zelsSubC_16s_Sfs(const Zel16s* pSrc, Zel16s val, Zel16s* pDst, int len, int scaleFactor);
ZELS_API ZelStatus zelsSubC_16s_ISfs(Zel16s val, Zel16s* pSrcDst, int len, int scaleFactor);
ZELS_API ZelStatus zelsSubC_16u_Sfs(const Zel16u* pSrc, Zel16u val, Zel16u* pDst, int len, int scaleFactor);
ZELS_API ZelStatus zelsSubC_16u_ISfs(Zel16u val, Zel16u* pSrcDst, int len, int scaleFactor);
ZELS_API ZelStatus zelsSubC_16sc_Sfs(const Zel16sc* pSrc, Zel16sc val, Zel16sc* pDst, int len,
                                     int scaleFactor);
ZELS_API ZelStatus zelsSubC_16sc_ISfs(Zel16sc val, Zel16sc* pSrcDst, int len, int scaleFactor);
ZELS_API ZelStatus zelsSubC_32s_Sfs(const Zel32s* pSrc, Zel32s val, Zel32s* pDst, int len, int scaleFactor);
ZELS_API ZelStatus zelsSubC_32s_ISfs(Zel32s val, Zel32s* pSrcDst, int len, int scaleFactor);
ZELS_API ZelStatus zelsSubC_32sc_Sfs(const Zel32sc* pSrc, Zel32sc val, Zel32sc* pDst, int len,
                                     int scaleFactor);
ZELS_API ZelStatus zelsSubC_32sc_ISfs(Zel32sc val, Zel32sc* pSrcDst, int len, int scaleFactor);
ZELS_API ZelStatus zelsSubC_16s_I(Zel16s val, Zel16s* pSrcDst, int len);
/** @} */

/** @name Scaled difference from a constant
 *  `pDst[n] = val - pSrc[n]`, scaled.
 *  @param pSrc source
 *  @param val constant
 *  @param pDst destination
 *  @param pSrcDst source and destination
 *  @param len length in elements
 *  @param scaleFactor scale factor, any value
 *  @return #zelErrNullPtr for a null pointer, else #zelErrSize for a length below 1, else #zelStatusOk
 *  @{
 */
ZELS_API ZelStatus zelsSubCRev_8u_Sfs(const Zel8u* pSrc, Zel8u val, Zel8u* pDst, int len, int scaleFactor);
ZELS_API ZelStatus zelsSubCRev_8u_ISfs(Zel8u val, Zel8u* pSrcDst, int len, int scaleFactor);
ZELS_API ZelStatus zelsSubCRev_16s_Sfs(const Zel16s* pSrc, Zel16s val, Zel16s* pDst, int len,
                                       int scaleFactor);
ZELS_API ZelStatus zelsSubCRev_16s_ISfs(Zel16s val, Zel16s* pSrcDst, int len, int scaleFactor);
ZELS_API ZelStatus zelsSubCRev_16u_Sfs(const Zel16u* pSrc, Zel16u val, Zel16u* pDst, int len,
                                       int scaleFactor);
ZELS_API ZelStatus zelsSubCRev_16u_ISfs(Zel16u val, Zel16u* pSrcDst, int len, int scaleFactor);
ZELS_API ZelStatus zelsSubCRev_16sc_Sfs(const Zel16sc* pSrc, Zel16sc val, Zel16sc* pDst, int len,
                                        int scaleFactor);
ZELS_API ZelStatus zelsSubCRev_16sc_ISfs(Zel16sc val, Zel16sc* pSrcDst, int len, int scaleFactor);
ZELS_API ZelStatus zelsSubCRev_32s_Sfs(const Zel32s* pSrc, Zel32s val, Zel32s* pDst, int len,
                                       int scaleFactor);
ZELS_API ZelStatus zelsSubCRev_32s_ISfs(Zel32s val, Zel32s* pSrcDst, int len, int scaleFactor);
ZELS_API ZelStatus zelsSubCRev_32sc_Sfs(const Zel32sc* pSrc, Zel32sc val, Zel32sc* pDst, int len,
                                        int scaleFactor);
ZELS_API ZelStatus zelsSubCRev_32sc_ISfs(Zel32sc val, Zel32sc* pSrcDst, int len, int scaleFactor);
/** @} */

/** @name Scaled product with a constant
 *  `pDst[n] = pSrc[n] * val`, scaled. A constant of 0 clears the destination. With a constant of 1 and a
 *  factor of 0 this is a copy, or in place nothing. The products of the 64s form are exact, in 128 bits.
 *  @param pSrc source
 *  @param val constant
 *  @param pDst destination
 *  @param pSrcDst source and destination
 *  @param len length in elements
 *  @param scaleFactor scale factor, any value
 *  @return #zelErrNullPtr for a null pointer, else #zelErrSize for a length below 1, else #zelStatusOk
 *  @{
 */
ZELS_API ZelStatus zelsMulC_8u_Sfs(const Zel8u* pSrc, Zel8u val, Zel8u* pDst, int len, int scaleFactor);
ZELS_API ZelStatus zelsMulC_8u_ISfs(Zel8u val, Zel8u* pSrcDst, int len, int scaleFactor);
ZELS_API ZelStatus zelsMulC_16s_Sfs(const Zel16s* pSrc, Zel16s val, Zel16s* pDst, int len, int scaleFactor);
ZELS_API ZelStatus zelsMulC_16s_ISfs(Zel16s val, Zel16s* pSrcDst, int len, int scaleFactor);
ZELS_API ZelStatus zelsMulC_16u_Sfs(const Zel16u* pSrc, Zel16u val, Zel16u* pDst, int len, int scaleFactor);
ZELS_API ZelStatus zelsMulC_16u_ISfs(Zel16u val, Zel16u* pSrcDst, int len, int scaleFactor);
ZELS_API ZelStatus zelsMulC_16sc_Sfs(const Zel16sc* pSrc, Zel16sc val, Zel16sc* pDst, int len,
                                     int scaleFactor);
ZELS_API ZelStatus zelsMulC_16sc_ISfs(Zel16sc val, Zel16sc* pSrcDst, int len, int scaleFactor);
ZELS_API ZelStatus zelsMulC_32s_Sfs(const Zel32s* pSrc, Zel32s val, Zel32s* pDst, int len, int scaleFactor);
ZELS_API ZelStatus zelsMulC_32s_ISfs(Zel32s val, Zel32s* pSrcDst, int len, int scaleFactor);
ZELS_API ZelStatus zelsMulC_32sc_Sfs(const Zel32sc* pSrc, Zel32sc val, Zel32sc* pDst, int len,
                                     int scaleFactor);
ZELS_API ZelStatus zelsMulC_32sc_ISfs(Zel32sc val, Zel32sc* pSrcDst, int len, int scaleFactor);
ZELS_API ZelStatus zelsMulC_32s_Sfs_L(const Zel32s* pSrc, Zel32s val, Zel32s* pDst, ZelSize len,
                                      int scaleFactor);
ZELS_API ZelStatus zelsMulC_32s_ISfs_L(Zel32s val, Zel32s* pSrcDst, ZelSize len, int scaleFactor);
ZELS_API ZelStatus zelsMulC_64s_ISfs(Zel64s val, Zel64s* pSrcDst, int len, int scaleFactor);
ZELS_API ZelStatus zelsMulC_16s_I(Zel16s val, Zel16s* pSrcDst, int len);
/** @} */

/** @name Scaled product added to the destination
 *  `pSrcDst[n] = pSrcDst[n] + pSrc1[n] * pSrc2[n]`, scaled: the accumulator stands inside the scaling, and
 *  its old value does not keep its scale.
 *  @param pSrc1 first source
 *  @param pSrc2 second source
 *  @param pSrcDst accumulator and destination
 *  @param len length in elements
 *  @param scaleFactor scale factor, any value
 *  @return #zelErrNullPtr for a null pointer, else #zelErrSize for a length below 1, else #zelStatusOk
 *  @{
 */
ZELS_API ZelStatus zelsAddProduct_16s_Sfs(const Zel16s* pSrc1, const Zel16s* pSrc2, Zel16s* pSrcDst, int len,
                                          int scaleFactor);
ZELS_API ZelStatus zelsAddProduct_16s32s_Sfs(const Zel16s* pSrc1, const Zel16s* pSrc2, Zel32s* pSrcDst,
                                             int len, int scaleFactor);
ZELS_API ZelStatus zelsAddProduct_32s_Sfs(const Zel32s* pSrc1, const Zel32s* pSrc2, Zel32s* pSrcDst, int len,
                                          int scaleFactor);
/** @} */

/** @} */

/** @defgroup division Division
 *  A zero in a vector of divisors is a warning, and the vector is finished all the same; a constant divisor
 *  of 0 is an error, and nothing is written. Source and destination may be the same array. The long forms
 *  test the length before the pointers, the others after; their warning tells of the last chunk of 2^31 bytes
 *  only.
 *  @{
 */

/** @name Quotient of float vectors
 *  `pDst[n] = pSrc2[n] / pSrc1[n]`: the first source is the divisor; in place `pSrcDst[n] = pSrcDst[n] /
 *  pSrc[n]`. The 32f forms estimate in vectors: with an estimate y of the reciprocal of the divisor x (12
 *  bits) and its error e = 1 - x y, the quotient is the dividend times y + e (y + e y), within 3 units in the
 *  last place, 6 in the directed rounding modes; so it is no quotient where the reciprocal is no normal
 *  number (divisors below 2^-126 or from 2^126 on in magnitude: zero, infinite or NaN). Four divisors of
 *  which one is zero, vectors of up to 10 elements and the elements at both ends of a vector are truly
 *  divided. The 64f forms are the true quotient. Complex forms divide the product with the conjugate by the
 *  sum of the squares, each step rounded. A zero divisor gives the IEEE quotient: an infinity, or a NaN for
 *  0/0, in each part of a complex element. Source of the method: M. J. Flynn, On Division by Functional
 *  Iteration, IEEE Trans. Computers C-19, 1970.
 *  @param pSrc1 first source: the divisor
 *  @param pSrc2 second source: the dividend
 *  @param pDst destination
 *  @param pSrc divisor of the in-place forms
 *  @param pSrcDst dividend and destination
 *  @param len length in elements
 *  @return #zelErrNullPtr for a null pointer, else #zelErrSize for a length below 1, else #zelWarnDivByZero
 *  where a divisor was zero, else #zelStatusOk
 *  @{
 */
ZELS_API ZelStatus zelsDiv_32f(const Zel32f* pSrc1, const Zel32f* pSrc2, Zel32f* pDst, int len);
ZELS_API ZelStatus zelsDiv_32f_I(const Zel32f* pSrc, Zel32f* pSrcDst, int len);
ZELS_API ZelStatus zelsDiv_32f_L(const Zel32f* pSrc1, const Zel32f* pSrc2, Zel32f* pDst, ZelSize len);
ZELS_API ZelStatus zelsDiv_32f_I_L(const Zel32f* pSrc, Zel32f* pSrcDst, ZelSize len);
ZELS_API ZelStatus zelsDiv_64f(const Zel64f* pSrc1, const Zel64f* pSrc2, Zel64f* pDst, int len);
ZELS_API ZelStatus zelsDiv_64f_I(const Zel64f* pSrc, Zel64f* pSrcDst, int len);
ZELS_API ZelStatus zelsDiv_64f_L(const Zel64f* pSrc1, const Zel64f* pSrc2, Zel64f* pDst, ZelSize len);
ZELS_API ZelStatus zelsDiv_64f_I_L(const Zel64f* pSrc, Zel64f* pSrcDst, ZelSize len);
ZELS_API ZelStatus zelsDiv_32fc(const Zel32fc* pSrc1, const Zel32fc* pSrc2, Zel32fc* pDst, int len);
ZELS_API ZelStatus zelsDiv_32fc_I(const Zel32fc* pSrc, Zel32fc* pSrcDst, int len);
ZELS_API ZelStatus zelsDiv_32fc_L(const Zel32fc* pSrc1, const Zel32fc* pSrc2, Zel32fc* pDst, ZelSize len);
ZELS_API ZelStatus zelsDiv_32fc_I_L(const Zel32fc* pSrc, Zel32fc* pSrcDst, ZelSize len);
ZELS_API ZelStatus zelsDiv_64fc(const Zel64fc* pSrc1, const Zel64fc* pSrc2, Zel64fc* pDst, int len);
ZELS_API ZelStatus zelsDiv_64fc_I(const Zel64fc* pSrc, Zel64fc* pSrcDst, int len);
ZELS_API ZelStatus zelsDiv_64fc_L(const Zel64fc* pSrc1, const Zel64fc* pSrc2, Zel64fc* pDst, ZelSize len);
ZELS_API ZelStatus zelsDiv_64fc_I_L(const Zel64fc* pSrc, Zel64fc* pSrcDst, ZelSize len);
/** @} */

/** @name Quotient of a float vector by a constant
 *  `pDst[n] = pSrc[n] * (1 / val)`, on purpose: the reciprocal is rounded once, and the vector is handled as
 *  zelsMulC_32f and its like handle it, so that a reciprocal of 1 makes a copy and one of 0 a zero-fill. The
 *  complex forms multiply by `(val.re * v, -val.im * v)`, `v = 1 / (val.re * val.re + val.im * val.im)`; a
 *  sum of squares of 0 is an error.
 *  @param pSrc source
 *  @param val constant
 *  @param pDst destination
 *  @param pSrcDst source and destination
 *  @param len length in elements
 *  @return #zelErrNullPtr for a null pointer, else #zelErrSize for a length below 1, else #zelErrDivByZero
 *  for a constant of 0, else #zelStatusOk
 *  @{
 */
ZELS_API ZelStatus zelsDivC_32f(const Zel32f* pSrc, Zel32f val, Zel32f* pDst, int len);
ZELS_API ZelStatus zelsDivC_32f_I(Zel32f val, Zel32f* pSrcDst, int len);
ZELS_API ZelStatus zelsDivC_32f_L(const Zel32f* pSrc, Zel32f val, Zel32f* pDst, ZelSize len);
ZELS_API ZelStatus zelsDivC_32f_I_L(Zel32f val, Zel32f* pSrcDst, ZelSize len);
ZELS_API ZelStatus zelsDivC_64f(const Zel64f* pSrc, Zel64f val, Zel64f* pDst, int len);
ZELS_API ZelStatus zelsDivC_64f_I(Zel64f val, Zel64f* pSrcDst, int len);
ZELS_API ZelStatus zelsDivC_64f_L(const Zel64f* pSrc, Zel64f val, Zel64f* pDst, ZelSize len);
ZELS_API ZelStatus zelsDivC_64f_I_L(Zel64f val, Zel64f* pSrcDst, ZelSize len);
ZELS_API ZelStatus zelsDivC_32fc(const Zel32fc* pSrc, Zel32fc val, Zel32fc* pDst, int len);
ZELS_API ZelStatus zelsDivC_32fc_I(Zel32fc val, Zel32fc* pSrcDst, int len);
ZELS_API ZelStatus zelsDivC_32fc_L(const Zel32fc* pSrc, Zel32fc val, Zel32fc* pDst, ZelSize len);
ZELS_API ZelStatus zelsDivC_32fc_I_L(Zel32fc val, Zel32fc* pSrcDst, ZelSize len);
ZELS_API ZelStatus zelsDivC_64fc(const Zel64fc* pSrc, Zel64fc val, Zel64fc* pDst, int len);
ZELS_API ZelStatus zelsDivC_64fc_I(Zel64fc val, Zel64fc* pSrcDst, int len);
ZELS_API ZelStatus zelsDivC_64fc_L(const Zel64fc* pSrc, Zel64fc val, Zel64fc* pDst, ZelSize len);
ZELS_API ZelStatus zelsDivC_64fc_I_L(Zel64fc val, Zel64fc* pSrcDst, ZelSize len);
/** @} */

/** @name Quotient of a constant by a vector
 *  `pDst[n] = val / pSrc[n]`: the 32f forms as zelsDiv_32f; the 16u forms rounded to nearest, ties to even.
 *  Over zero the 16u forms give 65535, and 0 for a constant of 0.
 *  @param pSrc source
 *  @param val constant
 *  @param pDst destination
 *  @param pSrcDst source and destination
 *  @param len length in elements
 *  @return #zelErrNullPtr for a null pointer, else #zelErrSize for a length below 1, else #zelWarnDivByZero
 *  where a divisor was zero, else #zelStatusOk
 *  @{
 */
ZELS_API ZelStatus zelsDivCRev_32f(const Zel32f* pSrc, Zel32f val, Zel32f* pDst, int len);
ZELS_API ZelStatus zelsDivCRev_32f_I(Zel32f val, Zel32f* pSrcDst, int len);
ZELS_API ZelStatus zelsDivCRev_32f_L(const Zel32f* pSrc, Zel32f val, Zel32f* pDst, ZelSize len);
ZELS_API ZelStatus zelsDivCRev_32f_I_L(Zel32f val, Zel32f* pSrcDst, ZelSize len);
ZELS_API ZelStatus zelsDivCRev_16u(const Zel16u* pSrc, Zel16u val, Zel16u* pDst, int len);
ZELS_API ZelStatus zelsDivCRev_16u_I(Zel16u val, Zel16u* pSrcDst, int len);
/** @} */

/** @name Scaled quotient
 *  `pDst[n] = pSrc2[n] / pSrc1[n]`, times 2^(-scaleFactor), rounded once to nearest, ties to even, and
 *  saturated; in place `pSrcDst[n] = pSrcDst[n] / pSrc[n]`. Above a factor of 8 (8u), 15 (16s, 16u, 16sc) or
 *  31 every quotient is 0; below -15, -30 or -29 (32s16s) one that is not 0 saturates by its sign. Over zero
 *  a dividend saturates by its sign, and 0 gives 0, whatever the factor.
 *  @param pSrc1 first source: the divisor
 *  @param pSrc2 second source: the dividend
 *  @param pDst destination
 *  @param pSrc divisor of the in-place forms
 *  @param pSrcDst dividend and destination
 *  @param len length in elements
 *  @param scaleFactor scale factor, any value
 *  @return #zelErrNullPtr for a null pointer, else #zelErrSize for a length below 1, else #zelWarnDivByZero
 *  where a divisor was zero, else #zelStatusOk
 *  @{
 */
ZELS_API ZelStatus zelsDiv_8u_Sfs(const Zel8u* pSrc1, const Zel8u* pSrc2, Zel8u* pDst, int len,
                                  int scaleFactor);
ZELS_API ZelStatus zelsDiv_8u_ISfs(const Zel8u* pSrc, Zel8u* pSrcDst, int len, int scaleFactor);
ZELS_API ZelStatus zelsDiv_16s_Sfs(const Zel16s* pSrc1, const Zel16s* pSrc2, Zel16s* pDst, int len,
                                   int scaleFactor);
ZELS_API ZelStatus zelsDiv_16s_ISfs(const Zel16s* pSrc, Zel16s* pSrcDst, int len, int scaleFactor);
ZELS_API ZelStatus zelsDiv_16u_Sfs(const Zel16u* pSrc1, const Zel16u* pSrc2, Zel16u* pDst, int len,
                                   int scaleFactor);
ZELS_API ZelStatus zelsDiv_16u_ISfs(const Zel16u* pSrc, Zel16u* pSrcDst, int len, int scaleFactor);
ZELS_API ZelStatus zelsDiv_16sc_Sfs(const Zel16sc* pSrc1, const Zel16sc* pSrc2, Zel16sc* pDst, int len,
                                    int scaleFactor);
ZELS_API ZelStatus zelsDiv_16sc_ISfs(const Zel16sc* pSrc, Zel16sc* pSrcDst, int len, int scaleFactor);
ZELS_API ZelStatus zelsDiv_32s_Sfs(const Zel32s* pSrc1, const Zel32s* pSrc2, Zel32s* pDst, int len,
                                   int scaleFactor);
ZELS_API ZelStatus zelsDiv_32s_ISfs(const Zel32s* pSrc, Zel32s* pSrcDst, int len, int scaleFactor);
ZELS_API ZelStatus zelsDiv_32s16s_Sfs(const Zel16s* pSrc1, const Zel32s* pSrc2, Zel16s* pDst, int len,
                                      int scaleFactor);
/** @} */

/** @name Scaled quotient by a rounding mode
 *  As the scaled quotient, rounded by the mode given. Above a factor of 16 every quotient is 0, below -30 it
 *  saturates.
 *  @param pSrc1 first source: the divisor
 *  @param pSrc2 second source: the dividend
 *  @param pDst destination
 *  @param pSrc divisor of the in-place forms
 *  @param pSrcDst dividend and destination
 *  @param len length in elements
 *  @param rndMode #zelRndZero, #zelRndNear or #zelRndFinancial
 *  @param scaleFactor scale factor, any value
 *  @return #zelErrNullPtr for a null pointer, else #zelErrSize for a length below 1, else #zelErrRoundMode
 *  for another mode, else #zelWarnDivByZero where a divisor was zero, else #zelStatusOk
 *  @{
 */
ZELS_API ZelStatus zelsDiv_Round_8u_Sfs(const Zel8u* pSrc1, const Zel8u* pSrc2, Zel8u* pDst, int len,
                                        ZelRoundMode rndMode, int scaleFactor);
ZELS_API ZelStatus zelsDiv_Round_8u_ISfs(const Zel8u* pSrc, Zel8u* pSrcDst, int len, ZelRoundMode rndMode,
                                         int scaleFactor);
ZELS_API ZelStatus zelsDiv_Round_16s_Sfs(const Zel16s* pSrc1, const Zel16s* pSrc2, Zel16s* pDst, int len,
                                         ZelRoundMode rndMode, int scaleFactor);
ZELS_API ZelStatus zelsDiv_Round_16s_ISfs(const Zel16s* pSrc, Zel16s* pSrcDst, int len, ZelRoundMode rndMode,
                                          int scaleFactor);
ZELS_API ZelStatus zelsDiv_Round_16u_Sfs(const Zel16u* pSrc1, const Zel16u* pSrc2, Zel16u* pDst, int len,
                                         ZelRoundMode rndMode, int scaleFactor);
ZELS_API ZelStatus zelsDiv_Round_16u_ISfs(const Zel16u* pSrc, Zel16u* pSrcDst, int len, ZelRoundMode rndMode,
                                          int scaleFactor);
/** @} */

/** @name Scaled quotient by a constant
 *  `pDst[n] = pSrc[n] / val`, times 2^(-scaleFactor), rounded once to nearest, ties to even, and saturated,
 *  with the ranges of the scaled quotient.
 *  @param pSrc source
 *  @param val constant
 *  @param pDst destination
 *  @param pSrcDst source and destination
 *  @param len length in elements
 *  @param scaleFactor scale factor, any value
 *  @return #zelErrNullPtr for a null pointer, else #zelErrSize for a length below 1, else #zelErrDivByZero
 *  for a constant of 0, else #zelStatusOk
 *  @{
 */
ZELS_API ZelStatus zelsDivC_8u_Sfs(const Zel8u* pSrc, Zel8u val, Zel8u* pDst, int len, int scaleFactor);
ZELS_API ZelStatus zelsDivC_8u_ISfs(Zel8u val, Zel8u* pSrcDst, int len, int scaleFactor);
ZELS_API ZelStatus zelsDivC_16s_Sfs(const Zel16s* pSrc, Zel16s val, Zel16s* pDst, int len, int scaleFactor);
ZELS_API ZelStatus zelsDivC_16s_ISfs(Zel16s val, Zel16s* pSrcDst, int len, int scaleFactor);
ZELS_API ZelStatus zelsDivC_16u_Sfs(const Zel16u* pSrc, Zel16u val, Zel16u* pDst, int len, int scaleFactor);
ZELS_API ZelStatus zelsDivC_16u_ISfs(Zel16u val, Zel16u* pSrcDst, int len, int scaleFactor);
ZELS_API ZelStatus zelsDivC_16sc_Sfs(const Zel16sc* pSrc, Zel16sc val, Zel16sc* pDst, int len,
                                     int scaleFactor);
ZELS_API ZelStatus zelsDivC_16sc_ISfs(Zel16sc val, Zel16sc* pSrcDst, int len, int scaleFactor);
/** @} */

/** `pSrcDst[n] / val` times 2^(-scaleFactor) as a product: with the power of two 2^(k + 1) that is the
 *  smallest from 2 on and not below |val|, the exact product of an element and 2^(k + 63) / |val|, rounded to
 *  64 bits, is scaled by `scaleFactor + k + 63`, rounded and saturated as zelsMulC_64s_ISfs does. It is only
 *  as exact as that reciprocal. A constant of 1 or -1 multiplies exactly; over a constant of 0 elements
 *  saturate by their sign, and 0 gives 0. A negative length does nothing.
 *  @param val constant
 *  @param pSrcDst source and destination
 *  @param len length in elements
 *  @param scaleFactor scale factor, any value
 *  @return #zelErrNullPtr for a null pointer, else #zelErrSize for a length of 0, else #zelWarnDivByZero for
 *  a constant of 0, else #zelStatusOk
 */
ZELS_API ZelStatus zelsDivC_64s_ISfs(Zel64s val, Zel64s* pSrcDst, int len, int scaleFactor);

/** @} */

/** @defgroup convert Conversion
 *  A vector of one element type into a vector of another. With a scale factor the value is multiplied by
 *  2^(-scaleFactor); any int is a valid factor. A 24-bit element is three packed bytes, low byte first, at
 *  any address, and its arrays are of type #Zel8u; `len` counts elements.
 *  @{
 */

/** @name Widening
 *  `pDst[n] = pSrc[n]`, exactly. A NaN keeps its payload where the source is #Zel16f. From 699051 elements on
 *  zelsConvert_16s32s writes past the caches, zelsConvert_32f64f from 349526 on.
 *  @param pSrc source
 *  @param pDst destination
 *  @param len length in elements
 *  @return #zelErrNullPtr for a null pointer, else #zelErrSize for a length below 1, else #zelStatusOk
 *  @{
 */
ZELS_API ZelStatus zelsConvert_8s16s(const Zel8s* pSrc, Zel16s* pDst, int len);
ZELS_API ZelStatus zelsConvert_8s32f(const Zel8s* pSrc, Zel32f* pDst, int len);
ZELS_API ZelStatus zelsConvert_8u32f(const Zel8u* pSrc, Zel32f* pDst, int len);
ZELS_API ZelStatus zelsConvert_16s32f(const Zel16s* pSrc, Zel32f* pDst, int len);
ZELS_API ZelStatus zelsConvert_16s32s(const Zel16s* pSrc, Zel32s* pDst, int len);
ZELS_API ZelStatus zelsConvert_16u32f(const Zel16u* pSrc, Zel32f* pDst, int len);
ZELS_API ZelStatus zelsConvert_16f32f(const Zel16f* pSrc, Zel32f* pDst, int len);
ZELS_API ZelStatus zelsConvert_24s32f(const Zel8u* pSrc, Zel32f* pDst, int len);
ZELS_API ZelStatus zelsConvert_24u32f(const Zel8u* pSrc, Zel32f* pDst, int len);
ZELS_API ZelStatus zelsConvert_24s32s(const Zel8u* pSrc, Zel32s* pDst, int len);
ZELS_API ZelStatus zelsConvert_24u32u(const Zel8u* pSrc, Zel32u* pDst, int len);
ZELS_API ZelStatus zelsConvert_32s64f(const Zel32s* pSrc, Zel64f* pDst, int len);
ZELS_API ZelStatus zelsConvert_32f64f(const Zel32f* pSrc, Zel64f* pDst, int len);
/** @} */

/** @name To floats by the caller's rounding mode
 *  `pDst[n] = pSrc[n]`, rounded by the mode that the processor is in.
 *  @param pSrc source
 *  @param pDst destination
 *  @param len length in elements
 *  @return #zelErrNullPtr for a null pointer, else #zelErrSize for a length below 1, else #zelStatusOk
 *  @{
 */
ZELS_API ZelStatus zelsConvert_32s32f(const Zel32s* pSrc, Zel32f* pDst, int len);
ZELS_API ZelStatus zelsConvert_64s64f(const Zel64s* pSrc, Zel64f* pDst, int len);
ZELS_API ZelStatus zelsConvert_64f32f(const Zel64f* pSrc, Zel32f* pDst, int len);
/** @} */

/** @name Scaled integers to floats
 *  The value converted, then multiplied by 2^(-scaleFactor) unless that is 1. From 419431 elements on
 *  zelsConvert_16s64f_Sfs writes past the caches.
 *  @param pSrc source
 *  @param pDst destination
 *  @param len length in elements
 *  @param scaleFactor scale factor, any value
 *  @return #zelErrNullPtr for a null pointer, else #zelErrSize for a length below 1, else #zelStatusOk
 *  @{
 */
ZELS_API ZelStatus zelsConvert_16s32f_Sfs(const Zel16s* pSrc, Zel32f* pDst, int len, int scaleFactor);
ZELS_API ZelStatus zelsConvert_16s64f_Sfs(const Zel16s* pSrc, Zel64f* pDst, int len, int scaleFactor);
ZELS_API ZelStatus zelsConvert_32s32f_Sfs(const Zel32s* pSrc, Zel32f* pDst, int len, int scaleFactor);
ZELS_API ZelStatus zelsConvert_32s64f_Sfs(const Zel32s* pSrc, Zel64f* pDst, int len, int scaleFactor);
/** @} */

/** @name Floats to integers
 *  The value times 2^(-scaleFactor), clamped to the range of the destination and rounded. What is at or above
 *  the largest integer gives the largest integer, even where no float holds it. A NaN gives the smallest.
 *  @param pSrc source
 *  @param pDst destination
 *  @param len length in elements
 *  @param rnd #zelRndZero truncates, #zelRndNear rounds to nearest, ties to even; every other value adds one
 *  half with the sign of the value in the float type of the source, rounded to nearest, and truncates, so
 *  that 0.49999997f gives 1
 *  @param scaleFactor scale factor, any value
 *  @return #zelErrNullPtr for a null pointer, else #zelErrSize for a length below 1, else #zelStatusOk
 *  @{
 */
ZELS_API ZelStatus zelsConvert_32f8s_Sfs(const Zel32f* pSrc, Zel8s* pDst, int len, ZelRoundMode rnd,
                                         int scaleFactor);
ZELS_API ZelStatus zelsConvert_32f8u_Sfs(const Zel32f* pSrc, Zel8u* pDst, int len, ZelRoundMode rnd,
                                         int scaleFactor);
ZELS_API ZelStatus zelsConvert_32f16s_Sfs(const Zel32f* pSrc, Zel16s* pDst, int len, ZelRoundMode rnd,
                                          int scaleFactor);
ZELS_API ZelStatus zelsConvert_32f16u_Sfs(const Zel32f* pSrc, Zel16u* pDst, int len, ZelRoundMode rnd,
                                          int scaleFactor);
ZELS_API ZelStatus zelsConvert_32f32s_Sfs(const Zel32f* pSrc, Zel32s* pDst, int len, ZelRoundMode rnd,
                                          int scaleFactor);
ZELS_API ZelStatus zelsConvert_64f8s_Sfs(const Zel64f* pSrc, Zel8s* pDst, int len, ZelRoundMode rnd,
                                         int scaleFactor);
ZELS_API ZelStatus zelsConvert_64f8u_Sfs(const Zel64f* pSrc, Zel8u* pDst, int len, ZelRoundMode rnd,
                                         int scaleFactor);
ZELS_API ZelStatus zelsConvert_64f16s_Sfs(const Zel64f* pSrc, Zel16s* pDst, int len, ZelRoundMode rnd,
                                          int scaleFactor);
ZELS_API ZelStatus zelsConvert_64f16u_Sfs(const Zel64f* pSrc, Zel16u* pDst, int len, ZelRoundMode rnd,
                                          int scaleFactor);
ZELS_API ZelStatus zelsConvert_64f32s_Sfs(const Zel64f* pSrc, Zel32s* pDst, int len, ZelRoundMode rnd,
                                          int scaleFactor);
ZELS_API ZelStatus zelsConvert_64f64s_Sfs(const Zel64f* pSrc, Zel64s* pDst, int len, ZelRoundMode rnd,
                                          int scaleFactor);
/** @} */

/** @name Floats to packed 24-bit integers
 *  The value times 2^(-scaleFactor), clamped to the range of the destination and rounded to nearest, ties to
 *  even. A NaN gives the smallest integer.
 *  @param pSrc source
 *  @param pDst destination
 *  @param len length in elements
 *  @param scaleFactor scale factor, any value
 *  @return #zelErrNullPtr for a null pointer, else #zelErrSize for a length below 1, else #zelStatusOk
 *  @{
 */
ZELS_API ZelStatus zelsConvert_32f24s_Sfs(const Zel32f* pSrc, Zel8u* pDst, int len, int scaleFactor);
ZELS_API ZelStatus zelsConvert_32f24u_Sfs(const Zel32f* pSrc, Zel8u* pDst, int len, int scaleFactor);
/** @} */

/** @name Narrowing integers by saturation
 *  `pDst[n] = pSrc[n]`, saturated: of zelsConvert_8s8u a negative value gives 0. From 699051 elements on
 *  zelsConvert_32s16s writes past the caches.
 *  @param pSrc source
 *  @param pDst destination
 *  @param len length in elements
 *  @return #zelErrNullPtr for a null pointer, else #zelErrSize for a length below 1, else #zelStatusOk
 *  @{
 */
ZELS_API ZelStatus zelsConvert_8s8u(const Zel8s* pSrc, Zel8u* pDst, int len);
ZELS_API ZelStatus zelsConvert_32s16s(const Zel32s* pSrc, Zel16s* pDst, int len);
/** @} */

/** @name Narrowing integers with a scale factor
 *  The value times 2^(-scaleFactor), rounded to nearest, ties to even, and saturated. A factor above 31 acts
 *  as 31, so that the most negative value still gives -1.
 *  @param pSrc source
 *  @param pDst destination
 *  @param len length in elements
 *  @param scaleFactor scale factor, any value
 *  @return #zelErrNullPtr for a null pointer, else #zelErrSize for a length below 1, else #zelStatusOk
 *  @{
 */
ZELS_API ZelStatus zelsConvert_32s16s_Sfs(const Zel32s* pSrc, Zel16s* pDst, int len, int scaleFactor);
ZELS_API ZelStatus zelsConvert_32s24s_Sfs(const Zel32s* pSrc, Zel8u* pDst, int len, int scaleFactor);
ZELS_API ZelStatus zelsConvert_32u24u_Sfs(const Zel32u* pSrc, Zel8u* pDst, int len, int scaleFactor);
/** @} */

/** @name Narrowing integers with a rounding mode and a scale factor
 *  The value times 2^(-scaleFactor), rounded once from the exact quotient, and saturated.
 *  @param pSrc source
 *  @param pDst destination
 *  @param len length in elements
 *  @param rnd #zelRndZero truncates, #zelRndNear rounds to nearest, ties to even, every other value to
 *  nearest, ties away from zero
 *  @param scaleFactor scale factor, any value
 *  @return #zelErrNullPtr for a null pointer, else #zelErrSize for a length below 1, else #zelStatusOk
 *  @{
 */
ZELS_API ZelStatus zelsConvert_8u8s_Sfs(const Zel8u* pSrc, Zel8s* pDst, int len, ZelRoundMode rnd,
                                        int scaleFactor);
ZELS_API ZelStatus zelsConvert_16s8s_Sfs(const Zel16s* pSrc, Zel8s* pDst, int len, ZelRoundMode rnd,
                                         int scaleFactor);
ZELS_API ZelStatus zelsConvert_64s32s_Sfs(const Zel64s* pSrc, Zel32s* pDst, int len, ZelRoundMode rnd,
                                          int scaleFactor);
/** @} */

/** @name To half precision
 *  `pDst[n] = pSrc[n]`, rounded from the value of single precision, whatever the caller's rounding mode. What
 *  is too large becomes an infinity, or the largest half where it is truncated. A NaN stays one.
 *  @param pSrc source
 *  @param pDst destination
 *  @param len length in elements
 *  @param rnd #zelRndNear rounds to nearest, ties to even, #zelRndZero truncates, #zelRndFinancial is
 *  refused; every other value truncates in zelsConvert_16s16f and rounds to nearest, ties away from zero, in
 *  zelsConvert_32f16f
 *  @return #zelErrNullPtr for a null pointer, else #zelErrSize for a length below 1, else #zelErrRoundMode
 *  for #zelRndFinancial, else #zelStatusOk
 *  @{
 */
ZELS_API ZelStatus zelsConvert_16s16f(const Zel16s* pSrc, Zel16f* pDst, int len, ZelRoundMode rnd);
ZELS_API ZelStatus zelsConvert_32f16f(const Zel32f* pSrc, Zel16f* pDst, int len, ZelRoundMode rnd);
/** @} */

/** @name From half precision to integers
 *  The value times 2^(-scaleFactor), clamped to the range of #Zel16s and rounded. A NaN gives -32768.
 *  @param pSrc source
 *  @param pDst destination
 *  @param len length in elements
 *  @param rnd #zelRndZero truncates, #zelRndNear rounds to nearest, ties to even, #zelRndFinancial is
 *  refused; every other value rounds as it does from floats
 *  @param scaleFactor scale factor, any value
 *  @return #zelErrNullPtr for a null pointer, else #zelErrSize for a length below 1, else #zelErrRoundMode
 *  for #zelRndFinancial, else #zelStatusOk
 *  @{
 */
ZELS_API ZelStatus zelsConvert_16f16s_Sfs(const Zel16f* pSrc, Zel16s* pDst, int len, ZelRoundMode rnd,
                                          int scaleFactor);
/** @} */

/** @} */

/** @defgroup threshold Thresholds
 *  Elements beyond a level are replaced. Source and destination may be the same array. What becomes of a NaN
 *  differs from form to form, on purpose.
 *
 *  Complex elements are compared by magnitude: the sum of squares m of the parts with the square of the level,
 *  both rounded in the element's type; exact in 16sc. Levels below 2^-50 or above 2^62 in 32fc (2^-480, 2^510 in
 *  64fc), whose squares the type may not hold, are compared in a wider type, and so are slower.
 *  @{
 */

/** @name Limit on a chosen side
 *  Elements beyond the level come to it. Real ones: with a lower limit the larger of element and level, with
 *  an upper limit the smaller; a NaN comes out as the level, and of zeros of either sign the level's comes
 *  out.
 *  Complex elements beyond the level keep their phase and get the level as magnitude: both parts times level
 *  / sqrt(m). In the vectors of 32fc the factor is y (3 - m y y) level / 2 with an estimate y of 1 / sqrt(m)
 *  (12 bits), within 6 units in the last place, 12 in the directed rounding modes; vectors of up to 4
 *  elements and the elements at both ends of a vector take the true root and quotient, and so do sums of
 *  squares out of the ordinary range (2^-100 to 2^126 in 32fc,
 *  2^-960 to 2^1022 in 64fc). 64fc is
 *  within 3 units, 6 in the directed rounding modes; 16sc is rounded to nearest from double precision. An
 *  element (0, 0), which has no phase, becomes (level, 0); one with a NaN stays as it is; the phase of an
 *  infinite element is that of its infinite parts. A lower limit of 0 makes a copy, an upper limit of 0 a
 *  zero-fill. Source of the method: the iteration of Newton and Raphson for 1 / sqrt(m).
 *  @param pSrc source
 *  @param pDst destination
 *  @param pSrcDst source and destination
 *  @param len length in elements
 *  @param level the limit; of complex elements that of their magnitude
 *  @param relOp #zelCmpLess: a lower limit; #zelCmpGreater: an upper limit
 *  @return #zelErrNullPtr for a null pointer, else #zelErrSize for a length below 1, else #zelErrBadArg for
 *  another relOp, else (complex forms) #zelErrThreshNegLevel for a level below 0, else #zelStatusOk
 *  @{
 */
ZELS_API ZelStatus zelsThreshold_16s(const Zel16s* pSrc, Zel16s* pDst, int len, Zel16s level, ZelCmpOp relOp);
ZELS_API ZelStatus zelsThreshold_16s_I(Zel16s* pSrcDst, int len, Zel16s level, ZelCmpOp relOp);
ZELS_API ZelStatus zelsThreshold_16sc(const Zel16sc* pSrc, Zel16sc* pDst, int len, Zel16s level,
                                      ZelCmpOp relOp);
ZELS_API ZelStatus zelsThreshold_16sc_I(Zel16sc* pSrcDst, int len, Zel16s level, ZelCmpOp relOp);
ZELS_API ZelStatus zelsThreshold_32f(const Zel32f* pSrc, Zel32f* pDst, int len, Zel32f level, ZelCmpOp relOp);
ZELS_API ZelStatus zelsThreshold_32f_I(Zel32f* pSrcDst, int len, Zel32f level, ZelCmpOp relOp);
ZELS_API ZelStatus zelsThreshold_32fc(const Zel32fc* pSrc, Zel32fc* pDst, int len, Zel32f level,
                                      ZelCmpOp relOp);
ZELS_API ZelStatus zelsThreshold_32fc_I(Zel32fc* pSrcDst, int len, Zel32f level, ZelCmpOp relOp);
ZELS_API ZelStatus zelsThreshold_64f(const Zel64f* pSrc, Zel64f* pDst, int len, Zel64f level, ZelCmpOp relOp);
ZELS_API ZelStatus zelsThreshold_64f_I(Zel64f* pSrcDst, int len, Zel64f level, ZelCmpOp relOp);
ZELS_API ZelStatus zelsThreshold_64fc(const Zel64fc* pSrc, Zel64fc* pDst, int len, Zel64f level,
                                      ZelCmpOp relOp);
ZELS_API ZelStatus zelsThreshold_64fc_I(Zel64fc* pSrcDst, int len, Zel64f level, ZelCmpOp relOp);
/** @} */

/** @name Lower and upper limit
 *  As zelsThreshold_32f and its like: LT with #zelCmpLess, GT with #zelCmpGreater.
 *  @param pSrc source
 *  @param pDst destination
 *  @param pSrcDst source and destination
 *  @param len length in elements
 *  @param level the limit; of complex elements that of their magnitude
 *  @return #zelErrNullPtr for a null pointer, else #zelErrSize for a length below 1, else (complex forms)
 *  #zelErrThreshNegLevel for a level below 0, else #zelStatusOk
 *  @{
 */
ZELS_API ZelStatus zelsThreshold_LT_16s(const Zel16s* pSrc, Zel16s* pDst, int len, Zel16s level);
ZELS_API ZelStatus zelsThreshold_LT_16s_I(Zel16s* pSrcDst, int len, Zel16s level);
ZELS_API ZelStatus zelsThreshold_LT_16sc(const Zel16sc* pSrc, Zel16sc* pDst, int len, Zel16s level);
ZELS_API ZelStatus zelsThreshold_LT_16sc_I(Zel16sc* pSrcDst, int len, Zel16s level);
ZELS_API ZelStatus zelsThreshold_LT_32f(const Zel32f* pSrc, Zel32f* pDst, int len, Zel32f level);
ZELS_API ZelStatus zelsThreshold_LT_32f_I(Zel32f* pSrcDst, int len, Zel32f level);
ZELS_API ZelStatus zelsThreshold_LT_32fc(const Zel32fc* pSrc, Zel32fc* pDst, int len, Zel32f level);
ZELS_API ZelStatus zelsThreshold_LT_32fc_I(Zel32fc* pSrcDst, int len, Zel32f level);
ZELS_API ZelStatus zelsThreshold_LT_32s(const Zel32s* pSrc, Zel32s* pDst, int len, Zel32s level);
ZELS_API ZelStatus zelsThreshold_LT_32s_I(Zel32s* pSrcDst, int len, Zel32s level);
ZELS_API ZelStatus zelsThreshold_LT_64f(const Zel64f* pSrc, Zel64f* pDst, int len, Zel64f level);
ZELS_API ZelStatus zelsThreshold_LT_64f_I(Zel64f* pSrcDst, int len, Zel64f level);
ZELS_API ZelStatus zelsThreshold_LT_64fc(const Zel64fc* pSrc, Zel64fc* pDst, int len, Zel64f level);
ZELS_API ZelStatus zelsThreshold_LT_64fc_I(Zel64fc* pSrcDst, int len, Zel64f level);
ZELS_API ZelStatus zelsThreshold_GT_16s(const Zel16s* pSrc, Zel16s* pDst, int len, Zel16s level);
ZELS_API ZelStatus zelsThreshold_GT_16s_I(Zel16s* pSrcDst, int len, Zel16s level);
ZELS_API ZelStatus zelsThreshold_GT_16sc(const Zel16sc* pSrc, Zel16sc* pDst, int len, Zel16s level);
ZELS_API ZelStatus zelsThreshold_GT_16sc_I(Zel16sc* pSrcDst, int len, Zel16s level);
ZELS_API ZelStatus zelsThreshold_GT_32f(const Zel32f* pSrc, Zel32f* pDst, int len, Zel32f level);
ZELS_API ZelStatus zelsThreshold_GT_32f_I(Zel32f* pSrcDst, int len, Zel32f level);
ZELS_API ZelStatus zelsThreshold_GT_32fc(const Zel32fc* pSrc, Zel32fc* pDst, int len, Zel32f level);
ZELS_API ZelStatus zelsThreshold_GT_32fc_I(Zel32fc* pSrcDst, int len, Zel32f level);
ZELS_API ZelStatus zelsThreshold_GT_32s(const Zel32s* pSrc, Zel32s* pDst, int len, Zel32s level);
ZELS_API ZelStatus zelsThreshold_GT_32s_I(Zel32s* pSrcDst, int len, Zel32s level);
ZELS_API ZelStatus zelsThreshold_GT_64f(const Zel64f* pSrc, Zel64f* pDst, int len, Zel64f level);
ZELS_API ZelStatus zelsThreshold_GT_64f_I(Zel64f* pSrcDst, int len, Zel64f level);
ZELS_API ZelStatus zelsThreshold_GT_64fc(const Zel64fc* pSrc, Zel64fc* pDst, int len, Zel64f level);
ZELS_API ZelStatus zelsThreshold_GT_64fc_I(Zel64fc* pSrcDst, int len, Zel64f level);
/** @} */

/** @name Replacement by a value
 *  LTVal: the element where `level <= pSrc[n]`, else the value. GTVal: the element where `pSrc[n] <= level`,
 *  else the value. Complex elements by their magnitudes. A NaN comes out as the value.
 *  @param pSrc source
 *  @param pDst destination
 *  @param pSrcDst source and destination
 *  @param len length in elements
 *  @param level the last value that stays
 *  @param value what takes the place of elements beyond the level
 *  @return #zelErrNullPtr for a null pointer, else #zelErrSize for a length below 1, else (complex forms)
 *  #zelErrThreshNegLevel for a level below 0, else #zelStatusOk
 *  @{
 */
ZELS_API ZelStatus zelsThreshold_LTVal_16s(const Zel16s* pSrc, Zel16s* pDst, int len, Zel16s level,
                                           Zel16s value);
ZELS_API ZelStatus zelsThreshold_LTVal_16s_I(Zel16s* pSrcDst, int len, Zel16s level, Zel16s value);
ZELS_API ZelStatus zelsThreshold_LTVal_16sc(const Zel16sc* pSrc, Zel16sc* pDst, int len, Zel16s level,
                                            Zel16sc value);
ZELS_API ZelStatus zelsThreshold_LTVal_16sc_I(Zel16sc* pSrcDst, int len, Zel16s level, Zel16sc value);
ZELS_API ZelStatus zelsThreshold_LTVal_32f(const Zel32f* pSrc, Zel32f* pDst, int len, Zel32f level,
                                           Zel32f value);
ZELS_API ZelStatus zelsThreshold_LTVal_32f_I(Zel32f* pSrcDst, int len, Zel32f level, Zel32f value);
ZELS_API ZelStatus zelsThreshold_LTVal_32fc(const Zel32fc* pSrc, Zel32fc* pDst, int len, Zel32f level,
                                            Zel32fc value);
ZELS_API ZelStatus zelsThreshold_LTVal_32fc_I(Zel32fc* pSrcDst, int len, Zel32f level, Zel32fc value);
ZELS_API ZelStatus zelsThreshold_LTVal_64f(const Zel64f* pSrc, Zel64f* pDst, int len, Zel64f level,
                                           Zel64f value);
ZELS_API ZelStatus zelsThreshold_LTVal_64f_I(Zel64f* pSrcDst, int len, Zel64f level, Zel64f value);
ZELS_API ZelStatus zelsThreshold_LTVal_64fc(const Zel64fc* pSrc, Zel64fc* pDst, int len, Zel64f level,
                                            Zel64fc value);
ZELS_API ZelStatus zelsThreshold_LTVal_64fc_I(Zel64fc* pSrcDst, int len, Zel64f level, Zel64fc value);
ZELS_API ZelStatus zelsThreshold_GTVal_16s(const Zel16s* pSrc, Zel16s* pDst, int len, Zel16s level,
                                           Zel16s value);
ZELS_API ZelStatus zelsThreshold_GTVal_16s_I(Zel16s* pSrcDst, int len, Zel16s level, Zel16s value);
ZELS_API ZelStatus zelsThreshold_GTVal_16sc(const Zel16sc* pSrc, Zel16sc* pDst, int len, Zel16s level,
                                            Zel16sc value);
ZELS_API ZelStatus zelsThreshold_GTVal_16sc_I(Zel16sc* pSrcDst, int len, Zel16s level, Zel16sc value);
ZELS_API ZelStatus zelsThreshold_GTVal_32f(const Zel32f* pSrc, Zel32f* pDst, int len, Zel32f level,
                                           Zel32f value);
ZELS_API ZelStatus zelsThreshold_GTVal_32f_I(Zel32f* pSrcDst, int len, Zel32f level, Zel32f value);
ZELS_API ZelStatus zelsThreshold_GTVal_32fc(const Zel32fc* pSrc, Zel32fc* pDst, int len, Zel32f level,
                                            Zel32fc value);
ZELS_API ZelStatus zelsThreshold_GTVal_32fc_I(Zel32fc* pSrcDst, int len, Zel32f level, Zel32fc value);
ZELS_API ZelStatus zelsThreshold_GTVal_64f(const Zel64f* pSrc, Zel64f* pDst, int len, Zel64f level,
                                           Zel64f value);
ZELS_API ZelStatus zelsThreshold_GTVal_64f_I(Zel64f* pSrcDst, int len, Zel64f level, Zel64f value);
ZELS_API ZelStatus zelsThreshold_GTVal_64fc(const Zel64fc* pSrc, Zel64fc* pDst, int len, Zel64f level,
                                            Zel64fc value);
ZELS_API ZelStatus zelsThreshold_GTVal_64fc_I(Zel64fc* pSrcDst, int len, Zel64f level, Zel64fc value);
/** @} */

/** @name Replacement on both sides
 *  `valueLT` where `pSrc[n] < levelLT`, `valueGT` where `pSrc[n] > levelGT`, else the element; a NaN stays.
 *  @param pSrc source
 *  @param pDst destination
 *  @param pSrcDst source and destination
 *  @param len length in elements
 *  @param levelLT lower level
 *  @param valueLT what takes the place of elements below the lower level
 *  @param levelGT upper level
 *  @param valueGT what takes the place of elements above the upper level
 *  @return #zelErrNullPtr for a null pointer, else #zelErrSize for a length below 1, else #zelErrThreshold
 *  for a lower level above the upper one, else #zelStatusOk
 *  @{
 */
ZELS_API ZelStatus zelsThreshold_LTValGTVal_16s(const Zel16s* pSrc, Zel16s* pDst, int len, Zel16s levelLT,
                                                Zel16s valueLT, Zel16s levelGT, Zel16s valueGT);
ZELS_API ZelStatus zelsThreshold_LTValGTVal_16s_I(Zel16s* pSrcDst, int len, Zel16s levelLT, Zel16s valueLT,
                                                  Zel16s levelGT, Zel16s valueGT);
ZELS_API ZelStatus zelsThreshold_LTValGTVal_32s(const Zel32s* pSrc, Zel32s* pDst, int len, Zel32s levelLT,
                                                Zel32s valueLT, Zel32s levelGT, Zel32s valueGT);
ZELS_API ZelStatus zelsThreshold_LTValGTVal_32s_I(Zel32s* pSrcDst, int len, Zel32s levelLT, Zel32s valueLT,
                                                  Zel32s levelGT, Zel32s valueGT);
ZELS_API ZelStatus zelsThreshold_LTValGTVal_32f(const Zel32f* pSrc, Zel32f* pDst, int len, Zel32f levelLT,
                                                Zel32f valueLT, Zel32f levelGT, Zel32f valueGT);
ZELS_API ZelStatus zelsThreshold_LTValGTVal_32f_I(Zel32f* pSrcDst, int len, Zel32f levelLT, Zel32f valueLT,
                                                  Zel32f levelGT, Zel32f valueGT);
ZELS_API ZelStatus zelsThreshold_LTValGTVal_64f(const Zel64f* pSrc, Zel64f* pDst, int len, Zel64f levelLT,
                                                Zel64f valueLT, Zel64f levelGT, Zel64f valueGT);
ZELS_API ZelStatus zelsThreshold_LTValGTVal_64f_I(Zel64f* pSrcDst, int len, Zel64f levelLT, Zel64f valueLT,
                                                  Zel64f levelGT, Zel64f valueGT);
/** @} */

/** @name Limit on absolute values
 *  The larger (LTAbs) or the smaller (GTAbs) of the absolute value and the level, with the sign of the
 *  element; that of -32768 is 32768. Zeros have signs in float forms, and are positive in the others. A NaN
 *  comes out as the level with its sign. The long forms test the length before the pointers.
 *  @param pSrc source
 *  @param pDst destination
 *  @param pSrcDst source and destination
 *  @param len length in elements
 *  @param level the limit
 *  @return #zelErrNullPtr for a null pointer, else #zelErrSize for a length below 1, else
 *  #zelErrThreshNegLevel for a level below 0, else #zelStatusOk
 *  @{
 */
ZELS_API ZelStatus zelsThreshold_LTAbs_16s(const Zel16s* pSrc, Zel16s* pDst, int len, Zel16s level);
ZELS_API ZelStatus zelsThreshold_LTAbs_16s_I(Zel16s* pSrcDst, int len, Zel16s level);
ZELS_API ZelStatus zelsThreshold_LTAbs_32s(const Zel32s* pSrc, Zel32s* pDst, int len, Zel32s level);
ZELS_API ZelStatus zelsThreshold_LTAbs_32s_I(Zel32s* pSrcDst, int len, Zel32s level);
ZELS_API ZelStatus zelsThreshold_LTAbs_32f(const Zel32f* pSrc, Zel32f* pDst, int len, Zel32f level);
ZELS_API ZelStatus zelsThreshold_LTAbs_32f_I(Zel32f* pSrcDst, int len, Zel32f level);
ZELS_API ZelStatus zelsThreshold_LTAbs_32f_L(const Zel32f* pSrc, Zel32f* pDst, ZelSize len, Zel32f level);
ZELS_API ZelStatus zelsThreshold_LTAbs_32f_I_L(Zel32f* pSrcDst, ZelSize len, Zel32f level);
ZELS_API ZelStatus zelsThreshold_LTAbs_64f(const Zel64f* pSrc, Zel64f* pDst, int len, Zel64f level);
ZELS_API ZelStatus zelsThreshold_LTAbs_64f_I(Zel64f* pSrcDst, int len, Zel64f level);
ZELS_API ZelStatus zelsThreshold_LTAbs_64f_L(const Zel64f* pSrc, Zel64f* pDst, ZelSize len, Zel64f level);
ZELS_API ZelStatus zelsThreshold_LTAbs_64f_I_L(Zel64f* pSrcDst, ZelSize len, Zel64f level);
ZELS_API ZelStatus zelsThreshold_GTAbs_16s(const Zel16s* pSrc, Zel16s* pDst, int len, Zel16s level);
ZELS_API ZelStatus zelsThreshold_GTAbs_16s_I(Zel16s* pSrcDst, int len, Zel16s level);
ZELS_API ZelStatus zelsThreshold_GTAbs_32s(const Zel32s* pSrc, Zel32s* pDst, int len, Zel32s level);
ZELS_API ZelStatus zelsThreshold_GTAbs_32s_I(Zel32s* pSrcDst, int len, Zel32s level);
ZELS_API ZelStatus zelsThreshold_GTAbs_32f(const Zel32f* pSrc, Zel32f* pDst, int len, Zel32f level);
ZELS_API ZelStatus zelsThreshold_GTAbs_32f_I(Zel32f* pSrcDst, int len, Zel32f level);
ZELS_API ZelStatus zelsThreshold_GTAbs_64f(const Zel64f* pSrc, Zel64f* pDst, int len, Zel64f level);
ZELS_API ZelStatus zelsThreshold_GTAbs_64f_I(Zel64f* pSrcDst, int len, Zel64f level);
/** @} */

/** @name Replacement of small absolute values
 *  The value where the absolute value is below the level, else the element; a NaN stays. A negative level is
 *  no error, on purpose: it replaces nothing.
 *  @param pSrc source
 *  @param pDst destination
 *  @param pSrcDst source and destination
 *  @param len length in elements
 *  @param level the lowest absolute value that stays
 *  @param value what takes the place of smaller elements
 *  @return #zelErrNullPtr for a null pointer, else #zelErrSize for a length below 1, else #zelStatusOk
 *  @{
 */
ZELS_API ZelStatus zelsThreshold_LTAbsVal_16s(const Zel16s* pSrc, Zel16s* pDst, int len, Zel16s level,
                                              Zel16s value);
ZELS_API ZelStatus zelsThreshold_LTAbsVal_16s_I(Zel16s* pSrcDst, int len, Zel16s level, Zel16s value);
ZELS_API ZelStatus zelsThreshold_LTAbsVal_32s(const Zel32s* pSrc, Zel32s* pDst, int len, Zel32s level,
                                              Zel32s value);
ZELS_API ZelStatus zelsThreshold_LTAbsVal_32s_I(Zel32s* pSrcDst, int len, Zel32s level, Zel32s value);
ZELS_API ZelStatus zelsThreshold_LTAbsVal_32f(const Zel32f* pSrc, Zel32f* pDst, int len, Zel32f level,
                                              Zel32f value);
ZELS_API ZelStatus zelsThreshold_LTAbsVal_32f_I(Zel32f* pSrcDst, int len, Zel32f level, Zel32f value);
ZELS_API ZelStatus zelsThreshold_LTAbsVal_64f(const Zel64f* pSrc, Zel64f* pDst, int len, Zel64f level,
                                              Zel64f value);
ZELS_API ZelStatus zelsThreshold_LTAbsVal_64f_I(Zel64f* pSrcDst, int len, Zel64f level, Zel64f value);
/** @} */

/** @name Inverse with a lower limit
 *  The inverse of the larger of absolute value and level, with the sign of the element, truly divided; at
 *  level 0 the inverse of the element. Complex forms divide the conjugate by m, and below the level by
 *  sqrt(m) times the level, within 4 units in the last place, 8 in the directed rounding modes; where m is
 *  out of the ordinary range they go over wider types. Above level 0 a NaN counts as 0 in real forms; at
 *  level 0, and in complex forms, it stays one.
 *  The inverse of a zero at level 0 is an infinity with the sign of the zero, of a complex zero (infinity,
 *  0); above level 0 a complex zero gives (1 / level, 0).
 *  @param pSrc source
 *  @param pDst destination
 *  @param pSrcDst source and destination
 *  @param len length in elements
 *  @param level the lowest magnitude that is inverted
 *  @return #zelErrNullPtr for a null pointer, else #zelErrSize for a length below 1, else
 *  #zelErrThreshNegLevel for a level below 0, else #zelWarnInvZero where an element was zero at level 0,
 *  else #zelStatusOk
 *  @{
 */
ZELS_API ZelStatus zelsThreshold_LTInv_32f(const Zel32f* pSrc, Zel32f* pDst, int len, Zel32f level);
ZELS_API ZelStatus zelsThreshold_LTInv_32f_I(Zel32f* pSrcDst, int len, Zel32f level);
ZELS_API ZelStatus zelsThreshold_LTInv_32fc(const Zel32fc* pSrc, Zel32fc* pDst, int len, Zel32f level);
ZELS_API ZelStatus zelsThreshold_LTInv_32fc_I(Zel32fc* pSrcDst, int len, Zel32f level);
ZELS_API ZelStatus zelsThreshold_LTInv_64f(const Zel64f* pSrc, Zel64f* pDst, int len, Zel64f level);
ZELS_API ZelStatus zelsThreshold_LTInv_64f_I(Zel64f* pSrcDst, int len, Zel64f level);
ZELS_API ZelStatus zelsThreshold_LTInv_64fc(const Zel64fc* pSrc, Zel64fc* pDst, int len, Zel64f level);
ZELS_API ZelStatus zelsThreshold_LTInv_64fc_I(Zel64fc* pSrcDst, int len, Zel64f level);
/** @} */

/** @} */

/** @defgroup bits Logic and shifts
 *  Operations on the bits of each element. Source and destination may be the same array; arrays that overlap in
 * another way are not.
 *  @{
 */

/** @name Logic of two vectors
 *  `pDst[n] = pSrc1[n] op pSrc2[n]`; the `_I` forms: `pSrcDst[n] = pSrcDst[n] op pSrc[n]`.
 *  @param pSrc1 first source
 *  @param pSrc2 second source
 *  @param pDst destination
 *  @param pSrc source
 *  @param pSrcDst source and destination
 *  @param len length in elements
 *  @return #zelErrNullPtr for a null pointer, else #zelErrSize for a length below 1, else #zelStatusOk
 *  @{
 */
ZELS_API ZelStatus zelsAnd_8u(const Zel8u* pSrc1, const Zel8u* pSrc2, Zel8u* pDst, int len);
ZELS_API ZelStatus zelsAnd_8u_I(const Zel8u* pSrc, Zel8u* pSrcDst, int len);
ZELS_API ZelStatus zelsAnd_16u(const Zel16u* pSrc1, const Zel16u* pSrc2, Zel16u* pDst, int len);
ZELS_API ZelStatus zelsAnd_16u_I(const Zel16u* pSrc, Zel16u* pSrcDst, int len);
ZELS_API ZelStatus zelsAnd_32u(const Zel32u* pSrc1, const Zel32u* pSrc2, Zel32u* pDst, int len);
ZELS_API ZelStatus zelsAnd_32u_I(const Zel32u* pSrc, Zel32u* pSrcDst, int len);
ZELS_API ZelStatus zelsOr_8u(const Zel8u* pSrc1, const Zel8u* pSrc2, Zel8u* pDst, int len);
ZELS_API ZelStatus zelsOr_8u_I(const Zel8u* pSrc, Zel8u* pSrcDst, int len);
ZELS_API ZelStatus zelsOr_16u(const Zel16u* pSrc1, const Zel16u* pSrc2, Zel16u* pDst, int len);
ZELS_API ZelStatus zelsOr_16u_I(const Zel16u* pSrc, Zel16u* pSrcDst, int len);
ZELS_API ZelStatus zelsOr_32u(const Zel32u* pSrc1, const Zel32u* pSrc2, Zel32u* pDst, int len);
ZELS_API ZelStatus zelsOr_32u_I(const Zel32u* pSrc, Zel32u* pSrcDst, int len);
ZELS_API ZelStatus zelsXor_8u(const Zel8u* pSrc1, const Zel8u* pSrc2, Zel8u* pDst, int len);
ZELS_API ZelStatus zelsXor_8u_I(const Zel8u* pSrc, Zel8u* pSrcDst, int len);
ZELS_API ZelStatus zelsXor_16u(const Zel16u* pSrc1, const Zel16u* pSrc2, Zel16u* pDst, int len);
ZELS_API ZelStatus zelsXor_16u_I(const Zel16u* pSrc, Zel16u* pSrcDst, int len);
ZELS_API ZelStatus zelsXor_32u(const Zel32u* pSrc1, const Zel32u* pSrc2, Zel32u* pDst, int len);
ZELS_API ZelStatus zelsXor_32u_I(const Zel32u* pSrc, Zel32u* pSrcDst, int len);
/** @} */

/** @name Logic with a constant
 *  `pDst[n] = pSrc[n] op val`. A constant of 0 makes AndC a fill with zeros, OrC and XorC a copy.
 *  @param pSrc source
 *  @param val constant
 *  @param pDst destination
 *  @param pSrcDst source and destination
 *  @param len length in elements
 *  @return #zelErrNullPtr for a null pointer, else #zelErrSize for a length below 1, else #zelStatusOk
 *  @{
 */
ZELS_API ZelStatus zelsAndC_8u(const Zel8u* pSrc, Zel8u val, Zel8u* pDst, int len);
ZELS_API ZelStatus zelsAndC_8u_I(Zel8u val, Zel8u* pSrcDst, int len);
ZELS_API ZelStatus zelsAndC_16u(const Zel16u* pSrc, Zel16u val, Zel16u* pDst, int len);
ZELS_API ZelStatus zelsAndC_16u_I(Zel16u val, Zel16u* pSrcDst, int len);
ZELS_API ZelStatus zelsAndC_32u(const Zel32u* pSrc, Zel32u val, Zel32u* pDst, int len);
ZELS_API ZelStatus zelsAndC_32u_I(Zel32u val, Zel32u* pSrcDst, int len);
ZELS_API ZelStatus zelsOrC_8u(const Zel8u* pSrc, Zel8u val, Zel8u* pDst, int len);
ZELS_API ZelStatus zelsOrC_8u_I(Zel8u val, Zel8u* pSrcDst, int len);
ZELS_API ZelStatus zelsOrC_16u(const Zel16u* pSrc, Zel16u val, Zel16u* pDst, int len);
ZELS_API ZelStatus zelsOrC_16u_I(Zel16u val, Zel16u* pSrcDst, int len);
ZELS_API ZelStatus zelsOrC_32u(const Zel32u* pSrc, Zel32u val, Zel32u* pDst, int len);
ZELS_API ZelStatus zelsOrC_32u_I(Zel32u val, Zel32u* pSrcDst, int len);
ZELS_API ZelStatus zelsXorC_8u(const Zel8u* pSrc, Zel8u val, Zel8u* pDst, int len);
ZELS_API ZelStatus zelsXorC_8u_I(Zel8u val, Zel8u* pSrcDst, int len);
ZELS_API ZelStatus zelsXorC_16u(const Zel16u* pSrc, Zel16u val, Zel16u* pDst, int len);
ZELS_API ZelStatus zelsXorC_16u_I(Zel16u val, Zel16u* pSrcDst, int len);
ZELS_API ZelStatus zelsXorC_32u(const Zel32u* pSrc, Zel32u val, Zel32u* pDst, int len);
ZELS_API ZelStatus zelsXorC_32u_I(Zel32u val, Zel32u* pSrcDst, int len);
/** @} */

/** @name Complement
 *  `pDst[n] = ~pSrc[n]`.
 *  @param pSrc source
 *  @param pDst destination
 *  @param pSrcDst source and destination
 *  @param len length in elements
 *  @return #zelErrNullPtr for a null pointer, else #zelErrSize for a length below 1, else #zelStatusOk
 *  @{
 */
ZELS_API ZelStatus zelsNot_8u(const Zel8u* pSrc, Zel8u* pDst, int len);
ZELS_API ZelStatus zelsNot_8u_I(Zel8u* pSrcDst, int len);
ZELS_API ZelStatus zelsNot_16u(const Zel16u* pSrc, Zel16u* pDst, int len);
ZELS_API ZelStatus zelsNot_16u_I(Zel16u* pSrcDst, int len);
ZELS_API ZelStatus zelsNot_32u(const Zel32u* pSrc, Zel32u* pDst, int len);
ZELS_API ZelStatus zelsNot_32u_I(Zel32u* pSrcDst, int len);
/** @} */

/** @name Shifts by a constant
 *  To the left, zeros move in and the bits that pass the top are lost; nothing saturates. To the right, zeros
 * move into unsigned elements and copies of the sign into signed ones. A count of the element's width or more
 * leaves 0, and of signed elements shifted to the right the sign: 0 or -1.
 *  @param pSrc source
 *  @param val shift count, at least 0
 *  @param pDst destination
 *  @param pSrcDst source and destination
 *  @param len length in elements
 *  @return #zelErrNullPtr for a null pointer, else #zelErrSize for a length below 1, else #zelErrShift for a
 *  negative count, else #zelStatusOk
 *  @{
 */
ZELS_API ZelStatus zelsLShiftC_8u(const Zel8u* pSrc, int val, Zel8u* pDst, int len);
ZELS_API ZelStatus zelsLShiftC_8u_I(int val, Zel8u* pSrcDst, int len);
ZELS_API ZelStatus zelsLShiftC_16u(const Zel16u* pSrc, int val, Zel16u* pDst, int len);
ZELS_API ZelStatus zelsLShiftC_16u_I(int val, Zel16u* pSrcDst, int len);
ZELS_API ZelStatus zelsLShiftC_16s(const Zel16s* pSrc, int val, Zel16s* pDst, int len);
ZELS_API ZelStatus zelsLShiftC_16s_I(int val, Zel16s* pSrcDst, int len);
ZELS_API ZelStatus zelsLShiftC_32s(const Zel32s* pSrc, int val, Zel32s* pDst, int len);
ZELS_API ZelStatus zelsLShiftC_32s_I(int val, Zel32s* pSrcDst, int len);
ZELS_API ZelStatus zelsRShiftC_8u(const Zel8u* pSrc, int val, Zel8u* pDst, int len);
ZELS_API ZelStatus zelsRShiftC_8u_I(int val, Zel8u* pSrcDst, int len);
ZELS_API ZelStatus zelsRShiftC_16u(const Zel16u* pSrc, int val, Zel16u* pDst, int len);
ZELS_API ZelStatus zelsRShiftC_16u_I(int val, Zel16u* pSrcDst, int len);
ZELS_API ZelStatus zelsRShiftC_16s(const Zel16s* pSrc, int val, Zel16s* pDst, int len);
ZELS_API ZelStatus zelsRShiftC_16s_I(int val, Zel16s* pSrcDst, int len);
ZELS_API ZelStatus zelsRShiftC_32s(const Zel32s* pSrc, int val, Zel32s* pDst, int len);
ZELS_API ZelStatus zelsRShiftC_32s_I(int val, Zel32s* pSrcDst, int len);
/** @} */

/** @} */

/** @defgroup complexparts Complex data
 *  Conjugates, and complex vectors from and to vectors of their parts. Floats are moved by their bits: a NaN keeps
 * its payload. The long forms test the length before the pointers.
 *  @{
 */

/** @name Conjugate
 *  `pDst[n] = (pSrc[n].re, -pSrc[n].im)`. Floats have the sign bit of the imaginary part changed; of integers
 * -32768 gives 32767. Source and destination may be the same array.
 *  @param pSrc source
 *  @param pDst destination
 *  @param pSrcDst source and destination
 *  @param len length in elements
 *  @return #zelErrNullPtr for a null pointer, else #zelErrSize for a length below 1, else #zelStatusOk
 *  @{
 */
ZELS_API ZelStatus zelsConj_16sc(const Zel16sc* pSrc, Zel16sc* pDst, int len);
ZELS_API ZelStatus zelsConj_16sc_I(Zel16sc* pSrcDst, int len);
ZELS_API ZelStatus zelsConj_32fc(const Zel32fc* pSrc, Zel32fc* pDst, int len);
ZELS_API ZelStatus zelsConj_32fc_I(Zel32fc* pSrcDst, int len);
ZELS_API ZelStatus zelsConj_32fc_L(const Zel32fc* pSrc, Zel32fc* pDst, ZelSize len);
ZELS_API ZelStatus zelsConj_32fc_I_L(Zel32fc* pSrcDst, ZelSize len);
ZELS_API ZelStatus zelsConj_64fc(const Zel64fc* pSrc, Zel64fc* pDst, int len);
ZELS_API ZelStatus zelsConj_64fc_I(Zel64fc* pSrcDst, int len);
ZELS_API ZelStatus zelsConj_64fc_L(const Zel64fc* pSrc, Zel64fc* pDst, ZelSize len);
ZELS_API ZelStatus zelsConj_64fc_I_L(Zel64fc* pSrcDst, ZelSize len);
/** @} */

/** @name Conjugate end for end
 *  `pDst[n] = conj(pSrc[len - 1 - n])`. Source and destination may be the same array.
 *  @param pSrc source
 *  @param pDst destination
 *  @param len length in elements
 *  @return #zelErrNullPtr for a null pointer, else #zelErrSize for a length below 1, else #zelStatusOk
 *  @{
 */
ZELS_API ZelStatus zelsConjFlip_16sc(const Zel16sc* pSrc, Zel16sc* pDst, int len);
ZELS_API ZelStatus zelsConjFlip_32fc(const Zel32fc* pSrc, Zel32fc* pDst, int len);
ZELS_API ZelStatus zelsConjFlip_64fc(const Zel64fc* pSrc, Zel64fc* pDst, int len);
/** @} */

/** @name One part of complex elements
 *  `pDstRe[n] = pSrc[n].re`, `pDstIm[n] = pSrc[n].im`.
 *  @param pSrc source
 *  @param pDstRe destination of Real
 *  @param pDstIm destination of Imag
 *  @param len length in elements
 *  @return #zelErrNullPtr for a null pointer, else #zelErrSize for a length below 1, else #zelStatusOk
 *  @{
 */
ZELS_API ZelStatus zelsReal_16sc(const Zel16sc* pSrc, Zel16s* pDstRe, int len);
ZELS_API ZelStatus zelsReal_32fc(const Zel32fc* pSrc, Zel32f* pDstRe, int len);
ZELS_API ZelStatus zelsReal_64fc(const Zel64fc* pSrc, Zel64f* pDstRe, int len);
ZELS_API ZelStatus zelsImag_16sc(const Zel16sc* pSrc, Zel16s* pDstIm, int len);
ZELS_API ZelStatus zelsImag_32fc(const Zel32fc* pSrc, Zel32f* pDstIm, int len);
ZELS_API ZelStatus zelsImag_64fc(const Zel64fc* pSrc, Zel64f* pDstIm, int len);
/** @} */

/** @name Both parts of complex elements
 *  `pDstRe[n] = pSrc[n].re` and `pDstIm[n] = pSrc[n].im`. The arrays must not overlap.
 *  @param pSrc source
 *  @param pDstRe destination of the real parts
 *  @param pDstIm destination of the imaginary parts
 *  @param len length in elements
 *  @return #zelErrNullPtr for a null pointer, else #zelErrSize for a length below 1, else #zelStatusOk
 *  @{
 */
ZELS_API ZelStatus zelsCplxToReal_16sc(const Zel16sc* pSrc, Zel16s* pDstRe, Zel16s* pDstIm, int len);
ZELS_API ZelStatus zelsCplxToReal_32fc(const Zel32fc* pSrc, Zel32f* pDstRe, Zel32f* pDstIm, int len);
ZELS_API ZelStatus zelsCplxToReal_32fc_L(const Zel32fc* pSrc, Zel32f* pDstRe, Zel32f* pDstIm, ZelSize len);
ZELS_API ZelStatus zelsCplxToReal_64fc(const Zel64fc* pSrc, Zel64f* pDstRe, Zel64f* pDstIm, int len);
ZELS_API ZelStatus zelsCplxToReal_64fc_L(const Zel64fc* pSrc, Zel64f* pDstRe, Zel64f* pDstIm, ZelSize len);
/** @} */

/** @name Complex elements from their parts
 *  `pDst[n] = (pSrcRe[n], pSrcIm[n])`. Without one of the sources that part of every element is 0. The arrays
 * must not overlap.
 *  @param pSrcRe real parts, or null
 *  @param pSrcIm imaginary parts, or null
 *  @param pDst destination
 *  @param len length in elements
 *  @return #zelErrNullPtr for a null destination, else #zelErrSize for a length below 1, else #zelErrNullPtr
 *  if both sources are null, else #zelStatusOk
 *  @{
 */
ZELS_API ZelStatus zelsRealToCplx_16s(const Zel16s* pSrcRe, const Zel16s* pSrcIm, Zel16sc* pDst, int len);
ZELS_API ZelStatus zelsRealToCplx_32f(const Zel32f* pSrcRe, const Zel32f* pSrcIm, Zel32fc* pDst, int len);
ZELS_API ZelStatus zelsRealToCplx_32f_L(const Zel32f* pSrcRe, const Zel32f* pSrcIm, Zel32fc* pDst,
                                        ZelSize len);
ZELS_API ZelStatus zelsRealToCplx_64f(const Zel64f* pSrcRe, const Zel64f* pSrcIm, Zel64fc* pDst, int len);
ZELS_API ZelStatus zelsRealToCplx_64f_L(const Zel64f* pSrcRe, const Zel64f* pSrcIm, Zel64fc* pDst,
                                        ZelSize len);
/** @} */

/** @} */

/** @defgroup order Bit and byte order
 *  Elements end for end, bytes of each element in reverse, and bit strings at any position.
 *  @{
 */

/** @name End for end
 *  `pDst[n] = pSrc[len - 1 - n]`, by the bit pattern. Source and destination may be the same array; arrays that
 * overlap in another way are not. The long forms work in one piece and test the pointers first, as the others do.
 *  @param pSrc source
 *  @param pDst destination
 *  @param pSrcDst source and destination
 *  @param len length in elements
 *  @return #zelErrNullPtr for a null pointer, else #zelErrSize for a length below 1, else #zelStatusOk
 *  @{
 */
ZELS_API ZelStatus zelsFlip_8u(const Zel8u* pSrc, Zel8u* pDst, int len);
ZELS_API ZelStatus zelsFlip_8u_I(Zel8u* pSrcDst, int len);
ZELS_API ZelStatus zelsFlip_16u(const Zel16u* pSrc, Zel16u* pDst, int len);
ZELS_API ZelStatus zelsFlip_16u_I(Zel16u* pSrcDst, int len);
ZELS_API ZelStatus zelsFlip_32f(const Zel32f* pSrc, Zel32f* pDst, int len);
ZELS_API ZelStatus zelsFlip_32f_I(Zel32f* pSrcDst, int len);
ZELS_API ZelStatus zelsFlip_32f_L(const Zel32f* pSrc, Zel32f* pDst, ZelSize len);
ZELS_API ZelStatus zelsFlip_32f_I_L(Zel32f* pSrcDst, ZelSize len);
ZELS_API ZelStatus zelsFlip_64f(const Zel64f* pSrc, Zel64f* pDst, int len);
ZELS_API ZelStatus zelsFlip_64f_I(Zel64f* pSrcDst, int len);
ZELS_API ZelStatus zelsFlip_64f_L(const Zel64f* pSrc, Zel64f* pDst, ZelSize len);
ZELS_API ZelStatus zelsFlip_64f_I_L(Zel64f* pSrcDst, ZelSize len);
ZELS_API ZelStatus zelsFlip_32fc(const Zel32fc* pSrc, Zel32fc* pDst, int len);
ZELS_API ZelStatus zelsFlip_32fc_I(Zel32fc* pSrcDst, int len);
ZELS_API ZelStatus zelsFlip_32fc_L(const Zel32fc* pSrc, Zel32fc* pDst, ZelSize len);
ZELS_API ZelStatus zelsFlip_32fc_I_L(Zel32fc* pSrcDst, ZelSize len);
ZELS_API ZelStatus zelsFlip_64fc(const Zel64fc* pSrc, Zel64fc* pDst, int len);
ZELS_API ZelStatus zelsFlip_64fc_I(Zel64fc* pSrcDst, int len);
ZELS_API ZelStatus zelsFlip_64fc_L(const Zel64fc* pSrc, Zel64fc* pDst, ZelSize len);
ZELS_API ZelStatus zelsFlip_64fc_I_L(Zel64fc* pSrcDst, ZelSize len);
/** @} */

/** @name Byte order
 *  The bytes of each element in reverse order. Elements of the 24u forms are three bytes: 1, 2, 3 gives 3, 2, 1.
 * Source and destination may be the same array. Above 524,288 elements zelsSwapBytes_24u writes past the caches.
 *  @param pSrc source
 *  @param pDst destination
 *  @param pSrcDst source and destination
 *  @param len length in elements
 *  @return #zelErrNullPtr for a null pointer, else #zelErrSize for a length below 1, else #zelStatusOk
 *  @{
 */
ZELS_API ZelStatus zelsSwapBytes_16u(const Zel16u* pSrc, Zel16u* pDst, int len);
ZELS_API ZelStatus zelsSwapBytes_16u_I(Zel16u* pSrcDst, int len);
ZELS_API ZelStatus zelsSwapBytes_24u(const Zel8u* pSrc, Zel8u* pDst, int len);
ZELS_API ZelStatus zelsSwapBytes_24u_I(Zel8u* pSrcDst, int len);
ZELS_API ZelStatus zelsSwapBytes_32u(const Zel32u* pSrc, Zel32u* pDst, int len);
ZELS_API ZelStatus zelsSwapBytes_32u_I(Zel32u* pSrcDst, int len);
ZELS_API ZelStatus zelsSwapBytes_64u(const Zel64u* pSrc, Zel64u* pDst, int len);
ZELS_API ZelStatus zelsSwapBytes_64u_I(Zel64u* pSrcDst, int len);
/** @} */

/** @name Bit strings
 *  Copies `len` bits from bit `srcBitOffset` of the source on to bit `dstBitOffset` of the destination on. Bit i
 * lies in byte i / 8; zelsCopyLE_1u counts the bits of a byte from the lowest, zelsCopyBE_1u from the highest.
 * The other bits of the destination stay as they were. The bytes must not overlap.
 *  @param pSrc source
 *  @param srcBitOffset first bit of the source, at least 0
 *  @param pDst destination
 *  @param dstBitOffset first bit of the destination, at least 0
 *  @param len length in bits
 *  @return #zelErrNullPtr for a null pointer, else #zelErrSize for a length below 1 or a negative offset, else
 *  #zelStatusOk
 *  @{
 */
ZELS_API ZelStatus zelsCopyBE_1u(const Zel8u* pSrc, int srcBitOffset, Zel8u* pDst, int dstBitOffset, int len);
ZELS_API ZelStatus zelsCopyLE_1u(const Zel8u* pSrc, int srcBitOffset, Zel8u* pDst, int dstBitOffset, int len);
/** @} */

/** @} */

#ifdef __cplusplus
}
#endif

#endif
