// The typed allocators: the only code that reaches the allocators of zelcore.
#include "zelcore.h"
#include "zels.h"

namespace {

// A form refuses lengths whose byte count would not be positive in its integer type.
template <class T>
T* allocated(int len)
{
    constexpr int most = INT32_MAX / static_cast<int>(sizeof(T));
    return len < 1 || len > most ? nullptr : static_cast<T*>(zelMalloc(len * static_cast<int>(sizeof(T))));
}

template <class T>
T* allocatedLong(ZelSize len)
{
    constexpr ZelSize most = INT64_MAX / static_cast<ZelSize>(sizeof(T));
    // Elements of two bytes have no upper bound on purpose: their byte count wraps. Where it wraps to less
    // than one byte, zelMalloc_L refuses it.
    if (len < 1 || (sizeof(T) > 2 && len > most))
        return nullptr;
    return static_cast<T*>(zelMalloc_L(static_cast<ZelSize>(static_cast<Zel64u>(len) * sizeof(T))));
}

} // namespace

Zel8u* zelsMalloc_8u(int len)
{
    return allocated<Zel8u>(len);
}
Zel8s* zelsMalloc_8s(int len)
{
    return allocated<Zel8s>(len);
}
Zel16u* zelsMalloc_16u(int len)
{
    return allocated<Zel16u>(len);
}
Zel16s* zelsMalloc_16s(int len)
{
    return allocated<Zel16s>(len);
}
Zel8sc* zelsMalloc_8sc(int len)
{
    return allocated<Zel8sc>(len);
}
Zel32f* zelsMalloc_32f(int len)
{
    return allocated<Zel32f>(len);
}
Zel32s* zelsMalloc_32s(int len)
{
    return allocated<Zel32s>(len);
}
Zel32u* zelsMalloc_32u(int len)
{
    return allocated<Zel32u>(len);
}
Zel16sc* zelsMalloc_16sc(int len)
{
    return allocated<Zel16sc>(len);
}
Zel64f* zelsMalloc_64f(int len)
{
    return allocated<Zel64f>(len);
}
Zel64s* zelsMalloc_64s(int len)
{
    return allocated<Zel64s>(len);
}
Zel32fc* zelsMalloc_32fc(int len)
{
    return allocated<Zel32fc>(len);
}
Zel32sc* zelsMalloc_32sc(int len)
{
    return allocated<Zel32sc>(len);
}
Zel64fc* zelsMalloc_64fc(int len)
{
    return allocated<Zel64fc>(len);
}
Zel64sc* zelsMalloc_64sc(int len)
{
    return allocated<Zel64sc>(len);
}

Zel8u* zelsMalloc_8u_L(ZelSize len)
{
    return allocatedLong<Zel8u>(len);
}
Zel8s* zelsMalloc_8s_L(ZelSize len)
{
    return allocatedLong<Zel8s>(len);
}
Zel16u* zelsMalloc_16u_L(ZelSize len)
{
    return allocatedLong<Zel16u>(len);
}
Zel16s* zelsMalloc_16s_L(ZelSize len)
{
    return allocatedLong<Zel16s>(len);
}
Zel8sc* zelsMalloc_8sc_L(ZelSize len)
{
    return allocatedLong<Zel8sc>(len);
}
Zel32f* zelsMalloc_32f_L(ZelSize len)
{
    return allocatedLong<Zel32f>(len);
}
Zel32s* zelsMalloc_32s_L(ZelSize len)
{
    return allocatedLong<Zel32s>(len);
}
Zel32u* zelsMalloc_32u_L(ZelSize len)
{
    return allocatedLong<Zel32u>(len);
}
Zel16sc* zelsMalloc_16sc_L(ZelSize len)
{
    return allocatedLong<Zel16sc>(len);
}
Zel64f* zelsMalloc_64f_L(ZelSize len)
{
    return allocatedLong<Zel64f>(len);
}
Zel64s* zelsMalloc_64s_L(ZelSize len)
{
    return allocatedLong<Zel64s>(len);
}
Zel32fc* zelsMalloc_32fc_L(ZelSize len)
{
    return allocatedLong<Zel32fc>(len);
}
Zel32sc* zelsMalloc_32sc_L(ZelSize len)
{
    return allocatedLong<Zel32sc>(len);
}
Zel64fc* zelsMalloc_64fc_L(ZelSize len)
{
    return allocatedLong<Zel64fc>(len);
}
Zel64sc* zelsMalloc_64sc_L(ZelSize len)
{
    return allocatedLong<Zel64sc>(len);
}

void zelsFree(void* ptr)
{
    zelFree(ptr);
}
