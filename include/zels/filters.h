/** @file
 *  Filters: single-rate FIR, FIR design.
 */
#ifndef ZELS_FILTERS_H
#define ZELS_FILTERS_H

#include "zels/types.h"

#ifdef __cplusplus
extern "C" {
#endif

/** @defgroup firsr Single-rate FIR
 *  Filters of n taps over a stream of samples, block by block,
 *
 *      y[m] = sum over k from 0 to n - 1 of taps[k] * x[m - k]
 *
 *  where x goes on backward into the history, the last n - 1 samples before the block. Complex taps are taken as they
 * are, not conjugated.
 *
 *      int specSize, bufSize;
 *      zelsFIRSRGetSize(n, zelDt32f, &specSize, &bufSize);
 *      ...
 *      zelsFIRSRInit_32f(pTaps, n, zelAlgAuto, pSpec);
 *      while (...)
 *          zelsFIRSR_32f(pSrc, pDst, len, pSpec, pDly, pDly, pBuf);
 *
 *  **Memory.** The record and the work buffer lie in the caller's memory, at any address; the sizes include the slack for
 * rounding up to 64 bytes. A record is never written after `Init`, so that any number of threads and streams may run it
 * at once, each with a delay line and a work buffer of its own. It holds pointers into itself and must not be moved. It
 * bears no tag: it is up to the caller to run it by the function that it was made for. A work buffer holds nothing
 * between calls.
 *
 *  **Delay lines** are arrays of n - 1 samples, the oldest first. A call reads the history from `pDlySrc` and writes the
 * one for the next call to `pDlyDst`. They may be one array. A null `pDlySrc` stands for zeros; with a null `pDlyDst` the
 * history is not delivered. With one tap neither is touched.
 *
 *  **In place.** `pSrc` and `pDst` may be the same array, and `pDst` may be `pDlySrc`. Otherwise an array that is written overlaps no
 * other one.
 *
 *  **Engines.** The direct engine sums over the taps, from the oldest sample to the newest, in the precision of the data;
 * a stream gives the same bits however it is cut into calls. The error of an output stays below `n * epsilon / 2` times
 * the sum of the magnitudes of its terms (complex taps: twice that). The FFT engine works on blocks by the overlap-save method
 * with a transform of 2 to 4 times n samples (mixed form: of twice as many parts); its error is that of the transforms,
 * small against the greatest samples of the block rather than against the terms of the output, and an infinity or a NaN
 * spreads over the whole block. #zelAlgAuto takes it for a call of at least so many samples with at least so many taps:
 *
 *  | | taps | samples |
 *  |---|---|---|
 *  | zelsFIRSR_32f() | 64 | 128 |
 *  | zelsFIRSR_64f() | 38 | 128 |
 *  | zelsFIRSR_32fc() | 18 | 256 |
 *  | zelsFIRSR_64fc() | 18 | 256 |
 *  | zelsFIRSR32f_32fc() | 64 | 256 |
 *
 *  Overlap-save after T. G. Stockham, "High-speed convolution and correlation", AFIPS Spring Joint Computer Conference
 * (1966).
 *  @{
 */

typedef struct ZelsFirSrState ZelsFirSrState; /**< record of a single-rate FIR filter */

/** @name FIRSRGetSize
 *  The bytes of the record and of the work buffer of a filter. zelsFIRSRGetSize() serves the filters whose taps are of the
 * type of the data, zelsFIRSRGetSize32f_32fc() the filter of real taps for complex data. The sizes are the same for all
 * engines.
 *  @param tapsLen number of taps, n
 *  @param tapsType type of taps and data: #zelDt32f, #zelDt32fc, #zelDt64f, #zelDt64fc; 16-bit filters run records of
 * #zelDt32f and #zelDt32fc
 *  @param pSpecSize receives the bytes of the record
 *  @param pBufSize receives the bytes of the work buffer
 *  @return #zelErrSize for a number of taps below 1, else #zelErrDataType for another type, else #zelErrNullPtr for a null
 * pointer (in this order on purpose), else #zelErrSizeOverflow for sizes beyond an int, else #zelStatusOk
 *  @{
 */
ZELS_API ZelStatus zelsFIRSRGetSize(int tapsLen, ZelDataType tapsType, int* pSpecSize, int* pBufSize);
ZELS_API ZelStatus zelsFIRSRGetSize32f_32fc(int tapsLen, int* pSpecSize, int* pBufSize);
/** @} */

/** @name FIRSRInit
 *  Makes the record of a filter in the caller's memory.
 *  @param pTaps taps, n elements; not needed afterwards
 *  @param tapsLen number of taps, n
 *  @param algType engine: #zelAlgAuto, #zelAlgDirect or #zelAlgFFT
 *  @param pSpec memory of the record
 *  @return #zelErrSize for a number of taps below 1, else #zelErrNullPtr for a null pointer, else #zelErrAlgType for another
 * selector, else #zelErrSizeOverflow for sizes beyond an int, else #zelStatusOk
 *  @{
 */
ZELS_API ZelStatus zelsFIRSRInit_32f(const Zel32f* pTaps, int tapsLen, ZelAlgType algType,
                                     ZelsFirSrState* pSpec);
ZELS_API ZelStatus zelsFIRSRInit_32fc(const Zel32fc* pTaps, int tapsLen, ZelAlgType algType,
                                      ZelsFirSrState* pSpec);
ZELS_API ZelStatus zelsFIRSRInit_64f(const Zel64f* pTaps, int tapsLen, ZelAlgType algType,
                                     ZelsFirSrState* pSpec);
ZELS_API ZelStatus zelsFIRSRInit_64fc(const Zel64fc* pTaps, int tapsLen, ZelAlgType algType,
                                      ZelsFirSrState* pSpec);
ZELS_API ZelStatus zelsFIRSRInit32f_32fc(const Zel32f* pTaps, int tapsLen, ZelAlgType algType,
                                         ZelsFirSrState* pSpec);
/** @} */

/** @name FIRSR
 *  Filters a block of samples.
 *  @param pSrc samples
 *  @param pDst filtered samples
 *  @param numIters number of samples
 *  @param pSpec record of the same type
 *  @param pDlySrc history, tapsLen - 1 samples, or null
 *  @param pDlyDst receives the history for the next call, or null
 *  @param pBuf work buffer
 *  @return #zelErrNullPtr for a null `pSpec`, `pSrc`, `pDst` or `pBuf`, else #zelErrSize for a number of samples below 1,
 * else #zelStatusOk
 *  @{
 */
ZELS_API ZelStatus zelsFIRSR_32f(const Zel32f* pSrc, Zel32f* pDst, int numIters, ZelsFirSrState* pSpec,
                                 const Zel32f* pDlySrc, Zel32f* pDlyDst, Zel8u* pBuf);
ZELS_API ZelStatus zelsFIRSR_32fc(const Zel32fc* pSrc, Zel32fc* pDst, int numIters, ZelsFirSrState* pSpec,
                                  const Zel32fc* pDlySrc, Zel32fc* pDlyDst, Zel8u* pBuf);
ZELS_API ZelStatus zelsFIRSR_64f(const Zel64f* pSrc, Zel64f* pDst, int numIters, ZelsFirSrState* pSpec,
                                 const Zel64f* pDlySrc, Zel64f* pDlyDst, Zel8u* pBuf);
ZELS_API ZelStatus zelsFIRSR_64fc(const Zel64fc* pSrc, Zel64fc* pDst, int numIters, ZelsFirSrState* pSpec,
                                  const Zel64fc* pDlySrc, Zel64fc* pDlyDst, Zel8u* pBuf);
ZELS_API ZelStatus zelsFIRSR32f_32fc(const Zel32fc* pSrc, Zel32fc* pDst, int numIters, ZelsFirSrState* pSpec,
                                     const Zel32fc* pDlySrc, Zel32fc* pDlyDst, Zel8u* pBuf);
/** @} */

/** @name FIRSR over 16-bit samples
 *  The samples are widened to floats, filtered by the direct engine whatever the record's selector, rounded to nearest,
 * ties to even, and saturated. The record is one of `32f` taps (`16s`) or `32fc` taps (`16sc`).
 *  @param pSrc samples
 *  @param pDst filtered samples
 *  @param numIters number of samples
 *  @param pSpec record of zelsFIRSRInit_32f() or zelsFIRSRInit_32fc()
 *  @param pDlySrc history, tapsLen - 1 samples, or null
 *  @param pDlyDst receives the history for the next call, or null
 *  @param pBuf work buffer
 *  @return #zelErrNullPtr for a null `pSpec`, `pSrc`, `pDst` or `pBuf`, else #zelErrSize for a number of samples below 1,
 * else #zelStatusOk
 *  @{
 */
ZELS_API ZelStatus zelsFIRSR_16s(const Zel16s* pSrc, Zel16s* pDst, int numIters, ZelsFirSrState* pSpec,
                                 const Zel16s* pDlySrc, Zel16s* pDlyDst, Zel8u* pBuf);
ZELS_API ZelStatus zelsFIRSR_16sc(const Zel16sc* pSrc, Zel16sc* pDst, int numIters, ZelsFirSrState* pSpec,
                                  const Zel16sc* pDlySrc, Zel16sc* pDlyDst, Zel8u* pBuf);
/** @} */

/** @} */

/** @defgroup firgen FIR design
 *  Taps of linear-phase filters by the window method: the ideal response, cut off after n taps and multiplied by a window.
 * Frequencies are relative to the sampling rate, above 0 and below 0.5.
 *
 *      int bufferSize;
 *      zelsFIRGenGetBufferSize(n, &bufferSize);
 *      ...
 *      zelsFIRGenLowpass_64f(0.1, pTaps, n, zelWinHamming, 1, pBuffer);
 *
 *  The delay is (n - 1) / 2 samples. With t the distance of a tap from the middle,
 *
 *  | Filter | tap at t | tap in the middle of an odd n |
 *  |---|---|---|
 *  | low-pass | `sin(2 pi f t) / (pi t)` | `2 f` |
 *  | high-pass, odd n | `-sin(2 pi f t) / (pi t)` | `1 - 2 f` |
 *  | high-pass, even n | `cos(2 pi f t) / (pi t)`, antisymmetric | |
 *  | band-pass | `(sin(2 pi h t) - sin(2 pi l t)) / (pi t)` | `2 (h - l)` |
 *  | band-stop | `(sin(pi t) - sin(2 pi h t) + sin(2 pi l t)) / (pi t)` | `1 - 2 (h - l)` |
 *
 *  A filter of even n that is symmetric has no gain at half the sampling rate; the high-pass of even n is antisymmetric
 * instead and turns phases by a quarter circle. A band-stop that is to pass the highest frequencies wants an odd n.
 *
 *  Window method after A. V. Oppenheim and R. W. Schafer, "Discrete-Time Signal Processing" (1989), chapter 7.
 *  @{
 */

/** Window of a design; any other value stands for none. */
typedef int ZelWinType;
enum {
    zelWinBartlett = 0,    /**< zelsWinBartlett_64f_I() */
    zelWinBlackmanOpt = 1, /**< zelsWinBlackmanOpt_64f_I() */
    zelWinHamming = 2,     /**< zelsWinHamming_64f_I() */
    zelWinHann = 3         /**< zelsWinHann_64f_I() */
};

/** The bytes of the work buffer of a design.
 *  @param tapsLen number of taps, 5 or more
 *  @param pBufferSize receives the bytes
 *  @return #zelErrNullPtr for a null pointer, else #zelErrSize for a number of taps below 5, else #zelStatusOk
 */
ZELS_API ZelStatus zelsFIRGenGetBufferSize(int tapsLen, int* pBufferSize);

/** @name FIRGen
 *  With `doNormal` the taps are divided by the gain of the filter at frequency 0 (low-pass, band-stop), at half the
 * sampling rate (high-pass; by its magnitude), or in the middle of the pass band (band-pass).
 *  @param rFreq edge of the band
 *  @param rLowFreq lower edge of the band, l
 *  @param rHighFreq upper edge of the band, h, above the lower one
 *  @param pTaps receives the taps
 *  @param tapsLen number of taps, n, 5 or more
 *  @param winType window
 *  @param doNormal whether the gain is to be 1
 *  @param pBuffer work buffer
 *  @return #zelErrNullPtr for a null pointer, else #zelErrSize for a number of taps below 5 or an edge outside its range,
 * else #zelStatusOk
 *  @{
 */
ZELS_API ZelStatus zelsFIRGenLowpass_64f(Zel64f rFreq, Zel64f* pTaps, int tapsLen, ZelWinType winType,
                                         int doNormal, Zel8u* pBuffer);
ZELS_API ZelStatus zelsFIRGenHighpass_64f(Zel64f rFreq, Zel64f* pTaps, int tapsLen, ZelWinType winType,
                                          int doNormal, Zel8u* pBuffer);
ZELS_API ZelStatus zelsFIRGenBandpass_64f(Zel64f rLowFreq, Zel64f rHighFreq, Zel64f* pTaps, int tapsLen,
                                          ZelWinType winType, int doNormal, Zel8u* pBuffer);
ZELS_API ZelStatus zelsFIRGenBandstop_64f(Zel64f rLowFreq, Zel64f rHighFreq, Zel64f* pTaps, int tapsLen,
                                          ZelWinType winType, int doNormal, Zel8u* pBuffer);
/** @} */

/** @} */

#ifdef __cplusplus
}
#endif

#endif
