// The sweep catches planted faults: each function here does its work with one fault, told by its name.
#include "support/test.h"

namespace {

constexpr auto sum = [](auto a, auto b) { return a + b; };
constexpr auto triple = [](float x) { return 3 * x; };

ZelStatus correct(const float* pSrc, float* pDst, int len)
{
    for (int i = 0; i < len; i++) {
        float x;
        std::memcpy(&x, pSrc + i, sizeof x);
        x *= 3;
        std::memcpy(pDst + i, &x, sizeof x);
    }
    return zelStatusOk;
}

ZelStatus wrongTail(const float* pSrc, float* pDst, int len)
{
    correct(pSrc, pDst, len);
    if (len % 8 == 7)
        std::memset(pDst + len - 1, 0, sizeof *pDst);
    return zelStatusOk;
}

ZelStatus wrongAboveThreshold(const float* pSrc, float* pDst, int len)
{
    return correct(pSrc, pDst, len > 5000 ? len - 1 : len);
}

ZelStatus wrongOnOddAddress(const float* pSrc, float* pDst, int len)
{
    const bool odd = reinterpret_cast<std::uintptr_t>(pDst) % 4 == 3;
    return correct(pSrc, pDst, odd && len > 20 ? 20 : len);
}

ZelStatus wrongInPlace(const float* pSrc, float* pDst, int len)
{
    std::memset(pDst, 0, sizeof *pDst);
    return correct(pSrc, pDst, len);
}

ZelStatus overWrite(const float* pSrc, float* pDst, int len)
{
    correct(pSrc, pDst, len);
    if ((reinterpret_cast<std::uintptr_t>(pDst + len) & 15) != 0 && len > 3)
        reinterpret_cast<char*>(pDst + len)[0] = 0;
    return zelStatusOk;
}

ZelStatus writesToSource(const float* pSrc, float* pDst, int len)
{
    correct(pSrc, pDst, len);
    std::memset(const_cast<float*>(pSrc), 1, 1);
    return zelStatusOk;
}

ZelStatus overRead(const float* pSrc, float* pDst, int len)
{
    static_cast<void>(*reinterpret_cast<const volatile char*>(pSrc + len));
    return correct(pSrc, pDst, len);
}

ZelStatus underRead(const float* pSrc, float* pDst, int len)
{
    static_cast<void>(reinterpret_cast<const volatile char*>(pSrc)[-1]);
    return correct(pSrc, pDst, len);
}

ZelStatus leavesRoundingMode(const float* pSrc, float* pDst, int len)
{
    correct(pSrc, pDst, len);
    setMode(towardZeroMode);
    return zelStatusOk;
}

ZelStatus wrongStatus(const float* pSrc, float* pDst, int len)
{
    correct(pSrc, pDst, len);
    return len == 33 ? zelWarnDivByZero : zelStatusOk;
}

template <bool awayFromZero>
ZelStatus halved(const Zel16s* pSrc, Zel16s* pDst, int len)
{
    for (int i = 0; i < len; i++) {
        Zel16s x;
        std::memcpy(&x, pSrc + i, sizeof x);
        const auto result = static_cast<Zel16s>(
            awayFromZero ? (x + (x > 0)) / 2 + (x < 0 && x % 2 != 0 ? -1 : 0) : scaled<Zel16s>(x, 1));
        std::memcpy(pDst + i, &result, sizeof result);
    }
    return zelStatusOk;
}
constexpr auto half = [](Zel16s x) { return scaled<Zel16s>(x, 1); };

ZelStatus ignoresSource(const float* pSrc1, const float*, float* pDst, int len)
{
    for (int i = 0; i < len; i++) {
        float x;
        std::memcpy(&x, pSrc1 + i, sizeof x);
        x += x;
        std::memcpy(pDst + i, &x, sizeof x);
    }
    return zelStatusOk;
}

ZelStatus slightlyOff(const float* pSrc, float* pDst, int len)
{
    for (int i = 0; i < len; i++) {
        float x;
        std::memcpy(&x, pSrc + i, sizeof x);
        x = std::nextafter(std::sqrt(x), 2 * x);
        std::memcpy(pDst + i, &x, sizeof x);
    }
    return zelStatusOk;
}
constexpr auto root = [](float x) { return std::sqrt(static_cast<double>(x)); };

ZelStatus meanAndMost(const float* pSrc, int len, float* pMean, float* pMost, int hint)
{
    float most;
    std::memcpy(&most, pSrc, sizeof most);
    double mean = 0;
    for (int i = 0; i < len; i++) {
        float x;
        std::memcpy(&x, pSrc + i, sizeof x);
        mean += x;
        most = std::max(most, x);
    }
    const float result = static_cast<float>(mean / len) + (hint == 9 ? 1.0f : 0.0f);
    std::memcpy(pMean, &result, sizeof result);
    std::memcpy(pMost, &most, sizeof most);
    return zelStatusOk;
}
constexpr auto exactMeanAndMost = [](const float* pSrc, Within* pMean, Within* pMost, ZelSize len, int) {
    *pMean = *pMost = {pSrc[0], 0};
    long double sumOfAll = 0;
    for (ZelSize i = 0; i < len; i++) {
        sumOfAll += pSrc[i];
        pMost->value = std::max(pMost->value, static_cast<long double>(pSrc[i]));
    }
    const long double mean = sumOfAll / static_cast<long double>(len);
    *pMean = {mean, std::fabs(mean) * 0x1p-24L + 1e-6L};
};

std::string failure(ZelStatus (&function)(const float*, float*, int), const SweepOptions& options = {})
{
    return trySweep(triple, function, options).failure;
}

} // namespace

