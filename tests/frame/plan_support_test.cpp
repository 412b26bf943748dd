// The planning support under the DCT-IV: 32-byte rounding, the arena's bump
// word, the environment list, the split factor and the trigonometric
// functions in units of pi, with their edge cases.
#include <gtest/gtest.h>

#include <climits>
#include <cmath>
#include <cstdint>
#include <vector>

#include "frame/arena.h"
#include "frame/divisors.h"
#include "frame/envlist.h"
#include "frame/trig_pi.h"

namespace zptg {
namespace {

// ---- Rounding -----------------------------------------------------------------

TEST(AlignSize32Bytes, RoundsUpAndWraps)
{
    const int32_t cases[][2] = {{0, 0},     {1, 32},    {12, 32},   {31, 32},
                                {32, 32},   {33, 64},   {44, 64},   {60, 64},
                                {68, 96},   {-1, 0},    {-32, -32}, {-33, -32},
                                {INT_MAX - 30, INT_MIN}, {INT_MAX, INT_MIN},
                                {INT_MAX - 31, INT_MAX - 31}};
    for (const auto& [in, out] : cases) EXPECT_EQ(zptgAlignSize32Bytes(in), out) << in;
}

// ---- Arena --------------------------------------------------------------------

// A block whose first word points `start` bytes into it.
struct TestArena {
    explicit TestArena(size_t start, size_t offset = 0) : storage(1024 + offset)
    {
        block = storage.data() + offset;
        zptgArenaSetTop(block, reinterpret_cast<uintptr_t>(block) + start);
    }
    ptrdiff_t used() const
    {
        return static_cast<ptrdiff_t>(zptgArenaTop(block) - reinterpret_cast<uintptr_t>(block));
    }
    std::vector<unsigned char> storage;
    unsigned char* block;
};

TEST(Arena, AllocationMovesTheWordByRoundedSizes)
{
    TestArena a(64);
    unsigned char* const start = a.block + 64;
    EXPECT_EQ(zptgArenaMalloc(a.block, 0), start);
    EXPECT_EQ(zptgArenaMalloc(a.block, 0), start);  // size 0 leaves the word
    EXPECT_EQ(a.used(), 64);
    EXPECT_EQ(zptgArenaMalloc(a.block, 1), start);
    EXPECT_EQ(zptgArenaMalloc(a.block, 44), start + 32);
    EXPECT_EQ(zptgArenaMalloc(a.block, 12), start + 96);
    EXPECT_EQ(a.used(), 64 + 128);
}

// A release steps the word back by the rounded size, whatever the pointer;
// nothing stops it below the start.
TEST(Arena, ReleaseIgnoresThePointer)
{
    TestArena a(64);
    zptgArenaMalloc(a.block, 100);
    zptgArenaFree(a.block, nullptr, 100);
    EXPECT_EQ(a.used(), 64);
    zptgArenaFree(a.block, a.block, 0);
    EXPECT_EQ(a.used(), 64);
    zptgArenaFree(a.block, a.block, 65);
    EXPECT_EQ(a.used(), -32);
}

TEST(Arena, WordOfAnUnalignedBlock)
{
    for (size_t offset = 1; offset < 8; ++offset) {
        TestArena a(64, offset);
        EXPECT_EQ(zptgArenaMalloc(a.block, 32), a.block + 64);
        EXPECT_EQ(a.used(), 96);
    }
}

// ---- Environment list ---------------------------------------------------------

// A minimal environment: the two leading fields and a log of destructor calls.
struct Probe {
    envBase base;
    int* log;
    int id;
};

void probe_del(void* self)
{
    Probe* p = static_cast<Probe*>(self);
    *p->log = *p->log * 10 + p->id;
}

Probe make_probe(int* log, int id, int32_t size)
{
    Probe p;
    p.base.__del__ = probe_del;
    p.base.ownSize = size;
    p.log = log;
    p.id = id;
    return p;
}

TEST(EnvList, FirstItemGoesIntoTheHead)
{
    TestArena a(64);
    EnvList head;
    EXPECT_EQ(EnvList___init__(&head, a.block), &head);
    EXPECT_EQ(head.env, nullptr);
    EXPECT_EQ(head.next, nullptr);
    EXPECT_EQ(head.arena, a.block);
    int x = 0, y = 0, z = 0;
    EXPECT_EQ(EnvList_add(&head, &x), &x);
    EXPECT_EQ(a.used(), 64);
    EXPECT_EQ(EnvList_add(&head, &y), &y);
    EXPECT_EQ(a.used(), 96);
    EXPECT_EQ(static_cast<void*>(head.next), a.block + 64);
    EXPECT_EQ(EnvList_add(&head, &z), &z);
    EXPECT_EQ(a.used(), 128);
    EXPECT_EQ(head.next->next->arena, a.block);
    EXPECT_EQ(EnvList_get(&head, 0), &x);
    EXPECT_EQ(EnvList_get(&head, 1), &y);
    EXPECT_EQ(EnvList_get(&head, 2), &z);
    EXPECT_EQ(EnvList_get(&head, -1), nullptr);
    EXPECT_EQ(EnvList_get(&head, INT_MIN), nullptr);
    EXPECT_EQ(EnvList_get(&head, 3), nullptr);
    EXPECT_EQ(EnvList_get(&head, 4), nullptr);
    EnvList empty;
    EnvList___init__(&empty, nullptr);
    EXPECT_EQ(EnvList_get(&empty, 0), nullptr);
    EXPECT_EQ(EnvList_get(&empty, 1), nullptr);
}

TEST(EnvList, DelGivesBackTheNodesBehindTheHead)
{
    TestArena a(64);
    EnvList head;
    EnvList___init__(&head, a.block);
    int x = 0, y = 0, z = 0;
    EnvList_add(&head, &x);
    EnvList___del__(&head);  // one item: nothing to give back
    EXPECT_EQ(a.used(), 64);
    EnvList_add(&head, &y);
    EnvList_add(&head, &z);
    EXPECT_EQ(a.used(), 128);
    EnvList* const next = head.next;
    EnvList___del__(&head);
    EXPECT_EQ(a.used(), 64);
    EXPECT_EQ(head.next, next);  // the head's own link is left as it stands
    EXPECT_EQ(head.env, &x);
}

TEST(EnvList, AddMemChargesEveryItem)
{
    EXPECT_EQ(EnvList_add_mem(0), 0);
    EXPECT_EQ(EnvList_add_mem(1), 32);
    EXPECT_EQ(EnvList_add_mem(3), 96);
}

TEST(EnvList, FreeChildrenRunsDestructorsInOrderAndReleasesRecords)
{
    TestArena a(64);
    int log = 0;
    Probe p1 = make_probe(&log, 1, 44), p2 = make_probe(&log, 2, 64), p3 = make_probe(&log, 3, 1);
    EnvList head;
    EnvList___init__(&head, a.block);
    EnvList_add(&head, &p1);
    EnvList_freeChildren(&head);  // one item: its destructor still runs
    EXPECT_EQ(log, 1);
    EXPECT_EQ(a.used(), 0);  // and its 44 bytes (64 rounded) go back
    log = 0;
    zptgArenaSetTop(a.block, reinterpret_cast<uintptr_t>(a.block) + 512);
    EnvList_add(&head, &p2);
    EnvList_add(&head, &p3);
    EXPECT_EQ(a.used(), 512 + 64);
    EnvList_freeChildren(&head);
    EXPECT_EQ(log, 123);
    EXPECT_EQ(a.used(), 512 + 64 - 64 - 64 - 32);  // records only, no node
    EnvList_freeChildren(nullptr);
    EnvList empty;
    EnvList___init__(&empty, a.block);
    EnvList_freeChildren(&empty);  // an empty head has nothing to take down
    EXPECT_EQ(a.used(), 512 + 64 - 64 - 64 - 32);
}

// ---- Split factor -------------------------------------------------------------

int32_t factor_or_zero(int32_t n)
{
    int32_t out = -77;
    const zptgStatus s = divisorsIntNonTriv(&out, n);
    if (s != zptgStatusOk) {
        EXPECT_EQ(s, zptgStatusBadSize);
        EXPECT_EQ(out, -77) << "n " << n;  // untouched on failure
        return 0;
    }
    return out;
}

// Every threshold is pinned from both sides: the threshold itself takes its
// cap, and the largest multiple of that cap below it (2, 12, 24, 112, 480)
// takes the cap under it.
TEST(DivisorsIntNonTriv, StatedCases)
{
    const int32_t cases[][2] = {
        {512, 32}, {511, 0}, {510, 2},  {528, 16}, {128, 16}, {127, 0},  {64, 8},
        {32, 8},   {31, 0},  {16, 4},   {8, 2},    {4, 2},    {3, 0},    {2, 0},
        {1, 0},    {0, 0},   {-4, 0},   {-512, 0}, {6, 2},    {18, 2},   {20, 4},
        {36, 4},   {48, 8},  {1024, 32}, {1 << 30, 32}, {INT_MIN, 0}, {INT_MAX, 0},
        {15, 0},   {12, 2},  {24, 4},   {96, 8},   {112, 8}, {120, 8},  {136, 8},
        {480, 16}, {496, 16}, {520, 8},
    };
    for (const auto& [n, d] : cases) EXPECT_EQ(factor_or_zero(n), d) << "n " << n;
}

// ---- Trigonometry in units of pi ----------------------------------------------

constexpr double kPi64 = 3.141592653589793;

TEST(TrigPi, ProductIsRoundedBeforeTheCall)
{
    // pi/2 rounded to float lies past pi/2: the cosine is not zero.
    EXPECT_FLOAT_EQ(zptgCosPi_32f(0.5f), -4.371139e-8f);
    EXPECT_NE(zptgSinPi_64f(1.0), 0.0);
    EXPECT_EQ(zptgCosPi_64f(0.0), 1.0);
    EXPECT_EQ(zptgSinPi_32f(0.0f), 0.0f);
}

// Bit for bit the library function of the product, pi being the 64-bit
// constant in the 32-bit members too. The arguments and products are stored
// through volatile so that an x87 build rounds them to their types here, as
// the library's calls do.
TEST(TrigPi, SameBitsAsTheMathLibraryOfTheRoundedProduct)
{
    int differs_from_float_pi = 0;
    for (int i = -400; i <= 400; ++i) {
        const volatile float x = static_cast<float>(i) / 37.0f;
        const volatile float angle = static_cast<float>(kPi64 * static_cast<double>(x));
        EXPECT_EQ(zptgCosPi_32f(x), std::cos(angle)) << x;
        EXPECT_EQ(zptgSinPi_32f(x), std::sin(angle)) << x;
        const float float_pi_angle = static_cast<float>(3.14159274f * x);
        if (std::cos(float_pi_angle) != zptgCosPi_32f(x)) ++differs_from_float_pi;
        const volatile double xd = static_cast<double>(i) / 37.0;
        const volatile double angle64 = kPi64 * xd;
        EXPECT_EQ(zptgCosPi_64f(xd), std::cos(angle64)) << xd;
        EXPECT_EQ(zptgSinPi_64f(xd), std::sin(angle64)) << xd;
    }
    EXPECT_GT(differs_from_float_pi, 0);
}

}  // namespace
}  // namespace zptg
