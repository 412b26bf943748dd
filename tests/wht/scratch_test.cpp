// The scratch buffer of orders 8 to 13: the size query's table, one
// allocation and one release of that size when no buffer is given and none
// otherwise, and a buffer of exactly the reported size, every element of it
// in use and none past either end.
#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <cmath>
#include <vector>

#include "wht/allocator.h"
#include "wht/family.h"
#include "wht/guarded_memory.h"
#include "wht/reference.h"
#include "wht/run.h"

namespace zptg::test::wht {
namespace {

constexpr int kFirstBlockedOrder = kLastDirectOrder + 1;

// Bytes by order 1 .. 13: nothing for the direct orders, N elements for
// orders 8 to 11, N plus one group of the first passes for 12 and 13.
constexpr int kBytes32f[] = {0, 0, 0, 0, 0, 0, 0, 1024, 2048, 4096, 8192, 17408, 36864};
constexpr int kBytes64f[] = {0, 0, 0, 0, 0, 0, 0, 2048, 4096, 8192, 16384, 34816, 73728};

template <class T>
int table_bytes(int order)
{
    return (sizeof(T) == 4 ? kBytes32f : kBytes64f)[order - 1];
}

template <class T>
class WhtScratch : public ::testing::Test {
protected:
    void SetUp() override { reset_allocation_log(); }
};
TYPED_TEST_SUITE(WhtScratch, Kinds, KindName);

TYPED_TEST(WhtScratch, SizeQueryReportsTheTable)
{
    using T = TypeParam;
    for (int order = kMinOrder; order <= kMaxOrder; ++order) {
        int size = -1;
        EXPECT_EQ(Family<T>::buffer_size(order, &size), zptgStatusOk);
        EXPECT_EQ(size, table_bytes<T>(order)) << "order " << order;
    }
    for (const int order : {0, 14, -1, 1000, INT_MIN, INT_MAX}) {
        int size = 12345;
        EXPECT_EQ(Family<T>::buffer_size(order, &size), zptgStatusBadSize) << order;
        EXPECT_EQ(size, 12345) << "the size was written for order " << order;
    }
}

// A null buffer at orders 8 to 13 is one allocation of the table's size,
// released once, with the result of a given buffer; the direct orders and a
// given buffer allocate nothing.
TYPED_TEST(WhtScratch, NullBufferIsOneAllocationOfTheTableSizeReleasedOnce)
{
    using T = TypeParam;
    for (int order = kMinOrder; order <= kMaxOrder; ++order) {
        SCOPED_TRACE(::testing::Message() << "order " << order);
        const std::vector<T> x = dyadic_input<T>(order, 31u * order);
        reset_allocation_log();
        const Outcome<T> given = run(order, x, zptgScaleNone, Scratch::Given);
        EXPECT_EQ(allocation_log().allocations, 0);
        const Outcome<T> allocated = run(order, x, zptgScaleNone, Scratch::Null);
        const AllocationLog& log = allocation_log();
        EXPECT_TRUE(same_bits(given.dst, allocated.dst));
        if (order <= kLastDirectOrder) {
            EXPECT_EQ(log.allocations, 0);
            EXPECT_EQ(log.releases, 0);
            continue;
        }
        EXPECT_EQ(log.allocations, 1);
        EXPECT_EQ(log.last_length, table_bytes<T>(order));
        EXPECT_EQ(log.releases, 1);
        EXPECT_NE(log.last_block, nullptr);
        EXPECT_EQ(log.last_released, log.last_block);
        EXPECT_EQ(log.unknown_releases, 0);
        EXPECT_EQ(log.live_blocks, 0);
    }
}

// Every call through run() has its arrays and buffer end against an
// inaccessible page. Here they begin against one, and the buffer is filled
// with NaN beforehand: the result is unchanged and no element of the buffer
// is NaN afterwards, so the reported size has no slack.
TYPED_TEST(WhtScratch, ExactSizeAllUsedNothingBeforeTheStart)
{
    using T = TypeParam;
    for (int order = kFirstBlockedOrder; order <= kMaxOrder; ++order) {
        SCOPED_TRACE(::testing::Message() << "order " << order);
        const std::vector<T> x = dyadic_input<T>(order, 41u * order);
        const std::vector<T> expected = run(order, x, zptgScaleBySqrtN).dst;
        const std::size_t elements = table_bytes<T>(order) / sizeof(T);
        GuardedArray<T> src(x.size(), Guard::Before), dst(x.size(), Guard::Before);
        GuardedArray<T> buffer(elements, Guard::Before);
        std::copy(x.begin(), x.end(), src.data());
        std::fill(buffer.data(), buffer.data() + elements, T(std::nan("")));
        ASSERT_EQ(run_kernel<T>(order, src.data(), dst.data(), zptgScaleBySqrtN, buffer.data()),
                  zptgStatusOk);
        EXPECT_TRUE(same_bits(std::vector<T>(dst.data(), dst.data() + x.size()), expected));
        EXPECT_EQ(std::count_if(buffer.data(), buffer.data() + elements, [](T v) { return std::isnan(v); }), 0);
    }
}

}  // namespace
}  // namespace zptg::test::wht
