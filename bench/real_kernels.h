// Kernels of the real-valued fixed-size families (real DFT, Hartley) as the
// benchmark sees them: plain float or double arrays in and out, looked up
// by their exported names at run time, so that a family's part runs as far
// as the library exports it.
#ifndef ZPTG_BENCH_REAL_KERNELS_H
#define ZPTG_BENCH_REAL_KERNELS_H

#include <string>

#include "bench.h"
#include "timing.h"
#include "zptgenpx.h"

namespace zptg::bench {

template <class R>
using RealKernel = zptgStatus (*)(const R*, R*, int);

template <class R>
constexpr const char* kind_name()
{
    return sizeof(R) == 4 ? "32f" : "64f";
}

// <stem>_<n>_<kind>, or null if the library does not export it.
template <class R>
RealKernel<R> real_kernel(const std::string& stem, int n)
{
    const std::string name = stem + "_" + std::to_string(n) + "_" + kind_name<R>();
    return library_function<RealKernel<R>>(name.c_str());
}

template <class R>
class RealKernelSubject : public Subject {
public:
    RealKernelSubject(RealKernel<R> k, const R* src, R* dst) : kernel_(k), src_(src), dst_(dst) {}
    void run(long calls) override
    {
        for (long i = 0; i < calls; ++i) kernel_(src_, dst_, zptgScaleNone);
    }

private:
    RealKernel<R> kernel_;
    const R* src_;
    R* dst_;
};

}  // namespace zptg::bench

#endif
