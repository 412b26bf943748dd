// The rule of every complex DFT length, as data: which form a length takes,
// for the composite forms the sizes of the two stages in the order in which
// they run, and the orientation of the form (rules/orientation.h). Every
// length has a row as a kernel and a row as a stage of a larger kernel,
// which differ in orientation only. A stage takes the stage row of its
// length unless its parent names another row: the few stages that take
// their factors in another order (the 15 of 30 and 60, the 21 of 42) or
// another orientation (the second stages 3, 5 and 7 of the Cooley-Tukey
// forms).
#ifndef ZPTG_GEN_RULES_TABLE_H
#define ZPTG_GEN_RULES_TABLE_H

#include "rules/orientation.h"

namespace zptg::gen {

struct RealRule;

enum class Form { Direct, GoodThomas, CooleyTukey, Rader };

struct Rule {
    int n = 0;
    Form form = Form::Direct;
    int first = 0;   // size of the first stage's transforms (composite forms)
    int second = 0;  // size of the second stage's transforms
    // Composite forms: the rows of the first and the second stage (null:
    // the stage row of that length).
    const Rule* first_rule = nullptr;
    const Rule* second_rule = nullptr;
    // Rader: the primitive root; the length-(p-1) transform as the
    // descriptions name it; and the rules of the two halves, which run as
    // real transforms of the real and the imaginary parts: the first half
    // by a forward real rule, the second by an inverse one (null: the real
    // tables' rule of p - 1).
    int root = 0;
    const char* cycle = nullptr;
    const RealRule* first_half = nullptr;
    const RealRule* second_half = nullptr;
    Orientation orientation{};
};

// The rule of a complex kernel of length n, 2 <= n <= 64, and the rule of
// that length as a stage of a larger kernel.
const Rule& complex_rule(int n);
const Rule& complex_stage_rule(int n);

}  // namespace zptg::gen

#endif
