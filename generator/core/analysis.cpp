#include "core/analysis.h"

#include <algorithm>
#include <cmath>
#include <set>

namespace zptg::gen {
namespace {

unsigned next(unsigned* seed)
{
    *seed = *seed * 1664525u + 1013904223u;
    return *seed;
}

}  // namespace

std::vector<int> live_nodes(const Graph& g, const std::vector<Real>& outputs)
{
    std::vector<char> live(g.nodes().size(), 0);
    std::vector<int> stack;
    for (const Real& r : outputs)
        if (!r.is_zero()) stack.push_back(r.node);
    while (!stack.empty()) {
        const int i = stack.back();
        stack.pop_back();
        if (live[i]) continue;
        live[i] = 1;
        const Node& n = g.node(i);
        if (n.a >= 0) stack.push_back(n.a);
        if (n.b >= 0) stack.push_back(n.b);
    }
    std::vector<int> order;
    for (int i = 0; i < int(live.size()); ++i)
        if (live[i]) order.push_back(i);
    return order;
}

Counts count(const Graph& g, const std::vector<Real>& outputs)
{
    Counts c;
    std::set<int> constants;
    for (int i : live_nodes(g, outputs)) {
        const Node& n = g.node(i);
        switch (n.op) {
        case Op::Add: ++c.additions; break;
        case Op::Sub: ++c.subtractions; break;
        case Op::Mul:
            ++c.products;
            constants.insert(n.constant);
            break;
        case Op::Input: break;
        }
    }
    c.constants = int(constants.size());
    return c;
}

std::vector<long double> evaluate(const Graph& g, const std::vector<Real>& outputs,
                                  const std::vector<long double>& inputs)
{
    std::vector<long double> value(g.nodes().size(), 0.0L);
    for (int i : live_nodes(g, outputs)) {
        const Node& n = g.node(i);
        switch (n.op) {
        case Op::Input: value[i] = inputs.at(n.input); break;
        case Op::Add: value[i] = value[n.a] + value[n.b]; break;
        case Op::Sub: value[i] = value[n.a] - value[n.b]; break;
        case Op::Mul: value[i] = g.constants()[n.constant] * value[n.a]; break;
        }
    }
    std::vector<long double> out;
    for (const Real& r : outputs) {
        const long double v = r.is_zero() ? 0.0L : value[r.node];
        out.push_back(r.neg ? -v : v);
    }
    return out;
}

long double relative_error(const Graph& g, const std::vector<Real>& outputs, int n,
                           const ExactTransform& exact)
{
    long double worst = 0;
    unsigned seed = 54321u + unsigned(n);
    for (int trial = 0; trial < 3; ++trial) {
        std::vector<long double> in(n);
        for (auto& v : in) v = (long double)(next(&seed) >> 8) / (1u << 24) - 0.5L;
        const std::vector<long double> out = evaluate(g, outputs, in);
        const std::vector<long double> want = exact(in);
        long double scale = 0, err = 0;
        for (int f = 0; f < n; ++f) {
            scale = std::max(scale, std::fabs(want[f]));
            err = std::max(err, std::fabs(want[f] - out[f]));
        }
        worst = std::max(worst, err / scale);
    }
    return worst;
}

}  // namespace zptg::gen
