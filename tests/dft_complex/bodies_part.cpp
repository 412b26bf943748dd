// The bodies of part ZPTG_BODY_PART of ZPTG_BODY_PARTS.
#include "dft_complex/all_bodies.h"
#include "dft_complex/bodies.h"
#include "zptgenpx.h"

namespace zptg::test {

template <int Part, class T>
void add_bodies(Bodies& bodies)
{
#define ZPTG_TEST_BODY_(part, type, table, N)                                          \
    if constexpr (body_part(N, ZPTG_BODY_PARTS) == part) {                             \
        table.forward[N] = &zptg::dft_complex::forward_##N<type, SymbolIn, SymbolOut>; \
        table.inverse[N] = &zptg::dft_complex::inverse_##N<type, SymbolIn, SymbolOut>; \
    }
    ZPTG_LENGTHS_2_64(ZPTG_TEST_BODY_, Part, T, bodies)
#undef ZPTG_TEST_BODY_
}

template void add_bodies<ZPTG_BODY_PART>(Bodies&);

}  // namespace zptg::test
