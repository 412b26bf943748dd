// The argument checks and the scale factor of every Walsh-Hadamard kernel.
// Each order has two constants per element width: 1/N, an exact power of
// two, and 1/sqrt(N). At even orders 1/sqrt(N) is a power of two as well; at
// odd orders it is held as a bit pattern: in 32 bits the correctly rounded
// value, in 64 bits the quotient 1.0 / sqrt(N) with both operations rounded
// to 64 bits, one unit in the last place below the nearest value.
#ifndef ZPTG_WHT_SCALE_H
#define ZPTG_WHT_SCALE_H

#include <bit>
#include <cstdint>

#include "zptgenpx.h"

namespace zptg::wht {

constexpr int kMinOrder = 1;
constexpr int kMaxOrder = 13;
constexpr int kOrders = kMaxOrder - kMinOrder + 1;

// Bits of 1/sqrt(N) at the odd orders 1, 3, 5, ..., 13.
template <class T>
struct OddOrderBits;

template <>
struct OddOrderBits<float> {
    using Bits = std::uint32_t;
    static constexpr Bits by_sqrt_n[] = {0x3F3504F3, 0x3EB504F3, 0x3E3504F3, 0x3DB504F3,
                                         0x3D3504F3, 0x3CB504F3, 0x3C3504F3};
};

template <>
struct OddOrderBits<double> {
    using Bits = std::uint64_t;
    static constexpr Bits by_sqrt_n[] = {0x3FE6A09E667F3BCC, 0x3FD6A09E667F3BCC,
                                         0x3FC6A09E667F3BCC, 0x3FB6A09E667F3BCC,
                                         0x3FA6A09E667F3BCC, 0x3F96A09E667F3BCC,
                                         0x3F86A09E667F3BCC};
};

template <class T>
constexpr T odd(int order)
{
    return std::bit_cast<T>(OddOrderBits<T>::by_sqrt_n[order / 2]);
}

// The two constants of each order in the element's width, indexed by
// order (entry 0 is unused). The powers of two are exact in both widths.
template <class T>
struct Constants {
    static constexpr T by_n[kMaxOrder + 1] = {
        T(0),      T(0x1p-1), T(0x1p-2), T(0x1p-3),  T(0x1p-4),  T(0x1p-5),  T(0x1p-6),
        T(0x1p-7), T(0x1p-8), T(0x1p-9), T(0x1p-10), T(0x1p-11), T(0x1p-12), T(0x1p-13)};
    static constexpr T by_sqrt_n[kMaxOrder + 1] = {
        T(0),        odd<T>(1),  T(0x1p-1), odd<T>(3),  T(0x1p-2), odd<T>(5),  T(0x1p-3),
        odd<T>(7),   T(0x1p-4),  odd<T>(9), T(0x1p-5),  odd<T>(11), T(0x1p-6), odd<T>(13)};
};

// The checks of a kernel of the given order, in their order: src, dst, then
// the flag, tested against 8, 4, 1 and 2 in turn. The transform has no
// direction, so 1 and 2 both divide by N. On success *factor holds the
// scale; nothing is read or written otherwise.
template <class T, int Order>
[[gnu::always_inline]] inline zptgStatus check(const T* src, const T* dst, int flag, T* factor)
{
    static_assert(Order >= kMinOrder && Order <= kMaxOrder);
    if (src == nullptr) return zptgStatusNullPtr;
    if (dst == nullptr) return zptgStatusNullPtr;
    if (flag == zptgScaleNone) {
        *factor = T(1);
    } else if (flag == zptgScaleBySqrtN) {
        *factor = Constants<T>::by_sqrt_n[Order];
    } else if (flag == zptgScaleFwdByN) {
        *factor = Constants<T>::by_n[Order];
    } else if (flag == zptgScaleInvByN) {
        *factor = Constants<T>::by_n[Order];
    } else {
        return zptgStatusBadFlag;
    }
    return zptgStatusOk;
}

}  // namespace zptg::wht

#endif
