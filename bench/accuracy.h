// Accuracy beside speed, shared by the families' parts: errors of ours and
// of FFTW's two plans against a transform evaluated in long double, relative
// to the RMS of the exact output, and the table cells that show them.
#ifndef ZPTG_BENCH_ACCURACY_H
#define ZPTG_BENCH_ACCURACY_H

#include <algorithm>
#include <cmath>
#include <string>
#include <vector>

#include "report.h"

namespace zptg::bench {

using LD = long double;

constexpr LD kPi = 3.141592653589793238462643383279502884L;
constexpr int kTrials = 8;  // random inputs per row

// cos and sin of 2 pi k / n for k = 0 .. n-1, in long double.
struct UnitRoots {
    explicit UnitRoots(int n) : c(n), s(n)
    {
        for (int k = 0; k < n; ++k) {
            c[k] = std::cos(2 * kPi * k / n);
            s[k] = std::sin(2 * kPi * k / n);
        }
    }
    std::vector<LD> c, s;
};

// Errors of one transform over all trials; values are interleaved complex
// (a real output is given with imaginary part 0).
struct Error {
    LD sum_err2 = 0, sum_ref2 = 0, max_err = 0;
    LD max_rel = 0;  // largest |error| of one output / RMS of that trial's exact output
    void add(const std::vector<LD>& ref, const std::vector<LD>& got, int n)
    {
        LD e2 = 0, r2 = 0, worst = 0;
        for (int k = 0; k < n; ++k) {
            const LD dr = got[2 * k] - ref[2 * k], di = got[2 * k + 1] - ref[2 * k + 1];
            const LD e = std::sqrt(dr * dr + di * di);
            e2 += e * e;
            r2 += ref[2 * k] * ref[2 * k] + ref[2 * k + 1] * ref[2 * k + 1];
            worst = std::max(worst, e);
        }
        sum_err2 += e2;
        sum_ref2 += r2;
        max_rel = std::max(max_rel, worst / std::sqrt(r2 / n));
    }
    double rms() const { return double(std::sqrt(sum_err2 / sum_ref2)); }
};

// ours_rms, ours_max, fftw_scalar_rms, fftw_scalar_max, fftw_simd_rms,
// fftw_simd_max, rms_ours_over_scalar, ours_worse.
std::vector<std::string> accuracy_columns();
// Fills them; counts the row in `worse` if ours has the larger RMS error.
void accuracy_cells(Table& table, const Error& ours, const Error& peer, const Error& peer_simd,
                    int& worse);

// The RMS error plots of a family's accuracy table, one panel per value of
// each filter set.
void accuracy_plot(const std::string& dir, const Table& table, const std::string& name,
                   const std::vector<std::pair<std::string, std::vector<std::pair<std::string, std::string>>>>& panels);

}  // namespace zptg::bench

#endif
