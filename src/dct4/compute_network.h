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

// W_i -> R(s): w(I) gives W_I (I an integral constant), put(J, v) takes R(s)
// with J = O + OS (s + D). Each W_i is asked for exactly once, at the step
// that first uses it, so a caller may compute it there (the row body twists
// its columns on demand) and keep fewer values live. Fused selects the
// fused step at sizes 32 and 8 (the 32-column body); otherwise plain steps
// throughout.
template <int D, int OS, int O, bool Fused, class T, class GetW, class PutR>
ZPTG_BODY void network_f(GetW&& w, PutR&& put)
{
    static_assert(D == 1 || D == 2 || D == 4 || D == 8 || D == 16 || D == 32);
    using I0 = std::integral_constant<int, 0>;
    using I1 = std::integral_constant<int, 1>;
    if constexpr (D == 1) {
        const Cplx<T> w0 = w(I0{});
        put(std::integral_constant<int, O + OS>{}, w0.re);
        put(std::integral_constant<int, O>{}, w0.im);
    } else if constexpr (D == 2) {
        const T h = cos128<T, 32>();
        const Cplx<T> w0 = w(I0{}), w1 = w(I1{});
        const T br = w0.re - w1.re, bi = w0.im + w1.im;
        put(std::integral_constant<int, O + 2 * OS>{}, w0.re + w1.re);
        put(std::integral_constant<int, O>{}, w0.im - w1.im);
        put(std::integral_constant<int, O + 3 * OS>{}, (br - bi) * h);
        put(std::integral_constant<int, O + OS>{}, (br + bi) * h);
    } else if constexpr (Fused && (D == 32 || D == 8)) {
        // Group c: columns c, h-1-c, h+c, D-1-c feed E_r, r = 0 .. 3, each the
        // input of a network of size D/4 that yields R(4 s + r).
        constexpr int h = D / 2, q = D / 4;
        Cplx<T> E0[q], E1[q], E2[q], E3[q];
        unroll<q>([&](auto C) __attribute__((always_inline)) {
            constexpr int c = C;
            constexpr int theta = 64 * (2 * c + 1) / D;
            const Cplx<T> w0 = w(std::integral_constant<int, c>{});
            const Cplx<T> w3 = w(std::integral_constant<int, D - 1 - c>{});
            const Cplx<T> w1 = w(std::integral_constant<int, h - 1 - c>{});
            const Cplx<T> w2 = w(std::integral_constant<int, h + c>{});
            const Cplx<T> a = {w0.re + w3.re, w0.im - w3.im};
            const Cplx<T> a1 = {w1.re + w2.re, w1.im - w2.im};
            const Cplx<T> u = {w0.re - w3.re, w0.im + w3.im};
            const Cplx<T> u1 = {w1.re - w2.re, w1.im + w2.im};
            E0[c] = {a.re + a1.re, a.im - a1.im};
            E2[c] = rotate128<2 * theta>(Cplx<T>{a.re - a1.re, a.im + a1.im});
            E1[c] = rotate128<theta>(Cplx<T>{u.re - u1.im, u.im - u1.re});
            E3[c] = rotate128<3 * theta>(Cplx<T>{u.re + u1.im, u.im + u1.re});
        });
        network_f<q, 4 * OS, O, Fused, T>([&](auto i) { return E0[i]; }, put);
        network_f<q, 4 * OS, O + OS, Fused, T>([&](auto i) { return E1[i]; }, put);
        network_f<q, 4 * OS, O + 2 * OS, Fused, T>([&](auto i) { return E2[i]; }, put);
        network_f<q, 4 * OS, O + 3 * OS, Fused, T>([&](auto i) { return E3[i]; }, put);
    } else {
        // a_i = W_i + conj W_{D-1-i} gives the even R, b_i = (W_i - conj
        // W_{D-1-i}) exp(i pi (2i+1) / (2D)) the odd ones.
        constexpr int h = D / 2;
        Cplx<T> a[h], b[h];
        unroll<h>([&](auto I) __attribute__((always_inline)) {
            constexpr int i = I;
            const Cplx<T> w0 = w(std::integral_constant<int, i>{});
            const Cplx<T> w1 = w(std::integral_constant<int, D - 1 - i>{});
            a[i] = {w0.re + w1.re, w0.im - w1.im};
            b[i] = rotate128<64 * (2 * i + 1) / D>(Cplx<T>{w0.re - w1.re, w0.im + w1.im});
        });
        network_f<h, 2 * OS, O, Fused, T>([&](auto i) { return a[i]; }, put);
        network_f<h, 2 * OS, O + OS, Fused, T>([&](auto i) { return b[i]; }, put);
    }
}

// W[0 .. D-1] -> R(s) at R[O + OS (s + D)].
template <int D, int OS, int O, bool Fused, class T>
ZPTG_BODY void network(const Cplx<T>* W, T* R)
{
    network_f<D, OS, O, Fused, T>([&](auto i) { return W[i]; },
                                  [&](auto j, T v) { R[decltype(j)::value] = v; });
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

// The pair index of a column: the inverse of table_column.
template <int D>
constexpr int table_pair(int column)
{
    for (int p = 0; p < D; ++p) {
        if (table_column<D>(p) == column) return p;
    }
    return -1;
}

// One output row: C_i at in[i], S_i at in[D + i], the row's D table pairs
// at table[0 .. 2D-1]; R(s) goes to fwd[s m] for s >= 0 and R(s - D) to
// rev[-s m]. Each column is twisted where the network first needs it, and
// each result is stored as soon as it is formed.
template <int D, class T>
ZPTG_BODY void twist_network_row(const T* in, const T* table, T* fwd, T* rev, int m)
{
    network_f<D, 1, 0, D == 32, T>(
        [&](auto C) __attribute__((always_inline)) {
            constexpr int col = C;
            constexpr int pair = table_pair<D>(col);
            static_assert(pair >= 0);
            return rotate_by(Cplx<T>{in[col], in[D + col]}, table + 2 * pair);
        },
        [&](auto J, T v) __attribute__((always_inline)) {
            constexpr int j = J;
            if constexpr (j >= D) {
                fwd[(j - D) * m] = v;
            } else {
                rev[-j * m] = v;
            }
        });
}

}  // namespace zptg::dct4

#endif
