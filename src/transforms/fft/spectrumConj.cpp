// Expansion of packed spectra of real signals to all of their values.
#include "frame/entry.h"
#include "transforms/fft/complexVec.h"
#include "zels/transforms.h"

namespace {

// Exchanges the values of a vector of pairs, end for end, and conjugates them.
inline OwnsVec<Zel32f> mirrored(OwnsVec<Zel32f> v)
{
    return ownsConjugate(OwnsVec<Zel32f>(_mm_shuffle_ps(v, v, 0x4E)));
}
inline OwnsVec<Zel64f> mirrored(OwnsVec<Zel64f> v)
{
    return ownsConjugate(v);
}

// Writes X[k] and X[N - k] = conj(X[k]) for all k with 0 < k < N/2. `pBins` points at X[1]. The walk goes
// down from the top, since in place the expansion moves values up.
template <class T>
void expand(const T* pBins, T* pDst, ZelSize length)
{
    constexpr int values = OwnsPairs<T>::values;
    ZelSize k = (length - 1) / 2; // bins left
    for (; k >= values; k -= values) {
        const OwnsVec<T> bins = ownsLoad(pBins + 2 * (k - values));
        ownsStore(pDst + 2 * (k - values + 1), bins);
        ownsStore(pDst + 2 * (length - k), mirrored(bins));
    }
    for (; k > 0; k--) {
        const T re = ownsGet(pBins + 2 * (k - 1));
        const T im = ownsGet(pBins + 2 * (k - 1) + 1);
        ownsPut(pDst + 2 * k, re);
        ownsPut(pDst + 2 * k + 1, im);
        ownsPut(pDst + 2 * (length - k), re);
        ownsPut(pDst + 2 * (length - k) + 1, -im);
    }
}

template <class T>
inline void put(T* p, T re, T im)
{
    ownsPut(p, re);
    ownsPut(p + 1, im);
}

// CCS holds the imaginary parts of the two real bins too. They are copied as they stand; in place that of bin
// 0 is cleared.
template <bool inPlace, class T>
ZelStatus conjCcs(const T* pSrc, T* pDst, ZelSize length)
{
    const T bottom[2] = {ownsGet(pSrc), inPlace ? T{0} : ownsGet(pSrc + 1)};
    const ZelSize half = length % 2 == 0 ? length : 0;
    const T top[2] = {ownsGet(pSrc + half), ownsGet(pSrc + half + 1)};
    expand(pSrc + 2, pDst, length);
    put(pDst + half, top[0], top[1]);
    put(pDst, bottom[0], bottom[1]);
    return zelStatusOk;
}

// Pack and Perm differ for even N only: where bin N/2 stands, and with it where bin 1 does.
template <bool perm, class T>
ZelStatus conjPacked(const T* pSrc, T* pDst, ZelSize length)
{
    const bool even = length % 2 == 0;
    const T bottom = ownsGet(pSrc);
    const T top = ownsGet(pSrc + (perm && even ? 1 : length - 1));
    expand(pSrc + (perm && even ? 2 : 1), pDst, length);
    if (even)
        put(pDst + length, top, T{0});
    put(pDst, bottom, T{0});
    return zelStatusOk;
}

template <auto body, class T, class E>
ZelStatus checked(const T* pSrc, E* pDst, ZelSize length)
{
    const ZelStatus status = ownsCheck(length, pSrc, pDst);
    return status != zelStatusOk ? status : body(pSrc, ownsParts(pDst), length);
}

} // namespace

ZelStatus zelsConjCcs_32fc(const Zel32f* pSrc, Zel32fc* pDst, int len)
{
    return checked<conjCcs<false, Zel32f>>(pSrc, pDst, len);
}

ZelStatus zelsConjCcs_32fc_I(Zel32fc* pSrcDst, int len)
{
    return checked<conjCcs<true, Zel32f>>(ownsParts(pSrcDst), pSrcDst, len);
}

