// One part of the Symbol instantiations of the generated bodies, chosen by
// ZPTG_BODY_PART (the build compiles this file once per part, without
// optimisation: the tape is the only result wanted).
#include "dft_complex/all_bodies.h"
#include "dft_complex/symbolic_bodies.h"

namespace zptg::test {

// T stands for Symbol: as a template parameter it keeps the bodies of other
// parts, in the discarded branches, from being instantiated here.
template <int Part, class T>
void add_symbolic_bodies(SymbolicBodies& bodies)
{
#define ZPTG_TEST_BODY_(part, type, table, N)                                            \
    if constexpr (body_part(N) == part) {                                                \
        table.forward[N] = &zptg::dft_complex::forward_##N<type, SymbolIn, SymbolOut>;   \
        table.inverse[N] = &zptg::dft_complex::inverse_##N<type, SymbolIn, SymbolOut>;   \
    }
    ZPTG_LENGTHS_2_64(ZPTG_TEST_BODY_, Part, T, bodies)
#undef ZPTG_TEST_BODY_
}

template void add_symbolic_bodies<ZPTG_BODY_PART>(SymbolicBodies&);

}  // namespace zptg::test
