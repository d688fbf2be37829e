/** @file
 *  Transforms: the fast Fourier transform and packed spectra of real signals.
 */
#ifndef ZELS_TRANSFORMS_H
#define ZELS_TRANSFORMS_H

#include "zels/types.h"

#ifdef __cplusplus
extern "C" {
#endif

/** @defgroup fft Fast Fourier transform
 *  Transforms of N = 2^order values,
 *
 *      forward  X[k] = s * sum over j of x[j] * exp(-2 pi i j k / N)
 *      inverse  x[j] = s * sum over k of X[k] * exp(+2 pi i j k / N)
 *
 *  where the plan's flag says which direction has a factor s other than 1.
 *
 *  A transform takes three steps. `GetSize` tells the bytes of three buffers. `Init` builds the plan inside
 * the first and needs the second until it returns. Each run call reads the plan and needs the third for
 * itself. Buffers may have any alignment; the sizes include the slack for rounding up to 64 bytes. A size of
 * 0 means that the buffer is not needed and may be null. A plan is never written after `Init`, so that any
 * number of threads may run it at once, each with its own data and work buffer; it holds pointers into itself
 * and must not be moved.
 *
 *      int planSize, initSize, workSize;
 *      zelsFFTGetSize_C_32fc(10, zelFftScaleInv, zelHintNone, &planSize, &initSize, &workSize);
 *      ...
 *      ZelsFftPlan_C_32fc* pPlan;
 *      zelsFFTInit_C_32fc(&pPlan, 10, zelFftScaleInv, zelHintNone, pPlanMem, pInitMem);
 *      zelsFFTFwd_CToC_32fc(pSrc, pDst, pPlan, pBuffer);
 *
 *  Source and destination may be the same array, and then give the same bits as separate arrays; they must
 *  not overlap otherwise. On random data the error of a transform, rounding to nearest, in the mean
 *  square and relative to the result, is below `0.34 * epsilon * sqrt(order + 4)`. Infinities and NaN spread through the
 *  sums by ordinary arithmetic.
 *
 *  Decimation in time after J. W. Cooley and J. W. Tukey, "An algorithm for the machine calculation of
 * complex Fourier series", Math. Comp. 19 (1965), with radix 8 and 4 after G. D. Bergland, "A fast Fourier
 * transform algorithm using base 8 iterations", Math. Comp. 22 (1968).
 *  @{
 */

/** Normalisation of a Fourier transform of length N. */
enum {
    zelFftScaleFwd = 1,  /**< the forward transform is multiplied by 1/N */
    zelFftScaleInv = 2,  /**< the inverse transform is multiplied by 1/N */
    zelFftScaleSqrt = 4, /**< both are multiplied by 1/sqrt(N) */
    zelFftScaleNone = 8  /**< neither is scaled */
};

typedef struct ZelsFftPlan_C_32fc ZelsFftPlan_C_32fc; /**< plan of #Zel32fc transforms */
typedef struct ZelsFftPlan_C_32f ZelsFftPlan_C_32f;   /**< plan of complex transforms in two #Zel32f arrays */
typedef struct ZelsFftPlan_R_32f ZelsFftPlan_R_32f;   /**< plan of real #Zel32f transforms */
typedef struct ZelsFftPlan_C_64fc ZelsFftPlan_C_64fc; /**< plan of #Zel64fc transforms */
typedef struct ZelsFftPlan_C_64f ZelsFftPlan_C_64f;   /**< plan of complex transforms in two #Zel64f arrays */
typedef struct ZelsFftPlan_R_64f ZelsFftPlan_R_64f;   /**< plan of real #Zel64f transforms */

/** @name FFTGetSize
 *  The bytes of the three buffers of a plan. Orders go from 0 to 28 (`C_32fc`, `C_32f`), 29 (`R_32f`), 27
 * (`C_64fc`, `C_64f`) and 28 (`R_64f`). Neither flag nor hint enters the sizes. The work buffer never takes
 * more than 1 MiB and 64 bytes, however long the transform.
 *  @param order order of the transform: its length is 2^order
 *  @param flag one of #zelFftScaleFwd, #zelFftScaleInv, #zelFftScaleSqrt, #zelFftScaleNone
 *  @param hint not used
 *  @param pPlanSize receives the bytes of the plan
 *  @param pInitSize receives the bytes that `Init` needs besides
 *  @param pWorkSize receives the bytes of the work buffer of a run call
 *  @return #zelErrFftOrder for an order above 30 or below 0 (tested first, on purpose), else #zelErrNullPtr for a null
 * pointer, else #zelErrFftFlag for another flag, else #zelErrFftOrder for an order that the plan does not
 * reach, else #zelStatusOk
 *  @{
 */
ZELS_API ZelStatus zelsFFTGetSize_C_32fc(int order, int flag, ZelHintAlgorithm hint, int* pPlanSize,
                                         int* pInitSize, int* pWorkSize);
ZELS_API ZelStatus zelsFFTGetSize_C_32f(int order, int flag, ZelHintAlgorithm hint, int* pPlanSize,
                                        int* pInitSize, int* pWorkSize);
ZELS_API ZelStatus zelsFFTGetSize_R_32f(int order, int flag, ZelHintAlgorithm hint, int* pPlanSize,
                                        int* pInitSize, int* pWorkSize);
ZELS_API ZelStatus zelsFFTGetSize_C_64fc(int order, int flag, ZelHintAlgorithm hint, int* pPlanSize,
                                         int* pInitSize, int* pWorkSize);
ZELS_API ZelStatus zelsFFTGetSize_C_64f(int order, int flag, ZelHintAlgorithm hint, int* pPlanSize,
                                        int* pInitSize, int* pWorkSize);
ZELS_API ZelStatus zelsFFTGetSize_R_64f(int order, int flag, ZelHintAlgorithm hint, int* pPlanSize,
                                        int* pInitSize, int* pWorkSize);
/** @} */

/** @name FFTInit
 *  Builds a plan in `pPlanMem` (rounded up to 64 bytes) and returns its address.
 *  @param ppPlan receives the plan
 *  @param order order of the transform
 *  @param flag normalisation
 *  @param hint stored and not used
 *  @param pPlanMem memory of the plan
 *  @param pInitMem memory that is needed until the function returns; not used, and may be null, up to order
 * 10
 *  @return #zelErrNullPtr for a null `ppPlan`, else #zelErrFftOrder for an order outside the range, else
 *  #zelErrNullPtr for a null `pPlanMem`, else #zelErrFftFlag for another flag, else #zelErrNullPtr for a null
 *  `pInitMem` where one is needed, else #zelStatusOk. An error leaves `*ppPlan` as it was.
 *  @{
 */
ZELS_API ZelStatus zelsFFTInit_C_32fc(ZelsFftPlan_C_32fc** ppPlan, int order, int flag, ZelHintAlgorithm hint,
                                      Zel8u* pPlanMem, Zel8u* pInitMem);
ZELS_API ZelStatus zelsFFTInit_C_32f(ZelsFftPlan_C_32f** ppPlan, int order, int flag, ZelHintAlgorithm hint,
                                     Zel8u* pPlanMem, Zel8u* pInitMem);
ZELS_API ZelStatus zelsFFTInit_R_32f(ZelsFftPlan_R_32f** ppPlan, int order, int flag, ZelHintAlgorithm hint,
                                     Zel8u* pPlanMem, Zel8u* pInitMem);
ZELS_API ZelStatus zelsFFTInit_C_64fc(ZelsFftPlan_C_64fc** ppPlan, int order, int flag, ZelHintAlgorithm hint,
                                      Zel8u* pPlanMem, Zel8u* pInitMem);
ZELS_API ZelStatus zelsFFTInit_C_64f(ZelsFftPlan_C_64f** ppPlan, int order, int flag, ZelHintAlgorithm hint,
                                     Zel8u* pPlanMem, Zel8u* pInitMem);
ZELS_API ZelStatus zelsFFTInit_R_64f(ZelsFftPlan_R_64f** ppPlan, int order, int flag, ZelHintAlgorithm hint,
                                     Zel8u* pPlanMem, Zel8u* pInitMem);
/** @} */

/** @name FFTFwd_CToC, FFTInv_CToC
 *  Complex transforms, of interleaved values (`32fc`, `64fc`) or of real and imaginary parts in two arrays
 * (`32f`, `64f`).
 *  @param pSrc, pSrcRe, pSrcIm source
 *  @param pDst, pDstRe, pDstIm destination
 *  @param pSrcDst, pSrcDstRe, pSrcDstIm source and destination
 *  @param pPlan plan of the same type
 *  @param pBuffer work buffer; may be null up to order 5
 *  @return #zelErrNullPtr for a null plan, else #zelErrContextMatch for a plan of another type, else
 *  #zelErrNullPtr for a null array, or a null buffer where the work size is not 0, else #zelStatusOk
 *  @{
 */
ZELS_API ZelStatus zelsFFTFwd_CToC_32fc(const Zel32fc* pSrc, Zel32fc* pDst, const ZelsFftPlan_C_32fc* pPlan,
                                        Zel8u* pBuffer);
ZELS_API ZelStatus zelsFFTFwd_CToC_32fc_I(Zel32fc* pSrcDst, const ZelsFftPlan_C_32fc* pPlan, Zel8u* pBuffer);
ZELS_API ZelStatus zelsFFTInv_CToC_32fc(const Zel32fc* pSrc, Zel32fc* pDst, const ZelsFftPlan_C_32fc* pPlan,
                                        Zel8u* pBuffer);
ZELS_API ZelStatus zelsFFTInv_CToC_32fc_I(Zel32fc* pSrcDst, const ZelsFftPlan_C_32fc* pPlan, Zel8u* pBuffer);
ZELS_API ZelStatus zelsFFTFwd_CToC_64fc(const Zel64fc* pSrc, Zel64fc* pDst, const ZelsFftPlan_C_64fc* pPlan,
                                        Zel8u* pBuffer);
ZELS_API ZelStatus zelsFFTFwd_CToC_64fc_I(Zel64fc* pSrcDst, const ZelsFftPlan_C_64fc* pPlan, Zel8u* pBuffer);
ZELS_API ZelStatus zelsFFTInv_CToC_64fc(const Zel64fc* pSrc, Zel64fc* pDst, const ZelsFftPlan_C_64fc* pPlan,
                                        Zel8u* pBuffer);
ZELS_API ZelStatus zelsFFTInv_CToC_64fc_I(Zel64fc* pSrcDst, const ZelsFftPlan_C_64fc* pPlan, Zel8u* pBuffer);
ZELS_API ZelStatus zelsFFTFwd_CToC_32f(const Zel32f* pSrcRe, const Zel32f* pSrcIm, Zel32f* pDstRe,
                                       Zel32f* pDstIm, const ZelsFftPlan_C_32f* pPlan, Zel8u* pBuffer);
ZELS_API ZelStatus zelsFFTFwd_CToC_32f_I(Zel32f* pSrcDstRe, Zel32f* pSrcDstIm, const ZelsFftPlan_C_32f* pPlan,
                                         Zel8u* pBuffer);
ZELS_API ZelStatus zelsFFTInv_CToC_32f(const Zel32f* pSrcRe, const Zel32f* pSrcIm, Zel32f* pDstRe,
                                       Zel32f* pDstIm, const ZelsFftPlan_C_32f* pPlan, Zel8u* pBuffer);
ZELS_API ZelStatus zelsFFTInv_CToC_32f_I(Zel32f* pSrcDstRe, Zel32f* pSrcDstIm, const ZelsFftPlan_C_32f* pPlan,
                                         Zel8u* pBuffer);
ZELS_API ZelStatus zelsFFTFwd_CToC_64f(const Zel64f* pSrcRe, const Zel64f* pSrcIm, Zel64f* pDstRe,
                                       Zel64f* pDstIm, const ZelsFftPlan_C_64f* pPlan, Zel8u* pBuffer);
ZELS_API ZelStatus zelsFFTFwd_CToC_64f_I(Zel64f* pSrcDstRe, Zel64f* pSrcDstIm, const ZelsFftPlan_C_64f* pPlan,
                                         Zel8u* pBuffer);
ZELS_API ZelStatus zelsFFTInv_CToC_64f(const Zel64f* pSrcRe, const Zel64f* pSrcIm, Zel64f* pDstRe,
                                       Zel64f* pDstIm, const ZelsFftPlan_C_64f* pPlan, Zel8u* pBuffer);
ZELS_API ZelStatus zelsFFTInv_CToC_64f_I(Zel64f* pSrcDstRe, Zel64f* pSrcDstIm, const ZelsFftPlan_C_64f* pPlan,
                                         Zel8u* pBuffer);
/** @} */

/** @name FFTFwd_RToCCS, FFTFwd_RToPack, FFTFwd_RToPerm
 *  Forward transforms of real signals of length N. The spectrum X[k] = R(k) + i I(k) is conjugate-symmetric;
 * its first half is stored in one of three layouts:
 *
 *  | Layout | Elements | N even | N odd (spectra of other families) |
 *  |---|---|---|---|
 *  | CCS | N + 2, N + 1 | R0, 0, R1, I1, ..., R(N/2), 0 | R0, 0, R1, I1, ..., R((N-1)/2), I((N-1)/2) |
 *  | Pack | N | R0, R1, I1, ..., R(N/2-1), I(N/2-1), R(N/2) | R0, R1, I1, ..., R((N-1)/2), I((N-1)/2) |
 *  | Perm | N | R0, R(N/2), R1, I1, ..., R(N/2-1), I(N/2-1) | as Pack |
 *
 *  Perm is what the transform produces; the others cost a move. In place, CCS writes two elements more than
 * it reads (order 0: one). At order 0 CCS is R0, 0 and the others are R0.
 *  @param pSrc source, N elements
 *  @param pDst destination
 *  @param pSrcDst source and destination
 *  @param pPlan plan of the same type
 *  @param pBuffer work buffer; may be null where the work size is 0
 *  @return as of zelsFFTFwd_CToC_32fc()
 *  @{
 */
ZELS_API ZelStatus zelsFFTFwd_RToCCS_32f(const Zel32f* pSrc, Zel32f* pDst, const ZelsFftPlan_R_32f* pPlan,
                                         Zel8u* pBuffer);
ZELS_API ZelStatus zelsFFTFwd_RToCCS_32f_I(Zel32f* pSrcDst, const ZelsFftPlan_R_32f* pPlan, Zel8u* pBuffer);
ZELS_API ZelStatus zelsFFTFwd_RToPack_32f(const Zel32f* pSrc, Zel32f* pDst, const ZelsFftPlan_R_32f* pPlan,
                                          Zel8u* pBuffer);
ZELS_API ZelStatus zelsFFTFwd_RToPack_32f_I(Zel32f* pSrcDst, const ZelsFftPlan_R_32f* pPlan, Zel8u* pBuffer);
ZELS_API ZelStatus zelsFFTFwd_RToPerm_32f(const Zel32f* pSrc, Zel32f* pDst, const ZelsFftPlan_R_32f* pPlan,
                                          Zel8u* pBuffer);
ZELS_API ZelStatus zelsFFTFwd_RToPerm_32f_I(Zel32f* pSrcDst, const ZelsFftPlan_R_32f* pPlan, Zel8u* pBuffer);
ZELS_API ZelStatus zelsFFTFwd_RToCCS_64f(const Zel64f* pSrc, Zel64f* pDst, const ZelsFftPlan_R_64f* pPlan,
                                         Zel8u* pBuffer);
ZELS_API ZelStatus zelsFFTFwd_RToCCS_64f_I(Zel64f* pSrcDst, const ZelsFftPlan_R_64f* pPlan, Zel8u* pBuffer);
ZELS_API ZelStatus zelsFFTFwd_RToPack_64f(const Zel64f* pSrc, Zel64f* pDst, const ZelsFftPlan_R_64f* pPlan,
                                          Zel8u* pBuffer);
ZELS_API ZelStatus zelsFFTFwd_RToPack_64f_I(Zel64f* pSrcDst, const ZelsFftPlan_R_64f* pPlan, Zel8u* pBuffer);
ZELS_API ZelStatus zelsFFTFwd_RToPerm_64f(const Zel64f* pSrc, Zel64f* pDst, const ZelsFftPlan_R_64f* pPlan,
                                          Zel8u* pBuffer);
ZELS_API ZelStatus zelsFFTFwd_RToPerm_64f_I(Zel64f* pSrcDst, const ZelsFftPlan_R_64f* pPlan, Zel8u* pBuffer);
/** @} */

/** @name FFTInv_CCSToR, FFTInv_PackToR, FFTInv_PermToR
 *  Inverse transforms of the spectra of real signals. The imaginary parts that a real signal's spectrum has
 * not are not read.
 *  @param pSrc spectrum
 *  @param pDst destination, N elements
 *  @param pSrcDst source and destination
 *  @param pPlan plan of the same type
 *  @param pBuffer work buffer; may be null where the work size is 0
 *  @return as of zelsFFTFwd_CToC_32fc()
 *  @{
 */
ZELS_API ZelStatus zelsFFTInv_CCSToR_32f(const Zel32f* pSrc, Zel32f* pDst, const ZelsFftPlan_R_32f* pPlan,
                                         Zel8u* pBuffer);
ZELS_API ZelStatus zelsFFTInv_CCSToR_32f_I(Zel32f* pSrcDst, const ZelsFftPlan_R_32f* pPlan, Zel8u* pBuffer);
ZELS_API ZelStatus zelsFFTInv_PackToR_32f(const Zel32f* pSrc, Zel32f* pDst, const ZelsFftPlan_R_32f* pPlan,
                                          Zel8u* pBuffer);
ZELS_API ZelStatus zelsFFTInv_PackToR_32f_I(Zel32f* pSrcDst, const ZelsFftPlan_R_32f* pPlan, Zel8u* pBuffer);
ZELS_API ZelStatus zelsFFTInv_PermToR_32f(const Zel32f* pSrc, Zel32f* pDst, const ZelsFftPlan_R_32f* pPlan,
                                          Zel8u* pBuffer);
ZELS_API ZelStatus zelsFFTInv_PermToR_32f_I(Zel32f* pSrcDst, const ZelsFftPlan_R_32f* pPlan, Zel8u* pBuffer);
ZELS_API ZelStatus zelsFFTInv_CCSToR_64f(const Zel64f* pSrc, Zel64f* pDst, const ZelsFftPlan_R_64f* pPlan,
                                         Zel8u* pBuffer);
ZELS_API ZelStatus zelsFFTInv_CCSToR_64f_I(Zel64f* pSrcDst, const ZelsFftPlan_R_64f* pPlan, Zel8u* pBuffer);
ZELS_API ZelStatus zelsFFTInv_PackToR_64f(const Zel64f* pSrc, Zel64f* pDst, const ZelsFftPlan_R_64f* pPlan,
                                          Zel8u* pBuffer);
ZELS_API ZelStatus zelsFFTInv_PackToR_64f_I(Zel64f* pSrcDst, const ZelsFftPlan_R_64f* pPlan, Zel8u* pBuffer);
ZELS_API ZelStatus zelsFFTInv_PermToR_64f(const Zel64f* pSrc, Zel64f* pDst, const ZelsFftPlan_R_64f* pPlan,
                                          Zel8u* pBuffer);
ZELS_API ZelStatus zelsFFTInv_PermToR_64f_I(Zel64f* pSrcDst, const ZelsFftPlan_R_64f* pPlan, Zel8u* pBuffer);
/** @} */
/** @} */

/** @defgroup spectra Packed spectra
 *  Work on the spectra of real signals in the layouts of zelsFFTFwd_RToCCS_32f(). The length is that of the
 * real signal, N, even or odd, not the count of elements in the array.
 *  @{
 */

/** @name ConjCcs, ConjPack, ConjPerm
 *  All N complex values of a spectrum, X[N - k] = conj(X[k]). In place the array holds N complex values, the
 * packed spectrum at its start.
 *  @param pSrc packed spectrum
 *  @param pDst destination, N complex values
 *  @param pSrcDst source and destination
 *  @param len length N of the real signal
 *  @return #zelErrNullPtr for a null pointer, else #zelErrSize for a length below 1, else #zelStatusOk
 *  @{
 */
ZELS_API ZelStatus zelsConjCcs_32fc(const Zel32f* pSrc, Zel32fc* pDst, int len);
ZELS_API ZelStatus zelsConjCcs_32fc_I(Zel32fc* pSrcDst, int len);
ZELS_API ZelStatus zelsConjCcs_32fc_L(const Zel32f* pSrc, Zel32fc* pDst, ZelSize len);
ZELS_API ZelStatus zelsConjCcs_32fc_I_L(Zel32fc* pSrcDst, ZelSize len);
ZELS_API ZelStatus zelsConjCcs_64fc(const Zel64f* pSrc, Zel64fc* pDst, int len);
ZELS_API ZelStatus zelsConjCcs_64fc_I(Zel64fc* pSrcDst, int len);
ZELS_API ZelStatus zelsConjCcs_64fc_L(const Zel64f* pSrc, Zel64fc* pDst, ZelSize len);
ZELS_API ZelStatus zelsConjCcs_64fc_I_L(Zel64fc* pSrcDst, ZelSize len);
ZELS_API ZelStatus zelsConjPack_32fc(const Zel32f* pSrc, Zel32fc* pDst, int len);
ZELS_API ZelStatus zelsConjPack_32fc_I(Zel32fc* pSrcDst, int len);
ZELS_API ZelStatus zelsConjPack_32fc_L(const Zel32f* pSrc, Zel32fc* pDst, ZelSize len);
ZELS_API ZelStatus zelsConjPack_32fc_I_L(Zel32fc* pSrcDst, ZelSize len);
ZELS_API ZelStatus zelsConjPack_64fc(const Zel64f* pSrc, Zel64fc* pDst, int len);
ZELS_API ZelStatus zelsConjPack_64fc_I(Zel64fc* pSrcDst, int len);
ZELS_API ZelStatus zelsConjPack_64fc_L(const Zel64f* pSrc, Zel64fc* pDst, ZelSize len);
ZELS_API ZelStatus zelsConjPack_64fc_I_L(Zel64fc* pSrcDst, ZelSize len);
ZELS_API ZelStatus zelsConjPerm_32fc(const Zel32f* pSrc, Zel32fc* pDst, int len);
ZELS_API ZelStatus zelsConjPerm_32fc_I(Zel32fc* pSrcDst, int len);
ZELS_API ZelStatus zelsConjPerm_64fc(const Zel64f* pSrc, Zel64fc* pDst, int len);
ZELS_API ZelStatus zelsConjPerm_64fc_I(Zel64fc* pSrcDst, int len);
/** @} */

/** @name MulPack, MulPerm
 *  The product of two spectra, bin by bin. Complex bins: `re = ar*br - ai*bi`, `im = ai*br + ar*bi`, each
 * product and each sum rounded.
 *  @param pSrc1, pSrc2 packed spectra
 *  @param pSrc packed spectrum
 *  @param pDst destination
 *  @param pSrcDst source and destination
 *  @param len length N of the real signal
 *  @return #zelErrNullPtr for a null pointer, else #zelErrSize for a length below 1, else #zelStatusOk
 *  @{
 */
ZELS_API ZelStatus zelsMulPack_32f(const Zel32f* pSrc1, const Zel32f* pSrc2, Zel32f* pDst, int len);
ZELS_API ZelStatus zelsMulPack_32f_I(const Zel32f* pSrc, Zel32f* pSrcDst, int len);
ZELS_API ZelStatus zelsMulPack_64f(const Zel64f* pSrc1, const Zel64f* pSrc2, Zel64f* pDst, int len);
ZELS_API ZelStatus zelsMulPack_64f_I(const Zel64f* pSrc, Zel64f* pSrcDst, int len);
ZELS_API ZelStatus zelsMulPerm_32f(const Zel32f* pSrc1, const Zel32f* pSrc2, Zel32f* pDst, int len);
ZELS_API ZelStatus zelsMulPerm_32f_I(const Zel32f* pSrc, Zel32f* pSrcDst, int len);
ZELS_API ZelStatus zelsMulPerm_64f(const Zel64f* pSrc1, const Zel64f* pSrc2, Zel64f* pDst, int len);
ZELS_API ZelStatus zelsMulPerm_64f_I(const Zel64f* pSrc, Zel64f* pSrcDst, int len);
/** @} */

/** @name MulPackConj
 *  `pSrcDst[k] = pSrc[k] * conj(pSrcDst[k])` in the complex bins: it is the destination that is conjugated.
 * The real bins are multiplied.
 *  @param pSrc packed spectrum
 *  @param pSrcDst source and destination
 *  @param len length N of the real signal
 *  @return #zelErrNullPtr for a null pointer, else #zelErrSize for a length below 1, else #zelStatusOk
 *  @{
 */
ZELS_API ZelStatus zelsMulPackConj_32f_I(const Zel32f* pSrc, Zel32f* pSrcDst, int len);
ZELS_API ZelStatus zelsMulPackConj_64f_I(const Zel64f* pSrc, Zel64f* pSrcDst, int len);
/** @} */
/** @} */

#ifdef __cplusplus
}
#endif

#endif
