// The rows of functions of two arguments: real and imaginary part, or magnitude and phase.
#include "math/pairs.h"
#include "contest.h"

#include <cstring>
#include <memory>
#include <sleef.h>
#include <vector>

extern "C" {
__m128 _ZGVbN4vv_atan2f(__m128, __m128);
__m128 _ZGVbN4vv_hypotf(__m128, __m128);
__m128 _ZGVbN4v_sinf(__m128);
__m128 _ZGVbN4v_cosf(__m128);
__m128d _ZGVbN2vv_atan2(__m128d, __m128d);
__m128d _ZGVbN2vv_hypot(__m128d, __m128d);
__m128d _ZGVbN2v_sin(__m128d);
__m128d _ZGVbN2v_cos(__m128d);
}

namespace {

/// What stands beside a function; null where there is nothing.
template <class T>
struct PairPeers {
    Two<T> (*scalar)(T x, T y);
    Two<OwnsVec<T>> (*system)(OwnsVec<T> x, OwnsVec<T> y);
    Two<OwnsVec<T>> (*sleef)(OwnsVec<T> x, OwnsVec<T> y);
};

template <auto function>
constexpr auto angle = []<class V>(V x, V y) {
    return Two<V>{function(y, x), {}};
};
template <auto function>
constexpr auto length = []<class V>(V x, V y) {
    return Two<V>{function(x, y), {}};
};
template <auto cosine, auto sine>
constexpr auto cartesian = []<class V>(V magn, V phase) {
    return Two<V>{magn * V(cosine(phase)), magn * V(sine(phase))};
};

// In the order of the functions.
constexpr PairPeers<Zel32f> peers32f[]{
    {of_pairs::angle, angle<_ZGVbN4vv_atan2f>, angle<Sleef_atan2f4_u10sse4>},
    {of_pairs::length, length<_ZGVbN4vv_hypotf>, length<Sleef_hypotf4_u05sse4>},
    {of_pairs::cartesian, cartesian<_ZGVbN4v_cosf, _ZGVbN4v_sinf>,
     cartesian<Sleef_cosf4_u10sse4, Sleef_sinf4_u10sse4>},
    {of_pairs::root, nullptr, nullptr},
    {nullptr, nullptr, nullptr},
};
constexpr PairPeers<Zel64f> peers64f[]{
    {of_pairs::angle, angle<_ZGVbN2vv_atan2>, angle<Sleef_atan2d2_u10sse4>},
    {of_pairs::length, length<_ZGVbN2vv_hypot>, length<Sleef_hypotd2_u05sse4>},
    {of_pairs::cartesian, cartesian<_ZGVbN2v_cos, _ZGVbN2v_sin>,
     cartesian<Sleef_cosd2_u10sse4, Sleef_sind2_u10sse4>},
    {of_pairs::root, nullptr, nullptr},
    {nullptr, nullptr, nullptr},
};

template <class T>
std::string textOf(const Two<T>& at)
{
    char text[80];
    std::snprintf(text, sizeof text, "(%.9g, %.9g)", static_cast<double>(at.first),
                  static_cast<double>(at.second));
    return text;
}

/// All contestants on forty million pairs.
template <class T, class Function>
void pairRow(const Function& function, const PairPeers<T>& peers)
{
    Worst<T, Two<T>> zels, scalar, system, sleef;
    const auto arguments = std::make_unique<Pairs<T>>();
    std::vector<T> first(Pairs<T>::count), second(Pairs<T>::count);
    const T *const x = arguments->x, *const y = arguments->y;
    for (int round = 0; round < 40'000'000 / Pairs<T>::count; round++) {
        arguments->next();
        function.zels(x, y, first.data(), second.data(), Pairs<T>::count);
        for (int i = 0; i < Pairs<T>::count; i += ownsLanes<T>) {
            const auto called = [&](auto peer) {
                return peer ? peer(ownsLoad(x + i), ownsLoad(y + i)) : Two<OwnsVec<T>>{};
            };
            const auto theirs = called(peers.system);
            const auto others = called(peers.sleef);
            for (int lane = 0; lane < ownsLanes<T>; lane++) {
                const auto at = static_cast<std::size_t>(i + lane);
                const Two<T> argument{x[at], y[at]};
                if (function.bounded && !function.bounded(x[at], y[at]))
                    continue;
                const auto exact = function.exact(x[at], y[at]);
                const auto take = [&](auto& worst, T one, T other) {
                    worst.take(argument, one, exact.first);
                    worst.take(argument, other, exact.second);
                };
                take(zels, first[at], second[at]);
                if (peers.scalar) {
                    const auto found = peers.scalar(x[at], y[at]);
                    take(scalar, found.first, found.second);
                }
                if (peers.system)
                    take(system, theirs.first[lane], theirs.second[lane]);
                if (peers.sleef)
                    take(sleef, others.first[lane], others.second[lane]);
            }
        }
    }
    const auto cell = [](bool is, const auto& worst) {
        return is ? cellOf(worst, textOf(worst.at)) : std::string("-");
    };
    std::printf("| %s, `%s` | %g | %s %s | %s | %s | %s |\n", function.name, function.formula,
                function.bound.nearest, cellOf(zels, "").c_str(), textOf(zels.at).c_str(),
                cell(peers.scalar, scalar).c_str(), cell(peers.system, system).c_str(),
                cell(peers.sleef, sleef).c_str());
    std::fflush(stdout);
}

template <class T, class Functions, class Peers>
void pairRows(const Functions& functions, const Peers& peers, const char* name)
{
    static_assert(std::extent_v<Functions> == std::extent_v<Peers>);
    for (std::size_t i = 0; i < std::size(functions); i++)
        if (!name || std::strcmp(name, functions[i].name) == 0)
            pairRow<T>(functions[i], peers[i]);
}

} // namespace

void pairRows32f(const char* name)
{
    pairRows<Zel32f>(pairs32f, peers32f, name);
}
void pairRows64f(const char* name)
{
    pairRows<Zel64f>(pairs64f, peers64f, name);
}
