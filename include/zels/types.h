/** @file
 *  Element types, status codes and shared selectors of zels. Plain C99.
 */
#ifndef ZELS_TYPES_H
#define ZELS_TYPES_H

#include <stdint.h>

/** Marks an exported function; the library is built with hidden visibility. */
#define ZELS_API __attribute__((visibility("default")))

/** @defgroup types Types and status codes
 *
 *  The name of a function tells what it does: the prefix `zels`, a base name, the type tags of its
 *  arrays (source before destination), and a suffix for its form.
 *
 *  | Suffix | Meaning for the argument list |
 *  |---|---|
 *  | none | sources, destination, length, further scalars |
 *  | `_I` | in place: one source and the destination are the same array and one argument, in the destination's place |
 *  | `_Sfs` | a scale factor is the last argument: the exact result is multiplied by 2^(-scaleFactor), rounded to nearest, ties to even, and saturated |
 *  | `_ISfs` | both |
 *  | `_L` | the length is a 64-bit #ZelSize |
 *  | `_P` | several channels: arrays of pointers, and a channel count |
 *
 *  A base name that ends in `C` takes a scalar constant by value in place of the second array.
 *
 *  Every function tests its arguments in a fixed order: pointers, then lengths, then selectors. The
 *  first failed test is the status returned, and then nothing has been written. The caller owns all
 *  memory. Arrays need no alignment. Source and destination may be the same array; partly overlapping
 *  arrays are supported by zelsMove alone. Every function may be called from any number of threads.
 *  @{
 */

typedef uint8_t Zel8u;   /**< unsigned 8-bit integer */
typedef int8_t Zel8s;    /**< signed 8-bit integer */
typedef uint16_t Zel16u; /**< unsigned 16-bit integer */
typedef int16_t Zel16s;  /**< signed 16-bit integer */
typedef uint32_t Zel32u; /**< unsigned 32-bit integer */
typedef int Zel32s;      /**< signed 32-bit integer */
typedef uint64_t Zel64u; /**< unsigned 64-bit integer */
typedef int64_t Zel64s;  /**< signed 64-bit integer */
typedef uint16_t Zel16f; /**< IEEE-754 binary16, as its bit pattern */
typedef float Zel32f;    /**< IEEE-754 binary32 */
typedef double Zel64f;   /**< IEEE-754 binary64 */

/** Length of a `_L` function, in elements. */
typedef int64_t ZelSize;

/** Complex pair of #Zel8s. */
typedef struct {
    Zel8s re; /**< real part */
    Zel8s im; /**< imaginary part */
} Zel8sc;
/** Complex pair of #Zel16s. */
typedef struct {
    Zel16s re; /**< real part */
    Zel16s im; /**< imaginary part */
} Zel16sc;
/** Complex pair of #Zel32s. */
typedef struct {
    Zel32s re; /**< real part */
    Zel32s im; /**< imaginary part */
} Zel32sc;
/** Complex pair of #Zel64s. */
typedef struct {
    Zel64s re; /**< real part */
    Zel64s im; /**< imaginary part */
} Zel64sc;
/** Complex pair of #Zel16f. */
typedef struct {
    Zel16f re; /**< real part */
    Zel16f im; /**< imaginary part */
} Zel16fc;
/** Complex pair of #Zel32f. */
typedef struct {
    Zel32f re; /**< real part */
    Zel32f im; /**< imaginary part */
} Zel32fc;
/** Complex pair of #Zel64f. */
typedef struct {
    Zel64f re; /**< real part */
    Zel64f im; /**< imaginary part */
} Zel64fc;

/** Result of nearly every function: 0 success, negative an error (nothing may be relied upon in the
 *  outputs), positive a warning (the work was done). */
typedef int32_t ZelStatus;

/** The status codes. */
enum {
    zelStatusOk = 0, /**< success */

    zelWarnDivByZero = 2,      /**< a divisor element was zero */
    zelWarnSqrtNegative = 3,   /**< an element under a root was negative */
    zelWarnInvZero = 4,        /**< an element to invert was zero */
    zelWarnEvenMedianMask = 5, /**< an even median mask was reduced by one */
    zelWarnLnZero = 7,         /**< an element under a logarithm was zero */
    zelWarnLnNegative = 8,     /**< an element under a logarithm was negative */
    zelWarnNaNSource = 9,      /**< a source element was NaN */

