// Long double references for the DCT-IV compute tests: the transforms as
// their definitions state them (with every angle reduced exactly as an
// integer fraction of pi before the cosine is taken), and a fast long double
// DCT-IV through a complex FFT of half the length for the long lengths,
// itself checked against the definition.
#ifndef ZPTG_TESTS_DCT4_COMPUTE_REFERENCE_H
#define ZPTG_TESTS_DCT4_COMPUTE_REFERENCE_H

#include <complex>
#include <cstdint>
#include <vector>

namespace zptg::test {

using cld = std::complex<long double>;

// cos and sin of pi num / den, num reduced modulo 2 den first.
long double cos_pi(int64_t num, int64_t den);
long double sin_pi(int64_t num, int64_t den);
cld exp_i_pi(int64_t num, int64_t den);

// One DCT-IV output: sum_j x[j] cos(pi (2j+1)(2k+1) / (4N)).
long double dct4_direct(const std::vector<long double>& x, int64_t k);
// All outputs, in O(N log N) with long double twiddles; N a power of two.
std::vector<long double> dct4_fast(const std::vector<long double>& x);

// F(k) = sum_j y[j] exp(i pi j (2k+1) / M), k < M/2, by its definition.
std::vector<cld> oddfreq_direct(const std::vector<long double>& y);
// The same through an FFT of length M (a power of two).
std::vector<cld> oddfreq_fast(const std::vector<long double>& y);

// R(s) = Re sum_i W_i exp(i pi (2i+1) s / (2D)), s = -D .. D-1, at [s + D].
std::vector<long double> network_direct(const std::vector<cld>& w);

// X_s = sum_t x_t exp(2 pi i s t / L).
std::vector<cld> dft_plus(const std::vector<cld>& x);

// Deterministic values in [-1, 1).
std::vector<long double> random_values(int64_t n, uint32_t seed);

}  // namespace zptg::test

#endif
