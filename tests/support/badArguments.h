// Bad arguments: null pointers, lengths and selectors outside their sets, alone and in pairs, from the type
// of a function; the status, the order of the checks, and that nothing is written.
//
//     badArguments(EXPORTS(zelsAdd_32f, zelsAdd_32f_I), pointersFirst);
//     badArguments(EXPORTS(zelsAdd_32f_L), lengthFirst);
//
// Functions with more than pointers, a length and scalars say what each argument is:
//
//     badArguments(EXPORTS(zelsSampleDown_32f), pointersFirst,
//                  array(64), length(8), array(64), given(&n), selector(2, {0, -1}, zelErrSampleFactor),
//                  ...);
#pragma once

#include "support/exports.h"

#include <cstring>

namespace support {

enum CheckOrder { pointersFirst, lengthFirst };

namespace detail {

/// A value for an argument, whatever its type.
struct Slot {
    alignas(16) unsigned char bytes[16] = {};
};

struct BadValue {
    Slot slot;
    ZelStatus status;
    std::string text;
};

struct BadArgument {
    Slot good;
    bool isPointer = false;
    bool isSource = false;
    std::size_t memory = 0; ///< bytes of memory to point to; 0: `good` has the pointer
    int rank = 2;           ///< arguments of lower rank are tested before
    std::vector<BadValue> bad;
};

struct BadSubject {
    std::string name;
    const char* file;
    int line;
    std::vector<BadArgument> arguments;
    void (*function)();
    ZelStatus (*call)(void (*function)(), const Slot* arguments);
};

std::string runBadArguments(BadSubject& subject);
void reportBadArguments(const BadSubject& subject, const std::string& failure);

template <class T>
Slot slotOf(const T& value)
{
    Slot slot;
    static_assert(sizeof(T) <= sizeof slot.bytes);
    std::memcpy(slot.bytes, &value, sizeof value);
    return slot;
}

template <class T>
T valueOf(const Slot& slot)
{
    T value;
    std::memcpy(&value, slot.bytes, sizeof value);
    return value;
}

template <class... A>
ZelStatus callWithSlots(void (*function)(), const Slot* slots)
{
    return [&]<std::size_t... i>(std::index_sequence<i...>)
    {
        return reinterpret_cast<ZelStatus (*)(A...)>(function)(valueOf<A>(slots[i])...);
    }
    (std::index_sequence_for<A...>{});
}

struct Spec {
    int rank = -1; ///< -1: by the order of checks
    Spec() = default;
};

} // namespace detail

/// A pointer that must not be null, to `bytes` bytes of memory.
struct array : detail::Spec {
    explicit array(std::size_t theBytes = 4096) : bytes(theBytes) {}
    std::size_t bytes;
    bool nullable = false;
};
/// A pointer that may be null.
struct optionalArray : array {
    explicit optionalArray(std::size_t theBytes = 4096) : array(theBytes) { nullable = true; }
};
/// A pointer that must not be null, to something of the test's own (a plan, a state).
struct given : detail::Spec {
    explicit given(const void* thePointer) : pointer(thePointer) {}
    const void* pointer;
};
/// A length, with the status for 0 and negative values.
struct length : detail::Spec {
    explicit length(ZelSize theGood, ZelStatus theStatus = zelErrSize) : good(theGood), status(theStatus) {}
    ZelSize good;
    ZelStatus status;
};
/// A selector or other number: a value that is taken, and values that are refused.
struct selector : detail::Spec {
    selector(ZelSize theGood, std::vector<ZelSize> theBad, ZelStatus theStatus)
        : good(theGood), bad(std::move(theBad)), status(theStatus)
    {
    }
    ZelSize good;
    std::vector<ZelSize> bad;
    ZelStatus status;
};
/// A scalar that any value will do for.
template <class T>
struct value : detail::Spec {
    explicit value(T theGood) : good(theGood) {}
    T good;
};
/// Gives an argument another place among the checks: those of lower rank are tested first. Pointers have 0,
/// lengths 1, selectors 2 (length first: lengths 0, pointers 1).
template <class S>
S ranked(int rank, S spec)
{
    spec.rank = rank;
    return spec;
}

namespace detail {

void addBadLengths(BadArgument& argument, std::size_t size, bool isSigned, ZelStatus status);

template <class A>
BadArgument erase(const array& spec, CheckOrder order)
{
    static_assert(std::is_pointer_v<A>);
    BadArgument argument;
    argument.isPointer = true;
    argument.isSource = std::is_const_v<std::remove_pointer_t<A>>;
    argument.memory = spec.bytes;
    argument.rank = spec.rank >= 0 ? spec.rank : order == pointersFirst ? 0 : 1;
    argument.bad.push_back(
        {Slot{}, spec.nullable ? ZelStatus{zelStatusOk} : ZelStatus{zelErrNullPtr}, "null"});
    return argument;
}

template <class A>
BadArgument erase(const given& spec, CheckOrder order)
{
    static_assert(std::is_pointer_v<A>);
    BadArgument argument;
    argument.isPointer = true;
    argument.good = slotOf(spec.pointer);
    argument.rank = spec.rank >= 0 ? spec.rank : order == pointersFirst ? 0 : 1;
    argument.bad.push_back({Slot{}, zelErrNullPtr, "null"});
    return argument;
}

template <class A>
BadArgument erase(const length& spec, CheckOrder order)
{
    BadArgument argument;
    argument.good = slotOf(static_cast<A>(spec.good));
    argument.rank = spec.rank >= 0 ? spec.rank : order == pointersFirst ? 1 : 0;
    addBadLengths(argument, sizeof(A), std::is_signed_v<A>, spec.status);
    return argument;
}

template <class A>
BadArgument erase(const selector& spec, CheckOrder)
{
    BadArgument argument;
    argument.good = slotOf(static_cast<A>(spec.good));
    argument.rank = spec.rank >= 0 ? spec.rank : 2;
    for (const ZelSize bad : spec.bad)
        argument.bad.push_back({slotOf(static_cast<A>(bad)), spec.status, std::to_string(bad)});
    return argument;
}

template <class A, class T>
BadArgument erase(const value<T>& spec, CheckOrder)
{
    BadArgument argument;
    argument.good = slotOf(static_cast<A>(spec.good));
    return argument;
}

template <class A>
BadArgument deduced(bool isLength, CheckOrder order)
{
    if constexpr (std::is_pointer_v<A>) {
        return erase<A>(array{}, order);
    } else {
        if constexpr (canBeLength<A>)
            if (isLength)
                return erase<A>(length(3), order);
        if constexpr (Complex<A>)
            return erase<A>(value(A{1, 1}), order);
        else
            return erase<A>(value(A{1}), order);
    }
}

template <LengthIs which, class... A, class... Specs>
std::string badArgumentsOf(const char* file, int line, std::string name, ZelStatus (*function)(A...),
                           CheckOrder order, bool report, const Specs&... specs)
{
    BadSubject subject{std::move(name),     file, line, {}, reinterpret_cast<void (*)()>(function),
                       &callWithSlots<A...>};
    if constexpr (sizeof...(Specs) == 0) {
        int i = 0;
        (subject.arguments.push_back(deduced<A>(i++ == lengthIndex<which, A...>(), order)), ...);
    } else {
        static_assert(sizeof...(Specs) == sizeof...(A), "say what each argument is, or nothing at all");
        (subject.arguments.push_back(erase<A>(specs, order)), ...);
    }
    const std::string failure = runBadArguments(subject);
    if (report)
        reportBadArguments(subject, failure);
    return failure;
}

} // namespace detail

/// Tries bad arguments on every function of a list; failures are reported to the test.
template <LengthIs which = LengthIs::last, class... F, class... Specs>
void badArguments(const Exports<F...>& exports, CheckOrder order, const Specs&... specs)
{
    [&]<std::size_t... k>(std::index_sequence<k...>)
    {
        (detail::badArgumentsOf<which>(exports.file, exports.line, nameOf(exports.names, k),
                                       std::get<k>(exports.functions), order, true, specs...),
         ...);
    }
    (std::index_sequence_for<F...>{});
}

/// The same for one function, without a report to the test: for tests of the tool itself.
template <LengthIs which = LengthIs::last, class F, class... Specs>
std::string tryBadArguments(F& function, CheckOrder order, const Specs&... specs)
{
    return detail::badArgumentsOf<which>("", 0, "function", &function, order, false, specs...);
}

} // namespace support
