// What the generated complex kernels wrap around their bodies: the argument
// checks and scale choice of every kernel, and the element access that the
// bodies are instantiated with. A body reads slot 2k (real part of element k)
// and 2k + 1 (imaginary part) as a double, and stores each output through
// Store, which rounds to the element's width (out.zero, the literal zero of
// the packed real layouts, is part of the bodies' contract but never used
// by a complex body).
#ifndef ZPTG_DFT_COMPLEX_KERNEL_SHELL_H
#define ZPTG_DFT_COMPLEX_KERNEL_SHELL_H

#include "frame/kernel.h"

namespace zptg::dft_complex {

template <class E>
struct Loader {
    const E* p;
    double operator()(int slot) const { return double(p[slot]); }
};

template <class E>
struct Storer {
    E* p;
    void operator()(int slot, double v) const { p[slot] = E(v); }
    void zero(int slot) const { p[slot] = E(0); }
};

inline Loader<float> Load(const zptg32fc* a) { return {&a->re}; }
inline Loader<double> Load(const zptg64fc* a) { return {&a->re}; }
inline Storer<float> Store(zptg32fc* a) { return {&a->re}; }
inline Storer<double> Store(zptg64fc* a) { return {&a->re}; }

}  // namespace zptg::dft_complex

#endif
