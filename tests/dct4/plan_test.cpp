// Planning of the DCT-IV: the published block sizes, which lengths pass and how the signed 32-bit
// byte counts wrap at the top; the rules and factors each length plans (the split factors from
// divisorsIntNonTriv); how much of the reported size planning draws (which holds the arena and the
// environment lists); and the trigonometry of the twiddles.
#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <vector>

#include "dct4/api.h"
#include "dct4/env.h"
#include "frame/arena.h"
#include "frame/trig_pi.h"

namespace zptg::test {
namespace {

template <class T>
int size_of(int n, zptgStatus* status)
{
    int size = -12345;
    *status = Api<T>::size(n, &size);
    return size;
}

// Sizes by length, 32f and 64f. On x86-64 the records have their natural sizes; the sizes follow
// from those.
#if defined(__i386__)
constexpr int kSizes[][3] = {
    {2, 224, 224}, {32, 224, 224}, {9, 768, 832}, {17, 832, 960}, {33, 960, 1216}, {64, 1184, 1696},
    {65, 1216, 1728}, {128, 1696, 2720}, {129, 1728, 2752}, {256, 2720, 4768}, {512, 4768, 8864},
    {1024, 8864, 17056}, {2048, 17056, 33440}, {4096, 35072, 68800}, {8192, 68864, 136384},
    {65536, 541760, 1082176}, {1048576, 8656736, 17311456}};
// Per kind: the largest k with 2^k + 1 truly sized, that size, and the two lengths 2^k whose byte
// count wraps to a small positive size, with them.
constexpr int kTop[2][6] = {{27, 1107840768, 30, 30, 272768160, 272768160}, {26, 1107839136, 29, 30, 272768032, 545532960}};
#else
constexpr int kSizes[][3] = {
    {2, 256, 256}, {32, 256, 256}, {9, 864, 928}, {17, 928, 1056}, {33, 1056, 1312}, {64, 1280, 1792},
    {65, 1312, 1824}, {128, 1792, 2816}, {129, 1824, 2848}, {256, 2816, 4864}, {512, 4864, 8960},
    {1024, 8960, 17152}, {2048, 17152, 33536}, {4096, 35264, 68992}, {8192, 69056, 136576},
    {65536, 541952, 1082368}, {1048576, 8657024, 17311744}};
constexpr int kTop[2][6] = {{27, 1107841248, 30, 30, 272768640, 272768640}, {26, 1107839520, 29, 30, 272768512, 545533440}};
#endif

// Below 2^17 exactly the powers of two and the 2^k + 1 from 9 up pass, in whole 32-byte units, and
// a rejected length leaves the size alone. From 2^6 to the top 2^k + 1 costs one unit more than
// 2^k; above it the byte count first overflows to a negative value (rejected), then wraps to a
// small positive one (accepted with that size).
template <class T>
void check_sizes(const int (&top)[6])
{
    SCOPED_TRACE(sizeof(T));
    zptgStatus s, s1;
    for (const auto& row : kSizes) EXPECT_EQ(size_of<T>(row[0], &s), row[sizeof(T) / 4]) << row[0];
    for (int n = -40; n <= (1 << 17) + 1; ++n) {
        const int bytes = size_of<T>(n, &s);
        const bool power = n > 0 && (n & (n - 1)) == 0, above = n > 8 && ((n - 1) & (n - 2)) == 0;
        ASSERT_EQ(s == zptgStatusOk, (power && n >= 2) || above) << n;
        ASSERT_EQ(s == zptgStatusOk ? bytes % 32 : bytes, s == zptgStatusOk ? 0 : -12345) << n;
    }
    for (int k = 6; k <= top[0]; ++k) {
        EXPECT_EQ(size_of<T>((1 << k) + 1, &s1), size_of<T>(1 << k, &s) + 32) << k;
        EXPECT_EQ(s + s1, zptgStatusOk) << k;
    }
    EXPECT_EQ(size_of<T>((1 << top[0]) + 1, &s), top[1]);
    for (int k = top[0] + 1; k < top[2]; ++k)
        for (int n : {1 << k, (1 << k) + 1}) EXPECT_EQ(size_of<T>(n, &s), -12345) << n;
    for (int i = 0; i < 2; ++i) {
        const int wrapped = top[4 + i], n = 1 << top[2 + i];
        EXPECT_EQ(size_of<T>(n, &s), wrapped) << n;
        EXPECT_EQ(size_of<T>(n + 1, &s), wrapped + 32) << n + 1;
    }
    for (int n : {INT32_MIN, INT32_MAX}) {
        EXPECT_EQ(size_of<T>(n, &s), -12345);
        EXPECT_EQ(s, zptgStatusBadSize);
    }
}

TEST(DCT4Plan, Sizes)
{
    check_sizes<float>(kTop[0]);
    check_sizes<double>(kTop[1]);
}

template <class E>
E* item(EnvList* list) { return static_cast<E*>(EnvList_get(list, 0)); }

// Rules and factors by length: the root's rule and d, env2's and env3's rules, and where env3 has a
// child env4 of n4 points, its d2 and the rules of its env6 and env7 (0: none).
constexpr int kTrees[][8] = {
    {2, 1, 0, 0, 0, 0, 0, 0}, {4, 2, 0, 0, 0, 0, 0, 0}, {8, 3, 0, 0, 0, 0, 0, 0},
    {16, 4, 0, 0, 0, 0, 0, 0}, {32, 5, 0, 0, 0, 0, 0, 0}, {64, 6, 8, 4, 3, 0, 0, 0},
    {128, 6, 8, 4, 4, 0, 0, 0}, {256, 6, 16, 5, 4, 0, 0, 0}, {512, 6, 16, 5, 5, 0, 0, 0},
    {1024, 6, 32, 6, 5, 0, 0, 0}, {2048, 6, 32, 6, 6, 0, 0, 0}, {4096, 6, 32, 6, 7, 8, 3, 4},
    {8192, 6, 32, 6, 7, 16, 4, 4}, {16384, 6, 32, 6, 7, 16, 4, 5}, {32768, 6, 32, 6, 7, 32, 5, 5},
    {65536, 6, 32, 6, 7, 32, 5, 6}, {131072, 6, 32, 6, 7, 32, 5, 7}, {9, 6, 2, 2, 2, 0, 0, 0},
    {17, 6, 2, 2, 3, 0, 0, 0}, {33, 6, 4, 3, 3, 0, 0, 0}, {65, 6, 8, 4, 3, 0, 0, 0},
    {129, 6, 8, 4, 4, 0, 0, 0}, {1025, 6, 32, 6, 5, 0, 0, 0}, {4097, 6, 32, 6, 7, 8, 3, 4}};

// What planning draws is the reported size less the charge for list items that went into their
// heads: 96 bytes per splitting env1 or env4, 64 per env3 or env7 with a child.
template <class T>
void check_tree(const int (&row)[8])
{
    const int n = row[0];
    SCOPED_TRACE(testing::Message() << "N " << n << ", " << sizeof(T) << "-byte elements");
    zptgStatus s;
    const int size = size_of<T>(n, &s);  // built in a 64-byte aligned block of exactly this size
    std::vector<unsigned char> storage(size_t(size) + 64);
    unsigned char* const base = storage.data() + (64 - reinterpret_cast<uintptr_t>(storage.data()) % 64) % 64;
    typename Api<T>::Context* c = nullptr;
    ASSERT_EQ(Api<T>::init(&c, n, base), zptgStatusOk);
    env1<T>* const root = reinterpret_cast<env1<T>*>(c);
    EXPECT_EQ(root->rule, row[1]);
    const int splits = row[1] == kEnv1RuleSplit, deep = row[5] != 0, third = row[7] == kEnv7RuleChild;
    const int32_t drawn = int32_t(zptgArenaTop(base) - reinterpret_cast<uintptr_t>(base) - 64);
    EXPECT_EQ(size - 64 - drawn, 96 * (splits + deep + third) + 64 * (deep + third));
    if (!splits) {
        EXPECT_EQ(root->scratch, nullptr);
        return;
    }
    EXPECT_EQ(root->factor, row[2]);
    EXPECT_EQ(item<env2<T>>(root->postList)->rule, row[3]);
    auto* e3 = item<env3<T>>(root->preList);
    EXPECT_EQ(e3->rule, row[4]);
    auto* e4 = item<env4<T>>(e3->childList);
    ASSERT_EQ(e4 != nullptr, deep);
    if (!deep) return;
    EXPECT_EQ(e4->length, (n - (n & 1)) / row[2]);
    EXPECT_EQ(e4->factor, row[5]);
    EXPECT_EQ(item<env6<T>>(e4->postList)->rule, row[6]);
    EXPECT_EQ(item<env7<T>>(e4->preList)->rule, row[7]);
}

TEST(DCT4Plan, RulesFactorsAndDrawnSize)
{
    for (const auto& row : kTrees) {
        check_tree<float>(row);
        check_tree<double>(row);
    }
}

// Bit for bit the library function of the product of the argument with pi as a 64-bit constant,
// rounded to the element width before the call (through volatile, so that x87 rounds here as in the
// library): so cos(pi/2) in 32 bits is not zero.
TEST(DCT4Plan, TrigPiIsTheMathLibraryOfTheRoundedProduct)
{
    EXPECT_FLOAT_EQ(zptgCosPi_32f(0.5f), -4.371139e-8f);
    for (int i = -400; i <= 400; ++i) {
        const volatile float x = float(i) / 37.0f;
        const volatile float angle = float(3.141592653589793 * double(x));
        EXPECT_EQ(zptgCosPi_32f(x), std::cos(angle)) << x;
        EXPECT_EQ(zptgSinPi_32f(x), std::sin(angle)) << x;
        const volatile double xd = double(i) / 37.0;
        const volatile double angle64 = 3.141592653589793 * xd;
        EXPECT_EQ(zptgCosPi_64f(xd), std::cos(angle64)) << xd;
        EXPECT_EQ(zptgSinPi_64f(xd), std::sin(angle64)) << xd;
    }
}

}  // namespace
}  // namespace zptg::test
