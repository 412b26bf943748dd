// The direct forms of lengths 2, 3, 5 and 7, on which every other length
// stands, with their sums in the order given here (the order fixes the
// rounding). Written for the forward transform; the inverse reverses the
// sign of every sine term, which turns m - i t into m + i t.
//
// 2:  X0 = x0 + x1, X1 = x0 - x1.
// 3:  t = x1 + x2, d = x1 - x2, X0 = t + x0, m = x0 - t/2, u = s d,
//     X1 = m - i u, X2 = m + i u  (s = sin(2 pi/3)).
// (Length 4 is the Cooley-Tukey 2 x 2, whose one twiddle, -i, is free.)
// 5, 7 (conjugate pairs, h = (p-1)/2): a[j] = x[j] + x[p-j], d[j] = x[j] - x[p-j],
//     X0 = (a[1] + ... + a[h]) + x0, m[k] = x0 + sum cos(2 pi jk/p) a[j],
//     t[k] = sum sin(2 pi jk/p) d[j], X[k] = m[k] - i t[k], X[p-k] = m[k] + i t[k].
// The sums themselves, with their term orders, are those of pair_sums.h.
#include <stdexcept>

#include "rules/pair_sums.h"
#include "rules/transform.h"

namespace zptg::gen {
namespace {

// X[k], X[p-k] from the cosine sum m and the sine sum t of a pair: forward
// m - i t and m + i t, inverse the other way round.
void conjugate_pair(const ComplexOps& ops, Cplx m, Cplx t, Dir dir, Cplx* xk, Cplx* xpk)
{
    const Cplx it = ComplexOps::times_i(t, sign_of(dir));  // forward: -i t
    *xk = ops.add(m, it);
    *xpk = ops.sub(m, it);
}

CVec dft2(const ComplexOps& ops, const CVec& x)
{
    return {ops.add(x[0], x[1]), ops.sub(x[0], x[1])};
}

// 3, 5, 7: the pair sums and differences, the sums of pair_sums(), then
// the outputs of each pair.
CVec conjugate_pair_form(const ComplexOps& ops, const Rule& rule, const CVec& x, Dir dir)
{
    const int p = int(x.size()), h = (p - 1) / 2;
    std::vector<Cplx> a(h), d(h);
    for (int j = 1; j <= h; ++j) a[j - 1] = ops.add(x[j], x[p - j]);
    for (int j = 1; j <= h; ++j) d[j - 1] = ops.sub(x[j], x[p - j]);
    for (Cplx& v : d) v = ops.oriented(v, rule.orientation.pair_differences);
    const PairSums<Cplx> s = pair_sums(ops, p, 1, x[0], a, d);
    CVec X(p);
    X[0] = s.total;
    if (p == 3) {
        // X1 = m - i u: its real part is written u.im + m.re.
        Graph& g = ops.graph();
        const Cplx iu = ComplexOps::times_i(s.t[0], sign_of(dir));
        X[1] = {g.add(iu.re, s.m[0].re), g.add(s.m[0].im, iu.im)};
        X[2] = ops.sub(s.m[0], iu);
        return X;
    }
    for (int k = 1; k <= h; ++k) conjugate_pair(ops, s.m[k - 1], s.t[k - 1], dir, &X[k], &X[p - k]);
    return X;
}

}  // namespace

CVec direct_form(const ComplexOps& ops, const Rule& rule, const CVec& x, Dir dir)
{
    switch (x.size()) {
    case 2: return dft2(ops, x);
    case 3:
    case 5:
    case 7: return conjugate_pair_form(ops, rule, x, dir);
    }
    throw std::logic_error("no direct form for this length");
}

}  // namespace zptg::gen
