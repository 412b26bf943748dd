// The generated bodies of the complex DFT, real DFT and Hartley families instantiated with Symbol.
// They are large, so their instantiation is spread over the objects of bodies_part.cpp, compiled
// once per part without optimisation.
#ifndef ZPTG_TESTS_BODIES_BODIES_H
#define ZPTG_TESTS_BODIES_BODIES_H

#include "support/tape.h"

namespace zptg::test {

struct Bodies {
    SymbolicBody complex[2][65] = {};  // forward, inverse; by length
    SymbolicBody real[2][3][65] = {};  // forward, inverse; by packing CCS, Pack, Perm
    SymbolicBody hartley[65] = {};
};

// Sets the bodies of part Part, length n in part (n + n/4) mod parts; T stands for Symbol (as a
// template parameter it keeps the bodies of other parts from being instantiated).
template <int Part, class T = Symbol>
void add_bodies(Bodies& bodies);

}  // namespace zptg::test

#endif
