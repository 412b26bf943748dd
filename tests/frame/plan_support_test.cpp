// The planning support under the DCT-IV (its 32-byte rounding is held by the block sizes): the
// arena's bump word, the environment list, the split factor and the trigonometry in units of pi.
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

// A block (at any alignment) whose first word points `start` bytes into it.
struct TestArena {
    explicit TestArena(size_t start, size_t offset = 0) : storage(1024 + offset), block(storage.data() + offset)
    {
        zptgArenaSetTop(block, reinterpret_cast<uintptr_t>(block) + start);
    }
    ptrdiff_t used() const { return ptrdiff_t(zptgArenaTop(block) - reinterpret_cast<uintptr_t>(block)); }
    std::vector<unsigned char> storage;
    unsigned char* block;
};

// Allocation moves the word by rounded sizes (0 leaves it); a release steps it back by the rounded
// size whatever the pointer, even below the start.
TEST(PlanSupport, ArenaMovesItsWordByRoundedSizes)
{
    for (size_t offset = 0; offset < 8; ++offset) {
        TestArena a(64, offset);
        unsigned char* const start = a.block + 64;
        EXPECT_EQ(zptgArenaMalloc(a.block, 0), start);
        EXPECT_EQ(zptgArenaMalloc(a.block, 1), start);
        EXPECT_EQ(zptgArenaMalloc(a.block, 44), start + 32);
        EXPECT_EQ(zptgArenaMalloc(a.block, 12), start + 96);
        EXPECT_EQ(a.used(), 64 + 128);
        zptgArenaFree(a.block, nullptr, 100);
        EXPECT_EQ(a.used(), 64);
        zptgArenaFree(a.block, a.block, 0);
        zptgArenaFree(a.block, a.block, 65);
        EXPECT_EQ(a.used(), -32);
    }
}

struct Probe {
    envBase base;
    int* log;
    int id;
};

void probe_del(void* self) { *static_cast<Probe*>(self)->log = *static_cast<Probe*>(self)->log * 10 + static_cast<Probe*>(self)->id; }

// The first item goes into the head, each further one into a node drawn from the arena; get answers
// null out of range; __del__ gives back the nodes behind the head (none for one item); freeChildren
// runs the destructors in order, also of a single item, and gives back each record's own size, but
// no node.
TEST(PlanSupport, EnvList)
{
    TestArena a(64);
    EnvList head, one;
    EXPECT_EQ(EnvList___init__(&head, a.block), &head);
    int log = 0;
    Probe p[3] = {{{probe_del, 44}, &log, 1}, {{probe_del, 64}, &log, 2}, {{probe_del, 1}, &log, 3}};
    for (int i = 0; i < 3; ++i) EXPECT_EQ(EnvList_add(&head, &p[i]), &p[i]);
    EXPECT_EQ(a.used(), 128);
    EXPECT_EQ(EnvList_add_mem(3), 96);
    for (int i = 0; i < 3; ++i) EXPECT_EQ(EnvList_get(&head, i), &p[i]);
    for (int i : {-1, INT_MIN, 3}) EXPECT_EQ(EnvList_get(&head, i), nullptr) << i;
    zptgArenaSetTop(a.block, reinterpret_cast<uintptr_t>(a.block) + 512);
    EnvList_freeChildren(&head);
    EXPECT_EQ(log, 123);
    EXPECT_EQ(a.used(), 512 - 64 - 64 - 32);
    EnvList___del__(&head);
    EXPECT_EQ(a.used(), 512 - 64 - 64 - 32 - 64);
    EnvList___init__(&one, a.block);
    EnvList_add(&one, &p[0]);
    EnvList___del__(&one);
    EXPECT_EQ(a.used(), 512 - 64 - 64 - 32 - 64);
    EnvList_freeChildren(&one);
    EXPECT_EQ(log, 1231);
}

// Every threshold from both sides: the threshold itself takes its cap, the largest multiple of that
// cap below it the cap under it. Failure leaves the output alone.
TEST(PlanSupport, DivisorsIntNonTriv)
{
    const int32_t cases[][2] = {
        {512, 32}, {511, 0}, {510, 2}, {528, 16}, {128, 16}, {127, 0}, {64, 8}, {32, 8}, {31, 0}, {16, 4},
        {8, 2}, {4, 2}, {3, 0}, {2, 0}, {1, 0}, {0, 0}, {-4, 0}, {-512, 0}, {6, 2}, {18, 2}, {20, 4},
        {36, 4}, {48, 8}, {1024, 32}, {1 << 30, 32}, {INT_MIN, 0}, {INT_MAX, 0}, {15, 0}, {12, 2},
        {24, 4}, {96, 8}, {112, 8}, {120, 8}, {136, 8}, {480, 16}, {496, 16}, {520, 8}};
    for (const auto& [n, d] : cases) {
        int32_t out = -77;
        EXPECT_EQ(divisorsIntNonTriv(&out, n), d ? zptgStatusOk : zptgStatusBadSize) << n;
        EXPECT_EQ(out, d ? d : -77) << n;
    }
}

// Bit for bit the library function of the product of the argument with pi as a 64-bit constant,
// rounded to the element width before the call (through volatile, so that x87 rounds here as in the
// library): so cos(pi/2) in 32 bits is not zero.
TEST(PlanSupport, TrigPiIsTheMathLibraryOfTheRoundedProduct)
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
}  // namespace zptg
