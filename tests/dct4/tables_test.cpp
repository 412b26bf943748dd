// The twiddle tables that planning fills: env2's rows (columns from both ends
// inwards, and the special group order of d = 32) and env6's tables by rule,
// with the two parts of d2 = 32 in opposite order for the two kinds. Every
// entry is compared with the cosine or sine of its angle in long double.
#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <vector>

#include "dct4/env.h"
#include "frame/arena.h"
#include "frame/trig_pi.h"
#include "dct4/kind_api.h"
#include "zptgenpx.h"

namespace zptg {
namespace {

constexpr long double kPiL = 3.141592653589793238462643383279502884L;

// The bound for one entry: the argument is rounded to the element width and
// pi times it rounded again before the library function, so the error grows
// with the angle.
template <class T>
double tolerance(long double angle)
{
    const double eps = sizeof(T) == 4 ? 0x1p-24 : 0x1p-53;
    return (std::fabs(static_cast<double>(angle)) + 2.0) * eps;
}

// An angle pi * num / den as the pair the table should hold.
struct Angle {
    long double num;
    long double den;
};

template <class T>
void expect_pairs(const T* table, const std::vector<Angle>& angles, const char* what)
{
    for (size_t p = 0; p < angles.size(); ++p) {
        const long double x = kPiL * angles[p].num / angles[p].den;
        EXPECT_NEAR(table[2 * p], static_cast<double>(std::cos(x)), tolerance<T>(x))
            << what << " pair " << p << " cos of pi*" << static_cast<double>(angles[p].num) << "/"
            << static_cast<double>(angles[p].den);
        EXPECT_NEAR(table[2 * p + 1], static_cast<double>(std::sin(x)), tolerance<T>(x))
            << what << " pair " << p << " sin";
    }
}

using zptg_test::Api;

template <class T>
struct Plan {
    explicit Plan(int n)
    {
        int size = 0;
        EXPECT_EQ(Api<T>::size(n, &size), zptgStatusOk);
        block.resize(static_cast<size_t>(size));
        typename Api<T>::Context* c = nullptr;
        EXPECT_EQ(Api<T>::init(&c, n, block.data()), zptgStatusOk);
        root = reinterpret_cast<env1<T>*>(c);
    }
    env2<T>* rows() { return static_cast<env2<T>*>(EnvList_get(root->postList, 0)); }
    env4<T>* inner()
    {
        auto* e3 = static_cast<env3<T>*>(EnvList_get(root->preList, 0));
        return static_cast<env4<T>*>(EnvList_get(e3->childList, 0));
    }
    env6<T>* inner_rows() { return static_cast<env6<T>*>(EnvList_get(inner()->postList, 0)); }
    std::vector<unsigned char> block;
    env1<T>* root = nullptr;
};

// An arena over a vector, its word set to the first 32-byte boundary 64
// bytes in, for building single environments by hand.
struct LocalArena {
    explicit LocalArena(size_t bytes) : block(bytes)
    {
        zptgArenaSetTop(block.data(), (reinterpret_cast<uintptr_t>(block.data()) + 64) & ~uintptr_t{31});
    }
    void* arena() { return block.data(); }
    uintptr_t top() { return zptgArenaTop(block.data()); }
    std::vector<unsigned char> block;
};

// ---- env2 -------------------------------------------------------------------

// Row k of env2's table for length n and factor d: pairs of class i of
// pi (2k+1)(2i+1) / 4n, classes ordered 0, d-1, 1, d-2, ...; under d = 32 the
// groups (i, d-1-i) come with i = j/2 for j = 2a + 8b + 32c, c fastest.
std::vector<Angle> env2_angles(int n, int d)
{
    std::vector<int> first_classes;
    if (d == 32) {
        for (int a = 0; a < 2; ++a)
            for (int b = 0; b < 4; ++b)
                for (int c = 0; c < 2; ++c) first_classes.push_back((2 * a + 8 * b + 32 * c) / 2);
    } else {
        for (int i = 0; i < (d + 1) / 2; ++i) first_classes.push_back(i);
    }
    std::vector<Angle> out;
    for (int k = 0; k < n / (2 * d); ++k) {
        for (int i : first_classes) {
            out.push_back({static_cast<long double>((2 * k + 1) * (2 * i + 1)), 4.0L * n});
            if (d > 1) {
                const int j = d - 1 - i;
                out.push_back({static_cast<long double>((2 * k + 1) * (2 * j + 1)), 4.0L * n});
            }
        }
    }
    return out;
}

template <class T>
void expect_env2_table(int n, int d)
{
    Plan<T> plan(n);
    env2<T>* e = plan.rows();
    ASSERT_EQ(e->factor, d);
    expect_pairs(e->table, env2_angles(n, d), "env2");
}

TEST(DCT4Tables, Env2RowsByFactor)
{
    const int cases[][2] = {{9, 2}, {17, 2}, {33, 4}, {64, 8}, {128, 8}, {256, 16},
                            {513, 16}, {1024, 32}, {2049, 32}};
    for (const auto& [n, d] : cases) {
        SCOPED_TRACE(testing::Message() << "N " << n);
        expect_env2_table<float>(n, d);
        expect_env2_table<double>(n, d);
    }
}

// The first row of N = 64 holds a(0), a(1), a(14), a(15), a(2), a(3), ...:
// the same values envfCompose gives, bit for bit.
TEST(DCT4Tables, Env2FirstRowOf64ComesFromEnvFCompose)
{
    Plan<float> plan(64);
    env2<float>* e = plan.rows();
    envfCompose<float>* a = e->angle;
    const int cols[] = {0, 1, 14, 15, 2, 3, 12, 13, 4, 5, 10, 11, 6, 7, 8, 9};
    for (int p = 0; p < 16; ++p) EXPECT_EQ(e->table[p], a->at(a, 0, cols[p])) << p;
    EXPECT_EQ(e->table[16], a->at(a, 1, 0));
}

// Rule 1 (d = 1) is never planned through a length, but the table exists.
TEST(DCT4Tables, Env2FactorOne)
{
    LocalArena local(4096);
    void* arena = local.arena();
    envfCompose<double> compose;
    owngDCT4_64f_envfCompose___init__(&compose, arena, 2, 64, 4, 1, 2);
    env2<double> e;
    owngDCT4_64f_env2___init__(&e, arena, 1, 8, 2, 4, 8, 15, 8, &compose);
    const uintptr_t before = local.top();
    ASSERT_EQ(owngDCT4_64f_env2_plan(&e), zptgStatusOk);
    EXPECT_EQ(e.rule, 1);
    EXPECT_EQ(local.top() - before, 64u);  // 4 rows of 2 doubles
    expect_pairs(e.table, env2_angles(8, 1), "env2 d=1");
    owngDCT4_64f_env2___del__(&e);
    EXPECT_EQ(local.top(), before - 32);  // the table and the list head
}

// ---- env6 -------------------------------------------------------------------

// env6's pairs as angles pi a / n. b(k, s) = 2k+1 + 2 n2 s.
std::vector<Angle> env6_angles(int n, int d2, bool fine_first)
{
    const int n2 = n / d2, rows = n / (2 * d2);
    std::vector<Angle> out;
    auto add = [&](long double a) { out.push_back({a, static_cast<long double>(n)}); };
    auto coarse = [&](int count, int step) {
        for (int k = 0; k < rows; ++k)
            for (int t = 1; t <= count; ++t) add(static_cast<long double>(step * (2 * k + 1) * t));
    };
    auto fine = [&](int blocks) {
        for (int k = 0; k < rows; ++k)
            for (int s = 0; s < blocks; ++s) {
                const long double b = 2 * k + 1 + 2.0L * n2 * s;
                add(b);
                add(2 * b);
                add(3 * b);
            }
    };
    switch (d2) {
    case 2: coarse(1, 1); break;
    case 4: coarse(3, 1); break;
    case 8: coarse(7, 1); break;
    case 16:
        coarse(3, 4);
        fine(4);
        break;
    default:
        if (fine_first) {
            fine(8);
            coarse(7, 4);
        } else {
            coarse(7, 4);
            fine(8);
        }
    }
    return out;
}

template <class T>
void expect_env6_table(int n, int n4, int d2, int rule)
{
    Plan<T> plan(n);
    env6<T>* e = plan.inner_rows();
    ASSERT_EQ(e->rule, rule);
    ASSERT_EQ(e->length, n4);
    ASSERT_EQ(e->factor, d2);
    expect_pairs(e->table, env6_angles(n4, d2, sizeof(T) == 4), "env6");
}

TEST(DCT4Tables, Env6ByRule)
{
    SCOPED_TRACE("N 4096");
    expect_env6_table<float>(4096, 128, 8, 3);
    expect_env6_table<double>(4096, 128, 8, 3);
    SCOPED_TRACE("N 8192");
    expect_env6_table<float>(8192, 256, 16, 4);
    expect_env6_table<double>(8192, 256, 16, 4);
    SCOPED_TRACE("N 32768");
    expect_env6_table<float>(32768, 1024, 32, 5);
    expect_env6_table<double>(32768, 1024, 32, 5);
}

// The first numbers of N = 8192's env6 (n = 256): 4, 8, 12, then 12, 24,
// 36, and after eight rows 1, 2, 3, 33, 66, 99, ...
TEST(DCT4Tables, Env6SequenceOf8192)
{
    const std::vector<Angle> a = env6_angles(256, 16, true);
    const int want[] = {4, 8, 12, 12, 24, 36};
    for (int i = 0; i < 6; ++i) EXPECT_EQ(a[i].num, want[i]);
    const int later[] = {1, 2, 3, 33, 66, 99, 65, 130, 195, 97, 194, 291, 3, 6, 9};
    for (int i = 0; i < 15; ++i) EXPECT_EQ(a[24 + i].num, later[i]);
    Plan<float> plan(8192);
    EXPECT_EQ(plan.inner_rows()->table[2 * 24],
              zptgCosPi_32f(static_cast<float>(1.0 / 256)));
}

// Rules 1 and 2 (d2 = 2, 4) are never planned through a length; their
// tables are built all the same when an env6 asks for them.
TEST(DCT4Tables, Env6SmallFactors)
{
    for (const int d2 : {2, 4}) {
        LocalArena local(8192);
        void* arena = local.arena();
        const int n = 64;
        envlambda<float> lambda;
        owngDCT4_32f_envlambda___init__(&lambda, arena, n, d2);
        env6<float> e;
        owngDCT4_32f_env6___init__(&e, arena, d2, n, 2 * d2, n / (2 * d2), 64, n / 2, n - 1, 8,
                                   n / d2, &lambda);
        const uintptr_t before = local.top();
        ASSERT_EQ(owngDCT4_32f_env6_plan(&e), zptgStatusOk);
        EXPECT_EQ(e.rule, d2 == 2 ? 1 : 2);
        const int bytes = n / (2 * d2) * (d2 - 1) * 2 * 4;
        EXPECT_EQ(local.top() - before, static_cast<uintptr_t>(zptgAlignSize32Bytes(bytes)));
        expect_pairs(e.table, env6_angles(n, d2, true), "env6 small");
        owngDCT4_32f_env6___del__(&e);
        EXPECT_EQ(local.top(), before - 32);
    }
}

// A factor outside the rule tables fails planning before anything is drawn.
TEST(DCT4Tables, UnknownFactorsFail)
{
    LocalArena local(1024);
    void* arena = local.arena();
    envfCompose<float> compose;
    owngDCT4_32f_envfCompose___init__(&compose, arena, 6, 48, 2, 3, 6);
    env2<float> e2;
    owngDCT4_32f_env2___init__(&e2, arena, 3, 12, 6, 2, 12, 23, 4, &compose);
    const uintptr_t before = local.top();
    EXPECT_EQ(owngDCT4_32f_env2_plan(&e2), zptgStatusBadSize);
    EXPECT_EQ(e2.rule, 0);
    EXPECT_EQ(local.top(), before);
    envlambda<float> lambda;
    owngDCT4_32f_envlambda___init__(&lambda, arena, 64, 64);
    env6<float> e6;
    owngDCT4_32f_env6___init__(&e6, arena, 64, 64, 128, 0, 64, 32, 63, 8, 1, &lambda);
    const uintptr_t before6 = local.top();
    EXPECT_EQ(owngDCT4_32f_env6_plan(&e6), zptgStatusBadSize);
    EXPECT_EQ(e6.rule, 0);
    EXPECT_EQ(local.top(), before6);
}

}  // namespace
}  // namespace zptg
