// Single-rate FIR filters over floats: both engines against the definition, cuts of a stream, aliasings, threads.
#include "filters/firSrForms.h"

#include <thread>

namespace {

template <class Form>
class FirSr : public testing::Test {
};
using Forms = testing::Types<F32f, F64f, F32fc, F64fc, Mixed>;
TYPED_TEST_SUITE(FirSr, Forms);

// The greatest error of a result, as a part of what is allowed. Direct: half an epsilon for each operation on a term. FFT:
// an error of the transforms, spread over the block.
template <class Form, class Data = typename Form::Data>
long double worstError(const std::vector<Data>& result, const std::vector<Output>& exact, bool fft, int n)
{
    const long double epsilon = std::numeric_limits<Part<Data>>::epsilon();
    const long double perTerm = Complex<typename Form::Taps> ? epsilon : epsilon / 2;
    long double worst = 0, most = 0;
    for (const Output& output : exact)
        most = std::max(most, output.magnitudes);
    for (std::size_t m = 0; m < exact.size(); m++) {
        const long double bound = fft ? 8 * epsilon * most : (perTerm * n + epsilon) * exact[m].magnitudes;
        worst = std::max(worst, std::abs(exactly(result[m]) - exact[m].value) / bound);
    }
    return worst;
}

template <class Form>
void expectDefinition(int n, const std::vector<int>& lengths, ZelAlgType engine, Placement placement = {})
{
    using Data = typename Form::Data;
    const auto taps = randomSamples<typename Form::Taps>(static_cast<std::size_t>(n), "taps");
    Filter<Form> filter(taps, engine, placement);
    for (const int length : lengths) {
        if (length < 1)
            continue;
        SCOPED_TRACE(testing::Message()
                     << Form::name << ", " << n << " taps, " << length << " samples, engine " << engine);
        const auto x = randomSamples<Data>(static_cast<std::size_t>(length), "samples");
        const auto before = randomSamples<Data>(filter.history(), "history");
        auto after = before;
        const auto y = filter.run(x, after);
        const bool fft = engine == zelAlgFFT || (engine == zelAlgAuto && n >= Thresholds<Form>::taps &&
                                                 length >= Thresholds<Form>::samples);
        ASSERT_LE(worstError<Form>(y, exactOutputs(before, x, taps), fft, n), 1);
        ASSERT_TRUE(sameBits(after, nextHistory(before, x)));
    }
}

TYPED_TEST(FirSr, sumsByDefinitionForEveryCountOfTaps)
{
    for (int n = 1; n <= 70; n++) {
        // Around the ends of the vectors, of the kernel's blocks and of the history, at odd addresses too.
        expectDefinition<TypeParam>(n, {1, 2, 3, 5, n - 2, n - 1, n, n + 1, n + 4, n + 18, 61}, zelAlgDirect);
        expectDefinition<TypeParam>(n, {4, 33, n + 31, n + 37}, zelAlgDirect, {Placement::atStart, 3});
        expectDefinition<TypeParam>(n, {1, n, 3 * n + 8, 7 * n + 12, 8 * n + 40}, zelAlgFFT);
    }
    for (const int n : {100, 127, 128, 129, 300, 1000}) {
        expectDefinition<TypeParam>(n, {17, n - 1, n + 150}, zelAlgDirect);
        expectDefinition<TypeParam>(n, {17, n + 150, 3 * n}, zelAlgFFT, {Placement::atStart, 1});
    }
}

TYPED_TEST(FirSr, walksOverWholeTransforms)
{
    // Lengths around multiples of what a transform gives, and of those that it reads straight from the source.
    for (const int n : {2, 3, 19, 64}) {
        const int most = std::is_same_v<TypeParam, Mixed> ? 2 * n : n;
        int length = 4;
        while (length / 2 <= most)
            length *= 2;
        const int gain = std::is_same_v<TypeParam, Mixed> ? length / 2 - (n - 1) : length - (n - 1);
        for (const int blocks : {1, 2, 3})
            expectDefinition<TypeParam>(
                n, {blocks * gain - 1, blocks * gain, blocks * gain + 1, blocks * gain + n - 1}, zelAlgFFT);
    }
}

TYPED_TEST(FirSr, choosesItsEngine)
{
    using Data = typename TypeParam::Data;
    const int taps = Thresholds<TypeParam>::taps, samples = Thresholds<TypeParam>::samples;
    const auto outputs = [](int n, int length, ZelAlgType engine) {
        Filter<TypeParam> filter(randomSamples<typename TypeParam::Taps>(static_cast<std::size_t>(n), "taps"),
                                 engine);
        std::vector<Data> history(filter.history());
        return filter.run(randomSamples<Data>(static_cast<std::size_t>(length), "samples"), history);
    };
    EXPECT_TRUE(sameBits(outputs(taps, samples, zelAlgAuto), outputs(taps, samples, zelAlgFFT)));
    EXPECT_FALSE(sameBits(outputs(taps, samples, zelAlgAuto), outputs(taps, samples, zelAlgDirect)));
    EXPECT_TRUE(sameBits(outputs(taps, samples - 1, zelAlgAuto), outputs(taps, samples - 1, zelAlgDirect)));
    EXPECT_TRUE(sameBits(outputs(taps - 1, 2000, zelAlgAuto), outputs(taps - 1, 2000, zelAlgDirect)));
}

TYPED_TEST(FirSr, anyCutsGiveOneStream)
{
    using Data = typename TypeParam::Data;
    Random random("cuts");
    for (const int n : {1, 2, 5, 8, 9, 31, 32, 40, 65}) {
        const auto taps = randomSamples<typename TypeParam::Taps>(static_cast<std::size_t>(n), "taps");
        const auto x = randomSamples<Data>(1001, "samples");
        for (const ZelAlgType engine : {zelAlgDirect, zelAlgFFT, zelAlgAuto}) {
            Filter<TypeParam> filter(taps, engine);
            std::vector<Data> none(filter.history()), history = none;
            const auto whole = filter.run(x, none);
            std::vector<Data> pieces;
            // A single sample first, a thousand after it; then pieces of all sizes.
            for (std::size_t at = 0, take = 1; at < x.size();) {
                take = std::min(take, x.size() - at);
                const auto from = x.begin() + static_cast<std::ptrdiff_t>(at);
                const auto y = filter.run({from, from + static_cast<std::ptrdiff_t>(take)}, history);
                pieces.insert(pieces.end(), y.begin(), y.end());
                at += take;
                take = n % 2 == 0 ? 1000 : 1 + static_cast<std::size_t>(random.below(3 * n + 2));
            }
            SCOPED_TRACE(testing::Message() << n << " taps, engine " << engine);
            EXPECT_TRUE(sameBits(history, none));
            if (engine == zelAlgDirect) {
                EXPECT_TRUE(sameBits(pieces, whole));
            }
            const auto exact = exactOutputs(std::vector<Data>(filter.history()), x, taps);
            EXPECT_LE(worstError<TypeParam>(pieces, exact, engine != zelAlgDirect, n), 1);
        }
    }
}

// All arrays that may be one array, in one piece of memory. The result must be that of arrays of their own.
TYPED_TEST(FirSr, takesSharedArrays)
{
    using Data = typename TypeParam::Data;
    constexpr int chunk = 32768 / sizeof(Data);
    enum : unsigned { inPlace = 1, sameDelay = 2, intoHistory = 4, noHistory = 8, noDelivery = 16, all = 32 };
    for (const int n : {1, 2, 33, 200})
        for (const int length : {n / 2 + 1, 250, 2 * chunk + 70}) {
            const auto taps = randomSamples<typename TypeParam::Taps>(static_cast<std::size_t>(n), "taps");
            const auto x = randomSamples<Data>(static_cast<std::size_t>(length), "samples");
            for (const ZelAlgType engine : {zelAlgDirect, zelAlgFFT}) {
                Filter<TypeParam> filter(taps, engine);
                const std::size_t h = filter.history(), room = std::max(x.size(), h);
                const auto given = randomSamples<Data>(h, "history");
                Guarded<Zel8u> buffer(static_cast<std::size_t>(filter.bufSize));
                for (unsigned how = 0; how < all; how++) {
                    SCOPED_TRACE(testing::Message() << TypeParam::name << ", " << n << " taps, " << length
                                                    << " samples, engine " << engine << ", sharing " << how);
                    if ((how & inPlace) != 0 && (how & intoHistory) != 0)
                        continue; // one array that is samples and history at once
                    if ((how & intoHistory) != 0 && ((how & noHistory) != 0 || (how & sameDelay) != 0))
                        continue; // two results in one array
                    if ((how & sameDelay) != 0 && (how & (noHistory | noDelivery)) != 0)
                        continue;
                    auto expectedHistory = (how & noHistory) != 0 ? std::vector<Data>(h) : given;
                    const auto expected = filter.run(x, expectedHistory);
                    Guarded<Data> a(x.size()), b(room), c(room), d(h);
                    std::memcpy(static_cast<void*>(a.data()), x.data(), x.size() * sizeof(Data));
                    if (h != 0)
                        std::memcpy(static_cast<void*>(c.data()), given.data(), h * sizeof(Data));
                    Data* const dst = (how & inPlace) != 0       ? a.data()
                                      : (how & intoHistory) != 0 ? c.data()
                                                                 : b.data();
                    Data* const delivered = (how & noDelivery) != 0  ? nullptr
                                            : (how & sameDelay) != 0 ? c.data()
                                                                     : d.data();
                    ASSERT_EQ(TypeParam::run(a.data(), dst, length, filter.record(),
                                             (how & noHistory) != 0 ? nullptr : c.data(), delivered,
                                             buffer.data()),
                              zelStatusOk);
                    ASSERT_TRUE(a.intact() && b.intact() && c.intact() && d.intact() && buffer.intact());
                    if (delivered && h != 0) {
                        ASSERT_EQ(std::memcmp(delivered, expectedHistory.data(), h * sizeof(Data)), 0);
                    }
                    if (engine == zelAlgDirect) {
                        ASSERT_EQ(std::memcmp(dst, expected.data(), x.size() * sizeof(Data)), 0);
                        continue;
                    }
                    // Chunks begin blocks of their own: equal but for the transforms' rounding.
                    const long double bound = 32.0L * n * std::numeric_limits<Part<Data>>::epsilon();
                    for (std::size_t m = 0; m < x.size(); m++)
                        ASSERT_LE(std::abs(exactly(dst[m]) - exactly(expected[m])), bound);
                }
            }
        }
}

TYPED_TEST(FirSr, threadsShareARecord)
{
    using Data = typename TypeParam::Data;
    Filter<TypeParam> filter(randomSamples<typename TypeParam::Taps>(80, "taps"));
    const auto x = randomSamples<Data>(3000, "samples");
    std::vector<Data> none(filter.history()), history = none;
    const auto expected = filter.run(x, none);
    std::vector<std::vector<Data>> results(3, std::vector<Data>(x.size()));
    {
        std::vector<std::jthread> threads;
        for (auto& result : results)
            threads.emplace_back([&] {
                std::vector<Zel8u> buffer(static_cast<std::size_t>(filter.bufSize));
                for (int round = 0; round < 20; round++)
                    TypeParam::run(x.data(), result.data(), 3000, filter.record(), nullptr, nullptr,
                                   buffer.data());
            });
    }
    for (const auto& result : results)
        EXPECT_TRUE(sameBits(result, expected));
}

// One tap: there is no history, whatever the pointers are.
TYPED_TEST(FirSr, oneTapTouchesNoDelayLine)
{
    using Data = typename TypeParam::Data;
    Filter<TypeParam> filter(randomSamples<typename TypeParam::Taps>(1, "taps"));
    auto x = randomSamples<Data>(9, "samples"), y = x;
    std::vector<Zel8u> buffer(static_cast<std::size_t>(filter.bufSize));
    auto* const nowhere = reinterpret_cast<Data*>(std::uintptr_t{64});
    EXPECT_EQ(TypeParam::run(x.data(), y.data(), 9, filter.record(), nowhere, nowhere, buffer.data()),
              zelStatusOk);
    EXPECT_EQ(TypeParam::run(x.data(), x.data(), 9, filter.record(), nowhere, nowhere, buffer.data()),
              zelStatusOk);
    EXPECT_TRUE(sameBits(x, y));
}

} // namespace
