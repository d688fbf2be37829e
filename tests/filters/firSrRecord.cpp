// Single-rate FIR filters: sizes, bad arguments, and the 16-bit forms.
#include "filters/firSrForms.h"

namespace {

struct Sizes {
    ZelSize spec, buffer;
};

// The sizes as they are documented by formula: from the transform's own, the taps' layouts, header and scratch.
template <class Query>
Sizes expectedSizes(ZelSize n, ZelDataType type, bool mixed, Query query)
{
    const auto r = [](ZelSize v) { return (v + 63) / 64 * 64; };
    const ZelSize elements = mixed ? 2 * n : n;
    int k = 1;
    while ((ZelSize{1} << k) <= elements)
        k++;
    int plan = 0, init = 0, work = 0;
    EXPECT_EQ(query(k + 1, zelFftScaleInv, zelHintNone, &plan, &init, &work), zelStatusOk);
    const ZelSize e = type == zelDt32f ? 4 : type == zelDt64fc ? 16 : 8, data = mixed ? 8 : e;
    const ZelSize taps = type == zelDt32f   ? std::max({r(4 * n), r(16 * n), 16 * ((n + 6) & ~3)})
                         : type == zelDt64f ? std::max({r(8 * n), r(16 * n), 8 * ((2 * n + 4) & ~3)})
                                            : r(32 * n);
    const ZelSize transform = e << (k + 1);
    return {taps + 191 + plan + std::max(init, work) + transform,
            r(2 * data * n) + r(2 * data * (n - 1)) + 32768 + transform + work};
}

TEST(FirSrSizes, areThoseOfTheFormulas)
{
    std::vector<int> counts = {127, 128, 129, 255, 256, 1000, 4096, 65535, 1000000};
    for (int n = 1; n <= 70; n++)
        counts.push_back(n);
    for (const int n : counts) {
        const auto check = [n](ZelDataType type, bool mixed, auto query) {
            int spec = -1, buffer = -1;
            EXPECT_EQ(mixed ? zelsFIRSRGetSize32f_32fc(n, &spec, &buffer)
                            : zelsFIRSRGetSize(n, type, &spec, &buffer),
                      zelStatusOk);
            const Sizes expected = expectedSizes(n, type, mixed, query);
            EXPECT_EQ(spec, expected.spec) << n << " taps, type " << type;
            EXPECT_EQ(buffer, expected.buffer) << n << " taps, type " << type;
        };
        check(zelDt32f, false, zelsFFTGetSize_R_32f);
        check(zelDt32f, true, zelsFFTGetSize_R_32f);
        check(zelDt64f, false, zelsFFTGetSize_R_64f);
        check(zelDt32fc, false, zelsFFTGetSize_C_32fc);
        check(zelDt64fc, false, zelsFFTGetSize_C_64fc);
    }
}

TEST(FirSrSizes, refuse)
{
    badArguments(EXPORTS(zelsFIRSRGetSize), lengthFirst, ranked(0, length(5)),
                 ranked(1, selector(zelDt32f, {0, 7, 12, 15, 18, 21, -1}, zelErrDataType)),
                 ranked(2, array(4)), ranked(2, array(4)));
    badArguments(EXPORTS(zelsFIRSRGetSize32f_32fc), lengthFirst, length(5), array(4), array(4));
    for (const ZelDataType type : {zelDt32f, zelDt32fc, zelDt64f, zelDt64fc})
        for (const int n : {1 << 27, INT32_MAX}) {
            int spec = -1, buffer = -1;
            EXPECT_EQ(zelsFIRSRGetSize(n, type, &spec, &buffer), zelErrSizeOverflow);
            EXPECT_EQ(zelsFIRSRGetSize32f_32fc(n, &spec, &buffer), zelErrSizeOverflow);
            EXPECT_TRUE(spec == -1 && buffer == -1);
        }
}

template <class Form>
class FirSrRefuses : public testing::Test {
};
using AllForms = testing::Types<F32f, F64f, F32fc, F64fc, Mixed, F16s, F16sc>;
TYPED_TEST_SUITE(FirSrRefuses, AllForms);

TYPED_TEST(FirSrRefuses, badArguments)
{
    auto init = TypeParam::init;
    auto run = TypeParam::run;
    badArguments(EXPORTS(*init), lengthFirst, array(512), length(5),
                 selector(zelAlgDirect, {-1, 3, 256, 512}, zelErrAlgType), array(8192));
    Filter<TypeParam> filter(randomSamples<typename TypeParam::Taps>(5, "taps"));
    std::vector<Zel8u> buffer(static_cast<std::size_t>(filter.bufSize));
    badArguments(EXPORTS(*run), pointersFirst, array(64), array(64), length(3), given(filter.record()),
                 optionalArray(64), optionalArray(64), given(buffer.data()));
}

// 16-bit forms. Taps and samples are such that the floats' sums are exact: what is tested is rounding and saturation.

template <class Data, class Taps>
std::vector<Data> expected16(const std::vector<Data>& history, const std::vector<Data>& x,
                             const std::vector<Taps>& taps)
{
    const auto sums = exactOutputs(history, x, taps);
    std::vector<Data> y(sums.size());
    const auto part = [](long double value) {
        return saturated<Zel16s>(static_cast<Wide>(toNearest(value)));
    };
    for (std::size_t m = 0; m < y.size(); m++) {
        if constexpr (Complex<Data>)
            y[m] = {part(sums[m].value.real()), part(sums[m].value.imag())};
        else
            y[m] = part(sums[m].value.real());
    }
    return y;
}

template <class Form>
class FirSr16 : public testing::Test {
};
using Forms16 = testing::Types<F16s, F16sc>;
TYPED_TEST_SUITE(FirSr16, Forms16);

TYPED_TEST(FirSr16, roundsTiesToEvenAndSaturates)
{
    using Data = typename TypeParam::Data;
    using Taps = typename TypeParam::Taps;
    constexpr int block = 16384 / sizeof(typename TypeParam::Record);
    Random random("16 bits");
    for (const int n : {1, 2, 3, 8, 32, 33, 70, 300})
        for (const int length : {1, 5, n - 1, n, n + 3, block - 1, block, block + 1, 2 * block + 9}) {
            if (length < 1)
                continue;
            // Multiples of 1/4 up to 2: sums of 300 terms stay within 24 bits where the samples have 10.
            std::vector<Taps> taps(static_cast<std::size_t>(n));
            for (auto& tap : taps) {
                const auto quarter = [&] { return static_cast<float>(random.below(17) - 8) / 4; };
                if constexpr (Complex<Taps>)
                    tap = {quarter(), quarter()};
                else
                    tap = quarter();
            }
            const auto limit = [&](std::vector<Data> v) {
                for (auto* p = reinterpret_cast<Zel16s*>(v.data());
                     p != reinterpret_cast<Zel16s*>(v.data() + v.size()); p++)
                    *p = static_cast<Zel16s>(n > 8 ? *p / 64 : *p);
                return v;
            };
            const auto x = limit(randomSamples<Data>(static_cast<std::size_t>(length), "samples"));
            const auto before = limit(randomSamples<Data>(static_cast<std::size_t>(n - 1), "history"));
            // The selector is not looked at: the direct engine runs on any record.
            for (const ZelAlgType engine : {zelAlgDirect, zelAlgFFT}) {
                SCOPED_TRACE(testing::Message() << n << " taps, " << length << " samples");
                Filter<TypeParam> filter(taps, engine, {Placement::atStart, engine == zelAlgFFT ? 1 : 0});
                auto after = before;
                const auto expected = expected16(before, x, taps);
                const FloatMode mode(engine == zelAlgFFT ? upMode : nearestMode);
                EXPECT_TRUE(sameBits(filter.run(x, after), expected));
                EXPECT_TRUE(sameBits(after, nextHistory(before, x)));
                // In place, the history in one array.
                auto both = x, delay = before;
                std::vector<Zel8u> buffer(static_cast<std::size_t>(filter.bufSize));
                EXPECT_EQ(TypeParam::run(both.data(), both.data(), length, filter.record(), delay.data(),
                                         delay.data(), buffer.data()),
                          zelStatusOk);
                EXPECT_TRUE(sameBits(both, expected) && sameBits(delay, after));
            }
        }
}

TEST(FirSr16, knownValues)
{
    const std::vector<Zel32f> taps = {0.5f, 1.0f};
    Filter<F16s> filter(taps);
    std::vector<Zel16s> history = {32767};
    EXPECT_EQ(filter.run({1, 1, 3, -7, -32768, -32768, 5}, history),
              (std::vector<Zel16s>{32767, 2, 2, 0, -16391, -32768, -32766}));
    EXPECT_EQ(history[0], 5);
    std::vector<Zel8u> buffer(static_cast<std::size_t>(filter.bufSize));
    std::vector<Zel16s> x = {1, 3, 5};
    EXPECT_EQ(zelsFIRSR_16s(x.data(), x.data(), 3, filter.record(), nullptr, nullptr, buffer.data()),
              zelStatusOk);
    EXPECT_EQ(x, (std::vector<Zel16s>{0, 2, 6})); // 0.5, 2.5, 5.5
}

} // namespace
