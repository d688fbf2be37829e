// Special values: each function beside itself, on the same ordinary numbers with NaN, infinities and others among
// them. Here a ratio is what these cost, and for NaN and infinities it should stay below 3.
#include "support/arguments.h"
#include "support/bench.h"

#include <cmath>
#include <limits>
#include <memory>

namespace {

enum class Special { none, nan, infinity, zero, subnormal, negative };

struct Case {
    const char* name;
    Special special;
    bool all = false; ///< every part of every source, else one part in each vector
};
constexpr Case cases[]{{"all NaN", Special::nan, true},
                       {"all infinite", Special::infinity, true},
                       {"a NaN a vector", Special::nan},
                       {"an infinity a vector", Special::infinity},
                       {"a zero a vector", Special::zero},
                       {"a subnormal number a vector", Special::subnormal},
                       {"a negative number a vector", Special::negative}};

template <class P>
P specialOf(Special special, P ordinary)
{
    using Limits = std::numeric_limits<P>;
    switch (special) {
    case Special::nan:
        return Limits::quiet_NaN();
    case Special::infinity:
        return std::copysign(Limits::infinity(), ordinary);
    case Special::zero:
        return 0;
    case Special::subnormal:
        return std::copysign(Limits::min() / 8, ordinary);
    case Special::negative:
        return -std::fabs(ordinary);
    default:
        return ordinary;
    }
}

/// Prepares a source; what is written is left alone. In a vector, each source has its special part in another lane.
template <class T>
void prepare(const T* source, ZelSize n, const Case& which, bool positive, int& lane)
{
    using P = typename bench::PartOf<T>::Type;
    constexpr int lanes = 16 / sizeof(P);
    P* const parts = reinterpret_cast<P*>(const_cast<T*>(source));
    for (ZelSize i = 0; i < n * static_cast<ZelSize>(sizeof(T) / sizeof(P)); i++) {
        if (positive)
            parts[i] = std::fabs(parts[i]);
        if (which.all || i % lanes == lane % lanes)
            parts[i] = specialOf(which.special, parts[i]);
    }
    lane++;
}
template <class T>
void prepare(T*, ZelSize, const Case&, bool, int&)
{
}
inline void prepare(int, ZelSize, const Case&, bool, int&) {}

/// A call on arrays of its own.
template <class... A>
auto callOn(ZelStatus (*function)(A...), ZelSize n, const Case& which, bool positive)
{
    const auto arguments = std::make_shared<bench::Arguments<A...>>(n, bench::Fill::any);
    const std::tuple<A...> all = arguments->all();
    int lane = 0;
    std::apply([&](auto... argument) { (prepare(argument, n, which, positive, lane), ...); }, all);
    return [function, all, arguments] { std::apply(function, all); };
}

template <class... A, std::size_t... k>
void row(bench::Run& run, const char* name, ZelStatus (*function)(A...), bool positive,
         std::index_sequence<k...>)
{
    constexpr ZelSize n = 1024;
    run.row(name, n, {}, callOn(function, n, {"ordinary", Special::none}, positive),
            bench::peer(cases[k].name, callOn(function, n, cases[k], positive))...);
}
template <class... A>
void row(bench::Run& run, const char* name, ZelStatus (*function)(A...), bool positive = false)
{
    row(run, name, function, positive, std::make_index_sequence<std::size(cases)>());
}

/// With constants that neither vanish nor grow.
template <auto function, class T>
ZelStatus normalized(const T* pSrc, T* pDst, int len)
{
    if constexpr (std::is_floating_point_v<T>)
        return function(pSrc, pDst, len, T(0.25), T(1.5));
    else
        return function(pSrc, pDst, len, {0.25, 0.5}, 1.5);
}

const bench::Family family("Special values beside ordinary ones", [](bench::Run& run) {
    row(run, "zelsSqr_32f", zelsSqr_32f);
    row(run, "zelsSqr_64f", zelsSqr_64f);
    row(run, "zelsSqr_32fc", zelsSqr_32fc);
    row(run, "zelsSqr_64fc", zelsSqr_64fc);
    row(run, "zelsSqrt_32f", zelsSqrt_32f, true);
    row(run, "zelsSqrt_64f", zelsSqrt_64f, true);
    row(run, "zelsSqrt_32fc", zelsSqrt_32fc);
    row(run, "zelsSqrt_64fc", zelsSqrt_64fc);
    row(run, "zelsCubrt_32f", zelsCubrt_32f);
    row(run, "zelsExp_32f", zelsExp_32f);
    row(run, "zelsExp_64f", zelsExp_64f);
    row(run, "zelsLn_32f", zelsLn_32f, true);
    row(run, "zelsLn_64f", zelsLn_64f, true);
    row(run, "zelsMagnitude_32f", zelsMagnitude_32f);
    row(run, "zelsMagnitude_64f", zelsMagnitude_64f);
    row(run, "zelsMagnitude_32fc", zelsMagnitude_32fc);
    row(run, "zelsMagnitude_64fc", zelsMagnitude_64fc);
    row(run, "zelsArctan_32f", zelsArctan_32f);
    row(run, "zelsArctan_64f", zelsArctan_64f);
    row(run, "zelsPhase_32f", zelsPhase_32f);
    row(run, "zelsPhase_64f", zelsPhase_64f);
    row(run, "zelsPhase_32fc", zelsPhase_32fc);
    row(run, "zelsPhase_64fc", zelsPhase_64fc);
    row(run, "zelsCartToPolar_32f", zelsCartToPolar_32f);
    row(run, "zelsCartToPolar_64f", zelsCartToPolar_64f);
    row(run, "zelsCartToPolar_32fc", zelsCartToPolar_32fc);
    row(run, "zelsCartToPolar_64fc", zelsCartToPolar_64fc);
    row(run, "zelsPolarToCart_32f", zelsPolarToCart_32f);
    row(run, "zelsPolarToCart_64f", zelsPolarToCart_64f);
    row(run, "zelsPolarToCart_32fc", zelsPolarToCart_32fc);
    row(run, "zelsPolarToCart_64fc", zelsPolarToCart_64fc);
    row(run, "zelsPowerSpectr_32f", zelsPowerSpectr_32f);
    row(run, "zelsPowerSpectr_64f", zelsPowerSpectr_64f);
    row(run, "zelsPowerSpectr_32fc", zelsPowerSpectr_32fc);
    row(run, "zelsPowerSpectr_64fc", zelsPowerSpectr_64fc);
    row(run, "zelsNormalize_32f", normalized<zelsNormalize_32f, Zel32f>);
    row(run, "zelsNormalize_64f", normalized<zelsNormalize_64f, Zel64f>);
    row(run, "zelsNormalize_32fc", normalized<zelsNormalize_32fc, Zel32fc>);
    row(run, "zelsNormalize_64fc", normalized<zelsNormalize_64fc, Zel64fc>);
});

} // namespace
