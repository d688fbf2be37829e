// The sweep: one function under test against its model, over lengths, misalignments, placements against
// inaccessible pages, in-place calls, fills, and the caller's floating-point modes.
//
//     constexpr auto sum = [](auto a, auto b) { return a + b; };
//     sweep(sum, EXPORTS(zelsAdd_32f, zelsAdd_32f_I), {.around = {87383}});
//     sweep(sum, EXPORTS(zelsAddC_32f, zelsAddC_32f_I), 2.5f);
//
// From the type of the function: pointers to const are sources; other pointers are destinations, of one
// element where they stand behind the length; the length is the last int or ZelSize right after a pointer
// (the first one in sweep<LengthIs::first>); everything else is a scalar, for which the values behind the
// list are passed.
//
// A model is one of these, tried in this order:
//   for each element     model(sources..., scalars...), or model(sources..., old, scalars...) where the
//                        destination's former value takes part. It may return a wider type, a std::pair for
//                        two destinations, Within{value, bound}, or WithStatus{value, status}.
//   for the whole array  model(pSources..., pDestinations..., len, scalars...), the destinations holding
//   their
//                        former values at first; pDestinations may be Within*. It may return the status.
#pragma once

#include "support/compare.h"
#include "support/exports.h"
#include "support/fill.h"

#include <array>
#include <functional>
#include <limits>
#include <utility>

namespace support {

enum class Modes {
    nearest,          ///< as the program runs: to nearest, subnormals kept
    rounding,         ///< each rounding mode
    roundingAndFlush, ///< each rounding mode, with subnormals kept and flushed
};

struct SweepOptions {
    /// Elements of the largest unrolled block: the lengths are 1 to twice this plus one.
    int block = 32;
    /// Thresholds of length, each tried with the lengths around it.
    std::vector<ZelSize> around = {};
    /// Large lengths. Between them and the short ones some are drawn.
    std::vector<ZelSize> lengths = {1000, 4099};
    /// The error allowed: units in the last place (of the destination's type), or an absolute bound, or both
    /// together, the wider one counting. Neither: bit for bit.
    double ulps = 0;
    double bound = 0;
    /// NaNs must agree in sign and payload.
    bool payload = false;
    /// The caller's modes to try.
    Modes modes = Modes::nearest;
    /// The model is computed to nearest whatever the caller's mode, since the function promises that.
    bool modelToNearest = false;
    /// The status expected, where the model tells none.
    ZelStatus status = zelStatusOk;
    /// Of several statuses of elements the lowest counts, not the first.
    bool lowestStatus = false;
    /// Calls with a destination that is a source of the same type.
    bool inPlace = true;
    /// Bits of the fills to use, and the range of ordinary floats.
    unsigned fills = allFills;
    Values values = {};
    /// Makes the data of a source itself: (random, index of the pointer, data, count of elements).
    std::function<void(Random&, int, void*, std::size_t)> generate = {};
    /// Elements for each unit of length, by pointer in argument order (3 for 24-bit data in bytes); 1 if not
    /// told.
    std::vector<int> units = {};
    /// How many calls are made: for each short length and offset so many, others in proportion.
    int repeats = 3;
};

/// Sweeps take a sample of their calls: each length, and by turns each alignment, against either guard page, in place; a
/// tenth of all. For where a call takes twenty times as long. Set before the first sweep.
void makeSweepsBrief();

/// What a sweep found.
struct SweepReport {
    std::string failure; ///< empty if all was well
    long long calls = 0;
    long double worstUlps = 0; ///< largest error seen, where ulps are allowed
};

/// Inside a model: where a pointer argument of the call lies, for results that depend on the alignment. What a model is
/// given are copies that lie elsewhere.
std::uintptr_t callAddress(std::size_t pointer);

/// A value with the status that its element causes.
template <class T>
struct WithStatus {
    T value;
    ZelStatus status;
};
template <class T>
WithStatus(T, ZelStatus) -> WithStatus<T>;

namespace detail {

struct PointerArgument {
    Element element;
    bool source;
    bool single; ///< behind the length: one element
};

/// What the model writes for one destination: elements, and their exact values where errors are allowed.
struct Expected {
    void* elements;
    Within* exact; ///< a value for each part; null where results are compared bit for bit
};

/// A function and its model without their types, so that the sweep is compiled once.
struct Subject {
    std::string name;
    const char* file;
    int line;
    std::vector<PointerArgument> pointers;
    bool modelGivesBounds; ///< its values are Within
    const void* context;
    ZelStatus (*call)(const void* context, void* const* pointers, ZelSize len);
    /// Sources and former values of destinations come in `inputs`; false as `modelled` if there is no status.
    ZelStatus (*model)(const void* context, const void* const* inputs, const Expected* expected, ZelSize len,
                       bool lowestStatus, bool& statusKnown);
};

SweepReport runSweep(const Subject& subject, const SweepOptions& options);
SweepReport runAndReport(const Subject& subject, const SweepOptions& options);

template <class T>
struct IsWithStatus : std::false_type {
};
template <class T>
struct IsWithStatus<WithStatus<T>> : std::true_type {
};
template <class T>
struct IsPair : std::false_type {
};
template <class A, class B>
struct IsPair<std::pair<A, B>> : std::true_type {
};

void modelOutOfRange(long double value);

/// Writes one value of the model: rounded to the element type, and exactly.
template <class D, class R>
void deliver(const Expected& expected, ZelSize i, const R& value)
{
    D* const element = static_cast<D*>(expected.elements) + i;
    if constexpr (std::is_same_v<R, Within>) {
        expected.exact[i] = value;
    } else if constexpr (Complex<D>) {
        *element = D{static_cast<Part<D>>(value.re), static_cast<Part<D>>(value.im)};
        if (expected.exact) {
            expected.exact[2 * i] = {static_cast<long double>(value.re), 0};
            expected.exact[2 * i + 1] = {static_cast<long double>(value.im), 0};
        }
    } else {
        if constexpr (std::is_integral_v<D> && !std::is_same_v<D, R>) {
            // A model for integers gives what the type can hold: it saturates by itself.
            if (static_cast<long double>(value) < static_cast<long double>(std::numeric_limits<D>::min()) ||
                static_cast<long double>(value) > static_cast<long double>(std::numeric_limits<D>::max()))
                modelOutOfRange(static_cast<long double>(value));
        }
        *element = static_cast<D>(value);
        if (expected.exact)
            expected.exact[i] = {static_cast<long double>(value), 0};
    }
}

template <LengthIs which, class F, class Model, class... Scalars>
struct Adapter;

template <LengthIs which, class Model, class... A, class... Scalars>
struct Adapter<which, ZelStatus(A...), Model, Scalars...> {
    static constexpr int lengthAt = lengthIndex<which, A...>();
    static_assert(lengthAt > 0, "no length follows a pointer");
    static constexpr std::size_t argumentCount = sizeof...(A);
    template <std::size_t i>
    using Argument = std::tuple_element_t<i, std::tuple<A...>>;

