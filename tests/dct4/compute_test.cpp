// What zptgDCT4_32f and zptgDCT4_64f compute, against long double references: every output of every
// power of two up to 2^20 (so every body, and, where the arithmetic is SSE, the root's row blocks
// from 2^13 or 2^14 on and its columns in groups from 2^13 on, in place on the stack up to 2^14 and
// by the plain path above), also in place and repeated; the lengths 2^k + 1 against the formulas of
// their split; the constants of the bodies; and the bodies run on counting scalars, each with exactly
// the products, sums and negations of its rule and no store outside its places.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <vector>

#include "dct4/api.h"
#include "dct4/compute_constants.h"
#include "dct4/compute_direct.h"
#include "dct4/compute_network.h"
#include "dct4/compute_oddfreq.h"
#include "dct4/compute_rowdft.h"
#include "support/reference.h"

namespace zptg::test {
namespace {

// A scalar that counts its products, sums (and differences) and negations, holding its value as
// double so that the same run yields results.
struct OpCounts {
    long products = 0, sums = 0, negations = 0;
    bool operator==(const OpCounts&) const = default;
};
OpCounts g_ops;

struct Counted {
    double v = 0;
    Counted() = default;
    constexpr Counted(double x) : v(x) {}  // literal constants and loaded data
    explicit operator double() const { return v; }
};
Counted operator+(Counted a, Counted b) { return ++g_ops.sums, a.v + b.v; }
Counted operator-(Counted a, Counted b) { return ++g_ops.sums, a.v - b.v; }
Counted operator*(Counted a, Counted b) { return ++g_ops.products, a.v * b.v; }
Counted operator-(Counted a) { return ++g_ops.negations, -a.v; }

// Largest output error over the input's Euclidean norm: a few units of rounding per level of the
// split, 2 log2 N + 4.
template <class T>
double allowed_error(int64_t n)
{
    return std::numeric_limits<T>::epsilon() / 2 * (2.0 * std::log2(double(n)) + 4.0);
}

double norm(const Reals& x)
{
    long double s = 0;
    for (long double v : x) s += v * v;
    return double(std::sqrt(s));
}

// The same context also runs x in place and, after another input, once more: both give the bits of
// the first call, whichever path each took. 2^15 brings the 32-column inner rows, 2^16 the 64-point inner bodies, 2^17 a
// third level.
template <class T>
void check_power_of_two(const Reals& x, const Reals& want)
{
    const int n = int(x.size());
    SCOPED_TRACE(testing::Message() << "N " << n << ", " << sizeof(T) << "-byte elements");
    Dct4Plan<T> plan(n);
    ASSERT_EQ(plan.status(), zptgStatusOk);
    const Reals other = random_values(n, uint32_t(n) + 7);
    std::vector<T> src(x.begin(), x.end()), dst(n), in_place(src), again(n), y(other.begin(), other.end());
    EXPECT_EQ(plan.run(src.data(), dst.data()), zptgStatusOk);
    EXPECT_EQ(plan.run(in_place.data(), in_place.data()), zptgStatusOk);
    EXPECT_EQ(plan.run(y.data(), y.data()), zptgStatusOk);
    EXPECT_EQ(plan.run(src.data(), again.data()), zptgStatusOk);
    EXPECT_TRUE(same_bits(in_place, dst)) << "in place";
    EXPECT_TRUE(same_bits(again, dst)) << "repeated";
    double worst = 0;
    for (int k = 0; k < n; ++k) worst = std::fmax(worst, double(std::fabs(dst[k] - want[k])));
    EXPECT_LE(worst / norm(x), allowed_error<T>(n));
}

TEST(Dct4Compute, EveryOutputOfPowersOfTwo)
{
    for (int64_t n = 2; n <= (int64_t(1) << 20); n *= 2) {
        const Reals x = random_values(n, uint32_t(n));
        const Reals want = dct4_fast(x);
        check_power_of_two<float>(x, want);
        check_power_of_two<double>(x, want);
    }
}

// A length N = K + 1 has the plan of K, while N itself enters the reflection base 2N - 1 and the
// twiddle angles pi (2i+1)(2r+1) / 4N. The transform computes what the split's formulas give with N
// and K taken apart: classes reading x[i + 2d j] and x[2N - 1 - i - 2d j], rows storing to r + m s
// and 2N - 1 - K - r - m s in ascending order (the later store standing), and some outputs never
// stored, which keep what they held; in place, those keep the input.
template <class T>
void check_odd_length(int64_t n)
{
    SCOPED_TRACE(testing::Message() << "N " << n << ", " << sizeof(T) << "-byte elements");
    const int64_t k_len = n - 1, half = k_len / 2;
    const int64_t d = half >= 512 ? 32 : half >= 128 ? 16 : half >= 32 ? 8 : half >= 16 ? 4 : 2, m = k_len / d;
    const Reals x = random_values(n + 1, uint32_t(n));
    std::vector<std::vector<cld>> f(d);
    for (int64_t i = 0; i < d; ++i) {
        Reals y(m);
        for (int64_t j = 0; j < m; ++j) y[j] = j < m / 2 ? x[i + 2 * d * j] : -x[2 * n - 1 - i - 2 * d * j];
        f[i] = oddfreq(y);
    }
    Reals want(n + 1, 0);
    std::vector<bool> stored(n + 1, false);
    for (int64_t r = 0; r < m / 2; ++r) {
        std::vector<cld> w(d);
        for (int64_t i = 0; i < d; ++i) w[i] = f[i][r] * exp_i_pi((2 * i + 1) * (2 * r + 1), 4 * n);
        const Reals rs = network_sum(w);
        for (int64_t s = 0; s < d; ++s) {
            const int64_t fwd = r + m * s, rev = 2 * n - 1 - k_len - r - m * s;
            want.at(fwd) = rs[d + s];
            want.at(rev) = rs[s];
            stored[fwd] = stored[rev] = true;
        }
    }
    Dct4Plan<T> plan{int(n)};
    ASSERT_EQ(plan.status(), zptgStatusOk);
    const T sentinel = T(-1234.5);
    std::vector<T> src(x.begin(), x.end()), dst(n + 1, sentinel), both(src);
    ASSERT_EQ(plan.run(src.data(), dst.data()), zptgStatusOk);
    ASSERT_EQ(plan.run(both.data(), both.data()), zptgStatusOk);
    double worst = 0;
    for (int64_t i = 0; i <= n; ++i) {
        if (stored[i]) worst = std::fmax(worst, double(std::fabs(dst[i] - want[i])));
        EXPECT_EQ(dst[i], stored[i] ? dst[i] : sentinel) << "element " << i << " was stored";
        EXPECT_EQ(both[i], stored[i] ? dst[i] : src[i]) << "element " << i << " in place";
    }
    EXPECT_LE(worst / norm(x), allowed_error<T>(n));
}

TEST(Dct4Compute, LengthsNineTo16385ReproduceTheFormulas)
{
    for (int64_t k = 8; k <= 16384; k *= 2) {
        check_odd_length<float>(k + 1);
        check_odd_length<double>(k + 1);
    }
}

// Each literal multiplier of the bodies is the value of its width nearest to cos(pi a / 128), or to
// the lifting slopes tan(7 pi / 32), tan(5 pi / 32).
template <class F>
bool is_nearest(F v, long double exact)
{
    const long double ulp = std::fabs((long double)std::nextafter(v, F(2)) - v);
    return std::fabs(v - exact) <= 0.5L * ulp * (1 + 1e-6L) || (exact == 0 && v == 0);
}

TEST(Dct4Compute, ConstantsAreTheNearestValuesOfTheirWidth)
{
    for (int a = 0; a <= 128; ++a) {
        const long double exact = cos_pi(a, 128);
        EXPECT_TRUE(is_nearest(dct4::kCos128_64f[a], exact)) << a;
        EXPECT_TRUE(is_nearest(dct4::kCos128_32f[a], exact)) << a;
    }
    for (int i = 0; i < 2; ++i) {
        const long double exact = sin_pi(7 - 2 * i, 32) / cos_pi(7 - 2 * i, 32);
        EXPECT_TRUE(is_nearest(dct4::kLift4_64f[i], exact) && is_nearest(dct4::kLift4_32f[i], exact)) << i;
    }
}

constexpr double kSentinel = -777.0;

template <int N>
void check_direct(OpCounts expected)
{
    const Reals x = random_values(N, 40 + N), want = dct4_fast(x);
    std::vector<Counted> src(x.begin(), x.end()), dst(N, Counted(kSentinel));
    g_ops = {};
    dct4::dct4_direct<N, Counted>(src.data(), dst.data());
    EXPECT_EQ(g_ops, expected) << N;
    for (int i = 0; i < N; ++i) EXPECT_NEAR(dst[i].v, double(want[i]), 1e-14) << N << ": X[" << i << "]";
}

// A column read forward by stride and its upper half mirrored: forward element j at 1 + 3j,
// mirrored element j at 2 + 3(M - j), so the halves interleave without sharing a place; C(k) and
// S(k) stored in the row layout.
template <int M>
void check_column(OpCounts expected)
{
    constexpr int row = 5, im = 2;
    const Reals data = random_values(3 * M + 3, M);
    std::vector<Counted> in(data.begin(), data.end()), out(row * M / 2 + 3, Counted(kSentinel));
    Reals y(M);
    for (int j = 0; j < M; ++j) y[j] = j < M / 2 ? data[1 + 3 * j] : -data[2 + 3 * (M - j)];
    const std::vector<cld> f = oddfreq(y);
    g_ops = {};
    dct4::oddfreq_column<M>(in.data() + 1, in.data() + 2 + 3 * M, 3, out.data(), row, im);
    EXPECT_EQ(g_ops, expected) << M;
    for (size_t i = 0; i < out.size(); ++i) {
        const size_t k = i / row;
        if (k < M / 2 && (i % row == 0 || i % row == im))
            EXPECT_NEAR(out[i].v, double(i % row ? f[k].imag() : f[k].real()), 1e-13) << M << ": F(" << k << ")";
        else
            EXPECT_EQ(out[i].v, kSentinel) << M << ": a stray store at " << i;
    }
}

// The inner rows (D2 values twisted through their table, a DFT with a plus sign, stored forward
// and, conjugated, mirrored, `step` apart) and the root's output rows (twisted by their table
// pairs, reduced through the network, stored forward and mirrored, m = 3 apart): the operations of
// each size, and stores at exactly their places. Their values are held by the transforms of
// Dct4Compute, which run them at every size.
template <int D2>
void check_inner_row(long products, long sums)
{
    constexpr int step = 7, im = 3, half = D2 / 2;
    const Reals data = random_values(6 * D2 + 64, D2);
    std::vector<Counted> v(data.begin(), data.end()), out(2 * step * half, Counted(kSentinel));
    g_ops = {};
    dct4::row_dft_store<D2>(v.data(), v.data() + 2 * D2, v.data() + 4 * D2, out.data(), out.data() + step * half, step, im);
    EXPECT_EQ(g_ops, (OpCounts{products, sums, 0})) << D2;
    for (size_t i = 0; i < out.size(); ++i)
        EXPECT_EQ(out[i].v == kSentinel, i % step != 0 && i % step != im) << D2 << ": at " << i;
}

template <int D>
void check_output_row(long products, long sums)
{
    constexpr int m = 3;
    const Reals data = random_values(4 * D, D);
    std::vector<Counted> v(data.begin(), data.end()), out(D * m + 2, Counted(kSentinel));
    g_ops = {};
    dct4::twist_network_row<D>(v.data(), v.data() + 2 * D, out.data() + 1, out.data() + D * m, m);
    EXPECT_EQ(g_ops, (OpCounts{products, sums, 0})) << D;
    for (size_t i = 0; i < out.size(); ++i)
        EXPECT_EQ(out[i].v == kSentinel, i == 0 || i == out.size() - 1 || ((i - 1) % m != 0 && (D * m - i) % m != 0)) << D << ": at " << i;
}

TEST(Dct4Body, CountsAndStores)
{
    check_direct<2>({4, 2, 0});
    check_direct<4>({8, 12, 0});  // by lifting
    check_direct<8>({24, 32, 0});
    check_direct<16>({64, 88, 0});
    check_direct<32>({144, 216, 0});
    check_column<2>({0, 0, 1});  // a copy and a negated copy
    check_column<4>({2, 6, 0});
    check_column<8>({12, 24, 0});     // radix 2 on two of length 4
    check_column<16>({32, 68, 0});    // radix 4 on four of length 4
    check_column<32>({96, 184, 0});   // radix 2 on two of length 16
    check_column<64>({224, 448, 0});  // radix 4 on four of length 16
    check_inner_row<2>(4, 6);
    check_inner_row<4>(12, 22);
    check_inner_row<8>(32, 66);     // twist and a DFT of 8
    check_inner_row<16>(96, 176);   // four by four
    check_inner_row<32>(224, 440);  // eight by four
    check_output_row<1>(4, 2);      // the twist alone
    check_output_row<2>(10, 10);
    check_output_row<4>(28, 32);
    check_output_row<8>(72, 88);
    check_output_row<16>(176, 224);
    check_output_row<32>(352, 512);  // through the fused steps
}

}  // namespace
}  // namespace zptg::test
