/** @file
 *  The public header of zels: signal-processing primitives for 128-bit x86-64 processors.
 *
 *  It includes one header a subsystem; a program includes this one.
 */
#ifndef ZELS_H
#define ZELS_H

#include "zels/types.h" /* IWYU pragma: export */

#include "zels/core.h" /* IWYU pragma: export */

#include "zels/arith.h" /* IWYU pragma: export */

#include "zels/math.h" /* IWYU pragma: export */

#include "zels/stats.h" /* IWYU pragma: export */

#include "zels/transforms.h" /* IWYU pragma: export */

#include "zels/filters.h" /* IWYU pragma: export */

#include "zels/generators.h" /* IWYU pragma: export */

#endif
