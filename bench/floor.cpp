#include "floor.h"

#include <algorithm>
#include <cmath>
#include <cstdio>

#include "code_size.h"

namespace zptg::bench {

namespace {

// The largest ratio to scalar FFTW that meets the target at this floor:
// faster than FFTW wherever 85 % of the peak allows it.
double target_ratio(double floor) { return std::max(1.0, floor / 0.85); }

}  // namespace

double SpeedTotals::geomean_scalar() const { return std::exp(log_sum / count); }

Manifest read_counts(const std::string& path)
{
    Manifest m = read_manifest(path);
    if (m.empty()) std::printf("(no kernel counts: cannot read %s)\n", path.c_str());
    return m;
}

std::string speed_legend(const std::string& scale_products)
{
    return "ns per call, median of interleaved rounds; spread = interquartile range / median; "
           "ratio = ours / FFTW, median of per-round ratios; cycles estimated at the measured "
           "core clock; sums = additions and subtractions, products include the " +
           scale_products +
           " products with the scale; bound = fewest cycles at the scalar peak rates "
           "(additions, products, and both interleaved), of_bound = bound / cycles taken; floor = bound / scalar FFTW's cycles, the least ratio our "
           "counts allow";
}

std::vector<std::string> floor_columns()
{
    return {"code_bytes", "ours_tsc_ticks", "ours_cycles", "operations", "ops_per_cycle", "ours_sums",
            "ours_products", "fftw_sums", "fftw_products", "sums_ratio", "bound_cycles",
            "of_bound_%", "floor_ratio", "rule"};
}

void floor_cells(Table& table, const Settings& s, int n, const Comparison& c, const void* kernel,
                 const KernelCounts* counts, long scale_products, const FftwCounts& fftw,
                 SpeedTotals& totals)
{
    const double cycles = c.subjects[0].ns * s.core_ghz;
    table.cell(code_bytes(kernel));
    table.cell(c.subjects[0].ticks, 0);
    table.cell(cycles, 0);
    if (counts) {
        const long ops = counts->operations(scale_products);
        const long products = counts->multiplications(scale_products);
        const double bound = bound_cycles(s.peak, double(counts->sums()), double(products));
        const double of_bound = 100 * bound / cycles;
        table.cell(ops);
        table.cell(double(ops) / cycles, 2);
        table.cell(counts->sums());
        table.cell(products);
        table.cell(fftw.sums(), 0);
        table.cell(fftw.products(), 0);
        table.cell(double(counts->sums()) / fftw.sums(), 3);
        table.cell(bound, 0);
        table.cell(of_bound, 0);
        // Our kernel at the peak rates against FFTW's time as measured: no
        // schedule of our operations could bring the ratio below this.
        const double floor = bound / (c.subjects[1].ns * s.core_ghz);
        table.cell(floor, 3);
        table.cell(counts->rule);
        totals.log_sums_ratio += std::log(double(counts->sums()) / fftw.sums());
        totals.log_floor += std::log(floor);
        totals.floors += 1;
        totals.of_bound.push_back(of_bound);
        totals.under_60 += of_bound < 60;
        totals.above_target += c.ratios[1] > target_ratio(floor);
    } else {
        for (int i = 0; i < 11; ++i) table.cell("?");
    }
    totals.log_sum += std::log(c.ratios[1]);
    totals.log_sum_simd += std::log(c.ratios[2]);
    totals.count += 1;
    totals.faster += c.ratios[1] < 1;
    if (c.ratios[1] > totals.worst) {
        totals.worst = c.ratios[1];
        totals.worst_n = n;
    }
}

std::vector<std::string> summary_columns()
{
    return {"sizes", "faster_than_scalar", "geomean_scalar", "worst_scalar", "worst_n",
            "geomean_simd", "geomean_sums_ratio", "geomean_floor", "median_of_bound_%",
            "under_60_%", "above_target"};
}

std::string summary_legend()
{
    return "geomean_floor: the least geometric mean that our counts allow at the measured peak "
           "rates; median_of_bound_%: the median share of the bound; under_60_%: sizes under 60 % "
           "of it; above_target: sizes slower than max(1, floor / 0.85) times scalar FFTW";
}

void summary_cells(Table& summary, const SpeedTotals& t)
{
    summary.cell(long(t.count));
    summary.cell(long(t.faster));
    summary.cell(t.geomean_scalar(), 3);
    summary.cell(t.worst, 3);
    summary.cell(long(t.worst_n));
    summary.cell(std::exp(t.log_sum_simd / t.count), 3);
    if (t.floors > 0) {
        summary.cell(std::exp(t.log_sums_ratio / t.floors), 3);
        summary.cell(std::exp(t.log_floor / t.floors), 3);
        summary.cell(median(t.of_bound), 0);
        summary.cell(long(t.under_60));
        summary.cell(long(t.above_target));
    } else {
        for (int i = 0; i < 5; ++i) summary.cell("?");
    }
}

}  // namespace zptg::bench