    static constexpr bool isPointer[argumentCount]{std::is_pointer_v<A>...};
    static constexpr bool isSource[argumentCount]{
        (std::is_pointer_v<A> && std::is_const_v<std::remove_pointer_t<A>>)...};

    /// How many arguments before the i-th are of the same role.
    static constexpr std::size_t pointersBefore(std::size_t i)
    {
        std::size_t n = 0;
        for (std::size_t k = 0; k < i; k++)
            n += isPointer[k];
        return n;
    }
    static constexpr std::size_t scalarsBefore(std::size_t i)
    {
        std::size_t n = 0;
        for (std::size_t k = 0; k < i; k++)
            n += !isPointer[k] && static_cast<int>(k) != lengthAt;
        return n;
    }
    static_assert(scalarsBefore(argumentCount) == sizeof...(Scalars),
                  "give a value for each scalar argument; sweep<LengthIs::first> for reductions");

    /// Argument indices of the sources, the destinations, the scalars.
    template <class Wanted>
    static constexpr auto indices(Wanted wanted)
    {
        return [&]<std::size_t... i>(std::index_sequence<i...>)
        {
            constexpr std::size_t n = (0 + ... + (Wanted{}(i) ? 1 : 0));
            std::array<std::size_t, n> found{};
            std::size_t k = 0;
            ((wanted(i) ? void(found[k++] = i) : void()), ...);
            return found;
        }
        (std::make_index_sequence<argumentCount>{});
    }
    struct IsSource {
        constexpr bool operator()(std::size_t i) const { return isSource[i]; }
    };
    struct IsDestination {
        constexpr bool operator()(std::size_t i) const { return isPointer[i] && !isSource[i]; }
    };
    struct IsScalar {
        constexpr bool operator()(std::size_t i) const
        {
            return !isPointer[i] && static_cast<int>(i) != lengthAt;
        }
    };
    static constexpr auto sources = indices(IsSource{});
    static constexpr auto destinations = indices(IsDestination{});
    static constexpr auto scalars = indices(IsScalar{});

