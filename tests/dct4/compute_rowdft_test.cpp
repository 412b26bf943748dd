// The row bodies of the inner split on counting scalars: the d2 values of a
// row are twisted by exp(i pi t (2k+1) / n) through the table in its layout
// (pairs, or triples of a coarse and a fine level), go through a DFT with a
// plus sign, and are stored forward and, conjugated, mirrored; values
// against the definition, and the products and sums of each rule.
#include <gtest/gtest.h>

#include <vector>

#include "dct4/compute_counting.h"
#include "dct4/compute_reference.h"
#include "dct4/compute_rowdft.h"

namespace zptg::test {
namespace {

void push_pair(std::vector<Counted>& t, int64_t num, int64_t den)
{
    t.push_back(Counted(double(cos_pi(num, den))));
    t.push_back(Counted(double(sin_pi(num, den))));
}

template <int D2>
void check_row(long products, long sums)
{
    SCOPED_TRACE(D2);
    constexpr int n2 = 8, k = 3;  // row 3 of a transform of length n = D2 * n2
    constexpr int64_t n = int64_t(D2) * n2, odd = 2 * k + 1;
    const std::vector<long double> data = random_values(2 * D2, 300 + D2);

    // Tables as planning lays them out, in terms of the numbers a of pi a / n.
    std::vector<Counted> a, b;
    if constexpr (D2 <= 8) {
        for (int t = 1; t < D2; ++t) push_pair(a, t * odd, n);
    } else if constexpr (D2 == 16) {
        for (int c = 1; c <= 3; ++c) push_pair(a, 4 * odd * c, n);
        for (int s = 0; s < 4; ++s) {
            for (int c = 1; c <= 3; ++c) push_pair(b, (odd + 2 * n2 * s) * c, n);
        }
    } else {
        for (int s = 0; s < 8; ++s) {
            for (int c = 1; c <= 3; ++c) push_pair(a, (odd + 2 * n2 * s) * c, n);
        }
        for (int t = 1; t <= 7; ++t) push_pair(b, 4 * odd * t, n);
    }

    std::vector<cld> twisted(D2);
    for (int t = 0; t < D2; ++t) twisted[t] = cld(data[t], data[D2 + t]) * exp_i_pi(t * odd, n);
    const std::vector<cld> want = dft_plus(twisted);

    std::vector<Counted> row(data.begin(), data.end());
    constexpr int step = 7, imOffset = 3, half = D2 / 2;
    const double sentinel = 999.0;
    std::vector<Counted> fwd(step * half, Counted(sentinel)), rev(step * half, Counted(sentinel));
    CountScope scope;
    dct4::row_dft_store<D2>(row.data(), a.data(), b.data(), fwd.data(), rev.data(), step,
                            imOffset);
    EXPECT_EQ(scope.counts().products, products);
    EXPECT_EQ(scope.counts().sums, sums);
    EXPECT_EQ(scope.counts().negations, 0);

    for (int s = 0; s < half; ++s) {
        EXPECT_NEAR(fwd[s * step].v, double(want[s].real()), 1e-13) << "V(" << s << ")";
        EXPECT_NEAR(fwd[s * step + imOffset].v, double(want[s].imag()), 1e-13);
        // Mirror s + 1 holds conj V(D2 - 1 - s).
        EXPECT_NEAR(rev[s * step].v, double(want[D2 - 1 - s].real()), 1e-13)
            << "V(" << D2 - 1 - s << ")";
        EXPECT_NEAR(rev[s * step + imOffset].v, -double(want[D2 - 1 - s].imag()), 1e-13);
        for (int i = 1; i < step; ++i) {
            if (i == imOffset) continue;
            EXPECT_EQ(fwd[s * step + i].v, sentinel);
            EXPECT_EQ(rev[s * step + i].v, sentinel);
        }
    }
}

TEST(InnerRow, ValuesCountsAndStores)
{
    check_row<2>(4, 6);
    check_row<4>(12, 22);
    check_row<8>(32, 66);     // twist and a DFT of 8
    check_row<16>(96, 176);   // four by four
    check_row<32>(224, 440);  // eight by four
}

}  // namespace
}  // namespace zptg::test
