// The scale factor: an impulse at x[0] makes every output the factor
// itself, so the kernels' constants show bit for bit (1/N the nearest value
// of the element's width; 1/sqrt(N) the nearest float in 32fc, and in 64fc
// 1.0 / sqrt(N) with both operations rounded, one unit in the last place
// off the nearest for a known list of lengths).
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <vector>

#include "dft_complex/element.h"
#include "dft_complex/kernel_call.h"
#include "dft_complex/stated_scale.h"

namespace zptg::test {
namespace {

TEST(ComplexScale, ImpulseAtX0GivesTheFactorEverywhere)
{
    for_each_member([]<class E>(const Member<E>& m) {
        using R = RealOf<E>;
        for (int n = kMinLength; n <= kMaxLength; ++n) {
            ASSERT_TRUE(scale_constants<R>(n).decided) << "scale constants of length " << n;
            for (int flag : kFlags) {
                const R factor = stated_factor<R>(m.dir, flag, n);
                const Result<E> y = call(m.kernel[n], impulse<E>(n, 0), flag);
                ASSERT_EQ(y.status, zptgStatusOk);
                for (int k = 0; k < n; ++k) {
                    if (y.out[k].re == factor && y.out[k].im == 0) continue;
                    ADD_FAILURE() << m.kernel_name[n] << " flag " << flag << ": X[" << k << "] = ("
                                  << y.out[k].re << ", " << y.out[k].im << "), not the factor " << factor;
                    break;
                }
            }
        }
    });
}

// The stated constants themselves: 1.0 / sqrt(N) in 64-bit steps is one
// unit off the nearest value exactly at these lengths, and at no other; and
// some values written out.
TEST(ComplexScale, StatedConstants)
{
    const std::vector<int> off = {2, 3, 6, 7, 8, 12, 15, 18, 19, 22, 24, 28, 32, 34, 48, 59, 60, 63};
    for (int n = kMinLength; n <= kMaxLength; ++n) {
        const ScaleConstants<double> c = scale_constants<double>(n);
        ASSERT_TRUE(c.decided) << n;
        const bool listed = std::find(off.begin(), off.end(), n) != off.end();
        EXPECT_EQ(c.by_sqrt_n != c.nearest_by_sqrt_n, listed) << "length " << n;
        if (listed) {
            EXPECT_EQ(std::nextafter(c.nearest_by_sqrt_n, c.by_sqrt_n), c.by_sqrt_n) << n;
        }
    }
    EXPECT_EQ(scale_constants<double>(2).by_sqrt_n, 0.7071067811865475);
    EXPECT_EQ(scale_constants<float>(2).by_sqrt_n, 0.70710677f);
    EXPECT_EQ(scale_constants<float>(30).by_n, 0.033333335f);
    EXPECT_EQ(scale_constants<float>(30).by_sqrt_n, 0.18257418f);
}

}  // namespace
}  // namespace zptg::test
