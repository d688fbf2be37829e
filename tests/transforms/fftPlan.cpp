// Plans: sizes, the order of checks, what a failed Init leaves, which plans which functions take.
#include "transforms/fft/sine.h"
#include "transforms/fftForms.h"

namespace {

struct Sizes {
    int plan, init, work;
    bool operator==(const Sizes&) const = default;
};
std::ostream& operator<<(std::ostream& out, const Sizes& s)
{
    return out << s.plan << ", " << s.init << ", " << s.work;
}

template <class Form>
Sizes sizesOf(int order, int flag = zelFftScaleNone)
{
    Sizes s{-1, -1, -1};
    EXPECT_EQ(Form::size(order, flag, zelHintNone, &s.plan, &s.init, &s.work), zelStatusOk);
    return s;
}

TEST(FftPlan, hasTheSizesPromised)
{
    const struct {
        int order;
        Sizes c32, r32, c64, r64;
    } rows[] = {
        {0, {208, 0, 0}, {208, 0, 0}, {208, 0, 0}, {208, 0, 0}},
        {5, {208, 0, 0}, {384, 0, 0}, {208, 0, 0}, {208, 0, 0}},
        {6, {960, 0, 576}, {512, 0, 0}, {1472, 0, 1088}, {768, 0, 0}},
        {7, {1536, 0, 1088}, {1472, 0, 576}, {2560, 0, 2112}, {2496, 0, 1088}},
        {10, {9600, 0, 8256}, {9088, 0, 4160}, {17792, 0, 16448}, {17280, 0, 8256}},
        {11, {18816, 2176, 16448}, {17792, 2176, 8256}, {35200, 4224, 32832}, {34176, 4224, 16448}},
        {17,
         {1180032, 131200, 1048640},
         {1114496, 131200, 524352},
         {1212800, 262272, 32832},
         {2163072, 262272, 1048640}},
        {18,
         {1442176, 262272, 131136},
         {2228608, 262272, 1048640},
         {2165120, 524416, 65600},
         {3309952, 524416, 32832}},
        {20,
         {4232576, 1048704, 131136},
         {6558592, 1048704, 262208},
         {8459648, 2097280, 131136},
         {4263296, 2097280, 131136}},
        {28,
         {1078235520, 268435584, 131136},
         {540430720, 268435584, 262208},
         {},
         {1082705280, 536871040, 131136}},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(sizesOf<C32fc>(row.order), row.c32) << row.order;
        EXPECT_EQ(sizesOf<C32f>(row.order, zelFftScaleFwd), row.c32) << row.order;
        EXPECT_EQ(sizesOf<R32f>(row.order), row.r32) << row.order;
        if (row.c64.plan != 0) {
            EXPECT_EQ(sizesOf<C64fc>(row.order), row.c64) << row.order;
            EXPECT_EQ(sizesOf<C64f>(row.order, zelFftScaleInv), row.c64) << row.order;
        }
        EXPECT_EQ(sizesOf<R64f>(row.order), row.r64) << row.order;
    }
}

// The formulas behind the rows: index table and twiddles of the whole, or the levels of columns and one leaf; two tables of
// recombination; and the sines.
template <class T>
Sizes formula(int order, bool real)
{
    constexpr bool single = sizeof(T) == 4;
    constexpr ZelSize e = 2 * sizeof(T), one = 1;
    constexpr int decomposed = single ? 18 : 17;
    constexpr auto rounded = [](ZelSize x) { return x & -64; };
    const auto words = [&](int n) { return rounded(((one << n) & -4) + 67); };
    const auto sines = [&](int n) { return single ? words(n) : rounded(((2 * one << n) & -8) + 71); };
    struct Parts {
        ZelSize plan, work;
    };
    const auto base = [&](int n) {
        return Parts{rounded((e << n) + (single ? 71 : 79)), rounded((e << n) + 63)};
    };
    const auto levels = [&](auto self, int n) -> Parts {
        const bool few = n < (single ? 20 : 19);
        const int columns = few ? (single ? 4 : 6) : 8, tile = few ? 10 : single ? 14 : 13;
        const Parts inner = n - columns < decomposed ? base(n - columns) : self(self, n - columns);
        return {inner.plan + (e << (n - 1)), std::max(inner.work, e << tile)};
    };
    const auto parts = [&](int n) -> Parts {
        if (n <= 5)
            return {0, 0};
        Parts p = n < decomposed ? base(n) : levels(levels, n);
        if (n <= decomposed)
            return {p.plan + words(n), p.work};
        return {p.plan + (4 * one << (n - (single ? 12 : 10))) + (single ? 4160 : 1088),
                std::max<ZelSize>(p.work, single ? 65536 : 32768)};
    };
    if (order <= (real && single ? 4 : 5))
        return {208, 0, 0};
    const int twoLevels = single ? 20 : 18;
    const ZelSize recomb =
        order <= twoLevels ? (e << (order - 2)) + 63 : (e << (order - (single ? 12 : 11))) + 8255;
    const Parts p = parts(order - real);
    return {static_cast<int>(p.plan + (real ? 2 * rounded(recomb) : 0) + 256),
            static_cast<int>(order > 10 ? sines(order) + 64 : 0),
            static_cast<int>(p.work != 0 ? p.work + 64 : 0)};
}

template <class Form>
class FftPlans : public testing::Test {
  public:
    static constexpr int highest = (sizeof(typename Form::T) == 4 ? 28 : 27) +
                                   (std::is_same_v<Form, R32f> || std::is_same_v<Form, R64f>);
};
using Forms = testing::Types<C32fc, C64fc, C32f, C64f, R32f, R64f>;
TYPED_TEST_SUITE(FftPlans, Forms);

TYPED_TEST(FftPlans, haveTheSizesOfTheFormulas)
{
    constexpr bool real = std::is_same_v<TypeParam, R32f> || std::is_same_v<TypeParam, R64f>;
    for (int order = 0; order <= this->highest; order++)
        EXPECT_EQ(sizesOf<TypeParam>(order), formula<typename TypeParam::T>(order, real)) << order;
}

TYPED_TEST(FftPlans, testsSizeQueriesInOrder)
{
    constexpr auto size = TypeParam::size;
    int a = -1, b = -1, c = -1;
    EXPECT_EQ(size(31, 3, zelHintNone, nullptr, &b, &c), zelErrFftOrder);
    EXPECT_EQ(size(-1, 3, zelHintNone, &a, &b, &c), zelErrFftOrder);
    EXPECT_EQ(size(30, 3, zelHintNone, nullptr, &b, &c), zelErrNullPtr);
    EXPECT_EQ(size(5, 1, zelHintNone, &a, nullptr, &c), zelErrNullPtr);
    EXPECT_EQ(size(5, 1, zelHintNone, &a, &b, nullptr), zelErrNullPtr);
    EXPECT_EQ(size(30, 3, zelHintNone, &a, &b, &c), zelErrFftFlag);
    for (const int flag : {-1, 0, 3, 5, 6, 7, 9, 16, 33})
        EXPECT_EQ(size(5, flag, zelHintNone, &a, &b, &c), zelErrFftFlag) << flag;
    for (int order = this->highest + 1; order <= 30; order++)
        EXPECT_EQ(size(order, 1, zelHintNone, &a, &b, &c), zelErrFftOrder) << order;
    EXPECT_EQ(a & b & c, -1) << "written on failure";
    EXPECT_EQ(size(this->highest, 1, zelHintNone, &a, &b, &c), zelStatusOk);
}

TYPED_TEST(FftPlans, testsInitInOrder)
{
    constexpr auto init = TypeParam::init;
    using Plan = typename TypeParam::Plan;
    constexpr auto size = [](int order) { return static_cast<std::size_t>(sizesOf<TypeParam>(order).plan); };
    Guarded<Zel8u> memory(size(11));
    auto* const untouched = reinterpret_cast<Plan*>(&memory);
    Plan* plan = untouched;
    const auto tag = [&] {
        return *reinterpret_cast<Zel32s*>((reinterpret_cast<std::uintptr_t>(memory.data()) + 63) / 64 * 64);
    };
    EXPECT_EQ(init(nullptr, -1, 3, 0, nullptr, nullptr), zelErrNullPtr);
    EXPECT_EQ(init(&plan, -1, 3, 0, nullptr, nullptr), zelErrFftOrder);
    EXPECT_EQ(init(&plan, this->highest + 1, 3, 0, memory.data(), nullptr), zelErrFftOrder);
    EXPECT_EQ(init(&plan, 11, 3, 0, nullptr, nullptr), zelErrNullPtr);
    EXPECT_EQ(init(&plan, 11, 8, 0, memory.data(), nullptr), zelErrNullPtr);
    EXPECT_NE(tag(), 0);
    EXPECT_EQ(init(&plan, 11, 3, 0, memory.data(), nullptr), zelErrFftFlag);
    EXPECT_EQ(tag(), 0) << "a plan of a bad flag must be one that no function takes";
    EXPECT_EQ(plan, untouched);
    EXPECT_EQ(init(&plan, 10, 8, 0, memory.data(), nullptr), zelStatusOk);
    EXPECT_NE(plan, untouched);
    EXPECT_EQ(reinterpret_cast<std::uintptr_t>(plan) % 64, 0u);
}

// The tests of a run call: the plan, its tag, the data, the buffer where work is needed.
template <class Own, class Other, class Function, class... P>
void testsRuns(Function function, int lastWithoutWork, P*... data)
{
    Planned<Own> small(lastWithoutWork), large(lastWithoutWork + 1);
    Planned<Other> other(5);
    constexpr auto null = [](auto* p) { return static_cast<decltype(p)>(nullptr); };
    auto* const foreign = reinterpret_cast<typename Own::Plan*>(other.plan);
    EXPECT_EQ(function(null(data)..., nullptr, nullptr), zelErrNullPtr);
    EXPECT_EQ(function(null(data)..., foreign, nullptr), zelErrContextMatch);
    EXPECT_EQ(function(null(data)..., small.plan, nullptr), zelErrNullPtr);
    for (std::size_t bad = 0; bad < sizeof...(P); bad++) {
        std::tuple<P*...> arguments{data...};
        [&]<std::size_t... k>(std::index_sequence<k...>)
        {
            ((k == bad ? void(std::get<k>(arguments) = nullptr) : void()), ...);
        }
        (std::index_sequence_for<P...>{});
        const auto call = [&](auto... p) { return function(p..., large.plan, large.buffer()); };
        EXPECT_EQ(std::apply(call, arguments), zelErrNullPtr) << "pointer " << bad;
    }
    EXPECT_EQ(function(data..., large.plan, nullptr), zelErrNullPtr);
    EXPECT_EQ(function(data..., small.plan, nullptr), zelStatusOk);
}

TEST(FftPlan, isTestedByEveryRun)
{
    alignas(64) Zel64fc memory[4][256]{};
    const auto at = [&]<class E>(int k, E) { return reinterpret_cast<E*>(memory[k]); };
    testsRuns<C32fc, C32f>(zelsFFTFwd_CToC_32fc, 5, at(0, Zel32fc()), at(1, Zel32fc()));
    testsRuns<C32fc, R32f>(zelsFFTInv_CToC_32fc, 5, at(0, Zel32fc()), at(1, Zel32fc()));
    testsRuns<C32fc, C64fc>(zelsFFTFwd_CToC_32fc_I, 5, at(0, Zel32fc()));
    testsRuns<C32fc, C32f>(zelsFFTInv_CToC_32fc_I, 5, at(0, Zel32fc()));
    testsRuns<C64fc, C64f>(zelsFFTFwd_CToC_64fc, 5, at(0, Zel64fc()), at(1, Zel64fc()));
    testsRuns<C64fc, C32fc>(zelsFFTInv_CToC_64fc, 5, at(0, Zel64fc()), at(1, Zel64fc()));
    testsRuns<C64fc, R64f>(zelsFFTFwd_CToC_64fc_I, 5, at(0, Zel64fc()));
    testsRuns<C64fc, C64f>(zelsFFTInv_CToC_64fc_I, 5, at(0, Zel64fc()));
    const auto four = [&]<class Own, class Other, class E>(auto out, auto in, E, Own*, Other*) {
        testsRuns<Own, Other>(out, 5, at(0, E()), at(1, E()), at(2, E()), at(3, E()));
        testsRuns<Own, Other>(in, 5, at(0, E()), at(1, E()));
    };
    C32f* c32f = nullptr;
    C64f* c64f = nullptr;
    four(zelsFFTFwd_CToC_32f, zelsFFTFwd_CToC_32f_I, Zel32f(), c32f, static_cast<C32fc*>(nullptr));
    four(zelsFFTInv_CToC_32f, zelsFFTInv_CToC_32f_I, Zel32f(), c32f, static_cast<R32f*>(nullptr));
    four(zelsFFTFwd_CToC_64f, zelsFFTFwd_CToC_64f_I, Zel64f(), c64f, static_cast<C64fc*>(nullptr));
    four(zelsFFTInv_CToC_64f, zelsFFTInv_CToC_64f_I, Zel64f(), c64f, static_cast<C32f*>(nullptr));
    // Real transforms do without work memory up to order 6: their half has order 5.
    const auto real = [&]<class Own, class Other, class E>(Own*, Other*, E, auto... functions) {
        (testsRuns<Own, Other>(functions, 6, at(0, E()), at(1, E())), ...);
    };
    const auto realInPlace = [&]<class Own, class Other, class E>(Own*, Other*, E, auto... functions) {
        (testsRuns<Own, Other>(functions, 6, at(0, E())), ...);
    };
    R32f* r32f = nullptr;
    R64f* r64f = nullptr;
    real(r32f, c32f, Zel32f(), zelsFFTFwd_RToCCS_32f, zelsFFTFwd_RToPack_32f, zelsFFTFwd_RToPerm_32f,
         zelsFFTInv_CCSToR_32f, zelsFFTInv_PackToR_32f, zelsFFTInv_PermToR_32f);
    real(r64f, c64f, Zel64f(), zelsFFTFwd_RToCCS_64f, zelsFFTFwd_RToPack_64f, zelsFFTFwd_RToPerm_64f,
         zelsFFTInv_CCSToR_64f, zelsFFTInv_PackToR_64f, zelsFFTInv_PermToR_64f);
    realInPlace(r32f, r64f, Zel32f(), zelsFFTFwd_RToCCS_32f_I, zelsFFTFwd_RToPack_32f_I,
                zelsFFTFwd_RToPerm_32f_I, zelsFFTInv_CCSToR_32f_I, zelsFFTInv_PackToR_32f_I,
                zelsFFTInv_PermToR_32f_I);
    realInPlace(r64f, r32f, Zel64f(), zelsFFTFwd_RToCCS_64f_I, zelsFFTFwd_RToPack_64f_I,
                zelsFFTFwd_RToPerm_64f_I, zelsFFTInv_CCSToR_64f_I, zelsFFTInv_PackToR_64f_I,
                zelsFFTInv_PermToR_64f_I);
}

// The series that the stored tables and all constants come from, against the C library: each value rounded to
// nearest.
TEST(FftPlan, hasExactSines)
{
    // Of small angles only, where the C library's argument is as exact as its result.
    for (int k = 1; k <= 128; k++) {
        const long double angle = 2 * M_PIl * k / 1024;
        EXPECT_EQ(static_cast<Zel32f>(ownsExactSine(k, 10)), static_cast<Zel32f>(sinl(angle))) << k;
        EXPECT_EQ(static_cast<Zel64f>(ownsExactSine(k, 10)), static_cast<Zel64f>(sinl(angle))) << k;
        EXPECT_EQ(static_cast<Zel32f>(ownsExactSine(256 - k, 10)), static_cast<Zel32f>(cosl(angle))) << k;
        EXPECT_EQ(static_cast<Zel64f>(ownsExactSine(256 - k, 10)), static_cast<Zel64f>(cosl(angle))) << k;
    }
    for (int k = -1024; k <= 1024; k++) {
        EXPECT_EQ(ownsExactSine(k, 10), -ownsExactSine(-k, 10)) << k;
        EXPECT_EQ(ownsExactCosine(k, 10), ownsExactSine(k + 256, 10)) << k;
    }
    EXPECT_EQ(ownsExactSine(0, 10), 0);
    EXPECT_EQ(ownsExactSine(256, 10), 1);
    EXPECT_EQ(ownsExactCosine(512, 10), -1);
}

} // namespace
