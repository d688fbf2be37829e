// Tones. A tone obeys x[n + s] = 2 cos(sw) x[n] - x[n - s] for every stride s. It is run in eight lanes at once, eight
// samples of a real tone or four pairs of a complex one, and in differences,
//
//     D[n + s] = D[n] - 4 sin^2(sw/2) x[n],  x[n + s] = x[n] + D[n + s]  with D[n] = x[n] - x[n - s],
//
// so that a step loses no more than the rounding of its own sums: with the factor 2 cos(sw) a low tone would drift by
// epsilon / w a step. Where cos(sw) is negative the same holds for samples of alternating sign, whose angle is less by
// half a circle.
#include "frame/entry.h"
#include "frame/scale.h"
#include "math/vecMath.h"
#include "zels.h"

#include <cmath>

namespace {

constexpr Zel64f twoPi = 6.283185307179586;
constexpr Zel64f perTwoPi = 0.15915494309189535;

/// A restart of the fast path after so many samples.
constexpr ZelSize fastBlock = 1024;

/// Lanes of a round: parts of samples in the order of memory.
constexpr int lanes = 8;

/// Where a call begins.
struct Phase {
    Zel64f w, p;
};

/// cos and sin of w n + p as the parts of a vector, and those of w. n is a multiple of a block, 21 bits of an integer,
/// so that both parts of the product are exact; what the angle loses in rounding, up to 2^-20, turns the result by that
/// much.
OwnsF2 unitAt(Phase phase, ZelSize n, OwnsF2& step)
{
    const auto count = static_cast<Zel64f>(n);
    const Zel64f high = std::bit_cast<Zel64f>(std::bit_cast<Zel64u>(phase.w) & ~((Zel64u{1} << 21) - 1));
    const Zel64f most = high * count;
    const Zel64f rest = (phase.w - high) * count + phase.p;
    const Zel64f angle = most + rest;
    const Zel64f turn = most >= rest ? rest - (angle - most) : most - (angle - rest);
    OwnsF2 sin, cos;
    ownsSinCos(OwnsF2{angle, phase.w}, sin, cos);
    step = _mm_unpackhi_pd(cos, sin);
    return ownsComplexMul(_mm_unpacklo_pd(cos, sin), OwnsF2{1 - 0.5 * turn * turn, turn});
}

/// Two complex numbers.
struct Pairs {
    OwnsF2 re, im;

    Pairs operator*(Pairs b) const { return {re * b.re - im * b.im, re * b.im + im * b.re}; }
};

/// The recurrence in its eight lanes.
struct Tone {
    OwnsF2 x[lanes / 2];
    OwnsF2 d[lanes / 2];
    OwnsF2 factor; ///< -4 sin^2(sw/2), or -4 cos^2(sw/2) where signs alternate
    OwnsF2 magn;
    OwnsF2 flip; ///< the sign bit where signs alternate

    template <bool isComplex>
    void start(Phase phase, ZelSize n, Zel64f magnitude)
    {
        OwnsF2 step, sin, cos;
        const OwnsF2 first = unitAt(phase, n, step);
        const OwnsF2 second = ownsComplexMul(first, step);
        // Not by squaring: an error of the stride would be one of the frequency.
        ownsSinCos(OwnsF2{2 * phase.w, 4 * phase.w}, sin, cos);
        const Pairs step2{ownsReals(cos), ownsReals(sin)};
        const Pairs step4{ownsImags(cos), ownsImags(sin)};

        // Unit vectors of samples n and n + 1, n + 2 and n + 3, and so on.
        Pairs e[lanes / 2];
        e[0] = {_mm_unpacklo_pd(first, second), _mm_unpackhi_pd(first, second)};
        e[1] = e[0] * step2;
        e[2] = e[0] * step4;
        e[3] = e[1] * step4;

        // x[n] -+ x[n - s] is 2j sin(sw/2) or 2 cos(sw/2) times the unit vector half a stride before.
        const Pairs half = isComplex ? step2 : step4;
        const Zel64f c = half.re[0];
        const Zel64f s = half.im[0];
        const bool alternate = c * c < s * s;
        const Pairs between = alternate ? Pairs{2.0 * half.re * half.re, -2.0 * half.re * half.im}
                                        : Pairs{2.0 * half.im * half.im, 2.0 * half.re * half.im};
        factor = ownsSplat(-4 * (alternate ? c * c : s * s));
        flip = ownsSplat(alternate ? -0.0 : 0.0);
        magn = ownsSplat(magnitude);
        ownsEach<lanes / 2>([&](int k) {
            if constexpr (!isComplex) {
                x[k] = e[k].re;
                d[k] = (e[k] * between).re;
            } else if (k % 2 == 0) {
                const Pairs difference = e[k / 2] * between;
                x[k] = _mm_unpacklo_pd(e[k / 2].re, e[k / 2].im);
                x[k + 1] = _mm_unpackhi_pd(e[k / 2].re, e[k / 2].im);
                d[k] = _mm_unpacklo_pd(difference.re, difference.im);
                d[k + 1] = _mm_unpackhi_pd(difference.re, difference.im);
            }
        });
    }

