// A symbolic element type for the generated bodies: instantiated with it, a
// body runs once and leaves a tape of everything it did, in order: every
// read of an input slot, every constant it holds, every sum, difference,
// product and negation, and every store, of a value or of a literal zero.
// The scale factor is a value of its own kind, so
// that its products can be told apart from those of the transform.
#ifndef ZPTG_TESTS_DFT_COMPLEX_SYMBOLIC_H
#define ZPTG_TESTS_DFT_COMPLEX_SYMBOLIC_H

#include <vector>

#include "dft_complex/complex_members.h"

namespace zptg::test {

enum class Op { Input, Constant, Scale, Add, Sub, Mul, Neg, Store, Zero };

// One step of the tape. a and b are the tape positions of the operands
// (Add, Sub, Mul: a op b; Neg: -a; Store: a is the value stored).
struct Step {
    Op op;
    int a = -1;
    int b = -1;
    int slot = -1;      // Input, Store, Zero
    double value = 0;   // Constant
};

using Tape = std::vector<Step>;

class Symbol {
public:
    // A constant of the body: `const T k0(0.5)`.
    explicit Symbol(double literal);
    static Symbol scale();
    int position() const { return position_; }

private:
    friend class SymbolAccess;
    explicit Symbol(int position, int) : position_(position) {}
    int position_;
};

Symbol operator+(Symbol a, Symbol b);
Symbol operator-(Symbol a, Symbol b);
Symbol operator*(Symbol a, Symbol b);
Symbol operator-(Symbol a);

// The body's view of the arrays: in(slot) reads, out(slot, value) stores,
// out.zero(slot) stores a literal zero.
struct SymbolIn {
    Symbol operator()(int slot) const;
};
struct SymbolOut {
    void operator()(int slot, Symbol value) const;
    void zero(int slot) const;
};

using SymbolicBody = void (*)(const SymbolIn&, const SymbolOut&, Symbol);

// The body of length n and direction d, instantiated with Symbol.
SymbolicBody symbolic_body(int n, Dir d);

// Runs a body with a fresh scale symbol and returns its tape. The first
// step of every tape is the scale, made before the body starts.
Tape record(SymbolicBody body);
// The tape of the complex body of length n and direction d.
Tape record(int n, Dir d);

}  // namespace zptg::test

#endif
