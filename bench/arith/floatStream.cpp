// The kernels that stream past the caches, on 16 MiB and more an array: beside the plain loop, and beside
// themselves in pieces that are too short to stream.
#include "support/plain.h"

namespace {

template <class T>
T* from(T* p, int at)
{
    return p + at;
}
template <class T>
T from(T constant, int)
{
    return constant;
}

/// Calls of `function` on pieces that lie below every threshold of streaming.
template <auto function, class... A>
auto inPieces(ZelStatus (*)(A...))
{
    return [](auto... all) {
        constexpr int piece = 8192;
        const auto last = std::get<sizeof...(all) - 1>(std::tuple{all...});
        for (int at = 0; at < last; at += piece) {
            auto arguments = std::tuple{from(all, at)...};
            std::get<sizeof...(all) - 1>(arguments) = last - at < piece ? last - at : piece;
            std::apply(function, arguments);
        }
    };
}

template <auto function>
auto unstreamed()
{
    return bench::peer("itself, not streaming", inPieces<function>(function));
}

using namespace bench;

const Family family("Streaming kernels", [](Run& run) {
    constexpr ZelSize mebi = 1 << 20;
    const auto arrays = [&](ZelSize elementBytes) {
        run.lengths({16 * mebi / elementBytes, 64 * mebi / elementBytes});
    };
    arrays(4);
    run.map("zelsAdd_32f", zelsAdd_32f, loop(plain<sum, Zel32f, Zel32f, Zel32f>), unstreamed<zelsAdd_32f>());
    run.map("zelsMulC_32f", zelsMulC_32f, loop(plainWith<product, Zel32f, Zel32f, Zel32f>),
            unstreamed<zelsMulC_32f>());
    run.map("zelsAdd_16s32f", zelsAdd_16s32f,
            loop(plain<[](Zel16s a, Zel16s b) { return static_cast<Zel32f>(a) + static_cast<Zel32f>(b); },
                       Zel32f, Zel16s, Zel16s>),
            unstreamed<zelsAdd_16s32f>());
    arrays(8);
    run.map("zelsAdd_64f", zelsAdd_64f, loop(plain<sum, Zel64f, Zel64f, Zel64f>), unstreamed<zelsAdd_64f>());
    run.map("zelsMul_64f", zelsMul_64f, loop(plain<product, Zel64f, Zel64f, Zel64f>),
            unstreamed<zelsMul_64f>());
    run.map("zelsMulC_32fc", zelsMulC_32fc, loop(plainWith<product, Zel32fc, Zel32fc, Zel32fc>),
            unstreamed<zelsMulC_32fc>());
    run.mapInPlace("zelsMulC_32fc_I", zelsMulC_32fc_I, loop(plainWithInPlace<product, Zel32fc, Zel32fc>),
                   unstreamed<zelsMulC_32fc_I>());
    arrays(16);
    run.map("zelsMul_64fc", zelsMul_64fc, loop(plain<product, Zel64fc, Zel64fc, Zel64fc>),
            unstreamed<zelsMul_64fc>());
    run.mapInPlace("zelsMul_64fc_I", zelsMul_64fc_I, loop(plainInPlace<product, Zel64fc, Zel64fc>),
                   unstreamed<zelsMul_64fc_I>());
    run.map("zelsAddC_64fc", zelsAddC_64fc, loop(plainWith<sum, Zel64fc, Zel64fc, Zel64fc>),
            unstreamed<zelsAddC_64fc>());
});

} // namespace
