// FFTW as the peer: one interface over its double (fftw_) and single
// (fftwf_) precision APIs, and a Subject that executes a plan on the arrays
// it was planned with.
#ifndef ZPTG_BENCH_FFTW_PEER_H
#define ZPTG_BENCH_FFTW_PEER_H

#include <fftw3.h>

#include "timing.h"

namespace zptg::bench {

template <class R>
struct Fftw;

template <>
struct Fftw<double> {
    using Plan = fftw_plan;
    using Complex = fftw_complex;
    static void* alloc(size_t bytes) { return fftw_malloc(bytes); }
    static void free(void* p) { fftw_free(p); }
    static Plan dft(int n, Complex* in, Complex* out, int sign, unsigned flags)
    {
        return fftw_plan_dft_1d(n, in, out, sign, flags);
    }
    static Plan r2c(int n, double* in, Complex* out, unsigned flags)
    {
        return fftw_plan_dft_r2c_1d(n, in, out, flags);
    }
    static Plan c2r(int n, Complex* in, double* out, unsigned flags)
    {
        return fftw_plan_dft_c2r_1d(n, in, out, flags);
    }
    static Plan r2r(int n, double* in, double* out, fftw_r2r_kind kind, unsigned flags)
    {
        return fftw_plan_r2r_1d(n, in, out, kind, flags);
    }
    static void execute(Plan p) { fftw_execute(p); }
    static void destroy(Plan p) { fftw_destroy_plan(p); }
    static void set_timelimit(double s) { fftw_set_timelimit(s); }
    static void flops(Plan p, double* add, double* mul, double* fma) { fftw_flops(p, add, mul, fma); }
};

template <>
struct Fftw<float> {
    using Plan = fftwf_plan;
    using Complex = fftwf_complex;
    static void* alloc(size_t bytes) { return fftwf_malloc(bytes); }
    static void free(void* p) { fftwf_free(p); }
    static Plan dft(int n, Complex* in, Complex* out, int sign, unsigned flags)
    {
        return fftwf_plan_dft_1d(n, in, out, sign, flags);
    }
    static Plan r2c(int n, float* in, Complex* out, unsigned flags)
    {
        return fftwf_plan_dft_r2c_1d(n, in, out, flags);
    }
    static Plan c2r(int n, Complex* in, float* out, unsigned flags)
    {
        return fftwf_plan_dft_c2r_1d(n, in, out, flags);
    }
    static Plan r2r(int n, float* in, float* out, fftwf_r2r_kind kind, unsigned flags)
    {
        return fftwf_plan_r2r_1d(n, in, out, kind, flags);
    }
    static void execute(Plan p) { fftwf_execute(p); }
    static void destroy(Plan p) { fftwf_destroy_plan(p); }
    static void set_timelimit(double s) { fftwf_set_timelimit(s); }
    static void flops(Plan p, double* add, double* mul, double* fma) { fftwf_flops(p, add, mul, fma); }
};

// The two ways FFTW is planned here: restricted to its scalar codelets (the
// same instruction set as ours) and free to pick SIMD codelets.
constexpr unsigned kFftwScalar = FFTW_MEASURE | FFTW_NO_SIMD;
constexpr unsigned kFftwSimd = FFTW_MEASURE;

// A complex DFT of length n planned on arrays of its own.
template <class R>
struct PlannedDft {
    using F = Fftw<R>;
    PlannedDft(int n, int sign, unsigned flags)
        : in(static_cast<typename F::Complex*>(F::alloc(sizeof(typename F::Complex) * size_t(n)))),
          out(static_cast<typename F::Complex*>(F::alloc(sizeof(typename F::Complex) * size_t(n)))),
          plan(F::dft(n, in, out, sign, flags))
    {
    }
    ~PlannedDft()
    {
        F::destroy(plan);
        F::free(in);
        F::free(out);
    }
    PlannedDft(const PlannedDft&) = delete;
    PlannedDft& operator=(const PlannedDft&) = delete;

    typename F::Complex* in;
    typename F::Complex* out;
    typename F::Plan plan;
};

// A real transform of length n planned on arrays of its own: a real array
// of n values and a half spectrum of n/2 + 1 complex ones. kind FFTW_R2HC
// stands for the r2c plan (real to half spectrum), FFTW_HC2R for c2r, and
// any other kind for the r2r plan of that kind from real to real.
template <class R>
struct PlannedReal {
    using F = Fftw<R>;
    PlannedReal(int n, fftw_r2r_kind kind, unsigned flags)
        : real(static_cast<R*>(F::alloc(sizeof(R) * size_t(n)))),
          other(static_cast<R*>(F::alloc(sizeof(R) * size_t(n)))),
          half(static_cast<typename F::Complex*>(F::alloc(sizeof(typename F::Complex) * size_t(n / 2 + 1)))),
          plan(kind == FFTW_R2HC   ? F::r2c(n, real, half, flags)
               : kind == FFTW_HC2R ? F::c2r(n, half, real, flags)
                                   : F::r2r(n, real, other, kind, flags))
    {
    }
    ~PlannedReal()
    {
        F::destroy(plan);
        F::free(real);
        F::free(other);
        F::free(half);
    }
    PlannedReal(const PlannedReal&) = delete;
    PlannedReal& operator=(const PlannedReal&) = delete;

    R* real;   // input of r2c and r2r, output of c2r
    R* other;  // output of r2r
    typename F::Complex* half;
    typename F::Plan plan;
};

template <class R>
class FftwSubject : public Subject {
public:
    explicit FftwSubject(typename Fftw<R>::Plan p) : plan_(p) {}
    void run(long calls) override
    {
        for (long i = 0; i < calls; ++i) Fftw<R>::execute(plan_);
    }

private:
    typename Fftw<R>::Plan plan_;
};

}  // namespace zptg::bench

#endif
