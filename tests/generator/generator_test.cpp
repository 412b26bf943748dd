// The family layer: a doubling stays a product, and a family described as
// data is emitted by its layout. (The generator holds every graph it writes
// to its exact transform itself; the shipped bodies' counts are held to the
// rule tables by the body tests.)
#include <gtest/gtest.h>

#include <regex>
#include <sstream>
#include <string>
#include <vector>

#include "core/analysis.h"
#include "core/emit.h"
#include "core/family.h"
#include "rules/real.h"

namespace zptg::gen {
namespace {

// A doubling that a graph asks for stays a product by 2, also where a later
// constant would otherwise take in the products of a sum.
TEST(Graph, DoublingsAreNeverFolded)
{
    Graph g;
    const Real sum = g.add(g.doubled(g.input(0)), g.doubled(g.input(1)));
    EXPECT_EQ(count(g, {g.mul_distributed(0.5L, sum)}).products, 3);
}

// A family that the library does not ship, described as data only: the
// forward real transform of lengths 4 and 5 stored as CCS. What the family
// writer emits for it shows the layer at work without a line of its own:
// every input read once and before any store, every position of the layout
// written once, the imaginary parts (which the graphs make negated) stored
// as sign flips of the scaled value, and the literal zeros last.
TEST(Families, ARealLayoutNeedsOnlyItsDescription)
{
    Family f;
    f.dir = "dft_real_sketch";
    f.title = "real DFT sketch";
    f.prefix = "sketch_";
    f.slots = "CCS.";
    f.bodies = [](int n) {
        Body b{"forward", "table rule", Graph{}, {}, packed_store_layout(Packing::CCS, n)};
        RVec x(n);
        for (int k = 0; k < n; ++k) x[k] = b.graph.input(k);
        for (const Cplx& v : real_forward(b.graph, real_forward_rule(n), x)) {
            b.outputs.push_back(v.re);
            b.outputs.push_back(v.im);
        }
        return std::vector<Body>{b};
    };
    const std::regex access(R"((in|out|out\.zero)\((\d+)(, -)?)");
    for (int n : {4, 5}) {
        SCOPED_TRACE("length " + std::to_string(n));
        std::istringstream text(body_header(f, n, f.bodies(n), "test"));
        std::vector<int> reads(n), writes(n % 2 == 0 ? n + 2 : n + 1);
        std::string order;  // r: read, s: store, z: literal zero, in the order of the text
        std::smatch m;
        for (std::string l; std::getline(text, l);) {
            if (!std::regex_search(l, m, access)) continue;
            const int p = std::stoi(m[2]);
            order += m[1] == "in" ? 'r' : m[1] == "out" ? 's' : 'z';
            ++(m[1] == "in" ? reads : writes).at(p);
            // Im X[k], negated, stands at 2k + 1 for 0 < k < n/2; the zeros at 1 and n + 1.
            if (m[1] == "out") {
                EXPECT_EQ(m[3].matched, p % 2 == 1 && p < n + n % 2) << l;
            } else if (m[1] == "out.zero") {
                EXPECT_TRUE(p == 1 || p == n + 1) << l;
            }
        }
        EXPECT_EQ(reads, std::vector<int>(n, 1));
        EXPECT_EQ(writes, std::vector<int>(writes.size(), 1));
        EXPECT_TRUE(std::regex_match(order, std::regex("r+s+z+"))) << order;
    }
}

}  // namespace
}  // namespace zptg::gen
