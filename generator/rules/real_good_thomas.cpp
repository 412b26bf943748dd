// Good-Thomas forms of the real transforms, N = a b with a and b coprime,
// at a power r of the root:
//
//   input map   n(n1, n2) = (b n1 + a n2) mod N,   n1 < a, n2 < b
//   output map  k(k1, k2) = (b k1 + a k2) mod N
//
// With both maps of this form, W^(r n k) = W_a^(r b n1 k1) W_b^(r a n2 k2):
// the stages are transforms at the powers r b (mod a) and r a (mod b) of
// their own roots, and no twiddle is left.
//
// forward: for each n2, the size-a transform over n1 gives Y[n2][k1]; the
//   rows k1 = 0 and (a even) k1 = a/2 are real and take the real size-b
//   transform over n2, the rows 0 < k1 < a/2 the complex one; row k1, entry
//   k2 is X[k(k1, k2)] (its conjugate mirror where that lies above N/2).
// inverse: the forward read backwards: the rows of size b first, over k2,
//   then for each n2 the size-a inverse over k1, which writes x[n(n1, n2)].
#include <stdexcept>

#include "rules/real.h"

namespace zptg::gen {
namespace {

struct Split {
    int n, a, b;
    const RealRule* a_rule;
    const RealRule* b_rule;
    int power_a, power_b;
    Orientation orientation;

