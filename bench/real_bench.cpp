// The real DFT kernels (N = 2..64, forward and inverse, the packed layouts
// that differ, 32f and 64f) against FFTW's r2c and c2r plans, planned once
// restricted to scalar codelets and once free to use SIMD: time per call
// with the floor of our counts, then accuracy against an exact evaluation.
// CCS and Pack are timed at every length; Perm only at even lengths above
// 2, where it differs from Pack.
#include <cmath>
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

enum class Layout { CCS, Pack, Perm };

struct RealMember {
    const char* direction;  // "forward", "inverse"
    const char* layout;     // "CCS", "Pack", "Perm"
    Layout shape;
    const char* stem;
    const char* body;       // the generator's name of its body, in the manifest
    bool forward() const { return direction[0] == 'f'; }
};

constexpr RealMember kMembers[] = {
    {"forward", "CCS", Layout::CCS, "zptgDFTFwd_RToCCS", "forward_ccs"},
    {"forward", "Pack", Layout::Pack, "zptgDFTFwd_RToPack", "forward_pack"},
    {"forward", "Perm", Layout::Perm, "zptgDFTFwd_RToPerm", "forward_perm"},
    {"inverse", "CCS", Layout::CCS, "zptgDFTInv_CCSToR", "inverse_ccs"},
    {"inverse", "Pack", Layout::Pack, "zptgDFTInv_PackToR", "inverse_pack"},
    {"inverse", "Perm", Layout::Perm, "zptgDFTInv_PermToR", "inverse_perm"},
};

bool differs(const RealMember& m, int n) { return m.shape != Layout::Perm || (n % 2 == 0 && n > 2); }

// Elements of a layout of length n.
int layout_size(Layout l, int n) { return l == Layout::CCS ? n + 2 - n % 2 : n; }

// Positions of Re X[k] and Im X[k] (k = 0 .. n/2) in a layout; -1 where
// the layout holds no value (an imaginary part that is zero by symmetry).
int re_position(Layout l, int n, int k)
{
    if (l == Layout::CCS || k == 0) return 2 * k;
    if (l == Layout::Perm && n % 2 == 0) return 2 * k == n ? 1 : 2 * k;
    return 2 * k - 1;
}
int im_position(Layout l, int n, int k)
{
    if (k == 0 || 2 * k == n) return -1;
    return re_position(l, n, k) + 1;
}

// The exact half spectrum X[0 .. n/2] of x, interleaved, in long double.
std::vector<LD> exact_forward(const std::vector<LD>& x, int n)
{
    const UnitRoots w(n);
    std::vector<LD> y(2 * (n / 2 + 1), 0);
    for (int k = 0; k <= n / 2; ++k)
        for (int j = 0; j < n; ++j) {
            const int e = int((long(j) * k) % n);
            y[2 * k] += x[j] * w.c[e];
            y[2 * k + 1] -= x[j] * w.s[e];
        }
    return y;
}

// The exact real sequence of a half spectrum (imaginary parts of X[0] and
// of the Nyquist term ignored), as real parts of an interleaved vector.
std::vector<LD> exact_inverse(const std::vector<LD>& spectrum, int n)
{
    const UnitRoots w(n);
    std::vector<LD> y(2 * n, 0);
    for (int j = 0; j < n; ++j) {
        LD v = spectrum[0];
        for (int k = 1; 2 * k < n; ++k) {
            const int e = int((long(j) * k) % n);
            v += 2 * (spectrum[2 * k] * w.c[e] - spectrum[2 * k + 1] * w.s[e]);
        }
        if (n % 2 == 0) v += (j % 2 ? -1 : 1) * spectrum[n];
        y[2 * j] = v;
    }
    return y;
}

// One size of one member of one kind: the data, FFTW's two plans and the
// race of ours against them.
template <class R>
struct Case {
    Case(const RealMember& member, RealKernel<R> kernel, int length)
        : m(member), n(length), src(layout_size(m.shape, n) + 2), dst(layout_size(m.shape, n) + 2),
          scalar(n, m.forward() ? FFTW_R2HC : FFTW_HC2R, kFftwScalar),
          simd(n, m.forward() ? FFTW_R2HC : FFTW_HC2R, kFftwSimd), ours(kernel, src.data(), dst.data()),
          peer(scalar.plan), peer_simd(simd.plan)
    {
        fill_random(src.data(), long(src.size()), unsigned(n));
        for (PlannedReal<R>* p : {&scalar, &simd}) {
            fill_random(p->real, n, unsigned(n));
            fill_random(&p->half[0][0], 2L * (n / 2 + 1), unsigned(n));
        }
    }
    const RealMember& m;
    int n;
    std::vector<R> src, dst;
    PlannedReal<R> scalar, simd;
    RealKernelSubject<R> ours;
    FftwSubject<R> peer, peer_simd;
};

