// The cosine and sine sums of the conjugate-pair form of a prime length
// p = 3, 5, 7 or 11, shared by the complex direct forms and the real forward
// and inverse ones. With h = (p-1)/2, the pair sums a[j] = x[j] + x[p-j],
// the pair differences d[j] = x[j] - x[p-j] (j = 1..h) and the term x0:
//
//   total = (a[1] + ... + a[h]) + x0
//   m[k]  = x0 + sum over j of cos(2 pi r j k / p) a[j]       k = 1..h
//   t[k]  = sum over j of sin(2 pi r j k / p) d[j]
//
// where r is the power of the root the transform is taken with (1 for the
// plain transform; a stage of a Good-Thomas split runs at another power).
// Each sum is formed from products with the positive magnitudes of the
// constants, a negative term being subtracted, and in the term order below
// (which fixes the rounding; for 3, 5 and 7 it is that of the kernels).
// Nothing is shared between different k but the a[j] and d[j].
#ifndef ZPTG_GEN_RULES_PAIR_SUMS_H
#define ZPTG_GEN_RULES_PAIR_SUMS_H

#include <stdexcept>
#include <vector>

#include "core/number.h"

namespace zptg::gen {

template <class V>
struct PairSums {
    V total;
    std::vector<V> m, t;  // m[k-1], t[k-1]
};

// `a` and `d` hold a[1..h] and d[1..h] at index j - 1.
template <class Ops, class V>
PairSums<V> pair_sums(const Ops& ops, int p, int power, const V& x0, const std::vector<V>& a,
                      const std::vector<V>& d)
{
    const int h = (p - 1) / 2;
    if (int(a.size()) != h || int(d.size()) != h) throw std::logic_error("pair sums: wrong count");
    // cos and sin of 2 pi r j k / p times a[j] or d[j].
    auto c = [&](int k, int j) { return ops.scale(cos_2pi((long long)power * j * k, p), a[j - 1]); };
    auto s = [&](int k, int j) { return ops.scale(sin_2pi((long long)power * j * k, p), d[j - 1]); };
    auto plus = [&](V x, V y) { return ops.add(x, y); };

    PairSums<V> r;
    V sum = a[0];
    for (int j = 2; j <= h; ++j) sum = plus(sum, a[j - 1]);
    r.total = plus(sum, x0);
    r.m.resize(h);
    r.t.resize(h);
    switch (p) {
    case 3:
        r.m[0] = plus(x0, c(1, 1));
        r.t[0] = s(1, 1);
        break;
    case 5: {
        // m1 = (c a1 + c a2) + x0, m2 = (x0 + c a1) + c a2.
        V u = c(1, 1);
        V v = plus(u, c(1, 2));
        r.m[0] = plus(v, x0);
        u = c(2, 1);
        v = c(2, 2);
        r.m[1] = plus(plus(x0, u), v);
        for (int k = 1; k <= 2; ++k) {
            v = s(k, 1);
            r.t[k - 1] = plus(v, s(k, 2));
        }
        break;
    }
    case 7: {
        // m1 = ((c a1 + c a2) + c a3) + x0, m2 = ((x0 + c a1) + c a2) + c a3,
        // m3 = (c a2 + (x0 + c a1)) + c a3.
        V u = c(1, 1);
        V v = plus(u, c(1, 2));
        r.m[0] = plus(plus(v, c(1, 3)), x0);
        u = plus(x0, c(2, 1));
        v = plus(u, c(2, 2));
        r.m[1] = plus(v, c(2, 3));
        u = c(3, 2);
        v = plus(u, plus(x0, c(3, 1)));
        r.m[2] = plus(v, c(3, 3));
        for (int k = 1; k <= 3; ++k) {
            V w = s(k, 1);
            w = plus(w, s(k, 2));
            r.t[k - 1] = plus(w, s(k, 3));
        }
        break;
    }
    case 11:
        // x0 first, then the terms in the order of j.
        for (int k = 1; k <= h; ++k) {
            V u = x0;
            for (int j = 1; j <= h; ++j) u = plus(u, c(k, j));
            r.m[k - 1] = u;
            V w = s(k, 1);
            for (int j = 2; j <= h; ++j) w = plus(w, s(k, j));
            r.t[k - 1] = w;
        }
        break;
    default: throw std::logic_error("no conjugate-pair form for this length");
    }
    return r;
}

}  // namespace zptg::gen

#endif
