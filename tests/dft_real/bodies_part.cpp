// The real DFT and Hartley bodies of part ZPTG_BODY_PART of ZPTG_BODY_PARTS.
#include "dft_real/all_bodies.h"
#include "dft_real/bodies.h"
#include "hartley/all_bodies.h"
#include "zptgenpx.h"

namespace zptg::test {

template <int Part, class T>
void add_real_bodies(RealBodies& bodies)
{
#define ZPTG_TEST_BODY_(part, type, table, N)                                                  \
    if constexpr (N % ZPTG_BODY_PARTS == part) {                                               \
        table.forward[0][N] = &zptg::dft_real::forward_ccs_##N<type, SymbolIn, SymbolOut>;    \
        table.forward[1][N] = &zptg::dft_real::forward_pack_##N<type, SymbolIn, SymbolOut>;   \
        table.forward[2][N] = &zptg::dft_real::forward_perm_##N<type, SymbolIn, SymbolOut>;   \
        table.inverse[0][N] = &zptg::dft_real::inverse_ccs_##N<type, SymbolIn, SymbolOut>;    \
        table.inverse[1][N] = &zptg::dft_real::inverse_pack_##N<type, SymbolIn, SymbolOut>;   \
        table.inverse[2][N] = &zptg::dft_real::inverse_perm_##N<type, SymbolIn, SymbolOut>;   \
        table.hartley[N] = &zptg::hartley::hartley_##N<type, SymbolIn, SymbolOut>;            \
    }
    ZPTG_LENGTHS_2_64(ZPTG_TEST_BODY_, Part, T, bodies)
#undef ZPTG_TEST_BODY_
}

template void add_real_bodies<ZPTG_BODY_PART>(RealBodies&);

}  // namespace zptg::test
