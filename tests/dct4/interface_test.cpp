// The ten exported DCT-IV functions as a caller sees them, through the
// shipped library: the order of their checks, their use of the core
// library's allocator (this program defines zptMalloc and zptFree, which
// take the place of the core library's), the release of a context, and
// building and transforming in a block of exactly the reported size that
// ends at an inaccessible page.
#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <vector>

#include "dct4/compute_reference.h"
#include "dct4/env.h"
#include "frame/arena.h"
#include "dct4/guarded_block.h"
#include "dct4/kind_api.h"
#include "zptgenpx.h"

// ---- The allocator pair, counted ---------------------------------------------

namespace {
struct AllocLog {
    int mallocs = 0;
    int frees = 0;
    int asked = 0;
    void* given = nullptr;
    void* freed = nullptr;
    uintptr_t word_at_free = 0;
    bool fail = false;
};
AllocLog g_alloc;
}  // namespace

extern "C" void* zptMalloc(int length)
{
    ++g_alloc.mallocs;
    g_alloc.asked = length;
    g_alloc.given = g_alloc.fail || length <= 0 ? nullptr : std::malloc(static_cast<size_t>(length));
    return g_alloc.given;
}

extern "C" void zptFree(void* ptr)
{
    ++g_alloc.frees;
    g_alloc.freed = ptr;
    if (ptr != nullptr) {
        void* word;
        std::memcpy(&word, ptr, sizeof word);
        g_alloc.word_at_free = reinterpret_cast<uintptr_t>(word);
    }
    std::free(ptr);
}

