// What the generator knows about a finished graph: the nodes that the
// outputs need, their operation counts, and their values for given inputs
// (in long double, to check a rule against the plain DFT before any code is
// written).
#ifndef ZPTG_GEN_ANALYSIS_H
#define ZPTG_GEN_ANALYSIS_H

#include <functional>
#include <vector>

#include "core/graph.h"

namespace zptg::gen {

struct Counts {
    int additions = 0;
    int subtractions = 0;
    int products = 0;
    int constants = 0;  // distinct constants among the products
    friend bool operator==(const Counts&, const Counts&) = default;
};

// The nodes reachable from `outputs`, in increasing node order (which is a
// topological order, since operands are made before their users).
std::vector<int> live_nodes(const Graph& g, const std::vector<Real>& outputs);

Counts count(const Graph& g, const std::vector<Real>& outputs);

// Values of the outputs for the given input values (indexed by input slot).
std::vector<long double> evaluate(const Graph& g, const std::vector<Real>& outputs,
                                  const std::vector<long double>& inputs);

// Largest error of the outputs of a graph of n inputs and n outputs against
// `exact` (the values the outputs stand for, of the same inputs in long
// double), over a few pseudo-random inputs, relative to the largest exact
// value.
using ExactTransform = std::function<std::vector<long double>(const std::vector<long double>&)>;
long double relative_error(const Graph& g, const std::vector<Real>& outputs, int n,
                           const ExactTransform& exact);

}  // namespace zptg::gen

#endif
