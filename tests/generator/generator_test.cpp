// The generator's own checks, before any kernel is compiled: every graph it
// builds is the DFT (evaluated in long double), its literals read back as
// the same values, its output is a function of the graph alone, and the
// transposition it offers turns a forward DFT into an inverse one. The
// algebra of the graph (signs, shared nodes, counts) is held to the rule
// table by the tests of the shipped bodies, which count their operations.
#include <gtest/gtest.h>

#include <cstdlib>
#include <string>
#include <vector>

#include "core/analysis.h"
#include "core/emit.h"
#include "core/number.h"
#include "core/transpose.h"
#include "families/complex_family.h"

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

// As a real matrix on interleaved parts, the transpose of the forward DFT
// is the inverse DFT: running a forward graph backwards gives an inverse,
// with the same products.
TEST(Transpose, TheForwardDftRunBackwardsIsTheInverseDft)
{
    for (int n : {2, 3, 5, 8, 12, 16, 25, 30}) {
        const ComplexKernel fwd = build_complex_kernel(n, Dir::Forward);
        ComplexKernel back;
        back.n = n;
        back.dir = Dir::Inverse;
        Transposed t = transpose(fwd.graph, fwd.outputs);
        back.graph = std::move(t.graph);
        back.outputs = std::move(t.outputs);
        EXPECT_LT(double(complex_kernel_error(back)), kGraphError) << "length " << n;
        EXPECT_EQ(count(back.graph, back.outputs).products, count(fwd.graph, fwd.outputs).products);
    }
}

}  // namespace
}  // namespace zptg::gen
