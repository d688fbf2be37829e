// Aligned allocation.
#include "zelcore.h"

#include <stdlib.h>

void* zelMalloc(int bytes)
{
    return zelMalloc_L(bytes);
}

void* zelMalloc_L(int64_t bytes)
{
    // aligned_alloc wants a multiple of the alignment; what cannot be rounded up cannot be had either.
    if (bytes < 1 || bytes > INT64_MAX - zelcoreAlignment)
        return nullptr;
    const auto rounded =
        (static_cast<size_t>(bytes) + zelcoreAlignment - 1) / zelcoreAlignment * zelcoreAlignment;
    return aligned_alloc(zelcoreAlignment, rounded);
}

void zelFree(void* ptr)
{
    free(ptr);
}
