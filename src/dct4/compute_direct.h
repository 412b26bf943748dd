// The DCT-IV of the short lengths 2, 4, 8, 16 and 32 as single straight-line
// bodies. Each reads its whole input into locals before the first store, so
// the output may overwrite the input. All but length 2 are the root split
// with a fixed factor d: d classes of length m = N/d through an
// odd-frequency body, a twiddle by pi (2i+1)(2r+1) / (4N) per class and row,
// and the output network of size d per row. Length 4 turns its two
// twiddles by three lifting steps each instead of four products.
// `In` and `Out` are anything indexable, so a test can watch the accesses.
#ifndef ZPTG_DCT4_COMPUTE_DIRECT_H
#define ZPTG_DCT4_COMPUTE_DIRECT_H

#include "dct4/compute_network.h"
#include "dct4/compute_oddfreq.h"

namespace zptg::dct4 {

template <class T>
ZPTG_BODY T lift4_slope(int i)
{
    if constexpr (std::is_same_v<T, float>) {
        return kLift4_32f[i];
    } else {
        return T(kLift4_64f[i]);
    }
}

// (a - i b) exp(i theta) by lifting: t = a - p b, re = b + g t,
// im = t - p re, with p = tan(pi/4 - theta/2) and g = cos(theta).
template <class T>
ZPTG_BODY Cplx<T> lift_rotate(T a, T b, T p, T g)
{
    const T t = a - p * b;
    const T re = b + g * t;
    return {re, t - p * re};
}

// X[k] = sum_j x[j] cos(pi / N (j + 1/2)(k + 1/2)) for N = 2, 4, 8, 16, 32.
template <int N, class T, class In, class Out>
ZPTG_BODY void dct4_direct(In src, Out dst)
{
    static_assert(N == 2 || N == 4 || N == 8 || N == 16 || N == 32);
    T x[N];
    unroll<N>([&](auto J) __attribute__((always_inline)) { x[J] = T(src[J]); });
    if constexpr (N == 2) {
        // One class, one rotation of x0 - i x1 by pi/8.
        const T c = cos128<T, 16>(), s = cos128<T, 48>();
        dst[0] = c * x[0] + s * x[1];
        dst[1] = s * x[0] - c * x[1];
    } else {
        constexpr int D = N == 16 ? 4 : 2;
        constexpr int M = N / D;
        // G[i][r]: class i transformed and twiddled, row r.
        Cplx<T> G[D][M / 2];
        if constexpr (N == 4) {
            G[0][0] = lift_rotate(x[0], x[3], lift4_slope<T>(0), cos128<T, 8>());
            G[1][0] = lift_rotate(x[1], x[2], lift4_slope<T>(1), cos128<T, 24>());
        } else {
            unroll<D>([&](auto I) __attribute__((always_inline)) {
                constexpr int i = I;
                T y[M];
                unroll<M / 2>([&](auto J) __attribute__((always_inline)) {
                    y[J] = x[i + 2 * D * J];
                });
                unroll<M / 2>([&](auto J) __attribute__((always_inline)) {
                    y[M / 2 + J] = x[2 * N - 1 - i - 2 * D * (M / 2 + J)];
                });
                Cplx<T> F[M / 2];
                oddfreq<M>(y, F);
                unroll<M / 2>([&](auto R) __attribute__((always_inline)) {
                    constexpr int r = R;
                    G[i][r] = rotate128<32 * (2 * i + 1) * (2 * r + 1) / N>(F[r]);
                });
            });
        }
        unroll<M / 2>([&](auto R) __attribute__((always_inline)) {
            constexpr int r = R;
            Cplx<T> W[D];
            unroll<D>([&](auto I) __attribute__((always_inline)) { W[I] = G[I][r]; });
            T out[2 * D];
            network<D, 1, 0, false>(W, out);
            unroll<D>([&](auto S) __attribute__((always_inline)) {
                constexpr int s = S;
                dst[r + M * s] = out[D + s];
                dst[N - 1 - r - M * s] = out[s];
            });
        });
    }
}

}  // namespace zptg::dct4

#endif
