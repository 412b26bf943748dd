// Good-Thomas prime-factor form, N = F S with F and S coprime, no twiddle:
//
//   input map   n(a, b) = (F a + S b) mod N,   a < S, b < F
//   stage 1     y[a][k2] = DFT_F over b of x[n(a, b)]          (S transforms)
//   stage 2     Y[k1][k2] = DFT_S over a of y[a][k2]           (F transforms)
//   output map  X[k] = Y[k mod S][k mod F]
//
// So one first-stage transform takes the residue class of a modulo S,
// starting from the multiple of F that lies in it.
#include "rules/transform.h"

namespace zptg::gen {

CVec good_thomas_form(const ComplexOps& ops, const Rule& rule, const CVec& x, Dir dir)
{
    const int f = rule.first, s = rule.second, n = rule.n;
    const Rule& first_rule = stage_rule(rule.first_rule, f);
    const Rule& second_rule = stage_rule(rule.second_rule, s);
    std::vector<CVec> y(s);
    for (int a = 0; a < s; ++a) {
        CVec column(f);
        for (int b = 0; b < f; ++b) column[b] = x[(f * a + s * b) % n];
        y[a] = transform(ops, first_rule, column, dir);
    }
    CVec X(n);
    for (int k2 = 0; k2 < f; ++k2) {
        CVec row(s);
        for (int a = 0; a < s; ++a) row[a] = y[a][k2];
        const CVec Y = transform(ops, second_rule, row, dir);
        for (int k1 = 0; k1 < s; ++k1) {
            // The k with k = k1 mod S and k = k2 mod F.
            int k = k1;
            while (k % f != k2) k += s;
            X[k] = Y[k1];
        }
    }
    return X;
}

}  // namespace zptg::gen
