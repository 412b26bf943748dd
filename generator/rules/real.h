// Real transforms: the forward transform R(n) of n real values to the half
// spectrum X[0..n/2], and the inverse I(n) back to n real values, each by
// its rule, as graphs. They are the real families' kernels and, applied to
// the real and the imaginary parts separately, the two halves of the Rader
// form of the complex family (rules/rader.cpp).
//
//   forward  X[k] = sum over n of x[n] W^(r n k),  W = exp(-2 pi i / n)
//   inverse  x[j] = X[0] + sum over k = 1..(n-1)/2 of (R'[k] cos(2 pi r j k / n)
//                   - I'[k] sin(2 pi r j k / n)) + (-1)^j X[n/2]
//
// r is the power of the root the transform runs at: 1 for a transform of
// its own, another unit modulo n for a stage of a Good-Thomas split. The
// inverse takes its complex terms already doubled (R'[k] + i I'[k] =
// 2 X[k]): the factor 2 that stands for the conjugate half is the caller's
// (a doubling of its own in a kernel, the spectrum constants in Rader's
// form), so no rule below multiplies by 2.
#ifndef ZPTG_GEN_RULES_REAL_H
#define ZPTG_GEN_RULES_REAL_H

#include <utility>
#include <vector>

#include "core/complex.h"

namespace zptg::gen {

// X[0..n/2] as pairs; the imaginary parts of X[0] and of X[n/2] (even n)
// are zero.
using HalfSpectrum = std::vector<Cplx>;
using RVec = std::vector<Real>;

enum class RealForm { Direct, GoodThomas, CooleyTukey, Rader };

struct RealRule {
    int n = 0;
    RealForm form = RealForm::Direct;
    // Composite forms, a x b. Forward: the transforms of size a run first,
    // on the input cosets, then the rows of size b. Inverse: the rows of
    // size b run first and the transforms of size a last, on the output
    // cosets (the forward rule read backwards).
    int a = 0, b = 0;
    const RealRule* a_rule = nullptr;  // the size-a stage, where not its table rule
    const RealRule* b_rule = nullptr;  // the real rows of size b, likewise
    // Rader: primitive root, the forward transform of length n - 1 of the
    // first half and the inverse one of the second half.
    int root = 0;
    const RealRule* first = nullptr;
    const RealRule* second = nullptr;
    // Rader: which of its differences the form takes the other way round,
    // as the complex Rader rules name theirs (core/graph.h): the start
    // t0 = x0 - U[0]/L, the difference of each spectrum rotation, and, in
    // the forward form, the outputs of its two inverse halves. Values and
    // counts stay as they are; only the split of the later sums into
    // additions and subtractions follows.
    bool reversed_start = false;
    bool reversed_rotations = false;
    bool reversed_halves = false;
};

// The rule of the real kernels of length n, forward and inverse.
const RealRule& real_forward_rule(int n);
const RealRule& real_inverse_rule(int n);
// The rule of the forward kernel of length n: the table's, but for the few
// lengths whose table rule is oriented for its use inside a complex kernel.
const RealRule& real_forward_kernel_rule(int n);

// The transforms by a rule, at the power r of the root.
HalfSpectrum real_forward(Graph& g, const RealRule& rule, const RVec& x, int power = 1);
RVec real_inverse(Graph& g, const RealRule& rule, const HalfSpectrum& X, int power = 1);

// The forward transform of an even length n whose input comes as the sums
// and differences of its two halves: plus[q] = x[q] + x[q + n/2] and
// minus[q] = x[q] - x[q + n/2], q < n/2. The rule's first butterflies on
// those pairs are the ones not made.
HalfSpectrum real_forward_halves(Graph& g, const RealRule& rule, const RVec& plus,
                                 const RVec& minus, int power = 1);

// The forms, as real_forward and real_inverse call them.
HalfSpectrum real_direct_forward(Graph& g, const RVec& x, int power);
RVec real_direct_inverse(Graph& g, int n, const HalfSpectrum& X, int power);
HalfSpectrum real_good_thomas_forward(Graph& g, const RealRule& rule, const RVec& x, int power);
RVec real_good_thomas_inverse(Graph& g, const RealRule& rule, const HalfSpectrum& X, int power);
HalfSpectrum real_cooley_tukey_forward(Graph& g, const RealRule& rule, const RVec& x, int power);
RVec real_cooley_tukey_inverse(Graph& g, const RealRule& rule, const HalfSpectrum& X, int power);
HalfSpectrum real_rader_forward(Graph& g, const RealRule& rule, const RVec& x, int power);
RVec real_rader_inverse(Graph& g, const RealRule& rule, const HalfSpectrum& X, int power);
HalfSpectrum real_good_thomas_forward_halves(Graph& g, const RealRule& rule, const RVec& plus,
                                             const RVec& minus, int power);
HalfSpectrum real_cooley_tukey_forward_halves(Graph& g, const RealRule& rule, const RVec& plus,
                                              const RVec& minus, int power);

// For an inverse rule of even length n: whether output j is the member of
// the pair (j, j + n/2) that the rule makes as it is. A spectrum of even
// terms only gives x[j + n/2] = x[j], one of odd terms only x[j + n/2] =
// -x[j]; the rule makes the other member of the pair from negated copies
// of its last stage's inputs, which a caller that needs one member only
// does not want.
bool real_inverse_keeps(const RealRule& rule, int j);

// Helpers shared by the forms.
// The full spectrum value X[k] of a half spectrum, for any k (conjugate
// above n/2).
Cplx spectrum_at(const HalfSpectrum& X, int n, int k);
// Stores value as X[k] of a half spectrum of length n: as itself for
// k <= n/2, as the conjugate at n - k above.
void store_spectrum(HalfSpectrum* X, int n, int k, Cplx value);
// The complex transform of a row inside a real rule, at power r:
// Y[k] = sum over j of y[j] W^(r j k) in direction dir.
CVec complex_row(const ComplexOps& ops, const CVec& y, Dir dir, int power);
// The same for a row whose input comes as the sums and differences of its
// halves (lengths 2 and 4).
CVec complex_row_halves(const ComplexOps& ops, const CVec& plus, const CVec& minus, Dir dir,
                        int power);
// The pair (x[q] + x[q + n/2], x[q] - x[q + n/2]) for any q, from the sums
// and differences of the halves (q < n/2).
std::pair<Real, Real> halves_at(const RVec& plus, const RVec& minus, int q);

}  // namespace zptg::gen

#endif
