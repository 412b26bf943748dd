// Peak rates of scalar double additions and products: independent chains,
// compiled with the build's flags and without vectorisation, so
// that the code is what a kernel's own arithmetic compiles to. The rate of
// both together is measured too: whether the two kinds share issue slots
// differs between the machines and instruction sets.
#include "peak.h"

#include <algorithm>

#include "timing.h"

namespace zptg::bench {
namespace {

#if defined(__x86_64__)
// Twelve independent chains cover the latency of an SSE addition, and the
// sixteen registers hold them: the compiler's own code is the measure.
#define ZPTG_CHAINS(X) X(0) X(1) X(2) X(3) X(4) X(5) X(6) X(7) X(8) X(9) X(10) X(11)
constexpr int kOpsPerTrip = 24;  // two rounds of twelve
#define ZPTG_DECLARE(i) double a##i = start + (i) * 0.001;  // distinct: no chain merges
#define ZPTG_ADD(i) a##i += v;
#define ZPTG_MUL(i) a##i *= v;
#define ZPTG_SUM(i) +a##i

// Twelve chains from `start` over trips of two rounds, `first` then `second`.
#define ZPTG_SSE_CHAINS(name, start_value, first, second) \
    __attribute__((noinline)) double name(long trips, double v) \
    {                                                           \
        const double start = start_value;                       \
        ZPTG_CHAINS(ZPTG_DECLARE)                               \
        for (long i = 0; i < trips; ++i) {                      \
            ZPTG_CHAINS(first)                                  \
            ZPTG_CHAINS(second)                                 \
        }                                                       \
        return 0 ZPTG_CHAINS(ZPTG_SUM);                         \
    }
ZPTG_SSE_CHAINS(add_chains, 0, ZPTG_ADD, ZPTG_ADD)
ZPTG_SSE_CHAINS(product_chains, 1, ZPTG_MUL, ZPTG_MUL)
// An addition, then a product, in each chain (with v just below 1 a chain
// settles near v^2 / (1 - v): nothing grows or becomes subnormal).
ZPTG_SSE_CHAINS(mixed_chains, 1, ZPTG_ADD, ZPTG_MUL)

#undef ZPTG_SSE_CHAINS
#undef ZPTG_SUM
#undef ZPTG_MUL
#undef ZPTG_ADD
#undef ZPTG_DECLARE
#undef ZPTG_CHAINS
#else
// On the x87 stack the compiler's code for independent chains spends an
// exchange per operation to bring each chain to the top, and comes out near
// 0.8 operations per cycle. The unit's own rate is taken with seven chains
// in st(1)..st(7), each updated from st(0) in place: no exchange at all.
constexpr int kOpsPerTrip = 14;  // two rounds of seven
#define ZPTG_ON7(op) op "%%st(0), %%st(1)\n\t" op "%%st(0), %%st(2)\n\t" op "%%st(0), %%st(3)\n\t" \
    op "%%st(0), %%st(4)\n\t" op "%%st(0), %%st(5)\n\t" op "%%st(0), %%st(6)\n\t" op "%%st(0), %%st(7)\n\t"
#define ZPTG_LOAD8 "fld1\n\tfld1\n\tfld1\n\tfld1\n\tfld1\n\tfld1\n\tfld1\n\tfldl %1\n\t"
#define ZPTG_POP8 "fstp %%st(0)\n\tfstp %%st(0)\n\tfstp %%st(0)\n\tfstp %%st(0)\n\t" \
    "fstp %%st(0)\n\tfstp %%st(0)\n\tfstp %%st(0)\n\tfstp %%st(0)\n\t"

// Seven chains of `op` over trips of two rounds.
#define ZPTG_X87_CHAINS(name, op)                                                                   \
    __attribute__((noinline)) double name(long trips, double v)                                     \
    {                                                                                               \
        __asm__ volatile(ZPTG_LOAD8 "1:\n\t" ZPTG_ON7(op) ZPTG_ON7(op) "dec %0\n\tjnz 1b\n\t" ZPTG_POP8 \
                         : "+r"(trips)                                                              \
                         : "m"(v)                                                                   \
                         : "st", "st(1)", "st(2)", "st(3)", "st(4)", "st(5)", "st(6)", "st(7)");    \
        return 0;                                                                                   \
    }
ZPTG_X87_CHAINS(add_chains, "fadd ")
ZPTG_X87_CHAINS(product_chains, "fmul ")

// Seven chains cannot show more than one operation per cycle (an x87
// addition's latency is about seven cycles on some machines), so the mixed
// rate comes from short independent pieces instead: load a value, add
// st(1), multiply by st(2), pop (with three registers taken, so that the
// load never meets a full stack). The register renaming keeps many pieces
// in flight, and only the units' issue rate limits them.
#define ZPTG_PIECE "fldl %1\n\tfadd %%st(1), %%st\n\tfmul %%st(2), %%st\n\tfstp %%st(0)\n\t"
#define ZPTG_PIECE7 ZPTG_PIECE ZPTG_PIECE ZPTG_PIECE ZPTG_PIECE ZPTG_PIECE ZPTG_PIECE ZPTG_PIECE
__attribute__((noinline)) double mixed_chains(long trips, double v)
{
    __asm__ volatile("fld1\n\tfld1\n\tfldl %1\n\t1:\n\t" ZPTG_PIECE7 "dec %0\n\tjnz 1b\n\t"
                     "fstp %%st(0)\n\tfstp %%st(0)\n\tfstp %%st(0)\n\t"
                     : "+r"(trips)
                     : "m"(v)
                     : "st", "st(1)", "st(2)", "st(3)", "st(4)", "st(5)", "st(6)", "st(7)");
    return 0;
}

#undef ZPTG_PIECE7
#undef ZPTG_PIECE

#undef ZPTG_X87_CHAINS
#undef ZPTG_POP8
#undef ZPTG_LOAD8
#undef ZPTG_ON7
#endif

// Operations per ns of the fastest of many short runs (about 10 ms in all:
// the interleaved rate of the x86-64 build came out 3.45 to 3.99 per cycle
// over whole processes with a fifth of them).
template <class F>
double best_rate(F f, double v)
{
    const long trips = 600000 / kOpsPerTrip;  // 600,000 operations per sample
    double best = 0;
    volatile double sink = 0;
    for (int i = 0; i < 201; ++i) {
        const double t0 = now_ns();
        sink = sink + f(trips, v);
        best = std::max(best, double(kOpsPerTrip) * double(trips) / (now_ns() - t0));
    }
    return best;
}

}  // namespace

ScalarPeak measure_scalar_peak(double core_ghz)
{
    ScalarPeak p;
    p.adds_per_cycle = best_rate(add_chains, 1e-9) / core_ghz;
    p.products_per_cycle = best_rate(product_chains, 0.9999999) / core_ghz;
    p.mixed_per_cycle = best_rate(mixed_chains, 0.9999999) / core_ghz;
    return p;
}

double bound_cycles(const ScalarPeak& peak, double sums, double products)
{
    return std::max({sums / peak.adds_per_cycle, products / peak.products_per_cycle,
                     (sums + products) / peak.mixed_per_cycle});
}

}  // namespace zptg::bench
