#include "core/graph.h"

#include <cmath>
#include <stdexcept>
#include <utility>

namespace zptg::gen {

int Graph::intern(const Node& n)
{
    const auto key = std::make_tuple(n.op, n.a, n.b, n.constant, n.input, n.kept);
    auto [it, inserted] = interned_.emplace(key, int(nodes_.size()));
    if (inserted) nodes_.push_back(n);
    return it->second;
}

int Graph::constant_index(long double magnitude)
{
    // Constants are told apart by their value as a 64-bit literal.
    const double key = double(magnitude);
    auto [it, inserted] = constant_by_value_.emplace(key, int(constants_.size()));
    if (inserted) constants_.push_back(magnitude);
    return it->second;
}

Real Graph::input(int slot)
{
    if (slot >= input_count_) input_count_ = slot + 1;
    Node n{Op::Input};
    n.input = slot;
    return Real{intern(n), false};
}

Real Graph::add(Real x, Real y)
{
    if (x.is_zero()) return y;
    if (y.is_zero()) return x;
    if (x.node == y.node && x.neg != y.neg) return Real{};  // x - x
    Node n{};
    bool neg = false;
    if (!x.neg && !y.neg) {
        n = {Op::Add, x.node, y.node};
    } else if (!x.neg) {
        n = {Op::Sub, x.node, y.node};  // x - |y|
    } else if (!y.neg) {
        n = {Op::Sub, y.node, x.node};  // y - |x|
    } else {
        n = {Op::Add, x.node, y.node};  // -(|x| + |y|)
        neg = true;
    }
    return Real{intern(n), neg};
}

Real Graph::mul(long double c, Real x)
{
    if (!std::isfinite(double(c)) || c == 0) throw std::logic_error("bad constant in a product");
    if (x.is_zero()) return x;
    const bool neg = (c < 0) != x.neg;
    const long double magnitude = std::fabs(c);
    if (magnitude == 1) return Real{x.node, neg};
    Node n{Op::Mul, x.node};
    n.constant = constant_index(magnitude);
    return Real{intern(n), neg};
}

Real Graph::doubled(Real x)
{
    if (x.is_zero()) return x;
    Node n{Op::Mul, x.node};
    n.constant = constant_index(2);
    n.kept = true;
    return Real{intern(n), x.neg};
}

Real Graph::reorient(Real x)
{
    if (x.is_zero() || nodes_[x.node].op != Op::Sub) return x;
    Node n = nodes_[x.node];
    std::swap(n.a, n.b);
    return Real{intern(n), !x.neg};
}

Real Graph::mul_distributed(long double c, Real x)
{
    if (x.is_zero()) return x;
    const Node n = nodes_[x.node];
    if ((n.op != Op::Add && n.op != Op::Sub) || nodes_[n.a].op != Op::Mul ||
        nodes_[n.b].op != Op::Mul || nodes_[n.a].kept || nodes_[n.b].kept)
        return mul(c, x);
    const Node p = nodes_[n.a], q = nodes_[n.b];
    const Real first = mul(c * constants_[p.constant], Real{p.a, false});
    const Real second = mul(c * constants_[q.constant], Real{q.a, false});
    const Real sum = n.op == Op::Add ? add(first, second) : sub(first, second);
    return x.neg ? -sum : sum;
}

}  // namespace zptg::gen
