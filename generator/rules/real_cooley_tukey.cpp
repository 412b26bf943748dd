// Cooley-Tukey forms of the real transforms, N = a b, at a power r of the
// root, with the half-step transform Q(b) for the middle row of an even a:
//
//   input map   n = s + b n1,   s < b, n1 < a
//   output map  k = K + a m,    K < a, m < b
//   W^(r n k) = W_N^(r s K) W_b^(r s m) W_a^(r n1 K)
//
// forward: for each s the size-a transform over n1 gives Y[s][K]. Row 0:
//   the real size-b transform over s gives X[a m]. Rows 0 < K < a/2: Y[s][K]
//   turned by the twiddle W_N^(r s K), then the complex size-b transform
//   over s gives X[K + a m]. Row a/2 (a even) is real: Q(b) over s gives
//   X[a/2 + a m], m < b/2, where
//       Q(b): Z[m] = sum over s of y[s] W_2b^(r s (2m+1))
//       Q(2): Z0 = y0 - i y1
//       Q(4): p = c (y1 - y3), q = c (y1 + y3), c = cos(2 pi/8),
//             Z0 = (y0 + p) - i (y2 + q), Z1 = (y0 - p) + i (y2 - q)
//   (at another power the same values, in another order or conjugated).
// inverse: the forward read backwards: row 0 by the real inverse of size b,
//   rows 0 < K < a/2 by the complex inverse, then the conjugate twiddle;
//   row a/2 by the inverse of Q(b); then for each s the size-a inverse over
//   K writes x[s + b n1]. The inverse of Q(4), on doubled terms:
//       e = Re Z0 - Re Z1, f = Im Z0 + Im Z1,
//       y0 = Re Z0 + Re Z1, y2 = Im Z1 - Im Z0, y1 = c (e - f), y3 = -c (e + f).
//   Those of Q(8) and Q(16), the rows of the inverse 32 and 64, are below
//   (half_step_inverse_long). Where the last stage is itself an odd
//   Cooley-Tukey form (the 9 of 27), it takes the twiddles in, so that they
//   meet the sine factors of its own last stage (twisted_inverse).
// A twiddle costs as in the complex Cooley-Tukey form.
#include <stdexcept>

#include "core/number.h"
#include "rules/real.h"
#include "rules/transform.h"

