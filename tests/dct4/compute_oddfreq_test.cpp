// The odd-frequency bodies of length 2 to 64, run on counting scalars: each
// reads its column (forward half by stride, upper half mirrored), stores
// C(k) and S(k) in the row layout, matches the definition, and does exactly
// the products and sums of its rule.
#include <gtest/gtest.h>

#include <cmath>
#include <vector>

#include "dct4/compute_counting.h"
#include "dct4/compute_oddfreq.h"
#include "dct4/compute_reference.h"

namespace zptg::test {
namespace {

struct Expected {
    long products, sums, negations;
};

template <int M>
void check_column(Expected expected)
{
    SCOPED_TRACE(M);
    // Forward element j at 1 + 3j, mirrored element j at 2 + 3(M - j):
    // the two halves interleave without sharing a place.
    constexpr int stride = 3, rowStride = 5, imOffset = 2;
    const std::vector<long double> data = random_values(3 * M + 3, M);
    std::vector<Counted> in(data.begin(), data.end());
    std::vector<long double> y(M);
    for (int j = 0; j < M; ++j) y[j] = j < M / 2 ? data[1 + 3 * j] : -data[2 + 3 * (M - j)];
    const std::vector<cld> want = oddfreq_direct(y);

    const double sentinel = 12345.0;
    std::vector<Counted> out(rowStride * M / 2 + 3, Counted(sentinel));
    CountScope scope;
    dct4::oddfreq_column<M>(in.data() + 1, in.data() + 2 + 3 * M, stride, out.data(),
                            rowStride, imOffset);
    EXPECT_EQ(scope.counts().products, expected.products);
    EXPECT_EQ(scope.counts().sums, expected.sums);
    EXPECT_EQ(scope.counts().negations, expected.negations);

    std::vector<bool> written(out.size(), false);
    for (int k = 0; k < M / 2; ++k) {
        EXPECT_NEAR(out[k * rowStride].v, double(want[k].real()), 1e-13) << "C(" << k << ")";
        EXPECT_NEAR(out[k * rowStride + imOffset].v, double(want[k].imag()), 1e-13)
            << "S(" << k << ")";
        written[k * rowStride] = written[k * rowStride + imOffset] = true;
    }
    for (size_t i = 0; i < out.size(); ++i) {
        if (!written[i]) {
            EXPECT_EQ(out[i].v, sentinel) << "stray store at " << i;
        }
    }
}

TEST(OddFrequencyBody, ValuesCountsAndStores)
{
    check_column<2>({0, 0, 1});  // a copy and a negated copy
    check_column<4>({2, 6, 0});
    check_column<8>({12, 24, 0});      // radix 2 on two of length 4
    check_column<16>({32, 68, 0});     // radix 4 on four of length 4
    check_column<32>({96, 184, 0});    // radix 2 on two of length 16
    check_column<64>({224, 448, 0});   // radix 4 on four of length 16
}

TEST(OddFrequencyBody, FastReferenceAgreesWithTheDefinition)
{
    const std::vector<long double> y = random_values(128, 7);
    const std::vector<cld> a = oddfreq_direct(y), b = oddfreq_fast(y);
    for (size_t k = 0; k < a.size(); ++k) EXPECT_LT(std::abs(a[k] - b[k]), 1e-15L) << k;
}

}  // namespace
}  // namespace zptg::test
