// What the generated real DFT kernels wrap around their bodies: the element
// access of plain real arrays. A body reads position k as a double and
// stores each output through Store, which rounds to the element's width;
// Store::zero writes the literal +0.0 of the CCS layout.
#ifndef ZPTG_DFT_REAL_KERNEL_SHELL_H
#define ZPTG_DFT_REAL_KERNEL_SHELL_H

#include "frame/kernel.h"

namespace zptg::dft_real {

template <class E>
struct Loader {
    const E* p;
    double operator()(int position) const { return double(p[position]); }
};

template <class E>
struct Storer {
    E* p;
    void operator()(int position, double v) const { p[position] = E(v); }
    void zero(int position) const { p[position] = E(0); }
};

inline Loader<float> Load(const zptg32f* a) { return {a}; }
inline Loader<double> Load(const zptg64f* a) { return {a}; }
inline Storer<float> Store(zptg32f* a) { return {a}; }
inline Storer<double> Store(zptg64f* a) { return {a}; }

}  // namespace zptg::dft_real

#endif
