// Every exported transform run from several threads at once, each thread on
// arrays of its own (and a scratch buffer or DCT-IV context of its own),
// gives bit for bit what it gives when run alone. Under ThreadSanitizer
// (scripts/tsan.sh) this also proves that no call touches memory that
// another call touches: the library shares nothing between calls.
#include <gtest/gtest.h>

#include <cstring>
#include <latch>
#include <thread>
#include <vector>

#include "dct4/api.h"
#include "support/export_list.h"

namespace {

using zptg::test::Layout;
using zptg::test::Transform;
using Bytes = std::vector<unsigned char>;

constexpr int kThreads = 4;
constexpr int kFlags[] = {zptgScaleFwdByN, zptgScaleInvByN, zptgScaleBySqrtN, zptgScaleNone};

// Values in [-1, 1) that differ from thread to thread and call to call.
template <class T>
void fill(T* values, std::size_t count, unsigned seed)
{
    unsigned x = seed * 2654435761u + 12345u;
    for (std::size_t i = 0; i < count; ++i) {
        x = x * 1664525u + 1013904223u;
        values[i] = T(int(x >> 8) - (1 << 23)) / T(1 << 23);
    }
}

void fill_bytes(Bytes& b, unsigned width, unsigned seed)
{
    if (width == 4) fill(reinterpret_cast<float*>(b.data()), b.size() / 4, seed);
    else fill(reinterpret_cast<double*>(b.data()), b.size() / 8, seed);
}

// One call of a fixed-size transform; a Walsh kernel that takes a scratch
// buffer gets the thread's own or null (then it allocates one).
struct Call {
    const Transform* t;
    int size;
    int flag;
    bool own_buffer;
};

std::vector<Call> every_call(const std::vector<Transform>& transforms)
{
    std::vector<Call> calls;
    for (const Transform& t : transforms) {
        const int first = t.dispatcher() ? t.min_size() : t.size;
        const int last = t.dispatcher() ? t.max_size() : t.size;
        for (int size = first; size <= last; ++size)
            for (int flag : kFlags) {
                calls.push_back({&t, size, flag, false});
                if (t.takes_buffer(size)) calls.push_back({&t, size, flag, true});
            }
    }
    return calls;
}

// dst of each call, one after the other, for the inputs of `seed`.
std::vector<Bytes> run_calls(const std::vector<Call>& calls, unsigned seed)
{
    std::vector<Bytes> out;
    Bytes buffer(73728);  // the largest scratch of any Walsh order
    for (std::size_t i = 0; i < calls.size(); ++i) {
        const Call& c = calls[i];
        Bytes src(std::size_t(c.t->src_values(c.size)) * c.t->width);
        Bytes dst(std::size_t(c.t->dst_values(c.size)) * c.t->width, 0x5a);
        fill_bytes(src, c.t->width, seed + unsigned(i));
        const zptgStatus s =
            c.t->call(src.data(), dst.data(), c.size, c.flag, c.own_buffer ? buffer.data() : nullptr);
        if (s != zptgStatusOk) dst.assign(1, 0xee);  // shows in the comparison
        out.push_back(std::move(dst));
    }
    return out;
}

// DCT-IV of one kind through the typed functions.

// Direct lengths, planned ones, and lengths 2^k + 1 (which use N + 1 values).
constexpr int kDct4Lengths[] = {2, 16, 32, 64, 1024, 8192, 9, 1025};

// Each length built in a block of the thread's own and by InitAlloc, each
// context run twice; the outputs, one after the other.
template <class T>
void run_dct4(unsigned seed, std::vector<Bytes>& out)
{
    using A = zptg::test::Api<T>;
    for (int n : kDct4Lengths) {
        int bytes = 0;
        typename A::Context* own = nullptr;
        typename A::Context* allocated = nullptr;
        Bytes block;
        if (A::size(n, &bytes) == zptgStatusOk) block.resize(std::size_t(bytes));
        const bool built = !block.empty() && A::init(&own, n, block.data()) == zptgStatusOk &&
                           A::init_alloc(&allocated, n) == zptgStatusOk;
        for (typename A::Context* c : {own, allocated}) {
            for (int round = 0; round < 2; ++round) {
                std::vector<T> src(std::size_t(n) + 1), dst(std::size_t(n) + 1, T(7));
                fill(src.data(), src.size(), seed + unsigned(n + round));
                Bytes result(1, 0xee);
                if (built && A::run(src.data(), dst.data(), c) == zptgStatusOk)
                    result.assign(reinterpret_cast<unsigned char*>(dst.data()),
                                  reinterpret_cast<unsigned char*>(dst.data() + dst.size()));
                out.push_back(std::move(result));
            }
        }
        if (allocated != nullptr) A::release(allocated);
    }
}

std::vector<Bytes> run_all(const std::vector<Call>& calls, unsigned seed)
{
    std::vector<Bytes> out = run_calls(calls, seed);
    run_dct4<float>(seed, out);
    run_dct4<double>(seed, out);
    return out;
}

TEST(Threads, EveryTransformAtOnceGivesItsSerialResult)
{
    std::vector<std::string> unknown;
    const std::vector<Transform> transforms = zptg::test::exported_transforms(&unknown);
    ASSERT_TRUE(unknown.empty()) << unknown.front();
    ASSERT_FALSE(transforms.empty());
    const std::vector<Call> calls = every_call(transforms);

    std::vector<std::vector<Bytes>> serial(kThreads), parallel(kThreads);
    for (int i = 0; i < kThreads; ++i) serial[i] = run_all(calls, unsigned(i) * 7919u);

    std::latch start(kThreads);
    std::vector<std::thread> threads;
    for (int i = 0; i < kThreads; ++i)
        threads.emplace_back([&, i] {
            start.arrive_and_wait();
            parallel[i] = run_all(calls, unsigned(i) * 7919u);
        });
    for (std::thread& t : threads) t.join();

    for (int i = 0; i < kThreads; ++i) {
        ASSERT_EQ(parallel[i].size(), serial[i].size());
        for (std::size_t k = 0; k < serial[i].size(); ++k) {
            const std::string what = k < calls.size()
                ? calls[k].t->name + " size " + std::to_string(calls[k].size) + " flag " +
                      std::to_string(calls[k].flag) + (calls[k].own_buffer ? " own buffer" : "")
                : "DCT-IV result " + std::to_string(k - calls.size());
            ASSERT_NE(serial[i][k].size(), 1u) << what << " failed";
            ASSERT_EQ(parallel[i][k], serial[i][k]) << what << ", thread " << i;
        }
    }
}

}  // namespace
