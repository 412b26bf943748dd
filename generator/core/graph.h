// The expression graph over real values that every kernel is built from.
//
// A node is an input, a sum, a difference, or the product of a node with a
// literal constant. Constants are positive magnitudes: a negative factor, or
// a negated operand, is never a node of its own. Instead every value handed
// around is a `Real`, a node together with a sign, and the sign is resolved
// when the value is used: a + (-b) becomes the difference a - b, (-a) + (-b)
// becomes the negated sum -(a + b), c * (-a) the negated product. So the
// graph holds no negation at all, and the signs of a stage decide whether a
// later stage adds or subtracts, exactly as in hand-written kernels.
//
// Nodes are interned: asking twice for the same operation on the same
// operands (in the same order) gives the same node, so a value that a rule
// forms twice is computed once. The exact zero is a value too, so that
// pruned inputs (the imaginary parts of real data) drop out of every sum.
#ifndef ZPTG_GEN_GRAPH_H
#define ZPTG_GEN_GRAPH_H

#include <cstdint>
#include <map>
#include <tuple>
#include <vector>

namespace zptg::gen {

enum class Op : uint8_t { Input, Add, Sub, Mul };

struct Node {
    Op op;
    int a = -1;         // first operand (Add, Sub, Mul)
    int b = -1;         // second operand (Add, Sub)
    int constant = -1;  // index into Graph::constants (Mul)
    int input = -1;     // input slot (Input)
    // Mul: a product that the graph asked for as it stands (a doubling),
    // which mul_distributed() never takes into another constant.
    bool kept = false;
};

// A node with a sign; node == kZero is the exact zero.
struct Real {
    static constexpr int kZero = -1;
    int node = kZero;
    bool neg = false;

    bool is_zero() const { return node == kZero; }
    Real operator-() const { return is_zero() ? *this : Real{node, !neg}; }
    friend bool operator==(const Real&, const Real&) = default;
};

class Graph {
public:
    Real input(int slot);
    Real add(Real x, Real y);
    Real sub(Real x, Real y) { return add(x, -y); }
    // c * x for a literal c of either sign; c = 1 and c = -1 cost nothing.
    Real mul(long double c, Real x);
    // c * x, where a sum or difference of two products x = c1 * y +- c2 * z
    // is taken apart: the result is (c c1) * y +- (c c2) * z. So constants
    // that meet are held as their products, and the product with c is not
    // made. (For an x that has no other use: its products then go unused.)
    // Doublings are never taken apart: c * x is then one product.
    Real mul_distributed(long double c, Real x);
    // 2 * x as a product of its own (the doubling of a term of the conjugate
    // half in an inverse real transform): counted and emitted as a product
    // by 2.0, and never taken into a later constant by mul_distributed().
    // (The inverse real kernels fold it into the few constants that take
    // the factor in, rules/real_kernel.h.)
    Real doubled(Real x);
    // The same value with its difference taken the other way round: for a
    // difference a - b, the node b - a with the sign flipped. Other values
    // are returned as they are.
    Real reorient(Real x);
    // reorient(x) where `flip` is set, else x.
    Real oriented(Real x, bool flip) { return flip ? reorient(x) : x; }

    const std::vector<Node>& nodes() const { return nodes_; }
    const Node& node(int i) const { return nodes_[i]; }
    // Constant values, positive, in order of first use.
    const std::vector<long double>& constants() const { return constants_; }
    int input_count() const { return input_count_; }

private:
    int intern(const Node& n);
    int constant_index(long double magnitude);

    std::vector<Node> nodes_;
    std::vector<long double> constants_;
    std::map<double, int> constant_by_value_;
    std::map<std::tuple<Op, int, int, int, int, bool>, int> interned_;
    int input_count_ = 0;
};

}  // namespace zptg::gen

#endif