    int in(int n1, int n2) const { return (b * n1 + a * n2) % n; }
    int out(int k1, int k2) const { return (b * k1 + a * k2) % n; }
    bool real_row(int k1) const { return k1 == 0 || 2 * k1 == a; }
};

Split split_of(const RealRule& rule, int power, bool inverse)
{
    Split s{rule.n, rule.a, rule.b, rule.a_rule, rule.b_rule, 0, 0, rule.orientation};
    auto table = inverse ? real_inverse_rule : real_forward_rule;
    if (!s.a_rule) s.a_rule = &table(s.a);
    if (!s.b_rule) s.b_rule = &table(s.b);
    s.power_a = int((long long)power * s.b % s.a);
    s.power_b = int((long long)power * s.a % s.b);
    return s;
}

// The rows of the forward form, from the stage outputs Y[n2][k1].
HalfSpectrum forward_rows(Graph& g, const Split& s, const std::vector<HalfSpectrum>& y)
{
    ComplexOps ops(g);
    HalfSpectrum X(s.n / 2 + 1);
    for (int k1 = 0; 2 * k1 <= s.a; ++k1) {
        CVec row(s.b);
        if (s.real_row(k1)) {
            RVec z(s.b);
            for (int n2 = 0; n2 < s.b; ++n2) z[n2] = y[n2][k1].re;
            const HalfSpectrum Z = real_forward(g, *s.b_rule, z, s.power_b);
            for (int k2 = 0; k2 < s.b; ++k2) row[k2] = spectrum_at(Z, s.b, k2);
        } else {
            CVec z(s.b);
            for (int n2 = 0; n2 < s.b; ++n2) z[n2] = y[n2][k1];
            row = complex_row(ops, z, Dir::Forward, s.power_b);
        }
        const bool flip = s.real_row(k1) ? s.orientation.forward_real_rows
                                         : s.orientation.forward_complex_rows;
        for (Cplx& v : row) v = ops.oriented(v, flip);
        for (int k2 = 0; k2 < s.b; ++k2) store_spectrum(&X, s.n, s.out(k1, k2), row[k2]);
    }
    return X;
}

}  // namespace

HalfSpectrum real_good_thomas_forward(Graph& g, const RealRule& rule, const RVec& x, int power)
{
    const Split s = split_of(rule, power, false);
    std::vector<HalfSpectrum> y(s.b);
    for (int n2 = 0; n2 < s.b; ++n2) {
        RVec coset(s.a);
        for (int n1 = 0; n1 < s.a; ++n1) coset[n1] = x[s.in(n1, n2)];
        y[n2] = real_forward(g, *s.a_rule, coset, s.power_a);
    }
    return forward_rows(g, s, y);
}

// From the halves plus[q] = x[q] + x[q + N/2], minus[q] = x[q] - x[q + N/2]:
// the pair (q, q + N/2) lies in one size-a transform when a is even
// (n1 and n1 + a/2), else across the cosets n2 and n2 + b/2, whose
// transforms are then taken of the coset sums and differences and whose
// rows start from those.
HalfSpectrum real_good_thomas_forward_halves(Graph& g, const RealRule& rule, const RVec& plus,
                                             const RVec& minus, int power)
{
    const Split s = split_of(rule, power, false);
    std::vector<HalfSpectrum> y(s.b);
    if (s.a % 2 == 0) {
        for (int n2 = 0; n2 < s.b; ++n2) {
            RVec p(s.a / 2), m(s.a / 2);
            for (int n1 = 0; n1 < s.a / 2; ++n1) {
                const auto [u, v] = halves_at(plus, minus, s.in(n1, n2));
                p[n1] = u;
                m[n1] = v;
            }
            y[n2] = real_forward_halves(g, *s.a_rule, p, m, s.power_a);
        }
        return forward_rows(g, s, y);
    }
    if (s.b % 2 != 0) throw std::logic_error("halves of an odd length");
    const int hb = s.b / 2;
    std::vector<HalfSpectrum> ysum(hb), ydiff(hb);
    for (int n2 = 0; n2 < hb; ++n2) {
        RVec p(s.a), m(s.a);
        for (int n1 = 0; n1 < s.a; ++n1) {
            const auto [u, v] = halves_at(plus, minus, s.in(n1, n2));
            p[n1] = u;
            m[n1] = v;
        }
        ysum[n2] = real_forward(g, *s.a_rule, p, s.power_a);
        ydiff[n2] = real_forward(g, *s.a_rule, m, s.power_a);
    }
    ComplexOps ops(g);
    HalfSpectrum X(s.n / 2 + 1);
    for (int k1 = 0; 2 * k1 <= s.a; ++k1) {
        CVec row(s.b);
        if (s.real_row(k1)) {
            RVec zp(hb), zm(hb);
            for (int n2 = 0; n2 < hb; ++n2) {
                zp[n2] = ysum[n2][k1].re;
                zm[n2] = ydiff[n2][k1].re;
            }
            const HalfSpectrum Z = real_forward_halves(g, *s.b_rule, zp, zm, s.power_b);
            for (int k2 = 0; k2 < s.b; ++k2) row[k2] = spectrum_at(Z, s.b, k2);
        } else {
            CVec zp(hb), zm(hb);
            for (int n2 = 0; n2 < hb; ++n2) {
                zp[n2] = ysum[n2][k1];
                zm[n2] = ydiff[n2][k1];
            }
            row = complex_row_halves(ops, zp, zm, Dir::Forward, s.power_b);
        }
        for (int k2 = 0; k2 < s.b; ++k2) store_spectrum(&X, s.n, s.out(k1, k2), row[k2]);
    }
    return X;
}

RVec real_good_thomas_inverse(Graph& g, const RealRule& rule, const HalfSpectrum& X, int power)
{
    const Split s = split_of(rule, power, true);
    ComplexOps ops(g);
    // y[n2][k1]: the rows' outputs, the size-a inverses' inputs.
    std::vector<HalfSpectrum> y(s.b, HalfSpectrum(s.a / 2 + 1));
    for (int k1 = 0; 2 * k1 <= s.a; ++k1) {
        if (s.real_row(k1)) {
            HalfSpectrum Z(s.b / 2 + 1);
            for (int k2 = 0; 2 * k2 <= s.b; ++k2) Z[k2] = spectrum_at(X, s.n, s.out(k1, k2));
            const RVec z = real_inverse(g, *s.b_rule, Z, s.power_b);
            const bool flip = s.orientation.inverse_real_rows;
            for (int n2 = 0; n2 < s.b; ++n2) y[n2][k1] = {g.oriented(z[n2], flip), Real{}};
        } else {
            CVec Z(s.b);
            for (int k2 = 0; k2 < s.b; ++k2) Z[k2] = spectrum_at(X, s.n, s.out(k1, k2));
            const CVec z = complex_row(ops, Z, Dir::Inverse, s.power_b);
            const bool flip = s.orientation.inverse_complex_rows;
            for (int n2 = 0; n2 < s.b; ++n2) y[n2][k1] = ops.oriented(z[n2], flip);
        }
    }
    RVec x(s.n);
    for (int n2 = 0; n2 < s.b; ++n2) {
        const RVec v = real_inverse(g, *s.a_rule, y[n2], s.power_a);
        for (int n1 = 0; n1 < s.a; ++n1) x[s.in(n1, n2)] = v[n1];
    }
    return x;
}

}  // namespace zptg::gen
