// The output rows of the root's last stage on counting scalars: a row of
// C/S values is twisted by its table pairs (in the table's own order of
// columns, including the 32-column order), reduced through the network and
// stored forward and mirrored; values against the definition of R(s), and
// the products and sums of each size.
#include <gtest/gtest.h>

#include <vector>

#include "dct4/compute_counting.h"
#include "dct4/compute_network.h"
#include "dct4/compute_reference.h"

namespace zptg::test {
namespace {

// A table row as planning lays it out: a(col) is the cosine of column col/2
// for an even col and the sine of column (col-1)/2 for an odd one, in groups
// a(j), a(j+1), a(2D-2-j), a(2D-1-j).
std::vector<long double> table_row(const std::vector<int64_t>& angle_num, int64_t den)
{
    const int d = static_cast<int>(angle_num.size());
    auto a = [&](int col) {
        return col % 2 == 0 ? cos_pi(angle_num[col / 2], den)
                            : sin_pi(angle_num[(col - 1) / 2], den);
    };
    std::vector<int> js;
    if (d == 32) {
        js = {0, 32, 8, 40, 16, 48, 24, 56, 2, 34, 10, 42, 18, 50, 26, 58};
    } else {
        for (int j = 0; j + 2 <= d; j += 2) js.push_back(j);
    }
    std::vector<long double> row;
    if (d == 1) return {a(0), a(1)};
    for (int j : js) {
        for (int col : {j, j + 1, 2 * d - 2 - j, 2 * d - 1 - j}) row.push_back(a(col));
    }
    return row;
}

template <int D>
void check_row(long products, long sums)
{
    SCOPED_TRACE(D);
    constexpr int64_t den = 4 * 1024;
    constexpr int m = 3;
    const std::vector<long double> data = random_values(2 * D, 100 + D);
    std::vector<int64_t> num(D);
    for (int i = 0; i < D; ++i) num[i] = (2 * i + 1) * 7;  // row 3 of a length-1024 root
    const std::vector<long double> table = table_row(num, den);
    ASSERT_EQ(table.size(), size_t(2 * D));

    std::vector<cld> w(D);
    for (int i = 0; i < D; ++i) w[i] = cld(data[i], data[D + i]) * exp_i_pi(num[i], den);
    const std::vector<long double> want = network_direct(w);

    std::vector<Counted> in(data.begin(), data.end()), tab(table.begin(), table.end());
    const double sentinel = -777.0;
    std::vector<Counted> dst(D * m, Counted(sentinel));
    CountScope scope;
    dct4::twist_network_row<D>(in.data(), tab.data(), dst.data(), dst.data() + D * m - 1, m);
    EXPECT_EQ(scope.counts().products, products);
    EXPECT_EQ(scope.counts().sums, sums);
    EXPECT_EQ(scope.counts().negations, 0);

    std::vector<bool> written(dst.size(), false);
    for (int s = 0; s < D; ++s) {
        EXPECT_NEAR(dst[s * m].v, double(want[D + s]), 1e-13) << "R(" << s << ")";
        EXPECT_NEAR(dst[D * m - 1 - s * m].v, double(want[s]), 1e-13) << "R(" << s - D << ")";
        written[s * m] = written[D * m - 1 - s * m] = true;
    }
    for (size_t i = 0; i < dst.size(); ++i) {
        if (!written[i]) {
            EXPECT_EQ(dst[i].v, sentinel) << "stray store at " << i;
        }
    }
}

TEST(OutputRow, ValuesCountsAndStores)
{
    check_row<1>(4, 2);  // the twist alone
    check_row<2>(10, 10);
    check_row<4>(28, 32);
    check_row<8>(72, 88);
    check_row<16>(176, 224);
    check_row<32>(352, 512);  // through the fused steps
}

}  // namespace
}  // namespace zptg::test
