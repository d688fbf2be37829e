// Pairs of arguments for functions of two, which tests and docs/accuracy.md share.
#pragma once

#include "math/accuracy.h"
#include "support/random.h"

#include <bit>
#include <limits>

/// Arguments by turns of every kind that functions of two find hard, in both places.
template <class T>
class Pairs {
    using Limits = std::numeric_limits<T>;

  public:
    static constexpr int count = 1024;
    T x[count], y[count];

    void next()
    {
        for (int i = 0; i < count; i++) {
            const auto [a, b] = one(i % 8);
            const bool swaps = (random.bits() & 1) != 0;
            x[i] = swaps ? b : a;
            y[i] = swaps ? a : b;
        }
    }

  private:
    support::Random random{"pairs"};

    /// A NaN is quiet: what becomes of a signalling one is another matter than accuracy.
    T anyBits()
    {
        const T any = std::bit_cast<T>(static_cast<ownsUnsignedOf<OwnsVec<T>>>(random.bits()));
        return std::isnan(any) ? Limits::quiet_NaN() : any;
    }
    T uniform(double low, double high) { return static_cast<T>(random.uniform(low, high)); }
    T power(double low, double high) { return static_cast<T>(std::exp2(random.uniform(low, high))); }
    T special()
    {
        const T values[]{0,
                         Limits::denorm_min(),
                         Limits::min(),
                         Limits::max(),
                         Limits::infinity(),
                         Limits::quiet_NaN(),
                         1,
                         T(1e30)};
        return std::copysign(values[random.below(8)], uniform(-1, 1));
    }

    Two<T> one(int kind)
    {
        const T sign = random.bits() & 1 ? T{1} : T{-1};
        switch (kind) {
        case 0: // any patterns, and special values beside each other and beside any pattern
            return random.below(100) != 0 ? Two<T>{anyBits(), anyBits()}
                                          : Two<T>{special(), random.bits() & 1 ? special() : anyBits()};
        case 1: { // the unit circle
            const double turn = random.uniform(-3.2, 3.2);
            return {static_cast<T>(std::cos(turn)), static_cast<T>(std::sin(turn))};
        }
        case 2: { // close to a diagonal
            const T a = uniform(0.25, 4);
            return {a, sign * (a + a * power(-Limits::digits, -1) * uniform(-1, 1))};
        }
        case 3: { // close to an axis, nearer and nearer
            const T a = uniform(-4, 4);
            return {a, a * uniform(-1, 1) * power(-2.0 * Limits::digits, 0)};
        }
        case 4: { // of one size, which may be any
            const T a = anyBits();
            return {a, a * uniform(-4, 4)};
        }
        case 5: // subnormal numbers and what is near them
            return {sign * Limits::min() * power(-Limits::digits, 4),
                    uniform(-1, 1) * Limits::min() * power(-20, 40)};
        case 6: // the usual
            return {uniform(-30, 30), uniform(-30, 30)};
        default: // a phase close to a multiple of a right angle
            return {static_cast<T>(std::rint(power(0, 40)) * 1.5707963267948966) * sign, uniform(0.5, 2)};
        }
    }
};
