// The expression graph's algebra: how signs turn into sums and differences,
// that equal operations share a node, that zero drops out, and that the
// constants of the kernels are exact where they should be.
#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <vector>

#include "core/analysis.h"
#include "core/graph.h"
#include "core/number.h"
#include "core/transpose.h"
#include "families/complex_family.h"

namespace zptg::gen {
namespace {

TEST(Graph, SignsBecomeTheChoiceOfSumOrDifference)
{
    Graph g;
    const Real a = g.input(0), b = g.input(1);
    const Real d = g.add(a, -b);
    EXPECT_FALSE(d.neg);
    EXPECT_EQ(g.node(d.node).op, Op::Sub);
    EXPECT_EQ(g.node(d.node).a, a.node);

    const Real e = g.add(-a, b);  // b - a
    EXPECT_FALSE(e.neg);
    EXPECT_EQ(g.node(e.node).op, Op::Sub);
    EXPECT_EQ(g.node(e.node).a, b.node);

    const Real f = g.add(-a, -b);  // -(a + b)
    EXPECT_TRUE(f.neg);
    EXPECT_EQ(g.node(f.node).op, Op::Add);
    EXPECT_EQ(g.sub(-a, b), f) << "-a - b is the same negated sum";
}

TEST(Graph, ADifferenceTakenTheOtherWayRoundKeepsItsValue)
{
    Graph g;
    const Real a = g.input(0), b = g.input(1), c = g.input(2);
    const Real d = g.sub(a, b);
    const Real r = g.reorient(d);  // -(b - a)
    EXPECT_TRUE(r.neg);
    EXPECT_EQ(g.node(r.node).op, Op::Sub);
    EXPECT_EQ(g.node(r.node).a, b.node);
    EXPECT_EQ(g.reorient(r), d) << "twice is the difference as it was";
    EXPECT_EQ(g.reorient(g.add(a, b)), g.add(a, b)) << "a sum has no orientation";
    EXPECT_EQ(g.oriented(d, false), d);

    // The sign it carries turns the next sum into the other operation.
    const Real plain = g.add(c, d), turned = g.add(c, r);
    EXPECT_EQ(g.node(plain.node).op, Op::Add);
    EXPECT_EQ(g.node(turned.node).op, Op::Sub);
    const std::vector<long double> in = {5, 3, 11};
    EXPECT_EQ(evaluate(g, {plain, turned, d, r}, in),
              (std::vector<long double>{13, 13, 2, 2}));
}

TEST(Graph, ProductsHoldPositiveConstantsOnly)
{
    Graph g;
    const Real a = g.input(0);
    const Real p = g.mul(-0.5L, a);
    EXPECT_TRUE(p.neg);
    EXPECT_EQ(g.constants().size(), 1u);
    EXPECT_EQ(g.constants()[0], 0.5L);
    EXPECT_EQ(g.mul(0.5L, -a), p);
    EXPECT_EQ(g.mul(-1.0L, a), -a) << "a factor of -1 is only a sign";
    EXPECT_EQ(g.mul(1.0L, a), a);
}

TEST(Graph, EqualOperationsShareANodeAndZeroDropsOut)
{
    Graph g;
    const Real a = g.input(0), b = g.input(1);
    EXPECT_EQ(g.add(a, b), g.add(a, b));
    EXPECT_NE(g.add(a, b), g.add(b, a)) << "operand order is kept: it fixes the rounding";
    EXPECT_TRUE(g.sub(a, a).is_zero());
    EXPECT_EQ(g.add(a, Real{}), a);
    EXPECT_EQ(g.sub(Real{}, b), -b);
    EXPECT_TRUE(g.mul(3.0L, Real{}).is_zero());
}

TEST(Graph, CountsAndValuesFollowTheLiveNodesOnly)
{
    Graph g;
    const Real a = g.input(0), b = g.input(1);
    const Real s = g.add(a, b);
    const Real d = g.sub(a, b);
    g.mul(0.25L, d);  // dead: no output needs it
    const Real out = g.mul(0.75L, g.add(s, d));
    const Counts c = count(g, {out, d});
    EXPECT_EQ(c.additions, 2);
    EXPECT_EQ(c.subtractions, 1);
    EXPECT_EQ(c.products, 1);
    EXPECT_EQ(c.constants, 1);
    const auto v = evaluate(g, {out, -d}, {3.0L, 1.0L});
    EXPECT_EQ(v[0], 0.75L * 6);
    EXPECT_EQ(v[1], -2.0L);
}

TEST(Numbers, OctantsAreExact)
{
    for (long long den : {4, 8, 16, 24, 64}) {
        for (long long num = -den; num <= 2 * den; ++num) {
            const long double c = cos_2pi(num, den), s = sin_2pi(num, den);
            const long double exact_c = std::cos(2 * 3.141592653589793238462643383279502884L * num / den);
            EXPECT_NEAR(double(c), double(exact_c), 1e-18) << num << "/" << den;
            EXPECT_NEAR(double(c * c + s * s), 1.0, 1e-18);
            if ((4 * num) % den == 0) {
                EXPECT_TRUE(c == 0 || c == 1 || c == -1) << num << "/" << den;
                EXPECT_TRUE(s == 0 || s == 1 || s == -1) << num << "/" << den;
            }
        }
    }
    EXPECT_EQ(double(cos_2pi(1, 8)), double(sin_2pi(1, 8)));
}

TEST(Numbers, LiteralsReadBackExactly)
{
    for (double v : {0.1, 0.30901699437494745, 1.0 / 3, 0.7071067811865476, 1e-300, 2.0}) {
        EXPECT_EQ(std::strtod(double_literal(v).c_str(), nullptr), v);
    }
    for (float v : {0.1f, 0.70710677f, 0.033333335f, 2.0f}) {
        const std::string text = float_literal(v);
        EXPECT_EQ(text.back(), 'f');
        EXPECT_EQ(std::strtof(text.c_str(), nullptr), v);
    }
}

TEST(Numbers, ScaleConstantsOfTheKernels)
{
    // 1/sqrt(N) in 64 bits is 1.0 / sqrt(N) with both operations rounded:
    // one unit in the last place off the nearest value at these lengths.
    const int off_by_one[] = {2, 3, 6, 7, 8, 12, 15, 18, 19, 22, 24, 28, 32, 34, 48, 59, 60, 63};
    for (int n = 2; n <= 64; ++n) {
        const double nearest = double(1.0L / std::sqrt((long double)n));
        const bool listed = std::find(std::begin(off_by_one), std::end(off_by_one), n) !=
                            std::end(off_by_one);
        EXPECT_EQ(inv_sqrt_n_64(n) != nearest, listed) << n;
        EXPECT_EQ(inv_n_32(n), float(1.0L / n));
    }
    EXPECT_EQ(inv_sqrt_n_64(2), 0.7071067811865475);
    EXPECT_EQ(inv_sqrt_n_32(2), 0.70710677f);
    EXPECT_EQ(inv_sqrt_n_32(30), 0.18257418f);
    EXPECT_EQ(inv_n_32(30), 0.033333335f);
}

TEST(Transpose, ProductsStayAndFanOutBecomesSums)
{
    Graph g;
    const Real a = g.input(0), b = g.input(1);
    const Real s = g.add(a, b);
    // y0 = 2 (a + b), y1 = (a + b) - b
    const std::vector<Real> y = {g.mul(2.0L, s), g.sub(s, b)};
    const Transposed t = transpose(g, y);
    ASSERT_EQ(t.outputs.size(), 2u);
    // M = [[2, 2], [1, 0]], so M^T y' = (2 y0' + y1', 2 y0')
    const auto v = evaluate(t.graph, t.outputs, {1.5L, 4.0L});
    EXPECT_EQ(v[0], 7.0L);
    EXPECT_EQ(v[1], 3.0L);
    EXPECT_EQ(count(t.graph, t.outputs).products, 1);
}

TEST(Transpose, TheForwardDftRunBackwardsIsTheInverseDft)
{
    // As a real matrix on interleaved parts, the transpose of the forward DFT
    // is the inverse DFT: running a forward kernel backwards gives an inverse.
    for (int n : {2, 3, 5, 8, 12, 16, 25, 30}) {
        const ComplexKernel fwd = build_complex_kernel(n, Dir::Forward);
        ComplexKernel back;
        back.n = n;
        back.dir = Dir::Inverse;
        Transposed t = transpose(fwd.graph, fwd.outputs);
        back.graph = std::move(t.graph);
        back.outputs = std::move(t.outputs);
        EXPECT_LT(double(complex_kernel_error(back)), 1e-17) << "length " << n;
        EXPECT_EQ(count(back.graph, back.outputs).products,
                  count(fwd.graph, fwd.outputs).products);
    }
}

}  // namespace
}  // namespace zptg::gen
