// The planned DCT-IV, N = 2^1 .. 2^22, 32f and 64f, against FFTW's REDFT11
// (the same transform times 2), planned restricted to scalar codelets and
// free to use SIMD. Transform time per call, interleaved; the time to build
// a context (and FFTW's planning time) is reported apart. Beside the time
// per call: ours per element, and how much that grew from N/2 beyond the
// log factor (time per element over that of N/2, divided by log2 N /
// log2(N/2)): near 1 where the cost follows N log N, far above it where a
// length falls out of a cache or into a worse path.
#include <algorithm>
#include <cmath>
#include <cstdio>
#include <vector>

#include "bench.h"
#include "fftw_peer.h"
#include "report.h"
#include "zptgenpx.h"

namespace zptg::bench {
namespace {

// One kind's exported functions, looked up by name.
template <class R>
struct Dct4Kind;

#define ZPTG_BENCH_DCT4_(kind, type, context)                                       \
    template <>                                                                     \
    struct Dct4Kind<type> {                                                         \
        using Context = context;                                                    \
        static constexpr const char* name = #kind;                                  \
        static inline zptgStatus (*init)(Context**, int) = nullptr;                 \
        static inline zptgStatus (*run)(const type*, type*, Context*) = nullptr;    \
        static inline zptgStatus (*release)(Context*) = nullptr;                    \
        static bool look_up()                                                       \
        {                                                                           \
            init = library_function<decltype(init)>("zptgDCT4InitAlloc_" #kind);    \
            run = library_function<decltype(run)>("zptgDCT4_" #kind);               \
            release = library_function<decltype(release)>("zptgDCT4Free_" #kind);   \
            return init && run && release;                                          \
        }                                                                           \
    };
ZPTG_DCT4_FUNCTIONS(ZPTG_BENCH_DCT4_)
#undef ZPTG_BENCH_DCT4_

template <class R>
class OursSubject : public Subject {
public:
    OursSubject(const R* src, R* dst, typename Dct4Kind<R>::Context* c) : src_(src), dst_(dst), c_(c) {}
    void run(long calls) override
    {
        for (long i = 0; i < calls; ++i) Dct4Kind<R>::run(src_, dst_, c_);
    }

private:
    const R* src_;
    R* dst_;
    typename Dct4Kind<R>::Context* c_;
};

// A fixed region of memory, owned by FFTW's allocator.
template <class R>
struct Array {
    explicit Array(long n) : p(static_cast<R*>(Fftw<R>::alloc(sizeof(R) * size_t(n)))) {}
    ~Array() { Fftw<R>::free(p); }
    Array(const Array&) = delete;
    Array& operator=(const Array&) = delete;
    R* p;
};

// Ratio to scalar FFTW that the target allows, and the lengths it covers.
constexpr double kTargetRatio = 1.0;
constexpr int kTargetFrom = 6;
constexpr int kTargetTo = 20;

template <class R>
void time_kind(const Settings& s, Table& table)
{
    using F = Fftw<R>;
    using K = Dct4Kind<R>;
    const int last = s.quick ? 12 : 22;
    double previous_per_element = 0;
    for (int e = 1; e <= last; ++e) {
        const int n = 1 << e;
        // Context build: median of a few builds (each with its one allocation).
        std::vector<double> build;
        typename K::Context* ctx = nullptr;
        for (int i = 0; i < (e > 18 ? 3 : 9); ++i) {
            if (ctx) K::release(ctx);
            const double t0 = now_ns();
            const zptgStatus st = K::init(&ctx, n);
            build.push_back(now_ns() - t0);
            if (st != zptgStatusOk) {
                std::printf("dct4 %s: no context for N = %d (status %d)\n", K::name, n, st);
                ctx = nullptr;
                break;
            }
        }
        if (!ctx) continue;

        Array<R> src(n), dst(n), in(n), out(n), in_simd(n), out_simd(n);
        F::set_timelimit(e >= 16 ? 10.0 : -1.0);
        double t0 = now_ns();
        const typename F::Plan scalar = F::r2r(n, in.p, out.p, FFTW_REDFT11, kFftwScalar);
        const double plan_ns = now_ns() - t0;
        const typename F::Plan simd = F::r2r(n, in_simd.p, out_simd.p, FFTW_REDFT11, kFftwSimd);
        fill_random(src.p, n, unsigned(e));
        std::copy(src.p, src.p + n, in.p);
        std::copy(src.p, src.p + n, in_simd.p);

        OursSubject<R> ours(src.p, dst.p, ctx);
        FftwSubject<R> peer(scalar), peer_simd(simd);
        // Agreement first: FFTW's REDFT11 is twice the unscaled DCT-IV.
        ours.run(1);
        peer.run(1);
        double diff = 0, mag = 0;
        for (int i = 0; i < n; ++i) {
            diff = std::max(diff, std::fabs(2.0 * double(dst.p[i]) - double(out.p[i])));
            mag = std::max(mag, std::fabs(double(out.p[i])));
        }
        // Long transforms: fewer rounds, so that each size stays within seconds.
        TimingPlan plan = s.plan;
        t0 = now_ns();
        ours.run(1);
        const double one = now_ns() - t0;
        plan.rounds = std::clamp(int(3e9 / (3 * std::max(one, plan.batch_ns))), 7, plan.rounds);
        const Comparison c = compare({&ours, &peer, &peer_simd}, plan);

        const double per_element = c.subjects[0].ns / n;
        table.row();
        table.cell(K::name);
        table.cell(long(e));
        table.cell(long(n));
        comparison_cells(table, c);
        table.cell(per_element, 3);
        if (e > 1 && previous_per_element > 0)
            table.cell(per_element / previous_per_element / (double(e) / double(e - 1)), 2);
        else
            table.cell("-");
        previous_per_element = per_element;
        table.cell(c.subjects[0].ticks, 0);
        table.cell(median(build) / 1000, 1);
        table.cell(plan_ns / 1e6, 1);
        table.cell_sci(mag > 0 ? diff / mag : diff);
        table.cell(e >= kTargetFrom && e <= kTargetTo
                       ? (c.ratios[1] <= kTargetRatio ? "met" : "missed")
                       : "-");
        F::destroy(scalar);
        F::destroy(simd);
        K::release(ctx);
    }
    F::set_timelimit(-1.0);
}

}  // namespace

void bench_dct4(const Settings& s)
{
    Table table("dct4",
                "DCT-IV against FFTW's REDFT11 (" + s.configuration +
                    " build): ns per call; ratio = ours / FFTW, median of per-round ratios; "
                    "ours_ns_per_el and its growth from N/2 over the log factor "
                    "(step_over_log); target: ratio to scalar FFTW at most 1 for "
                    "N = 2^6 .. 2^20",
                join({"kind", "log2n", "n"}, comparison_columns({"fftw_scalar", "fftw_simd"}),
                     std::vector<std::string>{"ours_ns_per_el", "step_over_log",
                                              "ours_tsc_ticks", "context_build_us",
                                              "fftw_scalar_plan_ms", "max_rel_diff", "target"}));
    if (!Dct4Kind<float>::look_up() || !Dct4Kind<double>::look_up()) {
        std::printf("\ndct4: the library does not export the DCT-IV yet: skipped\n");
        return;
    }
    time_kind<float>(s, table);
    time_kind<double>(s, table);
    table.print(stdout);
    table.write(s.out_dir);
    std::vector<Panel> panels;
    for (const char* kind : {"32f", "64f"}) {
        const std::vector<std::pair<std::string, std::string>> f = {{"kind", kind}};
        panels.push_back({std::string(kind) + ": ns per call", "N", "ns", true, true, 0,
                          {{"ours", "n", "ours_ns", f},
                           {"FFTW REDFT11 scalar", "n", "fftw_scalar_ns", f},
                           {"FFTW REDFT11 SIMD", "n", "fftw_simd_ns", f}}});
    }
    Panel r{"ours / FFTW REDFT11", "N", "ratio", true, false, kTargetRatio, {}};
    for (const char* kind : {"32f", "64f"}) {
        r.series.push_back({std::string(kind) + " / scalar", "n", "ratio_fftw_scalar", {{"kind", kind}}});
        r.series.push_back({std::string(kind) + " / SIMD", "n", "ratio_fftw_simd", {{"kind", kind}}});
    }
    panels.push_back(r);
    Panel e{"ours: ns per element", "N", "ns", true, false, 0, {}};
    for (const char* kind : {"32f", "64f"})
        e.series.push_back({kind, "n", "ours_ns_per_el", {{"kind", kind}}});
    panels.push_back(e);
    Panel b{"context build", "N", "us", true, true, 0, {}};
    for (const char* kind : {"32f", "64f"})
        b.series.push_back({kind, "n", "context_build_us", {{"kind", kind}}});
    panels.push_back(b);
    write_plot(s.out_dir, table, "dct4", panels, 2);
}

}  // namespace zptg::bench
