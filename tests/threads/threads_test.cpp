// Every exported transform run from several threads at once, each thread on arrays of its own (and
// a scratch buffer or DCT-IV context of its own), gives bit for bit what it gives when run alone.
// Under ThreadSanitizer (scripts/tsan.sh) this also proves that no call touches memory that
// another call touches: the library shares nothing between calls.
#include <gtest/gtest.h>

#include <latch>
#include <thread>
#include <vector>

#include "dct4/api.h"
#include "support/export_list.h"
#include "support/reference.h"

namespace zptg::test {
namespace {

using Bytes = std::vector<unsigned char>;
constexpr int kThreads = 4;

// Values in [-1, 1) that differ from thread to thread and call to call, as the bytes of `width`.
Bytes values(std::size_t count, unsigned width, unsigned seed)
{
    const Reals x = random_values(int64_t(count), seed);
    Bytes b(count * width);
    if (width == 4) std::copy(x.begin(), x.end(), reinterpret_cast<float*>(b.data()));
    else std::copy(x.begin(), x.end(), reinterpret_cast<double*>(b.data()));
    return b;
}

// Each fixed-size transform at each size and flag, a Walsh kernel that takes a scratch buffer with
// the thread's own and with none (it allocates one); then each DCT-IV length (direct, planned,
// 2^k + 1) built in a block of the thread's own and by InitAlloc, each context run twice. The
// outputs one after the other, a failed call as one byte 0xee.
template <class T>
void run_dct4(unsigned seed, std::vector<Bytes>& out)
{
    using A = Api<T>;
    for (int n : {2, 16, 32, 64, 1024, 8192, 9, 1025}) {
        int bytes = 0;
        typename A::Context *own = nullptr, *allocated = nullptr;
        Bytes block(A::size(n, &bytes) == zptgStatusOk ? std::size_t(bytes) : 0);
        const bool built = A::init(&own, n, block.data()) == zptgStatusOk && A::init_alloc(&allocated, n) == zptgStatusOk;
        for (typename A::Context* c : {own, allocated})
            for (int round = 0; round < 2; ++round) {
                const Bytes src = values(std::size_t(n) + 1, sizeof(T), seed + unsigned(n + round));
                Bytes dst(src.size(), 7);
                const bool ok = built && A::run(reinterpret_cast<const T*>(src.data()),
                                                reinterpret_cast<T*>(dst.data()), c) == zptgStatusOk;
                out.push_back(ok ? dst : Bytes(1, 0xee));
            }
        if (allocated != nullptr) A::release(allocated);
    }
}

std::vector<Bytes> run_all(const std::vector<Transform>& transforms, unsigned seed)
{
    std::vector<Bytes> out;
    Bytes buffer(73728);  // the largest scratch of any Walsh order
    for (const Transform& t : transforms)
        for (int size = t.dispatcher() ? t.min_size() : t.size; size <= (t.dispatcher() ? t.max_size() : t.size); ++size)
            for (int flag : kFlags)
                for (bool own : {false, true}) {
                    if (own && !t.takes_buffer(size)) continue;
                    const Bytes src = values(std::size_t(t.src_values(size)), t.width, seed + unsigned(out.size()));
                    Bytes dst(std::size_t(t.dst_values(size)) * t.width, 0x5a);
                    const zptgStatus s = t.call(src.data(), dst.data(), size, flag, own ? buffer.data() : nullptr);
                    out.push_back(s == zptgStatusOk ? dst : Bytes(1, 0xee));
                }
    run_dct4<float>(seed, out);
    run_dct4<double>(seed, out);
    return out;
}

TEST(Threads, EveryTransformAtOnceGivesItsSerialResult)
{
    std::vector<std::string> unknown;
    const std::vector<Transform> transforms = exported_transforms(&unknown);
    ASSERT_TRUE(unknown.empty()) << unknown.front();
    std::vector<std::vector<Bytes>> serial(kThreads), parallel(kThreads);
    for (int i = 0; i < kThreads; ++i) serial[i] = run_all(transforms, unsigned(i) * 7919u);
    std::latch start(kThreads);
    std::vector<std::thread> threads;
    for (int i = 0; i < kThreads; ++i)
        threads.emplace_back([&, i] {
            start.arrive_and_wait();
            parallel[i] = run_all(transforms, unsigned(i) * 7919u);
        });
    for (std::thread& t : threads) t.join();
    for (int i = 0; i < kThreads; ++i) {
        ASSERT_EQ(parallel[i].size(), serial[i].size());
        for (std::size_t k = 0; k < serial[i].size(); ++k) {
            ASSERT_NE(serial[i][k].size(), 1u) << "call " << k << " failed";
            ASSERT_EQ(parallel[i][k], serial[i][k]) << "call " << k << ", thread " << i;
        }
    }
}

}  // namespace
}  // namespace zptg::test
