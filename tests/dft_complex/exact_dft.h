// The reference the kernels are measured against: the plain O(N^2) DFT in
// long double, with its roots of unity evaluated here from their Taylor
// series (not through the system's sinl/cosl, which an emulated x87 may
// compute to double precision only), accurate to a few units of long
// double, far below the error of any kernel.
#ifndef ZPTG_TESTS_DFT_COMPLEX_EXACT_DFT_H
#define ZPTG_TESTS_DFT_COMPLEX_EXACT_DFT_H

#include <cstddef>
#include <vector>

#include "dft_complex/complex_members.h"

namespace zptg::test {

struct Exact {
    long double re = 0;
    long double im = 0;
};

// cos and sin of 2 pi num / den.
Exact unit_root(long long num, long long den);

// X[k] = sum over n of x[n] exp(-+2 pi i n k / N): minus for the forward
// direction, plus for the inverse, unscaled.
std::vector<Exact> exact_dft(const std::vector<Exact>& x, Dir dir);

template <class E>
std::vector<Exact> widen(const std::vector<E>& x)
{
    std::vector<Exact> w(x.size());
    for (std::size_t i = 0; i < x.size(); ++i) w[i] = {x[i].re, x[i].im};
    return w;
}

}  // namespace zptg::test

#endif
