// Accuracy of zptgDCT4_32f and zptgDCT4_64f against long double references:
// every output of every power of two up to 2^14, and sampled outputs, each
// from the definition, of 2^15, 2^16, 2^17 and 2^20 (the other powers up to
// 2^24 in a test that is disabled by default, for its running time). The
// error of a transform is the largest output error divided by the input's
// Euclidean norm, which is the size of a typical output times sqrt 2; it
// must stay within a few units of rounding times the depth log2 N.
#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <vector>

#include "dct4/compute_api.h"
#include "dct4/compute_reference.h"

namespace zptg::test {
namespace {

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

// cos(pi q / (4N)) for q = 0 .. 2N, so that a sampled output costs N
// products: the angle (2j+1)(2k+1) is reduced modulo 8N and folded. The
// table is filled by turning in steps of pi / (4N) from an exactly
// evaluated point every 32 entries, which keeps it within a few units of
// long double and costs few trigonometric calls.
class QuarterWave {
public:
    explicit QuarterWave(int64_t n) : n_(n), c_(2 * n + 1)
    {
        const long double cd = cos_pi(1, 4 * n), sd = sin_pi(1, 4 * n);
        for (int64_t q0 = 0; q0 <= 2 * n; q0 += 32) {
            long double c = cos_pi(q0, 4 * n), s = sin_pi(q0, 4 * n);
            for (int64_t q = q0; q < q0 + 32 && q <= 2 * n; ++q) {
                c_[q] = c;
                const long double next = c * cd - s * sd;
                s = s * cd + c * sd;
                c = next;
            }
        }
    }
    long double dct4(const std::vector<long double>& x, int64_t k) const
    {
        long double sum = 0;
        const int64_t period = 8 * n_, step = 2 * (2 * k + 1);
        int64_t a = (2 * k + 1) % period;
        for (int64_t j = 0; j < n_; ++j) {
            int64_t r = a > 4 * n_ ? period - a : a;
            sum += x[j] * (r > 2 * n_ ? -c_[4 * n_ - r] : c_[r]);
            a += step;
            if (a >= period) a -= period;
        }
        return sum;
    }

private:
    int64_t n_;
    std::vector<long double> c_;
};

template <class T>
std::vector<T> transform(int64_t n, const std::vector<long double>& x)
{
    Dct4Plan<T> plan(static_cast<int>(n));
    EXPECT_EQ(plan.status(), zptgStatusOk) << "length " << n;
    std::vector<T> src(x.begin(), x.end()), dst(n, T(0));
    if (plan.status() == zptgStatusOk) {
        EXPECT_EQ(plan.run(src.data(), dst.data()), zptgStatusOk);
    }
    return dst;
}

template <class T>
void check_full(int64_t n)
{
    const std::vector<long double> x = random_values(n, uint32_t(n));
    const std::vector<long double> want = n <= 64 ? std::vector<long double>() : dct4_fast(x);
    const std::vector<T> got = transform<T>(n, x);
    double worst = 0;
    for (int64_t k = 0; k < n; ++k) {
        const long double ref = n <= 64 ? dct4_direct(x, k) : want[k];
        worst = std::fmax(worst, double(std::fabs(got[k] - ref)));
    }
    const double err = worst / norm(x);
    std::printf("  %s N = %8lld  error %.2e  (%.2f units)\n", kKindName<T>, (long long)n,
                err, err / kUnit<T>);
    EXPECT_LE(err, allowed_error<T>(n)) << kKindName<T> << " N = " << n;
}

// Outputs at both ends, around the middle, and spread pseudo-randomly.
std::vector<int64_t> samples(int64_t n)
{
    std::vector<int64_t> k = {0, 1, n / 2 - 1, n / 2, n - 2, n - 1};
    uint32_t state = uint32_t(n) ^ 0x9e3779b9u;
    for (int i = 0; i < 10; ++i) {
        state = state * 1664525u + 1013904223u;
        k.push_back(int64_t(state % uint32_t(n)));
    }
    return k;
}

void check_sampled(int64_t n)
{
    const std::vector<long double> x = random_values(n, uint32_t(n) + 1);
    const QuarterWave wave(n);
    const std::vector<int64_t> ks = samples(n);
    std::vector<long double> want;
    for (int64_t k : ks) want.push_back(wave.dct4(x, k));
    const std::vector<float> got32 = transform<float>(n, x);
    const std::vector<double> got64 = transform<double>(n, x);
    double worst32 = 0, worst64 = 0;
    for (size_t i = 0; i < ks.size(); ++i) {
        worst32 = std::fmax(worst32, double(std::fabs(got32[ks[i]] - want[i])));
        worst64 = std::fmax(worst64, double(std::fabs(got64[ks[i]] - want[i])));
    }
    const double err32 = worst32 / norm(x), err64 = worst64 / norm(x);
    std::printf("  N = %8lld  sampled error 32f %.2e (%.2f units), 64f %.2e (%.2f units)\n",
                (long long)n, err32, err32 / kUnit<float>, err64, err64 / kUnit<double>);
    EXPECT_LE(err32, allowed_error<float>(n)) << "32f N = " << n;
    EXPECT_LE(err64, allowed_error<double>(n)) << "64f N = " << n;
}

TEST(Dct4Accuracy, ReferencesAgree)
{
    // The fast reference against the definition, every output of 256, and
    // against the sampling reference on a sample of 16384.
    for (int64_t n : {2, 8, 256}) {
        const std::vector<long double> x = random_values(n, 3);
        const std::vector<long double> fast = dct4_fast(x);
        for (int64_t k = 0; k < n; ++k) EXPECT_LT(std::fabs(fast[k] - dct4_direct(x, k)), 1e-15L);
    }
    const std::vector<long double> x = random_values(16384, 4);
    const std::vector<long double> fast = dct4_fast(x);
    const QuarterWave wave(16384);
    for (int64_t k : samples(16384)) EXPECT_LT(std::fabs(fast[k] - wave.dct4(x, k)), 1e-14L) << k;
    EXPECT_LT(std::fabs(fast[5] - dct4_direct(x, 5)), 1e-14L);
}

TEST(Dct4Accuracy, EveryOutputOfPowersOfTwoUpTo16384In32f)
{
    for (int64_t n = 2; n <= 16384; n *= 2) check_full<float>(n);
}

TEST(Dct4Accuracy, EveryOutputOfPowersOfTwoUpTo16384In64f)
{
    for (int64_t n = 2; n <= 16384; n *= 2) check_full<double>(n);
}

// 2^15 brings the 32-column inner rows, 2^16 the 64-point inner bodies,
// 2^17 a third level; 2^20 is the largest length of the normal run.
TEST(Dct4Accuracy, SampledOutputsUpTo2Pow20)
{
    for (int k : {15, 16, 17, 20}) check_sampled(int64_t(1) << k);
}

TEST(Dct4Accuracy, DISABLED_SampledOutputsOfTheLongLengths)
{
    for (int k : {18, 19, 21, 22, 23, 24}) check_sampled(int64_t(1) << k);
}

}  // namespace
}  // namespace zptg::test
