// The plan trees: which environments each length builds with which rules and
// parameters, where every record and table lands in the block (the image of
// N = 4096), and how much of the reported size planning really draws.
#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <vector>

#include "dct4/env.h"
#include "frame/arena.h"
#include "dct4/kind_api.h"
#include "zptgenpx.h"

namespace zptg {
namespace {

// A 64-byte aligned block of `bytes`, filled with a marker byte.
struct Block {
    explicit Block(int bytes) : storage(static_cast<size_t>(bytes) + 64, 0xA5)
    {
        const uintptr_t p = reinterpret_cast<uintptr_t>(storage.data());
        base = storage.data() + ((64 - p % 64) % 64);
    }
    std::vector<unsigned char> storage;
    unsigned char* base;
};

using zptg_test::Api;

// A context built in an aligned block of exactly the reported size.
template <class T>
struct Built {
    explicit Built(int n) : block(reported(n))
    {
        typename Api<T>::Context* context = nullptr;
        status = Api<T>::init(&context, n, block.base);
        root = reinterpret_cast<env1<T>*>(context);
    }
    static int reported(int n)
    {
        int s = 0;
        EXPECT_EQ(Api<T>::size(n, &s), zptgStatusOk) << "N " << n;
        return s;
    }
    uintptr_t start() const { return reinterpret_cast<uintptr_t>(block.base) + 64; }
    int32_t offset(const void* p) const
    {
        return static_cast<int32_t>(reinterpret_cast<uintptr_t>(p) - start());
    }
    int32_t drawn() const { return static_cast<int32_t>(zptgArenaTop(block.base) - start()); }
    Block block;
    zptgStatus status;
    env1<T>* root;
};

template <class E>
E* item(EnvList* list, int32_t index)
{
    return static_cast<E*>(EnvList_get(list, index));
}

// ---- Trees ----------------------------------------------------------------

struct TreeRow {
    int n;
    int root_rule, d;  // d 0: a direct length
    int env2_rule, env2_rows;
    int env3_rule, m;
    int n4, d2, env6_rule, env6_rows, env7_rule, n7;  // 0: no env4
};

constexpr TreeRow kTrees[] = {
    {2, 1, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0},  // direct: no children, no scratch
    {4, 2, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0},
    {8, 3, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0},
    {16, 4, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0},
    {32, 5, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0},
    {64, 6, 8, 4, 4, 3, 8, 0, 0, 0, 0, 0, 0},
    {128, 6, 8, 4, 8, 4, 16, 0, 0, 0, 0, 0, 0},
    {256, 6, 16, 5, 8, 4, 16, 0, 0, 0, 0, 0, 0},
    {512, 6, 16, 5, 16, 5, 32, 0, 0, 0, 0, 0, 0},
    {1024, 6, 32, 6, 16, 5, 32, 0, 0, 0, 0, 0, 0},
    {2048, 6, 32, 6, 32, 6, 64, 0, 0, 0, 0, 0, 0},
    {4096, 6, 32, 6, 64, 7, 128, 128, 8, 3, 8, 4, 16},
    {8192, 6, 32, 6, 128, 7, 256, 256, 16, 4, 8, 4, 16},
    {16384, 6, 32, 6, 256, 7, 512, 512, 16, 4, 16, 5, 32},
    {32768, 6, 32, 6, 512, 7, 1024, 1024, 32, 5, 16, 5, 32},
    {65536, 6, 32, 6, 1024, 7, 2048, 2048, 32, 5, 32, 6, 64},
    {9, 6, 2, 2, 2, 2, 4, 0, 0, 0, 0, 0, 0},
    {17, 6, 2, 2, 4, 3, 8, 0, 0, 0, 0, 0, 0},
    {33, 6, 4, 3, 4, 3, 8, 0, 0, 0, 0, 0, 0},
    {65, 6, 8, 4, 4, 3, 8, 0, 0, 0, 0, 0, 0},
    {129, 6, 8, 4, 8, 4, 16, 0, 0, 0, 0, 0, 0},
    {257, 6, 16, 5, 8, 4, 16, 0, 0, 0, 0, 0, 0},
    {513, 6, 16, 5, 16, 5, 32, 0, 0, 0, 0, 0, 0},
    {1025, 6, 32, 6, 16, 5, 32, 0, 0, 0, 0, 0, 0},
    {2049, 6, 32, 6, 32, 6, 64, 0, 0, 0, 0, 0, 0},
    {4097, 6, 32, 6, 64, 7, 128, 128, 8, 3, 8, 4, 16},
};

// The integer parameters of each record, in field order.
using Params = std::vector<int32_t>;
template <class T> Params params(const env1<T>* e) { return {e->rule, e->factor, e->length}; }
template <class T> Params params(const envfCompose<T>* e)
{
    return {e->rowLength, e->numerator, e->rows, e->factor, e->rowLength2};
}
template <class T> Params params(const env2<T>* e)
{
    return {e->rule, e->factor, e->length, e->rowLength, e->rows, e->length2, e->reflectBase, e->inner};
}
template <class T> Params params(const env3<T>* e)
{
    return {e->rule, e->inner, e->length, e->reflectBase, e->stride, e->count, e->outerLength, e->outerCount};
}
template <class T> Params params(const env4<T>* e)
{
    return {e->rule, e->length, e->factor, e->rootLength, e->rootLength2, e->stride, e->outerLength, e->outerCount};
}
template <class T> Params params(const env6<T>* e)
{
    return {e->rule, e->factor, e->length, e->rowLength, e->rows, e->outerLength,
            e->halfLength, e->lastIndex, e->outerCount, e->inner};
}
template <class T> Params params(const env7<T>* e)
{
    return {e->rule, e->inner, e->rootLength, e->rootLength2, e->innerStride, e->stride,
            e->count, e->outerLength, e->outerCount};
}

template <class T>
void expect_tree(const TreeRow& row)
{
    SCOPED_TRACE(testing::Message() << "N " << row.n << " element size " << sizeof(T));
    Built<T> b(row.n);
    ASSERT_EQ(b.status, zptgStatusOk);
    const int n = row.n, d = row.d, m = row.m;
    env1<T>* r = b.root;
    EXPECT_EQ(b.offset(r), 0);
    EXPECT_EQ(params(r), (Params{row.root_rule, d, n}));
    EXPECT_EQ(r->base.ownSize, kOwnSize<env1<T>>);
    if (row.root_rule != kEnv1RuleSplit) {
        EXPECT_EQ(r->scratch, nullptr);
        EXPECT_EQ(EnvList_get(r->children, 0), nullptr);
        return;
    }

    auto* compose = item<envfCompose<T>>(r->children, 0);
    auto* e2 = item<env2<T>>(r->children, 1);
    auto* e3 = item<env3<T>>(r->children, 2);
    EXPECT_EQ(item<env2<T>>(r->postList, 0), e2);
    EXPECT_EQ(item<env3<T>>(r->preList, 0), e3);
    EXPECT_EQ(EnvList_get(r->children, 3), nullptr);
    EXPECT_EQ(params(compose), (Params{2 * d, 8 * n, n / (2 * d), d, 2 * d}));
    EXPECT_EQ(params(e2), (Params{row.env2_rule, d, n, 2 * d, row.env2_rows, n, 2 * n - 1, n / d}));
    EXPECT_EQ(e2->angle, compose);
    EXPECT_EQ(EnvList_get(e2->children, 0), nullptr);
    EXPECT_EQ(params(e3), (Params{row.env3_rule, m, n, 2 * n - 1, 2 * d, d, n, d}));
    EXPECT_EQ(e3->table, nullptr);

    auto* e4 = item<env4<T>>(e3->childList, 0);
    EXPECT_EQ(item<env4<T>>(e3->children, 0), e4);
    if (row.n4 == 0) {
        EXPECT_EQ(e4, nullptr);
        return;
    }
    ASSERT_NE(e4, nullptr);
    const int n4 = row.n4, d2 = row.d2;
    EXPECT_EQ(params(e4), (Params{1, n4, d2, n, n, 2 * d, n, d}));
    EXPECT_NE(e4->scratch, nullptr);
    auto* lambda = item<envlambda<T>>(e4->children, 0);
    auto* e6 = item<env6<T>>(e4->children, 1);
    auto* e7 = item<env7<T>>(e4->children, 2);
    EXPECT_EQ(item<env6<T>>(e4->postList, 0), e6);
    EXPECT_EQ(item<env7<T>>(e4->preList, 0), e7);
    EXPECT_EQ(lambda->length, n4);
    EXPECT_EQ(lambda->factor, d2);
    EXPECT_EQ(lambda->at(lambda, 0, 0), 0.5 / (n4 / d2));
    EXPECT_EQ(params(e6), (Params{row.env6_rule, d2, n4, 2 * d2, row.env6_rows, n, n4 / 2,
                                  n4 - 1, d, n4 / d2}));
    EXPECT_EQ(e6->angle, lambda);
    EXPECT_EQ(params(e7), (Params{row.env7_rule, row.n7, n, n, 2 * d * d2, 2 * d, d2, n4, d2}));
    EXPECT_EQ(e7->table, nullptr);
    EXPECT_EQ(EnvList_get(e7->childList, 0), nullptr);
}

TEST(DCT4Tree, RulesAndParametersByLength)
{
    for (const TreeRow& row : kTrees) {
        expect_tree<float>(row);
        expect_tree<double>(row);
    }
}

// N = 131072: a third level, env7 under rule 7 with its own env4.
TEST(DCT4Tree, ThirdLevelAt131072)
{
    constexpr int n = 131072;
    Built<float> b(n);
    ASSERT_EQ(b.status, zptgStatusOk);
    auto* e4 = item<env4<float>>(item<env3<float>>(b.root->preList, 0)->childList, 0);
    ASSERT_NE(e4, nullptr);
    EXPECT_EQ(params(e4), (Params{1, 4096, 32, n, n, 64, n, 32}));
    EXPECT_EQ(params(item<env6<float>>(e4->postList, 0)),
              (Params{5, 32, 4096, 64, 64, n, 2048, 4095, 32, 128}));
    auto* e7 = item<env7<float>>(e4->preList, 0);
    EXPECT_EQ(params(e7), (Params{7, 128, n, n, 64 * 32, 64, 32, 4096, 32}));
    auto* deep = item<env4<float>>(e7->childList, 0);
    ASSERT_NE(deep, nullptr);
    EXPECT_EQ(params(deep), (Params{1, 128, 8, n, n, 64 * 32, 4096, 32}));
    EXPECT_EQ(item<env6<float>>(deep->postList, 0)->rule, 3);
    EXPECT_EQ(item<env7<float>>(deep->preList, 0)->rule, 4);
    EXPECT_EQ(item<env7<float>>(deep->preList, 0)->innerStride, 64 * 32 * 8);
}

// ---- The memory image of N = 4096 -----------------------------------------

TEST(DCT4Image, EveryRecordAndTableOf4096)
{
#if defined(__i386__)
    // env1, env2, envfCompose, env2's head, node, env2 table, env3, env4,
    // env6, envlambda, env6 table, env7, env4 scratch, root scratch, end.
    const int32_t at[] = {0,     160,   224,   288,   320,   352,   16736, 16896,
                          17056, 17152, 17248, 17696, 17856, 18368, 34752};
#else
    const int32_t at[] = {0,     192,   288,   352,   384,   416,   16800, 16992,
                          17184, 17280, 17408, 17856, 18048, 18560, 34944};
#endif
    Built<float> b(4096);
    ASSERT_EQ(b.status, zptgStatusOk);
    env1<float>* r = b.root;
    auto* compose = item<envfCompose<float>>(r->children, 0);
    auto* e2 = item<env2<float>>(r->postList, 0);
    auto* e3 = item<env3<float>>(r->preList, 0);
    auto* e4 = item<env4<float>>(e3->childList, 0);
    auto* lambda = item<envlambda<float>>(e4->children, 0);
    auto* e6 = item<env6<float>>(e4->postList, 0);
    auto* e7 = item<env7<float>>(e4->preList, 0);
    EXPECT_EQ(b.offset(r), at[0]);
    EXPECT_EQ(b.offset(r->postList), at[0] + zptgAlignSize32Bytes(kOwnSize<env1<float>>));
    EXPECT_EQ(b.offset(r->children), at[1] - 32);
    EXPECT_EQ(b.offset(e2), at[1]);
    EXPECT_EQ(b.offset(compose), at[2]);
    EXPECT_EQ(b.offset(e2->children), at[3]);
    EXPECT_EQ(b.offset(r->children->next), at[4]);
    EXPECT_EQ(b.offset(e2->table), at[5]);
    EXPECT_EQ(b.offset(e3), at[6]);
    EXPECT_EQ(b.offset(e3->childList), at[6] + zptgAlignSize32Bytes(kOwnSize<env3<float>>));
    EXPECT_EQ(b.offset(r->children->next->next), at[7] - 32);
    EXPECT_EQ(b.offset(e4), at[7]);
    EXPECT_EQ(b.offset(e4->children), at[8] - 32);
    EXPECT_EQ(b.offset(e6), at[8]);
    EXPECT_EQ(b.offset(lambda), at[9]);
    EXPECT_EQ(b.offset(e6->children), at[10] - 64);
    EXPECT_EQ(b.offset(e4->children->next), at[10] - 32);
    EXPECT_EQ(b.offset(e6->table), at[10]);
    EXPECT_EQ(b.offset(e7), at[11]);
    EXPECT_EQ(b.offset(e4->children->next->next), at[12] - 32);
    EXPECT_EQ(b.offset(e4->scratch), at[12]);
    EXPECT_EQ(b.offset(r->scratch), at[13]);
    EXPECT_EQ(b.drawn(), at[14]);
    EXPECT_EQ(at[11] - at[10], 448);  // 8 rows of 14 elements
    // The arena word sits at the block's base, the tree 64 bytes above it.
    void* word;
    std::memcpy(&word, b.block.base, sizeof word);
    EXPECT_EQ(reinterpret_cast<uintptr_t>(word), b.start() + static_cast<uint32_t>(at[14]));
    EXPECT_EQ(r->arena, b.block.base);
    EXPECT_EQ(e6->arena, b.block.base);
}

// What planning draws is the reported size less the charge for list items
// that went into their heads: 96 bytes per splitting env1 or env4, 64 per
// env3 or env7 with a child.
TEST(DCT4Image, SurplusOfTheReportedSize)
{
    auto check = [](int n, int surplus) {
        Built<float> f(n);
        ASSERT_EQ(f.status, zptgStatusOk);
        EXPECT_EQ(Built<float>::reported(n) - 64 - f.drawn(), surplus) << "32f N " << n;
        Built<double> g(n);
        ASSERT_EQ(g.status, zptgStatusOk);
        EXPECT_EQ(Built<double>::reported(n) - 64 - g.drawn(), surplus) << "64f N " << n;
    };
    for (int n : {2, 4, 8, 16, 32}) check(n, 0);
    for (int k = 6; k <= 11; ++k) check(1 << k, 96);
    for (int k = 3; k <= 11; ++k) check((1 << k) + 1, 96);
    check(4096, 256);
    check(4097, 256);
    check(65536, 256);
    check(131072, 256 + 160);
}

}  // namespace
}  // namespace zptg
