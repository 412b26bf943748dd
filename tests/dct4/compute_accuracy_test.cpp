// Accuracy of zptgDCT4_32f and zptgDCT4_64f against long double references:
// every output of every power of two up to 2^20, from a fast long double
// transform that is itself checked against the definition. The error of a
// transform is the largest output error divided by the input's Euclidean
// norm, which is the size of a typical output times sqrt 2; it must stay
// within a few units of rounding times the depth log2 N. Every length is
// also run in place and repeated, for the same bits.
#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <vector>

#include "dct4/compute_reference.h"
#include "dct4/kind_api.h"

namespace zptg::test {
namespace {

using zptg_test::Dct4Plan;
using zptg_test::kKindName;

template <class T>
constexpr double kUnit = sizeof(T) == 4 ? 0x1p-24 : 0x1p-53;

// Allowed error: 2 units per level of the split, and 4 more.
template <class T>
double allowed_error(int64_t n)
{
    return kUnit<T> * (2.0 * std::log2(double(n)) + 4.0);
}

double norm(const std::vector<long double>& x)
{
    long double s = 0;
    for (long double v : x) s += v * v;
    return double(std::sqrt(s));
}

// The transform of x through a new context. The same context also runs x
// in place and, after another input, once more: both must give the bits of
// the first call.
template <class T>
std::vector<T> transform(int64_t n, const std::vector<long double>& x)
{
    Dct4Plan<T> plan(static_cast<int>(n));
    EXPECT_EQ(plan.status(), zptgStatusOk) << "length " << n;
    std::vector<T> src(x.begin(), x.end()), dst(n, T(0));
    if (plan.status() != zptgStatusOk) return dst;
    const std::vector<long double> y = random_values(n, uint32_t(n) + 7);
    std::vector<T> in_place(src), other(y.begin(), y.end()), again(n);
    EXPECT_EQ(plan.run(src.data(), dst.data()), zptgStatusOk);
    EXPECT_EQ(plan.run(in_place.data(), in_place.data()), zptgStatusOk);
    EXPECT_EQ(plan.run(other.data(), other.data()), zptgStatusOk);
    EXPECT_EQ(plan.run(src.data(), again.data()), zptgStatusOk);
    const size_t bytes = sizeof(T) * size_t(n);
    EXPECT_EQ(std::memcmp(in_place.data(), dst.data(), bytes), 0) << "in place, N = " << n;
    EXPECT_EQ(std::memcmp(again.data(), dst.data(), bytes), 0) << "repeated, N = " << n;
    return dst;
}

template <class T>
void check(const std::vector<long double>& x, const std::vector<long double>& want)
{
    const int64_t n = int64_t(x.size());
    const std::vector<T> got = transform<T>(n, x);
    double worst = 0;
    for (int64_t k = 0; k < n; ++k) worst = std::fmax(worst, double(std::fabs(got[k] - want[k])));
    const double err = worst / norm(x);
    EXPECT_LE(err, allowed_error<T>(n))
        << kKindName<T> << " N = " << n << ": " << err / kUnit<T> << " units";
}

// The fast reference against the definition: every output of 2, 8 and 256,
// and outputs at both ends, around the middle and between of 2^16.
TEST(Dct4Accuracy, ReferencesAgree)
{
    for (int64_t n : {2, 8, 256, 65536}) {
        const std::vector<long double> x = random_values(n, 3);
        const std::vector<long double> fast = dct4_fast(x);
        std::vector<int64_t> ks = {0, 1, n / 2 - 1, n / 2, n - 2, n - 1, n / 3, 5 * n / 7};
        if (n <= 256) {
            ks.resize(size_t(n));
            for (int64_t k = 0; k < n; ++k) ks[size_t(k)] = k;
        }
        for (int64_t k : ks) {
            EXPECT_LT(std::fabs(fast[k] - dct4_direct(x, k)), 1e-14L) << "N " << n << " k " << k;
        }
    }
}

// 2^15 brings the 32-column inner rows, 2^16 the 64-point inner bodies,
// 2^17 a third level.
TEST(Dct4Accuracy, EveryOutputOfPowersOfTwo)
{
    for (int64_t n = 2; n <= (int64_t(1) << 20); n *= 2) {
        const std::vector<long double> x = random_values(n, uint32_t(n));
        const std::vector<long double> want = dct4_fast(x);
        check<float>(x, want);
        check<double>(x, want);
    }
}

}  // namespace
}  // namespace zptg::test