TEST(Sweep, passesWhatIsRight)
{
    EXPECT_EQ(failure(correct, {.around = {5000}, .modes = Modes::roundingAndFlush}), "");
    EXPECT_EQ(trySweep(half, halved<false>, {}).failure, "");
    EXPECT_EQ(trySweep<LengthIs::first>(exactMeanAndMost, meanAndMost, {.fills = tameFills}, 0).failure, "");
}

TEST(Sweep, catchesWrongElements)
{
    EXPECT_NE(failure(wrongTail), "");
    EXPECT_NE(failure(wrongOnOddAddress), "");
    EXPECT_NE(failure(wrongInPlace), "");
    EXPECT_EQ(failure(wrongInPlace, {.inPlace = false}), "");
    EXPECT_EQ(failure(wrongAboveThreshold), "");
    EXPECT_NE(failure(wrongAboveThreshold, {.around = {5000}}), "");
    EXPECT_NE(trySweep(half, halved<true>, {}).failure, "");
    EXPECT_NE(trySweep(sum, ignoresSource, {}).failure, "");
}

TEST(Sweep, catchesAccessOutside)
{
    EXPECT_NE(failure(overWrite), "");
    EXPECT_NE(failure(writesToSource), "");
    EXPECT_DEATH(failure(overRead), "function: length 1");
    EXPECT_DEATH(failure(underRead), "function: length 1");
}

TEST(Sweep, catchesModesAndStatuses)
{
    EXPECT_NE(failure(leavesRoundingMode), "");
    EXPECT_NE(failure(wrongStatus), "");
}

TEST(Sweep, measuresErrors)
{
    const Values values{.low = 0.1, .high = 1e9, .only = true};
    const SweepReport strict = trySweep(root, slightlyOff, {.ulps = 1.0, .values = values});
    EXPECT_NE(strict.failure, "");
    const SweepReport wide = trySweep(root, slightlyOff, {.ulps = 1.5, .values = values});
    EXPECT_EQ(wide.failure, "");
    EXPECT_GT(wide.worstUlps, 1.2L);
    EXPECT_NE(trySweep<LengthIs::first>(exactMeanAndMost, meanAndMost, {.fills = tameFills}, 9).failure, "");
}

TEST(Sweep, tellsWhatFailed)
{
    const std::string text = failure(wrongTail);
    for (const char* const part : {"function", "length 7", "seed ", "mod 16", "element 6", "expected", "0x"})
        EXPECT_NE(text.find(part), std::string::npos) << part << " in " << text;
}
