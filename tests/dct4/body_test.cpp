// The DCT-IV bodies run on counting scalars, each with exactly the
// products, sums and negations of its rule and no store outside its places:
// the direct lengths 2 to 32 (every input read once, all before the first
// store, every output stored once) and the odd-frequency columns against
// their definitions in long double; the inner and output rows.
#include <gtest/gtest.h>

#include <cmath>
#include <vector>

#include "dct4/compute_direct.h"
#include "dct4/compute_network.h"
#include "dct4/compute_oddfreq.h"
#include "dct4/compute_rowdft.h"
#include "support/counting.h"
#include "support/reference.h"

namespace zptg::test {
namespace {

constexpr double kSentinel = -777.0;

// `out` holds `want` at the places given and the sentinel everywhere else.
void check_places(const std::vector<Counted>& out, const std::vector<std::pair<int, long double>>& want)
{
    std::vector<bool> placed(out.size(), false);
    for (const auto& [at, value] : want) {
        EXPECT_NEAR(out.at(at).v, double(value), 1e-13) << "at " << at;
        placed[at] = true;
    }
    for (size_t i = 0; i < out.size(); ++i)
        EXPECT_TRUE(placed[i] || out[i].v == kSentinel) << "a stray store at " << i;
}

template <int N>
void check_direct(OpCounts expected)
{
    SCOPED_TRACE(N);
    const Reals x = random_values(N, 40 + N);
    const Reals want = dct4_fast(x);
    std::vector<double> src(x.begin(), x.end()), dst(N, 0.0);
    AccessLog log;
    CountScope scope;
    dct4::dct4_direct<N, Counted>(Reader{src.data(), &log}, Writer{dst.data(), &log});
    EXPECT_EQ(scope.counts(), expected);
    EXPECT_EQ(log.reads_before_first_store, N) << "a store before the last read";
    std::vector<int> reads(N, 0), stores(N, 0);
    for (int i : log.reads) ++reads.at(i);
    for (int i : log.stores) ++stores.at(i);
    for (int i = 0; i < N; ++i) {
        EXPECT_EQ(reads[i], 1) << "input " << i;
        EXPECT_EQ(stores[i], 1) << "output " << i;
        EXPECT_NEAR(dst[i], double(want[i]), 1e-14) << "X[" << i << "]";
    }
}

TEST(Dct4Body, DirectLengths)
{
    check_direct<2>({4, 2, 0});
    check_direct<4>({8, 12, 0});  // by lifting
    check_direct<8>({24, 32, 0});
    check_direct<16>({64, 88, 0});
    check_direct<32>({144, 216, 0});
}

// A column read forward by stride and its upper half mirrored: forward
// element j at 1 + 3j, mirrored element j at 2 + 3(M - j), so the halves
// interleave without sharing a place; C(k) and S(k) stored in the row layout.
template <int M>
void check_column(OpCounts expected)
{
    SCOPED_TRACE(M);
    constexpr int row = 5, im = 2;
    const Reals data = random_values(3 * M + 3, M);
    std::vector<Counted> in(data.begin(), data.end()), out(row * M / 2 + 3, Counted(kSentinel));
    Reals y(M);
    for (int j = 0; j < M; ++j) y[j] = j < M / 2 ? data[1 + 3 * j] : -data[2 + 3 * (M - j)];
    const std::vector<cld> f = oddfreq(y);
    CountScope scope;
    dct4::oddfreq_column<M>(in.data() + 1, in.data() + 2 + 3 * M, 3, out.data(), row, im);
    EXPECT_EQ(scope.counts(), expected);
    std::vector<std::pair<int, long double>> want;
    for (int k = 0; k < M / 2; ++k) {
        want.push_back({k * row, f[k].real()});
        want.push_back({k * row + im, f[k].imag()});
    }
    check_places(out, want);
}

TEST(Dct4Body, OddFrequencyColumns)
{
    check_column<2>({0, 0, 1});  // a copy and a negated copy
    check_column<4>({2, 6, 0});
    check_column<8>({12, 24, 0});     // radix 2 on two of length 4
    check_column<16>({32, 68, 0});    // radix 4 on four of length 4
    check_column<32>({96, 184, 0});   // radix 2 on two of length 16
    check_column<64>({224, 448, 0});  // radix 4 on four of length 16
}

// The inner rows (D2 values twisted through their table, a DFT with a plus
// sign, stored forward and, conjugated, mirrored, `step` apart) and the
// root's output rows (twisted by their table pairs, reduced through the
// network, stored forward and mirrored, m = 3 apart): the operations of
// each size, and stores at exactly their places. Their values are held by
// the transforms of Dct4Compute, which run them at every size.
template <int D2>
void check_inner_row(long products, long sums)
{
    constexpr int step = 7, im = 3, half = D2 / 2;
    const Reals data = random_values(6 * D2 + 64, D2);
    std::vector<Counted> v(data.begin(), data.end()), out(2 * step * half, Counted(kSentinel));
    CountScope scope;
    dct4::row_dft_store<D2>(v.data(), v.data() + 2 * D2, v.data() + 4 * D2, out.data(), out.data() + step * half, step, im);
    EXPECT_EQ(scope.counts(), (OpCounts{products, sums, 0})) << D2;
    for (size_t i = 0; i < out.size(); ++i)
        EXPECT_EQ(out[i].v == kSentinel, i % step != 0 && i % step != im) << D2 << ": at " << i;
}

template <int D>
void check_output_row(long products, long sums)
{
    constexpr int m = 3;
    const Reals data = random_values(4 * D, D);
    std::vector<Counted> v(data.begin(), data.end()), out(D * m + 2, Counted(kSentinel));
    CountScope scope;
    dct4::twist_network_row<D>(v.data(), v.data() + 2 * D, out.data() + 1, out.data() + D * m, m);
    EXPECT_EQ(scope.counts(), (OpCounts{products, sums, 0})) << D;
    for (size_t i = 0; i < out.size(); ++i)
        EXPECT_EQ(out[i].v == kSentinel, i == 0 || i == out.size() - 1 || ((i - 1) % m != 0 && (D * m - i) % m != 0)) << D << ": at " << i;
}

TEST(Dct4Body, InnerAndOutputRows)
{
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
