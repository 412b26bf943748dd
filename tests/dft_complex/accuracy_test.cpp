// Every kernel under every flag against the exact DFT (long double, scaled
// by the kernel's stated scale constant), on an impulse at x[1] (its outputs
// pass through every constant of the kernel) and three pseudo-random
// inputs; src comes back unchanged and nothing that stood in dst shows.
//
// The bounds, in units of eps max|X| (eps the element's epsilon, X exact):
// - 32fc: the kernels compute in double and round once at the store, so
//   each real value must be the float nearest to the exact one, or either
//   neighbour when the exact value lies within 2^-44 max|X| of the midpoint
//   between two floats. (Double arithmetic errs by some 2^-50 max|X| at
//   most here.) Normwise that is at most 0.75. A constant wrong in its last
//   double bits is left to the body test of the constants.
// - 64fc: max |Y - X| <= 1 + log2 N.
//
// And the flags differ only by the one final product: the flag that does
// not divide in a direction gives the bits of zptgScaleNone, every other
// flag that result times its factor, within two units in the last place.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <string>
#include <vector>

#include "dft_complex/element.h"
#include "dft_complex/exact_dft.h"
#include "dft_complex/kernel_call.h"
#include "dft_complex/stated_scale.h"

namespace zptg::test {
namespace {

template <class E>
long double accuracy_bound(int n)
{
    return sizeof(RealOf<E>) == sizeof(float) ? 0.75L : 1 + std::log2((long double)n);
}

template <class R>
R rounded(long double x)
{
    bool decided = true;
    return round_nearest<R>(x, &decided);
}

// Checks one output against its reference; reports the first failing value.
template <class E>
void check_output(const std::vector<E>& y, const std::vector<Exact>& ref, int n, const std::string& what)
{
    using R = RealOf<E>;
    long double largest = 0, error = 0;
    for (const Exact& r : ref) largest = std::max(largest, std::hypot(r.re, r.im));
    for (int k = 0; k < n; ++k)
        error = std::max(error, std::hypot(y[k].re - ref[k].re, y[k].im - ref[k].im));
    if constexpr (sizeof(R) == sizeof(float)) {
        const long double margin = 0x1p-44L * largest;
        for (int slot = 0; slot < 2 * n; ++slot) {
            const long double exact = slot % 2 == 0 ? ref[slot / 2].re : ref[slot / 2].im;
            const R got = part(y, slot);
            const R low = rounded<R>(exact - margin), high = rounded<R>(exact + margin);
            if (!(got >= low && got <= high)) {
                ADD_FAILURE() << what << ": slot " << slot << " is " << double(got)
                              << ", the nearest float to the exact " << double(exact) << " is "
                              << double(rounded<R>(exact));
                break;
            }
        }
    }
    const long double units = error / (epsilon_of<E>() * largest);
    EXPECT_LE(units, accuracy_bound<E>(n)) << what << ": error " << double(units) << " eps max|X|";
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

template <class E>
void check_member(const Member<E>& m)
{
    using R = RealOf<E>;
    const int keeps = m.dir == Dir::Forward ? zptgScaleInvByN : zptgScaleFwdByN;
    for (int n = kMinLength; n <= kMaxLength; ++n) {
        ASSERT_TRUE(scale_constants<R>(n).decided) << "scale constants of length " << n;
        std::vector<std::vector<E>> inputs = {impulse<E>(n, 1)};
        for (unsigned seed = 1; seed <= 3; ++seed) inputs.push_back(random_input<E>(n, 1000u * n + seed));
        for (size_t i = 0; i < inputs.size(); ++i) {
            const std::vector<Exact> exact = exact_dft(widen(inputs[i]), m.dir);
            const Result<E> none = call(m.kernel[n], inputs[i], zptgScaleNone);
            for (int flag : kFlags) {
                const R factor = stated_factor<R>(m.dir, flag, n);
                std::vector<Exact> ref(exact);
                for (Exact& r : ref) r = {r.re * factor, r.im * factor};
                const Result<E> y = call(m.kernel[n], inputs[i], flag);
                const std::string what = std::string(m.kernel_name[n]) + " flag " + std::to_string(flag) +
                                         (i == 0 ? ", impulse at x[1]" : ", random input " + std::to_string(i));
                ASSERT_EQ(y.status, zptgStatusOk) << what;
                EXPECT_TRUE(y.src_kept) << what << ": src was changed";
                check_output(y.out, ref, n, what);
                if (flag == keeps) {
                    EXPECT_TRUE(same_bits(y.out, none.out)) << what << ": not the bits of flag 8";
                    continue;
                }
                for (int slot = 0; slot < 2 * n; ++slot) {
                    if (one_product_apart(part(y.out, slot), part(none.out, slot), factor)) continue;
                    ADD_FAILURE() << what << " slot " << slot << ": " << part(y.out, slot) << " is not "
                                  << factor << " times " << part(none.out, slot);
                    break;
                }
            }
        }
    }
}

TEST(ComplexAccuracy, Kernels32fcUnderEveryFlag)
{
    for (Dir d : {Dir::Forward, Dir::Inverse}) check_member(member<zptg32fc>(d));
}

TEST(ComplexAccuracy, Kernels64fcUnderEveryFlag)
{
    for (Dir d : {Dir::Forward, Dir::Inverse}) check_member(member<zptg64fc>(d));
}

}  // namespace
}  // namespace zptg::test
