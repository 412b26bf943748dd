// The scale factors the family must use, written out independently of the
// library: 1/N and, at even orders, 1/sqrt(N) are powers of two; at odd
// orders 1/sqrt(N) is the 32-bit value nearest to it, and in 64 bits the
// quotient 1.0 / sqrt(N) of two 64-bit operations (0x...BCC, one unit in
// the last place below the nearest value 0x...BCD).
#ifndef ZPTG_TESTS_WHT_CONSTANTS_H
#define ZPTG_TESTS_WHT_CONSTANTS_H

#include <bit>
#include <cmath>
#include <cstdint>

#include "zptgenpx.h"

namespace zptg::test::wht {

// Bits of 1/sqrt(2^order) at the odd orders 1, 3, ..., 13.
constexpr std::uint32_t kOddBySqrtN32f[] = {0x3F3504F3, 0x3EB504F3, 0x3E3504F3, 0x3DB504F3,
                                            0x3D3504F3, 0x3CB504F3, 0x3C3504F3};
constexpr std::uint64_t kOddBySqrtN64f[] = {
    0x3FE6A09E667F3BCC, 0x3FD6A09E667F3BCC, 0x3FC6A09E667F3BCC, 0x3FB6A09E667F3BCC,
    0x3FA6A09E667F3BCC, 0x3F96A09E667F3BCC, 0x3F86A09E667F3BCC};

template <class T>
T by_sqrt_n(int order)
{
    if (order % 2 == 0) return std::ldexp(T(1), -order / 2);
    if constexpr (sizeof(T) == 4) return std::bit_cast<T>(kOddBySqrtN32f[order / 2]);
    else return std::bit_cast<T>(kOddBySqrtN64f[order / 2]);
}

// The factor a kernel of the order must apply under a valid flag.
template <class T>
T expected_factor(int order, int flag)
{
    switch (flag) {
    case zptgScaleFwdByN:
    case zptgScaleInvByN: return std::ldexp(T(1), -order);
    case zptgScaleBySqrtN: return by_sqrt_n<T>(order);
    default: return T(1);
    }
}

// The mathematical factor, for measuring errors.
inline long double exact_factor(int order, int flag)
{
    switch (flag) {
    case zptgScaleFwdByN:
    case zptgScaleInvByN: return std::ldexp(1.0L, -order);
    case zptgScaleBySqrtN: return 1.0L / std::sqrt(std::ldexp(1.0L, order));
    default: return 1.0L;
    }
}

constexpr int kValidFlags[] = {zptgScaleFwdByN, zptgScaleInvByN, zptgScaleBySqrtN, zptgScaleNone};

}  // namespace zptg::test::wht

#endif