    zelErrNoMemory = -4,           /**< a buffer size would exceed the range of #ZelSize */
    zelErrBadArg = -5,             /**< an argument lies outside its allowed set */
    zelErrSize = -6,               /**< a length or size is below 1 */
    zelErrRange = -7,              /**< a crossing-kind selector is out of range */
    zelErrNullPtr = -8,            /**< a required pointer is null */
    zelErrMemAlloc = -9,           /**< a size computed by a set-up exceeds the 32-bit range */
    zelErrDivByZero = -10,         /**< a scalar divisor is zero */
    zelErrContextMatch = -13,      /**< a plan or state record is not of the expected kind */
    zelErrStep = -16,              /**< a stride is below 1 */
    zelErrFftOrder = -17,          /**< an FFT order is beyond the limit */
    zelErrFftFlag = -18,           /**< an unknown normalisation flag */
    zelErrThreshold = -19,         /**< the lower threshold is above the upper */
    zelErrThreshNegLevel = -20,    /**< a magnitude level is negative */
    zelErrIirOrder = -25,          /**< an IIR order is below 1 */
    zelErrFirLen = -26,            /**< a tap count is below 1 */
    zelErrRelFreq = -27,           /**< a relative frequency is outside [0, 1) */
    zelErrFirMrPhase = -28,        /**< a multi-rate phase is outside [0, factor) */
    zelErrFirMrFactor = -29,       /**< a multi-rate factor is negative */
    zelErrSamplePhase = -30,       /**< a sampling phase is outside [0, factor) */
    zelErrSampleFactor = -31,      /**< a sampling factor is below 1 */
    zelErrShift = -32,             /**< a shift count is negative */
    zelErrMaskSize = -33,          /**< a mask or window size is below 1 */
    zelErrWtOffset = -35,          /**< a wavelet filter offset is below -1 */
    zelErrJaehneMagnitude = -38,   /**< the magnitude of a Jaehne vector is out of range */
    zelErrKaiserAlpha = -39,       /**< a Kaiser alpha is too large for the data type */
    zelErrTriangleAsym = -40,      /**< the asymmetry of a triangle is out of range */
    zelErrTrianglePhase = -41,     /**< the phase of a triangle is out of range */
    zelErrTriangleFreq = -42,      /**< the frequency of a triangle is out of range */
    zelErrTriangleMagnitude = -43, /**< the magnitude of a triangle is out of range */
    zelErrTonePhase = -44,         /**< the phase of a tone is out of range */
    zelErrToneFreq = -45,          /**< the frequency of a tone is out of range */
    zelErrToneMagnitude = -46,     /**< the magnitude of a tone is out of range */
    zelErrIirChannels = -47,       /**< a channel count of the scaled IIR forms is below 1 */
    zelErrIirChannelsP = -53,      /**< a channel count of the float IIR forms is below 1 */
    zelErrDataType = -59,          /**< a selector names a type that the function does not offer */
    zelErrStepAlign = -182,        /**< a byte stride is not a positive multiple of 8 */
    zelErrSparseTap = -194,        /**< tap positions are out of order or negative */
    zelErrSingular = -195,         /**< a pivot is not above the singularity limit */
    zelErrIirGenOrder = -206,      /**< the order of an IIR design is outside 1..12 */
    zelErrIirGenFreq = -208,       /**< the cut-off of an IIR design is outside (0, 0.5) */
    zelErrIirGenPassband = -209,   /**< a Chebyshev pass-band ripple is outside (0, 29] */
    zelErrRoundMode = -213,        /**< a rounding mode is not supported */
    zelErrAlgType = -228,          /**< an algorithm or normalisation selector is not supported */
    zelErrSizeOverflow = -232,     /**< a computed buffer size exceeds the 32-bit range */
    zelErrIirIirLen = -234         /**< the vector is shorter than three times the filter order */
};

/** Rounding mode, one of #zelRndZero, #zelRndNear, #zelRndFinancial. */
typedef int ZelRoundMode;
enum {
    zelRndZero = 0,     /**< toward zero */
    zelRndNear = 1,     /**< to nearest, ties to even */
    zelRndFinancial = 2 /**< to nearest, ties away from zero */
};

/** Choice between speed and accuracy; only #zelHintFast is ever tested for. */
typedef int ZelHintAlgorithm;
enum {
    zelHintNone = 0,    /**< no preference: the accurate path */
    zelHintFast = 1,    /**< the fast path */
    zelHintAccurate = 2 /**< the accurate path */
};

/** Comparison selector. */
typedef int ZelCmpOp;
enum {
    zelCmpLess = 0,   /**< the level is a lower limit */
    zelCmpGreater = 4 /**< the level is an upper limit */
};

/** Element type, for the queries that serve several types. */
typedef int ZelDataType;
enum {
    zelDt8u = 1,    /**< #Zel8u */
    zelDt16u = 5,   /**< #Zel16u */
    zelDt16s = 7,   /**< #Zel16s */
    zelDt32u = 9,   /**< #Zel32u */
    zelDt32s = 11,  /**< #Zel32s */
    zelDt32f = 13,  /**< #Zel32f */
    zelDt32fc = 14, /**< #Zel32fc */
    zelDt64u = 15,  /**< #Zel64u */
    zelDt64s = 17,  /**< #Zel64s */
    zelDt64f = 19,  /**< #Zel64f */
    zelDt64fc = 20  /**< #Zel64fc */
};

/** Algorithm selector: an engine, plus in the correlation family a normalisation. */
typedef int ZelAlgType;
enum {
    zelAlgAuto = 0,          /**< the engine is chosen by the sizes */
    zelAlgDirect = 1,        /**< the direct sum */
    zelAlgFFT = 2,           /**< by the fast Fourier transform */
    zelAlgNormNone = 0,      /**< no normalisation */
    zelAlgNormBiased = 256,  /**< division by the length */
    zelAlgNormUnbiased = 512 /**< division by the count of terms */
};

/** @} */

#endif