namespace zptg::gen {
namespace {

// Z[m] = sum over s of y[s] W_2b^(s (2m+1)), m < b/2.
CVec half_step_plain(Graph& g, const RVec& y)
{
    const int b = int(y.size());
    if (b == 2) return {{y[0], -y[1]}};
    if (b == 4) {
        const long double c = cos_2pi(1, 8);
        const Real p = g.mul(c, g.sub(y[1], y[3]));
        const Real q = g.mul(c, g.add(y[1], y[3]));
        return {{g.add(y[0], p), -g.add(y[2], q)}, {g.sub(y[0], p), g.sub(y[2], q)}};
    }
    throw std::logic_error("no half-step transform of this length");
}

// The index m' and conjugation with which Z at power r, entry m, is the
// plain Z[m']: r (2m+1) = +-(2m'+1) mod 2b.
std::pair<int, bool> half_step_index(int b, int power, int m)
{
    const int e = int((long long)power * (2 * m + 1) % (2 * b));
    return e < b ? std::pair{(e - 1) / 2, false} : std::pair{(2 * b - e - 1) / 2, true};
}

CVec half_step(Graph& g, const RVec& y, int power)
{
    const int b = int(y.size());
    const CVec plain = half_step_plain(g, y);
    CVec z(b / 2);
    for (int m = 0; m < b / 2; ++m) {
        const auto [mp, conj] = half_step_index(b, power, m);
        z[m] = conj ? Cplx{plain[mp].re, -plain[mp].im} : plain[mp];
    }
    return z;
}

// The inverse of Q(8) and Q(16) on the plain order, doubled terms.
//   Q(8): with v[s0] = W_16^(-s0) D[s0], D the inverse complex transform of
//         length 4 of (Z0, Z2, conj Z3, conj Z1), y[s0] = Re v[s0] and
//         y[s0 + 4] = -Im v[s0], s0 < 4.
//   Q(16): the even y are the inverse Q(8) of Z[m] + conj Z[7-m], the odd y
//         that of W_32^(-(2m+1)) (Z[m] - conj Z[7-m]), m < 4.
RVec half_step_inverse_long(Graph& g, const CVec& z)
{
    const int b = 2 * int(z.size());
    ComplexOps ops(g);
    auto conj = [](Cplx v) { return Cplx{v.re, -v.im}; };
    if (b == 8) {
        const CVec d = complex_row(ops, {z[0], z[2], conj(z[3]), conj(z[1])}, Dir::Inverse, 1);
        RVec y(8);
        for (int s0 = 0; s0 < 4; ++s0) {
            const Cplx v = twiddle(ops, d[s0], s0, 16, Dir::Inverse);
            y[s0] = v.re;
            y[s0 + 4] = -v.im;
        }
        return y;
    }
    if (b == 16) {
        CVec even(4), odd(4);
        for (int m = 0; m < 4; ++m) {
            even[m] = ops.add(z[m], conj(z[7 - m]));
            odd[m] = twiddle(ops, ops.sub(z[m], conj(z[7 - m])), 2 * m + 1, 32, Dir::Inverse);
        }
        const RVec ye = half_step_inverse_long(g, even), yo = half_step_inverse_long(g, odd);
        RVec y(16);
        for (int t = 0; t < 8; ++t) {
            y[2 * t] = ye[t];
            y[2 * t + 1] = yo[t];
        }
        return y;
    }
    throw std::logic_error("no inverse half-step transform of this length");
}

// y[s] = sum over m < b/2 of Re(Z'[m] W_2b^(-r s (2m+1))), Z' doubled.
RVec half_step_inverse(Graph& g, const CVec& z, int power)
{
    const int b = 2 * int(z.size());
    CVec plain(b / 2);
    for (int m = 0; m < b / 2; ++m) {
        const auto [mp, conj] = half_step_index(b, power, m);
        plain[mp] = conj ? Cplx{z[m].re, -z[m].im} : z[m];
    }
    if (b == 2) return {plain[0].re, -plain[0].im};
    if (b == 4) {
        const long double c = cos_2pi(1, 8);
        const Real y0 = g.add(plain[0].re, plain[1].re);
        const Real e = g.sub(plain[0].re, plain[1].re);
        const Real f = g.add(plain[0].im, plain[1].im);
        const Real y2 = g.sub(plain[1].im, plain[0].im);
        return {y0, g.mul(c, g.sub(e, f)), y2, g.mul(-c, g.add(e, f))};
    }
    return half_step_inverse_long(g, plain);
}

struct Split {
    int n, a, b, power;
    const RealRule* a_rule;
    const RealRule* b_rule;
};

Split split_of(const RealRule& rule, int power, bool inverse)
{
    auto table = inverse ? real_inverse_rule : real_forward_rule;
    return {rule.n, rule.a, rule.b, power, rule.a_rule ? rule.a_rule : &table(rule.a),
            rule.b_rule ? rule.b_rule : &table(rule.b)};
}

HalfSpectrum forward_rows(Graph& g, const Split& s, const std::vector<HalfSpectrum>& y)
{
    ComplexOps ops(g);
    HalfSpectrum X(s.n / 2 + 1);
    {
        RVec z(s.b);
        for (int r = 0; r < s.b; ++r) z[r] = y[r][0].re;
        const HalfSpectrum Z = real_forward(g, *s.b_rule, z, s.power);
        for (int m = 0; m < s.b; ++m) store_spectrum(&X, s.n, s.a * m, spectrum_at(Z, s.b, m));
    }
    for (int k = 1; 2 * k < s.a; ++k) {
        CVec z(s.b);
        for (int r = 0; r < s.b; ++r)
            z[r] = twiddle(ops, y[r][k], (long long)s.power * r * k, s.n, Dir::Forward);
        const CVec Z = complex_row(ops, z, Dir::Forward, s.power);
        for (int m = 0; m < s.b; ++m) store_spectrum(&X, s.n, k + s.a * m, Z[m]);
    }
    if (s.a % 2 == 0) {
        RVec z(s.b);
        for (int r = 0; r < s.b; ++r) z[r] = y[r][s.a / 2].re;
        const CVec Z = half_step(g, z, s.power);
        for (int m = 0; m < s.b / 2; ++m) store_spectrum(&X, s.n, s.a / 2 + s.a * m, Z[m]);
    }
    return X;
}

// Whether the last stage of an inverse Cooley-Tukey form takes its
// twiddles in (twisted_inverse): an odd Cooley-Tukey stage, whose input
// has no Nyquist term and which has complex rows of its own.
bool takes_twiddles(const RealRule& stage)
{
    return stage.form == RealForm::CooleyTukey && stage.n % 2 != 0;
}

// The inverse Cooley-Tukey form on a twisted half spectrum: the input X[j]
// stands for X[j] W^(t j) (W = exp(2 pi i / nt), j taken in (-n/2, n/2]),
// the twiddles of an enclosing form that are not yet made (t = 0: none).
// A complex row k runs on X[k + a m] W^(t (j - k)), j the index k + a m
// in (-n/2, n/2], and its outputs then take the twist W^(t k) together
// with their own twiddle, as one product. So a last stage of size 3 meets
// a product at each output of the row, also the first, and takes its
// sine factor into it (real_direct.cpp), where twiddling the input first
// would leave the first output without one.
//   Row 0 and (even a) row a/2 take the twist on their inputs. An odd
// Cooley-Tukey last stage takes the twiddles of this form the same way.
RVec twisted_inverse(Graph& g, const Split& s, const HalfSpectrum& X, long long t, int nt)
{
    ComplexOps ops(g);
    const long long scale = nt / s.n;
    auto centred = [&](int j) { return 2 * j <= s.n ? j : j - s.n; };
    auto twisted = [&](int j, long long e) {
        return twiddle(ops, spectrum_at(X, s.n, j), e, nt, Dir::Inverse);
    };
    const bool pass_on = takes_twiddles(*s.a_rule);
    std::vector<HalfSpectrum> y(s.b, HalfSpectrum(s.a / 2 + 1));
    {
        HalfSpectrum Z(s.b / 2 + 1);
        for (int m = 0; 2 * m <= s.b; ++m) Z[m] = twisted(s.a * m, t * (s.a * m));
        const RVec z = real_inverse(g, *s.b_rule, Z, s.power);
        for (int r = 0; r < s.b; ++r) y[r][0] = {z[r], Real{}};
    }
    for (int k = 1; 2 * k < s.a; ++k) {
        CVec Z(s.b);
        for (int m = 0; m < s.b; ++m) {
            const int j = (k + s.a * m) % s.n;
            Z[m] = twisted(j, t * (centred(j) - k));
        }
        const CVec z = complex_row(ops, Z, Dir::Inverse, s.power);
        for (int r = 0; r < s.b; ++r)
            y[r][k] = pass_on ? z[r]
                              : twiddle(ops, z[r], k * (t + scale * s.power * r), nt, Dir::Inverse);
    }
    if (s.a % 2 == 0) {
        CVec Z(s.b / 2);
        for (int m = 0; m < s.b / 2; ++m) {
            const int j = s.a / 2 + s.a * m;
            Z[m] = twisted(j, t * j);
        }
        const RVec z = half_step_inverse(g, Z, s.power);
        for (int r = 0; r < s.b; ++r) y[r][s.a / 2] = {z[r], Real{}};
    }
    RVec x(s.n);
    for (int r = 0; r < s.b; ++r) {
        const RVec v = pass_on ? twisted_inverse(g, split_of(*s.a_rule, s.power % s.a, true), y[r],
                                                 t + scale * s.power * r, nt)
                               : real_inverse(g, *s.a_rule, y[r], s.power);
        for (int n1 = 0; n1 < s.a; ++n1) x[r + s.b * n1] = v[n1];
    }
    return x;
}

}  // namespace

HalfSpectrum real_cooley_tukey_forward(Graph& g, const RealRule& rule, const RVec& x, int power)
{
    const Split s = split_of(rule, power, false);
    std::vector<HalfSpectrum> y(s.b);
    for (int r = 0; r < s.b; ++r) {
        RVec coset(s.a);
        for (int n1 = 0; n1 < s.a; ++n1) coset[n1] = x[r + s.b * n1];
        y[r] = real_forward(g, *s.a_rule, coset, s.power);
    }
    return forward_rows(g, s, y);
}

// From the halves, for an even a: the pair (q, q + N/2) is (n1, n1 + a/2)
// of one size-a transform.
HalfSpectrum real_cooley_tukey_forward_halves(Graph& g, const RealRule& rule, const RVec& plus,
                                              const RVec& minus, int power)
{
    const Split s = split_of(rule, power, false);
    if (s.a % 2 != 0) throw std::logic_error("Cooley-Tukey halves need an even first stage");
    std::vector<HalfSpectrum> y(s.b);
    for (int r = 0; r < s.b; ++r) {
        RVec p(s.a / 2), m(s.a / 2);
        for (int n1 = 0; n1 < s.a / 2; ++n1) {
            p[n1] = plus[r + s.b * n1];
            m[n1] = minus[r + s.b * n1];
        }
        y[r] = real_forward_halves(g, *s.a_rule, p, m, s.power);
    }
    return forward_rows(g, s, y);
}

RVec real_cooley_tukey_inverse(Graph& g, const RealRule& rule, const HalfSpectrum& X, int power)
{
    return twisted_inverse(g, split_of(rule, power, true), X, 0, rule.n);
}

}  // namespace zptg::gen
