// Calling a kernel the way the tests do: on a copy of the input, into a
// fresh output array, with the status checked by the caller.
#ifndef ZPTG_TESTS_DFT_COMPLEX_KERNEL_CALL_H
#define ZPTG_TESTS_DFT_COMPLEX_KERNEL_CALL_H

#include <vector>

#include "dft_complex/complex_members.h"

namespace zptg::test {

template <class E>
struct Result {
    zptgStatus status;
    std::vector<E> out;
};

template <class E>
Result<E> call(Kernel<E> kernel, const std::vector<E>& in, int flag)
{
    Result<E> r{zptgStatusOk, std::vector<E>(in.size(), E{0, 0})};
    r.status = kernel(in.data(), r.out.data(), flag);
    return r;
}

constexpr int kFlags[] = {zptgScaleFwdByN, zptgScaleInvByN, zptgScaleBySqrtN, zptgScaleNone};

}  // namespace zptg::test

#endif
