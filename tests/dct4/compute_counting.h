// A scalar that counts its operations, for running the DCT-IV bodies
// operation by operation: products, sums and differences, and negations,
// each counted where it happens. Values are held as double so that the same
// run also yields results to compare with a reference.
#ifndef ZPTG_TESTS_DCT4_COMPUTE_COUNTING_H
#define ZPTG_TESTS_DCT4_COMPUTE_COUNTING_H

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

}  // namespace zptg::test

#endif
