// What every Rader form needs besides its transforms: powers of the
// primitive root and the spectrum of the cyclic convolution.
//
// For a prime p, L = p - 1, a primitive root g and a root of unity
// w = exp(s 2 pi i r / p) (s = -1 forward, +1 inverse; r the power the
// transform runs at), the convolution of u[q] = x[g^q] with w^(g^t) has the
// spectrum, 1/L folded in,
//
//   C[k] = (1/L) sum over t = 0..L-1 of w^(g^t) exp(+2 pi i t k / L)
//
// with C[0] = -1/L, C[L/2] real for p = 1 mod 4 and imaginary for
// p = 3 mod 4, and C[L-k] = (-1)^k conj(C[k]).
#ifndef ZPTG_GEN_RULES_RADER_SPECTRUM_H
#define ZPTG_GEN_RULES_RADER_SPECTRUM_H

#include <complex>

#include "core/complex.h"

namespace zptg::gen {

int power_mod(int base, long long e, int p);

std::complex<long double> rader_spectrum(int p, int g, int k, Dir dir, int power);

}  // namespace zptg::gen

#endif