ZelStatus zelsConjCcs_32fc_L(const Zel32f* pSrc, Zel32fc* pDst, ZelSize len)
{
    return checked<conjCcs<false, Zel32f>>(pSrc, pDst, len);
}

ZelStatus zelsConjCcs_32fc_I_L(Zel32fc* pSrcDst, ZelSize len)
{
    return checked<conjCcs<true, Zel32f>>(ownsParts(pSrcDst), pSrcDst, len);
}

ZelStatus zelsConjCcs_64fc(const Zel64f* pSrc, Zel64fc* pDst, int len)
{
    return checked<conjCcs<false, Zel64f>>(pSrc, pDst, len);
}

ZelStatus zelsConjCcs_64fc_I(Zel64fc* pSrcDst, int len)
{
    return checked<conjCcs<true, Zel64f>>(ownsParts(pSrcDst), pSrcDst, len);
}

ZelStatus zelsConjCcs_64fc_L(const Zel64f* pSrc, Zel64fc* pDst, ZelSize len)
{
    return checked<conjCcs<false, Zel64f>>(pSrc, pDst, len);
}

ZelStatus zelsConjCcs_64fc_I_L(Zel64fc* pSrcDst, ZelSize len)
{
    return checked<conjCcs<true, Zel64f>>(ownsParts(pSrcDst), pSrcDst, len);
}

ZelStatus zelsConjPack_32fc(const Zel32f* pSrc, Zel32fc* pDst, int len)
{
    return checked<conjPacked<false, Zel32f>>(pSrc, pDst, len);
}

ZelStatus zelsConjPack_32fc_I(Zel32fc* pSrcDst, int len)
{
    return checked<conjPacked<false, Zel32f>>(ownsParts(pSrcDst), pSrcDst, len);
}

ZelStatus zelsConjPack_32fc_L(const Zel32f* pSrc, Zel32fc* pDst, ZelSize len)
{
    return checked<conjPacked<false, Zel32f>>(pSrc, pDst, len);
}

ZelStatus zelsConjPack_32fc_I_L(Zel32fc* pSrcDst, ZelSize len)
{
    return checked<conjPacked<false, Zel32f>>(ownsParts(pSrcDst), pSrcDst, len);
}

ZelStatus zelsConjPack_64fc(const Zel64f* pSrc, Zel64fc* pDst, int len)
{
    return checked<conjPacked<false, Zel64f>>(pSrc, pDst, len);
}

ZelStatus zelsConjPack_64fc_I(Zel64fc* pSrcDst, int len)
{
    return checked<conjPacked<false, Zel64f>>(ownsParts(pSrcDst), pSrcDst, len);
}

ZelStatus zelsConjPack_64fc_L(const Zel64f* pSrc, Zel64fc* pDst, ZelSize len)
{
    return checked<conjPacked<false, Zel64f>>(pSrc, pDst, len);
}

ZelStatus zelsConjPack_64fc_I_L(Zel64fc* pSrcDst, ZelSize len)
{
    return checked<conjPacked<false, Zel64f>>(ownsParts(pSrcDst), pSrcDst, len);
}

ZelStatus zelsConjPerm_32fc(const Zel32f* pSrc, Zel32fc* pDst, int len)
{
    return checked<conjPacked<true, Zel32f>>(pSrc, pDst, len);
}

ZelStatus zelsConjPerm_32fc_I(Zel32fc* pSrcDst, int len)
{
    return checked<conjPacked<true, Zel32f>>(ownsParts(pSrcDst), pSrcDst, len);
}

ZelStatus zelsConjPerm_64fc(const Zel64f* pSrc, Zel64fc* pDst, int len)
{
    return checked<conjPacked<true, Zel64f>>(pSrc, pDst, len);
}

ZelStatus zelsConjPerm_64fc_I(Zel64fc* pSrcDst, int len)
{
    return checked<conjPacked<true, Zel64f>>(ownsParts(pSrcDst), pSrcDst, len);
}
