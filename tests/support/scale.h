// The scale constants of the fixed-size families from their rules: 1/N the value of the width
// nearest to it; 1/sqrt(N) the nearest float in 32 bits, in 64 bits 1.0 / sqrt(N) with root and
// quotient each rounded to 64 bits. Each rounding goes through a volatile store, so that x87 rounds
// once.
#ifndef ZPTG_TESTS_SUPPORT_SCALE_H
#define ZPTG_TESTS_SUPPORT_SCALE_H

#include <cmath>

#include "zptgenpx.h"

namespace zptg::test {

template <class R>
R rounded(long double x)
{
    volatile R r = R(x);
    return r;
}

// Which flag divides by N: Forward 1, Inverse 2, SelfInverse both.
enum class Direction { Forward, Inverse, SelfInverse };

template <class R>
R scale_factor(Direction d, int flag, int n)
{
    switch (flag) {
    case zptgScaleFwdByN:
    case zptgScaleInvByN:
        if (d == (flag == zptgScaleFwdByN ? Direction::Inverse : Direction::Forward)) return R(1);
        return rounded<R>(1.0L / n);
    case zptgScaleBySqrtN:
        if constexpr (sizeof(R) == sizeof(float)) return rounded<R>(1.0L / std::sqrt((long double)n));
        else return rounded<R>(1.0L / rounded<R>(std::sqrt((long double)n)));
    default: return R(1);
    }
}

constexpr int kFlags[] = {zptgScaleFwdByN, zptgScaleInvByN, zptgScaleBySqrtN, zptgScaleNone};

}  // namespace zptg::test

#endif
