// The complex DFT family: for every length 2..64 and both directions, the
// graph of the table's rule, checked against the plain DFT, then emitted as
// one body header per length, the four exported kernels of that length, the
// four dispatchers and a manifest of every kernel's counts.
#ifndef ZPTG_GEN_FAMILIES_COMPLEX_H
#define ZPTG_GEN_FAMILIES_COMPLEX_H

#include <string>
#include <vector>

#include "core/analysis.h"
#include "core/complex.h"

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

// Writes the family's files below `dir`; `command` is the generator's
// command line, recorded in every file.
void write_complex_family(const std::string& dir, const std::string& command);

}  // namespace zptg::gen

#endif