namespace {

// Where the tree of a block at `base` starts: 64 bytes up, less the signed
// remainder of the base's low 32 bits by 32.
uintptr_t tree_start(const void* base)
{
    const uintptr_t b = reinterpret_cast<uintptr_t>(base);
    const int32_t rem = static_cast<int32_t>(static_cast<uint32_t>(b)) % 32;
    return b + static_cast<uintptr_t>(static_cast<intptr_t>(64 - rem));
}

uintptr_t arena_word(const void* block)
{
    void* word;
    std::memcpy(&word, block, sizeof word);
    return reinterpret_cast<uintptr_t>(word);
}

using zptg_test::Api;

int reported_size(int n, bool wide)
{
    int s = 0;
    EXPECT_EQ(wide ? zptgDCT4GetSize_64f(n, &s) : zptgDCT4GetSize_32f(n, &s), zptgStatusOk);
    return s;
}

// Arrays for a length: lengths 2^k + 1 read and write element N as well.
size_t elements_for(int n)
{
    return static_cast<size_t>(n) + ((n & (n - 1)) != 0 ? 1 : 0);
}

template <class T>
std::vector<T> test_signal(size_t n)
{
    const std::vector<long double> x = zptg::test::random_values(static_cast<int64_t>(n), 5);
    return std::vector<T>(x.begin(), x.end());
}

// The largest error against the reference, relative to the largest output;
// N a power of two.
template <class T>
double relative_error(const std::vector<T>& x, const T* y)
{
    const std::vector<long double> want =
        zptg::test::dct4_fast(std::vector<long double>(x.begin(), x.end()));
    long double worst = 0, scale = 0;
    for (size_t k = 0; k < want.size(); ++k) {
        worst = std::max(worst, std::fabs(want[k] - static_cast<long double>(y[k])));
        scale = std::max(scale, std::fabs(want[k]));
    }
    return static_cast<double>(worst / scale);
}

class DCT4Interface : public testing::Test {
protected:
    void SetUp() override { g_alloc = AllocLog{}; }
    void TearDown() override { g_alloc = AllocLog{}; }
};

// ---- Checks -------------------------------------------------------------------

// Null pointers are refused before the length is looked at, and before
// anything is allocated, written or released.
TEST_F(DCT4Interface, NullPointersAreRefused)
{
    alignas(64) unsigned char block[512];
    zptgDCT4Context_32f* c = nullptr;
    zptgDCT4Context_64f* d = nullptr;
    EXPECT_EQ(zptgDCT4Init_32f(nullptr, 64, block), zptgStatusNullPtr);
    EXPECT_EQ(zptgDCT4Init_32f(&c, 64, nullptr), zptgStatusNullPtr);
    EXPECT_EQ(zptgDCT4Init_32f(nullptr, -1, nullptr), zptgStatusNullPtr);
    EXPECT_EQ(zptgDCT4Init_32f(&c, 3, nullptr), zptgStatusNullPtr);
    EXPECT_EQ(zptgDCT4Init_64f(nullptr, 64, block), zptgStatusNullPtr);
    EXPECT_EQ(zptgDCT4Init_64f(&d, 64, nullptr), zptgStatusNullPtr);
    EXPECT_EQ(zptgDCT4Init_64f(&d, 3, nullptr), zptgStatusNullPtr);
    EXPECT_EQ(c, nullptr);
    EXPECT_EQ(d, nullptr);

    float src[8] = {1, 2, 3, 4, 5, 6, 7, 8};
    float dst[8] = {9, 9, 9, 9, 9, 9, 9, 9};
    ASSERT_EQ(zptgDCT4Init_32f(&c, 8, block), zptgStatusOk);
    EXPECT_EQ(zptgDCT4_32f(src, dst, nullptr), zptgStatusNullPtr);
    EXPECT_EQ(zptgDCT4_32f(nullptr, dst, c), zptgStatusNullPtr);
    EXPECT_EQ(zptgDCT4_32f(src, nullptr, c), zptgStatusNullPtr);
    EXPECT_EQ(zptgDCT4_32f(nullptr, nullptr, nullptr), zptgStatusNullPtr);
    for (float v : dst) EXPECT_EQ(v, 9.0f);
    double s64[2] = {1, 2}, d64[2] = {0, 0};
    EXPECT_EQ(zptgDCT4_64f(s64, d64, nullptr), zptgStatusNullPtr);
    EXPECT_EQ(zptgDCT4_64f(nullptr, d64, nullptr), zptgStatusNullPtr);
    EXPECT_EQ(zptgDCT4Free_32f(nullptr), zptgStatusNullPtr);
    EXPECT_EQ(zptgDCT4Free_64f(nullptr), zptgStatusNullPtr);
    EXPECT_EQ(g_alloc.mallocs + g_alloc.frees, 0);
}

// A context whose rule is out of range computes nothing and writes nothing,
// not even its scratch.
template <class T>
void expect_damaged_rule_refused(int n)
{
    int size = 0;
    ASSERT_EQ(Api<T>::size(n, &size), zptgStatusOk);
    std::vector<unsigned char> block(static_cast<size_t>(size));
    typename Api<T>::Context* c = nullptr;
    ASSERT_EQ(Api<T>::init(&c, n, block.data()), zptgStatusOk);
    auto* root = reinterpret_cast<zptg::env1<T>*>(c);
    const int32_t planned = root->rule;
    const std::vector<T> src = test_signal<T>(static_cast<size_t>(n));
    for (const int32_t rule : {0, 7, -1, 6 + 256}) {
        root->rule = rule;
        const std::vector<unsigned char> before(block);
        std::vector<T> dst(static_cast<size_t>(n), T(7));
        EXPECT_EQ(Api<T>::run(src.data(), dst.data(), c), zptgStatusNotPlanned) << "rule " << rule;
        for (T v : dst) ASSERT_EQ(v, T(7));
        EXPECT_EQ(block, before);
    }
    root->rule = planned;
    std::vector<T> dst(static_cast<size_t>(n));
    EXPECT_EQ(Api<T>::run(src.data(), dst.data(), c), zptgStatusOk);
}

TEST_F(DCT4Interface, DamagedRuleIsNotPlanned)
{
    for (int n : {2, 8, 32, 64, 4096}) {
        SCOPED_TRACE(testing::Message() << "N " << n);
        expect_damaged_rule_refused<float>(n);
        expect_damaged_rule_refused<double>(n);
    }
}

// The exported transform runs the context's tree: a changed entry of the
// root's row table (env2) or of the inner row table (env6) changes the
// result, and changing it back restores the result bit for bit. (Each
// list head holds its first item, which is what compute looks up.)
template <class T>
void expect_tables_are_read(int n)
{
    SCOPED_TRACE(testing::Message() << "N " << n << " element size " << sizeof(T));
    int size = 0;
    ASSERT_EQ(Api<T>::size(n, &size), zptgStatusOk);
    std::vector<unsigned char> block(static_cast<size_t>(size));
    typename Api<T>::Context* c = nullptr;
    ASSERT_EQ(Api<T>::init(&c, n, block.data()), zptgStatusOk);
    auto* const root = reinterpret_cast<zptg::env1<T>*>(c);
    auto* const rows = static_cast<zptg::env2<T>*>(root->postList->env);
    auto* const first = static_cast<zptg::env3<T>*>(root->preList->env);
    auto* const inner = static_cast<zptg::env4<T>*>(first->childList->env);
    ASSERT_NE(inner, nullptr);
    auto* const inner_rows = static_cast<zptg::env6<T>*>(inner->postList->env);

    const std::vector<T> x = test_signal<T>(static_cast<size_t>(n));
    std::vector<T> planned(static_cast<size_t>(n)), changed(planned), again(planned);
    ASSERT_EQ(Api<T>::run(x.data(), planned.data(), c), zptgStatusOk);
    for (T* entry : {rows->table + 3, inner_rows->table + 5}) {
        const T kept = *entry;
        *entry = kept + T(0.25);
        ASSERT_EQ(Api<T>::run(x.data(), changed.data(), c), zptgStatusOk);
        EXPECT_NE(changed, planned);
        *entry = kept;
        ASSERT_EQ(Api<T>::run(x.data(), again.data(), c), zptgStatusOk);
        EXPECT_EQ(again, planned);
    }
}

TEST_F(DCT4Interface, TransformRunsThroughThePlanTree)
{
    expect_tables_are_read<float>(4096);
    expect_tables_are_read<double>(4096);
}

// ---- Allocation ---------------------------------------------------------------

template <class T>
void expect_one_block_each_way(int n)
{
    SCOPED_TRACE(testing::Message() << "N " << n << " element size " << sizeof(T));
    g_alloc = AllocLog{};
    typename Api<T>::Context* c = nullptr;
    ASSERT_EQ(Api<T>::init_alloc(&c, n), zptgStatusOk);
    EXPECT_EQ(g_alloc.mallocs, 1);
    EXPECT_EQ(g_alloc.frees, 0);
    EXPECT_EQ(g_alloc.asked, reported_size(n, sizeof(T) == 8));
    void* const block = g_alloc.given;
    EXPECT_EQ(reinterpret_cast<uintptr_t>(c), tree_start(block));
    const std::vector<T> src = test_signal<T>(elements_for(n));
    std::vector<T> dst(elements_for(n));
    EXPECT_EQ(Api<T>::run(src.data(), dst.data(), c), zptgStatusOk);
    EXPECT_EQ(g_alloc.mallocs, 1);
    EXPECT_EQ(Api<T>::release(c), zptgStatusOk);
    EXPECT_EQ(g_alloc.mallocs, 1);
    EXPECT_EQ(g_alloc.frees, 1);
    EXPECT_EQ(g_alloc.freed, block);
    EXPECT_EQ(g_alloc.word_at_free, tree_start(block));
}

TEST_F(DCT4Interface, InitAllocAndFreeMakeOneCallEach)
{
    for (int n : {2, 32, 64, 65, 1024, 4096, 4097, 8192}) {
        expect_one_block_each_way<float>(n);
        expect_one_block_each_way<double>(n);
    }
}

template <class T>
void expect_rejected_alloc(int n)
{
    auto* const sentinel = reinterpret_cast<typename Api<T>::Context*>(&g_alloc);
    typename Api<T>::Context* c = sentinel;
    EXPECT_EQ(Api<T>::init_alloc(&c, n), zptgStatusBadSize) << "N " << n;
    EXPECT_EQ(c, sentinel);
    EXPECT_EQ(Api<T>::init_alloc(nullptr, 64), zptgStatusNullPtr);
}

TEST_F(DCT4Interface, InitAllocWithRejectedLengthAllocatesNothing)
{
    for (int n : {-1, 0, 1, 3, 12, 96, 1000, 1 << 28, (1 << 28) + 1}) {
        expect_rejected_alloc<float>(n);
        expect_rejected_alloc<double>(n);
    }
    EXPECT_EQ(g_alloc.mallocs + g_alloc.frees, 0);
}

// Init leaves the length to planning: a rejected length builds part of a
// tree in the caller's block, fails with zptgStatusBadSize, and the root's
// destructor takes the partial tree down once from the top. The destructors
// give back the scratch that each failed level's rule implies although it
// was never drawn, so the arena word ends that far below the start. The
// context is not written and the heap is not used.
template <class T>
void expect_rejected_init_undone(int n, int32_t balance)
{
    SCOPED_TRACE(testing::Message() << "N " << n << " element size " << sizeof(T));
    std::vector<unsigned char> storage(1 << 16, 0xA5);
    unsigned char* const base = storage.data() + 5;  // unaligned on purpose
    auto* const sentinel = reinterpret_cast<typename Api<T>::Context*>(&g_alloc);
    typename Api<T>::Context* c = sentinel;
    EXPECT_EQ(Api<T>::init(&c, n, base), zptgStatusBadSize);
    EXPECT_EQ(c, sentinel);
    EXPECT_EQ(static_cast<int64_t>(arena_word(base)) - static_cast<int64_t>(tree_start(base)),
              balance);
    EXPECT_EQ(g_alloc.mallocs + g_alloc.frees, 0);
}

TEST_F(DCT4Interface, InitWithRejectedLengthIsUndoneFromTheTop)
{
    // Failing on the root's own factor: only the root's scratch size of
    // N E bytes (rounded) is given back beyond what was drawn.
    // N E wraps like the planning arithmetic: 0 for the most negative N.
    const auto scratch = [](int n, uint32_t e) {
        return zptg::zptgAlignSize32Bytes(static_cast<int32_t>(static_cast<uint32_t>(n) * e));
    };
    for (const int n : {0, -5, -2147483647 - 1, 1, 3, 6}) {
        expect_rejected_init_undone<float>(n, -scratch(n, 4));
        expect_rejected_init_undone<double>(n, -scratch(n, 8));
    }
    // N = 12: d = 2, m = 6; the env4 of 6 finds no factor of 3 after its
    // rule is set: the root's 48 (64f 96) and the env4's 24 (48) bytes.
    expect_rejected_init_undone<float>(12, -(64 + 32));
    expect_rejected_init_undone<double>(12, -(96 + 64));
    // N = 96: d = 8, m = 12; env4(12) splits by 2, the env4 of its env7(6) fails.
    expect_rejected_init_undone<float>(96, -(384 + 64 + 32));
    expect_rejected_init_undone<double>(96, -(768 + 96 + 64));
    // N = 1000: d = 4 and an env2 table of 4000 bytes drawn and filled, then
    // env4(250) fails on 125.
    expect_rejected_init_undone<float>(1000, -(4000 + 1024));
    expect_rejected_init_undone<double>(1000, -(8000 + 2016));
}

// The largest lengths pass the size query with a wrapped size, but no plan
// fits the arena's arithmetic: the build fails and the block goes back.
template <class T>
void expect_wrapped_size_refused(int n)
{
    SCOPED_TRACE(testing::Message() << "N " << n << " element size " << sizeof(T));
    g_alloc = AllocLog{};
    auto* const sentinel = reinterpret_cast<typename Api<T>::Context*>(&g_alloc);
    typename Api<T>::Context* c = sentinel;
    EXPECT_EQ(Api<T>::init_alloc(&c, n), zptgStatusBadSize);
    EXPECT_EQ(c, sentinel);
    EXPECT_EQ(g_alloc.mallocs, 1);
    EXPECT_EQ(g_alloc.asked, reported_size(n, sizeof(T) == 8));
    EXPECT_EQ(g_alloc.frees, 1);
    EXPECT_EQ(g_alloc.freed, g_alloc.given);
}

TEST_F(DCT4Interface, WrappedSizeBuildsNothingAndReleasesTheBlock)
{
    expect_wrapped_size_refused<float>(1 << 30);
    expect_wrapped_size_refused<double>(1 << 29);
    expect_wrapped_size_refused<double>((1 << 29) + 1);
}

// An allocator that fails hands null to Init, whose null check answers; the
// null block then goes to zptFree.
TEST_F(DCT4Interface, FailingAllocatorGivesNullPtr)
{
    g_alloc.fail = true;
    zptgDCT4Context_32f* c = nullptr;
    EXPECT_EQ(zptgDCT4InitAlloc_32f(&c, 64), zptgStatusNullPtr);
    EXPECT_EQ(c, nullptr);
    EXPECT_EQ(g_alloc.mallocs, 1);
    EXPECT_EQ(g_alloc.frees, 1);
    EXPECT_EQ(g_alloc.freed, nullptr);
    zptgDCT4Context_64f* d = nullptr;
    EXPECT_EQ(zptgDCT4InitAlloc_64f(&d, 2), zptgStatusNullPtr);
    EXPECT_EQ(g_alloc.mallocs, 2);
    EXPECT_EQ(g_alloc.frees, 2);
}

// Free hands any context's block to zptFree: here a block the caller took
// from zptMalloc and built with Init.
TEST_F(DCT4Interface, FreeReleasesACallersBlockToo)
{
    const int size = reported_size(128, false);
    void* block = zptMalloc(size);
    zptgDCT4Context_32f* c = nullptr;
    ASSERT_EQ(zptgDCT4Init_32f(&c, 128, block), zptgStatusOk);
    EXPECT_EQ(zptgDCT4Free_32f(c), zptgStatusOk);
    EXPECT_EQ(g_alloc.frees, 1);
    EXPECT_EQ(g_alloc.freed, block);
    EXPECT_EQ(g_alloc.word_at_free, tree_start(block));
}

// ---- Blocks of exactly the reported size -----------------------------------

// Builds in a block of exactly the reported size ending before an
// inaccessible page, with the base `offset` bytes past a 32-byte boundary,
// and transforms from and to arrays that end at such pages too. The drawn
// part must lie inside the block; where the base's low word has its top bit
// set and the base is unaligned, the tree starts up to 31 bytes later, and
// the block may be short by that much.
template <class T>
void build_and_run_guarded(int n, size_t offset)
{
    SCOPED_TRACE(testing::Message() << "N " << n << " element size " << sizeof(T) << " offset "
                                    << offset);
    const int size = reported_size(n, sizeof(T) == 8);
    const size_t slack = offset == 0 ? 0 : 32 - offset;
    zptg_test::GuardedBlock block(static_cast<size_t>(size), slack);
    unsigned char* const base = block.data();
    ASSERT_EQ(reinterpret_cast<uintptr_t>(base) % 32, offset);
    const uintptr_t start = tree_start(base);
    const uintptr_t shortfall = start - reinterpret_cast<uintptr_t>(base) > 64
                                    ? start - reinterpret_cast<uintptr_t>(base) - 64
                                    : 0;

    typename Api<T>::Context* c = nullptr;
    ASSERT_EQ(Api<T>::init(&c, n, base), zptgStatusOk);
    EXPECT_EQ(reinterpret_cast<uintptr_t>(c), start);
    EXPECT_EQ(start % 32, 0u);
    EXPECT_LE(arena_word(base), reinterpret_cast<uintptr_t>(base) + static_cast<uintptr_t>(size) + shortfall);

    const size_t elements = elements_for(n);
    zptg_test::GuardedBlock src_block(elements * sizeof(T), 0), dst_block(elements * sizeof(T), 0);
    T* const src = reinterpret_cast<T*>(src_block.data());
    T* const dst = reinterpret_cast<T*>(dst_block.data());
    const std::vector<T> x = test_signal<T>(elements);
    std::memcpy(src, x.data(), elements * sizeof(T));
    ASSERT_EQ(Api<T>::run(src, dst, c), zptgStatusOk);
    if ((n & (n - 1)) == 0 && n <= 512) {
        EXPECT_LT(relative_error(x, dst), sizeof(T) == 4 ? 2e-6 : 4e-15);
    }
}

TEST_F(DCT4Interface, ExactBlockAgainstAGuardPage)
{
    for (const size_t offset : {0u, 8u, 31u}) {
        for (int n = 2; n <= 8192; n *= 2) {
            build_and_run_guarded<float>(n, offset);
            build_and_run_guarded<double>(n, offset);
        }
        for (int n = 9; n <= 4097; n = 2 * n - 1) {
            build_and_run_guarded<float>(n, offset);
            build_and_run_guarded<double>(n, offset);
        }
    }
}

}  // namespace
