// Records and work memory in memory that the caller gives: rounding up, and taking parts one after the other.
#pragma once

#include "zels/types.h"

#include <cstdint>

/// A count of bytes, or an address, rounded up to 64.
constexpr ZelSize ownsRounded64(ZelSize bytes)
{
    return (bytes + 63) & -64;
}
inline Zel8u* ownsRounded64(Zel8u* p)
{
    return p + (-reinterpret_cast<std::uintptr_t>(p) & 63);
}

/// Takes parts from memory. Sizes that are multiples of 64 keep the alignment of the first part.
class OwnsCarver {
  public:
    explicit OwnsCarver(void* pFirst) : p(static_cast<Zel8u*>(pFirst)) {}

    template <class E>
    E* take(ZelSize bytes)
    {
        auto* part = reinterpret_cast<E*>(p);
        p += bytes;
        return part;
    }

    /// The next part begins on a 64-byte boundary; the size needs 63 bytes for that.
    void align() { p = ownsRounded64(p); }

  private:
    Zel8u* p;
};
