// Absolute values.
#include "support/plain.h"

#include <cmath>
#include <limits>

namespace {

constexpr auto magnitude = [](auto x) { return std::fabs(x); };

/// The most negative integer becomes the largest.
constexpr auto saturated = []<class T>(T x) {
    return x == std::numeric_limits<T>::min() ? std::numeric_limits<T>::max()
                                              : static_cast<T>(x < 0 ? -x : x);
};

const bench::Family family("Absolute values", [](bench::Run& run) {
    run.map("zelsAbs_16s", zelsAbs_16s, bench::loop(bench::plain<saturated, Zel16s, Zel16s>));
    run.map("zelsAbs_32s", zelsAbs_32s, bench::loop(bench::plain<saturated, Zel32s, Zel32s>));
    run.map("zelsAbs_32f", zelsAbs_32f, bench::loop(bench::plain<magnitude, Zel32f, Zel32f>));
    run.map("zelsAbs_64f", zelsAbs_64f, bench::loop(bench::plain<magnitude, Zel64f, Zel64f>));

    run.mapInPlace("zelsAbs_16s_I", zelsAbs_16s_I, bench::loop(bench::plainInPlace<saturated, Zel16s>));
    run.mapInPlace("zelsAbs_32s_I", zelsAbs_32s_I, bench::loop(bench::plainInPlace<saturated, Zel32s>));
    run.mapInPlace("zelsAbs_32f_I", zelsAbs_32f_I, bench::loop(bench::plainInPlace<magnitude, Zel32f>));
    run.mapInPlace("zelsAbs_64f_I", zelsAbs_64f_I, bench::loop(bench::plainInPlace<magnitude, Zel64f>));
});

} // namespace