    /// Eight parts of the tone, and one step.
    [[gnu::always_inline]] void next(OwnsF2 (&out)[lanes / 2])
    {
        ownsEach<lanes / 2>([&](int k) {
            // x + d first, which does not wait for the product.
            const OwnsF2 change = factor * x[k];
            out[k] = x[k] * magn;
            x[k] = (x[k] + d[k]) + change;
            d[k] += change;
        });
        magn = _mm_xor_pd(magn, flip);
    }
};

inline void put(Zel64f* pDst, const OwnsF2 (&v)[lanes / 2])
{
    ownsEach<lanes / 2>([&](int k) { ownsStore(pDst + ZelSize{2} * k, v[k]); });
}

inline void put(Zel32f* pDst, const OwnsF2 (&v)[lanes / 2])
{
    ownsStore(pDst, ownsNarrowed(v[0], v[1]));
    ownsStore(pDst + 4, ownsNarrowed(v[2], v[3]));
}

/// To nearest, ties away from zero.
inline void put(Zel16s* pDst, const OwnsF2 (&v)[lanes / 2])
{
    const auto rounded = [](OwnsF2 x) {
        const OwnsF2 half = _mm_or_pd(_mm_and_pd(x, ownsAll(-0.0)), ownsAll(0.5));
        return _mm_cvttpd_epi32(x + half);
    };
    const auto pair = [&](OwnsF2 a, OwnsF2 b) { return _mm_unpacklo_epi64(rounded(a), rounded(b)); };
    ownsStore(pDst, ownsAs<Zel16s>(_mm_packs_epi32(pair(v[0], v[1]), pair(v[2], v[3]))));
}

template <bool isComplex, class Part>
void writeTone(Part* pDst, ZelSize samples, Phase phase, ZelSize n, Zel64f magn)
{
    Tone tone;
    tone.start<isComplex>(phase, n, magn);
    OwnsF2 out[lanes / 2];
    const ZelSize parts = isComplex ? 2 * samples : samples;
    ZelSize i = 0;
    for (; i <= parts - lanes; i += lanes) {
        tone.next(out);
        put(pDst + i, out);
    }
    if (i < parts) {
        Part last[lanes];
        tone.next(out);
        put(last, out);
        __builtin_memcpy(pDst + i, last, static_cast<std::size_t>(parts - i) * sizeof(Part));
    }
}

/// The order of the checks, that of the destination behind those of the scalars, is meant so. Comparisons are
/// such that a NaN is refused.
template <class T, class M, class F>
inline ZelStatus runTone(T* pDst, int len, M magn, F rFreq, F* pPhase, ZelHintAlgorithm hint)
{
    constexpr bool isComplex = ownsIsComplex<T>;
    if (!pPhase)
        return zelErrNullPtr;
    if (!(magn > 0))
        return zelErrToneMagnitude;
    if (!(rFreq >= 0 && rFreq < (isComplex ? F(1.0) : F(0.5))))
        return zelErrToneFreq;
    const Zel64f p = ownsGet(pPhase);
    if (!(p >= 0 && p < twoPi))
        return zelErrTonePhase;
    if (const ZelStatus status = ownsCheck(len, pDst); status != zelStatusOk)
        return status;

    const Phase phase{twoPi * static_cast<Zel64f>(rFreq), p};
    const Zel64f q = len * phase.w + p;
    const auto next = static_cast<F>(q - std::trunc(q * perTwoPi) * twoPi);
    ownsPut(pPhase, next >= twoPi || next < 0 ? F(0) : next);

    auto* const pParts = reinterpret_cast<OwnsPart<T>*>(pDst);
    const ZelSize block = hint == zelHintFast ? fastBlock : len;
    for (ZelSize n = 0; n < len; n += block) {
        const ZelSize count = len - n < block ? len - n : block;
        writeTone<isComplex>(pParts + (isComplex ? 2 * n : n), count, phase, n, static_cast<Zel64f>(magn));
    }
    return zelStatusOk;
}

} // namespace

ZelStatus zelsTone_16s(Zel16s* pDst, int len, Zel16s magn, Zel32f rFreq, Zel32f* pPhase,
                       ZelHintAlgorithm hint)
{
    return runTone(pDst, len, magn, rFreq, pPhase, hint);
}

ZelStatus zelsTone_16sc(Zel16sc* pDst, int len, Zel16s magn, Zel32f rFreq, Zel32f* pPhase,
                        ZelHintAlgorithm hint)
{
    return runTone(pDst, len, magn, rFreq, pPhase, hint);
}

ZelStatus zelsTone_32f(Zel32f* pDst, int len, Zel32f magn, Zel32f rFreq, Zel32f* pPhase,
                       ZelHintAlgorithm hint)
{
    return runTone(pDst, len, magn, rFreq, pPhase, hint);
}

ZelStatus zelsTone_32fc(Zel32fc* pDst, int len, Zel32f magn, Zel32f rFreq, Zel32f* pPhase,
                        ZelHintAlgorithm hint)
{
    return runTone(pDst, len, magn, rFreq, pPhase, hint);
}

ZelStatus zelsTone_64f(Zel64f* pDst, int len, Zel64f magn, Zel64f rFreq, Zel64f* pPhase,
                       ZelHintAlgorithm hint)
{
    return runTone(pDst, len, magn, rFreq, pPhase, hint);
}

ZelStatus zelsTone_64fc(Zel64fc* pDst, int len, Zel64f magn, Zel64f rFreq, Zel64f* pPhase,
                        ZelHintAlgorithm hint)
{
    return runTone(pDst, len, magn, rFreq, pPhase, hint);
}
