// The real DFT and Hartley bodies as they ship, instantiated with the
// symbolic element (one tape stands for the 32f and 64f kernels of a
// body), every length, direction and layout:
// - reads: each position that holds a value once, no other (no CCS
//   position 1 or N + 1 in an inverse body), all before the first store;
// - stores: each position of the layout once, CCS's imaginary parts of X[0]
//   and X[N/2] as literal zeros; exactly N products with the scale, each
//   the last operation on its value; sign flips only in forward bodies;
// - counts: never above the tables (generator/kernel_tables.h), and the
//   inverse's doublings (products of an input by 2) as the table gives them.
#include <gtest/gtest.h>

#include <string>

#include "dft_real/bodies.h"
#include "dft_real/layouts.h"
#include "generator/kernel_tables.h"

namespace zptg::test {
namespace {

const RealBodies& bodies()
{
    static const RealBodies b = collect_parts<RealBodies, ZPTG_BODY_PARTS>([]<int P>(RealBodies& t) { add_real_bodies<P>(t); });
    return b;
}

// The checks common to every body; `read` and `stored` say which positions
// the layout reads and writes.
void check_shape(const TapeSummary& s, int n, const std::vector<bool>& read, const std::vector<bool>& stored)
{
    EXPECT_EQ(s.fault, "");
    for (int p = 0; p < 2 * n; ++p) {
        EXPECT_EQ(s.reads[p], p < int(read.size()) && read[p] ? 1 : 0) << "reads of position " << p;
        EXPECT_EQ(s.stores[p], p < int(stored.size()) && stored[p] ? 1 : 0) << "stores of position " << p;
    }
    ASSERT_GE(s.first_store, 0) << "no store";
    EXPECT_LT(s.last_read, s.first_store) << "a read after the first store";
    EXPECT_EQ(s.scale_products, n);
}

// Positions 0 .. n-1 of a plain array, and the positions of a packing that
// hold a value.
std::vector<bool> plain(int n) { return std::vector<bool>(n, true); }
std::vector<bool> holding(Shape p, int n)
{
    std::vector<bool> v(packed_size(p, n), false);
    for (int k = 0; 2 * k <= n; ++k)
        for (bool im : {false, true})
            if (position(p, n, k, im) >= 0) v[position(p, n, k, im)] = true;
    return v;
}

TEST(RealBody, ShapeOrderAndCountsOfEveryBody)
{
    for (const tables::RealRow& row : tables::kRealTable) {
        const int n = row.n;
        for (int p = 0; p < 3; ++p) {
            const Shape shape = kPackings[p];
            SCOPED_TRACE("length " + std::to_string(n) + " packing " + std::to_string(p));
            {
                SCOPED_TRACE("forward");
                const TapeSummary s = summarize(record(bodies().forward[p][n]), 2 * n);
                check_shape(s, n, plain(n), std::vector<bool>(packed_size(shape, n), true));
                EXPECT_EQ(s.zeros, shape == Shape::CCS ? 2 - n % 2 : 0);
                EXPECT_LE(s.counts[0] + s.counts[1], row.forward_additions);
                EXPECT_LE(s.counts[2], row.forward_products);
            }
            {
                SCOPED_TRACE("inverse");
                const TapeSummary s = summarize(record(bodies().inverse[p][n]), 2 * n);
                check_shape(s, n, holding(shape, n), plain(n));
                EXPECT_EQ(s.negations + s.zeros, 0);
                EXPECT_LE(s.counts[0] + s.counts[1], row.inverse_additions);
                EXPECT_LE(s.counts[2], row.inverse_products);
                EXPECT_EQ(s.doublings, row.doublings);
            }
        }
    }
}

TEST(HartleyBody, ShapeOrderAndCountsOfEveryBody)
{
    for (const tables::HartleyRow& row : tables::kHartleyTable) {
        const int n = row.n;
        SCOPED_TRACE("length " + std::to_string(n));
        const TapeSummary s = summarize(record(bodies().hartley[n]), 2 * n);
        check_shape(s, n, plain(n), plain(n));
        EXPECT_EQ(s.negations + s.zeros, 0);
        EXPECT_LE(s.counts[0] + s.counts[1], row.additions);
        EXPECT_LE(s.counts[2], row.products);
    }
}

}  // namespace
}  // namespace zptg::test
