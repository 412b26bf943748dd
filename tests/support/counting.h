// A scalar that counts its products, sums (and differences) and negations, holding its value as
// double so that the same run yields results: the DCT-IV bodies run on it.
#ifndef ZPTG_TESTS_SUPPORT_COUNTING_H
#define ZPTG_TESTS_SUPPORT_COUNTING_H

namespace zptg::test {

struct OpCounts {
    long products = 0;
    long sums = 0;  // additions and subtractions
    long negations = 0;
    bool operator==(const OpCounts&) const = default;
};

inline OpCounts g_ops;

struct Counted {
    double v = 0;
    Counted() = default;
    constexpr Counted(double x) : v(x) {}  // literal constants and loaded data
    explicit operator double() const { return v; }
};

inline Counted operator+(Counted a, Counted b) { return ++g_ops.sums, a.v + b.v; }
inline Counted operator-(Counted a, Counted b) { return ++g_ops.sums, a.v - b.v; }
inline Counted operator*(Counted a, Counted b) { return ++g_ops.products, a.v * b.v; }
inline Counted operator-(Counted a) { return ++g_ops.negations, -a.v; }

class CountScope {  // counts from here on
public:
    CountScope() { g_ops = OpCounts{}; }
    const OpCounts& counts() const { return g_ops; }
};

}  // namespace zptg::test

#endif
