// libFuzzer harness over every exported dispatcher: the input picks the
// dispatcher, the size, the flag, null pointers, how src and dst lie
// (apart, the same array, or overlapping by any number of values either
// way), a Walsh scratch buffer or none, and the input values (any bits:
// NaNs, infinities, denormals). Arrays are allocated at exactly the
// layout's size, so AddressSanitizer reports any access outside it; a call
// that must fail gets arrays of no bytes at all, so it may touch nothing.
// Checked: the status follows the order size, pointers, flag; a successful
// call gives bit for bit what the named kernel of that size gives on
// separate arrays, and leaves a separate src as it was.
#include <fuzzer/FuzzedDataProvider.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <vector>

#include "support/export_list.h"

namespace {

using zptg::test::Transform;
using Bytes = std::vector<unsigned char>;

struct Library {
    std::vector<Transform> transforms;
    std::vector<const Transform*> dispatchers;
};

const Library& library()
{
    static const Library lib = [] {
        Library l;
        std::vector<std::string> unknown;
        l.transforms = zptg::test::exported_transforms(&unknown);
        if (!unknown.empty() || l.transforms.empty()) {
            std::fprintf(stderr, "export list: %s\n",
                         unknown.empty() ? "no transforms" : unknown.front().c_str());
            std::abort();
        }
        for (const Transform& t : l.transforms)
            if (t.dispatcher()) l.dispatchers.push_back(&t);
        return l;
    }();
    return lib;
}

const Transform& kernel_of(const Transform& d, int size)
{
    for (const Transform& t : library().transforms)
        if (t.stem == d.stem && t.width == d.width && t.size == size) return t;
    std::fprintf(stderr, "%s has no kernel of size %d\n", d.name.c_str(), size);
    std::abort();
}

void check(bool ok, const char* what, const Transform& t, int size, int flag)
{
    if (ok) return;
    std::fprintf(stderr, "%s: %s (size %d, flag %d)\n", t.name.c_str(), what, size, flag);
    std::abort();
}

enum class Placement { Apart, Same, DstAbove, DstBelow, NullSrc, NullDst, NullBoth };

// A block of exactly `bytes` bytes on the heap (none for 0), so that
// AddressSanitizer reports any access outside it.
struct Block {
    explicit Block(std::size_t bytes) : p(static_cast<unsigned char*>(std::malloc(bytes))) {}
    ~Block() { std::free(p); }
    Block(const Block&) = delete;
    Block& operator=(const Block&) = delete;
    unsigned char* p;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t bytes)
{
    FuzzedDataProvider in(data, bytes);
    const Library& lib = library();
    const Transform& t =
        *lib.dispatchers[in.ConsumeIntegralInRange<std::size_t>(0, lib.dispatchers.size() - 1)];
    const int size = in.ConsumeBool() ? in.ConsumeIntegralInRange(t.min_size() - 2, t.max_size() + 2)
                                      : in.ConsumeIntegral<int>();
    const int flag = in.ConsumeBool() ? 1 << in.ConsumeIntegralInRange(0, 3) : in.ConsumeIntegral<int>();
    const auto placement = static_cast<Placement>(in.ConsumeIntegralInRange(0, 6));
    const bool own_buffer = in.ConsumeBool();
    const unsigned shift = in.ConsumeIntegral<unsigned>();

    const bool size_ok = size >= t.min_size() && size <= t.max_size();
    const bool null = placement >= Placement::NullSrc;
    const bool flag_ok = flag == 1 || flag == 2 || flag == 4 || flag == 8;
    const zptgStatus expected = !size_ok ? zptgStatusBadSize
                              : null     ? zptgStatusNullPtr
                              : !flag_ok ? zptgStatusBadFlag
                                         : zptgStatusOk;
    if (expected != zptgStatusOk) {
        // Nothing may be read or written: every pointer that is not null
        // points at no bytes at all.
        Block none(0);
        const void* src = placement == Placement::NullSrc || placement == Placement::NullBoth ? nullptr : none.p;
        void* dst = placement == Placement::NullDst || placement == Placement::NullBoth ? nullptr : none.p;
        check(t.call(src, dst, size, flag, own_buffer ? none.p : nullptr) == expected,
              "wrong status", t, size, flag);
        return 0;
    }

    const std::size_t src_bytes = std::size_t(t.src_values(size)) * t.width;
    const std::size_t dst_bytes = std::size_t(t.dst_values(size)) * t.width;
    Bytes input(src_bytes);
    const std::vector<uint8_t> given = in.ConsumeRemainingBytes<uint8_t>();
    for (std::size_t i = 0; i < src_bytes && !given.empty(); ++i) input[i] = given[i % given.size()];

    // A Walsh scratch buffer of exactly the size the family asks for.
    int buffer_bytes = 0;
    if (own_buffer && t.takes_buffer(size))
        (t.width == 4 ? zptgWHTGetBufferSize_32f : zptgWHTGetBufferSize_64f)(size, &buffer_bytes);
    Block buffer{std::size_t(buffer_bytes)};
    void* scratch = own_buffer ? buffer.p : nullptr;

    // What the named kernel gives on separate arrays.
    Block ref_src(src_bytes), ref_dst(dst_bytes);
    std::memcpy(ref_src.p, input.data(), src_bytes);
    std::memset(ref_dst.p, 0xa5, dst_bytes);
    check(kernel_of(t, size).call(ref_src.p, ref_dst.p, size, flag, scratch) == zptgStatusOk,
          "kernel failed", t, size, flag);

    // The dispatcher with src and dst placed as asked, in one block.
    std::size_t src_at = 0, dst_at = 0, total = src_bytes + dst_bytes;
    const std::size_t values = std::max(src_bytes, dst_bytes) / t.width;
    const std::size_t offset = t.width * (1 + shift % (values - 1));
    switch (placement) {
    case Placement::Same: total = std::max(src_bytes, dst_bytes); break;
    case Placement::DstAbove: dst_at = offset; total = std::max(src_bytes, offset + dst_bytes); break;
    case Placement::DstBelow: src_at = offset; total = std::max(dst_bytes, offset + src_bytes); break;
    default: dst_at = src_bytes; break;
    }
    Block block(total);
    std::memset(block.p, 0x5a, total);
    std::memcpy(block.p + src_at, input.data(), src_bytes);
    check(t.call(block.p + src_at, block.p + dst_at, size, flag, scratch) == zptgStatusOk,
          "dispatcher failed", t, size, flag);
    check(std::memcmp(block.p + dst_at, ref_dst.p, dst_bytes) == 0,
          "dst differs from the kernel's on separate arrays", t, size, flag);
    if (placement == Placement::Apart)
        check(std::memcmp(block.p, input.data(), src_bytes) == 0, "src changed", t, size, flag);
    return 0;
}
