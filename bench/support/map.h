// Arguments for a function, made from its signature: pointers, constants, and the length as the last one.
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

    Slot(ZelSize, Fill fill, int) : value(constant(fill == Fill::units)) {}
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
    using All = std::tuple<A...>;
    using Length = std::tuple_element_t<sizeof...(A) - 1, All>;
    static_assert(std::is_integral_v<Length>, "the length must be the last argument");

  public:
    Arguments(ZelSize n, Fill fill) : Arguments(n, fill, std::index_sequence_for<A...>{}) {}

    All all() const
    {
        All values = std::apply([](const auto&... slot) { return All{slot.get()...}; }, slots);
        std::get<Length>(std::tuple<Length&>(std::get<sizeof...(A) - 1>(values))) =
            static_cast<Length>(length);
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
    static double bytes(bool inPlace)
    {
        return ((Slot<A>::bytes * (inPlace && Slot<A>::written ? 2 : 1)) + ...);
    }

  private:
    template <std::size_t... k>
    Arguments(ZelSize n, Fill fill, std::index_sequence<k...>)
        : length(n), slots(Slot<A>(n, fill, static_cast<int>(k))...)
    {
    }

    template <class S>
    void append(std::vector<double>& values, const S& slot) const
    {
        if constexpr (S::written) {
            using P = typename PartOf<std::remove_pointer_t<decltype(slot.get())>>::Type;
            const ZelSize parts = length * static_cast<ZelSize>(S::bytes) / static_cast<ZelSize>(sizeof(P));
            const auto* p = reinterpret_cast<const P*>(slot.get());
            for (ZelSize i = 0; i < parts; i++)
                values.push_back(static_cast<double>(p[i]));
        }
    }

    ZelSize length;
    std::tuple<Slot<A>...> slots;
};

} // namespace bench
