// The DCT-IV bodies run on counting scalars: the direct lengths 2 to 32
// (every input read once, all before the first store, every output stored
// once), the odd-frequency columns, the inner rows and the root's output
// rows. Each against its definition in long double, with exactly the
// products, sums and negations of its rule, and no store outside its places.
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
        EXPECT_NEAR(dst[i], double(dct4_at(x, i)), 1e-14) << "X[" << i << "]";
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

// An inner row of D2 values twisted by exp(i pi t (2k+1) / n) through the
// table in its layout (pairs, or triples of a coarse and a fine level),
// through a DFT with a plus sign, stored forward and, conjugated, mirrored:
// row k = 3 of a transform of length n = 8 D2.
template <int D2>
void check_inner_row(long products, long sums)
{
    SCOPED_TRACE(D2);
    constexpr int n2 = 8, odd = 7, n = D2 * n2, step = 7, im = 3, half = D2 / 2;
    const Reals data = random_values(2 * D2, 300 + D2);
    std::vector<Counted> a, b;
    const auto pair = [](std::vector<Counted>& t, int64_t num) {
        t.push_back(Counted(double(cos_pi(num, n))));
        t.push_back(Counted(double(sin_pi(num, n))));
    };
    const auto fine = [&](std::vector<Counted>& t, int blocks) {
        for (int s = 0; s < blocks; ++s)
            for (int c = 1; c <= 3; ++c) pair(t, (odd + 2 * n2 * s) * c);
    };
    if (D2 <= 8) {
        for (int t = 1; t < D2; ++t) pair(a, t * odd);
    } else if (D2 == 16) {
        for (int c = 1; c <= 3; ++c) pair(a, 4 * odd * c);
        fine(b, 4);
    } else {
        fine(a, 8);
        for (int t = 1; t <= 7; ++t) pair(b, 4 * odd * t);
    }
    std::vector<cld> twisted(D2);
    for (int t = 0; t < D2; ++t) twisted[t] = cld(data[t], data[D2 + t]) * exp_i_pi(t * odd, n);
    const std::vector<cld> v = exact_dft(twisted, 1);
    std::vector<Counted> row(data.begin(), data.end()), out(2 * step * half, Counted(kSentinel));
    CountScope scope;
    dct4::row_dft_store<D2>(row.data(), a.data(), b.data(), out.data(), out.data() + step * half, step, im);
    EXPECT_EQ(scope.counts(), (OpCounts{products, sums, 0}));
    std::vector<std::pair<int, long double>> want;
    for (int s = 0; s < half; ++s) {  // mirror s holds conj V(D2 - 1 - s)
        want.push_back({s * step, v[s].real()});
        want.push_back({s * step + im, v[s].imag()});
        want.push_back({step * half + s * step, v[D2 - 1 - s].real()});
        want.push_back({step * half + s * step + im, -v[D2 - 1 - s].imag()});
    }
    check_places(out, want);
}

TEST(Dct4Body, InnerRows)
{
    check_inner_row<2>(4, 6);
    check_inner_row<4>(12, 22);
    check_inner_row<8>(32, 66);     // twist and a DFT of 8
    check_inner_row<16>(96, 176);   // four by four
    check_inner_row<32>(224, 440);  // eight by four
}

// A root output row: C/S values twisted by their table pairs (in the
// table's order of columns, the 32-column order included), reduced through
// the network and stored forward and mirrored, m = 3 apart: row 3 of a
// root of length 1024.
template <int D>
void check_output_row(long products, long sums)
{
    SCOPED_TRACE(D);
    constexpr int64_t den = 4 * 1024;
    constexpr int m = 3;
    const Reals data = random_values(2 * D, 100 + D);
    const auto num = [](int i) { return int64_t(2 * i + 1) * 7; };
    // a(col): the cosine of column col/2 for an even col, the sine of
    // column (col-1)/2 for an odd one, in groups a(j), a(j+1), a(2D-2-j), a(2D-1-j).
    const auto a = [&](int col) { return col % 2 == 0 ? cos_pi(num(col / 2), den) : sin_pi(num(col / 2), den); };
    std::vector<int> js = {0, 32, 8, 40, 16, 48, 24, 56, 2, 34, 10, 42, 18, 50, 26, 58};
    if (D != 32) js.clear();
    for (int j = 0; D != 32 && j + 2 <= D; j += 2) js.push_back(j);
    std::vector<Counted> table;
    for (int j : js)
        for (int col : {j, j + 1, 2 * D - 2 - j, 2 * D - 1 - j}) table.push_back(Counted(double(a(col))));
    if (D == 1) table = {Counted(double(a(0))), Counted(double(a(1)))};
    std::vector<cld> w(D);
    for (int i = 0; i < D; ++i) w[i] = cld(data[i], data[D + i]) * exp_i_pi(num(i), den);
    const Reals r = network_sum(w);
    std::vector<Counted> in(data.begin(), data.end()), dst(D * m, Counted(kSentinel));
    CountScope scope;
    dct4::twist_network_row<D>(in.data(), table.data(), dst.data(), dst.data() + D * m - 1, m);
    EXPECT_EQ(scope.counts(), (OpCounts{products, sums, 0}));
    std::vector<std::pair<int, long double>> want;
    for (int s = 0; s < D; ++s) {
        want.push_back({s * m, r[D + s]});
        want.push_back({D * m - 1 - s * m, r[s]});
    }
    check_places(dst, want);
}

TEST(Dct4Body, OutputRows)
{
    check_output_row<1>(4, 2);  // the twist alone
    check_output_row<2>(10, 10);
    check_output_row<4>(28, 32);
    check_output_row<8>(72, 88);
    check_output_row<16>(176, 224);
    check_output_row<32>(352, 512);  // through the fused steps
}

}  // namespace
}  // namespace zptg::test
