// Calling a kernel the way the tests do: on the caller's input, into a
// fresh output array whose every byte is 0xFF (a NaN in every part, so an
// output the kernel does not store, or a read of dst, shows in the result),
// with the status checked by the caller and whether src came back as it was.
#ifndef ZPTG_TESTS_DFT_COMPLEX_KERNEL_CALL_H
#define ZPTG_TESTS_DFT_COMPLEX_KERNEL_CALL_H

#include <cstring>
#include <vector>

#include "dft_complex/complex_members.h"

namespace zptg::test {

template <class E>
struct Result {
    zptgStatus status;
    std::vector<E> out;
    bool src_kept;
};

template <class E>
Result<E> call(Kernel<E> kernel, const std::vector<E>& in, int flag)
{
    const std::vector<E> before = in;
    Result<E> r{zptgStatusOk, std::vector<E>(in.size()), false};
    std::memset(static_cast<void*>(r.out.data()), 0xFF, r.out.size() * sizeof(E));
    r.status = kernel(in.data(), r.out.data(), flag);
    r.src_kept = std::memcmp(before.data(), in.data(), in.size() * sizeof(E)) == 0;
    return r;
}

constexpr int kFlags[] = {zptgScaleFwdByN, zptgScaleInvByN, zptgScaleBySqrtN, zptgScaleNone};

}  // namespace zptg::test

#endif
