#include "frame/bulk.h"

#include <string.h>

void ownsCopyBytes(const void* pSrc, void* pDst, ZelSize bytes)
{
    if (bytes > 0)
        memcpy(pDst, pSrc, static_cast<size_t>(bytes));
}

void ownsMoveBytes(const void* pSrc, void* pDst, ZelSize bytes)
{
    if (bytes > 0)
        memmove(pDst, pSrc, static_cast<size_t>(bytes));
}

void ownsZeroBytes(void* pDst, ZelSize bytes)
{
    if (bytes > 0)
        memset(pDst, 0, static_cast<size_t>(bytes));
}

void ownsSetPattern(const void* pValue, int width, void* pDst, ZelSize len)
{
    for (ZelSize i = 0; i < len; i++)
        memcpy(static_cast<char*>(pDst) + i * width, pValue, static_cast<size_t>(width));
}
