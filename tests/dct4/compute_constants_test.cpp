// The literal multipliers of the DCT-IV bodies: each is the value of its
// width nearest to cos(pi a / 128) (or to the lifting slope), checked
// against long double.
#include <gtest/gtest.h>

#include <cmath>

#include "dct4/compute_constants.h"

namespace zptg::dct4 {
namespace {

constexpr long double kPiL = 3.141592653589793238462643383279502884L;

// |v - exact| within half a unit in the last place of v's type, with a
// little room for the long double reference's own rounding.
template <class F>
::testing::AssertionResult is_nearest(F v, long double exact)
{
    const long double ulp =
        std::fabs(static_cast<long double>(std::nextafter(v, F(2))) - static_cast<long double>(v));
    const long double err = std::fabs(static_cast<long double>(v) - exact);
    if (err <= 0.5L * ulp * (1 + 1e-6L) || (exact == 0 && v == 0)) {
        return ::testing::AssertionSuccess();
    }
    return ::testing::AssertionFailure() << v << " is " << double(err / ulp)
                                         << " units from " << double(exact);
}

TEST(ComputeConstants, CosinesAreTheNearestValuesOfTheirWidth)
{
    for (int a = 0; a <= 128; ++a) {
        const long double exact = a == 64 ? 0.0L : std::cos(kPiL * a / 128);
        EXPECT_TRUE(is_nearest(kCos128_64f[a], exact)) << "a = " << a;
        EXPECT_TRUE(is_nearest(kCos128_32f[a], exact)) << "a = " << a;
    }
}

TEST(ComputeConstants, LiftingSlopesOfLengthFour)
{
    EXPECT_TRUE(is_nearest(kLift4_64f[0], std::tan(7 * kPiL / 32)));
    EXPECT_TRUE(is_nearest(kLift4_64f[1], std::tan(5 * kPiL / 32)));
    EXPECT_TRUE(is_nearest(kLift4_32f[0], std::tan(7 * kPiL / 32)));
    EXPECT_TRUE(is_nearest(kLift4_32f[1], std::tan(5 * kPiL / 32)));
}

}  // namespace
}  // namespace zptg::dct4
