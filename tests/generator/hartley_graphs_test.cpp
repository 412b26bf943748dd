// The graphs of the Hartley kernels, every length: each is the transform
// (against an exact long double evaluation of cas), reads all its inputs,
// negates no output, keeps within the table's counts (additions count
// subtractions too), and where the table starts from the pairs, the first
// operation on each input but x[0] and x[n/2] is its sum or difference
// with its mirror x[n - j].
#include <gtest/gtest.h>

#include <set>
#include <string>

#include "core/analysis.h"
#include "rules/hartley_kernel.h"

namespace zptg::gen {
namespace {

struct Row {
    int n;
    bool pairs;  // the first level: all pairs, or as forward
    int additions, products;
};

constexpr bool P = true, F = false;
constexpr Row kTable[] = {
    {2, P, 2, 0},       {3, P, 6, 2},       {4, P, 8, 0},       {5, P, 16, 8},
    {6, P, 18, 4},      {7, P, 30, 18},     {8, F, 26, 2},      {9, F, 40, 20},
    {10, P, 42, 16},    {11, P, 70, 50},    {12, P, 48, 8},     {13, P, 92, 44},
    {14, P, 74, 36},    {15, P, 78, 34},    {16, F, 72, 12},    {17, P, 132, 54},
    {18, P, 98, 36},    {19, F, 182, 108},  {20, P, 104, 32},   {21, F, 132, 68},
    {22, F, 162, 100},  {23, P, 306, 242},  {24, F, 126, 22},   {25, P, 176, 112},
    {26, F, 206, 82},   {27, P, 190, 100},  {28, P, 176, 72},   {29, F, 334, 210},
    {30, P, 186, 68},   {31, P, 346, 194},  {32, P, 186, 42},   {33, P, 300, 172},
    {34, P, 298, 108},  {35, P, 262, 146},  {36, P, 232, 72},   {37, P, 438, 236},
    {38, F, 402, 216},  {39, F, 348, 149},  {40, P, 258, 74},   {41, F, 484, 242},
    {42, P, 306, 136},  {43, P, 574, 352},  {44, P, 400, 200},  {45, P, 344, 162},
    {46, P, 658, 484},  {47, F, 1306, 1058}, {48, P, 316, 72},  {49, F, 456, 324},
    {50, F, 402, 224},  {51, P, 498, 196},  {52, F, 464, 164},  {53, P, 892, 450},
    {54, P, 434, 200},  {55, P, 566, 338},  {56, P, 422, 158},  {57, F, 660, 362},
    {58, F, 726, 420},  {59, F, 1398, 954}, {60, P, 432, 136},  {61, F, 822, 415},
    {62, P, 754, 388},  {63, F, 550, 302},  {64, P, 462, 134},
};

// The lengths whose graphs come in below the table: a change to the list is
// a change of rule to look at.
const std::set<int> kBelow = {13, 26, 29, 31, 37, 39, 41, 52, 53, 58, 59, 61, 62};

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

TEST(HartleyGraphs, EveryLengthIsItsTransformWithinTheTable)
{
    std::set<int> below;
    for (const Row& row : kTable) {
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
