// The direct real forms, forward and inverse, of the lengths 2, 3, 5, 7 and
// 11, at a power r of the root.
//
// forward 2:   X0 = x0 + x1, X1 = x0 - x1
// forward p:   s[j] = x[j] + x[p-j], d[j] = x[j] - x[p-j]; X0 = total,
//              Re X[k] = m[k], Im X[k] = -t[k]      (pair_sums.h, over s, d)
// inverse 2:   x0 = R0 + R1, x1 = R0 - R1
// inverse p:   with the doubled terms R'[k], I'[k]: x0 = total,
//              x[j] = e[j] - o[j], x[p-j] = e[j] + o[j], where e and o are
//              the cosine and sine sums of pair_sums.h over R' and I'
//              (the cosine matrix is symmetric, so e[j] is the sum m[j]).
// inverse 3:   x0 = R' + R0, e = R0 - R'/2, o = s I', x1 = e - o, x2 = e + o,
//              where a sine term I' that is the sum of two products (a
//              twiddle, a rotation of Rader's spectrum) takes s into those
//              products: s (c1 y + c2 z) = (s c1) y + (s c2) z. A sum that
//              holds a doubling of a kernel's input (Graph::doubled) is not
//              taken apart: the doublings are made, and s multiplies the sum.
#include <stdexcept>

#include "core/real_ops.h"
#include "rules/pair_sums.h"
#include "rules/real.h"

namespace zptg::gen {

HalfSpectrum real_direct_forward(Graph& g, const RealRule& rule, const RVec& x, int power)
{
    const int p = int(x.size());
    if (p == 2) return {{g.add(x[0], x[1]), Real{}}, {g.sub(x[0], x[1]), Real{}}};
    if (p % 2 == 0) throw std::logic_error("no direct real form for this length");
    const int h = (p - 1) / 2;
    RVec s(h), d(h);
    for (int j = 1; j <= h; ++j) s[j - 1] = g.add(x[j], x[p - j]);
    for (int j = 1; j <= h; ++j) d[j - 1] = g.sub(x[j], x[p - j]);
    const Orientation& o = rule.orientation;
    for (Real& v : d) v = g.oriented(v, o.pair_differences);
    PairSums<Real> sums = pair_sums(RealOps(g), p, power, x[0], s, d);
    for (Real& v : sums.m) v = g.oriented(v, o.cosine_sums);
    for (Real& v : sums.t) v = g.oriented(v, o.sine_sums);
    HalfSpectrum X(h + 1);
    X[0] = {sums.total, Real{}};
    for (int k = 1; k <= h; ++k) X[k] = {sums.m[k - 1], -sums.t[k - 1]};
    return X;
}

RVec real_direct_inverse(Graph& g, int n, const HalfSpectrum& X, int power)
{
    if (n == 2) return {g.add(X[0].re, X[1].re), g.sub(X[0].re, X[1].re)};
    if (n % 2 == 0) throw std::logic_error("no direct real form for this length");
    if (n == 3) {
        const Real x0 = g.add(X[1].re, X[0].re);
        const Real e = g.add(X[0].re, g.mul(cos_2pi(power, 3), X[1].re));
        const Real o = g.mul_distributed(sin_2pi(power, 3), X[1].im);
        return {x0, g.sub(e, o), g.add(e, o)};
    }
    const int h = (n - 1) / 2;
    RVec r(h), i(h);
    for (int k = 1; k <= h; ++k) {
        r[k - 1] = X[k].re;
        i[k - 1] = X[k].im;
    }
    const PairSums<Real> sums = pair_sums(RealOps(g), n, power, X[0].re, r, i);
    RVec x(n);
    x[0] = sums.total;
    for (int j = 1; j <= h; ++j) {
        x[j] = g.sub(sums.m[j - 1], sums.t[j - 1]);
        x[n - j] = g.add(sums.m[j - 1], sums.t[j - 1]);
    }
    return x;
}

}  // namespace zptg::gen
