// Building the graph of a complex DFT by its rule. Each form is one
// function from the input values to the output values, in natural order;
// stages of a composite form call back into `transform` with their stage
// rows (rules/table.h), so every sub-transform is written out in place.
// What a form makes depends on its row, its inputs and the direction only.
#ifndef ZPTG_GEN_RULES_TRANSFORM_H
#define ZPTG_GEN_RULES_TRANSFORM_H

#include "core/complex.h"
#include "rules/table.h"

namespace zptg::gen {

// The DFT of x by `rule`, in direction `dir` (unscaled), at the power r of
// the root: X[k] = sum over n of x[n] w^(r n k), w = exp(-+2 pi i / N).
// r = 1 is the transform itself; another unit r (a row of a real Good-Thomas
// form, rules/real.h) is the same graph, its outputs read at r k.
CVec transform(const ComplexOps& ops, const Rule& rule, const CVec& x, Dir dir, int power = 1);

// The forms.
CVec direct_form(const ComplexOps& ops, const Rule& rule, const CVec& x, Dir dir);
CVec good_thomas_form(const ComplexOps& ops, const Rule& rule, const CVec& x, Dir dir);
CVec cooley_tukey_form(const ComplexOps& ops, const Rule& rule, const CVec& x, Dir dir);
CVec rader_form(const ComplexOps& ops, const Rule& rule, const CVec& x, Dir dir);

// The row of a composite form's stage: the one the rule names, else the
// table's stage row of that length.
const Rule& stage_rule(const Rule* named, int n);

// v times the twiddle w^e, w = exp(-+2 pi i / n) in direction dir, at the
// cost of the Cooley-Tukey form (free for multiples of n/4, two products
// for odd multiples of n/8, the plain complex product otherwise).
Cplx twiddle(const ComplexOps& ops, Cplx v, long long e, int n, Dir dir,
             NegatedTurns negated = NegatedTurns::None);

}  // namespace zptg::gen

#endif
