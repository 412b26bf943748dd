// What every fixed-size kernel and dispatcher shares: the order of argument
// checks, the choice of the scale factor by flag and direction, and the
// dispatcher's single range test and jump through a table.
#ifndef ZPTG_FRAME_KERNEL_H
#define ZPTG_FRAME_KERNEL_H

#include "zptgenpx.h"

namespace zptg {

// How a family reads the scale flags.
//   Forward:     1 -> 1/N, 2 -> 1,   4 -> 1/sqrt(N), 8 -> 1
//   Inverse:     1 -> 1,   2 -> 1/N, 4 -> 1/sqrt(N), 8 -> 1
//   SelfInverse: 1 -> 1/N, 2 -> 1/N, 4 -> 1/sqrt(N), 8 -> 1
enum class Scaling { Forward, Inverse, SelfInverse };

// The checks of a kernel, in their order: null pointers first, then the
// flag; on success the factor is chosen from the kernel's own two literal
// constants (1/N and 1/sqrt(N) of the element's width). Nothing is read or
// written here.
template <Scaling D, class S>
inline zptgStatus kernel_prologue(const void* src, const void* dst, int flag, S by_n,
                                  S by_sqrt_n, S* factor)
{
    if (src == nullptr || dst == nullptr) return zptgStatusNullPtr;
    switch (flag) {
    case zptgScaleFwdByN:
        *factor = D == Scaling::Inverse ? S(1) : by_n;
        return zptgStatusOk;
    case zptgScaleInvByN:
        *factor = D == Scaling::Forward ? S(1) : by_n;
        return zptgStatusOk;
    case zptgScaleBySqrtN:
        *factor = by_sqrt_n;
        return zptgStatusOk;
    case zptgScaleNone:
        *factor = S(1);
        return zptgStatusOk;
    default:
        return zptgStatusBadFlag;
    }
}

// Number of kernels behind a dispatcher of the fixed-size families: N = 2..64.
constexpr unsigned kDispatchEntries = 63;

// A dispatcher: subtract 2 from the length and compare it, unsigned, with 62
// (one test rejects negatives, 0, 1 and 65 upward), then jump through the
// table to the kernel of that length. Everything else is forwarded untouched
// and the kernel's status comes back unchanged.
template <class Kernel, class In, class Out>
inline zptgStatus dispatch(const Kernel (&table)[kDispatchEntries], In src, Out dst, int n,
                           int flag)
{
    const unsigned index = static_cast<unsigned>(n) - 2u;
    if (index > kDispatchEntries - 1) return zptgStatusBadSize;
    return table[index](src, dst, flag);
}

}  // namespace zptg

#endif
