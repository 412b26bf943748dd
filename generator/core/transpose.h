// Running a graph backwards: the transpose of the linear map that a graph
// computes. Where the graph takes inputs x to outputs y = M x, the
// transposed graph takes one input per output of the original to one output
// per input of the original, y' -> M^T y'. It is built by walking the
// original from its outputs to its inputs: a value that fed several users
// becomes the sum of what those users hand back, a sum hands the same value
// back to both operands, a difference hands it back with a sign to its
// second operand, and a product with a constant hands back that product.
// The products stay (one for each product of the original), and the sums
// follow from the fan-out of each node.
//
// The inverse real transforms are the forward ones run this way (with the
// doubling of the conjugate half and the sign of the sines as their own
// stages), so a rule written once for the forward direction also yields the
// graph of the inverse.
#ifndef ZPTG_GEN_TRANSPOSE_H
#define ZPTG_GEN_TRANSPOSE_H

#include <vector>

#include "core/graph.h"

namespace zptg::gen {

struct Transposed {
    Graph graph;
    std::vector<Real> outputs;  // one per input slot of the original
};

// `outputs` are the original's outputs; the transposed graph's input slot k
// stands for outputs[k]. Inputs of the original that no output depends on
// come out as zero.
Transposed transpose(const Graph& g, const std::vector<Real>& outputs);

}  // namespace zptg::gen

#endif
