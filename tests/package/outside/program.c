#include <stdio.h>
#include <zels.h>

int main(void)
{
    const Zel32f a[] = {2.0f, 5.0f, 10.0f};
    const Zel32f b[] = {0.5f, 1.5f, 2.5f};
    Zel32f* sum = zelsMalloc_32f(3);
    ZelStatus null;
    if (!sum || zelsAdd_32f(a, b, sum, 3) != zelStatusOk)
        return 1;
    printf("%g %g %g, ", sum[0], sum[1], sum[2]);
    zelsFree(sum);
    null = zelsAdd_32f(a, b, NULL, 3);
    printf("released, status %d of a null pointer\n", (int)null);
    return null != zelErrNullPtr;
}
