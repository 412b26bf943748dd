// The Hartley kernels (N = 2..64, 32f and 64f) against FFTW's r2r plan of
// kind FFTW_DHT, planned restricted to scalar codelets and free to use
// SIMD: time per call with the floor of our counts, then accuracy against
// H[k] = sum of x[n] (cos + sin)(2 pi k n / N) evaluated in long double.
#include <cstdio>
#include <memory>
#include <vector>

#include "accuracy.h"
#include "bench.h"
#include "code_size.h"
#include "fftw_peer.h"
#include "floor.h"
#include "real_kernels.h"

namespace zptg::bench {
namespace {

constexpr const char* kStem = "zptgHartley";

template <class R>
bool exported()
{
    for (int n = 2; n <= 64; ++n)
        if (!real_kernel<R>(kStem, n)) {
            std::printf("hartley: %s_%d_%s not exported: %s skipped\n", kStem, n, kind_name<R>(),
                        kind_name<R>());
            return false;
        }
    return true;
}

template <class R>
struct Case {
    explicit Case(int length)
        : n(length), src(n), dst(n), scalar(n, FFTW_DHT, kFftwScalar), simd(n, FFTW_DHT, kFftwSimd),
          ours(real_kernel<R>(kStem, n), src.data(), dst.data()), peer(scalar.plan), peer_simd(simd.plan)
    {
        fill_random(src.data(), n, unsigned(n));
        fill_random(scalar.real, n, unsigned(n));
        fill_random(simd.real, n, unsigned(n));
    }
    int n;
    std::vector<R> src, dst;
    PlannedReal<R> scalar, simd;
    RealKernelSubject<R> ours;
    FftwSubject<R> peer, peer_simd;
};

template <class R>
void time_kind(const Settings& s, const Manifest& manifest, Table& table, Table& summary)
{
    if (!exported<R>()) return;
    const int last = s.quick ? 16 : 64;
    std::vector<std::unique_ptr<Case<R>>> cases;
    std::vector<Race> races;
    for (int n = 2; n <= last; ++n) {
        cases.push_back(std::make_unique<Case<R>>(n));
        Case<R>& k = *cases.back();
        races.emplace_back(std::vector<Subject*>{&k.ours, &k.peer, &k.peer_simd}, s.plan);
    }
    run_passes(races, s.plan);
    SpeedTotals t;
    for (size_t i = 0; i < cases.size(); ++i) {
        const Case<R>& k = *cases[i];
        const Comparison c = races[i].result();
        table.row();
        table.cell(kind_name<R>());
        table.cell(long(k.n));
        comparison_cells(table, c);
        FftwCounts fftw;
        Fftw<R>::flops(k.scalar.plan, &fftw.add, &fftw.mul, &fftw.fma);
        floor_cells(table, s, k.n, c, code_address(real_kernel<R>(kStem, k.n)),
                    find_counts(manifest, k.n, {"hartley", ""}), k.n, fftw, t);
    }
    summary.row();
    summary.cell(kind_name<R>());
    summary_cells(summary, t);
}

std::vector<LD> exact_hartley(const std::vector<LD>& x, int n)
{
    const UnitRoots w(n);
    std::vector<LD> y(2 * n, 0);
    for (int k = 0; k < n; ++k)
        for (int j = 0; j < n; ++j) {
            const int e = int((long(j) * k) % n);
            y[2 * k] += x[j] * (w.c[e] + w.s[e]);
        }
    return y;
}

template <class R>
void measure_kind(const Settings& s, Table& table, int& worse)
{
    if (!exported<R>()) return;
    const int last = s.quick ? 16 : 64;
    for (int n = 2; n <= last; ++n) {
        PlannedReal<R> scalar(n, FFTW_DHT, kFftwScalar), simd(n, FFTW_DHT, kFftwSimd);
        Error ours, peer, peer_simd;
        std::vector<R> src(n), dst(n);
        std::vector<LD> got(2 * n, 0);
        for (int trial = 0; trial < kTrials; ++trial) {
            fill_random(src.data(), n, 1000u * unsigned(trial) + unsigned(n));
            const std::vector<LD> ref = exact_hartley(std::vector<LD>(src.begin(), src.end()), n);
            real_kernel<R>(kStem, n)(src.data(), dst.data(), zptgScaleNone);
            for (int k = 0; k < n; ++k) got[2 * k] = dst[k];
            ours.add(ref, got, n);
            for (auto [fftw, error] : {std::pair{&scalar, &peer}, std::pair{&simd, &peer_simd}}) {
                for (int j = 0; j < n; ++j) fftw->real[j] = src[j];
                Fftw<R>::execute(fftw->plan);
                for (int k = 0; k < n; ++k) got[2 * k] = fftw->other[k];
                error->add(ref, got, n);
            }
        }
        table.row();
        table.cell(kind_name<R>());
        table.cell(long(n));
        accuracy_cells(table, ours, peer, peer_simd, worse);
    }
}

}  // namespace

void bench_hartley(const Settings& s)
{
    const Manifest manifest = read_counts(s.hartley_manifest);
    Table table("hartley",
                "Hartley kernels against FFTW's r2r plan of kind FFTW_DHT (" + s.configuration +
                    " build): " + speed_legend("N"),
                join({"kind", "n"}, comparison_columns({"fftw_scalar", "fftw_simd"}), floor_columns()));
    Table summary("hartley_summary",
                  "Hartley: ratios to FFTW's DHT by kind (" + summary_legend() + ")",
                  join({"kind"}, summary_columns()));
    time_kind<float>(s, manifest, table, summary);
    time_kind<double>(s, manifest, table, summary);
    if (table.empty()) return;
    table.print(stdout);
    summary.print(stdout);
    table.write(s.out_dir);
    summary.write(s.out_dir);

    std::vector<Panel> panels;
    for (const char* kind : {"32f", "64f"}) {
        const std::vector<std::pair<std::string, std::string>> f = {{"kind", kind}};
        panels.push_back({std::string(kind) + ": ns per call", "N", "ns", false, true, 0,
                          {{"ours", "n", "ours_ns", f},
                           {"FFTW DHT scalar", "n", "fftw_scalar_ns", f},
                           {"FFTW DHT SIMD", "n", "fftw_simd_ns", f}}});
    }
    for (const char* kind : {"32f", "64f"}) {
        const std::vector<std::pair<std::string, std::string>> f = {{"kind", kind}};
        panels.push_back({std::string(kind) + ": ours / FFTW and the floor", "N", "ratio", false, false, 1,
                          {{"ours / scalar", "n", "ratio_fftw_scalar", f},
                           {"ours / SIMD", "n", "ratio_fftw_simd", f},
                           {"floor", "n", "floor_ratio", f}}});
    }
    write_plot(s.out_dir, table, "hartley", panels, 2);
}

void bench_hartley_accuracy(const Settings& s)
{
    Table table("hartley_accuracy",
                "Hartley accuracy (" + s.configuration + " build): errors relative to the RMS "
                    "of the exact output, " + std::to_string(kTrials) +
                    " random inputs per row; rms = RMS error, max = largest error of one output",
                join({"kind", "n"}, accuracy_columns()));
    int worse = 0;
    measure_kind<float>(s, table, worse);
    measure_kind<double>(s, table, worse);
    if (table.empty()) return;
    table.print(stdout);
    std::printf("\nhartley accuracy: ours has a larger RMS error than FFTW in %d of the rows above\n", worse);
    table.write(s.out_dir);
    accuracy_plot(s.out_dir, table, "hartley_accuracy",
                  {{"32f", {{"kind", "32f"}}}, {"64f", {{"kind", "64f"}}}});
}

}  // namespace zptg::bench
