// The direct lengths 2 to 32 on counting scalars: values against the
// DCT-IV's definition, the products and sums of each length, and the order
// of memory accesses (every input read once, all before the first store,
// every output stored once).
#include <gtest/gtest.h>

#include <vector>

#include "dct4/compute_counting.h"
#include "dct4/compute_direct.h"
#include "dct4/compute_reference.h"

namespace zptg::test {
namespace {

struct AccessLog {
    std::vector<int> reads, writes;
    int readsBeforeFirstWrite = -1;
};

struct Reader {
    const double* p;
    AccessLog* log;
    Counted operator[](int i) const
    {
        log->reads.push_back(i);
        return Counted(p[i]);
    }
};

struct Store {
    double* p;
    int i;
    AccessLog* log;
    void operator=(Counted v) const
    {
        if (log->writes.empty()) log->readsBeforeFirstWrite = int(log->reads.size());
        log->writes.push_back(i);
        p[i] = v.v;
    }
};

struct Writer {
    double* p;
    AccessLog* log;
    Store operator[](int i) const { return {p, i, log}; }
};

struct Expected {
    long products, sums;
};

template <int N>
void check_direct(Expected expected)
{
    SCOPED_TRACE(N);
    const std::vector<long double> x = random_values(N, 40 + N);
    std::vector<double> src(x.begin(), x.end()), dst(N, 0.0);
    AccessLog log;
    CountScope scope;
    dct4::dct4_direct<N, Counted>(Reader{src.data(), &log}, Writer{dst.data(), &log});
    EXPECT_EQ(scope.counts().products, expected.products);
    EXPECT_EQ(scope.counts().sums, expected.sums);
    EXPECT_EQ(scope.counts().negations, 0);

    EXPECT_EQ(log.readsBeforeFirstWrite, N) << "a store comes before the last read";
    std::vector<int> reads(N, 0), writes(N, 0);
    for (int i : log.reads) ++reads.at(i);
    for (int i : log.writes) ++writes.at(i);
    for (int i = 0; i < N; ++i) {
        EXPECT_EQ(reads[i], 1) << "input " << i;
        EXPECT_EQ(writes[i], 1) << "output " << i;
        EXPECT_NEAR(dst[i], double(dct4_direct(x, i)), 1e-14) << "X[" << i << "]";
    }
}

TEST(DirectLength, ValuesCountsAndAccessOrder)
{
    check_direct<2>({4, 2});
    check_direct<4>({8, 12});  // by lifting
    check_direct<8>({24, 32});
    check_direct<16>({64, 88});
    check_direct<32>({144, 216});
}

}  // namespace
}  // namespace zptg::test
