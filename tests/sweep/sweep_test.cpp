// The guard sweep: every kernel and dispatcher that the library exports
// (read from its export list, so a new family is swept as soon as it is
// exported), at every size and flag.
//  - A call that must fail (bad size, null pointer, bad flag) returns its
//    status with its pointers aimed at an inaccessible page: it may neither
//    read nor write a single element.
//  - src and dst at exactly the layout's size against an inaccessible page
//    at either end, dst == src, and dst overlapping src by every number of
//    values either way: no fault, and dst holds bit for bit what the named
//    kernel gives on separate arrays (a separate src is left as it was).
//  - NaN and infinity flow through: all-NaN input gives NaN in every
//    computed output, infinite input no finite output.
#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <cmath>
#include <cstring>
#include <limits>
#include <map>
#include <set>
#include <string>
#include <tuple>
#include <vector>

#include "support/export_list.h"
#include "support/guarded.h"

namespace {

using zptg::test::Layout;
using zptg::test::Transform;
using zptg::test::Guard;
using zptg::test::GuardedBlock;
using Bytes = std::vector<unsigned char>;

constexpr int kFlags[] = {zptgScaleFwdByN, zptgScaleInvByN, zptgScaleBySqrtN, zptgScaleNone};
// Every flag from -64 to 64 but the four, and the extremes.
std::vector<int> bad_flags()
{
    std::vector<int> flags = {INT_MIN, INT_MAX};
    for (int f = -64; f <= 64; ++f)
        if (f != 1 && f != 2 && f != 4 && f != 8) flags.push_back(f);
    return flags;
}
// Room for the largest arrays and overlaps (Walsh order 13, 64f) and scratch.
constexpr std::size_t kRoom = 3 * 8192 * 8;

struct Library {
    std::vector<Transform> transforms;
    std::vector<std::string> unknown;
    std::map<std::tuple<std::string, unsigned, int>, const Transform*> kernels;
};

const Library& library()
{
    static const Library lib = [] {
        Library l;
        l.transforms = zptg::test::exported_transforms(&l.unknown);
        for (const Transform& t : l.transforms)
            if (!t.dispatcher()) l.kernels[{t.stem, t.width, t.size}] = &t;
        return l;
    }();
    return lib;
}

// One function at one size: a kernel at its own, a dispatcher at each.
struct Case {
    const Transform* t;
    int size;
    const Transform* kernel;  // the named kernel of this size
    std::size_t src_bytes, dst_bytes, buffer_bytes;
    std::string name() const { return t->name + " size " + std::to_string(size); }
};

std::vector<Case> every_case()
{
    const Library& lib = library();
    EXPECT_TRUE(lib.unknown.empty()) << "exported, but of no known family: " << lib.unknown.front();
    EXPECT_FALSE(lib.transforms.empty());
    std::vector<Case> cases;
    for (const Transform& t : lib.transforms) {
        const int first = t.dispatcher() ? t.min_size() : t.size;
        const int last = t.dispatcher() ? t.max_size() : t.size;
        for (int size = first; size <= last; ++size) {
            const auto k = lib.kernels.find({t.stem, t.width, size});
            EXPECT_NE(k, lib.kernels.end()) << t.name << " has no kernel of size " << size;
            if (k == lib.kernels.end()) continue;
            int buffer = 0;
            if (t.takes_buffer(size))
                (t.width == 4 ? zptgWHTGetBufferSize_32f : zptgWHTGetBufferSize_64f)(size, &buffer);
            cases.push_back({&t, size, k->second, std::size_t(t.src_values(size)) * t.width,
                             std::size_t(t.dst_values(size)) * t.width, std::size_t(buffer)});
        }
    }
    return cases;
}

// Input values: finite ones in [-1, 1), with a NaN, an infinity of either
// sign, a denormal or a negative zero at every seventh position.
template <class T>
void fill(T* v, std::size_t count, unsigned seed)
{
    const T special[] = {std::numeric_limits<T>::quiet_NaN(), std::numeric_limits<T>::infinity(),
                         -std::numeric_limits<T>::infinity(), std::numeric_limits<T>::denorm_min(),
                         T(-0.0)};
    unsigned x = seed * 2654435761u + 1u;
    for (std::size_t i = 0; i < count; ++i) {
        x = x * 1664525u + 1013904223u;
        v[i] = (i + seed) % 7 == 3 ? special[(x >> 8) % 5] : T(int(x >> 8) - (1 << 23)) / T(1 << 23);
    }
}

Bytes input_for(const Case& c, unsigned seed)
{
    Bytes b(c.src_bytes);
    if (c.t->width == 4) fill(reinterpret_cast<float*>(b.data()), b.size() / 4, seed);
    else fill(reinterpret_cast<double*>(b.data()), b.size() / 8, seed);
    return b;
}

// dst of the named kernel on separate arrays.
Bytes expected(const Case& c, const Bytes& input, int flag)
{
    Bytes src = input, dst(c.dst_bytes, 0x5a), buffer(c.buffer_bytes);
    EXPECT_EQ(c.kernel->call(src.data(), dst.data(), c.size, flag, buffer.data()), zptgStatusOk)
        << c.name() << " flag " << flag;
    return dst;
}

// Guarded memory: a block against an inaccessible page at each side for
// src, dst and scratch; an array of n bytes lies at the block's start
// (Before) or ends at its end (After).
struct Guards {
    GuardedBlock src_after{kRoom, Guard::After}, dst_after{kRoom, Guard::After},
        buffer_after{kRoom, Guard::After}, src_before{kRoom, Guard::Before},
        dst_before{kRoom, Guard::Before}, buffer_before{kRoom, Guard::Before};
    GuardedBlock none{0, Guard::After};  // no accessible byte at all

