// The scale factor: an impulse at x[0] makes every output the factor
// itself, so the kernels' constants show bit for bit (1/N the nearest value
// of the element's width; 1/sqrt(N) the nearest float in 32fc, and in 64fc
// 1.0 / sqrt(N) with both operations rounded, one unit in the last place
// off the nearest for a known list of lengths). And the flags differ only
// by the one final product: the flag that does not divide in a direction
// gives the bits of zptgScaleNone, the others that result times the factor.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
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

// 1.0 / sqrt(N) in 64-bit steps is one unit off the nearest value exactly
// at these lengths, and at no other.
TEST(ComplexScale, RoundedSquareRootIsOffTheNearestAtKnownLengths)
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
}

TEST(ComplexScale, KnownConstantsOfLengths2And30)
{
    const Member<zptg64fc>& f64 = member<zptg64fc>(Dir::Forward);
    const Member<zptg32fc>& f32 = member<zptg32fc>(Dir::Forward);
    const Member<zptg32fc>& i32 = member<zptg32fc>(Dir::Inverse);
    EXPECT_EQ(call(f64.kernel[2], impulse<zptg64fc>(2, 0), zptgScaleBySqrtN).out[1].re, 0.7071067811865475);
    EXPECT_EQ(call(f32.kernel[2], impulse<zptg32fc>(2, 0), zptgScaleBySqrtN).out[1].re, 0.70710677f);
    EXPECT_EQ(call(f32.kernel[30], impulse<zptg32fc>(30, 0), zptgScaleFwdByN).out[29].re, 0.033333335f);
    EXPECT_EQ(call(i32.kernel[30], impulse<zptg32fc>(30, 0), zptgScaleInvByN).out[7].re, 0.033333335f);
    EXPECT_EQ(call(i32.kernel[30], impulse<zptg32fc>(30, 0), zptgScaleBySqrtN).out[3].re, 0.18257418f);
}

// Is y within two units in the last place of f * unscaled?
template <class R>
bool one_product_apart(R y, R unscaled, R f)
{
    const long double target = (long double)f * unscaled;
    const R size = std::max(R(std::fabs(target)), std::numeric_limits<R>::min());
    const long double ulp = std::nextafter(size, R(INFINITY)) - size;
    return std::fabs(y - target) <= 2 * ulp;
}

TEST(ComplexScale, FlagsDifferOnlyByTheFinalProduct)
{
    for_each_member([]<class E>(const Member<E>& m) {
        using R = RealOf<E>;
        const int keeps = m.dir == Dir::Forward ? zptgScaleInvByN : zptgScaleFwdByN;
        for (int n = kMinLength; n <= kMaxLength; ++n) {
            const std::vector<E> in = random_input<E>(n, 30);
            const Result<E> none = call(m.kernel[n], in, zptgScaleNone);
            EXPECT_TRUE(same_bits(call(m.kernel[n], in, keeps).out, none.out))
                << m.kernel_name[n] << ": flag " << keeps << " is not flag 8";
            for (int flag : kFlags) {
                const R f = stated_factor<R>(m.dir, flag, n);
                const Result<E> y = call(m.kernel[n], in, flag);
                for (int slot = 0; slot < 2 * n; ++slot) {
                    if (one_product_apart(part(y.out, slot), part(none.out, slot), f)) continue;
                    ADD_FAILURE() << m.kernel_name[n] << " flag " << flag << " slot " << slot << ": "
                                  << part(y.out, slot) << " is not " << f << " times " << part(none.out, slot);
                    break;
                }
            }
        }
    });
}

}  // namespace
}  // namespace zptg::test
