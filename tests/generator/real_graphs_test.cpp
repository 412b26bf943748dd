// The graphs of the real kernels, every length, both directions: each is
// the transform it stands for (against an exact long double evaluation of
// the formula), has its operation counts within the table (additions count
// subtractions too, products of the inverse include its doublings), and
// doubles each complex term of the inverse input explicitly but where a
// constant takes the factor in. A forward graph may carry the sign of an
// imaginary part as a flip after its last product, an inverse graph carries
// no sign at all.
#include <gtest/gtest.h>

#include <set>
#include <string>

#include "core/analysis.h"
#include "rules/real_kernel.h"

namespace zptg::gen {
namespace {

struct Row {
    int n;
    int forward_additions, forward_products;
    int inverse_additions, inverse_products, doublings;
};

constexpr Row kTable[] = {
    {2, 2, 0, 2, 0, 0},           {3, 4, 2, 4, 3, 1},           {4, 6, 0, 6, 2, 2},
    {5, 12, 8, 12, 12, 4},        {6, 14, 4, 14, 8, 4},         {7, 24, 18, 24, 24, 6},
    {8, 20, 2, 20, 8, 6},         {9, 32, 20, 32, 25, 7},       {10, 34, 16, 34, 24, 8},
    {11, 60, 50, 68, 60, 10},     {12, 38, 8, 38, 16, 8},       {13, 78, 41, 80, 56, 12},
    {14, 62, 36, 62, 48, 12},     {15, 64, 34, 64, 47, 13},     {16, 58, 12, 58, 26, 14},
    {17, 116, 54, 116, 68, 14},   {18, 82, 40, 82, 52, 16},     {19, 164, 108, 164, 128, 18},
    {20, 86, 32, 86, 50, 18},     {21, 112, 68, 112, 87, 19},   {22, 142, 100, 158, 120, 20},
    {23, 300, 242, 284, 264, 22}, {24, 104, 22, 104, 44, 22},   {25, 152, 112, 152, 136, 24},
    {26, 182, 82, 186, 112, 24},  {27, 164, 110, 164, 125, 25}, {28, 150, 72, 150, 98, 26},
    {29, 306, 210, 306, 238, 28}, {30, 158, 68, 158, 94, 26},   {31, 316, 192, 316, 224, 30},
    {32, 158, 44, 156, 72, 30},   {33, 244, 172, 268, 203, 31}, {34, 266, 108, 266, 136, 28},
    {35, 228, 146, 228, 180, 34}, {36, 198, 80, 198, 106, 34},  {37, 400, 228, 402, 272, 36},
    {38, 366, 216, 366, 256, 36}, {39, 310, 149, 308, 180, 38}, {40, 220, 74, 220, 112, 38},
    {41, 444, 242, 444, 282, 40}, {42, 266, 136, 266, 176, 40}, {43, 532, 352, 532, 394, 42},
    {44, 326, 200, 358, 242, 42}, {45, 300, 172, 300, 206, 44}, {46, 646, 484, 614, 528, 44},
    {47, 1260, 1058, 1260, 1104, 46}, {48, 266, 68, 270, 118, 46}, {49, 408, 324, 408, 372, 48},
    {50, 354, 224, 354, 272, 48}, {51, 448, 196, 448, 245, 49}, {52, 414, 164, 414, 210, 50},
    {53, 844, 456, 840, 502, 52}, {54, 382, 220, 382, 250, 50}, {55, 472, 338, 512, 392, 54},
    {56, 368, 158, 368, 212, 54}, {57, 604, 362, 604, 423, 55}, {58, 670, 420, 670, 476, 56},
    {59, 1340, 954, 1340, 1012, 58}, {60, 374, 136, 374, 194, 58}, {61, 762, 415, 762, 478, 60},
    {62, 694, 384, 694, 448, 60}, {63, 488, 302, 488, 361, 61},  {64, 398, 132, 400, 196, 62},
};

// The lengths whose graphs come in below the table (fewer additions or
// products), forward and inverse: a change to either list is a change of
// rule to look at.
const std::set<int> kForwardBelow = {13, 26, 29, 37, 39, 41, 52, 53, 58, 59, 61};
const std::set<int> kInverseBelow = {13, 26, 29, 31, 37, 39, 41, 52, 53, 58, 59, 61, 62};

constexpr double kGraphError = 1e-17;

int doublings(const RealKernelGraph& k)
{
    int d = 0;
    for (int i : live_nodes(k.graph, k.outputs)) d += is_doubling(k.graph, i);
    return d;
}

int inputs_read(const RealKernelGraph& k)
{
    int r = 0;
    for (int i : live_nodes(k.graph, k.outputs)) r += k.graph.node(i).op == Op::Input;
    return r;
}

TEST(RealGraphs, EveryLengthIsItsTransformWithinTheTable)
{
    std::set<int> forward_below, inverse_below;
    for (const Row& row : kTable) {
        const int n = row.n;
        SCOPED_TRACE("length " + std::to_string(n));
        for (bool inverse : {false, true}) {
            SCOPED_TRACE(inverse ? "inverse" : "forward");
            RealKernelGraph k;
            try {
                k = inverse ? build_real_inverse_graph(n) : build_real_forward_graph(n);
            } catch (const std::exception& e) {
                ADD_FAILURE() << e.what();
                continue;
            }
            ASSERT_EQ(int(k.outputs.size()), n);
            EXPECT_LT(double(real_graph_error(k)), kGraphError);
            EXPECT_EQ(inputs_read(k), n);
            // Pack order: the imaginary parts sit at the even slots 2 .. 2P.
            for (int f = 0; f < n; ++f) {
                const bool imaginary = !inverse && f > 0 && f % 2 == 0 && f < n - 1 + n % 2;
                EXPECT_TRUE(imaginary || !k.outputs[f].neg) << "sign flip at output " << f;
            }
            const Counts c = count(k.graph, k.outputs);
            const int additions = c.additions + c.subtractions;
            const int want_additions = inverse ? row.inverse_additions : row.forward_additions;
            const int want_products = inverse ? row.inverse_products : row.forward_products;
            EXPECT_LE(additions, want_additions);
            EXPECT_LE(c.products, want_products);
            if (additions < want_additions || c.products < want_products)
                (inverse ? inverse_below : forward_below).insert(n);
            EXPECT_EQ(doublings(k), inverse ? row.doublings : 0);
        }
    }
    EXPECT_EQ(forward_below, kForwardBelow);
    EXPECT_EQ(inverse_below, kInverseBelow);
}

}  // namespace
}  // namespace zptg::gen
