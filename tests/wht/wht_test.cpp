// The Walsh-Hadamard scratch buffer (values, statuses and placements are the sweep's): the size
// query, the one allocation that a null buffer costs, and a buffer of the reported size used whole.
// This program brings its own zptMalloc and zptFree (support/allocator), so every allocation of the
// library is counted and ends against an inaccessible page.
#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <cmath>
#include <vector>

#include "support/allocator.h"
#include "support/guarded.h"
#include "support/reference.h"
#include "zptgenpx.h"

namespace zptg::test {
namespace {

zptgStatus wht(const float* s, float* d, int order, int flag, float* b) { return zptgWHT_32f(s, d, order, flag, b); }
zptgStatus wht(const double* s, double* d, int order, int flag, double* b) { return zptgWHT_64f(s, d, order, flag, b); }
template <class T>
zptgStatus buffer_size(int order, int* bytes)
{
    return (sizeof(T) == 4 ? zptgWHTGetBufferSize_32f : zptgWHTGetBufferSize_64f)(order, bytes);
}

// Scratch elements by order: none for the direct orders, N for 8 to 11, N plus one group of the
// first two passes for 12 and 13.
constexpr int kElements[] = {0, 0, 0, 0, 0, 0, 0, 256, 512, 1024, 2048, 4352, 9216};

template <class T>
class WhtBuffer : public testing::Test {
protected:
    void SetUp() override { reset_allocation_log(); }
};
using Kinds = testing::Types<float, double>;
TYPED_TEST_SUITE(WhtBuffer, Kinds);

// A given buffer (none at all for orders 1 to 7: a pointer at an inaccessible page), filled with
// NaN, is used whole and costs no allocation; a null one at orders 8 to 13 is one allocation of the
// reported size, released once, with the same result.
TYPED_TEST(WhtBuffer, SizeAllocationAndUse)
{
    using T = TypeParam;
    const AllocationLog& log = allocation_log();
    for (int order = 1; order <= 13; ++order) {
        SCOPED_TRACE(testing::Message() << "order " << order);
        const int n = 1 << order, elements = kElements[order - 1], blocks = order >= 8;
        int bytes = -1;
        EXPECT_EQ(buffer_size<T>(order, &bytes), zptgStatusOk);
        EXPECT_EQ(bytes, elements * int(sizeof(T)));
        const Reals x = random_values(n, 31u * order);
        GuardedArray<T> src(n), given(n), allocated(n), buffer(elements, Guard::Before);
        std::copy(x.begin(), x.end(), src.begin());
        std::fill(buffer.begin(), buffer.end(), T(NAN));
        reset_allocation_log();
        ASSERT_EQ(wht(src.data(), given.data(), order, zptgScaleBySqrtN, buffer.data()), zptgStatusOk);
        EXPECT_EQ(log.allocations, 0);
        EXPECT_TRUE(std::none_of(buffer.begin(), buffer.end(), [](T v) { return std::isnan(v); })) << "not used whole";
        ASSERT_EQ(wht(src.data(), allocated.data(), order, zptgScaleBySqrtN, nullptr), zptgStatusOk);
        EXPECT_TRUE(std::equal(given.begin(), given.end(), allocated.begin()));
        EXPECT_EQ(log.allocations, blocks);
        EXPECT_EQ(log.releases, blocks);
        EXPECT_TRUE(!blocks || (log.last_length == bytes && log.last_released == log.last_block));
        EXPECT_EQ(log.unknown_releases + log.live_blocks, 0);
    }
}

// A failed check allocates nothing; a bad order leaves the size where it stood.
TYPED_TEST(WhtBuffer, FailedChecksAllocateNothing)
{
    using T = TypeParam;
    std::vector<T> x(8192, T(1)), y(8192);
    for (int order : {0, 14, -1, INT_MIN, INT_MAX}) {
        int bytes = 12345;
        EXPECT_EQ(buffer_size<T>(order, &bytes), zptgStatusBadSize) << order;
        EXPECT_EQ(bytes, 12345);
        EXPECT_EQ(wht(x.data(), y.data(), order, zptgScaleNone, nullptr), zptgStatusBadSize) << order;
    }
    for (int order = 8; order <= 13; ++order) {
        EXPECT_EQ(wht(nullptr, y.data(), order, zptgScaleNone, nullptr), zptgStatusNullPtr);
        EXPECT_EQ(wht(x.data(), y.data(), order, 3, nullptr), zptgStatusBadFlag);
    }
    EXPECT_EQ(allocation_log().allocations + allocation_log().releases, 0);
}

}  // namespace
}  // namespace zptg::test
