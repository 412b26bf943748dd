// Odd-frequency transforms of the fixed lengths 2 .. 64:
//   F(k) = sum_j y[j] exp(i pi j (2k + 1) / M),  k = 0 .. M/2 - 1,
// for a real sequence whose upper half j >= M/2 is the negated mirror of the
// data. A body takes the M values as they stand in memory (the upper half
// not yet negated) and folds the sign into its sums. Lengths 2 and 4 are
// written out; 8 and 32 are one radix-2 step on two halves, 16 and 64 one
// radix-4 step on four quarters. Everything is unrolled at compile time: a
// body is straight-line code with literal constants.
#ifndef ZPTG_DCT4_COMPUTE_ODDFREQ_H
#define ZPTG_DCT4_COMPUTE_ODDFREQ_H

#include "dct4/compute_arith.h"

namespace zptg::dct4 {

// y[S j] for j = 0 .. M-1 as read (upper half unnegated) -> F[0 .. M/2-1].
template <int M, int S = 1, class T>
ZPTG_BODY void oddfreq(const T* y, Cplx<T>* F)
{
    static_assert(M == 2 || M == 4 || M == 8 || M == 16 || M == 32 || M == 64);
    if constexpr (M == 2) {
        F[0] = {y[0], -y[S]};
    } else if constexpr (M == 4) {
        const T h = cos128<T, 32>();
        const T a = y[0], b = y[S], f = y[2 * S], e = y[3 * S];
        const T u = (b + e) * h;
        const T v = (b - e) * h;
        F[0] = {a + u, v - f};
        F[1] = {a - u, v + f};
    } else if constexpr (M == 8 || M == 32) {
        // Even and odd samples, each a transform of length M/2 with its own
        // reflected upper half; then F(k) = E(k) + w O(k) and
        // F(M/2-1-k) = conj(E(k) - w O(k)), w = exp(i pi (2k+1) / M).
        Cplx<T> E[M / 4], O[M / 4];
        oddfreq<M / 2, 2 * S>(y, E);
        oddfreq<M / 2, 2 * S>(y + S, O);
        unroll<M / 4>([&](auto K) __attribute__((always_inline)) {
            constexpr int k = K;
            const Cplx<T> wo = rotate128<(2 * k + 1) * 128 / M>(O[k]);
            F[k] = E[k] + wo;
            F[M / 2 - 1 - k] = conj_sub(E[k], wo);
        });
    } else {
        // Four decimated quarters G_c; with w as above, A = G_0, B = w^2 G_2,
        // C = w G_1, D = w^3 G_3 give four outputs per k.
        Cplx<T> G0[M / 8], G1[M / 8], G2[M / 8], G3[M / 8];
        oddfreq<M / 4, 4 * S>(y, G0);
        oddfreq<M / 4, 4 * S>(y + S, G1);
        oddfreq<M / 4, 4 * S>(y + 2 * S, G2);
        oddfreq<M / 4, 4 * S>(y + 3 * S, G3);
        unroll<M / 8>([&](auto K) __attribute__((always_inline)) {
            constexpr int k = K;
            constexpr int a = (2 * k + 1) * 128 / M;
            const Cplx<T> b = rotate128<2 * a>(G2[k]);
            const Cplx<T> c = rotate128<a>(G1[k]);
            const Cplx<T> d = rotate128<3 * a>(G3[k]);
            const Cplx<T> sum = G0[k] + b, dif = G0[k] - b;
            const Cplx<T> csum = c + d, cdif = c - d;
            F[k] = sum + csum;
            F[M / 2 - 1 - k] = conj_sub(sum, csum);
            F[M / 4 + k] = add_i(dif, cdif);
            F[M / 4 - 1 - k] = conj_sub_i(dif, cdif);
        });
    }
}

// One column: the sequence y[j] = fwd[j stride] for j < M/2 and
// y[j] = -rev[-j stride] above, its transform stored as C(k) at
// out[k rowStride] and S(k) at out[k rowStride + imOffset].
template <int M, class T>
ZPTG_BODY void oddfreq_column(const T* fwd, const T* rev, int stride, T* out, int rowStride,
                              int imOffset)
{
    T y[M];
    unroll<M / 2>([&](auto J) __attribute__((always_inline)) { y[J] = fwd[J * stride]; });
    unroll<M / 2>([&](auto J) __attribute__((always_inline)) {
        y[M / 2 + J] = rev[-(M / 2 + J) * stride];
    });
    Cplx<T> F[M / 2];
    oddfreq<M>(y, F);
    unroll<M / 2>([&](auto K) __attribute__((always_inline)) {
        out[K * rowStride] = F[K].re;
        out[K * rowStride + imOffset] = F[K].im;
    });
}

}  // namespace zptg::dct4

#endif
