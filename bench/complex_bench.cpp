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
#include "code_size.h"
#include "complex_members.h"
#include "floor.h"

namespace zptg::bench {
namespace {

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
                 const Manifest& manifest, Table& table, SpeedTotals& totals)
{
    table.row();
    table.cell(k.m.kind);
    table.cell(k.m.direction);
    table.cell(long(k.n));
    comparison_cells(table, c);
    FftwCounts fftw;
    Fftw<RealOf<E>>::flops(k.scalar.plan, &fftw.add, &fftw.mul, &fftw.fma);
    floor_cells(table, s, k.n, c, code_address(k.m.kernels[k.n - 2]),
                find_counts(manifest, k.n, {k.m.direction}), 2L * k.n, fftw, totals);
}

template <class E>
void summary_row(Table& summary, const ComplexMember<E>& m, const SpeedTotals& t)
{
    summary.row();
    summary.cell(m.kind);
    summary.cell(m.direction);
    summary_cells(summary, t);
    summary.cell(t.faster == t.count && t.geomean_scalar() <= 0.6 ? "met" : "missed");
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
        SpeedTotals t;
        for (int n = 2; n <= last; ++n, ++i) report_case(s, *cases[i], races[i].result(), manifest, table, t);
        summary_row(summary, m, t);
    }
}

}  // namespace

void bench_complex(const Settings& s)
{
    const Manifest manifest = read_counts(s.manifest);
    Table table("complex",
                "Complex DFT kernels against FFTW (" + s.configuration + " build): " + speed_legend("2N"),
                join({"kind", "direction", "n"}, comparison_columns({"fftw_scalar", "fftw_simd"}),
                     floor_columns()));
    Table summary("complex_summary",
                  "Complex DFT: ratios to FFTW by member (target: every size below 1 against "
                  "scalar FFTW and geometric mean at most 0.6; " +
                      summary_legend() + ")",
                  join({"kind", "direction"}, summary_columns(), std::vector<std::string>{"target"}));
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