// The members of one kind that the library exports, at every length.
template <class R>
std::vector<const RealMember*> exported_members()
{
    std::vector<const RealMember*> found;
    for (const RealMember& m : kMembers) {
        bool all = true;
        for (int n = 2; n <= 64; ++n) all = all && real_kernel<R>(m.stem, n);
        if (all)
            found.push_back(&m);
        else
            std::printf("real: %s_<N>_%s not exported at every length: skipped\n", m.stem, kind_name<R>());
    }
    return found;
}

template <class R>
void time_kind(const Settings& s, const Manifest& manifest, Table& table, Table& summary)
{
    const int last = s.quick ? 16 : 64;
    const std::vector<const RealMember*> members = exported_members<R>();
    std::vector<std::unique_ptr<Case<R>>> cases;
    std::vector<Race> races;
    for (const RealMember* m : members)
        for (int n = 2; n <= last; ++n)
            if (differs(*m, n)) {
                cases.push_back(std::make_unique<Case<R>>(*m, real_kernel<R>(m->stem, n), n));
                Case<R>& k = *cases.back();
                races.emplace_back(std::vector<Subject*>{&k.ours, &k.peer, &k.peer_simd}, s.plan);
            }
    run_passes(races, s.plan);
    size_t i = 0;
    for (const RealMember* m : members) {
        SpeedTotals t;
        for (; i < cases.size() && &cases[i]->m == m; ++i) {
            const Case<R>& k = *cases[i];
            const Comparison c = races[i].result();
            table.row();
            table.cell(kind_name<R>());
            table.cell(m->direction);
            table.cell(m->layout);
            table.cell(long(k.n));
            comparison_cells(table, c);
            FftwCounts fftw;
            Fftw<R>::flops(k.scalar.plan, &fftw.add, &fftw.mul, &fftw.fma);
            floor_cells(table, s, k.n, c, code_address(real_kernel<R>(m->stem, k.n)),
                        find_counts(manifest, k.n, {m->body, m->direction}), k.n, fftw, t);
        }
        summary.row();
        summary.cell(kind_name<R>());
        summary.cell(m->direction);
        summary.cell(m->layout);
        summary_cells(summary, t);
    }
}

// Ours and FFTW's two plans on the same random inputs, every length of one
// member.
template <class R>
void measure_member(const Settings& s, const RealMember& m, Table& table, int& worse)
{
    const int last = s.quick ? 16 : 64;
    for (int n = 2; n <= last; ++n) {
        if (!differs(m, n)) continue;
        const RealKernel<R> kernel = real_kernel<R>(m.stem, n);
        const fftw_r2r_kind kind = m.forward() ? FFTW_R2HC : FFTW_HC2R;
        PlannedReal<R> scalar(n, kind, kFftwScalar), simd(n, kind, kFftwSimd);
        const int half = n / 2 + 1, size = layout_size(m.shape, n);
        // Outputs compared: the half spectrum forward, the n values inverse.
        const int outputs = m.forward() ? half : n;
        Error ours, peer, peer_simd;
        std::vector<R> src(size), dst(size);
        std::vector<LD> in(2 * half, 0), got(2 * outputs, 0);
        for (int trial = 0; trial < kTrials; ++trial) {
            const unsigned seed = 1000u * unsigned(trial) + unsigned(n);
            std::vector<LD> ref;
            if (m.forward()) {
                fill_random(src.data(), n, seed);
                ref = exact_forward(std::vector<LD>(src.begin(), src.begin() + n), n);
            } else {
                std::vector<R> spectrum(2 * half);
                fill_random(spectrum.data(), 2L * half, seed);
                spectrum[1] = 0;
                if (n % 2 == 0) spectrum[n + 1] = 0;
                for (int k = 0; k < half; ++k) {
                    in[2 * k] = spectrum[2 * k];
                    in[2 * k + 1] = spectrum[2 * k + 1];
                    src[re_position(m.shape, n, k)] = spectrum[2 * k];
                    if (im_position(m.shape, n, k) >= 0) src[im_position(m.shape, n, k)] = spectrum[2 * k + 1];
                }
                ref = exact_inverse(in, n);
            }
            kernel(src.data(), dst.data(), zptgScaleNone);
            if (m.forward())
                for (int k = 0; k < half; ++k) {
                    got[2 * k] = dst[re_position(m.shape, n, k)];
                    const int im = im_position(m.shape, n, k);
                    got[2 * k + 1] = im >= 0 ? LD(dst[im]) : 0;
                }
            else
                for (int j = 0; j < n; ++j) got[2 * j] = dst[j];
            ours.add(ref, got, outputs);
            for (auto [fftw, error] : {std::pair{&scalar, &peer}, std::pair{&simd, &peer_simd}}) {
                if (m.forward()) {
                    for (int j = 0; j < n; ++j) fftw->real[j] = src[j];
                    Fftw<R>::execute(fftw->plan);
                    for (int k = 0; k < half; ++k) {
                        got[2 * k] = fftw->half[k][0];
                        got[2 * k + 1] = fftw->half[k][1];
                    }
                } else {
                    // c2r may overwrite its input: it is set anew each time.
                    for (int k = 0; k < half; ++k) {
                        fftw->half[k][0] = R(in[2 * k]);
                        fftw->half[k][1] = R(in[2 * k + 1]);
                    }
                    Fftw<R>::execute(fftw->plan);
                    for (int j = 0; j < n; ++j) got[2 * j] = fftw->real[j];
                }
                error->add(ref, got, outputs);
            }
        }
        table.row();
        table.cell(kind_name<R>());
        table.cell(m.direction);
        table.cell(m.layout);
        table.cell(long(n));
        accuracy_cells(table, ours, peer, peer_simd, worse);
    }
}

}  // namespace

