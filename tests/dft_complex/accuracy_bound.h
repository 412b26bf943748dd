// The accuracy the kernels are held to, in units of eps max|X| (eps the
// element's epsilon, X the exact result): 32fc kernels compute in double
// and round once, so each complex value is within half a unit of each part
// of the nearest floats (sqrt(2)/2 of eps max|X|; 0.75 leaves room for the
// double arithmetic); 64fc kernels are within 1 + log2 N.
#ifndef ZPTG_TESTS_DFT_COMPLEX_ACCURACY_BOUND_H
#define ZPTG_TESTS_DFT_COMPLEX_ACCURACY_BOUND_H

#include <cmath>

#include "dft_complex/element.h"

namespace zptg::test {

template <class E>
long double accuracy_bound(int n)
{
    if constexpr (sizeof(RealOf<E>) == sizeof(float)) {
        (void)n;
        return 0.75L;
    } else {
        return 1 + std::log2((long double)n);
    }
}

}  // namespace zptg::test

#endif
