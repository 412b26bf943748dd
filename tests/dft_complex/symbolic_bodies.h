// Where the generated bodies are instantiated with Symbol. The bodies are
// large, so their instantiation is spread over kBodyParts objects built from
// one source (symbolic_bodies_part.cpp, once per part): the lengths go to the
// parts greedily by their cost in the rule table, the dearest first, each to
// the part with the least so far.
#ifndef ZPTG_TESTS_DFT_COMPLEX_SYMBOLIC_BODIES_H
#define ZPTG_TESTS_DFT_COMPLEX_SYMBOLIC_BODIES_H

#include "dft_complex/rule_counts.h"
#include "dft_complex/symbolic.h"

namespace zptg::test {

constexpr int kBodyParts = ZPTG_BODY_PARTS;

constexpr int body_cost(int n)
{
    const RuleCounts& c = rule_counts(n);
    return c.additions + c.subtractions + c.products;
}

constexpr int body_part(int n)
{
    int load[kBodyParts] = {};
    bool placed[kMaxLength + 1] = {};
    for (int round = kMinLength; round <= kMaxLength; ++round) {
        int dearest = 0;
        for (int m = kMinLength; m <= kMaxLength; ++m)
            if (!placed[m] && (dearest == 0 || body_cost(m) > body_cost(dearest))) dearest = m;
        int lightest = 0;
        for (int p = 1; p < kBodyParts; ++p)
            if (load[p] < load[lightest]) lightest = p;
        if (dearest == n) return lightest;
        placed[dearest] = true;
        load[lightest] += body_cost(dearest);
    }
    return -1;
}

struct SymbolicBodies {
    SymbolicBody forward[kMaxLength + 1] = {};
    SymbolicBody inverse[kMaxLength + 1] = {};
};

// Sets the entries of the lengths whose part is Part.
template <int Part, class T = Symbol>
void add_symbolic_bodies(SymbolicBodies& bodies);

}  // namespace zptg::test

#endif
