// The generator's own checks: every graph it builds is the DFT, evaluated
// with its long double constants (so a derived constant, such as a Rader
// spectrum value, off by a unit of double shows), and its literals read
// back as the same values. The shipped text is held to the rule table and
// to the exact DFT by the tests of the bodies and kernels.
#include <gtest/gtest.h>

#include <cstdlib>
#include <string>
#include <vector>

#include "core/number.h"
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

}  // namespace
}  // namespace zptg::gen
