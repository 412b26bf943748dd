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
#include <stdexcept>

#include "core/number.h"
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

CVec dft3(const ComplexOps& ops, const CVec& x, Dir dir)
{
    const long double s = sin_2pi(1, 3);
    const Cplx t = ops.add(x[1], x[2]);
    const Cplx d = ops.sub(x[1], x[2]);
    CVec X(3);
    X[0] = ops.add(t, x[0]);
    const Cplx m = ops.sub(x[0], ops.scale(0.5L, t));
    const Cplx u = ops.scale(s, d);
    // X1 = m - i u: its real part is written u.im + m.re.
    Graph& g = ops.graph();
    const Cplx iu = ComplexOps::times_i(u, sign_of(dir));
    X[1] = {g.add(iu.re, m.re), g.add(m.im, iu.im)};
    X[2] = ops.sub(m, iu);
    return X;
}

CVec dft5(const ComplexOps& ops, const CVec& x, Dir dir)
{
    const long double c1 = cos_2pi(1, 5), c2 = -cos_2pi(2, 5);
    const long double s1 = sin_2pi(1, 5), s2 = sin_2pi(2, 5);
    const Cplx a1 = ops.add(x[1], x[4]), a2 = ops.add(x[2], x[3]);
    const Cplx d1 = ops.sub(x[1], x[4]), d2 = ops.sub(x[2], x[3]);
    CVec X(5);
    X[0] = ops.add(ops.add(a1, a2), x[0]);
    const Cplx m1 = ops.add(ops.sub(ops.scale(c1, a1), ops.scale(c2, a2)), x[0]);
    const Cplx m2 = ops.add(ops.sub(x[0], ops.scale(c2, a1)), ops.scale(c1, a2));
    const Cplx t1 = ops.add(ops.scale(s1, d1), ops.scale(s2, d2));
    const Cplx t2 = ops.sub(ops.scale(s2, d1), ops.scale(s1, d2));
    conjugate_pair(ops, m1, t1, dir, &X[1], &X[4]);
    conjugate_pair(ops, m2, t2, dir, &X[2], &X[3]);
    return X;
}

CVec dft7(const ComplexOps& ops, const CVec& x, Dir dir)
{
    const long double c1 = cos_2pi(1, 7), c2 = -cos_2pi(2, 7), c3 = -cos_2pi(3, 7);
    const long double s1 = sin_2pi(1, 7), s2 = sin_2pi(2, 7), s3 = sin_2pi(3, 7);
    const Cplx a1 = ops.add(x[1], x[6]), a2 = ops.add(x[2], x[5]), a3 = ops.add(x[3], x[4]);
    const Cplx d1 = ops.sub(x[1], x[6]), d2 = ops.sub(x[2], x[5]), d3 = ops.sub(x[3], x[4]);
    auto k = [&](long double c, Cplx v) { return ops.scale(c, v); };
    CVec X(7);
    X[0] = ops.add(ops.add(ops.add(a1, a2), a3), x[0]);
    const Cplx m1 = ops.add(ops.sub(ops.sub(k(c1, a1), k(c2, a2)), k(c3, a3)), x[0]);
    const Cplx m2 = ops.add(ops.sub(ops.sub(x[0], k(c2, a1)), k(c3, a2)), k(c1, a3));
    const Cplx m3 = ops.sub(ops.add(k(c1, a2), ops.sub(x[0], k(c3, a1))), k(c2, a3));
    const Cplx t1 = ops.add(ops.add(k(s1, d1), k(s2, d2)), k(s3, d3));
    const Cplx t2 = ops.sub(ops.sub(k(s2, d1), k(s3, d2)), k(s1, d3));
    const Cplx t3 = ops.add(ops.sub(k(s3, d1), k(s1, d2)), k(s2, d3));
    conjugate_pair(ops, m1, t1, dir, &X[1], &X[6]);
    conjugate_pair(ops, m2, t2, dir, &X[2], &X[5]);
    conjugate_pair(ops, m3, t3, dir, &X[3], &X[4]);
    return X;
}

}  // namespace

CVec direct_form(const ComplexOps& ops, const CVec& x, Dir dir)
{
    switch (x.size()) {
    case 2: return dft2(ops, x);
    case 3: return dft3(ops, x, dir);
    case 5: return dft5(ops, x, dir);
    case 7: return dft7(ops, x, dir);
    }
    throw std::logic_error("no direct form for this length");
}

}  // namespace zptg::gen
