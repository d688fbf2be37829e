/** @file
 *  Memory and version.
 */
#ifndef ZELS_CORE_H
#define ZELS_CORE_H

#include "zels/types.h"

#ifdef __cplusplus
extern "C" {
#endif

/** @defgroup core Memory and version
 *  Typed allocation through zelcore, and the record of the build.
 *  @{
 */

/** @name Allocation
 *  Uninitialised memory for `len` elements of the type named, aligned to 64 bytes; null if `len` is below 1,
 * if the byte count does not fit a positive 32-bit (`_L`: 64-bit) integer, or if there is no memory. Release
 * it with zelsFree. The `_L` forms of two-byte elements do not test for overflow: their byte count wraps.
 *  @param len length in elements
 *  @return the memory, or a null pointer
 *  @{
 */
ZELS_API Zel8u* zelsMalloc_8u(int len);
ZELS_API Zel8s* zelsMalloc_8s(int len);
ZELS_API Zel16u* zelsMalloc_16u(int len);
ZELS_API Zel16s* zelsMalloc_16s(int len);
ZELS_API Zel8sc* zelsMalloc_8sc(int len);
ZELS_API Zel32f* zelsMalloc_32f(int len);
ZELS_API Zel32s* zelsMalloc_32s(int len);
ZELS_API Zel32u* zelsMalloc_32u(int len);
ZELS_API Zel16sc* zelsMalloc_16sc(int len);
ZELS_API Zel64f* zelsMalloc_64f(int len);
ZELS_API Zel64s* zelsMalloc_64s(int len);
ZELS_API Zel32fc* zelsMalloc_32fc(int len);
ZELS_API Zel32sc* zelsMalloc_32sc(int len);
ZELS_API Zel64fc* zelsMalloc_64fc(int len);
ZELS_API Zel64sc* zelsMalloc_64sc(int len);
ZELS_API Zel8u* zelsMalloc_8u_L(ZelSize len);
ZELS_API Zel8s* zelsMalloc_8s_L(ZelSize len);
ZELS_API Zel16u* zelsMalloc_16u_L(ZelSize len);
ZELS_API Zel16s* zelsMalloc_16s_L(ZelSize len);
ZELS_API Zel8sc* zelsMalloc_8sc_L(ZelSize len);
ZELS_API Zel32f* zelsMalloc_32f_L(ZelSize len);
ZELS_API Zel32s* zelsMalloc_32s_L(ZelSize len);
ZELS_API Zel32u* zelsMalloc_32u_L(ZelSize len);
ZELS_API Zel16sc* zelsMalloc_16sc_L(ZelSize len);
ZELS_API Zel64f* zelsMalloc_64f_L(ZelSize len);
ZELS_API Zel64s* zelsMalloc_64s_L(ZelSize len);
ZELS_API Zel32fc* zelsMalloc_32fc_L(ZelSize len);
ZELS_API Zel32sc* zelsMalloc_32sc_L(ZelSize len);
ZELS_API Zel64fc* zelsMalloc_64fc_L(ZelSize len);
ZELS_API Zel64sc* zelsMalloc_64sc_L(ZelSize len);
/** @} */

/** Releases memory that zelsMalloc gave. A null pointer is harmless.
 *  @param ptr the memory
 */
ZELS_API void zelsFree(void* ptr);

/** What zelsGetLibVersion tells. */
typedef struct {
    int versionMajor;        /**< major version, a four-digit year */
    int versionMinor;        /**< minor version */
    int versionUpdate;       /**< update */
    int revision;            /**< build revision, also in versionText in hexadecimal */
    char cpuTag[4];          /**< processor variant, "q4" followed by zero bytes */
    const char* buildName;   /**< name of the build */
    const char* versionText; /**< versions and revision as text, "2026.0.0 (r0x00000001)" */
    const char* buildDate;   /**< build date, "Nov 21 2026" */
} ZelLibraryVersion;

/** The version record of the library: one shared constant, not to be freed.
 *  @return the record, the same at every call
 */
ZELS_API const ZelLibraryVersion* zelsGetLibVersion(void);

/** @} */

#ifdef __cplusplus
}
#endif

#endif
