// The rule table and the forms: every length's rule is well formed, every
// graph is the DFT (evaluated exactly, before any code exists), forward and
// inverse cost the same, composite lengths obey the rule of composition, and
// the emitted text is a pure function of the graph.
#include <gtest/gtest.h>

#include <numeric>
#include <ostream>
#include <string>
#include <vector>

#include "core/analysis.h"
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

// A twiddle made as the negated turn by its angle less a half turn is the
// same value at the same cost; only the signs its parts are carried with
// and the orientation of its difference change.
TEST(Forms, ANegatedTurnIsTheSameTwiddle)
{
    const std::vector<long double> in = {0.3L, -0.7L};
    for (int n : {9, 25, 27, 49, 64}) {
        for (Dir d : {Dir::Forward, Dir::Inverse}) {
            for (int e = 1; e < n; ++e) {
                if (8 * e % n == 0) continue;  // not a plain complex product
                Graph g;
                const ComplexOps ops(g);
                const Cplx v{g.input(0), g.input(1)};
                const Cplx plain = twiddle(ops, v, e, n, d);
                const std::vector<long double> want = evaluate(g, {plain.re, plain.im}, in);
                for (NegatedTurns m : {NegatedTurns::PastHalfTurn, NegatedTurns::PastQuarterTurn}) {
                    const Cplx t = twiddle(ops, v, e, n, d, m);
                    const bool turned = m == NegatedTurns::PastHalfTurn ? 2 * e > n : 4 * e > n;
                    // Short of three quarter turns the angle less a half
                    // turn has a positive cosine, and both parts of the
                    // negated turn are carried negated.
                    if (4 * e < 3 * n) {
                        EXPECT_EQ(t.re.neg && t.im.neg, turned) << n << " " << e;
                    }
                    EXPECT_EQ(count(g, {t.re, t.im}), count(g, {plain.re, plain.im})) << n << " " << e;
                    const std::vector<long double> got = evaluate(g, {t.re, t.im}, in);
                    EXPECT_NEAR(double(got[0]), double(want[0]), 1e-18) << n << " " << e;
                    EXPECT_NEAR(double(got[1]), double(want[1]), 1e-18) << n << " " << e;
                }
            }
        }
    }
}

// Reversed pair differences leave the values and the number of operations
// of a conjugate-pair form as they are.
TEST(Forms, ReversedPairDifferencesKeepTheTransform)
{
    for (int p : {3, 5, 7}) {
        Graph g;
        const ComplexOps ops(g);
        CVec x(p);
        std::vector<long double> in;
        for (int i = 0; i < p; ++i) {
            x[i] = {g.input(2 * i), g.input(2 * i + 1)};
            in.push_back(0.25L * i - 0.5L);
            in.push_back(1.0L / (i + 2));
        }
        auto parts = [](const CVec& y) {
            std::vector<Real> out;
            for (const Cplx& v : y) {
                out.push_back(v.re);
                out.push_back(v.im);
            }
            return out;
        };
        const std::vector<Real> plain = parts(direct_form(ops, x, Dir::Forward));
        const std::vector<Real> reversed =
            parts(direct_form(ops.with_pair_differences_reversed(true), x, Dir::Forward));
        EXPECT_NE(plain, reversed) << p;
        const Counts a = count(g, plain), b = count(g, reversed);
        EXPECT_EQ(a.additions + a.subtractions, b.additions + b.subtractions) << p;
        EXPECT_EQ(a.products, b.products) << p;
        const std::vector<long double> va = evaluate(g, plain, in), vb = evaluate(g, reversed, in);
        for (size_t i = 0; i < va.size(); ++i) EXPECT_NEAR(double(va[i]), double(vb[i]), 1e-17) << p;
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
