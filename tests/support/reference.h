// The exact references the families are measured against, in long double: one per transform, by its
// definition (or, for the long DCT-IV lengths, an FFT of long double values), with every angle an
// exact fraction of pi whose sine and cosine come from their Taylor series here rather than from
// the system's sinl/cosl (which an emulated x87 may compute to double precision only). Far below
// the error of any kernel.
#ifndef ZPTG_TESTS_SUPPORT_REFERENCE_H
#define ZPTG_TESTS_SUPPORT_REFERENCE_H

#include <complex>
#include <cstdint>
#include <cstring>
#include <vector>

namespace zptg::test {

using cld = std::complex<long double>;
using Reals = std::vector<long double>;

// cos + i sin of pi num / den.
cld exp_i_pi(int64_t num, int64_t den);
inline long double cos_pi(int64_t num, int64_t den) { return exp_i_pi(num, den).real(); }
inline long double sin_pi(int64_t num, int64_t den) { return exp_i_pi(num, den).imag(); }

// X[k] = sum_t x[t] exp(sign 2 pi i k t / N), unscaled: sign -1 for the forward DFT, +1 for the
// inverse.
std::vector<cld> exact_dft(const std::vector<cld>& x, int sign);

// The Walsh-Hadamard transform in natural order, unscaled, by its plain network: stages of distance
// 1, 2, 4, ..., butterflies (a, b) -> (a + b, a - b) with the lower index as minuend. In long
// double it is exact when every partial sum fits the significand, as for random_values' inputs.
template <class V>
V wht_network(V x)
{
    for (size_t d = 1; d < x.size(); d *= 2)
        for (size_t i = 0; i < x.size(); ++i)
            if ((i & d) == 0) {
                const auto a = x[i], b = x[i + d];
                x[i] = a + b;
                x[i + d] = a - b;
            }
    return x;
}

// DCT-IV: X[k] = sum_j x[j] cos(pi (2j+1)(2k+1) / 4N), for a power-of-two length through a complex
// FFT of N/2.
Reals dct4_fast(const Reals& x);

// Pieces of the DCT-IV's split, for its bodies: F(k) = sum_j y[j] exp(i pi j (2k+1) / M), k < M/2,
// through an FFT of M;
std::vector<cld> oddfreq(const Reals& y);
// R(s) = Re sum_i W_i exp(i pi (2i+1) s / 2D), s = -D .. D-1, at [s + D];
Reals network_sum(const std::vector<cld>& w);

// Equal bit for bit (so the sign of a zero and a NaN's bits count too).
template <class V>
bool same_bits(const V& a, const V& b)
{
    return a.size() == b.size() && std::memcmp(a.data(), b.data(), a.size() * sizeof(a[0])) == 0;
}

// n values in [-1, 1), multiples of 2^-22 (exact in every element width).
Reals random_values(int64_t n, uint32_t seed);

}  // namespace zptg::test

#endif
