// The real DFT and Hartley bodies instantiated with Symbol, spread over the objects of
// bodies_part.cpp as the complex ones are (dft_complex/bodies.h), length n in part n % parts.
#ifndef ZPTG_TESTS_DFT_REAL_BODIES_H
#define ZPTG_TESTS_DFT_REAL_BODIES_H

#include "support/tape.h"

namespace zptg::test {

struct RealBodies {
    SymbolicBody forward[3][65] = {};  // by packing: CCS, Pack, Perm
    SymbolicBody inverse[3][65] = {};
    SymbolicBody hartley[65] = {};
};

// Sets the bodies of part Part; T stands for Symbol (see dft_complex/bodies.h).
template <int Part, class T = Symbol>
void add_real_bodies(RealBodies& bodies);

}  // namespace zptg::test

#endif
