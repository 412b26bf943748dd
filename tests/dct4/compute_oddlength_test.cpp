// The lengths 2^k + 1. Their plan is that of K = 2^k, while the length N =
// K + 1 itself enters the reflection base 2N - 1 and the twiddle angles
// pi (2i+1)(2r+1) / (4N). The transform then computes what the split's
// formulas give with N and K taken apart: classes reading x[i + 2d j] and
// x[2N - 1 - i - 2d j], rows storing to k + m s and 2N - 1 - K - k - m s in
// ascending order (the later store standing), and some outputs never
// stored. Here those formulas are run in long double and compared output
// by output, with the never-stored elements checked to keep what they held.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <vector>

#include "dct4/compute_reference.h"
#include "dct4/kind_api.h"

namespace zptg::test {
namespace {

using zptg_test::Dct4Plan;
using zptg_test::kKindName;

// The split factor of a length-K plan: the largest power of two up to the
// cap that the size of K/2 allows.
int64_t split_factor(int64_t half)
{
    return half >= 512 ? 32 : half >= 128 ? 16 : half >= 32 ? 8 : half >= 16 ? 4 : 2;
}

struct Outcome {
    std::vector<long double> value;  // N + 1 places
    std::vector<bool> stored;
};

// x holds N + 1 elements, N = K + 1.
Outcome split_formulas(const std::vector<long double>& x, int64_t n)
{
    const int64_t k_len = n - 1, d = split_factor(k_len / 2), m = k_len / d;
    std::vector<std::vector<cld>> f(d);
    for (int64_t i = 0; i < d; ++i) {
        std::vector<long double> y(m);
        for (int64_t j = 0; j < m; ++j) {
            y[j] = j < m / 2 ? x[i + 2 * d * j] : -x[2 * n - 1 - i - 2 * d * j];
        }
        f[i] = oddfreq_fast(y);
    }
    Outcome out{std::vector<long double>(n + 1, 0), std::vector<bool>(n + 1, false)};
    for (int64_t r = 0; r < m / 2; ++r) {
        std::vector<cld> w(d);
        for (int64_t i = 0; i < d; ++i) w[i] = f[i][r] * exp_i_pi((2 * i + 1) * (2 * r + 1), 4 * n);
        const std::vector<long double> rs = network_direct(w);
        for (int64_t s = 0; s < d; ++s) {
            const int64_t fwd = r + m * s, rev = 2 * n - 1 - k_len - r - m * s;
            out.value.at(fwd) = rs[d + s];
            out.value.at(rev) = rs[s];
            out.stored[fwd] = out.stored[rev] = true;
        }
    }
    return out;
}

template <class T>
constexpr double kUnit = sizeof(T) == 4 ? 0x1p-24 : 0x1p-53;

template <class T>
void check_length(int64_t n)
{
    SCOPED_TRACE(testing::Message() << kKindName<T> << " N = " << n);
    const std::vector<long double> x = random_values(n + 1, uint32_t(n));
    const Outcome want = split_formulas(x, n);
    long double norm2 = 0;
    for (long double v : x) norm2 += v * v;
    const double allowed = kUnit<T> * (2.0 * std::log2(double(n)) + 4.0);

    Dct4Plan<T> plan(static_cast<int>(n));
    ASSERT_EQ(plan.status(), zptgStatusOk);
    const T sentinel = T(-1234.5);
    std::vector<T> src(x.begin(), x.end()), dst(n + 1, sentinel);
    ASSERT_EQ(plan.run(src.data(), dst.data()), zptgStatusOk);
    double worst = 0;
    for (int64_t i = 0; i <= n; ++i) {
        if (want.stored[i]) {
            worst = std::fmax(worst, double(std::fabs(dst[i] - want.value[i])));
        } else {
            EXPECT_EQ(dst[i], sentinel) << "element " << i << " was stored";
        }
    }
    EXPECT_LE(worst / double(std::sqrt(norm2)), allowed);

    // In place: the stored elements as above, bit for bit; the others keep
    // the input.
    std::vector<T> both(src);
    ASSERT_EQ(plan.run(both.data(), both.data()), zptgStatusOk);
    for (int64_t i = 0; i <= n; ++i) {
        EXPECT_EQ(both[i], want.stored[i] ? dst[i] : src[i]) << "element " << i;
    }
}

template <class T>
void check_nine()
{
    Dct4Plan<T> plan(9);
    ASSERT_EQ(plan.status(), zptgStatusOk);
    const T nan = std::numeric_limits<T>::quiet_NaN();
    // Elements 2, 3, 6, 7 of the source are never read: NaN there is harmless.
    std::vector<T> src = {1, 2, nan, nan, 5, 6, nan, nan, 9, 10};
    std::vector<T> dst(10, T(77));
    ASSERT_EQ(plan.run(src.data(), dst.data()), zptgStatusOk);
    for (int i = 0; i < 10; ++i) {
        if (i == 2 || i == 3 || i == 6 || i == 7) {
            EXPECT_EQ(dst[i], T(77)) << i;
        } else {
            EXPECT_FALSE(std::isnan(dst[i])) << i;
        }
    }
    std::vector<T> both = src;
    ASSERT_EQ(plan.run(both.data(), both.data()), zptgStatusOk);
    for (int i : {2, 3, 6, 7}) EXPECT_TRUE(std::isnan(both[i])) << i;
}

TEST(Dct4OddLength, NineLeavesTwoThreeSixSevenAlone)
{
    check_nine<float>();
    check_nine<double>();
}

TEST(Dct4OddLength, LengthsNineTo16385ReproduceTheFormulas)
{
    for (int64_t k = 8; k <= 16384; k *= 2) {
        check_length<float>(k + 1);
        check_length<double>(k + 1);
    }
}

}  // namespace
}  // namespace zptg::test
