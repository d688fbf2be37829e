// Arrays of samples in memory that the library allocates.
#pragma once

#include <memory>
#include <new>

#include "zels.h"

namespace support {

struct Release {
    void operator()(void* memory) const { zelsFree(memory); }
};

template <class T>
using Samples = std::unique_ptr<T[], Release>;

template <class T>
Samples<T> owned(T* memory)
{
    if (memory == nullptr)
        throw std::bad_alloc();
    return Samples<T>(memory);
}

inline Samples<Zel8u> samples8u(int len)
{
    return owned(zelsMalloc_8u(len));
}
inline Samples<Zel16s> samples16s(int len)
{
    return owned(zelsMalloc_16s(len));
}
inline Samples<Zel32f> samples32f(int len)
{
    return owned(zelsMalloc_32f(len));
}

} // namespace support
