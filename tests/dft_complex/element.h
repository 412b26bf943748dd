// The two element kinds of the complex family seen from the tests: their
// real type and epsilon, and the arrays the tests feed to the kernels
// (reproducible pseudo-random data, impulses), with a
// bit-for-bit comparison of two arrays.
#ifndef ZPTG_TESTS_DFT_COMPLEX_ELEMENT_H
#define ZPTG_TESTS_DFT_COMPLEX_ELEMENT_H

#include <cstddef>
#include <cstring>
#include <limits>
#include <vector>

#include "zptgenpx.h"

namespace zptg::test {

template <class E>
struct Element;
template <>
struct Element<zptg32fc> {
    using Real = float;
    static constexpr const char* kind = "32fc";
};
template <>
struct Element<zptg64fc> {
    using Real = double;
    static constexpr const char* kind = "64fc";
};

template <class E>
using RealOf = typename Element<E>::Real;

template <class E>
constexpr long double epsilon_of()
{
    return std::numeric_limits<RealOf<E>>::epsilon();
}

// n elements with both parts in [-1, 1), multiples of 2^-22 so that the
// same values are exact in either width; the seed picks the sequence.
template <class E>
std::vector<E> random_input(int n, unsigned seed)
{
    std::vector<E> x(n);
    unsigned state = seed * 2654435761u + 97u;
    auto next = [&state] {
        state = state * 1664525u + 1013904223u;
        return RealOf<E>(int(state >> 9) - (1 << 22)) / RealOf<E>(1 << 22);
    };
    for (E& e : x) {
        e.re = next();
        e.im = next();
    }
    return x;
}

// The unit impulse at element `at`.
template <class E>
std::vector<E> impulse(int n, int at)
{
    std::vector<E> x(n, E{0, 0});
    x[at].re = 1;
    return x;
}

template <class E>
bool same_bits(const std::vector<E>& a, const std::vector<E>& b)
{
    return a.size() == b.size() && std::memcmp(a.data(), b.data(), a.size() * sizeof(E)) == 0;
}

// The parts of element k in slot order: slot 2k is the real part, 2k + 1
// the imaginary part.
template <class E>
RealOf<E> part(const std::vector<E>& v, int slot)
{
    return slot % 2 == 0 ? v[slot / 2].re : v[slot / 2].im;
}

}  // namespace zptg::test

#endif
