// What the family's results are measured against.
//
// Inputs are dyadic: multiples of 2^-B below 1 in magnitude, with B chosen
// per order so that B + order <= 63. Every partial sum of the transform is
// then an integer multiple of 2^-B below 2^63 of them, which a long double
// (64-bit significand) holds exactly: the long double transform below is
// the exact transform, whichever order it adds in. The inputs use all the
// element's significand bits where there is room, and their exponents
// spread over several binades, so that the element-width network rounds at
// every order.
#ifndef ZPTG_TESTS_WHT_REFERENCE_H
#define ZPTG_TESTS_WHT_REFERENCE_H

#include <cstdint>
#include <vector>

namespace zptg::test::wht {

using Exact = std::vector<long double>;

// 2^order dyadic values in (-1, 1), reproducible from seed.
template <class T>
std::vector<T> dyadic_input(int order, std::uint32_t seed);

// The transform of x, computed exactly for dyadic inputs (unscaled).
Exact exact_transform(const Exact& x);

// The transform by its definition: y[i] = sum_j (-1)^popcount(i & j) x[j].
Exact defining_sum(const Exact& x);

// The plain radix-2 network in width T: stages of distance 1, 2, 4, ...,
// butterflies (a, b) -> (a + b, a - b) with the lower index as minuend, and
// every output multiplied by factor at the end.
template <class T>
std::vector<T> plain_network(const std::vector<T>& x, T factor);

// A bound on |computed - exact * s| for every output of a transform of
// `order` stages in width T: order roundings along each path of the
// network, the rounding of the scale constant (up to 1.5 units in the last
// place) and of the final product, each relative to the sum of |x|.
template <class T>
long double error_bound(int order, long double sum_abs, long double s);

template <class T>
Exact widen(const std::vector<T>& x)
{
    return Exact(x.begin(), x.end());
}

long double sum_of_magnitudes(const Exact& x);

}  // namespace zptg::test::wht

#endif
