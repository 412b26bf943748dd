// The machine's scalar limit in this build's instruction set: how many
// independent floating-point additions, how many products, and how many of
// both interleaved one for one, one core retires per cycle at best. Where
// additions and products go to units of their own, the interleaved rate is
// the sum of the two; where they share one (x87 arithmetic on an AMD EPYC of
// family 25: one addition or product per cycle in all), it is not. A
// kernel's counts over these rates give the fewest cycles it could take.
#ifndef ZPTG_BENCH_PEAK_H
#define ZPTG_BENCH_PEAK_H

namespace zptg::bench {

struct ScalarPeak {
    double adds_per_cycle = 0;
    double products_per_cycle = 0;
    double mixed_per_cycle = 0;  // additions and products, one for one
};

// Fewest cycles for these counts at these rates: each kind at its own rate,
// and all of them at the interleaved rate.
double bound_cycles(const ScalarPeak& peak, double sums, double products);

// Measured with many short samples (the fastest kept), at the given core clock.
ScalarPeak measure_scalar_peak(double core_ghz);

}  // namespace zptg::bench

#endif
