// A library with every fault that the checks must find: it allocates through the C++ run-time library, keeps writable
// data, runs code when it is loaded, uses a newer processor's instructions, and exports what no header declares.
#include <string>

static int calls = 1;
static std::string text(32, 'x');

extern "C" [[gnu::visibility("default"), gnu::target("avx2")]] int zelsPlanted(const int* pSrc, int* pDst)
{
    using Wide [[gnu::vector_size(32)]] = int;
    Wide wide;
    __builtin_memcpy(&wide, pSrc, sizeof wide);
    wide *= wide;
    __builtin_memcpy(pDst, &wide, sizeof wide);
    text += 'x';
    return calls += static_cast<int>(text.size());
}
