// The rule of every complex DFT length, as data: which form a length takes
// and, for the composite forms, the sizes of the two stages in the order in
// which they run. A stage of a composite length normally takes the rule of
// its own length from this table; the few stages that take their factors in
// another order (the 15 of 30 and 60, the 21 of 42, the length-(p-1)
// transforms of several primes) name their rule explicitly.
#ifndef ZPTG_GEN_RULES_TABLE_H
#define ZPTG_GEN_RULES_TABLE_H

#include "core/graph.h"

namespace zptg::gen {

struct RealRule;

enum class Form { Direct, GoodThomas, CooleyTukey, Rader };

struct Rule {
    int n = 0;
    Form form = Form::Direct;
    int first = 0;   // size of the first stage's transforms (composite forms)
    int second = 0;  // size of the second stage's transforms
    // Composite forms: the first stage's own rule where it is not the rule
    // of that length in the table (else null).
    const Rule* first_rule = nullptr;
    // Rader: the primitive root and the rule of the length-(p-1) transform,
    // whose stages both halves run as real transforms of the real and the
    // imaginary parts: the first half by the forward real rule, the second
    // by the inverse one (each the real table's rule of p - 1 where null).
    int root = 0;
    const Rule* cycle_rule = nullptr;
    const RealRule* first_half = nullptr;
    const RealRule* second_half = nullptr;
    // Rader: which of its differences the form takes the other way round
    // (core/graph.h), as the kernel of its length and as a stage of a
    // composite length.
    Orientation as_kernel{};
    Orientation as_stage{};
};

// The rule of a complex kernel of length n, 2 <= n <= 64.
const Rule& complex_rule(int n);

}  // namespace zptg::gen

#endif
