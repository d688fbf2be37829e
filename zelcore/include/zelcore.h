/** @file
 *  zelcore: memory and processor services for zels. Plain C99.
 */
#ifndef ZELCORE_H
#define ZELCORE_H

#include <stdint.h>

/** Marks an exported function; the library is built with hidden visibility. */
#define ZELCORE_API __attribute__((visibility("default")))

#ifdef __cplusplus
extern "C" {
#endif

/** @defgroup zelcore zelcore
 *  The companion library: aligned allocation, floating-point modes, processor features.
 *  @{
 */

/** Alignment in bytes of all memory that zelMalloc() and zelMalloc_L() give. */
enum { zelcoreAlignment = 64 };

/** Uninitialised memory, aligned to 64 bytes.
 *  @param bytes size in bytes
 *  @return the memory, or null if `bytes` is below 1 or there is no memory
 */
ZELCORE_API void* zelMalloc(int bytes);

/** zelMalloc() with a 64-bit count.
 *  @param bytes size in bytes
 *  @return the memory, or null if `bytes` is below 1, too large to be rounded up to the alignment, or not to
 * be had
 */
ZELCORE_API void* zelMalloc_L(int64_t bytes);

/** Releases what either allocator gave; a null pointer is harmless.
 *  @param ptr the memory
 */
ZELCORE_API void zelFree(void* ptr);

/** Switches the calling thread's flush-to-zero mode: results too small for a normal number become zero.
 *  @param value 0 switches the mode off, any other value on
 *  @param pUnderflowMask if not null, receives whether underflow exceptions were masked before (1) or not (0)
 *  @return 0
 */
ZELCORE_API int32_t zelSetFlushToZero(int value, unsigned int* pUnderflowMask);

/** Switches the calling thread's denormals-are-zero mode: subnormal operands are taken as zero.
 *  @param value 0 switches the mode off, any other value on
 *  @return 0
 */
ZELCORE_API int32_t zelSetDenormAreZeros(int value);

/** Processor features, bits of the mask of ownGetFeature(). */
enum {
    zelFeatureBitSSE2 = 2,    /**< SSE2 */
    zelFeatureBitSSE3 = 3,    /**< SSE3 */
    zelFeatureBitSSSE3 = 4,   /**< SSSE3 */
    zelFeatureBitMOVBE = 5,   /**< MOVBE */
    zelFeatureBitSSE41 = 6,   /**< SSE4.1 */
    zelFeatureBitSSE42 = 7,   /**< SSE4.2 */
    zelFeatureBitAVX = 8,     /**< AVX, enabled by the operating system */
    zelFeatureBitF16C = 9,    /**< half-precision conversion, with AVX */
    zelFeatureBitFMA = 10,    /**< fused multiply-add, with AVX */
    zelFeatureBitAVX2 = 11,   /**< AVX2 */
    zelFeatureBitAVX512F = 12 /**< AVX-512 foundation, enabled by the operating system */
};

/** Asks for processor features.
 *  @param mask features, the bits named above; a bit without a name stands for a feature that is never there
 *  @return 1 if the processor has all of them, else 0
 */
ZELCORE_API int ownGetFeature(uint64_t mask);

/** @} */

#ifdef __cplusplus
}
#endif

#endif
