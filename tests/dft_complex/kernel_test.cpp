// The 252 kernels and 4 dispatchers as a caller sees them, taken from the public header's family
// list: every kernel under every flag against the exact DFT, the scale constants bit for bit, the
// order of the checks, and arrays that meet.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <climits>
#include <cmath>
#include <cstring>
#include <limits>
#include <string>
#include <type_traits>
#include <vector>

#include "support/reference.h"
#include "support/scale.h"
#include "zptgenpx.h"

namespace zptg::test {
namespace {

constexpr int kMinLength = 2;
constexpr int kMaxLength = 64;

template <class E>
struct Member {
    Direction dir = Direction::Forward;
    zptgStatus (*kernel[kMaxLength + 1])(const E*, E*, int) = {};  // by length
    const char* name[kMaxLength + 1] = {};
    zptgStatus (*dispatcher)(const E*, E*, int, int) = nullptr;
};

template <class E>
const Member<E>& member(Direction d)
{
    static const std::array<Member<E>, 2> members = [] {
        std::array<Member<E>, 2> m{};
        m[1].dir = Direction::Inverse;
        auto of = [&m](const char* stem) -> Member<E>& { return m[stem[7] == 'I']; };  // zptgDFTInv
#define ZPTG_TEST_K_(stem, kind, type, N)                                   \
    if constexpr (std::is_same_v<type, E>) {                               \
        of(#stem).kernel[N] = &stem##_##N##_##kind;                        \
        of(#stem).name[N] = #stem "_" #N "_" #kind;                        \
    }
#define ZPTG_TEST_D_(stem, kind, type) \
    if constexpr (std::is_same_v<type, E>) of(#stem).dispatcher = &stem##_##kind;
        ZPTG_DFT_COMPLEX_FUNCTIONS(ZPTG_TEST_K_, ZPTG_TEST_D_)
#undef ZPTG_TEST_K_
#undef ZPTG_TEST_D_
        return m;
    }();
    return members[d == Direction::Inverse];
}

template <class F>  // f(member) for 32fc forward and inverse, then 64fc
void for_each_member(F&& f)
{
    for (Direction d : {Direction::Forward, Direction::Inverse}) f(member<zptg32fc>(d));
    for (Direction d : {Direction::Forward, Direction::Inverse}) f(member<zptg64fc>(d));
}

template <class E>
std::vector<E> complex_input(int n, uint32_t seed)
{
    const Reals v = random_values(2 * n, seed);
    std::vector<E> x(n);
    for (int k = 0; k < n; ++k) x[k] = {decltype(E::re)(v[2 * k]), decltype(E::re)(v[2 * k + 1])};
    return x;
}

template <class E>
std::vector<E> filled(int n, unsigned char byte)
{
    std::vector<E> v(n);
    std::memset(static_cast<void*>(v.data()), byte, v.size() * sizeof(E));
    return v;
}


// One call into a dst of 0xFF bytes (a NaN in every part, so a value not stored shows), with src
// checked to come back as it was.
template <class E>
std::vector<E> call(const Member<E>& m, int n, const std::vector<E>& x, int flag)
{
    const std::vector<E> before = x;
    std::vector<E> y = filled<E>(n, 0xFF);
    EXPECT_EQ(m.kernel[n](x.data(), y.data(), flag), zptgStatusOk) << m.name[n] << " flag " << flag;
    EXPECT_TRUE(same_bits(x, before)) << m.name[n] << " changed src";
    return y;
}

template <class R>
R part(const auto& v, int slot) { return slot % 2 == 0 ? v[slot / 2].re : v[slot / 2].im; }

// Inputs: impulses at x[0] (every output is the factor itself, so the scale constants show bit for
// bit) and at x[1] (its outputs pass through every constant of the kernel), and three pseudo-random
// ones. The bounds, in units of eps max|X|: 32fc kernels compute in double and round once at the
// store, so each value must be the float nearest to the exact one, or a neighbour where the exact
// value lies within 2^-44 max|X| of a midpoint; 64fc: max |Y - X| <= 1 + log2 N. The flags differ
// by the one final product only: the flag that does not divide gives the bits of flag 8, every
// other that result times its factor, within two units.
template <class E>
void check_member(const Member<E>& m)
{
    using R = decltype(E::re);
    const int sign = m.dir == Direction::Forward ? -1 : 1;
    const long double eps = std::numeric_limits<R>::epsilon();
    for (int n = kMinLength; n <= kMaxLength; ++n) {
        std::vector<std::vector<E>> inputs(2, std::vector<E>(n, E{0, 0}));
        inputs[0][0].re = inputs[1][1].re = 1;
        for (uint32_t seed = 1; seed <= 3; ++seed) inputs.push_back(complex_input<E>(n, 1000u * n + seed));
        for (size_t i = 0; i < inputs.size(); ++i) {
            std::vector<cld> x(n);
            std::transform(inputs[i].begin(), inputs[i].end(), x.begin(), [](E e) { return cld(e.re, e.im); });
            const std::vector<cld> exact = exact_dft(x, sign);
            const std::vector<E> none = call(m, n, inputs[i], zptgScaleNone);
            for (int flag : kFlags) {
                const std::string what = std::string(m.name[n]) + " flag " + std::to_string(flag) + " input " + std::to_string(i);
                const R factor = scale_factor<R>(m.dir, flag, n);
                const std::vector<E> y = call(m, n, inputs[i], flag);
                long double largest = 0, error = 0;
                for (int k = 0; k < n; ++k) largest = std::max(largest, std::abs(exact[k] * (long double)factor));
                std::string fault;
                for (int slot = 0; slot < 2 * n && fault.empty(); ++slot) {
                    const cld& e = exact[slot / 2];
                    const long double want = (slot % 2 == 0 ? e.real() : e.imag()) * factor;
                    const R got = part<R>(y, slot);
                    error = std::max(error, std::fabs(got - want));
                    const long double margin = 0x1p-44L * largest;
                    if (i == 0 ? got != (slot % 2 == 0 ? factor : R(0))
                               : sizeof(R) == 4 && !(got >= rounded<R>(want - margin) && got <= rounded<R>(want + margin)))
                        fault = "slot " + std::to_string(slot) + " is not the nearest value to the exact one";
                    const long double product = (long double)factor * part<R>(none, slot);
                    const R size = std::max(R(std::fabs(product)), std::numeric_limits<R>::min());
                    if (std::fabs(got - product) > 2 * (std::nextafter(size, R(INFINITY)) - size))
                        fault = "slot " + std::to_string(slot) + " is not the factor times the value of flag 8";
                }
                EXPECT_EQ(fault, "") << what;
                EXPECT_LE(error / (eps * largest), sizeof(R) == 4 ? 0.75L : 1 + std::log2((long double)n)) << what;
                EXPECT_TRUE(factor != R(1) || same_bits(y, none)) << what << ": not the bits of flag 8";
            }
        }
    }
}

TEST(ComplexKernels, ExactDftUnderEveryFlag)
{
    for_each_member([]<class E>(const Member<E>& m) { check_member(m); });
}

// A kernel tests src and dst, then the flag; a dispatcher only the length, so a bad length outranks
// every other fault. A failed check writes nothing.
TEST(ComplexKernels, OrderOfTheChecks)
{
    constexpr int kAnyFlags[] = {1, 2, 4, 8, 3, 0, -1};
    for_each_member([&]<class E>(const Member<E>& m) {
        const std::vector<E> x = complex_input<E>(kMaxLength + 2, 9);
        std::vector<E> y = filled<E>(kMaxLength + 2, 0xA5);
        const std::vector<E> untouched = y;
        for (int n = kMinLength; n <= kMaxLength; ++n) {
            for (int flag : kAnyFlags) {
                EXPECT_EQ(m.kernel[n](nullptr, y.data(), flag), zptgStatusNullPtr) << m.name[n] << flag;
                EXPECT_EQ(m.kernel[n](x.data(), nullptr, flag), zptgStatusNullPtr) << m.name[n] << flag;
                EXPECT_EQ(m.kernel[n](nullptr, nullptr, flag), zptgStatusNullPtr) << m.name[n] << flag;
                EXPECT_EQ(m.dispatcher(x.data(), nullptr, n, flag), zptgStatusNullPtr) << m.name[n] << flag;
            }
            for (int flag : kBadFlags) {
                EXPECT_EQ(m.kernel[n](x.data(), y.data(), flag), zptgStatusBadFlag) << m.name[n] << flag;
                EXPECT_EQ(m.dispatcher(x.data(), y.data(), n, flag), zptgStatusBadFlag) << m.name[n] << flag;
            }
        }
        for (int len : {1, 0, -1, 65, 66, INT_MAX, INT_MIN})
            for (int flag : kAnyFlags) {
                EXPECT_EQ(m.dispatcher(x.data(), y.data(), len, flag), zptgStatusBadSize) << len << " " << flag;
                EXPECT_EQ(m.dispatcher(nullptr, nullptr, len, flag), zptgStatusBadSize) << len << " " << flag;
            }
        EXPECT_TRUE(same_bits(y, untouched)) << m.name[2] << ": written on a failed check";
    });
}

// Every length reaches its kernel through the dispatcher, and all reads come before the first
// store: dst equal to src, or overlapping it by one element either way, gives the bits of separate
// arrays, under every flag.
TEST(ComplexKernels, DispatcherAndArraysThatMeet)
{
    for_each_member([]<class E>(const Member<E>& m) {
        for (int n = kMinLength; n <= kMaxLength; ++n) {
            const std::vector<E> x = complex_input<E>(n, 22);
            for (int flag : kFlags) {
                const std::vector<E> separate = call(m, n, x, flag);
                std::vector<E> y(n);
                EXPECT_EQ(m.dispatcher(x.data(), y.data(), n, flag), zptgStatusOk);
                EXPECT_TRUE(same_bits(y, separate)) << "dispatcher to " << m.name[n];
                for (int shift : {0, 1, -1}) {
                    std::vector<E> buffer(n + 1, E{0, 0});
                    E* src = buffer.data() + (shift > 0);
                    E* dst = buffer.data() + (shift < 0);
                    std::copy(x.begin(), x.end(), src);
                    EXPECT_EQ(m.kernel[n](src, dst, flag), zptgStatusOk);
                    EXPECT_TRUE(same_bits(std::vector<E>(dst, dst + n), separate))
                        << m.name[n] << " flag " << flag << ", dst at src " << (shift == 0 ? "" : shift > 0 ? "- 1" : "+ 1");
                }
            }
        }
    });
}

}  // namespace
}  // namespace zptg::test
