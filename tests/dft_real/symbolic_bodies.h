// The real DFT and Hartley bodies instantiated with the symbolic element
// (dft_complex/symbolic.h). The instantiations are spread over
// ZPTG_REAL_BODY_PARTS objects built from one source (symbolic_bodies_part.cpp,
// once per part), length n in part n % parts.
#ifndef ZPTG_TESTS_DFT_REAL_SYMBOLIC_BODIES_H
#define ZPTG_TESTS_DFT_REAL_SYMBOLIC_BODIES_H

#include "dft_complex/symbolic.h"
#include "dft_real/layouts.h"

namespace zptg::test {

struct RealSymbolicBodies {
    SymbolicBody forward[3][kMaxLength + 1] = {};  // by packing: CCS, Pack, Perm
    SymbolicBody inverse[3][kMaxLength + 1] = {};
    SymbolicBody hartley[kMaxLength + 1] = {};
};

// Sets the entries of the lengths of part Part.
template <int Part, class T = Symbol>
void add_real_symbolic_bodies(RealSymbolicBodies& bodies);

}  // namespace zptg::test

#endif
