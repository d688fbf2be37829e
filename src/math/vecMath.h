// Vector mathematics for the whole library: exp, ln, sine with cosine, atan and atan2 of four floats or two
// doubles, and the cube root of four floats. A vector in, a vector out:
//
//     y = ownsExp(x);  y = ownsLn(x, &seen);  ownsSinCos(x, sin, cos);  y = ownsCubrt(x);
//     y = ownsAtan(x);  angle = ownsAtan2(y, x);
//
// Each takes every argument, over the whole range of its type, and gives the special values of the standard's
// function. A lane's result does not hang on the other lanes, so partly filled vectors are in order; what fills
// them should be ordinary numbers (0, or 1 for ln), since a rare argument in one lane costs time. Results are
// within 1 unit of the last place in the rounding mode to nearest, and within 2 in the others, which like flushing
// and denormals-are-zeros are those of the caller. The functions are inlined, and take their constants and tables
// from read-only memory.
#pragma once

#include "math/hypot.h"
#include "math/vecMathAtan.h"
#include "math/vecMathCubrt.h"
#include "math/vecMathExp.h"
#include "math/vecMathLn.h"
#include "math/vecMathSinCos.h"
