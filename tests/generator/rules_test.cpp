// The rule table and the forms: every length's rule is well formed, every
// graph is the DFT (evaluated exactly, before any code exists), forward and
// inverse cost the same, composite lengths obey the rule of composition, and
// the emitted text is a pure function of the graph.
#include <gtest/gtest.h>

#include <numeric>
#include <ostream>
#include <string>

#include "core/emit.h"
#include "families/complex_family.h"
#include "rules/transform.h"

namespace zptg::gen {

void PrintTo(const Counts& c, std::ostream* os)
{
    *os << c.additions << " additions, " << c.subtractions << " subtractions, " << c.products
        << " products, " << c.constants << " constants";
}

namespace {

bool is_prime(int n)
{
    for (int d = 2; d * d <= n; ++d)
        if (n % d == 0) return false;
    return n >= 2;
}

bool is_prime_power(int n)
{
    int p = 2;
    while (n % p != 0) ++p;
    while (n % p == 0) n /= p;
    return n == 1;
}

int order_mod(int g, int p)
{
    int k = 1;
    for (long long x = g % p; x != 1; x = x * g % p) ++k;
    return k;
}

TEST(RuleTable, EveryLengthHasAWellFormedRule)
{
    for (int n = 2; n <= 64; ++n) {
        const Rule& r = complex_rule(n);
        EXPECT_EQ(r.n, n);
        switch (r.form) {
        case Form::Direct:
            EXPECT_TRUE(n == 2 || n == 3 || n == 5 || n == 7) << n;
            break;
        case Form::GoodThomas:
            EXPECT_EQ(r.first * r.second, n);
            EXPECT_EQ(std::gcd(r.first, r.second), 1) << n;
            break;
        case Form::CooleyTukey:
            EXPECT_EQ(r.first * r.second, n);
            EXPECT_TRUE(is_prime_power(n)) << n;
            break;
        case Form::Rader:
            EXPECT_TRUE(is_prime(n) && n >= 11) << n;
            EXPECT_EQ(order_mod(r.root, n), n - 1) << "root of " << n << " is not primitive";
            ASSERT_NE(r.cycle_rule, nullptr);
            EXPECT_EQ(r.cycle_rule->n, n - 1);
            break;
        }
        if (r.first_rule) {
            EXPECT_EQ(r.first_rule->n, r.first) << n;
        }
    }
}

TEST(Forms, EveryGraphIsTheDft)
{
    for (int n = 2; n <= 64; ++n) {
        for (Dir d : {Dir::Forward, Dir::Inverse}) {
            const ComplexKernel k = build_complex_kernel(n, d);
            EXPECT_LT(double(complex_kernel_error(k)), 1e-17) << "length " << n;
        }
    }
}

TEST(Forms, ForwardAndInverseCostTheSame)
{
    for (int n = 2; n <= 64; ++n) {
        const ComplexKernel f = build_complex_kernel(n, Dir::Forward);
        const ComplexKernel i = build_complex_kernel(n, Dir::Inverse);
        EXPECT_EQ(count(f.graph, f.outputs), count(i.graph, i.outputs)) << "length " << n;
    }
}

// Counts of one rule applied to fresh inputs.
Counts rule_counts(const Rule& rule)
{
    Graph g;
    ComplexOps ops(g);
    CVec x(rule.n);
    for (int i = 0; i < rule.n; ++i) x[i] = {g.input(2 * i), g.input(2 * i + 1)};
    std::vector<Real> out;
    for (const Cplx& v : transform(ops, rule, x, Dir::Forward)) {
        out.push_back(v.re);
        out.push_back(v.im);
    }
    return count(g, out);
}

// Sums and products of a Cooley-Tukey length's twiddle stage.
void twiddle_costs(const Rule& r, int* sums, int* products)
{
    *sums = *products = 0;
    for (int row = 1; row < r.second; ++row) {
        for (int k = 1; k < r.first; ++k) {
            const int e = row * k % r.n;
            if (4 * e % r.n == 0) continue;  // a multiple of -i: free
            *sums += 2;
            *products += (8 * e % r.n == 0) ? 2 : 4;
        }
    }
}

TEST(Forms, CompositeLengthsObeyTheRuleOfComposition)
{
    for (int n = 2; n <= 64; ++n) {
        const Rule& r = complex_rule(n);
        if (r.form != Form::GoodThomas && r.form != Form::CooleyTukey) continue;
        const Counts whole = rule_counts(r);
        const Counts first = rule_counts(r.first_rule ? *r.first_rule : complex_rule(r.first));
        const Counts second = rule_counts(complex_rule(r.second));
        int tw_sums = 0, tw_products = 0;
        if (r.form == Form::CooleyTukey) twiddle_costs(r, &tw_sums, &tw_products);
        EXPECT_EQ(whole.additions + whole.subtractions,
                  r.second * (first.additions + first.subtractions) +
                      r.first * (second.additions + second.subtractions) + tw_sums)
            << "length " << n;
        EXPECT_EQ(whole.products,
                  r.second * first.products + r.first * second.products + tw_products)
            << "length " << n;
    }
}

TEST(Emission, TextDependsOnTheGraphAlone)
{
    const ComplexKernel a = build_complex_kernel(12, Dir::Forward);
    const ComplexKernel b = build_complex_kernel(12, Dir::Forward);
    const std::string text = emit_body(a.graph, a.outputs, "forward_12");
    EXPECT_EQ(text, emit_body(b.graph, b.outputs, "forward_12"));
    // Each constant is held once: 0.5 and sin(2 pi/3).
    EXPECT_NE(text.find("const T k0("), std::string::npos);
    EXPECT_NE(text.find("const T k1("), std::string::npos);
    EXPECT_EQ(text.find("const T k2("), std::string::npos);
}

TEST(Emission, RefusesANegatedOutput)
{
    Graph g;
    const Real a = g.input(0), b = g.input(1);
    EXPECT_THROW(emit_body(g, {g.add(-a, -b)}, "bad"), std::logic_error);
}

}  // namespace
}  // namespace zptg::gen
