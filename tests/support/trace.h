// What instructions a call executes, seen by stepping through it: streaming stores, fences, CPUID.
#pragma once

namespace support {

/// Counts over the first `steps` instructions of a call.
struct Trace {
    long long steps = 0;
    long long streamingStores = 0;
    long long fences = 0;
    long long cpuids = 0;
};

/// Ends the steps once a streaming store was seen.
inline constexpr bool untilStreaming = true;

/// Whether this machine can step; an emulator may not.
bool canTrace();

namespace detail {

Trace traceCall(void (*call)(void*), void* argument, long long steps, void* fromPage, bool onlyToStreaming);

} // namespace detail

/// The same from the moment on at which the call first reaches a page, which is inaccessible until then.
template <class Call>
Trace traceFrom(void* page, Call call, long long steps)
{
    return detail::traceCall([](void* argument) { (*static_cast<Call*>(argument))(); }, &call, steps, page,
                             false);
}

/// Runs `call`, the first `steps` instructions one at a time and the rest at full speed.
template <class Call>
Trace trace(Call call, long long steps = 5000, bool onlyToStreaming = false)
{
    return detail::traceCall([](void* argument) { (*static_cast<Call*>(argument))(); }, &call, steps, nullptr,
                             onlyToStreaming);
}

} // namespace support
