// Rader's form of the real transforms of a prime length p, L = p - 1, g the
// primitive root of the rule, C the spectrum of rader_spectrum.h (of the
// transform's own direction). At another power r of the root the transform
// is this one read at r k (so a stage holds the constants of the kernel).
//
// forward, x real:
//   u[q] = x[g^q]; U = R_L(u), the first half;
//   X[0] = x0 + U[0], t0 = x0 - U[0] / L (the one node by which x0 enters);
//   V[j] = U[j] 2 C[j] for 0 < j < L/2 (four products, two sums), V[L/2] =
//   U[L/2] C[L/2] (one product);
//   the even j of V, with t0 for j = 0, form a conjugate-symmetric spectrum
//   and the odd j, times -i, another: the inverse I_L of the first gives
//   Re X[g^-m], of the second Im X[g^-m], m < L/2 (the other outputs are
//   their conjugates; of each pair m, m + L/2 the one the inverse rule makes
//   without negated copies is taken). Each of the two inverses makes only
//   the part of I_L that its half of the spectrum reaches.
// inverse, X given by its doubled terms:
//   u'[q] = 2 X[g^q] (conjugate above p/2) holds its conjugates at
//   q + L/2, so its transform is the forward one of the real halves
//   Re u'[q] and Im u'[q]: U = R_L from halves, and U[j] for odd j is i
//   times the real transform's value;
//   x[0] = X0 + U[0], t0 = X0 - U[0] / L; V as above; x[g^-m] = I_L(t0, V)[m]
//   for all m < L.
#include <stdexcept>

#include "rules/oriented_rows.h"
#include "rules/rader_spectrum.h"
#include "rules/real.h"

namespace zptg::gen {
namespace {

// The halves' rules, with the stage fields of the row's orientation.
const RealRule& first_rule(const RealRule& rule)
{
    return oriented_rows(rule.first ? *rule.first : real_forward_rule(rule.n - 1), false,
                         rule.orientation);
}
const RealRule& second_rule(const RealRule& rule)
{
    return oriented_rows(rule.second ? *rule.second : real_inverse_rule(rule.n - 1), true,
                         rule.orientation);
}

// The spectrum product: V[0] = t0, V[j] = U[j] 2 C[j], V[L/2] = U[L/2] C[L/2].
HalfSpectrum spectrum_product(Graph& g, const RealRule& rule, const CVec& u, Real t0, Dir dir)
{
    ComplexOps ops(g);
    const int p = rule.n, l = p - 1;
    HalfSpectrum v(l / 2 + 1);
    v[0] = {t0, Real{}};
    for (int j = 1; j <= l / 2; ++j) {
        const auto c = rader_spectrum(p, rule.root, j, dir, 1);
        const long double k = j < l / 2 ? 2 : 1;
        const Cplx r = ops.rotate(u[j], k * c.real(), k * c.imag());
        v[j] = {g.oriented(r.re, rule.orientation.rotation_differences),
                g.oriented(r.im, rule.orientation.rotation_sums)};
    }
    return v;
}

}  // namespace

HalfSpectrum real_rader_forward(Graph& g, const RealRule& rule, const RVec& x, int power)
{
    if (power != 1) {
        const HalfSpectrum plain = real_rader_forward(g, rule, x, 1);
        HalfSpectrum out(plain.size());
        for (size_t k = 0; k < out.size(); ++k) out[k] = spectrum_at(plain, rule.n, power * int(k));
        return out;
    }
    const int p = rule.n, l = p - 1, h = (p - 1) / 2;
    RVec u(l);
    for (int q = 0; q < l; ++q) u[q] = x[power_mod(rule.root, q, p)];
    const HalfSpectrum U = real_forward(g, first_rule(rule), u, 1);
    HalfSpectrum X(h + 1);
    X[0] = {g.add(x[0], U[0].re), Real{}};
    const Real t0 = g.oriented(g.sub(x[0], g.mul(1.0L / l, U[0].re)), rule.orientation.start);
    const HalfSpectrum V = spectrum_product(g, rule, CVec(U.begin(), U.end()), t0, Dir::Forward);
    HalfSpectrum even(l / 2 + 1), odd(l / 2 + 1);
    for (int j = 0; j <= l / 2; ++j) {
        if (j % 2 == 0)
            even[j] = V[j];
        else
            odd[j] = ComplexOps::times_i(V[j], -1);
    }
    RVec re = real_inverse(g, second_rule(rule), even, 1);
    RVec im = real_inverse(g, second_rule(rule), odd, 1);
    for (Real& v : re) v = g.oriented(v, rule.orientation.half_outputs);
    for (Real& v : im) v = g.oriented(v, rule.orientation.half_outputs);
    // X[g^-(m + L/2)] = conj X[g^-m]: of each pair of outputs the one the
    // inverse makes as it is.
    const RealRule& inverse = second_rule(rule);
    const int g_inv = power_mod(rule.root, l - 1, p);
    for (int m = 0; m < l; ++m)
        if (real_inverse_keeps(inverse, m))
            store_spectrum(&X, p, power_mod(g_inv, m, p), {re[m], im[m]});
    return X;
}

RVec real_rader_inverse(Graph& g, const RealRule& rule, const HalfSpectrum& X, int power)
{
    if (power != 1) {
        const RVec plain = real_rader_inverse(g, rule, X, 1);
        RVec out(plain.size());
        for (int j = 0; j < rule.n; ++j) out[j] = plain[(long long)power * j % rule.n];
        return out;
    }
    const int p = rule.n, l = p - 1;
    RVec plus(l / 2), minus(l / 2);
    for (int q = 0; q < l / 2; ++q) {
        const Cplx v = spectrum_at(X, p, power_mod(rule.root, q, p));
        plus[q] = v.re;
        minus[q] = v.im;
    }
    const HalfSpectrum R = real_forward_halves(g, first_rule(rule), plus, minus, 1);
    CVec U(l / 2 + 1);
    for (int j = 0; j <= l / 2; ++j) U[j] = j % 2 == 0 ? R[j] : ComplexOps::times_i(R[j], 1);
    RVec x(p);
    x[0] = g.add(X[0].re, U[0].re);
    const Real t0 = g.oriented(g.sub(X[0].re, g.mul(1.0L / l, U[0].re)), rule.orientation.start);
    const HalfSpectrum V = spectrum_product(g, rule, U, t0, Dir::Inverse);
    const RVec v = real_inverse(g, second_rule(rule), V, 1);
    const int g_inv = power_mod(rule.root, l - 1, p);
    for (int m = 0; m < l; ++m) x[power_mod(g_inv, m, p)] = v[m];
    return x;
}

}  // namespace zptg::gen
