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

// The transform of the M values y(Off + S j), j = 0 .. M-1, as read (upper
// half unnegated); y(J) takes an integral constant. F(k) goes to put(K, F)
// with K an integral constant, k = 0 .. M/2-1, each once. Every value is
// read where the body first needs it and every result handed out as soon as
// it is formed, so that few values are live at a time.
template <int M, int S, int Off, class T, class Y, class Put>
ZPTG_BODY void oddfreq_f(Y&& y, Put&& put)
{
    static_assert(M == 2 || M == 4 || M == 8 || M == 16 || M == 32 || M == 64);
    if constexpr (M == 2) {
        put(std::integral_constant<int, 0>{},
            Cplx<T>{y(std::integral_constant<int, Off>{}), -y(std::integral_constant<int, Off + S>{})});
    } else if constexpr (M == 4) {
        const T h = cos128<T, 32>();
        const T a = y(std::integral_constant<int, Off>{});
        const T b = y(std::integral_constant<int, Off + S>{});
        const T f = y(std::integral_constant<int, Off + 2 * S>{});
        const T e = y(std::integral_constant<int, Off + 3 * S>{});
        const T u = (b + e) * h;
        const T v = (b - e) * h;
        put(std::integral_constant<int, 0>{}, Cplx<T>{a + u, v - f});
        put(std::integral_constant<int, 1>{}, Cplx<T>{a - u, v + f});
    } else if constexpr (M == 8 || M == 32) {
        // Even and odd samples, each a transform of length M/2 with its own
        // reflected upper half; then F(k) = E(k) + w O(k) and
        // F(M/2-1-k) = conj(E(k) - w O(k)), w = exp(i pi (2k+1) / M).
        Cplx<T> E[M / 4], O[M / 4];
        oddfreq_f<M / 2, 2 * S, Off, T>(y, [&](auto K, Cplx<T> v) { E[K] = v; });
        oddfreq_f<M / 2, 2 * S, Off + S, T>(y, [&](auto K, Cplx<T> v) { O[K] = v; });
        unroll<M / 4>([&](auto K) __attribute__((always_inline)) {
            constexpr int k = K;
            const Cplx<T> wo = rotate128<(2 * k + 1) * 128 / M>(O[k]);
            put(std::integral_constant<int, k>{}, E[k] + wo);
            put(std::integral_constant<int, M / 2 - 1 - k>{}, conj_sub(E[k], wo));
        });
    } else {
        // Four decimated quarters G_c; with w as above, A = G_0, B = w^2 G_2,
        // C = w G_1, D = w^3 G_3 give four outputs per k.
        Cplx<T> G0[M / 8], G1[M / 8], G2[M / 8], G3[M / 8];
        oddfreq_f<M / 4, 4 * S, Off, T>(y, [&](auto K, Cplx<T> v) { G0[K] = v; });
        oddfreq_f<M / 4, 4 * S, Off + S, T>(y, [&](auto K, Cplx<T> v) { G1[K] = v; });
        oddfreq_f<M / 4, 4 * S, Off + 2 * S, T>(y, [&](auto K, Cplx<T> v) { G2[K] = v; });
        oddfreq_f<M / 4, 4 * S, Off + 3 * S, T>(y, [&](auto K, Cplx<T> v) { G3[K] = v; });
        unroll<M / 8>([&](auto K) __attribute__((always_inline)) {
            constexpr int k = K;
            constexpr int a = (2 * k + 1) * 128 / M;
            const Cplx<T> b = rotate128<2 * a>(G2[k]);
            const Cplx<T> c = rotate128<a>(G1[k]);
            const Cplx<T> d = rotate128<3 * a>(G3[k]);
            const Cplx<T> sum = G0[k] + b, dif = G0[k] - b;
            const Cplx<T> csum = c + d, cdif = c - d;
            put(std::integral_constant<int, k>{}, sum + csum);
            put(std::integral_constant<int, M / 2 - 1 - k>{}, conj_sub(sum, csum));
            put(std::integral_constant<int, M / 4 + k>{}, add_i(dif, cdif));
            put(std::integral_constant<int, M / 4 - 1 - k>{}, conj_sub_i(dif, cdif));
        });
    }
}

// y[S j] for j = 0 .. M-1 as read (upper half unnegated) -> F[0 .. M/2-1].
template <int M, int S = 1, class T>
ZPTG_BODY void oddfreq(const T* y, Cplx<T>* F)
{
    oddfreq_f<M, S, 0, T>([&](auto J) { return y[J]; },
                          [&](auto K, Cplx<T> v) { F[K] = v; });
}

// One column: the sequence y[j] = fwd[j stride] for j < M/2 and
// y[j] = -rev[-j stride] above, its transform stored as C(k) at
// out[k rowStride] and S(k) at out[k rowStride + imOffset]. Each input is
// loaded where the body first needs it, each result stored when formed.
template <int M, class T>
ZPTG_BODY void oddfreq_column(const T* fwd, const T* rev, int stride, T* out, int rowStride,
                              int imOffset)
{
    oddfreq_f<M, 1, 0, T>(
        [&](auto J) __attribute__((always_inline)) {
            constexpr int j = J;
            if constexpr (j < M / 2) {
                return fwd[j * stride];
            } else {
                return rev[-j * stride];
            }
        },
        [&](auto K, Cplx<T> v) __attribute__((always_inline)) {
            out[K * rowStride] = v.re;
            out[K * rowStride + imOffset] = v.im;
        });
}

}  // namespace zptg::dct4

#endif
