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
#include "rules/hartley_kernel.h"

namespace zptg::gen {
namespace {

// How the outputs end, each in the sum or difference of a pair of values
// that serves two outputs: the mirror pairs k, n - k of the spectrum's
// butterflies (all, but k = 0 and n/2), the halves k, k + n/2, the cross
// pairs of a Good-Thomas a x b (k' = k mod b, k' = -k mod a, for k not a
// multiple of a), or neither of the first two.
enum class Ends { Mirror, Halves, Cross, Other };

struct Row {
    int n;
    bool pairs;  // the first level: all pairs, or as forward
    Ends ends;
    int cross_a;  // the a of the cross pairs
    int additions, products;
};

constexpr bool P = true, F = false;
constexpr Ends Y = Ends::Mirror, H = Ends::Halves, X = Ends::Cross, O = Ends::Other;
constexpr Row kTable[] = {
    {2, P, Y, 0, 2, 0},        {3, P, Y, 0, 6, 2},        {4, P, Y, 0, 8, 0},
    {5, P, Y, 0, 16, 8},       {6, P, Y, 0, 18, 4},       {7, P, Y, 0, 30, 18},
    {8, F, Y, 0, 26, 2},       {9, F, Y, 0, 40, 20},      {10, P, Y, 0, 42, 16},
    {11, P, Y, 0, 70, 50},     {12, P, H, 0, 48, 8},      {13, P, Y, 0, 92, 44},
    {14, P, Y, 0, 74, 36},     {15, P, X, 5, 78, 34},     {16, F, Y, 0, 72, 12},
    {17, P, Y, 0, 132, 54},    {18, P, O, 0, 98, 36},     {19, F, Y, 0, 182, 108},
    {20, P, H, 0, 104, 32},    {21, F, Y, 0, 132, 68},    {22, F, Y, 0, 162, 100},
    {23, P, Y, 0, 306, 242},   {24, F, Y, 0, 126, 22},    {25, P, O, 0, 176, 112},
    {26, F, Y, 0, 206, 82},    {27, P, O, 0, 190, 100},   {28, P, X, 7, 176, 72},
    {29, F, Y, 0, 334, 210},   {30, P, H, 0, 186, 68},    {31, P, O, 0, 346, 194},
    {32, P, H, 0, 186, 42},    {33, P, O, 0, 300, 172},   {34, P, H, 0, 298, 108},
    {35, P, X, 7, 262, 146},   {36, P, O, 0, 232, 72},    {37, P, Y, 0, 438, 236},
    {38, F, Y, 0, 402, 216},   {39, F, Y, 0, 348, 149},   {40, P, H, 0, 258, 74},
    {41, F, Y, 0, 484, 242},   {42, P, X, 7, 306, 136},   {43, P, O, 0, 574, 352},
    {44, P, O, 0, 400, 200},   {45, P, O, 0, 344, 162},   {46, P, H, 0, 658, 484},
    {47, F, Y, 0, 1306, 1058}, {48, P, X, 3, 316, 72},    {49, F, Y, 0, 456, 324},
    {50, F, Y, 0, 402, 224},   {51, P, X, 17, 498, 196},  {52, F, Y, 0, 464, 164},
    {53, P, Y, 0, 892, 450},   {54, P, H, 0, 434, 200},   {55, P, O, 0, 566, 338},
    {56, P, X, 7, 422, 158},   {57, F, Y, 0, 660, 362},   {58, F, Y, 0, 726, 420},
    {59, F, Y, 0, 1398, 954},  {60, P, X, 5, 432, 136},   {61, F, Y, 0, 822, 415},
    {62, P, H, 0, 754, 388},   {63, F, Y, 0, 550, 302},   {64, P, H, 0, 462, 134},
};

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
