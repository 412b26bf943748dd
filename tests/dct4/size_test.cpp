// Block sizes of the planned DCT-IV: every published size, which lengths are
// accepted and which rejected, and how the signed 32-bit byte counts behave
// at the top of the range. On x86-64 the records have their natural sizes;
// the sizes below follow from those (see src/dct4/env.h).
#include <gtest/gtest.h>

#include <cstdint>

#include "dct4/kind_api.h"
#include "zptgenpx.h"

namespace {

using zptg_test::Api;

struct SizeRow {
    int length;
    int bytes32f;
    int bytes64f;
};

// Per kind: the largest k with 2^k and 2^k + 1 truthfully sized, the size of
// 2^k + 1 there, and the lengths whose byte count wraps to a small positive
// size, with that size.
struct TopRow {
    int last_power;
    int largest;
    int wrapped_power[2];
    int wrapped[2];
};

#if defined(__i386__)
constexpr SizeRow kSizes[] = {
    {2, 224, 224},         {4, 224, 224},           {8, 224, 224},
    {16, 224, 224},        {32, 224, 224},          {9, 768, 832},
    {17, 832, 960},        {33, 960, 1216},         {64, 1184, 1696},
    {65, 1216, 1728},      {128, 1696, 2720},       {129, 1728, 2752},
    {256, 2720, 4768},     {512, 4768, 8864},       {1024, 8864, 17056},
    {2048, 17056, 33440},  {4096, 35072, 68800},    {8192, 68864, 136384},
    {65536, 541760, 1082176}, {1048576, 8656736, 17311456},
};
constexpr TopRow kTop32f = {27, 1107840768, {30, 30}, {272768160, 272768160}};
constexpr TopRow kTop64f = {26, 1107839136, {29, 30}, {272768032, 545532960}};
#else
constexpr SizeRow kSizes[] = {
    {2, 256, 256},         {4, 256, 256},           {8, 256, 256},
    {16, 256, 256},        {32, 256, 256},          {9, 864, 928},
    {17, 928, 1056},       {33, 1056, 1312},        {64, 1280, 1792},
    {65, 1312, 1824},      {128, 1792, 2816},       {129, 1824, 2848},
    {256, 2816, 4864},     {512, 4864, 8960},       {1024, 8960, 17152},
    {2048, 17152, 33536},  {4096, 35264, 68992},    {8192, 69056, 136576},
    {65536, 541952, 1082368}, {1048576, 8657024, 17311744},
};
constexpr TopRow kTop32f = {27, 1107841248, {30, 30}, {272768640, 272768640}};
constexpr TopRow kTop64f = {26, 1107839520, {29, 30}, {272768512, 545533440}};
#endif

constexpr int kUntouched = -12345;

template <class T>
int size_of(int length, zptgStatus* status)
{
    int size = kUntouched;
    *status = Api<T>::size(length, &size);
    return size;
}

bool accepted(int64_t n)
{
    for (int k = 1; k <= 17; ++k) {
        if (n == (int64_t{1} << k)) return true;
        if (k >= 3 && n == (int64_t{1} << k) + 1) return true;
    }
    return false;
}

TEST(DCT4Size, PublishedSizesOfBothKinds)
{
    for (const SizeRow& row : kSizes) {
        zptgStatus s32, s64;
        EXPECT_EQ(size_of<float>(row.length, &s32), row.bytes32f) << "N " << row.length;
        EXPECT_EQ(size_of<double>(row.length, &s64), row.bytes64f) << "N " << row.length;
        EXPECT_EQ(s32, zptgStatusOk);
        EXPECT_EQ(s64, zptgStatusOk);
    }
}

// Below 2^17 exactly the powers of two and the 2^k + 1 from 9 up pass, in
// whole 32-byte units; a rejected length leaves the size alone.
template <class T>
void expect_accepted_lengths()
{
    for (int n = -40; n <= (1 << 17) + 1; ++n) {
        zptgStatus s;
        const int bytes = size_of<T>(n, &s);
        ASSERT_EQ(s == zptgStatusOk, accepted(n)) << "N " << n;
        ASSERT_EQ(s == zptgStatusOk ? bytes % 32 : bytes, s == zptgStatusOk ? 0 : kUntouched)
            << "N " << n;
    }
    zptgStatus s;
    EXPECT_EQ(size_of<T>(-2147483647 - 1, &s), kUntouched);
    EXPECT_EQ(s, zptgStatusBadSize);
}

TEST(DCT4Size, AcceptedLengthsAreExactlyPowersOfTwoAndOneAbove)
{
    expect_accepted_lengths<float>();
    expect_accepted_lengths<double>();
}

// From 2^6 to the top, 2^k + 1 costs one 32-byte unit more than 2^k. Above
// the top the byte count first overflows to a negative value (rejected),
// then wraps to a small positive one (accepted with that size).
template <class T>
void expect_top_of_range(const TopRow& top)
{
    zptgStatus s, s1;
    for (int k = 6; k <= top.last_power; ++k) {
        const int bytes = size_of<T>(1 << k, &s);
        EXPECT_EQ(size_of<T>((1 << k) + 1, &s1), bytes + 32) << "k " << k;
        EXPECT_GT(bytes, 0) << "k " << k;
        EXPECT_EQ(s, zptgStatusOk) << "k " << k;
        EXPECT_EQ(s1, zptgStatusOk) << "k " << k;
    }
    EXPECT_EQ(size_of<T>((1 << top.last_power) + 1, &s), top.largest);
    for (int k = top.last_power + 1; k < top.wrapped_power[0]; ++k) {
        for (int n : {1 << k, (1 << k) + 1}) {
            EXPECT_EQ(size_of<T>(n, &s), kUntouched) << "N " << n;
            EXPECT_EQ(s, zptgStatusBadSize) << "N " << n;
        }
    }
    for (int i = 0; i < 2; ++i) {
        const int n = 1 << top.wrapped_power[i];
        EXPECT_EQ(size_of<T>(n, &s), top.wrapped[i]) << "N " << n;
        EXPECT_EQ(s, zptgStatusOk);
        EXPECT_EQ(size_of<T>(n + 1, &s), top.wrapped[i] + 32) << "N " << n + 1;
        EXPECT_EQ(s, zptgStatusOk);
    }
    EXPECT_EQ(size_of<T>(2147483647, &s), kUntouched);
    EXPECT_EQ(s, zptgStatusBadSize);
}

TEST(DCT4Size, TopOfTheRange)
{
    expect_top_of_range<float>(kTop32f);
    expect_top_of_range<double>(kTop64f);
}

}  // namespace
