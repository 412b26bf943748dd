// The graphs of the Hartley kernels, every length: each is the transform
// (against an exact long double evaluation of cas), reads all its inputs,
// negates no output, keeps within the table's counts (additions count
// subtractions too), starts as the table says (from the pairs: the first
// operation on each input but x[0] and x[n/2] is its sum or difference with
// its mirror x[n - j]), and ends in the butterflies the table names.
#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <string>

#include "core/analysis.h"
#include "generator/kernel_tables.h"
#include "rules/hartley_kernel.h"

namespace zptg::gen {
namespace {

using tables::Ends;
using tables::kHartleyTable;
using Row = tables::HartleyRow;

// The lengths whose graphs come in below the table: a change to the list is
// a change of rule to look at.
const std::set<int> kBelow = {13, 26, 29, 37, 39, 41, 52, 53, 58, 59, 61, 62};

constexpr double kGraphError = 1e-17;

// Whether each input x[j] but x[0] and x[n/2] is first met in x[j] +- x[n-j]
// (and in nothing else).
bool starts_from_pairs(const HartleyGraph& h)
{
    const Graph& g = h.graph;
    const int n = h.n;
    const auto slot = [&](int node) { return g.node(node).op == Op::Input ? g.node(node).input : -1; };
    for (int i : live_nodes(g, h.outputs)) {
        const Node& node = g.node(i);
        if (node.op == Op::Input) continue;
        for (int operand : {node.a, node.b}) {
            const int j = operand < 0 ? -1 : slot(operand);
            if (j < 0 || j == 0 || 2 * j == n) continue;
            const int other = node.a == operand ? node.b : node.a;
            if (node.op == Op::Mul || slot(other) != n - j) return false;
        }
    }
    return true;
}

// The output that shares the last pair of values of each output, or -1.
std::vector<int> partners(const HartleyGraph& h)
{
    const int n = h.n;
    std::vector<int> partner(n, -1);
    for (int k = 0; k < n; ++k)
        for (int j = 0; j < n; ++j) {
            const Node& a = h.graph.node(h.outputs[k].node);
            const Node& b = h.graph.node(h.outputs[j].node);
            if (j != k && a.op != Op::Input && a.op != Op::Mul && b.op != a.op &&
                std::minmax(a.a, a.b) == std::minmax(b.a, b.b))
                partner[k] = j;
        }
    return partner;
}

bool pairs_all(const std::vector<int>& partner, int n, auto pair_of)
{
    for (int k = 0; k < n; ++k)
        if (const int j = pair_of(k); j >= 0 && partner[k] != j) return false;
    return true;
}

bool ends_as(const HartleyGraph& h, const Row& row)
{
    const int n = h.n;
    for (const Real& r : h.outputs)
        if (const Op op = h.graph.node(r.node).op; op != Op::Add && op != Op::Sub) return false;
    const std::vector<int> partner = partners(h);
    const bool mirror = pairs_all(partner, n, [&](int k) { return 2 * k % n ? n - k : -1; });
    const bool halves = n % 2 == 0 && pairs_all(partner, n, [&](int k) { return (k + n / 2) % n; });
    switch (row.ends) {
    case Ends::Mirror: return mirror;
    case Ends::Halves: return halves;
    case Ends::Cross:
        return pairs_all(partner, n, [&](int k) {
            const int a = row.cross_a, b = n / a;
            for (int j = 0; j < n; ++j)
                if (k % a && j % b == k % b && (j + k) % a == 0) return j;
            return -1;
        });
    case Ends::Other: return !mirror && !halves;
    }
    return false;
}

TEST(HartleyGraphs, EveryLengthIsItsTransformWithinTheTable)
{
    std::set<int> below;
    for (const Row& row : kHartleyTable) {
        const int n = row.n;
        SCOPED_TRACE("length " + std::to_string(n));
        HartleyGraph h;
        try {
            h = build_hartley_graph(n);
        } catch (const std::exception& e) {
            ADD_FAILURE() << e.what();
            continue;
        }
        ASSERT_EQ(int(h.outputs.size()), n);
        EXPECT_LT(double(hartley_graph_error(h)), kGraphError);
        int inputs = 0;
        for (int i : live_nodes(h.graph, h.outputs)) inputs += h.graph.node(i).op == Op::Input;
        EXPECT_EQ(inputs, n);
        for (int k = 0; k < n; ++k) EXPECT_FALSE(h.outputs[k].neg) << "sign flip at output " << k;
        EXPECT_TRUE(!row.pairs || starts_from_pairs(h));
        EXPECT_TRUE(ends_as(h, row));
        const Counts c = count(h.graph, h.outputs);
        const int additions = c.additions + c.subtractions;
        EXPECT_LE(additions, row.additions);
        EXPECT_LE(c.products, row.products);
        if (additions < row.additions || c.products < row.products) below.insert(n);
    }
    EXPECT_EQ(below, kBelow);
}

}  // namespace
}  // namespace zptg::gen
