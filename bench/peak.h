// The machine's scalar limit in this build's instruction set: how many
// independent floating-point additions, and how many products, one core
// retires per cycle at best. A kernel's counts over these rates give the
// fewest cycles it could take.
#ifndef ZPTG_BENCH_PEAK_H
#define ZPTG_BENCH_PEAK_H

namespace zptg::bench {

struct ScalarPeak {
    double adds_per_cycle = 0;
    double products_per_cycle = 0;
};

// Measured with many short samples (the fastest kept), at the given core clock.
ScalarPeak measure_scalar_peak(double core_ghz);

}  // namespace zptg::bench

#endif
