// Peak rates of scalar double additions and products: independent chains,
// compiled with the build's flags and without vectorisation, so
// that the code is what a kernel's own arithmetic compiles to.
#include "peak.h"

#include <algorithm>

#include "timing.h"

namespace zptg::bench {
namespace {

// Independent chains: enough to cover the latency of an SSE addition on
// x86-64 (sixteen registers), and what fits the x87 register stack beside
// the operand on i386.
#if defined(__x86_64__)
#define ZPTG_CHAINS(X) X(0) X(1) X(2) X(3) X(4) X(5) X(6) X(7) X(8) X(9) X(10) X(11)
constexpr int kChains = 12;
#else
#define ZPTG_CHAINS(X) X(0) X(1) X(2) X(3) X(4) X(5)
constexpr int kChains = 6;
#endif
#define ZPTG_DECLARE(i) double a##i = start + (i) * 0.001;  // distinct: no chain merges
#define ZPTG_ADD(i) a##i += v;
#define ZPTG_MUL(i) a##i *= v;
#define ZPTG_SUM(i) +a##i

__attribute__((noinline)) double add_chains(long trips, double v)
{
    const double start = 0;
    ZPTG_CHAINS(ZPTG_DECLARE)
    for (long i = 0; i < trips; ++i) {
        ZPTG_CHAINS(ZPTG_ADD)
        ZPTG_CHAINS(ZPTG_ADD)
    }
    return 0 ZPTG_CHAINS(ZPTG_SUM);
}

__attribute__((noinline)) double product_chains(long trips, double v)
{
    const double start = 1;
    ZPTG_CHAINS(ZPTG_DECLARE)
    for (long i = 0; i < trips; ++i) {
        ZPTG_CHAINS(ZPTG_MUL)
        ZPTG_CHAINS(ZPTG_MUL)
    }
    return 0 ZPTG_CHAINS(ZPTG_SUM);
}

#undef ZPTG_SUM
#undef ZPTG_MUL
#undef ZPTG_ADD
#undef ZPTG_DECLARE
#undef ZPTG_CHAINS

// Operations per ns of the fastest of many short runs.
template <class F>
double best_rate(F f, double v)
{
    const long trips = 600000 / (2 * kChains);  // 600,000 operations per sample
    double best = 0;
    volatile double sink = 0;
    for (int i = 0; i < 41; ++i) {
        const double t0 = now_ns();
        sink = sink + f(trips, v);
        best = std::max(best, 2.0 * kChains * double(trips) / (now_ns() - t0));
    }
    return best;
}

}  // namespace

ScalarPeak measure_scalar_peak(double core_ghz)
{
    ScalarPeak p;
    p.adds_per_cycle = best_rate(add_chains, 1e-9) / core_ghz;
    p.products_per_cycle = best_rate(product_chains, 0.9999999) / core_ghz;
    return p;
}

}  // namespace zptg::bench
