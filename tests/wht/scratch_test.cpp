// The scratch buffer of orders 8 to 13: the size query's table, one
// allocation and one release of that size when no buffer is given and none
// otherwise, a buffer of exactly the reported size that lies against an
// inaccessible page on either side, and every element of it in use.
#include <gtest/gtest.h>

#include <algorithm>
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

TYPED_TEST(WhtScratch, NullBufferIsOneAllocationOfTheTableSizeReleasedOnce)
{
    using T = TypeParam;
    for (int order = kFirstBlockedOrder; order <= kMaxOrder; ++order) {
        SCOPED_TRACE(::testing::Message() << "order " << order);
        const std::vector<T> x = dyadic_input<T>(order, 31u * order);
        const Outcome<T> given = run(order, x, zptgScaleNone, Scratch::Given);
        reset_allocation_log();
        const Outcome<T> allocated = run(order, x, zptgScaleNone, Scratch::Null);
        const AllocationLog& log = allocation_log();
        EXPECT_EQ(log.allocations, 1);
        EXPECT_EQ(log.last_length, table_bytes<T>(order));
        EXPECT_EQ(log.releases, 1);
        EXPECT_NE(log.last_block, nullptr);
        EXPECT_EQ(log.last_released, log.last_block);
        EXPECT_EQ(log.unknown_releases, 0);
        EXPECT_EQ(log.live_blocks, 0);
        EXPECT_TRUE(same_bits(given.dst, allocated.dst));
    }
}

TYPED_TEST(WhtScratch, GivenBufferAndDirectOrdersAllocateNothing)
{
    using T = TypeParam;
    for (int order = kMinOrder; order <= kMaxOrder; ++order) {
        const std::vector<T> x = dyadic_input<T>(order, 37u * order);
        ASSERT_EQ(run(order, x, zptgScaleBySqrtN, Scratch::Given).status, zptgStatusOk);
        if (order <= kLastDirectOrder) {
            ASSERT_EQ(run(order, x, zptgScaleBySqrtN, Scratch::Null).status, zptgStatusOk);
        }
    }
    EXPECT_EQ(allocation_log().allocations, 0);
    EXPECT_EQ(allocation_log().releases, 0);
}

// Buffer, src and dst of exactly their sizes, each against a guard page on
// one side and then on the other: any access outside faults.
TYPED_TEST(WhtScratch, ExactSizesAgainstGuardPagesOnEitherSide)
{
    using T = TypeParam;
    for (int order = kFirstBlockedOrder; order <= kMaxOrder; ++order) {
        const std::vector<T> x = dyadic_input<T>(order, 41u * order);
        const std::vector<T> expected = run(order, x, zptgScaleBySqrtN).dst;
        for (const Guard side : {Guard::After, Guard::Before}) {
            SCOPED_TRACE(::testing::Message() << "order " << order << ", guard "
                                              << (side == Guard::After ? "after" : "before"));
            GuardedArray<T> src(x.size(), side), dst(x.size(), side);
            GuardedArray<T> buffer(table_bytes<T>(order) / sizeof(T), side);
            std::copy(x.begin(), x.end(), src.data());
            ASSERT_EQ(run_kernel<T>(order, src.data(), dst.data(), zptgScaleBySqrtN,
                                    buffer.data()),
                      zptgStatusOk);
            EXPECT_TRUE(same_bits(std::vector<T>(dst.data(), dst.data() + x.size()), expected));
        }
    }
}

// Filled with NaN beforehand, no element of the buffer is NaN afterwards:
// the reported size has no slack.
TYPED_TEST(WhtScratch, EveryElementOfTheBufferIsUsed)
{
    using T = TypeParam;
    for (int order = kFirstBlockedOrder; order <= kMaxOrder; ++order) {
        const std::vector<T> x = dyadic_input<T>(order, 43u * order);
        std::vector<T> buffer(table_bytes<T>(order) / sizeof(T), std::nan(""));
        std::vector<T> dst(x.size());
        ASSERT_EQ(run_kernel<T>(order, x.data(), dst.data(), zptgScaleNone, buffer.data()),
                  zptgStatusOk);
        const auto unused = std::count_if(buffer.begin(), buffer.end(),
                                          [](T v) { return std::isnan(v); });
        EXPECT_EQ(unused, 0) << "order " << order;
    }
}

}  // namespace
}  // namespace zptg::test::wht
