// Time per call of every complex kernel (N = 2..64, both directions, 32fc
// and 64fc) against FFTW's best plan of the same transform, planned once
// restricted to scalar codelets and once free to use SIMD; with TSC ticks,
// estimated core cycles and operations per cycle from the kernel's counts.
// Then the targets: every ratio to scalar FFTW below 1 and their geometric
// mean at most 0.6.
#include <algorithm>
#include <cmath>
#include <cstdio>
#include <memory>
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
    double log_floor = 0;       // the least ratio our counts allow
    int floors = 0;
    int count = 0, faster = 0;
    double worst = 0;
    int worst_n = 0;
};

// One size of one member: its data, FFTW's two plans and the race of ours
// against them.
template <class E>
struct Case {
    using R = RealOf<E>;
    Case(const ComplexMember<E>& member, int length)
        : m(member), n(length), src(n), dst(n), scalar(n, m.sign, kFftwScalar),
          simd(n, m.sign, kFftwSimd), ours(m.kernels[n - 2], src.data(), dst.data()),
          peer(scalar.plan), peer_simd(simd.plan)
    {
        fill_random(&src[0].re, 2L * n, unsigned(n));
        fill_random(&scalar.in[0][0], 2L * n, unsigned(n));
        fill_random(&simd.in[0][0], 2L * n, unsigned(n));
    }
    const ComplexMember<E>& m;
    int n;
    std::vector<E> src, dst;
    PlannedDft<R> scalar, simd;
    KernelSubject<E> ours;
    FftwSubject<R> peer, peer_simd;
};

template <class E>
void report_case(const Settings& s, const Case<E>& k, const Comparison& c,
                 const Manifest& manifest, Table& table, Totals& totals)
{
    using R = RealOf<E>;
    const int n = k.n;
    const auto counts = manifest.find({n, k.m.direction});
    const double cycles = c.subjects[0].ns * s.core_ghz;
    table.row();
    table.cell(k.m.kind);
    table.cell(k.m.direction);
    table.cell(long(n));
    comparison_cells(table, c);
    table.cell(c.subjects[0].ticks, 0);
    table.cell(cycles, 0);
    double fftw_add, fftw_mul, fftw_fma;
    Fftw<R>::flops(k.scalar.plan, &fftw_add, &fftw_mul, &fftw_fma);
    const double fftw_sums = fftw_add + fftw_fma;  // no fused operations in scalar code
    if (counts != manifest.end()) {
        const KernelCounts& kc = counts->second;
        const long ops = kc.operations(n);
        const double bound = std::max(double(kc.sums()) / s.peak.adds_per_cycle,
                                      double(kc.multiplications(n)) / s.peak.products_per_cycle);
        table.cell(ops);
        table.cell(double(ops) / cycles, 2);
        table.cell(kc.sums());
        table.cell(kc.multiplications(n));
        table.cell(fftw_sums, 0);
        table.cell(fftw_mul + fftw_fma, 0);
        table.cell(double(kc.sums()) / fftw_sums, 3);
        table.cell(bound, 0);
        table.cell(100 * bound / cycles, 0);
        // Our kernel at the peak rates against FFTW's time as measured: no
        // schedule of our operations could bring the ratio below this.
        const double floor = bound / (c.subjects[1].ns * s.core_ghz);
        table.cell(floor, 3);
        table.cell(kc.rule);
        totals.log_sums_ratio += std::log(double(kc.sums()) / fftw_sums);
        totals.log_floor += std::log(floor);
        totals.floors += 1;
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
    if (t.floors > 0)
        summary.cell(std::exp(t.log_floor / t.floors), 3);
    else
        summary.cell("?");
    summary.cell(t.faster == t.count && geo <= 0.6 ? "met" : "missed");
}

// Every size of both members of one element kind, timed in passes.
template <class E, size_t M>
void time_kind(const Settings& s, const ComplexMember<E> (&members)[M], const Manifest& manifest,
               Table& table, Table& summary)
{
    const int last = s.quick ? 16 : 64;
    std::vector<std::unique_ptr<Case<E>>> cases;
    std::vector<Race> races;
    for (const auto& m : members)
        for (int n = 2; n <= last; ++n) {
            cases.push_back(std::make_unique<Case<E>>(m, n));
            Case<E>& k = *cases.back();
            races.emplace_back(std::vector<Subject*>{&k.ours, &k.peer, &k.peer_simd}, s.plan);
        }
    run_passes(races, s.plan);
    size_t i = 0;
    for (const auto& m : members) {
        Totals t;
        for (int n = 2; n <= last; ++n, ++i) report_case(s, *cases[i], races[i].result(), manifest, table, t);
        summary_row(summary, m, t);
    }
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
                    "at the scalar peak rates, of_bound = bound / cycles taken; floor = bound / "
                    "scalar FFTW's cycles, the least ratio our counts allow",
                join({"kind", "direction", "n"}, comparison_columns({"fftw_scalar", "fftw_simd"}),
                     std::vector<std::string>{"ours_tsc_ticks", "ours_cycles", "operations",
                                              "ops_per_cycle", "ours_sums", "ours_products",
                                              "fftw_sums", "fftw_products", "sums_ratio",
                                              "bound_cycles", "of_bound_%", "floor_ratio", "rule"}));
    Table summary("complex_summary",
                  "Complex DFT: ratios to FFTW by member (target against scalar FFTW: every "
                  "size below 1 and geometric mean at most 0.6; geomean_floor: the least geometric mean "
                  "that our counts allow at the measured peak rates)",
                  {"kind", "direction", "sizes", "faster_than_scalar", "geomean_scalar",
                   "worst_scalar", "worst_n", "geomean_simd", "geomean_sums_ratio", "geomean_floor",
                   "target"});
    time_kind(s, kMembers32, manifest, table, summary);
    time_kind(s, kMembers64, manifest, table, summary);
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
    Panel floor{"64fc forward: ours / scalar FFTW and the floor of our counts", "N", "ratio", false, false, 1,
                {{"ratio", "n", "ratio_fftw_scalar", {{"kind", "64fc"}, {"direction", "forward"}}},
                 {"floor", "n", "floor_ratio", {{"kind", "64fc"}, {"direction", "forward"}}}}};
    panels.push_back(floor);
    Panel ops{"achieved operations per core cycle", "N", "ops/cycle", false, false, 0, {}};
    for (const char* kind : {"32fc", "64fc"})
        ops.series.push_back({std::string(kind) + " forward", "n", "ops_per_cycle",
                              {{"kind", kind}, {"direction", "forward"}}});
    panels.push_back(ops);
    write_plot(s.out_dir, table, "complex", panels, 2);
}

}  // namespace zptg::bench
