// The row bodies of the inner split: d2 odd-frequency results F_t of one
// row are twisted by the row's table pairs and go through a complex DFT of
// length d2 with a plus sign in the exponent. The upper half of that DFT is
// stored conjugated (as the mirrored outputs), so the DFTs here can hand out
// their upper half conjugated at no cost. Lengths 16 and 32 factor the DFT
// into two levels, 4 by 4 and 8 by 4, with a second set of table twiddles
// between them.
#ifndef ZPTG_DCT4_COMPUTE_ROWDFT_H
#define ZPTG_DCT4_COMPUTE_ROWDFT_H

#include "dct4/compute_arith.h"

namespace zptg::dct4 {

// X_s = sum_t x[t S] i^(s t), 16 sums; ConjUpper gives conj X_2, conj X_3.
template <bool ConjUpper, int S = 1, class T>
ZPTG_BODY void dft4(const Cplx<T>* x, Cplx<T>* X)
{
    const Cplx<T> t0 = x[0] + x[2 * S], t1 = x[0] - x[2 * S];
    const Cplx<T> t2 = x[S] + x[3 * S], t3 = x[S] - x[3 * S];
    X[0] = t0 + t2;
    X[1] = add_i(t1, t3);
    if constexpr (ConjUpper) {
        X[2] = conj_sub(t0, t2);
        X[3] = conj_sub_i(t1, t3);
    } else {
        X[2] = t0 - t2;
        X[3] = sub_i(t1, t3);
    }
}

// X_s = sum_t x[t] exp(2 pi i s t / 8): four products by cos(pi/4) and 52
// sums; ConjUpper gives conj X_4 .. conj X_7.
template <bool ConjUpper, class T>
ZPTG_BODY void dft8(const Cplx<T>* x, Cplx<T>* X)
{
    const T h = cos128<T, 32>();
    Cplx<T> E[4], O[4];
    dft4<false, 2>(x, E);
    dft4<false, 2>(x + 1, O);
    const Cplx<T> o1 = {(O[1].re - O[1].im) * h, (O[1].re + O[1].im) * h};
    const T p = (O[3].re + O[3].im) * h, q = (O[3].re - O[3].im) * h;  // w^3 O_3 = -p + i q
    X[0] = E[0] + O[0];
    X[1] = E[1] + o1;
    X[2] = add_i(E[2], O[2]);
    X[3] = {E[3].re - p, E[3].im + q};
    if constexpr (ConjUpper) {
        X[4] = conj_sub(E[0], O[0]);
        X[5] = conj_sub(E[1], o1);
        X[6] = conj_sub_i(E[2], O[2]);
        X[7] = {E[3].re + p, q - E[3].im};
    } else {
        X[4] = E[0] - O[0];
        X[5] = E[1] - o1;
        X[6] = sub_i(E[2], O[2]);
        X[7] = {E[3].re + p, E[3].im - q};
    }
}

// Twist of the direct rules: T_0 = F_0, T_t = F_t * pair t-1 of the row.
// The row's values lie RS elements apart.
template <int D2, int RS, class T>
ZPTG_BODY void twist_row(const T* row, const T* pairs, Cplx<T>* t)
{
    t[0] = {row[0], row[RS * D2]};
    unroll<D2 - 1>([&](auto U) __attribute__((always_inline)) {
        constexpr int u = U + 1;
        t[u] = rotate_by(Cplx<T>{row[RS * u], row[RS * (D2 + u)]}, pairs + 2 * U);
    });
}

// V[s], s = 0 .. D2-1, of one row, the upper half conjugated, handed to
// put(S, V[s]) with S an integral constant. F_t is at row[RS t] (C) and
// row[RS (D2 + t)] (S). Rules 1 to 3 (D2 = 2, 4, 8) read D2 - 1 pairs at `a`.
// D2 = 16 reads one triple at `a` and four at `b`; D2 = 32 reads eight
// triples at `a` and seven pairs at `b`.
template <int D2, int RS, class T, class Put>
ZPTG_BODY void row_dft_f(const T* row, const T* a, const T* b, Put&& put)
{
    static_assert(D2 == 2 || D2 == 4 || D2 == 8 || D2 == 16 || D2 == 32);
    if constexpr (D2 <= 8) {
        Cplx<T> t[D2], V[D2];
        twist_row<D2, RS>(row, a, t);
        if constexpr (D2 == 2) {
            V[0] = t[0] + t[1];
            V[1] = conj_sub(t[0], t[1]);
        } else if constexpr (D2 == 4) {
            dft4<true>(t, V);
        } else {
            dft8<true>(t, V);
        }
        unroll<D2>([&](auto S) __attribute__((always_inline)) { put(S, V[S]); });
    } else {
        // t = c + 4 t'. First level: for each c a DFT over t' of length
        // L = D2 / 4 of the values twisted by w4^t'; then D_c(s') is turned
        // by the fine twiddle (s', c); last, a 4-point DFT over c gives
        // V(s' + L s''), handed out as it is formed.
        constexpr int L = D2 / 4;
        const T* fine = D2 == 16 ? b : a;
        const T* coarse = D2 == 16 ? a : b;
        Cplx<T> Dc[4][L];
        unroll<4>([&](auto C) __attribute__((always_inline)) {
            constexpr int c = C;
            Cplx<T> x[L];
            x[0] = {row[RS * c], row[RS * (D2 + c)]};
            unroll<L - 1>([&](auto U) __attribute__((always_inline)) {
                constexpr int u = U + 1;
                x[u] = rotate_by(Cplx<T>{row[RS * (c + 4 * u)], row[RS * (D2 + c + 4 * u)]},
                                 coarse + 2 * U);
            });
            if constexpr (L == 4) {
                dft4<false>(x, Dc[c]);
            } else {
                dft8<false>(x, Dc[c]);
            }
        });
        unroll<L>([&](auto S) __attribute__((always_inline)) {
            constexpr int s = S;
            Cplx<T> y[4];
            y[0] = Dc[0][s];
            unroll<3>([&](auto C) __attribute__((always_inline)) {
                constexpr int c = C + 1;
                y[c] = rotate_by(Dc[c][s], fine + 6 * s + 2 * C);
            });
            Cplx<T> Y[4];
            dft4<true>(y, Y);
            unroll<4>([&](auto R) __attribute__((always_inline)) {
                put(std::integral_constant<int, s + L * R>{}, Y[R]);
            });
        });
    }
}

// One row through the DFT, stored: V[s] for s < D2/2 at fwd + s step, and
// the conjugated V[D2 - s] for s = 1 .. D2/2 at rev + (s - 1) step; real
// part first, imaginary part imOffset further. Each V is stored as soon as
// it is formed. The row's values lie RS elements apart.
template <int D2, int RS = 1, class T>
ZPTG_BODY void row_dft_store(const T* row, const T* a, const T* b, T* fwd, T* rev, int step,
                             int imOffset)
{
    row_dft_f<D2, RS>(row, a, b, [&](auto S, Cplx<T> v) __attribute__((always_inline)) {
        constexpr int s = S;
        T* const at = s < D2 / 2 ? fwd + s * step : rev + (D2 - 1 - s) * step;
        at[0] = v.re;
        at[imOffset] = v.im;
    });
}

}  // namespace zptg::dct4

#endif
