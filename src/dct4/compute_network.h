// The output network of the root's last stage: d twisted values W_i become
// the 2d real numbers
//   R(s) = Re sum_i W_i exp(i pi (2i + 1) s / (2d)),  s = -d .. d-1,
// of which the imaginary parts are never formed. A plain step halves the
// size (W_i paired with conj W_{d-1-i}, one rotation per pair); the fused
// step quarters it with three rotations per group of four columns; size 2
// ends with two products by cos(pi/4). Also here: the row body of that stage,
// which twists a row of C/S values by its table pairs and stores the 2d
// results forward and mirrored.
#ifndef ZPTG_DCT4_COMPUTE_NETWORK_H
#define ZPTG_DCT4_COMPUTE_NETWORK_H

#include "dct4/compute_arith.h"

namespace zptg::dct4 {

// W[0 .. D-1] -> R(s) at R[O + OS (s + D)]. Fused selects the fused step at
// sizes 32 and 8 (the 32-column body); otherwise plain steps throughout.
template <int D, int OS, int O, bool Fused, class T>
ZPTG_BODY void network(const Cplx<T>* W, T* R)
{
    static_assert(D == 1 || D == 2 || D == 4 || D == 8 || D == 16 || D == 32);
    if constexpr (D == 1) {
        R[O + OS] = W[0].re;
        R[O] = W[0].im;
    } else if constexpr (D == 2) {
        const T h = cos128<T, 32>();
        const T br = W[0].re - W[1].re, bi = W[0].im + W[1].im;
        R[O + 2 * OS] = W[0].re + W[1].re;
        R[O] = W[0].im - W[1].im;
        R[O + 3 * OS] = (br - bi) * h;
        R[O + OS] = (br + bi) * h;
    } else if constexpr (Fused && (D == 32 || D == 8)) {
        // Group c: columns c, h-1-c, h+c, D-1-c feed E_r, r = 0 .. 3, each the
        // input of a network of size D/4 that yields R(4 s + r).
        constexpr int h = D / 2, q = D / 4;
        Cplx<T> E0[q], E1[q], E2[q], E3[q];
        unroll<q>([&](auto C) __attribute__((always_inline)) {
            constexpr int c = C;
            constexpr int theta = 64 * (2 * c + 1) / D;
            const Cplx<T> w0 = W[c], w1 = W[h - 1 - c], w2 = W[h + c], w3 = W[D - 1 - c];
            const Cplx<T> a = {w0.re + w3.re, w0.im - w3.im};
            const Cplx<T> a1 = {w1.re + w2.re, w1.im - w2.im};
            const Cplx<T> u = {w0.re - w3.re, w0.im + w3.im};
            const Cplx<T> u1 = {w1.re - w2.re, w1.im + w2.im};
            E0[c] = {a.re + a1.re, a.im - a1.im};
            E2[c] = rotate128<2 * theta>(Cplx<T>{a.re - a1.re, a.im + a1.im});
            E1[c] = rotate128<theta>(Cplx<T>{u.re - u1.im, u.im - u1.re});
            E3[c] = rotate128<3 * theta>(Cplx<T>{u.re + u1.im, u.im + u1.re});
        });
        network<q, 4 * OS, O, Fused>(E0, R);
        network<q, 4 * OS, O + OS, Fused>(E1, R);
        network<q, 4 * OS, O + 2 * OS, Fused>(E2, R);
        network<q, 4 * OS, O + 3 * OS, Fused>(E3, R);
    } else {
        // a_i = W_i + conj W_{D-1-i} gives the even R, b_i = (W_i - conj
        // W_{D-1-i}) exp(i pi (2i+1) / (2D)) the odd ones.
        constexpr int h = D / 2;
        Cplx<T> a[h], b[h];
        unroll<h>([&](auto I) __attribute__((always_inline)) {
            constexpr int i = I;
            const Cplx<T> w0 = W[i], w1 = W[D - 1 - i];
            a[i] = {w0.re + w1.re, w0.im - w1.im};
            b[i] = rotate128<64 * (2 * i + 1) / D>(Cplx<T>{w0.re - w1.re, w0.im + w1.im});
        });
        network<h, 2 * OS, O, Fused>(a, R);
        network<h, 2 * OS, O + OS, Fused>(b, R);
    }
}

// Column of the table pair p of a row. For up to 16 columns the pairs run
// from both ends inwards (0, D-1, 1, D-2, ...); with 32 columns pair 2g
// holds column a + 4b + 16c for g = c + 2b + 8a, and pair 2g + 1 its mirror.
template <int D>
constexpr int table_column(int p)
{
    if constexpr (D == 32) {
        const int g = p / 2, c = g % 2, b = (g / 2) % 4, a = g / 8;
        const int column = a + 4 * b + 16 * c;
        return p % 2 == 0 ? column : D - 1 - column;
    } else {
        return p % 2 == 0 ? p / 2 : D - 1 - (p - 1) / 2;
    }
}

// One output row: C_i at in[i], S_i at in[D + i], the row's D table pairs
// at table[0 .. 2D-1]; R(s) goes to fwd[s m] for s >= 0 and R(s - D) to
// rev[-s m].
template <int D, class T>
ZPTG_BODY void twist_network_row(const T* in, const T* table, T* fwd, T* rev, int m)
{
    Cplx<T> W[D];
    unroll<D>([&](auto P) __attribute__((always_inline)) {
        constexpr int col = table_column<D>(P);
        W[col] = rotate_by(Cplx<T>{in[col], in[D + col]}, table + 2 * P);
    });
    T R[2 * D];
    network<D, 1, 0, D == 32>(W, R);
    unroll<D>([&](auto S) __attribute__((always_inline)) {
        fwd[S * m] = R[D + S];
        rev[-S * m] = R[S];
    });
}

}  // namespace zptg::dct4

#endif
