// The highest orders of each form, in place. No reference can follow that far, so three values in an array of zeros stand
// for a signal: each bin is the sum of three points of the circle.
#include "transforms/fftForms.h"

namespace {

template <class Form>
class FftHighest : public testing::Test {
};
using Forms = testing::Types<C32fc, C64fc, C32f, C64f, R32f, R64f>;
TYPED_TEST_SUITE(FftHighest, Forms);

template <class Form>
constexpr bool isReal = std::is_same_v<Form, R32f> || std::is_same_v<Form, R64f>;

// The forward transform, real ones to CCS; `data` holds the parts of the length, or two arrays of them.
template <class Form, class T>
ZelStatus forward(const Planned<Form>& planned, T* data, std::size_t length, Zel8u* work)
{
    const auto* const plan = planned.plan;
    if constexpr (std::is_same_v<Form, C32fc>)
        return zelsFFTFwd_CToC_32fc_I(reinterpret_cast<Zel32fc*>(data), plan, work);
    else if constexpr (std::is_same_v<Form, C64fc>)
        return zelsFFTFwd_CToC_64fc_I(reinterpret_cast<Zel64fc*>(data), plan, work);
    else if constexpr (std::is_same_v<Form, C32f>)
        return zelsFFTFwd_CToC_32f_I(data, data + length, plan, work);
    else if constexpr (std::is_same_v<Form, C64f>)
        return zelsFFTFwd_CToC_64f_I(data, data + length, plan, work);
    else if constexpr (std::is_same_v<Form, R32f>)
        return zelsFFTFwd_RToCCS_32f_I(data, plan, work);
    else
        return zelsFFTFwd_RToCCS_64f_I(data, plan, work);
}

/// Bins of a transform in place, all of a short one.
template <class Form>
void checkImpulses(int order)
{
    using T = typename Form::T;
    constexpr bool real = isReal<Form>;
    const std::size_t length = std::size_t{1} << order;
    const std::size_t imag = Form::split ? length : 1; // from a real part to the imaginary one
    const std::size_t step = Form::split || real ? 1 : 2;
    std::vector<T> data(real ? length + 2 : 2 * length);
    Random random("highest orders");
    const auto place = [&] { return random.bits() % length; };
    struct {
        std::size_t at;
        Exact value;
    } impulses[3];
    for (auto& impulse : impulses) {
        impulse = {place(), {T(random.uniform(-1, 1)), real ? T{0} : T(random.uniform(-1, 1))}};
        data[impulse.at * step] += static_cast<T>(impulse.value.real());
        if (!real)
            data[impulse.at * step + imag] += static_cast<T>(impulse.value.imag());
    }
    Planned<Form> planned(order);
    ASSERT_EQ(forward(planned, data.data(), length, planned.buffer()), zelStatusOk);
    const std::size_t bins = real ? length / 2 + 1 : length;
    for (std::size_t i = 0; i < std::min(bins, std::size_t{300000}); i++) {
        const std::size_t k = bins < 300000 ? i : place() % bins;
        Exact expected = 0;
        for (const auto& impulse : impulses) {
            const std::size_t turn = impulse.at * k % length;
            expected += impulse.value * std::polar(1.0L, -2 * M_PIl * static_cast<long double>(turn) /
                                                             static_cast<long double>(length));
        }
        const std::size_t bin = k * (real ? 2 : step);
        ASSERT_LE(std::abs(Exact(data[bin], data[bin + imag]) - expected),
                  30 * std::numeric_limits<T>::epsilon())
            << "order " << order << ", bin " << k;
    }
}

} // namespace

TYPED_TEST(FftHighest, addsImpulses)
{
    for (int order = 2; order <= 13; order++)
        checkImpulses<TypeParam>(order);
}

// Up to 6 GiB of memory.
TYPED_TEST(FftHighest, ExhaustiveOrders)
{
    constexpr bool real = isReal<TypeParam>;
    constexpr int highest = (sizeof(typename TypeParam::T) == 4 ? 28 : 27) + real;
    for (int order = highest - (real ? 4 : 1); order <= highest; order++)
        checkImpulses<TypeParam>(order);
}
