// Conjugates, and complex vectors from and to their parts.
#include "support/test.h"

namespace {

/// The sign bit changed for floats, saturation for integers.
template <class P>
P negated(P x)
{
    if constexpr (std::is_floating_point_v<P>)
        return std::copysign(x, std::signbit(x) ? P{1} : P{-1});
    else
        return saturated<P>(-Wide{x});
}

constexpr auto conjugate = []<class C>(C z) { return C{z.re, negated(z.im)}; };
constexpr auto conjugateFlip = []<class C>(const C* pSrc, C* pDst, ZelSize len) {
    for (ZelSize i = 0; i < len; i++)
        pDst[i] = conjugate(pSrc[len - 1 - i]);
};
constexpr auto real = [](auto z) { return z.re; };
constexpr auto imag = [](auto z) { return z.im; };
constexpr auto both = [](auto z) { return std::pair(z.re, z.im); };

template <class C>
constexpr auto joined = [](Part<C> re, Part<C> im) {
    return C{re, im};
};

/// NaNs are data here, signalling ones too.
const SweepOptions bits{.payload = true};

template <auto function>
struct Only;
template <class P, class C, class Length, ZelStatus (*function)(const P*, const P*, C*, Length)>
struct Only<function> {
    static ZelStatus re(const P* pSrc, C* pDst, Length len) { return function(pSrc, nullptr, pDst, len); }
    static ZelStatus im(const P* pSrc, C* pDst, Length len) { return function(nullptr, pSrc, pDst, len); }
};

template <class C, auto... functions>
void sweepOnes()
{
    (sweep([](Part<C> re) { return C{re, 0}; }, EXPORTS(Only<functions>::re), bits), ...);
    (sweep([](Part<C> im) { return C{0, im}; }, EXPORTS(Only<functions>::im), bits), ...);
}

} // namespace

TEST(ComplexParts, conjugates)
{
    sweep(conjugate,
          EXPORTS(zelsConj_16sc, zelsConj_16sc_I, zelsConj_32fc, zelsConj_32fc_I, zelsConj_32fc_L,
                  zelsConj_32fc_I_L, zelsConj_64fc, zelsConj_64fc_I, zelsConj_64fc_L, zelsConj_64fc_I_L),
          bits);
    sweep(conjugateFlip, EXPORTS(zelsConjFlip_16sc, zelsConjFlip_32fc, zelsConjFlip_64fc), bits);
}

TEST(ComplexParts, takesElementsApart)
{
    sweep(real, EXPORTS(zelsReal_16sc, zelsReal_32fc, zelsReal_64fc), bits);
    sweep(imag, EXPORTS(zelsImag_16sc, zelsImag_32fc, zelsImag_64fc), bits);
    sweep(both,
          EXPORTS(zelsCplxToReal_16sc, zelsCplxToReal_32fc, zelsCplxToReal_32fc_L, zelsCplxToReal_64fc,
                  zelsCplxToReal_64fc_L),
          bits);
}

TEST(ComplexParts, putsElementsTogether)
{
    sweep(joined<Zel16sc>, EXPORTS(zelsRealToCplx_16s), bits);
    sweep(joined<Zel32fc>, EXPORTS(zelsRealToCplx_32f, zelsRealToCplx_32f_L), bits);
    sweep(joined<Zel64fc>, EXPORTS(zelsRealToCplx_64f, zelsRealToCplx_64f_L), bits);
    sweepOnes<Zel16sc, zelsRealToCplx_16s>();
    sweepOnes<Zel32fc, zelsRealToCplx_32f, zelsRealToCplx_32f_L>();
    sweepOnes<Zel64fc, zelsRealToCplx_64f, zelsRealToCplx_64f_L>();
}

TEST(ComplexParts, refusesBadArguments)
{
    badArguments(EXPORTS(zelsConj_16sc, zelsConj_16sc_I, zelsConj_32fc, zelsConj_32fc_I, zelsConj_64fc,
                         zelsConj_64fc_I, zelsConjFlip_16sc, zelsConjFlip_32fc, zelsConjFlip_64fc,
                         zelsReal_16sc, zelsReal_32fc, zelsReal_64fc, zelsImag_16sc, zelsImag_32fc,
                         zelsImag_64fc, zelsCplxToReal_16sc, zelsCplxToReal_32fc, zelsCplxToReal_64fc),
                 pointersFirst);
    badArguments(EXPORTS(zelsConj_32fc_L, zelsConj_32fc_I_L, zelsConj_64fc_L, zelsConj_64fc_I_L,
                         zelsCplxToReal_32fc_L, zelsCplxToReal_64fc_L),
                 lengthFirst);
    // The destination, then the length, and last whether there is a source.
    badArguments(EXPORTS(Only<zelsRealToCplx_16s>::re, Only<zelsRealToCplx_16s>::im,
                         Only<zelsRealToCplx_32f>::re, Only<zelsRealToCplx_32f>::im,
                         Only<zelsRealToCplx_64f>::re, Only<zelsRealToCplx_64f>::im),
                 pointersFirst, ranked(3, array()), array(), length(3));
    badArguments(EXPORTS(Only<zelsRealToCplx_32f_L>::re, Only<zelsRealToCplx_32f_L>::im,
                         Only<zelsRealToCplx_64f_L>::re, Only<zelsRealToCplx_64f_L>::im),
                 lengthFirst, ranked(3, array()), array(), length(3));
    const Zel32f parts[3]{};
    badArguments(EXPORTS(zelsRealToCplx_32f), pointersFirst, optionalArray(), value<const Zel32f*>(parts),
                 array(), length(3));
}

TEST(ComplexPartsLong, worksInChunks)
{
    sweepLong(both, EXPORTS(zelsCplxToReal_32fc_L), longChunk<Zel32fc> + 1234, {longChunk<Zel32fc>});
    // A source that is null is null in the second chunk too.
    sweepLong(
        [](Zel32f im) {
            return Zel32fc{0, im};
        },
        EXPORTS(Only<zelsRealToCplx_32f_L>::im), longChunk<Zel32f> + 1234, {longChunk<Zel32f>});
}

TEST(ComplexPartsLong, ExhaustiveOverForms)
{
    sweepLong(conjugate, EXPORTS(zelsConj_32fc_L, zelsConj_32fc_I_L), longChunk<Zel32fc> + 1234,
              {longChunk<Zel32fc>});
    sweepLong(conjugate, EXPORTS(zelsConj_64fc_L, zelsConj_64fc_I_L), longChunk<Zel64fc> + 1234,
              {longChunk<Zel64fc>});
    sweepLong(both, EXPORTS(zelsCplxToReal_64fc_L), longChunk<Zel64fc> + 1234, {longChunk<Zel64fc>});
    sweepLong(joined<Zel32fc>, EXPORTS(zelsRealToCplx_32f_L), longChunk<Zel32f> + 1234, {longChunk<Zel32f>});
    sweepLong(joined<Zel64fc>, EXPORTS(zelsRealToCplx_64f_L), longChunk<Zel64f> + 1234, {longChunk<Zel64f>});
    sweepLong(
        [](Zel64f re) {
            return Zel64fc{re, 0};
        },
        EXPORTS(Only<zelsRealToCplx_64f_L>::re), longChunk<Zel64f> + 1234, {longChunk<Zel64f>});
}
