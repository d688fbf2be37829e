// Complex transforms: accuracy, in place and misplaced data, exact buffers, threads.
#include "transforms/fft/tables.h"
#include "transforms/fftForms.h"

#include <thread>

namespace {

template <class Form>
class FftComplex : public testing::Test {
};
using Forms = testing::Types<C32fc, C64fc, C32f, C64f>;
TYPED_TEST_SUITE(FftComplex, Forms);

/// Of orders that take an emulator minutes.
template <class Form>
class FftComplexLong : public testing::Test {
};
TYPED_TEST_SUITE(FftComplexLong, Forms);

template <class Form>
void accurate(int order, const std::vector<int>& flags = allFlags)
{
    SCOPED_TRACE("order " + std::to_string(order));
    const auto x = randomSignal<typename Form::T>(std::size_t{1} << order, "transform");
    for (const bool inverse : {false, true}) {
        const auto exact = exactTransform(widened(x), inverse ? 1 : -1);
        for (const int flag : flags) {
            Planned<Form> planned(order, flag);
            const auto y = run(planned, inverse, false, x);
            EXPECT_ACCURATE(errorsOf(y, exact, scaleOf(flag, inverse, x.size())), order)
                << "inverse " << inverse << ", flag " << flag;
            EXPECT_EQ(run(planned, inverse, true, x), y)
                << "in place, inverse " << inverse << ", flag " << flag;
        }
    }
}

TYPED_TEST(FftComplex, isAccurateAndTheSameInPlace)
{
    for (int order = 0; order <= 13; order++)
        accurate<TypeParam>(order);
}
TYPED_TEST(FftComplexLong, isAccurateAndTheSameInPlace)
{
    for (int order = 14; order <= 20; order++)
        accurate<TypeParam>(order);
}

// The bounds must see a weak table: sines by the recurrence of the circle, and such as are off by one in the last place.
TYPED_TEST(FftComplex, wouldShowWeakTwiddles)
{
    using T = typename TypeParam::T;
    constexpr int order = 12;
    constexpr std::size_t quarter = std::size_t{1} << (order - 2);
    std::vector<T> exactly(quarter + 1), byRecurrence(quarter + 1), offByOne(quarter + 1);
    const long double step = 2 * M_PIl / (1 << order);
    std::complex<T> turned = 1;
    for (std::size_t k = 0; k <= quarter; k++, turned *= std::complex<T>(std::polar(1.0L, step))) {
        exactly[k] = static_cast<T>(sinl(static_cast<long double>(k) * step));
        byRecurrence[k] = turned.imag();
        offByOne[k] = std::nextafter(exactly[k], k % 3 == 0 ? T{2} : T{-2});
    }
    const auto x = randomSignal<T>(std::size_t{1} << order, "twiddles");
    const auto exact = exactTransform(widened(x), -1);
    const auto meanError = [&](const std::vector<T>& sines) {
        Planned<TypeParam> planned(order);
        ownsFftTwiddles(const_cast<T*>(planned.plan->twiddles), order, OwnsSines<T>{sines.data(), order});
        return errorsOf(run(planned, false, false, x), exact, 1).mean;
    };
    const long double bound = boundsOf(order).mean;
    EXPECT_LE(meanError(exactly), bound);
    EXPECT_GT(meanError(byRecurrence), bound);
    EXPECT_GT(meanError(offByOne), bound);
}

// Orders whose reordering or levels are others; up to 6 GiB of memory.
TYPED_TEST(FftComplex, ExhaustiveLargeOrders)
{
    for (int order = 21; order <= 26; order++)
        accurate<TypeParam>(order, {zelFftScaleSqrt});
}

TYPED_TEST(FftComplex, dependsOnNoAlignment)
{
    for (const int order : {0, 1, 2, 3, 4, 5, 6, 7, 8, 11, 18}) {
        const auto x = randomSignal<typename TypeParam::T>(std::size_t{1} << order, "misplaced");
        Planned<TypeParam> planned(order);
        const auto y = run(planned, false, false, x);
        for (int offset = 0; offset < 16; offset += order < 18 ? 1 : 5) {
            const Placement placement{offset % 2 ? Placement::atStart : Placement::atEnd, offset};
            Planned<TypeParam> misplaced(order, zelFftScaleNone, placement);
            EXPECT_EQ(run(misplaced, false, false, x, placement), y) << order << ", offset " << offset;
            EXPECT_EQ(run(misplaced, false, true, x, placement), y) << order << ", offset " << offset;
        }
    }
}

// A value 1 at j gives the circle, exp(-2 pi i j k / N): one wrong index or twiddle shows at once, and where.
TYPED_TEST(FftComplex, turnsImpulsesIntoTonesAndBack)
{
    using T = typename TypeParam::T;
    for (int order = 0; order <= 10; order++) {
        const std::size_t length = std::size_t{1} << order;
        Planned<TypeParam> planned(order, zelFftScaleInv);
        for (std::size_t j = 0; j < length; j += order < 8 ? 1 : 37) {
            std::vector<std::complex<T>> impulse(length);
            impulse[j] = 1;
            const auto tone = run(planned, false, false, impulse);
            const auto back = run(planned, true, false, tone);
            for (std::size_t k = 0; k < length; k++) {
                const long double angle =
                    -2 * M_PIl * static_cast<long double>(j * k % length) / static_cast<long double>(length);
                const auto bound = 4 * std::numeric_limits<T>::epsilon();
                ASSERT_NEAR(static_cast<double>(std::abs(Exact(tone[k]) - std::polar(1.0L, angle))), 0, bound)
                    << "order " << order << ", impulse " << j << ", bin " << k;
                ASSERT_NEAR(std::abs(back[k] - impulse[k]), 0, bound)
                    << "order " << order << ", impulse " << j << ", value " << k;
            }
        }
    }
}

TYPED_TEST(FftComplex, spreadsInfinitiesAndNaN)
{
    using T = typename TypeParam::T;
    for (const int order : {3, 6, 12, 18}) {
        auto x = randomSignal<T>(std::size_t{1} << order, "not a number");
        x[x.size() / 3] = std::numeric_limits<T>::quiet_NaN();
        Planned<TypeParam> planned(order);
        for (const auto& value : run(planned, false, false, x))
            ASSERT_TRUE(std::isnan(value.real()) || std::isnan(value.imag()));
    }
}

// A plan is only read: threads share one, each with its own work buffer.
TYPED_TEST(FftComplex, sharesPlansAmongThreads)
{
    constexpr int order = 12;
    const auto x = randomSignal<typename TypeParam::T>(std::size_t{1} << order, "threads");
    Planned<TypeParam> planned(order);
    const auto expected = run(planned, false, false, x);
    std::vector<std::thread> threads;
    std::vector<int> wrong(4);
    for (int& count : wrong)
        threads.emplace_back([&] {
            Planned<TypeParam> own(order);
            own.plan = planned.plan;
            for (int round = 0; round < 20; round++)
                count += run(own, false, round % 2 == 0, x) != expected;
        });
    for (auto& thread : threads)
        thread.join();
    EXPECT_EQ(wrong, std::vector<int>(4));
}

} // namespace
