// FFTW as a peer, in two builds: Debian's, of wider vectors, and one of 128 bits from the build tree (target fftw_sse2).
// Present where BENCH_HAS_FFTW and BENCH_HAS_FFTWF are set.
#pragma once

#if BENCH_HAS_FFTW && BENCH_HAS_FFTWF

#include "zels/types.h"

#include <cstdio>
#include <dlfcn.h>
#include <fftw3.h>
#include <string>
#include <type_traits>

namespace bench {

/// What is called of FFTW in one precision, from one build.
template <class T>
struct Fftw {
    static constexpr bool single = std::is_same_v<T, Zel32f>;
    using Plan = std::conditional_t<single, fftwf_plan, fftw_plan>;
    using Complex = std::conditional_t<single, fftwf_complex, fftw_complex>;

    Plan (*complex)(int, Complex*, Complex*, int, unsigned) = nullptr;
    Plan (*forward)(int, T*, Complex*, unsigned) = nullptr; ///< real to complex
    Plan (*inverse)(int, Complex*, T*, unsigned) = nullptr; ///< complex to real
    void (*execute)(Plan) = nullptr;
    void (*destroy)(Plan) = nullptr;
    void (*forget)() = nullptr;

    static const Fftw& wide();

    /// All null where it is not built. Its symbols stay its own.
    static const Fftw& narrow()
    {
        static const Fftw build =
            load(single ? BENCH_FFTW_SSE2 "libfftw3f.so" : BENCH_FFTW_SSE2 "libfftw3.so",
                 single ? "fftwf_" : "fftw_");
        return build;
    }

  private:
    static Fftw load(const char* path, const std::string& prefix)
    {
        Fftw f;
        void* const library = dlopen(path, RTLD_NOW | RTLD_LOCAL | RTLD_DEEPBIND);
        if (!library) {
            std::fprintf(stderr, "%s is not built (target fftw_sse2): its column is left out\n", path);
            return f;
        }
        const auto find = [&](auto& function, const char* name) {
            function = reinterpret_cast<std::remove_reference_t<decltype(function)>>(
                dlsym(library, (prefix + name).c_str()));
        };
        find(f.complex, "plan_dft_1d");
        find(f.forward, "plan_dft_r2c_1d");
        find(f.inverse, "plan_dft_c2r_1d");
        find(f.execute, "execute");
        find(f.destroy, "destroy_plan");
        find(f.forget, "forget_wisdom");
        return f;
    }
};

template <>
inline const Fftw<Zel32f>& Fftw<Zel32f>::wide()
{
    static const Fftw build{fftwf_plan_dft_1d, fftwf_plan_dft_r2c_1d, fftwf_plan_dft_c2r_1d,
                            fftwf_execute,     fftwf_destroy_plan,    fftwf_forget_wisdom};
    return build;
}

template <>
inline const Fftw<Zel64f>& Fftw<Zel64f>::wide()
{
    static const Fftw build{fftw_plan_dft_1d, fftw_plan_dft_r2c_1d, fftw_plan_dft_c2r_1d,
                            fftw_execute,     fftw_destroy_plan,    fftw_forget_wisdom};
    return build;
}

} // namespace bench

#endif
