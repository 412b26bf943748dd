// libFuzzer harness over the DCT-IV: the input is a sequence of steps on
// two context slots of either element kind: size queries of any length;
// Init in a block of the caller's at any address, or InitAlloc; transforms
// with src and dst apart, the same, at any element offset, or null; a new
// Init over a live block; Free. Blocks and arrays are allocated at exactly
// the sizes the library asks for, so AddressSanitizer reports any access
// past them (an unaligned block whose address has bit 31 set is given the
// 31 bytes that the size query does not count for it); LeakSanitizer
// reports a context that is never released.
// Checked: the statuses of every step; a transform gives bit for bit the
// same through contexts of both builds, in place and apart, and again.
#include <fuzzer/FuzzedDataProvider.h>

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <vector>

#include "zptcore.h"
#include "dct4/api.h"
#include "zptgenpx.h"

namespace {

using zptg::test::Api;

void check(bool ok, const char* what, int length)
{
    if (ok) return;
    std::fprintf(stderr, "DCT-IV length %d: %s\n", length, what);
    std::abort();
}


// Lengths worth building: direct, planned, 2^k + 1, and a few that planning
// rejects. Larger ones are only asked for their size.
constexpr int kMaxBuiltLength = 1 << 14;

int pick_length(FuzzedDataProvider& in)
{
    switch (in.ConsumeIntegralInRange(0, 3)) {
    case 0: return 1 << in.ConsumeIntegralInRange(1, 14);
    case 1: return (1 << in.ConsumeIntegralInRange(3, 13)) + 1;
    case 2: return in.ConsumeIntegralInRange(-2, 70);
    default: return in.ConsumeIntegral<int>();
    }
}

// A context slot: the context, the caller's block it lies in (from
// zptMalloc, null for InitAlloc) and whether Free may release it, which
// it may only where the context starts the block.
template <class T>
struct Slot {
    typename Api<T>::Context* context = nullptr;
    unsigned char* block = nullptr;
    std::size_t block_bytes = 0;
    unsigned char* base = nullptr;  // where Init was given the block
    int length = 0;
    bool freeable = false;
};

// Bytes a context needs in a block at `base` when the size query said
// `size`: 31 more where the base as a signed 32-bit number is negative and
// not 32-byte aligned, since the tree then starts further up.
std::size_t bytes_at(int size, const void* base)
{
    const auto low = static_cast<int32_t>(static_cast<uint32_t>(reinterpret_cast<uintptr_t>(base)));
    return std::size_t(size) + (low < 0 && low % 32 != 0 ? 31 : 0);
}

template <class T>
void release(Slot<T>& s)
{
    if (s.context != nullptr && s.freeable)
        check(Api<T>::release(s.context) == zptgStatusOk, "Free failed", s.length);
    else
        zptFree(s.block);
    s = Slot<T>{};
}

// A transform through `s`, checked against the other ways of running it.
template <class T>
void transform(FuzzedDataProvider& in, const Slot<T>& s)
{
    if (s.context == nullptr) return;
    const int n = s.length;
    const std::size_t values = std::size_t(n) + (n % 2);  // 2^k + 1 reads and writes N + 1
    const std::size_t shift = in.ConsumeIntegralInRange(0, 7);
    std::vector<T> input(values);
    for (T& v : input) v = in.ConsumeBool() ? in.ConsumeFloatingPoint<T>() : in.ConsumeProbability<T>() - T(0.5);

    // A null context, src or dst is refused with nothing touched.
    const std::vector<T> untouched(values, T(3));
    std::vector<T> dst = untouched;
    check(Api<T>::run(input.data(), dst.data(), nullptr) == zptgStatusNullPtr, "null context", n);
    check(Api<T>::run(nullptr, dst.data(), s.context) == zptgStatusNullPtr, "null src", n);
    check(Api<T>::run(input.data(), nullptr, s.context) == zptgStatusNullPtr, "null dst", n);
    check(dst == untouched, "dst written on failure", n);

    // Arrays at an element offset, each ending where its allocation ends.
    std::vector<T> src_at(shift + values), dst_at(shift + values, T(3));
    std::copy(input.begin(), input.end(), src_at.begin() + std::ptrdiff_t(shift));
    check(Api<T>::run(src_at.data() + shift, dst_at.data() + shift, s.context) == zptgStatusOk,
          "transform failed", n);
    check(std::equal(input.begin(), input.end(), src_at.begin() + std::ptrdiff_t(shift)), "src changed", n);
    const T* result = dst_at.data() + shift;

    // The same bits through a context built by InitAlloc, twice over.
    typename Api<T>::Context* other = nullptr;
    check(Api<T>::init_alloc(&other, n) == zptgStatusOk, "InitAlloc failed", n);
    for (int round = 0; round < 2; ++round) {
        dst = untouched;
        check(Api<T>::run(input.data(), dst.data(), other) == zptgStatusOk, "transform failed", n);
        check(std::memcmp(dst.data(), result, values * sizeof(T)) == 0, "contexts differ", n);
    }
    Api<T>::release(other);

    // In place, for the true DCT-IV lengths (2^k + 1 reads some values
    // after it has written them).
    if (n % 2 == 0) {
        check(Api<T>::run(src_at.data() + shift, src_at.data() + shift, s.context) == zptgStatusOk,
              "in place failed", n);
        check(std::memcmp(src_at.data() + shift, result, values * sizeof(T)) == 0, "in place differs", n);
    }
}

// Builds `s` anew for `length`: by InitAlloc, in a block of its own at a
// byte offset whose allocation ends where the context's room ends, or over
// the live block of `s` where the new length fits it.
template <class T>
void build(FuzzedDataProvider& in, Slot<T>& s, int length)
{
    int size = -1;
    const zptgStatus sized = Api<T>::size(length, &size);
    if (sized != zptgStatusOk) {
        check(sized == zptgStatusBadSize && size == -1, "rejected length wrote a size", length);
        auto* const kept = reinterpret_cast<typename Api<T>::Context*>(&size);
        auto* c = kept;
        check(Api<T>::init_alloc(&c, length) == zptgStatusBadSize && c == kept,
              "InitAlloc took a rejected length", length);
        return;
    }
    if (length < 2 || length > kMaxBuiltLength) return;
    switch (in.ConsumeIntegralInRange(0, 2)) {
    case 0:
        release(s);
        check(Api<T>::init_alloc(&s.context, length) == zptgStatusOk, "InitAlloc failed", length);
        s.freeable = true;
        break;
    case 1: {
        release(s);
        const std::size_t offset = in.ConsumeIntegralInRange(0, 63);
        std::size_t bytes = offset + std::size_t(size);
        for (int tries = 0; tries < 3; ++tries) {
            zptFree(s.block);
            s.block = static_cast<unsigned char*>(zptMalloc(int(bytes)));
            if (offset + bytes_at(size, s.block + offset) <= bytes) break;
            bytes = offset + bytes_at(size, s.block + offset);
        }
        s.block_bytes = bytes;
        s.base = s.block + offset;
        s.freeable = offset == 0;
        check(Api<T>::init(&s.context, length, s.base) == zptgStatusOk, "Init failed", length);
        break;
    }
    default:
        if (s.block == nullptr || s.base + bytes_at(size, s.base) > s.block + s.block_bytes) return;
        check(Api<T>::init(&s.context, length, s.base) == zptgStatusOk, "Init over a live block failed",
              length);
        break;
    }
    s.length = length;
}

template <class T>
void step(FuzzedDataProvider& in, Slot<T>& s)
{
    switch (in.ConsumeIntegralInRange(0, 2)) {
    case 0: build(in, s, pick_length(in)); break;
    case 1: transform(in, s); break;
    default: release(s); break;
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t bytes)
{
    FuzzedDataProvider in(data, bytes);
    // Null pointers in Init and InitAlloc, before anything else is looked at.
    int word = 0;
    zptgDCT4Context_32f* c32 = nullptr;
    check(zptgDCT4Init_32f(nullptr, 16, &word) == zptgStatusNullPtr, "Init without ppContext", 16);
    check(zptgDCT4Init_32f(&c32, 16, nullptr) == zptgStatusNullPtr && c32 == nullptr, "Init without block", 16);
    check(zptgDCT4InitAlloc_64f(nullptr, 16) == zptgStatusNullPtr, "InitAlloc without ppContext", 16);
    check(zptgDCT4Free_32f(nullptr) == zptgStatusNullPtr, "Free of null", 0);

    Slot<float> f[2];
    Slot<double> d[2];
    for (int steps = 0; steps < 8 && in.remaining_bytes() > 0; ++steps) {
        const int which = in.ConsumeIntegralInRange(0, 3);
        if (which < 2) step(in, f[which]);
        else step(in, d[which - 2]);
    }
    for (auto& s : f) release(s);
    for (auto& s : d) release(s);
    return 0;
}
