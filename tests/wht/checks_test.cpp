// The checks and statuses of the family: null pointers before the flag,
// the flag as one whole value of 1, 2, 4 or 8, and the dispatcher's order
// test before everything else. On a failure dst and the buffer stay as they
// were and nothing is allocated. The dispatcher forwards to the named
// kernels and hands on its buffer.
#include <gtest/gtest.h>

#include <climits>
#include <vector>

#include "wht/allocator.h"
#include "wht/family.h"
#include "wht/guarded_memory.h"
#include "wht/reference.h"
#include "wht/run.h"

namespace zptg::test::wht {
namespace {

constexpr int kBadOrders[] = {0, 14, -1, -13, 15, 1000, INT_MIN, INT_MAX};

constexpr float kSentinel = -7.0f;

template <class T>
bool untouched(const std::vector<T>& v)
{
    for (const T e : v)
        if (e != T(kSentinel)) return false;
    return true;
}

// Every flag from -64 to 64 and the extremes: exactly 1, 2, 4 and 8 pass.
std::vector<int> all_flags()
{
    std::vector<int> flags = {INT_MIN, INT_MAX};
    for (int flag = -64; flag <= 64; ++flag) flags.push_back(flag);
    return flags;
}

bool valid_flag(int flag) { return flag == 1 || flag == 2 || flag == 4 || flag == 8; }

template <class T>
class WhtChecks : public ::testing::Test {
protected:
    void SetUp() override { reset_allocation_log(); }
    void ExpectNothingAllocated()
    {
        EXPECT_EQ(allocation_log().allocations, 0);
        EXPECT_EQ(allocation_log().releases, 0);
    }
};
TYPED_TEST_SUITE(WhtChecks, Kinds, KindName);

// A null pointer is -8 whatever the flag; then any flag but the four is -16.
TYPED_TEST(WhtChecks, NullPointersThenTheFlag)
{
    using T = TypeParam;
    for (int order = kMinOrder; order <= kMaxOrder; ++order) {
        SCOPED_TRACE(::testing::Message() << "order " << order);
        std::vector<T> src(length_of(order), T(1));
        std::vector<T> dst(length_of(order), T(kSentinel));
        std::vector<T> buffer(buffer_bytes<T>(order) / sizeof(T) + 1, T(kSentinel));
        for (const int flag : all_flags()) {
            for (T* b : {buffer.data(), static_cast<T*>(nullptr)}) {
                EXPECT_EQ(run_kernel<T>(order, nullptr, dst.data(), flag, b), zptgStatusNullPtr);
                EXPECT_EQ(run_kernel<T>(order, src.data(), nullptr, flag, b), zptgStatusNullPtr);
                EXPECT_EQ(run_kernel<T>(order, nullptr, nullptr, flag, b), zptgStatusNullPtr);
            }
            if (valid_flag(flag)) continue;
            EXPECT_EQ(run_kernel<T>(order, src.data(), dst.data(), flag, nullptr), zptgStatusBadFlag)
                << "flag " << flag;
        }
        EXPECT_TRUE(untouched(dst));
        EXPECT_TRUE(untouched(buffer)) << "the buffer was written on a failed check";
        // The four flags pass (with the caller's buffer: nothing allocated).
        for (const int flag : {1, 2, 4, 8})
            EXPECT_EQ(run_kernel<T>(order, src.data(), dst.data(), flag, buffer.data()), zptgStatusOk);
    }
    this->ExpectNothingAllocated();
}

TYPED_TEST(WhtChecks, DispatcherRejectsABadOrderBeforeAnythingElse)
{
    using T = TypeParam;
    std::vector<T> src(8192, T(1));
    std::vector<T> dst(8192, T(kSentinel));
    for (const int order : kBadOrders) {
        SCOPED_TRACE(::testing::Message() << "order " << order);
        for (const int flag : {int{zptgScaleNone}, 3}) {
            EXPECT_EQ(Family<T>::dispatch(src.data(), dst.data(), order, flag, nullptr),
                      zptgStatusBadSize);
            EXPECT_EQ(Family<T>::dispatch(nullptr, nullptr, order, flag, nullptr),
                      zptgStatusBadSize);
            EXPECT_EQ(Family<T>::dispatch(nullptr, dst.data(), order, flag, dst.data()),
                      zptgStatusBadSize);
        }
    }
    EXPECT_TRUE(untouched(dst));
    this->ExpectNothingAllocated();
}

// The dispatcher's result is the named kernel's, bit for bit; it leaves the
// pointer and flag checks to the kernel and hands its buffer on: a given one
// is written and nothing is allocated. Orders 1 to 7 take no buffer, so a
// pointer into an inaccessible page is never touched.
TYPED_TEST(WhtChecks, DispatcherRunsTheKernelOfTheOrderWithTheBuffer)
{
    using T = TypeParam;
    const GuardedArray<T> no_access(0, Guard::After);
    for (int order = kMinOrder; order <= kMaxOrder; ++order) {
        SCOPED_TRACE(::testing::Message() << "order " << order);
        const std::vector<T> x = dyadic_input<T>(order, 23u * order);
        const std::vector<T> expected = run(order, x, zptgScaleBySqrtN).dst;
        const std::size_t elements = buffer_bytes<T>(order) / sizeof(T);
        GuardedArray<T> buffer(elements, Guard::After);
        std::fill(buffer.data(), buffer.data() + elements, T(kSentinel));
        T* const given = order <= kLastDirectOrder ? no_access.data() : buffer.data();
        std::vector<T> dst(x.size(), T(kSentinel));
        reset_allocation_log();
        EXPECT_EQ(Family<T>::dispatch(nullptr, dst.data(), order, zptgScaleNone, given),
                  zptgStatusNullPtr);
        EXPECT_EQ(Family<T>::dispatch(x.data(), nullptr, order, 7, given), zptgStatusNullPtr);
        EXPECT_EQ(Family<T>::dispatch(x.data(), dst.data(), order, 7, given), zptgStatusBadFlag);
        EXPECT_TRUE(untouched(dst));
        ASSERT_EQ(Family<T>::dispatch(x.data(), dst.data(), order, zptgScaleBySqrtN, given),
                  zptgStatusOk);
        EXPECT_TRUE(same_bits(dst, expected));
        this->ExpectNothingAllocated();
        if (elements > 0) {
            EXPECT_NE(buffer[0], T(kSentinel)) << "the buffer was not used";
        }
    }
}

}  // namespace
}  // namespace zptg::test::wht
