// Logic and shifts.
#include "support/test.h"

namespace {

// Narrow elements are promoted to int: the result is cut to the element's own bits.
constexpr auto conjunction = []<class T>(T a, T b) { return static_cast<T>(a & b); };
constexpr auto disjunction = []<class T>(T a, T b) { return static_cast<T>(a | b); };
constexpr auto difference = []<class T>(T a, T b) { return static_cast<T>(a ^ b); };
constexpr auto complement = []<class T>(T a) { return static_cast<T>(~a); };

constexpr auto timesPower = []<class T>(T x, int count) {
    return static_cast<T>(count < 64 ? Wide{x} << count : 0);
};
constexpr auto floorOfQuotient = []<class T>(T x, int count) {
    return static_cast<T>(Wide{x} >> std::min(count, 64));
};

/// Sweeps of which the first has all lengths and alignments.
SweepOptions once(bool thoroughly)
{
    return thoroughly ? SweepOptions{.repeats = 1} : SweepOptions{.block = 0, .lengths = {83}, .repeats = 1};
}

} // namespace

TEST(Logic, ofVectors)
{
    sweep(conjunction,
          EXPORTS(zelsAnd_8u, zelsAnd_8u_I, zelsAnd_16u, zelsAnd_16u_I, zelsAnd_32u, zelsAnd_32u_I));
    sweep(disjunction, EXPORTS(zelsOr_8u, zelsOr_8u_I, zelsOr_16u, zelsOr_16u_I, zelsOr_32u, zelsOr_32u_I));
    sweep(difference,
          EXPORTS(zelsXor_8u, zelsXor_8u_I, zelsXor_16u, zelsXor_16u_I, zelsXor_32u, zelsXor_32u_I));
    sweep(complement,
          EXPORTS(zelsNot_8u, zelsNot_8u_I, zelsNot_16u, zelsNot_16u_I, zelsNot_32u, zelsNot_32u_I));
}

TEST(Logic, withConstants)
{
    // The last one is 0 for the two narrow types only.
    for (const Zel32u val : {0u, 0x96C3A55Au, 0xFFFFFFFFu, 0x00010000u}) {
        const SweepOptions options = once(val == 0 || val == 0x96C3A55A);
        sweep(conjunction,
              EXPORTS(zelsAndC_8u, zelsAndC_8u_I, zelsAndC_16u, zelsAndC_16u_I, zelsAndC_32u, zelsAndC_32u_I),
              options, val);
        sweep(disjunction,
              EXPORTS(zelsOrC_8u, zelsOrC_8u_I, zelsOrC_16u, zelsOrC_16u_I, zelsOrC_32u, zelsOrC_32u_I),
              options, val);
        sweep(difference,
              EXPORTS(zelsXorC_8u, zelsXorC_8u_I, zelsXorC_16u, zelsXorC_16u_I, zelsXorC_32u, zelsXorC_32u_I),
              options, val);
    }
}

TEST(Logic, shiftsByAnyCount)
{
    std::vector<int> counts{64, 65, 256, 65536, INT32_MAX};
    for (int count = 0; count <= 34; count++)
        counts.push_back(count);
    for (const int count : counts) {
        const SweepOptions options = once(count == 0 || count == 3 || count == 16);
        sweep(timesPower,
              EXPORTS(zelsLShiftC_8u, zelsLShiftC_8u_I, zelsLShiftC_16u, zelsLShiftC_16u_I, zelsLShiftC_16s,
                      zelsLShiftC_16s_I, zelsLShiftC_32s, zelsLShiftC_32s_I),
              options, count);
        sweep(floorOfQuotient,
              EXPORTS(zelsRShiftC_8u, zelsRShiftC_8u_I, zelsRShiftC_16u, zelsRShiftC_16u_I, zelsRShiftC_16s,
                      zelsRShiftC_16s_I, zelsRShiftC_32s, zelsRShiftC_32s_I),
              options, count);
    }
}

TEST(Logic, refusesBadArguments)
{
    badArguments(EXPORTS(zelsAnd_8u, zelsAnd_8u_I, zelsAnd_16u, zelsAnd_16u_I, zelsAnd_32u, zelsAnd_32u_I,
                         zelsOr_8u, zelsOr_8u_I, zelsOr_16u, zelsOr_16u_I, zelsOr_32u, zelsOr_32u_I,
                         zelsXor_8u, zelsXor_8u_I, zelsXor_16u, zelsXor_16u_I, zelsXor_32u, zelsXor_32u_I,
                         zelsNot_8u, zelsNot_8u_I, zelsNot_16u, zelsNot_16u_I, zelsNot_32u, zelsNot_32u_I),
                 pointersFirst);
    // Constants that make the work trivial spare no check.
    for (const int val : {0, 5}) {
        badArguments(EXPORTS(zelsAndC_8u, zelsAndC_16u, zelsAndC_32u, zelsOrC_8u, zelsOrC_16u, zelsOrC_32u,
                             zelsXorC_8u, zelsXorC_16u, zelsXorC_32u),
                     pointersFirst, array(), value(val), array(), length(9));
        badArguments(EXPORTS(zelsAndC_8u_I, zelsAndC_16u_I, zelsAndC_32u_I, zelsOrC_8u_I, zelsOrC_16u_I,
                             zelsOrC_32u_I, zelsXorC_8u_I, zelsXorC_16u_I, zelsXorC_32u_I),
                     pointersFirst, value(val), array(), length(9));
    }
    for (const int count : {0, 3, 32}) {
        const selector counts(count, {-1, -8, INT32_MIN}, zelErrShift);
        badArguments(EXPORTS(zelsLShiftC_8u, zelsLShiftC_16u, zelsLShiftC_16s, zelsLShiftC_32s,
                             zelsRShiftC_8u, zelsRShiftC_16u, zelsRShiftC_16s, zelsRShiftC_32s),
                     pointersFirst, array(), counts, array(), length(9));
        badArguments(EXPORTS(zelsLShiftC_8u_I, zelsLShiftC_16u_I, zelsLShiftC_16s_I, zelsLShiftC_32s_I,
                             zelsRShiftC_8u_I, zelsRShiftC_16u_I, zelsRShiftC_16s_I, zelsRShiftC_32s_I),
                     pointersFirst, counts, array(), length(9));
    }
}

// Fills and copies of more bytes than 31 bits count, where Zero and most copies would wrap.
TEST(LogicLong, shortCutsDoNotWrap)
{
    constexpr ZelSize elements = (ZelSize{1} << 29) + 1234;
    constexpr ZelSize boundary = ZelSize{1} << 29;
    sweepLong(conjunction, EXPORTS(zelsAndC_32u), elements, {boundary}, 0u);
    sweepLong(floorOfQuotient, EXPORTS(zelsRShiftC_32s), elements, {boundary}, 0);
}
