/** @file
 *  Signal generators: tones and window functions.
 */
#ifndef ZELS_GENERATORS_H
#define ZELS_GENERATORS_H

#include "zels/types.h"

#ifdef __cplusplus
extern "C" {
#endif

/** @defgroup tone Tones
 *  Sampled sine waves that go on from call to call.
 *  @{
 */

/** @name Tone
 *  With `w = 2 pi rFreq` in double precision and `p = *pPhase`, real forms give `magn cos(w n + p)` and complex forms
 * `magn (cos(w n + p) + j sin(w n + p))`. The phase variable receives the phase of the sample behind the last one, so that
 * the next call goes on without a seam. 16-bit samples are rounded to nearest, ties away from zero.
 *
 *  All is computed in double precision by the recurrence `x[n + s] = 2 cos(s w) x[n] - x[n - s]` in differences. No
 * correction is made: rounding to nearest, the error of sample n is below `2^-53 (8 + n) magn`. With #zelHintFast the
 * recurrence begins anew every 1,024 samples from the phase that belongs there, so that the error does not grow beyond
 * that of 1,024 samples. The phase is carried over in the type of its variable: in single precision a seam shifts the
 * tone by up to 2.4e-7.
 *  @param pDst destination
 *  @param len length in samples
 *  @param magn magnitude, above 0
 *  @param rFreq frequency over the sampling rate, at least 0, below 0.5 (real forms) or 1 (complex forms)
 *  @param pPhase phase of the first sample, at least 0 and below 2 pi; receives that of the next call
 *  @param hint #zelHintFast restarts the recurrence, all else does not
 *  @return #zelErrNullPtr for a null `pPhase`, else #zelErrToneMagnitude, #zelErrToneFreq or #zelErrTonePhase for a magnitude,
 * a frequency or a phase outside its range or not a number, else #zelErrNullPtr for a null `pDst`, else #zelErrSize for a
 * length below 1 (in this order on purpose), else #zelStatusOk
 *  @{
 */
ZELS_API ZelStatus zelsTone_16s(Zel16s* pDst, int len, Zel16s magn, Zel32f rFreq, Zel32f* pPhase,
                                ZelHintAlgorithm hint);
ZELS_API ZelStatus zelsTone_16sc(Zel16sc* pDst, int len, Zel16s magn, Zel32f rFreq, Zel32f* pPhase,
                                 ZelHintAlgorithm hint);
ZELS_API ZelStatus zelsTone_32f(Zel32f* pDst, int len, Zel32f magn, Zel32f rFreq, Zel32f* pPhase,
                                ZelHintAlgorithm hint);
ZELS_API ZelStatus zelsTone_32fc(Zel32fc* pDst, int len, Zel32f magn, Zel32f rFreq, Zel32f* pPhase,
                                 ZelHintAlgorithm hint);
ZELS_API ZelStatus zelsTone_64f(Zel64f* pDst, int len, Zel64f magn, Zel64f rFreq, Zel64f* pPhase,
                                ZelHintAlgorithm hint);
ZELS_API ZelStatus zelsTone_64fc(Zel64fc* pDst, int len, Zel64f magn, Zel64f rFreq, Zel64f* pPhase,
                                 ZelHintAlgorithm hint);
/** @} */

/** @} */

/** @defgroup windows Window functions
 *  `pDst[n] = pSrc[n] w[n]` for n from 0 to N - 1. Both parts of a complex element are multiplied by the same value. The
 * window is computed in double precision while the data is multiplied, one value for both ends, so that it is symmetric to
 * the bit. Single-precision data is multiplied by values rounded to its type. Products of 16-bit data are rounded to
 * nearest, ties to even, and saturated. Source and destination may be the same array.
 *
 *  Windows of cosines are polynomials in `1 - cos(2 pi n / (N - 1))`, which a recurrence gives from the ends on, where
 * small values keep their digits. Rounding to nearest, the error of a window value is below
 *
 *  | Window | 2^-53 times |
 *  |---|---|
 *  | Bartlett | `2 w[n]` |
 *  | Hann, Hamming | `(8 + N / 64) w[n]` |
 *  | Blackman | `(8 + N / 64) (1 + 12 abs(alpha))` |
 *  | Kaiser | `(16 + 5 abs(alpha) m) w[n]` |
 *
 *  and that of rounding the value and the product.
 *
 *  F. J. Harris, "On the use of windows for harmonic analysis with the discrete Fourier transform", Proceedings of the IEEE
 * 66 (1978); J. F. Kaiser, "Nonrecursive digital filter design using the I0-sinh window function", IEEE Symposium on
 * Circuits and Systems (1974).
 *  @{
 */

/** @name Bartlett window
 *  `w[n] = 2n / (N - 1)` up to the middle, and its mirror image behind it. With `N = 3` the ends are written as 0, whatever
 * the source.
 *  @param pSrc source
 *  @param pDst destination
 *  @param pSrcDst source and destination
 *  @param len length in elements, N
 *  @return #zelErrNullPtr for a null pointer, else #zelErrSize for a length below 3, else #zelStatusOk
 *  @{
 */
ZELS_API ZelStatus zelsWinBartlett_16s(const Zel16s* pSrc, Zel16s* pDst, int len);
ZELS_API ZelStatus zelsWinBartlett_16s_I(Zel16s* pSrcDst, int len);
ZELS_API ZelStatus zelsWinBartlett_16sc(const Zel16sc* pSrc, Zel16sc* pDst, int len);
ZELS_API ZelStatus zelsWinBartlett_16sc_I(Zel16sc* pSrcDst, int len);
ZELS_API ZelStatus zelsWinBartlett_32f(const Zel32f* pSrc, Zel32f* pDst, int len);
ZELS_API ZelStatus zelsWinBartlett_32f_I(Zel32f* pSrcDst, int len);
ZELS_API ZelStatus zelsWinBartlett_32fc(const Zel32fc* pSrc, Zel32fc* pDst, int len);
ZELS_API ZelStatus zelsWinBartlett_32fc_I(Zel32fc* pSrcDst, int len);
ZELS_API ZelStatus zelsWinBartlett_64f(const Zel64f* pSrc, Zel64f* pDst, int len);
ZELS_API ZelStatus zelsWinBartlett_64f_I(Zel64f* pSrcDst, int len);
ZELS_API ZelStatus zelsWinBartlett_64fc(const Zel64fc* pSrc, Zel64fc* pDst, int len);
ZELS_API ZelStatus zelsWinBartlett_64fc_I(Zel64fc* pSrcDst, int len);
/** @} */

/** @name Hann window
 *  `w[n] = 0.5 - 0.5 cos(2 pi n / (N - 1))`.
 *  @param pSrc source
 *  @param pDst destination
 *  @param pSrcDst source and destination
 *  @param len length in elements, N
 *  @return #zelErrNullPtr for a null pointer, else #zelErrSize for a length below 3, else #zelStatusOk
 *  @{
 */
ZELS_API ZelStatus zelsWinHann_16s(const Zel16s* pSrc, Zel16s* pDst, int len);
ZELS_API ZelStatus zelsWinHann_16s_I(Zel16s* pSrcDst, int len);
ZELS_API ZelStatus zelsWinHann_16sc(const Zel16sc* pSrc, Zel16sc* pDst, int len);
ZELS_API ZelStatus zelsWinHann_16sc_I(Zel16sc* pSrcDst, int len);
ZELS_API ZelStatus zelsWinHann_32f(const Zel32f* pSrc, Zel32f* pDst, int len);
ZELS_API ZelStatus zelsWinHann_32f_I(Zel32f* pSrcDst, int len);
ZELS_API ZelStatus zelsWinHann_32fc(const Zel32fc* pSrc, Zel32fc* pDst, int len);
ZELS_API ZelStatus zelsWinHann_32fc_I(Zel32fc* pSrcDst, int len);
ZELS_API ZelStatus zelsWinHann_64f(const Zel64f* pSrc, Zel64f* pDst, int len);
ZELS_API ZelStatus zelsWinHann_64f_I(Zel64f* pSrcDst, int len);
ZELS_API ZelStatus zelsWinHann_64fc(const Zel64fc* pSrc, Zel64fc* pDst, int len);
ZELS_API ZelStatus zelsWinHann_64fc_I(Zel64fc* pSrcDst, int len);
/** @} */

/** @name Hamming window
 *  `w[n] = 0.54 - 0.46 cos(2 pi n / (N - 1))`.
 *  @param pSrc source
 *  @param pDst destination
 *  @param pSrcDst source and destination
 *  @param len length in elements, N
 *  @return #zelErrNullPtr for a null pointer, else #zelErrSize for a length below 3, else #zelStatusOk
 *  @{
 */
ZELS_API ZelStatus zelsWinHamming_16s(const Zel16s* pSrc, Zel16s* pDst, int len);
ZELS_API ZelStatus zelsWinHamming_16s_I(Zel16s* pSrcDst, int len);
ZELS_API ZelStatus zelsWinHamming_16sc(const Zel16sc* pSrc, Zel16sc* pDst, int len);
ZELS_API ZelStatus zelsWinHamming_16sc_I(Zel16sc* pSrcDst, int len);
ZELS_API ZelStatus zelsWinHamming_32f(const Zel32f* pSrc, Zel32f* pDst, int len);
ZELS_API ZelStatus zelsWinHamming_32f_I(Zel32f* pSrcDst, int len);
ZELS_API ZelStatus zelsWinHamming_32fc(const Zel32fc* pSrc, Zel32fc* pDst, int len);
ZELS_API ZelStatus zelsWinHamming_32fc_I(Zel32fc* pSrcDst, int len);
ZELS_API ZelStatus zelsWinHamming_64f(const Zel64f* pSrc, Zel64f* pDst, int len);
ZELS_API ZelStatus zelsWinHamming_64f_I(Zel64f* pSrcDst, int len);
ZELS_API ZelStatus zelsWinHamming_64fc(const Zel64fc* pSrc, Zel64fc* pDst, int len);
ZELS_API ZelStatus zelsWinHamming_64fc_I(Zel64fc* pSrcDst, int len);
/** @} */

/** @name Blackman window with a parameter
 *  `w[n] = (alpha + 1) / 2 - 0.5 cos(2 pi n / (N - 1)) - (alpha / 2) cos(4 pi n / (N - 1))`.
 *  @param pSrc source
 *  @param pDst destination
 *  @param pSrcDst source and destination
 *  @param len length in elements, N
 *  @param alpha parameter
 *  @return #zelErrNullPtr for a null pointer, else #zelErrSize for a length below 3, else #zelStatusOk
 *  @{
 */
ZELS_API ZelStatus zelsWinBlackman_16s(const Zel16s* pSrc, Zel16s* pDst, int len, Zel32f alpha);
ZELS_API ZelStatus zelsWinBlackman_16s_I(Zel16s* pSrcDst, int len, Zel32f alpha);
ZELS_API ZelStatus zelsWinBlackman_16sc(const Zel16sc* pSrc, Zel16sc* pDst, int len, Zel32f alpha);
ZELS_API ZelStatus zelsWinBlackman_16sc_I(Zel16sc* pSrcDst, int len, Zel32f alpha);
ZELS_API ZelStatus zelsWinBlackman_32f(const Zel32f* pSrc, Zel32f* pDst, int len, Zel32f alpha);
ZELS_API ZelStatus zelsWinBlackman_32f_I(Zel32f* pSrcDst, int len, Zel32f alpha);
ZELS_API ZelStatus zelsWinBlackman_32fc(const Zel32fc* pSrc, Zel32fc* pDst, int len, Zel32f alpha);
ZELS_API ZelStatus zelsWinBlackman_32fc_I(Zel32fc* pSrcDst, int len, Zel32f alpha);
ZELS_API ZelStatus zelsWinBlackman_64f(const Zel64f* pSrc, Zel64f* pDst, int len, Zel64f alpha);
ZELS_API ZelStatus zelsWinBlackman_64f_I(Zel64f* pSrcDst, int len, Zel64f alpha);
ZELS_API ZelStatus zelsWinBlackman_64fc(const Zel64fc* pSrc, Zel64fc* pDst, int len, Zel64f alpha);
ZELS_API ZelStatus zelsWinBlackman_64fc_I(Zel64fc* pSrcDst, int len, Zel64f alpha);
/** @} */

/** @name Blackman window
 *  The window with the parameter -0.16. With `N = 3` the ends are written as 0, whatever the source.
 *  @param pSrc source
 *  @param pDst destination
 *  @param pSrcDst source and destination
 *  @param len length in elements, N
 *  @return #zelErrNullPtr for a null pointer, else #zelErrSize for a length below 3, else #zelStatusOk
 *  @{
 */
ZELS_API ZelStatus zelsWinBlackmanStd_16s(const Zel16s* pSrc, Zel16s* pDst, int len);
ZELS_API ZelStatus zelsWinBlackmanStd_16s_I(Zel16s* pSrcDst, int len);
ZELS_API ZelStatus zelsWinBlackmanStd_16sc(const Zel16sc* pSrc, Zel16sc* pDst, int len);
ZELS_API ZelStatus zelsWinBlackmanStd_16sc_I(Zel16sc* pSrcDst, int len);
ZELS_API ZelStatus zelsWinBlackmanStd_32f(const Zel32f* pSrc, Zel32f* pDst, int len);
ZELS_API ZelStatus zelsWinBlackmanStd_32f_I(Zel32f* pSrcDst, int len);
ZELS_API ZelStatus zelsWinBlackmanStd_32fc(const Zel32fc* pSrc, Zel32fc* pDst, int len);
ZELS_API ZelStatus zelsWinBlackmanStd_32fc_I(Zel32fc* pSrcDst, int len);
ZELS_API ZelStatus zelsWinBlackmanStd_64f(const Zel64f* pSrc, Zel64f* pDst, int len);
ZELS_API ZelStatus zelsWinBlackmanStd_64f_I(Zel64f* pSrcDst, int len);
ZELS_API ZelStatus zelsWinBlackmanStd_64fc(const Zel64fc* pSrc, Zel64fc* pDst, int len);
ZELS_API ZelStatus zelsWinBlackmanStd_64fc_I(Zel64fc* pSrcDst, int len);
/** @} */

/** @name Blackman window of fastest falling side lobes
 *  The window with the parameter `-(0.5 / cos(pi / (N - 1)))^2`.
 *  @param pSrc source
 *  @param pDst destination
 *  @param pSrcDst source and destination
 *  @param len length in elements, N
 *  @return #zelErrNullPtr for a null pointer, else #zelErrSize for a length below 4, else #zelStatusOk
 *  @{
 */
ZELS_API ZelStatus zelsWinBlackmanOpt_16s(const Zel16s* pSrc, Zel16s* pDst, int len);
ZELS_API ZelStatus zelsWinBlackmanOpt_16s_I(Zel16s* pSrcDst, int len);
ZELS_API ZelStatus zelsWinBlackmanOpt_16sc(const Zel16sc* pSrc, Zel16sc* pDst, int len);
ZELS_API ZelStatus zelsWinBlackmanOpt_16sc_I(Zel16sc* pSrcDst, int len);
ZELS_API ZelStatus zelsWinBlackmanOpt_32f(const Zel32f* pSrc, Zel32f* pDst, int len);
ZELS_API ZelStatus zelsWinBlackmanOpt_32f_I(Zel32f* pSrcDst, int len);
ZELS_API ZelStatus zelsWinBlackmanOpt_32fc(const Zel32fc* pSrc, Zel32fc* pDst, int len);
ZELS_API ZelStatus zelsWinBlackmanOpt_32fc_I(Zel32fc* pSrcDst, int len);
ZELS_API ZelStatus zelsWinBlackmanOpt_64f(const Zel64f* pSrc, Zel64f* pDst, int len);
ZELS_API ZelStatus zelsWinBlackmanOpt_64f_I(Zel64f* pSrcDst, int len);
ZELS_API ZelStatus zelsWinBlackmanOpt_64fc(const Zel64fc* pSrc, Zel64fc* pDst, int len);
ZELS_API ZelStatus zelsWinBlackmanOpt_64fc_I(Zel64fc* pSrcDst, int len);
/** @} */

/** @name Kaiser window
 *  `w[n] = I0(alpha sqrt(m^2 - (n - m)^2)) / I0(alpha m)` with `m = (N - 1) / 2` and the modified Bessel function I0 by the
 * polynomials 9.8.1 and 9.8.2 of M. Abramowitz and I. A. Stegun, "Handbook of Mathematical Functions" (1964), which are
 * within 2e-7 of it. `alpha m` may reach 38 in the `32f` and `32fc` forms, 308 in the others.
 *  @param pSrc source
 *  @param pDst destination
 *  @param pSrcDst source and destination
 *  @param len length in elements, N
 *  @param alpha parameter
 *  @return #zelErrNullPtr for a null pointer, else #zelErrSize for a length below 1, else #zelErrKaiserAlpha for a
 * parameter too large for the length, else #zelStatusOk
 *  @{
 */
ZELS_API ZelStatus zelsWinKaiser_16s(const Zel16s* pSrc, Zel16s* pDst, int len, Zel32f alpha);
ZELS_API ZelStatus zelsWinKaiser_16s_I(Zel16s* pSrcDst, int len, Zel32f alpha);
ZELS_API ZelStatus zelsWinKaiser_16sc(const Zel16sc* pSrc, Zel16sc* pDst, int len, Zel32f alpha);
ZELS_API ZelStatus zelsWinKaiser_16sc_I(Zel16sc* pSrcDst, int len, Zel32f alpha);
ZELS_API ZelStatus zelsWinKaiser_32f(const Zel32f* pSrc, Zel32f* pDst, int len, Zel32f alpha);
ZELS_API ZelStatus zelsWinKaiser_32f_I(Zel32f* pSrcDst, int len, Zel32f alpha);
ZELS_API ZelStatus zelsWinKaiser_32fc(const Zel32fc* pSrc, Zel32fc* pDst, int len, Zel32f alpha);
ZELS_API ZelStatus zelsWinKaiser_32fc_I(Zel32fc* pSrcDst, int len, Zel32f alpha);
ZELS_API ZelStatus zelsWinKaiser_64f(const Zel64f* pSrc, Zel64f* pDst, int len, Zel64f alpha);
ZELS_API ZelStatus zelsWinKaiser_64f_I(Zel64f* pSrcDst, int len, Zel64f alpha);
ZELS_API ZelStatus zelsWinKaiser_64fc(const Zel64fc* pSrc, Zel64fc* pDst, int len, Zel64f alpha);
ZELS_API ZelStatus zelsWinKaiser_64fc_I(Zel64fc* pSrcDst, int len, Zel64f alpha);
/** @} */

/** @} */

#ifdef __cplusplus
}
#endif

#endif
