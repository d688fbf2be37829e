// The arguments of a function, made from its signature: pointers, constants, and the length as the last one.
#pragma once

#include "support/array.h"

#include <tuple>
#include <utility>
#include <vector>

namespace bench {

/// One argument: a constant by value.
template <class A>
struct Slot {
    static constexpr double bytes = 0;
    static constexpr bool written = false;

    explicit Slot(const Make& make) : value(constant(make.fill == Fill::units)) {}
    A get() const { return value; }
    A value;

    static A constant(bool unit)
    {
        using P = typename PartOf<A>::Type;
        constexpr bool real = std::is_floating_point_v<P>;
        if constexpr (std::is_same_v<A, P>)
            return static_cast<P>(unit ? -1 : real ? 0.6 : 3);
        else
            return {static_cast<P>(unit ? 0 : real ? 0.6 : 3), static_cast<P>(unit ? 1 : real ? 0.8 : 5)};
    }
};

/// One argument: an array.
template <class T>
struct Slot<T*> : Array<std::remove_const_t<T>> {
    static constexpr double bytes = sizeof(T);
    static constexpr bool written = !std::is_const_v<T>;

    using Array<std::remove_const_t<T>>::Array;
};

template <class... A>
class Arguments {
    static constexpr std::size_t last = sizeof...(A) - 1;
    using Length = std::tuple_element_t<last, std::tuple<A...>>;
    static_assert(std::is_integral_v<Length>, "the length must be the last argument");

  public:
    Arguments(ZelSize n, Fill fill) : Arguments(n, fill, std::index_sequence_for<A...>{}) {}

    std::tuple<A...> all() const
    {
        auto values = std::apply([](const auto&... slot) { return std::tuple<A...>{slot.get()...}; }, slots);
        std::get<last>(values) = static_cast<Length>(length);
        return values;
    }

    /// The parts of all arrays that the function writes.
    std::vector<double> output() const
    {
        std::vector<double> values;
        std::apply([&](const auto&... slot) { (append(values, slot), ...); }, slots);
        return values;
    }

    /// Bytes read and written for each element; those of the destination twice where it is read as well.
    static double bytes(Fill fill)
    {
        const bool twice = fill == Fill::units;
        return ((Slot<A>::bytes * (twice && Slot<A>::written ? 2 : 1)) + ...);
    }

  private:
    template <std::size_t... k>
    Arguments(ZelSize n, Fill fill, std::index_sequence<k...>)
        : length(n), slots(Make{n, fill, static_cast<int>(k)}...)
    {
    }

    template <class S>
    void append(std::vector<double>& values, const S& slot) const
    {
        if constexpr (S::written) {
            using T = std::remove_pointer_t<decltype(slot.get())>;
            using P = typename PartOf<T>::Type;
            const auto* p = reinterpret_cast<const P*>(slot.get());
            for (ZelSize i = 0; i < length * static_cast<ZelSize>(sizeof(T) / sizeof(P)); i++)
                values.push_back(static_cast<double>(p[i]));
        }
    }

    ZelSize length;
    std::tuple<Slot<A>...> slots;
};

} // namespace bench
