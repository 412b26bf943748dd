// The Walsh-Hadamard transform's peer: a plain radix-2 loop, compiled with
// the same flags as the rest of the benchmark (kept scalar, like our
// kernels) and called through a pointer.
#ifndef ZPTG_BENCH_WHT_REFERENCE_H
#define ZPTG_BENCH_WHT_REFERENCE_H

namespace zptg::bench {

// dst = unscaled Hadamard transform of src (natural order, 2^order points):
// the first stage reads src and writes dst, the others work in place.
void wht_loop(const float* src, float* dst, int order);
void wht_loop(const double* src, double* dst, int order);

}  // namespace zptg::bench

#endif
