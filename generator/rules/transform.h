// Building the graph of a complex DFT by its rule. Each form is one
// function from the input values to the output values, in natural order;
// stages of a composite form call back into `transform` with the rule of
// their own length, so every sub-transform is written out in place.
#ifndef ZPTG_GEN_RULES_TRANSFORM_H
#define ZPTG_GEN_RULES_TRANSFORM_H

#include "core/complex.h"
#include "rules/table.h"

namespace zptg::gen {

// The DFT of x by `rule`, in direction `dir` (unscaled).
CVec transform(const ComplexOps& ops, const Rule& rule, const CVec& x, Dir dir);
// The same with the table's rule of that length.
CVec transform(const ComplexOps& ops, const CVec& x, Dir dir);

// The forms.
CVec direct_form(const ComplexOps& ops, const CVec& x, Dir dir);
CVec good_thomas_form(const ComplexOps& ops, const Rule& rule, const CVec& x, Dir dir);
CVec cooley_tukey_form(const ComplexOps& ops, const Rule& rule, const CVec& x, Dir dir);
CVec rader_form(const ComplexOps& ops, const Rule& rule, const CVec& x, Dir dir);

}  // namespace zptg::gen

#endif
