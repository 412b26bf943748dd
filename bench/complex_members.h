// The four members of the complex DFT family as the benchmark sees them:
// element kind, direction, FFTW's sign, the 63 kernels by length and the
// dispatcher; and a Subject for a kernel and for a dispatcher call.
#ifndef ZPTG_BENCH_COMPLEX_MEMBERS_H
#define ZPTG_BENCH_COMPLEX_MEMBERS_H

#include "fftw_peer.h"
#include "timing.h"
#include "zptgenpx.h"

namespace zptg::bench {

template <class E>
struct ComplexMember {
    using Kernel = zptgStatus (*)(const E*, E*, int);
    using Dispatcher = zptgStatus (*)(const E*, E*, int, int);
    const char* kind;       // "32fc", "64fc"
    const char* direction;  // "forward", "inverse" (as in the manifest)
    const char* stem;
    int sign;               // FFTW_FORWARD or FFTW_BACKWARD
    Kernel kernels[63];     // length 2 .. 64
    Dispatcher dispatcher;
};

#define ZPTG_BENCH_KERNEL_(stem, kind, type, N) stem##_##N##_##kind,
#define ZPTG_BENCH_MEMBER_(stem, kind, type, dir, sign)                                   \
    ComplexMember<type>                                                                   \
    {                                                                                     \
        #kind, dir, #stem, sign, {ZPTG_LENGTHS_2_64(ZPTG_BENCH_KERNEL_, stem, kind, type)}, \
            stem##_##kind                                                                 \
    }

inline const ComplexMember<zptg32fc> kMembers32[] = {
    ZPTG_BENCH_MEMBER_(zptgDFTFwd_CToC, 32fc, zptg32fc, "forward", FFTW_FORWARD),
    ZPTG_BENCH_MEMBER_(zptgDFTInv_CToC, 32fc, zptg32fc, "inverse", FFTW_BACKWARD),
};
inline const ComplexMember<zptg64fc> kMembers64[] = {
    ZPTG_BENCH_MEMBER_(zptgDFTFwd_CToC, 64fc, zptg64fc, "forward", FFTW_FORWARD),
    ZPTG_BENCH_MEMBER_(zptgDFTInv_CToC, 64fc, zptg64fc, "inverse", FFTW_BACKWARD),
};

#undef ZPTG_BENCH_MEMBER_
#undef ZPTG_BENCH_KERNEL_

// The real type of an element kind, for FFTW.
template <class E>
using RealOf = decltype(E::re);

template <class E>
class KernelSubject : public Subject {
public:
    KernelSubject(typename ComplexMember<E>::Kernel k, const E* src, E* dst)
        : kernel_(k), src_(src), dst_(dst)
    {
    }
    void run(long calls) override
    {
        for (long i = 0; i < calls; ++i) kernel_(src_, dst_, zptgScaleNone);
    }

private:
    typename ComplexMember<E>::Kernel kernel_;
    const E* src_;
    E* dst_;
};

template <class E>
class DispatcherSubject : public Subject {
public:
    DispatcherSubject(typename ComplexMember<E>::Dispatcher d, int n, const E* src, E* dst)
        : dispatcher_(d), n_(n), src_(src), dst_(dst)
    {
    }
    void run(long calls) override
    {
        for (long i = 0; i < calls; ++i) dispatcher_(src_, dst_, n_, zptgScaleNone);
    }

private:
    typename ComplexMember<E>::Dispatcher dispatcher_;
    int n_;
    const E* src_;
    E* dst_;
};

}  // namespace zptg::bench

#endif
