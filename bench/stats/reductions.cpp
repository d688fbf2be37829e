// Reductions beside hand-written loops of their own kind.
#include "handWritten.h"
#include "support/plain.h"
#include "support/volk.h"
#if BENCH_HAS_VOLK
#include <volk/volk_32f_accumulator_s32f.h>
#include <volk/volk_32f_index_max_32u.h>
#include <volk/volk_32f_x2_dot_prod_32f.h>
#endif

namespace {

using bench::Array;
using bench::peer;

BENCH_PLAIN void plainDot_16s64s(const Zel16s* a, const Zel16s* b, int n, Zel64s* dot)
{
    Zel64s sum = 0;
    for (int i = 0; i < n; i++)
        sum += Zel64s{a[i]} * b[i];
    *dot = sum;
}

BENCH_PLAIN void plainDot_16sc64sc(const Zel16sc* a, const Zel16sc* b, int n, Zel64sc* dot)
{
    Zel64sc sum{};
    for (int i = 0; i < n; i++) {
        sum.re += Zel64s{a[i].re} * b[i].re - Zel64s{a[i].im} * b[i].im;
        sum.im += Zel64s{a[i].re} * b[i].im + Zel64s{a[i].im} * b[i].re;
    }
    *dot = sum;
}

BENCH_PLAIN void plainDot_16s16sc64sc(const Zel16s* a, const Zel16sc* b, int n, Zel64sc* dot)
{
    Zel64sc sum{};
    for (int i = 0; i < n; i++) {
        sum.re += Zel64s{a[i]} * b[i].re;
        sum.im += Zel64s{a[i]} * b[i].im;
    }
    *dot = sum;
}

BENCH_PLAIN void plainSum_16s(const Zel16s* a, int n, Zel32s* sum)
{
    Zel64s total = 0;
    for (int i = 0; i < n; i++)
        total += a[i];
    *sum = static_cast<Zel32s>(total >> 16);
}

const std::vector<ZelSize> lengths{64, 512, 1024, 2048, 4096, 16384, 4 << 20};

const bench::Family sums("Sums", [](bench::Run& run) {
    run.lengths(lengths);
    for (const ZelSize length : run.lengths()) {
        const int n = static_cast<int>(length);
        Array<Zel32f> x(n);
        Array<Zel64f> y(n);
        Array<Zel16s> s(n);
        Array<Zel32s> w(n);
        Zel32f sum;
        Zel32f dev;
        Zel64f sum64;
        Zel32s total;
        const Zel32f* p = x;
        const Zel64f* q = y;
        const Zel16s* ps = s;
        const Zel32s* pw = w;
        run.row(
            "zelsSum_32f, fast", n, {.bytes = 4}, [&, n] { zelsSum_32f(p, n, &sum, zelHintFast); },
            peer("SSE loop", [&, n] { bench::handSum_32f(p, n, &sum); }), BENCH_VOLK("VOLK SSE", [&, n] {
                volk_32f_accumulator_s32f_u_sse(&sum, p, static_cast<unsigned>(n));
            }));
        run.row(
            "zelsSum_32f, accurate", n, {.bytes = 4}, [&, n] { zelsSum_32f(p, n, &sum, zelHintAccurate); },
            peer("SSE loop in doubles", [&, n] { bench::handSum_32f64f(p, n, &sum); }));
        run.row(
            "zelsSum_64f", n, {.bytes = 8}, [&, n] { zelsSum_64f(q, n, &sum64); },
            peer("SSE loop", [&, n] { bench::handSum_64f(q, n, &sum64); }));
        run.row(
            "zelsSum_16s32s_Sfs", n, {.bytes = 2}, [&, n] { zelsSum_16s32s_Sfs(ps, n, &total, 16); },
            bench::loop([&, n] { plainSum_16s(ps, n, &total); }));
        run.row("zelsSum_32s_Sfs", n, {.bytes = 4}, [&, n] { zelsSum_32s_Sfs(pw, n, &total, 31); });
        run.row(
            "zelsMeanStdDev_32f", n, {.bytes = 4}, [&, n] { zelsMeanStdDev_32f(p, n, &sum, &dev); },
            peer("SSE loop in doubles", [&, n] { bench::handMeanStdDev_32f(p, n, &sum, &dev); }));
        run.row(
            "zelsStdDev_32f, fast", n, {.bytes = 4}, [&, n] { zelsStdDev_32f(p, n, &dev, zelHintFast); },
            peer("SSE loop in doubles", [&, n] { bench::handMeanStdDev_32f(p, n, &sum, &dev); }));
        Array<Zel32f> positive(n);
        zelsAbs_32f_I(positive, n);
        run.row("zelsSumLn_32f", n, {.bytes = 4}, [&, n] { zelsSumLn_32f(positive, n, &sum); });
    }
});

const bench::Family dots("Dot products", [](bench::Run& run) {
    run.lengths(lengths);
    for (const ZelSize length : run.lengths()) {
        const int n = static_cast<int>(length);
        Array<Zel32f> x(n), y(n);
        Array<Zel64f> xd(n), yd(n);
        Array<Zel16s> xs(n), ys(n);
        Array<Zel16sc> xc(n), yc(n);
        Array<Zel32fc> xf(n), yf(n);
        Zel32f dot;
        Zel64f dot64;
        Zel64s exact;
        Zel64sc exacts;
        Zel32fc dotc;
        run.row(
            "zelsDotProd_32f", n, {.bytes = 8}, [&, n] { zelsDotProd_32f(x, y, n, &dot); },
            peer("bound of its order", [&, n] { bench::additionsInARow(n / 6, &dot); }),
            peer("SSE loop in another order", [&, n] { bench::handDot_32f(x, y, n, &dot); }),
            BENCH_VOLK("VOLK SSE",
                       [&, n] { volk_32f_x2_dot_prod_32f_u_sse(&dot, x, y, static_cast<unsigned>(n)); }));
        run.row("zelsDotProd_32f64f", n, {.bytes = 8}, [&, n] { zelsDotProd_32f64f(x, y, n, &dot64); });
        run.row("zelsDotProd_32fc", n, {.bytes = 16}, [&, n] { zelsDotProd_32fc(xf, yf, n, &dotc); });
        run.row(
            "zelsDotProd_64f", n, {.bytes = 16}, [&, n] { zelsDotProd_64f(xd, yd, n, &dot64); },
            peer("SSE loop", [&, n] { bench::handDot_64f(xd, yd, n, &dot64); }));
        run.row(
            "zelsDotProd_16s64s", n, {.bytes = 4}, [&, n] { zelsDotProd_16s64s(xs, ys, n, &exact); },
            bench::loop([&, n] { plainDot_16s64s(xs, ys, n, &exact); }));
        run.row(
            "zelsDotProd_16sc64sc", n, {.bytes = 8}, [&, n] { zelsDotProd_16sc64sc(xc, yc, n, &exacts); },
            bench::loop([&, n] { plainDot_16sc64sc(xc, yc, n, &exacts); }));
        run.row(
            "zelsDotProd_16s16sc64sc", n, {.bytes = 6},
            [&, n] { zelsDotProd_16s16sc64sc(xs, yc, n, &exacts); },
            bench::loop([&, n] { plainDot_16s16sc64sc(xs, yc, n, &exacts); }));
    }
});

const bench::Family extrema("Norms and extrema", [](bench::Run& run) {
    run.lengths(lengths);
    for (const ZelSize length : run.lengths()) {
        const int n = static_cast<int>(length);
        Array<Zel32f> x(n);
        Array<Zel64f> y(n);
        Array<Zel16s> s(n);
        Array<Zel32s> w(n);
        Zel32f value;
        Zel32f other;
        Zel64f value64;
        Zel16s value16;
        Zel32s value32;
        int index;
        int otherIndex;
        run.row(
            "zelsNorm_L2_32f", n, {.bytes = 4}, [&, n] { zelsNorm_L2_32f(x, n, &value); },
            peer("SSE loop", [&, n] { bench::handNorm_L2_32f(x, n, &value); }));
        run.row("zelsNorm_L1_32f", n, {.bytes = 4}, [&, n] { zelsNorm_L1_32f(x, n, &value); });
        run.row(
            "zelsMax_32f", n, {.bytes = 4}, [&, n] { zelsMax_32f(x, n, &value); },
            peer("SSE loop", [&, n] { bench::handMax_32f(x, n, &value); }));
        run.row(
            "zelsMaxIndx_32f", n, {.bytes = 4}, [&, n] { zelsMaxIndx_32f(x, n, &value, &index); },
            peer("zelsMax_32f", [&, n] { zelsMax_32f(x, n, &value); }), BENCH_VOLK("VOLK SSE4.1", [&, n] {
                volk_32f_index_max_32u_u_sse4_1(reinterpret_cast<unsigned*>(&index), x,
                                                static_cast<unsigned>(n));
            }));
        run.row(
            "zelsMaxAbsIndx_32f", n, {.bytes = 4}, [&, n] { zelsMaxAbsIndx_32f(x, n, &value, &index); },
            peer("zelsMaxAbs_32f", [&, n] { zelsMaxAbs_32f(x, n, &value); }));
        run.row(
            "zelsMaxIndx_64f", n, {.bytes = 8}, [&, n] { zelsMaxIndx_64f(y, n, &value64, &index); },
            peer("zelsMax_64f", [&, n] { zelsMax_64f(y, n, &value64); }));
        run.row(
            "zelsMinAbsIndx_64f", n, {.bytes = 8}, [&, n] { zelsMinAbsIndx_64f(y, n, &value64, &index); },
            peer("zelsMinAbs_64f", [&, n] { zelsMinAbs_64f(y, n, &value64); }));
        run.row(
            "zelsMaxIndx_16s", n, {.bytes = 2}, [&, n] { zelsMaxIndx_16s(s, n, &value16, &index); },
            peer("zelsMax_16s", [&, n] { zelsMax_16s(s, n, &value16); }));
        run.row(
            "zelsMinIndx_32s", n, {.bytes = 4}, [&, n] { zelsMinIndx_32s(w, n, &value32, &index); },
            peer("zelsMin_32s", [&, n] { zelsMin_32s(w, n, &value32); }));
        run.row(
            "zelsMinMax_32f", n, {.bytes = 4}, [&, n] { zelsMinMax_32f(x, n, &value, &other); },
            peer("zelsMax_32f", [&, n] { zelsMax_32f(x, n, &value); }));
        run.row(
            "zelsMinMaxIndx_32f", n, {.bytes = 4},
            [&, n] { zelsMinMaxIndx_32f(x, n, &value, &index, &other, &otherIndex); },
            peer("zelsMax_32f", [&, n] { zelsMax_32f(x, n, &value); }));
    }
});

const bench::Family memory("Reductions of 64 MiB", [](bench::Run& run) {
    run.lengths({16 << 20});
    for (const ZelSize length : run.lengths()) {
        const int n = static_cast<int>(length);
        const ZelSize bytes = 4 * length;
        Array<Zel32f> x(n);
        const auto* ps = reinterpret_cast<const Zel16s*>(x.get());
        Zel32f value;
        Zel32f other;
        Zel64s exact;
        int index;
        const auto read = peer("pure read loop", [&, bytes] { bench::readAll(x.get(), bytes, &index); });
        run.row(
            "zelsSum_32f, fast", n, {.bytes = 4}, [&, n] { zelsSum_32f(x, n, &value, zelHintFast); }, read);
        run.row(
            "zelsSum_32f, accurate", n, {.bytes = 4}, [&, n] { zelsSum_32f(x, n, &value, zelHintNone); },
            read);
        run.row(
            "zelsMeanStdDev_32f", n, {.bytes = 4}, [&, n] { zelsMeanStdDev_32f(x, n, &value, &other); },
            read);
        run.row(
            "zelsNorm_L2_32f", n, {.bytes = 4}, [&, n] { zelsNorm_L2_32f(x, n, &value); }, read);
        run.row(
            "zelsMax_32f", n, {.bytes = 4}, [&, n] { zelsMax_32f(x, n, &value); }, read);
        run.row(
            "zelsMaxIndx_32f", n, {.bytes = 4}, [&, n] { zelsMaxIndx_32f(x, n, &value, &index); }, read);
        run.row(
            "zelsMinMax_32f", n, {.bytes = 4}, [&, n] { zelsMinMax_32f(x, n, &value, &other); }, read);
        // Both halves of the memory.
        run.row(
            "zelsDotProd_32f", n / 2, {.bytes = 8}, [&, n] { zelsDotProd_32f(x, x + n / 2, n / 2, &value); },
            read);
        run.row(
            "zelsDotProd_16s64s", n, {.bytes = 4}, [&, n] { zelsDotProd_16s64s(ps, ps + n, n, &exact); },
            read);
    }
});

} // namespace
