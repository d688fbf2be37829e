/* Uses an instruction newer than SSE4.2. */
int main(void)
{
    __asm__ volatile("vxorps %%ymm0, %%ymm0, %%ymm0" ::: "xmm0");
    return 0;
}
