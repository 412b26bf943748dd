// The graphs of the real kernels of one length: the forward transform of n
// real inputs to its half spectrum and the inverse back, with their inputs
// and outputs in one fixed order, and their values against the formulas
// they compute (in long double, to check a rule before any code is
// written).
//
// Both orders are those of the `Pack` layout: slot 0 is X[0], slots 2k - 1
// and 2k are Re X[k] and Im X[k] for k = 1 .. (n-1)/2, and for even n slot
// n - 1 is X[n/2]. They are the forward graph's outputs and the inverse
// graph's inputs; a family maps them to the positions of each layout.
//
// The inverse graph takes its complex terms as given and doubles them
// itself: each doubling is a product of an input with the constant 2 that
// no rule takes apart (Graph::doubled, is_doubling), except where all that
// product's users are products with one of the few constants that take the
// factor in instead (2 sin(2 pi/3) and 2 cos(2 pi/8)): there the doubled
// input's products are made with the doubled constant from the plain input.
#ifndef ZPTG_GEN_RULES_REAL_KERNEL_H
#define ZPTG_GEN_RULES_REAL_KERNEL_H

#include <vector>

#include "core/graph.h"

namespace zptg::gen {

struct RealKernelGraph {
    int n = 0;
    bool inverse = false;
    Graph graph;
    std::vector<Real> outputs;  // forward: Pack order; inverse: x[0..n-1]
};

RealKernelGraph build_real_forward_graph(int n);
RealKernelGraph build_real_inverse_graph(int n);

// Whether a node of the graph is the doubling (Graph::doubled) of an input.
bool is_doubling(const Graph& g, int node);

// Largest error of the outputs against the exact transform for a few
// pseudo-random inputs, relative to the largest output.
long double real_graph_error(const RealKernelGraph& k);

}  // namespace zptg::gen

#endif
