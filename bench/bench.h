// What the benchmark's parts share: the run's settings and one entry point
// per part. Each part times ours against its peer, prints its tables and
// writes them (text, CSV, gnuplot script) into the results folder.
#ifndef ZPTG_BENCH_BENCH_H
#define ZPTG_BENCH_BENCH_H

#include <string>

#include "peak.h"
#include "timing.h"

namespace zptg::bench {

struct Settings {
    TimingPlan plan;
    std::string out_dir;       // results folder
    std::string manifest;      // the generator's manifest of the complex kernels
    std::string real_manifest;     // ... of the real DFT kernels
    std::string hartley_manifest;  // ... of the Hartley kernels
    std::string configuration; // "i386" (32-bit, x87) or "native" (x86-64)
    double tsc_ghz = 0;        // TSC ticks per ns
    double core_ghz = 0;       // estimated core cycles per ns
    ScalarPeak peak;           // scalar additions and products per core cycle
    bool quick = false;        // fewer rounds and sizes: a smoke run, not for numbers
};

void bench_complex(const Settings& s);
void bench_dispatchers(const Settings& s);
void bench_complex_accuracy(const Settings& s);
void bench_real(const Settings& s);
void bench_real_accuracy(const Settings& s);
void bench_hartley(const Settings& s);
void bench_hartley_accuracy(const Settings& s);
void bench_wht(const Settings& s);
void bench_dct4(const Settings& s);

// An exported function of the library looked up by name at run time, or
// null: a family's part runs only once the library exports it.
void* library_symbol(const char* name);
template <class F>
F library_function(const char* name)
{
    return reinterpret_cast<F>(library_symbol(name));
}

// Uniform values in [-1, 1) from a fixed seed: the same inputs in every run.
void fill_random(double* v, long count, unsigned seed);
void fill_random(float* v, long count, unsigned seed);

}  // namespace zptg::bench

#endif
