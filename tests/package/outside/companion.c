#include <zelcore.h>

int main(void)
{
    void* memory = zelMalloc(100);
    const int there = memory && ownGetFeature((uint64_t)1 << zelFeatureBitSSE42);
    zelFree(memory);
    return !there;
}
