// A function beside itself: how far a ratio of 1 strays on this machine at this hour.
#include "support/bench.h"

namespace {

const bench::Family family("A function beside itself", [](bench::Run& run) {
    run.map("zelsAdd_32f", zelsAdd_32f, bench::peer("itself", zelsAdd_32f),
            bench::peer("itself in a lambda", [](const Zel32f* a, const Zel32f* b, Zel32f* d, int n) {
                return zelsAdd_32f(a, b, d, n);
            }));
});

} // namespace
