// A symbolic element type for the generated bodies: instantiated with it, a body runs once and
// leaves a tape of everything it did, in order: every read of an input slot, every constant it
// holds, every sum, difference, product and sign flip, and every store of a value or of a literal
// zero. The scale factor is a value of its own
// kind, so that its products can be told apart from those of the transform.
#ifndef ZPTG_TESTS_SUPPORT_SYMBOLIC_H
#define ZPTG_TESTS_SUPPORT_SYMBOLIC_H

#include <functional>
#include <vector>

namespace zptg::test {

enum class Op { Input, Constant, Scale, Add, Sub, Mul, Neg, Store, Zero };

// One step: a and b are the tape positions of the operands (a op b; Neg: -a; a Store stores a).
struct Step {
    Op op;
    int a = -1, b = -1;
    int slot = -1;     // Input, Store, Zero
    double value = 0;  // Constant
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

struct SymbolIn {  // in(slot) reads
    Symbol operator()(int slot) const;
};
struct SymbolOut {  // out(slot, value) stores, out.zero(slot) stores a literal zero
    void operator()(int slot, Symbol value) const;
    void zero(int slot) const;
};

// Runs body(scale) with a fresh scale symbol, the tape's first step, and returns the tape.
Tape record(const std::function<void(Symbol)>& body);

}  // namespace zptg::test

#endif
