// Exact-enough constants: cosines and sines of rational multiples of 2 pi in
// long double (reduced to the first octant so that the exact values 0, 1 and
// sqrt(1/2) come out exact), and the text of a 64-bit or 32-bit literal.
#ifndef ZPTG_GEN_NUMBER_H
#define ZPTG_GEN_NUMBER_H

#include <string>

namespace zptg::gen {

// cos(2 pi num / den) and sin(2 pi num / den), den > 0, any integer num.
long double cos_2pi(long long num, long long den);
long double sin_2pi(long long num, long long den);

// The shortest decimal text that reads back as the same double (or float).
std::string double_literal(double v);
std::string float_literal(float v);

// Scale constants of a length N, as the kernels hold them:
// 1/N and 1/sqrt(N) in 64 bits, the latter as 1.0 / sqrt(N) with each of
// the two operations rounded; and the nearest 32-bit floats to 1/N and
// 1/sqrt(N).
double inv_n_64(int n);
double inv_sqrt_n_64(int n);
float inv_n_32(int n);
float inv_sqrt_n_32(int n);

}  // namespace zptg::gen

#endif
