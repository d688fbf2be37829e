// The rounding mode of the calling thread, for the few steps that no instruction with a mode of its own can
// do.
#pragma once

#include <xmmintrin.h>

/// Rounds to nearest for its lifetime, and puts back the caller's mode. Nothing is written where nearest is
/// on, or where it is not `wanted`.
class OwnsNearestMode {
  public:
    explicit OwnsNearestMode(bool wanted = true) : callers(wanted ? _mm_getcsr() : 0)
    {
        if (callers & _MM_ROUND_MASK)
            set(callers & ~static_cast<unsigned>(_MM_ROUND_MASK));
    }
    ~OwnsNearestMode()
    {
        if (callers & _MM_ROUND_MASK)
            set((_mm_getcsr() & ~static_cast<unsigned>(_MM_ROUND_MASK)) | (callers & _MM_ROUND_MASK));
    }
    OwnsNearestMode(const OwnsNearestMode&) = delete;
    OwnsNearestMode& operator=(const OwnsNearestMode&) = delete;

  private:
    // The memory clobber keeps the loads and stores of a kernel, and with them its arithmetic, on their side.
    static void set(unsigned csr) { asm volatile("ldmxcsr %0" : : "m"(csr) : "memory"); }

    unsigned callers;
};
