// A scalar that counts its operations, for running the DCT-IV bodies
// operation by operation: products, sums and differences, and negations,
// each counted where it happens. Values are held as double so that the same
// run also yields results to compare with a reference.
#ifndef ZPTG_TESTS_DCT4_COMPUTE_COUNTING_H
#define ZPTG_TESTS_DCT4_COMPUTE_COUNTING_H

#include <complex>
#include <vector>

#include "dct4/compute_arith.h"

namespace zptg::test {

struct OpCounts {
    long products = 0;
    long sums = 0;  // additions and subtractions
    long negations = 0;
};

inline OpCounts g_ops;

struct Counted {
    double v = 0;
    Counted() = default;
    constexpr Counted(double x) : v(x) {}  // literal constants and loaded data
    explicit operator double() const { return v; }
};

inline Counted operator+(Counted a, Counted b)
{
    ++g_ops.sums;
    return a.v + b.v;
}
inline Counted operator-(Counted a, Counted b)
{
    ++g_ops.sums;
    return a.v - b.v;
}
inline Counted operator*(Counted a, Counted b)
{
    ++g_ops.products;
    return a.v * b.v;
}
inline Counted operator-(Counted a)
{
    ++g_ops.negations;
    return -a.v;
}

// Counts of the operations run while the object lives.
class CountScope {
public:
    CountScope() { g_ops = OpCounts{}; }
    const OpCounts& counts() const { return g_ops; }
};

// n complex values from 2n reals (the n real parts first), once as
// counting scalars for a body and once in long double for a reference.
struct ComplexInput {
    std::vector<dct4::Cplx<Counted>> counted;
    std::vector<std::complex<long double>> exact;
};

inline ComplexInput complex_input(const std::vector<long double>& data, int n)
{
    ComplexInput in{std::vector<dct4::Cplx<Counted>>(n),
                    std::vector<std::complex<long double>>(n)};
    for (int i = 0; i < n; ++i) {
        in.counted[i] = {Counted(double(data[i])), Counted(double(data[n + i]))};
        in.exact[i] = {data[i], data[n + i]};
    }
    return in;
}

}  // namespace zptg::test

#endif
