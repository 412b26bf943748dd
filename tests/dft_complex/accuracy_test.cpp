// Accuracy of every kernel under every flag against the exact DFT (long
// double, scaled by the kernel's stated scale constant), on an impulse at
// x[1] (its outputs pass through every constant of the kernel) and three
// pseudo-random inputs. The worst error of each length and direction is
// printed in units of the element's epsilon times max |X|.
//
// The bounds:
// - 32fc: the kernels compute in double and round once at the store, so
//   each real value must be the float nearest to the exact one, or either
//   neighbour when the exact value lies within 2^-44 max|X| of the midpoint
//   between two floats. (Double arithmetic errs by some 2^-50 max|X| at
//   most here.) A constant wrong beyond its ~12th digit moves values across
//   midpoints and fails this.
//   Normwise that is at most 0.75 eps max|X|, with eps = 2^-23.
// - 64fc: max |Y - X| <= (1 + log2 N) eps max |X|, with eps = 2^-52.
#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <string>
#include <vector>

#include "dft_complex/accuracy_bound.h"
#include "dft_complex/element.h"
#include "dft_complex/exact_dft.h"
#include "dft_complex/kernel_call.h"
#include "dft_complex/stated_scale.h"

namespace zptg::test {
namespace {

template <class R>
R rounded(long double x)
{
    bool decided = true;
    return round_nearest<R>(x, &decided);
}

struct Worst {
    long double error[2][kMaxLength + 1] = {};  // by direction and length, in eps max|X|
};

// Checks one output against its reference; returns the error in units of
// eps max|X| and reports the first failing value.
template <class E>
long double check_output(const std::vector<E>& y, const std::vector<Exact>& ref, int n,
                         const std::string& what)
{
    using R = RealOf<E>;
    long double largest = 0, error = 0;
    for (const Exact& r : ref) largest = std::max(largest, std::hypot(r.re, r.im));
    for (int k = 0; k < n; ++k)
        error = std::max(error, std::hypot(y[k].re - ref[k].re, y[k].im - ref[k].im));
    const long double units = error / (epsilon_of<E>() * largest);
    if constexpr (sizeof(R) == sizeof(float)) {
        const long double margin = 0x1p-44L * largest;
        for (int slot = 0; slot < 2 * n; ++slot) {
            const long double exact = slot % 2 == 0 ? ref[slot / 2].re : ref[slot / 2].im;
            const R got = part(y, slot);
            const R low = rounded<R>(exact - margin), high = rounded<R>(exact + margin);
            if (got < low || got > high) {
                ADD_FAILURE() << what << ": slot " << slot << " is " << double(got)
                              << ", the nearest float to the exact " << double(exact) << " is "
                              << double(rounded<R>(exact));
                break;
            }
        }
    }
    EXPECT_LE(units, accuracy_bound<E>(n)) << what << ": error " << double(units) << " eps max|X|";
    return units;
}

template <class E>
void check_member(const Member<E>& m, Worst* worst)
{
    using R = RealOf<E>;
    for (int n = kMinLength; n <= kMaxLength; ++n) {
        ASSERT_TRUE(scale_constants<R>(n).decided) << "scale constants of length " << n;
        std::vector<std::vector<E>> inputs = {impulse<E>(n, 1)};
        for (unsigned seed = 1; seed <= 3; ++seed) inputs.push_back(random_input<E>(n, 1000u * n + seed));
        for (size_t i = 0; i < inputs.size(); ++i) {
            const std::vector<Exact> exact = exact_dft(widen(inputs[i]), m.dir);
            for (int flag : kFlags) {
                const long double factor = stated_factor<R>(m.dir, flag, n);
                std::vector<Exact> ref(exact);
                for (Exact& r : ref) r = {r.re * factor, r.im * factor};
                const Result<E> y = call(m.kernel[n], inputs[i], flag);
                const std::string what = std::string(m.kernel_name[n]) + " flag " + std::to_string(flag) +
                                         (i == 0 ? ", impulse at x[1]" : ", random input " + std::to_string(i));
                ASSERT_EQ(y.status, zptgStatusOk) << what;
                long double& w = worst->error[int(m.dir)][n];
                w = std::max(w, check_output(y.out, ref, n, what));
            }
        }
    }
}

template <class E>
void check_kind()
{
    Worst worst;
    for (Dir d : {Dir::Forward, Dir::Inverse}) check_member(member<E>(d), &worst);
    std::printf("worst error of the %s kernels, in eps max|X| (eps = 2^%d)\n", Element<E>::kind,
                int(std::log2(epsilon_of<E>())));
    std::printf("length  forward  inverse   bound\n");
    for (int n = kMinLength; n <= kMaxLength; ++n) {
        std::printf("%6d  %7.3f  %7.3f  %6.3f\n", n, double(worst.error[0][n]),
                    double(worst.error[1][n]), double(accuracy_bound<E>(n)));
    }
}

TEST(ComplexAccuracy, Kernels32fcUnderEveryFlag) { check_kind<zptg32fc>(); }

TEST(ComplexAccuracy, Kernels64fcUnderEveryFlag) { check_kind<zptg64fc>(); }

// The reference itself: known roots, unit modulus, and the roots of each
// length as powers of the first one.
TEST(ComplexAccuracy, ReferenceRootsOfUnityAreExact)
{
    // Within 2^-61: a few units of long double.
    const auto near = [](long double a, long double b) { return std::fabs(a - b) <= 0x1p-61L; };
    const long double half = std::sqrt(0.5L), root3 = std::sqrt(3.0L), root5 = std::sqrt(5.0L);
    EXPECT_TRUE(near(unit_root(1, 8).re, half) && near(unit_root(1, 8).im, half));
    EXPECT_TRUE(near(unit_root(1, 12).re, root3 / 2) && near(unit_root(1, 12).im, 0.5L));
    EXPECT_TRUE(near(unit_root(1, 5).re, (root5 - 1) / 4));
    EXPECT_TRUE(near(unit_root(1, 10).re, (root5 + 1) / 4));
    EXPECT_TRUE(near(unit_root(7, 28).re, 0) && near(unit_root(7, 28).im, 1));
    EXPECT_TRUE(near(unit_root(-1, 3).im, -root3 / 2));
    for (int n = kMinLength; n <= kMaxLength; ++n) {
        const Exact one = unit_root(1, n);
        for (int a = 0; a <= n; ++a) {
            const Exact r = unit_root(a, n), next = unit_root(a + 1, n);
            EXPECT_TRUE(near(r.re * r.re + r.im * r.im, 1)) << a << "/" << n;
            EXPECT_TRUE(near(next.re, r.re * one.re - r.im * one.im) &&
                        near(next.im, r.re * one.im + r.im * one.re))
                << a << "/" << n;
        }
    }
}

}  // namespace
}  // namespace zptg::test
