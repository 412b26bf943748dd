// Building the graph of a complex DFT by its rule. Each form is one
// function from the input values to the output values, in natural order;
// stages of a composite form call back into `transform` with the rule of
// their own length, so every sub-transform is written out in place.
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
// The same with the table's rule of that length.
CVec transform(const ComplexOps& ops, const CVec& x, Dir dir, int power = 1);

// The forms.
CVec direct_form(const ComplexOps& ops, const CVec& x, Dir dir);
CVec good_thomas_form(const ComplexOps& ops, const Rule& rule, const CVec& x, Dir dir);
// as_stage: as for rader_form; it decides which twiddles the Cooley-Tukey
// form makes as negated turns (see twiddle()).
CVec cooley_tukey_form(const ComplexOps& ops, const Rule& rule, const CVec& x, Dir dir,
                       bool as_stage);
// as_stage: the transform is a stage of a composite length, which takes the
// rule's stage orientation (Rule::as_stage) instead of the kernel's.
CVec rader_form(const ComplexOps& ops, const Rule& rule, const CVec& x, Dir dir, bool as_stage);

// Which twiddles of the plain complex product are made as the negated turn
// by their angle less a half turn (rules/cooley_tukey.cpp).
enum class NegatedTurns {
    None,             // every twiddle as its signs fall
    PastHalfTurn,     // angles past pi
    PastQuarterTurn,  // angles past pi/2
};

// v times the twiddle w^e, w = exp(-+2 pi i / n) in direction dir, at the
// cost of the Cooley-Tukey form (free for multiples of n/4, two products
// for odd multiples of n/8, the plain complex product otherwise).
Cplx twiddle(const ComplexOps& ops, Cplx v, long long e, int n, Dir dir,
             NegatedTurns negated = NegatedTurns::None);

}  // namespace zptg::gen

#endif
