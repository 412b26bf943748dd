// The complex DFT family: for every length 2..64 and both directions, the
// graph of the table's rule on interleaved complex values, checked against
// the plain DFT; four members per length (forward and inverse, 32fc and
// 64fc), written by the family writer (core/family.h).
#ifndef ZPTG_GEN_FAMILIES_COMPLEX_H
#define ZPTG_GEN_FAMILIES_COMPLEX_H

#include <vector>

#include "core/complex.h"
#include "core/family.h"

namespace zptg::gen {

struct ComplexKernel {
    int n = 0;
    Dir dir = Dir::Forward;
    Graph graph;
    std::vector<Real> outputs;  // re, im of X[0], X[1], ...
};

ComplexKernel build_complex_kernel(int n, Dir dir);

// Largest error of the graph's outputs against the plain DFT for a few
// pseudo-random inputs, relative to the largest output.
long double complex_kernel_error(const ComplexKernel& k);

// The family's description.
Family complex_family();

}  // namespace zptg::gen

#endif
