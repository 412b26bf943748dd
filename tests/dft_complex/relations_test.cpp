// Relations between calls, each held to what the accuracy bound of the
// kernels involved allows: the inverse is the forward transform read
// backwards (X_inv[k] = X_fwd[N - k]); a forward then inverse call under
// one flag returns the input (N times it under zptgScaleNone); a constant
// input puts N times it in X[0], exactly, and nothing elsewhere (exact
// zeros at lengths 2 and 4).
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <vector>

#include "dft_complex/accuracy_bound.h"
#include "dft_complex/element.h"
#include "dft_complex/kernel_call.h"

namespace zptg::test {
namespace {

template <class E>
long double largest(const std::vector<E>& v)
{
    long double m = 0;
    for (const E& e : v) m = std::max(m, std::hypot((long double)e.re, (long double)e.im));
    return m;
}

template <class E>
long double distance(const E& a, const E& b, long double times = 1)
{
    return std::hypot(a.re - times * b.re, a.im - times * b.im);
}

// Calls check(forward member, inverse member, n) for both kinds and every
// length.
template <class F>
void for_each_pair(F&& check)
{
    for_each_kind([&]<class E>() {
        for (int n = kMinLength; n <= kMaxLength; ++n) check(member<E>(Dir::Forward), member<E>(Dir::Inverse), n);
    });
}

TEST(ComplexRelations, InverseIsTheReversedForward)
{
    for_each_pair([]<class E>(const Member<E>& fwd, const Member<E>& inv, int n) {
        const std::vector<E> in = random_input<E>(n, 40);
        const std::vector<E> f = call(fwd.kernel[n], in, zptgScaleNone).out;
        const std::vector<E> i = call(inv.kernel[n], in, zptgScaleNone).out;
        // Both are within the bound of the same exact values.
        const long double tolerance = 2 * accuracy_bound<E>(n) * epsilon_of<E>() * largest(f);
        for (int k = 0; k < n; ++k)
            EXPECT_LE(distance(i[k], f[(n - k) % n]), tolerance)
                << inv.kernel_name[n] << " X[" << k << "] against the forward X[" << (n - k) % n << "]";
    });
}

TEST(ComplexRelations, ForwardThenInverseRestoresTheInput)
{
    for_each_pair([]<class E>(const Member<E>& fwd, const Member<E>& inv, int n) {
        const std::vector<E> in = random_input<E>(n, 41);
        for (int flag : kFlags) {
            const std::vector<E> spectrum = call(fwd.kernel[n], in, flag).out;
            const std::vector<E> back = call(inv.kernel[n], spectrum, flag).out;
            const long double times = flag == zptgScaleNone ? n : 1;
            const long double inverse_factor =
                flag == zptgScaleInvByN ? 1.0L / n : flag == zptgScaleBySqrtN ? 1 / std::sqrt((long double)n) : 1;
            // The inverse's own error, and the forward's carried through the
            // inverse (at most N terms of it, times its factor).
            const long double tolerance = accuracy_bound<E>(n) * epsilon_of<E>() *
                                          (largest(back) + inverse_factor * n * largest(spectrum));
            for (int k = 0; k < n; ++k)
                EXPECT_LE(distance(back[k], in[k], times), tolerance)
                    << fwd.kernel_name[n] << " then " << inv.kernel_name[n] << " flag " << flag << " x[" << k << "]";
        }
    });
}

TEST(ComplexRelations, ConstantInputLandsInX0)
{
    for_each_member([]<class E>(const Member<E>& m) {
        for (int n = kMinLength; n <= kMaxLength; ++n) {
            const std::vector<E> y = call(m.kernel[n], constant_input<E>(n, 0.75, -1.5), zptgScaleNone).out;
            EXPECT_EQ(y[0].re, 0.75 * n) << m.kernel_name[n];
            EXPECT_EQ(y[0].im, -1.5 * n) << m.kernel_name[n];
            const long double tolerance =
                (n == 2 || n == 4) ? 0 : accuracy_bound<E>(n) * epsilon_of<E>() * largest(y);
            for (int k = 1; k < n; ++k)
                EXPECT_LE(std::hypot((long double)y[k].re, (long double)y[k].im), tolerance)
                    << m.kernel_name[n] << " X[" << k << "]";
        }
    });
}

}  // namespace
}  // namespace zptg::test
