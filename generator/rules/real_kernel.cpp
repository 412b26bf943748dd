#include "rules/real_kernel.h"

#include <algorithm>
#include <cmath>

#include "core/analysis.h"
#include "core/number.h"
#include "rules/real.h"

namespace zptg::gen {
namespace {

// The constants that take the factor 2 of a doubling in.
bool takes_doubling(long double c)
{
    const long double folding[] = {sin_2pi(1, 3), cos_2pi(1, 8)};
    return std::any_of(std::begin(folding), std::end(folding),
                       [&](long double f) { return std::fabs(c - f) < 1e-18L; });
}

// The graph again, with every doubling whose users are all products with a
// constant that takes the factor in folded into those products.
RealKernelGraph fold_doublings(const RealKernelGraph& k)
{
    const Graph& g = k.graph;
    const std::vector<int> live = live_nodes(g, k.outputs);
    std::vector<char> foldable(g.nodes().size(), 0);
    for (int i : live) foldable[i] = is_doubling(g, i);
    for (int i : live) {
        const Node& n = g.node(i);
        for (int operand : {n.a, n.b})
            if (operand >= 0 && foldable[operand] &&
                (n.op != Op::Mul || !takes_doubling(g.constants()[n.constant])))
                foldable[operand] = 0;
    }
    RealKernelGraph out;
    out.n = k.n;
    out.inverse = k.inverse;
    Graph& f = out.graph;
    std::vector<Real> copy(g.nodes().size());
    for (int i : live) {
        const Node& n = g.node(i);
        switch (n.op) {
        case Op::Input: copy[i] = f.input(n.input); break;
        case Op::Add: copy[i] = f.add(copy[n.a], copy[n.b]); break;
        case Op::Sub: copy[i] = f.sub(copy[n.a], copy[n.b]); break;
        case Op::Mul:
            if (foldable[i]) break;
            if (n.kept)
                copy[i] = f.doubled(copy[n.a]);
            else if (foldable[n.a])
                copy[i] = f.mul(2 * g.constants()[n.constant], copy[g.node(n.a).a]);
            else
                copy[i] = f.mul(g.constants()[n.constant], copy[n.a]);
            break;
        }
    }
    for (const Real& r : k.outputs) {
        const Real c = r.is_zero() ? Real{} : copy[r.node];
        out.outputs.push_back(r.neg ? -c : c);
    }
    return out;
}

}  // namespace

RealKernelGraph build_real_forward_graph(int n)
{
    RealKernelGraph k;
    k.n = n;
    Graph& g = k.graph;
    RVec x(n);
    for (int i = 0; i < n; ++i) x[i] = g.input(i);
    const HalfSpectrum X = real_forward(g, real_forward_rule(n), x);
    k.outputs.push_back(X[0].re);
    for (int j = 1; 2 * j < n; ++j) {
        k.outputs.push_back(X[j].re);
        k.outputs.push_back(X[j].im);
    }
    if (n % 2 == 0) k.outputs.push_back(X[n / 2].re);
    return k;
}

RealKernelGraph build_real_inverse_graph(int n)
{
    RealKernelGraph k;
    k.n = n;
    k.inverse = true;
    Graph& g = k.graph;
    HalfSpectrum X(n / 2 + 1);
    X[0] = {g.input(0), Real{}};
    for (int j = 1; 2 * j < n; ++j)
        X[j] = {g.doubled(g.input(2 * j - 1)), g.doubled(g.input(2 * j))};
    if (n % 2 == 0) X[n / 2] = {g.input(n - 1), Real{}};
    k.outputs = real_inverse(g, real_inverse_rule(n), X);
    return fold_doublings(k);
}

bool is_doubling(const Graph& g, int node)
{
    const Node& n = g.node(node);
    return n.op == Op::Mul && n.kept && g.node(n.a).op == Op::Input;
}

long double real_graph_error(const RealKernelGraph& k)
{
    const int n = k.n;
    return relative_error(k.graph, k.outputs, n, [&](const std::vector<long double>& in) {
        std::vector<long double> want(n, 0.0L);
        for (int f = 0; f < n; ++f) {
            if (k.inverse) {
                // x[f] = X0 + 2 sum (R cos - I sin) + (-1)^f X[n/2].
                long double sum = in[0];
                for (int j = 1; 2 * j < n; ++j)
                    sum += 2 * (in[2 * j - 1] * cos_2pi((long long)j * f, n) -
                                in[2 * j] * sin_2pi((long long)j * f, n));
                if (n % 2 == 0) sum += (f % 2 ? -1 : 1) * in[n - 1];
                want[f] = sum;
            } else {
                // Pack slot f holds Re or Im of X[j] = sum x[t] exp(-2 pi i j t / n).
                const int j = (f + 1) / 2;
                const bool im = f > 0 && f % 2 == 0 && 2 * j < n;
                long double sum = 0;
                for (int t = 0; t < n; ++t)
                    sum += in[t] * (im ? -sin_2pi((long long)j * t, n) : cos_2pi((long long)j * t, n));
                want[f] = sum;
            }
        }
        return want;
    });
}

}  // namespace zptg::gen
