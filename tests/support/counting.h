// A scalar that counts its products, sums (and differences) and negations,
// holding its value as double so that the same run yields results, for the
// DCT-IV bodies; Reader and Writer log the order of a body's accesses.
#ifndef ZPTG_TESTS_SUPPORT_COUNTING_H
#define ZPTG_TESTS_SUPPORT_COUNTING_H

#include <vector>

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

struct AccessLog {  // every read and store by index, in order
    std::vector<int> reads, stores;
    int reads_before_first_store = -1;
};

struct Reader {
    const double* p;
    AccessLog* log;
    Counted operator[](int i) const { return log->reads.push_back(i), Counted(p[i]); }
};

struct Writer {
    struct Store {
        double* p;
        int i;
        AccessLog* log;
        void operator=(Counted v) const
        {
            if (log->stores.empty()) log->reads_before_first_store = int(log->reads.size());
            log->stores.push_back(i);
            p[i] = v.v;
        }
    };
    double* p;
    AccessLog* log;
    Store operator[](int i) const { return {p, i, log}; }
};

}  // namespace zptg::test

#endif