    template <std::size_t i>
    using Pointee = std::remove_const_t<std::remove_pointer_t<Argument<i>>>;
    template <std::size_t i>
    static constexpr bool elementPerIndex = static_cast<int>(i) < lengthAt;

    struct Context {
        ZelStatus (*function)(A...);
        const Model* model;
        std::tuple<Scalars...> scalars;
    };

    template <std::size_t i>
    static Argument<i> argument(const Context& context, void* const* pointers, ZelSize len)
    {
        if constexpr (isPointer[i])
            return static_cast<Argument<i>>(pointers[pointersBefore(i)]);
        else if constexpr (static_cast<int>(i) == lengthAt)
            return static_cast<Argument<i>>(len);
        else
            return static_cast<Argument<i>>(std::get<scalarsBefore(i)>(context.scalars));
    }

    static ZelStatus call(const void* pContext, void* const* pointers, ZelSize len)
    {
        const auto& context = *static_cast<const Context*>(pContext);
        return [&]<std::size_t... i>(std::index_sequence<i...>)
        {
            return context.function(argument<i>(context, pointers, len)...);
        }
        (std::make_index_sequence<argumentCount>{});
    }

    /// Whether the values of the model are Within.
    static constexpr bool modelGivesBounds()
    {
        return []<std::size_t... s, std::size_t... d, std::size_t... c>(
            std::index_sequence<s...>, std::index_sequence<d...>, std::index_sequence<c...>)
        {
            if constexpr (std::is_invocable_v<const Model&, Pointee<sources[s]>..., Argument<scalars[c]>...>)
                return std::is_same_v<Within, std::invoke_result_t<const Model&, Pointee<sources[s]>...,
                                                                   Argument<scalars[c]>...>>;
            else if constexpr (std::is_invocable_v<const Model&, Pointee<sources[s]>...,
                                                   Pointee<destinations[d]>..., Argument<scalars[c]>...>)
                return std::is_same_v<
                    Within, std::invoke_result_t<const Model&, Pointee<sources[s]>...,
                                                 Pointee<destinations[d]>..., Argument<scalars[c]>...>>;
            else
                return !std::is_invocable_v<const Model&, const Pointee<sources[s]>*...,
                                            Pointee<destinations[d]>*..., ZelSize, Argument<scalars[c]>...>;
        }
        (std::make_index_sequence<sources.size()>{}, std::make_index_sequence<destinations.size()>{},
         std::make_index_sequence<scalars.size()>{});
    }

    template <std::size_t i>
    static const auto* input(const void* const* inputs)
    {
        return static_cast<const Pointee<i>*>(inputs[pointersBefore(i)]);
    }

