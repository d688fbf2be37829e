// The long forms of float arithmetic on lengths whose bytes leave 32 bits.
#include "support/test.h"

namespace {

constexpr auto sum = [](auto a, auto b) { return a + b; };
constexpr auto difference = [](auto a, auto b) { return b - a; };
constexpr auto reverse = [](auto x, auto val) { return val - x; };
constexpr auto less = [](auto x, auto val) { return x - val; };
constexpr auto times = [](auto a, auto b) { return elementProduct(a, b); };
constexpr auto magnitude = [](auto x) { return std::fabs(x); };
constexpr auto same = [](auto x, auto) { return x; };
constexpr auto zero = [](auto x, auto) { return decltype(x){}; };

/// A call over the boundary of the first chunk.
template <class T>
constexpr ZelSize pastChunk = longChunk<T> + 1234;

template <class T, class Model, class... F, class... Scalars>
void inChunks(const Model& model, const Exports<F...>& exports, Scalars... scalars)
{
    sweepLong(model, exports, pastChunk<T>, {longChunk<T>}, scalars...);
}

/// More elements than 31 bits count: for the forms that work in one piece.
constexpr ZelSize past31Bits = (ZelSize{1} << 31) + 1234;

constexpr Zel32fc c32{0.5f, 2};
constexpr Zel64fc c64{0.5, 2};

} // namespace

TEST(FloatLong, worksInChunks)
{
    inChunks<Zel32f>(sum, EXPORTS(zelsAdd_32f_L, zelsAdd_32f_I_L));
    inChunks<Zel64f>(sum, EXPORTS(zelsAddC_64f_I_L), 2.5);
    inChunks<Zel64fc>(times, EXPORTS(zelsMul_64fc_I_L));
}

TEST(FloatLong, worksInOnePiece)
{
    sweepLong(times, EXPORTS(zelsMulC_32f_L), past31Bits, {ZelSize{1} << 31}, 2.5f);
}

TEST(FloatLong, ExhaustiveOverForms)
{
    inChunks<Zel32f>(difference, EXPORTS(zelsSub_32f_L, zelsSub_32f_I_L));
    inChunks<Zel64f>(difference, EXPORTS(zelsSub_64f_L, zelsSub_64f_I_L));
    inChunks<Zel32fc>(difference, EXPORTS(zelsSub_32fc_L, zelsSub_32fc_I_L));
    inChunks<Zel64fc>(difference, EXPORTS(zelsSub_64fc_L, zelsSub_64fc_I_L));
    inChunks<Zel64f>(sum, EXPORTS(zelsAdd_64f_L, zelsAdd_64f_I_L));
    inChunks<Zel32fc>(sum, EXPORTS(zelsAdd_32fc_L, zelsAdd_32fc_I_L));
    inChunks<Zel64fc>(sum, EXPORTS(zelsAdd_64fc_L, zelsAdd_64fc_I_L));
    inChunks<Zel32f>(times, EXPORTS(zelsMul_32f_L, zelsMul_32f_I_L));
    inChunks<Zel64f>(times, EXPORTS(zelsMul_64f_L, zelsMul_64f_I_L));
    inChunks<Zel32fc>(times, EXPORTS(zelsMul_32fc_L, zelsMul_32fc_I_L));
    inChunks<Zel64fc>(times, EXPORTS(zelsMul_64fc_L));
    inChunks<Zel32f>(sum, EXPORTS(zelsAddC_32f_L, zelsAddC_32f_I_L), 2.5f);
    inChunks<Zel64f>(sum, EXPORTS(zelsAddC_64f_L), 2.5);
    inChunks<Zel32fc>(sum, EXPORTS(zelsAddC_32fc_L, zelsAddC_32fc_I_L), c32);
    inChunks<Zel64fc>(sum, EXPORTS(zelsAddC_64fc_L, zelsAddC_64fc_I_L), c64);
    inChunks<Zel32f>(less, EXPORTS(zelsSubC_32f_L, zelsSubC_32f_I_L), 2.5f);
    inChunks<Zel64f>(less, EXPORTS(zelsSubC_64f_L, zelsSubC_64f_I_L), 2.5);
    inChunks<Zel32fc>(less, EXPORTS(zelsSubC_32fc_L, zelsSubC_32fc_I_L), c32);
    inChunks<Zel64fc>(less, EXPORTS(zelsSubC_64fc_L, zelsSubC_64fc_I_L), c64);
    inChunks<Zel32f>(reverse, EXPORTS(zelsSubCRev_32f_L, zelsSubCRev_32f_I_L), 2.5f);
    inChunks<Zel64f>(reverse, EXPORTS(zelsSubCRev_64f_L, zelsSubCRev_64f_I_L), 2.5);
    inChunks<Zel32fc>(reverse, EXPORTS(zelsSubCRev_32fc_L, zelsSubCRev_32fc_I_L), c32);
    inChunks<Zel64fc>(reverse, EXPORTS(zelsSubCRev_64fc_L, zelsSubCRev_64fc_I_L), c64);
    inChunks<Zel32f>(times, EXPORTS(zelsMulC_32f_I_L), -1.0f);
    inChunks<Zel64f>(times, EXPORTS(zelsMulC_64f_L, zelsMulC_64f_I_L), -1.0);
    inChunks<Zel32f>(magnitude, EXPORTS(zelsAbs_32f_L, zelsAbs_32f_I_L));
    inChunks<Zel64f>(magnitude, EXPORTS(zelsAbs_64f_L, zelsAbs_64f_I_L));
    // The copies and zeros of neutral constants wrap in no long form.
    inChunks<Zel64f>(same, EXPORTS(zelsAddC_64f_L, zelsSubC_64f_L), 0.0);
    inChunks<Zel64f>(zero, EXPORTS(zelsMulC_64f_L, zelsMulC_64f_I_L), 0.0);
}

TEST(FloatLong, ExhaustiveInOnePiece)
{
    sweepLong(same, EXPORTS(zelsMulC_32f_L), past31Bits, {ZelSize{1} << 31}, 1.0f);
    sweepLong(zero, EXPORTS(zelsMulC_32f_L), past31Bits, {ZelSize{1} << 31}, 0.0f);
    sweepLong(times, EXPORTS(zelsMulC_32fc_I_L), past31Bits, {ZelSize{1} << 31}, Zel32fc{0, 1});
    sweepLong(times, EXPORTS(zelsMulC_32fc_L), past31Bits, {ZelSize{1} << 31}, Zel32fc{0, 1});
    sweepLong(times, EXPORTS(zelsMulC_64fc_I_L, zelsMulC_64fc_L), pastChunk<Zel64fc>, {longChunk<Zel64fc>},
              Zel64fc{0, 1});
}
