// The generated bodies instantiated with Symbol. They are large, so their instantiation is spread
// over the objects of bodies_part.cpp, compiled once per part without optimisation.
#ifndef ZPTG_TESTS_DFT_COMPLEX_BODIES_H
#define ZPTG_TESTS_DFT_COMPLEX_BODIES_H

#include "support/tape.h"

namespace zptg::test {

struct Bodies {
    SymbolicBody forward[65] = {};
    SymbolicBody inverse[65] = {};
};

// The part of length n: (n + n/4) mod parts spreads the cost evenly enough.
constexpr int body_part(int n, int parts) { return (n + n / 4) % parts; }

// Sets the bodies of part Part; T stands for Symbol (as a template parameter it keeps the bodies of
// other parts from being instantiated).
template <int Part, class T = Symbol>
void add_bodies(Bodies& bodies);

}  // namespace zptg::test

#endif
