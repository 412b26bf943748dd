// Cooley-Tukey form, N = F S (the prime powers):
//
//   input map   n(r, b) = r + S b,   r < S, b < F
//   stage 1     y[r][k] = DFT_F over b of x[n(r, b)]           (S transforms)
//   twiddles    z[r][k] = y[r][k] w^(r k),  w = exp(-+2 pi i / N)
//   stage 2     v[k][j] = DFT_S over r of z[r][k]              (F transforms)
//   output map  X[k + F j] = v[k][j]
//
// A twiddle costs by its exponent e = r k mod N: nothing for e = 0; nothing
// for e = N/4 or 3N/4 (a swap of parts, its sign going into the next sum);
// for an odd multiple of N/8 two products with sqrt(1/2), the turn itself
// being one sum and one difference of the two scaled parts; otherwise the
// plain complex product, four products and two sums.
//
// Signs. Each of the plain complex products has one sum and one difference,
// and the difference can be taken either way round: the value is the same,
// but the sign it is carried with, and the signs of the negative cosines and
// sines, decide which of the second stage's sums are additions and which
// subtractions. The form fixes them so:
//
// - Up to a half turn or a quarter turn (the row's orientation names which,
//   rules/table.cpp) a twiddle is the product with cos and sin of its own
//   angle, the signs of a negative cosine or sine falling into its sum and
//   difference as they come.
// - Past that angle it is the product with the angle less a half turn, and
//   the half turn itself, a negation, is carried as the sign of both parts
//   into the second stage's sums: w^e = -(-w^e), and -w^e is the turn by
//   the angle less a half turn. The constants are the same magnitudes;
//   short of three quarter turns the cosine of that angle is positive, and
//   the difference is the cosine product less the sine product.
// - The second stage's conjugate-pair forms take their pair differences the
//   other way round (their rows say so), the first stage's as written.
//
// None of this changes a value or the number of operations, only the split
// of the sums into additions and subtractions, and these are the choices
// that give every Cooley-Tukey length its split, as a kernel and as a stage.
// A kernel and a stage differ only in the second quadrant: 25 as a kernel
// takes those twiddles as their signs fall, 25 as the stage of 50 as negated
// turns, which moves one addition of each 25-point stage to a subtraction.
#include "core/number.h"
#include "rules/transform.h"

namespace zptg::gen {

Cplx twiddle(const ComplexOps& ops, Cplx v, long long e, int n, Dir dir, NegatedTurns negated)
{
    Graph& g = ops.graph();
    const int sgn = sign_of(dir);
    e %= n;
    if (e < 0) e += n;
    if (e == 0) return v;
    if (4 * e == n) return ComplexOps::times_i(v, sgn);
    if (4 * e == 3 * n) return ComplexOps::times_i(v, -sgn);
    if (2 * e == n) return ComplexOps::neg(v);
    if ((8 * e) % n == 0) {
        // exp(sgn i pi/4 * odd): scale both parts by sqrt(1/2), then turn.
        const long double h = cos_2pi(1, 8);
        const Real p = g.mul(h, v.re), q = g.mul(h, v.im);
        const long double c = cos_2pi(e, n), s = sgn * sin_2pi(e, n);  // each +-sqrt(1/2)
        // (p + i q)(c' + i s') with c', s' = +-1:
        const Real re = g.sub(c > 0 ? p : -p, s > 0 ? q : -q);
        const Real im = g.add(c > 0 ? q : -q, s > 0 ? p : -p);
        return {re, im};
    }
    const bool negated_turn = (negated == NegatedTurns::PastHalfTurn && 2 * e > n) ||
                              (negated == NegatedTurns::PastQuarterTurn && 4 * e > n);
    if (negated_turn) {
        // cos and sin of the angle less a half turn are those of the angle,
        // negated; the half turn goes into the signs of the result.
        return ComplexOps::neg(ops.rotate(v, -cos_2pi(e, n), -sgn * sin_2pi(e, n)));
    }
    return ops.rotate(v, cos_2pi(e, n), sgn * sin_2pi(e, n));
}

CVec cooley_tukey_form(const ComplexOps& ops, const Rule& rule, const CVec& x, Dir dir)
{
    const int f = rule.first, s = rule.second, n = rule.n;
    const NegatedTurns negated = rule.orientation.negated_turns;
    const Rule& first_rule = stage_rule(rule.first_rule, f);
    const Rule& second_rule = stage_rule(rule.second_rule, s);
    std::vector<CVec> z(s);
    for (int r = 0; r < s; ++r) {
        CVec column(f);
        for (int b = 0; b < f; ++b) column[b] = x[r + s * b];
        z[r] = transform(ops, first_rule, column, dir);
        for (int k = 0; k < f; ++k) z[r][k] = twiddle(ops, z[r][k], r * k, n, dir, negated);
    }
    CVec X(n);
    for (int k = 0; k < f; ++k) {
        CVec row(s);
        for (int r = 0; r < s; ++r) row[r] = z[r][k];
        const CVec v = transform(ops, second_rule, row, dir);
        for (int j = 0; j < s; ++j) X[k + f * j] = v[j];
    }
    return X;
}

}  // namespace zptg::gen
