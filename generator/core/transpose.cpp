#include "core/transpose.h"

#include <cstddef>

#include "core/analysis.h"

namespace zptg::gen {

Transposed transpose(const Graph& g, const std::vector<Real>& outputs)
{
    Transposed t;
    Graph& h = t.graph;
    // adjoint[n]: the value that flows back into node n, summed over its users.
    std::vector<Real> adjoint(g.nodes().size());
    for (std::size_t k = 0; k < outputs.size(); ++k) {
        const Real& y = outputs[k];
        if (y.is_zero()) continue;
        const Real in = h.input(int(k));
        adjoint[y.node] = h.add(adjoint[y.node], y.neg ? -in : in);
    }
    const std::vector<int> order = live_nodes(g, outputs);
    std::vector<Real> by_slot(g.input_count());
    for (auto it = order.rbegin(); it != order.rend(); ++it) {
        const Node& n = g.node(*it);
        const Real back = adjoint[*it];
        switch (n.op) {
        case Op::Input: by_slot[n.input] = back; break;
        case Op::Add:
            adjoint[n.a] = h.add(adjoint[n.a], back);
            adjoint[n.b] = h.add(adjoint[n.b], back);
            break;
        case Op::Sub:
            adjoint[n.a] = h.add(adjoint[n.a], back);
            adjoint[n.b] = h.sub(adjoint[n.b], back);
            break;
        case Op::Mul:
            adjoint[n.a] = h.add(adjoint[n.a], h.mul(g.constants()[n.constant], back));
            break;
        }
    }
    t.outputs = by_slot;
    return t;
}

}  // namespace zptg::gen
