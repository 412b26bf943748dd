// The bodies of part ZPTG_BODY_PART of ZPTG_BODY_PARTS.
#include "bodies/bodies.h"
#include "dft_complex/all_bodies.h"
#include "dft_real/all_bodies.h"
#include "hartley/all_bodies.h"
#include "zptgenpx.h"

namespace zptg::test {

template <int Part, class T>
void add_bodies(Bodies& b)
{
#define ZPTG_TEST_BODY_(part, I, O, N)                                                  \
    if constexpr ((N + N / 4) % ZPTG_BODY_PARTS == part) {                              \
        b.complex[0][N] = &zptg::dft_complex::forward_##N<T, I, O>;                     \
        b.complex[1][N] = &zptg::dft_complex::inverse_##N<T, I, O>;                     \
        b.real[0][0][N] = &zptg::dft_real::forward_ccs_##N<T, I, O>;                    \
        b.real[0][1][N] = &zptg::dft_real::forward_pack_##N<T, I, O>;                   \
        b.real[0][2][N] = &zptg::dft_real::forward_perm_##N<T, I, O>;                   \
        b.real[1][0][N] = &zptg::dft_real::inverse_ccs_##N<T, I, O>;                    \
        b.real[1][1][N] = &zptg::dft_real::inverse_pack_##N<T, I, O>;                   \
        b.real[1][2][N] = &zptg::dft_real::inverse_perm_##N<T, I, O>;                   \
        b.hartley[N] = &zptg::hartley::hartley_##N<T, I, O>;                            \
    }
    ZPTG_LENGTHS_2_64(ZPTG_TEST_BODY_, Part, SymbolIn, SymbolOut)
#undef ZPTG_TEST_BODY_
}

template void add_bodies<ZPTG_BODY_PART>(Bodies&);

}  // namespace zptg::test