    static unsigned char* at(const GuardedBlock& b, Guard side, std::size_t n)
    {
        return static_cast<unsigned char*>(b.data()) + (side == Guard::After ? kRoom - n : 0);
    }
};

Guards& guards()
{
    static Guards g;
    return g;
}

// The export list as read holds every transform that the header declares
// (the real and Hartley families join the sweep by their exported names).
#define ZPTG_SWEEP_KERNEL_(stem, kind, type, N) #stem "_" #N "_" #kind,
#define ZPTG_SWEEP_DISPATCHER_(stem, kind, type) #stem "_" #kind,
#define ZPTG_SWEEP_WHT_KERNEL_(kind, type, order) "zptgWHT_" #order "_" #kind,
#define ZPTG_SWEEP_WHT_DISPATCHER_(kind, type) "zptgWHT_" #kind,
#define ZPTG_SWEEP_NONE_(kind)
TEST(GuardSweep, ExportListHoldsEveryDeclaredTransform)
{
    const char* const declared[] = {
        ZPTG_DFT_COMPLEX_FUNCTIONS(ZPTG_SWEEP_KERNEL_, ZPTG_SWEEP_DISPATCHER_)
        ZPTG_WHT_FUNCTIONS(ZPTG_SWEEP_WHT_KERNEL_, ZPTG_SWEEP_WHT_KERNEL_, ZPTG_SWEEP_WHT_DISPATCHER_,
                           ZPTG_SWEEP_NONE_)};
    std::set<std::string> read;
    for (const Transform& t : library().transforms) read.insert(t.name);
    for (const char* name : declared) EXPECT_EQ(read.count(name), 1u) << name;
    EXPECT_TRUE(library().unknown.empty()) << library().unknown.front();
}

TEST(GuardSweep, FailedChecksTouchNothing)
{
    void* none = guards().none.data();
    const std::vector<int> flags = bad_flags();
    for (const Case& c : every_case()) {
        const Transform& t = *c.t;
        for (int flag : {1, 3}) {
            EXPECT_EQ(t.call(nullptr, none, c.size, flag, none), zptgStatusNullPtr) << c.name();
            EXPECT_EQ(t.call(none, nullptr, c.size, flag, none), zptgStatusNullPtr) << c.name();
            EXPECT_EQ(t.call(nullptr, nullptr, c.size, flag, none), zptgStatusNullPtr) << c.name();
        }
        for (int flag : flags)
            EXPECT_EQ(t.call(none, none, c.size, flag, none), zptgStatusBadFlag)
                << c.name() << " flag " << flag;
        if (!t.dispatcher() || c.size != t.min_size()) continue;
        for (int size : {t.min_size() - 1, t.min_size() - 2, -1, t.max_size() + 1, t.max_size() + 2,
                         INT_MAX, INT_MIN}) {
            EXPECT_EQ(t.call(none, none, size, 1, none), zptgStatusBadSize) << t.name << " " << size;
            EXPECT_EQ(t.call(nullptr, nullptr, size, 3, nullptr), zptgStatusBadSize)
                << t.name << " " << size;
        }
    }
}

// Runs `c` with src and dst at the given places, input copied in first,
// and compares dst with `want`.
void run_placed(const Case& c, unsigned char* src, unsigned char* dst, unsigned char* buffer,
                const Bytes& input, int flag, const Bytes& want, const std::string& where)
{
    std::memcpy(src, input.data(), input.size());
    ASSERT_EQ(c.t->call(src, dst, c.size, flag, buffer), zptgStatusOk) << c.name() << where;
    ASSERT_EQ(std::memcmp(dst, want.data(), want.size()), 0)
        << c.name() << " flag " << flag << where << ": dst differs from separate arrays";
}

// Overlaps by k values of arrays of n: every k for a kernel of up to 64
// points (each k puts other outputs over unread inputs), 1 to 8 and every
// eighth of the array for the longer ones; a dispatcher hands its pointers
// on unchanged, so 1, n / 2 and n - 1.
std::vector<std::size_t> overlaps(const Case& c, std::size_t n)
{
    if (c.t->dispatcher()) return {1, n / 2, n - 1};
    std::vector<std::size_t> k;
    for (std::size_t i = 1; i + 1 < n; i += n <= 130 || i < 8 ? 1 : n / 8) k.push_back(i);
    k.push_back(n - 1);
    return k;
}

TEST(GuardSweep, PlacementsAndOverlapsGiveTheSeparateResult)
{
    Guards& g = guards();
    unsigned seed = 0;
    for (const Case& c : every_case()) {
        const Bytes input = input_for(c, ++seed);
        Bytes want[4];
        for (int f = 0; f < 4; ++f) want[f] = expected(c, input, kFlags[f]);
        const std::size_t w = c.t->width, in_place = std::max(c.src_bytes, c.dst_bytes);
        for (int f = 0; f < 4; ++f) {
            for (Guard side : {Guard::After, Guard::Before}) {
                const std::string at = side == Guard::After ? " against the end" : " against the start";
                unsigned char* src = Guards::at(side == Guard::After ? g.src_after : g.src_before, side, c.src_bytes);
                unsigned char* dst = Guards::at(side == Guard::After ? g.dst_after : g.dst_before, side, c.dst_bytes);
                unsigned char* buffer = Guards::at(side == Guard::After ? g.buffer_after : g.buffer_before,
                                                   side, c.buffer_bytes);
                run_placed(c, src, dst, buffer, input, kFlags[f], want[f], at);
                ASSERT_EQ(std::memcmp(src, input.data(), c.src_bytes), 0) << c.name() << at << ": src changed";
                unsigned char* both = Guards::at(side == Guard::After ? g.dst_after : g.dst_before, side, in_place);
                run_placed(c, both, both, nullptr, input, kFlags[f], want[f], at + ", dst == src");
            }
        }
        // dst k values above or below src, the pair against either guard,
        // the flags in turn; Walsh scratch of its own or none in turn.
        for (std::size_t k : overlaps(c, in_place / w)) {
            const int f = int(k % 4);
            const Guard side = k % 2 ? Guard::After : Guard::Before;
            const GuardedBlock& block = side == Guard::After ? g.dst_after : g.dst_before;
            unsigned char* buffer =
                k % 3 ? Guards::at(side == Guard::After ? g.buffer_after : g.buffer_before, side, c.buffer_bytes)
                      : nullptr;
            unsigned char* span = Guards::at(block, side, std::max(c.src_bytes, k * w + c.dst_bytes));
            run_placed(c, span, span + k * w, buffer, input, kFlags[f], want[f],
                       " dst " + std::to_string(k) + " values above src");
            span = Guards::at(block, side, std::max(c.dst_bytes, k * w + c.src_bytes));
            run_placed(c, span + k * w, span, buffer, input, kFlags[f], want[f],
                       " dst " + std::to_string(k) + " values below src");
        }
    }
}

template <class T>
void expect_flows_through(const Case& c, int flag)
{
    const std::size_t src_n = c.src_bytes / sizeof(T), dst_n = c.dst_bytes / sizeof(T);
    const T inf = std::numeric_limits<T>::infinity(), nan = std::numeric_limits<T>::quiet_NaN();
    for (bool infinite : {false, true}) {
        std::vector<T> src(src_n), dst(dst_n, T(5)), buffer(c.buffer_bytes / sizeof(T));
        for (std::size_t i = 0; i < src_n; ++i) src[i] = infinite ? (i % 3 ? inf : -inf) : nan;
        ASSERT_EQ(c.t->call(src.data(), dst.data(), c.size, flag, buffer.data()), zptgStatusOk);
        for (std::size_t p = 0; p < dst_n; ++p) {
            if (c.t->literal_zero(c.size, int(p)))
                EXPECT_TRUE(dst[p] == T(0) && !std::signbit(dst[p])) << c.name() << " position " << p;
            else if (infinite)
                EXPECT_FALSE(std::isfinite(dst[p])) << c.name() << " flag " << flag << " position " << p;
            else
                EXPECT_TRUE(std::isnan(dst[p])) << c.name() << " flag " << flag << " position " << p;
        }
    }
}

TEST(GuardSweep, NanAndInfinityFlowThrough)
{
    for (const Case& c : every_case())
        for (int flag : kFlags) {
            if (c.t->width == 4) expect_flows_through<float>(c, flag);
            else expect_flows_through<double>(c, flag);
        }
}

}  // namespace
