// The generator's own checks, before any kernel is compiled: every graph it
// builds is the DFT (evaluated in long double), its literals read back as
// the same values, its output is a function of the graph alone, and a
// family described as data is emitted by its layout. The
// algebra of the graph (signs, shared nodes, counts) is held to the rule
// table by the tests of the shipped bodies, which count their operations.
#include <gtest/gtest.h>

#include <cstdlib>
#include <regex>
#include <sstream>
#include <string>
#include <vector>

#include "core/analysis.h"
#include "core/emit.h"
#include "core/number.h"
#include "core/family.h"
#include "families/complex_family.h"
#include "rules/real.h"

namespace zptg::gen {
namespace {

// Far tighter than the check the generator makes before it writes a body,
// and than any kernel's rounding: a derived constant (a Rader spectrum, a
// twiddle) off by a unit of double shows here. The roots of unity of the
// reference are the generator's own; the shipped constants are held to an
// independent evaluation by the body tests.
constexpr double kGraphError = 1e-17;

TEST(Forms, EveryGraphIsTheDft)
{
    for (int n = 2; n <= 64; ++n) {
        for (Dir d : {Dir::Forward, Dir::Inverse}) {
            const ComplexKernel k = build_complex_kernel(n, d);
            EXPECT_LT(double(complex_kernel_error(k)), kGraphError) << "length " << n;
        }
    }
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

TEST(Emission, TextDependsOnTheGraphAlone)
{
    const ComplexKernel a = build_complex_kernel(12, Dir::Forward);
    const ComplexKernel b = build_complex_kernel(12, Dir::Forward);
    EXPECT_EQ(emit_body(a.graph, a.outputs, "forward_12"), emit_body(b.graph, b.outputs, "forward_12"));
}

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
