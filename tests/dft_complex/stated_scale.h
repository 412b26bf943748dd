// The scale constants a kernel must hold, worked out here from their rules
// rather than taken from the library: 1/N as the nearest value of the
// element's width; 1/sqrt(N) as the nearest float for 32-bit kernels, and
// for 64-bit kernels as 1.0 / sqrt(N) with the root and the quotient each
// rounded to 64 bits. Exact values come from long double and are rounded
// once; a value too close to a midpoint to round safely that way is an
// error of the test, not a guess.
#ifndef ZPTG_TESTS_DFT_COMPLEX_STATED_SCALE_H
#define ZPTG_TESTS_DFT_COMPLEX_STATED_SCALE_H

#include "dft_complex/complex_members.h"

namespace zptg::test {

// x rounded to the nearest R; sets *decided to false if x lies within a
// relative 2^-62 of a midpoint between two values of R (some two units of
// long double, where the long double values here err by one at most).
template <class R>
R round_nearest(long double x, bool* decided);

template <class R>
struct ScaleConstants {
    R by_n;        // the constant of the dividing flag
    R by_sqrt_n;   // the constant of zptgScaleBySqrtN
    R nearest_by_sqrt_n;  // the R nearest to 1/sqrt(N)
    bool decided;  // false: a value could not be rounded safely
};

template <class R>
ScaleConstants<R> scale_constants(int n);

// The factor a kernel of direction d applies under `flag` (one of 1, 2, 4, 8).
template <class R>
R stated_factor(Dir d, int flag, int n);

}  // namespace zptg::test

#endif
