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
#include "generator/kernel_tables.h"
#include "rules/real_kernel.h"

namespace zptg::gen {
namespace {

using tables::kRealTable;
using Row = tables::RealRow;

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
    for (const Row& row : kRealTable) {
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
