// The Walsh-Hadamard family: every order, kind and flag against the exact transform, the checks and
// statuses of kernels and dispatchers, and the scratch buffer of orders 8 to 13. This program
// brings its own zptMalloc and zptFree (support/allocator), so every allocation of the library is
// counted and ends against an inaccessible page; src, dst and a given buffer do too, at exactly
// their size.
#include <gtest/gtest.h>

#include <algorithm>
#include <cfloat>
#include <climits>
#include <cmath>
#include <limits>
#include <vector>

#include "support/allocator.h"
#include "support/guarded.h"
#include "support/reference.h"
#include "support/scale.h"
#include "zptgenpx.h"

namespace zptg::test {
namespace {

constexpr int kLastDirect = 7;

template <class T>
struct Family;
#define ZPTG_TEST_ENTRY_(kind, type, order) &zptgWHT_##order##_##kind,
#define ZPTG_TEST_FAMILY_(kind, type)                                                \
    template <>                                                                      \
    struct Family<type> {                                                            \
        static constexpr zptgStatus (*direct[])(const type*, type*, int) = {         \
            ZPTG_WHT_DIRECT_ORDERS(ZPTG_TEST_ENTRY_, kind, type)};                   \
        static constexpr zptgStatus (*blocked[])(const type*, type*, int, type*) = { \
            ZPTG_WHT_BLOCKED_ORDERS(ZPTG_TEST_ENTRY_, kind, type)};                  \
        static constexpr auto dispatch = &zptgWHT_##kind;                            \
        static constexpr auto buffer_size = &zptgWHTGetBufferSize_##kind;            \
    };
ZPTG_TEST_FAMILY_(32f, float)
ZPTG_TEST_FAMILY_(64f, double)

// Scratch bytes by order: none for the direct orders, N elements for 8 to 11, N plus one group of
// the first two passes for 12 and 13.
template <class T>
int table_bytes(int order)
{
    constexpr int elements[] = {0, 0, 0, 0, 0, 0, 0, 256, 512, 1024, 2048, 4352, 9216};
    return elements[order - 1] * int(sizeof(T));
}

template <class T>
zptgStatus run_kernel(int order, const T* src, T* dst, int flag, T* buffer)
{
    if (order <= kLastDirect) return Family<T>::direct[order - 1](src, dst, flag);
    return Family<T>::blocked[order - kLastDirect - 1](src, dst, flag, buffer);
}

enum class Scratch { Given, Null };

// A call on guarded arrays: dst separate or equal to src; the buffer of exactly the table's size,
// or null.
template <class T>
std::vector<T> run(int order, const std::vector<T>& x, int flag, Scratch scratch = Scratch::Given, bool in_place = false)
{
    GuardedArray<T> src(x.size()), dst(x.size()), buffer(table_bytes<T>(order) / sizeof(T));
    std::copy(x.begin(), x.end(), src.data());
    std::fill(dst.begin(), dst.end(), T(-7));
    T* out = in_place ? src.data() : dst.data();
    EXPECT_EQ(run_kernel<T>(order, src.data(), out, flag, scratch == Scratch::Given ? buffer.data() : nullptr), zptgStatusOk);
    EXPECT_TRUE(in_place || std::equal(x.begin(), x.end(), src.data())) << "src was changed";
    return std::vector<T>(out, out + x.size());
}

template <class T>
class Wht : public ::testing::Test {
protected:
    void SetUp() override { reset_allocation_log(); }
};
using Kinds = ::testing::Types<float, double>;
TYPED_TEST_SUITE(Wht, Kinds);

// Each output within the rounding of `order` stages, the scale constant and the final product of
// the exact value; an impulse at 0 gives the factor itself everywhere (the constants bit for bit);
// flags 1 and 2 the same bits; in place (with a buffer and without) the bits of separate arrays;
// and where every sum is rounded to the element width, the bits of the plain network in ascending
// stages with one product by the factor at the end.
TYPED_TEST(Wht, EveryOrderAndFlagAgainstTheExactTransform)
{
    using T = TypeParam;
    for (int order = 1; order <= 13; ++order) {
        const int n = 1 << order;
        const Reals xl = random_values(n, 7u * order);
        const std::vector<T> x(xl.begin(), xl.end());
        const Reals exact = wht_network(xl);
        long double sum_abs = 0;
        for (long double v : xl) sum_abs += std::fabs(v);
        std::vector<T> impulse(n, T(0));
        impulse[0] = 1;
        for (const int flag : kFlags) {
            SCOPED_TRACE(::testing::Message() << "order " << order << ", flag " << flag);
            const T factor = scale_factor<T>(Direction::SelfInverse, flag, n);
            const std::vector<T> y = run(order, x, flag);
            const long double s = flag == zptgScaleNone ? 1 : flag == zptgScaleBySqrtN ? 1 / std::sqrt((long double)n) : 1.0L / n;
            const long double bound = 1.01L * (order + 4) * std::numeric_limits<T>::epsilon() / 2 * s * sum_abs;
            int worst = 0;
            for (int i = 0; i < n; ++i)
                if (std::fabs(y[i] - exact[i] * s) > std::fabs(y[worst] - exact[worst] * s)) worst = i;
            EXPECT_LE(std::fabs(y[worst] - exact[worst] * s), bound) << "dst[" << worst << "] = " << y[worst];
            EXPECT_TRUE(same_bits(run(order, impulse, flag), std::vector<T>(n, factor))) << "factor " << factor;
            EXPECT_TRUE(flag != zptgScaleInvByN || same_bits(y, run(order, x, zptgScaleFwdByN))) << "flag 2 is not flag 1";
            for (Scratch scratch : {Scratch::Given, Scratch::Null})
                EXPECT_TRUE(same_bits(run(order, x, flag, scratch, true), y)) << "in place";
#if FLT_EVAL_METHOD == 0
            std::vector<T> plain = wht_network(x);
            for (T& v : plain) v = v * factor;
            EXPECT_TRUE(same_bits(y, plain)) << "not the plain network";
#endif
        }
    }
}

// A kernel tests src and dst (-8), then the flag (-16, anything but exactly 1, 2, 4 or 8); the
// dispatcher the order first (-6), then forwards everything to the kernel of the order, the buffer
// too. A failed check writes nothing, neither dst nor the buffer, and allocates nothing. Orders 1
// to 7 take no buffer: a pointer into an inaccessible page is never touched.
TYPED_TEST(Wht, ChecksAndDispatch)
{
    using T = TypeParam;
    std::vector<int> flags = {INT_MIN, INT_MAX};
    for (int flag = -64; flag <= 64; ++flag) flags.push_back(flag);
    const GuardedArray<T> no_access(0);
    for (int order = 1; order <= 13; ++order) {
        SCOPED_TRACE(::testing::Message() << "order " << order);
        const int n = 1 << order;
        const Reals xl = random_values(n, 23u * order);
        const std::vector<T> x(xl.begin(), xl.end());
        std::vector<T> dst(n, T(-7));
        GuardedArray<T> buffer(table_bytes<T>(order) / sizeof(T));
        std::fill(buffer.begin(), buffer.end(), T(-7));
        T* const given = order <= kLastDirect ? no_access.data() : buffer.data();
        for (const int flag : flags) {
            for (T* b : {given, static_cast<T*>(nullptr)}) {
                EXPECT_EQ(run_kernel<T>(order, nullptr, dst.data(), flag, b), zptgStatusNullPtr);
                EXPECT_EQ(run_kernel<T>(order, x.data(), nullptr, flag, b), zptgStatusNullPtr);
                EXPECT_EQ(Family<T>::dispatch(nullptr, nullptr, order, flag, b), zptgStatusNullPtr);
            }
            const bool valid = flag == 1 || flag == 2 || flag == 4 || flag == 8;
            EXPECT_EQ(valid || Family<T>::dispatch(x.data(), dst.data(), order, flag, nullptr) == zptgStatusBadFlag, true) << flag;
        }
        EXPECT_TRUE(std::all_of(dst.begin(), dst.end(), [](T v) { return v == T(-7); }));
        EXPECT_TRUE(std::all_of(buffer.begin(), buffer.end(), [](T v) { return v == T(-7); }));
        EXPECT_EQ(Family<T>::dispatch(x.data(), dst.data(), order, zptgScaleBySqrtN, given), zptgStatusOk);
        EXPECT_TRUE(same_bits(dst, run(order, x, zptgScaleBySqrtN))) << "not the kernel of the order";
        EXPECT_EQ(allocation_log().allocations, 0);
        EXPECT_TRUE(order <= kLastDirect || buffer[0] != T(-7)) << "the given buffer was not used";
    }
    std::vector<T> dst(8192, T(-7));
    for (const int order : {0, 14, -1, -13, 15, 1000, INT_MIN, INT_MAX}) {
        int size = 12345;  // the query answers first too, and leaves the size alone
        EXPECT_EQ(Family<T>::buffer_size(order, &size) + size, zptgStatusBadSize + 12345) << order;
        for (const int flag : {8, 3}) {
            EXPECT_EQ(Family<T>::dispatch(dst.data(), dst.data(), order, flag, nullptr), zptgStatusBadSize) << order;
            EXPECT_EQ(Family<T>::dispatch(nullptr, nullptr, order, flag, nullptr), zptgStatusBadSize) << order;
        }
    }
    EXPECT_TRUE(std::all_of(dst.begin(), dst.end(), [](T v) { return v == T(-7); }));
    EXPECT_EQ(allocation_log().allocations + allocation_log().releases, 0);
}

// The size query reports the table; a null buffer at orders 8 to 13 is one allocation of that size,
// released once, with the result of a given one; and a buffer of exactly that size beginning at an
// inaccessible page, filled with NaN, gives the same result with no NaN left in it: every element
// in use, none before the start or past the end.
TYPED_TEST(Wht, ScratchBuffer)
{
    using T = TypeParam;
    for (int order = 1; order <= 13; ++order) {
        SCOPED_TRACE(::testing::Message() << "order " << order);
        int size = -1;
        EXPECT_EQ(Family<T>::buffer_size(order, &size), zptgStatusOk);
        EXPECT_EQ(size, table_bytes<T>(order));
        const Reals xl = random_values(1 << order, 31u * order);
        const std::vector<T> x(xl.begin(), xl.end());
        const std::vector<T> given = run(order, x, zptgScaleBySqrtN);
        reset_allocation_log();
        EXPECT_TRUE(same_bits(run(order, x, zptgScaleBySqrtN, Scratch::Null), given));
        const AllocationLog& log = allocation_log();
        const int blocks = order > kLastDirect;
        EXPECT_EQ(log.allocations, blocks);
        EXPECT_EQ(log.releases, blocks);
        if (!blocks) continue;
        EXPECT_EQ(log.last_length, table_bytes<T>(order));
        EXPECT_EQ(log.last_released, log.last_block);
        EXPECT_EQ(log.unknown_releases + log.live_blocks, 0);
        GuardedArray<T> src(x.size(), Guard::Before), dst(x.size(), Guard::Before);
        GuardedArray<T> buffer(table_bytes<T>(order) / sizeof(T), Guard::Before);
        std::copy(x.begin(), x.end(), src.data());
        std::fill(buffer.begin(), buffer.end(), std::numeric_limits<T>::quiet_NaN());
        ASSERT_EQ(run_kernel<T>(order, src.data(), dst.data(), zptgScaleBySqrtN, buffer.data()), zptgStatusOk);
        EXPECT_TRUE(std::equal(given.begin(), given.end(), dst.data()));
        EXPECT_TRUE(std::none_of(buffer.begin(), buffer.end(), [](T v) { return std::isnan(v); }));
    }
}

}  // namespace
}  // namespace zptg::test
