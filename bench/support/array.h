// Arrays that the timed functions work on.
#pragma once

#include "zels.h"

#include <cstddef>
#include <type_traits>

namespace bench {

/// What arrays hold: floats of magnitude 0.5 to 1 and either sign and integers of the whole range, or units:
/// +-1, for complex elements also +-i. Work in place on units neither grows nor dies away however often it is
/// repeated.
enum class Fill { any, units };

/// The type of the parts of an element: of re and im where it has them.
template <class T>
struct PartOf {
    using Type = T;
};
template <class T>
requires requires(T x)
{
    x.re;
}
struct PartOf<T> {
    using Type = decltype(T::re);
};

/// How an array is made. Arrays of different places begin at different offsets in their pages, since loads
/// and stores at one page offset would disturb each other; the place is the seed of what they hold as well.
struct Make {
    ZelSize length;
    Fill fill = Fill::any;
    int place = nextPlace();

    static int nextPlace();
};

void* makeArray(const Make& make, char kind, std::size_t partBytes, std::size_t elementBytes);
void freeArray(void* p);

/// An array of random elements, aligned to 64 bytes.
template <class T>
class Array {
    using Part = typename PartOf<T>::Type;

  public:
    explicit Array(ZelSize length) : Array(Make{length}) {}
    explicit Array(const Make& make)
        : p(static_cast<T*>(
              makeArray(make, std::is_floating_point_v<Part> ? 'f' : 'i', sizeof(Part), sizeof(T))))
    {
    }
    Array(const Array&) = delete;
    Array& operator=(const Array&) = delete;
    ~Array() { freeArray(p); }

    T* get() const { return p; }
    operator T*() const { return p; }

  private:
    T* p;
};

} // namespace bench
