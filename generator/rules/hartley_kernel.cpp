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
    const HalfSpectrum X = real_forward(g, real_forward_rule(n), x);
    std::vector<Real> h(n);
    h[0] = X[0].re;
    for (int k = 1; 2 * k < n; ++k) {
        h[k] = g.sub(X[k].re, X[k].im);
        h[n - k] = g.add(X[k].re, X[k].im);
    }
    if (n % 2 == 0) h[n / 2] = X[n / 2].re;
    return h;
}

// The inverse rules the pairs run through where they are not those of the
// inverse kernels. 11 takes the direct form, which costs less on the pairs
// than Rader's. A Rader form writes x[g^-m] from the last stage of its
// second half, in the order of m, and m + (p-1)/2 stands for the mirror
// output p - g^-m: a second half whose last stage is of 2 or 4 ends in the
// butterflies of the mirror pairs, one whose last stage is odd in pairs of
// that stage. 37 takes 4 x 9, to end in the mirror pairs; 31 and 43 take
// 5 x 6 and 14 x 3, to end in the pairs of their last stages, of 3 and 7.
constexpr RealRule kDirect11{11, RealForm::Direct};
constexpr RealRule kSecond30{30, RealForm::GoodThomas, 5, 6};
constexpr RealRule kSecond36{36, RealForm::GoodThomas, 4, 9};
constexpr RealRule kSecond42{42, RealForm::GoodThomas, 14, 3};

RealRule pairs_rule(int n)
{
    if (n == 11) return kDirect11;
    RealRule rule = real_inverse_rule(n);
    if (n == 31) rule.second = &kSecond30;
    if (n == 37) rule.second = &kSecond36;
    if (n == 43) rule.second = &kSecond42;
    return rule;
}

std::vector<Real> from_pairs(Graph& g, const RVec& x)
{
    const int n = int(x.size());
    HalfSpectrum X(n / 2 + 1);
    X[0] = {x[0], Real{}};
    for (int k = 1; 2 * k < n; ++k) X[k] = {g.add(x[k], x[n - k]), g.sub(x[n - k], x[k])};
    if (n % 2 == 0) X[n / 2] = {x[n / 2], Real{}};
    return real_inverse(g, pairs_rule(n), X);
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
