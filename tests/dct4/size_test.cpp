// Block sizes of the planned DCT-IV: every published size, which lengths are
// accepted and which rejected, and how the signed 32-bit byte counts behave
// at the top of the range. On x86-64 the records have their natural sizes;
// the sizes below follow from those (see src/dct4/env.h).
#include <gtest/gtest.h>

#include <cstdint>

#include "zptgenpx.h"

namespace {

struct SizeRow {
    int length;
    int bytes32f;
    int bytes64f;
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
// The largest lengths with a truthful size, and the wrapped sizes above.
constexpr int kLargest32f = 1107840768;  // 2^27 + 1
constexpr int kLargest64f = 1107839136;  // 2^26 + 1
constexpr int kWrapped32f_2p30 = 272768160;
constexpr int kWrapped64f_2p29 = 272768032;
constexpr int kWrapped64f_2p30 = 545532960;
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
constexpr int kLargest32f = 1107841248;
constexpr int kLargest64f = 1107839520;
constexpr int kWrapped32f_2p30 = 272768640;
constexpr int kWrapped64f_2p29 = 272768512;
constexpr int kWrapped64f_2p30 = 545533440;
#endif

constexpr int kUntouched = -12345;

int size32(int length, zptgStatus* status)
{
    int size = kUntouched;
    *status = zptgDCT4GetSize_32f(length, &size);
    return size;
}

int size64(int length, zptgStatus* status)
{
    int size = kUntouched;
    *status = zptgDCT4GetSize_64f(length, &size);
    return size;
}

bool accepted(int64_t n, int max_power)
{
    for (int k = 1; k <= max_power; ++k) {
        if (n == (int64_t{1} << k)) return true;
        if (k >= 3 && n == (int64_t{1} << k) + 1) return true;
    }
    return false;
}

TEST(DCT4Size, PublishedSizesOfBothKinds)
{
    for (const SizeRow& row : kSizes) {
        zptgStatus status;
        EXPECT_EQ(size32(row.length, &status), row.bytes32f) << "N " << row.length;
        EXPECT_EQ(status, zptgStatusOk);
        EXPECT_EQ(size64(row.length, &status), row.bytes64f) << "N " << row.length;
        EXPECT_EQ(status, zptgStatusOk);
    }
}

TEST(DCT4Size, RejectedLengthsLeaveTheSizeAlone)
{
    for (int n : {1, 0, -1, 3, 5, 6, 7, 10, 11, 12, 13, 14, 15, 18, 96, 1000, -2147483647 - 1}) {
        zptgStatus status;
        EXPECT_EQ(size32(n, &status), kUntouched) << "N " << n;
        EXPECT_EQ(status, zptgStatusBadSize) << "N " << n;
        EXPECT_EQ(size64(n, &status), kUntouched) << "N " << n;
        EXPECT_EQ(status, zptgStatusBadSize) << "N " << n;
    }
}

// Below 2^17 exactly the powers of two and the 2^k + 1 from 9 up pass.
TEST(DCT4Size, AcceptedLengthsAreExactlyPowersOfTwoAndOneAbove)
{
    for (int n = -40; n <= (1 << 17) + 1; ++n) {
        zptgStatus s32, s64;
        const int b32 = size32(n, &s32);
        const int b64 = size64(n, &s64);
        const bool want = accepted(n, 17);
        ASSERT_EQ(s32 == zptgStatusOk, want) << "N " << n;
        ASSERT_EQ(s64 == zptgStatusOk, want) << "N " << n;
        if (want) {
            // Whole 32-byte units, and the 2^k + 1 lengths cost 32 bytes more than 2^k.
            ASSERT_EQ(b32 % 32, 0);
            ASSERT_EQ(b64 % 32, 0);
        }
    }
}

TEST(DCT4Size, LengthOneAboveAPowerCostsOneUnitMore)
{
    for (int k = 6; k <= 26; ++k) {
        zptgStatus s;
        EXPECT_EQ(size32((1 << k) + 1, &s), size32(1 << k, &s) + 32) << "k " << k;
        EXPECT_EQ(size64((1 << k) + 1, &s), size64(1 << k, &s) + 32) << "k " << k;
    }
}

TEST(DCT4Size, TopOfTheRange32f)
{
    zptgStatus s;
    for (int k = 6; k <= 27; ++k) {
        EXPECT_GT(size32(1 << k, &s), 0);
        EXPECT_EQ(s, zptgStatusOk) << "k " << k;
        EXPECT_GT(size32((1 << k) + 1, &s), 0);
        EXPECT_EQ(s, zptgStatusOk) << "k " << k;
    }
    EXPECT_EQ(size32((1 << 27) + 1, &s), kLargest32f);
    // The byte count overflows to a negative value: rejected.
    for (int n : {1 << 28, (1 << 28) + 1, 1 << 29, (1 << 29) + 1}) {
        EXPECT_EQ(size32(n, &s), kUntouched) << "N " << n;
        EXPECT_EQ(s, zptgStatusBadSize);
    }
    // Wrapped to a small positive size: accepted with that size.
    EXPECT_EQ(size32(1 << 30, &s), kWrapped32f_2p30);
    EXPECT_EQ(s, zptgStatusOk);
    EXPECT_EQ(size32((1 << 30) + 1, &s), kWrapped32f_2p30 + 32);
    EXPECT_EQ(s, zptgStatusOk);
    EXPECT_EQ(size32(2147483647, &s), kUntouched);
}

TEST(DCT4Size, TopOfTheRange64f)
{
    zptgStatus s;
    for (int k = 6; k <= 26; ++k) {
        EXPECT_GT(size64(1 << k, &s), 0);
        EXPECT_EQ(s, zptgStatusOk) << "k " << k;
        EXPECT_GT(size64((1 << k) + 1, &s), 0);
        EXPECT_EQ(s, zptgStatusOk) << "k " << k;
    }
    EXPECT_EQ(size64((1 << 26) + 1, &s), kLargest64f);
    for (int n : {1 << 27, (1 << 27) + 1, 1 << 28, (1 << 28) + 1}) {
        EXPECT_EQ(size64(n, &s), kUntouched) << "N " << n;
        EXPECT_EQ(s, zptgStatusBadSize);
    }
    EXPECT_EQ(size64(1 << 29, &s), kWrapped64f_2p29);
    EXPECT_EQ(s, zptgStatusOk);
    EXPECT_EQ(size64((1 << 29) + 1, &s), kWrapped64f_2p29 + 32);
    EXPECT_EQ(size64(1 << 30, &s), kWrapped64f_2p30);
    EXPECT_EQ(s, zptgStatusOk);
    EXPECT_EQ(size64((1 << 30) + 1, &s), kWrapped64f_2p30 + 32);
}

}  // namespace
