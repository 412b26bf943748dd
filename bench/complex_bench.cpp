// Time per call of every complex kernel (N = 2..64, both directions, 32fc
// and 64fc) against FFTW's best plan of the same transform, planned once
// restricted to scalar codelets and once free to use SIMD; with TSC ticks,
// estimated core cycles and operations per cycle from the kernel's counts.
// Then the targets: every ratio to scalar FFTW below 1 and their geometric
// mean at most 0.6.
#include <algorithm>
#include <cmath>
#include <cstdio>
#include <vector>

#include "bench.h"
#include "complex_members.h"
#include "manifest.h"
#include "report.h"

namespace zptg::bench {
namespace {

struct Totals {
    double log_sum = 0;
    double log_sum_simd = 0;
    double log_sums_ratio = 0;  // ours' additions over FFTW's
    int count = 0, faster = 0;
    double worst = 0;
    int worst_n = 0;
};

template <class E>
void time_member(const Settings& s, const ComplexMember<E>& m, const Manifest& manifest,
                 Table& table, Totals& totals)
{
    using R = RealOf<E>;
    const int last = s.quick ? 16 : 64;
    for (int n = 2; n <= last; ++n) {
        const PlannedDft<R> scalar(n, m.sign, kFftwScalar), simd(n, m.sign, kFftwSimd);
        std::vector<E> src(n), dst(n);
        fill_random(&src[0].re, 2L * n, unsigned(n));
        fill_random(&scalar.in[0][0], 2L * n, unsigned(n));
        fill_random(&simd.in[0][0], 2L * n, unsigned(n));

        KernelSubject<E> ours(m.kernels[n - 2], src.data(), dst.data());
        FftwSubject<R> peer(scalar.plan), peer_simd(simd.plan);
        const Comparison c = compare({&ours, &peer, &peer_simd}, s.plan);

        const auto counts = manifest.find({n, m.direction});
        const double cycles = c.subjects[0].ns * s.core_ghz;
        table.row();
        table.cell(m.kind);
        table.cell(m.direction);
        table.cell(long(n));
        comparison_cells(table, c);
        table.cell(c.subjects[0].ticks, 0);
        table.cell(cycles, 0);
        double fftw_add, fftw_mul, fftw_fma;
        Fftw<R>::flops(scalar.plan, &fftw_add, &fftw_mul, &fftw_fma);
        const double fftw_sums = fftw_add + fftw_fma;  // no fused operations in scalar code
        if (counts != manifest.end()) {
            const KernelCounts& k = counts->second;
            const long ops = k.operations(n);
            const double bound = std::max(double(k.sums()) / s.peak.adds_per_cycle,
                                          double(k.multiplications(n)) / s.peak.products_per_cycle);
            table.cell(ops);
            table.cell(double(ops) / cycles, 2);
            table.cell(k.sums());
            table.cell(k.multiplications(n));
            table.cell(fftw_sums, 0);
            table.cell(fftw_mul + fftw_fma, 0);
            table.cell(double(k.sums()) / fftw_sums, 3);
            table.cell(bound, 0);
            table.cell(100 * bound / cycles, 0);
            table.cell(k.rule);
            totals.log_sums_ratio += std::log(double(k.sums()) / fftw_sums);
        } else {
            for (int i = 0; i < 10; ++i) table.cell("?");
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
}

template <class E>
void summary_row(Table& summary, const ComplexMember<E>& m, const Totals& t)
{
    const double geo = std::exp(t.log_sum / t.count);
    summary.row();
    summary.cell(m.kind);
    summary.cell(m.direction);
    summary.cell(long(t.count));
    summary.cell(long(t.faster));
    summary.cell(geo, 3);
    summary.cell(t.worst, 3);
    summary.cell(long(t.worst_n));
    summary.cell(std::exp(t.log_sum_simd / t.count), 3);
    summary.cell(std::exp(t.log_sums_ratio / t.count), 3);
    summary.cell(t.faster == t.count && geo <= 0.6 ? "met" : "missed");
}

}  // namespace

void bench_complex(const Settings& s)
{
    const Manifest manifest = read_manifest(s.manifest);
    if (manifest.empty()) std::printf("(no kernel counts: cannot read %s)\n", s.manifest.c_str());
    Table table("complex",
                "Complex DFT kernels against FFTW (" + s.configuration +
                    " build): ns per call, median of interleaved rounds; spread = "
                    "interquartile range / median; ratio = ours / FFTW, median of per-round "
                    "ratios; cycles estimated at the measured core clock; sums = additions "
                    "and subtractions, products include the scale; bound = fewest cycles "
                    "at the scalar peak rates, of_bound = bound / cycles taken",
                join({"kind", "direction", "n"}, comparison_columns({"fftw_scalar", "fftw_simd"}),
                     std::vector<std::string>{"ours_tsc_ticks", "ours_cycles", "operations",
                                              "ops_per_cycle", "ours_sums", "ours_products",
                                              "fftw_sums", "fftw_products", "sums_ratio",
                                              "bound_cycles", "of_bound_%", "rule"}));
    Table summary("complex_summary",
                  "Complex DFT: ratios to FFTW by member (target against scalar FFTW: every "
                  "size below 1 and geometric mean at most 0.6)",
                  {"kind", "direction", "sizes", "faster_than_scalar", "geomean_scalar",
                   "worst_scalar", "worst_n", "geomean_simd", "geomean_sums_ratio", "target"});
    for (const auto& m : kMembers32) {
        Totals t;
        time_member(s, m, manifest, table, t);
        summary_row(summary, m, t);
    }
    for (const auto& m : kMembers64) {
        Totals t;
        time_member(s, m, manifest, table, t);
        summary_row(summary, m, t);
    }
    table.print(stdout);
    summary.print(stdout);
    table.write(s.out_dir);
    summary.write(s.out_dir);

    std::vector<Panel> panels;
    for (const char* kind : {"32fc", "64fc"})
        for (const char* dir : {"forward", "inverse"}) {
            const std::vector<std::pair<std::string, std::string>> f = {{"kind", kind},
                                                                       {"direction", dir}};
            panels.push_back({std::string(kind) + " " + dir + ": ns per call",
                              "N",
                              "ns",
                              false,
                              true,
                              0,
                              {{"ours", "n", "ours_ns", f},
                               {"FFTW scalar", "n", "fftw_scalar_ns", f},
                               {"FFTW SIMD", "n", "fftw_simd_ns", f}}});
        }
    for (const char* peer : {"scalar", "simd"}) {
        Panel p{std::string("ours / FFTW ") + peer, "N", "ratio", false, false, 1, {}};
        for (const char* kind : {"32fc", "64fc"})
            for (const char* dir : {"forward", "inverse"})
                p.series.push_back({std::string(kind) + " " + dir, "n",
                                    std::string("ratio_fftw_") + peer,
                                    {{"kind", kind}, {"direction", dir}}});
        panels.push_back(p);
    }
    Panel ops{"achieved operations per core cycle", "N", "ops/cycle", false, false, 0, {}};
    for (const char* kind : {"32fc", "64fc"})
        ops.series.push_back({std::string(kind) + " forward", "n", "ops_per_cycle",
                              {{"kind", kind}, {"direction", "forward"}}});
    panels.push_back(ops);
    write_plot(s.out_dir, table, "complex", panels, 2);
}

}  // namespace zptg::bench
