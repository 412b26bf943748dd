// A symbolic element for the generated bodies: instantiated with Symbol, a body runs once and
// leaves a tape of everything it did, in order: every read of an input slot, every constant it
// holds, every sum, difference, product and sign flip, and every store of a value or of a literal
// zero. The scale factor is a value of its own kind, so that its products can be told apart from
// those of the transform. What a tape says about its body: the operations it counts, the constants
// it holds, how often each slot is read and stored and where reads and stores stand, and the first
// step outside the bodies' contract (a product that is not constant or scale times data, a sum of
// anything but data, a constant that is not a positive magnitude, a scale product used otherwise
// than by one store, as it is or through one sign flip, a value computed for nothing, a slot out of
// range).
#ifndef ZPTG_TESTS_SUPPORT_TAPE_H
#define ZPTG_TESTS_SUPPORT_TAPE_H

#include <array>
#include <set>
#include <string>
#include <utility>
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
    explicit Symbol(double literal);  // a constant of the body: `const T k0(0.5)`
    explicit Symbol(const Step& step);  // appends the step to the tape being recorded
    int position() const { return position_; }

private:
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

// Runs a body with a fresh scale symbol, the tape's first step, and returns the tape.
using SymbolicBody = void (*)(const SymbolIn&, const SymbolOut&, Symbol);
Tape record(SymbolicBody body);

// Table with every part's bodies: add<Part>(table) for Part = 0 .. Parts - 1.
template <class Table, int Parts, class Add>
Table collect_parts(Add add)
{
    Table table;
    [&]<int... P>(std::integer_sequence<int, P...>) { (add.template operator()<P>(table), ...); }(
        std::make_integer_sequence<int, Parts>());
    return table;
}

// Additions, subtractions, products with a constant, distinct constants.
using Counts = std::array<int, 4>;

struct TapeSummary {
    Counts counts{};
    std::set<double> constants;      // distinct values in products
    int held = 0;                    // constants the body declares
    int scale_products = 0, negations = 0, zeros = 0;
    int doublings = 0;               // products of a read by the constant 2
    std::vector<int> reads, stores;  // per slot; stores count literal zeros
    std::vector<int> stored;         // per slot: the position of the last value stored there
    int last_read = -1, first_store = -1;
    std::string fault;               // the first step outside the contract
};

// Slots 0 .. slots - 1.
TapeSummary summarize(const Tape& tape, int slots);

}  // namespace zptg::test

#endif
