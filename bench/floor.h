// What every fixed-size family's speed table shows beside the race itself:
// the kernel's cycles and operation counts next to scalar FFTW's, the fewest
// cycles our counts allow at the measured scalar peak (bound), the share of
// it that the kernel reaches, and the floor: that bound over scalar FFTW's
// cycles, the least ratio to FFTW that any schedule of our operations could
// reach. And the per-member summary: geometric means over the sizes, and
// how the member stands against the speed targets (the median share of the
// bound, the sizes under 60 % of it, the sizes slower than
// max(1, floor / 0.85) times scalar FFTW: faster than FFTW wherever 85 % of
// the peak allows it).
#ifndef ZPTG_BENCH_FLOOR_H
#define ZPTG_BENCH_FLOOR_H

#include <string>
#include <vector>

#include "bench.h"
#include "manifest.h"
#include "report.h"

namespace zptg::bench {

// FFTW's own count of a plan's operations (fftw_flops): additions,
// products and fused ones, of which scalar code has none.
struct FftwCounts {
    double add = 0, mul = 0, fma = 0;
    double sums() const { return add + fma; }
    double products() const { return mul + fma; }
};

// Geometric means over the sizes of one member.
struct SpeedTotals {
    double log_sum = 0, log_sum_simd = 0;
    double log_sums_ratio = 0;  // ours' additions over FFTW's
    double log_floor = 0;       // the least ratio our counts allow
    int floors = 0;
    int count = 0, faster = 0;
    double worst = 0;
    int worst_n = 0;
    std::vector<double> of_bound;  // per cent, one per size with counts
    int under_60 = 0, above_target = 0;
    double geomean_scalar() const;
};

// code_bytes, ours_tsc_ticks, ours_cycles, operations, ops_per_cycle, ours_sums,
// ours_products, fftw_sums, fftw_products, sums_ratio, bound_cycles,
// of_bound_%, floor_ratio, rule.
std::vector<std::string> floor_columns();

// Fills floor_columns() for a race whose subjects are ours (the library's
// function `kernel`), scalar FFTW and SIMD FFTW, and adds the size to the
// totals. counts may be null (no manifest): the count columns then read "?".
// scale_products: the products with the scale factor that the manifest's
// counts leave out.
void floor_cells(Table& table, const Settings& s, int n, const Comparison& c, const void* kernel,
                 const KernelCounts* counts, long scale_products, const FftwCounts& fftw,
                 SpeedTotals& totals);

// The manifest at path, or an empty one with a line that says so.
Manifest read_counts(const std::string& path);

// What the columns of a speed table mean; scale_products names the
// products with the scale that the counts include ("2N", "N").
std::string speed_legend(const std::string& scale_products);

// sizes, faster_than_scalar, geomean_scalar, worst_scalar, worst_n,
// geomean_simd, geomean_sums_ratio, geomean_floor, median_of_bound_%,
// under_60_%, above_target.
std::vector<std::string> summary_columns();
// What the summary's columns beyond the ratios mean.
std::string summary_legend();
void summary_cells(Table& summary, const SpeedTotals& t);

}  // namespace zptg::bench

#endif
