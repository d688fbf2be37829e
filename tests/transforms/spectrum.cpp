// Packed spectra: expansions and products of every small length, against the layouts' definitions.
#include "transforms/fftForms.h"

namespace {

enum Layout { ccs, pack, perm };

// The place of the real part of X[k], 0 < k, 2 k < N, and of bin N/2 of an even N.
std::size_t placeOf(Layout layout, std::size_t k, std::size_t length)
{
    return 2 * k - (layout == pack || (layout == perm && length % 2 != 0));
}
std::size_t topOf(Layout layout, std::size_t length)
{
    return layout == ccs ? length : layout == pack ? length - 1 : 1;
}
std::size_t elementsOf(Layout layout, std::size_t length)
{
    return layout != ccs ? length : length % 2 == 0 ? length + 2 : length + 1;
}

template <class T, class Out, class In>
void expands(Layout layout, Out out, In in)
{
    using C = std::complex<T>;
    using E = std::conditional_t<sizeof(T) == 4, Zel32fc, Zel64fc>;
    Random random("expansion");
    for (std::size_t length = 1; length <= 70; length++) {
        for (const int offset : {-1, 0, 1, 4, 12}) {
            const Placement placement{Placement::atEnd, offset};
            Guarded<T> packed(elementsOf(layout, length), placement);
            Guarded<C> whole(length, placement), both(length, placement);
            std::vector<T> p(packed.size());
            fill(random, p.data(), p.size());
            std::memcpy(static_cast<void*>(packed.data()), p.data(), p.size() * sizeof(T));
            // CCS of an even length is longer than the bins below N/2: the array of N values holds it all the same.
            std::memcpy(static_cast<void*>(both.data()), p.data(),
                        std::min(p.size(), 2 * length) * sizeof(T));
            std::vector<C> bins(length);
            bins[0] = {p[0], layout == ccs ? p[1] : 0};
            if (length % 2 == 0)
                bins[length / 2] = {p[topOf(layout, length)], layout == ccs ? p[length + 1] : 0};
            for (std::size_t k = 1; 2 * k < length; k++) {
                const std::size_t at = placeOf(layout, k, length);
                bins[k] = {p[at], p[at + 1]};
                bins[length - k] = std::conj(bins[k]);
            }
            ASSERT_EQ(out(packed.data(), reinterpret_cast<E*>(whole.data()), static_cast<int>(length)),
                      zelStatusOk);
            ASSERT_EQ(in(reinterpret_cast<E*>(both.data()), static_cast<int>(length)), zelStatusOk);
            ASSERT_TRUE(packed.intact() && whole.intact() && both.intact());
            for (std::size_t k = 0; k < length; k++) {
                ASSERT_EQ(whole[k], bins[k]) << "length " << length << ", bin " << k;
                ASSERT_EQ(both[k], k == 0 ? C(p[0]) : bins[k])
                    << "in place, length " << length << ", bin " << k;
            }
        }
    }
}

TEST(Spectrum, expandsToAllValues)
{
    expands<Zel32f>(ccs, zelsConjCcs_32fc, zelsConjCcs_32fc_I);
    expands<Zel64f>(ccs, zelsConjCcs_64fc, zelsConjCcs_64fc_I);
    expands<Zel32f>(ccs, zelsConjCcs_32fc_L, zelsConjCcs_32fc_I_L);
    expands<Zel64f>(ccs, zelsConjCcs_64fc_L, zelsConjCcs_64fc_I_L);
    expands<Zel32f>(pack, zelsConjPack_32fc, zelsConjPack_32fc_I);
    expands<Zel64f>(pack, zelsConjPack_64fc, zelsConjPack_64fc_I);
    expands<Zel32f>(pack, zelsConjPack_32fc_L, zelsConjPack_32fc_I_L);
    expands<Zel64f>(pack, zelsConjPack_64fc_L, zelsConjPack_64fc_I_L);
    expands<Zel32f>(perm, zelsConjPerm_32fc, zelsConjPerm_32fc_I);
    expands<Zel64f>(perm, zelsConjPerm_64fc, zelsConjPerm_64fc_I);
}

// The products. In place the old value of the destination comes first.
constexpr auto conjFirst = [](auto a, auto b) {
    return decltype(a)(b.imag() * a.imag() + b.real() * a.real(), b.imag() * a.real() - a.imag() * b.real());
};
constexpr auto plain = [](auto a, auto b) {
    return decltype(a)(a.real() * b.real() - a.imag() * b.imag(), a.real() * b.imag() + a.imag() * b.real());
};

template <Layout layout, auto op>
constexpr auto product = []<class T>(const T* a, const T* b, T* d, ZelSize len) {
    const auto length = static_cast<std::size_t>(len);
    d[0] = a[0] * b[0];
    if (length % 2 == 0)
        d[topOf(layout, length)] = a[topOf(layout, length)] * b[topOf(layout, length)];
    for (std::size_t k = 1; 2 * k < length; k++) {
        const std::size_t at = placeOf(layout, k, length);
        const auto value = op(std::complex<T>(a[at], a[at + 1]), std::complex<T>(b[at], b[at + 1]));
        d[at] = value.real();
        d[at + 1] = value.imag();
    }
};

template <class T, class Model>
void multipliesInPlace(Model model, ZelStatus (*function)(const T*, T*, int))
{
    Random random("product");
    for (int length = 1; length <= 70; length++) {
        for (const int offset : {-1, 0, 1, 4, 12}) {
            const Placement placement{Placement::atEnd, offset};
            const auto n = static_cast<std::size_t>(length);
            Guarded<T> src(n, placement), dst(n, placement);
            std::vector<T> a(n), b(n), expected(n);
            fill(random, a.data(), n);
            fill(random, b.data(), n);
            model(a.data(), b.data(), expected.data(), length);
            std::memcpy(static_cast<void*>(dst.data()), a.data(), n * sizeof(T));
            std::memcpy(static_cast<void*>(src.data()), b.data(), n * sizeof(T));
            ASSERT_EQ(function(src.data(), dst.data(), length), zelStatusOk);
            ASSERT_TRUE(src.intact() && dst.intact());
            for (std::size_t k = 0; k < n; k++)
                ASSERT_EQ(dst[k], expected[k]) << "length " << length << ", element " << k;
        }
    }
}

TEST(Spectrum, multiplies)
{
    sweep(product<pack, plain>, EXPORTS(zelsMulPack_32f, zelsMulPack_64f),
          {.modes = Modes::roundingAndFlush});
    sweep(product<perm, plain>, EXPORTS(zelsMulPerm_32f, zelsMulPerm_64f),
          {.modes = Modes::roundingAndFlush});
    multipliesInPlace(product<pack, plain>, zelsMulPack_32f_I);
    multipliesInPlace(product<pack, plain>, zelsMulPack_64f_I);
    multipliesInPlace(product<perm, plain>, zelsMulPerm_32f_I);
    multipliesInPlace(product<perm, plain>, zelsMulPerm_64f_I);
    multipliesInPlace(product<pack, conjFirst>, zelsMulPackConj_32f_I);
    multipliesInPlace(product<pack, conjFirst>, zelsMulPackConj_64f_I);
}

TEST(Spectrum, refusesBadArguments)
{
    badArguments(EXPORTS(zelsConjCcs_32fc, zelsConjCcs_64fc, zelsConjCcs_32fc_I, zelsConjCcs_64fc_I,
                         zelsConjPack_32fc, zelsConjPack_64fc, zelsConjPack_32fc_I, zelsConjPack_64fc_I,
                         zelsConjPerm_32fc, zelsConjPerm_64fc, zelsConjPerm_32fc_I, zelsConjPerm_64fc_I),
                 pointersFirst);
    badArguments(EXPORTS(zelsConjCcs_32fc_L, zelsConjCcs_64fc_L, zelsConjCcs_32fc_I_L, zelsConjCcs_64fc_I_L,
                         zelsConjPack_32fc_L, zelsConjPack_64fc_L, zelsConjPack_32fc_I_L,
                         zelsConjPack_64fc_I_L),
                 pointersFirst);
    badArguments(EXPORTS(zelsMulPack_32f, zelsMulPack_64f, zelsMulPack_32f_I, zelsMulPack_64f_I,
                         zelsMulPerm_32f, zelsMulPerm_64f, zelsMulPerm_32f_I, zelsMulPerm_64f_I,
                         zelsMulPackConj_32f_I, zelsMulPackConj_64f_I),
                 pointersFirst);
}

} // namespace
