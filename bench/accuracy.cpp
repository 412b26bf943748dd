// Accuracy beside speed: for each complex length and member, ours and FFTW
// (scalar and SIMD plans) on the same random inputs, against a DFT summed
// in long double from exactly reduced twiddles. Errors are relative to the
// RMS of the exact output: the RMS error over all outputs and trials, and
// the largest error of a single output.
#include <cmath>
#include <cstdio>
#include <vector>

#include "accuracy.h"
#include "bench.h"
#include "complex_members.h"
#include "report.h"

namespace zptg::bench {
namespace {

// The exact transform of the given (already rounded) inputs, to long
// double precision.
std::vector<LD> exact_dft(const std::vector<LD>& x, int n, int sign)
{
    const UnitRoots w(n);
    std::vector<LD> y(2 * n, 0);
    for (int k = 0; k < n; ++k) {
        LD re = 0, im = 0;
        for (int j = 0; j < n; ++j) {
            const int e = int((long(j) * k) % n);
            const LD wr = w.c[e], wi = sign * w.s[e];
            re += x[2 * j] * wr - x[2 * j + 1] * wi;
            im += x[2 * j] * wi + x[2 * j + 1] * wr;
        }
        y[2 * k] = re;
        y[2 * k + 1] = im;
    }
    return y;
}

template <class E>
void measure_member(const Settings& s, const ComplexMember<E>& m, Table& table, int& worse)
{
    using R = RealOf<E>;
    const int last = s.quick ? 16 : 64;
    for (int n = 2; n <= last; ++n) {
        const PlannedDft<R> scalar(n, m.sign, kFftwScalar), simd(n, m.sign, kFftwSimd);
        Error ours, peer, peer_simd;
        std::vector<E> src(n), dst(n);
        std::vector<LD> x(2 * n), got(2 * n);
        for (int trial = 0; trial < kTrials; ++trial) {
            fill_random(&src[0].re, 2L * n, 1000u * unsigned(trial) + unsigned(n));
            for (int i = 0; i < n; ++i) {
                x[2 * i] = src[i].re;
                x[2 * i + 1] = src[i].im;
            }
            const std::vector<LD> ref = exact_dft(x, n, m.sign);
            m.kernels[n - 2](src.data(), dst.data(), zptgScaleNone);
            for (int i = 0; i < n; ++i) {
                got[2 * i] = dst[i].re;
                got[2 * i + 1] = dst[i].im;
            }
            ours.add(ref, got, n);
            for (auto [dft, error] : {std::pair{&scalar, &peer}, std::pair{&simd, &peer_simd}}) {
                for (int i = 0; i < n; ++i) {
                    dft->in[i][0] = src[i].re;
                    dft->in[i][1] = src[i].im;
                }
                Fftw<R>::execute(dft->plan);
                for (int i = 0; i < n; ++i) {
                    got[2 * i] = dft->out[i][0];
                    got[2 * i + 1] = dft->out[i][1];
                }
                error->add(ref, got, n);
            }
        }
        table.row();
        table.cell(m.kind);
        table.cell(m.direction);
        table.cell(long(n));
        accuracy_cells(table, ours, peer, peer_simd, worse);
    }
}

}  // namespace

std::vector<std::string> accuracy_columns()
{
    return {"ours_rms", "ours_max", "fftw_scalar_rms", "fftw_scalar_max", "fftw_simd_rms",
            "fftw_simd_max", "rms_ours_over_scalar", "ours_worse"};
}

void accuracy_cells(Table& table, const Error& ours, const Error& peer, const Error& peer_simd,
                    int& worse)
{
    const bool ours_worse = ours.rms() > peer.rms() || ours.rms() > peer_simd.rms();
    worse += ours_worse;
    table.cell_sci(ours.rms());
    table.cell_sci(double(ours.max_rel));
    table.cell_sci(peer.rms());
    table.cell_sci(double(peer.max_rel));
    table.cell_sci(peer_simd.rms());
    table.cell_sci(double(peer_simd.max_rel));
    // Both exact (small lengths): as good as each other.
    table.cell(peer.rms() > 0 || ours.rms() > 0 ? ours.rms() / peer.rms() : 1.0, 3);
    table.cell(ours_worse ? "yes" : "no");
}

void accuracy_plot(const std::string& dir, const Table& table, const std::string& name,
                   const std::vector<std::pair<std::string, std::vector<std::pair<std::string, std::string>>>>& panels)
{
    std::vector<Panel> p;
    for (const auto& [title, f] : panels)
        p.push_back({title + ": RMS relative error", "N", "error", false, true, 0,
                     {{"ours", "n", "ours_rms", f},
                      {"FFTW scalar", "n", "fftw_scalar_rms", f},
                      {"FFTW SIMD", "n", "fftw_simd_rms", f}}});
    write_plot(dir, table, name, p, 2);
}

void bench_complex_accuracy(const Settings& s)
{
    Table table("accuracy",
                "Complex DFT accuracy (" + s.configuration + " build): errors relative to "
                    "the RMS of the exact output, " + std::to_string(kTrials) +
                    " random inputs per row; rms = RMS error, max = largest error of one output",
                join({"kind", "direction", "n"}, accuracy_columns()));
    int worse = 0;
    for (const auto& m : kMembers32) measure_member(s, m, table, worse);
    for (const auto& m : kMembers64) measure_member(s, m, table, worse);
    table.print(stdout);
    std::printf("\naccuracy: ours has a larger RMS error than FFTW in %d of the rows above\n",
                worse);
    table.write(s.out_dir);
    std::vector<std::pair<std::string, std::vector<std::pair<std::string, std::string>>>> panels;
    for (const char* kind : {"32fc", "64fc"})
        for (const char* dir : {"forward", "inverse"})
            panels.push_back({std::string(kind) + " " + dir, {{"kind", kind}, {"direction", dir}}});
    accuracy_plot(s.out_dir, table, "accuracy", panels);
}

}  // namespace zptg::bench