void bench_real(const Settings& s)
{
    const Manifest manifest = read_counts(s.real_manifest);
    Table table("real",
                "Real DFT kernels against FFTW's r2c (forward) and c2r (inverse) plans (" +
                    s.configuration + " build): " + speed_legend("N"),
                join({"kind", "direction", "layout", "n"}, comparison_columns({"fftw_scalar", "fftw_simd"}),
                     floor_columns()));
    Table summary("real_summary",
                  "Real DFT: ratios to FFTW by member (" + summary_legend() + ")",
                  join({"kind", "direction", "layout"}, summary_columns()));
    time_kind<float>(s, manifest, table, summary);
    time_kind<double>(s, manifest, table, summary);
    if (table.empty()) return;
    table.print(stdout);
    summary.print(stdout);
    table.write(s.out_dir);
    summary.write(s.out_dir);

    std::vector<Panel> panels;
    for (const char* kind : {"32f", "64f"})
        for (const char* dir : {"forward", "inverse"}) {
            const std::vector<std::pair<std::string, std::string>> f = {
                {"kind", kind}, {"direction", dir}, {"layout", "CCS"}};
            panels.push_back({std::string(kind) + " " + dir + " CCS: ns per call", "N", "ns", false, true, 0,
                              {{"ours", "n", "ours_ns", f},
                               {"FFTW scalar", "n", "fftw_scalar_ns", f},
                               {"FFTW SIMD", "n", "fftw_simd_ns", f}}});
        }
    for (const char* peer : {"scalar", "simd"}) {
        Panel p{std::string("CCS: ours / FFTW ") + peer, "N", "ratio", false, false, 1, {}};
        for (const char* kind : {"32f", "64f"})
            for (const char* dir : {"forward", "inverse"})
                p.series.push_back({std::string(kind) + " " + dir, "n", std::string("ratio_fftw_") + peer,
                                    {{"kind", kind}, {"direction", dir}, {"layout", "CCS"}}});
        panels.push_back(p);
    }
    for (const char* dir : {"forward", "inverse"}) {
        const std::vector<std::pair<std::string, std::string>> f = {
            {"kind", "64f"}, {"direction", dir}, {"layout", "CCS"}};
        panels.push_back({std::string("64f ") + dir + " CCS: ours / scalar FFTW and the floor", "N",
                          "ratio", false, false, 1,
                          {{"ratio", "n", "ratio_fftw_scalar", f}, {"floor", "n", "floor_ratio", f}}});
    }
    write_plot(s.out_dir, table, "real", panels, 2);
}

void bench_real_accuracy(const Settings& s)
{
    Table table("real_accuracy",
                "Real DFT accuracy (" + s.configuration + " build): errors relative to the RMS "
                    "of the exact output (the half spectrum X[0 .. N/2] forward, the N values "
                    "inverse), " + std::to_string(kTrials) +
                    " random inputs per row; rms = RMS error, max = largest error of one output",
                join({"kind", "direction", "layout", "n"}, accuracy_columns()));
    int worse = 0;
    for (const RealMember* m : exported_members<float>()) measure_member<float>(s, *m, table, worse);
    for (const RealMember* m : exported_members<double>()) measure_member<double>(s, *m, table, worse);
    if (table.empty()) return;
    table.print(stdout);
    std::printf("\nreal accuracy: ours has a larger RMS error than FFTW in %d of the rows above\n", worse);
    table.write(s.out_dir);
    std::vector<std::pair<std::string, std::vector<std::pair<std::string, std::string>>>> panels;
    for (const char* kind : {"32f", "64f"})
        for (const char* dir : {"forward", "inverse"})
            panels.push_back({std::string(kind) + " " + dir + " CCS",
                              {{"kind", kind}, {"direction", dir}, {"layout", "CCS"}}});
    accuracy_plot(s.out_dir, table, "real_accuracy", panels);
}

}  // namespace zptg::bench
