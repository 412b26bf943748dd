// The graph of the Hartley kernel of one length n:
//
//   H[k] = sum over j of x[j] (cos + sin)(2 pi j k / n),  k = 0 .. n-1,
//
// H[k] = Re X[k] - Im X[k] in terms of the real spectrum X. It is built
// from the real rules in one of two ways, as the length's first level says.
//
// From the spectrum: the forward real graph, then one butterfly for each
// complex term, H[k] = Re X[k] - Im X[k] and H[n-k] = Re X[k] + Im X[k];
// X[0] and the Nyquist term go straight through.
//
// From the pairs: s[k] = x[k] + x[n-k] and d[k] = x[k] - x[n-k] for
// k = 1 .. (n-1)/2. Since cas is the cosine part plus the sine part,
//
//   H[j] = x[0] + sum over k of (s[k] cos + d[k] sin)(2 pi j k / n)
//          + (-1)^j x[n/2],
//
// which is the inverse real transform of the spectrum X0 = x[0],
// R'[k] = s[k], I'[k] = -d[k], X[n/2] = x[n/2], taken as already doubled.
// So the inverse graph runs on the pairs with no doubling at all, and the
// minus sign of I' is the difference x[n-k] - x[k] made the other way
// round: the graph negates nothing. A few lengths take an inverse rule of
// their own here (hartley_kernel.cpp).
#ifndef ZPTG_GEN_RULES_HARTLEY_KERNEL_H
#define ZPTG_GEN_RULES_HARTLEY_KERNEL_H

#include <vector>

#include "core/graph.h"

namespace zptg::gen {

struct HartleyGraph {
    int n = 0;
    bool from_pairs = false;  // the first level: the pairs, or the forward graph's
    Graph graph;
    std::vector<Real> outputs;  // H[0 .. n-1]
};

// Whether the Hartley kernel of length n starts from the pairs x[k], x[n-k]
// (else it runs the forward real graph of the length).
bool hartley_from_pairs(int n);

HartleyGraph build_hartley_graph(int n);

// Largest error of the outputs against the exact transform for a few
// pseudo-random inputs, relative to the largest output.
long double hartley_graph_error(const HartleyGraph& h);

}  // namespace zptg::gen

#endif
