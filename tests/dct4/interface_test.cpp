// The ten exported DCT-IV functions as a caller sees them: the order of their checks, their use of
// the allocator pair (support/allocator takes the place of the core library's, with blocks against
// an inaccessible page), the undoing of failed plans, the release of a context, and builds and
// transforms in blocks of exactly the reported size.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <vector>

#include "core/zptcore.h"
#include "dct4/api.h"
#include "dct4/env.h"
#include "support/allocator.h"
#include "support/guarded.h"
#include "support/reference.h"

namespace zptg::test {
namespace {

// Where the tree of a block at `base` starts: 64 bytes up, less the signed remainder of the base's
// low 32 bits by 32.
uintptr_t tree_start(const void* base)
{
    const uintptr_t b = reinterpret_cast<uintptr_t>(base);
    return b + uintptr_t(intptr_t(64 - int32_t(uint32_t(b)) % 32));
}

template <class T>
int reported_size(int n)
{
    int s = 0;
    EXPECT_EQ(Api<T>::size(n, &s), zptgStatusOk) << n;
    return s;
}

// Lengths 2^k + 1 read and write element N as well.
size_t elements_for(int n) { return size_t(n) + ((n & (n - 1)) != 0); }

template <class T>
std::vector<T> signal(size_t n)
{
    const Reals x = random_values(int64_t(n), 5);
    return {x.begin(), x.end()};
}

// A context pointer that a failed call must leave as it stands.
int marker;
template <class T>
typename Api<T>::Context* const kUntouched = reinterpret_cast<typename Api<T>::Context*>(&marker);

template <class T>
class DCT4Interface : public testing::Test {
protected:
    void SetUp() override { reset_allocation_log(); }
};
using Kinds = testing::Types<float, double>;
TYPED_TEST_SUITE(DCT4Interface, Kinds);

// Null pointers are refused before the length is looked at, and before anything is allocated,
// written or released.
TYPED_TEST(DCT4Interface, NullPointersAreRefused)
{
    using T = TypeParam;
    alignas(64) unsigned char block[512];
    typename Api<T>::Context* c = nullptr;
    for (int n : {64, 3, -1}) {
        EXPECT_EQ(Api<T>::init(nullptr, n, block), zptgStatusNullPtr);
        EXPECT_EQ(Api<T>::init(&c, n, nullptr), zptgStatusNullPtr);
        EXPECT_EQ(Api<T>::init_alloc(nullptr, n), zptgStatusNullPtr);
    }
    EXPECT_EQ(c, nullptr);
    T src[8] = {1, 2, 3, 4, 5, 6, 7, 8}, dst[8] = {9, 9, 9, 9, 9, 9, 9, 9};
    ASSERT_EQ(Api<T>::init(&c, 8, block), zptgStatusOk);
    EXPECT_EQ(Api<T>::run(src, dst, nullptr), zptgStatusNullPtr);
    EXPECT_EQ(Api<T>::run(nullptr, dst, c), zptgStatusNullPtr);
    EXPECT_EQ(Api<T>::run(src, nullptr, c), zptgStatusNullPtr);
    EXPECT_EQ(std::count(dst, dst + 8, T(9)), 8);
    EXPECT_EQ(Api<T>::release(nullptr), zptgStatusNullPtr);
    EXPECT_EQ(allocation_log().allocations + allocation_log().releases, 0);
}

// A context whose root rule is out of range computes and writes nothing, not even its scratch, and
// answers zptgStatusNotPlanned.
TYPED_TEST(DCT4Interface, DamagedRuleIsNotPlanned)
{
    using T = TypeParam;
    for (int n : {2, 8, 32, 64, 4096}) {
        std::vector<unsigned char> block(size_t(reported_size<T>(n)));
        typename Api<T>::Context* c = nullptr;
        ASSERT_EQ(Api<T>::init(&c, n, block.data()), zptgStatusOk);
        const std::vector<T> x = signal<T>(size_t(n));
        for (const int32_t damaged : {0, 7, -1, 6 + 256}) {
            reinterpret_cast<env1<T>*>(c)->rule = damaged;
            const std::vector<unsigned char> before(block);
            std::vector<T> dst(size_t(n), T(7));
            EXPECT_EQ(Api<T>::run(x.data(), dst.data(), c), zptgStatusNotPlanned) << n << ", rule " << damaged;
            EXPECT_EQ(dst, std::vector<T>(size_t(n), T(7)));
            EXPECT_EQ(block, before);
        }
    }
}

// InitAlloc takes one block of the reported size and Free gives it back, with the arena word
// pointing at the tree; Init and InitAlloc leave the length to planning: a rejected one fails in
// the caller's block too, allocates nothing and leaves the context alone; a failing allocator hands
// null to Init, whose null check answers, and the null block goes to zptFree; the largest lengths
// pass the size query with a wrapped size, but no plan fits the arena's arithmetic, and the block
// goes back.
TYPED_TEST(DCT4Interface, InitAllocAndFreeTakeAndGiveOneBlock)
{
    using T = TypeParam;
    const AllocationLog& log = allocation_log();
    for (int n : {2, 32, 64, 65, 1024, 4096, 4097, 8192}) {
        reset_allocation_log();
        typename Api<T>::Context* c = nullptr;
        ASSERT_EQ(Api<T>::init_alloc(&c, n), zptgStatusOk) << n;
        EXPECT_EQ(log.last_length, reported_size<T>(n));
        void* const block = log.last_block;
        EXPECT_EQ(reinterpret_cast<uintptr_t>(c), tree_start(block));
        const std::vector<T> x = signal<T>(elements_for(n));
        std::vector<T> y(elements_for(n));
        EXPECT_EQ(Api<T>::run(x.data(), y.data(), c), zptgStatusOk);
        EXPECT_EQ(Api<T>::release(c), zptgStatusOk);
        EXPECT_EQ(log.allocations, 1);
        EXPECT_EQ(log.releases, 1);
        EXPECT_EQ(log.last_released, block);
        EXPECT_EQ(log.word_at_release, tree_start(block));
    }
    reset_allocation_log();
    std::vector<unsigned char> caller(1 << 16);
    for (int n : {-1, 0, 1, 3, 6, 12, 96, 1000, INT32_MIN, 1 << 28, (1 << 28) + 1}) {
        typename Api<T>::Context *c = kUntouched<T>, *d = kUntouched<T>;
        EXPECT_EQ(Api<T>::init_alloc(&c, n), zptgStatusBadSize) << n;
        if (n < (1 << 28)) { EXPECT_EQ(Api<T>::init(&d, n, caller.data() + 5), zptgStatusBadSize) << n; }
        EXPECT_EQ(c, kUntouched<T>);
        EXPECT_EQ(d, kUntouched<T>);
    }
    EXPECT_EQ(log.allocations + log.releases, 0);
    allocation_log().fail = true;
    typename Api<T>::Context* c = kUntouched<T>;
    EXPECT_EQ(Api<T>::init_alloc(&c, 64), zptgStatusNullPtr);
    EXPECT_EQ(c, kUntouched<T>);
    EXPECT_EQ(log.releases, 1);
    EXPECT_EQ(log.last_released, nullptr);
    allocation_log().fail = false;
    void* block = zptMalloc(reported_size<T>(128));  // Free gives a caller's block back too
    ASSERT_EQ(Api<T>::init(&c, 128, block), zptgStatusOk);
    EXPECT_EQ(Api<T>::release(c), zptgStatusOk);
    EXPECT_EQ(log.last_released, block);
    EXPECT_EQ(log.word_at_release, tree_start(block));
    for (int n : sizeof(T) == 4 ? std::vector<int>{1 << 30} : std::vector<int>{1 << 29, (1 << 29) + 1}) {
        reset_allocation_log();
        c = kUntouched<T>;
        EXPECT_EQ(Api<T>::init_alloc(&c, n), zptgStatusBadSize) << n;
        EXPECT_EQ(c, kUntouched<T>);
        EXPECT_EQ(log.allocations, 1);
        EXPECT_EQ(log.last_length, reported_size<T>(n));
        EXPECT_EQ(log.releases, 1);
        EXPECT_EQ(log.last_released, log.last_block);
    }
}

// Builds in a block of exactly the reported size that ends at an inaccessible page, with the base
// `offset` bytes past a 32-byte boundary (where the base's low word has its top bit set and the
// base is unaligned, the tree starts up to 31 bytes later, and the block may be short by that
// much), and transforms between arrays that end at such pages too, with the result of an ordinary
// block.
TYPED_TEST(DCT4Interface, ExactBlockAgainstAGuardPage)
{
    using T = TypeParam;
    for (const size_t offset : {0u, 8u, 31u})
        for (int k = 1; k <= 13; ++k)
            for (int n : {1 << k, (1 << k) + 1}) {
                if (n == 3 || n == 5 || n == 8193) continue;
                SCOPED_TRACE(testing::Message() << "N " << n << ", offset " << offset);
                const int size = reported_size<T>(n);
                GuardedBlock block(size_t(size), Guard::After, offset == 0 ? 0 : 32 - offset);
                const uintptr_t base = reinterpret_cast<uintptr_t>(block.data()), start = tree_start(block.data());
                ASSERT_EQ(base % 32, offset);
                typename Api<T>::Context* c = nullptr;
                ASSERT_EQ(Api<T>::init(&c, n, block.data()), zptgStatusOk);
                EXPECT_EQ(reinterpret_cast<uintptr_t>(c), start);
                uintptr_t arena_word;
                std::memcpy(&arena_word, block.data(), sizeof arena_word);
                EXPECT_LE(arena_word, base + uintptr_t(size) + (start - base > 64 ? start - base - 64 : 0));
                const size_t elements = elements_for(n);
                GuardedArray<T> src(elements), dst(elements);
                const std::vector<T> x = signal<T>(elements);
                std::copy(x.begin(), x.end(), src.data());
                ASSERT_EQ(Api<T>::run(src.data(), dst.data(), c), zptgStatusOk);
                std::vector<T> y(elements, T(0));
                ASSERT_EQ(Dct4Plan<T>(n).run(x.data(), y.data()), zptgStatusOk);
                EXPECT_TRUE(std::equal(y.begin(), y.end(), dst.data())) << "not the result of an ordinary block";
            }
}

}  // namespace
}  // namespace zptg::test
