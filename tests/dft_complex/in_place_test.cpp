// Calls where the arrays meet: a kernel reads all of its input before it
// writes, so dst == src, and a dst that overlaps src one element either
// way, give bit for bit the result of separate arrays. With separate arrays
// the source is never changed, and what stands in dst beforehand never
// shows in the result.
#include <gtest/gtest.h>

#include <cstring>
#include <vector>

#include "dft_complex/element.h"
#include "dft_complex/kernel_call.h"

namespace zptg::test {
namespace {

// Length 2 in place is the butterfly (x0 + x1, x0 - x1), exact for these
// inputs in either width.
TEST(ComplexInPlace, Length2IsTheButterflyInPlace)
{
    for_each_member([]<class E>(const Member<E>& m) {
        const std::vector<E> in = random_input<E>(2, 21);
        std::vector<E> buffer = in;
        ASSERT_EQ(m.kernel[2](buffer.data(), buffer.data(), zptgScaleNone), zptgStatusOk);
        EXPECT_EQ(buffer[0].re, in[0].re + in[1].re) << m.kernel_name[2];
        EXPECT_EQ(buffer[0].im, in[0].im + in[1].im) << m.kernel_name[2];
        EXPECT_EQ(buffer[1].re, in[0].re - in[1].re) << m.kernel_name[2];
        EXPECT_EQ(buffer[1].im, in[0].im - in[1].im) << m.kernel_name[2];
    });
}

// dst == src, dst one element before src and one element after it, under
// every flag.
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

TEST(ComplexInPlace, SourceUnchangedAndDestinationNeverRead)
{
    for_each_member([]<class E>(const Member<E>& m) {
        for (int n = kMinLength; n <= kMaxLength; ++n) {
            const std::vector<E> in = random_input<E>(n, 23);
            const std::vector<E> original = in;
            std::vector<std::vector<E>> results;
            // Zeros, all-ones bytes (NaNs), and large values beforehand in dst.
            for (int fill : {0x00, 0xFF, 0x47}) {
                std::vector<E> out(n);
                std::memset(static_cast<void*>(out.data()), fill, n * sizeof(E));
                EXPECT_EQ(m.kernel[n](in.data(), out.data(), zptgScaleFwdByN), zptgStatusOk);
                results.push_back(out);
            }
            EXPECT_TRUE(same_bits(in, original)) << m.kernel_name[n] << " changed its source";
            EXPECT_TRUE(same_bits(results[0], results[1]) && same_bits(results[0], results[2]))
                << m.kernel_name[n] << ": the earlier contents of dst show in the result";
        }
    });
}

}  // namespace
}  // namespace zptg::test
