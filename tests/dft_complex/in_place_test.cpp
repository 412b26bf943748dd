// Calls where the arrays meet: a kernel reads all of its input before it
// writes, so dst == src, and a dst that overlaps src one element either
// way, give bit for bit the result of separate arrays, under every flag.
#include <gtest/gtest.h>

#include <cstring>
#include <vector>

#include "dft_complex/element.h"
#include "dft_complex/kernel_call.h"

namespace zptg::test {
namespace {

TEST(ComplexInPlace, SameOrOverlappingArraysGiveTheSeparateArraysResult)
{
    for_each_member([]<class E>(const Member<E>& m) {
        for (int n = kMinLength; n <= kMaxLength; ++n) {
            const std::vector<E> in = random_input<E>(n, 22);
            for (int flag : kFlags) {
                const Result<E> separate = call(m.kernel[n], in, flag);
                for (int shift : {0, 1, -1}) {
                    std::vector<E> buffer(n + 1, E{0, 0});
                    E* src = buffer.data() + (shift > 0 ? 1 : 0);
                    E* dst = buffer.data() + (shift < 0 ? 1 : 0);
                    std::memcpy(static_cast<void*>(src), in.data(), n * sizeof(E));
                    EXPECT_EQ(m.kernel[n](src, dst, flag), zptgStatusOk);
                    const std::vector<E> out(dst, dst + n);
                    EXPECT_TRUE(same_bits(out, separate.out))
                        << m.kernel_name[n] << " flag " << flag << " with dst "
                        << (shift == 0 ? "equal to" : shift > 0 ? "one element before" : "one element after")
                        << " src";
                }
            }
        }
    });
}

}  // namespace
}  // namespace zptg::test
