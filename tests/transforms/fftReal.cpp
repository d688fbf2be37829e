// Real transforms: the three layouts against the exact spectrum, round trips, in place, exact buffers.
#include "transforms/fftForms.h"

namespace {

enum Layout { ccs, pack, perm };
constexpr Layout layouts[] = {ccs, pack, perm};

template <class Form>
struct Functions;
template <>
struct Functions<R32f> {
    static constexpr decltype(&zelsFFTFwd_RToCCS_32f) forward[] = {zelsFFTFwd_RToCCS_32f,
                                                                   zelsFFTFwd_RToPack_32f,
                                                                   zelsFFTFwd_RToPerm_32f},
                                                      inverse[] = {zelsFFTInv_CCSToR_32f,
                                                                   zelsFFTInv_PackToR_32f,
                                                                   zelsFFTInv_PermToR_32f};
    static constexpr decltype(&zelsFFTFwd_RToCCS_32f_I) forwardInPlace[] = {zelsFFTFwd_RToCCS_32f_I,
                                                                            zelsFFTFwd_RToPack_32f_I,
                                                                            zelsFFTFwd_RToPerm_32f_I},
                                                        inverseInPlace[] = {zelsFFTInv_CCSToR_32f_I,
                                                                            zelsFFTInv_PackToR_32f_I,
                                                                            zelsFFTInv_PermToR_32f_I};
};
template <>
struct Functions<R64f> {
    static constexpr decltype(&zelsFFTFwd_RToCCS_64f) forward[] = {zelsFFTFwd_RToCCS_64f,
                                                                   zelsFFTFwd_RToPack_64f,
                                                                   zelsFFTFwd_RToPerm_64f},
                                                      inverse[] = {zelsFFTInv_CCSToR_64f,
                                                                   zelsFFTInv_PackToR_64f,
                                                                   zelsFFTInv_PermToR_64f};
    static constexpr decltype(&zelsFFTFwd_RToCCS_64f_I) forwardInPlace[] = {zelsFFTFwd_RToCCS_64f_I,
                                                                            zelsFFTFwd_RToPack_64f_I,
                                                                            zelsFFTFwd_RToPerm_64f_I},
                                                        inverseInPlace[] = {zelsFFTInv_CCSToR_64f_I,
                                                                            zelsFFTInv_PackToR_64f_I,
                                                                            zelsFFTInv_PermToR_64f_I};
};

// A packed spectrum, taken apart by the table of the layouts. The imaginary parts of the real bins are checked here.
template <class T>
std::vector<std::complex<T>> unpacked(Layout layout, const std::vector<T>& p, std::size_t length)
{
    std::vector<std::complex<T>> bins(length / 2 + 1);
    bins[0] = p[0];
    if (length > 1)
        bins[length / 2] = p[layout == ccs ? length : layout == pack ? length - 1 : 1];
    for (std::size_t k = 1; k < length / 2; k++)
        bins[k] = {p[2 * k - (layout == pack)], p[2 * k + 1 - (layout == pack)]};
    if (layout == ccs) {
        EXPECT_EQ(p[1], 0);
        EXPECT_EQ(p[p.size() - 1], 0);
    }
    return bins;
}

template <class T>
std::vector<T> packed(Layout layout, const std::vector<std::complex<T>>& bins, std::size_t length)
{
    // What a real spectrum has not must not be read: it is not a number here.
    std::vector<T> p(layout == ccs && length > 1 ? length + 2
                     : layout == ccs             ? 2
                                                 : length,
                     std::numeric_limits<T>::quiet_NaN());
    for (std::size_t k = 1; k < length / 2; k++) {
        p[2 * k - (layout == pack)] = bins[k].real();
        p[2 * k + 1 - (layout == pack)] = bins[k].imag();
    }
    if (length > 1)
        p[layout == ccs ? length : layout == pack ? length - 1 : 1] = bins[length / 2].real();
    p[0] = bins[0].real();
    return p;
}

// A call of a real transform, out of place and in place, which must agree.
template <class Form, class T = typename Form::T>
std::vector<T> call(Planned<Form>& planned, bool inverse, Layout layout, const std::vector<T>& x,
                    std::size_t results, Placement placement = {})
{
    Guarded<T> from(x.size(), placement), to(results, placement),
        both(std::max(x.size(), results), placement);
    for (std::size_t k = 0; k < x.size(); k++) {
        from.set(k, x[k]);
        both.set(k, x[k]);
    }
    const auto& f = inverse ? Functions<Form>::inverse : Functions<Form>::forward;
    const auto& g = inverse ? Functions<Form>::inverseInPlace : Functions<Form>::forwardInPlace;
    EXPECT_EQ(f[layout](from.data(), to.data(), planned.plan, planned.buffer()), zelStatusOk);
    EXPECT_EQ(g[layout](both.data(), planned.plan, planned.buffer()), zelStatusOk);
    EXPECT_TRUE(from.intact() && to.intact() && both.intact());
    std::vector<T> y(results);
    std::size_t differing = 0;
    for (std::size_t k = 0; k < results; k++) {
        y[k] = to[k];
        differing += to[k] != both[k];
    }
    EXPECT_EQ(differing, 0u) << "in place";
    return y;
}

template <class Form>
class FftReal : public testing::Test {
};
using Forms = testing::Types<R32f, R64f>;
TYPED_TEST_SUITE(FftReal, Forms);

/// Of orders that take an emulator minutes.
template <class Form>
class FftRealLong : public testing::Test {
};
TYPED_TEST_SUITE(FftRealLong, Forms);

template <class Form>
void accurate(int order, const std::vector<int>& flags = allFlags)
{
    using T = typename Form::T;
    SCOPED_TRACE("order " + std::to_string(order));
    const std::size_t length = std::size_t{1} << order;
    auto signal = randomSignal<T>(length, "real");
    std::vector<T> x(length);
    for (std::size_t k = 0; k < length; k++) {
        signal[k].imag(0);
        x[k] = signal[k].real();
    }
    auto exact = exactTransform(widened(signal), -1);
    // The inverse takes the spectrum as T holds it, and is compared with the exact inverse of just that.
    std::vector<std::complex<T>> bins(length / 2 + 1), back(length);
    for (std::size_t k = 0; k < bins.size(); k++)
        bins[k] = std::complex<T>(exact[k]);
    bins[0].imag(0);
    bins[length / 2].imag(0);
    std::vector<Exact> whole(length);
    for (std::size_t k = 0; k < length; k++)
        whole[k] = k <= length / 2 ? Exact(bins[k]) : std::conj(Exact(bins[length - k]));
    const auto exactBack = exactTransform(std::move(whole), 1);
    exact.resize(bins.size());
    for (const int flag : flags) {
        Planned<Form> planned(order, flag);
        for (const Layout layout : layouts) {
            const std::size_t packedLength = packed(layout, bins, length).size();
            const auto y = unpacked(layout, call(planned, false, layout, x, packedLength), length);
            EXPECT_ACCURATE(errorsOf(y, exact, scaleOf(flag, false, length)), order)
                << layout << ", flag " << flag;
            const auto z = call(planned, true, layout, packed(layout, bins, length), length);
            std::copy(z.begin(), z.end(), back.begin());
            EXPECT_ACCURATE(errorsOf(back, exactBack, scaleOf(flag, true, length)), order)
                << "inverse, " << layout << ", flag " << flag;
        }
    }
}

TYPED_TEST(FftReal, isAccurateInAllLayouts)
{
    for (int order = 0; order <= 13; order++)
        accurate<TypeParam>(order);
}
TYPED_TEST(FftRealLong, isAccurateInAllLayouts)
{
    for (int order = 14; order <= 20; order++)
        accurate<TypeParam>(order);
}

TYPED_TEST(FftReal, ExhaustiveLargeOrders)
{
    for (int order = 21; order <= 24; order++)
        accurate<TypeParam>(order, {zelFftScaleSqrt});
}

TYPED_TEST(FftReal, dependsOnNoAlignment)
{
    using T = typename TypeParam::T;
    for (int order = 0; order <= 9; order++) {
        const std::size_t length = std::size_t{1} << order;
        std::vector<T> x(length);
        Random random("misplaced");
        fill(random, x.data(), length);
        Planned<TypeParam> planned(order, zelFftScaleInv);
        for (const Layout layout : layouts) {
            const std::size_t packedLength = layout == ccs ? length + (order > 0 ? 2 : 1) : length;
            const auto y = call(planned, false, layout, x, packedLength);
            const auto z = call(planned, true, layout, y, length);
            for (std::size_t k = 0; k < length; k++)
                EXPECT_NEAR(z[k], x[k], 100 * std::numeric_limits<T>::epsilon())
                    << "there and back, order " << order;
            for (int offset = 0; offset < 16; offset++) {
                const Placement placement{offset % 2 ? Placement::atStart : Placement::atEnd, offset};
                EXPECT_EQ(call(planned, false, layout, x, packedLength, placement), y)
                    << order << ", " << offset;
                EXPECT_EQ(call(planned, true, layout, y, length, placement), z) << order << ", " << offset;
            }
        }
    }
}

} // namespace