    static ZelStatus model(const void* pContext, const void* const* inputs, const Expected* expected,
                           ZelSize len, bool lowestStatus, bool& statusKnown)
    {
        const auto& context = *static_cast<const Context*>(pContext);
        const Model& m = *context.model;
        return [&]<std::size_t... s, std::size_t... d, std::size_t... c>(
            std::index_sequence<s...>, std::index_sequence<d...>, std::index_sequence<c...>)
        {
            const auto scalar = [&]<std::size_t k>(std::integral_constant<std::size_t, k>) {
                return static_cast<Argument<scalars[k]>>(std::get<k>(context.scalars));
            };
            (void)scalar;
            constexpr bool fresh =
                std::is_invocable_v<const Model&, Pointee<sources[s]>..., Argument<scalars[c]>...>;
            constexpr bool updating =
                std::is_invocable_v<const Model&, Pointee<sources[s]>..., Pointee<destinations[d]>...,
                                    Argument<scalars[c]>...>;
            if constexpr (fresh || updating) {
                const auto at = [&](ZelSize i) {
                    if constexpr (fresh)
                        return m(input<sources[s]>(inputs)[i]...,
                                 scalar(std::integral_constant<std::size_t, c>{})...);
                    else
                        return m(input<sources[s]>(inputs)[i]..., input<destinations[d]>(inputs)[i]...,
                                 scalar(std::integral_constant<std::size_t, c>{})...);
                };
                ZelStatus status = zelStatusOk;
                const auto put = [&](ZelSize i, const auto& result) {
                    using Result = std::remove_cvref_t<decltype(result)>;
                    if constexpr (IsPair<Result>::value) {
                        constexpr std::size_t second = destinations.size() - 1;
                        deliver<Pointee<destinations[0]>>(expected[0], i, result.first);
                        deliver<Pointee<destinations[second]>>(expected[second], i, result.second);
                    } else {
                        deliver<Pointee<destinations[0]>>(expected[0], i, result);
                    }
                };
                for (ZelSize i = 0; i < len; i++) {
                    const auto result = at(i);
                    if constexpr (IsWithStatus<std::remove_cvref_t<decltype(result)>>::value) {
                        statusKnown = true;
                        if (result.status != 0 && (status == 0 || (lowestStatus && result.status < status)))
                            status = result.status;
                        put(i, result.value);
                    } else {
                        put(i, result);
                    }
                }
                return status;
            } else {
                const auto whole = [&](auto... pDst) {
                    const auto run = [&] {
                        return m(input<sources[s]>(inputs)..., pDst..., len,
                                 scalar(std::integral_constant<std::size_t, c>{})...);
                    };
                    if constexpr (std::is_convertible_v<decltype(run()), ZelStatus>) {
                        statusKnown = true;
                        return static_cast<ZelStatus>(run());
                    } else {
                        run();
                        return ZelStatus{zelStatusOk};
                    }
                };
                if constexpr (std::is_invocable_v<const Model&, const Pointee<sources[s]>*...,
                                                  Pointee<destinations[d]>*..., ZelSize,
                                                  Argument<scalars[c]>...>) {
                    const ZelStatus status =
                        whole(static_cast<Pointee<destinations[d]>*>(expected[d].elements)...);
                    (toExact<Pointee<destinations[d]>>(expected[d],
                                                       elementPerIndex<destinations[d]> ? len : 1),
                     ...);
                    return status;
                } else {
                    return whole(expected[d].exact...);
                }
            }
        }
        (std::make_index_sequence<sources.size()>{}, std::make_index_sequence<destinations.size()>{},
         std::make_index_sequence<scalars.size()>{});
    }

    template <class D>
    static void toExact(const Expected& expected, ZelSize n)
    {
        if (expected.exact)
            for (ZelSize i = 0; i < n * elementOf<D>().parts; i++)
                expected.exact[i] = {
                    partValue(elementOf<D>().kind, static_cast<const Part<D>*>(expected.elements) + i), 0};
    }

    /// Makes the subject and hands it on.
    template <class Use>
    static auto with(const char* file, int line, std::string name, ZelStatus (*function)(A...),
                     const Model& m, Use use, Scalars... values)
    {
        const Context context{function, &m, {values...}};
        Subject subject{std::move(name), file, line, {}, modelGivesBounds(), &context, &call, &model};
        [&]<std::size_t... i>(std::index_sequence<i...>)
        {
            ((isPointer[i]
                  ? subject.pointers.push_back({elementOf<Pointee<i>>(), isSource[i], !elementPerIndex<i>})
                  : void()),
             ...);
        }
        (std::make_index_sequence<argumentCount>{});
        return use(subject);
    }
};

} // namespace detail

/// Sweeps every function of the list; failures are reported to the test. Returns what was found on the last
/// one.
template <LengthIs which = LengthIs::last, class Model, class... F, class... Scalars>
SweepReport sweep(const Model& model, const Exports<F...>& exports, const SweepOptions& options,
                  Scalars... scalars)
{
    SweepReport last;
    [&]<std::size_t... k>(std::index_sequence<k...>)
    {
        ((last = detail::Adapter<which, std::remove_pointer_t<F>, Model, Scalars...>::with(
              exports.file, exports.line, nameOf(exports.names, k), std::get<k>(exports.functions), model,
              [&](const detail::Subject& subject) { return detail::runAndReport(subject, options); },
              scalars...)),
         ...);
    }
    (std::index_sequence_for<F...>{});
    return last;
}

template <LengthIs which = LengthIs::last, class Model, class... F, class... Scalars>
requires(!(... || std::is_same_v<Scalars, SweepOptions>)) SweepReport
    sweep(const Model& model, const Exports<F...>& exports, Scalars... scalars)
{
    return sweep<which>(model, exports, SweepOptions{}, scalars...);
}

/// The sweep of one function without a report to the test: for tests of the sweep itself.
template <LengthIs which = LengthIs::last, class Model, class F, class... Scalars>
SweepReport trySweep(const Model& model, F& function, const SweepOptions& options, Scalars... scalars)
{
    return detail::Adapter<which, F, Model, Scalars...>::with(
        "", 0, "function", &function, model,
        [&](const detail::Subject& subject) { return detail::runSweep(subject, options); }, scalars...);
}

} // namespace support
