// The floating-point modes of the calling thread, changed for a scope.
#pragma once

#include <xmmintrin.h>

namespace support {

inline constexpr unsigned nearestMode = _MM_ROUND_NEAREST;
inline constexpr unsigned downMode = _MM_ROUND_DOWN;
inline constexpr unsigned upMode = _MM_ROUND_UP;
inline constexpr unsigned towardZeroMode = _MM_ROUND_TOWARD_ZERO;
inline constexpr unsigned flushMode = _MM_FLUSH_ZERO_ON | 0x0040; ///< flush to zero, and denormals are zero

inline constexpr unsigned roundingModes[]{nearestMode, downMode, upMode, towardZeroMode};

/// The bits of the control register that a caller sets: rounding, flush to zero, denormals are zero.
inline constexpr unsigned modeBits = _MM_ROUND_MASK | flushMode;

inline unsigned currentMode()
{
    return _mm_getcsr() & modeBits;
}

inline void setMode(unsigned mode)
{
    // The memory clobber keeps arithmetic on memory on its side.
    const unsigned csr = (_mm_getcsr() & ~modeBits) | mode;
    asm volatile("ldmxcsr %0" : : "m"(csr) : "memory");
}

/// Sets a mode for its lifetime: a rounding mode, or'd with flushMode where wanted.
class FloatMode {
  public:
    explicit FloatMode(unsigned mode) : former(currentMode()) { setMode(mode); }
    ~FloatMode() { setMode(former); }
    FloatMode(const FloatMode&) = delete;
    FloatMode& operator=(const FloatMode&) = delete;

  private:
    unsigned former;
};

/// "nearest", "up+flush" and so on.
const char* modeName(unsigned mode);

} // namespace support
