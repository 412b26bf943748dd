// The cross-check through Google Benchmark's own runner: each complex kernel
// and its scalar FFTW peer as separate benchmarks (not interleaved), for
// comparison with the interleaved harness's medians.
#ifndef ZPTG_BENCH_GBENCH_H
#define ZPTG_BENCH_GBENCH_H

// Registers the benchmarks and runs them with Google Benchmark's options;
// returns the exit status.
int run_gbench(int argc, char** argv);

#endif
