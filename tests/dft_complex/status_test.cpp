// Statuses and the order of the checks: a kernel tests its pointers, then
// its flag; a dispatcher tests only the length, so a bad length outranks
// every other fault. On every failure the output array is left as it was,
// byte for byte, and the input too.
#include <gtest/gtest.h>

#include <climits>
#include <cstring>
#include <vector>

#include "dft_complex/element.h"
#include "dft_complex/kernel_call.h"

namespace zptg::test {
namespace {

constexpr int kBadFlags[] = {0, 3, 5, 6, 7, 9, 12, 15, 16, 17, 32, -1, INT_MIN, INT_MAX};
constexpr int kBadLengths[] = {1, 0, -1, 65, 66, INT_MAX, INT_MIN};
// Good and bad flags together, for checks that must come before the flag's.
constexpr int kAnyFlags[] = {zptgScaleFwdByN, zptgScaleInvByN, zptgScaleBySqrtN, zptgScaleNone, 3, 0, -1};

// An output array filled with a byte pattern that no kernel writes.
template <class E>
std::vector<E> sentinel(int n)
{
    std::vector<E> v(n);
    std::memset(static_cast<void*>(v.data()), 0xA5, v.size() * sizeof(E));
    return v;
}

// Null src, null dst or both: -8 whatever the flag. Then anything but
// exactly 1, 2, 4 or 8 is -16. Nothing is written, src is not changed.
TEST(ComplexKernelChecks, NullPointersThenTheFlag)
{
    for_each_member([]<class E>(const Member<E>& m) {
        for (int n = kMinLength; n <= kMaxLength; ++n) {
            const Kernel<E> k = m.kernel[n];
            const std::vector<E> in = random_input<E>(n, 7);
            const std::vector<E> original = in;
            std::vector<E> out = sentinel<E>(n);
            const std::vector<E> untouched = out;
            for (int flag : kAnyFlags) {
                EXPECT_EQ(k(nullptr, out.data(), flag), zptgStatusNullPtr) << m.kernel_name[n] << " flag " << flag;
                EXPECT_EQ(k(in.data(), nullptr, flag), zptgStatusNullPtr) << m.kernel_name[n] << " flag " << flag;
                EXPECT_EQ(k(nullptr, nullptr, flag), zptgStatusNullPtr) << m.kernel_name[n] << " flag " << flag;
            }
            for (int flag : kBadFlags)
                EXPECT_EQ(k(in.data(), out.data(), flag), zptgStatusBadFlag) << m.kernel_name[n] << " flag " << flag;
            EXPECT_TRUE(same_bits(out, untouched)) << m.kernel_name[n] << " wrote on a failed check";
            EXPECT_TRUE(same_bits(in, original)) << m.kernel_name[n] << " changed its source";
        }
    });
}

// -6 for every length outside 2..64, whatever the pointers and the flag.
TEST(ComplexDispatchers, BadLengthOutranksEveryOtherFault)
{
    for_each_member([]<class E>(const Member<E>& m) {
        const std::vector<E> in = random_input<E>(kMaxLength + 2, 9);
        std::vector<E> out = sentinel<E>(kMaxLength + 2);
        const std::vector<E> untouched = out;
        const E* sources[] = {in.data(), nullptr};
        E* destinations[] = {out.data(), nullptr};
        for (int len : kBadLengths)
            for (const E* src : sources)
                for (E* dst : destinations)
                    for (int flag : kAnyFlags)
                        EXPECT_EQ(m.dispatcher(src, dst, len, flag), zptgStatusBadSize)
                            << m.dispatcher_name << " length " << len << " flag " << flag
                            << (src ? "" : ", null src") << (dst ? "" : ", null dst");
        EXPECT_TRUE(same_bits(out, untouched)) << m.dispatcher_name << " wrote for a bad length";
    });
}

// Every length from 2 to 64 reaches the kernel of that length (the same
// bits as a direct call), whose checks then apply.
TEST(ComplexDispatchers, ReachTheKernelOfEachLength)
{
    for_each_member([]<class E>(const Member<E>& m) {
        for (int n = kMinLength; n <= kMaxLength; ++n) {
            const std::vector<E> in = random_input<E>(n, 10);
            const Result<E> direct = call(m.kernel[n], in, zptgScaleBySqrtN);
            std::vector<E> out(n);
            EXPECT_EQ(m.dispatcher(in.data(), out.data(), n, zptgScaleBySqrtN), zptgStatusOk)
                << m.dispatcher_name << " length " << n;
            EXPECT_TRUE(same_bits(out, direct.out)) << m.dispatcher_name << " length " << n
                                                    << " is not " << m.kernel_name[n];
            out = sentinel<E>(n);
            const std::vector<E> untouched = out;
            EXPECT_EQ(m.dispatcher(nullptr, out.data(), n, zptgScaleNone), zptgStatusNullPtr) << n;
            EXPECT_EQ(m.dispatcher(in.data(), nullptr, n, 3), zptgStatusNullPtr) << n;
            EXPECT_EQ(m.dispatcher(in.data(), out.data(), n, 3), zptgStatusBadFlag) << n;
            EXPECT_TRUE(same_bits(out, untouched)) << m.dispatcher_name << " length " << n;
        }
    });
}

}  // namespace
}  // namespace zptg::test
