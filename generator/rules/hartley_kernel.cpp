#include "rules/hartley_kernel.h"

#include <algorithm>
#include <stdexcept>

#include "core/analysis.h"
#include "core/number.h"
#include "rules/real.h"

namespace zptg::gen {
namespace {

// The lengths that run the forward real graph and end in the butterflies.
constexpr int kFromSpectrum[] = {8,  9,  16, 19, 21, 22, 24, 26, 29, 38, 39,
                                 41, 47, 49, 50, 52, 57, 58, 59, 61, 63};

std::vector<Real> from_spectrum(Graph& g, const RVec& x)
{
    const int n = int(x.size());
    const HalfSpectrum X = real_forward(g, real_forward_kernel_rule(n), x);
    std::vector<Real> h(n);
    h[0] = X[0].re;
    for (int k = 1; 2 * k < n; ++k) {
        h[k] = g.sub(X[k].re, X[k].im);
        h[n - k] = g.add(X[k].re, X[k].im);
    }
    if (n % 2 == 0) h[n / 2] = X[n / 2].re;
    return h;
}

std::vector<Real> from_pairs(Graph& g, const RVec& x)
{
    const int n = int(x.size());
    HalfSpectrum X(n / 2 + 1);
    X[0] = {x[0], Real{}};
    for (int k = 1; 2 * k < n; ++k) X[k] = {g.add(x[k], x[n - k]), g.sub(x[n - k], x[k])};
    if (n % 2 == 0) X[n / 2] = {x[n / 2], Real{}};
    if (n == 11) return real_direct_inverse(g, n, X, 1);
    return real_inverse(g, real_inverse_rule(n), X);
}

}  // namespace

bool hartley_from_pairs(int n)
{
    if (n < 2 || n > 64) throw std::out_of_range("no Hartley rule for this length");
    return std::find(std::begin(kFromSpectrum), std::end(kFromSpectrum), n) ==
           std::end(kFromSpectrum);
}

HartleyGraph build_hartley_graph(int n)
{
    HartleyGraph h;
    h.n = n;
    h.from_pairs = hartley_from_pairs(n);
    Graph& g = h.graph;
    RVec x(n);
    for (int i = 0; i < n; ++i) x[i] = g.input(i);
    h.outputs = h.from_pairs ? from_pairs(g, x) : from_spectrum(g, x);
    return h;
}

long double hartley_graph_error(const HartleyGraph& h)
{
    const int n = h.n;
    return relative_error(h.graph, h.outputs, n, [&](const std::vector<long double>& in) {
        std::vector<long double> want(n, 0.0L);
        for (int k = 0; k < n; ++k)
            for (int j = 0; j < n; ++j) {
                const long long t = (long long)j * k;
                want[k] += in[j] * (cos_2pi(t, n) + sin_2pi(t, n));
            }
        return want;
    });
}

}  // namespace zptg::gen
