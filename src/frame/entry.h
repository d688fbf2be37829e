// The checked entry: the tests that stand before every kernel, and the forms of an entry that only lead to
// another entry (doubled lengths, long vectors in chunks).
#pragma once

#include "zels/types.h"

#include <cstdint>
#include <type_traits>
#include <utility>

/// Pointers first, then the length.
template <class... P>
inline ZelStatus ownsCheck(ZelSize len, const P*... p)
{
    if ((... || !p))
        return zelErrNullPtr;
    return len < 1 ? zelErrSize : zelStatusOk;
}

/// A complex vector as the vector of its parts. The real form's entry makes all the tests but that of the
/// length, which stands first here on purpose: a doubled length of 2^31 or more comes out negative, and the
/// inner entry refuses it.
inline int ownsDoubled(int len)
{
    return static_cast<int>(2u * static_cast<unsigned>(len));
}

/// The parts of a complex array.
template <class C>
inline auto ownsParts(C* p)
{
    using Part = decltype(p->re);
    return reinterpret_cast<std::conditional_t<std::is_const_v<C>, const Part, Part>*>(p);
}

/// The doubling shape: the real form on the parts of complex arrays.
template <auto realForm, class... P>
inline ZelStatus ownsDoubling(int len, P*... p)
{
    return len < 1 ? zelErrSize : realForm(ownsParts(p)..., ownsDoubled(len));
}

/// The same for the scaled forms.
template <auto realForm, class... P>
inline ZelStatus ownsDoublingScaled(int len, int scaleFactor, P*... p)
{
    return len < 1 ? zelErrSize : realForm(ownsParts(p)..., ownsDoubled(len), scaleFactor);
}

/// The most elements whose bytes can be counted in a positive 32-bit integer.
template <class T>
inline constexpr ZelSize ownsChunk = INT32_MAX / static_cast<ZelSize>(sizeof(T));

/// The null pointer of an optional array stays null.
template <class T>
inline T ownsAdvanced(T argument, ZelSize done)
{
    if constexpr (std::is_pointer_v<T>)
        return argument ? argument + done : argument;
    else
        return argument;
}

/// The long form in chunks: calls of the 32-bit entry, every pointer advanced by the same count of elements.
/// The chunk is that of the element type that the function is named for. An error ends the work with the
/// earlier chunks written; a warning does not, and the status is that of the last call: a warning of an
/// earlier chunk is lost on purpose. The length is tested first, since the other tests stand inside the
/// calls.
template <auto shortForm, class T, class... A>
inline ZelStatus ownsChunked(ZelSize len, A... arguments)
{
    if (len < 1)
        return zelErrSize;
    for (ZelSize done = 0;;) {
        const ZelSize count = len - done < ownsChunk<T> ? len - done : ownsChunk<T>;
        const ZelStatus status = shortForm(ownsAdvanced(arguments, done)..., static_cast<int>(count));
        done += count;
        if (status < 0 || done == len)
            return status;
    }
}
